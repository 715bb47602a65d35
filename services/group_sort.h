// Group sort: sorts a group view in place by key columns.
#ifndef WATRIX_SERVICES_GROUP_SORT_H_
#define WATRIX_SERVICES_GROUP_SORT_H_

#include <cstdint>

#include "frame/entry.h"
#include "frame/run_context.h"

namespace lk {

// One attribute of the group: its type letter ('S', 'Y', 'Q', 'L', 'B'), its
// column number (from 1), the address of row 1 and the stride between rows.
struct GroupSortColumn {
  char type;
  std::int32_t column;
  char* base;
  std::int32_t stride;
  std::int32_t width;  // bytes of one value
};

// The group description that a unit fills in just before the call.
struct GroupSortDescription {
  std::int32_t rows;
  std::int32_t columns;
  GroupSortColumn column[16];
};

// Sorts rows 1..rows so that the key text ("1 a 2 a": column 1 ascending,
// then column 2 ascending; "d" for descending) holds; every attribute of a row
// moves with it. Texts compare as the text compare service does. The sort is
// stable.
void GroupSort(HandleA a, HandleB b, RunContext* rc, GroupSortDescription* group,
               const char* key_text);

}  // namespace lk

#endif  // WATRIX_SERVICES_GROUP_SORT_H_
