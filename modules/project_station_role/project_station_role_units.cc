// The procedure bodies and event actions of RT40, RT40A and RT41: each takes
// its step of the pattern under its own name and number.
#include "modules/project_station_role/project_station_role_units.h"

#include <cstring>

#include "frame/run_context.h"
#include "frame/views.h"
#include "modules/project_station_role/project_station_role.h"
#include "modules/project_station_role/project_station_role_blocks.h"
#include "patterns/data_entry.h"
#include "patterns/delete_dialog.h"
#include "services/text.h"

namespace lk::project_station_role {

namespace {

constexpr UnitId kClickId = {"0017499002", "RT40_PROJ_ROLE_LB_CLICK"};
constexpr UnitId kDoubleClickId = {"0017499003", "RT40_PROJ_ROLE_LB_DOUBLECLICK"};
constexpr UnitId kPrevId = {"0017499004", "RT40_PROJ_ROLE_PB_PREV_CLICK"};
constexpr UnitId kNextId = {"0017499005", "RT40_PROJ_ROLE_PB_NEXT_CLICK"};
constexpr UnitId kAddId = {"0017499006", "RT40_PROJ_ROLE_PB_ADD_CLICK"};
constexpr UnitId kChangeId = {"0017499007", "RT40_PROJ_ROLE_PB_CHANGE_CLICK"};
constexpr UnitId kDeleteId = {"0017499008", "RT40_PROJ_ROLE_PB_DELETE_CLICK"};
constexpr UnitId kCloseId = {"0017499009", "RT40_PROJ_ROLE_PB_CLOSE_CLICK"};
constexpr UnitId kDialogDeleteId = {"0017499010", "RT40A_PB_DELETE_CLICK"};
constexpr UnitId kDialogCancelId = {"0017499011", "RT40A_PB_CANCEL_CLICK"};
constexpr UnitId kChangedId = {"0017499102", "RT41_R_CB_N_CHANGED"};
constexpr UnitId kAcceptId = {"0017499103", "RT41_PB_ACCEPT_CLICK"};
constexpr UnitId kCancelId = {"0017499104", "RT41_PB_CANCEL_CLICK"};

constexpr char kStatement1[] = "0000000001";

// RT40A: the row marked in the list; dropped from the group whatever
// REMOVE_PROJECT_STATION_ROLE says, even when it found no row.
constexpr patterns::DeleteDialog kDeleteDialog = {
    kDeleteWindowName, &kListViews, "EXPORT_LIST", kListRows,
    patterns::DeleteRowFrom::kFirstMarked, patterns::DropRule::kAlways};

UnitStorage dialog_delete_unit, dialog_cancel_unit;

}  // namespace

// ---- RT41's part of the body-style window ----

bool RoleEntry::CheckFields(RunContext* rc, EntryExport* out) {
  return patterns::CheckRequired(
      rc, {{out->EXPORT.ROW.TYPE_NAME.display, out->EXPORT.ROW.TYPE_NAME.value}});
}

void RoleEntry::CheckDuplicate(HandleA a, HandleB b, RunContext* rc, const EntryExport& in,
                               bool adding) {
  RoleRow key{}, found{};
  // On CHANGE the ORG ID is left blank, and the check finds nothing.
  TextMove(key.TSMPSR_ORG_ID, adding ? in.EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID.value : "",
           sizeof key.TSMPSR_ORG_ID);
  BoundedCopy(key.TYPE_NAME, in.EXPORT.ROW.TYPE_NAME.value, sizeof key.TYPE_NAME);
  READ_FOR_DUP_PROJ_STN_ROLE(a, b, rc, &key, &found);
}

void RoleEntry::Identify(HandleA a, HandleB b, RunContext* rc,
                         const patterns::SystemVariableView* system, const RoleRow* row,
                         RoleRow* written) {
  IDENTIFY_PROJECT_STATION_ROLE(a, b, rc, system, row, written);
}

void RoleEntry::Modify(HandleA a, HandleB b, RunContext* rc,
                       const patterns::SystemVariableView* system, const RoleRow* row,
                       RoleRow* written) {
  MODIFY_PROJECT_STATION_ROLE(a, b, rc, system, row, written);
}

// ---- Bodies ----

void RT40_PROJECT_ROLE_MAIN_LIST(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  List::Body(a, b, rc, in, out);
}

void RT41_PROJECT_ROLE_DATA_ENTRY(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  Entry::Body(a, b, rc, in, out);
}

// ---- RT40 ----

void RT40_PROJ_ROLE_LB_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  List::Click(kClickId, a, b, rc, in, out);
}
void RT40_PROJ_ROLE_LB_DOUBLECLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  List::DoubleClick(kDoubleClickId, a, b, rc, in, out);
}
void RT40_PROJ_ROLE_PB_PREV_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  List::Prev(kPrevId, a, b, rc, in, out);
}
void RT40_PROJ_ROLE_PB_NEXT_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  List::Next(kNextId, a, b, rc, in, out);
}
void RT40_PROJ_ROLE_PB_ADD_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  List::Add(kAddId, a, b, rc, in, out);
}
void RT40_PROJ_ROLE_PB_CHANGE_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  List::Change(kChangeId, a, b, rc, in, out);
}
void RT40_PROJ_ROLE_PB_DELETE_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  List::Delete(kDeleteId, kDeleteWindowName, a, b, rc, in, out);
}
void RT40_PROJ_ROLE_PB_CLOSE_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  List::Close(kCloseId, a, b, rc, in, out);
}

// ---- RT40A ----

void RT40A_PB_DELETE_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  EnterEventAction(&dialog_delete_unit, &RoleList::kShape, kDialogDeleteId, a, b, rc, in, out, [&] {
    auto* list = static_cast<ListExport*>(out);
    rc->statement = kStatement1;
    patterns::DeleteConfirmed(
        kDeleteDialog, a, b, rc, kDialogDeleteId, List::DeleteListOf(list), [&] {
          RoleRow key{};
          patterns::ShownToRow(RoleForms::kAttributes, &list->EXPORT_CURRENT, &key);
          REMOVE_PROJECT_STATION_ROLE(a, b, rc, &key);
        });
  });
}

void RT40A_PB_CANCEL_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  EnterEventAction(&dialog_cancel_unit, &RoleList::kShape, kDialogCancelId, a, b, rc, in, out, [&] {
    rc->statement = kStatement1;
    SetExit(rc, EXIT_NONE, nullptr, 'N');
    patterns::DeleteCancelled(kDeleteDialog, a, b, rc,
                              List::DeleteListOf(static_cast<ListExport*>(out)));
  });
}

// ---- RT41 ----

void RT41_R_CB_N_CHANGED(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  Entry::Changed(kChangedId, a, b, rc, in, out);
}
void RT41_PB_ACCEPT_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  Entry::Accept(kAcceptId, a, b, rc, in, out);
}
void RT41_PB_CANCEL_CLICK(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  Entry::Cancel(kCancelId, a, b, rc, in, out);
}

}  // namespace lk::project_station_role
