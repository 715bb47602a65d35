// The units of the geologic unit module: RT46 as a stack-style list with a
// Search group and a stack of page keys, RT46A its delete dialog, and RT47
// an Open-style data entry window (patterns/open_entry_units.h). What is the
// module's own:
//   - RT46 reads over all organisations by one of three statements
//     (geologic_unit_blocks.h), 200 rows a page. Its first view and every
//     reload after an add run from code "A" to twelve "z" and names from
//     blank to eighty "z", by code: codes that sort below "A" show only when
//     a search asks for them.
//   - Search takes the low code and the low name from the Search group; it
//     sorts by name only when a name is given with no code.
//   - Prev reads the range of the page before from the stack by "PREV";
//     Next reads on from the last code and name of the page by "NEXT", and
//     the stack records the new page's keys. The buttons (keywords "PREV"
//     and "NEXT") follow the AT flags; of the enabled flags, Open and Search
//     set NEXT_ENABLED, Prev and Next only PREV_ENABLED, and the return
//     both, as the list's steps say.
//   - The return and RT46A's Delete set the paging buttons by the AT flags
//     of the last read; a delete reads nothing, so they stand as that read
//     left them.
//   - The return from RT47 (COMMAND "RETURN") reads page 1 after an add,
//     else the page on show from its first code, then marks the row in
//     hand, found by code and ORG ID.
//   - RT46A drops the row only when the remove left EXIT_NONE; a spring or
//     an interval that refers to the unit keeps it with its message.
//   - RT47 tests USGS Code, State Code, Type Code, Name in that order, has
//     no duplicate read, and lets the insert's or the update's refusal
//     stand on the window; on "CHANGE" the code is protected ("3gA2B7").
#ifndef WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_UNITS_H_
#define WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_UNITS_H_

#include "frame/entry.h"
#include "frame/tables.h"
#include "frame/unit.h"
#include "frame/views.h"
#include "modules/geologic_unit/geologic_unit_blocks.h"
#include "modules/geologic_unit/geologic_unit_views.h"
#include "patterns/delete_dialog.h"
#include "patterns/open_entry.h"
#include "patterns/open_entry_units.h"
#include "patterns/stack_list.h"

namespace lk::geologic_unit {

constexpr u32 kListProcedureId = 1008;
constexpr u32 kEntryProcedureId = 290;

// RT46_GEOLOGIC_UNIT_MAINT_LIST: each event action under its own name.
struct List {
  static const patterns::StackList kList;
  static const patterns::DeleteDialog kDeleteDialog;
  static void Body(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Open(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Search(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Click(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void DoubleClick(HandleA a, HandleB b, RunContext* rc, void* import_view,
                          void* export_view);
  static void Up(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Down(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Add(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Change(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Delete(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void Close(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view);
  static void ConfirmDelete(HandleA a, HandleB b, RunContext* rc, void* import_view,
                            void* export_view);
  static void CancelDelete(HandleA a, HandleB b, RunContext* rc, void* import_view,
                           void* export_view);
};

// RT47_GEOLOGIC_UNIT_DATA_ENTRY as an Open-style window.
struct UnitEntry {
  using Forms = UnitForms;
  using HiddenForms = UnitHiddenForms;
  using Dictionary = EntryDictionary;
  static const ViewNameRow& Views();
  static constexpr patterns::OpenEntry kEntry = {EXIT_GEOLOGIC_UNIT_NOT_FOUND,
                                                 0,
                                                 nullptr,
                                                 /*return_command=*/nullptr,
                                                 81,
                                                 /*checks_in_blocks=*/true};
  static constexpr const char* kKeyDisplayOnChange = kDisplayProtectedKey;
  static constexpr UnitId kBodyId = {"0009961610", "RT47_GEOLOGIC_UNIT_DATA_ENTRY"};
  static bool CheckFields(RunContext* rc, EntryExport* e);
  static void CheckDuplicate(HandleA, HandleB, RunContext*, const EntryExport&) {}
  using Blocks = geologic_unit::Blocks;
  static constexpr const UnitId& kReadId = geologic_unit::kReadId;
  static constexpr const UnitId& kIdentifyId = geologic_unit::kIdentifyId;
  static constexpr const UnitId& kModifyId = geologic_unit::kModifyId;
};
using Entry = patterns::OpenEntryUnits<UnitEntry>;

inline constexpr UnitId kBodyId = {"0009961600", "RT46_GEOLOGIC_UNIT_MAINT_LIST"};
inline constexpr UnitId kOpenId = {"0009961601", "RT46_GEOLOGIC_UNIT_MAINT_LI_OPEN"};
inline constexpr UnitId kSearchId = {"0009961602", "RT46_GEOLOGIC_UN_PB_SEARCH_CLICK"};
inline constexpr UnitId kClickId = {"0009961603", "RT46_GEOLOG_LB_GROUP_EXPOR_CLICK"};
inline constexpr UnitId kDoubleClickId = {"0009961604", "RT46_GEO_LB_GROUP_EX_DOUBLECLICK"};
inline constexpr UnitId kUpId = {"0009961605", "RT46_GEOLOGIC_UNIT_M_PB_UP_CLICK"};
inline constexpr UnitId kDownId = {"0009961606", "RT46_GEOLOGIC_UNIT_PB_DOWN_CLICK"};
inline constexpr UnitId kAddId = {"0009961607", "RT46_GEOLOGIC_UNIT_PB_ADD_CLICK"};
inline constexpr UnitId kChangeId = {"0009961608", "RT46_GEOLOGIC_UN_PB_CHANGE_CLICK"};
inline constexpr UnitId kDeleteId = {"0009961609", "RT46_GEOLOGIC_UN_PB_DELETE_CLICK"};
inline constexpr UnitId kCloseId = {"0009961611", "RT46_GEOLOGIC_UNI_PB_CLOSE_CLICK"};
inline constexpr UnitId kConfirmId = {"0009961612", "RT46_DELETE_GEOL_PB_DELETE_CLICK"};
inline constexpr UnitId kDismissId = {"0009961613", "RT46_DELETE_GEOL_PB_CANCEL_CLICK"};
inline constexpr UnitId kEntryOpenId = {"0009961614", "RT47_GEOLOGIC_UNIT_DATA_ENT_OPEN"};
inline constexpr UnitId kAcceptId = {"0009961615", "RT47_GEOLOGIC_UN_PB_ACCEPT_CLICK"};
inline constexpr UnitId kCancelId = {"0009961616", "RT47_GEOLOGIC_UN_PB_CANCEL_CLICK"};

}  // namespace lk::geologic_unit

#endif  // WATRIX_MODULES_GEOLOGIC_UNIT_GEOLOGIC_UNIT_UNITS_H_
