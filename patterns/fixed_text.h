// Texts joined at compile time, for the dictionary and flow names that a
// pattern builds from a module's entity name ("EXPORT_LAST." + entity + ".").
//
//   FixedText<N>     a text as a template argument: Joined<"EXPORT.", E, ".">
//   Joined<P...>     the parts in one NUL-ended text with static storage:
//                    Joined<...>::value
//
// Contract: everything here is a constant expression; the joined texts live
// as long as the program and are never written.
#ifndef WATRIX_PATTERNS_FIXED_TEXT_H_
#define WATRIX_PATTERNS_FIXED_TEXT_H_

#include <array>
#include <cstddef>

namespace lk::patterns {

template <std::size_t N>
struct FixedText {
  constexpr FixedText(const char (&text)[N]) {  // NOLINT: implicit on purpose
    for (std::size_t i = 0; i < N; ++i) chars[i] = text[i];
  }
  static constexpr std::size_t kLength = N - 1;
  char chars[N] = {};
};

template <FixedText... Parts>
struct Joined {
 private:
  static constexpr std::size_t kSize = (Parts.kLength + ... + 1);
  static constexpr std::array<char, kSize> kText = [] {
    std::array<char, kSize> text{};
    std::size_t at = 0;
    auto append = [&](const auto& part) {
      for (std::size_t i = 0; i < part.kLength; ++i) text[at++] = part.chars[i];
    };
    (append(Parts), ...);
    text[at] = '\0';
    return text;
  }();

 public:
  static constexpr const char* value = kText.data();
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_FIXED_TEXT_H_
