// The columns of a table's row as the statement frame binds them
// (store/statement.h HostColumn), derived from the row's attribute table
// (patterns/row_forms.h) rather than written again: a fixed text ("S ") is
// char(N), a varying text ("Y ") varchar(N), with N the attribute's length;
// a number ("B ") is a number; a timestamp ("Q ") is a date. Each column
// bears its attribute's name, except the stamp D_LAST_UPDATE_TIMESTAMP,
// whose column is D_LAST_UPDATE_TS.
//
//   RowColumns<Forms>::kAll              every attribute, in row order
//   RowColumns<Forms>::Pick<"A", "B">    the named attributes, in that order
//
// Contract: constant expressions; a name the row does not hold stops the
// compilation. The agreement of the columns with the schema (names, types,
// widths) is checked by modules/row_columns_test.cc.
#ifndef WATRIX_PATTERNS_ROW_COLUMNS_H_
#define WATRIX_PATTERNS_ROW_COLUMNS_H_

#include <array>
#include <cstddef>
#include <iterator>

#include "patterns/first_page_list.h"
#include "patterns/fixed_text.h"
#include "store/statement.h"

namespace lk::patterns {

namespace row_columns {
constexpr bool SameText(const char* x, const char* y) {
  for (; *x != '\0' && *x == *y; ++x, ++y) {
  }
  return *x == *y;
}
// The column that holds attribute `a` of a row.
constexpr store::HostColumn ColumnOf(const RowAttribute& a) {
  const store::Place place{a.row, a.storage};
  const int width = static_cast<int>(a.type->length & 0xFFFF);
  switch (a.type->type_letter[0]) {
    case 'S': return store::HostChar(a.name, width, place);
    case 'Y': return store::HostVarchar(a.name, width, place);
    case 'B': return store::HostNumber(a.name, place);
    case 'Q':
      if (!SameText(a.name, "D_LAST_UPDATE_TIMESTAMP")) throw "a timestamp other than the stamp";
      return store::HostDate("D_LAST_UPDATE_TS", place);
    default: throw "an attribute type without a column";
  }
}
}  // namespace row_columns

template <class Forms>
struct RowColumns {
 private:
  static constexpr std::size_t kCount = std::size(Forms::kAttributes);
  template <std::size_t N>
  static constexpr const RowAttribute& Named(const FixedText<N>& name) {
    for (const RowAttribute& a : Forms::kAttributes)
      if (row_columns::SameText(a.name, name.chars)) return a;
    throw "a column that the row does not hold";
  }

 public:
  static constexpr std::array<store::HostColumn, kCount> kAll = [] {
    std::array<store::HostColumn, kCount> columns{};
    for (std::size_t i = 0; i < kCount; ++i)
      columns[i] = row_columns::ColumnOf(Forms::kAttributes[i]);
    return columns;
  }();

  template <FixedText... Names>
  static constexpr std::array<store::HostColumn, sizeof...(Names)> Pick = {
      row_columns::ColumnOf(Named(Names))...};
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_ROW_COLUMNS_H_
