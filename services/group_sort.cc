// Group sort: sorts the rows of a group view in place by key columns.
//
// The rows are ordered first as a list of row numbers (a stable sort on the
// keys), and then every attribute of the group is put in that order by
// following the cycles of the permutation, so each value moves once per
// cycle step, whatever its width. The key text is a list of pairs "column
// direction": a column number as in GroupSortColumn.column and 'a' or 'd';
// a missing direction means ascending, an unknown column is passed over.
#include "services/group_sort.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "services/text.h"

namespace lk {

namespace {

constexpr int kMaxKeys = 16;
constexpr int kMaxColumns = 16;

struct SortKey {
  const GroupSortColumn* column;
  bool descending;
};

const char* Value(const GroupSortColumn& c, int row) {
  return c.base + static_cast<std::ptrdiff_t>(row) * c.stride;
}

bool Usable(const GroupSortColumn& c) {
  return c.base != nullptr && c.width > 0;
}

int CompareValues(const GroupSortColumn& c, int x, int y) {
  const char* p = Value(c, x);
  const char* q = Value(c, y);
  switch (c.type) {
    case 'S':
    case 'Y':
    case 'Q':
      return TextCompare(p, q);
    case 'L': {
      std::int32_t u;
      std::int32_t v;
      std::memcpy(&u, p, sizeof(u));
      std::memcpy(&v, q, sizeof(v));
      return (u > v) - (u < v);
    }
    case 'B': {
      double u;
      double v;
      std::memcpy(&u, p, sizeof(u));
      std::memcpy(&v, q, sizeof(v));
      return (u > v) - (u < v);
    }
    default:
      return std::memcmp(p, q, static_cast<std::size_t>(c.width));
  }
}

// Reads the key text into `keys`; returns how many it holds.
int ParseKeys(const GroupSortDescription& group, int columns, const char* text,
              SortKey* keys) {
  int count = 0;
  const char* p = text;
  while (*p != '\0' && count < kMaxKeys) {
    while (*p == ' ') ++p;
    if (*p < '0' || *p > '9') {
      if (*p != '\0') ++p;  // a stray character; go on behind it
      continue;
    }
    int number = 0;
    while (*p >= '0' && *p <= '9') {
      if (number < 1000000) number = number * 10 + (*p - '0');
      ++p;
    }
    while (*p == ' ') ++p;
    bool descending = false;
    if (*p == 'a' || *p == 'A' || *p == 'd' || *p == 'D') {
      descending = (*p == 'd' || *p == 'D');
      ++p;
    }
    for (int i = 0; i < columns; ++i) {
      const GroupSortColumn& c = group.column[i];
      if (c.column == number && Usable(c)) {
        keys[count++] = SortKey{&c, descending};
        break;
      }
    }
  }
  return count;
}

void SwapBytes(char* p, char* q, std::size_t n) {
  char buffer[64];
  while (n > 0) {
    const std::size_t step = n < sizeof(buffer) ? n : sizeof(buffer);
    std::memcpy(buffer, p, step);
    std::memcpy(p, q, step);
    std::memcpy(q, buffer, step);
    p += step;
    q += step;
    n -= step;
  }
}

}  // namespace

void GroupSort(HandleA a, HandleB b, RunContext* rc, GroupSortDescription* group,
               const char* key_text) {
  (void)a;
  (void)b;
  (void)rc;
  const int rows = group->rows;
  const int columns = std::clamp(group->columns, 0, kMaxColumns);
  if (rows < 2 || key_text == nullptr) return;
  SortKey keys[kMaxKeys];
  const int key_count = ParseKeys(*group, columns, key_text, keys);
  if (key_count == 0) return;

  // order[j] is the row (from 0) that shall stand at place j.
  std::vector<int> order(static_cast<std::size_t>(rows));
  for (int i = 0; i < rows; ++i) order[static_cast<std::size_t>(i)] = i;
  std::stable_sort(order.begin(), order.end(), [&](int x, int y) {
    for (int k = 0; k < key_count; ++k) {
      int r = CompareValues(*keys[k].column, x, y);
      if (keys[k].descending) r = -r;
      if (r != 0) return r < 0;
    }
    return false;
  });

  // Follow each cycle of the permutation, swapping whole rows along it; a
  // place is done once it holds its row, marked by order[j] = j.
  for (int start = 0; start < rows; ++start) {
    int j = start;
    while (order[static_cast<std::size_t>(j)] != start) {
      const int k = order[static_cast<std::size_t>(j)];
      if (k == j) break;
      for (int c = 0; c < columns; ++c) {
        const GroupSortColumn& col = group->column[c];
        if (!Usable(col)) continue;
        SwapBytes(col.base + static_cast<std::ptrdiff_t>(j) * col.stride,
                  col.base + static_cast<std::ptrdiff_t>(k) * col.stride,
                  static_cast<std::size_t>(col.width));
      }
      order[static_cast<std::size_t>(j)] = j;
      j = k;
    }
    order[static_cast<std::size_t>(j)] = j;
  }
}

}  // namespace lk
