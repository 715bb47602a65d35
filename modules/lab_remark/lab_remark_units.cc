// What RT50, RT50A and RT51 add to their patterns: the list's and the
// dialog's descriptions, RT51's required fields, and the calls of the
// module's action blocks.
#include "modules/lab_remark/lab_remark_units.h"

#include <cstring>

#include "modules/lab_remark/lab_remark.h"
#include "modules/lab_remark/lab_remark_blocks.h"
#include "patterns/data_entry.h"
#include "services/text.h"

namespace lk::lab_remark {

namespace {

const char* const kListBodyViews[] = {
    "EXPORT.SYSTEM_VARIABLE.", "EXPORT_SELECTED.LAB_REMARK.",
    "EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.", "EXPORT_STACK.RUNTIME_SUPPLIED.", nullptr};

// The key of a row of the list as the blocks take it.
RemarkRow KeyOf(const RemarkListRow& row) {
  RemarkRow key{};
  std::memcpy(key.TSRLBRMK_IS_NUMBER, row.TSRLBRMK_IS_NUMBER, sizeof key.TSRLBRMK_IS_NUMBER);
  TextMove(key.TSRLBRMK_ORG_ID, row.TSRLBRMK_ORG_ID, sizeof key.TSRLBRMK_ORG_ID);
  return key;
}

}  // namespace

const patterns::StackList RemarkList::kList = {
    &kListViews,          kListBodyViews,
    "EXPORT.SYSTEM_VARIABLE.", "GRP_EXPORT_STACK",
    "GRP_EXPORT.LAB_REMARK.",  "EXPORT_SELECTED.LAB_REMARK.",
    kListRows,            EXIT_LINK_RT51,
    kDeleteWindowName,    /*open_enables_prev=*/false,
};

const patterns::DeleteDialog RemarkList::kDeleteDialog = {
    kDeleteWindowName,
    &kListViews,
    "GRP_EXPORT",
    kListRows,
    patterns::DeleteRowFrom::kSelectedSubscript,
    patterns::DropRule::kOnExitNone,
};

void RemarkList::Remove(HandleA a, HandleB b, RunContext* rc, const RemarkListRow& row) {
  const RemarkRow key = KeyOf(row);
  Blocks::Remove(kRemoveId, a, b, rc, &key, store::E2738301);
}

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

void RemarkEntry::Read(HandleA a, HandleB b, RunContext* rc, const RemarkRow& key,
                       RemarkRow* row) {
  Blocks::Read(kReadId, a, b, rc, &key, row);
}

void RemarkEntry::Identify(HandleA a, HandleB b, RunContext* rc,
                           const patterns::SystemVariableView* system, const RemarkRow* row,
                           RemarkRow* written) {
  Blocks::Identify(kIdentifyId, a, b, rc, system, row, written);
}

void RemarkEntry::Modify(HandleA a, HandleB b, RunContext* rc,
                         const patterns::SystemVariableView* system, const RemarkRow* row) {
  RemarkRow written{};
  Blocks::Modify(kModifyId, a, b, rc, system, row, &written);
}

}  // namespace lk::lab_remark
