// The lithologic unit module as the head tables take it:
// RT42_LITHOLOGIC_UNIT_MAINT_LIST (id 577; its list window, dialog 590, and
// the delete dialog RT42A, dialog 580) and RT43_LITHOLOGIC_UNIT_DATA_ENTRY
// (id 226; dialog 229), over table TSMLTHUN. Every control is declared once
// here; its rows, bindings and events are derived (frame/window_decl.h), and
// the procedures are placed in the head tables from kModule.
//
// RT42 is a list without paging and without an Open event: the menu's flow
// runs its body with COMMAND "LIST", and the flow of exit state
// EXIT_LINK_RT43 runs RT43's body and returns with the COMMAND that RT43 set
// ("REFRESH"). The event rows of Add and Change name "ADD" and "CHANGE".
// The list's Click and DoubleClick read the window first, so that the row
// marks in the view are those on the screen.
#ifndef WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_H_
#define WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_H_

#include "frame/design_rows.h"
#include "frame/head/module_decl.h"
#include "frame/tables.h"
#include "frame/window_decl.h"
#include "modules/lithologic_unit/lithologic_unit_units.h"
#include "modules/lithologic_unit/lithologic_unit_views.h"
#include "patterns/stack_views.h"

namespace lk::lithologic_unit {

inline constexpr char kListTitle[] = "RT42 Lithologic Unit Maintenance List";
inline constexpr char kEntryTitle[] = "RT43 Lithologic Unit Data Entry";
inline constexpr char kDeleteWindowName[] = "RT42A_DELETE_LITHOLOGIC_UNIT";

// The dictionaries, and the flow from RT42 to RT43 in execution mode: the
// row in hand and SYSTEM_VARIABLE go; the row that RT43 shows comes back
// onto the row in hand, from which the list reads again.
inline constexpr ViewNameRow kListViews = {"RT42_LITHOLOGIC_UNIT_MAINT_LIST",
                                           ListDictionary::kViewRows, ListDictionary::kGroupRows,
                                           kListProcedureId};
inline constexpr ViewNameRow kEntryViews = {"RT43_LITHOLOGIC_UNIT_DATA_ENTRY",
                                            EntryDictionary::kViewRows,
                                            EntryDictionary::kGroupRows, kEntryProcedureId};
using ToEntryPairs = patterns::StackToEntryFlow<LithListForms, kEntity>;
inline constexpr FlowBinding kToEntry = {&kListViews, &kEntryViews, ToEntryPairs::kSend.data(),
                                         ToEntryPairs::kReceive.data()};
inline constexpr LinkDecl kLinkToEntry = {EXIT_LINK_RT43, (0x0242u << 16) | 0x00E4,
                                          kEntryProcedureId, "RT43_LITHOLOGIC_UNIT_DATA_ENTRY",
                                          kReturnsOnCancel, "E", "$#CURR#$", "E", "$#CURR#$"};
using ToEntry = SingleLink<kLinkToEntry, kToEntry>;

// ---- RT42: the list, then "&Add", "&Change", "&Delete", "C&lose", "&Help" ----

inline constexpr u32 kListControl = 593;
// A list row: per column six display bytes and the value.
inline constexpr u32 kCodeAt = 6;
inline constexpr u32 kNameAt = kCodeAt + kCode + 6;
inline constexpr u32 kListRowSize = kNameAt + kName;
inline constexpr ListColumnRow kListColumns[] = {
    {(2u << 16) | 9u, (2u << 16) | 64u, 64, 'L', kCodeAt, kCodeAt + kCode, kCodeType, 0, 591,
     {0, 0}},
    {(2u << 16) | 66u, (2u << 16) | 300u, 302, 'L', kNameAt, kListRowSize, kNameType, 0, 592,
     {0, 0}},
    {},
};
inline constexpr ListDescriptor kList = {(kListRowSize << 16) | kTagList, kListColumns, 0,
                                         nullptr};
inline constexpr const char* kListColumnNames[] = {"GRP_EXPORT.LITHOLOGIC_UNIT.TSMLTHUN_CD",
                                                   "GRP_EXPORT.LITHOLOGIC_UNIT.NAME", nullptr};
inline constexpr auto kWithRowRules = ListRules<kListControl>::kWithRowRules;
inline constexpr auto kWithoutRowRules = ListRules<kListControl>::kWithoutRowRules;

inline constexpr ControlDecl kListControls[] = {
    ListBox(kListControl, "ListBox1", &kList, kListColumnNames,
            "GRP_EXPORT_SEL.RUNTIME_SUPPLIED.SELECT_CHAR", List::DoubleClick, List::Click),
    Button(594, "Button1", EventDecl{"Click", List::Add, "ADD", ' '}, kWithoutRowRules),
    Button(595, "Button2", EventDecl{"Click", List::Change, "CHANGE", ' '}, kWithRowRules),
    Button(596, "Button3", Click(List::Delete), kWithRowRules),
    Button(597, "Button4", Click(List::Close)),
    HelpButton(598, "Button5"),
};
inline constexpr WindowDecl kListWindow =
    DeclareWindow(kListProcedureId, 590, "SD", "RT42_LITHOLOGIC_UNIT_MAINT_LIST", kListViews,
                  kListControls);

// ---- RT42A: the row in hand, read-only, then "&Delete", "Cance&l", "&Help" ----

inline constexpr ControlDecl kDeleteControls[] = {
    Field(582, "TSMLTHUN_CD1", &kShownField<kCodeType>, 581,
          "EXPORT_SELECTED.LITHOLOGIC_UNIT.TSMLTHUN_CD"),
    Field(584, "NAME1", &kShownField<kNameType>, 583, "EXPORT_SELECTED.LITHOLOGIC_UNIT.NAME"),
    Button(585, "Button1", Click(List::ConfirmDelete)),
    Button(586, "Button2", Click(List::CancelDelete)),
    HelpButton(587, "Button3"),
};
inline constexpr WindowDecl kDeleteWindow =
    DeclareWindow(kListProcedureId, 580, "DD", kDeleteWindowName, kListViews, kDeleteControls);

// ---- RT43: "USGS Code", "Name", "Date of Last Update", "Updated By", then
// "Accep&t", "Cance&l", "&Help" ----

inline constexpr ControlDecl kEntryControls[] = {
    Field(231, "TSMLTHUN_CD1", &kEntryField<kCodeType>, 230,
          "EXPORT.LITHOLOGIC_UNIT.TSMLTHUN_CD"),
    Field(233, "NAME1", &kEntryField<kNameType>, 232, "EXPORT.LITHOLOGIC_UNIT.NAME"),
    Field(235, "D_LAST_UPDATE_TIMESTAMP1", &kShownField<kTimestampType>, 234,
          "EXPORT.LITHOLOGIC_UNIT.D_LAST_UPDATE_TIMESTAMP"),
    Field(237, "D_USERID_CODE1", &kShownField<kStampUserType>, 236,
          "EXPORT.LITHOLOGIC_UNIT.D_USERID_CODE"),
    Button(238, "Button1", Click(StepAs<Entry::Accept, kAcceptId>, 'Y')),
    Button(239, "Button2", Click(StepAs<Entry::Cancel, kCancelId>)),
    HelpButton(240, "Button3"),
};
inline constexpr WindowDecl kEntryWindow =
    DeclareWindow(kEntryProcedureId, 229, "SD", "RT43_LITHOLOGIC_UNIT_DATA_ENTRY", kEntryViews,
                  kEntryControls, {"Open", StepAs<Entry::Open, kEntryOpenId>});

// ---- The module ----

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<ListDictionary, kListViews, kListWindow, kDeleteWindow>(
        List::Body, kListTitle, {ToEntry::state, ToEntry::kExits, ToEntry::kFlows}),
    head::DeclareProcedure<EntryDictionary, kEntryViews, kEntryWindow>(Entry::Body, kEntryTitle),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::lithologic_unit

#endif  // WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_H_
