// The flow pair, send and receive, driven from a FlowBinding: the few
// attributes that a flow passes between the views of its two procedures.
//
// Send copies each pair from the source's export view into the target's
// fresh import view. Receive first rebuilds the source's import view from
// its export view, then lays each pair of the target's export view over it.
// A pair of group columns carries the whole column and the group's count.
#include <algorithm>

#include "frame/transport/plan_internal.h"

namespace lk::transport {
namespace {

// Copies one attribute from `from_view` at `from_location` to `to_view` at
// `to_location`. For a group column: rows 0 up to the smaller limit, and the
// group's count, from the export or import count as each side says.
void CopyPair(const ViewPlan& from_plan, const AttributePlan& from, const void* from_view,
              u32 from_location, bool from_export, const ViewPlan& to_plan,
              const AttributePlan& to, void* to_view, u32 to_location, bool to_export) {
  if (from.group < 0) {
    CopyValue(At(to_view, to_location), to, At(from_view, from_location), from);
    return;
  }
  const GroupPlan& fg = from_plan.groups[from.group];
  const GroupPlan& tg = to_plan.groups[to.group];
  const u32 from_count = from_export ? fg.count_location : fg.import_count_location;
  const u32 to_count = to_export ? tg.count_location : tg.import_count_location;
  const int rows = std::min(fg.limit, tg.limit);
  if (from_count != 0) {
    WriteCount(to_view, to_count, ReadCount(from_view, from_count, rows, rows));
  }
  for (int r = 0; r <= rows; ++r) {
    CopyValue(At(to_view, RowOffset(to, to_location, r)), to,
              At(from_view, RowOffset(from, from_location, r)), from);
  }
}

}  // namespace
}  // namespace lk::transport

namespace lk {

void SendBy(const FlowBinding& flow, void* target_import, const void* source_export) {
  using namespace transport;
  const FlowPlan& plan = PlanForFlow(flow);
  for (const PairPlan& p : plan.send) {
    const AttributePlan& from = plan.source->attributes[p.source];
    const AttributePlan& to = plan.target->attributes[p.target];
    CopyPair(*plan.source, from, source_export, from.export_location, true, *plan.target, to,
             target_import, to.import_location, false);
  }
}

void ReceiveBy(const FlowBinding& flow, void* source_export, void* source_import,
               const void* target_export) {
  using namespace transport;
  const FlowPlan& plan = PlanForFlow(flow);
  ExportToImportBy(*flow.source_views, source_export, source_import);
  for (const PairPlan& p : plan.receive) {
    const AttributePlan& from = plan.target->attributes[p.target];
    const AttributePlan& to = plan.source->attributes[p.source];
    CopyPair(*plan.target, from, target_export, from.export_location, true, *plan.source, to,
             source_import, to.import_location, false);
  }
}

}  // namespace lk
