// The action blocks of the unit of measure module, table TSRUOM: the row
// blocks (patterns/row_blocks.h) over this table's statements
// (unit_of_measure_blocks.cc), and the read of the preview.
//
//   READ_UOM_REF_TABLE_LIST  the page cursors of RT34 (first-page list):
//       within CURRENT_ORG_ID, "PREV" where (UOM_TYPE = K1 and
//       SHORT_FORM_NAME < K2) or UOM_TYPE < K1, by both descending; else the
//       same with >, ascending. Both strict: pages do not overlap.
//   READ_FOR_DUP_UOM  the row of UOM_TYPE, SHORT_FORM_NAME and the ORG ID;
//       the row itself is not excepted. Not found: "UNIT_OF_MEASURE was not
//       found.".
//   IDENTIFY_UNIT_OF_MEASURE  counter "TSRUOM", ORG ID := CURRENT_ORG_ID;
//       a type outside the twelve is "BP", fatal; "DF" "Unit of Measure
//       already exists".
//   MODIFY_UNIT_OF_MEASURE  the row by its key for update, updated under the
//       cursor; not found "UNIT_OF_MEASURE was not found."; "DF" and "BP"
//       fatal.
//   REMOVE_UNIT_OF_MEASURE  not found "UNIT_OF_MEASURE was not found.";
//       then four checks in this order, each stopping at the first row with
//       "Cannot delete UOM. It is being used.": TSRRSULT, TSRRCI, TSRRQCAF,
//       TSRDQL; else the cascade entry E2738395.
//   READ_UNIT_OF_MEASURE_PREVIEW  the rows of the ORG ID: all of them by
//       type and short form when the type is "AL", else those of the type
//       by short form; at most 2000; a type outside the twelve is "IA",
//       fatal.
#ifndef WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_BLOCKS_H_
#define WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_BLOCKS_H_

#include "frame/unit.h"
#include "modules/unit_of_measure/unit_of_measure_views.h"
#include "patterns/row_blocks.h"
#include "store/statement.h"

namespace lk::unit_of_measure {

struct UomTable {
  using Forms = UomForms;
  static constexpr const char* kCounterName = "TSRUOM";
  static const store::StatementDef kSelectDuplicate, kInsert, kReadForUpdate, kUpdate,
      kSelectKey, kResult, kResultCi, kQcAffected, kQualifier;
  static constexpr u32 kNotFound = EXIT_UOM_NOT_FOUND;
  static constexpr const char* kNotFoundText = unit_of_measure::kNotFoundText;
  static constexpr u32 kAlreadyExists = EXIT_UOM_ALREADY_EXISTS;
  static constexpr const char* kAlreadyExistsText = unit_of_measure::kAlreadyExistsText;
  static constexpr u32 kInUse = EXIT_UOM_IN_USE;
  static const patterns::ReferenceCheck kReferenceChecks[4];
  static constexpr const char* kRemoveStatement = "0000000006";
};
using Blocks = patterns::RowBlocks<UomTable>;

// The page cursors of READ_UOM_REF_TABLE_LIST.
extern const store::StatementDef kReadPrev, kReadNext;
// The preview's cursors: all types, or one.
extern const store::StatementDef kPreviewAll, kPreviewType;

inline constexpr UnitId kReadListId = {"0000012601", "READ_UOM_REF_TABLE_LIST"};
inline constexpr UnitId kDuplicateId = {"0000012602", "READ_FOR_DUP_UOM"};
inline constexpr UnitId kIdentifyId = {"0000012603", "IDENTIFY_UNIT_OF_MEASURE"};
inline constexpr UnitId kModifyId = {"0000012604", "MODIFY_UNIT_OF_MEASURE"};
inline constexpr UnitId kRemoveId = {"0000012605", "REMOVE_UNIT_OF_MEASURE"};
inline constexpr UnitId kPreviewReadId = {"0000012606", "READ_UNIT_OF_MEASURE_PREVIEW"};

}  // namespace lk::unit_of_measure

#endif  // WATRIX_MODULES_UNIT_OF_MEASURE_UNIT_OF_MEASURE_BLOCKS_H_
