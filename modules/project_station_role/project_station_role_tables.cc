// The design rows of the project station role: the view dictionaries of RT40
// and RT41, the controls, actions and events of the windows RT40, RT40A and
// RT41, and the flow from the list to the data entry window.
//
// RT40's list shows TYPE_NAME under the heading "Role". Its picture buttons
// Prev and Next are scroll buttons of the list whose keywords "PREV" and
// "NEXT" name them for the control services; their event rows put that
// COMMAND in place for the paging actions. Add is enabled only while the
// list has no selected row, Change and Delete only while it has one. The
// buttons of the list carry no keyword of their own.
#include <cstddef>

#include "frame/design_rows.h"
#include "frame/run_context.h"
#include "frame/transport/plan.h"
#include "modules/project_station_role/project_station_role.h"
#include "modules/project_station_role/project_station_role_units.h"
#include "modules/project_station_role/project_station_role_views.h"
#include "patterns/first_page_list.h"

namespace lk::project_station_role {

namespace {

constexpr u32 At(std::size_t offset) { return static_cast<u32>(offset); }

using patterns::ColumnRows;
using patterns::FlagRows;
using patterns::RowRows;
using patterns::RowTimestamps;
using patterns::RuntimeSuppliedRows;
using patterns::SelectCharRows;
using patterns::SystemVariableRows;

constexpr const auto& kRow = RoleForms::kAttributes;

// ---- RT40's dictionary ----

constexpr auto kListRuntime =
    RuntimeSuppliedRows(At(offsetof(ListImport, EXPORT.RUNTIME_SUPPLIED)),
                        At(offsetof(ListExport, EXPORT.RUNTIME_SUPPLIED)));
constexpr auto kListSystem = SystemVariableRows(At(offsetof(ListImport, EXPORT.SYSTEM_VARIABLE)),
                                                At(offsetof(ListExport, EXPORT.SYSTEM_VARIABLE)));
constexpr auto kListNext =
    FlagRows(At(offsetof(ListImport, EXPORT_NEXT)), At(offsetof(ListExport, EXPORT_NEXT)));
constexpr auto kListPrev =
    FlagRows(At(offsetof(ListImport, EXPORT_PREV)), At(offsetof(ListExport, EXPORT_PREV)));
constexpr auto kListLast =
    RowRows(kRow, At(offsetof(ListImport, EXPORT_LAST)), At(offsetof(ListExport, EXPORT_LAST)));
constexpr auto kListFirst =
    RowRows(kRow, At(offsetof(ListImport, EXPORT_FIRST)), At(offsetof(ListExport, EXPORT_FIRST)));
constexpr auto kListCurrent = RowRows(kRow, At(offsetof(ListImport, EXPORT_CURRENT)),
                                      At(offsetof(ListExport, EXPORT_CURRENT)));
constexpr auto kListMarks = SelectCharRows<RoleForms>(At(offsetof(ListImport, EXPORT_LIST)),
                                                      At(offsetof(ListExport, EXPORT_LIST)));
constexpr auto kListRowsOfGroup =
    ColumnRows(kRow, At(offsetof(ListImport, EXPORT_LIST)), At(offsetof(ListExport, EXPORT_LIST)));

constexpr ViewRow kListViewRows[] = {
    {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kListRuntime.data()},
    {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kListSystem.data()},
    {"EXPORT_NEXT.RUNTIME_SUPPLIED.", 0, 0, kListNext.data()},
    {"EXPORT_PREV.RUNTIME_SUPPLIED.", 0, 0, kListPrev.data()},
    {"EXPORT_LAST.PROJECT_STATION_ROLE.", 0, 0, kListLast.data()},
    {"EXPORT_FIRST.PROJECT_STATION_ROLE.", 0, 0, kListFirst.data()},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.", 0, 0, kListCurrent.data()},
    {"EXPORT_LIST.RUNTIME_SUPPLIED.", kListRows, 0, kListMarks.data()},
    {"EXPORT_LIST.PROJECT_STATION_ROLE.", kListRows, 0, kListRowsOfGroup.data()},
    {nullptr, 0, 0, nullptr},
};
constexpr GroupRow kListGroupRows[] = {
    {"EXPORT_LIST", (9u << 16) | 7u, 1, At(offsetof(ListExport, EXPORT_LIST.count)),
     At(offsetof(ListImport, EXPORT_LIST.count)), 0},
    {"*", 9u << 16, 0, 0, 0, 0},
};

constexpr auto kListExportStamps =
    RowTimestamps(kRow,
                  {At(offsetof(ListExport, EXPORT_LAST)), At(offsetof(ListExport, EXPORT_FIRST)),
                   At(offsetof(ListExport, EXPORT_CURRENT))},
                  /*bare=*/false, At(offsetof(ListExport, EXPORT_LIST)), kListRows);
constexpr auto kListImportStamps =
    RowTimestamps(kRow,
                  {At(offsetof(ListImport, EXPORT_LAST)), At(offsetof(ListImport, EXPORT_FIRST)),
                   At(offsetof(ListImport, EXPORT_CURRENT))},
                  /*bare=*/true, At(offsetof(ListImport, EXPORT_LIST)), kListRows);

// ---- RT41's dictionary ----

constexpr auto kEntryChanged = FlagRows(At(offsetof(EntryImport, EXPORT_DATA_CHANGED)),
                                        At(offsetof(EntryExport, EXPORT_DATA_CHANGED)));
constexpr auto kEntrySystem = SystemVariableRows(At(offsetof(EntryImport, EXPORT.SYSTEM_VARIABLE)),
                                                 At(offsetof(EntryExport, EXPORT.SYSTEM_VARIABLE)));
constexpr auto kEntryRow =
    RowRows(kRow, At(offsetof(EntryImport, EXPORT.ROW)), At(offsetof(EntryExport, EXPORT.ROW)));
constexpr auto kEntryRuntime =
    RuntimeSuppliedRows(At(offsetof(EntryImport, EXPORT.RUNTIME_SUPPLIED)),
                        At(offsetof(EntryExport, EXPORT.RUNTIME_SUPPLIED)));

constexpr ViewRow kEntryViewRows[] = {
    {"EXPORT_DATA_CHANGED.RUNTIME_SUPPLIED.", 0, 0, kEntryChanged.data()},
    {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kEntrySystem.data()},
    {"EXPORT.PROJECT_STATION_ROLE.", 0, 0, kEntryRow.data()},
    {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kEntryRuntime.data()},
    {nullptr, 0, 0, nullptr},
};
constexpr GroupRow kEntryGroupRows[] = {{"*", 4u << 16, 0, 0, 0, 0}};

constexpr auto kEntryExportStamps = RowTimestamps(kRow, {At(offsetof(EntryExport, EXPORT.ROW))},
                                                  /*bare=*/false, 0, 0);
constexpr auto kEntryImportStamps = RowTimestamps(kRow, {At(offsetof(EntryImport, EXPORT.ROW))},
                                                  /*bare=*/true, 0, 0);

}  // namespace

const ViewNameRow kListViews = {"RT40_PROJECT_ROLE_MAIN_LIST", kListViewRows, kListGroupRows,
                                kListProcedureId};
const ViewNameRow kEntryViews = {"RT41_PROJECT_ROLE_DATA_ENTRY", kEntryViewRows, kEntryGroupRows,
                                 kEntryProcedureId};

const ViewNameRow& RoleList::Views() { return kListViews; }
const ViewNameRow& RoleEntry::Views() { return kEntryViews; }
const ViewShape RoleList::kShape = {sizeof(ListExport), kListExportStamps.data(),
                                    kListImportStamps.data()};
const ViewShape RoleEntry::kShape = {sizeof(EntryExport), kEntryExportStamps.data(),
                                     kEntryImportStamps.data()};

const u32 kListImportSize = sizeof(ListImport);
const u32 kListExportSize = sizeof(ListExport);
const u32 kEntryImportSize = sizeof(EntryImport);
const u32 kEntryExportSize = sizeof(EntryExport);

// ---- The flow from the list to the data entry window ----

namespace {

// Send: the row in hand, SYSTEM_VARIABLE, COMMAND and SUBSCRIPT. Receive:
// the window's row onto the row in hand.
constexpr FlowPair kToEntrySend[] = {
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TSMPSR_IS_NUMBER",
     "EXPORT.PROJECT_STATION_ROLE.TSMPSR_IS_NUMBER"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TSMPSR_ORG_ID",
     "EXPORT.PROJECT_STATION_ROLE.TSMPSR_ORG_ID"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TYPE_NAME", "EXPORT.PROJECT_STATION_ROLE.TYPE_NAME"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.D_USERID_CODE",
     "EXPORT.PROJECT_STATION_ROLE.D_USERID_CODE"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.D_LAST_UPDATE_TIMESTAMP",
     "EXPORT.PROJECT_STATION_ROLE.D_LAST_UPDATE_TIMESTAMP"},
    {"EXPORT.SYSTEM_VARIABLE.USER_ID_CODE", "EXPORT.SYSTEM_VARIABLE.USER_ID_CODE"},
    {"EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID", "EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID"},
    {"EXPORT.RUNTIME_SUPPLIED.COMMAND", "EXPORT.RUNTIME_SUPPLIED.COMMAND"},
    {"EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT", "EXPORT.RUNTIME_SUPPLIED.SUBSCRIPT"},
    {nullptr, nullptr},
};
constexpr FlowPair kToEntryReceive[] = {
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TSMPSR_IS_NUMBER",
     "EXPORT.PROJECT_STATION_ROLE.TSMPSR_IS_NUMBER"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TSMPSR_ORG_ID",
     "EXPORT.PROJECT_STATION_ROLE.TSMPSR_ORG_ID"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.TYPE_NAME", "EXPORT.PROJECT_STATION_ROLE.TYPE_NAME"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.D_USERID_CODE",
     "EXPORT.PROJECT_STATION_ROLE.D_USERID_CODE"},
    {"EXPORT_CURRENT.PROJECT_STATION_ROLE.D_LAST_UPDATE_TIMESTAMP",
     "EXPORT.PROJECT_STATION_ROLE.D_LAST_UPDATE_TIMESTAMP"},
    {nullptr, nullptr},
};
constexpr FlowBinding kToEntry = {&kListViews, &kEntryViews, kToEntrySend, kToEntryReceive};

