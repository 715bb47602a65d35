// The biological part module as the head tables take it:
// RT48_BIO_PART_MAINT_LIST (id 744; its list window, dialog 747, and the
// delete dialog RT48A, dialog 759) and RT49_BIO_PART_DATA_ENTRY (id 1244;
// dialog 1247), over table TSRBIOPT. Every control is declared once here;
// its rows, bindings and events are derived (frame/window_decl.h), and the
// procedures are placed in the head tables from kModule.
//
// RT48 is a list without paging (patterns/plain_list_units.h) that shows
// every organisation's parts by name, at most 200; RT49 an Open-style data
// entry window (patterns/open_entry.h) reached by the flow of exit state
// EXIT_LINK_RT49 in display mode, whose return keeps the COMMAND that RT49
// set ("RETURN"); RT48A a delete confirmation (patterns/delete_dialog.h)
// that drops the row only when the remove left EXIT_NONE. The maintenance
// buttons raise their Click and carry the keywords "ADD", "CHANGE" and
// "DELETE", by which the list enables and disables them itself
// (patterns/list_buttons.h). The list's Click and DoubleClick read the
// window first, so that the row marks in the view are those on the screen.
#ifndef WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_H_
#define WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_H_

#include "frame/design_rows.h"
#include "frame/head/module_decl.h"
#include "frame/tables.h"
#include "frame/window_decl.h"
#include "modules/biological_part/biological_part_units.h"
#include "modules/biological_part/biological_part_views.h"

namespace lk::biological_part {

inline constexpr char kListTitle[] = "RT48 Biological Part Maintenance List";
inline constexpr char kEntryTitle[] = "RT49 Biological Part Data Entry";
inline constexpr char kDeleteWindowName[] = "RT48A_DELTE_BIOLOGICAL_PART_CONF";

// The dictionaries, and the flow from RT48 to RT49 in display mode: the row
// in hand and SYSTEM_VARIABLE go; the row that RT49 shows comes back onto
// the row in hand, so that the list finds it again.
inline constexpr ViewNameRow kListViews = {"RT48_BIO_PART_MAINT_LIST",
                                           ListDictionary::kViewRows, ListDictionary::kGroupRows,
                                           kListProcedureId};
inline constexpr ViewNameRow kEntryViews = {"RT49_BIO_PART_DATA_ENTRY",
                                            EntryDictionary::kViewRows,
                                            EntryDictionary::kGroupRows, kEntryProcedureId};
using ToEntryPairs = patterns::StackToEntryFlow<BioPartListForms, kEntity>;
inline constexpr FlowBinding kToEntry = {&kListViews, &kEntryViews, ToEntryPairs::kSend.data(),
                                         ToEntryPairs::kReceive.data()};
inline constexpr LinkDecl kLinkToEntry = {EXIT_LINK_RT49, (0x0001u << 16) | 0x00E4,
                                          kEntryProcedureId, "RT49_BIO_PART_DATA_ENTRY",
                                          kReturnsOnCancel, "D", "$#CURR#$", "E", "$#CURR#$"};
using ToEntry = SingleLink<kLinkToEntry, kToEntry>;

// ---- RT48: the list, then "&Add", "&Change", "&Delete", "C&lose", "&Help" ----

inline constexpr u32 kListControl = 750;
// A list row: six display bytes and the name.
inline constexpr u32 kListRowSize = 6 + kName;
inline constexpr ListColumnRow kListColumns[] = {
    {(18u << 16) | 9u, (18u << 16) | 160u, 278, 'L', 6, kListRowSize, kNameType, 0, 748,
     {0, 0}},
    {},
};
inline constexpr ListDescriptor kList = {(kListRowSize << 16) | kTagList, kListColumns, 0,
                                         nullptr};
inline constexpr const char* kListColumnNames[] = {"GRP_EXPORT.BIOLOGICAL_PART.NAME", nullptr};
inline constexpr auto kWithRowRules = ListRules<kListControl>::kWithRowRules;
inline constexpr auto kWithoutRowRules = ListRules<kListControl>::kWithoutRowRules;

inline constexpr ControlDecl kListControls[] = {
    ListBox(kListControl, "ListBox1", &kList, kListColumnNames,
            "GRP_EXPORT_SEL.RUNTIME_SUPPLIED.SELECT_CHAR",
            StepAs<List::DoubleClick, kDoubleClickId>,
            StepAs<List::Click, kClickId>),
    NamedButton(751, "Button1", "ADD", 1457, Click(StepAs<List::Add, kAddId>), kWithoutRowRules),
    NamedButton(752, "Button2", "CHANGE", 1412, Click(StepAs<List::Change, kChangeId>),
                kWithRowRules),
    NamedButton(753, "Button3", "DELETE", 1491, Click(StepAs<List::Delete, kDeleteId>),
                kWithRowRules),
    Button(754, "Button4", Click(StepAs<List::Close, kCloseId>)),
    HelpButton(755, "Button5"),
};
inline constexpr WindowDecl kListWindow =
    DeclareWindow(kListProcedureId, 747, "SD", "RT48_BIO_PART_MAINT_LIST", kListViews,
                  kListControls, {"Open", StepAs<List::Open, kOpenId>});

// ---- RT48A: the row in hand, read-only, then "&Delete", "Cance&l", "&Help" ----

inline constexpr ControlDecl kDeleteControls[] = {
    Field(761, "NAME1", &kShownField<kNameType>, 760, "EXPORT_SELECTED.BIOLOGICAL_PART.NAME"),
    Button(762, "Button1", Click(StepAs<List::ConfirmDelete, kConfirmId>)),
    Button(763, "Button2", Click(StepAs<List::CancelDelete, kDismissId>)),
    HelpButton(764, "Button3"),
};
inline constexpr WindowDecl kDeleteWindow =
    DeclareWindow(kListProcedureId, 759, "DD", kDeleteWindowName, kListViews, kDeleteControls);

// ---- RT49: "Name", "Date of Last Update", "Updated By", then "Accep&t",
// "Cance&l", "&Help" ----

inline constexpr ControlDecl kEntryControls[] = {
    Field(1249, "NAME1", &kEntryField<kNameType>, 1248, "EXPORT.BIOLOGICAL_PART.NAME"),
    Field(1251, "D_LAST_UPDATE_TIMESTAMP1", &kShownField<kTimestampType>, 1250,
          "EXPORT.BIOLOGICAL_PART.D_LAST_UPDATE_TIMESTAMP"),
    Field(1253, "D_USERID_CODE1", &kShownField<kStampUserType>, 1252,
          "EXPORT.BIOLOGICAL_PART.D_USERID_CODE"),
    Button(1254, "Button1", Click(StepAs<Entry::Accept, kAcceptId>, 'Y')),
    Button(1255, "Button2", Click(StepAs<Entry::Cancel, kCancelId>)),
    HelpButton(1256, "Button3"),
};
inline constexpr WindowDecl kEntryWindow =
    DeclareWindow(kEntryProcedureId, 1247, "SD", "RT49_BIO_PART_DATA_ENTRY", kEntryViews,
                  kEntryControls, {"Open", StepAs<Entry::Open, kEntryOpenId>});

// ---- The module ----

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<ListDictionary, kListViews, kListWindow, kDeleteWindow>(
        List::Body, kListTitle, {ToEntry::state, ToEntry::kExits, ToEntry::kFlows}),
    head::DeclareProcedure<EntryDictionary, kEntryViews, kEntryWindow>(Entry::Body, kEntryTitle),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::biological_part

#endif  // WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_H_
