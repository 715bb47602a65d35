// The project station role module as the head tables take it: two
// procedures, RT40_PROJECT_ROLE_MAIN_LIST (766), with the list window
// (dialog 777) and the delete dialog RT40A (769), and
// RT41_PROJECT_ROLE_DATA_ENTRY (491), with its window (dialog 494). Every
// control is declared once here; its rows, bindings and events are derived
// (frame/window_decl.h), and the module's procedures are placed in the head
// tables from kModule (frame/head/assemble.h).
//
// RT40's list shows TYPE_NAME under the heading "Role". Its picture buttons
// Prev and Next are scroll buttons of the list whose keywords "PREV" and
// "NEXT" name them for the control services and put that COMMAND in place
// for the paging actions. Add is enabled only while the list has no selected
// row, Change and Delete only while it has one.
#ifndef WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_H_
#define WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_H_

#include "frame/design_rows.h"
#include "frame/head/module_decl.h"
#include "frame/tables.h"
#include "frame/window_decl.h"
#include "modules/project_station_role/project_station_role_units.h"
#include "modules/project_station_role/project_station_role_views.h"

namespace lk::project_station_role {

inline constexpr char kListTitle[] = "RT40 Project Role Maintenance List";
inline constexpr char kEntryTitle[] = "RT41 Project Role Data Entry";

// The dictionaries, and the flow from the list to the data entry window:
// the row in hand, SYSTEM_VARIABLE, COMMAND and SUBSCRIPT go; the window's
// row comes back onto the row in hand.
inline constexpr ViewNameRow kListViews = {"RT40_PROJECT_ROLE_MAIN_LIST", ListDictionary::kViewRows,
                                           ListDictionary::kGroupRows, kListProcedureId};
inline constexpr ViewNameRow kEntryViews = {"RT41_PROJECT_ROLE_DATA_ENTRY",
                                            EntryDictionary::kViewRows, EntryDictionary::kGroupRows,
                                            kEntryProcedureId};
using ToEntryPairs = patterns::ListToEntryFlow<RoleForms, kEntity>;
inline constexpr FlowBinding kToEntry = {&kListViews, &kEntryViews, ToEntryPairs::kSend.data(),
                                         ToEntryPairs::kReceive.data()};
inline constexpr LinkDecl kLinkToEntry = {EXIT_LINK_RT41, (0x0401u << 16) | 0x00E4,
                                          kEntryProcedureId, "RT41_PROJECT_ROLE_DATA_ENTRY",
                                          kReturnsOnReturn, "E", "$#CURR#$", "E", "$#CURR#$"};
using ToEntry = SingleLink<kLinkToEntry, kToEntry>;
char* ListRowAddress(void* export_view, int row);

// ---- RT40: the list 779 under the static 778, its scroll buttons ----

inline constexpr u32 kList = 779;
inline constexpr u32 kListDependants[] = {(782u << 16) | 4, (783u << 16) | 4, (784u << 16) | 4,
                                          0xFFFF0000u};
// One column, TYPE_NAME; a row holds its six display bytes and its 33 bytes.
inline constexpr u32 kRowSize = kDisplayWidth + 33;
inline constexpr ListColumnRow kListColumns[] = {
    {9u | (9u << 16), 60u | (9u << 16), 232, 'L', kDisplayWidth, kRowSize, kTypeNameType, 0, 778,
     {0, 0}},
    {},
};
inline constexpr ListDescriptor kListDescriptor = {(kRowSize << 16) | kTagList, kListColumns, 0,
                                                   ListRowAddress};
inline constexpr ScrollDescriptor kScrollUp = {kTagScroll, "UP", kList | (1u << 16), 0x41};
inline constexpr ScrollDescriptor kScrollDown = {kTagScroll, "DOWN", kList | (1u << 16), 0x41};
inline constexpr const char* kListColumnNames[] = {"EXPORT_LIST.PROJECT_STATION_ROLE.TYPE_NAME",
                                                   nullptr};
inline constexpr auto kAddRules = ListRules<kList>::kWithoutRowRules;
inline constexpr auto kRowRules = ListRules<kList>::kWithRowRules;

inline constexpr ControlDecl kListControls[] = {
    ListBox(kList, "ListBox1", &kListDescriptor, kListColumnNames,
            "EXPORT_LIST.RUNTIME_SUPPLIED.SELECT_CHAR", StepAs<List::DoubleClick, kDoubleClickId>,
            StepAs<List::Click, kClickId>, kListDependants),
    ScrollButton(780, "PictureButton1", &kScrollUp, "PREV", 1501, StepAs<List::Prev, kPrevId>),
    ScrollButton(781, "PictureButton2", &kScrollDown, "NEXT", 1497, StepAs<List::Next, kNextId>),
    Button(782, "Button1", Click(StepAs<List::Add, kAddId>), kAddRules),
    Button(783, "Button2", Click(StepAs<List::Change, kChangeId>), kRowRules),
    Button(784, "Button3", Click(StepAs<List::Delete, kDeleteId>), kRowRules),
    Button(785, "Button4", Click(StepAs<List::Close, kCloseId>)),
    HelpButton(786, "Button5"),
};
inline constexpr WindowDecl kListWindow = DeclareWindow(
    kListProcedureId, 777, "SD", "RT40_PROJECT_ROLE_MAIN_LIST", kListViews, kListControls);

// ---- RT40A: the row in hand's type name, read-only ----

inline constexpr ControlDecl kDeleteControls[] = {
    Field(771, "TYPE_NAME1", &kShownField<kTypeNameType>, 770,
          "EXPORT_CURRENT.PROJECT_STATION_ROLE.TYPE_NAME"),
    Button(772, "Button1", Click(StepAs<List::ConfirmDelete, kDialogDeleteId>)),
    Button(773, "Button2", Click(StepAs<List::CancelDelete, kDialogCancelId>)),
    HelpButton(774, "Button3"),
};
inline constexpr WindowDecl kDeleteWindow =
    DeclareWindow(kListProcedureId, 769, "DD", kDeleteWindowName, kListViews, kDeleteControls);

// ---- RT41: the type name, then the stamp of the last update, read-only ----

// The type name's Changed event puts the literal "CHANGE" in place.
inline constexpr ControlDecl kEntryControls[] = {
    Field(496, "TYPE_NAME1", &kEntryField<kTypeNameType>, 495,
          "EXPORT.PROJECT_STATION_ROLE.TYPE_NAME",
          {"Changed", StepAs<Entry::Changed, kChangedId>, "CHANGE", 'Y'}),
    Field(498, "D_LAST_UPDATE_TIMESTAMP1", &kShownField<kTimestampType>, 497,
          "EXPORT.PROJECT_STATION_ROLE.D_LAST_UPDATE_TIMESTAMP"),
    Field(500, "D_USERID_CODE1", &kShownField<kStampUserType>, 499,
          "EXPORT.PROJECT_STATION_ROLE.D_USERID_CODE"),
    Button(501, "Button1", Click(StepAs<Entry::Accept, kAcceptId>, 'Y')),
    Button(502, "Button2", Click(StepAs<Entry::Cancel, kCancelId>)),
    HelpButton(503, "Button3"),
};
inline constexpr WindowDecl kEntryWindow = DeclareWindow(
    kEntryProcedureId, 494, "SD", "RT41_PROJECT_ROLE_DATA_ENTRY", kEntryViews, kEntryControls);

// ---- The module ----

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<ListDictionary, kListViews, kListWindow, kDeleteWindow>(
        List::Body, kListTitle, {ToEntry::state, ToEntry::kExits, ToEntry::kFlows}),
    head::DeclareProcedure<EntryDictionary, kEntryViews, kEntryWindow>(Entry::Body, kEntryTitle),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::project_station_role

#endif  // WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_H_
