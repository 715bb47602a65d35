// The procedure bodies and event actions of the lab remark module, as the
// design tables name them. Each says only how it differs from its pattern:
// RT50 from the stack-style list (patterns/stack_list.h), RT50A from the
// delete confirmation (patterns/delete_dialog.h), RT51 from the Open-style
// data entry window (patterns/open_entry.h).
//
// What is the module's own:
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

namespace lk::lab_remark {

// RT50 (dialog 366).
void RT50_LAB_REMARK_MAINT_LIST_OPEN(HandleA, HandleB, RunContext*, void*, void*);
void RT50_LAB_REMARK_LB_CLICK(HandleA, HandleB, RunContext*, void*, void*);
void RT50_LAB_REMARK_LB_DOUBLECLICK(HandleA, HandleB, RunContext*, void*, void*);
void RT50_LAB_REMARK_PB_ADD_CLICK(HandleA, HandleB, RunContext*, void*, void*);
void RT50_LAB_REMARK_PB_CHANGE_CLICK(HandleA, HandleB, RunContext*, void*, void*);
void RT50_LAB_REMARK_PB_DELETE_CLICK(HandleA, HandleB, RunContext*, void*, void*);
void RT50_LAB_REMARK_PB_CLOSE_CLICK(HandleA, HandleB, RunContext*, void*, void*);
void RT50_LAB_REMARK_MAIN_PB_UP_CLICK(HandleA, HandleB, RunContext*, void*, void*);
void RT50_LAB_REMARK_MA_PB_DOWN_CLICK(HandleA, HandleB, RunContext*, void*, void*);

// RT50A (dialog 383).
void RT50A_LAB_REMARK_PB_DELETE_CLICK(HandleA, HandleB, RunContext*, void*, void*);
void RT50A_LAB_REMARK_PB_CANCEL_CLICK(HandleA, HandleB, RunContext*, void*, void*);

// RT51 (dialog 992).
void RT51_LAB_REMARK_DATA_ENTRY_OPEN(HandleA, HandleB, RunContext*, void*, void*);
void RT51_LAB_REMARK_PB_ACCEPT_CLICK(HandleA, HandleB, RunContext*, void*, void*);
void RT51_LAB_REMARK_PB_CANCEL_CLICK(HandleA, HandleB, RunContext*, void*, void*);

}  // namespace lk::lab_remark

#endif  // WATRIX_MODULES_LAB_REMARK_LAB_REMARK_UNITS_H_
