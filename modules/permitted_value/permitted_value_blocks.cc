// The action blocks of the permitted value module and their statements.
#include "modules/permitted_value/permitted_value_blocks.h"

#include <cstddef>
#include <cstring>

#include "patterns/group.h"
#include "patterns/row_columns.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/cascade.h"
#include "store/entity_state.h"

namespace lk::permitted_value {

using patterns::GetNumber;
using patterns::PutNumber;
using store::HostChar;
using store::HostColumn;
using store::HostNumber;
using store::HostSmall;
using store::HostVarchar;
using store::StatementDef;

namespace {

// ---- Columns ----

using Columns = patterns::RowColumns<PvForms>;
constexpr auto& kRowColumns = Columns::kAll;
constexpr auto& kKeyColumns = Columns::Pick<"TSMPRMVL_IS_NUMBER", "TSMPRMVL_ORG_ID">;
constexpr auto& kChangeColumns =
    Columns::Pick<"TABLE_NAME", "FIELD_NAME", "SEQUENCE_NUMBER", "FIELD_VALUE",
                  "FIELD_DESCRIPTION", "D_USERID_CODE", "D_LAST_UPDATE_TIMESTAMP">;
constexpr auto& kValueColumns = Columns::Pick<"FIELD_VALUE", "FIELD_DESCRIPTION">;
constexpr auto& kIsNumberColumns = Columns::Pick<"TSMPRMVL_IS_NUMBER">;

// What a page cursor and a look-ahead bind: the run's organisation and a key.
struct KeyBind {
  char CURRENT_ORG_ID[9];
  char TABLE_NAME[kTableName];
  char FIELD_NAME[kFieldName];
  char SEQUENCE_NUMBER[kSequence];
};
constexpr HostColumn kKeyBind[] = {
    HostChar("CURRENT_ORG_ID", 8, LK_PLACE(KeyBind, CURRENT_ORG_ID)),
    HostChar("TABLE_NAME", 8, LK_PLACE(KeyBind, TABLE_NAME)),
    HostVarchar("FIELD_NAME", 20, LK_PLACE(KeyBind, FIELD_NAME)),
    HostSmall("SEQUENCE_NUMBER", LK_PLACE(KeyBind, SEQUENCE_NUMBER)),
};
// What the reads by names bind.
constexpr HostColumn kNamesBind[] = {
    HostChar("TABLE_NAME", 8, LK_PLACE(NamesIn, TABLE_NAME)),
    HostVarchar("FIELD_NAME", 20, LK_PLACE(NamesIn, FIELD_NAME)),
    HostVarchar("FIELD_VALUE", 40, LK_PLACE(NamesIn, FIELD_VALUE)),
    HostSmall("SEQUENCE_NUMBER", LK_PLACE(NamesIn, SEQUENCE_NUMBER)),
};
// What the reads by names fetch: the names, or the sequence number, into
// the same record; and a key of a page.
constexpr HostColumn kPairOut[] = {kNamesBind[0], kNamesBind[1]};
constexpr HostColumn kSequenceOut[] = {kNamesBind[3]};
constexpr HostColumn kKeyOut[] = {
    HostChar("TABLE_NAME", 8, LK_PLACE(PvKeyRow, TABLE_NAME)),
    HostVarchar("FIELD_NAME", 20, LK_PLACE(PvKeyRow, FIELD_NAME)),
    HostSmall("SEQUENCE_NUMBER", LK_PLACE(PvKeyRow, SEQUENCE_NUMBER)),
};
struct OrgNamesBind {
  char CURRENT_ORG_ID[9];
  NamesIn names;
};
constexpr HostColumn kOrgNamesBind[] = {
    HostChar("CURRENT_ORG_ID", 8, LK_PLACE(OrgNamesBind, CURRENT_ORG_ID)),
    HostChar("TABLE_NAME", 8, LK_PLACE(OrgNamesBind, names.TABLE_NAME)),
    HostVarchar("FIELD_NAME", 20, LK_PLACE(OrgNamesBind, names.FIELD_NAME)),
};

#define LK_PV_SELECT                                                                          \
  "SELECT TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID, TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER, "     \
  "FIELD_VALUE, FIELD_DESC, D_USERID_CODE, D_LAST_UPDATE_TS FROM TSMPRMVL "
#define LK_PV_ASCENDING " ORDER BY TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER"
#define LK_PV_DESCENDING " ORDER BY TABLE_NAME DESC, FIELD_NAME DESC, SEQUENCE_NUMBER DESC"

// ---- READ_PERMITTED_VALUE_LIST ----

// From the key on, the key's row included, within the run's organisation:
// the cursor's TABLE_NAME >= K and the row filter of FIELD_NAME and
// SEQUENCE_NUMBER within K's table are one comparison of the three parts,
// which the index of the key (with the organisation in front) serves as a
// range of its own.
constexpr StatementDef kPageOn = {
    "0000000001", 1,
    LK_PV_SELECT
    "WHERE TSMPRMVL_ORG_ID = :CURRENT_ORG_ID "
    "AND (TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER) >= (:TABLE_NAME, :FIELD_NAME, "
    ":SEQUENCE_NUMBER)" LK_PV_ASCENDING " LIMIT 2000",
    kKeyBind, kRowColumns};
// The same for "REFRESH", a cursor of its own.
constexpr StatementDef kPageAgain = {
    "0000000002", 2,
    LK_PV_SELECT
    "WHERE TSMPRMVL_ORG_ID = :CURRENT_ORG_ID "
    "AND (TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER) >= (:TABLE_NAME, :FIELD_NAME, "
    ":SEQUENCE_NUMBER)" LK_PV_ASCENDING " LIMIT 2000",
    kKeyBind, kRowColumns};
// Back from the key, the key's row included, over every organisation.
constexpr StatementDef kPageBack = {
    "0000000003", 3,
    LK_PV_SELECT
    "WHERE (TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER) <= (:TABLE_NAME, :FIELD_NAME, "
    ":SEQUENCE_NUMBER)" LK_PV_DESCENDING " LIMIT 2000",
    kKeyBind, kRowColumns};
// The second pass of "PREV": the run's first rows.
constexpr StatementDef kPageTop = {
    "0000000004", 4,
    LK_PV_SELECT "WHERE TSMPRMVL_ORG_ID = :CURRENT_ORG_ID" LK_PV_ASCENDING " LIMIT 2000",
    kKeyBind, kRowColumns};
static_assert(store::EndsWithLimit(kPageOn.text, kListRows) &&
                  store::EndsWithLimit(kPageAgain.text, kListRows) &&
                  store::EndsWithLimit(kPageBack.text, kListRows) &&
                  store::EndsWithLimit(kPageTop.text, kListRows),
              "a page read stops at the group's maximum");
// The look-aheads: one row beyond a key, (the organisation, the key's table
// and field, a sequence number beyond it) or (the key's table, a field
// beyond it) or a table beyond it; the organisation only in the first
// branch. Each branch is a statement of its own that stops at its first row
// on an index, asked in turn until one finds a row.
#define LK_PV_BEYOND(number, site, same_field, same_table, other_table)                 \
  {{number "1", site * 10 + 1,                                                          \
    "SELECT TSMPRMVL_IS_NUMBER FROM TSMPRMVL WHERE TSMPRMVL_ORG_ID = :CURRENT_ORG_ID "  \
    "AND TABLE_NAME = :TABLE_NAME AND FIELD_NAME = :FIELD_NAME "                        \
    "AND SEQUENCE_NUMBER " same_field " :SEQUENCE_NUMBER LIMIT 1",                      \
    kKeyBind, kIsNumberColumns},                                                         \
   {number "2", site * 10 + 2,                                                          \
    "SELECT TSMPRMVL_IS_NUMBER FROM TSMPRMVL WHERE TABLE_NAME = :TABLE_NAME "           \
    "AND FIELD_NAME " same_table " :FIELD_NAME LIMIT 1",                                \
    kKeyBind, kIsNumberColumns},                                                         \
   {number "3", site * 10 + 3,                                                          \
    "SELECT TSMPRMVL_IS_NUMBER FROM TSMPRMVL WHERE TABLE_NAME " other_table             \
    " :TABLE_NAME LIMIT 1",                                                             \
    kKeyBind, kIsNumberColumns}}
constexpr StatementDef kRowAfter[] = LK_PV_BEYOND("000000005", 5, ">", ">", ">");
constexpr StatementDef kRowBefore[] = LK_PV_BEYOND("000000006", 6, "<", "<", "<");
#undef LK_PV_BEYOND

// ---- Reads by names ----

constexpr StatementDef kCategoryAny = {
    "0000000001", 1,
    LK_PV_SELECT
    "WHERE TABLE_NAME = :TABLE_NAME AND FIELD_VALUE = :FIELD_VALUE "
    "AND FIELD_NAME <> 'CATEGORY_TYPE_NAME'",
    kNamesBind, kRowColumns};
constexpr StatementDef kCategoryOf = {
    "0000000002", 2,
    LK_PV_SELECT
    "WHERE TABLE_NAME = :TABLE_NAME AND FIELD_VALUE = :FIELD_VALUE "
    "AND FIELD_NAME = :FIELD_NAME",
    kNamesBind, kRowColumns};

// By TABLE_NAME; within a table the lowest sequence number comes first.
// The rows as the group of other tables holds them: without the stamp.
#define LK_PV_TABLES_SELECT                                                                   \
  "SELECT TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID, TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER, "     \
  "FIELD_VALUE, FIELD_DESC FROM TSMPRMVL "
constexpr auto& kTablesColumns = patterns::RowColumns<PvTablesForms>::kAll;
constexpr StatementDef kCommonName = {
    "0000000001", 1,
    LK_PV_TABLES_SELECT
    "WHERE FIELD_NAME = :FIELD_NAME AND TABLE_NAME <> :TABLE_NAME "
    "ORDER BY TABLE_NAME, SEQUENCE_NUMBER",
    kNamesBind, kTablesColumns};
constexpr StatementDef kCommonValue = {
    "0000000002", 2,
    LK_PV_TABLES_SELECT
    "WHERE FIELD_NAME = :FIELD_NAME AND FIELD_VALUE = :FIELD_VALUE "
    "AND TABLE_NAME <> :TABLE_NAME ORDER BY TABLE_NAME, SEQUENCE_NUMBER",
    kNamesBind, kTablesColumns};
#undef LK_PV_TABLES_SELECT

constexpr StatementDef kValues = {
    "0000000001", 1,
    "SELECT FIELD_VALUE, FIELD_DESC FROM TSMPRMVL WHERE TSMPRMVL_ORG_ID = :CURRENT_ORG_ID "
    "AND TABLE_NAME = :TABLE_NAME AND FIELD_NAME = :FIELD_NAME "
    "ORDER BY SEQUENCE_NUMBER LIMIT 500",
    kOrgNamesBind, kValueColumns};
static_assert(store::EndsWithLimit(kValues.text, kValueListRows));

constexpr StatementDef kAnyOfTable = {
    "0000000001", 1, "SELECT TABLE_NAME, FIELD_NAME FROM TSMPRMVL WHERE TABLE_NAME = :TABLE_NAME",
    kNamesBind, kPairOut};
constexpr StatementDef kAnyOfField = {
    "0000000001", 1,
    "SELECT TABLE_NAME, FIELD_NAME FROM TSMPRMVL WHERE TABLE_NAME = :TABLE_NAME "
    "AND FIELD_NAME = :FIELD_NAME",
    kNamesBind, kPairOut};
constexpr StatementDef kSameValue = {
    "0000000001", 1,
    "SELECT TABLE_NAME, FIELD_NAME FROM TSMPRMVL WHERE TABLE_NAME = :TABLE_NAME "
    "AND FIELD_NAME = :FIELD_NAME AND FIELD_VALUE = :FIELD_VALUE",
    kNamesBind, kPairOut};
constexpr StatementDef kSameSequence = {
    "0000000001", 1,
    "SELECT TABLE_NAME, FIELD_NAME FROM TSMPRMVL WHERE TABLE_NAME = :TABLE_NAME "
    "AND FIELD_NAME = :FIELD_NAME AND SEQUENCE_NUMBER = :SEQUENCE_NUMBER",
    kNamesBind, kPairOut};

constexpr StatementDef kPairs = {
    "0000000001", 1,
    "SELECT DISTINCT TABLE_NAME, FIELD_NAME FROM TSMPRMVL "
    "WHERE TSMPRMVL_ORG_ID = :CURRENT_ORG_ID ORDER BY TABLE_NAME, FIELD_NAME",
    kOrgNamesBind, kPairOut};

constexpr StatementDef kOneOfField = {
    "0000000001", 1,
    "SELECT TABLE_NAME, FIELD_NAME, SEQUENCE_NUMBER FROM TSMPRMVL "
    "WHERE FIELD_NAME = :FIELD_NAME AND TABLE_NAME = :TABLE_NAME",
    kNamesBind, kKeyOut};
constexpr StatementDef kHighest = {
    "0000000002", 2,
    "SELECT SEQUENCE_NUMBER FROM TSMPRMVL WHERE TABLE_NAME = :TABLE_NAME "
    "AND FIELD_NAME = :FIELD_NAME ORDER BY SEQUENCE_NUMBER DESC LIMIT 1",
    kNamesBind, kSequenceOut};

// ---- The row blocks ----

constexpr StatementDef kNewRow = {
    "0000000003", 3,
    "INSERT INTO TSMPRMVL (TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID, TABLE_NAME, FIELD_NAME, "
    "SEQUENCE_NUMBER, FIELD_VALUE, FIELD_DESC, D_USERID_CODE, D_LAST_UPDATE_TS) VALUES "
    "(:TSMPRMVL_IS_NUMBER, :TSMPRMVL_ORG_ID, :TABLE_NAME, :FIELD_NAME, :SEQUENCE_NUMBER, "
    ":FIELD_VALUE, :FIELD_DESC, :D_USERID_CODE, :D_LAST_UPDATE_TS)",
    kRowColumns, {}};
constexpr StatementDef kRowForUpdate = {
    "0000000001", 1,
    LK_PV_SELECT
    "WHERE TSMPRMVL_IS_NUMBER = :TSMPRMVL_IS_NUMBER AND TSMPRMVL_ORG_ID = :TSMPRMVL_ORG_ID",
    kKeyColumns, kRowColumns, /*for_update=*/true};
constexpr StatementDef kChange = {
    "0000000002", 2,
    "UPDATE TSMPRMVL SET TABLE_NAME = :TABLE_NAME, FIELD_NAME = :FIELD_NAME, "
    "SEQUENCE_NUMBER = :SEQUENCE_NUMBER, FIELD_VALUE = :FIELD_VALUE, FIELD_DESC = :FIELD_DESC, "
    "D_USERID_CODE = :D_USERID_CODE, D_LAST_UPDATE_TS = :D_LAST_UPDATE_TS",
    kChangeColumns, {}};
constexpr StatementDef kKey = {
    "0000000001", 1,
    "SELECT TSMPRMVL_IS_NUMBER, TSMPRMVL_ORG_ID FROM TSMPRMVL "
    "WHERE TSMPRMVL_IS_NUMBER = :TSMPRMVL_IS_NUMBER AND TSMPRMVL_ORG_ID = :TSMPRMVL_ORG_ID",
    kKeyColumns, kKeyColumns};

#undef LK_PV_SELECT
#undef LK_PV_ASCENDING
#undef LK_PV_DESCENDING

bool Same(const char* value, const char* literal) { return TextCompare(value, literal) == 0; }

void KeyOf(const PvRow& row, PvKeyRow* key) {
  TextMove(key->TABLE_NAME, row.TABLE_NAME, sizeof key->TABLE_NAME);
  BoundedCopy(key->FIELD_NAME, row.FIELD_NAME, sizeof key->FIELD_NAME);
  std::memcpy(key->SEQUENCE_NUMBER, row.SEQUENCE_NUMBER, sizeof key->SEQUENCE_NUMBER);
}
void BlankKey(PvKeyRow* key) {
  TextMove(key->TABLE_NAME, "", sizeof key->TABLE_NAME);
  std::memset(key->FIELD_NAME, 0, sizeof key->FIELD_NAME);
  PutNumber(key->SEQUENCE_NUMBER, 0);
}
void BindKey(const char* org_id, const PvKeyRow& key, KeyBind* bind) {
  TextMove(bind->CURRENT_ORG_ID, org_id, sizeof bind->CURRENT_ORG_ID);
  TextMove(bind->TABLE_NAME, key.TABLE_NAME, sizeof bind->TABLE_NAME);
  BoundedCopy(bind->FIELD_NAME, key.FIELD_NAME, sizeof bind->FIELD_NAME);
  std::memcpy(bind->SEQUENCE_NUMBER, key.SEQUENCE_NUMBER, sizeof bind->SEQUENCE_NUMBER);
}

// The statics of the blocks.
UnitStorage list_unit, remove_unit, category_unit, common_unit, values_unit, table_name_unit,
    field_name_unit, same_value_unit, same_sequence_unit, pairs_unit, next_sequence_unit;
store::EntityState list_state, look_state, remove_state, category_state, common_state,
    values_state, exists_state, pairs_state, sequence_state;
store::Cursor list_cursor, common_cursor, values_cursor, pairs_cursor, sequence_cursor;
KeyBind list_bind;
PvRow list_row, read_row, remove_row;
PvTablesRow common_row;
NamesIn pair_row;
store::CascadeRecord remove_record;

// Whether a row lies beyond `key`, after it (`after`) or before it.
bool LookAhead(store::Block& block, const char* org_id, const PvKeyRow& key, bool after) {
  KeyBind bind{};
  BindKey(org_id, key, &bind);
  for (const StatementDef& branch : after ? kRowAfter : kRowBefore) {
    char is_number[8] = {};
    store::ResetEntity(&look_state);
    store::SelectOne(block, branch, &look_state, &bind, is_number);
    if (store::StateIs(look_state.status, "OK")) return true;
    if (!store::StateIs(look_state.status, "NF")) store::FailOnStatus(block, look_state);
  }
  return false;
}

}  // namespace

void READ_PERMITTED_VALUE_LIST(HandleA a, HandleB b, RunContext* rc, const PageIn* in,
                               PageOut* out, PvGroup* group) {
  store::RunActionBlock(&list_unit, kReadListId, a, b, rc, {&list_cursor},
                        [&](store::Block& block) {
    store::ResetEntity(&list_state);
    TextMove(out->NEXT, "", sizeof out->NEXT);
    TextMove(out->PREV, "", sizeof out->PREV);
    BlankKey(&out->first);
    BlankKey(&out->last);
    std::memset(group, 0, sizeof *group);
    const bool prev = Same(in->COMMAND, "PREV");
    const bool refresh = Same(in->COMMAND, "REFRESH");
    int n = 0;
    // Forward: rows 1 upward, at most 2000.
    auto forward = [&](const StatementDef& statement, const PvKeyRow& from) {
      BindKey(in->CURRENT_ORG_ID, from, &list_bind);
      store::ReadList(block, &list_cursor, statement, &list_state, &list_bind, &list_row, [&] {
        ++n;
        CheckSubscript(rc, n, kListRows);
        patterns::RowToGroup(PvForms::kAttributes, &list_row, group, n);
        group->count = n;
        if (n == 1) KeyOf(list_row, &out->first);
        KeyOf(list_row, &out->last);
        return n < kListRows;
      });
    };
    if (prev) {
      // Back from FIRST: rows 2000 downward.
      int r = kListRows + 1;
      BindKey(in->CURRENT_ORG_ID, in->first, &list_bind);
      store::ReadList(block, &list_cursor, kPageBack, &list_state, &list_bind, &list_row, [&] {
        --r;
        CheckSubscript(rc, r, kListRows);
        patterns::RowToGroup(PvForms::kAttributes, &list_row, group, r);
        if (r == kListRows) KeyOf(list_row, &out->last);
        KeyOf(list_row, &out->first);
        return r > 1;
      });
      if (r == 1) {
        group->count = kListRows;
        if (LookAhead(block, in->CURRENT_ORG_ID, out->first, /*after=*/false))
          TextMove(out->PREV, "Y", sizeof out->PREV);
      } else {
        // The top of the table came first: the run's first page instead.
        std::memset(group, 0, sizeof *group);
        BlankKey(&out->first);
        BlankKey(&out->last);
        PvKeyRow top{};
        BlankKey(&top);
        forward(kPageTop, top);
      }
    } else {
      forward(refresh ? kPageAgain : kPageOn, in->last);
      if (Same(in->COMMAND, "NEXT")) TextMove(out->PREV, "Y", sizeof out->PREV);
      if (refresh && group->count > 0 &&
          LookAhead(block, in->CURRENT_ORG_ID, out->first, /*after=*/false))
        TextMove(out->PREV, "Y", sizeof out->PREV);
    }
    if (group->count == kListRows &&
        LookAhead(block, in->CURRENT_ORG_ID, out->last, /*after=*/true))
      TextMove(out->NEXT, "Y", sizeof out->NEXT);
  });
}

void REMOVE_PERMITTED_VALUE(HandleA a, HandleB b, RunContext* rc, const PvRow* key) {
  store::RunActionBlock(&remove_unit, kRemoveId, a, b, rc, {}, [&](store::Block& block) {
    store::ResetEntity(&remove_state);
    PvRow host{};
    std::memcpy(host.TSMPRMVL_IS_NUMBER, key->TSMPRMVL_IS_NUMBER, sizeof host.TSMPRMVL_IS_NUMBER);
    TextMove(host.TSMPRMVL_ORG_ID, key->TSMPRMVL_ORG_ID, sizeof host.TSMPRMVL_ORG_ID);
    std::memset(&remove_row, 0, sizeof remove_row);
    store::SelectOne(block, kKey, &remove_state, &host, &remove_row);
    if (store::StateIs(remove_state.status, "NF")) {
      SetExit(rc, EXIT_PV_NOT_FOUND, kNotFoundText, 'N');
      return;
    }
    if (!store::StateIs(remove_state.status, "OK")) store::FailOnStatus(block, remove_state);
    store::RemoveCurrentRow(block, a, b, rc, &remove_state, &remove_record, store::E3022453,
                            GetNumber(remove_row.TSMPRMVL_IS_NUMBER), remove_row.TSMPRMVL_ORG_ID,
                            nullptr, {}, kRemoveId);
  });
}

void READ_4_ACTIVITY_CATEGORY_PV(HandleA a, HandleB b, RunContext* rc, const NamesIn* in,
                                 PvRow* found) {
  store::RunActionBlock(&category_unit, kReadCategoryId, a, b, rc, {}, [&](store::Block& block) {
    store::ResetEntity(&category_state);
    std::memset(found, 0, sizeof *found);
    std::memset(&read_row, 0, sizeof read_row);
    store::SelectOne(block, TextIsBlank(in->FIELD_NAME) ? kCategoryAny : kCategoryOf,
                     &category_state, in, &read_row);
    if (store::StateIs(category_state.status, "OK")) {
      *found = read_row;
    } else if (store::StateIs(category_state.status, "NF")) {
      SetExit(rc, EXIT_PV_CATEGORY_NOT_FOUND, kNotFoundText, 'N');
    } else {
      store::FailOnStatus(block, category_state);
    }
  });
}

void READ_COMMON_FIELD_NAME_TABLES(HandleA a, HandleB b, RunContext* rc, const char* process_flag,
                                   const NamesIn* in, TablesExport* tables) {
  store::RunActionBlock(&common_unit, kReadCommonId, a, b, rc, {&common_cursor},
                        [&](store::Block& block) {
    store::ResetEntity(&common_state);
    std::memset(tables, 0, sizeof *tables);
    int n = 0;
    std::memset(&common_row, 0, sizeof common_row);
    store::ReadList(block, &common_cursor, Same(process_flag, "AD") ? kCommonName : kCommonValue,
                    &common_state, in, &common_row, [&] {
      // The first row of each table only.
      if (n > 0 && TextCompare(tables->rows.TABLE_NAME.value[n], common_row.TABLE_NAME) == 0)
        return true;
      if (n == kTableRows) return false;  // a sixth table is dropped
      ++n;
      patterns::RowToGroup(PvTablesForms::kAttributes, &common_row, &tables->rows, n);
      TextMove(tables->FLAG.value[n], "N", sizeof tables->FLAG.value[n]);
      tables->rows.count = n;
      return true;
    });
  });
}

void LIST_PERMITTED_VALUES_FROM_TABLE(HandleA a, HandleB b, RunContext* rc,
                                      const char* blank_row, const char* org_id,
                                      const NamesIn* in, ValueList* list) {
  store::RunActionBlock(&values_unit, kListValuesId, a, b, rc, {&values_cursor},
                        [&](store::Block& block) {
    store::ResetEntity(&values_state);
    std::memset(list, 0, sizeof *list);
    int n = 0;
    if (Same(blank_row, "Y")) {
      n = 1;
      BoundedCopy(list->FIELD_VALUE.value[1], "<Blank>", kFieldValue);
      list->count = 1;
    }
    OrgNamesBind bind{};
    TextMove(bind.CURRENT_ORG_ID, org_id, sizeof bind.CURRENT_ORG_ID);
    bind.names = *in;
    std::memset(&read_row, 0, sizeof read_row);
    store::ReadList(block, &values_cursor, kValues, &values_state, &bind, &read_row, [&] {
      if (n == kValueListRows) return false;
      ++n;
      BoundedCopy(list->FIELD_VALUE.value[n], read_row.FIELD_VALUE, kFieldValue);
      BoundedCopy(list->FIELD_DESCRIPTION.value[n], read_row.FIELD_DESCRIPTION, kFieldDesc);
      list->count = n;
      return true;
    });
  });
}

namespace {

// A read that answers only whether a row exists; several count as one.
// Found: `found` with `found_text` (null: none); not found: `missing` with
// its text. A zero exit state leaves that outcome without one.
void Exists(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
            const StatementDef& statement, const NamesIn* in, u32 found, const char* found_text,
            u32 missing) {
  store::RunActionBlock(unit, id, a, b, rc, {}, [&](store::Block& block) {
    store::ResetEntity(&exists_state);
    NamesIn row{};
    store::SelectOne(block, statement, &exists_state, in, &row);
    if (store::StateIs(exists_state.status, "OK")) {
      if (found != 0) SetExit(rc, found, found_text, 'N');
    } else if (store::StateIs(exists_state.status, "NF")) {
      if (missing != 0) SetExit(rc, missing, kNotFoundText, 'N');
    } else {
      store::FailOnStatus(block, exists_state);
    }
  });
}

}  // namespace

void READ_FOR_PV_TABLE_NAME(HandleA a, HandleB b, RunContext* rc, const NamesIn* in) {
  Exists(&table_name_unit, kReadTableNameId, a, b, rc, kAnyOfTable, in, 0, nullptr,
         EXIT_PV_NOT_FOUND);
}
void READ_FOR_PV_FIELD_NAME(HandleA a, HandleB b, RunContext* rc, const NamesIn* in) {
  Exists(&field_name_unit, kReadFieldNameId, a, b, rc, kAnyOfField, in, 0, nullptr,
         EXIT_PV_NOT_FOUND);
}
void READ_FOR_DUPLICATE_PV_VALUE(HandleA a, HandleB b, RunContext* rc, const NamesIn* in) {
  Exists(&same_value_unit, kDuplicateValueId, a, b, rc, kSameValue, in, EXIT_PV_DUPLICATE_VALUE,
         kAlreadyExistsText, 0);
}
void READ_FOR_DUPLICATE_PV_SEQ_NUM(HandleA a, HandleB b, RunContext* rc, const NamesIn* in) {
  Exists(&same_sequence_unit, kDuplicateSeqId, a, b, rc, kSameSequence, in,
         EXIT_PV_DUPLICATE_SEQ, nullptr, 0);
}

void READ_DISTINCT_PV_TABLE_NAMES(HandleA a, HandleB b, RunContext* rc, const char* org_id,
                                  NamesExport* names) {
  store::RunActionBlock(&pairs_unit, kDistinctNamesId, a, b, rc, {&pairs_cursor},
                        [&](store::Block& block) {
    store::ResetEntity(&pairs_state);
    std::memset(names, 0, sizeof *names);
    OrgNamesBind bind{};
    TextMove(bind.CURRENT_ORG_ID, org_id, sizeof bind.CURRENT_ORG_ID);
    std::memset(&pair_row, 0, sizeof pair_row);
    int n = 0;
    store::ReadList(block, &pairs_cursor, kPairs, &pairs_state, &bind, &pair_row, [&] {
      if (Same(pair_row.FIELD_NAME, kCategorySample) ||
          Same(pair_row.FIELD_NAME, kCategoryMeasure))
        return true;
      if (n > 0 && Same(names->rows.TABLE_NAME.value[n], pair_row.TABLE_NAME) &&
          Same(names->rows.FIELD_NAME.value[n], pair_row.FIELD_NAME))
        return true;
      if (n == kNameRows) return false;
      ++n;
      TextMove(names->rows.TABLE_NAME.value[n], pair_row.TABLE_NAME, kTableName);
      BoundedCopy(names->rows.FIELD_NAME.value[n], pair_row.FIELD_NAME, kFieldName);
      names->rows.count = n;
      return true;
    });
  });
}

void DETERM_NEXT_PERM_VALUE_SEQ_NUMB(HandleA a, HandleB b, RunContext* rc, const NamesIn* in,
                                     PvKeyRow* result) {
  store::RunActionBlock(&next_sequence_unit, kNextSeqId, a, b, rc, {&sequence_cursor},
                        [&](store::Block& block) {
    SetExit(rc, EXIT_NONE, nullptr, 'N');
    store::ResetEntity(&sequence_state);
    TextMove(result->TABLE_NAME, in->TABLE_NAME, sizeof result->TABLE_NAME);
    BoundedCopy(result->FIELD_NAME, in->FIELD_NAME, sizeof result->FIELD_NAME);
    PutNumber(result->SEQUENCE_NUMBER, 0);
    PvKeyRow one{};
    store::SelectOne(block, kOneOfField, &sequence_state, in, &one);
    if (store::StateIs(sequence_state.status, "OK")) {
      *result = one;
    } else if (!store::StateIs(sequence_state.status, "NF")) {
      store::FailOnStatus(block, sequence_state);
    }
    NamesIn highest{};
    store::ResetEntity(&sequence_state);
    store::ReadList(block, &sequence_cursor, kHighest, &sequence_state, in, &highest,
                    [] { return false; });
    const double top = GetNumber(highest.SEQUENCE_NUMBER);
    if (top == 999) {
      PutNumber(result->SEQUENCE_NUMBER, 999);
      SetExit(rc, EXIT_PV_SEQ_MAX, kSeqMaxText, 'E');
    } else {
      PutNumber(result->SEQUENCE_NUMBER, top + 1);
    }
  });
}

const store::StatementDef PvTable::kInsert = kNewRow;
const store::StatementDef PvTable::kReadForUpdate = kRowForUpdate;
const store::StatementDef PvTable::kUpdate = kChange;
const store::StatementDef PvTable::kSelectKey = kKey;

}  // namespace lk::permitted_value
