// The geologic unit module as the head tables take it:
// RT46_GEOLOGIC_UNIT_MAINT_LIST (id 1008; its list window, dialog 1021, and
// the delete dialog RT46A, dialog 1011, whose window name is spelled
// "DELTE") and RT47_GEOLOGIC_UNIT_DATA_ENTRY (id 290; dialog 293), over
// table TSMGEOUN. Every control is declared once here; its rows, bindings
// and events are derived (frame/window_decl.h), and the procedures are
// placed in the head tables from kModule.
//
// RT46 is a stack-style list (geologic_unit_units.h) with a Search group
// whose "&Search" button reads the window first, and "&Prev" and "&Next"
// buttons that carry the keywords "PREV" and "NEXT", by which the list
// enables and disables them. RT47 is an Open-style window reached by the
// flow of exit state EXIT_LINK_RT47 in display mode, which comes back on
// EXIT_CANCEL with the COMMAND "RETURN"; its Type Code is a drop-down of
// "Hydrologic", "Geologic", "Both", whose values are "H", "G", "B". Add is
// enabled only while the list has no selected row, Change and Delete only
// while it has one.
#ifndef WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_H_
#define WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_H_

#include "frame/design_rows.h"
#include "frame/head/module_decl.h"
#include "frame/tables.h"
#include "frame/window_decl.h"
#include "modules/geologic_unit/geologic_unit_units.h"
#include "modules/geologic_unit/geologic_unit_views.h"
#include "patterns/stack_views.h"

