// The lithologic unit in its forms, and the views of its two procedures:
// the list RT42_LITHOLOGIC_UNIT_MAINT_LIST (a list of 200 rows without
// paging, patterns/plain_list_views.h) with its delete dialog RT42A, and the
// data entry window RT43_LITHOLOGIC_UNIT_DATA_ENTRY (Open style).
//
// Entity LITHOLOGIC_UNIT, table TSMLTHUN, keyed by TSMLTHUN_CD (12) and
// TSMLTHUN_ORG_ID (8), with no IS number: NAME (varying, 120),
// D_USERID_CODE (8) and the stamp D_LAST_UPDATE_TIMESTAMP (column
// D_LAST_UPDT_TS). The code stands in the forms' identity slot where other
// tables have their IS number (patterns/code_row_blocks.h). The list's rows
// and its row in hand carry the whole row; the window's hidden copy the name.
#ifndef WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_VIEWS_H_
#define WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_VIEWS_H_

#include "frame/tables.h"
#include "frame/views.h"
#include "patterns/fixed_text.h"
#include "patterns/plain_list_views.h"
#include "patterns/row_forms.h"
#include "patterns/stack_views.h"

namespace lk::lithologic_unit {

// Rows of the list's group.
constexpr int kListRows = 200;

using patterns::kStampUserType;
inline constexpr AttributeType kCodeType = {13, "S ", 12, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kNameType = {121, "Y ", 120, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kTimestampType = {26, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN",
                                                 nullptr, 0, {0, 0}};

// The whole row: the list's rows, its row in hand, the window and the
// blocks hold it alike.
#define LK_LITH_UNIT(X)                              \
  X(TSMLTHUN_CD, kCodeType, true)                    \
  X(TSMLTHUN_ORG_ID, kOrgIdType, false)              \
  X(NAME, kNameType, false)                          \
  X(D_USERID_CODE, kStampUserType, false)            \
  X(D_LAST_UPDATE_TIMESTAMP, kTimestampType, false)
LK_ROW_FORMS(LithList, kListRows, store::columns::kTsmlthun, LK_LITH_UNIT, TSMLTHUN_CD,
             TSMLTHUN_ORG_ID);
LK_ROW_FORMS(Lith, 1, store::columns::kTsmlthun, LK_LITH_UNIT, TSMLTHUN_CD, TSMLTHUN_ORG_ID);
#undef LK_LITH_UNIT

constexpr u32 kCode = sizeof(LithRow::TSMLTHUN_CD);
constexpr u32 kName = sizeof(LithRow::NAME);

// What the window can change, as first shown.
#define LK_LITH_HIDDEN(X) X(NAME, kName, kNameType, false)
LK_GROUP_FORMS(LithHidden, 1, LK_LITH_HIDDEN);
#undef LK_LITH_HIDDEN

inline constexpr patterns::FixedText kEntity = "LITHOLOGIC_UNIT";
using ListDictionary = patterns::PlainListViews<LithListForms, kEntity>;
using EntryDictionary = patterns::OpenEntryViews<LithForms, LithHiddenForms, kEntity>;
using ListImport = ListDictionary::Import;
using ListExport = ListDictionary::Export;
using EntryImport = EntryDictionary::Import;
using EntryExport = EntryDictionary::Export;

// Exit states of the module.
constexpr u32 EXIT_LINK_RT43 = 0x479825BA;
constexpr u32 EXIT_LITHOLOGIC_UNIT_NOT_FOUND = 0x479825BB;
constexpr u32 EXIT_LITHOLOGIC_UNIT_ALREADY_EXISTS = 0x479825BC;
constexpr u32 EXIT_LITHOLOGIC_UNIT_PERMITTED_VALUE = 0x479825BD;
constexpr u32 EXIT_LITHOLOGIC_UNIT_DUPLICATE = 0x479825BE;

inline constexpr char kNotFoundText[] = "LITHOLOGIC_UNIT was not found.";
inline constexpr char kAlreadyExistsText[] = "Lithologic Unit already exists.";
inline constexpr char kPermittedValueText[] = "Lithologic Unit permitted value violation.";
inline constexpr char kDuplicateText[] = "A Lithologic Unit with this Code already exists.";

}  // namespace lk::lithologic_unit

#endif  // WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_VIEWS_H_
