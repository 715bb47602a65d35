// The view functions that RT40's list and its traits need beyond what the
// declaration in project_station_role.h derives.
#include "modules/project_station_role/project_station_role.h"

namespace lk::project_station_role {

const ViewNameRow& RoleList::Views() { return kListViews; }
const ViewNameRow& RoleEntry::Views() { return kEntryViews; }

char* ListRowAddress(void* export_view, int row) {
  return static_cast<ListExport*>(export_view)->EXPORT_LIST.TYPE_NAME.display[row];
}

}  // namespace lk::project_station_role
