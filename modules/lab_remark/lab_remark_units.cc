// The bodies and event actions of RT50, RT50A and RT51: the module's part of
// each pattern step, and the calls of its action blocks.
#include "modules/lab_remark/lab_remark_units.h"

#include <cstddef>
#include <cstring>

#include "frame/run_context.h"
#include "frame/unit.h"
#include "modules/lab_remark/lab_remark.h"
#include "modules/lab_remark/lab_remark_blocks.h"
#include "modules/lab_remark/lab_remark_views.h"
#include "patterns/data_entry.h"
#include "patterns/delete_dialog.h"
#include "patterns/group.h"
#include "patterns/open_entry.h"
#include "patterns/stack_list.h"
#include "services/text.h"

namespace lk::lab_remark {

namespace {

using patterns::GetNumber;
using patterns::PutNumber;

constexpr char kStatement1[] = "0000000001";
constexpr char kStatement2[] = "0000000002";

constexpr UnitId kListBodyId = {"0009961480", "RT50_LAB_REMARK_MAINT_LIST"};
constexpr UnitId kOpenId = {"0009961481", "RT50_LAB_REMARK_MAINT_LIST_OPEN"};
constexpr UnitId kClickId = {"0009961482", "RT50_LAB_REMARK_LB_CLICK"};
constexpr UnitId kDoubleClickId = {"0009961483", "RT50_LAB_REMARK_LB_DOUBLECLICK"};
constexpr UnitId kAddId = {"0009961484", "RT50_LAB_REMARK_PB_ADD_CLICK"};
constexpr UnitId kChangeId = {"0009961485", "RT50_LAB_REMARK_PB_CHANGE_CLICK"};
constexpr UnitId kDeleteId = {"0009961486", "RT50_LAB_REMARK_PB_DELETE_CLICK"};
constexpr UnitId kCloseId = {"0009961487", "RT50_LAB_REMARK_PB_CLOSE_CLICK"};
constexpr UnitId kUpId = {"0009961488", "RT50_LAB_REMARK_MAIN_PB_UP_CLICK"};
constexpr UnitId kDownId = {"0009961489", "RT50_LAB_REMARK_MA_PB_DOWN_CLICK"};
constexpr UnitId kConfirmId = {"0009961490", "RT50A_LAB_REMARK_PB_DELETE_CLICK"};
constexpr UnitId kDismissId = {"0009961491", "RT50A_LAB_REMARK_PB_CANCEL_CLICK"};
constexpr UnitId kEntryBodyId = {"0009961500", "RT51_LAB_REMARK_DATA_ENTRY"};
constexpr UnitId kEntryOpenId = {"0009961501", "RT51_LAB_REMARK_DATA_ENTRY_OPEN"};
constexpr UnitId kAcceptId = {"0009961502", "RT51_LAB_REMARK_PB_ACCEPT_CLICK"};
constexpr UnitId kCancelId = {"0009961503", "RT51_LAB_REMARK_PB_CANCEL_CLICK"};

constexpr char kRangeStart[] = "1";
constexpr char kRangeEnd[] = "zzzzzz";
constexpr char kDuplicateText[] = "A Lab Remark with this short name already exists.";

const TimestampSlot kNoTimestamps[] = {{0, 0}};
const ViewShape kListShape = {sizeof(ListExport), kNoTimestamps, kNoTimestamps};
const TimestampSlot kEntryExportStamps[] = {
    {offsetof(EntryExport, LAB_REMARK.D_LAST_UPDATE_TIMESTAMP.value), 0}, {0, 0}};
const TimestampSlot kEntryImportStamps[] = {
    {offsetof(EntryImport, LAB_REMARK.D_LAST_UPDATE_TIMESTAMP), 0}, {0, 0}};
const ViewShape kEntryShape = {sizeof(EntryExport), kEntryExportStamps, kEntryImportStamps};

// ---- The patterns, as this module fills them in ----

const char* const kListBodyViews[] = {
    "EXPORT.SYSTEM_VARIABLE.", "EXPORT_SELECTED.LAB_REMARK.",
    "EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.", "EXPORT_STACK.RUNTIME_SUPPLIED.", nullptr};

const patterns::StackList kStackList = {
    &kListViews,
    kListBodyViews,
    "EXPORT.SYSTEM_VARIABLE.",
    "GRP_EXPORT_STACK",
    "GRP_EXPORT.LAB_REMARK.",
    "EXPORT_SELECTED.LAB_REMARK.",
    kListRows,
    EXIT_LINK_RT51,
    "RT50A_DLETE_LAB_REMARK_CONFIRMAT",
    /*open_enables_prev=*/false,
};

const patterns::DeleteDialog kDeleteDialog = {
    "RT50A_DLETE_LAB_REMARK_CONFIRMAT",
    &kListViews,
    "GRP_EXPORT",
    kListRows,
    patterns::DeleteRowFrom::kSelectedSubscript,
    patterns::DropRule::kOnExitNone,
};

const patterns::OpenEntry kOpenEntry = {
    EXIT_LAB_REMARK_NOT_FOUND, EXIT_LAB_REMARK_DUPLICATE, kDuplicateText,
    /*return_command=*/nullptr, kCommand,
};

patterns::StackListView StackViewOf(ListExport* e) {
  return {e,
          e->SELECT_CHAR.value,
          &e->list_count,
          e->TSRLBRMK_IS_NUMBER.value,
          e->TSRLBRMK_ORG_ID.value,
          e->EXPORT_SELECTED.TSRLBRMK_IS_NUMBER.value,
          e->EXPORT_SELECTED.TSRLBRMK_ORG_ID.value,
          e->EXPORT_ROW_SELECTED.SUBSCRIPT.value,
          e->EXPORT_STACK.SUBSCRIPT.value,
          e->EXPORT_NEXT_ENABLED.FLAG.value,
          e->EXPORT_PREV_ENABLED.FLAG.value,
          e->EXPORT_ALREADY_AT_TOP.FLAG.value,
          e->EXPORT_ALREADY_AT_BOTTOM.FLAG.value};
}

patterns::DeleteList DeleteListOf(ListExport* e) {
  return {e, e->SELECT_CHAR.value, &e->list_count, e->EXPORT_ROW_SELECTED.SUBSCRIPT.value};
}

// ---- Per-unit static storage ----

UnitStorage list_body_unit, open_unit, click_unit, double_click_unit, add_unit, change_unit,
    delete_unit, close_unit, up_unit, down_unit, confirm_unit, dismiss_unit, entry_body_unit,
    entry_open_unit, accept_unit, cancel_unit;

// The views of LIST_LAB_REMARKS, as its callers hold them.
RangeLimit list_end, list_start;
RemarkStack list_stack_in, list_stack_out;
Flag list_at_bottom, list_at_top;
RemarkGroup list_group;

// Reads the list with the sentinels of this module and the stack and page of
// the export view, and copies the rows, the stack, the page and the AT flags
// back.
void ReadRemarks(HandleA a, HandleB b, RunContext* rc, ListExport* e) {
  std::memset(&list_stack_out, 0, sizeof list_stack_out);
  std::memset(&list_at_bottom, 0, sizeof list_at_bottom);
  std::memset(&list_at_top, 0, sizeof list_at_top);
  std::memset(&list_group, 0, sizeof list_group);
  std::memset(&list_stack_in, 0, sizeof list_stack_in);
  TextMove(list_start.SHORT_NAME, kRangeStart, kShortName);
  TextMove(list_end.SHORT_NAME, kRangeEnd, kShortName);
  list_stack_in.SUBSCRIPT = GetNumber(e->EXPORT_STACK.SUBSCRIPT.value);
  list_stack_in.count = e->stack_count < kStackRows ? e->stack_count : kStackRows;
  for (int r = 1; r <= list_stack_in.count; ++r) {
    TextMove(list_stack_in.FIRST_ROW_SHORT_NAME[r], e->FIRST_ROW_SHORT_NAME.value[r], kShortName);
    TextMove(list_stack_in.LAST_ROW_SHORT_NAME[r], e->LAST_ROW_SHORT_NAME.value[r], kShortName);
  }
  rc->run_mode = ' ';
  LIST_LAB_REMARKS(a, b, rc, &list_end, &list_start, &list_stack_in, &list_at_bottom,
                   &list_at_top, &list_stack_out, &list_group);
  CheckCallee(rc);

  e->list_count = list_group.count;
  for (int r = 1; r <= list_group.count; ++r) {
    TextMove(e->SELECT_CHAR.value[r], "", kFlag);
    PutNumber(e->TSRLBRMK_IS_NUMBER.value[r], list_group.TSRLBRMK_IS_NUMBER[r]);
    TextMove(e->TSRLBRMK_ORG_ID.value[r], list_group.TSRLBRMK_ORG_ID[r], kOrgId);
    TextMove(e->SHORT_NAME.value[r], list_group.SHORT_NAME[r], kShortName);
    BoundedCopy(e->DESCRIPTION_TEXT.value[r], list_group.DESCRIPTION_TEXT[r], kDescription);
  }
  TextMove(e->EXPORT_ALREADY_AT_BOTTOM.FLAG.value, list_at_bottom.FLAG, kFlag);
  TextMove(e->EXPORT_ALREADY_AT_TOP.FLAG.value, list_at_top.FLAG, kFlag);
  e->stack_count = list_stack_out.count;
  for (int r = 1; r <= list_stack_out.count && r <= kStackRows; ++r) {
    TextMove(e->FIRST_ROW_SHORT_NAME.value[r], list_stack_out.FIRST_ROW_SHORT_NAME[r], kShortName);
    TextMove(e->LAST_ROW_SHORT_NAME.value[r], list_stack_out.LAST_ROW_SHORT_NAME[r], kShortName);
  }
  PutNumber(e->EXPORT_STACK.SUBSCRIPT.value, list_stack_out.SUBSCRIPT);
}

// ---- RT51's row ----

Remark RemarkOf(const EntryExport& e) {
  Remark row{};
  row.TSRLBRMK_IS_NUMBER = GetNumber(e.LAB_REMARK.TSRLBRMK_IS_NUMBER.value);
  TextMove(row.TSRLBRMK_ORG_ID, e.LAB_REMARK.TSRLBRMK_ORG_ID.value, kOrgId);
  TextMove(row.SHORT_NAME, e.LAB_REMARK.SHORT_NAME.value, kShortName);
  BoundedCopy(row.DESCRIPTION_TEXT, e.LAB_REMARK.DESCRIPTION_TEXT.value, kDescription);
  TextMove(row.D_USERID_CODE, e.LAB_REMARK.D_USERID_CODE.value, kUserId);
  std::memcpy(row.D_LAST_UPDATE_TIMESTAMP, e.LAB_REMARK.D_LAST_UPDATE_TIMESTAMP.value,
              kTimestampStorage);
  return row;
}

void RowIntoExport(const Remark& row, EntryExport* e) {
  PutNumber(e->LAB_REMARK.TSRLBRMK_IS_NUMBER.value, row.TSRLBRMK_IS_NUMBER);
  TextMove(e->LAB_REMARK.TSRLBRMK_ORG_ID.value, row.TSRLBRMK_ORG_ID, kOrgId);
  TextMove(e->LAB_REMARK.SHORT_NAME.value, row.SHORT_NAME, kShortName);
  BoundedCopy(e->LAB_REMARK.DESCRIPTION_TEXT.value, row.DESCRIPTION_TEXT, kDescription);
  TextMove(e->LAB_REMARK.D_USERID_CODE.value, row.D_USERID_CODE, kUserId);
  std::memcpy(e->LAB_REMARK.D_LAST_UPDATE_TIMESTAMP.value, row.D_LAST_UPDATE_TIMESTAMP,
              kTimestampStorage);
}

Remark RemarkOf(const EntryImport& in) {
  Remark row{};
  row.TSRLBRMK_IS_NUMBER = GetNumber(in.LAB_REMARK.TSRLBRMK_IS_NUMBER);
  TextMove(row.TSRLBRMK_ORG_ID, in.LAB_REMARK.TSRLBRMK_ORG_ID, kOrgId);
  TextMove(row.SHORT_NAME, in.LAB_REMARK.SHORT_NAME, kShortName);
  BoundedCopy(row.DESCRIPTION_TEXT, in.LAB_REMARK.DESCRIPTION_TEXT, kDescription);
  TextMove(row.D_USERID_CODE, in.LAB_REMARK.D_USERID_CODE, kUserId);
  std::memcpy(row.D_LAST_UPDATE_TIMESTAMP, in.LAB_REMARK.D_LAST_UPDATE_TIMESTAMP,
              kTimestampStorage);
  return row;
}

SystemVariable SystemOf(const EntryExport& e) {
  SystemVariable system{};
  TextMove(system.USER_ID_CODE, e.SYSTEM_VARIABLE.USER_ID_CODE.value, kUserId);
  TextMove(system.CURRENT_ORG_ID, e.SYSTEM_VARIABLE.CURRENT_ORG_ID.value, kUserId);
  return system;
}

// SYSTEM_VARIABLE and the row from the import view.
void TakeImport(const EntryImport& in, EntryExport* e) {
  TextMove(e->SYSTEM_VARIABLE.USER_ID_CODE.value, in.SYSTEM_VARIABLE.USER_ID_CODE, kUserId);
  TextMove(e->SYSTEM_VARIABLE.CURRENT_ORG_ID.value, in.SYSTEM_VARIABLE.CURRENT_ORG_ID, kUserId);
  RowIntoExport(RemarkOf(in), e);
}

// RT51 in CHANGE mode: the row read again by the key it came with, into the
// window and into the hidden copy. A row that has gone reads as blanks.
void ReadForChange(HandleA a, HandleB b, RunContext* rc, const EntryImport& in,
                   EntryExport* e) {
  RemarkKey key{};
  key.TSRLBRMK_IS_NUMBER = GetNumber(in.LAB_REMARK.TSRLBRMK_IS_NUMBER);
  TextMove(key.TSRLBRMK_ORG_ID, in.LAB_REMARK.TSRLBRMK_ORG_ID, kOrgId);
  Remark row{};
  READ_LAB_REMARKS_PREV_NEXT(a, b, rc, &key, &row);
  CheckCallee(rc);
  RowIntoExport(row, e);
  TextMove(e->EXPORT_HIDDEN.SHORT_NAME.value, row.SHORT_NAME, kShortName);
  BoundedCopy(e->EXPORT_HIDDEN.DESCRIPTION_TEXT.value, row.DESCRIPTION_TEXT, kDescription);
}

// RT50A: the remove of the row in hand.
void RemoveSelected(HandleA a, HandleB b, RunContext* rc, const ListExport& e) {
  RemarkKey key{};
  key.TSRLBRMK_IS_NUMBER = GetNumber(e.EXPORT_SELECTED.TSRLBRMK_IS_NUMBER.value);
  TextMove(key.TSRLBRMK_ORG_ID, e.EXPORT_SELECTED.TSRLBRMK_ORG_ID.value, kOrgId);
  REMOVE_LAB_REMARK_1265369753(a, b, rc, &key);
}

}  // namespace

// ---- RT50_LAB_REMARK_MAINT_LIST ----

void RT50_LAB_REMARK_MAINT_LIST(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                void* export_view) {
  EnterProcedure(&list_body_unit, &kListShape, /*load_only_test=*/true, a, b, rc, import_view,
                 export_view, [&] {
                   auto* in = static_cast<const ListImport*>(import_view);
                   auto* e = static_cast<ListExport*>(export_view);
                   StoreUnitId(rc, kListBodyId);
                   rc->statement = kStatement1;
                   patterns::StackBody(kStackList, a, b, rc, kListBodyId, in, StackViewOf(e),
                                       in->EXPORT_STACK.SUBSCRIPT,
                                       [&] { ReadRemarks(a, b, rc, e); });
                 });
}

void RT50_LAB_REMARK_MAINT_LIST_OPEN(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  EnterEventAction(&open_unit, &kListShape, kOpenId, a, b, rc, import_view, export_view, [&] {
    auto* e = static_cast<ListExport*>(export_view);
    rc->statement = kStatement1;
    patterns::StackOpen(kStackList, rc, kOpenId, import_view, StackViewOf(e),
                        [&] { ReadRemarks(a, b, rc, e); });
  });
}

void RT50_LAB_REMARK_LB_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                              void* export_view) {
  EnterEventAction(&click_unit, &kListShape, kClickId, a, b, rc, import_view, export_view, [&] {
    auto* in = static_cast<const ListImport*>(import_view);
    rc->statement = kStatement1;
    patterns::StackClick(kStackList, a, b, rc, StackViewOf(static_cast<ListExport*>(export_view)),
                         in->EXPORT_NEXT_ENABLED.FLAG, in->EXPORT_PREV_ENABLED.FLAG);
  });
}

