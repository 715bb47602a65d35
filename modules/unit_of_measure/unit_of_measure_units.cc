// What RT34A and RT35 add to their patterns: RT35's required fields and its
// duplicate check, RT34A's dialog.
#include "modules/unit_of_measure/unit_of_measure_units.h"

#include "frame/run_context.h"
#include "modules/unit_of_measure/unit_of_measure.h"
#include "modules/unit_of_measure/unit_of_measure_blocks.h"
#include "patterns/data_entry.h"
#include "services/text.h"

namespace lk::unit_of_measure {

const ViewNameRow& UomList::Views() { return kListViews; }
const ViewNameRow& UomEntry::Views() { return kEntryViews; }

// Uom Type, Short Form Name, Description.
bool UomEntry::CheckFields(RunContext* rc, EntryExport* out) {
  auto& row = out->EXPORT.ROW;
  return patterns::CheckRequired(rc, {{row.UOM_TYPE.display, row.UOM_TYPE.value},
                                      {row.SHORT_FORM_NAME.display, row.SHORT_FORM_NAME.value},
                                      {row.DESCRIPTION_TEXT.display, row.DESCRIPTION_TEXT.value}});
}

// READ_FOR_DUP_UOM: the type and the short form within CURRENT_ORG_ID; its
// not-found message of kind "E" is overwritten at once by the caller.
void UomEntry::CheckDuplicate(HandleA a, HandleB b, RunContext* rc, const EntryExport& in,
                              bool) {
  UomRow key{}, found{};
  TextMove(key.TSRUOM_ORG_ID, in.EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID.value,
           sizeof key.TSRUOM_ORG_ID);
  TextMove(key.UOM_TYPE, in.EXPORT.ROW.UOM_TYPE.value, sizeof key.UOM_TYPE);
  TextMove(key.SHORT_FORM_NAME, in.EXPORT.ROW.SHORT_FORM_NAME.value, sizeof key.SHORT_FORM_NAME);
  Blocks::Duplicate(kDuplicateId, a, b, rc, &key, &found);
}

// RT34A: the row marked in the list; dropped from the group whatever the
// remove says.
const patterns::DeleteDialog UomList::kDeleteDialog = {
    kDeleteWindowName, &kListViews, "EXPORT_LIST", kListRows,
    patterns::DeleteRowFrom::kFirstMarked, patterns::DropRule::kAlways};

}  // namespace lk::unit_of_measure
