// The delete rules of the 24 delete entries, and the entries themselves, one
// line each over RunRoot and RunStep (cascade.cc). The disassociation entry
// F3020987 is at the end.
//
// What each rule does with the rows that refer to its row was decided from
// the references of the schema (store/schema.cc), table by table:
//
//   TSRLBRMK, TSMPSR, TSMLTHUN, TSMFHU, TSRLSPP, TSMPRMVL, TSRCTCA
//       Nothing refers to them: the entry deletes the row and nothing else.
//   TSRBIOPT  <- TSRFDACT          the database refuses
//   TSRUOM    <- TSRRSULT, TSRRCI, TSRRQCAF, TSRDQL
//                                  the database refuses
//   TSMNAL    <- TSMALP            the database refuses
//   TSMVSTC   <- TSMSTATN          the database refuses
//   TSRCHTYP  <- TSRCTCA           the database refuses
//   TSMGEOPA  <- TSMALP (twice: TSMGEOPA and TSMGEOPA0)
//                                  the database refuses
//       These are the results, stations, field activities, locations and
//       assignments of the warehouse: data in their own right, not parts of
//       a code. Their REMOVE action blocks (or event actions) check them
//       before the entry is called, so that a user meets a message and not a
//       failure; if one appears between the check and the entry, the
//       database's refusal ends the event and nothing is deleted.
//   TSRANLEQ  <- TSRANLPR (TSRANLEQ_IS_NUMBER, TSRANLEQ_ORG_ID)
//       cut: the procedures' reference is set to NULL, then the equipment is
//       deleted. The reference is optional, a procedure stands without its
//       equipment, and cutting it is what F3020987 does for one procedure;
//       the REMOVE action block has no check of its own.
//   TSRCHAR   <- TSRCTCA, TSRCHALS
//       deleted with it: category assignments and aliases describe the
//       characteristic and mean nothing without it.
//   TSMGEOUN  <- TSMSPRNG, TSMIGUA
//       dependent steps of rule 0x049C1467: relationship 0x049C1477 deletes
//       the spring rows (TSMSPRNG, keyed by their station), 0x049C1478 the
//       interval assignments (TSMIGUA).
//   TSMSIC    <- TSMFSA
//       dependent steps of rule 0x035D0326: relationship 0x035D032A deletes
//       the facility assignments (TSMFSA, keyed by station and class; the
//       class half of the key is the root's). 0x035D032C reaches a referrer
//       of the warehouse that is no table of this schema.
//   TSRFLDGR  <- nothing in this schema
//       rules 0x12A43B80 (relationship 0x12A43C11) and 0x1FA0287C
//       (0x1FA02880, 0x32D800CF, 0x32D800D5, 0x32D800DA) reach the field
//       activities and methods of the warehouse, none of which is a table
//       here: the root finds no dependants, the first step request finds no
//       pending work, and E2753024 and E0589820 refuse any token with "FE".
//   TSRANLPR  <- TSRANLPR (TSRANLPR0IS_NUMBER, TSRANLPR0ORG_ID)
//       dependent steps of rule 0x1FA03F3B: relationship 0x1FA03F40 cuts the
//       reference of every other procedure that names the deleted one. It is
//       cut, not followed by a delete: the reference is optional, the
//       referring procedure is a national method in its own right, and a
//       delete would run on down a chain of procedures that nobody chose to
//       remove. A procedure that names itself goes with its own row.
//
// "The database refuses": the entry deletes the row and has the database
// check the references at once (cascade.cc); a row still referred to gives
// status "FE", detail "DB" and the database's words.
//
// A step finds its dependant by the dependant's key that the step service
// hands over (an IS number and an ORG ID) together with the referring
// columns, which must still name the root's row: a dependant that was
// changed since the root call is left alone.
#include <cstddef>

#include "store/cascade.h"
#include "store/cascade_rules.h"

