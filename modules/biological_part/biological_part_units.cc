// What RT48, RT48A and RT49 add to their patterns: the list's and the
// dialog's descriptions and RT49's required field.
#include "modules/biological_part/biological_part_units.h"

#include "modules/biological_part/biological_part.h"
#include "patterns/data_entry.h"

namespace lk::biological_part {

const patterns::StackList BioPartList::kList =
    ListDictionary::Describe(&kListViews, EXIT_LINK_RT49, kDeleteWindowName);

const patterns::DeleteDialog BioPartList::kDeleteDialog = {
    kDeleteWindowName,
    &kListViews,
    "GRP_EXPORT",
    kListRows,
    patterns::DeleteRowFrom::kSelectedSubscript,
    patterns::DropRule::kOnExitNone,
};

const ViewNameRow& BioPartEntry::Views() { return kEntryViews; }

bool BioPartEntry::CheckFields(RunContext* rc, EntryExport* e) {
  return patterns::CheckRequired(rc, {{e->ROW.NAME.display, e->ROW.NAME.value}});
}

}  // namespace lk::biological_part
