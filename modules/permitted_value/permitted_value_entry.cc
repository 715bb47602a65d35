// RT3_PERMITTED_VALUE_DATA_ENTRY: a row of TSMPRMVL added or changed, with
// its dialogs: RT3A the choice of an existing pair of names, RT3B and RT3C
// the warnings about a table or field name never held before, RT3D and RT3E
// a new activity category and its sub-list row, RT3F the report of a row
// that a run of writes could not write.
//
// The body copies the import view into the export view; back from RT54 it
// ends the run with "REFRESH" ("CANCEL"), or first writes the new value to
// each table flagged there ("MULTISEL"). In mode "CHANGE" the names are
// protected and ">>" is disabled: a row's names cannot be changed here.
//
// Accept tests Value, then Sequence Number (0 counts as missing), each
// failure ending the event with its field marked "10    ". An add then
// tests the names, warns through RT3B or RT3C about names the table has
// never held, refuses a value or a sequence number the field already has,
// writes the row, and after a "CATEGORY_TYPE_NAME" row asks through RT3D for
// its sample or measurement sub-list row; names chosen through RT3A also
// offer the other tables that hold the field (RT54). A change writes the row
// when something changed, and then each row of other tables flagged "Y"
// (the companion of an activity category keeps its own sequence number).
// A run of writes to other rows stops at the first row it cannot write and
// names it in RT3F; what it wrote before stays, and RT3F's Accept goes on
// with the rows after it.
#include <cstring>

#include "frame/run_context.h"
#include "frame/transport/plan.h"
#include "frame/unit.h"
#include "patterns/event_action.h"
#include "modules/permitted_value/permitted_value.h"
#include "modules/permitted_value/permitted_value_blocks.h"
#include "modules/permitted_value/permitted_value_units.h"
#include "patterns/data_entry.h"
#include "patterns/first_page_list.h"
#include "patterns/group.h"
#include "services/row_state.h"
#include "services/text.h"
#include "services/window.h"

