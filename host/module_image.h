// A loaded module: its shared library, its win_head and its resources.
//
// The library of module NAME is "lib" + NAME in lower case + ".so" in the
// module folder. Loading reads the exported win_head and the dialog templates
// of the section ".lkbase_rc" of the same file.
#ifndef WATRIX_HOST_MODULE_IMAGE_H_
#define WATRIX_HOST_MODULE_IMAGE_H_

#include <memory>
#include <string>

#include "frame/tables.h"
#include "host/resources.h"

namespace watrix {

class WindowLayouts;  // host/screen.h

class ModuleImage {
 public:
  // Loads module `name` from `folder`. Returns null with the reason in *error.
  static std::unique_ptr<ModuleImage> Load(const std::string& folder, const std::string& name,
                                           std::string* error);
  ~ModuleImage();

  ModuleImage(const ModuleImage&) = delete;
  ModuleImage& operator=(const ModuleImage&) = delete;

  const std::string& name() const { return name_; }
  const lk::WinHead& head() const { return *head_; }
  const Resources& resources() const { return resources_; }

  // The procedure row of this name or id, or null.
  const lk::ProcedureRow* FindProcedure(const char* name) const;
  const lk::ProcedureRow* FindProcedure(lk::u32 id) const;
  // The module that the name list gives for the procedure of this name, or
  // "" when the list does not hold it.
  std::string ModuleOf(const char* procedure_name) const;
  // The window of this name, or null.
  const lk::WindowRow* FindWindow(const char* name) const;
  // The ViewNameRow of this key (procedure name or main window title).
  const lk::ViewNameRow* FindViews(const char* key) const;

  // What the SCREEN keeps of this module's windows (host/screen.h).
  WindowLayouts& window_layouts() const { return *window_layouts_; }

 private:
  ModuleImage() = default;

  std::string name_;
  void* library_ = nullptr;
  const lk::WinHead* head_ = nullptr;
  Resources resources_;
  std::unique_ptr<WindowLayouts> window_layouts_;
};

// The library file name of a module: "lib" + lower-case name + ".so".
std::string ModuleLibraryName(const std::string& module);

}  // namespace watrix

#endif  // WATRIX_HOST_MODULE_IMAGE_H_