constexpr u32 kFlowToEntry = (0x0401u << 16) | 0x00E4;

}  // namespace

u32 list_flow_state[2];

const ExitRow kListExitRows[] = {
    {EXIT_LINK_RT41, kFlowToEntry, 'M'},
    {0, 0, 0},
};

const FlowRow kListFlowRows[] = {
    {kFlowToEntry, "L", kEntryProcedureId, "RT41_PROJECT_ROLE_DATA_ENTRY", Send<kToEntry>,
     Receive<kToEntry>, kReturnsOnReturn, "E", "$#CURR#$", "E", "$#CURR#$", 0},
    {0, nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0},
};

// ---- Windows ----

namespace {


// RT40: the list 779, its scroll buttons, the buttons that follow its state.
constexpr u32 kList = 779;
constexpr const void* const* kAddRules = ListRules<kList>::kWithoutRowRules;
constexpr const void* const* kRowRules = ListRules<kList>::kWithRowRules;
constexpr u32 kListDependants[] = {(782u << 16) | 4, (783u << 16) | 4, (784u << 16) | 4,
                                   0xFFFF0000u};

char* ListRowAddress(void* export_view, int row) {
  return static_cast<ListExport*>(export_view)->EXPORT_LIST.TYPE_NAME.display[row];
}

// One column, TYPE_NAME under the static 778 "Role"; a row holds its six
// display bytes and its 33 bytes.
constexpr u32 kRowSize = kDisplayWidth + 33;
constexpr ListColumnRow kListColumns[] = {
    {9u | (9u << 16), 60u | (9u << 16), 232, 'L', kDisplayWidth, kRowSize, kTypeNameType, 0, 778,
     {0, 0}},
    {},
};
constexpr ListDescriptor kListDescriptor = {(kRowSize << 16) | kTagList, kListColumns, 0,
                                            ListRowAddress};
constexpr ScrollDescriptor kScrollUp = {kTagScroll, "UP", kList | (1u << 16), 0x41};
constexpr ScrollDescriptor kScrollDown = {kTagScroll, "DOWN", kList | (1u << 16), 0x41};

constexpr FieldDescriptor kTypeNameField = {kTagEntry, &kTypeNameType};
constexpr FieldDescriptor kTypeNameShown = {kTagProtected, &kTypeNameType};
constexpr FieldDescriptor kTimestampShown = {kTagProtected, &kTimestampType};
constexpr FieldDescriptor kUserIdShown = {kTagProtected, &kUserIdType};

}  // namespace

