// The statements of the geologic unit module's action blocks, the read of
// its list and its reference checks.
#include "modules/geologic_unit/geologic_unit_blocks.h"

#include <cstring>

#include "patterns/group.h"
#include "patterns/row_columns.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/entity_state.h"
#include "store/statement.h"

namespace lk::geologic_unit {

namespace {

using store::HostChar;
using store::HostColumn;
using store::HostNumber;
using store::StatementDef;

using Columns = patterns::RowColumns<UnitForms>;
constexpr auto& kAllColumns = Columns::kAll;
constexpr auto& kKeyColumns = Columns::Pick<"TSMGEOUN_CD", "TSMGEOUN_ORG_ID">;
constexpr auto& kChangedColumns =
    Columns::Pick<"TYPE_CODE", "STATE_CODE", "NAME", "D_USERID_CODE", "D_LAST_UPDATE_TIMESTAMP">;

#define LK_ALL_COLUMNS \
  "TSMGEOUN_CD, TSMGEOUN_ORG_ID, TYPE_CODE, STATE_CODE, NAME, D_USERID_CODE, D_LAST_UPDT_TS"
#define LK_BY_KEY " WHERE TSMGEOUN_CD = :TSMGEOUN_CD AND TSMGEOUN_ORG_ID = :TSMGEOUN_ORG_ID"

// ---- LIST_GEOLOGIC_UNIT ----

constexpr HostColumn kRangeColumns[] = {
    HostChar("LOW_CODE", 12, LK_PLACE(ListRange, LOW_CODE)),
    HostChar("HIGH_CODE", 12, LK_PLACE(ListRange, HIGH_CODE)),
    HostChar("LOW_NAME", 80, LK_PLACE(ListRange, LOW_NAME)),
    HostChar("HIGH_NAME", 80, LK_PLACE(ListRange, HIGH_NAME)),
};
constexpr auto& kListColumns = patterns::RowColumns<UnitListForms>::kAll;

#define LK_LIST_SELECT \
  "SELECT TSMGEOUN_CD, TSMGEOUN_ORG_ID, TYPE_CODE, STATE_CODE, NAME FROM TSMGEOUN WHERE "

// "LIST" and "NEXT" by code. The second arm takes every code above the low
// code that has a name, whatever the name range. The leading "code >= low
// code", which both arms imply, lets the read walk the code index in order.
constexpr char kByCodeText[] = LK_LIST_SELECT
    "TSMGEOUN_CD >= :LOW_CODE AND ((TSMGEOUN_CD BETWEEN :LOW_CODE AND :HIGH_CODE AND "
    "NAME BETWEEN :LOW_NAME AND :HIGH_NAME) OR (TSMGEOUN_CD > :LOW_CODE AND NAME > ' ')) "
    "ORDER BY TSMGEOUN_CD, NAME LIMIT 201";
// Sort "NAME", whatever the command.
constexpr char kByNameText[] = LK_LIST_SELECT
    "NAME BETWEEN :LOW_NAME AND :HIGH_NAME ORDER BY NAME, TSMGEOUN_CD LIMIT 201";
// "PREV" by code: from the page's first code on.
constexpr char kPrevByCodeText[] = LK_LIST_SELECT
    "TSMGEOUN_CD >= :LOW_CODE ORDER BY TSMGEOUN_CD, NAME LIMIT 201";
static_assert(store::EndsWithLimit(kByCodeText, kListRows + 1) &&
                  store::EndsWithLimit(kByNameText, kListRows + 1) &&
                  store::EndsWithLimit(kPrevByCodeText, kListRows + 1),
              "each read's LIMIT is the group plus one");

const StatementDef kByCode = {"0000000001", 1, kByCodeText, kRangeColumns, kListColumns};
const StatementDef kByName = {"0000000002", 2, kByNameText, kRangeColumns, kListColumns};
const StatementDef kPrevByCode = {"0000000003", 3, kPrevByCodeText, kRangeColumns,
                                  kListColumns};

UnitStorage list_unit;
store::Cursor by_code_cursor, by_name_cursor, prev_cursor;
store::EntityState list_state;
ListRange range_host;
UnitListRow list_row;

// ---- REMOVE_GEOLOGIC_UNIT's checks ----

struct SpringKey {
  char TSMSTATN_IS_NUMBER[8];
  char TSMSTATN_ORG_ID[9];
};
constexpr HostColumn kSpringColumns[] = {
    HostNumber("TSMSTATN_IS_NUMBER", LK_PLACE(SpringKey, TSMSTATN_IS_NUMBER)),
    HostChar("TSMSTATN_ORG_ID", 8, LK_PLACE(SpringKey, TSMSTATN_ORG_ID)),
};
struct IntervalKey {
  char TSMIGUA_IS_NUMBER[8];
  char TSMIGUA_ORG_ID[9];
};
constexpr HostColumn kIntervalColumns[] = {
    HostNumber("TSMIGUA_IS_NUMBER", LK_PLACE(IntervalKey, TSMIGUA_IS_NUMBER)),
    HostChar("TSMIGUA_ORG_ID", 8, LK_PLACE(IntervalKey, TSMIGUA_ORG_ID)),
};
const StatementDef kSpring = {
    "0000000002", 2,
    "SELECT TSMSTATN_IS_NUMBER, TSMSTATN_ORG_ID FROM TSMSPRNG WHERE TSMGEOUN_CD = :TSMGEOUN_CD "
    "AND TSMGEOUN_ORG_ID = :TSMGEOUN_ORG_ID LIMIT 1",
    kKeyColumns, kSpringColumns};
const StatementDef kInterval = {
    "0000000003", 3,
    "SELECT TSMIGUA_IS_NUMBER, TSMIGUA_ORG_ID FROM TSMIGUA WHERE TSMGEOUN_ORG_ID = "
    ":TSMGEOUN_ORG_ID AND TSMGEOUN_CD = :TSMGEOUN_CD LIMIT 1",
    kKeyColumns, kIntervalColumns};
store::EntityState spring_state, interval_state;
SpringKey spring;
IntervalKey interval;

}  // namespace

void ListGeologicUnit(HandleA a, HandleB b, RunContext* rc, const ListRange& range,
                      ListExport* e) {
  store::RunActionBlock(&list_unit, kListId, a, b, rc,
                        {&by_code_cursor, &by_name_cursor, &prev_cursor},
                        [&](store::Block& block) {
    store::ResetEntity(&list_state);
    auto& list = e->list;
    auto& group = list.GRP_EXPORT;
    const int page = static_cast<int>(patterns::GetNumber(list.EXPORT_STACK.SUBSCRIPT.value));
    TextMove(list.EXPORT_ALREADY_AT_BOTTOM.FLAG.value, "", 2);
    TextMove(list.EXPORT_ALREADY_AT_TOP.FLAG.value, "", 2);
    range_host = range;
    const bool by_name = TextCompare(range.SORT_TEXT, "NAME") == 0;
    const bool prev = TextCompare(rc->command, "PREV") == 0;
    const StatementDef& s = by_name ? kByName : prev ? kPrevByCode : kByCode;
    store::Cursor* cursor = by_name ? &by_name_cursor : prev ? &prev_cursor : &by_code_cursor;
    int count = 0;
    std::memset(&list_row, 0, sizeof list_row);
    store::ReadList(block, cursor, s, &list_state, &range_host, &list_row, [&] {
      if (count >= kListRows) return false;
      const int r = ++count;
      TextMove(group.SELECT_CHAR.value[r], "", 2);
      patterns::RowToGroup(UnitListForms::kAttributes, &list_row, &group, r);
      Stack::Record(rc, &list.GRP_EXPORT_STACK, page, r, list_row.TSMGEOUN_CD, list_row.NAME);
      return true;
    });
    group.count = count;
    if (count < kListRows) TextMove(list.EXPORT_ALREADY_AT_BOTTOM.FLAG.value, "Y", 2);
    if (page == 1) TextMove(list.EXPORT_ALREADY_AT_TOP.FLAG.value, "Y", 2);
  });
}

bool UnitTable::Referenced(store::Block& block, RunContext* rc, const UnitRow& key) {
  store::ResetEntity(&spring_state);
  store::SelectOne(block, kSpring, &spring_state, &key, &spring);
  if (store::StateIs(spring_state.status, "OK")) {
    SetExit(rc, EXIT_GEOLOGIC_UNIT_SPRING, kSpringText, 'E');
    return true;
  }
  if (!store::StateIs(spring_state.status, "NF")) store::FailOnStatus(block, spring_state);
  store::ResetEntity(&interval_state);
  store::SelectOne(block, kInterval, &interval_state, &key, &interval);
  if (store::StateIs(interval_state.status, "OK")) {
    SetExit(rc, EXIT_GEOLOGIC_UNIT_INTERVAL, kIntervalText, 'E');
    return true;
  }
  if (!store::StateIs(interval_state.status, "NF")) store::FailOnStatus(block, interval_state);
  return false;
}

const StatementDef UnitTable::kSelectRow = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSMGEOUN" LK_BY_KEY, kKeyColumns,
    kAllColumns};

