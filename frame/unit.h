// The entry protocol of units: how a procedure body, an event action and an
// action block are entered, initialised, failed and left.
//
// A unit keeps its arguments in a UnitStorage of static duration: one
// activation at a time, never reentrant. The abort frame is the exception
// type UnitAbort, thrown by a failing unit (Fail, CheckCallee) and caught by
// the unit's own entry helper, which then returns; nothing of the unit runs
// after the throw, and no other exception crosses a unit.
#ifndef WATRIX_FRAME_UNIT_H_
#define WATRIX_FRAME_UNIT_H_

#include <cstdint>
#include <cstring>

#include "frame/entry.h"
#include "frame/run_context.h"

namespace lk {

// The jump to a unit's abort frame; `value` is 0x100, 0x200 or -1 and is
// never looked at.
struct UnitAbort {
  int value;
};

// The part of a unit's header that changes at run time.
struct UnitStatus {
  char ok[4];            // " OK "
  std::uint32_t words[2];  // cleared on every entry
  char version[4];       // "0500", copied on every entry
  char mark;             // 'U', set on every entry
};

// The constant identity of a unit: its ten-digit number and its name.
struct UnitId {
  const char* number;  // "0017498133"
  const char* name;    // at most 32 characters
};

// A step of a pattern that runs under the identity of the unit that takes
// it, and the event action that takes `Step` as the unit `Id`: the event
// actions that only forward to their pattern are this, not functions of
// their own.
using PatternStep = void (*)(const UnitId&, HandleA, HandleB, RunContext*, void*, void*);
template <PatternStep Step, const UnitId& Id>
void StepAs(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Step(Id, a, b, rc, import_view, export_view);
}

// Where the timestamps of a view lie, so that the initialising step can put
// the default timestamp in place. `rows` is 0 for a single attribute, else the
// group's limit (row r at location + r * 21).
struct TimestampSlot {
  std::uint32_t location;
  std::uint32_t rows;
};

// What the initialising step needs to know of a procedure's views.
struct ViewShape {
  std::uint32_t export_size;
  const TimestampSlot* export_timestamps;  // ended by location 0
  const TimestampSlot* import_timestamps;  // ended by location 0
};

// A unit's static storage: its five arguments, its nesting counter and its
// status block.
struct UnitStorage {
  HandleA a = nullptr;
  HandleB b = nullptr;
  RunContext* rc = nullptr;
  void* import_view = nullptr;
  void* export_view = nullptr;
  int nesting = 0;
  UnitStatus status{};
};

// Stores unit_number and unit_name of `id` into RunContext.
void StoreUnitId(RunContext* rc, const UnitId& id);

// The initialising step. With `first_call`, zeroes the export view and puts
// the default timestamp into its timestamp attributes and into the empty
// timestamps of the import view.
void InitialiseUnit(UnitStorage* unit, const ViewShape* shape, bool first_call);

// A failure of the running unit: writes status, status_detail and fail_site,
// and jumps to the abort frame.
[[noreturn]] void Fail(RunContext* rc, const char* status, const char* detail,
                       std::uint32_t site, int jump = 0x100);

// After an action block call: if status is not blank, or run_mode or
// subscript_fault is not ' ', jumps to the caller's abort frame.
void CheckCallee(RunContext* rc);

// A group subscript check: outside 1..limit sets subscript_fault 'Y' and
// jumps with 0x100.
void CheckSubscript(RunContext* rc, int subscript, int limit);

// Enters a procedure: stores the arguments, honours run_mode 'L' when
// `load_only_test` is set, counts the nesting, arms the abort frame, runs the
// initialising step with the first-call argument set, runs `body`.
template <typename Body>
void EnterProcedure(UnitStorage* unit, const ViewShape* shape, bool load_only_test, HandleA a,
                    HandleB b, RunContext* rc, void* import_view, void* export_view,
                    Body&& body) {
  unit->a = a;
  unit->b = b;
  unit->rc = rc;
  unit->import_view = import_view;
  unit->export_view = export_view;
  if (load_only_test && rc->run_mode == 'L') return;
  ++unit->nesting;
  try {
    InitialiseUnit(unit, shape, /*first_call=*/true);
    body();
  } catch (const UnitAbort&) {
  }
  --unit->nesting;
}

// Enters an event action: as a procedure, but the nesting counter is left
// alone and the initialising step runs with the first-call argument clear;
// then stores the action's own unit id and runs `statements`.
template <typename Statements>
void EnterEventAction(UnitStorage* unit, const ViewShape* shape, const UnitId& id, HandleA a,
                      HandleB b, RunContext* rc, void* import_view, void* export_view,
                      Statements&& statements) {
  unit->a = a;
  unit->b = b;
  unit->rc = rc;
  unit->import_view = import_view;
  unit->export_view = export_view;
  if (rc->run_mode == 'L') return;
  try {
    InitialiseUnit(unit, shape, /*first_call=*/false);
    StoreUnitId(rc, id);
    statements();
  } catch (const UnitAbort&) {
  }
}

// Enters an action block: stores the run handles, arms the abort frame and
// runs `body`. A failure inside leaves status set for the caller to see.
template <typename Body>
void EnterActionBlock(UnitStorage* unit, HandleA a, HandleB b, RunContext* rc, Body&& body) {
  unit->a = a;
  unit->b = b;
  unit->rc = rc;
  ++unit->nesting;
  try {
    InitialiseUnit(unit, nullptr, /*first_call=*/false);
    body();
  } catch (const UnitAbort&) {
  }
  --unit->nesting;
}

}  // namespace lk

#endif  // WATRIX_FRAME_UNIT_H_
