// The action blocks of the project station role, table TSMPSR: the row
// blocks of patterns/row_blocks.h over this table's statements
// (project_station_role_blocks.cc), under their own names and numbers.
//
//   READ_PROJECT_STN_ROLE_REF_TABLE  the page of the list, by TYPE_NAME within
//       CURRENT_ORG_ID (RoleList's kReadPrev and kReadNext). Both keyset
//       predicates include the key: "PREV" reads TYPE_NAME = K or < K
//       descending from the FIRST row, any other COMMAND TYPE_NAME = K or > K
//       ascending from the LAST row; so the last row of a page comes again as
//       the first row of the next, and the pages of paging up and down
//       coincide.
//   READ_FOR_DUP_PROJ_STN_ROLE  the row of the ORG ID and TYPE_NAME given.
//   IDENTIFY_PROJECT_STATION_ROLE  a new row; its IS number comes from the
//       counter "TSMPROLE" (not the table's name); "DF" answers "Project
//       Station Role Already exists".
//   MODIFY_PROJECT_STATION_ROLE  "DF" (a type name in use) and "BP" have no
//       branch: each is a fatal stop with itself as detail.
//   REMOVE_PROJECT_STATION_ROLE  the cascade entry E4348087; no reference
//       check.
// Not found is EXIT_PSR_NOT_FOUND, "PROJECT_STATION_ROLE was not found.".
#ifndef WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_BLOCKS_H_
#define WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_BLOCKS_H_

#include "frame/unit.h"
#include "modules/project_station_role/project_station_role_views.h"
#include "patterns/row_blocks.h"
#include "store/statement.h"

namespace lk::project_station_role {

struct RoleTable {
  using Forms = RoleForms;
  static constexpr const char* kCounterName = "TSMPROLE";
  static const store::StatementDef kSelectDuplicate, kInsert, kReadForUpdate, kUpdate, kSelectKey;
  static constexpr u32 kNotFound = EXIT_PSR_NOT_FOUND;
  static constexpr const char* kNotFoundText = project_station_role::kNotFoundText;
  static constexpr u32 kAlreadyExists = EXIT_PSR_ALREADY_EXISTS;
  static constexpr const char* kAlreadyExistsText = project_station_role::kAlreadyExistsText;
};
using Blocks = patterns::RowBlocks<RoleTable>;

inline constexpr UnitId kDuplicateId = {"0000016402", "READ_FOR_DUP_PROJ_STN_ROLE"};
inline constexpr UnitId kIdentifyId = {"0000016403", "IDENTIFY_PROJECT_STATION_ROLE"};
inline constexpr UnitId kModifyId = {"0000016404", "MODIFY_PROJECT_STATION_ROLE"};
inline constexpr UnitId kRemoveId = {"0000016405", "REMOVE_PROJECT_STATION_ROLE"};

}  // namespace lk::project_station_role

#endif  // WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_BLOCKS_H_