void RT50_LAB_REMARK_LB_DOUBLECLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                    void* export_view) {
  EnterEventAction(&double_click_unit, &kListShape, kDoubleClickId, a, b, rc, import_view,
                   export_view, [&] {
                     rc->statement = kStatement1;
                     patterns::StackDoubleClick(kStackList, a, b, rc,
                                                StackViewOf(static_cast<ListExport*>(export_view)));
                   });
}

void RT50_LAB_REMARK_PB_ADD_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                  void* export_view) {
  EnterEventAction(&add_unit, &kListShape, kAddId, a, b, rc, import_view, export_view, [&] {
    rc->statement = kStatement1;
    patterns::StackAdd(kStackList, rc, StackViewOf(static_cast<ListExport*>(export_view)));
  });
}

void RT50_LAB_REMARK_PB_CHANGE_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  EnterEventAction(&change_unit, &kListShape, kChangeId, a, b, rc, import_view, export_view, [&] {
    rc->statement = kStatement1;
    patterns::StackChange(kStackList, rc);
  });
}

void RT50_LAB_REMARK_PB_DELETE_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  EnterEventAction(&delete_unit, &kListShape, kDeleteId, a, b, rc, import_view, export_view, [&] {
    rc->statement = kStatement1;
    patterns::StackDeleteButton(kStackList, a, b, rc,
                                StackViewOf(static_cast<ListExport*>(export_view)));
  });
}

