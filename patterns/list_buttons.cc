// The maintenance buttons that a list sets itself.
#include "patterns/list_buttons.h"

#include "services/window.h"

namespace lk::patterns {

void ButtonsAtOpen(HandleA a, HandleB b) {
  ControlDisable(a, b, "CHANGE");
  ControlDisable(a, b, "DELETE");
}

void ButtonsForRow(HandleA a, HandleB b) {
  ControlDisable(a, b, "ADD");
  ControlEnable(a, b, "CHANGE");
  ControlEnable(a, b, "DELETE");
}

void ButtonsForNoRow(HandleA a, HandleB b) {
  ControlEnable(a, b, "ADD");
  ControlDisable(a, b, "CHANGE");
  ControlDisable(a, b, "DELETE");
}

}  // namespace lk::patterns
