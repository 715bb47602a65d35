// Loading the main module and its siblings.
#include "host/modules.h"

#include <stdexcept>

namespace watrix {

Modules::Modules(std::string folder, const std::string& main_module)
    : folder_(std::move(folder)) {
  std::string error;
  const ModuleImage* image = Get(main_module, &error);
  if (image == nullptr) throw std::runtime_error("cannot load module " + main_module + ": " + error);
  main_ = image;
}

const ModuleImage* Modules::Get(const std::string& name, std::string* error) {
  auto it = loaded_.find(name);
  if (it != loaded_.end()) return it->second.get();
  std::unique_ptr<ModuleImage> image = ModuleImage::Load(folder_, name, error);
  if (image == nullptr) return nullptr;
  const ModuleImage* result = image.get();
  loaded_[name] = std::move(image);
  return result;
}

}  // namespace watrix
