// The geologic unit in its forms, and the views of its two procedures: the
// list RT46_GEOLOGIC_UNIT_MAINT_LIST (a stack list of 200 rows with a stack
// of 100 pages and a Search group, patterns/search_views.h) with its delete
// dialog RT46A, and the data entry window RT47_GEOLOGIC_UNIT_DATA_ENTRY
// (Open style).
//
// Entity GEOLOGIC_UNIT, table TSMGEOUN, keyed by TSMGEOUN_CD (12) and
// TSMGEOUN_ORG_ID (8), with no IS number: TYPE_CODE (1: "H", "G", "B"),
// STATE_CODE (2), NAME (varying, 80), D_USERID_CODE (8) and the stamp
// D_LAST_UPDATE_TIMESTAMP (column D_LAST_UPDT_TS). The code stands in the
// forms' identity slot where other tables have their IS number
// (patterns/code_row_blocks.h). Each page of the stack keeps the first and
// the last code and name of the page.
#ifndef WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_VIEWS_H_
#define WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_VIEWS_H_

#include <cstdint>

#include "frame/tables.h"
#include "frame/views.h"
#include "patterns/fixed_text.h"
#include "patterns/row_forms.h"
#include "patterns/search_views.h"
#include "patterns/stack_views.h"

namespace lk::geologic_unit {

// Rows of the list's group and pages of its stack.
constexpr int kListRows = 200;
constexpr int kStackRows = 100;

using patterns::kStampUserType;
inline constexpr PermittedRow kTypeCodes[] = {{"H", 0}, {"G", 0}, {"B", 0}, {nullptr, 0}};
inline constexpr AttributeType kCodeType = {13, "S ", 12, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kTypeCodeType = {2, "S ", 1, "", kTypeCodes, 0, {0, 0}};
inline constexpr AttributeType kStateCodeType = {3, "S ", 2, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kNameType = {81, "Y ", 80, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kTimestampType = {26, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN",
                                                 nullptr, 0, {0, 0}};

// The list's row, which is also the row in hand.
#define LK_GEO_LIST(X)                     \
  X(TSMGEOUN_CD, kCodeType, true)          \
  X(TSMGEOUN_ORG_ID, kOrgIdType, false)    \
  X(TYPE_CODE, kTypeCodeType, false)       \
  X(STATE_CODE, kStateCodeType, false)     \
  X(NAME, kNameType, false)
LK_ROW_FORMS(UnitList, kListRows, store::columns::kTsmgeoun, LK_GEO_LIST, TSMGEOUN_CD,
             TSMGEOUN_ORG_ID);
#undef LK_GEO_LIST

// The whole row, as the window and the blocks hold it.
#define LK_GEO_UNIT(X)                                 \
  X(TSMGEOUN_CD, kCodeType, true)                      \
  X(TSMGEOUN_ORG_ID, kOrgIdType, false)                \
  X(TYPE_CODE, kTypeCodeType, false)                   \
  X(STATE_CODE, kStateCodeType, false)                 \
  X(NAME, kNameType, false)                            \
  X(D_USERID_CODE, kStampUserType, false)              \
  X(D_LAST_UPDATE_TIMESTAMP, kTimestampType, false)
LK_ROW_FORMS(Unit, 1, store::columns::kTsmgeoun, LK_GEO_UNIT, TSMGEOUN_CD, TSMGEOUN_ORG_ID);
#undef LK_GEO_UNIT

constexpr u32 kCode = sizeof(UnitRow::TSMGEOUN_CD);
constexpr u32 kName = sizeof(UnitRow::NAME);

// What the window can change, as first shown.
#define LK_GEO_HIDDEN(X)                              \
  X(TSMGEOUN_CD, kCode, kCodeType, false)             \
  X(TYPE_CODE, sizeof(UnitRow::TYPE_CODE), kTypeCodeType, false) \
  X(STATE_CODE, sizeof(UnitRow::STATE_CODE), kStateCodeType, false) \
  X(NAME, kName, kNameType, false)
LK_GROUP_FORMS(UnitHidden, 1, LK_GEO_HIDDEN);
#undef LK_GEO_HIDDEN

// The page keys of the stack.
#define LK_GEO_PAGES(X)                                  \
  X(FIRST_ROW_USGS_CODE, kCode, kCodeType, false)        \
  X(LAST_ROW_USGS_CODE, kCode, kCodeType, false)         \
  X(FIRST_ROW_NAME, kName, kNameType, false)             \
  X(LAST_ROW_NAME, kName, kNameType, false)
LK_GROUP_FORMS(UnitPages, kStackRows, LK_GEO_PAGES);
#undef LK_GEO_PAGES

// The Search group's fields.
#define LK_GEO_SEARCH(X)                    \
  X(TSMGEOUN_CD, kCode, kCodeType, false)   \
  X(NAME, kName, kNameType, false)
LK_GROUP_FORMS(UnitSearch, 1, LK_GEO_SEARCH);
#undef LK_GEO_SEARCH

inline constexpr patterns::FixedText kEntity = "GEOLOGIC_UNIT";
using ListDictionary =
    patterns::SearchListViews<UnitListForms, UnitPagesForms, UnitSearchForms, kEntity>;
using EntryDictionary = patterns::OpenEntryViews<UnitForms, UnitHiddenForms, kEntity>;
using ListImport = ListDictionary::Import;
using ListExport = ListDictionary::Export;
using EntryImport = EntryDictionary::Import;
using EntryExport = EntryDictionary::Export;

// Exit states of the module.
constexpr u32 EXIT_LINK_RT47 = 0x4B6C1017;
constexpr u32 EXIT_GEOLOGIC_UNIT_NOT_FOUND = 0x4B6C1018;
constexpr u32 EXIT_GEOLOGIC_UNIT_ALREADY_EXISTS = 0x4B6C1019;
constexpr u32 EXIT_GEOLOGIC_UNIT_NOT_UNIQUE = 0x4B6C101A;
constexpr u32 EXIT_GEOLOGIC_UNIT_PERMITTED_VALUE = 0x4B6C101B;
constexpr u32 EXIT_GEOLOGIC_UNIT_SPRING = 0x4B6C101C;
constexpr u32 EXIT_GEOLOGIC_UNIT_INTERVAL = 0x4B6C101D;

inline constexpr char kNotFoundText[] = "GEOLOGIC_UNIT was not found.";
inline constexpr char kAlreadyExistsText[] = "Geologic Unit already exists";
inline constexpr char kNotUniqueText[] = "Geologic Unit is not unique";
inline constexpr char kPermittedValueText[] = "Geologic Unit permitted value violation.";
inline constexpr char kSpringText[] =
    "Cannot delete the selected Geologic Unit. It is related to a Spring Station.";
inline constexpr char kIntervalText[] =
    "Cannot delete selected Geologic Unit. It is related to an Interval.";

// The search sentinels: codes from "A" to twelve "z", names from blank to
// eighty "z".
inline constexpr char kLowCode[] = "A";
inline constexpr char kHighCode[] = "zzzzzzzzzzzz";
inline constexpr char kHighName[] =
    "zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz";
static_assert(sizeof kHighCode == kCode && sizeof kHighName == kName);

}  // namespace lk::geologic_unit

#endif  // WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_VIEWS_H_