namespace lk::geologic_unit {

inline constexpr char kListTitle[] = "RT46 Geologic Unit Maintenance List";
inline constexpr char kEntryTitle[] = "RT47 Geologic Unit Data Entry";
inline constexpr char kDeleteWindowName[] = "RT46A_DELTE_GEOLOGIC_UNIT_CONFIR";

// The dictionaries, and the flow from RT46 to RT47 in display mode: the row
// in hand and SYSTEM_VARIABLE go; the row that RT47 shows comes back onto
// the row in hand, so that the list finds it again.
inline constexpr ViewNameRow kListViews = {"RT46_GEOLOGIC_UNIT_MAINT_LIST",
                                           ListDictionary::kViewRows.data(),
                                           ListDictionary::kGroupRows, kListProcedureId};
inline constexpr ViewNameRow kEntryViews = {"RT47_GEOLOGIC_UNIT_DATA_ENTRY",
                                            EntryDictionary::kViewRows,
                                            EntryDictionary::kGroupRows, kEntryProcedureId};
using ToEntryPairs = patterns::StackToEntryFlow<UnitListForms, kEntity>;
inline constexpr FlowBinding kToEntry = {&kListViews, &kEntryViews, ToEntryPairs::kSend.data(),
                                         ToEntryPairs::kReceive.data()};
inline constexpr LinkDecl kLinkToEntry = {EXIT_LINK_RT47, (0x0461u << 16) | 0x00E4,
                                          kEntryProcedureId, "RT47_GEOLOGIC_UNIT_DATA_ENTRY",
                                          kReturnsOnCancel, "D", "$#CURR#$", "E", "RETURN"};
using ToEntry = SingleLink<kLinkToEntry, kToEntry>;

// ---- RT46: the Search group, the list, "&Prev", "&Next", then "&Add",
// "&Change", "&Delete", "C&lose", "&Help" ----

inline constexpr u32 kListControl = 1032;
// A list row: per column six display bytes and the value.
inline constexpr u32 kCodeAt = 6;
inline constexpr u32 kTypeAt = kCodeAt + kCode + 6;
inline constexpr u32 kStateAt = kTypeAt + 2 + 6;
inline constexpr u32 kNameAt = kStateAt + 3 + 6;
inline constexpr u32 kListRowSize = kNameAt + kName;
inline constexpr ListColumnRow kListColumns[] = {
    {(54u << 16) | 9u, (54u << 16) | 58u, 58, 'L', kCodeAt, kCodeAt + kCode, kCodeType, 0, 1028,
     {0, 0}},
    {(54u << 16) | 60u, (54u << 16) | 106u, 106, 'L', kTypeAt, kTypeAt + 2, kTypeCodeType, 0,
     1029, {0, 0}},
    {(54u << 16) | 108u, (54u << 16) | 154u, 154, 'L', kStateAt, kStateAt + 3, kStateCodeType, 0,
     1030, {0, 0}},
    {(54u << 16) | 156u, (54u << 16) | 300u, 302, 'L', kNameAt, kListRowSize, kNameType, 0, 1031,
     {0, 0}},
    {},
};
inline constexpr ListDescriptor kList = {(kListRowSize << 16) | kTagList, kListColumns, 0,
                                         nullptr};
inline constexpr const char* kListColumnNames[] = {
    "GRP_EXPORT.GEOLOGIC_UNIT.TSMGEOUN_CD", "GRP_EXPORT.GEOLOGIC_UNIT.TYPE_CODE",
    "GRP_EXPORT.GEOLOGIC_UNIT.STATE_CODE", "GRP_EXPORT.GEOLOGIC_UNIT.NAME", nullptr};
inline constexpr auto kWithRowRules = ListRules<kListControl>::kWithRowRules;
inline constexpr auto kWithoutRowRules = ListRules<kListControl>::kWithoutRowRules;

inline constexpr ControlDecl kListControls[] = {
    Field(1024, "TSMGEOUN_CD1", &kEntryField<kCodeType>, 1023,
          "EXPORT_SEARCH.GEOLOGIC_UNIT.TSMGEOUN_CD"),
    Field(1026, "NAME1", &kEntryField<kNameType>, 1025, "EXPORT_SEARCH.GEOLOGIC_UNIT.NAME"),
    Button(1027, "Button6", Click(List::Search, 'Y')),
    ListBox(kListControl, "ListBox1", &kList, kListColumnNames,
            "GRP_EXPORT_SEL.RUNTIME_SUPPLIED.SELECT_CHAR", List::DoubleClick, List::Click),
    ScrollButton(1033, "Button7", kButton, "PREV", 1501, List::Up),
    ScrollButton(1034, "Button8", kButton, "NEXT", 1497, List::Down),
    Button(1035, "Button1", Click(List::Add), kWithoutRowRules),
    Button(1036, "Button2", Click(List::Change), kWithRowRules),
    Button(1037, "Button3", Click(List::Delete), kWithRowRules),
    Button(1038, "Button4", Click(List::Close)),
    HelpButton(1039, "Button5"),
};
inline constexpr WindowDecl kListWindow =
    DeclareWindow(kListProcedureId, 1021, "SD", "RT46_GEOLOGIC_UNIT_MAINT_LIST", kListViews,
                  kListControls, {"Open", List::Open});

// ---- RT46A: the row in hand, read-only, then "&Delete", "Cance&l", "&Help" ----

inline constexpr ControlDecl kDeleteControls[] = {
    Field(1013, "TSMGEOUN_CD1", &kShownField<kCodeType>, 1012,
          "EXPORT_SELECTED.GEOLOGIC_UNIT.TSMGEOUN_CD"),
    Field(1015, "NAME1", &kShownField<kNameType>, 1014, "EXPORT_SELECTED.GEOLOGIC_UNIT.NAME"),
    Button(1016, "Button1", Click(List::ConfirmDelete)),
    Button(1017, "Button2", Click(List::CancelDelete)),
    HelpButton(1018, "Button3"),
};
inline constexpr WindowDecl kDeleteWindow =
    DeclareWindow(kListProcedureId, 1011, "DD", kDeleteWindowName, kListViews, kDeleteControls);

// ---- RT47: "USGS Code", "State Code", "Type Code", "Name", "Date of Last
// Update", "Updated By", then "Accep&t", "Cance&l", "&Help" ----

// The drop-down's items: item n in the high half, the string of its text in
// the low half; its values "H", "G", "B" in the same order.
inline constexpr u32 kTypeItems[] = {(1u << 16) | 309u, (2u << 16) | 310u, (3u << 16) | 311u, 0};
inline constexpr ValueDictionary kTypeValues = {kTypeCodes, "S ", 1, 0, nullptr, 0};
inline constexpr ItemDescriptor kTypeDropDown = {kTagDropDown, kTypeItems, &kTypeValues};

inline constexpr ControlDecl kEntryControls[] = {
    Field(295, "TSMGEOUN_CD1", &kEntryField<kCodeType>, 294,
          "EXPORT.GEOLOGIC_UNIT.TSMGEOUN_CD"),
    Field(297, "STATE_CODE1", &kEntryField<kStateCodeType>, 296,
          "EXPORT.GEOLOGIC_UNIT.STATE_CODE"),
    Field(299, "TYPE_CODE1", &kTypeDropDown, 298, "EXPORT.GEOLOGIC_UNIT.TYPE_CODE"),
    Field(301, "NAME1", &kEntryField<kNameType>, 300, "EXPORT.GEOLOGIC_UNIT.NAME"),
    Field(303, "D_LAST_UPDATE_TIMESTAMP1", &kShownField<kTimestampType>, 302,
          "EXPORT.GEOLOGIC_UNIT.D_LAST_UPDATE_TIMESTAMP"),
    Field(305, "D_USERID_CODE1", &kShownField<kStampUserType>, 304,
          "EXPORT.GEOLOGIC_UNIT.D_USERID_CODE"),
    Button(306, "Button1", Click(StepAs<Entry::Accept, kAcceptId>, 'Y')),
    Button(307, "Button2", Click(StepAs<Entry::Cancel, kCancelId>)),
    HelpButton(308, "Button3"),
};
inline constexpr WindowDecl kEntryWindow =
    DeclareWindow(kEntryProcedureId, 293, "SD", "RT47_GEOLOGIC_UNIT_DATA_ENTRY", kEntryViews,
                  kEntryControls, {"Open", StepAs<Entry::Open, kEntryOpenId>});

// ---- The module ----

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<ListDictionary, kListViews, kListWindow, kDeleteWindow>(
        List::Body, kListTitle, {ToEntry::state, ToEntry::kExits, ToEntry::kFlows}),
    head::DeclareProcedure<EntryDictionary, kEntryViews, kEntryWindow>(Entry::Body, kEntryTitle),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::geologic_unit

#endif  // WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_H_
