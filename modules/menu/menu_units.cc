// The body of the reference table menu and its event actions.
//
// The body reads nothing from the database: it copies the user and the
// organisation of the run into the export view, tests COMMAND against the
// keywords it knows in a fixed order, and sets the exit state that leads to
// the table's procedure. Flows, returns and the missing modules are the
// host's business.
#include <cstring>

#include "frame/run_context.h"
#include "frame/unit.h"
#include "modules/menu/menu.h"
#include "modules/menu/menu_units.h"
#include "modules/menu/menu_views.h"
#include "services/text.h"
#include "services/window.h"

namespace lk::menu {

namespace {

constexpr UnitId kBodyId = {"0017498133", "RT1_REFERENCE_TABLE_MAINT_MENU"};
constexpr UnitId kAdditionalTablesId = {"0017498134", "RT1_PB_ADDITIONAL_TABLES_CLICK"};
constexpr UnitId kPage2CloseId = {"0017498135", "RT1A_PBM_CLOSE_CLK"};
constexpr UnitId kNonTaxonId = {"0017498136", "RT1B_NON_TAXON_CHARS"};
constexpr UnitId kTaxonId = {"0017498137", "RT1B_TAXON_CHARS"};
constexpr UnitId kCharTypeCloseId = {"0017498138", "RT1_CHAR_TYPE_CLOSE"};

constexpr char kStatement1[] = "0000000001";

const TimestampSlot kNoTimestamps[] = {{0, 0}};
const ViewShape kShape = {sizeof(MenuExport), kNoTimestamps, kNoTimestamps};

// What one keyword does: the COMMAND to leave ("LIST", or null to keep the
// keyword) and the exit state.
struct KeywordBranch {
  const char* keyword;
  const char* command;
  u32 exit_state;
};

// The chain of the body, in the order it is tested. "LINK2" opens the
// characteristic type dialog instead; "LINK37" and "LINK38" are answered as
// not implemented.
constexpr KeywordBranch kChain[] = {
    {"LINK55", "LIST", kExitPersonRole},
    {"LINK22", nullptr, kExitEstuary},
    {"LINK10", "LIST", kExitCharacteristicType},
    {"LINK1", "LIST", kExitPermittedValue},
    {"LINK2", nullptr, EXIT_NONE},
    {"LINK3", "LIST", kExitAnalyticalEquipment},
    {"LINK4", "LIST", kExitCitation},
    {"LINK5", "LIST", kExitAnalyticalProcedure},
    {"LINK6", nullptr, kExitCharAliasType},
    {"LINK7", "LIST", kExitFieldGear},
    {"LINK8", "LIST", kExitLabSamplePrep},
    {"LINK9", "LIST", kExitNativeAmericanLand},
    {"LINK11", "LIST", kExitLithologicUnit},
    {"LINK12", nullptr, kExitGeopoliticalArea},
    {"LINK13", nullptr, kExitGeologicUnit},
    {"LINK14", nullptr, kExitBioPart},
    {"LINK15", nullptr, kExitLabRemark},
    {"EXIT", nullptr, EXIT_RETURN},
    {"LINK30", "LIST", kExitValidStationType},
    {"LINK32", "LIST", kExitStandardIndustrialClass},
    {"LINK34", "LIST", kExitUnitOfMeasure},
    {"LINK36", "LIST", kExitFipsHydrologicUnit},
    {"LINK40", "LIST", kExitProjectStationRole},
    {"LINK52", nullptr, kExitErrorMessage},
    {"LINK37", nullptr, EXIT_NOT_IMPLEMENTED},
    {"LINK38", nullptr, EXIT_NOT_IMPLEMENTED},
};

// Per-unit static storage: one activation at a time.
UnitStorage body_unit;
UnitStorage additional_tables_unit;
UnitStorage page2_close_unit;
UnitStorage non_taxon_unit;
UnitStorage taxon_unit;
UnitStorage char_type_close_unit;

void Body(RunContext* rc, const MenuImport* in, MenuExport* out) {
  StoreUnitId(rc, kBodyId);
  rc->statement = kStatement1;
  SetExit(rc, EXIT_NONE, nullptr, 'N');

  TextMove(out->EXPORT.USER_ID_CODE.value, in->SYSTEM_VARIABLE.USER_ID_CODE, 9);
  TextMove(out->EXPORT.CURRENT_ORG_ID.value, in->SYSTEM_VARIABLE.CURRENT_ORG_ID, 9);
  TextMove(out->EXPORT_SOURCE.ACTION_ENTRY.value, in->RUNTIME_SUPPLIED.ACTION_ENTRY, 3);

  for (const KeywordBranch& branch : kChain) {
    if (TextCompare(rc->command, branch.keyword) != 0) continue;
    if (branch.exit_state == EXIT_NOT_IMPLEMENTED) {
      SetExit(rc, EXIT_NOT_IMPLEMENTED, kNotImplementedText, 'E');
    } else if (branch.exit_state == EXIT_NONE) {
      WindowOpen(body_unit.a, body_unit.b, "RT1B_CHAR_TYPE_SELECT");
    } else {
      if (branch.command != nullptr) SetCommand(rc, branch.command);
      SetExit(rc, branch.exit_state, nullptr, 'N');
    }
    return;
  }
}

}  // namespace

void RT1_REFERENCE_TABLE_MAINT_MENU(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                    void* export_view) {
  // The menu's entry does not test for the load-only call.
  EnterProcedure(&body_unit, &kShape, /*load_only_test=*/false, a, b, rc, import_view,
                 export_view, [&] {
                   Body(rc, static_cast<const MenuImport*>(import_view),
                        static_cast<MenuExport*>(export_view));
                 });
}

void RT1_PB_ADDITIONAL_TABLES_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                    void* export_view) {
  EnterEventAction(&additional_tables_unit, &kShape, kAdditionalTablesId, a, b, rc,
                   import_view, export_view, [&] {
                     rc->statement = kStatement1;
                     WindowOpen(a, b, "RT1A_REFERENCE_TABLE_MAINT_MENU");
                   });
}

