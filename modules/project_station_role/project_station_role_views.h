// The project station role in its forms, and the views of its two
// procedures: the list RT40_PROJECT_ROLE_MAIN_LIST (a first-page list of 100
// rows, patterns/first_page_list.h) and the data entry window
// RT41_PROJECT_ROLE_DATA_ENTRY (body style, patterns/body_entry.h).
//
// Entity PROJECT_STATION_ROLE, table TSMPSR: TSMPSR_IS_NUMBER, TSMPSR_ORG_ID,
// TYPE_NAME (varying, 32), D_USERID_CODE, D_LAST_UPDATE_TIMESTAMP. The list
// pages by TYPE_NAME within the organisation of the run; TYPE_NAME is also the
// key of the duplicate check. Numbers in views are the 8 bytes of a double.
#ifndef WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_VIEWS_H_
#define WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_VIEWS_H_

#include <cstdint>

#include "frame/run_context.h"
#include "frame/views.h"
#include "patterns/body_entry.h"
#include "patterns/first_page_list.h"
#include "patterns/row_views.h"

namespace lk::project_station_role {

constexpr int kListRows = 100;

// The bare row: import views and action blocks.
struct RoleRow {
  char TSMPSR_IS_NUMBER[8];
  char TSMPSR_ORG_ID[9];
  char TYPE_NAME[33];
  char D_USERID_CODE[9];
  char D_LAST_UPDATE_TIMESTAMP[21];
};

// The shown row: the export view's single views.
struct RoleShown {
  Shown<8> TSMPSR_IS_NUMBER;
  Shown<9> TSMPSR_ORG_ID;
  Shown<33> TYPE_NAME;
  Shown<9> D_USERID_CODE;
  Shown<21> D_LAST_UPDATE_TIMESTAMP;
};

// EXPORT_LIST of the export view: the count, the row marks, the rows.
struct RoleGroup {
  std::int32_t count;
  ShownColumn<kListRows, 2> SELECT_CHAR;
  ShownColumn<kListRows, 8> TSMPSR_IS_NUMBER;
  ShownColumn<kListRows, 9> TSMPSR_ORG_ID;
  ShownColumn<kListRows, 33> TYPE_NAME;
  ShownColumn<kListRows, 9> D_USERID_CODE;
  ShownColumn<kListRows, 21> D_LAST_UPDATE_TIMESTAMP;
};

// EXPORT_LIST of the import view.
struct RoleImportGroup {
  std::int32_t count;
  Column<kListRows, 2> SELECT_CHAR;
  Column<kListRows, 8> TSMPSR_IS_NUMBER;
  Column<kListRows, 9> TSMPSR_ORG_ID;
  Column<kListRows, 33> TYPE_NAME;
  Column<kListRows, 9> D_USERID_CODE;
  Column<kListRows, 21> D_LAST_UPDATE_TIMESTAMP;
};

// Attribute types of the entity.
inline constexpr AttributeType kIsNumberType = {13, "B ", 12, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kTypeNameType = {33, "Y ", 32, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kUserIdType = {9, "S ", 8, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kTimestampType = {21,      "Q ", 20,    "YYYY-MM-DD-HH.MI.SS.NNNNNN",
                                                 nullptr, 0,    {0, 0}};

struct RoleForms {
  using Row = RoleRow;
  using Shown = RoleShown;
  using Group = RoleGroup;
  using ImportGroup = RoleImportGroup;
  static constexpr int kRows = kListRows;
  static constexpr patterns::RowAttribute kAttributes[] = {
      LK_ROW_ATTRIBUTE(RoleForms, TSMPSR_IS_NUMBER, kIsNumberType, false),
      LK_ROW_ATTRIBUTE(RoleForms, TSMPSR_ORG_ID, kOrgIdType, false),
      LK_ROW_ATTRIBUTE(RoleForms, TYPE_NAME, kTypeNameType, true),
      LK_ROW_ATTRIBUTE(RoleForms, D_USERID_CODE, kUserIdType, false),
      LK_ROW_ATTRIBUTE(RoleForms, D_LAST_UPDATE_TIMESTAMP, kTimestampType, false),
  };
  static constexpr auto kIsNumber = &Shown::TSMPSR_IS_NUMBER;
  static constexpr auto kOrgId = &Shown::TSMPSR_ORG_ID;
  static constexpr auto kIsNumberColumn = &Group::TSMPSR_IS_NUMBER;
  static constexpr auto kOrgIdColumn = &Group::TSMPSR_ORG_ID;
};

inline constexpr char kDeleteWindowName[] = "RT40A_DELETE_PROJECT_ROLE";
inline constexpr patterns::FixedText kEntity = "PROJECT_STATION_ROLE";
using ListViews = patterns::FirstPageViews<RoleForms, kEntity>;
using EntryViews = patterns::BodyEntryViews<RoleForms, kEntity>;
using ListImport = ListViews::Import;
using ListExport = ListViews::Export;
using EntryImport = EntryViews::Import;
using EntryExport = EntryViews::Export;

// Exit states of the module.
constexpr u32 EXIT_LINK_RT41 = 0x4B001925;           // RT40 -> RT41, add or change
constexpr u32 EXIT_PSR_DUPLICATE = 0x4B001926;       // RT41: the type name is in use
constexpr u32 EXIT_PSR_NOT_FOUND = 0x4B001927;       // a block found no row
constexpr u32 EXIT_PSR_ALREADY_EXISTS = 0x4B001928;  // IDENTIFY met a unique key

inline constexpr char kNotFoundText[] = "PROJECT_STATION_ROLE was not found.";
inline constexpr char kAlreadyExistsText[] = "Project Station Role Already exists";
inline constexpr char kDuplicateText[] =
    "A Project Station Role already exists with this type name.";

}  // namespace lk::project_station_role

#endif  // WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_VIEWS_H_
