// RT2_PERMITTED_VALUE_MAINT_LIST: the list of TSMPRMVL, 2000 rows a page,
// its delete dialog RT2A and the companion question RT2B.
//
// The body copies the import view into the export view, then acts on
// COMMAND, in this order of tests:
//   "CANCEL", "MULTISEL" (back from RT54)  FLAG "CH": COMMAND blank, mode
//             "CHANGE", the link to RT3. FLAG "DL": "CANCEL" deletes the row
//             in hand alone, "MULTISEL" it and every row flagged "Y".
//   "REFRESH" (back from RT3)  mode "ADD": the page from the top; otherwise
//             the same page again; the row in hand found by its IS number
//             and ORG ID is highlighted, and a highlighted row disables
//             paging.
//   "ADD"     the row in hand blank, mode "ADD", the link to RT3.
//   "LIST"    PREV disabled, the first page, NEXT by its flag.
//   "CLOSE"   EXIT_RETURN.
// A change or a delete of a row asks first where else it is to be carried:
// an activity category row to its companion through RT2B, any other row to
// the same value of the same field in up to 5 other tables through RT54.
// A delete is done on the way back from that question; a row deleted alone
// is dropped from the page without a read, a row deleted with others makes
// the list start over at its first row. A delete that fails says "An
// internal system error has occurred.  Contact system administrator."; what
// was deleted before it stays deleted.
#include <cstring>

#include "frame/run_context.h"
#include "frame/transport/plan.h"
#include "frame/unit.h"
#include "patterns/event_action.h"
#include "modules/permitted_value/permitted_value.h"
#include "modules/permitted_value/permitted_value_blocks.h"
#include "modules/permitted_value/permitted_value_units.h"
#include "patterns/first_page_list.h"
#include "patterns/group.h"
#include "services/row_state.h"
#include "services/text.h"
#include "services/window.h"

