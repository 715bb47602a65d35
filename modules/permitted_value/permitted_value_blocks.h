// The action blocks of the permitted value module, table TSMPRMVL. Each
// reports through RunContext and its output records, never by a return
// value; the statements are in permitted_value_blocks.cc.
//
//   READ_PERMITTED_VALUE_LIST  a page of at most 2000 rows, by TABLE_NAME,
//       FIELD_NAME, SEQUENCE_NUMBER. "LIST", "NEXT" and "REFRESH" read on
//       from the LAST key, the key's row included, within the run's ORG ID.
//       "PREV" reads back from the FIRST key, the key's row included, over
//       every organisation, and fills the page from row 2000 down; when the
//       top of the table comes before row 1 is filled, a second pass reads
//       the run's first 2000 rows forward and PREV stays blank. A full
//       forward page asks the look-ahead after its last key for NEXT; a full
//       backward page the look-ahead before its first key for PREV; "NEXT"
//       sets PREV "Y" without one, and "REFRESH" asks the look-ahead before
//       its first key. The look-aheads bind the ORG ID in their first branch
//       only. FIRST and LAST are the keys of what was read.
//   REMOVE_PERMITTED_VALUE  the row by IS number and ORG ID; not found:
//       EXIT_PV_NOT_FOUND "Permitted Value Not Found."; found: the cascade
//       entry E3022453.
//   READ_4_ACTIVITY_CATEGORY_PV  the first row of TABLE_NAME and FIELD_VALUE
//       whose FIELD_NAME is the one given, or, given blank, any but
//       "CATEGORY_TYPE_NAME". Not found: EXIT_PV_CATEGORY_NOT_FOUND.
//   READ_COMMON_FIELD_NAME_TABLES  rows of other tables with the FIELD_NAME
//       (and, unless the process FLAG is "AD", the FIELD_VALUE), the first
//       of each table, at most 5, each with the applied FLAG "N".
//   LIST_PERMITTED_VALUES_FROM_TABLE  the values of one table's field in
//       the ORG ID, by SEQUENCE_NUMBER, at most 500, behind a row "<Blank>"
//       when the blank-row flag is "Y": the drop-down lists of other tables.
//   READ_FOR_PV_TABLE_NAME, READ_FOR_PV_FIELD_NAME  whether any row has the
//       name (the names); not found: EXIT_PV_NOT_FOUND with its text.
//   READ_FOR_DUPLICATE_PV_VALUE  found: EXIT_PV_DUPLICATE_VALUE "Permitted
//       Value already exists."; READ_FOR_DUPLICATE_PV_SEQ_NUM  found:
//       EXIT_PV_DUPLICATE_SEQ, no text. Several rows count as found.
//   IDENTIFY_PERMITTED_VALUE, MODIFY_PERMITTED_VALUE  the row blocks of
//       patterns/row_blocks.h: counter "TSMPRMVL"; "DF" "Permitted Value
//       already exists." / "Permitted Value not unique."; "BP" "Permitted
//       Value permitted value violation.".
//   READ_DISTINCT_PV_TABLE_NAMES  the pairs of names of the ORG ID in name
//       order, each once, without the two activity category sub-lists; at
//       most 100.
//   DETERM_NEXT_PERM_VALUE_SEQ_NUMB  the next SEQUENCE_NUMBER of a table's
//       field: the highest plus 1, or 1; at 999 it stays 999 with
//       EXIT_PV_SEQ_MAX and "The max seq no. of 999 has been reached.
//       Cannot increment by 1.".
// No block reads or writes the organisation of another unless said.
#ifndef WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_BLOCKS_H_
#define WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_BLOCKS_H_

#include <cstdint>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/unit.h"
#include "frame/views.h"
#include "modules/permitted_value/permitted_value_views.h"
#include "patterns/row_blocks.h"
#include "store/statement.h"

