// The units of the project station role: the traits by which the two
// procedures take their patterns, and the identities of the event actions
// that are pattern steps. Everything a pattern does is told in patterns/first_page_list.h,
// patterns/body_entry.h and patterns/delete_dialog.h; what is here is how
// this table differs: its row, its statements, its names, the dialog RT40A,
// and the duplicate check of RT41, which on CHANGE binds a blank ORG ID and
// so finds nothing (a type name in use then meets the unique key inside
// MODIFY_PROJECT_STATION_ROLE, a fatal stop with detail "DF").
#ifndef WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_UNITS_H_
#define WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_UNITS_H_

#include "frame/entry.h"
#include "frame/tables.h"
#include "frame/unit.h"
#include "modules/project_station_role/project_station_role_blocks.h"
#include "modules/project_station_role/project_station_role_views.h"
#include "patterns/body_entry.h"
#include "patterns/first_page_list.h"
#include "store/cascade.h"
#include "store/statement.h"

namespace lk::project_station_role {

constexpr u32 kListProcedureId = 766;
constexpr u32 kEntryProcedureId = 491;

// RT40_PROJECT_ROLE_MAIN_LIST as a first-page list.
struct RoleList {
  using Forms = RoleForms;
  static const ViewNameRow& Views();
  static constexpr const ViewShape& kShape = ListDictionary::kShape;
  static constexpr u32 kLinkExit = EXIT_LINK_RT41;
  static constexpr const char* kDeleteWindow = kDeleteWindowName;
  static const patterns::DeleteDialog kDeleteDialog;
  using Blocks = project_station_role::Blocks;
  static constexpr const UnitId& kRemoveId = project_station_role::kRemoveId;
  static constexpr auto kCascadeEntry = store::E4348087;
  static constexpr UnitId kBodyId = {"0017499001", "RT40_PROJECT_ROLE_MAIN_LIST"};
  static constexpr UnitId kReadId = {"0000016401", "READ_PROJECT_STN_ROLE_REF_TABLE"};
  static const store::StatementDef kReadPrev;
  static const store::StatementDef kReadNext;
};
using List = patterns::FirstPageList<RoleList>;

// RT41_PROJECT_ROLE_DATA_ENTRY as a body-style window.
struct RoleEntry {
  using Forms = RoleForms;
  static const ViewNameRow& Views();
  static constexpr const ViewShape& kShape = EntryDictionary::kShape;
  static constexpr UnitId kBodyId = {"0017499101", "RT41_PROJECT_ROLE_DATA_ENTRY"};
  static constexpr u32 kNotFound = EXIT_PSR_NOT_FOUND;
  static constexpr u32 kDuplicateExit = EXIT_PSR_DUPLICATE;
  static constexpr const char* kDuplicateText = project_station_role::kDuplicateText;
  static bool CheckFields(RunContext* rc, EntryExport* out);
  static void CheckDuplicate(HandleA a, HandleB b, RunContext* rc, const EntryExport& in,
                             bool adding);
  using Blocks = project_station_role::Blocks;
  static constexpr const UnitId& kIdentifyId = project_station_role::kIdentifyId;
  static constexpr const UnitId& kModifyId = project_station_role::kModifyId;
};
using Entry = patterns::BodyEntry<RoleEntry>;

// The event actions that are the pattern's steps under their own names.
inline constexpr UnitId kClickId = {"0017499002", "RT40_PROJ_ROLE_LB_CLICK"};
inline constexpr UnitId kDoubleClickId = {"0017499003", "RT40_PROJ_ROLE_LB_DOUBLECLICK"};
inline constexpr UnitId kPrevId = {"0017499004", "RT40_PROJ_ROLE_PB_PREV_CLICK"};
inline constexpr UnitId kNextId = {"0017499005", "RT40_PROJ_ROLE_PB_NEXT_CLICK"};
inline constexpr UnitId kAddId = {"0017499006", "RT40_PROJ_ROLE_PB_ADD_CLICK"};
inline constexpr UnitId kChangeId = {"0017499007", "RT40_PROJ_ROLE_PB_CHANGE_CLICK"};
inline constexpr UnitId kDeleteId = {"0017499008", "RT40_PROJ_ROLE_PB_DELETE_CLICK"};
inline constexpr UnitId kCloseId = {"0017499009", "RT40_PROJ_ROLE_PB_CLOSE_CLICK"};
inline constexpr UnitId kChangedId = {"0017499102", "RT41_R_CB_N_CHANGED"};
inline constexpr UnitId kAcceptId = {"0017499103", "RT41_PB_ACCEPT_CLICK"};
inline constexpr UnitId kCancelId = {"0017499104", "RT41_PB_CANCEL_CLICK"};

inline constexpr UnitId kDialogDeleteId = {"0017499010", "RT40A_PB_DELETE_CLICK"};
inline constexpr UnitId kDialogCancelId = {"0017499011", "RT40A_PB_CANCEL_CLICK"};

}  // namespace lk::project_station_role

#endif  // WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_UNITS_H_
