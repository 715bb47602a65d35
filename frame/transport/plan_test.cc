// Tests of plan building: name resolution, the faults of the tables that
// abort, and the field widths.
#include <cstdint>

#include "frame/transport/plan.h"
#include "frame/transport/testutil.h"
#include "gtest/gtest.h"

namespace lk::testing {
namespace {

const FlowPair kUnknownPairs[] = {{"EXPORT.ITEM.NOPE", "EXPORT.ENTRY.CODE"}, {nullptr, nullptr}};
const FlowBinding kUnknownName = {&kItemViews, &kEntryViews, kUnknownPairs, nullptr};

const FlowPair kMixedPairs[] = {{"GRP_EXPORT.ITEM.CODE", "EXPORT.ENTRY.CODE"},
                                {nullptr, nullptr}};
const FlowBinding kGroupToSingle = {&kItemViews, &kEntryViews, kMixedPairs, nullptr};

const FlowPair kTypePairs[] = {{"EXPORT.ITEM.AMOUNT", "EXPORT.ENTRY.CODE"}, {nullptr, nullptr}};
const FlowBinding kNumberToText = {&kItemViews, &kEntryViews, kTypePairs, nullptr};

// A window whose list declares a row size that its columns do not make.
const AttributeType kCode = {5, "S ", 4, "", nullptr, 0, {0, 0}};
const ListColumnRow kColumns[] = {{0, 0, 0, 'L', 0, 0, kCode, 0, 0, {0, 0}}, {}};
const ListDescriptor kWrongSizeList = {(40u << 16) | kTagList, kColumns, 0, nullptr};
const ControlRow kListControls[] = {{7, &kWrongSizeList, nullptr, nullptr, 0, "ListBox1", 0},
                                    {0, nullptr, nullptr, nullptr, 0, nullptr, 0}};
const WindowRow kListWindow = {.procedure_id = 1, .controls = kListControls, .name = "WRONG"};
const char* const kListColumns[] = {"GRP_EXPORT.ITEM.CODE", nullptr};
const FieldBinding kListFields[] = {{7, nullptr, kListColumns, "GRP_EXPORT.RUNTIME_SUPPLIED.FLAG"},
                                    {0, nullptr, nullptr, nullptr}};
const WindowBinding kWrongRowSize = {&kListWindow, &kItemViews, kListFields};

// A binding whose fields do not follow the window's controls.
const FieldDescriptor kCodeField = {kTagEntry, &kCode};
const ControlRow kEntryControls[] = {{11, &kCodeField, nullptr, nullptr, 0, "CODE1", 0},
                                     {0, nullptr, nullptr, nullptr, 0, nullptr, 0}};
const WindowRow kEntryWindow = {.procedure_id = 1, .controls = kEntryControls, .name = "ORDER"};
const FieldBinding kOtherFields[] = {{12, "EXPORT.ITEM.CODE", nullptr, nullptr},
                                     {0, nullptr, nullptr, nullptr}};
const WindowBinding kOutOfOrder = {&kEntryWindow, &kItemViews, kOtherFields};

// A group whose ViewRows are not covered by any GroupRow.
const AttributeRow kRowAttributes[] = {{"CODE", 5, 0, 100, &kCode}, {nullptr, 0, 0, 0, nullptr}};
const ViewRow kUngroupedRows[] = {{"GRP_EXPORT.ITEM.", 3, 0, kRowAttributes},
                                  {nullptr, 0, 0, nullptr}};
const GroupRow kNoGroups[] = {{"*", 1u << 16, 0, 0, 0, 0}};
const ViewNameRow kUngrouped = {"UNGROUPED", kUngroupedRows, kNoGroups, 9};

// An attribute whose storage does not fit its type.
const AttributeType kLong = {9, "L ", 9, "", nullptr, 0, {0, 0}};
const AttributeRow kBadLong[] = {{"NUMBER", 8, 0, 100, &kLong}, {nullptr, 0, 0, 0, nullptr}};
const ViewRow kBadLongRows[] = {{"EXPORT.X.", 0, 0, kBadLong}, {nullptr, 0, 0, nullptr}};
const GroupRow kEnd[] = {{"*", 1u << 16, 0, 0, 0, 0}};
const ViewNameRow kBadStorage = {"BAD_STORAGE", kBadLongRows, kEnd, 9};

class PlanDeathTest : public ::testing::Test {
 protected:
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(PlanDeathTest, UnknownNameAbortsWithTheName) {
  EXPECT_DEATH(PrepareFlow(kUnknownName), "EXPORT\\.ITEM\\.NOPE");
}

TEST_F(PlanDeathTest, GroupColumnPairedWithASingleAborts) {
  EXPECT_DEATH(PrepareFlow(kGroupToSingle), "group column with a single");
}

TEST_F(PlanDeathTest, NumberPairedWithTextAborts) {
  EXPECT_DEATH(PrepareFlow(kNumberToText), "different types");
}

TEST_F(PlanDeathTest, ListRowSizeMustBeTheSumOfItsColumns) {
  EXPECT_DEATH(PrepareWindow(kWrongRowSize), "row size");
}

TEST_F(PlanDeathTest, FieldsFollowTheControls) {
  EXPECT_DEATH(PrepareWindow(kOutOfOrder), "control order");
}

TEST_F(PlanDeathTest, GroupViewRowNeedsAGroup) {
  EXPECT_DEATH(PrepareViews(kUngrouped), "without a group");
}

TEST_F(PlanDeathTest, StorageMustFitTheType) {
  EXPECT_DEATH(PrepareViews(kBadStorage), "NUMBER");
}

TEST(PlanTest, GoodTablesPrepareAndPrepareAgain) {
  PrepareViews(kItemViews);
  PrepareViews(kEntryViews);
  PrepareWindow(kItemWindow);
  PrepareWindow(kItemWindow);
  PrepareFlow(kItemToEntry);
  SUCCEED();
}

TEST(PlanTest, FieldTextWidths) {
  struct Case {
    AttributeType type;
    u32 width;
  };
  const Case cases[] = {
      {{31, "S ", 30, "", nullptr, 0, {0, 0}}, 30},
      {{31, "Y ", 0, "", nullptr, 0, {0, 0}}, 30},
      {{21, "Q ", 20, "", nullptr, 0, {0, 0}}, 20},
      {{26, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN", nullptr, 0, {0, 0}}, 26},
      {{12, "B ", 12, "", nullptr, 0, {0, 0}}, kNumberFieldWidth},
      {{9, "L ", 9, "", nullptr, 0, {0, 0}}, kNumberFieldWidth},
      {{3, "I ", 3, "", nullptr, 0, {0, 0}}, kNumberFieldWidth},
      {{81, "S ", 80, nullptr, nullptr, 0, {0, 0}}, 80},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.type.type_letter);
    EXPECT_EQ(c.width, FieldTextWidth(c.type));
  }
}

}  // namespace
}  // namespace lk::testing
