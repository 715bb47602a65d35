// The reference table menu, RT1_REFERENCE_TABLE_MAINT_MENU: the parts that
// the head tables take from it. Its three windows are the first page (dialog
// 835), the second page RT1A (819) and the characteristic type dialog RT1B
// (828). The head tables place its procedure from kModule.
#ifndef WATRIX_MODULES_MENU_MENU_H_
#define WATRIX_MODULES_MENU_MENU_H_

#include "frame/head/module_decl.h"
#include "frame/tables.h"
#include "modules/menu/menu_views.h"

namespace lk::menu {

constexpr u32 kProcedureId = 816;

// The body, its flows and its view dictionary.
void RT1_REFERENCE_TABLE_MAINT_MENU(HandleA, HandleB, RunContext*, void*, void*);
extern const ExitRow kExitRows[];
extern const FlowRow kFlowRows[];
extern u32 flow_state[2];
extern const ViewRow kViewRows[];
extern const GroupRow kGroupRows[];
inline constexpr ViewNameRow kViews = {"RT1_REFERENCE_TABLE_MAINT_MENU", kViewRows, kGroupRows,
                                       kProcedureId};

// Window parts: first page, second page, characteristic type dialog.
extern const ActionControlRow kMainActions[];
extern const ControlRow kMainControls[];
extern const EventRow kMainEvents[];
extern const ActionControlRow kPage2Actions[];
extern const ControlRow kPage2Controls[];
extern const EventRow kPage2Events[];
extern const ActionControlRow kCharTypeActions[];
extern const ControlRow kCharTypeControls[];
extern const EventRow kCharTypeEvents[];
extern const StaticItemRow kNoStatics[];
void ReadMain(WindowHandle, void*);
void WriteMain(WindowHandle, void*);
void ReadPage2(WindowHandle, void*);
void WritePage2(WindowHandle, void*);
void ReadCharType(WindowHandle, void*);
void WriteCharType(WindowHandle, void*);

inline constexpr WindowRow kWindowRows[] = {
    {kProcedureId, 835, kMainActions, kMainControls, ReadMain, WriteMain, "SD", "A",
     kMainEvents, "RT1_REFERENCE_TABLE_MAINT_MENU", 0, 0, kNoStatics, nullptr, kNoStatics, 0},
    {kProcedureId, 819, kPage2Actions, kPage2Controls, ReadPage2, WritePage2, "DD", "A",
     kPage2Events, "RT1A_REFERENCE_TABLE_MAINT_MENU", 0, 0, kNoStatics, nullptr, kNoStatics,
     0},
    {kProcedureId, 828, kCharTypeActions, kCharTypeControls, ReadCharType, WriteCharType, "DD",
     "A", kCharTypeEvents, "RT1B_CHAR_TYPE_SELECT", 0, 0, kNoStatics, nullptr, kNoStatics, 0},
};

inline constexpr const char kTitle[] = "RT1 Reference Table Maintenance Menu";

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<kViews>(RT1_REFERENCE_TABLE_MAINT_MENU, sizeof(MenuImport),
                                   sizeof(MenuExport), kTitle, kWindowRows,
                                   {flow_state, kExitRows, kFlowRows}),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::menu

#endif  // WATRIX_MODULES_MENU_MENU_H_
