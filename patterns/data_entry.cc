// Required fields and the internal error of a data entry window.
#include "patterns/data_entry.h"

#include <cstring>

#include "frame/views.h"
#include "services/text.h"

namespace lk::patterns {

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