namespace lk::store {

namespace cascade {

namespace {

constexpr std::array<KeyField, 2> IsKey(const char* number, const char* org_id) {
  return {{{number, KeyKind::kNumber, offsetof(IsNumberKey, is_number), sizeof(double)},
           {org_id, KeyKind::kText, offsetof(IsNumberKey, org_id), sizeof IsNumberKey::org_id}}};
}

template <int kWidth>
constexpr std::array<KeyField, 2> CodeKeyOf(const char* code, const char* org_id) {
  using K = CodeKey<kWidth>;
  return {{{code, KeyKind::kText, offsetof(K, code), sizeof K::code},
           {org_id, KeyKind::kText, offsetof(K, org_id), sizeof K::org_id}}};
}

using Names = const char* const[];

// ---- Key columns, in the order of the key records.

constexpr auto kLabRemarkKey = IsKey("TSRLBRMK_IS_NUMBER", "TSRLBRMK_ORG_ID");
constexpr auto kBioPartKey = IsKey("TSRBIOPT_IS_NUMBER", "TSRBIOPT_ORG_ID");
constexpr auto kStationRoleKey = IsKey("TSMPSR_IS_NUMBER", "TSMPSR_ORG_ID");
constexpr auto kUnitKey = IsKey("TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID");
constexpr auto kLithologicKey = CodeKeyOf<12>("TSMLTHUN_CD", "TSMLTHUN_ORG_ID");
constexpr auto kGeologicKey = CodeKeyOf<12>("TSMGEOUN_CD", "TSMGEOUN_ORG_ID");
constexpr auto kIndustrialKey = CodeKeyOf<4>("TSMSIC_CODE", "TSMSIC_ORG_ID");
constexpr auto kHydrologicKey = IsKey("TSMFHU_IS_NUMBER", "TSMFHU_ORG_ID");
constexpr KeyField kLandKey[] = {
    {"TSMNAL_CD", KeyKind::kText, offsetof(NativeAmericanLandKey, code),
     sizeof NativeAmericanLandKey::code},
    {"TSMNAL_STATE", KeyKind::kText, offsetof(NativeAmericanLandKey, state),
     sizeof NativeAmericanLandKey::state},
    {"TSMNAL_ORG_ID", KeyKind::kText, offsetof(NativeAmericanLandKey, org_id),
     sizeof NativeAmericanLandKey::org_id}};
constexpr auto kStationTypeKey = IsKey("TSMVSTC_IS_NUMBER", "TSMVSTC_ORG_ID");
constexpr auto kFieldGearKey = IsKey("TSRFLDGR_IS_NUMBER", "TSRFLDGR_ORG_ID");
constexpr auto kEquipmentKey = IsKey("TSRANLEQ_IS_NUMBER", "TSRANLEQ_ORG_ID");
constexpr auto kProcedureKey = IsKey("TSRANLPR_IS_NUMBER", "TSRANLPR_ORG_ID");
constexpr auto kSamplePrepKey = IsKey("TSRLSPP_IS_NUMBER", "TSRLSPP_ORG_ID");
constexpr auto kPermittedValueKey = IsKey("TSMPRMVL_IS_NUMBER", "TSMPRMVL_ORG_ID");
constexpr auto kCharacteristicKey = IsKey("TSRCHAR_IS_NUMBER", "TSRCHAR_ORG_ID");
constexpr KeyField kCharacteristicTypeKey[] = {
    {"TSRCHTYP_CATEGORY", KeyKind::kText, offsetof(CharacteristicTypeKey, category),
     sizeof CharacteristicTypeKey::category},
    {"TSRCHTYP_SUBCATGRY", KeyKind::kText, offsetof(CharacteristicTypeKey, subcategory),
     sizeof CharacteristicTypeKey::subcategory},
    {"TSRCHTYP_ORG_ID", KeyKind::kText, offsetof(CharacteristicTypeKey, org_id),
     sizeof CharacteristicTypeKey::org_id}};
constexpr KeyField kAssignmentKey[] = {
    {"TSRCHAR_IS_NUMBER", KeyKind::kNumber, offsetof(CategoryAssignmentKey, tsrchar_is_number),
     sizeof(double)},
    {"TSRCHAR_ORG_ID", KeyKind::kText, offsetof(CategoryAssignmentKey, tsrchar_org_id),
     sizeof CategoryAssignmentKey::tsrchar_org_id},
    {"TSRCHTYP_CATEGORY", KeyKind::kText, offsetof(CategoryAssignmentKey, tsrchtyp_category),
     sizeof CategoryAssignmentKey::tsrchtyp_category},
    {"TSRCHTYP_SUBCATGRY", KeyKind::kText, offsetof(CategoryAssignmentKey, tsrchtyp_subcatgry),
     sizeof CategoryAssignmentKey::tsrchtyp_subcatgry},
    {"TSRCHTYP_ORG_ID", KeyKind::kText, offsetof(CategoryAssignmentKey, tsrchtyp_org_id),
     sizeof CategoryAssignmentKey::tsrchtyp_org_id}};
constexpr auto kAreaKey = IsKey("TSMGEOPA_IS_NUMBER", "TSMGEOPA_ORG_ID");

// ---- Referring columns (in the order of the root key) and dependants' keys.

constexpr Names kBioPartRef = {"TSRBIOPT_IS_NUMBER", "TSRBIOPT_ORG_ID"};
constexpr Names kUnitRef = {"TSRUOM_IS_NUMBER", "TSRUOM_ORG_ID"};
constexpr Names kGeologicRef = {"TSMGEOUN_CD", "TSMGEOUN_ORG_ID"};
constexpr Names kIndustrialRef = {"TSMSIC_CODE", "TSMSIC_ORG_ID"};
constexpr Names kLandRef = {"TSMNAL_CD", "TSMNAL_STATE", "TSMNAL_ORG_ID"};
constexpr Names kStationTypeRef = {"TSMVSTC_IS_NUMBER", "TSMVSTC_ORG_ID"};
constexpr Names kEquipmentRef = {"TSRANLEQ_IS_NUMBER", "TSRANLEQ_ORG_ID"};
constexpr Names kProcedureRef = {"TSRANLPR0IS_NUMBER", "TSRANLPR0ORG_ID"};
constexpr Names kCharacteristicRef = {"TSRCHAR_IS_NUMBER", "TSRCHAR_ORG_ID"};
constexpr Names kCharacteristicTypeRef = {"TSRCHTYP_CATEGORY", "TSRCHTYP_SUBCATGRY",
                                          "TSRCHTYP_ORG_ID"};
constexpr Names kAreaRef = {"TSMGEOPA_IS_NUMBER", "TSMGEOPA_ORG_ID"};
constexpr Names kSecondAreaRef = {"TSMGEOPA0IS_NUMBER", "TSMGEOPA0ORG_ID"};

constexpr Names kStationKey = {"TSMSTATN_IS_NUMBER", "TSMSTATN_ORG_ID"};
constexpr Names kIntervalKey = {"TSMIGUA_IS_NUMBER", "TSMIGUA_ORG_ID"};
constexpr Names kProcedureRowKey = {"TSRANLPR_IS_NUMBER", "TSRANLPR_ORG_ID"};

// ---- Referrers without a step.

constexpr Referrer kBioPartReferrers[] = {{"TSRFDACT", kBioPartRef, Fate::kRefuse}};
constexpr Referrer kUnitReferrers[] = {{"TSRRSULT", kUnitRef, Fate::kRefuse},
                                       {"TSRRCI", kUnitRef, Fate::kRefuse},
                                       {"TSRRQCAF", kUnitRef, Fate::kRefuse},
                                       {"TSRDQL", kUnitRef, Fate::kRefuse}};
constexpr Referrer kLandReferrers[] = {{"TSMALP", kLandRef, Fate::kRefuse}};
constexpr Referrer kStationTypeReferrers[] = {{"TSMSTATN", kStationTypeRef, Fate::kRefuse}};
constexpr Referrer kEquipmentReferrers[] = {{"TSRANLPR", kEquipmentRef, Fate::kCut}};
constexpr Referrer kCharacteristicReferrers[] = {{"TSRCTCA", kCharacteristicRef, Fate::kDelete},
                                                 {"TSRCHALS", kCharacteristicRef, Fate::kDelete}};
constexpr Referrer kCharacteristicTypeReferrers[] = {
    {"TSRCTCA", kCharacteristicTypeRef, Fate::kRefuse}};
constexpr Referrer kAreaReferrers[] = {{"TSMALP", kAreaRef, Fate::kRefuse},
                                       {"TSMALP", kSecondAreaRef, Fate::kRefuse}};

// ---- Step rules.

constexpr Relationship kGeologicRelationships[] = {
    {kGeologicUnitSprings, "TSMSPRNG", kGeologicRef, kStationKey, Fate::kDelete},
    {kGeologicUnitIntervals, "TSMIGUA", kGeologicRef, kIntervalKey, Fate::kDelete}};
constexpr Relationship kIndustrialRelationships[] = {
    {kIndustrialClassFacilities, "TSMFSA", kIndustrialRef, kStationKey, Fate::kDelete},
    {kIndustrialClassOther, nullptr, {}, {}, Fate::kDelete}};
constexpr Relationship kFieldGearRelationships[] = {
    {kFieldGearRelationship, nullptr, {}, {}, Fate::kDelete}};
constexpr Relationship kFieldGearMethodRels[] = {
    {kFieldGearMethodRelationships[0], nullptr, {}, {}, Fate::kDelete},
    {kFieldGearMethodRelationships[1], nullptr, {}, {}, Fate::kDelete},
    {kFieldGearMethodRelationships[2], nullptr, {}, {}, Fate::kDelete},
    {kFieldGearMethodRelationships[3], nullptr, {}, {}, Fate::kDelete}};
constexpr Relationship kProcedureRelationships[] = {
    {kProcedureReferrers, "TSRANLPR", kProcedureRef, kProcedureRowKey, Fate::kCut}};

constexpr StepRule kGeologicSteps{"E7337703", kGeologicUnitRule, "TSMGEOUN",
                                  kGeologicRelationships};
constexpr StepRule kIndustrialSteps{"E6427302", kIndustrialClassRule, "TSMSIC",
                                    kIndustrialRelationships};
constexpr StepRule kFieldGearSteps{"E2753024", kFieldGearRule, "TSRFLDGR",
                                   kFieldGearRelationships};
constexpr StepRule kFieldGearMethodSteps{"E0589820", kFieldGearMethodRule, "TSRFLDGR",
                                         kFieldGearMethodRels};
constexpr StepRule kProcedureSteps{"E0595643", kProcedureRule, "TSRANLPR",
                                   kProcedureRelationships};

constexpr const StepRule* kAllSteps[] = {&kGeologicSteps, &kIndustrialSteps, &kFieldGearSteps,
                                         &kFieldGearMethodSteps, &kProcedureSteps};
constexpr const StepRule* kGeologicRootSteps[] = {&kGeologicSteps};
constexpr const StepRule* kIndustrialRootSteps[] = {&kIndustrialSteps};
constexpr const StepRule* kFieldGearRootSteps[] = {&kFieldGearSteps, &kFieldGearMethodSteps};
constexpr const StepRule* kProcedureRootSteps[] = {&kProcedureSteps};

// ---- Root rules, in the order of the entries.

constexpr RootRule kLabRemark{"E2738301", "TSRLBRMK", kLabRemarkKey, {}, {}};
constexpr RootRule kBioPart{"E0591960", "TSRBIOPT", kBioPartKey, kBioPartReferrers, {}};
constexpr RootRule kStationRole{"E4348087", "TSMPSR", kStationRoleKey, {}, {}};
constexpr RootRule kUnit{"E2738395", "TSRUOM", kUnitKey, kUnitReferrers, {}};
constexpr RootRule kLithologic{"E2173100", "TSMLTHUN", kLithologicKey, {}, {}};
constexpr RootRule kGeologic{"E2173103", "TSMGEOUN", kGeologicKey, {}, kGeologicRootSteps};
constexpr RootRule kIndustrial{"E6427297", "TSMSIC", kIndustrialKey, {}, kIndustrialRootSteps};
constexpr RootRule kHydrologic{"E2167124", "TSMFHU", kHydrologicKey, {}, {}};
constexpr RootRule kLand{"E6375965", "TSMNAL", kLandKey, kLandReferrers, {}};
constexpr RootRule kStationType{"E9874205", "TSMVSTC", kStationTypeKey, kStationTypeReferrers,
                                {}};
constexpr RootRule kFieldGear{"E2738391", "TSRFLDGR", kFieldGearKey, {}, kFieldGearRootSteps};
constexpr RootRule kEquipment{"E2738397", "TSRANLEQ", kEquipmentKey, kEquipmentReferrers, {}};
constexpr RootRule kProcedure{"E2738402", "TSRANLPR", kProcedureKey, {}, kProcedureRootSteps};
constexpr RootRule kSamplePrep{"E9555774", "TSRLSPP", kSamplePrepKey, {}, {}};
constexpr RootRule kPermittedValue{"E3022453", "TSMPRMVL", kPermittedValueKey, {}, {}};
constexpr RootRule kCharacteristic{"E2738406", "TSRCHAR", kCharacteristicKey,
                                   kCharacteristicReferrers, {}};
constexpr RootRule kCharacteristicType{"E0595618", "TSRCHTYP", kCharacteristicTypeKey,
                                       kCharacteristicTypeReferrers, {}};
constexpr RootRule kAssignment{"E0595621", "TSRCTCA", kAssignmentKey, {}, {}};
constexpr RootRule kArea{"E2174604", "TSMGEOPA", kAreaKey, kAreaReferrers, {}};

constexpr RootRule kAllRoots[] = {kLabRemark,  kBioPart,       kStationRole,     kUnit,
                                  kLithologic, kGeologic,      kIndustrial,      kHydrologic,
                                  kLand,       kStationType,   kFieldGear,       kEquipment,
                                  kProcedure,  kSamplePrep,    kPermittedValue,  kCharacteristic,
                                  kCharacteristicType, kAssignment, kArea};

}  // namespace

std::span<const RootRule> RootRules() { return kAllRoots; }
std::span<const StepRule* const> StepRules() { return kAllSteps; }

}  // namespace cascade

using cascade::RunRoot;
using cascade::RunStep;

#define LK_ROOT_ENTRY(name, rule)                                                          \
  void name(HandleA a, HandleB, RunContext* rc, CascadeRecord* record, const void* key, \
            std::uint32_t* token) {                                                        \
    RunRoot(cascade::rule, a, rc, record, key, token);                                     \
  }
#define LK_STEP_ENTRY(name, rule)                                                          \
  void name(HandleA a, HandleB, RunContext* rc, CascadeRecord* record, const void* key, \
            std::uint32_t* token) {                                                        \
    RunStep(cascade::rule, a, rc, record, key, token);                                     \
  }

LK_ROOT_ENTRY(E2738301, kLabRemark)
LK_ROOT_ENTRY(E0591960, kBioPart)
LK_ROOT_ENTRY(E4348087, kStationRole)
LK_ROOT_ENTRY(E2738395, kUnit)
LK_ROOT_ENTRY(E2173100, kLithologic)
LK_ROOT_ENTRY(E2173103, kGeologic)
LK_ROOT_ENTRY(E6427297, kIndustrial)
LK_ROOT_ENTRY(E2167124, kHydrologic)
LK_ROOT_ENTRY(E6375965, kLand)
LK_ROOT_ENTRY(E9874205, kStationType)
LK_ROOT_ENTRY(E2738391, kFieldGear)
LK_ROOT_ENTRY(E2738397, kEquipment)
LK_ROOT_ENTRY(E2738402, kProcedure)
LK_ROOT_ENTRY(E9555774, kSamplePrep)
LK_ROOT_ENTRY(E3022453, kPermittedValue)
LK_ROOT_ENTRY(E2738406, kCharacteristic)
LK_ROOT_ENTRY(E0595618, kCharacteristicType)
LK_ROOT_ENTRY(E0595621, kAssignment)
LK_ROOT_ENTRY(E2174604, kArea)

LK_STEP_ENTRY(E7337703, kGeologicSteps)
LK_STEP_ENTRY(E6427302, kIndustrialSteps)
LK_STEP_ENTRY(E2753024, kFieldGearSteps)
LK_STEP_ENTRY(E0589820, kFieldGearMethodSteps)
LK_STEP_ENTRY(E0595643, kProcedureSteps)

#undef LK_ROOT_ENTRY
#undef LK_STEP_ENTRY

void F3020987(HandleA a, HandleB, RunContext* rc, CascadeRecord*,
              const ProcedureLinkRecord* procedure, const IsNumberKey* equipment) {
  cascade::RunDisassociation(a, rc, procedure, equipment);
}

}  // namespace lk::store
