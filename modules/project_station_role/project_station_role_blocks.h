// The action blocks of the project station role, table TSMPSR, over the
// statement frame (store/statement.h, store/actions.h).
//
//   READ_PROJECT_STN_ROLE_REF_TABLE  the page of the list, by TYPE_NAME within
//       CURRENT_ORG_ID. Both keyset predicates include the key: "PREV" reads
//       TYPE_NAME = K or < K descending from the FIRST row, any other COMMAND
//       TYPE_NAME = K or > K ascending from the LAST row; so the last row of
//       a page comes again as the first row of the next, and the pages of
//       paging up and down coincide (patterns/first_page_list.h tells the
//       rest of the read).
//   READ_FOR_DUP_PROJ_STN_ROLE  the row of the import's ORG ID and TYPE_NAME.
//       Found: exit state unchanged. Not found: EXIT_PSR_NOT_FOUND,
//       "PROJECT_STATION_ROLE was not found.", kind 'N'.
//   IDENTIFY_PROJECT_STATION_ROLE  a new row: the IS number of the counter
//       "TSMPROLE" (not the table's name), ORG ID := CURRENT_ORG_ID,
//       D_USERID_CODE := USER_ID_CODE, the stamp, the insert. "OK" exports
//       the row as written; "DF" EXIT_PSR_ALREADY_EXISTS, "Project Station
//       Role Already exists", kind 'N'; "BP" and anything else are fatal.
//   MODIFY_PROJECT_STATION_ROLE  locks the row by its key (FOR UPDATE of
//       TYPE_NAME, D_USERID_CODE, D_LAST_UPDATE_TS), writes TYPE_NAME, the
//       user and the stamp under the cursor, exports the row. Not found:
//       EXIT_PSR_NOT_FOUND with its words, kind 'N'. "DF" (a type name in
//       use) and "BP" have no branch: each is a fatal stop with itself as
//       detail.
//   REMOVE_PROJECT_STATION_ROLE  selects the row by its key; not found:
//       EXIT_PSR_NOT_FOUND, "PROJECT_STATION_ROLE was not found.", kind 'E';
//       found: the cascade entry E4348087. No reference check.
//
// Contract: each is an action block of the unit protocol: it reports
// through RunContext (exit state and message, or a fatal status) and its
// export views, never by a return value. Not reentrant; one thread.
#ifndef WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_BLOCKS_H_
#define WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_BLOCKS_H_

#include "frame/entry.h"
#include "frame/run_context.h"
#include "modules/project_station_role/project_station_role_views.h"
#include "patterns/first_page_list.h"

namespace lk::project_station_role {

void READ_PROJECT_STN_ROLE_REF_TABLE(HandleA a, HandleB b, RunContext* rc,
                                     const patterns::FlagView* prev_in,
                                     const patterns::CommandView* command, const RoleRow* last_in,
                                     const RoleRow* first_in,
                                     const patterns::SystemVariableView* system,
                                     patterns::FlagView* next_out, patterns::FlagView* prev_out,
                                     RoleRow* first_out, RoleRow* last_out, RoleGroup* group);

// Import: TSMPSR_ORG_ID and TYPE_NAME of `key`. Export: the row found.
void READ_FOR_DUP_PROJ_STN_ROLE(HandleA a, HandleB b, RunContext* rc, const RoleRow* key,
                                RoleRow* found);

// Import: SYSTEM_VARIABLE and the row (TYPE_NAME). Export: the row written.
void IDENTIFY_PROJECT_STATION_ROLE(HandleA a, HandleB b, RunContext* rc,
                                   const patterns::SystemVariableView* system, const RoleRow* row,
                                   RoleRow* written);

// Import: SYSTEM_VARIABLE and the row (key and TYPE_NAME). Export: the row
// written.
void MODIFY_PROJECT_STATION_ROLE(HandleA a, HandleB b, RunContext* rc,
                                 const patterns::SystemVariableView* system, const RoleRow* row,
                                 RoleRow* written);

// Import: TSMPSR_IS_NUMBER and TSMPSR_ORG_ID of `key`.
void REMOVE_PROJECT_STATION_ROLE(HandleA a, HandleB b, RunContext* rc, const RoleRow* key);

}  // namespace lk::project_station_role

#endif  // WATRIX_MODULES_PROJECT_STATION_ROLE_PROJECT_STATION_ROLE_BLOCKS_H_
