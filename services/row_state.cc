// Row state services: the selection mark of a list row.
//
// The mark is the first byte of the row's two-byte flag: ' ' or NUL none,
// 'S' selected, 'C' selected and current, 'H' hidden. The second byte is not
// touched.
#include "services/row_state.h"

namespace lk {

int RowStateTest(HandleA a, HandleB b, RunContext* rc, char flag, int state) {
  (void)a;
  (void)b;
  (void)rc;
  switch (state) {
    case kStateSelected:
    case kStateMarked:
      return (flag == kRowSelected || flag == kRowCurrent) ? 1 : 0;
    default:
      return 0;
  }
}

void RowStateSet(HandleA a, HandleB b, RunContext* rc, char* flag, int state) {
  (void)a;
  (void)b;
  (void)rc;
  switch (state) {
    case kStateMarked:
      // A current row is marked already; marking it again keeps it current.
      if (*flag != kRowCurrent) *flag = kRowSelected;
      break;
    case kStateClear:
      // Only a selection comes off; a hidden row stays hidden.
      if (*flag == kRowSelected || *flag == kRowCurrent) *flag = kRowNone;
      break;
    case kStateCurrent:
      *flag = kRowCurrent;
      break;
    default:
      break;
  }
}

}  // namespace lk
