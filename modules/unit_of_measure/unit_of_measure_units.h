// The units of the unit of measure module: the traits by which RT34 takes
// the first-page list (patterns/first_page_list.h), RT35 the body-style
// window (patterns/body_entry.h), RT34A the delete dialog
// (patterns/delete_dialog.h), and the identities of their event actions.
// What is the module's own:
//   - RT34 pages by UOM_TYPE and SHORT_FORM_NAME with strict predicates:
//     pages never overlap, and after a CHANGE the list starts behind the
//     first row of the page, which is out of view until the next PREV.
//     After an ADD it starts over: FIRST and LAST blank, the PREV flag "N".
//   - RT34A drops the row whatever the remove said; a unit in use stays in
//     the database under "Cannot delete UOM. It is being used.".
//   - RT35 tests UOM_TYPE, SHORT_FORM_NAME and DESCRIPTION_TEXT as required,
//     in this order, and checks the type and the short form within
//     CURRENT_ORG_ID, without excepting the row itself: a change of the
//     description alone meets its own row.
#ifndef WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_UNITS_H_
#define WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_UNITS_H_

#include "frame/entry.h"
#include "frame/tables.h"
#include "frame/unit.h"
#include "modules/unit_of_measure/unit_of_measure_blocks.h"
#include "modules/unit_of_measure/unit_of_measure_views.h"
#include "patterns/body_entry.h"
#include "patterns/first_page_list.h"
#include "store/cascade.h"
#include "store/statement.h"

namespace lk::unit_of_measure {

constexpr u32 kListProcedureId = 1259;
constexpr u32 kEntryProcedureId = 645;
constexpr u32 kPreviewProcedureId = 392;

// RT34_UNIT_OF_MEASURE_MAINT_LIST as a first-page list.
struct UomList {
  using Forms = UomForms;
  static const ViewNameRow& Views();
  static constexpr const ViewShape& kShape = ListDictionary::kShape;
  static constexpr u32 kLinkExit = EXIT_LINK_RT35;
  static constexpr const char* kDeleteWindow = kDeleteWindowName;
  static const patterns::DeleteDialog kDeleteDialog;
  using Blocks = unit_of_measure::Blocks;
  static constexpr const UnitId& kRemoveId = unit_of_measure::kRemoveId;
  static constexpr auto kCascadeEntry = store::E2738395;
  static constexpr UnitId kBodyId = {"0000012501", "RT34_UNIT_OF_MEASURE_MAINT_LIST"};
  static constexpr const UnitId& kReadId = kReadListId;
  static constexpr const store::StatementDef& kReadPrev = unit_of_measure::kReadPrev;
  static constexpr const store::StatementDef& kReadNext = unit_of_measure::kReadNext;
  static constexpr bool kAddStartsOver = true;
};
using List = patterns::FirstPageList<UomList>;

// RT35_UNIT_OF_MEASURE_DATA_ENTRY as a body-style window.
struct UomEntry {
  using Forms = UomForms;
  static const ViewNameRow& Views();
  static constexpr const ViewShape& kShape = EntryDictionary::kShape;
  static constexpr UnitId kBodyId = {"0000012701", "RT35_UNIT_OF_MEASURE_DATA_ENTRY"};
  static constexpr u32 kNotFound = EXIT_UOM_NOT_FOUND;
  static constexpr u32 kDuplicateExit = EXIT_UOM_DUPLICATE;
  static constexpr const char* kDuplicateText = unit_of_measure::kDuplicateText;
  static bool CheckFields(RunContext* rc, EntryExport* out);
  static void CheckDuplicate(HandleA a, HandleB b, RunContext* rc, const EntryExport& in,
                             bool adding);
  using Blocks = unit_of_measure::Blocks;
  static constexpr const UnitId& kIdentifyId = unit_of_measure::kIdentifyId;
  static constexpr const UnitId& kModifyId = unit_of_measure::kModifyId;
};
using Entry = patterns::BodyEntry<UomEntry>;

inline constexpr UnitId kClickId = {"0000012502", "RT34_UNIT_OF_MEAS_LB_CLICK"};
inline constexpr UnitId kDoubleClickId = {"0000012503", "RT34_UNIT_OF_MEAS_LB_DOUBLECLICK"};
inline constexpr UnitId kPrevId = {"0000012504", "RT34_UNIT_OF_MEAS_PB_PREV_CLICK"};
inline constexpr UnitId kNextId = {"0000012505", "RT34_UNIT_OF_MEAS_PB_NEXT_CLICK"};
inline constexpr UnitId kAddId = {"0000012506", "RT34_UNIT_OF_MEAS_PB_ADD_CLICK"};
inline constexpr UnitId kChangeId = {"0000012507", "RT34_UNIT_OF_MEAS_PB_CHANGE_CLICK"};
inline constexpr UnitId kDeleteId = {"0000012508", "RT34_UNIT_OF_MEAS_PB_DELETE_CLICK"};
inline constexpr UnitId kCloseId = {"0000012509", "RT34_UNIT_OF_MEAS_PB_CLOSE_CLICK"};
inline constexpr UnitId kDialogDeleteId = {"0000012510", "RT34A_UNIT_OF_PB_DELETE_CLICK"};
inline constexpr UnitId kDialogCancelId = {"0000012511", "RT34A_UNIT_OF_PB_CANCEL_CLICK"};
inline constexpr UnitId kTypeChangedId = {"0000012702", "RT35_UNIT_OF_DL_UOM_TYPE_CHANGED"};
inline constexpr UnitId kChangedId = {"0000012703", "R_CB_N_CHANGED"};
inline constexpr UnitId kAcceptId = {"0000012704", "RT35_UNIT_OF_PB_ACCEPT_CLICK"};
inline constexpr UnitId kCancelId = {"0000012705", "RT35_UNIT_OF_PB_CANCEL_CLICK"};

}  // namespace lk::unit_of_measure

#endif  // WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_UNITS_H_