namespace lk::permitted_value {

namespace {

using patterns::GetNumber;
using patterns::PutNumber;

constexpr UnitId kBodyId = {"0017502001", "RT2_PERMITTED_VALUE_MAINT_LIST"};
constexpr UnitId kClickId = {"0017502002", "PV1_PERMIT_LB_EXPORT_GROUP_CLICK"};
constexpr UnitId kDoubleClickId = {"0017502003", "PV1_LB_EXPORT_GROUP_DOUBLECLICK"};
constexpr UnitId kPrevId = {"0017502004", "PV1_PERM_VALUE_PB_PREV_CLICK"};
constexpr UnitId kNextId = {"0017502005", "PV1_PERMITTED_VALU_PB_NEXT_CLICK"};
constexpr UnitId kChangeId = {"0017502006", "PV1_PERMITTED_VA_PB_CHANGE_CLICK"};
constexpr UnitId kDeleteId = {"0017502007", "PV1_PERMITTED_VA_PB_DELETE_CLICK"};
constexpr UnitId kCloseId = {"0017502008", "PV1_PERMITTED_VAL_PB_CLOSE_CLICK"};
constexpr UnitId kConfirmId = {"0017502009", "DELETE_CONFIRM_DELETE_PB_CLICK"};
constexpr UnitId kCancelId = {"0017502010", "DELETE_CONFIRM_CANCEL_PB_CLICK"};
constexpr UnitId kCompanionId = {"0017502011", "RT2_ACTIVITY_CAT_PB_ACCEPT_CLICK"};

UnitStorage body_unit, click_unit, double_click_unit, prev_unit, next_unit, change_unit,
    delete_unit, close_unit, confirm_unit, cancel_unit, companion_unit;

bool Same(const char* value, const char* literal) { return TextCompare(value, literal) == 0; }

template <typename Step>
void Action(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
            void* import_view, void* export_view, Step&& step) {
  patterns::RunEventAction<ListImport, ListExport>(unit, ListDictionary::kShape, id, a, b, rc,
                                                   import_view, export_view, step);
}

void EnableByFlag(HandleA a, HandleB b, const FlagShown& flag, const char* keyword) {
  if (Same(flag.FLAG.value, "Y")) {
    ControlEnable(a, b, keyword);
  } else {
    ControlDisable(a, b, keyword);
  }
}
void PagingByFlags(HandleA a, HandleB b, const ListExport* out) {
  EnableByFlag(a, b, out->EXPORT_PREV, "PREV");
  EnableByFlag(a, b, out->EXPORT_NEXT, "NEXT");
}
void SetSubscript(ListExport* out, int s) { PutNumber(out->RUNTIME_SUPPLIED.SUBSCRIPT.value, s); }
void SetMode(ListExport* out, const char* mode) {
  TextMove(out->RUNTIME_SUPPLIED.COMMAND.value, mode, sizeof out->RUNTIME_SUPPLIED.COMMAND.value);
}
void SetFlag(ListExport* out, const char* flag) {
  TextMove(out->RUNTIME_SUPPLIED.FLAG.value, flag, sizeof out->RUNTIME_SUPPLIED.FLAG.value);
}

// READ_PERMITTED_VALUE_LIST with `command`, from the view's FIRST and LAST
// keys; its keys and flags back into the view, its rows into GRP_EXPORT.
void ReadPage(HandleA a, HandleB b, RunContext* rc, const UnitId& own, ListExport* out,
              const char* command) {
  PageIn in{};
  PageOut result{};
  TextMove(in.COMMAND, command, sizeof in.COMMAND);
  patterns::ShownToRow(PvKeyForms::kAttributes, &out->EXPORT_LAST, &in.last);
  patterns::ShownToRow(PvKeyForms::kAttributes, &out->EXPORT_FIRST, &in.first);
  TextMove(in.CURRENT_ORG_ID, out->SYSTEM_VARIABLE.CURRENT_ORG_ID.value, sizeof in.CURRENT_ORG_ID);
  patterns::CallActionBlock(rc, own, [&] {
    READ_PERMITTED_VALUE_LIST(a, b, rc, &in, &result, &out->GRP_EXPORT);
  });
  patterns::RowToShown(PvKeyForms::kAttributes, &result.first, &out->EXPORT_FIRST);
  patterns::RowToShown(PvKeyForms::kAttributes, &result.last, &out->EXPORT_LAST);
  TextMove(out->EXPORT_NEXT.FLAG.value, result.NEXT, 2);
  TextMove(out->EXPORT_PREV.FLAG.value, result.PREV, 2);
}

void BlankLast(ListExport* out) { patterns::BlankShown(PvKeyForms::kAttributes, &out->EXPORT_LAST); }

// Row s of the list into the row in hand.
void TakeRow(RunContext* rc, ListExport* out, int s) {
  CheckSubscript(rc, s, kListRows);
  patterns::GroupToShown(PvForms::kAttributes, &out->GRP_EXPORT, s, &out->EXPORT_CURRENT);
}

NamesIn NamesOf(const PvShown& row) {
  NamesIn names{};
  TextMove(names.TABLE_NAME, row.TABLE_NAME.value, sizeof names.TABLE_NAME);
  BoundedCopy(names.FIELD_NAME, row.FIELD_NAME.value, sizeof names.FIELD_NAME);
  BoundedCopy(names.FIELD_VALUE, row.FIELD_VALUE.value, sizeof names.FIELD_VALUE);
  std::memcpy(names.SEQUENCE_NUMBER, row.SEQUENCE_NUMBER.value, sizeof names.SEQUENCE_NUMBER);
  return names;
}

// The companion of an activity category row: EXPORT_FIND := ("TSRFDACT",
// `field_name`, the row's value), READ_4_ACTIVITY_CATEGORY_PV. Found: group
// row 1 of the other tables := that row with its applied FLAG "Y". Not
// found: the exit state is reset and its message dropped.
bool FindCompanion(HandleA a, HandleB b, RunContext* rc, const UnitId& own, ListExport* out,
                   const char* field_name) {
  patterns::BlankShown(PvForms::kAttributes, &out->EXPORT_FIND);
  TextMove(out->EXPORT_FIND.TABLE_NAME.value, kCategoryTable, kTableName);
  BoundedCopy(out->EXPORT_FIND.FIELD_NAME.value, field_name, kFieldName);
  BoundedCopy(out->EXPORT_FIND.FIELD_VALUE.value, out->EXPORT_CURRENT.FIELD_VALUE.value,
              kFieldValue);
  const NamesIn names = NamesOf(out->EXPORT_FIND);
  PvRow found{};
  patterns::CallActionBlock(rc, own, [&] { READ_4_ACTIVITY_CATEGORY_PV(a, b, rc, &names, &found); });
  if (rc->exit_state != EXIT_NONE) {
    SetExit(rc, EXIT_NONE, nullptr, 'N');
    return false;
  }
  patterns::RowToShown(PvForms::kAttributes, &found, &out->EXPORT_FIND);
  TablesExport& tables = out->GP_EXPORT_TABLES;
  std::memset(&tables, 0, sizeof tables);
  PvTablesRow row{};
  for (const patterns::RowAttribute& at : PvTablesForms::kAttributes)
    for (const patterns::RowAttribute& from : PvForms::kAttributes)
      if (std::strcmp(at.name, from.name) == 0)
        patterns::MoveValue(at, reinterpret_cast<char*>(&row) + at.row,
                            reinterpret_cast<const char*>(&found) + from.row);
  patterns::RowToGroup(PvTablesForms::kAttributes, &row, &tables.rows, 1);
  TextMove(tables.FLAG.value[1], "Y", 2);
  tables.rows.count = 1;
  return true;
}

// READ_COMMON_FIELD_NAME_TABLES with a blank process FLAG over the row in
// hand, into GP_EXPORT_TABLES; answers the count.
int FindCommon(HandleA a, HandleB b, RunContext* rc, const UnitId& own, ListExport* out) {
  const NamesIn names = NamesOf(out->EXPORT_CURRENT);
  patterns::CallActionBlock(rc, own, [&] {
    READ_COMMON_FIELD_NAME_TABLES(a, b, rc, "", &names, &out->GP_EXPORT_TABLES);
  });
  return out->GP_EXPORT_TABLES.rows.count;
}

// Which activity category list the row in hand is in: 0 none, 1 a sub-list,
// 2 the main list.
int CategoryList(const ListExport* out) {
  if (!Same(out->EXPORT_CURRENT.TABLE_NAME.value, kCategoryTable)) return 0;
  const char* field = out->EXPORT_CURRENT.FIELD_NAME.value;
  if (Same(field, kCategorySample) || Same(field, kCategoryMeasure)) return 1;
  if (Same(field, kCategoryMain)) return 2;
  return 0;
}

// The companion (RT2B) or other tables (RT54) of the row in hand, for the
// action `flag` ("CH" or "DL"). Answers whether a question was put; the
// exit state then stands for it.
bool AskWhereElse(HandleA a, HandleB b, RunContext* rc, const UnitId& own, ListExport* out,
                  const char* flag) {
  const int list = CategoryList(out);
  if (list != 0) {
    if (!FindCompanion(a, b, rc, own, out, list == 1 ? kCategoryMain : "")) return false;
    SetFlag(out, flag);
    WindowOpen(a, b, kRt2bName);
    return true;
  }
  const int count = FindCommon(a, b, rc, own, out);
  if (count < 1 || count > kTableRows) return false;
  SetFlag(out, flag);
  SetExit(rc, EXIT_LINK_RT54, nullptr, 'N');
  return true;
}

// The change of the row in hand: the companion or other tables first,
// otherwise straight to RT3.
void DecideChange(HandleA a, HandleB b, RunContext* rc, const UnitId& own, ListExport* out) {
  if (AskWhereElse(a, b, rc, own, out, "CH")) return;
  SetExit(rc, EXIT_LINK_RT3, nullptr, 'N');
}

// A failed delete: the message, and what was deleted before stays.
void DeleteFailed(RunContext* rc) { SetExit(rc, EXIT_SYSTEM_ERROR, kSystemErrorText, 'E'); }

// REMOVE_PERMITTED_VALUE of one row; answers whether it went through.
bool Remove(HandleA a, HandleB b, RunContext* rc, const UnitId& own, const PvRow& key) {
  patterns::CallActionBlock(rc, own, [&] { REMOVE_PERMITTED_VALUE(a, b, rc, &key); });
  if (rc->exit_state == EXIT_NONE) return true;
  DeleteFailed(rc);
  return false;
}
PvRow KeyOfCurrent(const ListExport* out) {
  PvRow key{};
  patterns::ShownToRow(PvForms::kAttributes, &out->EXPORT_CURRENT, &key);
  return key;
}

// The row in hand alone: removed, and its row dropped from the page in
// place; the list is not read again.
void DeleteOne(HandleA a, HandleB b, RunContext* rc, const UnitId& own, ListExport* out) {
  if (!Remove(a, b, rc, own, KeyOfCurrent(out))) return;
  const int s = patterns::FindMarked(a, b, rc, out->GRP_EXPORT.SELECT_CHAR,
                                     out->GRP_EXPORT.count, kStateMarked);
  patterns::DropGroupRow(kListViews, "GRP_EXPORT", out, s);
  SetSubscript(out, 0);
  PagingByFlags(a, b, out);
}

// The row in hand and every row of GP_EXPORT_TABLES flagged "Y"; then the
// list starts over at its first row.
void DeleteMany(HandleA a, HandleB b, RunContext* rc, const UnitId& own, ListExport* out) {
  if (!Remove(a, b, rc, own, KeyOfCurrent(out))) return;
  const TablesExport& tables = out->GP_EXPORT_TABLES;
  for (int i = 1; i <= tables.rows.count && i <= kTableRows; ++i) {
    if (!Same(tables.FLAG.value[i], "Y")) continue;
    SetExit(rc, EXIT_NONE, nullptr, 'N');
    PvRow key{};
    std::memcpy(key.TSMPRMVL_IS_NUMBER, tables.rows.TSMPRMVL_IS_NUMBER.value[i],
                sizeof key.TSMPRMVL_IS_NUMBER);
    TextMove(key.TSMPRMVL_ORG_ID, tables.rows.TSMPRMVL_ORG_ID.value[i], sizeof key.TSMPRMVL_ORG_ID);
    if (!Remove(a, b, rc, own, key)) return;
  }
  ControlDisable(a, b, "PREV");
  BlankLast(out);
  SetCommand(rc, "LIST");
  ReadPage(a, b, rc, own, out, rc->command);
  SetSubscript(out, 0);
  EnableByFlag(a, b, out->EXPORT_NEXT, "NEXT");
}

// The page again after RT3: from the top after an add, else the same page;
// the row in hand highlighted where it stands.
void Refresh(HandleA a, HandleB b, RunContext* rc, const UnitId& own, ListExport* out) {
  if (Same(out->RUNTIME_SUPPLIED.COMMAND.value, "ADD")) {
    BlankLast(out);
  } else {
    out->EXPORT_LAST = out->EXPORT_FIRST;
  }
  ReadPage(a, b, rc, own, out, "REFRESH");
  PvGroup& list = out->GRP_EXPORT;
  const int s = patterns::SeekRow(list.TSMPRMVL_IS_NUMBER, list.TSMPRMVL_ORG_ID, list.count,
                                  GetNumber(out->EXPORT_CURRENT.TSMPRMVL_IS_NUMBER.value),
                                  out->EXPORT_CURRENT.TSMPRMVL_ORG_ID.value);
  SetSubscript(out, s);
  if (s > 0) {
    RowStateSet(a, b, rc, list.SELECT_CHAR.value[s], kStateMarked);
    RowStateSet(a, b, rc, list.SELECT_CHAR.value[s], kStateCurrent);
  }
  PagingByFlags(a, b, out);
  if (s > 0) {
    ControlDisable(a, b, "PREV");
    ControlDisable(a, b, "NEXT");
  }
}

// The start of a change from row s: the row in hand, mode "CHANGE", no
// pending action, no other tables; then the decision.
void BeginChange(RunContext* rc, ListExport* out, int s) {
  TakeRow(rc, out, s);
  SetMode(out, "CHANGE");
  SetFlag(out, "");
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  std::memset(&out->GP_EXPORT_TABLES, 0, sizeof out->GP_EXPORT_TABLES);
}

}  // namespace

void RT2_PERMITTED_VALUE_MAINT_LIST(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                    void* export_view) {
  patterns::RunBody<ListExport>(&body_unit, ListDictionary::kShape, kBodyId, kListViews, a, b, rc,
                                import_view, export_view, [&](ListExport* out) {
    const char* flag = out->RUNTIME_SUPPLIED.FLAG.value;
    const bool cancel = Same(rc->command, "CANCEL");
    if (cancel || Same(rc->command, "MULTISEL")) {
      if (Same(flag, "CH")) {
        SetCommand(rc, "");
        SetMode(out, "CHANGE");
        SetExit(rc, EXIT_LINK_RT3, nullptr, 'N');
      } else if (Same(flag, "DL")) {
        if (cancel) {
          DeleteOne(a, b, rc, kBodyId, out);
        } else {
          DeleteMany(a, b, rc, kBodyId, out);
        }
      }
    } else if (Same(rc->command, "REFRESH")) {
      Refresh(a, b, rc, kBodyId, out);
    } else if (Same(rc->command, "ADD")) {
      patterns::BlankShown(PvForms::kAttributes, &out->EXPORT_CURRENT);
      SetMode(out, "ADD");
      SetExit(rc, EXIT_LINK_RT3, nullptr, 'N');
    } else if (Same(rc->command, "LIST")) {
      ControlDisable(a, b, "PREV");
      ReadPage(a, b, rc, kBodyId, out, rc->command);
      SetSubscript(out, 0);
      EnableByFlag(a, b, out->EXPORT_NEXT, "NEXT");
    } else if (Same(rc->command, "CLOSE")) {
      SetExit(rc, EXIT_RETURN, nullptr, 'N');
    }
  });
}

// A click selects a row into the row in hand and stops paging; a click on
// the row already selected takes the selection off again.
void PV1_PERMIT_LB_EXPORT_GROUP_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  Action(&click_unit, kClickId, a, b, rc, import_view, export_view,
         [&](const ListImport* in, ListExport* out) {
    PvGroup& list = out->GRP_EXPORT;
    const int s = patterns::FindMarked(a, b, rc, list.SELECT_CHAR, list.count, kStateSelected);
    const int before = static_cast<int>(GetNumber(in->RUNTIME_SUPPLIED.SUBSCRIPT));
    SetSubscript(out, s);
    if (s > 0) {
      TakeRow(rc, out, s);
      ControlDisable(a, b, "PREV");
      ControlDisable(a, b, "NEXT");
    }
    if (s == before) {
      RowStateSet(a, b, rc, list.SELECT_CHAR.value[s], kStateClear);
      SetSubscript(out, 0);
      if (Same(out->EXPORT_PREV.FLAG.value, "Y")) ControlEnable(a, b, "PREV");
      if (Same(out->EXPORT_NEXT.FLAG.value, "Y")) ControlEnable(a, b, "NEXT");
    }
  });
}

