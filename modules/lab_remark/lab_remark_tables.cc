// The view dictionaries of RT50 and RT51 and the flow from RT50 to RT51;
// the windows are declared in lab_remark.h.
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


#undef LK_IN
#undef LK_OUT
#undef LK_EIN
#undef LK_EOUT

namespace {


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

}  // namespace lk::lab_remark
