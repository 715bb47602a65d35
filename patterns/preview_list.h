// A preview: a read-only list dialog that another module enters with a key
// in hand (a link from elsewhere, never a flow of its own module), which
// shows the rows of that key and lets a row be marked, and ends by its
// Close. Written once for every such dialog; a module gives its read.
//
//   PreviewHeight   asks the window's control object to run "SetHeight"
//                   with the procedure's name and the height wanted. A host
//                   without window objects leaves the dialog as designed.
//   PreviewClick    Click and DoubleClick alike: s := the first row in
//                   state 3, or 0; SUBSCRIPT := s, unless s equals the
//                   import view's SUBSCRIPT: then row s (if above 0) is
//                   unmarked and SUBSCRIPT := 0.
//   PreviewClose    EXIT_RETURN, blank message: the link ends.
//
// Contract: runs inside an event action's abort frame; the pointers lead
// into the views and live for the call. One thread.
#ifndef WATRIX_PATTERNS_PREVIEW_LIST_H_
#define WATRIX_PATTERNS_PREVIEW_LIST_H_

#include <cstdint>

#include "frame/entry.h"
#include "frame/run_context.h"

namespace lk::patterns {

void PreviewHeight(HandleB b, const char* procedure, int height);

// `marks` is the row mark column (row r at marks[r]), `count` the group's
// count, `limit` its maximum; `subscript` the export SUBSCRIPT and
// `import_subscript` the import's, each the 8 bytes of a double.
void PreviewClick(HandleA a, HandleB b, RunContext* rc, char (*marks)[2], std::int32_t count,
                  int limit, char* subscript, const char* import_subscript);

void PreviewClose(RunContext* rc);

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_PREVIEW_LIST_H_
