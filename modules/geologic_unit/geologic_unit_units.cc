// What RT46, RT46A and RT47 add to their patterns: the list's Open, Search,
// page moves and return with their ranges; the list's and the dialog's
// descriptions; RT47's required fields.
#include "modules/geologic_unit/geologic_unit_units.h"

#include <cstring>

#include "modules/geologic_unit/geologic_unit.h"
#include "modules/geologic_unit/geologic_unit_blocks.h"
#include "patterns/data_entry.h"
#include "patterns/group.h"
#include "services/number.h"
#include "services/row_state.h"
#include "services/text.h"
#include "services/window.h"

namespace lk::geologic_unit {

const patterns::StackList List::kList = ListDictionary::Describe(
    &kListViews, EXIT_LINK_RT47, kDeleteWindowName, /*open_enables_prev=*/false);

const patterns::DeleteDialog List::kDeleteDialog = {
    kDeleteWindowName,
    &kListViews,
    "GRP_EXPORT",
    kListRows,
    patterns::DeleteRowFrom::kSelectedSubscript,
    patterns::DropRule::kOnExitNone,
};

namespace {

constexpr char kStatement1[] = "0000000001";

UnitStorage body_unit, open_unit, search_unit, click_unit, double_click_unit, up_unit, down_unit,
    add_unit, change_unit, delete_unit, close_unit, confirm_unit, dismiss_unit;
ListRange range;

patterns::StackListView ViewOf(ListExport* e) {
  auto& l = e->list;
  return {e,
          l.GRP_EXPORT.SELECT_CHAR.value,
          &l.GRP_EXPORT.count,
          nullptr,
          nullptr,
          nullptr,
          nullptr,
          l.EXPORT_ROW_SELECTED.SUBSCRIPT.value,
          l.EXPORT_STACK.SUBSCRIPT.value,
          l.EXPORT_NEXT_ENABLED.FLAG.value,
          l.EXPORT_PREV_ENABLED.FLAG.value,
          l.EXPORT_ALREADY_AT_TOP.FLAG.value,
          l.EXPORT_ALREADY_AT_BOTTOM.FLAG.value};
}
patterns::DeleteList DeleteListOf(ListExport* e) {
  auto& l = e->list;
  return {e, l.GRP_EXPORT.SELECT_CHAR.value, &l.GRP_EXPORT.count,
          l.EXPORT_ROW_SELECTED.SUBSCRIPT.value};
}

template <typename Step>
void Action(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
            void* import_view, void* export_view, Step&& step) {
  EnterEventAction(unit, &ListDictionary::kShape, id, a, b, rc, import_view, export_view, [&] {
    rc->statement = kStatement1;
    step(static_cast<ListExport*>(export_view));
  });
}

int PageOf(const ListExport& e) {
  return static_cast<int>(patterns::GetNumber(e.list.EXPORT_STACK.SUBSCRIPT.value));
}
bool Blank(const char* flag) { return TextIsBlank(flag); }
void SetFlag(char* flag, bool on) { TextMove(flag, on ? "Y" : "", 2); }
// A paging button and its enabled flag together.
void Enable(HandleA a, HandleB b, const char* keyword, char* flag, bool on) {
  SetFlag(flag, on);
  if (on) {
    ControlEnable(a, b, keyword);
  } else {
    ControlDisable(a, b, keyword);
  }
}

// A paging button alone, its enabled flag left as it stands.
void Switch(HandleA a, HandleB b, const char* keyword, bool on) {
  if (on) {
    ControlEnable(a, b, keyword);
  } else {
    ControlDisable(a, b, keyword);
  }
}

// The first page's range by code: code "A" to twelve "z", names blank to
// eighty "z".
void DefaultRange() {
  TextMove(range.LOW_CODE, kLowCode, kCode);
  TextMove(range.HIGH_CODE, kHighCode, kCode);
  TextMove(range.LOW_NAME, "", kName);
  TextMove(range.HIGH_NAME, kHighName, kName);
  TextMove(range.SORT_TEXT, "CODE", sizeof range.SORT_TEXT);
}

// LIST_GEOLOGIC_UNIT with `range`, under the running unit `own`.
void Read(HandleA a, HandleB b, RunContext* rc, const UnitId& own, ListExport* e) {
  TextMove(e->SORT_TEXT.value, range.SORT_TEXT, sizeof e->SORT_TEXT.value);
  rc->run_mode = ' ';
  ListGeologicUnit(a, b, rc, range, e);
  CheckCallee(rc);
  StoreUnitId(rc, own);
}

// Open and Search: page 1 of `range`, Next by the last-page flag, Prev off.
void FirstPage(HandleA a, HandleB b, RunContext* rc, const UnitId& own, void* import_view,
               ListExport* e) {
  const patterns::StackListView view = ViewOf(e);
  patterns::internal::BeginOpen(List::kList, rc, import_view, view);
  Read(a, b, rc, own, e);
  auto& l = e->list;
  Enable(a, b, "NEXT", l.EXPORT_NEXT_ENABLED.FLAG.value,
         Blank(l.EXPORT_ALREADY_AT_BOTTOM.FLAG.value));
  ControlDisable(a, b, "PREV");
}

// The return from RT47.
void Return(HandleA a, HandleB b, RunContext* rc, ListExport* e) {
  auto& l = e->list;
  if (TextCompare(e->KEPT.COMMAND.value, "ADD") == 0) {
    DefaultRange();
    patterns::PutNumber(l.EXPORT_STACK.SUBSCRIPT.value, 1);
    SetFlag(l.EXPORT_ALREADY_AT_TOP.FLAG.value, false);
    SetFlag(l.EXPORT_ALREADY_AT_BOTTOM.FLAG.value, false);
  } else {
    const int page = static_cast<int>(
        NumberFit(patterns::GetNumber(l.EXPORT_STACK.SUBSCRIPT.value), 0, 0, 3));
    patterns::PutNumber(l.EXPORT_STACK.SUBSCRIPT.value, page);
    CheckSubscript(rc, page, kStackRows);
    const auto& stack = l.GRP_EXPORT_STACK;
    TextMove(range.SORT_TEXT, e->SORT_TEXT.value, sizeof range.SORT_TEXT);
    TextMove(range.LOW_CODE, stack.FIRST_ROW_USGS_CODE.value[page], kCode);
    TextMove(range.HIGH_CODE, kHighCode, kCode);
    if (TextCompare(range.SORT_TEXT, "CODE") == 0) {
      TextMove(range.LOW_NAME, "", kName);
    } else {
      TextMove(range.LOW_NAME, stack.FIRST_ROW_NAME.value[page], kName);
    }
    TextMove(range.HIGH_NAME, kHighName, kName);
  }
  SetCommand(rc, "LIST");
  Read(a, b, rc, kBodyId, e);
  // The row in hand, by code and ORG ID; none found marks row 0.
  const int count = l.GRP_EXPORT.count < kListRows ? l.GRP_EXPORT.count : kListRows;
  int s = 0;
  for (int r = 1; r <= count && s == 0; ++r)
    if (TextCompare(l.GRP_EXPORT.TSMGEOUN_CD.value[r], l.EXPORT_SELECTED.TSMGEOUN_CD.value) ==
            0 &&
        TextCompare(l.GRP_EXPORT.TSMGEOUN_ORG_ID.value[r],
                    l.EXPORT_SELECTED.TSMGEOUN_ORG_ID.value) == 0)
      s = r;
  patterns::PutNumber(l.EXPORT_ROW_SELECTED.SUBSCRIPT.value, s);
  RowStateSet(a, b, rc, l.GRP_EXPORT.SELECT_CHAR.value[s], kStateMarked);
  RowStateSet(a, b, rc, l.GRP_EXPORT.SELECT_CHAR.value[s], kStateCurrent);
  Enable(a, b, "PREV", l.EXPORT_PREV_ENABLED.FLAG.value, Blank(l.EXPORT_ALREADY_AT_TOP.FLAG.value));
  Enable(a, b, "NEXT", l.EXPORT_NEXT_ENABLED.FLAG.value,
         Blank(l.EXPORT_ALREADY_AT_BOTTOM.FLAG.value));
}

// The paging buttons by the first-page and last-page flags of the last read.
void ButtonsByFlags(HandleA a, HandleB b, ListExport* e) {
  auto& l = e->list;
  Switch(a, b, "PREV", Blank(l.EXPORT_ALREADY_AT_TOP.FLAG.value));
  Switch(a, b, "NEXT", Blank(l.EXPORT_ALREADY_AT_BOTTOM.FLAG.value));
}

}  // namespace

void List::Body(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  EnterProcedure(&body_unit, &ListDictionary::kShape, /*load_only_test=*/true, a, b, rc,
                 import_view, export_view, [&] {
                   StoreUnitId(rc, kBodyId);
                   rc->statement = kStatement1;
                   if (patterns::internal::BeginBody(kList, rc, import_view, export_view))
                     Return(a, b, rc, static_cast<ListExport*>(export_view));
                 });
}

void List::Open(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&open_unit, kOpenId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    DefaultRange();
    FirstPage(a, b, rc, kOpenId, import_view, e);
  });
}

