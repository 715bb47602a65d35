// The action blocks of the lithologic unit module, table TSMLTHUN, keyed by
// code and ORG ID: the read of the list and the row blocks of a code table
// (patterns/code_row_blocks.h) over this table's statements
// (lithologic_unit_blocks.cc), under their own names and numbers.
//
//   READ_LITHOLOGIC_LIST  imports a code, a name and the ORG ID. A blank
//       code with a name given reads the rows of that ORG ID whose name is
//       at or above the name, sorted by code, then name; otherwise the rows
//       of that ORG ID whose code is at or above the code, by code. At most
//       200 rows are kept; the 201st fetched ends the read without a word.
//   READ_FOR_DUP_LITHOLOGIC_UNIT  the row by code and ORG ID; not found
//       "LITHOLOGIC_UNIT was not found.", which is the Add's success.
//   IDENTIFY_LITHOLOGIC_UNIT  the insert with the stamp of now; "DF"
//       "Lithologic Unit already exists.", "BP" "Lithologic Unit permitted
//       value violation.".
//   MODIFY_LITHOLOGIC_UNIT  the row by code and ORG ID for update; NAME, the
//       user and the stamp written under the cursor.
//   REMOVE_LITHOLOGIC_UNIT  the row by code, NAME and ORG ID: a row renamed
//       since it was listed is not found, "LITHOLOGIC_UNIT was not found.";
//       else the cascade entry E2173100. No reference check.
#ifndef WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_BLOCKS_H_
#define WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_BLOCKS_H_

#include "frame/unit.h"
#include "modules/lithologic_unit/lithologic_unit_views.h"
#include "patterns/code_row_blocks.h"
#include "store/cascade.h"
#include "store/statement.h"

namespace lk::lithologic_unit {

struct LithTable {
  using Forms = LithForms;
  using Key = store::Code12Key;
  static const store::StatementDef kInsert, kReadForUpdate, kUpdate, kSelectKey, kSelectRow;
  static constexpr u32 kNotFound = EXIT_LITHOLOGIC_UNIT_NOT_FOUND;
  static constexpr const char* kNotFoundText = lithologic_unit::kNotFoundText;
  static constexpr u32 kAlreadyExists = EXIT_LITHOLOGIC_UNIT_ALREADY_EXISTS;
  static constexpr const char* kAlreadyExistsText = lithologic_unit::kAlreadyExistsText;
  static constexpr u32 kPermittedValue = EXIT_LITHOLOGIC_UNIT_PERMITTED_VALUE;
  static constexpr const char* kPermittedValueText = lithologic_unit::kPermittedValueText;
  static constexpr bool kRemoveMatchesValues = true;
};
using Blocks = patterns::CodeRowBlocks<LithTable>;

// What READ_LITHOLOGIC_LIST imports.
struct ListFrom {
  char CODE[kCode];
  char NAME[kName];
  char ORG_ID[9];
};

// READ_LITHOLOGIC_LIST into the list's group.
void ReadLithologicList(HandleA a, HandleB b, RunContext* rc, const ListFrom& from,
                        ListExport* e);

inline constexpr UnitId kListId = {"0009962020", "READ_LITHOLOGIC_LIST"};
inline constexpr UnitId kReadId = {"0009962021", "READ_FOR_DUP_LITHOLOGIC_UNIT"};
inline constexpr UnitId kIdentifyId = {"0009962022", "IDENTIFY_LITHOLOGIC_UNIT"};
inline constexpr UnitId kModifyId = {"0009962023", "MODIFY_LITHOLOGIC_UNIT"};
inline constexpr UnitId kRemoveId = {"0009962024", "REMOVE_LITHOLOGIC_UNIT"};

}  // namespace lk::lithologic_unit

#endif  // WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_BLOCKS_H_
