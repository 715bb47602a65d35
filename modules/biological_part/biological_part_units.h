// The units of the biological part module: the traits by which RT48 takes
// the list without paging (patterns/plain_list_units.h) and RT49 the
// Open-style window (patterns/open_entry_units.h), and the identities of
// their event actions. What is the module's own:
//   - RT48 reads every organisation's parts by name, at most 200, and sets
//     its "ADD", "CHANGE" and "DELETE" buttons itself: at Open "CHANGE" and
//     "DELETE" off; a row selected, or found again on the return, "ADD" off
//     and the other two on; no row, a delete done or cancelled, the reverse.
//   - RT48A drops the row only when the remove left EXIT_NONE; a part that a
//     field activity uses, or that another client deleted, stays unmarked
//     under the block's message.
//   - RT49 gives every row it adds the ORG ID "ZZZZZZZZ" and tests Name as
//     required. It has no duplicate check of its own: IDENTIFY_BIO_PART and
//     MODIFY_BIO_PART check the name, and their messages stand as they are,
//     the window showing what was typed. It sets COMMAND "RETURN" itself
//     when it ends.
#ifndef WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_UNITS_H_
#define WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_UNITS_H_

#include "frame/entry.h"
#include "frame/tables.h"
#include "frame/unit.h"
#include "modules/biological_part/biological_part_blocks.h"
#include "modules/biological_part/biological_part_views.h"
#include "patterns/delete_dialog.h"
#include "patterns/open_entry.h"
#include "patterns/open_entry_units.h"
#include "patterns/plain_list_units.h"
#include "patterns/stack_list.h"
#include "store/cascade.h"
#include "store/statement.h"

namespace lk::biological_part {

constexpr u32 kListProcedureId = 744;
constexpr u32 kEntryProcedureId = 1244;

// RT48_BIO_PART_MAINT_LIST as a list without paging.
struct BioPartList {
  using ListForms = BioPartListForms;
  using Dictionary = ListDictionary;
  static const patterns::StackList kList;
  static const patterns::DeleteDialog kDeleteDialog;
  static constexpr UnitId kBodyId = {"0009961700", "RT48_BIO_PART_MAINT_LIST"};
  static constexpr const UnitId& kListId = biological_part::kListId;
  static constexpr const store::StatementDef& kListStatement = biological_part::kListStatement;
  using Blocks = biological_part::Blocks;
  static constexpr const UnitId& kRemoveId = biological_part::kRemoveId;
  static constexpr auto kCascadeEntry = store::E0591960;
};
using List = patterns::PlainListUnits<BioPartList>;

// RT49_BIO_PART_DATA_ENTRY as an Open-style window whose check sits in its
// action blocks.
struct BioPartEntry {
  using Forms = BioPartForms;
  using HiddenForms = BioPartHiddenForms;
  using Dictionary = EntryDictionary;
  static const ViewNameRow& Views();
  static constexpr patterns::OpenEntry kEntry = {EXIT_BIO_PART_NOT_FOUND,
                                                 EXIT_BIO_PART_ALREADY_EXISTS,
                                                 kAlreadyExistsText,
                                                 /*return_command=*/"RETURN", 81,
                                                 /*checks_in_blocks=*/true};
  static constexpr UnitId kBodyId = {"0009961710", "RT49_BIO_PART_DATA_ENTRY"};
  static bool CheckFields(RunContext* rc, EntryExport* e);
  using Blocks = biological_part::Blocks;
  static constexpr const UnitId& kReadId = biological_part::kReadId;
  static constexpr const UnitId& kIdentifyId = biological_part::kIdentifyId;
  static constexpr const UnitId& kModifyId = biological_part::kModifyId;
};
using Entry = patterns::OpenEntryUnits<BioPartEntry>;

// The event actions that are the patterns' steps under their own names.
inline constexpr UnitId kOpenId = {"0009961701", "RT48_BIO_PART_MAINT_LIST_OPEN"};
inline constexpr UnitId kClickId = {"0009961702", "RT48_BIO_PART_LB_CLICK"};
inline constexpr UnitId kDoubleClickId = {"0009961703", "RT48_BIO_PART_LB_DOUBLECLICK"};
inline constexpr UnitId kAddId = {"0009961704", "RT48_BIO_PART_PB_ADD_CLICK"};
inline constexpr UnitId kChangeId = {"0009961705", "RT48_BIO_PART_PB_CHANGE_CLICK"};
inline constexpr UnitId kDeleteId = {"0009961706", "RT48_BIO_PART_PB_DELETE_CLICK"};
inline constexpr UnitId kCloseId = {"0009961707", "RT48_BIO_PART_PB_CLOSE_CLICK"};
inline constexpr UnitId kConfirmId = {"0009961708", "RT48A_BIO_PART_PB_DELETE_CLICK"};
inline constexpr UnitId kDismissId = {"0009961709", "RT48A_BIO_PART_PB_CANCEL_CLICK"};
inline constexpr UnitId kEntryOpenId = {"0009961711", "RT49_BIO_PART_DATA_ENTRY_OPEN"};
inline constexpr UnitId kAcceptId = {"0009961712", "RT49_BIO_PART_PB_ACCEPT_CLICK"};
inline constexpr UnitId kCancelId = {"0009961713", "RT49_BIO_PART_PB_CANCEL_CLICK"};

}  // namespace lk::biological_part

#endif  // WATRIX_MODULES_BIOLOGICAL_PART_BIOLOGICAL_PART_UNITS_H_
