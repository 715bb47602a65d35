// The delete confirmation of a list window: the small modal dialog that
// shows the row in hand and asks for a second click. Written once for every
// list; a module says which dialog it is, where its list keeps its marks,
// count and SUBSCRIPT, how the dialog finds the row, what becomes of the
// list row once the REMOVE action block has returned, and gives the call of
// its REMOVE action block.
//
// Delete (the dialog's Accept), in this order:
//   1. exit state EXIT_NONE, blank message;
//   2. the row s: the first row 1..count marked in state 5, or 0
//      (kFirstMarked); or the SUBSCRIPT of the list (kSelectedSubscript);
//   3. the module's remove step. It may answer false (a reference check of
//      the module's own that refused the delete): then nothing more happens
//      and the dialog stays open with the module's message. Otherwise the
//      step has called the REMOVE action block; a fatal status leaves by the
//      abort frame of the running unit (CheckCallee), and the unit's own
//      number and name are put back;
//   4. the dialog closes;
//   5. kAlways: a row s within 1..count is dropped from the group in every
//      attribute, display bytes and marks moving up, the count falling by
//      one, whatever exit state REMOVE left (its message shows all the same).
//      kOnExitNone: the row is dropped only if the exit state is still
//      EXIT_NONE; otherwise row s (if above 0) is unmarked and stays;
//   6. SUBSCRIPT := 0.
// The list is not read again: its page keys stay as they are.
//
// Cancel: exit state EXIT_NONE, blank message; the row s as in step 2; if s
// is above 0 it is unmarked (row state 6); SUBSCRIPT := 0; the dialog closes.
//
// Every access to row s goes through the subscript check against the
// group's limit, so a damaged SUBSCRIPT leaves by the abort frame and never
// touches memory beyond the group.
//
// Contract: runs inside an event action's abort frame (EnterEventAction);
// the structs point into the procedure's export view and live for the call.
// No allocation; one thread.
#ifndef WATRIX_PATTERNS_DELETE_DIALOG_H_
#define WATRIX_PATTERNS_DELETE_DIALOG_H_

#include <cstdint>
#include <type_traits>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/unit.h"

namespace lk::patterns {

// How the dialog finds the row it deletes.
enum class DeleteRowFrom {
  kFirstMarked,         // the first row of the group marked in state 5, or 0
  kSelectedSubscript,   // the list's SUBSCRIPT
};

// What becomes of the list row once REMOVE has returned.
enum class DropRule {
  kAlways,      // drop it whatever the exit state
  kOnExitNone,  // drop it on EXIT_NONE, else unmark it
};

// The constant description of one delete dialog.
struct DeleteDialog {
  const char* window_name;     // the dialog's WindowRow name, for window close
  const ViewNameRow* views;    // the procedure's dictionary
  const char* group_name;      // the list's group, as its GroupRow names it
  int limit;                   // the group's maximum rows
  DeleteRowFrom row_from;
  DropRule drop;
};

// The list as one call sees it: pointers into the export view.
struct DeleteList {
  void* export_view;
  char (*marks)[2];            // the row mark column: row r at marks[r]
  const std::int32_t* count;   // the group's count
  char* subscript;             // the 8 bytes of the SUBSCRIPT number (a double)
};

namespace internal {
// Steps 1 and 2: the exit state, and the row s.
int BeginDelete(const DeleteDialog& dialog, HandleA a, HandleB b, RunContext* rc,
                const DeleteList& list);
// Steps 4 to 6.
void EndDelete(const DeleteDialog& dialog, HandleA a, HandleB b, RunContext* rc,
               const DeleteList& list, int s);
}  // namespace internal

// The Delete button of the dialog. `remove` is called with no arguments;
// it returns void, or bool where the module may refuse before REMOVE
// (false: the dialog stays). `own` is the running event action's identity.
template <typename Remove>
void DeleteConfirmed(const DeleteDialog& dialog, HandleA a, HandleB b, RunContext* rc,
                     const UnitId& own, const DeleteList& list, Remove&& remove) {
  const int s = internal::BeginDelete(dialog, a, b, rc, list);
  rc->run_mode = ' ';
  if constexpr (std::is_same_v<decltype(remove()), bool>) {
    if (!remove()) {
      CheckCallee(rc);
      StoreUnitId(rc, own);
      return;
    }
  } else {
    remove();
  }
  CheckCallee(rc);
  StoreUnitId(rc, own);
  internal::EndDelete(dialog, a, b, rc, list, s);
}

// The Cancel button of the dialog.
void DeleteCancelled(const DeleteDialog& dialog, HandleA a, HandleB b, RunContext* rc,
                     const DeleteList& list);

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_DELETE_DIALOG_H_