const StaticItemRow kNoStatics[] = {{0, nullptr, 0}};

const ControlRow kListControls[] = {
    {kList, &kListDescriptor, kListDependants, nullptr, 0, "ListBox1", 0},
    {780, &kScrollUp, nullptr, nullptr, 0, "PictureButton1", 0},
    {781, &kScrollDown, nullptr, nullptr, 0, "PictureButton2", 0},
    ButtonControl(782, "Button1", kAddRules),
    ButtonControl(783, "Button2", kRowRules),
    ButtonControl(784, "Button3", kRowRules),
    ButtonControl(785, "Button4"),
    ButtonControl(786, "Button5"),
    {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};

const ActionControlRow kListActions[] = {
    KeywordButton(780, "PREV", 1501, "PictureButton1"),
    KeywordButton(781, "NEXT", 1497, "PictureButton2"),
    PlainButton(782, "Button1", kAddRules),
    PlainButton(783, "Button2", kRowRules),
    PlainButton(784, "Button3", kRowRules),
    PlainButton(785, "Button4"),
    HelpButton(786, "Button5"),
    {0, nullptr, 0, nullptr, 0, 0, nullptr},
};

// A person's double click raises DoubleClick and Click; DoubleClick stands
// first, so that it is found first.
const EventRow kListEvents[] = {
    {kList, "DoubleClick", RT40_PROJ_ROLE_LB_DOUBLECLICK, nullptr, 'Y', 0, 0, 0},
    {kList, "Click", RT40_PROJ_ROLE_LB_CLICK, nullptr, 'Y', 0, 0, 0},
    {780, "Click", RT40_PROJ_ROLE_PB_PREV_CLICK, "PREV", ' ', 0, 0, 0},
    {781, "Click", RT40_PROJ_ROLE_PB_NEXT_CLICK, "NEXT", ' ', 0, 0, 0},
    {782, "Click", RT40_PROJ_ROLE_PB_ADD_CLICK, nullptr, ' ', 0, 0, 0},
    {783, "Click", RT40_PROJ_ROLE_PB_CHANGE_CLICK, nullptr, ' ', 0, 0, 0},
    {784, "Click", RT40_PROJ_ROLE_PB_DELETE_CLICK, nullptr, ' ', 0, 0, 0},
    {785, "Click", RT40_PROJ_ROLE_PB_CLOSE_CLICK, nullptr, ' ', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};

// RT40A: the row in hand's type name, read-only.
const ControlRow kDeleteControls[] = {
    {771, &kTypeNameShown, nullptr, nullptr, 770, "TYPE_NAME1", 0},
    ButtonControl(772, "Button1"),
    ButtonControl(773, "Button2"),
    ButtonControl(774, "Button3"),
    {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};

const ActionControlRow kDeleteActions[] = {
    PlainButton(772, "Button1"),
    PlainButton(773, "Button2"),
    HelpButton(774, "Button3"),
    {0, nullptr, 0, nullptr, 0, 0, nullptr},
};

const EventRow kDeleteEvents[] = {
    {772, "Click", RT40A_PB_DELETE_CLICK, nullptr, ' ', 0, 0, 0},
    {773, "Click", RT40A_PB_CANCEL_CLICK, nullptr, ' ', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};

// RT41: the type name, then the stamp of the last update, read-only.
const ControlRow kEntryControls[] = {
    {496, &kTypeNameField, nullptr, nullptr, 495, "TYPE_NAME1", 0},
    {498, &kTimestampShown, nullptr, nullptr, 497, "D_LAST_UPDATE_TIMESTAMP1", 0},
    {500, &kUserIdShown, nullptr, nullptr, 499, "D_USERID_CODE1", 0},
    ButtonControl(501, "Button1"),
    ButtonControl(502, "Button2"),
    ButtonControl(503, "Button3"),
    {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};

const ActionControlRow kEntryActions[] = {
    PlainButton(501, "Button1"),
    PlainButton(502, "Button2"),
    HelpButton(503, "Button3"),
    {0, nullptr, 0, nullptr, 0, 0, nullptr},
};

// The type name's Changed event puts the literal "CHANGE" in place.
const EventRow kEntryEvents[] = {
    {496, "Changed", RT41_R_CB_N_CHANGED, "CHANGE", 'Y', 0, 0, 0},
    {501, "Click", RT41_PB_ACCEPT_CLICK, nullptr, 'Y', 0, 0, 0},
    {502, "Click", RT41_PB_CANCEL_CLICK, nullptr, ' ', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};

// ---- View transport ----

namespace {

constexpr const char* kListColumnNames[] = {"EXPORT_LIST.PROJECT_STATION_ROLE.TYPE_NAME", nullptr};
constexpr FieldBinding kListFields[] = {
    {kList, nullptr, kListColumnNames, "EXPORT_LIST.RUNTIME_SUPPLIED.SELECT_CHAR"},
    {780, nullptr, nullptr, nullptr},
    {781, nullptr, nullptr, nullptr},
    {782, nullptr, nullptr, nullptr},
    {783, nullptr, nullptr, nullptr},
    {784, nullptr, nullptr, nullptr},
    {785, nullptr, nullptr, nullptr},
    {786, nullptr, nullptr, nullptr},
};
constexpr FieldBinding kDeleteFields[] = {
    {771, "EXPORT_CURRENT.PROJECT_STATION_ROLE.TYPE_NAME", nullptr, nullptr},
    {772, nullptr, nullptr, nullptr},
    {773, nullptr, nullptr, nullptr},
    {774, nullptr, nullptr, nullptr},
};
constexpr FieldBinding kEntryFields[] = {
    {496, "EXPORT.PROJECT_STATION_ROLE.TYPE_NAME", nullptr, nullptr},
    {498, "EXPORT.PROJECT_STATION_ROLE.D_LAST_UPDATE_TIMESTAMP", nullptr, nullptr},
    {500, "EXPORT.PROJECT_STATION_ROLE.D_USERID_CODE", nullptr, nullptr},
    {501, nullptr, nullptr, nullptr},
    {502, nullptr, nullptr, nullptr},
    {503, nullptr, nullptr, nullptr},
};
constexpr WindowBinding kListBinding = {&kListWindowRows[0], &kListViews, kListFields};
constexpr WindowBinding kDeleteBinding = {&kListWindowRows[1], &kListViews, kDeleteFields};
constexpr WindowBinding kEntryBinding = {&kEntryWindowRows[0], &kEntryViews, kEntryFields};

}  // namespace

void ReadList(WindowHandle w, void* v) { ReadWindowBy(kListBinding, w, v); }
void WriteList(WindowHandle w, void* v) { WriteWindowBy(kListBinding, w, v); }
void ReadDelete(WindowHandle w, void* v) { ReadWindowBy(kDeleteBinding, w, v); }
void WriteDelete(WindowHandle w, void* v) { WriteWindowBy(kDeleteBinding, w, v); }
void ReadEntry(WindowHandle w, void* v) { ReadWindowBy(kEntryBinding, w, v); }
void WriteEntry(WindowHandle w, void* v) { WriteWindowBy(kEntryBinding, w, v); }

void ListImportToExport(const void* from, void* to) { ImportToExportBy(kListViews, from, to); }
void ListExportToImport(const void* from, void* to) { ExportToImportBy(kListViews, from, to); }
void ListImportUnpack(void* view, ViewStream* stream) { ImportUnpackBy(kListViews, view, stream); }
void ListExportPack(void* view, ViewStream* stream) { ExportPackBy(kListViews, view, stream); }
void EntryImportToExport(const void* from, void* to) { ImportToExportBy(kEntryViews, from, to); }
void EntryExportToImport(const void* from, void* to) { ExportToImportBy(kEntryViews, from, to); }
void EntryImportUnpack(void* view, ViewStream* stream) {
  ImportUnpackBy(kEntryViews, view, stream);
}
void EntryExportPack(void* view, ViewStream* stream) { ExportPackBy(kEntryViews, view, stream); }

}  // namespace lk::project_station_role