void RT1A_PBM_CLOSE_CLK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                        void* export_view) {
  EnterEventAction(&page2_close_unit, &kShape, kPage2CloseId, a, b, rc, import_view,
                   export_view, [&] {
                     rc->statement = kStatement1;
                     WindowClose(a, b, "RT1A_REFERENCE_TABLE_MAINT_MENU");
                   });
}

namespace {

// The two choices of the characteristic type dialog: "DE" into ACTION_ENTRY,
// the dialog closed before the flow, and the choice's exit state.
void CharTypeChosen(UnitStorage* unit, const UnitId& id, u32 exit_state, HandleA a, HandleB b,
                    RunContext* rc, void* import_view, void* export_view) {
  EnterEventAction(unit, &kShape, id, a, b, rc, import_view, export_view, [&] {
    auto* out = static_cast<MenuExport*>(export_view);
    rc->statement = kStatement1;
    TextMove(out->EXPORT_SOURCE.ACTION_ENTRY.value, "DE", 3);
    WindowClose(a, b, "RT1B_CHAR_TYPE_SELECT");
    SetExit(rc, exit_state, nullptr, 'N');
  });
}

}  // namespace

void RT1B_NON_TAXON_CHARS(HandleA a, HandleB b, RunContext* rc, void* import_view,
                          void* export_view) {
  CharTypeChosen(&non_taxon_unit, kNonTaxonId, kExitNonTaxonCharacteristics, a, b, rc,
                 import_view, export_view);
}

void RT1B_TAXON_CHARS(HandleA a, HandleB b, RunContext* rc, void* import_view,
                      void* export_view) {
  CharTypeChosen(&taxon_unit, kTaxonId, kExitTaxonCharacteristics, a, b, rc, import_view,
                 export_view);
}

void RT1_CHAR_TYPE_CLOSE(HandleA a, HandleB b, RunContext* rc, void* import_view,
                         void* export_view) {
  EnterEventAction(&char_type_close_unit, &kShape, kCharTypeCloseId, a, b, rc, import_view,
                   export_view, [&] {
                     rc->statement = kStatement1;
                     WindowClose(a, b, "RT1B_CHAR_TYPE_SELECT");
                   });
}

}  // namespace lk::menu
