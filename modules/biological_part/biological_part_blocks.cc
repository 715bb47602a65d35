// The statements of the biological part module's action blocks.
#include "modules/biological_part/biological_part_blocks.h"

#include "patterns/row_columns.h"
#include "store/statement.h"

namespace lk::biological_part {

namespace {

using store::HostChar;
using store::HostColumn;
using store::HostNumber;
using store::StatementDef;

using Columns = patterns::RowColumns<BioPartForms>;
constexpr auto& kAllColumns = Columns::kAll;
constexpr auto& kKeyColumns = Columns::Pick<"TSRBIOPT_IS_NUMBER", "TSRBIOPT_ORG_ID">;
constexpr auto& kNameColumn = Columns::Pick<"NAME">;
constexpr auto& kChangedColumns =
    Columns::Pick<"NAME", "D_USERID_CODE", "D_LAST_UPDATE_TIMESTAMP", "TSRBIOPT_IS_NUMBER",
                  "TSRBIOPT_ORG_ID">;
constexpr auto& kListColumns = patterns::RowColumns<BioPartListForms>::kAll;

// The key of a field activity that refers to the part.
constexpr HostColumn kFieldActivityColumns[] = {
    HostNumber("TSRFDACT_IS_NUMBER", LK_PLACE(patterns::ReferenceKey, IS_NUMBER)),
    HostChar("TSRFDACT_ORG_ID", 8, LK_PLACE(patterns::ReferenceKey, ORG_ID)),
};

#define LK_ALL_COLUMNS "TSRBIOPT_IS_NUMBER, TSRBIOPT_ORG_ID, NAME, D_USERID_CODE, D_LAST_UPDT_TS"
#define LK_BY_KEY \
  " WHERE TSRBIOPT_IS_NUMBER = :TSRBIOPT_IS_NUMBER AND TSRBIOPT_ORG_ID = :TSRBIOPT_ORG_ID"

// One row beyond the group is fetched: the read stops at it, without a word.
constexpr char kListText[] =
    "SELECT NAME, TSRBIOPT_IS_NUMBER, TSRBIOPT_ORG_ID FROM TSRBIOPT ORDER BY NAME LIMIT 201";
static_assert(store::EndsWithLimit(kListText, kListRows + 1),
              "the list's LIMIT is its group plus one");

}  // namespace

const StatementDef kListStatement = {"0000000001", 1, kListText, {}, kListColumns};

const StatementDef BioPartTable::kSelectRow = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSRBIOPT" LK_BY_KEY, kKeyColumns,
    kAllColumns};

// No ORG ID: a name is taken in every organisation.
const StatementDef BioPartTable::kSelectDuplicate = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSRBIOPT WHERE NAME = :NAME", kNameColumn,
    kAllColumns};

const StatementDef BioPartTable::kReadDuplicateForUpdate = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSRBIOPT WHERE NAME = :NAME", kNameColumn,
    kAllColumns, /*for_update=*/true};

const StatementDef BioPartTable::kInsert = {
    "0000000003", 3,
    "INSERT INTO TSRBIOPT (" LK_ALL_COLUMNS ") VALUES (:TSRBIOPT_IS_NUMBER, :TSRBIOPT_ORG_ID, "
    ":NAME, :D_USERID_CODE, :D_LAST_UPDT_TS)",
    kAllColumns, {}};

const StatementDef BioPartTable::kReadForUpdate = {
    "0000000002", 2, "SELECT " LK_ALL_COLUMNS " FROM TSRBIOPT" LK_BY_KEY, kKeyColumns,
    kAllColumns, /*for_update=*/true};

// By the key, not under the cursor.
const StatementDef BioPartTable::kUpdate = {
    "0000000003", 3,
    "UPDATE TSRBIOPT SET NAME = :NAME, D_USERID_CODE = :D_USERID_CODE, "
    "D_LAST_UPDT_TS = :D_LAST_UPDT_TS" LK_BY_KEY,
    kChangedColumns, {}};

const StatementDef BioPartTable::kSelectKey = {
    "0000000001", 1, "SELECT TSRBIOPT_IS_NUMBER, TSRBIOPT_ORG_ID FROM TSRBIOPT" LK_BY_KEY,
    kKeyColumns, kKeyColumns};

const StatementDef BioPartTable::kFieldActivity = {
    "0000000002", 2,
    "SELECT TSRFDACT_IS_NUMBER, TSRFDACT_ORG_ID FROM TSRFDACT" LK_BY_KEY, kKeyColumns,
    kFieldActivityColumns};

const patterns::ReferenceCheck BioPartTable::kReferenceChecks[1] = {
    {&BioPartTable::kFieldActivity, kInUseText},
};

#undef LK_ALL_COLUMNS
#undef LK_BY_KEY

}  // namespace lk::biological_part
