// The WINDOW of a SCREEN: what the page and other clients see of an open
// window, built from its design rows, its dialog template and its field
// buffers.
#ifndef WATRIX_HOST_SCREEN_H_
#define WATRIX_HOST_SCREEN_H_

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "host/module_image.h"
#include "host/window_state.h"

namespace watrix {

// What the SCREEN keeps of the windows of one module: the parts of each
// window's JSON that never change (names, types, labels, geometry,
// keywords, list columns, options), written once, on the window's first
// screen, and kept for the module's life. The ModuleImage holds it.
//
// Thread safety: Of may be called from any thread.
class WindowLayouts {
 public:
  struct Control;
  struct Window;

  WindowLayouts();
  ~WindowLayouts();
  WindowLayouts(const WindowLayouts&) = delete;
  WindowLayouts& operator=(const WindowLayouts&) = delete;

  // The layout of the window's WindowRow; `window` is open in `module`.
  const Window& Of(const OpenWindow& window, const ModuleImage& module);

 private:
  std::mutex mutex_;
  std::unordered_map<const lk::WindowRow*, std::unique_ptr<const Window>> windows_;
};

// Appends the WINDOW as JSON text to *out, as nlohmann::json's dump(-1, ' ',
// false, replace) would write it, keys sorted.
//
// Controls in tab order (the ControlRows), then the static texts and group
// boxes of the template. Texts are UTF-8. The window's own texts (title,
// labels, button texts, column headings, option texts from the string table)
// are the template's to the byte, blanks included ("Description "); values
// and list cells have their trailing blanks removed.
void AppendWindowJson(const OpenWindow& window, const ModuleImage& module,
                      const char* procedure_name, std::string* out);

}  // namespace watrix

#endif  // WATRIX_HOST_SCREEN_H_