// A double click: the row to change, unselected. With no row selected the
// subscript check ends the run.
void PV1_LB_EXPORT_GROUP_DOUBLECLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  Action(&double_click_unit, kDoubleClickId, a, b, rc, import_view, export_view,
         [&](const ListImport*, ListExport* out) {
    PvGroup& list = out->GRP_EXPORT;
    const int s = patterns::FindMarked(a, b, rc, list.SELECT_CHAR, list.count, kStateSelected);
    BeginChange(rc, out, s);
    RowStateSet(a, b, rc, list.SELECT_CHAR.value[s], kStateClear);
    SetSubscript(out, 0);
    DecideChange(a, b, rc, kDoubleClickId, out);
  });
}

// "&Change": as a double click, but the row stays highlighted and the
// subscript keeps its number.
void PV1_PERMITTED_VA_PB_CHANGE_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  Action(&change_unit, kChangeId, a, b, rc, import_view, export_view,
         [&](const ListImport*, ListExport* out) {
    PvGroup& list = out->GRP_EXPORT;
    const int s = patterns::FindMarked(a, b, rc, list.SELECT_CHAR, list.count, kStateMarked);
    BeginChange(rc, out, s);
    SetSubscript(out, s);
    DecideChange(a, b, rc, kChangeId, out);
  });
}

