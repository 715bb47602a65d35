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
#include "patterns/row_forms.h"
#include "patterns/row_views.h"

namespace lk::project_station_role {

constexpr int kListRows = 100;

// Attribute types of the entity; the IS number and the user of the stamp
// are those of every table.
using patterns::kIsNumberType;
using patterns::kStampUserType;
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kTypeNameType = {33, "Y ", 32, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kTimestampType = {21,      "Q ", 20,    "YYYY-MM-DD-HH.MI.SS.NNNNNN",
                                                 nullptr, 0,    {0, 0}};

// The row of TSMPSR: name, type, and whether it is a column of the
// key the list pages by and the data entry window checks for duplicates.
#define LK_ROLE_ATTRIBUTES(X)                      \
  X(TSMPSR_IS_NUMBER, kIsNumberType, false)        \
  X(TSMPSR_ORG_ID, kOrgIdType, false)              \
  X(TYPE_NAME, kTypeNameType, true)                \
  X(D_USERID_CODE, kStampUserType, false)          \
  X(D_LAST_UPDATE_TIMESTAMP, kTimestampType, false)
LK_ROW_FORMS(Role, kListRows, store::columns::kTsmpsr, LK_ROLE_ATTRIBUTES, TSMPSR_IS_NUMBER,
             TSMPSR_ORG_ID);
#undef LK_ROLE_ATTRIBUTES

inline constexpr char kDeleteWindowName[] = "RT40A_DELETE_PROJECT_ROLE";
inline constexpr patterns::FixedText kEntity = "PROJECT_STATION_ROLE";
using ListDictionary = patterns::FirstPageViews<RoleForms, kEntity>;
using EntryDictionary = patterns::BodyEntryViews<RoleForms, kEntity>;
using ListImport = ListDictionary::Import;
using ListExport = ListDictionary::Export;
using EntryImport = EntryDictionary::Import;
using EntryExport = EntryDictionary::Export;

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
