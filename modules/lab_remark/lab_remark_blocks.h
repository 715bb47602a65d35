// The six action blocks of the lab remark module over table TSRLBRMK, with
// the views they take and the exit states they leave.
//
//   LIST_LAB_REMARKS                 the rows with SHORT_NAME from range
//                                    start to range end, both inclusive, in
//                                    SHORT_NAME order, of every organisation,
//                                    at most kListLimit; the page's first and
//                                    last short name into the stack row of
//                                    the page on "LIST" and "NEXT"; AT_BOTTOM
//                                    "Y" when fewer rows than the limit came,
//                                    AT_TOP "Y" on page 1.
//   READ_LAB_REMARKS_PREV_NEXT       one row by IS number and ORG ID.
//                                    Not found: EXIT_LAB_REMARK_NOT_FOUND,
//                                    "LAB_REMARK was not found.", kind 'N'.
//   CHECK_FOR_DUP_LAB_REMARK         a row with this SHORT_NAME in any
//                                    organisation. Found: the exit state
//                                    stays; not found: as the read.
//   IDENTIFY_LAB_REMARK-1265369739   a new IS number of the counter
//                                    "TSRLBRMK"; the row inserted with the
//                                    user and the time; the key returned.
//                                    Unique violation:
//                                    EXIT_LAB_REMARK_ALREADY_EXISTS,
//                                    "LAB_REMARK already exists.", 'N'.
//   MODIFY_LAB_REMARK-1265369746     the row read for update by its key, its
//                                    short name and description changed and
//                                    stamped, written where current of the
//                                    cursor. Not found as the read; unique
//                                    violation EXIT_LAB_REMARK_NOT_UNIQUE,
//                                    "LAB_REMARK is not unique.", 'N'.
//   REMOVE_LAB_REMARK-1265369753     the row selected by its key, then
//                                    deleted through the cascade entry
//                                    E2738301. Not found: EXIT_LAB_REMARK_GONE,
//                                    "Lab Remark not found.", kind 'E'.
// A value refused by a permitted list on write gives
// EXIT_LAB_REMARK_PERMITTED_VALUE, "LAB_REMARK permitted value violation.",
// 'N'. Everything else is the fatal path (store/statement.h).
//
// Calling convention (frame/unit.h, store/statement.h): the caller zeroes
// the output views, fills the inputs, sets run_mode ' ', calls, and tests
// the callee. The blocks keep static storage and are not reentrant.
#ifndef WATRIX_MODULES_LAB_REMARK_LAB_REMARK_BLOCKS_H_
#define WATRIX_MODULES_LAB_REMARK_LAB_REMARK_BLOCKS_H_

#include <cstdint>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "modules/lab_remark/lab_remark_views.h"

namespace lk::lab_remark {

// The module's exit states.
constexpr std::uint32_t EXIT_LINK_RT51 = 0x4B6C0D07;
constexpr std::uint32_t EXIT_LAB_REMARK_DUPLICATE = 0x4B6C0D08;
constexpr std::uint32_t EXIT_LAB_REMARK_NOT_FOUND = 0x4B6C0D09;
constexpr std::uint32_t EXIT_LAB_REMARK_GONE = 0x4B6C0D0A;
constexpr std::uint32_t EXIT_LAB_REMARK_ALREADY_EXISTS = 0x4B6C0D0B;
constexpr std::uint32_t EXIT_LAB_REMARK_NOT_UNIQUE = 0x4B6C0D0C;
constexpr std::uint32_t EXIT_LAB_REMARK_PERMITTED_VALUE = 0x4B6C0D0D;

// The most rows that LIST_LAB_REMARKS gives.
constexpr int kListLimit = kListRows;

// SYSTEM_VARIABLE.
struct SystemVariable {
  char USER_ID_CODE[kUserId];
  char CURRENT_ORG_ID[kUserId];
};

// LAB_REMARK: the key.
struct RemarkKey {
  double TSRLBRMK_IS_NUMBER;
  char TSRLBRMK_ORG_ID[kOrgId];
};

// LAB_REMARK: the whole row.
struct Remark {
  double TSRLBRMK_IS_NUMBER;
  char TSRLBRMK_ORG_ID[kOrgId];
  char SHORT_NAME[kShortName];
  char DESCRIPTION_TEXT[kDescription];
  char D_USERID_CODE[kUserId];
  char D_LAST_UPDATE_TIMESTAMP[kTimestampStorage];
};

// LAB_REMARK: what the duplicate check is given.
struct RemarkName {
  char SHORT_NAME[kShortName];
  char DESCRIPTION_TEXT[kDescription];
};

// A limit of the range: LAB_REMARK.SHORT_NAME.
struct RangeLimit {
  char SHORT_NAME[kShortName];
};

// RUNTIME_SUPPLIED.FLAG.
struct Flag {
  char FLAG[kFlag];
};

// The page number and GRP_EXPORT_STACK.WATRIX_WORK_SET.
struct RemarkStack {
  double SUBSCRIPT;
  std::int32_t count;
  char LAST_ROW_SHORT_NAME[kStackRows + 1][kShortName];
  char FIRST_ROW_SHORT_NAME[kStackRows + 1][kShortName];
};

// GRP_EXPORT.LAB_REMARK of the list block.
struct RemarkGroup {
  std::int32_t count;
  double TSRLBRMK_IS_NUMBER[kListRows + 1];
  char TSRLBRMK_ORG_ID[kListRows + 1][kOrgId];
  char SHORT_NAME[kListRows + 1][kShortName];
  char DESCRIPTION_TEXT[kListRows + 1][kDescription];
};

void LIST_LAB_REMARKS(HandleA a, HandleB b, RunContext* rc, const RangeLimit* range_end,
                      const RangeLimit* range_start, const RemarkStack* import_stack,
                      Flag* at_bottom, Flag* at_top, RemarkStack* export_stack,
                      RemarkGroup* group);

void READ_LAB_REMARKS_PREV_NEXT(HandleA a, HandleB b, RunContext* rc, const RemarkKey* key,
                                Remark* row);

void CHECK_FOR_DUP_LAB_REMARK(HandleA a, HandleB b, RunContext* rc, const RemarkName* name);

void IDENTIFY_LAB_REMARK_1265369739(HandleA a, HandleB b, RunContext* rc,
                                    const SystemVariable* system, const Remark* row,
                                    RemarkKey* key);

void MODIFY_LAB_REMARK_1265369746(HandleA a, HandleB b, RunContext* rc,
                                  const SystemVariable* system, const Remark* row);

void REMOVE_LAB_REMARK_1265369753(HandleA a, HandleB b, RunContext* rc, const RemarkKey* key);

}  // namespace lk::lab_remark

#endif  // WATRIX_MODULES_LAB_REMARK_LAB_REMARK_BLOCKS_H_
