// The tables under win_head, assembled in table order from the parts that
// each module gives: the procedure table, the window table, the view index,
// the name list, the application block and the root itself.
//
// Procedures whose modules are not built yet have a row with no entry, no
// view functions, sizes 0 and no windows; the menu's flows to them carry no
// send or receive. The host fails a flow to such a row as a missing module.
#include <cstddef>
#include <cstdint>

#include "frame/head/name_list.h"
#include "frame/head/procedure_list.h"
#include "frame/tables.h"
#include "modules/lab_remark/lab_remark.h"
#include "modules/menu/menu.h"
#include "modules/project_station_role/project_station_role.h"

namespace lk::head {

namespace {

u32 shared_cell;
u32 runtime_cell;

// A procedure row that has nothing yet but its name.
constexpr ProcedureRow Pending(int i) {
  return {kProcedureList[i].id, kProcedureList[i].name, &shared_cell, 0, 0, 0, 0, nullptr,
          nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
          kProcedureList[i].short_name, kProcedureList[i].short_name};
}

// A row of a procedure that lives in another module.
constexpr ProcedureRow External(int i, u32 import_size = 0, u32 export_size = 0) {
  return {kProcedureList[i].id, kProcedureList[i].name, &shared_cell, 0, import_size, 0,
          export_size, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
          nullptr, kProcedureList[i].short_name};
}

constexpr int kMenu = ProcedureIndex(menu::kProcedureId);
static_assert(kMenu == 24);
constexpr int kLabRemarkList = ProcedureIndex(lab_remark::kListProcedureId);
static_assert(kLabRemarkList == 8);
constexpr int kLabRemarkEntry = ProcedureIndex(lab_remark::kEntryProcedureId);
static_assert(kLabRemarkEntry == 28);
namespace psr = project_station_role;
constexpr int kRoleEntry = ProcedureIndex(psr::kEntryProcedureId);
static_assert(kRoleEntry == 12);
constexpr int kRoleList = ProcedureIndex(psr::kListProcedureId);
static_assert(kRoleList == 22);

const ProcedureRow kProcedureTable[] = {
    Pending(0), Pending(1), Pending(2), Pending(3), Pending(4), Pending(5), Pending(6),
    Pending(7),
    {lab_remark::kListProcedureId, kProcedureList[kLabRemarkList].name, &shared_cell, 0,
     lab_remark::kListImportSize, 0, lab_remark::kListExportSize,
     lab_remark::RT50_LAB_REMARK_MAINT_LIST, lab_remark::list_flow_state,
     lab_remark::kListExitRows, lab_remark::kListFlowRows, lab_remark::ListImportToExport,
     lab_remark::ListExportToImport, lab_remark::ListImportUnpack, lab_remark::ListExportPack,
     kProcedureList[kLabRemarkList].short_name, kProcedureList[kLabRemarkList].short_name},
    Pending(9), Pending(10), Pending(11),
    {psr::kEntryProcedureId, kProcedureList[kRoleEntry].name, &shared_cell, 0,
     psr::kEntryImportSize, 0, psr::kEntryExportSize, psr::RT41_PROJECT_ROLE_DATA_ENTRY, nullptr,
     nullptr, nullptr, psr::EntryImportToExport, psr::EntryExportToImport,
     psr::EntryImportUnpack, psr::EntryExportPack, kProcedureList[kRoleEntry].short_name,
     kProcedureList[kRoleEntry].short_name},
    Pending(13),
    Pending(14), Pending(15), Pending(16), Pending(17), Pending(18), Pending(19), Pending(20),
    Pending(21),
    {psr::kListProcedureId, kProcedureList[kRoleList].name, &shared_cell, 0,
     psr::kListImportSize, 0, psr::kListExportSize, psr::RT40_PROJECT_ROLE_MAIN_LIST,
     psr::list_flow_state, psr::kListExitRows, psr::kListFlowRows, psr::ListImportToExport,
     psr::ListExportToImport, psr::ListImportUnpack, psr::ListExportPack,
     kProcedureList[kRoleList].short_name, kProcedureList[kRoleList].short_name},
    Pending(23),
    {menu::kProcedureId, kProcedureList[kMenu].name, &shared_cell, 0, menu::kImportSize, 0,
     menu::kExportSize, menu::RT1_REFERENCE_TABLE_MAINT_MENU, menu::flow_state, menu::kExitRows,
     menu::kFlowRows, menu::ImportToExport, menu::ExportToImport, menu::ImportUnpack,
     menu::ExportPack, kProcedureList[kMenu].short_name, kProcedureList[kMenu].short_name},
    Pending(25), Pending(26), Pending(27),
    {lab_remark::kEntryProcedureId, kProcedureList[kLabRemarkEntry].name, &shared_cell, 0,
     lab_remark::kEntryImportSize, 0, lab_remark::kEntryExportSize,
     lab_remark::RT51_LAB_REMARK_DATA_ENTRY, nullptr, nullptr, nullptr,
     lab_remark::EntryImportToExport, lab_remark::EntryExportToImport,
     lab_remark::EntryImportUnpack, lab_remark::EntryExportPack,
     kProcedureList[kLabRemarkEntry].short_name, kProcedureList[kLabRemarkEntry].short_name},
    Pending(29), Pending(30), Pending(31),
    Pending(32), Pending(33), Pending(34), Pending(35), Pending(36), Pending(37), Pending(38),
    External(39), External(40), External(41), External(42, 5823088, 6491648), External(43),
    External(44), External(45), External(46), External(47), External(48), External(49),
    External(50),
    {0, nullptr, nullptr, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
     nullptr, nullptr, nullptr, nullptr},
};
static_assert(sizeof(kProcedureTable) / sizeof(kProcedureTable[0]) == kProcedures + 1);

const WindowRow kWindows[] = {
    lab_remark::kListWindowRows[0],
    lab_remark::kListWindowRows[1],
    psr::kEntryWindowRows[0],
    psr::kListWindowRows[0],
    psr::kListWindowRows[1],
    menu::kWindowRows[0],
    menu::kWindowRows[1],
    menu::kWindowRows[2],
    lab_remark::kEntryWindowRows[0],
    {0, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 0,
     nullptr, nullptr, nullptr, 0},
};

const ViewNameRow kViewNames[] = {
    {kProcedureList[kLabRemarkList].name, lab_remark::kListViewRows, lab_remark::kListGroupRows,
     lab_remark::kListProcedureId},
    {lab_remark::kListTitle, lab_remark::kListViewRows, lab_remark::kListGroupRows,
     lab_remark::kListProcedureId},
    {kProcedureList[kRoleEntry].name, psr::kEntryViews.view_rows, psr::kEntryViews.group_rows,
     psr::kEntryProcedureId},
    {psr::kEntryTitle, psr::kEntryViews.view_rows, psr::kEntryViews.group_rows,
     psr::kEntryProcedureId},
    {kProcedureList[kRoleList].name, psr::kListViews.view_rows, psr::kListViews.group_rows,
     psr::kListProcedureId},
    {psr::kListTitle, psr::kListViews.view_rows, psr::kListViews.group_rows,
     psr::kListProcedureId},
    {kProcedureList[kMenu].name, menu::kViewRows, menu::kGroupRows, menu::kProcedureId},
    {menu::kTitle, menu::kViewRows, menu::kGroupRows, menu::kProcedureId},
    {kProcedureList[kLabRemarkEntry].name, lab_remark::kEntryViewRows,
     lab_remark::kEntryGroupRows, lab_remark::kEntryProcedureId},
    {lab_remark::kEntryTitle, lab_remark::kEntryViewRows, lab_remark::kEntryGroupRows,
     lab_remark::kEntryProcedureId},
    {nullptr, nullptr, nullptr, 0},
};

const ViewIndex kViewIndex = {"LKBASE", kViewNames};

// The module entry, with the attribute dictionary directly behind it.
struct DictionaryImage {
  ModuleEntry entry;
  const ViewNameRow* views;
};
const DictionaryImage kDictionary = {{"LKBASE", {0, 0, 0}}, kViewNames};

}  // namespace

// The application block, a word of all ones, then the root: the block stands
// directly ahead of win_head.
struct HeadImage {
  ApplicationBlock application;
  std::uintptr_t all_ones;
  WinHead head;
};

extern "C" {
// Named by the assembler alias below; hidden like everything but the root.
extern const HeadImage lk_head_image;
__attribute__((used)) const HeadImage lk_head_image = {
    {"WATRIX PROD SYS T2.0", "WATRIX", "ORACLE", ".", ",", "DEFAULT", "5101262", &runtime_cell,
     "1252", {0, 0, 0}},
    ~std::uintptr_t{0},
    {kProcedureTable, kWindows, &kDictionary.entry, &kDictionary.views, &shared_cell, &kViewIndex,
     kNameList.data(), 0, &lk_head_image.application, 0, 'Y', 'N'},
};
}

static_assert(offsetof(HeadImage, head) == 96, "the alias below names this offset");

}  // namespace lk::head

// The one exported symbol: win_head, at its place inside the head image.
asm(".globl win_head\n"
    ".type win_head, @object\n"
    ".size win_head, 80\n"
    ".set win_head, lk_head_image + 96\n");
