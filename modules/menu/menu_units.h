// The units of the reference table menu: the body and the event actions of
// the second page and of the characteristic type dialog, with the exit
// states that lead to the tables.
#ifndef WATRIX_MODULES_MENU_MENU_UNITS_H_
#define WATRIX_MODULES_MENU_MENU_UNITS_H_

#include "frame/entry.h"
#include "frame/tables.h"

namespace lk::menu {

constexpr u32 kExitAnalyticalEquipment = 0x4798053F;
constexpr u32 kExitErrorMessage = 0x51504505;
constexpr u32 kExitLabRemark = 0x4B6C058C;
constexpr u32 kExitAnalyticalProcedure = 0x47980927;
constexpr u32 kExitEstuary = 0x6AC40774;
constexpr u32 kExitLabSamplePrep = 0x479811A3;
constexpr u32 kExitBioPart = 0x4B6C0588;
constexpr u32 kExitFipsHydrologicUnit = 0x4B0016DB;
constexpr u32 kExitLithologicUnit = 0x47982620;
constexpr u32 kExitFieldGear = 0x47981155;
constexpr u32 kExitPermittedValue = 0x3F400114;
constexpr u32 kExitCharAliasType = 0x681167A0;
constexpr u32 kExitGeologicUnit = 0x4B6C0584;
constexpr u32 kExitPersonRole = 0x78780974;
constexpr u32 kExitCharacteristicType = 0x3DC42CFC;
constexpr u32 kExitGeopoliticalArea = 0x4B6C057D;
constexpr u32 kExitProjectStationRole = 0x4B001D2B;
constexpr u32 kExitCitation = 0x29F00E76;
constexpr u32 kExitNativeAmericanLand = 0x4798200E;
constexpr u32 kExitStandardIndustrialClass = 0x4B0014AD;
constexpr u32 kExitUnitOfMeasure = 0x4B0014B8;
constexpr u32 kExitValidStationType = 0x4B00148B;
constexpr u32 kExitNonTaxonCharacteristics = 0x3DC4252B;
constexpr u32 kExitTaxonCharacteristics = 0x462804F7;
// No keyword sets this one; its flow to a procedure without a row is kept.
constexpr u32 kExitNationalProgram = 0x035CE205;

void RT1_PB_ADDITIONAL_TABLES_CLICK(HandleA, HandleB, RunContext*, void*, void*);
void RT1A_PBM_CLOSE_CLK(HandleA, HandleB, RunContext*, void*, void*);
void RT1B_NON_TAXON_CHARS(HandleA, HandleB, RunContext*, void*, void*);
void RT1B_TAXON_CHARS(HandleA, HandleB, RunContext*, void*, void*);
void RT1_CHAR_TYPE_CLOSE(HandleA, HandleB, RunContext*, void*, void*);

}  // namespace lk::menu

#endif  // WATRIX_MODULES_MENU_MENU_UNITS_H_
