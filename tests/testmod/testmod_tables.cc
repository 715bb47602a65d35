// The design tables of TESTMOD and its win_head.
#include <cstddef>

#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/transport/plan.h"
#include "tests/testmod/testmod.h"
#include "tests/testmod/testmod_units.h"

namespace testmod {

using namespace lk;

namespace {

constexpr u32 At(std::size_t offset) { return static_cast<u32>(offset); }

const PermittedRow kKinds[] = {{"AA", 0}, {"BB", 0}, {nullptr, 0}};
const AttributeType kName10 = {11, "S ", 10, "", nullptr, 0x100, {0, 0}};
const AttributeType kKind2 = {3, "S ", 2, "", kKinds, 0, {0, 0}};
const AttributeType kStamp = {26, "Q ", 20, "YYYY-MM-DD-HH.MI.SS.NNNNNN", nullptr, 0, {0, 0}};
const AttributeType kAmount = {9, "B ", 0x00020007, "", nullptr, 0, {0, 0}};
const AttributeType kNote20 = {21, "S ", 20, "", nullptr, 0, {0, 0}};
const AttributeType kText8 = {9, "S ", 8, "", nullptr, 0, {0, 0}};
const AttributeType kFlag1 = {2, "S ", 1, "", nullptr, 0, {0, 0}};
const AttributeType kCode4 = {5, "S ", 4, "", nullptr, 0, {0, 0}};

// ---- TM1_FORM's views ----

const AttributeRow kFormAttributes[] = {
    {"NAME", 11, At(offsetof(FormImport, NAME)), At(offsetof(FormExport, NAME.value)), &kName10},
    {"KIND", 3, At(offsetof(FormImport, KIND)), At(offsetof(FormExport, KIND.value)), &kKind2},
    {"STAMP", 21, At(offsetof(FormImport, STAMP)), At(offsetof(FormExport, STAMP.value)), &kStamp},
    {"AMOUNT", 8, At(offsetof(FormImport, AMOUNT)), At(offsetof(FormExport, AMOUNT.value)),
     &kAmount},
    {"NOTE", 21, At(offsetof(FormImport, NOTE)), At(offsetof(FormExport, NOTE.value)), &kNote20},
    {nullptr, 0, 0, 0, nullptr},
};
const AttributeRow kFormSystem[] = {
    {"USER_ID_CODE", 9, At(offsetof(FormImport, USER_ID_CODE)),
     At(offsetof(FormExport, USER_ID_CODE.value)), &kText8},
    {"CURRENT_ORG_ID", 9, At(offsetof(FormImport, CURRENT_ORG_ID)),
     At(offsetof(FormExport, CURRENT_ORG_ID.value)), &kText8},
    {nullptr, 0, 0, 0, nullptr},
};
const AttributeRow kFormRowFlag[] = {
    {"FLAG", 2, At(offsetof(FormImport, ROW_FLAG)), At(offsetof(FormExport, ROW_FLAG.value)),
     &kFlag1},
    {nullptr, 0, 0, 0, nullptr},
};
const AttributeRow kFormRowCode[] = {
    {"CODE", 5, At(offsetof(FormImport, CODE)), At(offsetof(FormExport, CODE.value)), &kCode4},
    {nullptr, 0, 0, 0, nullptr},
};
const ViewRow kFormViewRows[] = {
    {"EXPORT.FORM.", 0, 0, kFormAttributes},
    {"EXPORT.SYSTEM_VARIABLE.", 0, 0, kFormSystem},
    {"GRP_EXPORT.RUNTIME_SUPPLIED.", kRows, 0, kFormRowFlag},
    {"GRP_EXPORT.FORM.", kRows, 0, kFormRowCode},
    {nullptr, 0, 0, nullptr},
};
const GroupRow kFormGroups[] = {
    {"GROUP_EXPORT", (4u << 16) | 2u, 1, At(offsetof(FormExport, count)),
     At(offsetof(FormImport, count)), 0},
    {"*", 4u << 16, 0, 0, 0, 0},
};
const ViewNameRow kFormViews = {"TM1_FORM", kFormViewRows, kFormGroups, 10};

// ---- TM2_DETAIL's views ----

const AttributeRow kDetailAttributes[] = {
    {"NAME", 11, At(offsetof(DetailImport, NAME)), At(offsetof(DetailExport, NAME.value)),
     &kName10},
    {nullptr, 0, 0, 0, nullptr},
};
const ViewRow kDetailViewRows[] = {
    {"EXPORT.DETAIL.", 0, 0, kDetailAttributes},
    {nullptr, 0, 0, nullptr},
};
const GroupRow kDetailGroups[] = {{"*", 1u << 16, 0, 0, 0, 0}};
const ViewNameRow kDetailViews = {"TM2_DETAIL", kDetailViewRows, kDetailGroups, 20};

// ---- Windows ----

const FieldDescriptor kNameField = {kTagEntry, &kName10};
const FieldDescriptor kKindField = {kTagEntry, &kKind2};
const FieldDescriptor kStampField = {kTagProtected, &kStamp};
const FieldDescriptor kAmountField = {kTagEntry, &kAmount};
const FieldDescriptor kNoteField = {kTagProtected, &kNote20};
const ListColumnRow kColumns[] = {
    {0x0010000A, 0x00100040, 60, 'L', 6, 10, kCode4, 0, 150, {0, 0}},
    {},
};
const ListDescriptor kList = {(u32{6 + 5} << 16) | kTagList, kColumns, 0, nullptr};
const std::uint16_t kButton[] = {kTagButton};
const RuleRecord kNeedsRow = {0, 0, 110, {0xFFFF, 0xFFFF, 0xFFFF}};
const void* const kNeedsRowRules[] = {&kNeedsRow, nullptr};

}  // namespace

const ControlRow kFormControls[] = {
    {102, &kNameField, nullptr, nullptr, 101, "NAME1", 0},
    {104, &kKindField, nullptr, nullptr, 103, "KIND1", 0},
    {106, &kStampField, nullptr, nullptr, 105, "STAMP1", 0},
    {108, &kAmountField, nullptr, nullptr, 107, "AMOUNT1", 0},
    {109, &kNoteField, nullptr, nullptr, 0, "NOTE1", 0},
    {110, &kList, nullptr, nullptr, 0, "ListBox1", 0},
    {120, kButton, nullptr, nullptr, 0, "Button1", 0},
    {121, kButton, nullptr, nullptr, 0, "Button2", 0},
    {122, kButton, nullptr, nullptr, 0, "Button3", 0},
    {123, kButton, nullptr, nullptr, 0, "Button4", 0},
    {124, kButton, nullptr, kNeedsRowRules, 0, "Button5", 0},
    {125, kButton, nullptr, nullptr, 0, "Button6", 0},
    {126, kButton, nullptr, nullptr, 0, "Button7", 0},
    {127, kButton, nullptr, nullptr, 0, "Button8", 0},
    {128, kButton, nullptr, nullptr, 0, "Button9", 0},
    {129, kButton, nullptr, nullptr, 0, "Button10", 0},
    {130, kButton, nullptr, nullptr, 0, "Button11", 0},
    {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};
const ActionControlRow kFormActions[] = {
    {120, "GO", 0, nullptr, 0, 0x00010004, "Button1"},
    {121, "LINK", 0, nullptr, 0, 0x00010004, "Button2"},
    {122, "", 0, nullptr, 0, 0x00010004, "Button3"},
    {123, "", 0, nullptr, 0, 0x00010004, "Button4"},
    {124, "HIDE", 0, kNeedsRowRules, 0, 0x00010004, "Button5"},
    {125, "", 0, nullptr, 0, 0x00010004, "Button6"},
    {126, "", 3, nullptr, 0, 0x00010004, "Button7"},
    {127, "AWAY", 0, nullptr, 0, 0x00010004, "Button8"},
    {128, "", 0, nullptr, 0, 0x00010004, "Button9"},
    {129, "", 0, nullptr, 0, 0x00010004, "Button10"},
    {130, "", 0, nullptr, 0, 0x00010004, "Button11"},
    {0, nullptr, 0, nullptr, 0, 0, nullptr},
};
const EventRow kFormEvents[] = {
    {122, "Click", TM1_PB_DEEP_CLICK, nullptr, ' ', 0, 0, 0},
    {123, "Click", TM1_PB_PICK_CLICK, nullptr, 'Y', 0, 0, 0},
    {125, "Click", TM1_PB_OFF_CLICK, nullptr, ' ', 0, 0, 0},
    {102, "Changed", TM1_NAME_CHANGED, nullptr, 'Y', 0, 0, 0},
    {128, "Click", TM1_PB_NUMBER_CLICK, nullptr, 'Y', 0, 0, 0},
    {129, "Click", TM1_PB_WRITE_CLICK, nullptr, 'Y', 0, 0, 0},
    {130, "Click", TM1_PB_BACKEND_CLICK, nullptr, ' ', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};
const ControlRow kDetailControls[] = {
    {202, &kNameField, nullptr, nullptr, 201, "NAME1", 0},
    {210, kButton, nullptr, nullptr, 0, "Button1", 0},
    {211, kButton, nullptr, nullptr, 0, "Button2", 0},
    {0, nullptr, nullptr, nullptr, 0, nullptr, 0},
};
const ActionControlRow kDetailActions[] = {
    {210, "", 0, nullptr, 0, 0x00010004, "Button1"},
    {211, "", 0, nullptr, 0, 0x00010004, "Button2"},
    {0, nullptr, 0, nullptr, 0, 0, nullptr},
};
const EventRow kDetailEvents[] = {
    {210, "Click", TM2_PB_RETURN_CLICK, nullptr, ' ', 0, 0, 0},
    {211, "Click", TM2_PB_CANCEL_CLICK, nullptr, 'Y', 0, 0, 0},
    {0, nullptr, nullptr, nullptr, 0, 0, 0, 0},
};

namespace {

const char* const kListColumns[] = {"GRP_EXPORT.FORM.CODE", nullptr};
const FieldBinding kFormFields[] = {
    {102, "EXPORT.FORM.NAME", nullptr, nullptr},
    {104, "EXPORT.FORM.KIND", nullptr, nullptr},
    {106, "EXPORT.FORM.STAMP", nullptr, nullptr},
    {108, "EXPORT.FORM.AMOUNT", nullptr, nullptr},
    {109, "EXPORT.FORM.NOTE", nullptr, nullptr},
    {110, nullptr, kListColumns, "GRP_EXPORT.RUNTIME_SUPPLIED.FLAG"},
    {120, nullptr, nullptr, nullptr}, {121, nullptr, nullptr, nullptr},
    {122, nullptr, nullptr, nullptr}, {123, nullptr, nullptr, nullptr},
    {124, nullptr, nullptr, nullptr}, {125, nullptr, nullptr, nullptr},
    {126, nullptr, nullptr, nullptr}, {127, nullptr, nullptr, nullptr},
    {128, nullptr, nullptr, nullptr}, {129, nullptr, nullptr, nullptr},
    {130, nullptr, nullptr, nullptr},
    {0, nullptr, nullptr, nullptr},
};
const FieldBinding kDetailFields[] = {
    {202, "EXPORT.DETAIL.NAME", nullptr, nullptr},
    {210, nullptr, nullptr, nullptr},
    {211, nullptr, nullptr, nullptr},
    {0, nullptr, nullptr, nullptr},
};

void ReadForm(WindowHandle, void*);
void WriteForm(WindowHandle, void*);
void ReadDetail(WindowHandle, void*);
void WriteDetail(WindowHandle, void*);

const StaticItemRow kNoStatics[] = {{0, nullptr, 0}};

}  // namespace

const WindowRow kWindows[] = {
    {10, 100, kFormActions, kFormControls, ReadForm, WriteForm, "SD", "A", kFormEvents,
     "TM1_FORM", 0, 0, kNoStatics, nullptr, nullptr, 0},
    {20, 200, kDetailActions, kDetailControls, ReadDetail, WriteDetail, "DD", "A",
     kDetailEvents, "TM2_DETAIL", 0, 0, kNoStatics, nullptr, nullptr, 0},
    {},
};

namespace {

const WindowBinding kFormBinding = {&kWindows[0], &kFormViews, kFormFields};
const WindowBinding kDetailBinding = {&kWindows[1], &kDetailViews, kDetailFields};
void ReadForm(WindowHandle w, void* v) { ReadWindowBy(kFormBinding, w, v); }
void WriteForm(WindowHandle w, void* v) { WriteWindowBy(kFormBinding, w, v); }
void ReadDetail(WindowHandle w, void* v) { ReadWindowBy(kDetailBinding, w, v); }
void WriteDetail(WindowHandle w, void* v) { WriteWindowBy(kDetailBinding, w, v); }

const FlowPair kSend[] = {{"EXPORT.FORM.NAME", "EXPORT.DETAIL.NAME"}, {nullptr, nullptr}};
const FlowPair kReceive[] = {{"EXPORT.FORM.NAME", "EXPORT.DETAIL.NAME"}, {nullptr, nullptr}};
const FlowBinding kFormToDetail = {&kFormViews, &kDetailViews, kSend, kReceive};
const ReturnRow kOnCancel[] = {{0, 0, EXIT_CANCEL, 0, 0, 0}};
const ReturnRow kOnReturn[] = {{0, 0, EXIT_RETURN, 0, 0, 0}};

const ExitRow kFormExits[] = {
    {kExitDetail, 0x000100E4, 'M'},
    {kExitAway, 0x000200E4, 'M'},
    {0, 0, 0},
};
const FlowRow kFormFlows[] = {
    {0x000100E4, "L", 20, "TM2_DETAIL", Send<kFormToDetail>, Receive<kFormToDetail>, kOnCancel,
     "E", "SHOW", "E", "RETURN", 0},
    {0x000200E4, "L", 30, "TM3_ELSEWHERE", nullptr, nullptr, kOnReturn, "E", "$#CURR#$", "E", "",
     0},
    {},
};

u32 shared_cell;
u32 form_flow_state[2];

}  // namespace

void TM1_FORM_IMPORT_TO_EXPORT(const FormImport* in, FormExport* out) {
  ImportToExportBy(kFormViews, in, out);
}

const ProcedureRow kProcedures[] = {
    {10, "TM1_FORM", &shared_cell, 0, sizeof(FormImport), 0, sizeof(FormExport), TM1_FORM,
     form_flow_state, kFormExits, kFormFlows, ImportToExport<kFormViews>,
     ExportToImport<kFormViews>, ImportUnpack<kFormViews>, ExportPack<kFormViews>, "TM1FORM",
     "TM1FORM"},
    {20, "TM2_DETAIL", &shared_cell, 0, sizeof(DetailImport), 0, sizeof(DetailExport),
     TM2_DETAIL, nullptr, nullptr, nullptr, ImportToExport<kDetailViews>,
     ExportToImport<kDetailViews>, ImportUnpack<kDetailViews>, ExportPack<kDetailViews>,
     "TM2DETAI", "TM2DETAI"},
    {30, "TM3_ELSEWHERE", &shared_cell, 0, 16, 0, 16, nullptr, nullptr, nullptr, nullptr, nullptr,
     nullptr, nullptr, nullptr, nullptr, "TM3ELSEW"},
    {},
};

namespace {

const ViewNameRow kViewNames[] = {kFormViews, kDetailViews, {nullptr, nullptr, nullptr, 0}};
const ViewIndex kViewIndex = {"TESTMOD", kViewNames};
const ModuleEntry kEntry = {"TESTMOD", {0, 0, 0}};
u32 runtime_cell;
const ApplicationBlock kApplication = {"TESTMOD", "WATRIX", "ORACLE", ".", ",", "DEFAULT", "1",
                                       &runtime_cell, "1252", {0, 0, 0}};
// Name list: name 32, module 8, short names 8 and 8, residence.
const char kNameList[] =
    "TM1_FORM                        TESTMOD TM1FORM TM1FORM I"
    "TM2_DETAIL                      TESTMOD TM2DETAITM2DETAII"
    "TM3_ELSEWHERE                   NOMOD   TM3ELSEWTM3ELSEWX"
    "0                               0       0       0       0";
static_assert(sizeof(kNameList) == 4 * kNameRowWidth + 1);

}  // namespace

}  // namespace testmod

extern "C" __attribute__((visibility("default"))) const lk::WinHead win_head = {
    testmod::kProcedures, testmod::kWindows, &testmod::kEntry, &testmod::kEntry + 1,
    &testmod::shared_cell, &testmod::kViewIndex, testmod::kNameList, 0, &testmod::kApplication,
    0, 'Y', 'N'};
