// The module's resources: dialog templates and the string table, as the
// module carries them in its ELF section ".lkbase_rc".
//
// The text format, one item a line ('#' starts a comment line):
//   dialog ID "TITLE" WIDTH HEIGHT style 0xSTYLE
//     KIND ID "TEXT" X Y W H [center] [default] [multiple] [attribute NAME]
//                                                  KIND: button static group
//                                                  edit check radio list combo picture
//     KIND ID X Y W H [...]                        (the same without text)
//   end
//   strings
//     ID "TEXT"
//   end
// Texts are in double quotes, with \" and \\ as escapes; coordinates are in
// dialog units. "attribute NAME" on a list's heading static names the view
// attribute of that column; "multiple" makes a list one of multiple
// selection.
#ifndef WATRIX_HOST_RESOURCES_H_
#define WATRIX_HOST_RESOURCES_H_

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace watrix {

struct DialogControl {
  std::uint32_t id = 0;
  std::string kind;
  std::string text;
  int x = 0, y = 0, w = 0, h = 0;
  bool center = false;
  bool is_default = false;
  bool multiple = false;  // a list in which several rows may be highlighted
  std::string attribute;  // a column heading's attribute, or ""
};

struct Dialog {
  std::uint32_t id = 0;
  std::string title;
  int width = 0, height = 0;
  std::uint32_t style = 0;
  std::vector<DialogControl> controls;

  // The control of this id, or null.
  const DialogControl* Find(std::uint32_t control_id) const;
};

struct Resources {
  std::map<std::uint32_t, Dialog> dialogs;
  std::map<std::uint32_t, std::string> strings;

  // The dialog of this id, or null.
  const Dialog* FindDialog(std::uint32_t dialog_id) const;
};

// Parses `text` into *out. Returns false with "line N: reason" in *error.
bool ParseResources(std::string_view text, Resources* out, std::string* error);

// Reads the contents of section `name` of the ELF file at `path`.
bool ReadElfSection(const std::string& path, const char* name, std::string* out,
                    std::string* error);

}  // namespace watrix

#endif  // WATRIX_HOST_RESOURCES_H_