namespace lk::permitted_value {

namespace {

using patterns::GetNumber;
using patterns::PutNumber;

constexpr UnitId kBodyId = {"0017503001", "RT3_PERMITTED_VALUE_DATA_ENTRY"};
constexpr UnitId kAcceptId = {"0017503002", "RT3_PBM_ACCEPT_CLK"};
constexpr UnitId kCancelId = {"0017503003", "RT3_PBM_CANCEL_CLK"};
constexpr UnitId kBlivotId = {"0017503004", "RT3_PBM_SELECT_BLIVOT_CLK"};
constexpr UnitId kNamesClickId = {"0017503005", "RT3A_LST_EXPORT_GROUP_CLK"};
constexpr UnitId kNamesDoubleClickId = {"0017503006", "RT3A_LST_EXPORT_GROUP_DCL"};
constexpr UnitId kNamesSelectId = {"0017503007", "RT3A_PV_LIST_PBM_SELECT_CLK"};
constexpr UnitId kNamesCancelId = {"0017503008", "RT3A_PV_LIST_PBM_CANCEL_CLK"};
constexpr UnitId kTableYesId = {"0017503009", "RT3B_TABLE_NAM_WARN_PBM_YES_CLK"};
constexpr UnitId kTableNoId = {"0017503010", "RT3B_TABLE_NAM_WARN_PBM_NO_CLK"};
constexpr UnitId kFieldYesId = {"0017503011", "RT3C_FIELD_NAM_WARN_PBM_YES_CLK"};
constexpr UnitId kFieldNoId = {"0017503012", "RT3C_FIELD_NAM_WARN_PBM_NO_CLK"};
constexpr UnitId kCategoryId = {"0017503013", "RT3D_NEW_ACTY_CAT_PBM_ACCEPT_CLK"};
constexpr UnitId kSequenceId = {"0017503014", "RT3E_NEW_SEQ_NUM_PBM_ACCEPT_CLK"};
constexpr UnitId kReportId = {"0017503015", "RT3F_MULTIRW_ERR_PBM_ACCEPT_CLK"};

UnitStorage body_unit, accept_unit, cancel_unit, blivot_unit, names_click_unit,
    names_double_click_unit, names_select_unit, names_cancel_unit, table_yes_unit, table_no_unit,
    field_yes_unit, field_no_unit, category_unit, sequence_unit, report_unit;

bool Same(const char* value, const char* literal) { return TextCompare(value, literal) == 0; }

template <typename Step>
void Action(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
            void* import_view, void* export_view, Step&& step) {
  patterns::RunEventAction<EntryImport, EntryExport>(unit, EntryDictionary::kShape, id, a, b,
                                                     rc, import_view, export_view, step);
}

void Mark(char* display, const char* code) { std::memcpy(display, code, kDisplayWidth); }

// The end of a run that went through: back to RT2, which refreshes.
void Done(RunContext* rc) {
  SetCommand(rc, "REFRESH");
  SetExit(rc, EXIT_RETURN, nullptr, 'N');
}

SystemVariableView SystemOf(const EntryExport& e) {
  SystemVariableView system{};
  TextMove(system.USER_ID_CODE, e.SYSTEM_VARIABLE.USER_ID_CODE.value, 9);
  TextMove(system.CURRENT_ORG_ID, e.SYSTEM_VARIABLE.CURRENT_ORG_ID.value, 9);
  return system;
}

NamesIn NamesOf(const PvRow& row) {
  NamesIn names{};
  TextMove(names.TABLE_NAME, row.TABLE_NAME, sizeof names.TABLE_NAME);
  BoundedCopy(names.FIELD_NAME, row.FIELD_NAME, sizeof names.FIELD_NAME);
  BoundedCopy(names.FIELD_VALUE, row.FIELD_VALUE, sizeof names.FIELD_VALUE);
  std::memcpy(names.SEQUENCE_NUMBER, row.SEQUENCE_NUMBER, sizeof names.SEQUENCE_NUMBER);
  return names;
}
PvRow RowOf(const EntryExport& e) {
  PvRow row{};
  patterns::ShownToRow(PvForms::kAttributes, &e.ROW, &row);
  return row;
}

// The duplicate reads: answer whether the row has a duplicate.
bool DuplicateValue(HandleA a, HandleB b, RunContext* rc, const UnitId& own, const PvRow& row) {
  const NamesIn names = NamesOf(row);
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  patterns::CallActionBlock(rc, own, [&] { READ_FOR_DUPLICATE_PV_VALUE(a, b, rc, &names); });
  return rc->exit_state == EXIT_PV_DUPLICATE_VALUE;
}
bool DuplicateSequence(HandleA a, HandleB b, RunContext* rc, const UnitId& own,
                       const PvRow& row) {
  const NamesIn names = NamesOf(row);
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  patterns::CallActionBlock(rc, own, [&] { READ_FOR_DUPLICATE_PV_SEQ_NUM(a, b, rc, &names); });
  return rc->exit_state == EXIT_PV_DUPLICATE_SEQ;
}

// The duplicate checks of the window's row, each marking its field.
bool ValueIsFree(HandleA a, HandleB b, RunContext* rc, const UnitId& own, EntryExport* e) {
  if (DuplicateValue(a, b, rc, own, RowOf(*e))) {
    Mark(e->ROW.FIELD_VALUE.display, kDisplayError);
    SetExit(rc, EXIT_PV_DUPLICATE_VALUE, kDuplicateValueText, 'E');
    return false;
  }
  Mark(e->ROW.FIELD_VALUE.display, kDisplayNormal);
  return true;
}
bool SequenceIsFree(HandleA a, HandleB b, RunContext* rc, const UnitId& own, EntryExport* e) {
  if (DuplicateSequence(a, b, rc, own, RowOf(*e))) {
    Mark(e->ROW.SEQUENCE_NUMBER.display, kDisplayError);
    SetExit(rc, EXIT_PV_DUPLICATE_SEQ, kDuplicateSeqText, 'E');
    return false;
  }
  Mark(e->ROW.SEQUENCE_NUMBER.display, kDisplayNormal);
  return true;
}

// IDENTIFY_PERMITTED_VALUE of `row`; answers whether it went through, and
// puts the IS number and ORG ID written into `row`.
bool Identify(HandleA a, HandleB b, RunContext* rc, const UnitId& own, const EntryExport& e,
              PvRow* row) {
  const SystemVariableView system = SystemOf(e);
  PvRow written{};
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  patterns::CallActionBlock(rc, own, [&] {
    Blocks::Identify(kIdentifyId, a, b, rc, &system, row, &written);
  });
  if (rc->exit_state != EXIT_NONE) return false;
  std::memcpy(row->TSMPRMVL_IS_NUMBER, written.TSMPRMVL_IS_NUMBER, sizeof row->TSMPRMVL_IS_NUMBER);
  TextMove(row->TSMPRMVL_ORG_ID, written.TSMPRMVL_ORG_ID, sizeof row->TSMPRMVL_ORG_ID);
  return true;
}
bool Modify(HandleA a, HandleB b, RunContext* rc, const UnitId& own, const EntryExport& e,
            const PvRow& row, PvRow* written) {
  const SystemVariableView system = SystemOf(e);
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  patterns::CallActionBlock(rc, own, [&] {
    Blocks::Modify(kModifyId, a, b, rc, &system, &row, written);
  });
  return rc->exit_state == EXIT_NONE;
}

// The window's row as written: its IS number and ORG ID into the window.
bool IdentifyWindowRow(HandleA a, HandleB b, RunContext* rc, const UnitId& own, EntryExport* e) {
  PvRow row = RowOf(*e);
  if (!Identify(a, b, rc, own, *e, &row)) {
    patterns::InternalError(rc);
    return false;
  }
  std::memcpy(e->ROW.TSMPRMVL_IS_NUMBER.value, row.TSMPRMVL_IS_NUMBER,
              sizeof row.TSMPRMVL_IS_NUMBER);
  TextMove(e->ROW.TSMPRMVL_ORG_ID.value, row.TSMPRMVL_ORG_ID, kTableName);
  if (Same(e->EXPORT_INITIAL_ADD.FLAG.value, "Y")) TextMove(e->EXPORT_INITIAL_ADD.FLAG.value, "N", 2);
  return true;
}

// Row i of the other tables as a bare row.
PvRow TableRow(const EntryExport& e, int i) {
  PvRow row{};
  const PvTablesGroup& g = e.GP_EXPORT_TABLES.rows;
  std::memcpy(row.TSMPRMVL_IS_NUMBER, g.TSMPRMVL_IS_NUMBER.value[i], sizeof row.TSMPRMVL_IS_NUMBER);
  TextMove(row.TSMPRMVL_ORG_ID, g.TSMPRMVL_ORG_ID.value[i], sizeof row.TSMPRMVL_ORG_ID);
  TextMove(row.TABLE_NAME, g.TABLE_NAME.value[i], sizeof row.TABLE_NAME);
  BoundedCopy(row.FIELD_NAME, g.FIELD_NAME.value[i], sizeof row.FIELD_NAME);
  std::memcpy(row.SEQUENCE_NUMBER, g.SEQUENCE_NUMBER.value[i], sizeof row.SEQUENCE_NUMBER);
  BoundedCopy(row.FIELD_VALUE, g.FIELD_VALUE.value[i], sizeof row.FIELD_VALUE);
  BoundedCopy(row.FIELD_DESCRIPTION, g.FIELD_DESCRIPTION.value[i], sizeof row.FIELD_DESCRIPTION);
  return row;
}
bool Flagged(const EntryExport& e, int i) { return Same(e.GP_EXPORT_TABLES.FLAG.value[i], "Y"); }
int TableCount(const EntryExport& e) {
  const int n = e.GP_EXPORT_TABLES.rows.count;
  return n < kTableRows ? n : kTableRows;
}

// RT3F for the working row: EXPORT_PROCESS := its names and sequence
// number, the run's code and, for "AD" and "MF", the row's subscript.
void Report(HandleA a, HandleB b, EntryExport* e, const char* code, const PvRow& working,
            int i) {
  TextMove(e->EXPORT_PROCESS.TABLE_NAME.value, working.TABLE_NAME, kTableName);
  BoundedCopy(e->EXPORT_PROCESS.FIELD_NAME.value, working.FIELD_NAME, kFieldName);
  std::memcpy(e->EXPORT_PROCESS.SEQUENCE_NUMBER.value, working.SEQUENCE_NUMBER, kSequence);
  if (!Same(code, "CA")) PutNumber(e->EXPORT_ERROR_SOURCE.SUBSCRIPT.value, i);
  TextMove(e->EXPORT_ERROR_SOURCE.FLAG.value, code, sizeof e->EXPORT_ERROR_SOURCE.FLAG.value);
  WindowOpen(a, b, kRt3fName);
}

// The new value to the flagged tables from row `from` on: each a new row
// of that table's names with the window's value, sequence number and
// description. Answers false when it stopped at a row it could not write.
bool AddToTables(HandleA a, HandleB b, RunContext* rc, const UnitId& own, EntryExport* e,
                 int from) {
  for (int i = from; i <= TableCount(*e); ++i) {
    if (!Flagged(*e, i)) continue;
    const PvRow other = TableRow(*e, i);
    PvRow working = RowOf(*e);
    TextMove(working.TABLE_NAME, other.TABLE_NAME, sizeof working.TABLE_NAME);
    BoundedCopy(working.FIELD_NAME, other.FIELD_NAME, sizeof working.FIELD_NAME);
    PutNumber(working.TSMPRMVL_IS_NUMBER, 0);
    if (DuplicateValue(a, b, rc, own, working) || DuplicateSequence(a, b, rc, own, working) ||
        !Identify(a, b, rc, own, *e, &working)) {
      Report(a, b, e, "AD", working, i);
      return false;
    }
  }
  return true;
}

bool IsCategoryName(const char* field) {
  return Same(field, kCategoryMain) || Same(field, kCategoryMeasure) ||
         Same(field, kCategorySample);
}

// The change of the window's row carried to row i of the other tables.
// `plain`: by the first rule whatever the field name. Answers false when it
// reported the row.
bool ChangeOneRow(HandleA a, HandleB b, RunContext* rc, const UnitId& own, EntryExport* e, int i,
                  bool plain) {
  const PvRow now = RowOf(*e);
  PvRow working = TableRow(*e, i);
  PvRow written{};
  const bool same_value = TextCompare(working.FIELD_VALUE, now.FIELD_VALUE) == 0;
  const bool same_sequence =
      GetNumber(working.SEQUENCE_NUMBER) == GetNumber(now.SEQUENCE_NUMBER);
  if (plain || !IsCategoryName(now.FIELD_NAME)) {
    bool duplicate = false;
    if (!same_sequence && same_value) {
      std::memcpy(working.SEQUENCE_NUMBER, now.SEQUENCE_NUMBER, kSequence);
      duplicate = DuplicateSequence(a, b, rc, own, working);
    } else if (same_sequence && !same_value) {
      BoundedCopy(working.FIELD_VALUE, now.FIELD_VALUE, kFieldValue);
      duplicate = DuplicateValue(a, b, rc, own, working);
    } else if (!same_sequence && !same_value) {
      std::memcpy(working.SEQUENCE_NUMBER, now.SEQUENCE_NUMBER, kSequence);
      BoundedCopy(working.FIELD_VALUE, now.FIELD_VALUE, kFieldValue);
      duplicate = DuplicateValue(a, b, rc, own, working) ||
                  DuplicateSequence(a, b, rc, own, working);
    }
    BoundedCopy(working.FIELD_DESCRIPTION, now.FIELD_DESCRIPTION, kFieldDesc);
    if (duplicate || !Modify(a, b, rc, own, *e, working, &written)) {
      Report(a, b, e, "MF", working, i);
      return false;
    }
    return true;
  }
  // The companion of an activity category keeps its own sequence number.
  bool duplicate = false;
  if (!same_value) {
    BoundedCopy(working.FIELD_VALUE, now.FIELD_VALUE, kFieldValue);
    duplicate = DuplicateValue(a, b, rc, own, working);
  }
  BoundedCopy(working.FIELD_DESCRIPTION, now.FIELD_DESCRIPTION, kFieldDesc);
  if (duplicate || !Modify(a, b, rc, own, *e, working, &written)) {
    Report(a, b, e, "CA", working, i);
    return false;
  }
  return true;
}

// The change-one-row run over the flagged rows from `from` on.
bool ChangeTables(HandleA a, HandleB b, RunContext* rc, const UnitId& own, EntryExport* e,
                  int from, bool plain) {
  for (int i = from; i <= TableCount(*e); ++i)
    if (Flagged(*e, i) && !ChangeOneRow(a, b, rc, own, e, i, plain)) return false;
  return true;
}

// Accept in mode "ADD". Answers whether the Accept goes on to its end.
bool Add(HandleA a, HandleB b, RunContext* rc, const UnitId& own, EntryExport* e) {
  if (!patterns::CheckRequired(rc, {{e->ROW.TABLE_NAME.display, e->ROW.TABLE_NAME.value},
                                    {e->ROW.FIELD_NAME.display, e->ROW.FIELD_NAME.value}}))
    return false;
  const NamesIn names = NamesOf(RowOf(*e));
  patterns::CallActionBlock(rc, own, [&] { READ_FOR_PV_TABLE_NAME(a, b, rc, &names); });
  if (rc->exit_state == EXIT_PV_NOT_FOUND) {
    WindowOpen(a, b, kRt3bName);
    return false;
  }
  patterns::CallActionBlock(rc, own, [&] { READ_FOR_PV_FIELD_NAME(a, b, rc, &names); });
  if (rc->exit_state == EXIT_PV_NOT_FOUND) {
    WindowOpen(a, b, kRt3cName);
    return false;
  }
  if (!ValueIsFree(a, b, rc, own, e) || !SequenceIsFree(a, b, rc, own, e)) return false;
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  if (!IdentifyWindowRow(a, b, rc, own, e)) return false;
  if (Same(e->ROW.FIELD_NAME.value, kCategoryMain)) {
    TextMove(e->EXPORT_MEAS_OBS.FLAG.value, "N", 2);
    TextMove(e->EXPORT_SAMPLE.FLAG.value, "N", 2);
    WindowOpen(a, b, kRt3dName);
    return false;
  }
  // Other tables are offered only for names chosen through RT3A.
  NamesIn chosen{};
  TextMove(chosen.TABLE_NAME, e->EXPORT_SELECTED.TABLE_NAME.value, sizeof chosen.TABLE_NAME);
  BoundedCopy(chosen.FIELD_NAME, e->EXPORT_SELECTED.FIELD_NAME.value, sizeof chosen.FIELD_NAME);
  std::memset(&e->GP_EXPORT_TABLES, 0, sizeof e->GP_EXPORT_TABLES);
  patterns::CallActionBlock(rc, own, [&] {
    READ_COMMON_FIELD_NAME_TABLES(a, b, rc, "AD", &chosen, &e->GP_EXPORT_TABLES);
  });
  const int count = e->GP_EXPORT_TABLES.rows.count;
  if (count >= 1 && count <= kTableRows) {
    SetExit(rc, EXIT_LINK_RT54, nullptr, 'N');
    return false;
  }
  return true;
}

// Accept in mode "CHANGE". Answers whether the Accept goes on to its end.
bool Change(HandleA a, HandleB b, RunContext* rc, const UnitId& own, EntryExport* e) {
  const PvShown& row = e->ROW;
  const PvHiddenShown& was = e->EXPORT_HIDDEN;
  const bool same_desc = TextCompare(row.FIELD_DESCRIPTION.value, was.FIELD_DESCRIPTION.value) == 0;
  const bool same_sequence =
      GetNumber(row.SEQUENCE_NUMBER.value) == GetNumber(was.SEQUENCE_NUMBER.value);
  const bool same_value = TextCompare(row.FIELD_VALUE.value, was.FIELD_VALUE.value) == 0;
  if (same_desc && same_sequence && same_value &&
      TextCompare(row.TABLE_NAME.value, was.TABLE_NAME.value) == 0 &&
      TextCompare(row.FIELD_NAME.value, was.FIELD_NAME.value) == 0)
    return true;
  if (!same_sequence && same_value && !SequenceIsFree(a, b, rc, own, e)) return false;
  if (same_sequence && !same_value && !ValueIsFree(a, b, rc, own, e)) return false;
  if (!same_sequence && !same_value &&
      (!ValueIsFree(a, b, rc, own, e) || !SequenceIsFree(a, b, rc, own, e)))
    return false;
  PvRow written{};
  if (!Modify(a, b, rc, own, *e, RowOf(*e), &written)) {
    patterns::InternalError(rc);
    return false;
  }
  patterns::RowToShown(PvForms::kAttributes, &written, &e->ROW);
  const int count = e->GP_EXPORT_TABLES.rows.count;
  if (count >= 1 && count <= kTableRows)
    return ChangeTables(a, b, rc, own, e, 1, /*plain=*/false);
  return true;
}

// RT3A's choice into the window's row, with the next sequence number of
// that table's field; at 999 the field is marked.
void TakeChosenNames(HandleA a, HandleB b, RunContext* rc, const UnitId& own, EntryExport* e) {
  TextMove(e->ROW.TABLE_NAME.value, e->EXPORT_SELECTED.TABLE_NAME.value, kTableName);
  BoundedCopy(e->ROW.FIELD_NAME.value, e->EXPORT_SELECTED.FIELD_NAME.value, kFieldName);
  NamesIn names{};
  TextMove(names.TABLE_NAME, e->EXPORT_SELECTED.TABLE_NAME.value, sizeof names.TABLE_NAME);
  BoundedCopy(names.FIELD_NAME, e->EXPORT_SELECTED.FIELD_NAME.value, sizeof names.FIELD_NAME);
  PvKeyRow next{};
  patterns::CallActionBlock(rc, own, [&] { DETERM_NEXT_PERM_VALUE_SEQ_NUMB(a, b, rc, &names, &next); });
  TextMove(e->ROW.TABLE_NAME.value, next.TABLE_NAME, kTableName);
  BoundedCopy(e->ROW.FIELD_NAME.value, next.FIELD_NAME, kFieldName);
  std::memcpy(e->ROW.SEQUENCE_NUMBER.value, next.SEQUENCE_NUMBER, kSequence);
  WindowClose(a, b, kRt3aName);
  if (rc->exit_state == EXIT_PV_SEQ_MAX) Mark(e->ROW.SEQUENCE_NUMBER.display, kDisplayError);
}

void NamesOfRow(EntryExport* e, int s) {
  TextMove(e->EXPORT_SELECTED.TABLE_NAME.value, e->GRP_EXPORT.rows.TABLE_NAME.value[s], kTableName);
  BoundedCopy(e->EXPORT_SELECTED.FIELD_NAME.value, e->GRP_EXPORT.rows.FIELD_NAME.value[s],
              kFieldName);
}

// RT3B's and RT3C's "&Yes": the row written without the duplicate reads;
// the mode becomes "CHANGE", so that the list refreshes its current page.
void WriteAfterWarning(HandleA a, HandleB b, RunContext* rc, const UnitId& own, EntryExport* e,
                       const char* window) {
  WindowClose(a, b, window);
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  if (!IdentifyWindowRow(a, b, rc, own, e)) return;
  TextMove(e->RUNTIME_SUPPLIED.COMMAND.value, "CHANGE", sizeof e->RUNTIME_SUPPLIED.COMMAND.value);
  Done(rc);
}

}  // namespace

void RT3_PERMITTED_VALUE_DATA_ENTRY(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                    void* export_view) {
  patterns::RunBody<EntryExport>(&body_unit, EntryDictionary::kShape, kBodyId, kEntryViews, a, b,
                                 rc, import_view, export_view, [&](EntryExport* e) {
    if (Same(rc->command, "CANCEL")) {
      Done(rc);
      return;
    }
    if (Same(rc->command, "MULTISEL")) {
      if (AddToTables(a, b, rc, kBodyId, e, 1)) Done(rc);
      return;
    }
    if (Same(e->RUNTIME_SUPPLIED.COMMAND.value, "CHANGE")) {
      Mark(e->ROW.TABLE_NAME.display, kDisplayProtectedKey);
      Mark(e->ROW.FIELD_NAME.display, kDisplayProtectedKey);
      ControlDisable(a, b, "LINK1");
    }
  });
}

void RT3_PBM_ACCEPT_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                        void* export_view) {
  Action(&accept_unit, kAcceptId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport* e) {
    if (TextIsBlank(e->ROW.FIELD_VALUE.value)) {
      Mark(e->ROW.FIELD_VALUE.display, kDisplayError);
      SetExit(rc, EXIT_FIELD_REQUIRED, kFieldRequiredText, 'E');
      return;
    }
    Mark(e->ROW.FIELD_VALUE.display, kDisplayNormal);
    if (GetNumber(e->ROW.SEQUENCE_NUMBER.value) == 0) {
      Mark(e->ROW.SEQUENCE_NUMBER.display, kDisplayError);
      SetExit(rc, EXIT_FIELD_REQUIRED, kFieldRequiredText, 'E');
      return;
    }
    Mark(e->ROW.SEQUENCE_NUMBER.display, kDisplayNormal);
    bool on = true;
    if (Same(e->RUNTIME_SUPPLIED.COMMAND.value, "ADD")) {
      on = Add(a, b, rc, kAcceptId, e);
    } else if (Same(e->RUNTIME_SUPPLIED.COMMAND.value, "CHANGE")) {
      on = Change(a, b, rc, kAcceptId, e);
    }
    if (on) Done(rc);
  });
}