void RT50_LAB_REMARK_PB_CLOSE_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                    void* export_view) {
  EnterEventAction(&close_unit, &kListShape, kCloseId, a, b, rc, import_view, export_view, [&] {
    rc->statement = kStatement1;
    patterns::StackClose(rc);
  });
}

// The paging buttons that RT50 does not have: their event actions stand
// with empty bodies.
void RT50_LAB_REMARK_MAIN_PB_UP_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  EnterEventAction(&up_unit, &kListShape, kUpId, a, b, rc, import_view, export_view, [] {});
}

void RT50_LAB_REMARK_MA_PB_DOWN_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  EnterEventAction(&down_unit, &kListShape, kDownId, a, b, rc, import_view, export_view, [] {});
}

// ---- RT50A_DLETE_LAB_REMARK_CONFIRMAT ----

void RT50A_LAB_REMARK_PB_DELETE_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  EnterEventAction(&confirm_unit, &kListShape, kConfirmId, a, b, rc, import_view, export_view,
                   [&] {
                     auto* e = static_cast<ListExport*>(export_view);
                     rc->statement = kStatement1;
                     patterns::DeleteConfirmed(kDeleteDialog, a, b, rc, kConfirmId,
                                               DeleteListOf(e),
                                               [&] { RemoveSelected(a, b, rc, *e); });
                   });
}

