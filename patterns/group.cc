// Dropping a row from a group view, by the dictionary.
#include "patterns/group.h"

#include <cstring>

#include "frame/transport/plan_internal.h"

namespace lk::patterns {

void DropGroupRow(const ViewNameRow& views, const char* group_name, void* export_view, int s) {
  const transport::ViewPlan& plan = transport::PlanForViews(views);
  for (const transport::GroupPlan& g : plan.groups) {
    if (std::strcmp(g.row->group_name, group_name) != 0) continue;
    const int count = transport::ReadCount(export_view, g.count_location, g.limit, 0);
    if (s < 1 || s > count) return;
    for (int column : g.columns) {
      const transport::AttributePlan& a = plan.attributes[column];
      char* values = transport::At(export_view, a.export_location);
      char* display = transport::At(export_view, transport::DisplayOffset(a, &g, 0));
      for (int r = s; r < count; ++r) {
        std::memcpy(values + r * a.storage, values + (r + 1) * a.storage, a.storage);
        std::memcpy(display + r * kDisplayWidth, display + (r + 1) * kDisplayWidth,
                    kDisplayWidth);
      }
      // The row that fell off the end is stale; no code reads it.
    }
    transport::WriteCount(export_view, g.count_location, count - 1);
    return;
  }
}

}  // namespace lk::patterns
