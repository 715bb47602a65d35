// What RT42, RT42A and RT43 add to their patterns: the list's body by
// COMMAND and its read from the row in hand; the list's and the dialog's
// descriptions; RT43's required fields and its duplicate read.
#include "modules/lithologic_unit/lithologic_unit_units.h"

#include <cstring>

#include "modules/lithologic_unit/lithologic_unit.h"
#include "modules/lithologic_unit/lithologic_unit_blocks.h"
#include "patterns/data_entry.h"
#include "patterns/first_page_list.h"
#include "patterns/group.h"
#include "services/number.h"
#include "services/row_state.h"
#include "services/text.h"

namespace lk::lithologic_unit {

const patterns::StackList List::kList =
    ListDictionary::Describe(&kListViews, EXIT_LINK_RT43, kDeleteWindowName);
const patterns::DeleteDialog List::kDeleteDialog = {
    kDeleteWindowName,
    &kListViews,
    "GRP_EXPORT",
    kListRows,
    patterns::DeleteRowFrom::kSelectedSubscript,
    patterns::DropRule::kAlways,
};

namespace {

constexpr char kStatement1[] = "0000000001";

UnitStorage body_unit, click_unit, double_click_unit, add_unit, change_unit, delete_unit,
    close_unit, confirm_unit, dismiss_unit;
ListFrom from;

patterns::StackListView ViewOf(ListExport* e) {
  return {e,
          e->GRP_EXPORT.SELECT_CHAR.value,
          &e->GRP_EXPORT.count,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          e->EXPORT_ROW_SELECTED.SUBSCRIPT.value,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          nullptr};
}
patterns::DeleteList DeleteListOf(ListExport* e) {
  return {e, e->GRP_EXPORT.SELECT_CHAR.value, &e->GRP_EXPORT.count,
          e->EXPORT_ROW_SELECTED.SUBSCRIPT.value};
}

template <typename Step>
void Action(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
            void* import_view, void* export_view, Step&& step) {
  EnterEventAction(unit, &ListDictionary::kShape, id, a, b, rc, import_view, export_view, [&] {
    rc->statement = kStatement1;
    step(static_cast<ListExport*>(export_view));
  });
}

// READ_LITHOLOGIC_LIST from `from`, under the body.
void Read(HandleA a, HandleB b, RunContext* rc, ListExport* e) {
  rc->run_mode = ' ';
  ReadLithologicList(a, b, rc, from, e);
  CheckCallee(rc);
  StoreUnitId(rc, kBodyId);
}

// "LIST": the row in hand cleared, with the run's ORG ID; the read from the
// top; no row selected.
void FromTheTop(HandleA a, HandleB b, RunContext* rc, ListExport* e) {
  auto& hand = e->EXPORT_SELECTED;
  patterns::BlankShown(LithListForms::kAttributes, &hand);
  TextMove(hand.TSMLTHUN_ORG_ID.value, e->EXPORT.CURRENT_ORG_ID.value,
           sizeof hand.TSMLTHUN_ORG_ID.value);
  TextMove(from.CODE, "", kCode);
  TextMove(from.NAME, "", kName);
  TextMove(from.ORG_ID, hand.TSMLTHUN_ORG_ID.value, sizeof from.ORG_ID);
  Read(a, b, rc, e);
  patterns::PutNumber(e->EXPORT_ROW_SELECTED.SUBSCRIPT.value, 0);
}

// "REFRESH": the read from the row in hand, which the list then begins with;
// the row of its code and ORG ID selected and marked (row 0 when none).
void FromTheRowInHand(HandleA a, HandleB b, RunContext* rc, ListExport* e) {
  const auto& hand = e->EXPORT_SELECTED;
  TextMove(from.CODE, hand.TSMLTHUN_CD.value, kCode);
  TextMove(from.NAME, hand.NAME.value, kName);
  TextMove(from.ORG_ID, hand.TSMLTHUN_ORG_ID.value, sizeof from.ORG_ID);
  Read(a, b, rc, e);
  auto& group = e->GRP_EXPORT;
  const int count = group.count < kListRows ? group.count : kListRows;
  int s = 0;
  for (int r = 1; r <= count && s == 0; ++r)
    if (TextCompare(group.TSMLTHUN_CD.value[r], hand.TSMLTHUN_CD.value) == 0 &&
        TextCompare(group.TSMLTHUN_ORG_ID.value[r], hand.TSMLTHUN_ORG_ID.value) == 0)
      s = r;
  patterns::PutNumber(e->EXPORT_ROW_SELECTED.SUBSCRIPT.value, s);
  RowStateSet(a, b, rc, group.SELECT_CHAR.value[s], kStateMarked);
  RowStateSet(a, b, rc, group.SELECT_CHAR.value[s], kStateCurrent);
}

}  // namespace

void List::Body(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  EnterProcedure(&body_unit, &ListDictionary::kShape, /*load_only_test=*/true, a, b, rc,
                 import_view, export_view, [&] {
                   StoreUnitId(rc, kBodyId);
                   rc->statement = kStatement1;
                   patterns::internal::BeginBody(kList, rc, import_view, export_view);
                   auto* e = static_cast<ListExport*>(export_view);
                   if (TextCompare(rc->command, "LIST") == 0) {
                     FromTheTop(a, b, rc, e);
                   } else if (TextCompare(rc->command, "REFRESH") == 0) {
                     FromTheRowInHand(a, b, rc, e);
                   }
                 });
}

void List::Click(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&click_unit, kClickId, a, b, rc, import_view, export_view,
         [&](ListExport* e) { patterns::StackClick(kList, a, b, rc, ViewOf(e), nullptr, nullptr); });
}

