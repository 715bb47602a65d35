// The units of the lab remark module: the traits by which RT50 takes the
// stack-style list (patterns/stack_list_units.h) and RT51 the Open-style
// window (patterns/open_entry_units.h), and the identities of their event
// actions. What is the module's own:
//   - RT50 reads with the range "1" to "zzzzzz" (both inclusive), at most
//     2000 rows and without a word about more; its Open sets only
//     NEXT_ENABLED.
//   - RT50A drops the row only when the remove left EXIT_NONE; a row that
//     another client deleted stays, unmarked, under "Lab Remark not found.".
//   - RT51 gives every row it adds the ORG ID "ZZZZZZZZ", tests Short Name
//     then Description as required, and answers a short name in use with
//     "A Lab Remark with this short name already exists." without marking
//     the field. Its check looks for the short name alone and does not except
//     the row itself, so that a change of the description alone is refused.
//   - RT50_LAB_REMARK_MAIN_PB_UP_CLICK and RT50_LAB_REMARK_MA_PB_DOWN_CLICK
//     have empty bodies and no control or event row leads to them: the page
//     never moves.
#ifndef WATRIX_MODULES_LAB_REMARK_LAB_REMARK_UNITS_H_
#define WATRIX_MODULES_LAB_REMARK_LAB_REMARK_UNITS_H_

#include "frame/entry.h"
#include "frame/tables.h"
#include "frame/unit.h"
#include "modules/lab_remark/lab_remark_blocks.h"
#include "modules/lab_remark/lab_remark_views.h"
#include "patterns/delete_dialog.h"
#include "patterns/open_entry.h"
#include "patterns/open_entry_units.h"
#include "patterns/stack_list.h"
#include "patterns/stack_list_units.h"
#include "store/cascade.h"
#include "store/statement.h"

namespace lk::lab_remark {

constexpr u32 kListProcedureId = 363;
constexpr u32 kEntryProcedureId = 989;

// RT50_LAB_REMARK_MAINT_LIST as a stack list.
struct RemarkList {
  using ListForms = RemarkListForms;
  using StackForms = RemarkPagesForms;
  using Dictionary = ListDictionary;
  static const patterns::StackList kList;
  static const patterns::DeleteDialog kDeleteDialog;
  static constexpr UnitId kBodyId = {"0009961480", "RT50_LAB_REMARK_MAINT_LIST"};
  static constexpr const UnitId& kListId = lab_remark::kListId;
  static constexpr const store::StatementDef& kListStatement = lab_remark::kListStatement;
  static constexpr const char* kRangeStart = "1";
  static constexpr const char* kRangeEnd = "zzzzzz";
  static constexpr auto kRowKey = &RemarkListRow::SHORT_NAME;
  static constexpr auto kFirstKey = &RemarkPagesGroup::FIRST_ROW_SHORT_NAME;
  static constexpr auto kLastKey = &RemarkPagesGroup::LAST_ROW_SHORT_NAME;
  using Blocks = lab_remark::Blocks;
  static constexpr const UnitId& kRemoveId = lab_remark::kRemoveId;
  static constexpr auto kCascadeEntry = store::E2738301;
};
using List = patterns::StackListUnits<RemarkList>;

// RT51_LAB_REMARK_DATA_ENTRY as an Open-style window.
struct RemarkEntry {
  using Forms = RemarkForms;
  using HiddenForms = RemarkHiddenForms;
  using Dictionary = EntryDictionary;
  static const ViewNameRow& Views();
  static constexpr patterns::OpenEntry kEntry = {EXIT_LAB_REMARK_NOT_FOUND,
                                                 EXIT_LAB_REMARK_DUPLICATE, kDuplicateText,
                                                 /*return_command=*/nullptr, 81};
  static constexpr UnitId kBodyId = {"0009961500", "RT51_LAB_REMARK_DATA_ENTRY"};
  static bool CheckFields(RunContext* rc, EntryExport* e);
  static void CheckDuplicate(HandleA a, HandleB b, RunContext* rc, const EntryExport& e);
  using Blocks = lab_remark::Blocks;
  static constexpr const UnitId& kReadId = lab_remark::kReadId;
  static constexpr const UnitId& kIdentifyId = lab_remark::kIdentifyId;
  static constexpr const UnitId& kModifyId = lab_remark::kModifyId;
};
using Entry = patterns::OpenEntryUnits<RemarkEntry>;

// The event actions that are the patterns' steps under their own names.
inline constexpr UnitId kOpenId = {"0009961481", "RT50_LAB_REMARK_MAINT_LIST_OPEN"};
inline constexpr UnitId kClickId = {"0009961482", "RT50_LAB_REMARK_LB_CLICK"};
inline constexpr UnitId kDoubleClickId = {"0009961483", "RT50_LAB_REMARK_LB_DOUBLECLICK"};
inline constexpr UnitId kAddId = {"0009961484", "RT50_LAB_REMARK_PB_ADD_CLICK"};
inline constexpr UnitId kChangeId = {"0009961485", "RT50_LAB_REMARK_PB_CHANGE_CLICK"};
inline constexpr UnitId kDeleteId = {"0009961486", "RT50_LAB_REMARK_PB_DELETE_CLICK"};
inline constexpr UnitId kCloseId = {"0009961487", "RT50_LAB_REMARK_PB_CLOSE_CLICK"};
inline constexpr UnitId kUpId = {"0009961488", "RT50_LAB_REMARK_MAIN_PB_UP_CLICK"};
inline constexpr UnitId kDownId = {"0009961489", "RT50_LAB_REMARK_MA_PB_DOWN_CLICK"};
inline constexpr UnitId kConfirmId = {"0009961490", "RT50A_LAB_REMARK_PB_DELETE_CLICK"};
inline constexpr UnitId kDismissId = {"0009961491", "RT50A_LAB_REMARK_PB_CANCEL_CLICK"};
inline constexpr UnitId kEntryOpenId = {"0009961501", "RT51_LAB_REMARK_DATA_ENTRY_OPEN"};
inline constexpr UnitId kAcceptId = {"0009961502", "RT51_LAB_REMARK_PB_ACCEPT_CLICK"};
inline constexpr UnitId kCancelId = {"0009961503", "RT51_LAB_REMARK_PB_CANCEL_CLICK"};

// The paging actions that no row leads to.
inline constexpr EventAction kUpAction = List::Nothing<kUpId>;
inline constexpr EventAction kDownAction = List::Nothing<kDownId>;

}  // namespace lk::lab_remark

#endif  // WATRIX_MODULES_LAB_REMARK_LAB_REMARK_UNITS_H_