// The low code and the low name from the Search group; by name only when a
// name is given with no code.
void List::Search(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&search_unit, kSearchId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    DefaultRange();
    const char* code = e->EXPORT_SEARCH.TSMGEOUN_CD.value;
    const char* name = e->EXPORT_SEARCH.NAME.value;
    TextMove(range.LOW_CODE, code, kCode);
    TextMove(range.LOW_NAME, name, kName);
    const bool by_code = TextIsBlank(name) || !TextIsBlank(code);
    TextMove(range.SORT_TEXT, by_code ? "CODE" : "NAME", sizeof range.SORT_TEXT);
    FirstPage(a, b, rc, kSearchId, import_view, e);
  });
}

void List::Up(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&up_unit, kUpId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    auto& l = e->list;
    const int page = PageOf(*e) - 1;
    TextMove(range.SORT_TEXT, e->SORT_TEXT.value, sizeof range.SORT_TEXT);
    Stack::UpRange(rc, l.GRP_EXPORT_STACK, page + 1,
                   {range.LOW_CODE, range.HIGH_CODE, kCode, range.LOW_NAME, range.HIGH_NAME,
                    kName});
    patterns::PutNumber(l.EXPORT_STACK.SUBSCRIPT.value, page);
    SetCommand(rc, "PREV");
    ControlEnable(a, b, "NEXT");
    Read(a, b, rc, kUpId, e);
    Enable(a, b, "PREV", l.EXPORT_PREV_ENABLED.FLAG.value,
           Blank(l.EXPORT_ALREADY_AT_TOP.FLAG.value));
  });
}

