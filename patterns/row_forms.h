// A table's row in its four forms, declared once. A module lists its row's
// attributes in an X-macro ATTRIBUTES(X), one X(name, storage, type, key)
// each, in row order, and LK_ROW_FORMS(Role, rows, ATTRIBUTES, is_number,
// org_id) defines RoleRow (bare), RoleShown (display bytes in front of each
// value), RoleGroup and RoleImportGroup (the list group with its count and
// SELECT_CHAR marks) and the traits struct RoleForms with its RowAttribute
// table, as patterns/first_page_list.h describes them.
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

#include "frame/views.h"
#include "patterns/first_page_list.h"

#define LK_ROW_FORMS_BARE(name, storage, type, key) char name[storage];
#define LK_ROW_FORMS_SHOWN(name, storage, type, key) ::lk::Shown<storage> name;
#define LK_ROW_FORMS_COLUMN_SHOWN(name, storage, type, key) \
  ::lk::ShownColumn<kRowsOfForms, storage> name;
#define LK_ROW_FORMS_COLUMN(name, storage, type, key) ::lk::Column<kRowsOfForms, storage> name;
#define LK_ROW_FORMS_ATTRIBUTE(name, storage, type, key) LK_ROW_ATTRIBUTE(Self, name, type, key),

#define LK_ROW_FORMS(Name, rows, ATTRIBUTES, is_number, org_id)                             \
  struct Name##Row {                                                                      \
    ATTRIBUTES(LK_ROW_FORMS_BARE)                                                          \
  };                                                                                       \
  struct Name##Shown {                                                                    \
    ATTRIBUTES(LK_ROW_FORMS_SHOWN)                                                         \
  };                                                                                       \
  struct Name##Group {                                                                    \
    static constexpr int kRowsOfForms = rows;                                              \
    std::int32_t count;                                                                    \
    ::lk::ShownColumn<rows, 2> SELECT_CHAR;                                                \
    ATTRIBUTES(LK_ROW_FORMS_COLUMN_SHOWN)                                                  \
  };                                                                                       \
  struct Name##ImportGroup {                                                              \
    static constexpr int kRowsOfForms = rows;                                              \
    std::int32_t count;                                                                    \
    ::lk::Column<rows, 2> SELECT_CHAR;                                                     \
    ATTRIBUTES(LK_ROW_FORMS_COLUMN)                                                        \
  };                                                                                       \
  struct Name##Forms {                                                                           \
    using Self = Name##Forms;                                                                    \
    using Row = Name##Row;                                                                \
    using Shown = Name##Shown;                                                            \
    using Group = Name##Group;                                                            \
    using ImportGroup = Name##ImportGroup;                                                \
    static constexpr int kRows = rows;                                                     \
    static constexpr ::lk::patterns::RowAttribute kAttributes[] = {                        \
        ATTRIBUTES(LK_ROW_FORMS_ATTRIBUTE)};                                               \
    static constexpr auto kIsNumber = &Shown::is_number;                                   \
    static constexpr auto kOrgId = &Shown::org_id;                                         \
    static constexpr auto kIsNumberColumn = &Group::is_number;                             \
    static constexpr auto kOrgIdColumn = &Group::org_id;                                   \
    static constexpr auto kIsNumberRow = &Row::is_number;                                  \
    static constexpr auto kOrgIdRow = &Row::org_id;                                        \
    static constexpr ::lk::u32 kIsNumberAt = offsetof(Row, is_number);                     \
    static constexpr ::lk::u32 kOrgIdAt = offsetof(Row, org_id);                           \
  }

#endif  // WATRIX_PATTERNS_ROW_FORMS_H_
