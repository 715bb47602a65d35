// Helpers for tests that read a SCREEN: the names of the windows listed and
// the message as "KIND: text".
#ifndef WATRIX_HOST_SCREEN_TESTING_H_
#define WATRIX_HOST_SCREEN_TESTING_H_

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace watrix::testing {

inline std::vector<std::string> WindowNames(const nlohmann::json& screen) {
  std::vector<std::string> names;
  for (const auto& w : screen["windows"]) names.push_back(w["name"]);
  return names;
}

inline std::string MessageText(const nlohmann::json& screen) {
  const nlohmann::json& m = screen["message"];
  return m.is_null() ? "" : m["kind"].get<std::string>() + ": " + m["text"].get<std::string>();
}

}  // namespace watrix::testing

#endif  // WATRIX_HOST_SCREEN_TESTING_H_
