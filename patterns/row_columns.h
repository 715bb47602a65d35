// The columns of a table's row as the statement frame binds them
// (store/statement.h HostColumn), derived from the row's attribute table
// (patterns/row_forms.h) rather than written again: a fixed text ("S ") is
// char(N), a varying text ("Y ") varchar(N), with N the attribute's length;
// a number ("B ") is a number, a three-digit number ("I ") a number(3); a
// timestamp ("Q ") is a date. Each column bears its attribute's name, except
// where the table holds the attribute under another column name
// (store/columns.h ColumnOfAttribute: the stamp D_LAST_UPDATE_TIMESTAMP in
// D_LAST_UPDATE_TS, FIELD_DESCRIPTION in FIELD_DESC). A column the table
// lets be NULL is read with an indicator (store::kNullable).
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
#include <cstdint>
#include <iterator>

#include "patterns/first_page_list.h"
#include "patterns/fixed_text.h"
#include "store/columns.h"
#include "store/statement.h"

namespace lk::patterns {

namespace row_columns {
constexpr bool SameText(const char* x, const char* y) {
  for (; *x != '\0' && *x == *y; ++x, ++y) {
  }
  return *x == *y;
}
// The column that holds attribute `a` of a row, under the name `column`,
// read with an indicator where the table lets it be NULL.
constexpr store::HostColumn ColumnOf(const RowAttribute& a, const char* column,
                                     std::uint8_t flags) {
  const store::Place place{a.row, a.storage};
  const int width = static_cast<int>(a.type->length & 0xFFFF);
  switch (a.type->type_letter[0]) {
    case 'S': return store::HostChar(column, width, place, flags);
    case 'Y': return store::HostVarchar(column, width, place, flags);
    case 'B': return store::HostNumber(column, place, flags);
    case 'I': return store::HostSmall(column, place, flags);
    case 'Q':
      if (!SameText(a.name, "D_LAST_UPDATE_TIMESTAMP")) throw "a timestamp other than the stamp";
      return store::HostDate(SameText(column, a.name) ? "D_LAST_UPDATE_TS" : column, place,
                             flags);
    default: throw "an attribute type without a column";
  }
}
// The column of attribute `a` as the table the forms name describes it,
// where they name one (a view attribute such as FIELD_DESCRIPTION holds
// column FIELD_DESC); else under the attribute's own name, never NULL.
template <class Forms>
constexpr store::HostColumn ColumnOf(const RowAttribute& a) {
  if constexpr (requires { Forms::Row::kTableOfForms; }) {
    const store::Column& c = store::ColumnOfAttribute(Forms::Row::kTableOfForms, a.name);
    return ColumnOf(a, c.name, c.nullable ? store::kNullable : 0);
  } else {
    return ColumnOf(a, a.name, 0);
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
      columns[i] = row_columns::ColumnOf<Forms>(Forms::kAttributes[i]);
    return columns;
  }();

  template <FixedText... Names>
  static constexpr std::array<store::HostColumn, sizeof...(Names)> Pick = {
      row_columns::ColumnOf<Forms>(Named(Names))...};
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_ROW_COLUMNS_H_
