// Operations on the group views of a list, written once for every list
// window: find the marked row, find the row in hand after a reread, drop a
// row in place, move a row into the row in hand.
//
// Group columns are lk::ShownColumn members of an export view (rows from 1,
// slot 0 kept); a number column holds a double's bytes. DropGroupRow works
// from the dictionary, so that every attribute of the group moves, whatever
// the module's view holds.
#ifndef WATRIX_PATTERNS_GROUP_H_
#define WATRIX_PATTERNS_GROUP_H_

#include <cstdint>
#include <cstring>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/views.h"
#include "services/number.h"
#include "services/row_state.h"
#include "services/text.h"

namespace lk::patterns {

// The double held in a number attribute's bytes, and back.
inline double GetNumber(const char* bytes) {
  double v;
  std::memcpy(&v, bytes, sizeof v);
  return v;
}
inline void PutNumber(char* bytes, double v) { std::memcpy(bytes, &v, sizeof v); }

// The first row 1..count whose row mark the row state test finds in
// `state` (3 or 5), or 0 when none is.
template <int Rows>
int FindMarked(HandleA a, HandleB b, RunContext* rc, const ShownColumn<Rows, 2>& marks,
               int count, int state) {
  for (int r = 1; r <= count && r <= Rows; ++r)
    if (RowStateTest(a, b, rc, marks.value[r][0], state) != 0) return r;
  return 0;
}

// The first row 1..count whose IS number, rounded by the number round
// service, and ORG ID equal the row in hand's; 0 when none does.
template <int Rows, int OrgStorage>
int SeekRow(const ShownColumn<Rows, 8>& is_numbers, const ShownColumn<Rows, OrgStorage>& orgs,
            int count, double is_number, const char* org_id) {
  const double wanted = NumberRound(is_number, 0, 1);
  for (int r = 1; r <= count && r <= Rows; ++r) {
    if (NumberRound(GetNumber(is_numbers.value[r]), 0, 1) == wanted &&
        TextCompare(orgs.value[r], org_id) == 0)
      return r;
  }
  return 0;
}

// The first row 1..count whose code and ORG ID equal the row in hand's, for
// a table keyed by a code rather than an IS number; 0 when none does.
template <int Rows, int CodeStorage, int OrgStorage>
int SeekCodeRow(const ShownColumn<Rows, CodeStorage>& codes,
                const ShownColumn<Rows, OrgStorage>& orgs, int count, const char* code,
                const char* org_id) {
  for (int r = 1; r <= count && r <= Rows; ++r) {
    if (TextCompare(codes.value[r], code) == 0 && TextCompare(orgs.value[r], org_id) == 0)
      return r;
  }
  return 0;
}

// Drops row `s` of group `group_name` of `views` from the export view: rows
// s+1..count move up by one in every attribute of the group, with their
// display bytes and row marks, and the count falls by one. A row outside
// 1..count changes nothing.
void DropGroupRow(const ViewNameRow& views, const char* group_name, void* export_view, int s);

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_GROUP_H_
