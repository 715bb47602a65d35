// The views of the lab remark module: RT50_LAB_REMARK_MAINT_LIST (the list
// window and its delete dialog RT50A) and RT51_LAB_REMARK_DATA_ENTRY.
//
// The entity is LAB_REMARK, table TSRLBRMK: TSRLBRMK_IS_NUMBER (a number of
// 12 digits, held as a double), TSRLBRMK_ORG_ID (8), SHORT_NAME (6),
// DESCRIPTION_TEXT (varying, 60), D_USERID_CODE (8),
// D_LAST_UPDATE_TIMESTAMP (20 digits).
//
// RT50's import view holds what its body copies (SYSTEM_VARIABLE, the row in
// hand, the selected row's SUBSCRIPT, the page and its stack), the two
// enabled flags that a click copies, and the row marks of the list, which a
// click reads from the window; the rows themselves live in the export view
// only. RT51's import view holds all that its window shows, the hidden copy
// and the kept COMMAND.
//
// Layout rules (frame/views.h): all-zero is the empty view; export
// attributes have six display bytes in front; numbers are eight bytes of a
// double; group columns keep a slot for row 0; counts are 32-bit.
#ifndef WATRIX_MODULES_LAB_REMARK_LAB_REMARK_VIEWS_H_
#define WATRIX_MODULES_LAB_REMARK_LAB_REMARK_VIEWS_H_

#include <cstdint>

#include "frame/tables.h"
#include "frame/views.h"

namespace lk::lab_remark {

// Rows of the list's group and pages of its stack.
constexpr int kListRows = 2000;
constexpr int kStackRows = 100;

// Storage of the attributes.
constexpr int kNumber = 8;
constexpr int kOrgId = 9;
constexpr int kShortName = 7;
constexpr int kDescription = 61;
constexpr int kUserId = 9;
constexpr int kFlag = 2;
constexpr int kCommand = 81;

// Attribute types of the views.
inline constexpr AttributeType kFlagType = {2, "S ", 1, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kSubscriptType = {5, "B ", 4, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kIsNumberType = {13, "B ", 12, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kShortNameType = {7, "S ", 6, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kDescriptionType = {61, "Y ", 60, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kUserIdType = {9, "S ", 8, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kTimestampType = {26, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN", nullptr,
                                          0, {0, 0}};
inline constexpr AttributeType kCommandType = {81, "S ", 80, "", nullptr, 0, {0, 0}};


// ---- RT50_LAB_REMARK_MAINT_LIST ----

struct ListImport {
  char reserved[4];
  struct {
    char FLAG[kFlag];
  } EXPORT_NEXT_ENABLED, EXPORT_PREV_ENABLED;
  struct {
    char SUBSCRIPT[kNumber];
  } EXPORT_STACK;
  struct {
    char TSRLBRMK_IS_NUMBER[kNumber];
    char TSRLBRMK_ORG_ID[kOrgId];
    char SHORT_NAME[kShortName];
    char DESCRIPTION_TEXT[kDescription];
  } EXPORT_SELECTED;
  struct {
    char USER_ID_CODE[kUserId];
    char CURRENT_ORG_ID[kUserId];
  } SYSTEM_VARIABLE;
  struct {
    char SUBSCRIPT[kNumber];
  } EXPORT_ROW_SELECTED;
  std::int32_t list_count;
  Column<kListRows, kFlag> SELECT_CHAR;
  std::int32_t stack_count;
  Column<kStackRows, kShortName> LAST_ROW_SHORT_NAME;
  Column<kStackRows, kShortName> FIRST_ROW_SHORT_NAME;
};

struct ListExport {
  std::uint32_t reserved;
  struct {
    Shown<kFlag> FLAG;
  } EXPORT_NEXT_ENABLED, EXPORT_PREV_ENABLED;
  struct {
    Shown<kNumber> SUBSCRIPT;
  } EXPORT_STACK;
  struct {
    Shown<kFlag> FLAG;
  } EXPORT_ALREADY_AT_TOP, EXPORT_ALREADY_AT_BOTTOM;
  struct {
    Shown<kNumber> TSRLBRMK_IS_NUMBER;
    Shown<kOrgId> TSRLBRMK_ORG_ID;
    Shown<kShortName> SHORT_NAME;
    Shown<kDescription> DESCRIPTION_TEXT;
  } EXPORT_SELECTED;
  struct {
    Shown<kUserId> USER_ID_CODE;
    Shown<kUserId> CURRENT_ORG_ID;
  } EXPORT;  // EXPORT.SYSTEM_VARIABLE
  struct {
    Shown<kNumber> SUBSCRIPT;
  } EXPORT_ROW_SELECTED;
  // GRP_EXPORT: GRP_EXPORT_SEL.RUNTIME_SUPPLIED and GRP_EXPORT.LAB_REMARK.
  std::int32_t list_count;
  ShownColumn<kListRows, kFlag> SELECT_CHAR;
  ShownColumn<kListRows, kNumber> TSRLBRMK_IS_NUMBER;
  ShownColumn<kListRows, kOrgId> TSRLBRMK_ORG_ID;
  ShownColumn<kListRows, kShortName> SHORT_NAME;
  ShownColumn<kListRows, kDescription> DESCRIPTION_TEXT;
  // GRP_EXPORT_STACK.WATRIX_WORK_SET.
  std::int32_t stack_count;
  ShownColumn<kStackRows, kShortName> LAST_ROW_SHORT_NAME;
  ShownColumn<kStackRows, kShortName> FIRST_ROW_SHORT_NAME;
};

// ---- RT51_LAB_REMARK_DATA_ENTRY ----

struct EntryImport {
  char reserved[4];
  struct {
    char SHORT_NAME[kShortName];
    char DESCRIPTION_TEXT[kDescription];
  } EXPORT_HIDDEN;
  struct {
    char USER_ID_CODE[kUserId];
    char CURRENT_ORG_ID[kUserId];
  } SYSTEM_VARIABLE;
  struct {
    char TSRLBRMK_IS_NUMBER[kNumber];
    char TSRLBRMK_ORG_ID[kOrgId];
    char SHORT_NAME[kShortName];
    char DESCRIPTION_TEXT[kDescription];
    char D_USERID_CODE[kUserId];
    char D_LAST_UPDATE_TIMESTAMP[kTimestampStorage];
  } LAB_REMARK;
  struct {
    char COMMAND[kCommand];
  } RUNTIME_SUPPLIED;
};

struct EntryExport {
  std::uint32_t reserved;
  struct {
    Shown<kShortName> SHORT_NAME;
    Shown<kDescription> DESCRIPTION_TEXT;
  } EXPORT_HIDDEN;
  struct {
    Shown<kUserId> USER_ID_CODE;
    Shown<kUserId> CURRENT_ORG_ID;
  } SYSTEM_VARIABLE;  // EXPORT.SYSTEM_VARIABLE
  struct {
    Shown<kNumber> TSRLBRMK_IS_NUMBER;
    Shown<kOrgId> TSRLBRMK_ORG_ID;
    Shown<kShortName> SHORT_NAME;
    Shown<kDescription> DESCRIPTION_TEXT;
    Shown<kUserId> D_USERID_CODE;
    Shown<kTimestampStorage> D_LAST_UPDATE_TIMESTAMP;
  } LAB_REMARK;  // EXPORT.LAB_REMARK
  struct {
    Shown<kCommand> COMMAND;
  } RUNTIME_SUPPLIED;  // EXPORT.RUNTIME_SUPPLIED
};

}  // namespace lk::lab_remark

#endif  // WATRIX_MODULES_LAB_REMARK_LAB_REMARK_VIEWS_H_
