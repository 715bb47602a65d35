// Group operations: the marked row, the row in hand after a reread, a row
// dropped in place with its marks and display bytes.
#include "patterns/group.h"

#include <cstddef>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace lk::patterns {
namespace {

constexpr int kRows = 5;

struct ListExport {
  std::uint32_t reserved;
  std::int32_t count;
  ShownColumn<kRows, 2> MARK;
  ShownColumn<kRows, 8> IS_NUMBER;
  ShownColumn<kRows, 9> ORG_ID;
  ShownColumn<kRows, 7> SHORT_NAME;
};

const AttributeType kFlag = {2, "S ", 1, "", nullptr, 0, {0, 0}};
const AttributeType kNumber = {13, "B ", 12, "", nullptr, 0, {0, 0}};
const AttributeType kOrg = {9, "S ", 8, "", nullptr, 0, {0, 0}};
const AttributeType kShort = {7, "S ", 6, "", nullptr, 0, {0, 0}};
const AttributeRow kMarkRow[] = {
    {"SELECT_CHAR", 2, 0, offsetof(ListExport, MARK.value), &kFlag}, {nullptr, 0, 0, 0, nullptr}};
const AttributeRow kRowAttributes[] = {
    {"IS_NUMBER", 8, 0, offsetof(ListExport, IS_NUMBER.value), &kNumber},
    {"ORG_ID", 9, 0, offsetof(ListExport, ORG_ID.value), &kOrg},
    {"SHORT_NAME", 7, 0, offsetof(ListExport, SHORT_NAME.value), &kShort},
    {nullptr, 0, 0, 0, nullptr}};
const ViewRow kViewRows[] = {{"GRP_EXPORT_SEL.RUNTIME_SUPPLIED.", kRows, 0, kMarkRow},
                             {"GRP_EXPORT.LAB_REMARK.", kRows, 0, kRowAttributes},
                             {nullptr, 0, 0, nullptr}};
const GroupRow kGroups[] = {{"GRP_EXPORT", 2u << 16, 1, offsetof(ListExport, count), 0, 0},
                            {"*", 2u << 16, 0, 0, 0, 0}};
const ViewNameRow kViews = {"TEST_LIST", kViewRows, kGroups, 1};

class GroupTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::memset(&view_, 0, sizeof view_);
    ResetRunContext(&rc_, area_);
    for (int r = 1; r <= 5; ++r) {
      view_.MARK.value[r][0] = ' ';
      PutNumber(view_.IS_NUMBER.value[r], r * 10);
      TextMove(view_.ORG_ID.value[r], "ZZZZZZZZ", 9);
      TextMove(view_.SHORT_NAME.value[r], std::string(1, static_cast<char>('A' + r - 1)).c_str(), 7);
      std::memcpy(view_.SHORT_NAME.display[r], r == 4 ? "10    " : "3a    ", 6);
    }
    view_.count = 5;
  }
  ListExport view_;
  RunContext rc_;
  char area_[kDatabaseAreaSize];
};

TEST_F(GroupTest, FindMarkedTakesTheFirstMarkedRowOrZero) {
  EXPECT_EQ(0, FindMarked(nullptr, nullptr, &rc_, view_.MARK, view_.count, kStateMarked));
  RowStateSet(nullptr, nullptr, &rc_, view_.MARK.value[4], kStateMarked);
  RowStateSet(nullptr, nullptr, &rc_, view_.MARK.value[2], kStateCurrent);
  EXPECT_EQ(2, FindMarked(nullptr, nullptr, &rc_, view_.MARK, view_.count, kStateMarked));
  EXPECT_EQ(2, FindMarked(nullptr, nullptr, &rc_, view_.MARK, view_.count, kStateSelected));
  // Rows beyond the count are stale and not looked at.
  EXPECT_EQ(0, FindMarked(nullptr, nullptr, &rc_, view_.MARK, 1, kStateMarked));
}

// A code-keyed table seeks by code text and ORG ID: the short names stand
// in for codes here.
TEST_F(GroupTest, SeekCodeRowMatchesCodeAndOrg) {
  EXPECT_EQ(3, SeekCodeRow(view_.SHORT_NAME, view_.ORG_ID, view_.count, "C", "ZZZZZZZZ"));
  EXPECT_EQ(0, SeekCodeRow(view_.SHORT_NAME, view_.ORG_ID, view_.count, "C", "OTHERORG"));
  EXPECT_EQ(0, SeekCodeRow(view_.SHORT_NAME, view_.ORG_ID, view_.count, "CC", "ZZZZZZZZ"));
  EXPECT_EQ(0, SeekCodeRow(view_.SHORT_NAME, view_.ORG_ID, 2, "C", "ZZZZZZZZ"));
}

TEST_F(GroupTest, SeekRowMatchesRoundedIsNumberAndOrg) {
  EXPECT_EQ(3, SeekRow(view_.IS_NUMBER, view_.ORG_ID, view_.count, 30.0000001, "ZZZZZZZZ"));
  EXPECT_EQ(0, SeekRow(view_.IS_NUMBER, view_.ORG_ID, view_.count, 30, "OTHERORG"));
  EXPECT_EQ(0, SeekRow(view_.IS_NUMBER, view_.ORG_ID, view_.count, 31, "ZZZZZZZZ"));
  EXPECT_EQ(0, SeekRow(view_.IS_NUMBER, view_.ORG_ID, 2, 30, "ZZZZZZZZ"));
}

TEST_F(GroupTest, DropMovesLaterRowsUpWithMarksAndDisplayBytes) {
  view_.MARK.value[5][0] = 'S';
  DropGroupRow(kViews, "GRP_EXPORT", &view_, 3);
  EXPECT_EQ(4, view_.count);
  const char* expected[] = {"", "A", "B", "D", "E"};
  for (int r = 1; r <= 4; ++r) {
    SCOPED_TRACE(r);
    EXPECT_EQ(std::string(expected[r]) + std::string(6 - 1, ' '),
              std::string(view_.SHORT_NAME.value[r]));
  }
  EXPECT_EQ(40, GetNumber(view_.IS_NUMBER.value[3]));
  EXPECT_EQ(std::string("10    "), std::string(view_.SHORT_NAME.display[3], 6));
  EXPECT_EQ('S', view_.MARK.value[4][0]);
}

TEST_F(GroupTest, DropOfTheOnlyRowLeavesAnEmptyGroupAndOutOfRangeNothing) {
  DropGroupRow(kViews, "GRP_EXPORT", &view_, 0);
  DropGroupRow(kViews, "GRP_EXPORT", &view_, 6);
  EXPECT_EQ(5, view_.count);
  view_.count = 1;
  DropGroupRow(kViews, "GRP_EXPORT", &view_, 1);
  EXPECT_EQ(0, view_.count);
}

}  // namespace
}  // namespace lk::patterns
