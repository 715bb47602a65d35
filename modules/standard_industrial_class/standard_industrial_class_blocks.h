// The action blocks of the standard industrial class, table TSMSIC, keyed by
// code and ORG ID: the row blocks of a code table
// (patterns/code_row_blocks.h) over this table's statements, and the two
// reads of its own (standard_industrial_class_blocks.cc).
//
//   READ_STANDARD_INDUSTRIAL_CODE  the page of the list within
//       CURRENT_ORG_ID (SicList's kReadPrev and kReadNext). Both reads
//       include the key row. "PREV": code = K and name <= K, or code <= K,
//       by code and name descending. Any other COMMAND: code = K and name
//       > K (or = K), or code > K, by code ascending and name descending:
//       the name runs against its own predicate, and so a code with many
//       names may show rows twice or skip some across a page break.
//   READ_FOR_DUP_SIC   the row of code, name and ORG ID; the duplicate rule
//       covers the pair, not the code alone. Not found: EXIT_SIC_NOT_FOUND.
//   READ_SIC_FOR_REFERENCED_STATIONS  EXIT_FSA_NOT_FOUND with its words,
//       then the TSMSIC row, then the first TSMFSA row of code and ORG ID:
//       one found sets EXIT_FSA_FOUND with its words.
//   IDENTIFY_SIC  the insert, in the organisation of the run; a duplicate
//       key ("DF") is a fatal stop.
//   MODIFY_STANDARD_INDUSTRIAL_CODE  code, name and stamp under the cursor.
//   REMOVE_STANDARD_INDUSTRIAL_CODE  the cascade entry E6427297, then the
//       step of the class's facility assignments.
#ifndef WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_BLOCKS_H_
#define WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_BLOCKS_H_

#include "frame/unit.h"
#include "modules/standard_industrial_class/standard_industrial_class_views.h"
#include "patterns/code_row_blocks.h"
#include "store/cascade.h"
#include "store/cascade_loop.h"
#include "store/statement.h"

namespace lk::standard_industrial_class {

struct SicTable {
  using Forms = SicForms;
  using Key = store::Code4Key;
  static const store::StatementDef kInsert, kReadForUpdate, kUpdate, kSelectKey, kSelectRow;
  static constexpr u32 kNotFound = EXIT_SIC_NOT_FOUND;
  static constexpr const char* kNotFoundText = standard_industrial_class::kNotFoundText;
  static constexpr bool kOrgFromRun = true;
  static constexpr const store::CascadeSteps& kRemoveSteps =
      store::kStandardIndustrialCodeSteps;
};
using Blocks = patterns::CodeRowBlocks<SicTable>;

// READ_FOR_DUP_SIC: `key` gives code, name and ORG ID.
void ReadForDupSic(HandleA a, HandleB b, RunContext* rc, const SicRow& key);
// READ_SIC_FOR_REFERENCED_STATIONS: `key` gives code and ORG ID.
void ReadSicForReferencedStations(HandleA a, HandleB b, RunContext* rc, const SicRow& key);

inline constexpr UnitId kReadId = {"0000032401", "READ_STANDARD_INDUSTRIAL_CODE"};
inline constexpr UnitId kReferenceId = {"0000032402", "READ_SIC_FOR_REFERENCED_STATIONS"};
inline constexpr UnitId kDuplicateId = {"0000032403", "READ_FOR_DUP_SIC"};
inline constexpr UnitId kIdentifyId = {"0000032404", "IDENTIFY_SIC"};
inline constexpr UnitId kModifyId = {"0000032405", "MODIFY_STANDARD_INDUSTRIAL_CODE"};
inline constexpr UnitId kRemoveId = {"0000032406", "REMOVE_STANDARD_INDUSTRIAL_CODE"};

}  // namespace lk::standard_industrial_class

#endif  // WATRIX_MODULES_STANDARD_INDUSTRIAL_CLASS_STANDARD_INDUSTRIAL_CLASS_BLOCKS_H_