void RT3_PBM_CANCEL_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                        void* export_view) {
  Action(&cancel_unit, kCancelId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport*) { Done(rc); });
}

// ">>": RT3A with the pairs of names of the run's organisation.
void RT3_PBM_SELECT_BLIVOT_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                               void* export_view) {
  Action(&blivot_unit, kBlivotId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport* e) {
    WindowOpen(a, b, kRt3aName);
    patterns::BlankShown(PvNamesForms::kAttributes, &e->EXPORT_SELECTED);
    patterns::CallActionBlock(rc, kBlivotId, [&] {
      READ_DISTINCT_PV_TABLE_NAMES(a, b, rc, e->SYSTEM_VARIABLE.CURRENT_ORG_ID.value,
                                   &e->GRP_EXPORT);
    });
    PutNumber(e->RUNTIME_SUPPLIED.SUBSCRIPT.value, 0);
  });
}

void RT3A_LST_EXPORT_GROUP_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                               void* export_view) {
  Action(&names_click_unit, kNamesClickId, a, b, rc, import_view, export_view,
         [&](const EntryImport* in, EntryExport* e) {
    const int s = patterns::FindMarked(a, b, rc, e->GRP_EXPORT.SELECT_CHAR, e->GRP_EXPORT.rows.count,
                                       kStateSelected);
    const int before = static_cast<int>(GetNumber(in->RUNTIME_SUPPLIED.SUBSCRIPT));
    PutNumber(e->RUNTIME_SUPPLIED.SUBSCRIPT.value, s);
    if (s > 0) NamesOfRow(e, s);
    if (s > 0 && s == before) {
      RowStateSet(a, b, rc, e->GRP_EXPORT.SELECT_CHAR.value[s], kStateClear);
      PutNumber(e->RUNTIME_SUPPLIED.SUBSCRIPT.value, 0);
    }
  });
}