void RT50A_LAB_REMARK_PB_CANCEL_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  EnterEventAction(&dismiss_unit, &kListShape, kDismissId, a, b, rc, import_view, export_view,
                   [&] {
                     rc->statement = kStatement1;
                     patterns::DeleteCancelled(kDeleteDialog, a, b, rc,
                                               DeleteListOf(static_cast<ListExport*>(export_view)));
                   });
}

// ---- RT51_LAB_REMARK_DATA_ENTRY ----

void RT51_LAB_REMARK_DATA_ENTRY(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                void* export_view) {
  EnterProcedure(&entry_body_unit, &kEntryShape, /*load_only_test=*/true, a, b, rc, import_view,
                 export_view, [&] {
                   StoreUnitId(rc, kEntryBodyId);
                   rc->statement = kStatement1;
                   SetExit(rc, EXIT_NONE, nullptr, 'N');
                   ImportToExport<kEntryViews>(import_view, export_view);
                 });
}

void RT51_LAB_REMARK_DATA_ENTRY_OPEN(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  EnterEventAction(&entry_open_unit, &kEntryShape, kEntryOpenId, a, b, rc, import_view,
                   export_view, [&] {
                     auto* in = static_cast<const EntryImport*>(import_view);
                     auto* e = static_cast<EntryExport*>(export_view);
                     rc->statement = kStatement1;
                     TakeImport(*in, e);
                     patterns::OpenEntryOpen(kOpenEntry, rc, kEntryOpenId,
                                             e->LAB_REMARK.TSRLBRMK_ORG_ID.value, kOrgId,
                                             e->RUNTIME_SUPPLIED.COMMAND.value,
                                             [&] { ReadForChange(a, b, rc, *in, e); });
                   });
}

