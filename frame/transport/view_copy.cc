// The view copy pair, import_to_export and export_to_import, driven from the
// dictionary, and the value moves that all transport functions share.
//
// Attribute by attribute, in dictionary order, each attribute that has a
// location in both views is moved by its type. A group's destination count is
// set from the source's count first, and its rows 0..count are moved; display
// bytes of the export view are never touched. A group whose source view has
// no count is copied whole, rows 0..limit, and the destination's count is
// left as it stands.
#include <algorithm>
#include <cstring>

#include "frame/transport/plan_internal.h"
#include "services/text.h"

namespace lk::transport {

void MoveValue(char* dest, const AttributePlan& to, const char* source,
               const AttributePlan& from) {
  switch (to.kind) {
    case Kind::kFixedText:
      TextMove(dest, source, static_cast<int>(to.storage));
      break;
    case Kind::kVaryingText:
      BoundedCopy(dest, source, static_cast<int>(to.storage));
      break;
    default:
      std::memmove(dest, source, std::min(to.storage, from.storage));
      break;
  }
}

void CopyValue(char* dest, const AttributePlan& to, const char* source,
               const AttributePlan& from) {
  if (to.kind == from.kind && to.storage == from.storage) {
    std::memmove(dest, source, to.storage);
  } else {
    MoveValue(dest, to, source, from);
  }
}

namespace {

// Which side of an attribute plan a view copy reads or writes.
enum class Side { kImport, kExport };

u32 LocationOf(const AttributePlan& a, Side side) {
  return side == Side::kImport ? a.import_location : a.export_location;
}

u32 CountLocationOf(const GroupPlan& g, Side side) {
  return side == Side::kImport ? g.import_count_location : g.count_location;
}

void CopyView(const ViewPlan& plan, Side from_side, const void* from, Side to_side, void* to) {
  for (int i : plan.singles) {
    const AttributePlan& a = plan.attributes[i];
    const u32 source = LocationOf(a, from_side);
    const u32 dest = LocationOf(a, to_side);
    if (source == 0 || dest == 0) continue;
    MoveValue(At(to, dest), a, At(from, source), a);
  }
  for (const GroupPlan& g : plan.groups) {
    const u32 source_count = CountLocationOf(g, from_side);
    const int rows = ReadCount(from, source_count, g.limit, g.limit);
    if (source_count != 0) WriteCount(to, CountLocationOf(g, to_side), rows);
    for (int i : g.columns) {
      const AttributePlan& a = plan.attributes[i];
      const u32 source = LocationOf(a, from_side);
      const u32 dest = LocationOf(a, to_side);
      if (source == 0 || dest == 0) continue;
      for (int r = 0; r <= rows; ++r) {
        MoveValue(At(to, RowOffset(a, dest, r)), a, At(from, RowOffset(a, source, r)), a);
      }
    }
  }
}

}  // namespace
}  // namespace lk::transport

namespace lk {

void ImportToExportBy(const ViewNameRow& views, const void* import_view, void* export_view) {
  using namespace transport;
  CopyView(PlanForViews(views), Side::kImport, import_view, Side::kExport, export_view);
}

void ExportToImportBy(const ViewNameRow& views, const void* export_view, void* import_view) {
  using namespace transport;
  CopyView(PlanForViews(views), Side::kExport, export_view, Side::kImport, import_view);
}

}  // namespace lk
