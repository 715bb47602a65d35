// A table's row in its four forms, declared once. A module lists its row's
// attributes in an X-macro ATTRIBUTES(X), one X(name, type, key) each, in
// row order; each is a column of the table, whose width the table's one
// description gives (store/columns.h). LK_ROW_FORMS(Role, rows,
// store::columns::kTsmpsr, ATTRIBUTES, is_number, org_id) defines RoleRow
// (bare), RoleShown (display bytes in front of each value), RoleGroup and
// RoleImportGroup (the list group with its count and SELECT_CHAR marks) and
// the traits struct RoleForms with its RowAttribute table, as
// patterns/first_page_list.h describes them.
// `is_number` and `org_id` name the attributes of the row's identity: the
// traits give them as members of each form (kIsNumber, kIsNumberColumn,
// kIsNumberRow) and as offsets in the bare row (kIsNumberAt).
//
// Contract: the forms are standard-layout views whose all-zero state is
// empty; the storage of each attribute is the same in every form (checked
// at compile time by LK_ROW_ATTRIBUTE).
#ifndef WATRIX_PATTERNS_ROW_FORMS_H_
#define WATRIX_PATTERNS_ROW_FORMS_H_

#include <cstddef>
#include <cstdint>

#include <span>

#include "frame/views.h"
#include "patterns/first_page_list.h"
#include "store/columns.h"

// Per attribute whose storage is given: X(name, storage, type, key).
#define LK_ROW_FORMS_BARE(name, storage, type, key) char name[storage];
#define LK_ROW_FORMS_SHOWN(name, storage, type, key) ::lk::Shown<storage> name;
#define LK_ROW_FORMS_COLUMN_SHOWN(name, storage, type, key) \
  ::lk::ShownColumn<kRowsOfForms, storage> name;
#define LK_ROW_FORMS_COLUMN(name, storage, type, key) ::lk::Column<kRowsOfForms, storage> name;
#define LK_ROW_FORMS_ATTRIBUTE(name, storage, type, key) LK_ROW_ATTRIBUTE(Self, name, type, key),

// Per attribute that is a column of the table the forms name: X(name, type,
// key), its storage from the table's columns (store/columns.h StorageOf).
#define LK_FORMS_STORAGE(name) ::lk::store::StorageOf(kTableOfForms, #name)
#define LK_TABLE_FORMS_BARE(name, type, key) char name[LK_FORMS_STORAGE(name)];
#define LK_TABLE_FORMS_SHOWN(name, type, key) ::lk::Shown<LK_FORMS_STORAGE(name)> name;
#define LK_TABLE_FORMS_COLUMN_SHOWN(name, type, key) \
  ::lk::ShownColumn<kRowsOfForms, LK_FORMS_STORAGE(name)> name;
#define LK_TABLE_FORMS_COLUMN(name, type, key) \
  ::lk::Column<kRowsOfForms, LK_FORMS_STORAGE(name)> name;
#define LK_TABLE_FORMS_ATTRIBUTE(name, type, key) LK_ROW_ATTRIBUTE(Self, name, type, key),

// The forms themselves, over the per-attribute macros `P`BARE, `P`SHOWN,
// `P`COLUMN_SHOWN, `P`COLUMN and `P`ATTRIBUTE; `table` is the member that
// names the table's columns, or nothing; the groups have the SELECT_CHAR
// marks before their columns (LK_FORMS_MARKS...) or none (LK_FORMS_NO_MARKS).
#define LK_FORMS_MARKS_SHOWN(rows) ::lk::ShownColumn<rows, 2> SELECT_CHAR;
#define LK_FORMS_MARKS(rows) ::lk::Column<rows, 2> SELECT_CHAR;
#define LK_FORMS_NO_MARKS(rows)
#define LK_FORMS(Name, rows, ATTRIBUTES, P, table, SHOWN_MARKS, MARKS) \
  struct Name##Row {                                                   \
    table ATTRIBUTES(P##BARE)                                          \
  };                                                                   \
  struct Name##Shown {                                                 \
    table ATTRIBUTES(P##SHOWN)                                         \
  };                                                                   \
  struct Name##Group {                                                 \
    static constexpr int kRowsOfForms = rows;                          \
    table std::int32_t count;                                          \
    SHOWN_MARKS(rows) ATTRIBUTES(P##COLUMN_SHOWN)                      \
  };                                                                   \
  struct Name##ImportGroup {                                           \
    static constexpr int kRowsOfForms = rows;                          \
    table std::int32_t count;                                          \
    MARKS(rows) ATTRIBUTES(P##COLUMN)                                  \
  }
#define LK_FORMS_TRAITS(Name, rows, ATTRIBUTES, P)                \
  using Self = Name##Forms;                                       \
  using Row = Name##Row;                                          \
  using Shown = Name##Shown;                                      \
  using Group = Name##Group;                                      \
  using ImportGroup = Name##ImportGroup;                          \
  static constexpr int kRows = rows;                              \
  static constexpr ::lk::patterns::RowAttribute kAttributes[] = { \
      ATTRIBUTES(P##ATTRIBUTE)}
#define LK_FORMS_TABLE(columns) \
  static constexpr ::std::span<const ::lk::store::Column> kTableOfForms = columns;

// The rows of a list over a table whose columns are `columns`
// (store::columns::kTsrlbrmk, ...): each group with its SELECT_CHAR marks,
// and the row's identity.
#define LK_ROW_FORMS(Name, rows, columns, ATTRIBUTES, is_number, org_id)             \
  LK_FORMS(Name, rows, ATTRIBUTES, LK_TABLE_FORMS_, LK_FORMS_TABLE(columns),        \
           LK_FORMS_MARKS_SHOWN, LK_FORMS_MARKS);                                   \
  struct Name##Forms {                                                              \
    LK_FORMS_TRAITS(Name, rows, ATTRIBUTES, LK_TABLE_FORMS_);                       \
    static constexpr auto kIsNumber = &Shown::is_number;                            \
    static constexpr auto kOrgId = &Shown::org_id;                                  \
    static constexpr auto kIsNumberColumn = &Group::is_number;                      \
    static constexpr auto kOrgIdColumn = &Group::org_id;                            \
    static constexpr auto kIsNumberRow = &Row::is_number;                           \
    static constexpr auto kOrgIdRow = &Row::org_id;                                 \
    static constexpr ::lk::u32 kIsNumberAt = offsetof(Row, is_number);              \
    static constexpr ::lk::u32 kOrgIdAt = offsetof(Row, org_id);                    \
  }

// A group of rows with no marks, no identity and storage given per attribute
// (the pages of a stack, the editable attributes of a window):
// LK_GROUP_FORMS(Name, rows, ATTRIBUTES), X(name, storage, type, key).
#define LK_GROUP_FORMS(Name, rows, ATTRIBUTES)                                       \
  LK_FORMS(Name, rows, ATTRIBUTES, LK_ROW_FORMS_, , LK_FORMS_NO_MARKS, LK_FORMS_NO_MARKS); \
  struct Name##Forms {                                                               \
    LK_FORMS_TRAITS(Name, rows, ATTRIBUTES, LK_ROW_FORMS_);                          \
  }

namespace lk::patterns {

// The attribute types that every table's row shares: the IS number of 12
// digits and the user of its stamp (D_USERID_CODE), 8 characters.
inline constexpr AttributeType kIsNumberType = {13, "B ", 12, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kStampUserType = {9, "S ", 8, "", nullptr, 0, {0, 0}};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_ROW_FORMS_H_