const StatementDef UnitTable::kInsert = {
    "0000000001", 1,
    "INSERT INTO TSMGEOUN (" LK_ALL_COLUMNS ") VALUES (:TSMGEOUN_CD, :TSMGEOUN_ORG_ID, "
    ":TYPE_CODE, :STATE_CODE, :NAME, :D_USERID_CODE, :D_LAST_UPDT_TS)",
    kAllColumns, {}};

const StatementDef UnitTable::kReadForUpdate = {
    "0000000001", 1, "SELECT " LK_ALL_COLUMNS " FROM TSMGEOUN" LK_BY_KEY, kKeyColumns,
    kAllColumns, /*for_update=*/true};

const StatementDef UnitTable::kUpdate = {
    "0000000002", 2,
    "UPDATE TSMGEOUN SET TYPE_CODE = :TYPE_CODE, STATE_CODE = :STATE_CODE, NAME = :NAME, "
    "D_USERID_CODE = :D_USERID_CODE, D_LAST_UPDT_TS = :D_LAST_UPDT_TS",
    kChangedColumns, {}};

const StatementDef UnitTable::kSelectKey = {
    "0000000001", 1, "SELECT TSMGEOUN_CD, TSMGEOUN_ORG_ID FROM TSMGEOUN" LK_BY_KEY, kKeyColumns,
    kKeyColumns};

#undef LK_ALL_COLUMNS
#undef LK_BY_KEY
#undef LK_LIST_SELECT

}  // namespace lk::geologic_unit