void List::DoubleClick(HandleA a, HandleB b, RunContext* rc, void* import_view,
                       void* export_view) {
  Action(&double_click_unit, kDoubleClickId, a, b, rc, import_view, export_view,
         [&](ListExport* e) { patterns::StackDoubleClick(kList, a, b, rc, ViewOf(e)); });
}

// The row in hand blank but for its ORG ID.
void List::Add(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&add_unit, kAddId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    char org_id[9];
    TextMove(org_id, e->EXPORT_SELECTED.TSMLTHUN_ORG_ID.value, sizeof org_id);
    patterns::StackAdd(kList, rc, ViewOf(e));
    TextMove(e->EXPORT_SELECTED.TSMLTHUN_ORG_ID.value, org_id, sizeof org_id);
  });
}

void List::Change(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&change_unit, kChangeId, a, b, rc, import_view, export_view,
         [&](ListExport*) { patterns::StackChange(kList, rc); });
}

void List::Delete(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&delete_unit, kDeleteId, a, b, rc, import_view, export_view,
         [&](ListExport* e) { patterns::StackDeleteButton(kList, a, b, rc, ViewOf(e)); });
}

// The menu's flow comes back on EXIT_RETURN.
void List::Close(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&close_unit, kCloseId, a, b, rc, import_view, export_view,
         [&](ListExport*) { SetExit(rc, EXIT_RETURN, nullptr, 'N'); });
}

// REMOVE_LITHOLOGIC_UNIT with the code, name and ORG ID of the row in hand.
void List::ConfirmDelete(HandleA a, HandleB b, RunContext* rc, void* import_view,
                         void* export_view) {
  Action(&confirm_unit, kConfirmId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    patterns::DeleteConfirmed(kDeleteDialog, a, b, rc, kConfirmId, DeleteListOf(e), [&] {
      LithRow key{};
      patterns::ShownToRow(LithListForms::kAttributes, &e->EXPORT_SELECTED, &key);
      Blocks::Remove(kRemoveId, a, b, rc, &key, store::E2173100);
    });
  });
}

void List::CancelDelete(HandleA a, HandleB b, RunContext* rc, void* import_view,
                        void* export_view) {
  Action(&dismiss_unit, kDismissId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    patterns::DeleteCancelled(kDeleteDialog, a, b, rc, DeleteListOf(e));
  });
}

const ViewNameRow& LithEntry::Views() { return kEntryViews; }

// USGS Code, then Name.
bool LithEntry::CheckFields(RunContext* rc, EntryExport* e) {
  return patterns::CheckRequired(rc, {{e->ROW.TSMLTHUN_CD.display, e->ROW.TSMLTHUN_CD.value},
                                      {e->ROW.NAME.display, e->ROW.NAME.value}});
}

void LithEntry::CheckDuplicate(HandleA a, HandleB b, RunContext* rc, const EntryExport& e) {
  LithRow key{}, found{};
  patterns::ShownToRow(LithForms::kAttributes, &e.ROW, &key);
  Blocks::Read(kReadId, a, b, rc, &key, &found);
}

}  // namespace lk::lithologic_unit
