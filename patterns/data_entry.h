// The shared steps of a data entry window: its procedure body, and of its
// Accept the required fields in window order and the internal error that
// ends a failed write.
#ifndef WATRIX_PATTERNS_DATA_ENTRY_H_
#define WATRIX_PATTERNS_DATA_ENTRY_H_

#include <initializer_list>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/unit.h"

namespace lk::patterns {

// The body of a data entry procedure, unit `id` with `unit` for storage:
// EXIT_NONE, then the import view into the export view by `views`.
void EntryBody(UnitStorage* unit, const ViewShape& shape, const UnitId& id,
               const ViewNameRow& views, HandleA a, HandleB b, RunContext* rc,
               void* import_view, void* export_view);

// A field that must not be blank: its display bytes and its value.
struct RequiredField {
  char* display;
  const char* value;
};

// Tests the fields in window order, top to bottom. Each field before the
// first blank one gets "3a    "; the first blank one gets "10    ", exit state
// EXIT_FIELD_REQUIRED with "An entry must be made in this field.", kind 'E',
// and the test stops there: the user sees one field at a time. Returns true
// when none is blank.
bool CheckRequired(RunContext* rc, std::initializer_list<RequiredField> fields);

// The end of a write that left an exit state it should not have:
// EXIT_SYSTEM_ERROR, "An internal system error has occurred.  Contact system
// administrator.", kind 'E', rollback marker 'R'.
void InternalError(RunContext* rc);

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_DATA_ENTRY_H_
