// The statements of the lithologic unit module's action blocks and the read
// of its list.
#include "modules/lithologic_unit/lithologic_unit_blocks.h"

#include <cstring>

#include "patterns/group.h"
#include "patterns/row_columns.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/entity_state.h"
#include "store/statement.h"

namespace lk::lithologic_unit {

namespace {

using store::HostChar;
using store::HostColumn;
using store::StatementDef;

using Columns = patterns::RowColumns<LithForms>;
constexpr auto& kAllColumns = Columns::kAll;
constexpr auto& kKeyColumns = Columns::Pick<"TSMLTHUN_CD", "TSMLTHUN_ORG_ID">;
constexpr auto& kRemoveColumns = Columns::Pick<"TSMLTHUN_CD", "NAME", "TSMLTHUN_ORG_ID">;
constexpr auto& kChangedColumns = Columns::Pick<"NAME", "D_USERID_CODE", "D_LAST_UPDATE_TIMESTAMP">;
constexpr auto& kListColumns = patterns::RowColumns<LithListForms>::kAll;

#define LK_ALL_COLUMNS "TSMLTHUN_CD, TSMLTHUN_ORG_ID, NAME, D_USERID_CODE, D_LAST_UPDT_TS"
#define LK_BY_KEY " WHERE TSMLTHUN_CD = :TSMLTHUN_CD AND TSMLTHUN_ORG_ID = :TSMLTHUN_ORG_ID"

// ---- READ_LITHOLOGIC_LIST ----

constexpr HostColumn kFromColumns[] = {
    HostChar("CODE", 12, LK_PLACE(ListFrom, CODE)),
    HostChar("NAME", 120, LK_PLACE(ListFrom, NAME)),
    HostChar("ORG_ID", 8, LK_PLACE(ListFrom, ORG_ID)),
};

// One row beyond the group is fetched: the read stops at it.
constexpr char kByCodeText[] = "SELECT " LK_ALL_COLUMNS
    " FROM TSMLTHUN WHERE TSMLTHUN_CD >= :CODE AND TSMLTHUN_ORG_ID = :ORG_ID "
    "ORDER BY TSMLTHUN_CD LIMIT 201";
// Filtered on the name, sorted by the code.
constexpr char kByNameText[] = "SELECT " LK_ALL_COLUMNS
    " FROM TSMLTHUN WHERE NAME >= :NAME AND TSMLTHUN_ORG_ID = :ORG_ID "
    "ORDER BY TSMLTHUN_CD, NAME LIMIT 201";
static_assert(store::EndsWithLimit(kByCodeText, kListRows + 1) &&
                  store::EndsWithLimit(kByNameText, kListRows + 1),
              "each read's LIMIT is the group plus one");

const StatementDef kByCode = {"0000000001", 1, kByCodeText, kFromColumns, kListColumns};
const StatementDef kByName = {"0000000002", 2, kByNameText, kFromColumns, kListColumns};

UnitStorage list_unit;
store::Cursor by_code_cursor, by_name_cursor;
store::EntityState list_state;
ListFrom from_host;
LithListRow list_row;

}  // namespace

void ReadLithologicList(HandleA a, HandleB b, RunContext* rc, const ListFrom& from,
                        ListExport* e) {
  store::RunActionBlock(&list_unit, kListId, a, b, rc, {&by_code_cursor, &by_name_cursor},
                        [&](store::Block& block) {
    store::ResetEntity(&list_state);
    auto& group = e->GRP_EXPORT;
    from_host = from;
    const bool by_name = TextIsBlank(from.CODE) && !TextIsBlank(from.NAME);
    int count = 0;
    std::memset(&list_row, 0, sizeof list_row);
    store::ReadList(block, by_name ? &by_name_cursor : &by_code_cursor,
                    by_name ? kByName : kByCode, &list_state, &from_host, &list_row, [&] {
      if (count >= kListRows) return false;
      const int r = ++count;
      TextMove(group.SELECT_CHAR.value[r], "", 2);
      patterns::RowToGroup(LithListForms::kAttributes, &list_row, &group, r);
      return true;
    });
    group.count = count;
  });
}

const StatementDef LithTable::kSelectRow = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSMLTHUN" LK_BY_KEY, kKeyColumns,
    kAllColumns};

const StatementDef LithTable::kInsert = {
    "0000000001", 1,
    "INSERT INTO TSMLTHUN (" LK_ALL_COLUMNS ") VALUES (:TSMLTHUN_CD, :TSMLTHUN_ORG_ID, :NAME, "
    ":D_USERID_CODE, :D_LAST_UPDT_TS)",
    kAllColumns, {}};

const StatementDef LithTable::kReadForUpdate = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSMLTHUN" LK_BY_KEY, kKeyColumns,
    kAllColumns, /*for_update=*/true};

// Under the cursor: the row by its identity.
const StatementDef LithTable::kUpdate = {
    "0000000002", 2,
    "UPDATE TSMLTHUN SET NAME = :NAME, D_USERID_CODE = :D_USERID_CODE, "
    "D_LAST_UPDT_TS = :D_LAST_UPDT_TS",
    kChangedColumns, {}};

// The name is part of the test.
const StatementDef LithTable::kSelectKey = {
    "0000000001", 1,
    "SELECT TSMLTHUN_CD, TSMLTHUN_ORG_ID FROM TSMLTHUN WHERE TSMLTHUN_CD = :TSMLTHUN_CD AND "
    "NAME = :NAME AND TSMLTHUN_ORG_ID = :TSMLTHUN_ORG_ID",
    kRemoveColumns, kKeyColumns};

#undef LK_ALL_COLUMNS
#undef LK_BY_KEY

}  // namespace lk::lithologic_unit
