// The statements of the unit of measure module's action blocks.
#include "modules/unit_of_measure/unit_of_measure_blocks.h"

#include "modules/unit_of_measure/unit_of_measure_preview.h"

#include <array>

#include "patterns/first_page_list.h"
#include "patterns/row_columns.h"
#include "store/statement.h"

namespace lk::unit_of_measure {

namespace {

using store::HostChar;
using store::HostColumn;
using store::HostNumber;
using store::StatementDef;

using Columns = patterns::RowColumns<UomForms>;

constexpr bool IsUomType(const char* name) {
  const char* t = "UOM_TYPE";
  for (; *name != '\0' && *name == *t; ++name, ++t) {
  }
  return *name == *t;
}
// The columns with the unit types as the closed list of UOM_TYPE: a write
// of another type is "BP", a read "IA".
template <std::size_t N>
constexpr std::array<HostColumn, N> Checked(std::array<HostColumn, N> columns) {
  for (HostColumn& c : columns)
    if (IsUomType(c.name)) c.permitted = kUomTypeTexts;
  return columns;
}
constexpr auto kRowColumns = Checked(Columns::kAll);
constexpr auto& kKeyColumns = Columns::Pick<"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID">;
constexpr auto kDuplicateColumns =
    Checked(Columns::Pick<"UOM_TYPE", "SHORT_FORM_NAME", "DESCRIPTION_TEXT", "TSRUOM_IS_NUMBER",
                          "TSRUOM_ORG_ID">);
constexpr auto& kDuplicateKeyColumns =
    Columns::Pick<"UOM_TYPE", "SHORT_FORM_NAME", "TSRUOM_ORG_ID">;
constexpr auto kChangeColumns =
    Checked(Columns::Pick<"UOM_TYPE", "SHORT_FORM_NAME", "DESCRIPTION_TEXT", "D_USERID_CODE",
                          "D_LAST_UPDATE_TIMESTAMP">);
// The preview's rows are its own forms, in the cursor's order.
constexpr auto kPreviewReadColumns = Checked(
    patterns::RowColumns<UomPreviewForms>::Pick<"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID",
                                                "SHORT_FORM_NAME", "UOM_TYPE",
                                                "DESCRIPTION_TEXT">);

// The page cursors bind the organisation of the run and the row's key.
using Key = patterns::PageKey<UomRow>;
constexpr HostColumn kPageKeyColumns[] = {
    HostChar("CURRENT_ORG_ID", 8, LK_PLACE(Key, CURRENT_ORG_ID)),
    HostChar("UOM_TYPE", 5, LK_PLACE(Key, row.UOM_TYPE)),
    HostChar("SHORT_FORM_NAME", 10, LK_PLACE(Key, row.SHORT_FORM_NAME)),
};
// The preview binds the type and the ORG ID of the characteristic.
using PreviewKey = UomRow;
constexpr auto& kPreviewKeyColumns = Columns::Pick<"UOM_TYPE", "TSRUOM_ORG_ID">;

// A referring row's key.
constexpr HostColumn ReferringColumns(const char* is_number, const char* org_id, int which) {
  return which == 0 ? HostNumber(is_number, LK_PLACE(patterns::ReferenceKey, IS_NUMBER))
                    : HostChar(org_id, 8, LK_PLACE(patterns::ReferenceKey, ORG_ID));
}
constexpr HostColumn kResultKey[] = {
    ReferringColumns("TSRRSULT_IS_NUMBER", "TSRRSULT_ORG_ID", 0),
    ReferringColumns("TSRRSULT_IS_NUMBER", "TSRRSULT_ORG_ID", 1)};
constexpr HostColumn kQcKey[] = {
    ReferringColumns("TSRRQCAF_IS_NUMBER", "TSRRQCAF_ORG_ID", 0),
    ReferringColumns("TSRRQCAF_IS_NUMBER", "TSRRQCAF_ORG_ID", 1)};

#define LK_ALL_COLUMNS                                                                         \
  "TSRUOM_IS_NUMBER, TSRUOM_ORG_ID, UOM_TYPE, SHORT_FORM_NAME, DESCRIPTION_TEXT, D_USERID_CODE, " \
  "D_LAST_UPDATE_TS"
#define LK_BY_KEY " WHERE TSRUOM_IS_NUMBER = :TSRUOM_IS_NUMBER AND TSRUOM_ORG_ID = :TSRUOM_ORG_ID"

constexpr char kPrevText[] =
    "SELECT " LK_ALL_COLUMNS " FROM TSRUOM WHERE TSRUOM_ORG_ID = :CURRENT_ORG_ID "
    "AND ((UOM_TYPE = :UOM_TYPE AND SHORT_FORM_NAME < :SHORT_FORM_NAME) OR UOM_TYPE < :UOM_TYPE) "
    "ORDER BY UOM_TYPE DESC, SHORT_FORM_NAME DESC LIMIT 101";
constexpr char kNextText[] =
    "SELECT " LK_ALL_COLUMNS " FROM TSRUOM WHERE TSRUOM_ORG_ID = :CURRENT_ORG_ID "
    "AND ((UOM_TYPE = :UOM_TYPE AND SHORT_FORM_NAME > :SHORT_FORM_NAME) OR UOM_TYPE > :UOM_TYPE) "
    "ORDER BY UOM_TYPE ASC, SHORT_FORM_NAME ASC LIMIT 101";
static_assert(store::EndsWithLimit(kPrevText, kListRows + 1) &&
                  store::EndsWithLimit(kNextText, kListRows + 1),
              "the page cursors' LIMIT is the group's maximum plus one");

constexpr char kPreviewAllText[] =
    "SELECT TSRUOM_IS_NUMBER, TSRUOM_ORG_ID, SHORT_FORM_NAME, UOM_TYPE, DESCRIPTION_TEXT "
    "FROM TSRUOM WHERE TSRUOM_ORG_ID = :TSRUOM_ORG_ID ORDER BY UOM_TYPE, SHORT_FORM_NAME "
    "LIMIT 2001";
constexpr char kPreviewTypeText[] =
    "SELECT TSRUOM_IS_NUMBER, TSRUOM_ORG_ID, SHORT_FORM_NAME, UOM_TYPE, DESCRIPTION_TEXT "
    "FROM TSRUOM WHERE UOM_TYPE = :UOM_TYPE AND TSRUOM_ORG_ID = :TSRUOM_ORG_ID "
    "ORDER BY SHORT_FORM_NAME LIMIT 2001";
static_assert(store::EndsWithLimit(kPreviewAllText, kPreviewRows + 1) &&
                  store::EndsWithLimit(kPreviewTypeText, kPreviewRows + 1),
              "the preview's LIMIT is its group plus one");

}  // namespace

const StatementDef kReadPrev = {"0000000001", 1, kPrevText, kPageKeyColumns, kRowColumns};
const StatementDef kReadNext = {"0000000002", 2, kNextText, kPageKeyColumns, kRowColumns};
const StatementDef kPreviewAll = {"0000000001", 1, kPreviewAllText, kPreviewKeyColumns,
                                  kPreviewReadColumns};
const StatementDef kPreviewType = {"0000000002", 2, kPreviewTypeText, kPreviewKeyColumns,
                                   kPreviewReadColumns};

const StatementDef UomTable::kSelectDuplicate = {
    "0000000001", 1,
    "SELECT UOM_TYPE, SHORT_FORM_NAME, DESCRIPTION_TEXT, TSRUOM_IS_NUMBER, TSRUOM_ORG_ID "
    "FROM TSRUOM WHERE UOM_TYPE = :UOM_TYPE AND SHORT_FORM_NAME = :SHORT_FORM_NAME "
    "AND TSRUOM_ORG_ID = :TSRUOM_ORG_ID",
    kDuplicateKeyColumns, kDuplicateColumns};

const StatementDef UomTable::kInsert = {
    "0000000004", 4,
    "INSERT INTO TSRUOM (" LK_ALL_COLUMNS ") VALUES (:TSRUOM_IS_NUMBER, :TSRUOM_ORG_ID, "
    ":UOM_TYPE, :SHORT_FORM_NAME, :DESCRIPTION_TEXT, :D_USERID_CODE, :D_LAST_UPDATE_TS)",
    kRowColumns, {}};

const StatementDef UomTable::kReadForUpdate = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSRUOM" LK_BY_KEY, kKeyColumns, kRowColumns,
    /*for_update=*/true};

