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

constexpr UnitId kDialogDeleteId = {"0017499010", "RT40A_PB_DELETE_CLICK"};
constexpr UnitId kDialogCancelId = {"0017499011", "RT40A_PB_CANCEL_CLICK"};

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
  Blocks::Duplicate(kDuplicateId, a, b, rc, &key, &found);
}

void RoleEntry::Identify(HandleA a, HandleB b, RunContext* rc,
                         const patterns::SystemVariableView* system, const RoleRow* row,
                         RoleRow* written) {
  Blocks::Identify(kIdentifyId, a, b, rc, system, row, written);
}

void RoleEntry::Modify(HandleA a, HandleB b, RunContext* rc,
                       const patterns::SystemVariableView* system, const RoleRow* row,
                       RoleRow* written) {
  Blocks::Modify(kModifyId, a, b, rc, system, row, written);
}

// ---- Bodies ----

void RT40_PROJECT_ROLE_MAIN_LIST(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  List::Body(a, b, rc, in, out);
}

void RT41_PROJECT_ROLE_DATA_ENTRY(HandleA a, HandleB b, RunContext* rc, void* in, void* out) {
  Entry::Body(a, b, rc, in, out);
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
          Blocks::Remove(kRemoveId, a, b, rc, &key, store::E4348087);
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

}  // namespace lk::project_station_role
