// The body-style data entry window: what is not a template.
#include "patterns/body_entry.h"

namespace lk::patterns {

bool WroteRow(RowAttributes attributes, const void* row) {
  for (const RowAttribute& a : attributes) {
    if (a.type->type_letter[0] != 'Q') continue;
    const char* stamp = static_cast<const char*>(row) + a.row;
    for (int i = 0; i < kTimestampStorage - 1; ++i)
      if (stamp[i] != '\0' && stamp[i] != '0') return true;
  }
  return false;
}

}  // namespace lk::patterns
