// The unit of measure module as the head tables take it:
// RT34_UNIT_OF_MEASURE_MAINT_LIST (1259; list window 1274, delete dialog
// RT34A 1262), RT35_UNIT_OF_MEASURE_DATA_ENTRY (645; dialog 648) and
// UOM1_UNIT_OF_MEASURE_PREVIEW (392; dialog 395, unit_of_measure_preview.h),
// over table TSRUOM. Every control is declared once here; its rows,
// bindings and events are derived (frame/window_decl.h).
//
// RT34's list shows the type, the short form and the description; its
// picture buttons Prev and Next are scroll buttons whose keywords "PREV" and
// "NEXT" name them for the control services and put that COMMAND in place.
// RT35's type is a combo box of the twelve unit types; the combo's Changed
// event and those of the two edit fields mark the row as changed.
#ifndef WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_H_
#define WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_H_

#include "frame/design_rows.h"
#include "frame/head/module_decl.h"
#include "frame/tables.h"
#include "frame/window_decl.h"
#include "modules/unit_of_measure/unit_of_measure_preview.h"
#include "modules/unit_of_measure/unit_of_measure_units.h"
#include "modules/unit_of_measure/unit_of_measure_views.h"

namespace lk::unit_of_measure {

inline constexpr char kListTitle[] = "RT34 Unit Of Measure Maintenance List";
inline constexpr char kEntryTitle[] = "RT35 Unit Of Measure Data Entry";

inline constexpr ViewNameRow kListViews = {"RT34_UNIT_OF_MEASURE_MAINT_LIST",
                                           ListDictionary::kViewRows, ListDictionary::kGroupRows,
                                           kListProcedureId};
inline constexpr ViewNameRow kEntryViews = {"RT35_UNIT_OF_MEASURE_DATA_ENTRY",
                                            EntryDictionary::kViewRows,
                                            EntryDictionary::kGroupRows, kEntryProcedureId};
using ToEntryPairs = patterns::ListToEntryFlow<UomForms, kEntity>;
inline constexpr FlowBinding kToEntry = {&kListViews, &kEntryViews, ToEntryPairs::kSend.data(),
                                         ToEntryPairs::kReceive.data()};
inline constexpr LinkDecl kLinkToEntry = {EXIT_LINK_RT35, (0x0001u << 16) | 0x00E4,
                                          kEntryProcedureId, "RT35_UNIT_OF_MEASURE_DATA_ENTRY",
                                          kReturnsOnReturn, "E", "$#CURR#$", "E", "$#CURR#$"};
using ToEntry = SingleLink<kLinkToEntry, kToEntry>;

char* ListRowAddress(void* export_view, int row);

// ---- RT34: the list 1280 under the statics 1276 to 1278 ----

inline constexpr u32 kList = 1280;
inline constexpr u32 kListDependants[] = {(1283u << 16) | 4, (1284u << 16) | 4,
                                          (1285u << 16) | 4, 0xFFFF0000u};
// Type, short form, description: each six display bytes and its value.
inline constexpr u32 kTypeEnd = kDisplayWidth + 6;
inline constexpr u32 kShortEnd = kTypeEnd + kDisplayWidth + 11;
inline constexpr u32 kRowSize = kShortEnd + kDisplayWidth + 51;
inline constexpr ListColumnRow kListColumns[] = {
    {9u | (9u << 16), 40u | (9u << 16), 42, 'L', kDisplayWidth, kTypeEnd, kUomTypeType, 0, 1276,
     {0, 0}},
    {44u | (9u << 16), 90u | (9u << 16), 92, 'L', kTypeEnd + kDisplayWidth, kShortEnd,
     kShortFormType, 0, 1277, {0, 0}},
    {94u | (9u << 16), 230u | (9u << 16), 232, 'L', kShortEnd + kDisplayWidth, kRowSize,
     kDescriptionType, 0, 1278, {0, 0}},
    {},
};
inline constexpr ListDescriptor kListDescriptor = {(kRowSize << 16) | kTagList, kListColumns, 0,
                                                   ListRowAddress};
inline constexpr ScrollDescriptor kScrollUp = {kTagScroll, "UP", kList | (1u << 16), 0x41};
inline constexpr ScrollDescriptor kScrollDown = {kTagScroll, "DOWN", kList | (1u << 16), 0x41};
inline constexpr const char* kListColumnNames[] = {
    "EXPORT_LIST.UNIT_OF_MEASURE.UOM_TYPE", "EXPORT_LIST.UNIT_OF_MEASURE.SHORT_FORM_NAME",
    "EXPORT_LIST.UNIT_OF_MEASURE.DESCRIPTION_TEXT", nullptr};
inline constexpr auto kAddRules = ListRules<kList>::kWithoutRowRules;
inline constexpr auto kRowRules = ListRules<kList>::kWithRowRules;

inline constexpr ControlDecl kListControls[] = {
    ListBox(kList, "ListBox1", &kListDescriptor, kListColumnNames,
            "EXPORT_LIST.RUNTIME_SUPPLIED.SELECT_CHAR", StepAs<List::DoubleClick, kDoubleClickId>,
            StepAs<List::Click, kClickId>, kListDependants),
    ScrollButton(1281, "PictureButton1", &kScrollUp, "PREV", 1501, StepAs<List::Prev, kPrevId>),
    ScrollButton(1282, "PictureButton2", &kScrollDown, "NEXT", 1497,
                 StepAs<List::Next, kNextId>),
    Button(1283, "Button1", Click(StepAs<List::Add, kAddId>), kAddRules),
    Button(1284, "Button2", Click(StepAs<List::Change, kChangeId>), kRowRules),
    Button(1285, "Button3", Click(StepAs<List::Delete, kDeleteId>), kRowRules),
    Button(1286, "Button4", Click(StepAs<List::Close, kCloseId>)),
    HelpButton(1287, "Button5"),
};
inline constexpr WindowDecl kListWindow = DeclareWindow(
    kListProcedureId, 1274, "SD", "RT34_UNIT_OF_MEASURE_MAINT_LIST", kListViews, kListControls);

// ---- RT34A: the row in hand, read-only ----

inline constexpr ControlDecl kDeleteControls[] = {
    Field(1264, "UOM_TYPE1", &kShownField<kUomTypeType>, 1263,
          "EXPORT_CURRENT.UNIT_OF_MEASURE.UOM_TYPE"),
    Field(1266, "SHORT_FORM_NAME1", &kShownField<kShortFormType>, 1265,
          "EXPORT_CURRENT.UNIT_OF_MEASURE.SHORT_FORM_NAME"),
    Field(1268, "DESCRIPTION_TEXT1", &kShownField<kDescriptionType>, 1267,
          "EXPORT_CURRENT.UNIT_OF_MEASURE.DESCRIPTION_TEXT"),
    Button(1269, "Button1", Click(StepAs<List::ConfirmDelete, kDialogDeleteId>)),
    Button(1270, "Button2", Click(StepAs<List::CancelDelete, kDialogCancelId>)),
    HelpButton(1271, "Button3"),
};
inline constexpr WindowDecl kDeleteWindow =
    DeclareWindow(kListProcedureId, 1262, "DD", kDeleteWindowName, kListViews, kDeleteControls);

// ---- RT35: the type as a combo box of the unit types, the short form, the
// description, then the stamp ----

inline constexpr u32 kTypeItems[] = {
    (1u << 16) | 660,  (2u << 16) | 661,  (3u << 16) | 662,  (4u << 16) | 663,
    (5u << 16) | 664,  (6u << 16) | 665,  (7u << 16) | 666,  (8u << 16) | 667,
    (9u << 16) | 668,  (10u << 16) | 669, (11u << 16) | 670, (12u << 16) | 671, 0};
inline u32 type_values_cell = 0;
inline constexpr ValueDictionary kTypeValues = {kUomTypesChecked, "S ", 5, 0, &type_values_cell,
                                                0};
inline constexpr ItemDescriptor kTypeCombo = {kTagDropDown, kTypeItems, &kTypeValues};

inline constexpr ControlDecl kEntryControls[] = {
    Field(650, "UOM_TYPE1", &kTypeCombo, 649, "EXPORT.UNIT_OF_MEASURE.UOM_TYPE",
          {"Changed", StepAs<Entry::Changed, kTypeChangedId>, nullptr, 'Y'}),
    Field(652, "SHORT_FORM_NAME1", &kEntryField<kShortFormType>, 651,
          "EXPORT.UNIT_OF_MEASURE.SHORT_FORM_NAME",
          {"Changed", StepAs<Entry::Changed, kChangedId>, nullptr, 'Y'}),
    Field(654, "DESCRIPTION_TEXT1", &kEntryField<kDescriptionType>, 653,
          "EXPORT.UNIT_OF_MEASURE.DESCRIPTION_TEXT",
          {"Changed", StepAs<Entry::Changed, kChangedId>, nullptr, 'Y'}),
    Field(656, "D_LAST_UPDATE_TIMESTAMP1", &kShownField<kTimestampType>, 655,
          "EXPORT.UNIT_OF_MEASURE.D_LAST_UPDATE_TIMESTAMP"),
    Field(658, "D_USERID_CODE1", &kShownField<kStampUserType>, 657,
          "EXPORT.UNIT_OF_MEASURE.D_USERID_CODE"),
    Button(672, "Button1", Click(StepAs<Entry::Accept, kAcceptId>, 'Y')),
    Button(673, "Button2", Click(StepAs<Entry::Cancel, kCancelId>)),
    HelpButton(674, "Button3"),
};
inline constexpr WindowDecl kEntryWindow = DeclareWindow(
    kEntryProcedureId, 648, "SD", "RT35_UNIT_OF_MEASURE_DATA_ENTRY", kEntryViews, kEntryControls);

// ---- The module ----

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<ListDictionary, kListViews, kListWindow, kDeleteWindow>(
        List::Body, kListTitle, {ToEntry::state, ToEntry::kExits, ToEntry::kFlows}),
    head::DeclareProcedure<EntryDictionary, kEntryViews, kEntryWindow>(Entry::Body, kEntryTitle),
    // UOM1 has no title row among the view names: it is found by its name.
    head::DeclareProcedure<PreviewDictionary, kPreviewViews, kPreviewWindow>(Preview::Body,
                                                                             nullptr),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::unit_of_measure

#endif  // WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_H_
