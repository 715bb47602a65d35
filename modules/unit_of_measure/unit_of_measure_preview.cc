// UOM1_UNIT_OF_MEASURE_PREVIEW: its view dictionary, its units and
// READ_UNIT_OF_MEASURE_PREVIEW.
#include "modules/unit_of_measure/unit_of_measure_preview.h"

#include <cstddef>
#include <cstring>

#include "frame/run_context.h"
#include "modules/unit_of_measure/unit_of_measure_blocks.h"
#include "patterns/event_action.h"
#include "patterns/open_entry.h"
#include "patterns/preview_list.h"
#include "patterns/row_views.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/entity_state.h"

namespace lk::unit_of_measure {

namespace {

using I = PreviewImport;
using E = PreviewExport;
using patterns::row_views::At;

constexpr AttributeType kText5 = {6, "S ", 5, "", nullptr, 0, {0, 0}};
constexpr AttributeType kText8 = {9, "S ", 8, "", nullptr, 0, {0, 0}};

constexpr AttributeRow kCharacteristic[] = {
    {"UOM_TYPE", 6, At(offsetof(I, CHARACTERISTIC.UOM_TYPE)),
     At(offsetof(E, CHARACTERISTIC.UOM_TYPE.value)), &kText5},
    {"TSRCHAR_ORG_ID", 9, At(offsetof(I, CHARACTERISTIC.TSRCHAR_ORG_ID)),
     At(offsetof(E, CHARACTERISTIC.TSRCHAR_ORG_ID.value)), &kText8},
    {nullptr, 0, 0, 0, nullptr}};
constexpr AttributeRow kRuntime[] = {
    {"SUBSCRIPT", 8, At(offsetof(I, RUNTIME_SUPPLIED.SUBSCRIPT)),
     At(offsetof(E, RUNTIME_SUPPLIED.SUBSCRIPT.value)), &patterns::kStackSubscriptType},
    {"FLAG", 2, At(offsetof(I, RUNTIME_SUPPLIED.FLAG)), At(offsetof(E, RUNTIME_SUPPLIED.FLAG.value)),
     &patterns::kFlagType},
    {nullptr, 0, 0, 0, nullptr}};
constexpr AttributeRow kMarks[] = {
    {"SELECT_CHAR", 2, At(offsetof(I, GRP_EXPORT.SELECT_CHAR)),
     At(offsetof(E, GRP_EXPORT.SELECT_CHAR.value)), &patterns::kStackFlagType},
    {nullptr, 0, 0, 0, nullptr}};
constexpr auto kRows = patterns::stack_views::ExportColumnRows(UomPreviewForms::kAttributes,
                                                               At(offsetof(E, GRP_EXPORT)));

std::int32_t Count(const E& e) { return e.GRP_EXPORT.count; }

UnitStorage body_unit, open_unit, show_all_unit, click_unit, close_unit, read_unit;
store::Cursor read_cursor;
store::EntityState read_state;
UomRow read_key;
UomPreviewRow read_row;

// READ_UNIT_OF_MEASURE_PREVIEW: the flag "AL" reads every type of the ORG
// ID, anything else the type given; the rows into the group, at most 2000.
void ReadPreview(HandleA a, HandleB b, RunContext* rc, const char* flag, const char* type,
                 const char* org_id, E* e) {
  store::RunActionBlock(&read_unit, kPreviewReadId, a, b, rc, {&read_cursor},
                        [&](store::Block& block) {
    store::ResetEntity(&read_state);
    std::memset(&read_key, 0, sizeof read_key);
    TextMove(read_key.UOM_TYPE, type, sizeof read_key.UOM_TYPE);
    TextMove(read_key.TSRUOM_ORG_ID, org_id, sizeof read_key.TSRUOM_ORG_ID);
    const bool all = TextCompare(flag, "AL") == 0;
    auto& group = e->GRP_EXPORT;
    std::memset(&group, 0, sizeof group);
    int count = 0;
    std::memset(&read_row, 0, sizeof read_row);
    store::ReadList(block, &read_cursor, all ? kPreviewAll : kPreviewType, &read_state, &read_key,
                    &read_row, [&] {
      if (count >= kPreviewRows) return false;
      const int r = ++count;
      TextMove(group.SELECT_CHAR.value[r], "", 2);
      patterns::RowToGroup(UomPreviewForms::kAttributes, &read_row, &group, r);
      return true;
    });
    group.count = count;
  });
}

// The read with the characteristic of the view and ORG ID "ZZZZZZZZ".
void Read(HandleA a, HandleB b, RunContext* rc, const UnitId& own, const char* flag, E* e) {
  TextMove(e->CHARACTERISTIC.TSRCHAR_ORG_ID.value, patterns::kNationalOrgId,
           sizeof e->CHARACTERISTIC.TSRCHAR_ORG_ID.value);
  patterns::CallActionBlock(rc, own, [&] {
    ReadPreview(a, b, rc, flag, e->CHARACTERISTIC.UOM_TYPE.value,
                e->CHARACTERISTIC.TSRCHAR_ORG_ID.value, e);
  });
}

template <typename Step>
void Action(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
            void* import_view, void* export_view, Step&& step) {
  EnterEventAction(unit, &PreviewDictionary::kShape, id, a, b, rc, import_view, export_view, [&] {
    rc->statement = "0000000001";
    SetExit(rc, EXIT_NONE, nullptr, 'N');
    step(static_cast<const I*>(import_view), static_cast<E*>(export_view));
  });
}

}  // namespace

const ViewRow PreviewDictionary::kViewRows[] = {
    {"EXPORT.CHARACTERISTIC.", 0, 0, kCharacteristic},
    {"EXPORT.RUNTIME_SUPPLIED.", 0, 0, kRuntime},
    {"GRP_EXPORT.RUNTIME_SUPPLIED.", kPreviewRows, 0, kMarks},
    {"GRP_EXPORT.UNIT_OF_MEASURE.", kPreviewRows, 0, kRows.data()},
    {nullptr, 0, 0, nullptr},
};
const GroupRow PreviewDictionary::kGroupRows[] = {
    {"GRP_EXPORT", (4u << 16) | 2u, 1, At(offsetof(E, GRP_EXPORT.count)),
     At(offsetof(I, GRP_EXPORT.count)), 0},
    {"*", 4u << 16, 0, 0, 0, 0},
};
const ViewShape PreviewDictionary::kShape = {sizeof(E), patterns::stack_views::kNoTimestamps,
                                             patterns::stack_views::kNoTimestamps};

char* PreviewRowAddress(void* export_view, int row) {
  return static_cast<E*>(export_view)->GRP_EXPORT.UOM_TYPE.display[row];
}

void Preview::Body(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  EnterProcedure(&body_unit, &PreviewDictionary::kShape, /*load_only_test=*/true, a, b, rc,
                 import_view, export_view, [&] {
                   StoreUnitId(rc, kPreviewBodyId);
                   rc->statement = "0000000001";
                   SetExit(rc, EXIT_NONE, nullptr, 'N');
                   ImportToExportBy(kPreviewViews, import_view, export_view);
                 });
}

void Preview::Open(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&open_unit, kPreviewOpenId, a, b, rc, import_view, export_view,
         [&](const I* in, E* e) {
           patterns::PreviewHeight(b, kPreviewName, 450);
           TextMove(e->CHARACTERISTIC.UOM_TYPE.value, in->CHARACTERISTIC.UOM_TYPE,
                    sizeof e->CHARACTERISTIC.UOM_TYPE.value);
           Read(a, b, rc, kPreviewOpenId, "", e);
         });
}

void Preview::ShowAll(HandleA a, HandleB b, RunContext* rc, void* import_view,
                      void* export_view) {
  Action(&show_all_unit, kShowAllId, a, b, rc, import_view, export_view,
         [&](const I* in, E* e) {
           const bool all = TextCompare(in->RUNTIME_SUPPLIED.FLAG, "Y") == 0;
           Read(a, b, rc, kShowAllId, all ? "AL" : "", e);
         });
}

void Preview::Click(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&click_unit, kPreviewClickId, a, b, rc, import_view, export_view,
         [&](const I* in, E* e) {
           patterns::PreviewClick(a, b, rc, e->GRP_EXPORT.SELECT_CHAR.value, Count(*e),
                                  kPreviewRows, e->RUNTIME_SUPPLIED.SUBSCRIPT.value,
                                  in->RUNTIME_SUPPLIED.SUBSCRIPT);
         });
}

void Preview::Close(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
  Action(&close_unit, kPreviewCloseId, a, b, rc, import_view, export_view,
         [&](const I*, E*) { patterns::PreviewClose(rc); });
}

}  // namespace lk::unit_of_measure
