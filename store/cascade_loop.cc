// The root call and the cascade loop of the REMOVE action blocks (see
// cascade_loop.h), and their four tables of steps.
#include "store/cascade_loop.h"

#include <cstdio>
#include <cstring>

#include "services/text.h"
#include "store/cascade_step.h"

namespace lk::store {

namespace {

constexpr std::uint32_t kGeologicRelationships[] = {kGeologicUnitSprings,
                                                    kGeologicUnitIntervals};
constexpr std::uint32_t kIndustrialRelationships[] = {kIndustrialClassFacilities,
                                                      kIndustrialClassOther};
constexpr std::uint32_t kFieldGearRelationships[] = {kFieldGearRelationship};
constexpr std::uint32_t kProcedureRelationships[] = {kProcedureReferrers};

constexpr CascadeStepRow kFieldGearRows[] = {
    {kFieldGearRule, kFieldGearRelationships, &E2753024},
    {kFieldGearMethodRule, kFieldGearMethodRelationships, &E0589820}};
constexpr CascadeStepRow kIndustrialRows[] = {
    {kIndustrialClassRule, kIndustrialRelationships, &E6427302}};
constexpr CascadeStepRow kGeologicRows[] = {
    {kGeologicUnitRule, kGeologicRelationships, &E7337703}};
constexpr CascadeStepRow kProcedureRows[] = {
    {kProcedureRule, kProcedureRelationships, &E0595643}};

// The size of each dependent key column, four digits with leading zeros in
// the descriptor.
constexpr int kKeyFieldSize = 8;

CascadeStepService g_step_service = &CascadeStep;

bool StatusBlank(const RunContext& rc) {
  return (rc.status[0] == ' ' || rc.status[0] == '\0') &&
         (rc.status[1] == ' ' || rc.status[1] == '\0');
}

bool ResultOk(const CascadeRecord& record) { return std::memcmp(record.result, "OK", 2) == 0; }

void ZeroDatabaseArea(RunContext* rc) {
  if (rc->database_area != nullptr) std::memset(rc->database_area, 0, kDatabaseAreaSize);
}

void AskNext(HandleA a, HandleB b, CascadeRecord* record) {
  record->first = 'N';
  g_step_service(a, b, record, kStepRequestText);
}

// One step of `row` for the record's pending dependant. `key` keeps the
// dependent key fields from one step to the next.
void RunStep(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
             const CascadeStepRow& row, IsNumberKey* key) {
  record->first = 'R';
  std::memcpy(record->result, "OK", 2);
  bool known = false;
  for (std::uint32_t relationship : row.relationships) {
    if (relationship == record->relationship) known = true;
  }
  if (known) {
    KeyDescriptor descriptor = kDependentKeyDescriptor;
    for (auto& size : descriptor.sizes) {
      char text[8];
      std::snprintf(text, sizeof text, "%04d", kKeyFieldSize);  // "0008"
      std::memcpy(size, text, sizeof size);
    }
    g_step_service(a, b, record, reinterpret_cast<const char*>(&descriptor));
    if (ResultOk(*record)) {
      std::memcpy(&key->is_number, record->message, sizeof(double));
      std::memcpy(key->org_id, record->message + sizeof(double), kKeyFieldSize);
      key->org_id[kKeyFieldSize] = '\0';
    }
  }
  if (!ResultOk(*record)) {
    ZeroDatabaseArea(rc);
    Fail(rc, "FE", "FE", rc->fail_site, 512);
  }
  SetCascadeRootFlag(rc, 'N');
  std::uint32_t token = record->relationship;
  row.entry(a, b, rc, record, key, &token);
  if (!StatusBlank(*rc)) throw UnitAbort{512};
}

void ReadyRecord(CascadeRecord* record, const char* result) {
  record->first = ' ';
  std::memcpy(record->result, result, 2);
  std::memset(record->message, ' ', sizeof record->message);
  record->rule = 0;
  record->relationship = 0;
}

void BlankStatus(RunContext* rc) { std::memcpy(rc->status, "  ", 3); }

[[noreturn]] void EntityFailed(char* entity_status) {
  if (entity_status != nullptr) std::memcpy(entity_status, "FE", 2);
  throw UnitAbort{0x100};
}

}  // namespace

const CascadeSteps kNatFieldGearSteps = kFieldGearRows;
const CascadeSteps kStandardIndustrialCodeSteps = kIndustrialRows;
const CascadeSteps kGeologicUnitSteps = kGeologicRows;
const CascadeSteps kNatAnalyticalProcedureSteps = kProcedureRows;

CascadeStepService SetCascadeStepServiceForTesting(CascadeStepService service) {
  CascadeStepService previous = g_step_service;
  g_step_service = service;
  return previous;
}

void CallCascadeRoot(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
                     DeleteEntry entry, const void* key, char* entity_status) {
  BlankStatus(rc);
  SetCascadeRootFlag(rc, 'Y');
  ReadyRecord(record, "OK");
  std::uint32_t token = 0;
  entry(a, b, rc, record, key, &token);
  if (!StatusBlank(*rc)) EntityFailed(entity_status);
}

void RunCascadeLoop(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
                    CascadeSteps steps, const UnitId& unit) {
  IsNumberKey key{};
  AskNext(a, b, record);
  while (ResultOk(*record) && StatusBlank(*rc)) {
    const CascadeStepRow* row = nullptr;
    for (const CascadeStepRow& r : steps) {
      if (r.rule == record->rule) row = &r;
    }
    if (row == nullptr) {
      ZeroDatabaseArea(rc);
      Fail(rc, "FE", "FE", rc->fail_site);
    }
    RunStep(a, b, rc, record, *row, &key);
    if (StatusBlank(*rc)) AskNext(a, b, record);
  }
  StoreUnitId(rc, unit);
}

void RemoveThroughCascade(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
                          DeleteEntry entry, const void* key, char* entity_status,
                          CascadeSteps steps, const UnitId& unit) {
  CallCascadeRoot(a, b, rc, record, entry, key, entity_status);
  if (!steps.empty()) RunCascadeLoop(a, b, rc, record, steps, unit);
}

void CallDisassociation(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
                        const ProcedureLinkRecord* procedure, const IsNumberKey* equipment,
                        char* entity_status, const UnitId& unit) {
  BlankStatus(rc);
  SetAllCascadeFlags(rc, 'Y');
  ReadyRecord(record, "  ");
  F3020987(a, b, rc, record, procedure, equipment);
  if (!StatusBlank(*rc)) EntityFailed(entity_status);
  StoreUnitId(rc, unit);
}

void RemoveCurrentRowByKey(Block& block, HandleA a, HandleB b, RunContext* rc,
                           EntityState* state, CascadeRecord* record, DeleteEntry entry,
                           const void* key, const char* statement, CascadeSteps steps,
                           const UnitId& unit) {
  SetState(state->verb, "DL");
  if (StateIs(state->currency, "DU")) {
    SetState(state->status, "DU");
    FailOnStatus(block, *state);
  }
  std::memcpy(rc->status, "  ", 3);
  SetState(state->currency, "DU");
  SetState(state->lock, "UL");
  if (statement != nullptr) rc->statement = statement;
  RemoveThroughCascade(a, b, rc, record, entry, key, state->status, steps, unit);
}

void RemoveCurrentRow(Block& block, HandleA a, HandleB b, RunContext* rc, EntityState* state,
                      CascadeRecord* record, DeleteEntry entry, double is_number,
                      const char* org_id, const char* statement, CascadeSteps steps,
                      const UnitId& unit) {
  IsNumberKey key{};
  key.is_number = is_number;
  TextMove(key.org_id, org_id, sizeof key.org_id);
  RemoveCurrentRowByKey(block, a, b, rc, state, record, entry, &key, statement, steps, unit);
}

}  // namespace lk::store
