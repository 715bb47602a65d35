// The units of a list without paging (patterns/plain_list_views.h): a
// stack-style list (patterns/stack_list.h) that one read fills and whose
// maintenance buttons the list sets itself (patterns/list_buttons.h). The
// steps are those of the stack list, less its page and flags; what this
// list adds:
//
//   Open          after the read, "CHANGE" and "DELETE" disabled.
//   Body          COMMAND "RETURN": the read, the row in hand sought and
//                 marked as on a stack list; then the row found (SUBSCRIPT
//                 above 0) disables "ADD" and enables "CHANGE" and "DELETE",
//                 no row the reverse.
//   Click         a row selected: "ADD" off, "CHANGE" and "DELETE" on; no
//                 row selected after the click: the reverse.
//   ConfirmDelete, CancelDelete  the delete dialog's steps, then "ADD" on,
//                 "CHANGE" and "DELETE" off.
//   Read          the list action block: L::kListStatement, with no binds,
//                 into the group, each row with a blank mark, at most the
//                 group's size; the row beyond ends the read without a word.
//
// L gives: using ListForms, Dictionary (PlainListViews over ListForms); kList
// (the StackList description), kDeleteDialog; kBodyId and kListId;
// kListStatement into ListForms::Row; the REMOVE of the row in hand: using
// Blocks (patterns/row_blocks.h), kRemoveId and kCascadeEntry.
//
// Contract: the units' entry protocol of frame/unit.h; PlainListUnits<L>
// holds the static storage of its units; one thread.
#ifndef WATRIX_PATTERNS_PLAIN_LIST_UNITS_H_
#define WATRIX_PATTERNS_PLAIN_LIST_UNITS_H_

#include <cstring>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/unit.h"
#include "patterns/delete_dialog.h"
#include "patterns/first_page_list.h"
#include "patterns/group.h"
#include "patterns/list_buttons.h"
#include "patterns/stack_list.h"
#include "services/number.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/entity_state.h"
#include "store/statement.h"

namespace lk::patterns {

template <class L>
class PlainListUnits {
 public:
  using Import = typename L::Dictionary::Import;
  using Export = typename L::Dictionary::Export;
  using Row = typename L::ListForms::Row;

  static void Body(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
    EnterProcedure(&body_unit_, &L::Dictionary::kShape, /*load_only_test=*/true, a, b, rc,
                   import_view, export_view, [&] {
                     auto* in = static_cast<const Import*>(import_view);
                     auto* e = static_cast<Export*>(export_view);
                     StoreUnitId(rc, L::kBodyId);
                     rc->statement = kStatement1;
                     const StackListView view = ViewOf(e);
                     if (!internal::BeginBody(L::kList, rc, in, e)) return;
                     StackRefresh(L::kList, a, b, rc, L::kBodyId, view, nullptr,
                                  [&] { Read(a, b, rc, e); });
                     SelectedButtons(a, b, e);
                   });
  }

  static void Open(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                   void* export_view) {
    Action(&open_unit_, id, a, b, rc, import_view, export_view, [&](Export* e) {
      StackOpen(L::kList, rc, id, import_view, ViewOf(e), [&] { Read(a, b, rc, e); });
      ButtonsAtOpen(a, b);
    });
  }
  static void Click(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                    void* export_view) {
    Action(&click_unit_, id, a, b, rc, import_view, export_view, [&](Export* e) {
      StackClick(L::kList, a, b, rc, ViewOf(e), nullptr, nullptr);
      SelectedButtons(a, b, e);
    });
  }
  static void DoubleClick(const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                          void* import_view, void* export_view) {
    Action(&double_click_unit_, id, a, b, rc, import_view, export_view,
           [&](Export* e) { StackDoubleClick(L::kList, a, b, rc, ViewOf(e)); });
  }
  static void Add(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                  void* export_view) {
    Action(&add_unit_, id, a, b, rc, import_view, export_view,
           [&](Export* e) { StackAdd(L::kList, rc, ViewOf(e)); });
  }
  static void Change(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                     void* export_view) {
    Action(&change_unit_, id, a, b, rc, import_view, export_view,
           [&](Export*) { StackChange(L::kList, rc); });
  }
  static void Delete(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                     void* export_view) {
    Action(&delete_unit_, id, a, b, rc, import_view, export_view,
           [&](Export* e) { StackDeleteButton(L::kList, a, b, rc, ViewOf(e)); });
  }
  static void Close(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                    void* export_view) {
    Action(&close_unit_, id, a, b, rc, import_view, export_view,
           [&](Export*) { StackClose(rc); });
  }

