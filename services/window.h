// Window services: open and close a window of the running procedure, enable
// and disable a control by its keyword. They reach the host through the
// WindowPort behind HandleB. A null HandleB, or a port without the function,
// makes the call do nothing.
#ifndef WATRIX_SERVICES_WINDOW_H_
#define WATRIX_SERVICES_WINDOW_H_

#include "frame/entry.h"

namespace lk {

void WindowOpen(HandleA a, HandleB b, const char* window_name);
void WindowClose(HandleA a, HandleB b, const char* window_name);
void ControlEnable(HandleA a, HandleB b, const char* keyword);
void ControlDisable(HandleA a, HandleB b, const char* keyword);

// The window object and its method call. This host has no window objects: the
// cell stays empty and the call does nothing, so the window keeps its design
// height.
void WindowObject(void** cell, HandleB b);
void ObjectInvoke(void* result, void* object, const char* method, int argument_count,
                  const void* arguments, int one);

}  // namespace lk

#endif  // WATRIX_SERVICES_WINDOW_H_
