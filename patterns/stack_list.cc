// The stack-style list: body, Open, refresh, selection, and the buttons that
// lead to the data entry window and to the delete dialog.
#include "patterns/stack_list.h"

#include <cstring>

#include "frame/transport/plan_internal.h"
#include "patterns/group.h"
#include "services/number.h"
#include "services/row_state.h"
#include "services/text.h"
#include "services/window.h"

namespace lk::patterns {

namespace {

using transport::AttributePlan;
using transport::At;
using transport::Kind;
using transport::ViewPlan;

// Digits of a page number.
constexpr int kPageDigits = 3;

bool InView(const AttributePlan& a, const char* view_name) {
  return view_name != nullptr && std::strcmp(a.view->view_name, view_name) == 0;
}

// A subscript held in a number attribute; a value no subscript can have
// answers -1, which the subscript check refuses.
int SubscriptOf(const char* bytes) {
  const double v = GetNumber(bytes);
  if (!(v > -1e9 && v < 1e9)) return -1;
  return static_cast<int>(v);
}

// Moves the single attributes of view row `view_name` from import to export.
void CopySingles(const ViewPlan& plan, const char* view_name, const void* import_view,
                 void* export_view) {
  for (int i : plan.singles) {
    const AttributePlan& a = plan.attributes[i];
    if (!InView(a, view_name) || a.import_location == 0 || a.export_location == 0) continue;
    transport::MoveValue(At(export_view, a.export_location), a, At(import_view, a.import_location),
                         a);
  }
}

// Moves the rows of group `group_name` from import to export, the count with
// them.
void CopyGroup(const ViewPlan& plan, const char* group_name, const void* import_view,
               void* export_view) {
  for (const transport::GroupPlan& g : plan.groups) {
    if (std::strcmp(g.row->group_name, group_name) != 0) continue;
    const int rows = transport::ReadCount(import_view, g.import_count_location, g.limit, 0);
    transport::WriteCount(export_view, g.count_location, rows);
    for (int column : g.columns) {
      const AttributePlan& a = plan.attributes[column];
      if (a.import_location == 0 || a.export_location == 0) continue;
      for (int r = 1; r <= rows; ++r)
        transport::MoveValue(At(export_view, transport::RowOffset(a, a.export_location, r)), a,
                             At(import_view, transport::RowOffset(a, a.import_location, r)), a);
    }
    return;
  }
}

// The row in hand := row s of the list, attribute by attribute by name.
void TakeRow(const StackList& list, void* export_view, int s) {
  const ViewPlan& plan = transport::PlanForViews(*list.views);
  for (const AttributePlan& hand : plan.attributes) {
    if (!InView(hand, list.row_in_hand) || hand.export_location == 0) continue;
    for (const AttributePlan& row : plan.attributes) {
      if (!InView(row, list.group_entity) || row.export_location == 0 ||
          std::strcmp(row.row->attribute_name, hand.row->attribute_name) != 0)
        continue;
      transport::MoveValue(At(export_view, hand.export_location), hand,
                           At(export_view, transport::RowOffset(row, row.export_location, s)), row);
      break;
    }
  }
}

// The row in hand := a blank row.
void BlankRow(const StackList& list, void* export_view) {
  const ViewPlan& plan = transport::PlanForViews(*list.views);
  for (const AttributePlan& hand : plan.attributes) {
    if (!InView(hand, list.row_in_hand) || hand.export_location == 0) continue;
    char* at = At(export_view, hand.export_location);
    switch (hand.kind) {
      case Kind::kFixedText: TextMove(at, "", static_cast<int>(hand.storage)); break;
      case Kind::kVaryingText: BoundedCopy(at, "", static_cast<int>(hand.storage)); break;
      case Kind::kTimestamp: std::memcpy(at, kDefaultTimestamp, kTimestampStorage); break;
      case Kind::kLong:
      case Kind::kDouble: std::memset(at, 0, hand.storage); break;
    }
  }
}

// The first row 1..count in `state`, or 0.
int FirstInState(HandleA a, HandleB b, RunContext* rc, const StackList& list,
                 const StackListView& view, int state) {
  const int count = *view.count < list.limit ? *view.count : list.limit;
  for (int r = 1; r <= count; ++r)
    if (RowStateTest(a, b, rc, view.marks[r][0], state) != 0) return r;
  return 0;
}

// A list without paging has no flags and no page: their pointers are null.
void SetFlag(char* flag, bool on) {
  if (flag != nullptr) TextMove(flag, on ? "Y" : "", 2);
}
void CopyFlag(char* to, const char* from) {
  if (to != nullptr && from != nullptr) TextMove(to, from, 2);
}

}  // namespace

namespace internal {

bool BeginBody(const StackList& list, RunContext* rc, const void* import_view,
               void* export_view) {
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  const ViewPlan& plan = transport::PlanForViews(*list.views);
  for (const char* const* v = list.body_views; *v != nullptr; ++v)
    CopySingles(plan, *v, import_view, export_view);
  if (list.stack_group != nullptr) CopyGroup(plan, list.stack_group, import_view, export_view);
  return TextCompare(rc->command, "RETURN") == 0;
}

void BeginOpen(const StackList& list, RunContext* rc, const void* import_view,
               const StackListView& view) {
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  CopySingles(transport::PlanForViews(*list.views), list.system_variable, import_view,
              view.export_view);
  if (view.page != nullptr) PutNumber(view.page, 1);
  SetFlag(view.at_top, false);
  SetFlag(view.at_bottom, false);
  SetCommand(rc, "LIST");
}

void EndOpen(const StackList& list, const StackListView& view) {
  if (view.at_bottom != nullptr) SetFlag(view.next_enabled, TextIsBlank(view.at_bottom));
  if (list.open_enables_prev && view.at_top != nullptr)
    SetFlag(view.prev_enabled, TextIsBlank(view.at_top));
}

void BeginRefresh(const StackListView& view, const char* import_page) {
  if (view.page == nullptr || import_page == nullptr) return;
  PutNumber(view.page, NumberFit(GetNumber(import_page), 0, 0, kPageDigits));
}

void EndRefresh(HandleA a, HandleB b, RunContext* rc, const StackList& list,
                const StackListView& view) {
  const int count = *view.count < list.limit ? *view.count : list.limit;
  const double wanted = NumberRound(GetNumber(view.hand_is_number), 0, 1);
  int s = 0;
  for (int r = 1; r <= count && s == 0; ++r) {
    if (NumberRound(GetNumber(view.is_numbers[r]), 0, 1) == wanted &&
        TextCompare(view.org_ids[r], view.hand_org_id) == 0)
      s = r;
  }
  PutNumber(view.subscript, s);
  // With no row found this marks row 0, the slot before the first row.
  RowStateSet(a, b, rc, view.marks[s], kStateMarked);
  RowStateSet(a, b, rc, view.marks[s], kStateCurrent);
  if (view.at_top != nullptr) SetFlag(view.prev_enabled, TextIsBlank(view.at_top));
  if (view.at_bottom != nullptr) SetFlag(view.next_enabled, TextIsBlank(view.at_bottom));
}

}  // namespace internal

void StackClick(const StackList& list, HandleA a, HandleB b, RunContext* rc,
                const StackListView& view, const char* import_next_enabled,
                const char* import_prev_enabled) {
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  const int s = FirstInState(a, b, rc, list, view, kStateMarked);
  if (s == SubscriptOf(view.subscript)) {
    if (s > 0) {
      CheckSubscript(rc, s, list.limit);
      RowStateSet(a, b, rc, view.marks[s], kStateClear);
    }
    PutNumber(view.subscript, 0);
  } else {
    PutNumber(view.subscript, s);
    // No row marked: row 0 is left alone.
    if (s > 0) {
      CheckSubscript(rc, s, list.limit);
      TakeRow(list, view.export_view, s);
    }
  }
  CopyFlag(view.next_enabled, import_next_enabled);
  CopyFlag(view.prev_enabled, import_prev_enabled);
}

void StackDoubleClick(const StackList& list, HandleA a, HandleB b, RunContext* rc,
                      const StackListView& view) {
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  const int s = FirstInState(a, b, rc, list, view, kStateSelected);
  if (s == 0) return;
  CheckSubscript(rc, s, list.limit);
  TakeRow(list, view.export_view, s);
  RowStateSet(a, b, rc, view.marks[s], kStateClear);
  SetCommand(rc, "CHANGE");
  SetExit(rc, list.link_exit_state, nullptr, 'N');
}

void StackAdd(const StackList& list, RunContext* rc, const StackListView& view) {
  SetCommand(rc, "ADD");
  BlankRow(list, view.export_view);
  SetExit(rc, list.link_exit_state, nullptr, 'N');
}

void StackChange(const StackList& list, RunContext* rc) {
  SetCommand(rc, "CHANGE");
  SetExit(rc, list.link_exit_state, nullptr, 'N');
}

void StackDeleteButton(const StackList& list, HandleA a, HandleB b, RunContext* rc,
                       const StackListView& view) {
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  const int s = SubscriptOf(view.subscript);
  CheckSubscript(rc, s, list.limit);
  TakeRow(list, view.export_view, s);
  WindowOpen(a, b, list.delete_dialog);
}

void StackClose(RunContext* rc) { SetExit(rc, EXIT_CANCEL, nullptr, 'N'); }

}  // namespace lk::patterns
