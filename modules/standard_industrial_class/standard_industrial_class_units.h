// The units of the standard industrial class: the traits by which its two
// procedures take their patterns (patterns/first_page_list.h,
// patterns/body_entry.h, patterns/delete_dialog.h) and the identities of
// the event actions that are pattern steps. How this table differs:
//   - the list seeks the row in hand by its code, there being no IS number,
//     and an ADD starts the list over from the first page;
//   - RT32's Delete opens RT32A by its control row, with no event action;
//     RT32_STND_INDSTR_PB_DELETE_CLICK, which would do the same, stands
//     defined here and no table refers to it;
//   - RT32A's Delete first reads for a facility assignment of the class and
//     refuses with "Can Not Delete Standard Industrial Code - Facility SIC
//     Assgn Exists" while one exists;
//   - RT33 protects the SIC Code on "CHANGE" with "3gA2  ", and its
//     duplicate read compares code and name on ADD and on CHANGE alike, so
//     that a change finds the row itself whenever the name is kept.
#ifndef WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_UNITS_H_
#define WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_UNITS_H_

#include "frame/entry.h"
#include "frame/tables.h"
#include "frame/unit.h"
#include "frame/views.h"
#include "modules/standard_industrial_class/standard_industrial_class_blocks.h"
#include "modules/standard_industrial_class/standard_industrial_class_views.h"
#include "patterns/body_entry.h"
#include "patterns/first_page_list.h"
#include "store/cascade.h"
#include "store/statement.h"

namespace lk::standard_industrial_class {

constexpr u32 kListProcedureId = 676;
constexpr u32 kEntryProcedureId = 346;

// RT32_STND_INDSTRL_CD_MAINT_LIST as a first-page list.
struct SicList {
  using Forms = SicForms;
  static const ViewNameRow& Views();
  static constexpr const ViewShape& kShape = ListDictionary::kShape;
  static constexpr u32 kLinkExit = EXIT_LINK_RT33;
  static constexpr const char* kDeleteWindow = kDeleteWindowName;
  static const patterns::DeleteDialog kDeleteDialog;
  using Blocks = standard_industrial_class::Blocks;
  static constexpr const UnitId& kRemoveId = standard_industrial_class::kRemoveId;
  static constexpr auto kCascadeEntry = store::E6427297;
  static constexpr UnitId kBodyId = {"0017632001", "RT32_STND_INDSTRL_CD_MAINT_LIST"};
  static constexpr const UnitId& kReadId = standard_industrial_class::kReadId;
  static const store::StatementDef kReadPrev;
  static const store::StatementDef kReadNext;
  static constexpr bool kSeekByCode = true;
  static constexpr bool kAddStartsOver = true;
  // READ_SIC_FOR_REFERENCED_STATIONS before the REMOVE: false, with the
  // refusal's words, while a facility assignment refers to the class.
  static bool MayRemove(HandleA a, HandleB b, RunContext* rc, const UnitId& own,
                        const SicRow& row);
};
using List = patterns::FirstPageList<SicList>;

// RT33_STND_INDST_SIC_DATA_ENTRY as a body-style window.
struct SicEntry {
  using Forms = SicForms;
  static const ViewNameRow& Views();
  static constexpr const ViewShape& kShape = EntryDictionary::kShape;
  static constexpr UnitId kBodyId = {"0017632101", "RT33_STND_INDST_SIC_DATA_ENTRY"};
  static constexpr const char* kCodeDisplayOnChange = kDisplayProtectedOne;
  static constexpr u32 kNotFound = EXIT_SIC_NOT_FOUND;
  static constexpr u32 kDuplicateExit = EXIT_SIC_DUPLICATE;
  static constexpr const char* kDuplicateText = standard_industrial_class::kDuplicateText;
  static bool CheckFields(RunContext* rc, EntryExport* out);
  static void CheckDuplicate(HandleA a, HandleB b, RunContext* rc, const EntryExport& in,
                             bool adding);
  using Blocks = standard_industrial_class::Blocks;
  static constexpr const UnitId& kIdentifyId = standard_industrial_class::kIdentifyId;
  static constexpr const UnitId& kModifyId = standard_industrial_class::kModifyId;
};
using Entry = patterns::BodyEntry<SicEntry>;

// The event actions that are the pattern's steps under their own names.
inline constexpr UnitId kClickId = {"0017632002", "RT32_STND_LB_EXPORT_GROUP_CLICK"};
inline constexpr UnitId kDoubleClickId = {"0017632003", "RT32_LB_EXPORT_GROUP_DOUBLECLICK"};
inline constexpr UnitId kPrevId = {"0017632004", "RT32_STND_INDSTRL_SI_PB_UP_CLICK"};
inline constexpr UnitId kNextId = {"0017632005", "RT32_STND_INDSTRL_PB_DOWN_CLICK"};
inline constexpr UnitId kAddId = {"0017632006", "RT32_STND_INDSTRL_S_PB_ADD_CLICK"};
inline constexpr UnitId kChangeId = {"0017632007", "RT32_STND_INDSTR_PB_CHANGE_CLICK"};
inline constexpr UnitId kCloseId = {"0017632009", "RT32_STND_INDSTRL_PB_CLOSE_CLICK"};
inline constexpr UnitId kDialogDeleteId = {"0017632010", "RT32_SIC_DELETE_PB_DELETE_CLICK"};
inline constexpr UnitId kDialogCancelId = {"0017632011", "RT32_SIC_DELETE_PB_CANCEL_CLICK"};
inline constexpr UnitId kChangedId = {"0017632102", "R_CB_N_CHANGED"};
inline constexpr UnitId kAcceptId = {"0017632103", "RT33_STND_INDST_PB_ACCEPT_CLICK"};
inline constexpr UnitId kCancelId = {"0017632104", "RT33_STND_INDST_PB_CANCEL_CLICK"};

// Defined and referred to by no table: the Delete button's control row
// opens RT32A itself.
inline constexpr UnitId kUnusedDeleteId = {"0017632008", "RT32_STND_INDSTR_PB_DELETE_CLICK"};
void UnusedDeleteClick(HandleA a, HandleB b, RunContext* rc, void* import_view,
                       void* export_view);

}  // namespace lk::standard_industrial_class

#endif  // WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_UNITS_H_
