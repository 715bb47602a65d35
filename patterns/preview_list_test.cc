// The preview list: the marking of a row by a click, released by a second
// click on the same row, and the Close that ends the link.
#include "patterns/preview_list.h"

#include <cstring>

#include <gtest/gtest.h>

#include "frame/views.h"
#include "patterns/group.h"
#include "services/row_state.h"

namespace lk::patterns {
namespace {

constexpr int kRows = 4;

class PreviewListTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetRunContext(&rc_, area_);
    std::memset(marks_, 0, sizeof marks_);
    for (int r = 1; r <= kRows; ++r) marks_[r][0] = ' ';
    PutNumber(subscript_, 0);
    PutNumber(import_subscript_, 0);
  }
  // A person's click on row r: the window marks it and clears the others.
  void Mark(int r) {
    for (int k = 1; k <= kRows; ++k) marks_[k][0] = ' ';
    if (r > 0) RowStateSet(nullptr, nullptr, &rc_, marks_[r], kStateCurrent);
  }
  void Click() {
    PreviewClick(nullptr, nullptr, &rc_, marks_, kRows, kRows, subscript_, import_subscript_);
    std::memcpy(import_subscript_, subscript_, sizeof subscript_);
  }
  int Subscript() { return static_cast<int>(GetNumber(subscript_)); }

  RunContext rc_;
  char area_[kDatabaseAreaSize];
  char marks_[kRows + 1][2];
  char subscript_[8];
  char import_subscript_[8];
};

TEST_F(PreviewListTest, AClickMarksARowAndASecondClickReleasesIt) {
  Mark(3);
  Click();
  EXPECT_EQ(3, Subscript());
  EXPECT_EQ(EXIT_NONE, rc_.exit_state);
  Mark(3);
  Click();
  EXPECT_EQ(0, Subscript());
  EXPECT_EQ(0, RowStateTest(nullptr, nullptr, &rc_, marks_[3][0], kStateSelected));
}

TEST_F(PreviewListTest, AnotherRowTakesOver) {
  Mark(1);
  Click();
  Mark(4);
  Click();
  EXPECT_EQ(4, Subscript());
}

TEST_F(PreviewListTest, CloseEndsTheLinkByReturn) {
  PreviewClose(&rc_);
  EXPECT_EQ(EXIT_RETURN, rc_.exit_state);
}

}  // namespace
}  // namespace lk::patterns
