// The lab remark module: RT50_LAB_REMARK_MAINT_LIST (id 363; its list
// window, dialog 366, and the delete dialog RT50A, dialog 383) and
// RT51_LAB_REMARK_DATA_ENTRY (id 989; dialog 992), over table TSRLBRMK. The
// parts that the head tables (frame/head) and the menu's flow take from it.
//
// RT50 is a stack-style list (patterns/stack_list.h) that shows every
// organisation's remarks with a short name from "1" to "zzzzzz", at most
// 2000; RT51 an Open-style data entry window (patterns/open_entry.h) reached
// by the flow of exit state EXIT_LINK_RT51 in display mode; RT50A a delete
// confirmation (patterns/delete_dialog.h) that drops the row only when the
// remove left EXIT_NONE.
#ifndef WATRIX_MODULES_LAB_REMARK_LAB_REMARK_H_
#define WATRIX_MODULES_LAB_REMARK_LAB_REMARK_H_

#include "frame/tables.h"
#include "modules/lab_remark/lab_remark_views.h"

namespace lk::lab_remark {

constexpr u32 kListProcedureId = 363;
constexpr u32 kEntryProcedureId = 989;

constexpr u32 kListImportSize = sizeof(ListImport);
constexpr u32 kListExportSize = sizeof(ListExport);
constexpr u32 kEntryImportSize = sizeof(EntryImport);
constexpr u32 kEntryExportSize = sizeof(EntryExport);

// ProcedureRow parts of RT50.
void RT50_LAB_REMARK_MAINT_LIST(HandleA, HandleB, RunContext*, void*, void*);
extern const ExitRow kListExitRows[];
extern const FlowRow kListFlowRows[];
extern u32 list_flow_state[2];
void ListImportToExport(const void* from, void* to);
void ListExportToImport(const void* from, void* to);
void ListImportUnpack(void* view, ViewStream* stream);
void ListExportPack(void* view, ViewStream* stream);

// ProcedureRow parts of RT51; it has no flows of its own.
void RT51_LAB_REMARK_DATA_ENTRY(HandleA, HandleB, RunContext*, void*, void*);
void EntryImportToExport(const void* from, void* to);
void EntryExportToImport(const void* from, void* to);
void EntryImportUnpack(void* view, ViewStream* stream);
void EntryExportPack(void* view, ViewStream* stream);

// View dictionaries.
extern const ViewRow kListViewRows[];
extern const GroupRow kListGroupRows[];
extern const ViewRow kEntryViewRows[];
extern const GroupRow kEntryGroupRows[];
// RT50's views as a flow into it names them.
extern const ViewNameRow kListViews;

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

inline constexpr WindowRow kListWindowRows[] = {
    {kListProcedureId, 366, kListActions, kListControls, ReadList, WriteList, "SD", "A",
     kListEvents, "RT50_LAB_REMARK_MAINT_LIST", 0, 0, kNoStatics, nullptr, kNoStatics, 0},
    {kListProcedureId, 383, kDeleteActions, kDeleteControls, ReadDelete, WriteDelete, "DD", "A",
     kDeleteEvents, "RT50A_DLETE_LAB_REMARK_CONFIRMAT", 0, 0, kNoStatics, nullptr, kNoStatics,
     0},
};

inline constexpr WindowRow kEntryWindowRows[] = {
    {kEntryProcedureId, 992, kEntryActions, kEntryControls, ReadEntry, WriteEntry, "SD", "A",
     kEntryEvents, "RT51_LAB_REMARK_DATA_ENTRY", 0, 0, kNoStatics, nullptr, kNoStatics, 0},
};

inline constexpr const char kListTitle[] = "RT50 Lab Remark Maintenance List";
inline constexpr const char kEntryTitle[] = "RT51 Lab Remark Data Entry";

}  // namespace lk::lab_remark

#endif  // WATRIX_MODULES_LAB_REMARK_LAB_REMARK_H_