void List::Down(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&down_unit, kDownId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    auto& l = e->list;
    const int page = PageOf(*e);
    TextMove(range.SORT_TEXT, e->SORT_TEXT.value, sizeof range.SORT_TEXT);
    Stack::DownRange(rc, l.GRP_EXPORT_STACK, page,
                     {range.LOW_CODE, range.HIGH_CODE, kCode, range.LOW_NAME, range.HIGH_NAME,
                      kName},
                     kHighCode, kHighName);
    patterns::PutNumber(l.EXPORT_STACK.SUBSCRIPT.value, page + 1);
    SetCommand(rc, "NEXT");
    Read(a, b, rc, kDownId, e);
    if (l.GRP_EXPORT.count >= 1 && l.GRP_EXPORT.count <= kListRows)
      Enable(a, b, "PREV", l.EXPORT_PREV_ENABLED.FLAG.value, true);
    Switch(a, b, "NEXT", Blank(l.EXPORT_ALREADY_AT_BOTTOM.FLAG.value));
  });
}

void List::Click(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&click_unit, kClickId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    auto* in = static_cast<const ListImport*>(import_view);
    patterns::StackClick(kList, a, b, rc, ViewOf(e), in->list.EXPORT_NEXT_ENABLED.FLAG,
                         in->list.EXPORT_PREV_ENABLED.FLAG);
  });
}

void List::DoubleClick(HandleA a, HandleB b, RunContext* rc, void* import_view,
                       void* export_view) {
  Action(&double_click_unit, kDoubleClickId, a, b, rc, import_view, export_view,
         [&](ListExport* e) {
           patterns::StackDoubleClick(kList, a, b, rc, ViewOf(e));
           if (rc->exit_state == EXIT_LINK_RT47) TextMove(e->KEPT.COMMAND.value, "CHANGE", 81);
         });
}

void List::Add(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&add_unit, kAddId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    patterns::StackAdd(kList, rc, ViewOf(e));
    TextMove(e->KEPT.COMMAND.value, "ADD", 81);
  });
}

void List::Change(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&change_unit, kChangeId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    patterns::StackChange(kList, rc);
    TextMove(e->KEPT.COMMAND.value, "CHANGE", 81);
  });
}

void List::Delete(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&delete_unit, kDeleteId, a, b, rc, import_view, export_view,
         [&](ListExport* e) { patterns::StackDeleteButton(kList, a, b, rc, ViewOf(e)); });
}

void List::Close(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&close_unit, kCloseId, a, b, rc, import_view, export_view,
         [&](ListExport*) { patterns::StackClose(rc); });
}

// REMOVE_GEOLOGIC_UNIT with the code and ORG ID of the row in hand; then
// the paging buttons by their flags.
void List::ConfirmDelete(HandleA a, HandleB b, RunContext* rc, void* import_view,
                         void* export_view) {
  Action(&confirm_unit, kConfirmId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    patterns::DeleteConfirmed(kDeleteDialog, a, b, rc, kConfirmId, DeleteListOf(e), [&] {
      UnitRow key{};
      TextMove(key.TSMGEOUN_CD, e->list.EXPORT_SELECTED.TSMGEOUN_CD.value, kCode);
      TextMove(key.TSMGEOUN_ORG_ID, e->list.EXPORT_SELECTED.TSMGEOUN_ORG_ID.value,
               sizeof key.TSMGEOUN_ORG_ID);
      Blocks::Remove(kRemoveId, a, b, rc, &key, store::E2173103);
    });
    ButtonsByFlags(a, b, e);
  });
}

void List::CancelDelete(HandleA a, HandleB b, RunContext* rc, void* import_view,
                        void* export_view) {
  Action(&dismiss_unit, kDismissId, a, b, rc, import_view, export_view, [&](ListExport* e) {
    patterns::DeleteCancelled(kDeleteDialog, a, b, rc, DeleteListOf(e));
  });
}

const ViewNameRow& UnitEntry::Views() { return kEntryViews; }

// USGS Code, State Code, Type Code, Name.
bool UnitEntry::CheckFields(RunContext* rc, EntryExport* e) {
  return patterns::CheckRequired(rc, {{e->ROW.TSMGEOUN_CD.display, e->ROW.TSMGEOUN_CD.value},
                                      {e->ROW.STATE_CODE.display, e->ROW.STATE_CODE.value},
                                      {e->ROW.TYPE_CODE.display, e->ROW.TYPE_CODE.value},
                                      {e->ROW.NAME.display, e->ROW.NAME.value}});
}

}  // namespace lk::geologic_unit
