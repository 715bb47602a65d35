// The design rows of the lab remark module: the view dictionaries of RT50
// and RT51, the flow from RT50 to RT51, the controls, actions and events of
// the windows RT50, RT50A and RT51, and the transport bindings behind their
// read_window, write_window, view copy and stream functions.
//
// The buttons carry no keyword: each raises its EventRow. Add is enabled
// only while the list has no selected row, Change and Delete only while it
// has one. The list's Click and DoubleClick read the window first, so that
// the row marks in the view are those on the screen; DoubleClick stands
// first, as a double click raises both. Open events read nothing: they work
// from the import view that the flow filled.
#include <cstddef>

#include "frame/design_rows.h"
#include "frame/run_context.h"
#include "frame/transport/plan.h"
#include "modules/lab_remark/lab_remark.h"
#include "modules/lab_remark/lab_remark_blocks.h"
#include "modules/lab_remark/lab_remark_units.h"
#include "modules/lab_remark/lab_remark_views.h"

namespace lk::lab_remark {

namespace {

#define LK_IN(member) static_cast<u32>(offsetof(ListImport, member))
#define LK_OUT(member) static_cast<u32>(offsetof(ListExport, member))
#define LK_EIN(member) static_cast<u32>(offsetof(EntryImport, member))
#define LK_EOUT(member) static_cast<u32>(offsetof(EntryExport, member))

constexpr AttributeType kFlagType = {2, "S ", 1, "", nullptr, 0, {0, 0}};
constexpr AttributeType kSubscriptType = {5, "B ", 4, "", nullptr, 0, {0, 0}};
constexpr AttributeType kIsNumberType = {13, "B ", 12, "", nullptr, 0, {0, 0}};
constexpr AttributeType kOrgIdType = {9, "S ", 8, "", nullptr, 0, {0, 0}};
constexpr AttributeType kShortNameType = {7, "S ", 6, "", nullptr, 0, {0, 0}};
constexpr AttributeType kDescriptionType = {61, "Y ", 60, "", nullptr, 0, {0, 0}};
constexpr AttributeType kUserIdType = {9, "S ", 8, "", nullptr, 0, {0, 0}};
constexpr AttributeType kTimestampType = {26, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN", nullptr,
                                          0, {0, 0}};
constexpr AttributeType kCommandType = {81, "S ", 80, "", nullptr, 0, {0, 0}};

constexpr AttributeRow kEnd = {nullptr, 0, 0, 0, nullptr};

// ---- RT50's dictionary ----

constexpr AttributeRow kNextEnabled[] = {
    {"FLAG", kFlag, LK_IN(EXPORT_NEXT_ENABLED.FLAG), LK_OUT(EXPORT_NEXT_ENABLED.FLAG.value),
     &kFlagType},
    kEnd};
constexpr AttributeRow kPrevEnabled[] = {
    {"FLAG", kFlag, LK_IN(EXPORT_PREV_ENABLED.FLAG), LK_OUT(EXPORT_PREV_ENABLED.FLAG.value),
     &kFlagType},
    kEnd};
constexpr AttributeRow kStack[] = {
    {"SUBSCRIPT", kNumber, LK_IN(EXPORT_STACK.SUBSCRIPT), LK_OUT(EXPORT_STACK.SUBSCRIPT.value),
     &kSubscriptType},
    kEnd};
constexpr AttributeRow kAtTop[] = {
    {"FLAG", kFlag, 0, LK_OUT(EXPORT_ALREADY_AT_TOP.FLAG.value), &kFlagType}, kEnd};
constexpr AttributeRow kAtBottom[] = {
    {"FLAG", kFlag, 0, LK_OUT(EXPORT_ALREADY_AT_BOTTOM.FLAG.value), &kFlagType}, kEnd};
constexpr AttributeRow kSelected[] = {
    {"TSRLBRMK_IS_NUMBER", kNumber, LK_IN(EXPORT_SELECTED.TSRLBRMK_IS_NUMBER),
     LK_OUT(EXPORT_SELECTED.TSRLBRMK_IS_NUMBER.value), &kIsNumberType},
    {"TSRLBRMK_ORG_ID", kOrgId, LK_IN(EXPORT_SELECTED.TSRLBRMK_ORG_ID),
     LK_OUT(EXPORT_SELECTED.TSRLBRMK_ORG_ID.value), &kOrgIdType},
    {"SHORT_NAME", kShortName, LK_IN(EXPORT_SELECTED.SHORT_NAME),
     LK_OUT(EXPORT_SELECTED.SHORT_NAME.value), &kShortNameType},
    {"DESCRIPTION_TEXT", kDescription, LK_IN(EXPORT_SELECTED.DESCRIPTION_TEXT),
     LK_OUT(EXPORT_SELECTED.DESCRIPTION_TEXT.value), &kDescriptionType},
    kEnd};
constexpr AttributeRow kListSystem[] = {
    {"USER_ID_CODE", kUserId, LK_IN(SYSTEM_VARIABLE.USER_ID_CODE),
     LK_OUT(EXPORT.USER_ID_CODE.value), &kUserIdType},
    {"CURRENT_ORG_ID", kUserId, LK_IN(SYSTEM_VARIABLE.CURRENT_ORG_ID),
     LK_OUT(EXPORT.CURRENT_ORG_ID.value), &kUserIdType},
    kEnd};
constexpr AttributeRow kRowSelected[] = {
    {"SUBSCRIPT", kNumber, LK_IN(EXPORT_ROW_SELECTED.SUBSCRIPT),
     LK_OUT(EXPORT_ROW_SELECTED.SUBSCRIPT.value), &kSubscriptType},
    kEnd};
constexpr AttributeRow kRowMarks[] = {
    {"SELECT_CHAR", kFlag, LK_IN(SELECT_CHAR), LK_OUT(SELECT_CHAR.value), &kFlagType}, kEnd};
constexpr AttributeRow kRows[] = {
    {"TSRLBRMK_IS_NUMBER", kNumber, 0, LK_OUT(TSRLBRMK_IS_NUMBER.value), &kIsNumberType},
    {"TSRLBRMK_ORG_ID", kOrgId, 0, LK_OUT(TSRLBRMK_ORG_ID.value), &kOrgIdType},
    {"SHORT_NAME", kShortName, 0, LK_OUT(SHORT_NAME.value), &kShortNameType},
    {"DESCRIPTION_TEXT", kDescription, 0, LK_OUT(DESCRIPTION_TEXT.value), &kDescriptionType},
    kEnd};
constexpr AttributeRow kStackRowsAttributes[] = {
    {"LAST_ROW_SHORT_NAME", kShortName, LK_IN(LAST_ROW_SHORT_NAME),
     LK_OUT(LAST_ROW_SHORT_NAME.value), &kShortNameType},
    {"FIRST_ROW_SHORT_NAME", kShortName, LK_IN(FIRST_ROW_SHORT_NAME),
     LK_OUT(FIRST_ROW_SHORT_NAME.value), &kShortNameType},
    kEnd};

// ---- RT51's dictionary ----

constexpr AttributeRow kHidden[] = {
    {"SHORT_NAME", kShortName, LK_EIN(EXPORT_HIDDEN.SHORT_NAME),
     LK_EOUT(EXPORT_HIDDEN.SHORT_NAME.value), &kShortNameType},
    {"DESCRIPTION_TEXT", kDescription, LK_EIN(EXPORT_HIDDEN.DESCRIPTION_TEXT),
     LK_EOUT(EXPORT_HIDDEN.DESCRIPTION_TEXT.value), &kDescriptionType},
    kEnd};
constexpr AttributeRow kEntrySystem[] = {
    {"USER_ID_CODE", kUserId, LK_EIN(SYSTEM_VARIABLE.USER_ID_CODE),
     LK_EOUT(SYSTEM_VARIABLE.USER_ID_CODE.value), &kUserIdType},
    {"CURRENT_ORG_ID", kUserId, LK_EIN(SYSTEM_VARIABLE.CURRENT_ORG_ID),
     LK_EOUT(SYSTEM_VARIABLE.CURRENT_ORG_ID.value), &kUserIdType},
    kEnd};
constexpr AttributeRow kEntryRow[] = {
    {"TSRLBRMK_IS_NUMBER", kNumber, LK_EIN(LAB_REMARK.TSRLBRMK_IS_NUMBER),
     LK_EOUT(LAB_REMARK.TSRLBRMK_IS_NUMBER.value), &kIsNumberType},
    {"TSRLBRMK_ORG_ID", kOrgId, LK_EIN(LAB_REMARK.TSRLBRMK_ORG_ID),
     LK_EOUT(LAB_REMARK.TSRLBRMK_ORG_ID.value), &kOrgIdType},
    {"SHORT_NAME", kShortName, LK_EIN(LAB_REMARK.SHORT_NAME), LK_EOUT(LAB_REMARK.SHORT_NAME.value),
     &kShortNameType},
    {"DESCRIPTION_TEXT", kDescription, LK_EIN(LAB_REMARK.DESCRIPTION_TEXT),
     LK_EOUT(LAB_REMARK.DESCRIPTION_TEXT.value), &kDescriptionType},
    {"D_USERID_CODE", kUserId, LK_EIN(LAB_REMARK.D_USERID_CODE),
     LK_EOUT(LAB_REMARK.D_USERID_CODE.value), &kUserIdType},
    {"D_LAST_UPDATE_TIMESTAMP", kTimestampStorage, LK_EIN(LAB_REMARK.D_LAST_UPDATE_TIMESTAMP),
     LK_EOUT(LAB_REMARK.D_LAST_UPDATE_TIMESTAMP.value), &kTimestampType},
    kEnd};
constexpr AttributeRow kKeptCommand[] = {
    {"COMMAND", kCommand, LK_EIN(RUNTIME_SUPPLIED.COMMAND),
     LK_EOUT(RUNTIME_SUPPLIED.COMMAND.value), &kCommandType},
    kEnd};

}  // namespace

const ViewRow kListViewRows[] = {
    {"EXPORT_NEXT_ENABLED.RUNTIME_SUPPLIED.", 0, 0, kNextEnabled},
    {"EXPORT_PREV_ENABLED.RUNTIME_SUPPLIED.", 0, 0, kPrevEnabled},
    {"EXPORT_STACK.RUNTIME_SUPPLIED.", 0, 0, kStack},
    {"EXPORT_ALREADY_AT_TOP.RUNTIME_SUPPLIED.", 0, 0, kAtTop},
    {"EXPORT_ALREADY_AT_BOTTOM.RUNTIME_SUPPLIED.", 0, 0, kAtBottom},
    {"EXPORT_SELECTED.LAB_REMARK.", 0, 0, kSelected},
    {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kListSystem},
    {"EXPORT_ROW_SELECTED.RUNTIME_SUPPLIED.", 0, 0, kRowSelected},
    {"GRP_EXPORT_SEL.RUNTIME_SUPPLIED.", kListRows, 0, kRowMarks},
    {"GRP_EXPORT.LAB_REMARK.", kListRows, 0, kRows},
    {"GRP_EXPORT_STACK.WATRIX_WORK_SET.", kStackRows, 0, kStackRowsAttributes},
    {nullptr, 0, 0, nullptr},
};

const GroupRow kListGroupRows[] = {
    {"GRP_EXPORT", (10u << 16) | 8u, 1, LK_OUT(list_count), LK_IN(list_count), 0},
    {"GRP_EXPORT_STACK", (11u << 16) | 10u, 1, LK_OUT(stack_count), LK_IN(stack_count), 0},
    {"*", 11u << 16, 0, 0, 0, 0},
};

const ViewRow kEntryViewRows[] = {
    {"EXPORT_HIDDEN.LAB_REMARK.", 0, 0, kHidden},
    {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kEntrySystem},
    {"EXPORT.LAB_REMARK.", 0, 0, kEntryRow},
    {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kKeptCommand},
    {nullptr, 0, 0, nullptr},
};

const GroupRow kEntryGroupRows[] = {
    {"*", 4u << 16, 0, 0, 0, 0},
};

const ViewNameRow kListViews = {"RT50_LAB_REMARK_MAINT_LIST", kListViewRows, kListGroupRows,
                                kListProcedureId};

#undef LK_IN
#undef LK_OUT
#undef LK_EIN
#undef LK_EOUT

namespace {

const ViewNameRow kEntryViews = {"RT51_LAB_REMARK_DATA_ENTRY", kEntryViewRows, kEntryGroupRows,
                                 kEntryProcedureId};

// ---- The flow from RT50 to RT51 ----

// The row in hand and SYSTEM_VARIABLE go; the row that RT51 shows comes back
// onto the row in hand, so that the list finds it again.
constexpr FlowPair kEntrySend[] = {
    {"EXPORT_SELECTED.LAB_REMARK.TSRLBRMK_IS_NUMBER", "EXPORT.LAB_REMARK.TSRLBRMK_IS_NUMBER"},
    {"EXPORT_SELECTED.LAB_REMARK.TSRLBRMK_ORG_ID", "EXPORT.LAB_REMARK.TSRLBRMK_ORG_ID"},
    {"EXPORT_SELECTED.LAB_REMARK.SHORT_NAME", "EXPORT.LAB_REMARK.SHORT_NAME"},
    {"EXPORT_SELECTED.LAB_REMARK.DESCRIPTION_TEXT", "EXPORT.LAB_REMARK.DESCRIPTION_TEXT"},
    {"EXPORT.SYSTEM_VARIABLE.USER_ID_CODE", "EXPORT.SYSTEM_VARIABLE.USER_ID_CODE"},
    {"EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID", "EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID"},
    {nullptr, nullptr},
};
constexpr FlowPair kEntryReceive[] = {
    {"EXPORT_SELECTED.LAB_REMARK.TSRLBRMK_IS_NUMBER", "EXPORT.LAB_REMARK.TSRLBRMK_IS_NUMBER"},
    {"EXPORT_SELECTED.LAB_REMARK.TSRLBRMK_ORG_ID", "EXPORT.LAB_REMARK.TSRLBRMK_ORG_ID"},
    {"EXPORT_SELECTED.LAB_REMARK.SHORT_NAME", "EXPORT.LAB_REMARK.SHORT_NAME"},
    {"EXPORT_SELECTED.LAB_REMARK.DESCRIPTION_TEXT", "EXPORT.LAB_REMARK.DESCRIPTION_TEXT"},
    {nullptr, nullptr},
};
constexpr FlowBinding kToEntry = {&kListViews, &kEntryViews, kEntrySend, kEntryReceive};

constexpr u32 kFlowToEntry = (0x0001u << 16) | 0x00E4;

}  // namespace

u32 list_flow_state[2];

const ExitRow kListExitRows[] = {
    {EXIT_LINK_RT51, kFlowToEntry, 'M'},
    {0, 0, 0},
};

const FlowRow kListFlowRows[] = {
    {kFlowToEntry, "L", kEntryProcedureId, "RT51_LAB_REMARK_DATA_ENTRY", Send<kToEntry>,
     Receive<kToEntry>, kReturnsOnCancel, "D", "$#CURR#$", "E", "RETURN", 0},
    {0, nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0},
};

// ---- Windows ----

namespace {


// The list of RT50 and the rules that tie the buttons to its selection.
constexpr u32 kListControl = 370;
constexpr const void* const* kWithRowRules = ListRules<kListControl>::kWithRowRules;
constexpr const void* const* kWithoutRowRules = ListRules<kListControl>::kWithoutRowRules;

// A list row: per column six display bytes and the value.
constexpr u32 kListRowSize = (6 + kShortName) + (6 + kDescription);
constexpr ListColumnRow kListColumns[] = {
    {(18u << 16) | 9u, (18u << 16) | 60u, 58, 'L', 6, 6 + kShortName, kShortNameType, 0, 367,
     {0, 0}},
    {(18u << 16) | 68u, (18u << 16) | 300u, 302, 'L', 6 + kShortName + 6, kListRowSize,
     kDescriptionType, 0, 368, {0, 0}},
    {},
};
constexpr ListDescriptor kList = {(kListRowSize << 16) | kTagList, kListColumns, 0, nullptr};

constexpr FieldDescriptor kShortNameShown = {kTagProtected, &kShortNameType};
constexpr FieldDescriptor kDescriptionShown = {kTagProtected, &kDescriptionType};
constexpr FieldDescriptor kIsNumberShown = {kTagProtected, &kIsNumberType};
constexpr FieldDescriptor kShortNameEntry = {kTagEntry, &kShortNameType};
constexpr FieldDescriptor kDescriptionEntry = {kTagEntry, &kDescriptionType};
constexpr FieldDescriptor kStampShown = {kTagProtected, &kTimestampType};
constexpr FieldDescriptor kUserIdShown = {kTagProtected, &kUserIdType};

}  // namespace

const StaticItemRow kNoStatics[] = {{0, nullptr, 0}};


// RT50: the list, then "&Add", "&Change", "&Delete", "C&lose", "&Help".
const ActionControlRow kListActions[] = {
    PlainButton(371, "Button1", kWithoutRowRules),
    PlainButton(372, "Button2", kWithRowRules),
    PlainButton(373, "Button3", kWithRowRules),
    PlainButton(374, "Button4", nullptr),
    HelpButton(375, "Button5"),
    {0, nullptr, 0, nullptr, 0, 0, nullptr},
};

const ControlRow kListControls[] = {
    {kListControl, &kList, nullptr, nullptr, 0, "ListBox1", 0},
    ButtonControl(371, "Button1", kWithoutRowRules),
    ButtonControl(372, "Button2", kWithRowRules),
    ButtonControl(373, "Button3", kWithRowRules),
    ButtonControl(374, "Button4", nullptr),
    ButtonControl(375, "Button5", nullptr),
    {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};

const EventRow kListEvents[] = {
    {366, "Open", RT50_LAB_REMARK_MAINT_LIST_OPEN, nullptr, ' ', 0, 0, 0},
    {kListControl, "DoubleClick", RT50_LAB_REMARK_LB_DOUBLECLICK, nullptr, 'Y', 0, 0, 0},
    {kListControl, "Click", RT50_LAB_REMARK_LB_CLICK, nullptr, 'Y', 0, 0, 0},
    {371, "Click", RT50_LAB_REMARK_PB_ADD_CLICK, nullptr, ' ', 0, 0, 0},
    {372, "Click", RT50_LAB_REMARK_PB_CHANGE_CLICK, nullptr, ' ', 0, 0, 0},
    {373, "Click", RT50_LAB_REMARK_PB_DELETE_CLICK, nullptr, ' ', 0, 0, 0},
    {374, "Click", RT50_LAB_REMARK_PB_CLOSE_CLICK, nullptr, ' ', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};

// RT50A: the row in hand, read-only, then "&Delete", "Cance&l", "&Help".
const ActionControlRow kDeleteActions[] = {
    PlainButton(388, "Button1", nullptr),
    PlainButton(389, "Button2", nullptr),
    HelpButton(390, "Button3"),
    {0, nullptr, 0, nullptr, 0, 0, nullptr},
};

const ControlRow kDeleteControls[] = {
    {385, &kShortNameShown, nullptr, nullptr, 384, "SHORT_NAME1", 0},
    {387, &kDescriptionShown, nullptr, nullptr, 386, "DESCRIPTION_TEXT1", 0},
    ButtonControl(388, "Button1", nullptr),
    ButtonControl(389, "Button2", nullptr),
    ButtonControl(390, "Button3", nullptr),
    {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};

const EventRow kDeleteEvents[] = {
    {388, "Click", RT50A_LAB_REMARK_PB_DELETE_CLICK, nullptr, ' ', 0, 0, 0},
    {389, "Click", RT50A_LAB_REMARK_PB_CANCEL_CLICK, nullptr, ' ', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};

// RT51: "IS Number", "Short Name", "Description ", "Date of Last Update",
// "Updated By", then "Accep&t", "Cance&l", "&Help".
const ActionControlRow kEntryActions[] = {
    PlainButton(1003, "Button1", nullptr),
    PlainButton(1004, "Button2", nullptr),
    HelpButton(1005, "Button3"),
    {0, nullptr, 0, nullptr, 0, 0, nullptr},
};

const ControlRow kEntryControls[] = {
    {994, &kIsNumberShown, nullptr, nullptr, 993, "TSRLBRMK_IS_NUMBER1", 0},
    {996, &kShortNameEntry, nullptr, nullptr, 995, "SHORT_NAME1", 0},
    {998, &kDescriptionEntry, nullptr, nullptr, 997, "DESCRIPTION_TEXT1", 0},
    {1000, &kStampShown, nullptr, nullptr, 999, "D_LAST_UPDATE_TIMESTAMP1", 0},
    {1002, &kUserIdShown, nullptr, nullptr, 1001, "D_USERID_CODE1", 0},
    ButtonControl(1003, "Button1", nullptr),
    ButtonControl(1004, "Button2", nullptr),
    ButtonControl(1005, "Button3", nullptr),
    {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};

const EventRow kEntryEvents[] = {
    {992, "Open", RT51_LAB_REMARK_DATA_ENTRY_OPEN, nullptr, ' ', 0, 0, 0},
    {1003, "Click", RT51_LAB_REMARK_PB_ACCEPT_CLICK, nullptr, 'Y', 0, 0, 0},
    {1004, "Click", RT51_LAB_REMARK_PB_CANCEL_CLICK, nullptr, ' ', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};


// ---- View transport ----

namespace {

constexpr const char* kListColumnNames[] = {"GRP_EXPORT.LAB_REMARK.SHORT_NAME",
                                            "GRP_EXPORT.LAB_REMARK.DESCRIPTION_TEXT", nullptr};
constexpr FieldBinding kListFields[] = {
    {kListControl, nullptr, kListColumnNames, "GRP_EXPORT_SEL.RUNTIME_SUPPLIED.SELECT_CHAR"},
    {371, nullptr, nullptr, nullptr}, {372, nullptr, nullptr, nullptr},
    {373, nullptr, nullptr, nullptr}, {374, nullptr, nullptr, nullptr},
    {375, nullptr, nullptr, nullptr},
};
constexpr FieldBinding kDeleteFields[] = {
    {385, "EXPORT_SELECTED.LAB_REMARK.SHORT_NAME", nullptr, nullptr},
    {387, "EXPORT_SELECTED.LAB_REMARK.DESCRIPTION_TEXT", nullptr, nullptr},
    {388, nullptr, nullptr, nullptr}, {389, nullptr, nullptr, nullptr},
    {390, nullptr, nullptr, nullptr},
};
constexpr FieldBinding kEntryFields[] = {
    {994, "EXPORT.LAB_REMARK.TSRLBRMK_IS_NUMBER", nullptr, nullptr},
    {996, "EXPORT.LAB_REMARK.SHORT_NAME", nullptr, nullptr},
    {998, "EXPORT.LAB_REMARK.DESCRIPTION_TEXT", nullptr, nullptr},
    {1000, "EXPORT.LAB_REMARK.D_LAST_UPDATE_TIMESTAMP", nullptr, nullptr},
    {1002, "EXPORT.LAB_REMARK.D_USERID_CODE", nullptr, nullptr},
    {1003, nullptr, nullptr, nullptr}, {1004, nullptr, nullptr, nullptr},
    {1005, nullptr, nullptr, nullptr},
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

}  // namespace lk::lab_remark
