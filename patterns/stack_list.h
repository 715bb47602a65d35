// The stack-style maintenance list: a list window whose Open event loads the
// rows, whose procedure body reloads them only on the COMMAND "RETURN", and
// whose page limits are kept in a stack group that the module's list action
// block reads and writes. Written once for every such list; a module says
// which of its attributes play which part (StackList, StackListView) and
// gives the call of its list action block.
//
// What each step does:
//   Body       exit state EXIT_NONE; the view rows named in `body_views` and
//              the stack group move from the import view to the export view
//              by the dictionary (the rows of the list are not copied);
//              COMMAND "RETURN" runs the refresh.
//   Open       EXIT_NONE; SYSTEM_VARIABLE from the import view; page := 1;
//              both AT flags blank; COMMAND := "LIST"; the module's read;
//              NEXT_ENABLED := blank when AT_BOTTOM is set, else "Y" (and the
//              same for PREV_ENABLED by AT_TOP where the list says so).
//   Refresh    page := the import page through the number fit service; the
//              module's read; the row in hand is sought by its IS number
//              (rounded) and ORG ID, and the first match becomes SUBSCRIPT
//              (0 when none does); that row is set to state 5, then 7 (row 0
//              when none was found); PREV_ENABLED and NEXT_ENABLED by the AT
//              flags.
//   Click      EXIT_NONE; s := the first row 1..count in state 5, or 0. When
//              s equals SUBSCRIPT the click was on the selected row: it is
//              unmarked (if s > 0) and SUBSCRIPT := 0. Otherwise SUBSCRIPT :=
//              s and the row in hand := row s. Both enabled flags are copied
//              from the import view.
//   DoubleClick  s := the first row in state 3; none: nothing happens. The
//              row in hand := row s, row s is unmarked, COMMAND := "CHANGE",
//              the exit state of the link. SUBSCRIPT stays.
//   Add        COMMAND := "ADD"; the row in hand blank; the link.
//   Change     COMMAND := "CHANGE"; the link. Neither looks at the
//              selection: the window's enable rules keep them apart.
//   Delete     EXIT_NONE; SUBSCRIPT through the subscript check (no row
//              selected aborts the run); the row in hand := that row; the
//              delete dialog opens.
//   Close      EXIT_CANCEL.
// Every event action leaves a blank message of kind 'N'.
//
// The row in hand is moved from and blanked by the dictionary: each
// attribute of `row_in_hand` takes the attribute of the same name of
// `group_entity`, by its type; blank is blanks for texts, 0 for numbers, the
// default timestamp for timestamps. Every access to a group row goes through
// the subscript check against `limit`.
//
// A list without paging (patterns/plain_list_units.h) has no stack, page,
// enabled or AT flags: their names and pointers are null, and the steps
// leave them out.
//
// Contract: the functions run inside an event action's or a procedure's
// abort frame; a StackListView points into the export view and lives for the
// call. No allocation after the first call; one thread.
#ifndef WATRIX_PATTERNS_STACK_LIST_H_
#define WATRIX_PATTERNS_STACK_LIST_H_

#include <cstdint>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/unit.h"

namespace lk::patterns {

// The constant description of one stack list.
struct StackList {
  const ViewNameRow* views;         // the procedure's dictionary
  const char* const* body_views;    // ViewRow names the body copies, null-ended
  const char* system_variable;      // "EXPORT.SYSTEM_VARIABLE."
  const char* stack_group;          // the GroupRow name of the stack
  const char* group_entity;         // ViewRow name of the list's rows
  const char* row_in_hand;          // ViewRow name of the row in hand
  int limit;                        // rows of the list's group
  u32 link_exit_state;              // the flow to the data entry window
  const char* delete_dialog;        // WindowRow name of the delete dialog
  bool open_enables_prev;           // whether Open sets PREV_ENABLED too
};

// The attributes of one call: pointers into the export view. Numbers are
// the 8 bytes of a double; flags the value of a one-character text.
struct StackListView {
  void* export_view;
  char (*marks)[2];                  // the row mark column
  const std::int32_t* count;         // the list group's count
  char (*is_numbers)[8];             // the rows' IS numbers
  char (*org_ids)[9];                // the rows' ORG IDs
  const char* hand_is_number;        // the row in hand's IS number
  const char* hand_org_id;           // the row in hand's ORG ID
  char* subscript;                   // EXPORT_ROW_SELECTED.SUBSCRIPT
  char* page;                        // EXPORT_STACK.SUBSCRIPT
  char* next_enabled;                // EXPORT_NEXT_ENABLED.FLAG
  char* prev_enabled;                // EXPORT_PREV_ENABLED.FLAG
  char* at_top;                      // EXPORT_ALREADY_AT_TOP.FLAG
  char* at_bottom;                   // EXPORT_ALREADY_AT_BOTTOM.FLAG
};

namespace internal {
// Answers whether COMMAND asks for the refresh.
bool BeginBody(const StackList& list, RunContext* rc, const void* import_view,
               void* export_view);
void BeginOpen(const StackList& list, RunContext* rc, const void* import_view,
               const StackListView& view);
void EndOpen(const StackList& list, const StackListView& view);
void BeginRefresh(const StackListView& view, const char* import_page);
void EndRefresh(HandleA a, HandleB b, RunContext* rc, const StackList& list,
                const StackListView& view);
}  // namespace internal

// The refresh, on COMMAND "RETURN". `read` calls the list action block with
// the module's sentinels and the stack, and copies its results back into the
// export view; `own` is the running unit's identity.
template <typename Read>
void StackRefresh(const StackList& list, HandleA a, HandleB b, RunContext* rc, const UnitId& own,
                  const StackListView& view, const char* import_page, Read&& read) {
  internal::BeginRefresh(view, import_page);
  rc->run_mode = ' ';
  read();
  CheckCallee(rc);
  StoreUnitId(rc, own);
  internal::EndRefresh(a, b, rc, list, view);
}

// The procedure body.
template <typename Read>
void StackBody(const StackList& list, HandleA a, HandleB b, RunContext* rc, const UnitId& own,
               const void* import_view, const StackListView& view, const char* import_page,
               Read&& read) {
  if (internal::BeginBody(list, rc, import_view, view.export_view))
    StackRefresh(list, a, b, rc, own, view, import_page, read);
}

// The Open event.
template <typename Read>
void StackOpen(const StackList& list, RunContext* rc, const UnitId& own, const void* import_view,
               const StackListView& view, Read&& read) {
  internal::BeginOpen(list, rc, import_view, view);
  rc->run_mode = ' ';
  read();
  CheckCallee(rc);
  StoreUnitId(rc, own);
  internal::EndOpen(list, view);
}

void StackClick(const StackList& list, HandleA a, HandleB b, RunContext* rc,
                const StackListView& view, const char* import_next_enabled,
                const char* import_prev_enabled);
void StackDoubleClick(const StackList& list, HandleA a, HandleB b, RunContext* rc,
                      const StackListView& view);
void StackAdd(const StackList& list, RunContext* rc, const StackListView& view);
void StackChange(const StackList& list, RunContext* rc);
void StackDeleteButton(const StackList& list, HandleA a, HandleB b, RunContext* rc,
                       const StackListView& view);
void StackClose(RunContext* rc);

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_STACK_LIST_H_
