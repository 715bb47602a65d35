// The statements of the lab remark module's action blocks.
#include "modules/lab_remark/lab_remark_blocks.h"

#include "patterns/row_columns.h"
#include "patterns/stack_list_units.h"
#include "store/statement.h"

namespace lk::lab_remark {

namespace {

using store::HostChar;
using store::HostColumn;
using store::StatementDef;

// The columns of TSRLBRMK, from the row's attributes.
using Columns = patterns::RowColumns<RemarkForms>;
constexpr auto& kAllColumns = Columns::kAll;
constexpr auto& kKeyColumns = Columns::Pick<"TSRLBRMK_IS_NUMBER", "TSRLBRMK_ORG_ID">;
constexpr auto& kNameColumn = Columns::Pick<"SHORT_NAME">;
constexpr auto& kDuplicateColumns =
    Columns::Pick<"SHORT_NAME", "DESCRIPTION_TEXT", "TSRLBRMK_IS_NUMBER", "TSRLBRMK_ORG_ID">;
constexpr auto& kChangedColumns =
    Columns::Pick<"SHORT_NAME", "DESCRIPTION_TEXT", "D_USERID_CODE", "D_LAST_UPDATE_TIMESTAMP">;

#define LK_ALL_COLUMNS                                                                     \
  "TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, DESCRIPTION_TEXT, D_USERID_CODE, " \
  "D_LAST_UPDATE_TS"
#define LK_BY_KEY \
  " WHERE TSRLBRMK_IS_NUMBER = :TSRLBRMK_IS_NUMBER AND TSRLBRMK_ORG_ID = :TSRLBRMK_ORG_ID"

// ---- LIST_LAB_REMARKS ----

using Range = patterns::StackRange<kShortName>;
constexpr HostColumn kRangeColumns[] = {
    HostChar("RANGE_START", 6, LK_PLACE(Range, RANGE_START)),
    HostChar("RANGE_END", 6, LK_PLACE(Range, RANGE_END)),
};
constexpr auto& kListColumns = patterns::RowColumns<RemarkListForms>::kAll;

// One row beyond the group is fetched: the read stops at it, without a word.
constexpr char kListText[] =
    "SELECT TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, DESCRIPTION_TEXT FROM TSRLBRMK "
    "WHERE SHORT_NAME >= :RANGE_START AND SHORT_NAME <= :RANGE_END ORDER BY SHORT_NAME "
    "LIMIT 2001";
static_assert(store::EndsWithLimit(kListText, kListRows + 1),
              "the list's LIMIT is its group plus one");

}  // namespace

const StatementDef kListStatement = {"0000000001", 1, kListText, kRangeColumns, kListColumns};

const StatementDef RemarkTable::kSelectRow = {
    "0000000002", 2, "SELECT " LK_ALL_COLUMNS " FROM TSRLBRMK" LK_BY_KEY, kKeyColumns,
    kAllColumns};

const StatementDef RemarkTable::kSelectDuplicate = {
    "0000000001", 1,
    "SELECT SHORT_NAME, DESCRIPTION_TEXT, TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID FROM TSRLBRMK "
    "WHERE SHORT_NAME = :SHORT_NAME",
    kNameColumn, kDuplicateColumns};

const StatementDef RemarkTable::kInsert = {
    "0000000004", 4,
    "INSERT INTO TSRLBRMK (" LK_ALL_COLUMNS ") VALUES (:TSRLBRMK_IS_NUMBER, :TSRLBRMK_ORG_ID, "
    ":SHORT_NAME, :DESCRIPTION_TEXT, :D_USERID_CODE, :D_LAST_UPDATE_TS)",
    kAllColumns, {}};

const StatementDef RemarkTable::kReadForUpdate = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSRLBRMK" LK_BY_KEY, kKeyColumns,
    kAllColumns, /*for_update=*/true};

const StatementDef RemarkTable::kUpdate = {
    "0000000003", 3,
    "UPDATE TSRLBRMK SET SHORT_NAME = :SHORT_NAME, DESCRIPTION_TEXT = :DESCRIPTION_TEXT, "
    "D_USERID_CODE = :D_USERID_CODE, D_LAST_UPDATE_TS = :D_LAST_UPDATE_TS",
    kChangedColumns, {}};

const StatementDef RemarkTable::kSelectKey = {
    "0000000001", 1, "SELECT TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID FROM TSRLBRMK" LK_BY_KEY,
    kKeyColumns, kKeyColumns};

#undef LK_ALL_COLUMNS
#undef LK_BY_KEY

}  // namespace lk::lab_remark
