// The modules a host knows: the main module, loaded at start, and the
// sibling modules, loaded on the first flow that needs one.
//
// Contract: a module that loaded stays loaded for the host's life; one that
// failed is tried again on the next flow, so that a library installed later
// is found.
#ifndef WATRIX_HOST_MODULES_H_
#define WATRIX_HOST_MODULES_H_

#include <map>
#include <memory>
#include <string>

#include "host/module_image.h"

namespace watrix {

class Modules {
 public:
  // Loads the main module. Throws std::runtime_error when it cannot.
  Modules(std::string folder, const std::string& main_module);

  const ModuleImage& main() const { return *main_; }

  // The module of this name, loading it if need be; null with the reason in
  // *error when its library does not load.
  const ModuleImage* Get(const std::string& name, std::string* error);

 private:
  std::string folder_;
  const ModuleImage* main_ = nullptr;
  std::map<std::string, std::unique_ptr<ModuleImage>> loaded_;
};

}  // namespace watrix

#endif  // WATRIX_HOST_MODULES_H_
