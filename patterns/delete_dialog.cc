// The delete confirmation: finding the row, dropping or unmarking it, and
// closing the dialog.
#include "patterns/delete_dialog.h"

#include "patterns/group.h"
#include "services/row_state.h"
#include "services/window.h"

namespace lk::patterns {

namespace {

// The row the dialog works on.
int RowOf(const DeleteDialog& dialog, HandleA a, HandleB b, RunContext* rc,
          const DeleteList& list) {
  if (dialog.row_from == DeleteRowFrom::kSelectedSubscript)
    return static_cast<int>(GetNumber(list.subscript));
  const int count = *list.count < dialog.limit ? *list.count : dialog.limit;
  for (int r = 1; r <= count; ++r)
    if (RowStateTest(a, b, rc, list.marks[r][0], kStateMarked) != 0) return r;
  return 0;
}

void Unmark(const DeleteDialog& dialog, HandleA a, HandleB b, RunContext* rc,
            const DeleteList& list, int s) {
  if (s <= 0) return;
  CheckSubscript(rc, s, dialog.limit);
  RowStateSet(a, b, rc, list.marks[s], kStateClear);
}

}  // namespace

namespace internal {

int BeginDelete(const DeleteDialog& dialog, HandleA a, HandleB b, RunContext* rc,
                const DeleteList& list) {
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  return RowOf(dialog, a, b, rc, list);
}

void EndDelete(const DeleteDialog& dialog, HandleA a, HandleB b, RunContext* rc,
               const DeleteList& list, int s) {
  WindowClose(a, b, dialog.window_name);
  const bool drop = dialog.drop == DropRule::kAlways || rc->exit_state == EXIT_NONE;
  if (drop) {
    if (s > 0 && *list.count > 0) {
      CheckSubscript(rc, s, dialog.limit);
      DropGroupRow(*dialog.views, dialog.group_name, list.export_view, s);
    }
  } else {
    Unmark(dialog, a, b, rc, list, s);
  }
  PutNumber(list.subscript, 0);
}

}  // namespace internal

void DeleteCancelled(const DeleteDialog& dialog, HandleA a, HandleB b, RunContext* rc,
                     const DeleteList& list) {
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  const int s = RowOf(dialog, a, b, rc, list);
  Unmark(dialog, a, b, rc, list, s);
  PutNumber(list.subscript, 0);
  WindowClose(a, b, dialog.window_name);
}

}  // namespace lk::patterns
