// A preview list: its height, the marking of a row, its Close.
#include "patterns/preview_list.h"

#include "frame/unit.h"
#include "patterns/group.h"
#include "services/number.h"
#include "services/row_state.h"
#include "services/window.h"

namespace lk::patterns {

void PreviewHeight(HandleB b, const char* procedure, int height) {
  void* object = nullptr;
  WindowObject(&object, b);
  struct {
    const char* procedure;
    int height;
  } arguments = {procedure, height};
  int result = 0;
  ObjectInvoke(&result, object, "SetHeight", 2, &arguments, 1);
}

void PreviewClick(HandleA a, HandleB b, RunContext* rc, char (*marks)[2], std::int32_t count,
                  int limit, char* subscript, const char* import_subscript) {
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  const int rows = count < limit ? count : limit;
  int s = 0;
  for (int r = 1; r <= rows && s == 0; ++r)
    if (RowStateTest(a, b, rc, marks[r][0], kStateSelected) != 0) s = r;
  if (s == static_cast<int>(GetNumber(import_subscript))) {
    if (s > 0) {
      CheckSubscript(rc, s, limit);
      RowStateSet(a, b, rc, marks[s], kStateClear);
    }
    PutNumber(subscript, 0);
    return;
  }
  PutNumber(subscript, s);
}

void PreviewClose(RunContext* rc) { SetExit(rc, EXIT_RETURN, nullptr, 'N'); }

}  // namespace lk::patterns