void RT3A_LST_EXPORT_GROUP_DCL(HandleA a, HandleB b, RunContext* rc, void* import_view,
                               void* export_view) {
  Action(&names_double_click_unit, kNamesDoubleClickId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport* e) {
    const int s = patterns::FindMarked(a, b, rc, e->GRP_EXPORT.SELECT_CHAR, e->GRP_EXPORT.rows.count,
                                       kStateSelected);
    CheckSubscript(rc, s, kNameRows);
    NamesOfRow(e, s);
    RowStateSet(a, b, rc, e->GRP_EXPORT.SELECT_CHAR.value[s], kStateClear);
    PutNumber(e->RUNTIME_SUPPLIED.SUBSCRIPT.value, 0);
    TakeChosenNames(a, b, rc, kNamesDoubleClickId, e);
  });
}

void RT3A_PV_LIST_PBM_SELECT_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                 void* export_view) {
  Action(&names_select_unit, kNamesSelectId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport* e) { TakeChosenNames(a, b, rc, kNamesSelectId, e); });
}

void RT3A_PV_LIST_PBM_CANCEL_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                 void* export_view) {
  Action(&names_cancel_unit, kNamesCancelId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport*) { WindowClose(a, b, kRt3aName); });
}

void RT3B_TABLE_NAM_WARN_PBM_YES_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  Action(&table_yes_unit, kTableYesId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport* e) {
    WriteAfterWarning(a, b, rc, kTableYesId, e, kRt3bName);
  });
}

