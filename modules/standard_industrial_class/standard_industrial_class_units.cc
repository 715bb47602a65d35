// What RT32A and RT33 add to their patterns: RT33's required fields and its
// duplicate read, RT32A's dialog and its reference read, and the unused
// Delete click of RT32.
#include "modules/standard_industrial_class/standard_industrial_class_units.h"

#include "frame/run_context.h"
#include "modules/standard_industrial_class/standard_industrial_class.h"
#include "patterns/data_entry.h"
#include "services/text.h"

namespace lk::standard_industrial_class {

// ---- RT33's part of the body-style window ----

bool SicEntry::CheckFields(RunContext* rc, EntryExport* out) {
  auto& row = out->EXPORT.ROW;
  return patterns::CheckRequired(rc, {{row.TSMSIC_CODE.display, row.TSMSIC_CODE.value},
                                      {row.NAME.display, row.NAME.value}});
}

// Code, name and ORG ID on ADD and on CHANGE alike.
void SicEntry::CheckDuplicate(HandleA a, HandleB b, RunContext* rc, const EntryExport& in,
                              bool) {
  SicRow key{};
  TextMove(key.TSMSIC_CODE, in.EXPORT.ROW.TSMSIC_CODE.value, sizeof key.TSMSIC_CODE);
  TextMove(key.TSMSIC_ORG_ID, in.EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID.value,
           sizeof key.TSMSIC_ORG_ID);
  BoundedCopy(key.NAME, in.EXPORT.ROW.NAME.value, sizeof key.NAME);
  ReadForDupSic(a, b, rc, key);
}

// ---- RT32A: the reference read, then the row marked in the list, dropped
// from the group whatever REMOVE_STANDARD_INDUSTRIAL_CODE says ----

bool SicList::MayRemove(HandleA a, HandleB b, RunContext* rc, const UnitId& own,
                        const SicRow& row) {
  patterns::CallActionBlock(rc, own, [&] { ReadSicForReferencedStations(a, b, rc, row); });
  if (rc->exit_state == EXIT_FSA_FOUND) {
    SetExit(rc, EXIT_FSA_FOUND, kReferencedText, 'E');
    return false;
  }
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  return true;
}

const patterns::DeleteDialog SicList::kDeleteDialog = {
    kDeleteWindowName, &kListViews, "EXPORT_LIST", kListRows,
    patterns::DeleteRowFrom::kFirstMarked, patterns::DropRule::kAlways};

// ---- RT32_STND_INDSTR_PB_DELETE_CLICK: what the Delete button's control
// row does, as an event action no table names ----

void UnusedDeleteClick(HandleA a, HandleB b, RunContext* rc, void* import_view,
                       void* export_view) {
  List::Delete(kUnusedDeleteId, a, b, rc, import_view, export_view);
}

}  // namespace lk::standard_industrial_class
