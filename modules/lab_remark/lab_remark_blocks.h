// The action blocks of the lab remark module, table TSRLBRMK: the read of
// the list and the row blocks (patterns/row_blocks.h) over this table's
// statements (lab_remark_blocks.cc), under their own names and numbers.
//
//   LIST_LAB_REMARKS  TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME,
//       DESCRIPTION_TEXT where SHORT_NAME >= the range start and <= the range
//       end, by SHORT_NAME; no ORG ID: all organisations' rows show. At most
//       2000, without a word about more (patterns/stack_list_units.h).
//   READ_LAB_REMARKS_PREV_NEXT  in spite of its name one row, by its key.
//   CHECK_FOR_DUP_LAB_REMARK  the row of the short name alone: no ORG ID, and
//       the row itself is not excepted.
//   IDENTIFY_LAB_REMARK-1265369739  counter "TSRLBRMK"; the ORG ID the row
//       carries ("ZZZZZZZZ"); without a number it stops, the counter's exit
//       state standing; "DF" "LAB_REMARK already exists.", "BP" "LAB_REMARK
//       permitted value violation.".
//   MODIFY_LAB_REMARK-1265369746  "DF" "LAB_REMARK is not unique.", "BP" as
//       above.
//   REMOVE_LAB_REMARK-1265369753  not found: EXIT_LAB_REMARK_GONE, "Lab
//       Remark not found.", kind 'E'; found: the cascade entry E2738301. No
//       reference check: a remark code is not guarded against use.
// Not found elsewhere is EXIT_LAB_REMARK_NOT_FOUND, "LAB_REMARK was not
// found.". The numbers in the block names are part of the names.
#ifndef WATRIX_MODULES_LAB_REMARK_LAB_REMARK_BLOCKS_H_
#define WATRIX_MODULES_LAB_REMARK_LAB_REMARK_BLOCKS_H_

#include "frame/unit.h"
#include "modules/lab_remark/lab_remark_views.h"
#include "patterns/row_blocks.h"
#include "store/statement.h"

namespace lk::lab_remark {

struct RemarkTable {
  using Forms = RemarkForms;
  static constexpr const char* kCounterName = "TSRLBRMK";
  static const store::StatementDef kSelectDuplicate, kInsert, kReadForUpdate, kUpdate,
      kSelectKey, kSelectRow;
  static constexpr u32 kNotFound = EXIT_LAB_REMARK_NOT_FOUND;
  static constexpr const char* kNotFoundText = lab_remark::kNotFoundText;
  static constexpr u32 kAlreadyExists = EXIT_LAB_REMARK_ALREADY_EXISTS;
  static constexpr const char* kAlreadyExistsText = lab_remark::kAlreadyExistsText;
  static constexpr bool kOrgFromRow = true;
  static constexpr bool kStopWithoutNumber = true;
  static constexpr u32 kPermittedValue = EXIT_LAB_REMARK_PERMITTED_VALUE;
  static constexpr const char* kPermittedValueText = lab_remark::kPermittedValueText;
  static constexpr u32 kNotUnique = EXIT_LAB_REMARK_NOT_UNIQUE;
  static constexpr const char* kNotUniqueText = lab_remark::kNotUniqueText;
  static constexpr u32 kGone = EXIT_LAB_REMARK_GONE;
  static constexpr const char* kGoneText = lab_remark::kGoneText;
  static constexpr const char* kRemoveStatement = "0000000002";
};
using Blocks = patterns::RowBlocks<RemarkTable>;

// LIST_LAB_REMARKS's cursor, over the range "1" to "zzzzzz".
extern const store::StatementDef kListStatement;

inline constexpr UnitId kListId = {"0009961520", "LIST_LAB_REMARKS"};
inline constexpr UnitId kReadId = {"0009961521", "READ_LAB_REMARKS_PREV_NEXT"};
inline constexpr UnitId kCheckId = {"0009961522", "CHECK_FOR_DUP_LAB_REMARK"};
inline constexpr UnitId kIdentifyId = {"1265369739", "IDENTIFY_LAB_REMARK-1265369739"};
inline constexpr UnitId kModifyId = {"1265369746", "MODIFY_LAB_REMARK-1265369746"};
inline constexpr UnitId kRemoveId = {"1265369753", "REMOVE_LAB_REMARK-1265369753"};

}  // namespace lk::lab_remark

#endif  // WATRIX_MODULES_LAB_REMARK_LAB_REMARK_BLOCKS_H_
