// The project station role module: the parts that the head tables and the
// menu take from it. Two procedures: RT40_PROJECT_ROLE_MAIN_LIST (766), with
// the list window (dialog 777) and the delete dialog RT40A (769), and
// RT41_PROJECT_ROLE_DATA_ENTRY (491), with its window (dialog 494). The head
// (frame/head) writes their ProcedureRows, WindowRows and ViewNameRows from
// these parts in table order; the menu's flow to RT40 sends into the list's
// import view by kListViews.
#ifndef WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_H_
#define WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_H_

#include "frame/tables.h"
#include "modules/project_station_role/project_station_role_units.h"

namespace lk::project_station_role {

inline constexpr char kListTitle[] = "RT40 Project Role Maintenance List";
inline constexpr char kEntryTitle[] = "RT41 Project Role Data Entry";
inline constexpr char kDeleteWindowName[] = "RT40A_DELETE_PROJECT_ROLE";

// ProcedureRow parts of RT40.
extern const ExitRow kListExitRows[];
extern const FlowRow kListFlowRows[];
extern u32 list_flow_state[2];
extern const u32 kListImportSize;
extern const u32 kListExportSize;
void ListImportToExport(const void* from, void* to);
void ListExportToImport(const void* from, void* to);
void ListImportUnpack(void* view, ViewStream* stream);
void ListExportPack(void* view, ViewStream* stream);

// ProcedureRow parts of RT41 (no flows).
extern const u32 kEntryImportSize;
extern const u32 kEntryExportSize;
void EntryImportToExport(const void* from, void* to);
void EntryExportToImport(const void* from, void* to);
void EntryImportUnpack(void* view, ViewStream* stream);
void EntryExportPack(void* view, ViewStream* stream);

// View dictionaries.
extern const ViewNameRow kListViews;
extern const ViewNameRow kEntryViews;

// Window parts.
extern const ActionControlRow kListActions[];
extern const ControlRow kListControls[];
extern const EventRow kListEvents[];
extern const ActionControlRow kDeleteActions[];
extern const ControlRow kDeleteControls[];
extern const EventRow kDeleteEvents[];
extern const ActionControlRow kEntryActions[];
extern const ControlRow kEntryControls[];
extern const EventRow kEntryEvents[];
extern const StaticItemRow kNoStatics[];
void ReadList(WindowHandle, void*);
void WriteList(WindowHandle, void*);
void ReadDelete(WindowHandle, void*);
void WriteDelete(WindowHandle, void*);
void ReadEntry(WindowHandle, void*);
void WriteEntry(WindowHandle, void*);

// RT41's window, then RT40's two, as the window table holds them.
inline constexpr WindowRow kEntryWindowRows[] = {
    {kEntryProcedureId, 494, kEntryActions, kEntryControls, ReadEntry, WriteEntry, "SD", "A",
     kEntryEvents, "RT41_PROJECT_ROLE_DATA_ENTRY", 0, 0, kNoStatics, nullptr, kNoStatics, 0},
};
inline constexpr WindowRow kListWindowRows[] = {
    {kListProcedureId, 777, kListActions, kListControls, ReadList, WriteList, "SD", "A",
     kListEvents, "RT40_PROJECT_ROLE_MAIN_LIST", 0, 0, kNoStatics, nullptr, kNoStatics, 0},
    {kListProcedureId, 769, kDeleteActions, kDeleteControls, ReadDelete, WriteDelete, "DD", "A",
     kDeleteEvents, kDeleteWindowName, 0, 0, kNoStatics, nullptr, kNoStatics, 0},
};

}  // namespace lk::project_station_role

#endif  // WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_H_
