// The action blocks of the lab remark module: their statements, and what
// each makes of the outcome.
#include "modules/lab_remark/lab_remark_blocks.h"

#include <cstring>

#include "frame/unit.h"
#include "services/text.h"
#include "services/timestamp.h"
#include "store/actions.h"
#include "store/cascade.h"
#include "store/cascade_loop.h"
#include "store/entity_state.h"
#include "store/is_number.h"
#include "store/statement.h"

namespace lk::lab_remark {

namespace {

using store::Block;
using store::EntityState;
using store::HostChar;
using store::HostColumn;
using store::HostDate;
using store::HostNumber;
using store::HostVarchar;
using store::StatementDef;
using store::StateIs;

constexpr char kNotFoundText[] = "LAB_REMARK was not found.";
constexpr char kAlreadyExistsText[] = "LAB_REMARK already exists.";
constexpr char kNotUniqueText[] = "LAB_REMARK is not unique.";
constexpr char kPermittedValueText[] = "LAB_REMARK permitted value violation.";
constexpr char kGoneText[] = "Lab Remark not found.";
constexpr char kCounterName[] = "TSRLBRMK";

constexpr UnitId kListId = {"0009961520", "LIST_LAB_REMARKS"};
constexpr UnitId kReadId = {"0009961521", "READ_LAB_REMARKS_PREV_NEXT"};
constexpr UnitId kCheckId = {"0009961522", "CHECK_FOR_DUP_LAB_REMARK"};
constexpr UnitId kIdentifyId = {"1265369739", "IDENTIFY_LAB_REMARK-1265369739"};
constexpr UnitId kModifyId = {"1265369746", "MODIFY_LAB_REMARK-1265369746"};
constexpr UnitId kRemoveId = {"1265369753", "REMOVE_LAB_REMARK-1265369753"};

// The columns of TSRLBRMK, bound to a Remark record.
constexpr HostColumn kColIsNumber =
    HostNumber("TSRLBRMK_IS_NUMBER", LK_PLACE(Remark, TSRLBRMK_IS_NUMBER));
constexpr HostColumn kColOrgId =
    HostChar("TSRLBRMK_ORG_ID", 8, LK_PLACE(Remark, TSRLBRMK_ORG_ID));
constexpr HostColumn kColShortName =
    HostChar("SHORT_NAME", 6, LK_PLACE(Remark, SHORT_NAME));
constexpr HostColumn kColDescription =
    HostVarchar("DESCRIPTION_TEXT", 60, LK_PLACE(Remark, DESCRIPTION_TEXT));
constexpr HostColumn kColUserId =
    HostChar("D_USERID_CODE", 8, LK_PLACE(Remark, D_USERID_CODE));
constexpr HostColumn kColStamp =
    HostDate("D_LAST_UPDATE_TS", LK_PLACE(Remark, D_LAST_UPDATE_TIMESTAMP));

constexpr HostColumn kKeyColumns[] = {kColIsNumber, kColOrgId};
constexpr HostColumn kListColumns[] = {kColIsNumber, kColOrgId, kColShortName, kColDescription};
constexpr HostColumn kAllColumns[] = {kColIsNumber,    kColOrgId,  kColShortName,
                                      kColDescription, kColUserId, kColStamp};
constexpr HostColumn kNameColumn[] = {kColShortName};
constexpr HostColumn kDuplicateColumns[] = {kColShortName, kColDescription, kColIsNumber,
                                            kColOrgId};
constexpr HostColumn kChangedColumns[] = {kColShortName, kColDescription, kColUserId, kColStamp};

#define LK_ALL_COLUMNS                                                         \
  "TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, DESCRIPTION_TEXT, D_USERID_CODE, " \
  "D_LAST_UPDATE_TS"
#define LK_BY_KEY \
  " WHERE TSRLBRMK_IS_NUMBER = :TSRLBRMK_IS_NUMBER AND TSRLBRMK_ORG_ID = :TSRLBRMK_ORG_ID"

// ---- LIST_LAB_REMARKS ----

struct Range {
  char RANGE_START[kShortName];
  char RANGE_END[kShortName];
};
constexpr HostColumn kRangeColumns[] = {
    HostChar("RANGE_START", 6, LK_PLACE(Range, RANGE_START)),
    HostChar("RANGE_END", 6, LK_PLACE(Range, RANGE_END)),
};

// One row beyond the group is fetched: the read stops at it, without a word.
constexpr char kListText[] =
    "SELECT TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, DESCRIPTION_TEXT FROM TSRLBRMK "
    "WHERE SHORT_NAME >= :RANGE_START AND SHORT_NAME <= :RANGE_END ORDER BY SHORT_NAME "
    "LIMIT 2001";

// Whether `text` ends with "LIMIT n".
constexpr bool EndsWithLimit(const char* text, int n) {
  char digits[12] = {};
  int d = 0;
  for (; n > 0; n /= 10) digits[d++] = static_cast<char>('0' + n % 10);
  int end = 0;
  while (text[end] != '\0') ++end;
  for (int i = 0; i < d; ++i)
    if (text[end - 1 - i] != digits[i]) return false;
  const char kWord[] = "LIMIT ";
  for (int i = 0; i < 6; ++i)
    if (text[end - d - 6 + i] != kWord[i]) return false;
  return true;
}
static_assert(EndsWithLimit(kListText, kListLimit + 1), "the list's LIMIT is its group plus one");

constexpr StatementDef kList = {"0000000001", 1, kListText, kRangeColumns, kListColumns};

UnitStorage list_unit;
store::Cursor list_cursor;
EntityState list_state;
Range list_range;
Remark list_row;

// ---- READ_LAB_REMARKS_PREV_NEXT ----

constexpr StatementDef kRead = {"0000000002", 2,
                                "SELECT " LK_ALL_COLUMNS " FROM TSRLBRMK" LK_BY_KEY, kKeyColumns,
                                kAllColumns};
UnitStorage read_unit;
EntityState read_state;
Remark read_key, read_row;

// ---- CHECK_FOR_DUP_LAB_REMARK ----

constexpr StatementDef kCheck = {
    "0000000001", 1,
    "SELECT SHORT_NAME, DESCRIPTION_TEXT, TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID FROM TSRLBRMK "
    "WHERE SHORT_NAME = :SHORT_NAME",
    kNameColumn, kDuplicateColumns};
UnitStorage check_unit;
EntityState check_state;
Remark check_name, check_row;

// ---- IDENTIFY_LAB_REMARK-1265369739 ----

constexpr StatementDef kInsert = {
    "0000000004", 4,
    "INSERT INTO TSRLBRMK (" LK_ALL_COLUMNS ") VALUES (:TSRLBRMK_IS_NUMBER, :TSRLBRMK_ORG_ID, "
    ":SHORT_NAME, :DESCRIPTION_TEXT, :D_USERID_CODE, :D_LAST_UPDATE_TS)",
    kAllColumns, {}};
UnitStorage identify_unit;
EntityState identify_state;
Remark identify_row;

// ---- MODIFY_LAB_REMARK-1265369746 ----

constexpr StatementDef kModifyRead = {"0000000001", 1,
                                      "SELECT " LK_ALL_COLUMNS " FROM TSRLBRMK" LK_BY_KEY,
                                      kKeyColumns, kAllColumns, /*for_update=*/true};
constexpr StatementDef kModifyUpdate = {
    "0000000003", 3,
    "UPDATE TSRLBRMK SET SHORT_NAME = :SHORT_NAME, DESCRIPTION_TEXT = :DESCRIPTION_TEXT, "
    "D_USERID_CODE = :D_USERID_CODE, D_LAST_UPDATE_TS = :D_LAST_UPDATE_TS",
    kChangedColumns, {}};
UnitStorage modify_unit;
store::Cursor modify_cursor;
EntityState modify_state;
Remark modify_key, modify_row, modify_values;

// ---- REMOVE_LAB_REMARK-1265369753 ----

constexpr StatementDef kRemoveRead = {
    "0000000001", 1,
    "SELECT TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID FROM TSRLBRMK" LK_BY_KEY, kKeyColumns,
    kKeyColumns};
constexpr char kRemoveCascade[] = "0000000002";
UnitStorage remove_unit;
EntityState remove_state;
Remark remove_key, remove_row;
store::CascadeRecord remove_record;

#undef LK_ALL_COLUMNS
#undef LK_BY_KEY

void KeyInto(Remark* host, double is_number, const char* org_id) {
  std::memset(host, 0, sizeof *host);
  host->TSRLBRMK_IS_NUMBER = is_number;
  TextMove(host->TSRLBRMK_ORG_ID, org_id, kOrgId);
}

}  // namespace

void LIST_LAB_REMARKS(HandleA a, HandleB b, RunContext* rc, const RangeLimit* range_end,
                      const RangeLimit* range_start, const RemarkStack* import_stack,
                      Flag* at_bottom, Flag* at_top, RemarkStack* export_stack,
                      RemarkGroup* group) {
  store::RunActionBlock(&list_unit, kListId, a, b, rc, {&list_cursor}, [&](Block& block) {
    store::ResetEntity(&list_state);
    // The stack and the page as they came.
    *export_stack = *import_stack;
    const int page = static_cast<int>(export_stack->SUBSCRIPT);
    const bool keeps_stack = TextCompare(rc->command, "LIST") == 0 ||
                             TextCompare(rc->command, "NEXT") == 0;
    group->count = 0;
    TextMove(list_range.RANGE_START, range_start->SHORT_NAME, kShortName);
    TextMove(list_range.RANGE_END, range_end->SHORT_NAME, kShortName);
    std::memset(&list_row, 0, sizeof list_row);
    store::ReadList(block, &list_cursor, kList, &list_state, &list_range, &list_row, [&] {
      if (group->count >= kListLimit) return false;
      const int r = ++group->count;
      group->TSRLBRMK_IS_NUMBER[r] = list_row.TSRLBRMK_IS_NUMBER;
      TextMove(group->TSRLBRMK_ORG_ID[r], list_row.TSRLBRMK_ORG_ID, kOrgId);
      TextMove(group->SHORT_NAME[r], list_row.SHORT_NAME, kShortName);
      BoundedCopy(group->DESCRIPTION_TEXT[r], list_row.DESCRIPTION_TEXT, kDescription);
      if (keeps_stack) {
        CheckSubscript(rc, page, kStackRows);
        if (page > export_stack->count) export_stack->count = page;
        char* key = r == 1 ? export_stack->FIRST_ROW_SHORT_NAME[page]
                           : export_stack->LAST_ROW_SHORT_NAME[page];
        TextMove(key, list_row.SHORT_NAME, kShortName);
      }
      return true;
    });
    if (group->count >= 0 && group->count < kListLimit) TextMove(at_bottom->FLAG, "Y", kFlag);
    if (page == 1) TextMove(at_top->FLAG, "Y", kFlag);
  });
}

void READ_LAB_REMARKS_PREV_NEXT(HandleA a, HandleB b, RunContext* rc, const RemarkKey* key,
                                Remark* row) {
  store::RunActionBlock(&read_unit, kReadId, a, b, rc, {}, [&](Block& block) {
    store::ResetEntity(&read_state);
    KeyInto(&read_key, key->TSRLBRMK_IS_NUMBER, key->TSRLBRMK_ORG_ID);
    store::SelectOne(block, kRead, &read_state, &read_key, &read_row);
    if (StateIs(read_state.status, "NF")) {
      SetExit(rc, EXIT_LAB_REMARK_NOT_FOUND, kNotFoundText, 'N');
      return;
    }
    if (!StateIs(read_state.status, "OK")) store::FailOnStatus(block, read_state);
    *row = read_row;
  });
}

void CHECK_FOR_DUP_LAB_REMARK(HandleA a, HandleB b, RunContext* rc, const RemarkName* name) {
  store::RunActionBlock(&check_unit, kCheckId, a, b, rc, {}, [&](Block& block) {
    store::ResetEntity(&check_state);
    std::memset(&check_name, 0, sizeof check_name);
    TextMove(check_name.SHORT_NAME, name->SHORT_NAME, kShortName);
    BoundedCopy(check_name.DESCRIPTION_TEXT, name->DESCRIPTION_TEXT, kDescription);
    store::SelectOne(block, kCheck, &check_state, &check_name, &check_row);
    if (StateIs(check_state.status, "NF")) {
      SetExit(rc, EXIT_LAB_REMARK_NOT_FOUND, kNotFoundText, 'N');
      return;
    }
    if (!StateIs(check_state.status, "OK")) store::FailOnStatus(block, check_state);
  });
}

void IDENTIFY_LAB_REMARK_1265369739(HandleA a, HandleB b, RunContext* rc,
                                    const SystemVariable* system, const Remark* row,
                                    RemarkKey* key) {
  store::RunActionBlock(&identify_unit, kIdentifyId, a, b, rc, {}, [&](Block& block) {
    store::ResetEntity(&identify_state);
    store::EisnSystemVariable eisn_system{};
    TextMove(eisn_system.USER_ID_CODE, system->USER_ID_CODE, kUserId);
    TextMove(eisn_system.CURRENT_ORG_ID, system->CURRENT_ORG_ID, kUserId);
    store::EisnImport eisn{};
    TextMove(eisn.TSMEISN_NAME, kCounterName, sizeof eisn.TSMEISN_NAME);
    TextMove(eisn.TSMEISN_ORG_ID, "", sizeof eisn.TSMEISN_ORG_ID);
    store::EisnExport number{};
    const std::uint32_t before = rc->exit_state;
    rc->run_mode = ' ';
    store::DETERMINE_NEXT_IS_NUMBER(a, b, rc, &eisn_system, &eisn, &number);
    CheckCallee(rc);
    StoreUnitId(rc, kIdentifyId);
    // No number: its exit state and message go up as they are.
    if (rc->exit_state != before) return;

    std::memset(&identify_row, 0, sizeof identify_row);
    identify_row.TSRLBRMK_IS_NUMBER = number.IS_NUMBER;
    TextMove(identify_row.TSRLBRMK_ORG_ID, row->TSRLBRMK_ORG_ID, kOrgId);
    TextMove(identify_row.SHORT_NAME, row->SHORT_NAME, kShortName);
    BoundedCopy(identify_row.DESCRIPTION_TEXT, row->DESCRIPTION_TEXT, kDescription);
    TextMove(identify_row.D_USERID_CODE, system->USER_ID_CODE, kUserId);
    StampCurrentTimestamp(a, b, rc, identify_row.D_LAST_UPDATE_TIMESTAMP);
    store::Insert(block, kInsert, &identify_state, &identify_row, &identify_row);
    if (StateIs(identify_state.status, "OK")) {
      key->TSRLBRMK_IS_NUMBER = identify_row.TSRLBRMK_IS_NUMBER;
      TextMove(key->TSRLBRMK_ORG_ID, identify_row.TSRLBRMK_ORG_ID, kOrgId);
    } else if (StateIs(identify_state.status, "DF")) {
      SetExit(rc, EXIT_LAB_REMARK_ALREADY_EXISTS, kAlreadyExistsText, 'N');
    } else if (StateIs(identify_state.status, "BP")) {
      SetExit(rc, EXIT_LAB_REMARK_PERMITTED_VALUE, kPermittedValueText, 'N');
    } else {
      store::FailOnStatus(block, identify_state);
    }
  });
}

void MODIFY_LAB_REMARK_1265369746(HandleA a, HandleB b, RunContext* rc,
                                  const SystemVariable* system, const Remark* row) {
  store::RunActionBlock(&modify_unit, kModifyId, a, b, rc, {&modify_cursor}, [&](Block& block) {
    store::ResetEntity(&modify_state);
    KeyInto(&modify_key, row->TSRLBRMK_IS_NUMBER, row->TSRLBRMK_ORG_ID);
    std::memset(&modify_row, 0, sizeof modify_row);
    store::ReadForUpdate(block, &modify_cursor, kModifyRead, &modify_state, &modify_key,
                         &modify_row);
    if (StateIs(modify_state.status, "NF")) {
      SetExit(rc, EXIT_LAB_REMARK_NOT_FOUND, kNotFoundText, 'N');
      return;
    }
    if (!StateIs(modify_state.status, "OK")) store::FailOnStatus(block, modify_state);

    modify_values = modify_row;
    TextMove(modify_values.SHORT_NAME, row->SHORT_NAME, kShortName);
    BoundedCopy(modify_values.DESCRIPTION_TEXT, row->DESCRIPTION_TEXT, kDescription);
    TextMove(modify_values.D_USERID_CODE, system->USER_ID_CODE, kUserId);
    StampCurrentTimestamp(a, b, rc, modify_values.D_LAST_UPDATE_TIMESTAMP);
    store::Update(block, kModifyUpdate, &modify_state, &modify_values, &modify_row,
                  &modify_cursor);
    if (StateIs(modify_state.status, "OK")) return;
    if (StateIs(modify_state.status, "DF")) {
      SetExit(rc, EXIT_LAB_REMARK_NOT_UNIQUE, kNotUniqueText, 'N');
    } else if (StateIs(modify_state.status, "BP")) {
      SetExit(rc, EXIT_LAB_REMARK_PERMITTED_VALUE, kPermittedValueText, 'N');
    } else {
      store::FailOnStatus(block, modify_state);
    }
  });
}

void REMOVE_LAB_REMARK_1265369753(HandleA a, HandleB b, RunContext* rc, const RemarkKey* key) {
  store::RunActionBlock(&remove_unit, kRemoveId, a, b, rc, {}, [&](Block& block) {
    store::ResetEntity(&remove_state);
    KeyInto(&remove_key, key->TSRLBRMK_IS_NUMBER, key->TSRLBRMK_ORG_ID);
    std::memset(&remove_row, 0, sizeof remove_row);
    store::SelectOne(block, kRemoveRead, &remove_state, &remove_key, &remove_row);
    if (StateIs(remove_state.status, "NF")) {
      SetExit(rc, EXIT_LAB_REMARK_GONE, kGoneText, 'E');
      return;
    }
    if (!StateIs(remove_state.status, "OK")) store::FailOnStatus(block, remove_state);

    // No reference check: a remark code is not guarded against use.
    store::RemoveCurrentRow(block, a, b, rc, &remove_state, &remove_record, store::E2738301,
                            remove_row.TSRLBRMK_IS_NUMBER, remove_row.TSRLBRMK_ORG_ID,
                            kRemoveCascade, {}, kRemoveId);
  });
}

}  // namespace lk::lab_remark
