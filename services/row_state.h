// Row state services: the selection mark of a list row, held in the group's
// two-byte row flag.
//
// A row carries one mark: ' ' (or NUL) none, 'S' selected, 'C' selected and
// the current row, 'H' hidden. States 3 and 5 both test the mark, 6 clears it,
// 7 marks the row and makes it current. The host's list flags read and write
// use the same encoding.
#ifndef WATRIX_SERVICES_ROW_STATE_H_
#define WATRIX_SERVICES_ROW_STATE_H_

#include "frame/entry.h"
#include "frame/run_context.h"

namespace lk {

constexpr char kRowNone = ' ';
constexpr char kRowSelected = 'S';
constexpr char kRowCurrent = 'C';
constexpr char kRowHidden = 'H';

constexpr int kStateSelected = 3;
constexpr int kStateMarked = 5;
constexpr int kStateClear = 6;
constexpr int kStateCurrent = 7;

// Non-zero if the row flag `flag` is in `state` (3 or 5). A zero flag is "no"
// for all states.
int RowStateTest(HandleA a, HandleB b, RunContext* rc, char flag, int state);

// Puts a row into `state`: 5 marks it (a current row stays current), 6 takes
// a mark off (a hidden row stays hidden), 7 marks it current. Other states
// change nothing. Only the first byte of the flag is written.
void RowStateSet(HandleA a, HandleB b, RunContext* rc, char* flag, int state);

}  // namespace lk

#endif  // WATRIX_SERVICES_ROW_STATE_H_