// "&No" only closes the warning: the entry stays as typed.
void RT3B_TABLE_NAM_WARN_PBM_NO_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                    void* export_view) {
  EnterEventAction(&table_no_unit, &EntryDictionary::kShape, kTableNoId, a, b, rc, import_view,
                   export_view, [&] { WindowClose(a, b, kRt3bName); });
}

void RT3C_FIELD_NAM_WARN_PBM_YES_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  Action(&field_yes_unit, kFieldYesId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport* e) {
    WriteAfterWarning(a, b, rc, kFieldYesId, e, kRt3cName);
  });
}

void RT3C_FIELD_NAM_WARN_PBM_NO_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                    void* export_view) {
  EnterEventAction(&field_no_unit, &EntryDictionary::kShape, kFieldNoId, a, b, rc, import_view,
                   export_view, [&] { WindowClose(a, b, kRt3cName); });
}

// RT3D's "&Accept": with a box ticked, the sub-list row of the new category
// (the sample list when both are), its sequence number proposed in RT3E.
void RT3D_NEW_ACTY_CAT_PBM_ACCEPT_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  Action(&category_unit, kCategoryId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport* e) {
    WindowClose(a, b, kRt3dName);
    const bool sample = Same(e->EXPORT_SAMPLE.FLAG.value, "Y");
    if (Same(e->EXPORT_MEAS_OBS.FLAG.value, "N") && Same(e->EXPORT_SAMPLE.FLAG.value, "N")) {
      Done(rc);
      return;
    }
    NamesIn names{};
    TextMove(names.TABLE_NAME, kCategoryTable, sizeof names.TABLE_NAME);
    BoundedCopy(names.FIELD_NAME, sample ? kCategorySample : kCategoryMeasure,
                sizeof names.FIELD_NAME);
    PvKeyRow next{};
    patterns::CallActionBlock(rc, kCategoryId, [&] {
      DETERM_NEXT_PERM_VALUE_SEQ_NUMB(a, b, rc, &names, &next);
    });
    patterns::RowToShown(PvKeyForms::kAttributes, &next, &e->EXPORT_PROCESS);
    WindowOpen(a, b, kRt3eName);
    if (rc->exit_state == EXIT_PV_SEQ_MAX)
      Mark(e->EXPORT_PROCESS.SEQUENCE_NUMBER.display, kDisplayError);
  });
}

