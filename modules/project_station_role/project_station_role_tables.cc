// The dictionaries of RT40 and RT41 and the flow from the list to the data
// entry window; the windows are declared in project_station_role.h.
#include <cstddef>

#include "frame/design_rows.h"
#include "frame/run_context.h"
#include "frame/transport/plan.h"
#include "modules/project_station_role/project_station_role.h"
#include "modules/project_station_role/project_station_role_units.h"
#include "modules/project_station_role/project_station_role_views.h"
#include "patterns/first_page_list.h"

namespace lk::project_station_role {

namespace {

constexpr u32 At(std::size_t offset) { return static_cast<u32>(offset); }

using patterns::ColumnRows;
using patterns::FlagRows;
using patterns::RowRows;
using patterns::RowTimestamps;
using patterns::RuntimeSuppliedRows;
using patterns::SelectCharRows;
using patterns::SystemVariableRows;

constexpr const auto& kRow = RoleForms::kAttributes;

// ---- RT40's dictionary ----

constexpr auto kListRuntime =
    RuntimeSuppliedRows(At(offsetof(ListImport, EXPORT.RUNTIME_SUPPLIED)),
                        At(offsetof(ListExport, EXPORT.RUNTIME_SUPPLIED)));
constexpr auto kListSystem = SystemVariableRows(At(offsetof(ListImport, EXPORT.SYSTEM_VARIABLE)),
                                                At(offsetof(ListExport, EXPORT.SYSTEM_VARIABLE)));
constexpr auto kListNext =
    FlagRows(At(offsetof(ListImport, EXPORT_NEXT)), At(offsetof(ListExport, EXPORT_NEXT)));
constexpr auto kListPrev =
    FlagRows(At(offsetof(ListImport, EXPORT_PREV)), At(offsetof(ListExport, EXPORT_PREV)));
constexpr auto kListLast =
    RowRows(kRow, At(offsetof(ListImport, EXPORT_LAST)), At(offsetof(ListExport, EXPORT_LAST)));
constexpr auto kListFirst =
    RowRows(kRow, At(offsetof(ListImport, EXPORT_FIRST)), At(offsetof(ListExport, EXPORT_FIRST)));
constexpr auto kListCurrent = RowRows(kRow, At(offsetof(ListImport, EXPORT_CURRENT)),
                                      At(offsetof(ListExport, EXPORT_CURRENT)));
constexpr auto kListMarks = SelectCharRows<RoleForms>(At(offsetof(ListImport, EXPORT_LIST)),
                                                      At(offsetof(ListExport, EXPORT_LIST)));
constexpr auto kListRowsOfGroup =
    ColumnRows(kRow, At(offsetof(ListImport, EXPORT_LIST)), At(offsetof(ListExport, EXPORT_LIST)));

}  // namespace

const ViewRow kListViewRows[] = {
    {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kListRuntime.data()},
    {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kListSystem.data()},
    {"EXPORT_NEXT.RUNTIME_SUPPLIED.", 0, 0, kListNext.data()},
    {"EXPORT_PREV.RUNTIME_SUPPLIED.", 0, 0, kListPrev.data()},
    {"EXPORT_LAST.PROJECT_STATION_ROLE.", 0, 0, kListLast.data()},
    {"EXPORT_FIRST.PROJECT_STATION_ROLE.", 0, 0, kListFirst.data()},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.", 0, 0, kListCurrent.data()},
    {"EXPORT_LIST.RUNTIME_SUPPLIED.", kListRows, 0, kListMarks.data()},
    {"EXPORT_LIST.PROJECT_STATION_ROLE.", kListRows, 0, kListRowsOfGroup.data()},
    {nullptr, 0, 0, nullptr},
};
const GroupRow kListGroupRows[] = {
    {"EXPORT_LIST", (9u << 16) | 7u, 1, At(offsetof(ListExport, EXPORT_LIST.count)),
     At(offsetof(ListImport, EXPORT_LIST.count)), 0},
    {"*", 9u << 16, 0, 0, 0, 0},
};

namespace {

constexpr auto kListExportStamps =
    RowTimestamps(kRow,
                  {At(offsetof(ListExport, EXPORT_LAST)), At(offsetof(ListExport, EXPORT_FIRST)),
                   At(offsetof(ListExport, EXPORT_CURRENT))},
                  /*bare=*/false, At(offsetof(ListExport, EXPORT_LIST)), kListRows);
constexpr auto kListImportStamps =
    RowTimestamps(kRow,
                  {At(offsetof(ListImport, EXPORT_LAST)), At(offsetof(ListImport, EXPORT_FIRST)),
                   At(offsetof(ListImport, EXPORT_CURRENT))},
                  /*bare=*/true, At(offsetof(ListImport, EXPORT_LIST)), kListRows);

// ---- RT41's dictionary ----

constexpr auto kEntryChanged = FlagRows(At(offsetof(EntryImport, EXPORT_DATA_CHANGED)),
                                        At(offsetof(EntryExport, EXPORT_DATA_CHANGED)));
constexpr auto kEntrySystem = SystemVariableRows(At(offsetof(EntryImport, EXPORT.SYSTEM_VARIABLE)),
                                                 At(offsetof(EntryExport, EXPORT.SYSTEM_VARIABLE)));
constexpr auto kEntryRow =
    RowRows(kRow, At(offsetof(EntryImport, EXPORT.ROW)), At(offsetof(EntryExport, EXPORT.ROW)));
constexpr auto kEntryRuntime =
    RuntimeSuppliedRows(At(offsetof(EntryImport, EXPORT.RUNTIME_SUPPLIED)),
                        At(offsetof(EntryExport, EXPORT.RUNTIME_SUPPLIED)));

}  // namespace

const ViewRow kEntryViewRows[] = {
    {"EXPORT_DATA_CHANGED.RUNTIME_SUPPLIED.", 0, 0, kEntryChanged.data()},
    {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kEntrySystem.data()},
    {"EXPORT.PROJECT_STATION_ROLE.", 0, 0, kEntryRow.data()},
    {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kEntryRuntime.data()},
    {nullptr, 0, 0, nullptr},
};
const GroupRow kEntryGroupRows[] = {{"*", 4u << 16, 0, 0, 0, 0}};

namespace {

constexpr auto kEntryExportStamps = RowTimestamps(kRow, {At(offsetof(EntryExport, EXPORT.ROW))},
                                                  /*bare=*/false, 0, 0);
constexpr auto kEntryImportStamps = RowTimestamps(kRow, {At(offsetof(EntryImport, EXPORT.ROW))},
                                                  /*bare=*/true, 0, 0);

}  // namespace


const ViewNameRow& RoleList::Views() { return kListViews; }
const ViewNameRow& RoleEntry::Views() { return kEntryViews; }
const ViewShape RoleList::kShape = {sizeof(ListExport), kListExportStamps.data(),
                                    kListImportStamps.data()};
const ViewShape RoleEntry::kShape = {sizeof(EntryExport), kEntryExportStamps.data(),
                                     kEntryImportStamps.data()};


// ---- The flow from the list to the data entry window ----

namespace {

// Send: the row in hand, SYSTEM_VARIABLE, COMMAND and SUBSCRIPT. Receive:
// the window's row onto the row in hand.
constexpr FlowPair kToEntrySend[] = {
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TSMPSR_IS_NUMBER",
     "EXPORT.PROJECT_STATION_ROLE.TSMPSR_IS_NUMBER"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TSMPSR_ORG_ID",
     "EXPORT.PROJECT_STATION_ROLE.TSMPSR_ORG_ID"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TYPE_NAME", "EXPORT.PROJECT_STATION_ROLE.TYPE_NAME"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.D_USERID_CODE",
     "EXPORT.PROJECT_STATION_ROLE.D_USERID_CODE"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.D_LAST_UPDATE_TIMESTAMP",
     "EXPORT.PROJECT_STATION_ROLE.D_LAST_UPDATE_TIMESTAMP"},
    {"EXPORT.SYSTEM_VARIABLE.USER_ID_CODE", "EXPORT.SYSTEM_VARIABLE.USER_ID_CODE"},
    {"EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID", "EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID"},
    {"EXPORT.RUNTIME_SUPPLIED.COMMAND", "EXPORT.RUNTIME_SUPPLIED.COMMAND"},
    {"EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT", "EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT"},
    {nullptr, nullptr},
};
constexpr FlowPair kToEntryReceive[] = {
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TSMPSR_IS_NUMBER",
     "EXPORT.PROJECT_STATION_ROLE.TSMPSR_IS_NUMBER"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TSMPSR_ORG_ID",
     "EXPORT.PROJECT_STATION_ROLE.TSMPSR_ORG_ID"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TYPE_NAME", "EXPORT.PROJECT_STATION_ROLE.TYPE_NAME"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.D_USERID_CODE",
     "EXPORT.PROJECT_STATION_ROLE.D_USERID_CODE"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.D_LAST_UPDATE_TIMESTAMP",
     "EXPORT.PROJECT_STATION_ROLE.D_LAST_UPDATE_TIMESTAMP"},
    {nullptr, nullptr},
};
constexpr FlowBinding kToEntry = {&kListViews, &kEntryViews, kToEntrySend, kToEntryReceive};

constexpr u32 kFlowToEntry = (0x0401u << 16) | 0x00E4;

}  // namespace

u32 list_flow_state[2];

const ExitRow kListExitRows[] = {
    {EXIT_LINK_RT41, kFlowToEntry, 'M'},
    {0, 0, 0},
};

const FlowRow kListFlowRows[] = {
    {kFlowToEntry, "L", kEntryProcedureId, "RT41_PROJECT_ROLE_DATA_ENTRY", Send<kToEntry>,
     Receive<kToEntry>, kReturnsOnReturn, "E", "$#CURR#$", "E", "$#CURR#$", 0},
    {0, nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0},
};

char* ListRowAddress(void* export_view, int row) {
  return static_cast<ListExport*>(export_view)->EXPORT_LIST.TYPE_NAME.display[row];
}

}  // namespace lk::project_station_role
