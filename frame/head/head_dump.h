// A text image of the design tables under win_head: every field of every row
// that the root reaches, one item a line, in table order. A snapshot test
// keeps the image of a build and compares the next build's image with it, so
// that a change in how the tables are written cannot change what they hold.
//
// Contract:
// - The image depends on what the tables hold, never on where they lie.
//   Texts are written as quoted strings with \" \\ and \xNN escapes, "null"
//   for a null reference; numbers in decimal, packed words and exit states
//   in hex (0x%08X), character words as 'c'. References to data are followed
//   and what they reach is written in place under the referring field's
//   path; references to functions are written as "fn" or "null". A zeroed
//   cell that the runtime owns is written with its words as they stand (all
//   zero while no host runs).
// - Every line is "path = value". Paths name the rows by table and index and
//   the fields by their names in frame/tables.h:
//   "procedures[8].flow_rows[0].returns.exit_state". The root's fields are
//   "win_head.*"; the rows of its big tables go by the tables' own names:
//   procedures, windows, view_names, name_list, application. An array's own
//   line gives its row count; the row that ends it is written as "end" when
//   all its bytes are zero, else with its bytes.
// - An object reached twice is written twice, so that a writer of the tables
//   may share or copy constants freely; the sharing the tables promise is
//   written as a line of its own: each ProcedureRow's shared_cell against the
//   root's, a button's enable rule list against that of its
//   ActionControlRow, and the view arrays of a ViewNameRow against those of
//   the row before it with the same arrays (the name and title rows of a
//   procedure), which are written once.
// - Control descriptors are read by their tag as the host reads them. The
//   radio item table (tag 5) has no row type in frame/tables.h; it is read as
//   the tables describe it: the item and control id word, two zero words,
//   the literal.
// - A table whose end is not found within 100,000 rows is cut there with a
//   line that says so; the image of a sound table never holds that line.
//
// Only frame/tables.h is read: the image must not depend on how any module
// declares its rows. Thread-compatible: no state outside the call.
#ifndef WATRIX_FRAME_HEAD_HEAD_DUMP_H_
#define WATRIX_FRAME_HEAD_HEAD_DUMP_H_

#include <string>

#include "frame/tables.h"

namespace lk {

// Loads the module library at `path` with dlopen and returns its exported
// win_head; null with the reason in *error. The library stays loaded for the
// life of the process.
const WinHead* LoadWinHead(const std::string& path, std::string* error);

// The image of everything reachable from `head`, each line ended by '\n'.
// REQUIRES: `head` is the win_head of a loaded module, and the application
// block it refers to lies in the same image.
std::string DumpWinHead(const WinHead& head);

}  // namespace lk

#endif  // WATRIX_FRAME_HEAD_HEAD_DUMP_H_
