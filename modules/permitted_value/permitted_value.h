// The permitted value module as the head tables take it: three procedures,
// RT2_PERMITTED_VALUE_MAINT_LIST (407) with the list window (dialog 410),
// the delete dialog RT2A (437) and the companion question RT2B (451);
// RT3_PERMITTED_VALUE_DATA_ENTRY (1326) with its window (1373) and the
// dialogs RT3E (1329), RT3B (1340), RT3F (1347), RT3C (1357), RT3D (1364)
// and RT3A (1399); RT54_MULTIPLE_TABLE_SELECTION (1223) with its window
// (1226). Every control is declared once here; its rows, bindings and
// events are derived (frame/window_decl.h).
//
// Links: RT2 to RT3 (0x3F400117) and RT2 and RT3 to RT54 (0x6B800198), each
// back on EXIT_RETURN with the COMMAND the target left. To RT3 go the row in
// hand (as the window's row and as the row first shown), the user and
// organisation, the mode, the pending action, the initial-add flag and the
// rows of other tables; back come the window's row, the mode and the flag.
// To RT54 go the row's names and value and the rows of other tables; back
// come those rows with their applied flags.
#ifndef WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_H_
#define WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_H_

#include "frame/design_rows.h"
#include "frame/head/module_decl.h"
#include "frame/tables.h"
#include "frame/transport/plan.h"
#include "frame/unit.h"
#include "frame/window_decl.h"
#include "modules/permitted_value/permitted_value_dictionary.h"
#include "modules/permitted_value/permitted_value_units.h"
#include "modules/permitted_value/permitted_value_views.h"

