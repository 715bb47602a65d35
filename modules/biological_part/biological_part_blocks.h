// The action blocks of the biological part module, table TSRBIOPT: the read
// of the list and the row blocks (patterns/row_blocks.h) over this table's
// statements (biological_part_blocks.cc). Every message they set has kind
// 'E' and is shown as it stands; the duplicate check is theirs, not the
// window's.
//
//   LIST_BIOLOGICAL_PART  NAME, TSRBIOPT_IS_NUMBER, TSRBIOPT_ORG_ID of every
//       row, no predicate, by NAME; at most 200, the 201st ends the read
//       without a word.
//   READ_BIO_PART  the row by its key; not found: "Biological Part Not
//       Found".
//   IDENTIFY_BIO_PART  the row of the name, in any organisation: "Biological
//       Part already exists"; else counter "TSRBIOPT", the ORG ID the row
//       carries ("ZZZZZZZZ"), the stamp, the insert. "DF" "Biological Part
//       already exists", "BP" "Biological Name Permitted Value violation".
//   MODIFY_BIO_PART  a cursor for update of the new name: a row found,
//       "Biological Part already exists"; else the row by its key for update
//       ("Biological Part Not Found"), and an update by the key, not under
//       the cursor. "DF" "Biological Part not unique", "BP" as above.
//   REMOVE_BIO_PART  the key; not found "Biological Part Not Found"; a field
//       activity of the part: "Cannot delete the selected Biological Part.
//       It is related to a Field Activity.", nothing deleted; else the
//       cascade entry E0591960.
#ifndef WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_BLOCKS_H_
#define WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_BLOCKS_H_

#include "frame/unit.h"
#include "modules/biological_part/biological_part_views.h"
#include "patterns/row_blocks.h"
#include "store/statement.h"

namespace lk::biological_part {

struct BioPartTable {
  using Forms = BioPartForms;
  static constexpr const char* kCounterName = "TSRBIOPT";
  static const store::StatementDef kSelectDuplicate, kReadDuplicateForUpdate, kInsert,
      kReadForUpdate, kUpdate, kSelectKey, kSelectRow, kFieldActivity;
  static constexpr u32 kNotFound = EXIT_BIO_PART_NOT_FOUND;
  static constexpr const char* kNotFoundText = biological_part::kNotFoundText;
  static constexpr u32 kAlreadyExists = EXIT_BIO_PART_ALREADY_EXISTS;
  static constexpr const char* kAlreadyExistsText = biological_part::kAlreadyExistsText;
  static constexpr bool kOrgFromRow = true;
  static constexpr u32 kPermittedValue = EXIT_BIO_PART_PERMITTED_VALUE;
  static constexpr const char* kPermittedValueText = biological_part::kPermittedValueText;
  static constexpr u32 kNotUnique = EXIT_BIO_PART_NOT_UNIQUE;
  static constexpr const char* kNotUniqueText = biological_part::kNotUniqueText;
  static constexpr char kMessageKind = 'E';
  static constexpr bool kDuplicateInWrite = true;
  static constexpr bool kUpdateByKey = true;
  static constexpr u32 kInUse = EXIT_BIO_PART_IN_USE;
  static const patterns::ReferenceCheck kReferenceChecks[1];
  static constexpr const char* kRemoveStatement = "0000000003";
};
using Blocks = patterns::RowBlocks<BioPartTable>;

// LIST_BIOLOGICAL_PART's cursor.
extern const store::StatementDef kListStatement;

inline constexpr UnitId kListId = {"0009961720", "LIST_BIOLOGICAL_PART"};
inline constexpr UnitId kReadId = {"0009961721", "READ_BIO_PART"};
inline constexpr UnitId kIdentifyId = {"0009961722", "IDENTIFY_BIO_PART"};
inline constexpr UnitId kModifyId = {"0009961723", "MODIFY_BIO_PART"};
inline constexpr UnitId kRemoveId = {"0009961724", "REMOVE_BIO_PART"};

}  // namespace lk::biological_part

#endif  // WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_BLOCKS_H_
