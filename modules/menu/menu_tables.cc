// The design rows of the reference table menu that are its own: its flows
// and its view dictionary (its windows are declared in menu.h).
//
// The flows to procedures whose modules are not built yet have no send and
// receive; the host fails them as a missing module. A later module's change
// gives its flow from the menu the send and receive of kToList over the
// module's list views.
#include <cstddef>

#include "frame/design_rows.h"
#include "frame/run_context.h"
#include "frame/transport/plan.h"
#include "modules/biological_part/biological_part.h"
#include "modules/geologic_unit/geologic_unit.h"
#include "modules/lab_remark/lab_remark.h"
#include "modules/lithologic_unit/lithologic_unit.h"
#include "modules/menu/menu.h"
#include "modules/menu/menu_units.h"
#include "modules/menu/menu_views.h"
#include "modules/permitted_value/permitted_value.h"
#include "modules/project_station_role/project_station_role.h"
#include "modules/standard_industrial_class/standard_industrial_class.h"
#include "modules/unit_of_measure/unit_of_measure.h"

namespace lk::menu {

u32 flow_state[2];

namespace {

constexpr u32 Flow(u32 n) { return (n << 16) | 0x00E4; }

// The flow to a table's list: the user and the organisation of the run go
// to its SYSTEM_VARIABLE; nothing comes back.
constexpr FlowPair kSystemSend[] = {
    {"EXPORT.SYSTEM_VARIABLE.USER_ID_CODE", "EXPORT.SYSTEM_VARIABLE.USER_ID_CODE"},
    {"EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID", "EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID"},
    {nullptr, nullptr},
};
constexpr FlowPair kNothingBack[] = {{nullptr, nullptr}};
template <const ViewNameRow& Target>
constexpr FlowBinding kToList = {&kViews, &Target, kSystemSend, kNothingBack};
// The permitted value list also takes the initial-add FLAG.
constexpr FlowPair kPermittedValueSend[] = {
    {"EXPORT.SYSTEM_VARIABLE.USER_ID_CODE", "EXPORT.SYSTEM_VARIABLE.USER_ID_CODE"},
    {"EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID", "EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID"},
    {"EXPORT_INITIAL_ADD.RUNTIME_SUPPLIED.FLAG", "EXPORT_INITIAL_ADD.RUNTIME_SUPPLIED.FLAG"},
    {nullptr, nullptr},
};
constexpr FlowBinding kToPermittedValues = {&kViews, &permitted_value::kListViews,
                                            kPermittedValueSend, kNothingBack};

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
    {Flow(0x103), "L", 363, "RT50_LAB_REMARK_MAINT_LIST", Send<kToList<lab_remark::kListViews>>,
     Receive<kToList<lab_remark::kListViews>>,
     kReturnsOnCancel, "D", "", "E", "", 0},
    LK_FLOW(0x104, 1156, "RT16_ANALYT_PROCEDURE_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x105, 111, "RT22_ESTUARY_MAINTENANCE_LIS0", "D", "", kReturnsOnCancel, ""),
    LK_FLOW(0x106, 706, "RT20_LAB_SAMPLE_PREP_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    {Flow(0x107), "L", 744, "RT48_BIO_PART_MAINT_LIST",
     Send<kToList<biological_part::kListViews>>, Receive<kToList<biological_part::kListViews>>,
     kReturnsOnCancel, "D", "", "E", "", 0},
    LK_FLOW(0x108, 314, "RT36_FIPS_HUC_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    {Flow(0x109), "L", 577, "RT42_LITHOLOGIC_UNIT_MAINT_LIST",
     Send<kToList<lithologic_unit::kListViews>>, Receive<kToList<lithologic_unit::kListViews>>,
     kReturnsOnReturn, "E", "$#CURR#$", "E", "", 0},
    LK_FLOW(0x10A, 187, "RT18_FIELD_GEAR_MAINTENANCE_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    {Flow(0x10B), "L", 407, "RT2_PERMITTED_VALUE_MAINT_LIST", Send<kToPermittedValues>,
     Receive<kToPermittedValues>, kReturnsOnReturn, "E", "$#CURR#$", "E", "$#CURR#$", 0},
    LK_FLOW(0x10C, 109, "RT57_CHAR_ALIAS_TYPE_MAINT", "E", "$#CURR#$", kReturnsOnReturn, ""),
    {Flow(0x10D), "L", 1008, "RT46_GEOLOGIC_UNIT_MAINT_LIST",
     Send<kToList<geologic_unit::kListViews>>, Receive<kToList<geologic_unit::kListViews>>,
     kReturnsOnCancel, "D", "", "E", "", 0},
    LK_FLOW(0x10E, 121, "RT55_PERSON_ROLE_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x10F, 163, "RT11_CATEGORY_SUBCAT_MAINT_LIST", "E", "", kReturnsOnCancel, ""),
    LK_FLOW(0x110, 1053, "RT44_GEO_POL_AREA_MAINT_LIST1", "D", "", kReturnsOnCancel, ""),
    {Flow(0x111), "L", 766, "RT40_PROJECT_ROLE_MAIN_LIST", Send<kToList<project_station_role::kListViews>>,
     Receive<kToList<project_station_role::kListViews>>, kReturnsOnReturn, "E", "$#CURR#$", "E", "", 0},
    LK_FLOW(0x112, 119, "RT26_NATL_CITATION_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x113, 1122, "RT28_NATIVE_AMERCN_LAND_MAIN_LST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    {Flow(0x114), "L", 676, "RT32_STND_INDSTRL_CD_MAINT_LIST",
     Send<kToList<standard_industrial_class::kListViews>>,
     Receive<kToList<standard_industrial_class::kListViews>>, kReturnsOnReturn, "E", "$#CURR#$",
     "E", "", 0},
    {Flow(0x115), "L", 1259, "RT34_UNIT_OF_MEASURE_MAINT_LIST",
     Send<kToList<unit_of_measure::kListViews>>, Receive<kToList<unit_of_measure::kListViews>>,
     kReturnsOnReturn, "E", "$#CURR#$", "E", "", 0},
    LK_FLOW(0x116, 129, "RT30_VALID_STN_TYPE_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    LK_FLOW(0x117, 115, "RT4_CHAR_TABLE_MAINT_LIST", "D", "", kReturnsOnReturn, ""),
    LK_FLOW(0x118, 243, "RT4A_TAXON_CHAR_MAINT_LIST", "D", "", kReturnsOnReturn, ""),
    LK_FLOW(0x119, 117, "RT24_NATL_PROGRAM_MAINT_LIST", "E", "$#CURR#$", kReturnsOnReturn, ""),
    {0, nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0},
};

#undef LK_FLOW

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

}  // namespace lk::menu
