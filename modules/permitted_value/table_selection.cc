// RT54_MULTIPLE_TABLE_SELECTION: the question that RT2 and RT3 put when a
// permitted value being added, changed or deleted is also held by other
// tables. It shows the row in hand and up to 5 other tables, and answers
// which of them the same action is to be applied to: "&Select" flags each
// highlighted row "Y" and returns COMMAND "MULTISEL" (nothing highlighted
// is allowed: the caller then acts on its own row alone); "Cance&l"
// returns COMMAND "CANCEL" with every flag as received. It reads and writes
// nothing in the database.
#include "frame/run_context.h"
#include "frame/transport/plan.h"
#include "frame/unit.h"
#include "patterns/event_action.h"
#include "modules/permitted_value/permitted_value.h"
#include "modules/permitted_value/permitted_value_units.h"
#include "services/row_state.h"
#include "services/text.h"

namespace lk::permitted_value {

namespace {

constexpr UnitId kBodyId = {"0017554001", "RT54_MULTIPLE_TABLE_SELECTION"};
constexpr UnitId kSelectId = {"0017554002", "RT2A_MULTIPLE_TA_PB_SELECT_CLICK"};
constexpr UnitId kCancelId = {"0017554003", "RT2A_MULTIPLE_TA_PB_CANCEL_CLICK"};

UnitStorage body_unit, select_unit, cancel_unit;

template <typename Step>
void Action(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
            void* import_view, void* export_view, Step&& step) {
  patterns::RunEventAction<SelectionImport, SelectionExport>(
      unit, SelectionDictionary::kShape, id, a, b, rc, import_view, export_view, step);
}

}  // namespace

// The selected row and the rows of other tables from the import view; the
// group's rows stop at its 5.
void RT54_MULTIPLE_TABLE_SELECTION(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                   void* export_view) {
  patterns::RunBody<SelectionExport>(&body_unit, SelectionDictionary::kShape, kBodyId,
                                     kSelectionViews, a, b, rc, import_view, export_view,
                                     [](SelectionExport*) {});
}

void RT2A_MULTIPLE_TA_PB_SELECT_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  Action(&select_unit, kSelectId, a, b, rc, import_view, export_view, [&](const SelectionImport*, SelectionExport* e) {
    TablesExport& tables = e->GP_EXPORT_TABLES;
    const int count = tables.rows.count < kTableRows ? tables.rows.count : kTableRows;
    // The walk: from each position the next highlighted row is sought and
    // flagged, and the search goes on after it.
    for (int i = 1; i <= count; ++i) {
      int found = 0;
      for (int r = i; r <= count && found == 0; ++r)
        if (RowStateTest(a, b, rc, tables.rows.SELECT_CHAR.value[r][0], kStateSelected) != 0)
          found = r;
      if (found == 0) break;
      TextMove(tables.FLAG.value[found], "Y", sizeof tables.FLAG.value[found]);
      i = found;
    }
    SetCommand(rc, "MULTISEL");
    SetExit(rc, EXIT_RETURN, nullptr, 'N');
  });
}

void RT2A_MULTIPLE_TA_PB_CANCEL_CLICK(HandleA a, HandleB b, RunContext* rc, void* import_view,
                                      void* export_view) {
  Action(&cancel_unit, kCancelId, a, b, rc, import_view, export_view, [&](const SelectionImport*, SelectionExport*) {
    SetCommand(rc, "CANCEL");
    SetExit(rc, EXIT_RETURN, nullptr, 'N');
  });
}

}  // namespace lk::permitted_value
