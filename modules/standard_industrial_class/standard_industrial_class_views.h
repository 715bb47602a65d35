// The standard industrial class in its forms, and the views of its two
// procedures: the list RT32_STND_INDSTRL_CD_MAINT_LIST (a first-page list of
// 200 rows, patterns/first_page_list.h) with its delete dialog RT32A, and the
// data entry window RT33_STND_INDST_SIC_DATA_ENTRY (body style,
// patterns/body_entry.h).
//
// Entity STANDARD_INDUSTRIAL_CLASS, table TSMSIC: TSMSIC_CODE (4),
// TSMSIC_ORG_ID, NAME (varying, 120), D_USERID_CODE, D_LAST_UPDATE_TIMESTAMP;
// no IS number: the code stands in the forms' first identity slot. The list
// pages by code and name within the organisation of the run; the pair is
// also what the duplicate read compares.
#ifndef WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_VIEWS_H_
#define WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_VIEWS_H_

#include "frame/run_context.h"
#include "frame/views.h"
#include "patterns/body_entry.h"
#include "patterns/first_page_list.h"
#include "patterns/row_forms.h"
#include "patterns/row_views.h"

namespace lk::standard_industrial_class {

constexpr int kListRows = 200;

using patterns::kStampUserType;
inline constexpr AttributeType kCodeType = {5, "S ", 4, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kNameType = {121, "Y ", 120, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kTimestampType = {21,      "Q ", 20,    "YYYY-MM-DD-HH.MI.SS.NNNNNN",
                                                 nullptr, 0,    {0, 0}};

// The row of TSMSIC; code and name are the key the list pages by and the
// fields the duplicate read marks.
#define LK_SIC_ATTRIBUTES(X)                       \
  X(TSMSIC_CODE, kCodeType, true)                  \
  X(TSMSIC_ORG_ID, kOrgIdType, false)              \
  X(NAME, kNameType, true)                         \
  X(D_USERID_CODE, kStampUserType, false)          \
  X(D_LAST_UPDATE_TIMESTAMP, kTimestampType, false)
LK_ROW_FORMS(Sic, kListRows, store::columns::kTsmsic, LK_SIC_ATTRIBUTES, TSMSIC_CODE,
             TSMSIC_ORG_ID);
#undef LK_SIC_ATTRIBUTES

inline constexpr char kDeleteWindowName[] = "RT32A_SIC_DELETE_CONFIRMATION";
inline constexpr patterns::FixedText kEntity = "STANDARD_INDUSTRIAL_CLASS";
using ListDictionary = patterns::FirstPageViews<SicForms, kEntity>;
using EntryDictionary = patterns::BodyEntryViews<SicForms, kEntity>;
using ListImport = ListDictionary::Import;
using ListExport = ListDictionary::Export;
using EntryImport = EntryDictionary::Import;
using EntryExport = EntryDictionary::Export;

// Exit states of the module.
constexpr u32 EXIT_LINK_RT33 = 0x4B000C29;          // RT32 -> RT33, add or change
constexpr u32 EXIT_SIC_DUPLICATE = 0x4B003202;      // RT33: code and name in use
constexpr u32 EXIT_SIC_NOT_FOUND = 0x4B003203;      // a block found no row
constexpr u32 EXIT_FSA_NOT_FOUND = 0x4B003205;      // no facility assignment refers
constexpr u32 EXIT_FSA_FOUND = 0x4B003206;          // a facility assignment refers

inline constexpr char kNotFoundText[] = "STANDARD_INDUSTRIAL_CLASS was not found.";
inline constexpr char kDuplicateText[] =
    "A Standard Industrial Code with this SIC Code and Name already exists.";
inline constexpr char kFsaNotFoundText[] = "FACILITY_SIC_ASSIGNMENT was not found.";
inline constexpr char kFsaFoundText[] = "FACILITY_SIC_ASSIGNMENT already exists.";
inline constexpr char kReferencedText[] =
    "Can Not Delete Standard Industrial Code - Facility SIC Assgn Exists";

}  // namespace lk::standard_industrial_class

#endif  // WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_VIEWS_H_
