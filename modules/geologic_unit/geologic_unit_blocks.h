// The action blocks of the geologic unit module, table TSMGEOUN, keyed by
// code and ORG ID: the read of the list and the row blocks of a code table
// (patterns/code_row_blocks.h) over this table's statements
// (geologic_unit_blocks.cc), under their own names and numbers.
//
//   LIST_GEOLOGIC_UNIT  over all organisations (no ORG ID in any predicate),
//       by one of three statements: COMMAND "PREV" with sort "CODE": codes
//       from the low code up, by code and name; sort "NAME": names between
//       the low and the high name, by name and code; otherwise ("LIST",
//       "NEXT" with sort "CODE"): codes and names both in their ranges, or
//       any code above the low code with a name, by code and name. At most
//       200 rows; the 201st fetched stops the read. AT_BOTTOM "Y" when
//       fewer than 200 came, AT_TOP "Y" on page 1; on "LIST" and "NEXT" the
//       stack records the page's first and last code and name
//       (patterns/page_key_stack.h).
//   READ_GEO_LOGIC_UNIT     the row by code and ORG ID.
//   IDENTIFY_GEOLOGIC_UNIT  the insert, with the ORG ID the row carries; "DF"
//       "Geologic Unit already exists", "BP" "Geologic Unit permitted value
//       violation.".
//   MODIFY_GEOLOGIC_UNIT    TYPE_CODE, STATE_CODE, NAME and the stamp under
//       the cursor; "DF" "Geologic Unit is not unique", "BP" as above.
//   REMOVE_GEOLOGIC_UNIT    the row by code and ORG ID; then a spring of
//       TSMSPRNG with that unit refuses with "Cannot delete the selected
//       Geologic Unit. It is related to a Spring Station.", else an interval
//       of TSMIGUA with "Cannot delete selected Geologic Unit. It is related
//       to an Interval.", both kind 'E'; else the cascade entry E2173103 and
//       the steps of the unit's springs and intervals.
// Not found is EXIT_GEOLOGIC_UNIT_NOT_FOUND, "GEOLOGIC_UNIT was not found.".
#ifndef WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_BLOCKS_H_
#define WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_BLOCKS_H_

#include "frame/unit.h"
#include "modules/geologic_unit/geologic_unit_views.h"
#include "patterns/code_row_blocks.h"
#include "patterns/page_key_stack.h"
#include "store/cascade.h"
#include "store/cascade_loop.h"
#include "store/statement.h"

namespace lk::geologic_unit {

struct UnitTable {
  using Forms = UnitForms;
  using Key = store::Code12Key;
  static const store::StatementDef kInsert, kReadForUpdate, kUpdate, kSelectKey, kSelectRow;
  static constexpr u32 kNotFound = EXIT_GEOLOGIC_UNIT_NOT_FOUND;
  static constexpr const char* kNotFoundText = geologic_unit::kNotFoundText;
  static constexpr u32 kAlreadyExists = EXIT_GEOLOGIC_UNIT_ALREADY_EXISTS;
  static constexpr const char* kAlreadyExistsText = geologic_unit::kAlreadyExistsText;
  static constexpr u32 kNotUnique = EXIT_GEOLOGIC_UNIT_NOT_UNIQUE;
  static constexpr const char* kNotUniqueText = geologic_unit::kNotUniqueText;
  static constexpr u32 kPermittedValue = EXIT_GEOLOGIC_UNIT_PERMITTED_VALUE;
  static constexpr const char* kPermittedValueText = geologic_unit::kPermittedValueText;
  static constexpr const char* kRemoveStatement = "0000000004";
  static constexpr const store::CascadeSteps& kRemoveSteps = store::kGeologicUnitSteps;
  // The spring, then the interval: true, with the refusal set, when either
  // refers to the unit.
  static bool Referenced(store::Block& block, RunContext* rc, const UnitRow& key);
};
using Blocks = patterns::CodeRowBlocks<UnitTable>;

// The page keys of the stack, by code and by name.
struct UnitStack {
  using Group = UnitPagesGroup;
  static constexpr auto kFirstA = &UnitPagesGroup::FIRST_ROW_USGS_CODE;
  static constexpr auto kLastA = &UnitPagesGroup::LAST_ROW_USGS_CODE;
  static constexpr auto kFirstB = &UnitPagesGroup::FIRST_ROW_NAME;
  static constexpr auto kLastB = &UnitPagesGroup::LAST_ROW_NAME;
};
using Stack = patterns::PageKeyStack<UnitStack>;

// What LIST_GEOLOGIC_UNIT imports beside COMMAND, the page and the stack.
struct ListRange {
  char SORT_TEXT[5];
  char LOW_CODE[kCode];
  char HIGH_CODE[kCode];
  char LOW_NAME[kName];
  char HIGH_NAME[kName];
};

// LIST_GEOLOGIC_UNIT over the list's export view: the group, the AT flags
// and the stack, for the page EXPORT_STACK names.
void ListGeologicUnit(HandleA a, HandleB b, RunContext* rc, const ListRange& range,
                      ListExport* e);

inline constexpr UnitId kListId = {"0009961620", "LIST_GEOLOGIC_UNIT"};
inline constexpr UnitId kReadId = {"0009961621", "READ_GEO_LOGIC_UNIT"};
inline constexpr UnitId kIdentifyId = {"0009961622", "IDENTIFY_GEOLOGIC_UNIT"};
inline constexpr UnitId kModifyId = {"0009961623", "MODIFY_GEOLOGIC_UNIT"};
inline constexpr UnitId kRemoveId = {"0009961624", "REMOVE_GEOLOGIC_UNIT"};

}  // namespace lk::geologic_unit

#endif  // WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_BLOCKS_H_
