// The REMOVE action block's side of a cascade delete: the root call of its
// entry, and the loop with which it walks the dependent steps that the
// cascade step service reports. Written once; each REMOVE action block gives
// its entry, its key record and its table of steps.
//
// Contract: these run inside a unit's abort frame (EnterActionBlock). A
// failure leaves the RunContext's status non-blank and jumps to that frame
// by throwing UnitAbort: 0x100 from the root call and for a rule that the
// table does not know, 512 from a step. On a normal return the status is
// blank.
#ifndef WATRIX_STORE_CASCADE_LOOP_H_
#define WATRIX_STORE_CASCADE_LOOP_H_

#include <cstdint>
#include <span>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/unit.h"
#include "store/cascade.h"
#include "store/entity_state.h"
#include "store/statement.h"

namespace lk::store {

// One row of a REMOVE action block's table of steps: a delete rule that it
// knows, the relationships of that rule it asks keys for, and the entry that
// takes each dependant.
struct CascadeStepRow {
  std::uint32_t rule;
  std::span<const std::uint32_t> relationships;
  DeleteEntry entry;
};
using CascadeSteps = std::span<const CascadeStepRow>;

// The tables of steps of the four REMOVE action blocks whose tables have
// dependants.
extern const CascadeSteps kNatFieldGearSteps;            // REMOVE_NAT_FIELD_GEAR
extern const CascadeSteps kStandardIndustrialCodeSteps;  // REMOVE_STANDARD_INDUSTRIAL_CODE
extern const CascadeSteps kGeologicUnitSteps;            // REMOVE_GEOLOGIC_UNIT
extern const CascadeSteps kNatAnalyticalProcedureSteps;  // REMOVE_NAT_ANALYTICAL_PROCEDURE

// The root call. Blanks the RunContext's status, sets the last cascade flag
// 'Y', readies the record (first byte blank, result "OK", message area
// blank, rule and relationship 0) and calls `entry` with `key` and a token
// of 0. A non-blank status afterwards: `entity_status` (two characters, may
// be null) := "FE", jump with 0x100.
void CallCascadeRoot(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
                     DeleteEntry entry, const void* key, char* entity_status);

// The cascade loop, after the root call:
//  1. first byte 'N'; step service with the text "4.2.".
//  2. While the result is "OK" and the status is blank: find the record's
//     rule in `steps` (unknown: database area zeroed, status and detail
//     "FE", jump with 0x100); run the step; if the status is blank, first
//     byte 'N' and ask the step service again.
//     A step: first byte 'R', result "OK"; if the relationship is one of
//     the row's, the descriptor's sizes := "0008" (four digits of 8) and the
//     step service gives the dependent key; if the result is "OK", last cascade flag 'N',
//     token := relationship, call the row's entry with the key (a non-blank
//     status: jump with 512); otherwise database area zeroed, status and
//     detail "FE", jump with 512.
//  3. Stores `unit` (the action block's number and name) in the RunContext.
void RunCascadeLoop(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
                    CascadeSteps steps, const UnitId& unit);

// CallCascadeRoot, then RunCascadeLoop when `steps` is not empty. A REMOVE
// action block of a table without dependants passes no steps: the entry
// returns and the step service is not asked.
void RemoveThroughCascade(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
                          DeleteEntry entry, const void* key, char* entity_status,
                          CascadeSteps steps, const UnitId& unit);

// The delete of the row that the block's select has just made current, keyed
// by its IS number and ORG ID: verb "DL"; a row whose currency is already
// "DU" is a fatal stop with status "DU"; then the status blank, currency
// "DU", lock "UL", `statement` (when not null) put in place, and the entry
// through RemoveThroughCascade with `state.status` as the entity status.
void RemoveCurrentRow(Block& block, HandleA a, HandleB b, RunContext* rc, EntityState* state,
                      CascadeRecord* record, DeleteEntry entry, double is_number,
                      const char* org_id, const char* statement, CascadeSteps steps,
                      const UnitId& unit);

// The same for a row keyed otherwise (a code table's CodeKey): `key` is the
// key record that the entry takes.
void RemoveCurrentRowByKey(Block& block, HandleA a, HandleB b, RunContext* rc,
                           EntityState* state, CascadeRecord* record, DeleteEntry entry,
                           const void* key, const char* statement, CascadeSteps steps,
                           const UnitId& unit);

// The disassociation of a procedure from its equipment (verb "DA"): blanks
// the status, sets all five cascade flags 'Y', readies the record (first
// byte, result and message area blank, rule and relationship 0), calls
// F3020987. A non-blank status afterwards: `entity_status` := "FE", jump
// with 0x100. Then stores `unit` in the RunContext.
void CallDisassociation(HandleA a, HandleB b, RunContext* rc, CascadeRecord* record,
                        const ProcedureLinkRecord* procedure, const IsNumberKey* equipment,
                        char* entity_status, const UnitId& unit);

// The step service that the loop calls (CascadeStep of store/cascade_step.h
// unless replaced). Tests put a counting wrapper here; answers the previous
// one.
using CascadeStepService = void (*)(HandleA, HandleB, CascadeRecord*, const char* descriptor);
CascadeStepService SetCascadeStepServiceForTesting(CascadeStepService service);

}  // namespace lk::store

#endif  // WATRIX_STORE_CASCADE_LOOP_H_
