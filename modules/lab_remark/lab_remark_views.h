// The lab remark in its forms, and the views of its two procedures: the
// list RT50_LAB_REMARK_MAINT_LIST (a stack list of 2000 rows with a stack of
// 100 pages, patterns/stack_views.h) with its delete dialog RT50A, and the
// data entry window RT51_LAB_REMARK_DATA_ENTRY (Open style).
//
// Entity LAB_REMARK, table TSRLBRMK: TSRLBRMK_IS_NUMBER (12 digits, a
// double), TSRLBRMK_ORG_ID (8), SHORT_NAME (6), DESCRIPTION_TEXT (varying,
// 60), D_USERID_CODE (8), D_LAST_UPDATE_TIMESTAMP. The list's rows and its
// row in hand carry the first four; the window all six, and as first shown
// the short name and the description (EXPORT_HIDDEN). The list reads by
// SHORT_NAME, which is also the key of the duplicate check and of the pages.
#ifndef WATRIX_MODULES_LAB_REMARK_LAB_REMARK_VIEWS_H_
#define WATRIX_MODULES_LAB_REMARK_LAB_REMARK_VIEWS_H_

#include <cstdint>

#include "frame/tables.h"
#include "frame/views.h"
#include "patterns/fixed_text.h"
#include "patterns/row_forms.h"
#include "patterns/stack_views.h"

namespace lk::lab_remark {

// Rows of the list's group and pages of its stack.
constexpr int kListRows = 2000;
constexpr int kStackRows = 100;

// Attribute types of the entity; the IS number and the user of the stamp
// are those of every table.
using patterns::kIsNumberType;
using patterns::kStampUserType;
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kShortNameType = {7, "S ", 6, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kDescriptionType = {61, "Y ", 60, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kTimestampType = {26, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN",
                                                 nullptr, 0, {0, 0}};

// The list's row; SHORT_NAME is the key it reads and checks by.
#define LK_REMARK_LIST(X)                     \
  X(TSRLBRMK_IS_NUMBER, kIsNumberType, false) \
  X(TSRLBRMK_ORG_ID, kOrgIdType, false)       \
  X(SHORT_NAME, kShortNameType, true)         \
  X(DESCRIPTION_TEXT, kDescriptionType, false)
LK_ROW_FORMS(RemarkList, kListRows, store::columns::kTsrlbrmk, LK_REMARK_LIST,
             TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID);
#undef LK_REMARK_LIST

// The whole row, as the window and the blocks hold it.
#define LK_REMARK(X)                                 \
  X(TSRLBRMK_IS_NUMBER, kIsNumberType, false)        \
  X(TSRLBRMK_ORG_ID, kOrgIdType, false)              \
  X(SHORT_NAME, kShortNameType, true)                \
  X(DESCRIPTION_TEXT, kDescriptionType, false)       \
  X(D_USERID_CODE, kStampUserType, false)            \
  X(D_LAST_UPDATE_TIMESTAMP, kTimestampType, false)
LK_ROW_FORMS(Remark, 1, store::columns::kTsrlbrmk, LK_REMARK, TSRLBRMK_IS_NUMBER,
             TSRLBRMK_ORG_ID);
#undef LK_REMARK

// What the window can change, as first shown.
#define LK_REMARK_HIDDEN(X)                                         \
  X(SHORT_NAME, sizeof(RemarkRow::SHORT_NAME), kShortNameType, false) \
  X(DESCRIPTION_TEXT, sizeof(RemarkRow::DESCRIPTION_TEXT), kDescriptionType, false)
LK_GROUP_FORMS(RemarkHidden, 1, LK_REMARK_HIDDEN);
#undef LK_REMARK_HIDDEN

// The page keys of the stack.
#define LK_REMARK_PAGES(X)                                                  \
  X(LAST_ROW_SHORT_NAME, sizeof(RemarkRow::SHORT_NAME), kShortNameType, false) \
  X(FIRST_ROW_SHORT_NAME, sizeof(RemarkRow::SHORT_NAME), kShortNameType, false)
LK_GROUP_FORMS(RemarkPages, kStackRows, LK_REMARK_PAGES);
#undef LK_REMARK_PAGES

constexpr u32 kShortName = sizeof(RemarkListRow::SHORT_NAME);
constexpr u32 kDescription = sizeof(RemarkListRow::DESCRIPTION_TEXT);

inline constexpr patterns::FixedText kEntity = "LAB_REMARK";
using ListDictionary = patterns::StackListViews<RemarkListForms, RemarkPagesForms, kEntity>;
using EntryDictionary = patterns::OpenEntryViews<RemarkForms, RemarkHiddenForms, kEntity>;
using ListImport = ListDictionary::Import;
using ListExport = ListDictionary::Export;
using EntryImport = EntryDictionary::Import;
using EntryExport = EntryDictionary::Export;

// Exit states of the module.
constexpr u32 EXIT_LINK_RT51 = 0x4B6C0D07;
constexpr u32 EXIT_LAB_REMARK_DUPLICATE = 0x4B6C0D08;
constexpr u32 EXIT_LAB_REMARK_NOT_FOUND = 0x4B6C0D09;
constexpr u32 EXIT_LAB_REMARK_GONE = 0x4B6C0D0A;
constexpr u32 EXIT_LAB_REMARK_ALREADY_EXISTS = 0x4B6C0D0B;
constexpr u32 EXIT_LAB_REMARK_NOT_UNIQUE = 0x4B6C0D0C;
constexpr u32 EXIT_LAB_REMARK_PERMITTED_VALUE = 0x4B6C0D0D;

inline constexpr char kNotFoundText[] = "LAB_REMARK was not found.";
inline constexpr char kAlreadyExistsText[] = "LAB_REMARK already exists.";
inline constexpr char kNotUniqueText[] = "LAB_REMARK is not unique.";
inline constexpr char kPermittedValueText[] = "LAB_REMARK permitted value violation.";
inline constexpr char kGoneText[] = "Lab Remark not found.";
inline constexpr char kDuplicateText[] = "A Lab Remark with this short name already exists.";

}  // namespace lk::lab_remark

#endif  // WATRIX_MODULES_LAB_REMARK_LAB_REMARK_VIEWS_H_