void RT51_LAB_REMARK_PB_ACCEPT_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  EnterEventAction(&accept_unit, &kEntryShape, kAcceptId, a, b, rc, import_view, export_view, [&] {
    auto* in = static_cast<const EntryImport*>(import_view);
    auto* e = static_cast<EntryExport*>(export_view);
    rc->statement = kStatement1;
    SetExit(rc, EXIT_NONE, nullptr, 'N');
    RowIntoExport(RemarkOf(*in), e);
    TextMove(e->EXPORT_HIDDEN.SHORT_NAME.value, in->EXPORT_HIDDEN.SHORT_NAME, kShortName);
    BoundedCopy(e->EXPORT_HIDDEN.DESCRIPTION_TEXT.value, in->EXPORT_HIDDEN.DESCRIPTION_TEXT,
                kDescription);
    if (!patterns::CheckRequired(
            rc, {{e->LAB_REMARK.SHORT_NAME.display, e->LAB_REMARK.SHORT_NAME.value},
                 {e->LAB_REMARK.DESCRIPTION_TEXT.display, e->LAB_REMARK.DESCRIPTION_TEXT.value}}))
      return;
    rc->statement = kStatement2;
    patterns::OpenEntryWrite(
        kOpenEntry, rc, kAcceptId, e->RUNTIME_SUPPLIED.COMMAND.value,
        {{e->LAB_REMARK.SHORT_NAME.value, e->EXPORT_HIDDEN.SHORT_NAME.value},
         {e->LAB_REMARK.DESCRIPTION_TEXT.value, e->EXPORT_HIDDEN.DESCRIPTION_TEXT.value}},
        {},
        [&] {
          RemarkName name{};
          TextMove(name.SHORT_NAME, e->LAB_REMARK.SHORT_NAME.value, kShortName);
          BoundedCopy(name.DESCRIPTION_TEXT, e->LAB_REMARK.DESCRIPTION_TEXT.value, kDescription);
          CHECK_FOR_DUP_LAB_REMARK(a, b, rc, &name);
        },
        [&] {
          const SystemVariable system = SystemOf(*e);
          const Remark row = RemarkOf(*e);
          RemarkKey key{};
          IDENTIFY_LAB_REMARK_1265369739(a, b, rc, &system, &row, &key);
          CheckCallee(rc);
          PutNumber(e->LAB_REMARK.TSRLBRMK_IS_NUMBER.value, key.TSRLBRMK_IS_NUMBER);
          TextMove(e->LAB_REMARK.TSRLBRMK_ORG_ID.value, key.TSRLBRMK_ORG_ID, kOrgId);
        },
        [&] {
          const SystemVariable system = SystemOf(*e);
          const Remark row = RemarkOf(*e);
          MODIFY_LAB_REMARK_1265369746(a, b, rc, &system, &row);
        });
  });
}

void RT51_LAB_REMARK_PB_CANCEL_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                     void* export_view) {
  EnterEventAction(&cancel_unit, &kEntryShape, kCancelId, a, b, rc, import_view, export_view, [&] {
    rc->statement = kStatement1;
    patterns::OpenEntryCancel(kOpenEntry, rc);
  });
}

}  // namespace lk::lab_remark