namespace lk::permitted_value {

struct PvTable {
  using Forms = PvForms;
  static constexpr const char* kCounterName = "TSMPRMVL";
  static const store::StatementDef kSelectDuplicate, kInsert, kReadForUpdate, kUpdate,
      kSelectKey;
  static constexpr u32 kNotFound = EXIT_PV_NOT_FOUND;
  static constexpr const char* kNotFoundText = permitted_value::kNotFoundText;
  static constexpr u32 kAlreadyExists = EXIT_PV_ALREADY_EXISTS;
  static constexpr const char* kAlreadyExistsText = permitted_value::kAlreadyExistsText;
  static constexpr u32 kPermittedValue = EXIT_PV_PERMITTED_VALUE;
  static constexpr const char* kPermittedValueText = permitted_value::kPermittedValueText;
  static constexpr u32 kNotUnique = EXIT_PV_NOT_UNIQUE;
  static constexpr const char* kNotUniqueText = permitted_value::kNotUniqueText;
};
using Blocks = patterns::RowBlocks<PvTable>;

inline constexpr UnitId kReadListId = {"0000017001", "READ_PERMITTED_VALUE_LIST"};
inline constexpr UnitId kRemoveId = {"0000017002", "REMOVE_PERMITTED_VALUE"};
inline constexpr UnitId kReadCategoryId = {"0000017003", "READ_4_ACTIVITY_CATEGORY_PV"};
inline constexpr UnitId kReadCommonId = {"0000017004", "READ_COMMON_FIELD_NAME_TABLES"};
inline constexpr UnitId kListValuesId = {"0000017005", "LIST_PERMITTED_VALUES_FROM_TABLE"};
inline constexpr UnitId kReadTableNameId = {"0000017006", "READ_FOR_PV_TABLE_NAME"};
inline constexpr UnitId kReadFieldNameId = {"0000017007", "READ_FOR_PV_FIELD_NAME"};
inline constexpr UnitId kDuplicateValueId = {"0000017008", "READ_FOR_DUPLICATE_PV_VALUE"};
inline constexpr UnitId kDuplicateSeqId = {"0000017009", "READ_FOR_DUPLICATE_PV_SEQ_NUM"};
inline constexpr UnitId kIdentifyId = {"0000017010", "IDENTIFY_PERMITTED_VALUE"};
inline constexpr UnitId kModifyId = {"0000017011", "MODIFY_PERMITTED_VALUE"};
inline constexpr UnitId kDistinctNamesId = {"0000017012", "READ_DISTINCT_PV_TABLE_NAMES"};
inline constexpr UnitId kNextSeqId = {"0000017013", "DETERM_NEXT_PERM_VALUE_SEQ_NUMB"};

// ---- READ_PERMITTED_VALUE_LIST ----

struct PageIn {
  char COMMAND[81];
  PvKeyRow last;
  PvKeyRow first;
  char CURRENT_ORG_ID[9];
};
struct PageOut {
  char NEXT[2];
  char PREV[2];
  PvKeyRow first;
  PvKeyRow last;
};
// The page is written into `group` in place, the count first.
void READ_PERMITTED_VALUE_LIST(HandleA a, HandleB b, RunContext* rc, const PageIn* in,
                               PageOut* out, PvGroup* group);

// ---- Reads by names ----

// The names and value a read is given; which of them it uses is its own.
struct NamesIn {
  char TABLE_NAME[kTableName];
  char FIELD_NAME[kFieldName];
  char FIELD_VALUE[kFieldValue];
  char SEQUENCE_NUMBER[kSequence];  // a double
};

void REMOVE_PERMITTED_VALUE(HandleA a, HandleB b, RunContext* rc, const PvRow* key);
void READ_4_ACTIVITY_CATEGORY_PV(HandleA a, HandleB b, RunContext* rc, const NamesIn* in,
                                 PvRow* found);

// The rows of other tables, into a group of 5 written in place with its
// count and applied FLAGs.
void READ_COMMON_FIELD_NAME_TABLES(HandleA a, HandleB b, RunContext* rc, const char* process_flag,
                                   const NamesIn* in, TablesExport* tables);

// A drop-down's values: row 1 "<Blank>" first when `blank_row` is "Y".
struct ValueList {
  std::int32_t count;
  Column<kValueListRows, kFieldValue> FIELD_VALUE;
  Column<kValueListRows, kFieldDesc> FIELD_DESCRIPTION;
};
void LIST_PERMITTED_VALUES_FROM_TABLE(HandleA a, HandleB b, RunContext* rc,
                                      const char* blank_row, const char* org_id,
                                      const NamesIn* in, ValueList* list);

void READ_FOR_PV_TABLE_NAME(HandleA a, HandleB b, RunContext* rc, const NamesIn* in);
void READ_FOR_PV_FIELD_NAME(HandleA a, HandleB b, RunContext* rc, const NamesIn* in);
void READ_FOR_DUPLICATE_PV_VALUE(HandleA a, HandleB b, RunContext* rc, const NamesIn* in);
void READ_FOR_DUPLICATE_PV_SEQ_NUM(HandleA a, HandleB b, RunContext* rc, const NamesIn* in);

// RT3A's pairs, into its group written in place.
void READ_DISTINCT_PV_TABLE_NAMES(HandleA a, HandleB b, RunContext* rc, const char* org_id,
                                  NamesExport* names);

// The names given and the next sequence number, into `result`.
void DETERM_NEXT_PERM_VALUE_SEQ_NUMB(HandleA a, HandleB b, RunContext* rc, const NamesIn* in,
                                     PvKeyRow* result);

}  // namespace lk::permitted_value

#endif  // WATRIX_MODULES_PERMITTED_VALUE_PERMITTED_VALUE_BLOCKS_H_