void PV1_PERM_VALUE_PB_PREV_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                  void* export_view) {
  Action(&prev_unit, kPrevId, a, b, rc, import_view, export_view,
         [&](const ListImport*, ListExport* out) {
    ReadPage(a, b, rc, kPrevId, out, "PREV");
    SetSubscript(out, 0);
    PagingByFlags(a, b, out);
  });
}

void PV1_PERMITTED_VALU_PB_NEXT_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  Action(&next_unit, kNextId, a, b, rc, import_view, export_view,
         [&](const ListImport*, ListExport* out) {
    ReadPage(a, b, rc, kNextId, out, "NEXT");
    SetSubscript(out, 0);
    PagingByFlags(a, b, out);
  });
}

// "&Delete" opens RT2A whatever the selection.
void PV1_PERMITTED_VA_PB_DELETE_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  Action(&delete_unit, kDeleteId, a, b, rc, import_view, export_view,
         [&](const ListImport*, ListExport*) { WindowOpen(a, b, kRt2aName); });
}

void PV1_PERMITTED_VAL_PB_CLOSE_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  Action(&close_unit, kCloseId, a, b, rc, import_view, export_view,
         [&](const ListImport*, ListExport*) { SetExit(rc, EXIT_RETURN, nullptr, 'N'); });
}

