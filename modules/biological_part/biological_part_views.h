// The biological part in its forms, and the views of its two procedures:
// the list RT48_BIO_PART_MAINT_LIST (a list of 200 rows without paging,
// patterns/plain_list_views.h) with its delete dialog RT48A, and the data
// entry window RT49_BIO_PART_DATA_ENTRY (Open style).
//
// Entity BIOLOGICAL_PART, table TSRBIOPT: TSRBIOPT_IS_NUMBER (12 digits, a
// double), TSRBIOPT_ORG_ID (8), NAME (varying, 30), D_USERID_CODE (8),
// D_LAST_UPDATE_TIMESTAMP (column D_LAST_UPDT_TS). The list's rows and its
// row in hand carry the name, the IS number and the ORG ID; the window all
// five, and as first shown the name (EXPORT_HIDDEN). NAME is the business
// key, checked in every organisation.
#ifndef WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_VIEWS_H_
#define WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_VIEWS_H_

#include "frame/tables.h"
#include "frame/views.h"
#include "patterns/fixed_text.h"
#include "patterns/plain_list_views.h"
#include "patterns/row_forms.h"
#include "patterns/stack_views.h"

namespace lk::biological_part {

// Rows of the list's group.
constexpr int kListRows = 200;

using patterns::kIsNumberType;
using patterns::kStampUserType;
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kNameType = {31, "Y ", 30, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kTimestampType = {26, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN",
                                                 nullptr, 0, {0, 0}};

// The list's row, in the order of its cursor.
#define LK_BIO_PART_LIST(X)                   \
  X(NAME, kNameType, true)                    \
  X(TSRBIOPT_IS_NUMBER, kIsNumberType, false) \
  X(TSRBIOPT_ORG_ID, kOrgIdType, false)
LK_ROW_FORMS(BioPartList, kListRows, store::columns::kTsrbiopt, LK_BIO_PART_LIST,
             TSRBIOPT_IS_NUMBER, TSRBIOPT_ORG_ID);
#undef LK_BIO_PART_LIST

// The whole row, as the window and the blocks hold it.
#define LK_BIO_PART(X)                               \
  X(TSRBIOPT_IS_NUMBER, kIsNumberType, false)        \
  X(TSRBIOPT_ORG_ID, kOrgIdType, false)              \
  X(NAME, kNameType, true)                           \
  X(D_USERID_CODE, kStampUserType, false)            \
  X(D_LAST_UPDATE_TIMESTAMP, kTimestampType, false)
LK_ROW_FORMS(BioPart, 1, store::columns::kTsrbiopt, LK_BIO_PART, TSRBIOPT_IS_NUMBER,
             TSRBIOPT_ORG_ID);
#undef LK_BIO_PART

// What the window can change, as first shown.
#define LK_BIO_PART_HIDDEN(X) X(NAME, sizeof(BioPartRow::NAME), kNameType, false)
LK_GROUP_FORMS(BioPartHidden, 1, LK_BIO_PART_HIDDEN);
#undef LK_BIO_PART_HIDDEN

constexpr u32 kName = sizeof(BioPartListRow::NAME);

inline constexpr patterns::FixedText kEntity = "BIOLOGICAL_PART";
using ListDictionary = patterns::PlainListViews<BioPartListForms, kEntity>;
using EntryDictionary = patterns::OpenEntryViews<BioPartForms, BioPartHiddenForms, kEntity>;
using ListImport = ListDictionary::Import;
using ListExport = ListDictionary::Export;
using EntryImport = EntryDictionary::Import;
using EntryExport = EntryDictionary::Export;

// Exit states of the module.
constexpr u32 EXIT_LINK_RT49 = 0x4B6C0966;
constexpr u32 EXIT_BIO_PART_NOT_FOUND = 0x4B6C0967;
constexpr u32 EXIT_BIO_PART_ALREADY_EXISTS = 0x4B6C0968;
constexpr u32 EXIT_BIO_PART_NOT_UNIQUE = 0x4B6C0969;
constexpr u32 EXIT_BIO_PART_PERMITTED_VALUE = 0x4B6C096A;
constexpr u32 EXIT_BIO_PART_IN_USE = 0x4B6C096B;

inline constexpr char kNotFoundText[] = "Biological Part Not Found";
inline constexpr char kAlreadyExistsText[] = "Biological Part already exists";
inline constexpr char kNotUniqueText[] = "Biological Part not unique";
inline constexpr char kPermittedValueText[] = "Biological Name Permitted Value violation";
inline constexpr char kInUseText[] =
    "Cannot delete the selected Biological Part. It is related to a Field Activity.";

}  // namespace lk::biological_part

#endif  // WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_VIEWS_H_
