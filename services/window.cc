// Window services: hand window and control requests of the units to the
// host's WindowPort behind HandleB.
//
// A null handle or a port without the function makes the call do nothing:
// the units have no way to react to a missing window, and a unit run outside
// a host (a test of its logic) has no windows to open.
#include "services/window.h"

#include "frame/host_port.h"

namespace lk {

namespace {

const WindowPort* PortOf(HandleB b) { return static_cast<const WindowPort*>(b); }

}  // namespace

void WindowOpen(HandleA a, HandleB b, const char* window_name) {
  (void)a;
  const WindowPort* port = PortOf(b);
  if (port != nullptr && port->window_open != nullptr) port->window_open(port->host, window_name);
}

void WindowClose(HandleA a, HandleB b, const char* window_name) {
  (void)a;
  const WindowPort* port = PortOf(b);
  if (port != nullptr && port->window_close != nullptr) {
    port->window_close(port->host, window_name);
  }
}

void ControlEnable(HandleA a, HandleB b, const char* keyword) {
  (void)a;
  const WindowPort* port = PortOf(b);
  if (port != nullptr && port->control_enable != nullptr) {
    port->control_enable(port->host, keyword);
  }
}

void ControlDisable(HandleA a, HandleB b, const char* keyword) {
  (void)a;
  const WindowPort* port = PortOf(b);
  if (port != nullptr && port->control_disable != nullptr) {
    port->control_disable(port->host, keyword);
  }
}

void WindowObject(void** cell, HandleB b) {
  // No window objects in this host: the cell stays as the caller left it.
  (void)cell;
  (void)b;
}

void ObjectInvoke(void* result, void* object, const char* method, int argument_count,
                  const void* arguments, int one) {
  (void)result;
  (void)object;
  (void)method;
  (void)argument_count;
  (void)arguments;
  (void)one;
}

}  // namespace lk
