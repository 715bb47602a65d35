// What RT40A and RT41 add to their patterns: RT41's required field, its
// duplicate check and its blocks, and RT40A's dialog and REMOVE.
#include "modules/project_station_role/project_station_role_units.h"

#include "frame/run_context.h"
#include "modules/project_station_role/project_station_role.h"
#include "modules/project_station_role/project_station_role_blocks.h"
#include "patterns/data_entry.h"
#include "services/text.h"

namespace lk::project_station_role {

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

// ---- RT40A: the row marked in the list; dropped from the group whatever
// REMOVE_PROJECT_STATION_ROLE says, even when it found no row ----

const patterns::DeleteDialog RoleList::kDeleteDialog = {
    kDeleteWindowName, &kListViews, "EXPORT_LIST", kListRows,
    patterns::DeleteRowFrom::kFirstMarked, patterns::DropRule::kAlways};

}  // namespace lk::project_station_role