namespace lk::permitted_value {

inline constexpr char kListTitle[] = "RT2 Permitted Value Maintenance List";
inline constexpr char kEntryTitle[] = "RT3 Permitted Value Data Entry";
inline constexpr char kSelectionTitle[] = "RT54 Multiple Table Selection List";

inline constexpr ViewNameRow kListViews = {"RT2_PERMITTED_VALUE_MAINT_LIST",
                                           ListDictionary::kViewRows, ListDictionary::kGroupRows,
                                           kListProcedureId};
inline constexpr ViewNameRow kEntryViews = {"RT3_PERMITTED_VALUE_DATA_ENTRY",
                                            EntryDictionary::kViewRows,
                                            EntryDictionary::kGroupRows, kEntryProcedureId};
inline constexpr ViewNameRow kSelectionViews = {
    "RT54_MULTIPLE_TABLE_SELECTION", SelectionDictionary::kViewRows,
    SelectionDictionary::kGroupRows, kSelectionProcedureId};

// ---- Flows ----

#define LK_PV_ROW(from, to)                                                        \
  {from "TSMPRMVL_IS_NUMBER", to "TSMPRMVL_IS_NUMBER"},                            \
      {from "TSMPRMVL_ORG_ID", to "TSMPRMVL_ORG_ID"}, LK_PV_EDITED(from, to),      \
      {from "D_USERID_CODE", to "D_USERID_CODE"},                                  \
      {from "D_LAST_UPDATE_TIMESTAMP", to "D_LAST_UPDATE_TIMESTAMP"}
#define LK_PV_EDITED(from, to)                                                     \
  {from "TABLE_NAME", to "TABLE_NAME"}, {from "FIELD_NAME", to "FIELD_NAME"},      \
      {from "SEQUENCE_NUMBER", to "SEQUENCE_NUMBER"},                              \
      {from "FIELD_VALUE", to "FIELD_VALUE"},                                      \
      {from "FIELD_DESCRIPTION", to "FIELD_DESCRIPTION"}
#define LK_PV_SELECTED(from)                                                       \
  {from "TABLE_NAME", "EXPORT_SELECTED.PERMITTED_VALUE.TABLE_NAME"},               \
      {from "FIELD_NAME", "EXPORT_SELECTED.PERMITTED_VALUE.FIELD_NAME"},           \
      {from "FIELD_VALUE", "EXPORT_SELECTED.PERMITTED_VALUE.FIELD_VALUE"}
#define LK_PV_SAME(name) {name, name}
#define LK_PV_TABLES                                                               \
  LK_PV_SAME("GP_EXPORT_TABLES.PERMITTED_VALUE.TSMPRMVL_IS_NUMBER"),               \
      LK_PV_SAME("GP_EXPORT_TABLES.PERMITTED_VALUE.TSMPRMVL_ORG_ID"),              \
      LK_PV_SAME("GP_EXPORT_TABLES.PERMITTED_VALUE.TABLE_NAME"),                   \
      LK_PV_SAME("GP_EXPORT_TABLES.PERMITTED_VALUE.FIELD_NAME"),                   \
      LK_PV_SAME("GP_EXPORT_TABLES.PERMITTED_VALUE.SEQUENCE_NUMBER"),              \
      LK_PV_SAME("GP_EXPORT_TABLES.PERMITTED_VALUE.FIELD_VALUE"),                  \
      LK_PV_SAME("GP_EXPORT_TABLES.PERMITTED_VALUE.FIELD_DESCRIPTION"),            \
      LK_PV_SAME("GP_EXPORT_TABLES.RUNTIME_SUPPLIED.SELECT_CHAR"),                 \
      LK_PV_SAME("GP_EXPORT_TABLES_SELECTED.RUNTIME_SUPPLIED.FLAG")

inline constexpr FlowPair kToEntrySend[] = {
    LK_PV_ROW("EXPORT_CURRENT.PERMITTED_VALUE.", "EXPORT.PERMITTED_VALUE."),
    LK_PV_EDITED("EXPORT_CURRENT.PERMITTED_VALUE.", "EXPORT_HIDDEN.PERMITTED_VALUE."),
    LK_PV_SAME("EXPORT.SYSTEM_VARIABLE.USER_ID_CODE"),
    LK_PV_SAME("EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID"),
    LK_PV_SAME("EXPORT.RUNTIME_SUPPLIED.COMMAND"),
    LK_PV_SAME("EXPORT.RUNTIME_SUPPLIED.FLAG"),
    LK_PV_SAME("EXPORT_INITIAL_ADD.RUNTIME_SUPPLIED.FLAG"),
    LK_PV_TABLES,
    {nullptr, nullptr},
};
inline constexpr FlowPair kToEntryReceive[] = {
    LK_PV_ROW("EXPORT_CURRENT.PERMITTED_VALUE.", "EXPORT.PERMITTED_VALUE."),
    LK_PV_SAME("EXPORT.RUNTIME_SUPPLIED.COMMAND"),
    LK_PV_SAME("EXPORT_INITIAL_ADD.RUNTIME_SUPPLIED.FLAG"),
    {nullptr, nullptr},
};
inline constexpr FlowPair kListToSelectionSend[] = {
    LK_PV_SELECTED("EXPORT_CURRENT.PERMITTED_VALUE."),
    LK_PV_TABLES,
    {nullptr, nullptr},
};
inline constexpr FlowPair kEntryToSelectionSend[] = {
    LK_PV_SELECTED("EXPORT.PERMITTED_VALUE."),
    LK_PV_TABLES,
    {nullptr, nullptr},
};
inline constexpr FlowPair kSelectionReceive[] = {LK_PV_TABLES, {nullptr, nullptr}};

#undef LK_PV_ROW
#undef LK_PV_EDITED
#undef LK_PV_SELECTED
#undef LK_PV_SAME
#undef LK_PV_TABLES

inline constexpr FlowBinding kListToEntry = {&kListViews, &kEntryViews, kToEntrySend,
                                             kToEntryReceive};
inline constexpr FlowBinding kListToSelection = {&kListViews, &kSelectionViews,
                                                 kListToSelectionSend, kSelectionReceive};
inline constexpr FlowBinding kEntryToSelection = {&kEntryViews, &kSelectionViews,
                                                  kEntryToSelectionSend, kSelectionReceive};

inline constexpr LinkDecl kLinkListToSelection = {
    EXIT_LINK_RT54,     (0x0198u << 16) | 0x00E4, kSelectionProcedureId,
    "RT54_MULTIPLE_TABLE_SELECTION", kReturnsOnReturn, "E", "", "E", "$#CURR#$"};
inline constexpr LinkDecl kLinkListToEntry = {
    EXIT_LINK_RT3,      (0x0117u << 16) | 0x00E4, kEntryProcedureId,
    "RT3_PERMITTED_VALUE_DATA_ENTRY", kReturnsOnReturn, "E", "$#CURR#$", "E", "$#CURR#$"};
inline constexpr LinkDecl kLinkEntryToSelection = {
    EXIT_LINK_RT54,     (0x0199u << 16) | 0x00E4, kSelectionProcedureId,
    "RT54_MULTIPLE_TABLE_SELECTION", kReturnsOnReturn, "E", "", "E", "$#CURR#$"};
using ListLinks = Links<Link<kLinkListToSelection, kListToSelection>,
                        Link<kLinkListToEntry, kListToEntry>>;
using EntryLinks = SingleLink<kLinkEntryToSelection, kEntryToSelection>;

// ---- Attribute types of the windows ----

inline constexpr ValueDictionary kYesNoValues = {patterns::kYesNoList, "S ", 1, 0, nullptr, 0};
inline constexpr CheckDescriptor kCheckBox = {(1u << 16) | kTagCheck, 2, &kYesNoValues};

// ---- RT2: the list 415 under its headings 411 to 414 ----

inline constexpr u32 kList = 415;
inline constexpr u32 kListDependants[] = {(418u << 16) | 4, (419u << 16) | 4, (420u << 16) | 4,
                                          0xFFFF0000u};
// Table Name, Field Name, Sequence Number, Field Value: each column its six
// display bytes and its value.
inline constexpr u32 kColumn1 = kDisplayWidth;
inline constexpr u32 kColumn2 = kColumn1 + kTableName + kDisplayWidth;
inline constexpr u32 kColumn3 = kColumn2 + kFieldName + kDisplayWidth;
inline constexpr u32 kColumn4 = kColumn3 + kSequence + kDisplayWidth;
inline constexpr u32 kRowSize = kColumn4 + kFieldValue;
inline constexpr ListColumnRow kListColumns[] = {
    {(7u << 16) | 9u, (7u << 16) | 48u, 50, 'L', kColumn1, kColumn1 + kTableName, kTableNameType,
     0, 411, {0, 0}},
    {(7u << 16) | 52u, (7u << 16) | 150u, 152, 'L', kColumn2, kColumn2 + kFieldName,
     kFieldNameType, 0, 412, {0, 0}},
    {(7u << 16) | 154u, (7u << 16) | 170u, 172, 'L', kColumn3, kColumn3 + kSequence,
     kSequenceType, 0, 413, {0, 0}},
    {(7u << 16) | 176u, (7u << 16) | 340u, 342, 'L', kColumn4, kRowSize, kFieldValueType, 0, 414,
     {0, 0}},
    {},
};
inline constexpr ListDescriptor kListDescriptor = {(kRowSize << 16) | kTagList, kListColumns, 0,
                                                   nullptr};
inline constexpr ScrollDescriptor kScrollUp = {kTagScroll, "UP", kList | (1u << 16), 0x41};
inline constexpr ScrollDescriptor kScrollDown = {kTagScroll, "DOWN", kList | (1u << 16), 0x41};
inline constexpr const char* kListColumnNames[] = {
    "GRP_EXPORT.PERMITTED_VALUE.TABLE_NAME", "GRP_EXPORT.PERMITTED_VALUE.FIELD_NAME",
    "GRP_EXPORT.PERMITTED_VALUE.SEQUENCE_NUMBER", "GRP_EXPORT.PERMITTED_VALUE.FIELD_VALUE",
    nullptr};
inline constexpr auto kAddRules = ListRules<kList>::kWithoutRowRules;
inline constexpr auto kRowRules = ListRules<kList>::kWithRowRules;

inline constexpr ControlDecl kListControls[] = {
    ListBox(kList, "ListBox1", &kListDescriptor, kListColumnNames,
            "GRP_EXPORT.RUNTIME_SUPPLIED.SELECT_CHAR", PV1_LB_EXPORT_GROUP_DOUBLECLICK,
            PV1_PERMIT_LB_EXPORT_GROUP_CLICK, kListDependants),
    ScrollButton(416, "PictureButton1", &kScrollUp, "PREV", 1501, PV1_PERM_VALUE_PB_PREV_CLICK),
    ScrollButton(417, "PictureButton2", &kScrollDown, "NEXT", 1497,
                 PV1_PERMITTED_VALU_PB_NEXT_CLICK),
    {.id = 418, .name = "Button1", .descriptor = kButton, .rules = kAddRules,
     .action = ActionKind::kKeyword, .keyword = "ADD", .keyword_code = 1457},
    Button(419, "Button2", Click(PV1_PERMITTED_VA_PB_CHANGE_CLICK), kRowRules),
    Button(420, "Button3", Click(PV1_PERMITTED_VA_PB_DELETE_CLICK), kRowRules),
    Button(421, "Button4", Click(PV1_PERMITTED_VAL_PB_CLOSE_CLICK)),
    HelpButton(422, "Button5"),
};
inline constexpr WindowDecl kListWindow = DeclareWindow(
    kListProcedureId, 410, "SD", "RT2_PERMITTED_VALUE_MAINT_LIST", kListViews, kListControls);

// ---- RT2A: the row in hand, read-only ----

inline constexpr ControlDecl kDeleteControls[] = {
    Field(442, "TABLE_NAME1", &kShownField<kTableNameType>, 438,
          "EXPORT_CURRENT.PERMITTED_VALUE.TABLE_NAME"),
    Field(443, "FIELD_NAME1", &kShownField<kFieldNameType>, 439,
          "EXPORT_CURRENT.PERMITTED_VALUE.FIELD_NAME"),
    Field(444, "FIELD_VALUE1", &kShownField<kFieldValueType>, 440,
          "EXPORT_CURRENT.PERMITTED_VALUE.FIELD_VALUE"),
    Field(445, "SEQUENCE_NUMBER1", &kShownField<kSequenceType>, 441,
          "EXPORT_CURRENT.PERMITTED_VALUE.SEQUENCE_NUMBER"),
    Button(446, "Button1", Click(DELETE_CONFIRM_DELETE_PB_CLICK)),
    Button(447, "Button2", Click(DELETE_CONFIRM_CANCEL_PB_CLICK)),
    HelpButton(448, "Button3"),
};
inline constexpr WindowDecl kDeleteWindow =
    DeclareWindow(kListProcedureId, 437, "DD", kRt2aName, kListViews, kDeleteControls);

// ---- RT2B: the companion row, as the companion read found it (it is
// also group row 1 of the other tables); Accept its only way out ----

inline constexpr ControlDecl kCompanionControls[] = {
    Field(456, "TABLE_NAME1", &kShownField<kTableNameType>, 453,
          "EXPORT_FIND.PERMITTED_VALUE.TABLE_NAME"),
    Field(457, "FIELD_NAME1", &kShownField<kFieldNameType>, 454,
          "EXPORT_FIND.PERMITTED_VALUE.FIELD_NAME"),
    Field(458, "FIELD_VALUE1", &kShownField<kFieldValueType>, 455,
          "EXPORT_FIND.PERMITTED_VALUE.FIELD_VALUE"),
    Button(459, "Button1", Click(RT2_ACTIVITY_CAT_PB_ACCEPT_CLICK)),
};
inline constexpr WindowDecl kCompanionWindow =
    DeclareWindow(kListProcedureId, 451, "DD", kRt2bName, kListViews, kCompanionControls);

// ---- RT3: the row ----

inline constexpr ControlDecl kEntryControls[] = {
    Field(1375, "TSMPRMVL_IS_NUMBER1", &kShownField<kIsNumberType>, 1374,
          "EXPORT.PERMITTED_VALUE.TSMPRMVL_IS_NUMBER"),
    Field(1377, "TABLE_NAME1", &kEntryField<kTableNameType>, 1376,
          "EXPORT.PERMITTED_VALUE.TABLE_NAME"),
    {.id = 1378, .name = "Button1", .descriptor = kButton, .action = ActionKind::kKeyword,
     .keyword = "LINK1", .keyword_code = 1447,
     .events = {Click(RT3_PBM_SELECT_BLIVOT_CLK, 'Y'), {}}},
    Field(1380, "FIELD_NAME1", &kEntryField<kFieldNameType>, 1379,
          "EXPORT.PERMITTED_VALUE.FIELD_NAME"),
    Field(1383, "FIELD_VALUE1", &kEntryField<kFieldValueType>, 1382,
          "EXPORT.PERMITTED_VALUE.FIELD_VALUE"),
    Field(1385, "SEQUENCE_NUMBER1", &kEntryField<kSequenceType>, 1384,
          "EXPORT.PERMITTED_VALUE.SEQUENCE_NUMBER"),
    Field(1387, "FIELD_DESCRIPTION1", &kMultilineField<kFieldDescType>, 1386,
          "EXPORT.PERMITTED_VALUE.FIELD_DESCRIPTION"),
    Field(1389, "D_LAST_UPDATE_TIMESTAMP1", &kShownField<kTimestampType>, 1388,
          "EXPORT.PERMITTED_VALUE.D_LAST_UPDATE_TIMESTAMP"),
    Field(1391, "D_USERID_CODE1", &kShownField<kStampUserType>, 1390,
          "EXPORT.PERMITTED_VALUE.D_USERID_CODE"),
    Button(1392, "Button2", Click(RT3_PBM_ACCEPT_CLK, 'Y')),
    Button(1393, "Button3", Click(RT3_PBM_CANCEL_CLK)),
    HelpButton(1394, "Button4"),
};
inline constexpr WindowDecl kEntryWindow = DeclareWindow(
    kEntryProcedureId, 1373, "SD", "RT3_PERMITTED_VALUE_DATA_ENTRY", kEntryViews, kEntryControls);

// ---- RT3E: the sub-list row's sequence number ----

inline constexpr ControlDecl kSequenceControls[] = {
    Field(1333, "TABLE_NAME1", &kShownField<kTableNameType>, 1330,
          "EXPORT_PROCESS.PERMITTED_VALUE.TABLE_NAME"),
    Field(1334, "FIELD_NAME1", &kShownField<kFieldNameType>, 1331,
          "EXPORT_PROCESS.PERMITTED_VALUE.FIELD_NAME"),
    Field(1335, "SEQUENCE_NUMBER1", &kEntryField<kSequenceType>, 1332,
          "EXPORT_PROCESS.PERMITTED_VALUE.SEQUENCE_NUMBER"),
    Button(1336, "Button1", Click(RT3E_NEW_SEQ_NUM_PBM_ACCEPT_CLK, 'Y')),
    HelpButton(1337, "Button2"),
};
inline constexpr WindowDecl kSequenceWindow =
    DeclareWindow(kEntryProcedureId, 1329, "DD", kRt3eName, kEntryViews, kSequenceControls);

// ---- RT3B and RT3C: the warnings ----

inline constexpr ControlDecl kTableWarningControls[] = {
    Button(1342, "Button1", Click(RT3B_TABLE_NAM_WARN_PBM_YES_CLK)),
    Button(1343, "Button2", Click(RT3B_TABLE_NAM_WARN_PBM_NO_CLK)),
    HelpButton(1344, "Button3"),
};
inline constexpr WindowDecl kTableWarningWindow =
    DeclareWindow(kEntryProcedureId, 1340, "DD", kRt3bName, kEntryViews, kTableWarningControls);

// ---- RT3F: the row a run of writes could not write ----

inline constexpr ControlDecl kReportControls[] = {
    Field(1351, "TABLE_NAME1", &kShownField<kTableNameType>, 1349,
          "EXPORT_PROCESS.PERMITTED_VALUE.TABLE_NAME"),
    Field(1352, "FIELD_NAME1", &kShownField<kFieldNameType>, 1350,
          "EXPORT_PROCESS.PERMITTED_VALUE.FIELD_NAME"),
    Button(1353, "Button1", Click(RT3F_MULTIRW_ERR_PBM_ACCEPT_CLK)),
    HelpButton(1354, "Button2"),
};
inline constexpr WindowDecl kReportWindow =
    DeclareWindow(kEntryProcedureId, 1347, "DD", kRt3fName, kEntryViews, kReportControls);

inline constexpr ControlDecl kFieldWarningControls[] = {
    Button(1359, "Button1", Click(RT3C_FIELD_NAM_WARN_PBM_YES_CLK)),
    Button(1360, "Button2", Click(RT3C_FIELD_NAM_WARN_PBM_NO_CLK)),
    HelpButton(1361, "Button3"),
};
inline constexpr WindowDecl kFieldWarningWindow =
    DeclareWindow(kEntryProcedureId, 1357, "DD", kRt3cName, kEntryViews, kFieldWarningControls);

// ---- RT3D: the sub-lists of a new activity category ----

inline constexpr ControlDecl kCategoryControls[] = {
    Field(1366, "FLAG1", &kCheckBox, 0, "EXPORT_MEAS_OBS.RUNTIME_SUPPLIED.FLAG"),
    Field(1367, "FLAG2", &kCheckBox, 0, "EXPORT_SAMPLE.RUNTIME_SUPPLIED.FLAG"),
    Button(1368, "Button1", Click(RT3D_NEW_ACTY_CAT_PBM_ACCEPT_CLK, 'Y')),
    HelpButton(1369, "Button2"),
};
inline constexpr WindowDecl kCategoryWindow =
    DeclareWindow(kEntryProcedureId, 1364, "DD", kRt3dName, kEntryViews, kCategoryControls);

// ---- RT3A: the pairs of names ----

inline constexpr u32 kNamesList = 1402;
inline constexpr u32 kNamesRowSize = kDisplayWidth + kTableName + kDisplayWidth + kFieldName;
inline constexpr ListColumnRow kNamesColumns[] = {
    {(7u << 16) | 9u, (7u << 16) | 60u, 62, 'L', kDisplayWidth, kDisplayWidth + kTableName,
     kTableNameType, 0, 1400, {0, 0}},
    {(7u << 16) | 66u, (7u << 16) | 170u, 172, 'L', kDisplayWidth + kTableName + kDisplayWidth,
     kNamesRowSize, kFieldNameType, 0, 1401, {0, 0}},
    {},
};
inline constexpr ListDescriptor kNamesDescriptor = {(kNamesRowSize << 16) | kTagList,
                                                    kNamesColumns, 0, nullptr};
inline constexpr const char* kNamesColumnNames[] = {"GRP_EXPORT.PERMITTED_VALUE.TABLE_NAME",
                                                    "GRP_EXPORT.PERMITTED_VALUE.FIELD_NAME",
                                                    nullptr};
inline constexpr ControlDecl kNamesControls[] = {
    ListBox(kNamesList, "ListBox1", &kNamesDescriptor, kNamesColumnNames,
            "GRP_EXPORT.RUNTIME_SUPPLIED.SELECT_CHAR", RT3A_LST_EXPORT_GROUP_DCL,
            RT3A_LST_EXPORT_GROUP_CLK),
    Button(1403, "Button1", Click(RT3A_PV_LIST_PBM_SELECT_CLK, 'Y')),
    Button(1404, "Button2", Click(RT3A_PV_LIST_PBM_CANCEL_CLK)),
    HelpButton(1405, "Button3"),
};
inline constexpr WindowDecl kNamesWindow =
    DeclareWindow(kEntryProcedureId, 1399, "DD", kRt3aName, kEntryViews, kNamesControls);

// ---- RT54: the row in hand and the list of other tables ----

inline constexpr u32 kTablesList = 1236;
inline constexpr u32 kTablesRowSize = kDisplayWidth + kTableName;
inline constexpr ListColumnRow kTablesColumns[] = {
    {(112u << 16) | 9u, (112u << 16) | 60u, 120, 'L', kDisplayWidth, kTablesRowSize,
     kTableNameType, 0, 1235, {0, 0}},
    {},
};
inline constexpr ListDescriptor kTablesDescriptor = {(kTablesRowSize << 16) | kTagList,
                                                     kTablesColumns, 0, nullptr};
inline constexpr const char* kTablesColumnNames[] = {
    "GP_EXPORT_TABLES.PERMITTED_VALUE.TABLE_NAME", nullptr};
inline constexpr ControlDecl kSelectionControls[] = {
    Field(1231, "TABLE_NAME1", &kShownField<kTableNameType>, 1228,
          "EXPORT_SELECTED.PERMITTED_VALUE.TABLE_NAME"),
    Field(1232, "FIELD_NAME1", &kShownField<kFieldNameType>, 1229,
          "EXPORT_SELECTED.PERMITTED_VALUE.FIELD_NAME"),
    Field(1233, "FIELD_VALUE1", &kShownField<kFieldValueType>, 1230,
          "EXPORT_SELECTED.PERMITTED_VALUE.FIELD_VALUE"),
    {.id = kTablesList, .name = "ListBox1", .descriptor = &kTablesDescriptor,
     .columns = kTablesColumnNames, .flag = "GP_EXPORT_TABLES.RUNTIME_SUPPLIED.SELECT_CHAR"},
    Button(1237, "Button1", Click(RT2A_MULTIPLE_TA_PB_SELECT_CLICK, 'Y')),
    Button(1238, "Button2", Click(RT2A_MULTIPLE_TA_PB_CANCEL_CLICK)),
    HelpButton(1239, "Button3"),
};
inline constexpr WindowDecl kSelectionWindow =
    DeclareWindow(kSelectionProcedureId, 1226, "SD", "RT54_MULTIPLE_TABLE_SELECTION",
                  kSelectionViews, kSelectionControls);

// ---- The module ----

inline constexpr head::ProcedureDecl kProcedures[] = {
    head::DeclareProcedure<ListDictionary, kListViews, kListWindow, kDeleteWindow,
                           kCompanionWindow>(
        RT2_PERMITTED_VALUE_MAINT_LIST, kListTitle,
        {ListLinks::state, ListLinks::kExits, ListLinks::kFlows}),
    head::DeclareProcedure<SelectionDictionary, kSelectionViews, kSelectionWindow>(
        RT54_MULTIPLE_TABLE_SELECTION, kSelectionTitle),
    head::DeclareProcedure<EntryDictionary, kEntryViews, kEntryWindow, kSequenceWindow,
                           kTableWarningWindow, kReportWindow, kFieldWarningWindow,
                           kCategoryWindow, kNamesWindow>(
        RT3_PERMITTED_VALUE_DATA_ENTRY, kEntryTitle,
        {EntryLinks::state, EntryLinks::kExits, EntryLinks::kFlows}),
};
inline constexpr head::ModuleDecl kModule = head::DeclareModule(kProcedures);

}  // namespace lk::permitted_value

#endif  // WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_H_
