// The standard industrial class module as the head tables take it:
// RT32_STND_INDSTRL_CD_MAINT_LIST (676), with its list window (dialog 689)
// and the delete dialog RT32A (679), and RT33_STND_INDST_SIC_DATA_ENTRY
// (346), with its window (dialog 349), over table TSMSIC. Every control is
// declared once here; its rows, bindings and events are derived
// (frame/window_decl.h), and the procedures are placed in the head tables
// from kModule.
//
// RT32's Prev and Next carry the keywords "PREV" and "NEXT". Its Delete
// carries "DELETE" and the dialog id 679 in its control row: the press
// opens RT32A with no event action (DialogButton). Add is enabled only while
// the list has no selected row, Change and Delete only while it has one.
#ifndef WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_H_
#define WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_H_

#include "frame/design_rows.h"
#include "frame/head/module_decl.h"
#include "frame/tables.h"
#include "frame/window_decl.h"
#include "modules/standard_industrial_class/standard_industrial_class_units.h"
#include "modules/standard_industrial_class/standard_industrial_class_views.h"

namespace lk::standard_industrial_class {

inline constexpr char kListTitle[] = "RT32 Standard Industrial Class Maintenance List";
inline constexpr char kEntryTitle[] = "RT33 Standard Industrial Class Data Entry";
inline constexpr u32 kDeleteDialogId = 679;

// The dictionaries, and the flow from the list to the data entry window:
// the row in hand, SYSTEM_VARIABLE, COMMAND and SUBSCRIPT go; the window's
// row comes back onto the row in hand.
inline constexpr ViewNameRow kListViews = {"RT32_STND_INDSTRL_CD_MAINT_LIST",
                                           ListDictionary::kViewRows, ListDictionary::kGroupRows,
                                           kListProcedureId};
inline constexpr ViewNameRow kEntryViews = {"RT33_STND_INDST_SIC_DATA_ENTRY",
                                            EntryDictionary::kViewRows, EntryDictionary::kGroupRows,
                                            kEntryProcedureId};
using ToEntryPairs = patterns::ListToEntryFlow<SicForms, kEntity>;
inline constexpr FlowBinding kToEntry = {&kListViews, &kEntryViews, ToEntryPairs::kSend.data(),
                                         ToEntryPairs::kReceive.data()};
inline constexpr LinkDecl kLinkToEntry = {EXIT_LINK_RT33, (0x0321u << 16) | 0x00E4,
                                          kEntryProcedureId, "RT33_STND_INDST_SIC_DATA_ENTRY",
                                          kReturnsOnReturn, "E", "$#CURR#$", "E", "$#CURR#$"};
using ToEntry = SingleLink<kLinkToEntry, kToEntry>;

// ---- RT32: column heads "Code", "Name", the list, "&Prev", "&Next", then
// "&Add", "&Change", "&Delete", "C&lose", "&Help" ----

inline constexpr u32 kList = 692;
inline constexpr u32 kListDependants[] = {(695u << 16) | 4, (696u << 16) | 4, (697u << 16) | 4,
                                          0xFFFF0000u};
// A row: per column six display bytes and the value.
inline constexpr u32 kCodeAt = kDisplayWidth;
inline constexpr u32 kNameAt = kCodeAt + 5 + kDisplayWidth;
inline constexpr u32 kRowSize = kNameAt + 121;
inline constexpr ListColumnRow kListColumns[] = {
    {(9u << 16) | 9u, (9u << 16) | 50u, 44, 'L', kCodeAt, kCodeAt + 5, kCodeType, 0, 690,
     {0, 0}},
    {(9u << 16) | 52u, (9u << 16) | 300u, 254, 'L', kNameAt, kRowSize, kNameType, 0, 691,
     {0, 0}},
    {},
};
inline constexpr ListDescriptor kListDescriptor = {(kRowSize << 16) | kTagList, kListColumns, 0,
                                                   nullptr};
inline constexpr const char* kListColumnNames[] = {
    "EXPORT_LIST.STANDARD_INDUSTRIAL_CLASS.TSMSIC_CODE",
    "EXPORT_LIST.STANDARD_INDUSTRIAL_CLASS.NAME", nullptr};
inline constexpr auto kAddRules = ListRules<kList>::kWithoutRowRules;
inline constexpr auto kRowRules = ListRules<kList>::kWithRowRules;

inline constexpr ControlDecl kListControls[] = {
    ListBox(kList, "ListBox1", &kListDescriptor, kListColumnNames,
            "EXPORT_LIST.RUNTIME_SUPPLIED.SELECT_CHAR", StepAs<List::DoubleClick, kDoubleClickId>,
            StepAs<List::Click, kClickId>, kListDependants),
    ScrollButton(693, "Button6", kButton, "PREV", 1501, StepAs<List::Prev, kPrevId>),
    ScrollButton(694, "Button7", kButton, "NEXT", 1497, StepAs<List::Next, kNextId>),
    Button(695, "Button1", Click(StepAs<List::Add, kAddId>), kAddRules),
    Button(696, "Button2", Click(StepAs<List::Change, kChangeId>), kRowRules),
    DialogButton(697, "Button3", "DELETE", 1491, kDeleteDialogId, kRowRules),
    Button(698, "Button4", Click(StepAs<List::Close, kCloseId>)),
    HelpButton(699, "Button5"),
};
inline constexpr WindowDecl kListWindow = DeclareWindow(
    kListProcedureId, 689, "SD", "RT32_STND_INDSTRL_CD_MAINT_LIST", kListViews, kListControls);

// ---- RT32A: the row in hand, read-only, then "&Delete", "Cance&l", "&Help" ----

inline constexpr ControlDecl kDeleteControls[] = {
    Field(681, "TSMSIC_CODE1", &kShownField<kCodeType>, 680,
          "EXPORT_CURRENT.STANDARD_INDUSTRIAL_CLASS.TSMSIC_CODE"),
    Field(683, "NAME1", &kShownField<kNameType>, 682,
          "EXPORT_CURRENT.STANDARD_INDUSTRIAL_CLASS.NAME"),
    Button(684, "Button1", Click(StepAs<List::ConfirmDelete, kDialogDeleteId>)),
    Button(685, "Button2", Click(StepAs<List::CancelDelete, kDialogCancelId>)),
    HelpButton(686, "Button3"),
};
inline constexpr WindowDecl kDeleteWindow = DeclareWindow(
    kListProcedureId, kDeleteDialogId, "DD", kDeleteWindowName, kListViews, kDeleteControls);

// ---- RT33: "SIC Code", "Name", then the stamp, read-only ----

// The Changed events of both fields, and the window's Close, set the
// changed flag; a field's Changed reads the window first, so that what was
// typed stays in the view.
inline constexpr ControlDecl kEntryControls[] = {
    Field(351, "TSMSIC_CODE1", &kEntryField<kCodeType>, 350,
          "EXPORT.STANDARD_INDUSTRIAL_CLASS.TSMSIC_CODE",
          {"Changed", StepAs<Entry::Changed, kChangedId>, nullptr, 'Y'}),
    Field(353, "NAME1", &kEntryField<kNameType>, 352, "EXPORT.STANDARD_INDUSTRIAL_CLASS.NAME",
          {"Changed", StepAs<Entry::Changed, kChangedId>, nullptr, 'Y'}),
    Field(355, "D_LAST_UPDATE_TIMESTAMP1", &kShownField<kTimestampType>, 354,
          "EXPORT.STANDARD_INDUSTRIAL_CLASS.D_LAST_UPDATE_TIMESTAMP"),
    Field(357, "D_USERID_CODE1", &kShownField<kStampUserType>, 356,
          "EXPORT.STANDARD_INDUSTRIAL_CLASS.D_USERID_CODE"),
    Button(358, "Button1", Click(StepAs<Entry::Accept, kAcceptId>, 'Y')),
    Button(359, "Button2", Click(StepAs<Entry::Cancel, kCancelId>)),
    HelpButton(360, "Button3"),
};
inline constexpr WindowDecl kEntryWindow =
    DeclareWindow(kEntryProcedureId, 349, "SD", "RT33_STND_INDST_SIC_DATA_ENTRY", kEntryViews,
                  kEntryControls, {"Close", StepAs<Entry::Changed, kChangedId>});

// ---- The module ----

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<ListDictionary, kListViews, kListWindow, kDeleteWindow>(
        List::Body, kListTitle, {ToEntry::state, ToEntry::kExits, ToEntry::kFlows}),
    head::DeclareProcedure<EntryDictionary, kEntryViews, kEntryWindow>(Entry::Body, kEntryTitle),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::standard_industrial_class

#endif  // WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_H_
