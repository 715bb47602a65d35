// The maintenance buttons of a list that sets them itself, by their
// keywords "ADD", "CHANGE" and "DELETE" (the control enable and disable
// services), instead of leaving them to the window's enable rules alone:
//
//   ButtonsAtOpen     "CHANGE" and "DELETE" disabled; "ADD" stands as the
//                     window has it.
//   ButtonsForRow     a row is selected: "ADD" disabled, "CHANGE" and
//                     "DELETE" enabled.
//   ButtonsForNoRow   no row is selected: "ADD" enabled, "CHANGE" and
//                     "DELETE" disabled.
//
// Contract: runs inside a unit; a window without such keywords is left as
// it is. One thread.
#ifndef WATRIX_PATTERNS_LIST_BUTTONS_H_
#define WATRIX_PATTERNS_LIST_BUTTONS_H_

#include "frame/entry.h"

namespace lk::patterns {

void ButtonsAtOpen(HandleA a, HandleB b);
void ButtonsForRow(HandleA a, HandleB b);
void ButtonsForNoRow(HandleA a, HandleB b);

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_LIST_BUTTONS_H_
