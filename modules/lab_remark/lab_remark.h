// The lab remark module as the head tables take it:
// RT50_LAB_REMARK_MAINT_LIST (id 363; its list window, dialog 366, and the
// delete dialog RT50A, dialog 383) and RT51_LAB_REMARK_DATA_ENTRY (id 989;
// dialog 992), over table TSRLBRMK. Every control is declared once here; its
// rows, bindings and events are derived (frame/window_decl.h), and the
// procedures are placed in the head tables from kModule.
//
// RT50 is a stack-style list (patterns/stack_list.h) that shows every
// organisation's remarks with a short name from "1" to "zzzzzz", at most
// 2000; RT51 an Open-style data entry window (patterns/open_entry.h) reached
// by the flow of exit state EXIT_LINK_RT51 in display mode; RT50A a delete
// confirmation (patterns/delete_dialog.h) that drops the row only when the
// remove left EXIT_NONE. The buttons carry no keyword: each raises its
// Click. Add is enabled only while the list has no selected row, Change and
// Delete only while it has one. The list's Click and DoubleClick read the
// window first, so that the row marks in the view are those on the screen.
// Open events read nothing: they work from the import view that the flow
// filled.
#ifndef WATRIX_MODULES_LAB_REMARK_LAB_REMARK_H_
#define WATRIX_MODULES_LAB_REMARK_LAB_REMARK_H_

#include "frame/design_rows.h"
#include "frame/head/module_decl.h"
#include "frame/tables.h"
#include "frame/window_decl.h"
#include "modules/lab_remark/lab_remark_views.h"
#include "modules/lab_remark/lab_remark_units.h"
#include "modules/lab_remark/lab_remark_views.h"

