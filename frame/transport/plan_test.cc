// Tests of plan building: name resolution, the faults of the tables that
// abort, a plan built once and found again, and the field widths.
#include <cstddef>
#include <cstdint>

#include "frame/transport/plan.h"
#include "frame/transport/plan_internal.h"
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

// Copies of the shared test bindings at addresses of their own, so that no
// other test of this program has built their plans before.
const ViewNameRow& FreshItemViews() {
  static const ViewNameRow views = {"FRESH_ITEM", kItemViews.view_rows, kItemViews.group_rows,
                                    kItemViews.procedure_id};
  return views;
}

const ViewNameRow& FreshEntryViews() {
  static const ViewNameRow views = {"FRESH_ENTRY", kEntryViews.view_rows,
                                    kEntryViews.group_rows, kEntryViews.procedure_id};
  return views;
}

const WindowBinding& FreshItemWindow() {
  static const WindowBinding binding = {kItemWindow.window, &FreshItemViews(),
                                        kItemWindow.fields};
  return binding;
}

const FlowBinding& FreshItemToEntry() {
  static const FlowBinding flow = {&FreshItemViews(), &FreshEntryViews(), kItemToEntry.send,
                                   kItemToEntry.receive};
  return flow;
}

TEST(PlanTest, GoodTablesPrepareAndPrepareAgain) {
  using transport::FieldKind;
  using transport::PlanForFlow;
  using transport::PlanForViews;
  using transport::PlanForWindow;
  using transport::PlansBuilt;
  const ViewNameRow& items = FreshItemViews();
  const ViewNameRow& entries = FreshEntryViews();
  const WindowBinding& window = FreshItemWindow();
  const FlowBinding& flow = FreshItemToEntry();
  const int before = PlansBuilt();

  // Views: built by Prepare, found afterwards.
  PrepareViews(items);
  ASSERT_EQ(before + 1, PlansBuilt());
  const transport::ViewPlan& item_plan = PlanForViews(items);
  EXPECT_EQ(before + 1, PlansBuilt());
  EXPECT_EQ(&items, item_plan.views);
  EXPECT_EQ(9u, item_plan.attributes.size());
  EXPECT_EQ(6u, item_plan.singles.size());
  ASSERT_EQ(1u, item_plan.groups.size());
  EXPECT_EQ(kRows, item_plan.groups[0].limit);
  EXPECT_EQ(3u, item_plan.groups[0].columns.size());
  PrepareViews(items);
  EXPECT_EQ(before + 1, PlansBuilt());
  EXPECT_EQ(&item_plan, &PlanForViews(items));

  // A window: one plan more, on the views' plan already built.
  PrepareWindow(window);
  ASSERT_EQ(before + 2, PlansBuilt());
  const transport::WindowPlan& window_plan = PlanForWindow(window);
  EXPECT_EQ(&item_plan, window_plan.view);
  ASSERT_EQ(static_cast<std::size_t>(kFieldCount), window_plan.fields.size());
  EXPECT_EQ(FieldKind::kEntry, window_plan.fields[ItemField::kCode].kind);
  EXPECT_EQ(FieldKind::kOption, window_plan.fields[ItemField::kFlag].kind);
  EXPECT_EQ(FieldKind::kList, window_plan.fields[ItemField::kList].kind);
  EXPECT_EQ(static_cast<u32>(kItemRowSize), window_plan.fields[ItemField::kList].row_size);
  EXPECT_EQ(FieldKind::kNone, window_plan.fields[ItemField::kButton].kind);
  PrepareWindow(window);
  EXPECT_EQ(before + 2, PlansBuilt());
  EXPECT_EQ(&window_plan, &PlanForWindow(window));

  // A flow: its own plan and the target's views; the source's are reused.
  PrepareFlow(flow);
  ASSERT_EQ(before + 4, PlansBuilt());
  const transport::FlowPlan& flow_plan = PlanForFlow(flow);
  EXPECT_EQ(&item_plan, flow_plan.source);
  EXPECT_EQ(&PlanForViews(entries), flow_plan.target);
  EXPECT_EQ(&entries, flow_plan.target->views);
  EXPECT_EQ(3u, flow_plan.send.size());
  EXPECT_EQ(2u, flow_plan.receive.size());
  PrepareFlow(flow);
  PrepareViews(entries);
  EXPECT_EQ(before + 4, PlansBuilt());
  EXPECT_EQ(&flow_plan, &PlanForFlow(flow));
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