// RT2A's "&Delete": the companion or other tables are asked for first; a
// row with neither is deleted at once.
void DELETE_CONFIRM_DELETE_PB_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                    void* export_view) {
  Action(&confirm_unit, kConfirmId, a, b, rc, import_view, export_view,
         [&](const ListImport*, ListExport* out) {
    WindowClose(a, b, kRt2aName);
    std::memset(&out->GP_EXPORT_TABLES, 0, sizeof out->GP_EXPORT_TABLES);
    if (AskWhereElse(a, b, rc, kConfirmId, out, "DL")) return;
    SetExit(rc, EXIT_NONE, nullptr, 'N');
    DeleteOne(a, b, rc, kConfirmId, out);
  });
}

// RT2A's "Cance&l": the selection is taken off and paging comes back.
void DELETE_CONFIRM_CANCEL_PB_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                    void* export_view) {
  Action(&cancel_unit, kCancelId, a, b, rc, import_view, export_view,
         [&](const ListImport*, ListExport* out) {
    WindowClose(a, b, kRt2aName);
    PagingByFlags(a, b, out);
    PvGroup& list = out->GRP_EXPORT;
    const int s = patterns::FindMarked(a, b, rc, list.SELECT_CHAR, list.count, kStateMarked);
    RowStateSet(a, b, rc, list.SELECT_CHAR.value[s], kStateClear);
    SetSubscript(out, 0);
  });
}

// RT2B's "&Accept", its only way out: on to RT3 for a change; for a delete
// the row in hand goes with its companion.
void RT2_ACTIVITY_CAT_PB_ACCEPT_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  Action(&companion_unit, kCompanionId, a, b, rc, import_view, export_view,
         [&](const ListImport*, ListExport* out) {
    WindowClose(a, b, kRt2bName);
    if (Same(out->RUNTIME_SUPPLIED.FLAG.value, "CH")) {
      SetExit(rc, EXIT_LINK_RT3, nullptr, 'N');
    } else if (Same(out->RUNTIME_SUPPLIED.FLAG.value, "DL")) {
      DeleteMany(a, b, rc, kCompanionId, out);
    }
  });
}

}  // namespace lk::permitted_value