namespace lk::lab_remark {

constexpr u32 kListProcedureId = 363;
constexpr u32 kEntryProcedureId = 989;

inline constexpr char kListTitle[] = "RT50 Lab Remark Maintenance List";
inline constexpr char kEntryTitle[] = "RT51 Lab Remark Data Entry";
inline constexpr char kDeleteWindowName[] = "RT50A_DLETE_LAB_REMARK_CONFIRMAT";

// The procedure bodies.
void RT50_LAB_REMARK_MAINT_LIST(HandleA, HandleB, RunContext*, void*, void*);
void RT51_LAB_REMARK_DATA_ENTRY(HandleA, HandleB, RunContext*, void*, void*);

// The dictionaries and the flow (lab_remark_tables.cc).
extern const ViewRow kListViewRows[];
extern const GroupRow kListGroupRows[];
extern const ViewRow kEntryViewRows[];
extern const GroupRow kEntryGroupRows[];
extern const ExitRow kListExitRows[];
extern const FlowRow kListFlowRows[];
extern u32 list_flow_state[2];

inline constexpr ViewNameRow kListViews = {"RT50_LAB_REMARK_MAINT_LIST", kListViewRows,
                                           kListGroupRows, kListProcedureId};
inline constexpr ViewNameRow kEntryViews = {"RT51_LAB_REMARK_DATA_ENTRY", kEntryViewRows,
                                            kEntryGroupRows, kEntryProcedureId};

// ---- RT50: the list, then "&Add", "&Change", "&Delete", "C&lose", "&Help" ----

inline constexpr u32 kListControl = 370;
// A list row: per column six display bytes and the value.
inline constexpr u32 kListRowSize = (6 + kShortName) + (6 + kDescription);
inline constexpr ListColumnRow kListColumns[] = {
    {(18u << 16) | 9u, (18u << 16) | 60u, 58, 'L', 6, 6 + kShortName, kShortNameType, 0, 367,
     {0, 0}},
    {(18u << 16) | 68u, (18u << 16) | 300u, 302, 'L', 6 + kShortName + 6, kListRowSize,
     kDescriptionType, 0, 368, {0, 0}},
    {},
};
inline constexpr ListDescriptor kList = {(kListRowSize << 16) | kTagList, kListColumns, 0,
                                         nullptr};
inline constexpr const char* kListColumnNames[] = {
    "GRP_EXPORT.LAB_REMARK.SHORT_NAME", "GRP_EXPORT.LAB_REMARK.DESCRIPTION_TEXT", nullptr};
inline constexpr auto kWithRowRules = ListRules<kListControl>::kWithRowRules;
inline constexpr auto kWithoutRowRules = ListRules<kListControl>::kWithoutRowRules;

inline constexpr ControlDecl kListControls[] = {
    ListBox(kListControl, "ListBox1", &kList, kListColumnNames,
            "GRP_EXPORT_SEL.RUNTIME_SUPPLIED.SELECT_CHAR", RT50_LAB_REMARK_LB_DOUBLECLICK,
            RT50_LAB_REMARK_LB_CLICK),
    Button(371, "Button1", Click(RT50_LAB_REMARK_PB_ADD_CLICK), kWithoutRowRules),
    Button(372, "Button2", Click(RT50_LAB_REMARK_PB_CHANGE_CLICK), kWithRowRules),
    Button(373, "Button3", Click(RT50_LAB_REMARK_PB_DELETE_CLICK), kWithRowRules),
    Button(374, "Button4", Click(RT50_LAB_REMARK_PB_CLOSE_CLICK)),
    HelpButtonDecl(375, "Button5"),
};
inline constexpr WindowDecl kListWindow =
    DeclareWindow(kListProcedureId, 366, "SD", "RT50_LAB_REMARK_MAINT_LIST", kListViews,
                  kListControls, {"Open", RT50_LAB_REMARK_MAINT_LIST_OPEN});

// ---- RT50A: the row in hand, read-only, then "&Delete", "Cance&l", "&Help" ----

inline constexpr FieldDescriptor kShortNameShown = {kTagProtected, &kShortNameType};
inline constexpr FieldDescriptor kDescriptionShown = {kTagProtected, &kDescriptionType};
inline constexpr ControlDecl kDeleteControls[] = {
    Field(385, "SHORT_NAME1", &kShortNameShown, 384, "EXPORT_SELECTED.LAB_REMARK.SHORT_NAME"),
    Field(387, "DESCRIPTION_TEXT1", &kDescriptionShown, 386,
          "EXPORT_SELECTED.LAB_REMARK.DESCRIPTION_TEXT"),
    Button(388, "Button1", Click(RT50A_LAB_REMARK_PB_DELETE_CLICK)),
    Button(389, "Button2", Click(RT50A_LAB_REMARK_PB_CANCEL_CLICK)),
    HelpButtonDecl(390, "Button3"),
};
inline constexpr WindowDecl kDeleteWindow =
    DeclareWindow(kListProcedureId, 383, "DD", kDeleteWindowName, kListViews, kDeleteControls);

// ---- RT51: "IS Number", "Short Name", "Description ", "Date of Last
// Update", "Updated By", then "Accep&t", "Cance&l", "&Help" ----

inline constexpr FieldDescriptor kIsNumberShown = {kTagProtected, &kIsNumberType};
inline constexpr FieldDescriptor kShortNameEntry = {kTagEntry, &kShortNameType};
inline constexpr FieldDescriptor kDescriptionEntry = {kTagEntry, &kDescriptionType};
inline constexpr FieldDescriptor kStampShown = {kTagProtected, &kTimestampType};
inline constexpr FieldDescriptor kUserIdShown = {kTagProtected, &kUserIdType};
inline constexpr ControlDecl kEntryControls[] = {
    Field(994, "TSRLBRMK_IS_NUMBER1", &kIsNumberShown, 993, "EXPORT.LAB_REMARK.TSRLBRMK_IS_NUMBER"),
    Field(996, "SHORT_NAME1", &kShortNameEntry, 995, "EXPORT.LAB_REMARK.SHORT_NAME"),
    Field(998, "DESCRIPTION_TEXT1", &kDescriptionEntry, 997, "EXPORT.LAB_REMARK.DESCRIPTION_TEXT"),
    Field(1000, "D_LAST_UPDATE_TIMESTAMP1", &kStampShown, 999,
          "EXPORT.LAB_REMARK.D_LAST_UPDATE_TIMESTAMP"),
    Field(1002, "D_USERID_CODE1", &kUserIdShown, 1001, "EXPORT.LAB_REMARK.D_USERID_CODE"),
    Button(1003, "Button1", Click(RT51_LAB_REMARK_PB_ACCEPT_CLICK, 'Y')),
    Button(1004, "Button2", Click(RT51_LAB_REMARK_PB_CANCEL_CLICK)),
    HelpButtonDecl(1005, "Button3"),
};
inline constexpr WindowDecl kEntryWindow =
    DeclareWindow(kEntryProcedureId, 992, "SD", "RT51_LAB_REMARK_DATA_ENTRY", kEntryViews,
                  kEntryControls, {"Open", RT51_LAB_REMARK_DATA_ENTRY_OPEN});

// ---- The module ----

inline constexpr WindowRow kListWindows[] = {WindowRows<kListWindow>::kRow,
                                             WindowRows<kDeleteWindow>::kRow};
inline constexpr WindowRow kEntryWindows[] = {WindowRows<kEntryWindow>::kRow};

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<kListViews>(RT50_LAB_REMARK_MAINT_LIST, sizeof(ListImport),
                                       sizeof(ListExport), kListTitle, kListWindows,
                                       {list_flow_state, kListExitRows, kListFlowRows}),
    head::DeclareProcedure<kEntryViews>(RT51_LAB_REMARK_DATA_ENTRY, sizeof(EntryImport),
                                        sizeof(EntryExport), kEntryTitle, kEntryWindows),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::lab_remark

#endif  // WATRIX_MODULES_LAB_REMARK_LAB_REMARK_H_