  // The delete dialog's Delete: the row in hand, by its IS number and ORG ID,
  // to the REMOVE block.
  static void ConfirmDelete(const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                            void* import_view, void* export_view) {
    Action(&confirm_unit_, id, a, b, rc, import_view, export_view, [&](Export* e) {
      DeleteConfirmed(L::kDeleteDialog, a, b, rc, id, DeleteListOf(e), [&] {
        using Forms = typename L::ListForms;
        using KeyForms = typename L::Blocks::Forms;
        typename KeyForms::Row key{};
        std::memcpy(key.*KeyForms::kIsNumberRow, (e->EXPORT_SELECTED.*Forms::kIsNumber).value,
                    sizeof(key.*KeyForms::kIsNumberRow));
        TextMove(key.*KeyForms::kOrgIdRow, (e->EXPORT_SELECTED.*Forms::kOrgId).value,
                 sizeof(key.*KeyForms::kOrgIdRow));
        L::Blocks::Remove(L::kRemoveId, a, b, rc, &key, L::kCascadeEntry);
      });
      ButtonsForNoRow(a, b);
    });
  }
  static void CancelDelete(const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                           void* import_view, void* export_view) {
    Action(&dismiss_unit_, id, a, b, rc, import_view, export_view, [&](Export* e) {
      DeleteCancelled(L::kDeleteDialog, a, b, rc, DeleteListOf(e));
      ButtonsForNoRow(a, b);
    });
  }

  // The list action block over the export view.
  static void Read(HandleA a, HandleB b, RunContext* rc, Export* e) {
    store::RunActionBlock(&list_unit_, L::kListId, a, b, rc, {&list_cursor_},
                          [&](store::Block& block) {
      store::ResetEntity(&list_state_);
      auto& group = e->GRP_EXPORT;
      constexpr int kRows = L::ListForms::kRows;
      int count = 0;
      std::memset(&row_, 0, sizeof row_);
      store::ReadList(block, &list_cursor_, L::kListStatement, &list_state_, &no_binds_, &row_,
                      [&] {
        if (count >= kRows) return false;
        const int r = ++count;
        TextMove(group.SELECT_CHAR.value[r], "", 2);
        RowToGroup(L::ListForms::kAttributes, &row_, &group, r);
        return true;
      });
      group.count = count;
    });
  }

 private:
  static constexpr char kStatement1[] = "0000000001";

  template <typename Step>
  static void Action(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                     void* import_view, void* export_view, Step&& step) {
    EnterEventAction(unit, &L::Dictionary::kShape, id, a, b, rc, import_view, export_view, [&] {
      rc->statement = kStatement1;
      step(static_cast<Export*>(export_view));
    });
  }

  // The buttons by the SUBSCRIPT now in the view.
  static void SelectedButtons(HandleA a, HandleB b, Export* e) {
    if (GetNumber(e->EXPORT_ROW_SELECTED.SUBSCRIPT.value) > 0) {
      ButtonsForRow(a, b);
    } else {
      ButtonsForNoRow(a, b);
    }
  }

  static StackListView ViewOf(Export* e) {
    using Forms = typename L::ListForms;
    return {e,
            e->GRP_EXPORT.SELECT_CHAR.value,
            &e->GRP_EXPORT.count,
            (e->GRP_EXPORT.*Forms::kIsNumberColumn).value,
            (e->GRP_EXPORT.*Forms::kOrgIdColumn).value,
            (e->EXPORT_SELECTED.*Forms::kIsNumber).value,
            (e->EXPORT_SELECTED.*Forms::kOrgId).value,
            e->EXPORT_ROW_SELECTED.SUBSCRIPT.value,
            nullptr,
            nullptr,
            nullptr,
            nullptr,
            nullptr};
  }
  static DeleteList DeleteListOf(Export* e) {
    return {e, e->GRP_EXPORT.SELECT_CHAR.value, &e->GRP_EXPORT.count,
            e->EXPORT_ROW_SELECTED.SUBSCRIPT.value};
  }

  static inline UnitStorage body_unit_, open_unit_, click_unit_, double_click_unit_, add_unit_,
      change_unit_, delete_unit_, close_unit_, confirm_unit_, dismiss_unit_, list_unit_;
  static inline store::Cursor list_cursor_;
  static inline store::EntityState list_state_;
  static inline char no_binds_[1];
  static inline Row row_;
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_PLAIN_LIST_UNITS_H_