// RT3E's "&Accept": the sub-list row written, or reported in RT3F as "CA".
void RT3E_NEW_SEQ_NUM_PBM_ACCEPT_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  Action(&sequence_unit, kSequenceId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport* e) {
    WindowClose(a, b, kRt3eName);
    PvRow working = RowOf(*e);
    TextMove(working.TABLE_NAME, kCategoryTable, sizeof working.TABLE_NAME);
    BoundedCopy(working.FIELD_NAME, e->EXPORT_PROCESS.FIELD_NAME.value, kFieldName);
    std::memcpy(working.SEQUENCE_NUMBER, e->EXPORT_PROCESS.SEQUENCE_NUMBER.value, kSequence);
    PutNumber(working.TSMPRMVL_IS_NUMBER, 0);
    if (DuplicateValue(a, b, rc, kSequenceId, working) ||
        DuplicateSequence(a, b, rc, kSequenceId, working) ||
        !Identify(a, b, rc, kSequenceId, *e, &working)) {
      Report(a, b, e, "CA", working, 0);
      return;
    }
    Done(rc);
  });
}

// RT3F's "&Accept": the run goes on after the row it reported.
void RT3F_MULTIRW_ERR_PBM_ACCEPT_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  Action(&report_unit, kReportId, a, b, rc, import_view, export_view,
         [&](const EntryImport*, EntryExport* e) {
    WindowClose(a, b, kRt3fName);
    const char* code = e->EXPORT_ERROR_SOURCE.FLAG.value;
    const int next = static_cast<int>(GetNumber(e->EXPORT_ERROR_SOURCE.SUBSCRIPT.value)) + 1;
    bool finished = true;
    if (Same(code, "AD")) {
      finished = AddToTables(a, b, rc, kReportId, e, next);
    } else if (Same(code, "MF")) {
      finished = ChangeTables(a, b, rc, kReportId, e, next, /*plain=*/true);
    }
    if (finished) Done(rc);
  });
}

}  // namespace lk::permitted_value
