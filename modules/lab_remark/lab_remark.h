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
#include "modules/lab_remark/lab_remark_units.h"
#include "modules/lab_remark/lab_remark_views.h"

namespace lk::lab_remark {

inline constexpr char kListTitle[] = "RT50 Lab Remark Maintenance List";
inline constexpr char kEntryTitle[] = "RT51 Lab Remark Data Entry";
inline constexpr char kDeleteWindowName[] = "RT50A_DLETE_LAB_REMARK_CONFIRMAT";

// The dictionaries, and the flow from RT50 to RT51 in display mode: the row
// in hand and SYSTEM_VARIABLE go; the row that RT51 shows comes back onto
// the row in hand, so that the list finds it again.
inline constexpr ViewNameRow kListViews = {"RT50_LAB_REMARK_MAINT_LIST",
                                           ListDictionary::kViewRows, ListDictionary::kGroupRows,
                                           kListProcedureId};
inline constexpr ViewNameRow kEntryViews = {"RT51_LAB_REMARK_DATA_ENTRY",
                                            EntryDictionary::kViewRows,
                                            EntryDictionary::kGroupRows, kEntryProcedureId};
using ToEntryPairs = patterns::StackToEntryFlow<RemarkListForms, kEntity>;
inline constexpr FlowBinding kToEntry = {&kListViews, &kEntryViews, ToEntryPairs::kSend.data(),
                                         ToEntryPairs::kReceive.data()};
inline constexpr LinkDecl kLinkToEntry = {EXIT_LINK_RT51, (0x0001u << 16) | 0x00E4,
                                          kEntryProcedureId, "RT51_LAB_REMARK_DATA_ENTRY",
                                          kReturnsOnCancel, "D", "$#CURR#$", "E", "RETURN"};
using ToEntry = SingleLink<kLinkToEntry, kToEntry>;

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
            "GRP_EXPORT_SEL.RUNTIME_SUPPLIED.SELECT_CHAR",
            StepAs<List::DoubleClick, kDoubleClickId>,
            StepAs<List::Click, kClickId>),
    Button(371, "Button1", Click(StepAs<List::Add, kAddId>), kWithoutRowRules),
    Button(372, "Button2", Click(StepAs<List::Change, kChangeId>), kWithRowRules),
    Button(373, "Button3", Click(StepAs<List::Delete, kDeleteId>), kWithRowRules),
    Button(374, "Button4", Click(StepAs<List::Close, kCloseId>)),
    HelpButton(375, "Button5"),
};
inline constexpr WindowDecl kListWindow =
    DeclareWindow(kListProcedureId, 366, "SD", "RT50_LAB_REMARK_MAINT_LIST", kListViews,
                  kListControls, {"Open", StepAs<List::Open, kOpenId>});

// ---- RT50A: the row in hand, read-only, then "&Delete", "Cance&l", "&Help" ----

inline constexpr ControlDecl kDeleteControls[] = {
    Field(385, "SHORT_NAME1", &kShownField<kShortNameType>, 384,
          "EXPORT_SELECTED.LAB_REMARK.SHORT_NAME"),
    Field(387, "DESCRIPTION_TEXT1", &kShownField<kDescriptionType>, 386,
          "EXPORT_SELECTED.LAB_REMARK.DESCRIPTION_TEXT"),
    Button(388, "Button1", Click(StepAs<List::ConfirmDelete, kConfirmId>)),
    Button(389, "Button2", Click(StepAs<List::CancelDelete, kDismissId>)),
    HelpButton(390, "Button3"),
};
inline constexpr WindowDecl kDeleteWindow =
    DeclareWindow(kListProcedureId, 383, "DD", kDeleteWindowName, kListViews, kDeleteControls);

// ---- RT51: "IS Number", "Short Name", "Description ", "Date of Last
// Update", "Updated By", then "Accep&t", "Cance&l", "&Help" ----

inline constexpr ControlDecl kEntryControls[] = {
    Field(994, "TSRLBRMK_IS_NUMBER1", &kShownField<kIsNumberType>, 993,
          "EXPORT.LAB_REMARK.TSRLBRMK_IS_NUMBER"),
    Field(996, "SHORT_NAME1", &kEntryField<kShortNameType>, 995, "EXPORT.LAB_REMARK.SHORT_NAME"),
    Field(998, "DESCRIPTION_TEXT1", &kEntryField<kDescriptionType>, 997,
          "EXPORT.LAB_REMARK.DESCRIPTION_TEXT"),
    Field(1000, "D_LAST_UPDATE_TIMESTAMP1", &kShownField<kTimestampType>, 999,
          "EXPORT.LAB_REMARK.D_LAST_UPDATE_TIMESTAMP"),
    Field(1002, "D_USERID_CODE1", &kShownField<kStampUserType>, 1001,
          "EXPORT.LAB_REMARK.D_USERID_CODE"),
    Button(1003, "Button1", Click(StepAs<Entry::Accept, kAcceptId>, 'Y')),
    Button(1004, "Button2", Click(StepAs<Entry::Cancel, kCancelId>)),
    HelpButton(1005, "Button3"),
};
inline constexpr WindowDecl kEntryWindow =
    DeclareWindow(kEntryProcedureId, 992, "SD", "RT51_LAB_REMARK_DATA_ENTRY", kEntryViews,
                  kEntryControls, {"Open", StepAs<Entry::Open, kEntryOpenId>});

// ---- The module ----

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<ListDictionary, kListViews, kListWindow, kDeleteWindow>(
        List::Body, kListTitle, {ToEntry::state, ToEntry::kExits, ToEntry::kFlows}),
    head::DeclareProcedure<EntryDictionary, kEntryViews, kEntryWindow>(Entry::Body, kEntryTitle),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::lab_remark

#endif  // WATRIX_MODULES_LAB_REMARK_LAB_REMARK_H_