const StatementDef UomTable::kUpdate = {
    "0000000002", 2,
    "UPDATE TSRUOM SET UOM_TYPE = :UOM_TYPE, SHORT_FORM_NAME = :SHORT_FORM_NAME, "
    "DESCRIPTION_TEXT = :DESCRIPTION_TEXT, D_USERID_CODE = :D_USERID_CODE, "
    "D_LAST_UPDATE_TS = :D_LAST_UPDATE_TS",
    kChangeColumns, {}};

const StatementDef UomTable::kSelectKey = {
    "0000000001", 1, "SELECT TSRUOM_IS_NUMBER, TSRUOM_ORG_ID FROM TSRUOM" LK_BY_KEY, kKeyColumns,
    kKeyColumns};

const StatementDef UomTable::kResult = {
    "0000000002", 2, "SELECT TSRRSULT_IS_NUMBER, TSRRSULT_ORG_ID FROM TSRRSULT" LK_BY_KEY,
    kKeyColumns, kResultKey};
const StatementDef UomTable::kResultCi = {
    "0000000003", 3, "SELECT TSRRSULT_IS_NUMBER, TSRRSULT_ORG_ID FROM TSRRCI" LK_BY_KEY,
    kKeyColumns, kResultKey};
const StatementDef UomTable::kQcAffected = {
    "0000000004", 4, "SELECT TSRRQCAF_IS_NUMBER, TSRRQCAF_ORG_ID FROM TSRRQCAF" LK_BY_KEY,
    kKeyColumns, kQcKey};
const StatementDef UomTable::kQualifier = {
    "0000000005", 5, "SELECT TSRRSULT_IS_NUMBER, TSRRSULT_ORG_ID FROM TSRDQL" LK_BY_KEY,
    kKeyColumns, kResultKey};

const patterns::ReferenceCheck UomTable::kReferenceChecks[4] = {
    {&UomTable::kResult, kInUseText},
    {&UomTable::kResultCi, kInUseText},
    {&UomTable::kQcAffected, kInUseText},
    {&UomTable::kQualifier, kInUseText},
};

#undef LK_ALL_COLUMNS
#undef LK_BY_KEY

}  // namespace lk::unit_of_measure
