// The WINDOW of a SCREEN: what the page and other clients see of an open
// window, built from its design rows, its dialog template and its field
// buffers.
#ifndef WATRIX_HOST_SCREEN_H_
#define WATRIX_HOST_SCREEN_H_

#include <string>

#include "host/module_image.h"
#include "host/window_state.h"

namespace watrix {

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
