// The unit of measure in its forms, and the views of its procedures: the
// list RT34_UNIT_OF_MEASURE_MAINT_LIST (a first-page list of 100 rows,
// patterns/first_page_list.h) with its delete dialog RT34A, the data entry
// window RT35_UNIT_OF_MEASURE_DATA_ENTRY (body style, patterns/body_entry.h)
// and the preview UOM1_UNIT_OF_MEASURE_PREVIEW (patterns/preview_list.h).
//
// Entity UNIT_OF_MEASURE, table TSRUOM: TSRUOM_IS_NUMBER, TSRUOM_ORG_ID,
// UOM_TYPE (5, one of the twelve unit types), SHORT_FORM_NAME (10),
// DESCRIPTION_TEXT (varying, 50), D_USERID_CODE, D_LAST_UPDATE_TIMESTAMP.
// The list pages by UOM_TYPE and SHORT_FORM_NAME within the organisation of
// the run; the pair is also the key of the duplicate check.
#ifndef WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_VIEWS_H_
#define WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_VIEWS_H_

#include "frame/tables.h"
#include "frame/views.h"
#include "patterns/body_entry.h"
#include "patterns/first_page_list.h"
#include "patterns/row_forms.h"
#include "patterns/row_views.h"

namespace lk::unit_of_measure {

constexpr int kListRows = 100;
constexpr int kPreviewRows = 2000;

// The unit types, as the dictionary lists them, and in the order of every
// check and of the combo box.
inline constexpr PermittedRow kUomTypes[] = {
    {"TEMP", 0}, {"AREA", 0}, {"VOL", 0},  {"VEL", 0},  {"FLOW", 0},  {"MISC", 0}, {"TIME", 0},
    {"TAX", 0},  {"LEN", 0},  {"PROD", 0}, {"SUBST", 0}, {"NONE", 0}, {nullptr, 0}};
inline constexpr PermittedRow kUomTypesChecked[] = {
    {"AREA", 0}, {"TEMP", 0}, {"NONE", 0}, {"SUBST", 0}, {"PROD", 0}, {"LEN", 0}, {"TAX", 0},
    {"TIME", 0}, {"MISC", 0}, {"FLOW", 0}, {"VEL", 0},   {"VOL", 0},  {nullptr, 0}};
inline constexpr const char* kUomTypeTexts[] = {"AREA", "TEMP", "NONE", "SUBST", "PROD", "LEN",
                                                "TAX",  "TIME", "MISC", "FLOW",  "VEL",  "VOL",
                                                nullptr};

using patterns::kIsNumberType;
using patterns::kStampUserType;
inline constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kUomTypeType = {6, "S ", 5, "", kUomTypes, 0x100, {0, 0}};
inline constexpr AttributeType kShortFormType = {11, "S ", 10, "", nullptr, 0x100, {0, 0}};
inline constexpr AttributeType kDescriptionType = {51, "Y ", 50, "", nullptr, 0, {0, 0}};
inline constexpr AttributeType kTimestampType = {21, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN",
                                                 nullptr, 0, {0, 0}};

#define LK_UOM_ATTRIBUTES(X)                         \
  X(TSRUOM_IS_NUMBER, kIsNumberType, false)          \
  X(TSRUOM_ORG_ID, kOrgIdType, false)                \
  X(UOM_TYPE, kUomTypeType, true)                    \
  X(SHORT_FORM_NAME, kShortFormType, true)           \
  X(DESCRIPTION_TEXT, kDescriptionType, false)       \
  X(D_USERID_CODE, kStampUserType, false)            \
  X(D_LAST_UPDATE_TIMESTAMP, kTimestampType, false)
LK_ROW_FORMS(Uom, kListRows, store::columns::kTsruom, LK_UOM_ATTRIBUTES, TSRUOM_IS_NUMBER,
             TSRUOM_ORG_ID);
#undef LK_UOM_ATTRIBUTES

inline constexpr char kDeleteWindowName[] = "RT34A_DELETE_UNIT_OF_MEASURE";
inline constexpr patterns::FixedText kEntity = "UNIT_OF_MEASURE";
using ListDictionary = patterns::FirstPageViews<UomForms, kEntity>;
using EntryDictionary = patterns::BodyEntryViews<UomForms, kEntity>;
using ListImport = ListDictionary::Import;
using ListExport = ListDictionary::Export;
using EntryImport = EntryDictionary::Import;
using EntryExport = EntryDictionary::Export;

// Exit states of the module.
constexpr u32 EXIT_LINK_RT35 = 0x4B001001;
constexpr u32 EXIT_UOM_DUPLICATE = 0x4B001002;
constexpr u32 EXIT_UOM_NOT_FOUND = 0x4B001003;
constexpr u32 EXIT_UOM_ALREADY_EXISTS = 0x4B001004;
constexpr u32 EXIT_UOM_IN_USE = 0x4B001005;

inline constexpr char kNotFoundText[] = "UNIT_OF_MEASURE was not found.";
inline constexpr char kAlreadyExistsText[] = "Unit of Measure already exists";
inline constexpr char kDuplicateText[] =
    "A Unit of Measure with this Unit of Measure Type and Name already exist";
inline constexpr char kInUseText[] = "Cannot delete UOM. It is being used.";

}  // namespace lk::unit_of_measure

#endif  // WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_VIEWS_H_
