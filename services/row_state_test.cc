// Tests of the row state services over a group's two-byte row flags.
#include "services/row_state.h"

#include <string>

#include <gtest/gtest.h>

namespace lk {
namespace {

const int kStates[] = {0, 1, 2, 3, 4, 5, 6, 7, 8};

TEST(RowStateTest, ZeroFlagIsNoForAllStates) {
  for (int state : kStates) {
    EXPECT_EQ(0, RowStateTest(nullptr, nullptr, nullptr, '\0', state)) << state;
  }
}

TEST(RowStateTest, BlankAndHiddenFlagsAreNotSelected) {
  for (int state : kStates) {
    EXPECT_EQ(0, RowStateTest(nullptr, nullptr, nullptr, kRowNone, state)) << state;
    EXPECT_EQ(0, RowStateTest(nullptr, nullptr, nullptr, kRowHidden, state)) << state;
  }
}

struct SetCase {
  char before;
  int state;
  char after;
  bool selected;  // what states 3 and 5 then test
};

TEST(RowStateTest, SetThenTestTable) {
  const SetCase cases[] = {
      {'\0', kStateMarked, kRowSelected, true},
      {kRowNone, kStateMarked, kRowSelected, true},
      {kRowCurrent, kStateMarked, kRowCurrent, true},
      {kRowNone, kStateCurrent, kRowCurrent, true},
      {kRowSelected, kStateCurrent, kRowCurrent, true},
      {kRowSelected, kStateClear, kRowNone, false},
      {kRowCurrent, kStateClear, kRowNone, false},
      {'\0', kStateClear, '\0', false},
      {kRowHidden, kStateClear, kRowHidden, false},
      {kRowSelected, 4, kRowSelected, true},  // an unknown state changes nothing
  };
  for (const SetCase& c : cases) {
    SCOPED_TRACE(std::string("flag '") + c.before + "' state " + std::to_string(c.state));
    char flag[2] = {c.before, '\0'};
    RowStateSet(nullptr, nullptr, nullptr, flag, c.state);
    EXPECT_EQ(c.after, flag[0]);
    EXPECT_EQ('\0', flag[1]);
    EXPECT_EQ(c.selected, RowStateTest(nullptr, nullptr, nullptr, flag[0], kStateSelected) != 0);
    EXPECT_EQ(c.selected, RowStateTest(nullptr, nullptr, nullptr, flag[0], kStateMarked) != 0);
  }
}

TEST(RowStateTest, ReselectAfterReadWithFiveThenSeven) {
  char flags[4][2] = {};
  RowStateSet(nullptr, nullptr, nullptr, flags[2], kStateMarked);
  RowStateSet(nullptr, nullptr, nullptr, flags[2], kStateCurrent);
  int found = 0;
  for (int row = 1; row <= 3; ++row) {
    if (RowStateTest(nullptr, nullptr, nullptr, flags[row][0], kStateMarked) != 0) {
      found = row;
      break;
    }
  }
  EXPECT_EQ(2, found);
}

}  // namespace
}  // namespace lk
