// Required fields and the internal error of a data entry window.
#include "patterns/data_entry.h"

#include <cstring>

#include "frame/transport/plan.h"
#include "frame/views.h"
#include "services/text.h"

namespace lk::patterns {

void EntryBody(UnitStorage* unit, const ViewShape& shape, const UnitId& id,
               const ViewNameRow& views, HandleA a, HandleB b, RunContext* rc,
               void* import_view, void* export_view) {
  EnterProcedure(unit, &shape, /*load_only_test=*/true, a, b, rc, import_view, export_view,
                 [&] {
                   StoreUnitId(rc, id);
                   rc->statement = "0000000001";
                   SetExit(rc, EXIT_NONE, nullptr, 'N');
                   ImportToExportBy(views, import_view, export_view);
                 });
}

bool CheckRequired(RunContext* rc, std::initializer_list<RequiredField> fields) {
  for (const RequiredField& f : fields) {
    if (TextIsBlank(f.value)) {
      std::memcpy(f.display, kDisplayError, kDisplayWidth);
      SetExit(rc, EXIT_FIELD_REQUIRED, kFieldRequiredText, 'E');
      return false;
    }
    std::memcpy(f.display, kDisplayNormal, kDisplayWidth);
  }
  return true;
}

void InternalError(RunContext* rc) { SetExit(rc, EXIT_SYSTEM_ERROR, kSystemErrorText, 'E', 'R'); }

}  // namespace lk::patterns
