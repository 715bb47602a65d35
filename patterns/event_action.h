// The frame of the units a module writes itself, for procedures whose steps
// no pattern holds: the units' entry protocol (frame/unit.h), statement 1,
// EXIT_NONE with a blank message, then the unit's own step over the
// procedure's views.
//
//   RunBody         a procedure body: the import view into the export view
//                   by `views` first, then step(export).
//   RunEventAction  an event action: step(import, export).
//
// Contract: `Import` and `Export` are the procedure's view types; the step
// may leave by the abort frame (UnitAbort), which the entry catches. One
// thread; the unit's storage is the caller's.
#ifndef WATRIX_PATTERNS_EVENT_ACTION_H_
#define WATRIX_PATTERNS_EVENT_ACTION_H_

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/transport/plan.h"
#include "frame/unit.h"

namespace lk::patterns {

template <class Export, typename Step>
void RunBody(UnitStorage* unit, const ViewShape& shape, const UnitId& id,
             const ViewNameRow& views, HandleA a, HandleB b, RunContext* rc, void* import_view,
             void* export_view, Step&& step) {
  EnterProcedure(unit, &shape, /*load_only_test=*/true, a, b, rc, import_view, export_view,
                 [&] {
                   StoreUnitId(rc, id);
                   rc->statement = "0000000001";
                   SetExit(rc, EXIT_NONE, nullptr, 'N');
                   ImportToExportBy(views, import_view, export_view);
                   step(static_cast<Export*>(export_view));
                 });
}

template <class Import, class Export, typename Step>
void RunEventAction(UnitStorage* unit, const ViewShape& shape, const UnitId& id, HandleA a,
                    HandleB b, RunContext* rc, void* import_view, void* export_view,
                    Step&& step) {
  EnterEventAction(unit, &shape, id, a, b, rc, import_view, export_view, [&] {
    rc->statement = "0000000001";
    SetExit(rc, EXIT_NONE, nullptr, 'N');
    step(static_cast<const Import*>(import_view), static_cast<Export*>(export_view));
  });
}

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_EVENT_ACTION_H_
