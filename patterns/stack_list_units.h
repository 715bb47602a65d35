// The units of a stack-style list (patterns/stack_list.h) typed over the
// module's views (patterns/stack_views.h): the procedure body, each event
// action as a step that a module takes under its own identity (StepAs in
// frame/unit.h), the buttons of its delete dialog (patterns/delete_dialog.h),
// and the list action block, the read of a page between two sentinels:
//
//   Read  the stack and the page as they came; COMMAND "LIST" or "NEXT"
//         keeps the stack: the page's first row key goes to FIRST, each
//         later one to LAST, and the stack's count rises to the page. Rows
//         come by L::kListStatement over the range L::kRangeStart ..
//         L::kRangeEnd into the group, each with a blank mark, at most the
//         group's size and without a word about more. AT_BOTTOM := "Y" when
//         the group is not full, AT_TOP := "Y" on page 1, both blank before.
//
// L gives: using ListForms (the list's row), StackForms (the page keys, by
// LK_GROUP_FORMS), Dictionary (StackListViews over them); kList (the StackList
// description), kDeleteDialog; kBodyId and kListId; kListStatement over
// StackRange<N> (N the storage of kRowKey) into ListForms::Row, kRangeStart,
// kRangeEnd; the members
// kRowKey of the row and kFirstKey, kLastKey of the stack group; and the
// REMOVE of the row in hand: using Blocks (patterns/row_blocks.h), kRemoveId
// and kCascadeEntry.
//
// Contract: the units' entry protocol of frame/unit.h; StackListUnits<L>
// holds the static storage of its units; one thread.
#ifndef WATRIX_PATTERNS_STACK_LIST_UNITS_H_
#define WATRIX_PATTERNS_STACK_LIST_UNITS_H_

#include <cstring>
#include <utility>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/unit.h"
#include "patterns/delete_dialog.h"
#include "patterns/first_page_list.h"
#include "patterns/group.h"
#include "patterns/stack_list.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/entity_state.h"
#include "store/statement.h"

namespace lk::patterns {

// The two sentinels that a stack list's read binds.
template <int N>
struct StackRange {
  char RANGE_START[N];
  char RANGE_END[N];
};

template <class L>
class StackListUnits {
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
                     StackBody(L::kList, a, b, rc, L::kBodyId, in, ViewOf(e),
                               in->EXPORT_STACK.SUBSCRIPT, [&] { Read(a, b, rc, e); });
                   });
  }

  static void Open(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                   void* export_view) {
    Action(&open_unit_, id, a, b, rc, import_view, export_view, [&](Export* e) {
      StackOpen(L::kList, rc, id, import_view, ViewOf(e), [&] { Read(a, b, rc, e); });
    });
  }
  static void Click(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                    void* export_view) {
    Action(&click_unit_, id, a, b, rc, import_view, export_view, [&](Export* e) {
      auto* in = static_cast<const Import*>(import_view);
      StackClick(L::kList, a, b, rc, ViewOf(e), in->EXPORT_NEXT_ENABLED.FLAG,
                 in->EXPORT_PREV_ENABLED.FLAG);
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
  // An event action with an empty body (UnitStorage per identity).
  template <const UnitId& Id>
  static void Nothing(HandleA a, HandleB b, RunContext* rc, void* import_view,
                      void* export_view) {
    static UnitStorage unit;
    EnterEventAction(&unit, &L::Dictionary::kShape, Id, a, b, rc, import_view, export_view, [] {});
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
    });
  }
  static void CancelDelete(const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                           void* import_view, void* export_view) {
    Action(&dismiss_unit_, id, a, b, rc, import_view, export_view,
           [&](Export* e) { DeleteCancelled(L::kDeleteDialog, a, b, rc, DeleteListOf(e)); });
  }

  // The list action block over the export view.
  static void Read(HandleA a, HandleB b, RunContext* rc, Export* e) {
    store::RunActionBlock(&list_unit_, L::kListId, a, b, rc, {&list_cursor_},
                          [&](store::Block& block) {
      store::ResetEntity(&list_state_);
      auto& group = e->GRP_EXPORT;
      auto& stack = e->GRP_EXPORT_STACK;
      constexpr int kRows = L::ListForms::kRows;
      constexpr int kPages = L::StackForms::kRows;
      const int page = static_cast<int>(GetNumber(e->EXPORT_STACK.SUBSCRIPT.value));
      const bool keeps_stack =
          TextCompare(rc->command, "LIST") == 0 || TextCompare(rc->command, "NEXT") == 0;
      TextMove(e->EXPORT_ALREADY_AT_BOTTOM.FLAG.value, "", 2);
      TextMove(e->EXPORT_ALREADY_AT_TOP.FLAG.value, "", 2);
      if (stack.count > kPages) stack.count = kPages;
      int count = 0;
      constexpr int kKey = sizeof(range_.RANGE_START);
      TextMove(range_.RANGE_START, L::kRangeStart, kKey);
      TextMove(range_.RANGE_END, L::kRangeEnd, kKey);
      std::memset(&row_, 0, sizeof row_);
      store::ReadList(block, &list_cursor_, L::kListStatement, &list_state_, &range_, &row_, [&] {
        if (count >= kRows) return false;
        const int r = ++count;
        TextMove(group.SELECT_CHAR.value[r], "", 2);
        RowToGroup(L::ListForms::kAttributes, &row_, &group, r);
        if (keeps_stack) {
          CheckSubscript(rc, page, kPages);
          for (; stack.count < page; ++stack.count) {
            std::memset((stack.*L::kFirstKey).value[stack.count + 1], 0, kKey);
            std::memset((stack.*L::kLastKey).value[stack.count + 1], 0, kKey);
          }
          auto& keys = r == 1 ? stack.*L::kFirstKey : stack.*L::kLastKey;
          TextMove(keys.value[page], row_.*L::kRowKey, kKey);
        }
        return true;
      });
      group.count = count;
      if (count < kRows) TextMove(e->EXPORT_ALREADY_AT_BOTTOM.FLAG.value, "Y", 2);
      if (page == 1) TextMove(e->EXPORT_ALREADY_AT_TOP.FLAG.value, "Y", 2);
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
            e->EXPORT_STACK.SUBSCRIPT.value,
            e->EXPORT_NEXT_ENABLED.FLAG.value,
            e->EXPORT_PREV_ENABLED.FLAG.value,
            e->EXPORT_ALREADY_AT_TOP.FLAG.value,
            e->EXPORT_ALREADY_AT_BOTTOM.FLAG.value};
  }
  static DeleteList DeleteListOf(Export* e) {
    return {e, e->GRP_EXPORT.SELECT_CHAR.value, &e->GRP_EXPORT.count,
            e->EXPORT_ROW_SELECTED.SUBSCRIPT.value};
  }

  static inline UnitStorage body_unit_, open_unit_, click_unit_, double_click_unit_, add_unit_,
      change_unit_, delete_unit_, close_unit_, confirm_unit_, dismiss_unit_, list_unit_;
  static inline store::Cursor list_cursor_;
  static inline store::EntityState list_state_;
  using Range = StackRange<static_cast<int>(sizeof(std::declval<Row&>().*L::kRowKey))>;
  static inline Range range_;
  static inline Row row_;
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_STACK_LIST_UNITS_H_
