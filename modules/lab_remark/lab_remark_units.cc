// What RT50, RT50A and RT51 add to their patterns: the list's and the
// dialog's descriptions, RT51's required fields, and the calls of the
// module's action blocks.
#include "modules/lab_remark/lab_remark_units.h"

#include "modules/lab_remark/lab_remark.h"
#include "modules/lab_remark/lab_remark_blocks.h"
#include "patterns/data_entry.h"
#include "services/text.h"

namespace lk::lab_remark {

const patterns::StackList RemarkList::kList = ListDictionary::Describe(
    &kListViews, EXIT_LINK_RT51, kDeleteWindowName, /*open_enables_prev=*/false);

const patterns::DeleteDialog RemarkList::kDeleteDialog = {
    kDeleteWindowName,
    &kListViews,
    "GRP_EXPORT",
    kListRows,
    patterns::DeleteRowFrom::kSelectedSubscript,
    patterns::DropRule::kOnExitNone,
};

const ViewNameRow& RemarkEntry::Views() { return kEntryViews; }

// Short Name, then Description.
bool RemarkEntry::CheckFields(RunContext* rc, EntryExport* e) {
  return patterns::CheckRequired(
      rc, {{e->ROW.SHORT_NAME.display, e->ROW.SHORT_NAME.value},
           {e->ROW.DESCRIPTION_TEXT.display, e->ROW.DESCRIPTION_TEXT.value}});
}

void RemarkEntry::CheckDuplicate(HandleA a, HandleB b, RunContext* rc, const EntryExport& e) {
  RemarkRow name{}, found{};
  TextMove(name.SHORT_NAME, e.ROW.SHORT_NAME.value, sizeof name.SHORT_NAME);
  BoundedCopy(name.DESCRIPTION_TEXT, e.ROW.DESCRIPTION_TEXT.value, sizeof name.DESCRIPTION_TEXT);
  Blocks::Duplicate(kCheckId, a, b, rc, &name, &found);
}

}  // namespace lk::lab_remark
