// Loading a module with dlopen and finding things in its tables.
#include "host/module_image.h"

#include <dlfcn.h>

#include <cctype>
#include <cstring>

#include "host/screen.h"

namespace watrix {

std::string ModuleLibraryName(const std::string& module) {
  std::string lower = module;
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return "lib" + lower + ".so";
}

std::unique_ptr<ModuleImage> ModuleImage::Load(const std::string& folder,
                                               const std::string& name, std::string* error) {
  const std::string path = folder + "/" + ModuleLibraryName(name);
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    const char* why = dlerror();
    *error = why != nullptr ? why : ("cannot load " + path);
    return nullptr;
  }
  std::unique_ptr<ModuleImage> image(new ModuleImage);
  image->window_layouts_ = std::make_unique<WindowLayouts>();
  image->name_ = name;
  image->library_ = library;
  image->head_ = static_cast<const lk::WinHead*>(dlsym(library, "win_head"));
  if (image->head_ == nullptr) {
    *error = path + " has no win_head";
    return nullptr;
  }
  std::string text;
  if (!ReadElfSection(path, ".lkbase_rc", &text, error)) return nullptr;
  if (!ParseResources(text, &image->resources_, error)) {
    *error = path + " resources: " + *error;
    return nullptr;
  }
  return image;
}

ModuleImage::~ModuleImage() {
  if (library_ != nullptr) dlclose(library_);
}

const lk::ProcedureRow* ModuleImage::FindProcedure(const char* name) const {
  for (const lk::ProcedureRow* p = head_->procedures; p->id != 0; ++p)
    if (std::strcmp(p->name, name) == 0) return p;
  return nullptr;
}

const lk::ProcedureRow* ModuleImage::FindProcedure(lk::u32 id) const {
  for (const lk::ProcedureRow* p = head_->procedures; p->id != 0; ++p)
    if (p->id == id) return p;
  return nullptr;
}

std::string ModuleImage::ModuleOf(const char* procedure_name) const {
  const std::size_t length = std::strlen(procedure_name);
  for (const char* row = head_->name_list; row[0] != '0' && row[0] != '\0';
       row += lk::kNameRowWidth) {
    if (std::strncmp(row, procedure_name, length) != 0) continue;
    bool blank_tail = true;
    for (std::size_t i = length; i < 32; ++i) blank_tail = blank_tail && row[i] == ' ';
    if (!blank_tail) continue;
    std::string module(row + 32, 8);
    while (!module.empty() && module.back() == ' ') module.pop_back();
    return module;
  }
  return "";
}

const lk::WindowRow* ModuleImage::FindWindow(const char* name) const {
  for (const lk::WindowRow* w = head_->windows; w->procedure_id != 0; ++w)
    if (std::strcmp(w->name, name) == 0) return w;
  return nullptr;
}

const lk::ViewNameRow* ModuleImage::FindViews(const char* key) const {
  for (const lk::ViewNameRow* v = head_->view_index->view_names; v->key != nullptr; ++v)
    if (std::strcmp(v->key, key) == 0) return v;
  return nullptr;
}

}  // namespace watrix
