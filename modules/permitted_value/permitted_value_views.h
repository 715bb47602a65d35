// The permitted value in its forms, and the views of the module's three
// procedures: the list RT2_PERMITTED_VALUE_MAINT_LIST (2000 rows, paged by
// TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER), the data entry window
// RT3_PERMITTED_VALUE_DATA_ENTRY with its six dialogs, and the question
// RT54_MULTIPLE_TABLE_SELECTION.
//
// Entity PERMITTED_VALUE, table TSMPRMVL: TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID,
// TABLE_NAME (8), FIELD_NAME (varying, 20), SEQUENCE_NUMBER (three digits; a
// double in the views, a 2-byte integer in the statements), FIELD_VALUE
// (varying, 40), FIELD_DESCRIPTION (varying, 254; the column FIELD_DESC),
// D_USERID_CODE, D_LAST_UPDATE_TIMESTAMP.
//
// The import view of each procedure mirrors its export view: a window's
// values come back through it, and a return from a link lays the target's
// results over it.
#ifndef WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_VIEWS_H_
#define WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_VIEWS_H_

#include <cstdint>

#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/views.h"
#include "patterns/first_page_list.h"
#include "patterns/fixed_text.h"
#include "patterns/row_forms.h"

namespace lk::permitted_value {

constexpr int kListRows = 2000;    // RT2's list
constexpr int kTableRows = 5;      // other tables, or the companion row
constexpr int kNameRows = 100;     // RT3A's pairs of names
constexpr int kValueListRows = 500;  // a drop-down's permitted values

using patterns::kIsNumberType;
using patterns::kStampUserType;
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kTableNameType = {9, "S ", 8, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kFieldNameType = {21, "Y ", 20, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kSequenceType = {4, "I ", 3, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kFieldValueType = {41, "Y ", 40, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kFieldDescType = {255, "Y ", 254, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kTimestampType = {26, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN",
                                                 nullptr, 0, {0, 0}};

// The whole row, in RT2's list of 2000 rows. The key the list pages by is
// TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER.
#define LK_PV(X)                                  \
  X(TSMPRMVL_IS_NUMBER, kIsNumberType, false)     \
  X(TSMPRMVL_ORG_ID, kOrgIdType, false)           \
  X(TABLE_NAME, kTableNameType, true)             \
  X(FIELD_NAME, kFieldNameType, true)             \
  X(SEQUENCE_NUMBER, kSequenceType, true)         \
  X(FIELD_VALUE, kFieldValueType, false)          \
  X(FIELD_DESCRIPTION, kFieldDescType, false)     \
  X(D_USERID_CODE, kStampUserType, false)         \
  X(D_LAST_UPDATE_TIMESTAMP, kTimestampType, false)
LK_ROW_FORMS(Pv, kListRows, store::columns::kTsmprmvl, LK_PV, TSMPRMVL_IS_NUMBER,
             TSMPRMVL_ORG_ID);
#undef LK_PV

// The rows of other tables (GP_EXPORT_TABLES): the row without its stamp.
#define LK_PV_TABLES(X)                           \
  X(TSMPRMVL_IS_NUMBER, kIsNumberType, false)     \
  X(TSMPRMVL_ORG_ID, kOrgIdType, false)           \
  X(TABLE_NAME, kTableNameType, false)            \
  X(FIELD_NAME, kFieldNameType, false)            \
  X(SEQUENCE_NUMBER, kSequenceType, false)        \
  X(FIELD_VALUE, kFieldValueType, false)          \
  X(FIELD_DESCRIPTION, kFieldDescType, false)
LK_ROW_FORMS(PvTables, kTableRows, store::columns::kTsmprmvl, LK_PV_TABLES,
             TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID);
#undef LK_PV_TABLES

constexpr u32 kTableName = sizeof(PvRow::TABLE_NAME);
constexpr u32 kFieldName = sizeof(PvRow::FIELD_NAME);
constexpr u32 kSequence = sizeof(PvRow::SEQUENCE_NUMBER);
constexpr u32 kFieldValue = sizeof(PvRow::FIELD_VALUE);
constexpr u32 kFieldDesc = sizeof(PvRow::FIELD_DESCRIPTION);

// The key of a page's first and last rows, and of the row in work of RT3E
// and RT3F (EXPORT_PROCESS).
#define LK_PV_KEY(X)                                   \
  X(TABLE_NAME, kTableName, kTableNameType, true)      \
  X(FIELD_NAME, kFieldName, kFieldNameType, true)      \
  X(SEQUENCE_NUMBER, kSequence, kSequenceType, true)
LK_GROUP_FORMS(PvKey, 1, LK_PV_KEY);
#undef LK_PV_KEY

// The row as RT3 opened with it (EXPORT_HIDDEN).
#define LK_PV_HIDDEN(X)                                 \
  X(TABLE_NAME, kTableName, kTableNameType, false)      \
  X(FIELD_NAME, kFieldName, kFieldNameType, false)      \
  X(SEQUENCE_NUMBER, kSequence, kSequenceType, false)   \
  X(FIELD_VALUE, kFieldValue, kFieldValueType, false)   \
  X(FIELD_DESCRIPTION, kFieldDesc, kFieldDescType, false)
LK_GROUP_FORMS(PvHidden, 1, LK_PV_HIDDEN);
#undef LK_PV_HIDDEN

// A pair of names: RT3A's choice (EXPORT_SELECTED) and its list of 100.
#define LK_PV_NAMES(X)                               \
  X(TABLE_NAME, kTableName, kTableNameType, false)   \
  X(FIELD_NAME, kFieldName, kFieldNameType, false)
LK_GROUP_FORMS(PvNames, kNameRows, LK_PV_NAMES);
#undef LK_PV_NAMES

// The row in hand as RT54 shows it (EXPORT_SELECTED).
#define LK_PV_SELECTED(X)                            \
  X(TABLE_NAME, kTableName, kTableNameType, false)   \
  X(FIELD_NAME, kFieldName, kFieldNameType, false)   \
  X(FIELD_VALUE, kFieldValue, kFieldValueType, false)
LK_GROUP_FORMS(PvSelected, 1, LK_PV_SELECTED);
#undef LK_PV_SELECTED

// ---- Views the procedures share ----

using patterns::CommandView;
using patterns::FlagShown;
using patterns::FlagView;
using patterns::SystemVariableShown;
using patterns::SystemVariableView;

// EXPORT.RUNTIME_SUPPLIED of RT2 and RT3: the mode ("ADD" or "CHANGE"), the
// selected subscript and the pending action ("CH", "DL" or blank).
struct ModeView {
  char COMMAND[81];
  char SUBSCRIPT[8];  // a double
  char FLAG[3];
};
struct ModeShown {
  Shown<81> COMMAND;
  Shown<8> SUBSCRIPT;
  Shown<3> FLAG;
};

// GP_EXPORT_TABLES with GP_EXPORT_TABLES_SELECTED: the rows, their marks and
// the applied FLAG, "Y" where the action is to be applied to the row.
struct TablesImport {
  PvTablesImportGroup rows;
  Column<kTableRows, 2> FLAG;
};
struct TablesExport {
  PvTablesGroup rows;
  ShownColumn<kTableRows, 2> FLAG;
};

// ---- RT2_PERMITTED_VALUE_MAINT_LIST ----

struct ListImport {
  char reserved[4];
  PvRow EXPORT_FIND;
  PvKeyRow EXPORT_LAST;
  PvKeyRow EXPORT_FIRST;
  FlagView EXPORT_NEXT;
  FlagView EXPORT_PREV;
  PvRow EXPORT_CURRENT;
  SystemVariableView SYSTEM_VARIABLE;
  ModeView RUNTIME_SUPPLIED;
  FlagView EXPORT_INITIAL_ADD;
  TablesImport GP_EXPORT_TABLES;
  PvImportGroup GRP_EXPORT;
};

struct ListExport {
  std::uint32_t reserved;
  PvShown EXPORT_FIND;
  PvKeyShown EXPORT_LAST;
  PvKeyShown EXPORT_FIRST;
  FlagShown EXPORT_NEXT;
  FlagShown EXPORT_PREV;
  PvShown EXPORT_CURRENT;
  SystemVariableShown SYSTEM_VARIABLE;  // EXPORT.SYSTEM_VARIABLE
  ModeShown RUNTIME_SUPPLIED;           // EXPORT.RUNTIME_SUPPLIED
  FlagShown EXPORT_INITIAL_ADD;
  TablesExport GP_EXPORT_TABLES;
  PvGroup GRP_EXPORT;
};

// ---- RT3_PERMITTED_VALUE_DATA_ENTRY ----

// EXPORT_ERROR_SOURCE: which run of writes failed ("AD", "MF", "CA") and
// the subscript of its row.
struct ErrorSourceView {
  char FLAG[3];
  char SUBSCRIPT[8];
};
struct ErrorSourceShown {
  Shown<3> FLAG;
  Shown<8> SUBSCRIPT;
};
// RT3A's list: the marks and the pairs.
struct NamesImport {
  PvNamesImportGroup rows;
  Column<kNameRows, 2> SELECT_CHAR;
};
struct NamesExport {
  PvNamesGroup rows;
  ShownColumn<kNameRows, 2> SELECT_CHAR;
};

struct EntryImport {
  char reserved[4];
  ErrorSourceView EXPORT_ERROR_SOURCE;
  PvKeyRow EXPORT_PROCESS;
  FlagView EXPORT_MEAS_OBS;
  FlagView EXPORT_SAMPLE;
  PvNamesRow EXPORT_SELECTED;
  ModeView RUNTIME_SUPPLIED;
  PvHiddenRow EXPORT_HIDDEN;
  SystemVariableView SYSTEM_VARIABLE;
  PvRow ROW;
  FlagView EXPORT_INITIAL_ADD;
  NamesImport GRP_EXPORT;
  TablesImport GP_EXPORT_TABLES;
};

struct EntryExport {
  std::uint32_t reserved;
  ErrorSourceShown EXPORT_ERROR_SOURCE;
  PvKeyShown EXPORT_PROCESS;
  FlagShown EXPORT_MEAS_OBS;
  FlagShown EXPORT_SAMPLE;
  PvNamesShown EXPORT_SELECTED;
  ModeShown RUNTIME_SUPPLIED;           // EXPORT.RUNTIME_SUPPLIED
  PvHiddenShown EXPORT_HIDDEN;
  SystemVariableShown SYSTEM_VARIABLE;  // EXPORT.SYSTEM_VARIABLE
  PvShown ROW;                          // EXPORT.PERMITTED_VALUE
  FlagShown EXPORT_INITIAL_ADD;
  NamesExport GRP_EXPORT;
  TablesExport GP_EXPORT_TABLES;
};

// ---- RT54_MULTIPLE_TABLE_SELECTION ----

struct SelectionImport {
  char reserved[4];
  PvSelectedRow EXPORT_SELECTED;
  TablesImport GP_EXPORT_TABLES;
};
struct SelectionExport {
  std::uint32_t reserved;
  PvSelectedShown EXPORT_SELECTED;
  TablesExport GP_EXPORT_TABLES;
};

// ---- Exit states and texts ----

constexpr u32 EXIT_LINK_RT3 = 0x3F400117;          // RT2 -> RT3
constexpr u32 EXIT_LINK_RT54 = 0x6B800198;         // RT2, RT3 -> RT54
constexpr u32 EXIT_PV_NOT_FOUND = 0x3F400118;      // a read found no row
constexpr u32 EXIT_PV_ALREADY_EXISTS = 0x3F400119; // IDENTIFY met a unique key
constexpr u32 EXIT_PV_NOT_UNIQUE = 0x3F40011A;     // MODIFY met a unique key
constexpr u32 EXIT_PV_PERMITTED_VALUE = 0x3F40011B;  // a value the table refused
constexpr u32 EXIT_PV_DUPLICATE_VALUE = 0x3F40011C;  // READ_FOR_DUPLICATE_PV_VALUE found
constexpr u32 EXIT_PV_DUPLICATE_SEQ = 0x3F40011D;    // READ_FOR_DUPLICATE_PV_SEQ_NUM found
constexpr u32 EXIT_PV_SEQ_MAX = 0x3F40011E;          // the sequence number is at 999
constexpr u32 EXIT_PV_CATEGORY_NOT_FOUND = 0x3F40011F;  // READ_4_ACTIVITY_CATEGORY_PV

inline constexpr char kNotFoundText[] = "Permitted Value Not Found.";
inline constexpr char kAlreadyExistsText[] = "Permitted Value already exists.";
inline constexpr char kNotUniqueText[] = "Permitted Value not unique.";
inline constexpr char kPermittedValueText[] = "Permitted Value permitted value violation.";
inline constexpr char kDuplicateValueText[] =
    "This Field Value already exists for this Table and Field Name.";
inline constexpr char kDuplicateSeqText[] =
    "This Field already has a Value with this Sequence Number.";
inline constexpr char kSeqMaxText[] =
    "The max seq no. of 999 has been reached.  Cannot increment by 1.";

// The names of the activity category lists.
inline constexpr char kCategoryTable[] = "TSRFDACT";
inline constexpr char kCategoryMain[] = "CATEGORY_TYPE_NAME";
inline constexpr char kCategorySample[] = "CATEGORY_TYPE_NAME_S";
inline constexpr char kCategoryMeasure[] = "CATEGORY_TYPE_NAME_M";

}  // namespace lk::permitted_value

#endif  // WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_VIEWS_H_
