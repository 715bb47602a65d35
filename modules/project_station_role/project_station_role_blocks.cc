// The statements of the project station role's action blocks: the page
// cursors of RT40's list read and those of the row blocks.
#include "modules/project_station_role/project_station_role_blocks.h"

#include <cstddef>

#include "modules/project_station_role/project_station_role_units.h"
#include "store/actions.h"
#include "patterns/row_columns.h"
#include "store/statement.h"

namespace lk::project_station_role {

using store::HostChar;
using store::HostColumn;
using store::HostVarchar;
using store::StatementDef;

namespace {

// ---- Columns, from the row's attributes ----

using Columns = patterns::RowColumns<RoleForms>;
constexpr auto& kRowColumns = Columns::kAll;
constexpr auto& kKeyColumns = Columns::Pick<"TSMPSR_IS_NUMBER", "TSMPSR_ORG_ID">;
constexpr auto& kNameColumns = Columns::Pick<"TSMPSR_ORG_ID", "TYPE_NAME">;
constexpr auto& kDuplicateColumns =
    Columns::Pick<"TSMPSR_IS_NUMBER", "TSMPSR_ORG_ID", "TYPE_NAME">;
constexpr auto& kChangeColumns =
    Columns::Pick<"TYPE_NAME", "D_USERID_CODE", "D_LAST_UPDATE_TIMESTAMP">;
// The page cursors bind the organisation of the run and the row's key.
using Key = patterns::PageKey<RoleRow>;
constexpr HostColumn kPageKeyColumns[] = {
    HostChar("CURRENT_ORG_ID", 8, LK_PLACE(Key, CURRENT_ORG_ID)),
    HostVarchar("TYPE_NAME", 32, LK_PLACE(Key, row.TYPE_NAME)),
};

// ---- Statements ----

// The page cursors ask for one row more than the group holds: the proof
// that more rows follow or stand before.
constexpr StatementDef kPageUp = {
    "0000000001", 1,
    "SELECT TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME, D_USERID_CODE, D_LAST_UPDATE_TS "
    "FROM TSMPSR WHERE TSMPSR_ORG_ID = :CURRENT_ORG_ID "
    "AND (TYPE_NAME = :TYPE_NAME OR TYPE_NAME < :TYPE_NAME) "
    "ORDER BY TYPE_NAME DESC LIMIT 101",
    kPageKeyColumns, kRowColumns};
constexpr StatementDef kPageOn = {
    "0000000002", 2,
    "SELECT TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME, D_USERID_CODE, D_LAST_UPDATE_TS "
    "FROM TSMPSR WHERE TSMPSR_ORG_ID = :CURRENT_ORG_ID "
    "AND (TYPE_NAME = :TYPE_NAME OR TYPE_NAME > :TYPE_NAME) "
    "ORDER BY TYPE_NAME ASC LIMIT 101",
    kPageKeyColumns, kRowColumns};
static_assert(store::EndsWithLimit(kPageUp.text, kListRows + 1) &&
                  store::EndsWithLimit(kPageOn.text, kListRows + 1),
              "the page cursors' LIMIT is the group's maximum plus one");

constexpr StatementDef kDuplicate = {
    "0000000001", 1,
    "SELECT TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME FROM TSMPSR "
    "WHERE TSMPSR_ORG_ID = :TSMPSR_ORG_ID AND TYPE_NAME = :TYPE_NAME",
    kNameColumns, kDuplicateColumns};

constexpr StatementDef kNewRow = {
    "0000000003", 3,
    "INSERT INTO TSMPSR (TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME, D_USERID_CODE, "
    "D_LAST_UPDATE_TS) VALUES (:TSMPSR_IS_NUMBER, :TSMPSR_ORG_ID, :TYPE_NAME, :D_USERID_CODE, "
    ":D_LAST_UPDATE_TS)",
    kRowColumns, {}};

constexpr StatementDef kRowForUpdate = {
    "0000000001", 1,
    "SELECT TSMPSR_IS_NUMBER, TSMPSR_ORG_ID, TYPE_NAME, D_USERID_CODE, D_LAST_UPDATE_TS "
    "FROM TSMPSR WHERE TSMPSR_IS_NUMBER = :TSMPSR_IS_NUMBER AND TSMPSR_ORG_ID = :TSMPSR_ORG_ID",
    kKeyColumns, kRowColumns, /*for_update=*/true};
constexpr StatementDef kChange = {
    "0000000002", 2,
    "UPDATE TSMPSR SET TYPE_NAME = :TYPE_NAME, D_USERID_CODE = :D_USERID_CODE, "
    "D_LAST_UPDATE_TS = :D_LAST_UPDATE_TS",
    kChangeColumns, {}};

constexpr StatementDef kKey = {
    "0000000001", 1,
    "SELECT TSMPSR_IS_NUMBER, TSMPSR_ORG_ID FROM TSMPSR "
    "WHERE TSMPSR_IS_NUMBER = :TSMPSR_IS_NUMBER AND TSMPSR_ORG_ID = :TSMPSR_ORG_ID",
    kKeyColumns, kKeyColumns};

}  // namespace

const store::StatementDef RoleList::kReadPrev = kPageUp;
const store::StatementDef RoleList::kReadNext = kPageOn;
const store::StatementDef RoleTable::kSelectDuplicate = kDuplicate;
const store::StatementDef RoleTable::kInsert = kNewRow;
const store::StatementDef RoleTable::kReadForUpdate = kRowForUpdate;
const store::StatementDef RoleTable::kUpdate = kChange;
const store::StatementDef RoleTable::kSelectKey = kKey;

}  // namespace lk::project_station_role
