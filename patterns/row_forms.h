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

// The pieces both macros below are made of: the bare and shown rows, the
// two groups (with the SELECT_CHAR marks before the columns, or without),
// and the traits.
#define LK_FORMS_ROWS(Name, ATTRIBUTES) \
  struct Name##Row {                    \
    ATTRIBUTES(LK_ROW_FORMS_BARE)       \
  };                                    \
  struct Name##Shown {                  \
    ATTRIBUTES(LK_ROW_FORMS_SHOWN)      \
  }
#define LK_FORMS_MARKS_SHOWN(rows) ::lk::ShownColumn<rows, 2> SELECT_CHAR;
#define LK_FORMS_MARKS(rows) ::lk::Column<rows, 2> SELECT_CHAR;
#define LK_FORMS_NO_MARKS(rows)
#define LK_FORMS_GROUPS(Name, rows, ATTRIBUTES, SHOWN_MARKS, MARKS)  \
  struct Name##Group {                                              \
    static constexpr int kRowsOfForms = rows;                       \
    std::int32_t count;                                             \
    SHOWN_MARKS(rows) ATTRIBUTES(LK_ROW_FORMS_COLUMN_SHOWN)         \
  };                                                                \
  struct Name##ImportGroup {                                        \
    static constexpr int kRowsOfForms = rows;                       \
    std::int32_t count;                                             \
    MARKS(rows) ATTRIBUTES(LK_ROW_FORMS_COLUMN)                     \
  }
#define LK_FORMS_TRAITS(Name, rows, ATTRIBUTES)                             \
  using Self = Name##Forms;                                                 \
  using Row = Name##Row;                                                    \
  using Shown = Name##Shown;                                                \
  using Group = Name##Group;                                                \
  using ImportGroup = Name##ImportGroup;                                    \
  static constexpr int kRows = rows;                                        \
  static constexpr ::lk::patterns::RowAttribute kAttributes[] = {           \
      ATTRIBUTES(LK_ROW_FORMS_ATTRIBUTE)}

// The rows of a list: each group with its SELECT_CHAR marks, and the row's
// identity.
#define LK_ROW_FORMS(Name, rows, ATTRIBUTES, is_number, org_id)                 \
  LK_FORMS_ROWS(Name, ATTRIBUTES);                                              \
  LK_FORMS_GROUPS(Name, rows, ATTRIBUTES, LK_FORMS_MARKS_SHOWN, LK_FORMS_MARKS);  \
  struct Name##Forms {                                                          \
    LK_FORMS_TRAITS(Name, rows, ATTRIBUTES);                                    \
    static constexpr auto kIsNumber = &Shown::is_number;                        \
    static constexpr auto kOrgId = &Shown::org_id;                              \
    static constexpr auto kIsNumberColumn = &Group::is_number;                  \
    static constexpr auto kOrgIdColumn = &Group::org_id;                        \
    static constexpr auto kIsNumberRow = &Row::is_number;                       \
    static constexpr auto kOrgIdRow = &Row::org_id;                             \
    static constexpr ::lk::u32 kIsNumberAt = offsetof(Row, is_number);          \
    static constexpr ::lk::u32 kOrgIdAt = offsetof(Row, org_id);                \
  }

// A group of rows with no marks and no identity (the pages of a stack, the
// editable attributes of a window): LK_GROUP_FORMS(Name, rows, ATTRIBUTES).
#define LK_GROUP_FORMS(Name, rows, ATTRIBUTES)  \
  LK_FORMS_ROWS(Name, ATTRIBUTES);              \
  LK_FORMS_GROUPS(Name, rows, ATTRIBUTES, LK_FORMS_NO_MARKS, LK_FORMS_NO_MARKS); \
  struct Name##Forms {                          \
    LK_FORMS_TRAITS(Name, rows, ATTRIBUTES);    \
  }

namespace lk::patterns {

// The attribute types that every table's row shares: the IS number of 12
// digits and the user of its stamp (D_USERID_CODE), 8 characters.
inline constexpr AttributeType kIsNumberType = {13, "B ", 12, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kStampUserType = {9, "S ", 8, "", nullptr, 0, {0, 0}};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_ROW_FORMS_H_
