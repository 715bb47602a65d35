// The units of the lithologic unit module: RT42 as a list without paging
// whose procedure body reads it, RT42A its delete dialog, and RT43 an
// Open-style data entry window (patterns/open_entry_units.h). What is the
// module's own:
//   - RT42 has no Open event: its body reads by COMMAND. "LIST" (from the
//     menu) clears the row in hand, gives it the run's ORG ID, reads from the
//     top and selects nothing. "REFRESH" (set by RT43 as it ends) reads from
//     the code, name and ORG ID of the row in hand, so that the list begins
//     at that row, and marks the row of that code and ORG ID. Any other
//     COMMAND leaves the group as it came, with no read. Close ends the
//     list by EXIT_RETURN, on which the menu's flow comes back.
//   - The event rows of Add and Change put "ADD" and "CHANGE" in place
//     themselves; Add keeps the ORG ID of the row in hand.
//   - RT42A's Delete runs REMOVE_LITHOLOGIC_UNIT by code, name and ORG ID
//     and closes the group up by one whatever came of it.
//   - RT43 tests USGS Code and Name as required; on "ADD" it reads for a
//     duplicate by code and ORG ID ("A Lithologic Unit with this Code
//     already exists."); on "CHANGE" the code is protected ("3gA2B7") and
//     only a changed name is written. It ends with COMMAND "REFRESH".
#ifndef WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_UNITS_H_
#define WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_UNITS_H_

#include "frame/entry.h"
#include "frame/tables.h"
#include "frame/unit.h"
#include "frame/views.h"
#include "modules/lithologic_unit/lithologic_unit_blocks.h"
#include "modules/lithologic_unit/lithologic_unit_views.h"
#include "patterns/delete_dialog.h"
#include "patterns/open_entry.h"
#include "patterns/open_entry_units.h"
#include "patterns/stack_list.h"

namespace lk::lithologic_unit {

constexpr u32 kListProcedureId = 577;
constexpr u32 kEntryProcedureId = 226;

// RT42_LITHOLOGIC_UNIT_MAINT_LIST: each event action under its own name.
struct List {
  static const patterns::StackList kList;
  static const patterns::DeleteDialog kDeleteDialog;
  static void Body(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Click(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void DoubleClick(HandleA a, HandleB b, RunContext* rc, void* import_view,
                          void* export_view);
  static void Add(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Change(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Delete(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Close(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void ConfirmDelete(HandleA a, HandleB b, RunContext* rc, void* import_view,
                            void* export_view);
  static void CancelDelete(HandleA a, HandleB b, RunContext* rc, void* import_view,
                           void* export_view);
};

// RT43_LITHOLOGIC_UNIT_DATA_ENTRY as an Open-style window.
struct LithEntry {
  using Forms = LithForms;
  using HiddenForms = LithHiddenForms;
  using Dictionary = EntryDictionary;
  static const ViewNameRow& Views();
  static constexpr patterns::OpenEntry kEntry = {EXIT_LITHOLOGIC_UNIT_NOT_FOUND,
                                                 EXIT_LITHOLOGIC_UNIT_DUPLICATE,
                                                 kDuplicateText,
                                                 /*return_command=*/"REFRESH",
                                                 81,
                                                 /*checks_in_blocks=*/false,
                                                 /*keeps_org_id=*/true,
                                                 /*checks_on_add_only=*/true};
  static constexpr const char* kKeyDisplayOnChange = kDisplayProtectedKey;
  static constexpr UnitId kBodyId = {"0009962010", "RT43_LITHOLOGIC_UNIT_DATA_ENTRY"};
  static bool CheckFields(RunContext* rc, EntryExport* e);
  // READ_FOR_DUP_LITHOLOGIC_UNIT by code and ORG ID.
  static void CheckDuplicate(HandleA a, HandleB b, RunContext* rc, const EntryExport& e);
  using Blocks = lithologic_unit::Blocks;
  static constexpr const UnitId& kReadId = lithologic_unit::kReadId;
  static constexpr const UnitId& kIdentifyId = lithologic_unit::kIdentifyId;
  static constexpr const UnitId& kModifyId = lithologic_unit::kModifyId;
};
using Entry = patterns::OpenEntryUnits<LithEntry>;

inline constexpr UnitId kBodyId = {"0009962000", "RT42_LITHOLOGIC_UNIT_MAINT_LIST"};
inline constexpr UnitId kClickId = {"0009962001", "RT42_LITHO_LB_EXPORT_GROUP_CLICK"};
inline constexpr UnitId kDoubleClickId = {"0009962002", "RT42_LB_EXPORT_GROUP_DOUBLECLICK"};
inline constexpr UnitId kAddId = {"0009962003", "RT42_LITHOLOGIC_UNI_PB_ADD_CLICK"};
inline constexpr UnitId kChangeId = {"0009962004", "RT42_LITHOLOGIC_PB_CHANGE_CLICK"};
inline constexpr UnitId kDeleteId = {"0009962005", "RT42_LITHOLOGIC_PB_DELETE_CLICK"};
inline constexpr UnitId kCloseId = {"0009962006", "RT42_LITHOLOGIC_U_PB_CLOSE_CLICK"};
inline constexpr UnitId kConfirmId = {"0009962007", "RT42_DELETE_LITH_PB_DELETE_CLICK"};
inline constexpr UnitId kDismissId = {"0009962008", "RT42_DELETE_LITH_PB_CANCEL_CLICK"};
inline constexpr UnitId kEntryOpenId = {"0009962011", "RT43_LITHOLOGIC_UNIT_DATA_OPEN"};
inline constexpr UnitId kAcceptId = {"0009962012", "RT43_LITHOLOGIC_PB_ACCEPT_CLICK"};
inline constexpr UnitId kCancelId = {"0009962013", "RT43_LITHOLOGIC_PB_CANCEL_CLICK"};

}  // namespace lk::lithologic_unit

#endif  // WATRIX_MODULES_LITHOLOGIC_UNIT_LITHOLOGIC_UNIT_UNITS_H_
