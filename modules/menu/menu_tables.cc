// The design rows of the reference table menu: its flows, its three windows'
// controls and events, and its view dictionary.
//
// Buttons that carry a keyword have no EventRow: a press sends the keyword as
// COMMAND and runs the body. The flows to procedures whose modules are not
// built yet have no send and receive; the host fails them as a missing
// module. A later module's change gives its flow from the menu these two
// functions.
#include <cstddef>

#include "frame/design_rows.h"
#include "frame/run_context.h"
#include "frame/transport/plan.h"
#include "modules/lab_remark/lab_remark.h"
#include "modules/menu/menu.h"
#include "modules/menu/menu_units.h"
#include "modules/menu/menu_views.h"
#include "modules/project_station_role/project_station_role.h"

namespace lk::menu {

u32 flow_state[2];


namespace {

constexpr u32 Flow(u32 n) { return (n << 16) | 0x00E4; }

// One ReturnRow per flow.

// The send and receive of the flows to the modules that are built; their
// bindings stand with the view transport below.
void SendToLabRemark(void* target_import, const void* source_export);
void ReceiveFromLabRemark(void* source_export, void* source_import, const void* target_export);
void SendToProjectStationRole(void* target_import, const void* source_export);
void ReceiveFromProjectStationRole(void* source_export, void* source_import,
                                   const void* target_export);

}  // namespace

// Exit states of the body and of RT1B, and the flow each takes.
const ExitRow kExitRows[] = {
    {kExitAnalyticalEquipment, Flow(0x101), 'M'},
    {kExitErrorMessage, Flow(0x102), 'M'},
    {kExitLabRemark, Flow(0x103), 'M'},
    {kExitAnalyticalProcedure, Flow(0x104), 'M'},
    {kExitEstuary, Flow(0x105), 'M'},
    {kExitLabSamplePrep, Flow(0x106), 'M'},
    {kExitBioPart, Flow(0x107), 'M'},
    {kExitFipsHydrologicUnit, Flow(0x108), 'M'},
    {kExitLithologicUnit, Flow(0x109), 'M'},
    {kExitFieldGear, Flow(0x10A), 'M'},
    {kExitPermittedValue, Flow(0x10B), 'M'},
    {kExitCharAliasType, Flow(0x10C), 'M'},
    {kExitGeologicUnit, Flow(0x10D), 'M'},
    {kExitPersonRole, Flow(0x10E), 'M'},
    {kExitCharacteristicType, Flow(0x10F), 'M'},
    {kExitGeopoliticalArea, Flow(0x110), 'M'},
    {kExitProjectStationRole, Flow(0x111), 'M'},
    {kExitCitation, Flow(0x112), 'M'},
    {kExitNativeAmericanLand, Flow(0x113), 'M'},
    {kExitStandardIndustrialClass, Flow(0x114), 'M'},
    {kExitUnitOfMeasure, Flow(0x115), 'M'},
    {kExitValidStationType, Flow(0x116), 'M'},
    {kExitNonTaxonCharacteristics, Flow(0x117), 'M'},
    {kExitTaxonCharacteristics, Flow(0x118), 'M'},
    {kExitNationalProgram, Flow(0x119), 'M'},
    {0, 0, 0},
};

#define LK_FLOW(n, id, name, mode, on_command, returns, return_command)                   \
  {Flow(n), "L", id, name, nullptr, nullptr, returns, mode, on_command, "E", return_command, \
   0}

const FlowRow kFlowRows[] = {
    LK_FLOW(0x101, 1293, "RT14_ANALYTICAL_EQUIP_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x102, 113, "RT52_ERROR_MESSAGES_MAINT_LIST", "D", "", kReturnsOnCancel, ""),
    {Flow(0x103), "L", 363, "RT50_LAB_REMARK_MAINT_LIST", SendToLabRemark, ReceiveFromLabRemark,
     kReturnsOnCancel, "D", "", "E", "", 0},
    LK_FLOW(0x104, 1156, "RT16_ANALYT_PROCEDURE_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x105, 111, "RT22_ESTUARY_MAINTENANCE_LIS0", "D", "", kReturnsOnCancel, ""),
    LK_FLOW(0x106, 706, "RT20_LAB_SAMPLE_PREP_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x107, 744, "RT48_BIO_PART_MAINT_LIST", "D", "", kReturnsOnCancel, ""),
    LK_FLOW(0x108, 314, "RT36_FIPS_HUC_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x109, 577, "RT42_LITHOLOGIC_UNIT_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x10A, 187, "RT18_FIELD_GEAR_MAINTENANCE_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x10B, 407, "RT2_PERMITTED_VALUE_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, "$#CURR#$"),
    LK_FLOW(0x10C, 109, "RT57_CHAR_ALIAS_TYPE_MAINT", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x10D, 1008, "RT46_GEOLOGIC_UNIT_MAINT_LIST", "D", "", kReturnsOnCancel, ""),
    LK_FLOW(0x10E, 121, "RT55_PERSON_ROLE_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x10F, 163, "RT11_CATEGORY_SUBCAT_MAINT_LIST", "E", "", kReturnsOnCancel, ""),
    LK_FLOW(0x110, 1053, "RT44_GEO_POL_AREA_MAINT_LIST1", "D", "", kReturnsOnCancel, ""),
    {Flow(0x111), "L", 766, "RT40_PROJECT_ROLE_MAIN_LIST", SendToProjectStationRole,
     ReceiveFromProjectStationRole, kReturnsOnReturn, "E", "$#CURR#$", "E", "", 0},
    LK_FLOW(0x112, 119, "RT26_NATL_CITATION_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x113, 1122, "RT28_NATIVE_AMERCN_LAND_MAIN_LST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x114, 676, "RT32_STND_INDSTRL_CD_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x115, 1259, "RT34_UNIT_OF_MEASURE_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x116, 129, "RT30_VALID_STN_TYPE_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x117, 115, "RT4_CHAR_TABLE_MAINT_LIST", "D", "", kReturnsOnReturn, ""),
    LK_FLOW(0x118, 243, "RT4A_TAXON_CHAR_MAINT_LIST", "D", "", kReturnsOnReturn, ""),
    LK_FLOW(0x119, 117, "RT24_NATL_PROGRAM_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    {0, nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0},
};

#undef LK_FLOW

// ---- Windows ----

namespace {


}  // namespace

const StaticItemRow kNoStatics[] = {{0, nullptr, 0}};

// First page, buttons in tab order: three columns a row, seven rows, then
// "Additional Tables >>>", "C&lose" and "&Help".
const ActionControlRow kMainActions[] = {
    KeywordButton(841, "LINK3", 1461, "Button1"),   KeywordButton(842, "LINK52", 1413, "Button2"),
    KeywordButton(843, "LINK15", 1515, "Button3"),  KeywordButton(847, "LINK5", 1475, "Button4"),
    KeywordButton(848, "LINK22", 1485, "Button5"),  KeywordButton(849, "LINK8", 1517, "Button6"),
    KeywordButton(853, "LINK14", 1507, "Button7"),  KeywordButton(854, "LINK36", 1462, "Button8"),
    KeywordButton(855, "LINK11", 1480, "Button9"),  KeywordButton(859, "LINK2", 1452, "Button10"),
    KeywordButton(860, "LINK7", 1489, "Button11"),  KeywordButton(861, "LINK1", 1447, "Button12"),
    KeywordButton(865, "LINK6", 1484, "Button13"),  KeywordButton(866, "LINK13", 1430, "Button14"),
    KeywordButton(867, "LINK55", 1453, "Button15"), KeywordButton(871, "LINK10", 1468, "Button16"),
    KeywordButton(872, "LINK12", 1487, "Button17"), KeywordButton(873, "LINK40", 1520, "Button18"),
    KeywordButton(877, "LINK4", 1464, "Button19"),  KeywordButton(878, "LINK9", 1523, "Button20"),
    KeywordButton(879, "LINK32", 1442, "Button21"), PlainButton(880, "Button22"),
    KeywordButton(881, "EXIT", 1410, "Button23"),   HelpButton(882, "Button24"),
    {0, nullptr, 0, nullptr, 0, 0, nullptr},
};

const ControlRow kMainControls[] = {
    ButtonControl(841, "Button1"),   ButtonControl(842, "Button2"),   ButtonControl(843, "Button3"),
    ButtonControl(847, "Button4"),   ButtonControl(848, "Button5"),   ButtonControl(849, "Button6"),
    ButtonControl(853, "Button7"),   ButtonControl(854, "Button8"),   ButtonControl(855, "Button9"),
    ButtonControl(859, "Button10"),  ButtonControl(860, "Button11"),  ButtonControl(861, "Button12"),
    ButtonControl(865, "Button13"),  ButtonControl(866, "Button14"),  ButtonControl(867, "Button15"),
    ButtonControl(871, "Button16"),  ButtonControl(872, "Button17"),  ButtonControl(873, "Button18"),
    ButtonControl(877, "Button19"),  ButtonControl(878, "Button20"),  ButtonControl(879, "Button21"),
    ButtonControl(880, "Button22"),  ButtonControl(881, "Button23"),  ButtonControl(882, "Button24"),
    {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};

// The one event of the first page: "Additional Tables >>>".
const EventRow kMainEvents[] = {
    {880, "Click", RT1_PB_ADDITIONAL_TABLES_CLICK, nullptr, ' ', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};

const ActionControlRow kPage2Actions[] = {
    KeywordButton(822, "LINK34", 1504, "Button1"), KeywordButton(824, "LINK30", 1492, "Button2"),
    PlainButton(825, "Button3"), HelpButton(826, "Button4"),
    {0, nullptr, 0, nullptr, 0, 0, nullptr},
};

const ControlRow kPage2Controls[] = {
    ButtonControl(822, "Button1"), ButtonControl(824, "Button2"), ButtonControl(825, "Button3"),
    ButtonControl(826, "Button4"), {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};

const EventRow kPage2Events[] = {
    {825, "Click", RT1A_PBM_CLOSE_CLK, nullptr, ' ', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};

const ActionControlRow kCharTypeActions[] = {
    PlainButton(830, "Button1"), PlainButton(831, "Button2"), PlainButton(832, "Button3"),
    HelpButton(833, "Button4"), {0, nullptr, 0, nullptr, 0, 0, nullptr},
};

const ControlRow kCharTypeControls[] = {
    ButtonControl(830, "Button1"), ButtonControl(831, "Button2"), ButtonControl(832, "Button3"),
    ButtonControl(833, "Button4"), {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};

const EventRow kCharTypeEvents[] = {
    {830, "Click", RT1B_NON_TAXON_CHARS, nullptr, ' ', 0, 0, 0},
    {831, "Click", RT1B_TAXON_CHARS, nullptr, ' ', 0, 0, 0},
    {832, "Click", RT1_CHAR_TYPE_CLOSE, nullptr, ' ', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};


// ---- View dictionary ----

namespace {

constexpr PermittedRow kYesNo[] = {{"Y", 0}, {"N", 0}, {nullptr, 0}};

constexpr AttributeType kText1 = {2, "S ", 1, "", nullptr, 0, {0, 0}};
constexpr AttributeType kFlag = {2, "S ", 1, "", kYesNo, 0, {0, 0}};
constexpr AttributeType kText2 = {3, "S ", 2, "", nullptr, 0, {0, 0}};
constexpr AttributeType kText8 = {9, "S ", 8, "", nullptr, 0x100, {0, 0}};

#define LK_AT(type, member) static_cast<u32>(offsetof(type, member))

constexpr AttributeRow kSourceAttributes[] = {
    {"ACTION_ENTRY", 3, LK_AT(MenuImport, RUNTIME_SUPPLIED.ACTION_ENTRY),
     LK_AT(MenuExport, EXPORT_SOURCE.ACTION_ENTRY.value), &kText2},
    {nullptr, 0, 0, 0, nullptr},
};

constexpr AttributeRow kInitialAddAttributes[] = {
    {"FLAG", 2, LK_AT(MenuImport, RUNTIME_SUPPLIED.FLAG),
     LK_AT(MenuExport, EXPORT_INITIAL_ADD.FLAG.value), &kFlag},
    {"SELECT_CHAR", 2, 0, LK_AT(MenuExport, EXPORT_INITIAL_ADD.SELECT_CHAR.value), &kText1},
    {nullptr, 0, 0, 0, nullptr},
};

constexpr AttributeRow kSystemAttributes[] = {
    {"USER_ID_CODE", 9, LK_AT(MenuImport, SYSTEM_VARIABLE.USER_ID_CODE),
     LK_AT(MenuExport, EXPORT.USER_ID_CODE.value), &kText8},
    {"CURRENT_ORG_ID", 9, LK_AT(MenuImport, SYSTEM_VARIABLE.CURRENT_ORG_ID),
     LK_AT(MenuExport, EXPORT.CURRENT_ORG_ID.value), &kText8},
    {nullptr, 0, 0, 0, nullptr},
};

#undef LK_AT

}  // namespace

const ViewRow kViewRows[] = {
    {"EXPORT_SOURCE.RUNTIME_SUPPLIED.", 0, 0, kSourceAttributes},
    {"EXPORT_INITIAL_ADD.RUNTIME_SUPPLIED.", 0, 0, kInitialAddAttributes},
    {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kSystemAttributes},
    {nullptr, 0, 0, nullptr},
};

const GroupRow kGroupRows[] = {
    {"*", 3u << 16, 0, 0, 0, 0},
};

// ---- View transport ----

namespace {

constexpr const ViewNameRow& kViewName = kViews;
constexpr FieldBinding kMainFields[] = {
    {841, nullptr, nullptr, nullptr}, {842, nullptr, nullptr, nullptr},
    {843, nullptr, nullptr, nullptr}, {847, nullptr, nullptr, nullptr},
    {848, nullptr, nullptr, nullptr}, {849, nullptr, nullptr, nullptr},
    {853, nullptr, nullptr, nullptr}, {854, nullptr, nullptr, nullptr},
    {855, nullptr, nullptr, nullptr}, {859, nullptr, nullptr, nullptr},
    {860, nullptr, nullptr, nullptr}, {861, nullptr, nullptr, nullptr},
    {865, nullptr, nullptr, nullptr}, {866, nullptr, nullptr, nullptr},
    {867, nullptr, nullptr, nullptr}, {871, nullptr, nullptr, nullptr},
    {872, nullptr, nullptr, nullptr}, {873, nullptr, nullptr, nullptr},
    {877, nullptr, nullptr, nullptr}, {878, nullptr, nullptr, nullptr},
    {879, nullptr, nullptr, nullptr}, {880, nullptr, nullptr, nullptr},
    {881, nullptr, nullptr, nullptr}, {882, nullptr, nullptr, nullptr},
};
constexpr FieldBinding kPage2Fields[] = {
    {822, nullptr, nullptr, nullptr}, {824, nullptr, nullptr, nullptr},
    {825, nullptr, nullptr, nullptr}, {826, nullptr, nullptr, nullptr},
};
constexpr FieldBinding kCharTypeFields[] = {
    {830, nullptr, nullptr, nullptr}, {831, nullptr, nullptr, nullptr},
    {832, nullptr, nullptr, nullptr}, {833, nullptr, nullptr, nullptr},
};
constexpr WindowBinding kMainBinding = {&kWindowRows[0], &kViewName, kMainFields};
constexpr WindowBinding kPage2Binding = {&kWindowRows[1], &kViewName, kPage2Fields};
constexpr WindowBinding kCharTypeBinding = {&kWindowRows[2], &kViewName, kCharTypeFields};

// The user and the organisation of the run go to the lab remark list;
// nothing comes back.
constexpr FlowPair kLabRemarkSend[] = {
    {"EXPORT.SYSTEM_VARIABLE.USER_ID_CODE", "EXPORT.SYSTEM_VARIABLE.USER_ID_CODE"},
    {"EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID", "EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID"},
    {nullptr, nullptr},
};
constexpr FlowPair kNothingBack[] = {{nullptr, nullptr}};
constexpr FlowBinding kLabRemarkFlow = {&kViewName, &lab_remark::kListViews, kLabRemarkSend,
                                        kNothingBack};

void SendToLabRemark(void* target_import, const void* source_export) {
  SendBy(kLabRemarkFlow, target_import, source_export);
}
void ReceiveFromLabRemark(void* source_export, void* source_import, const void* target_export) {
  ReceiveBy(kLabRemarkFlow, source_export, source_import, target_export);
}

// The user and the organisation of the run go to the project station role
// list's SYSTEM_VARIABLE; nothing comes back.
constexpr FlowPair kProjectStationRoleSend[] = {
    {"EXPORT.SYSTEM_VARIABLE.USER_ID_CODE", "EXPORT.SYSTEM_VARIABLE.USER_ID_CODE"},
    {"EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID", "EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID"},
    {nullptr, nullptr},
};
constexpr FlowBinding kProjectStationRoleFlow = {
    &kViewName, &project_station_role::kListViews, kProjectStationRoleSend, kNothingBack};

void SendToProjectStationRole(void* target_import, const void* source_export) {
  SendBy(kProjectStationRoleFlow, target_import, source_export);
}
void ReceiveFromProjectStationRole(void* source_export, void* source_import,
                                   const void* target_export) {
  ReceiveBy(kProjectStationRoleFlow, source_export, source_import, target_export);
}

}  // namespace

void ReadMain(WindowHandle w, void* v) { ReadWindowBy(kMainBinding, w, v); }
void WriteMain(WindowHandle w, void* v) { WriteWindowBy(kMainBinding, w, v); }
void ReadPage2(WindowHandle w, void* v) { ReadWindowBy(kPage2Binding, w, v); }
void WritePage2(WindowHandle w, void* v) { WriteWindowBy(kPage2Binding, w, v); }
void ReadCharType(WindowHandle w, void* v) { ReadWindowBy(kCharTypeBinding, w, v); }
void WriteCharType(WindowHandle w, void* v) { WriteWindowBy(kCharTypeBinding, w, v); }

}  // namespace lk::menu
