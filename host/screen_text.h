// JSON text written straight into a string, for the SCREEN: the host sends
// the text of a screen as it builds it, with no nlohmann::json tree between.
// Values come out exactly as nlohmann::json's dump(-1, ' ', false,
// error_handler_t::replace) writes them, the form the HTTP interface has
// always sent: no blanks, UTF-8 as it is, quotation mark, reverse solidus
// and control characters escaped (\b \t \n \f \r, others \u00xx), and a
// text that is not valid UTF-8 left to nlohmann::json to write with U+FFFD
// in place of the bad bytes. Which keys an object has, and in which order,
// is the caller's: a json object keeps its keys sorted, and so do the
// writers of the SCREEN.
//
// Pure functions, safe from any thread.
#ifndef WATRIX_HOST_SCREEN_TEXT_H_
#define WATRIX_HOST_SCREEN_TEXT_H_

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

namespace watrix::screen_text {

// Whether a byte goes into a JSON string as it is, with no look: ASCII
// other than the controls, the quotation mark and the reverse solidus.
struct PlainBytes {
  bool plain[256];
  constexpr PlainBytes() : plain() {
    for (int c = 0x20; c < 0x80; ++c) plain[c] = c != '"' && c != '\\';
  }
};
inline constexpr PlainBytes kPlainBytes;

// Appends `utf8` as a JSON string.
void AppendString(std::string* out, std::string_view utf8);

// Appends a code page 1252 text as the JSON string of its UTF-8
// (lk::Cp1252ToUtf8).
void AppendCp1252(std::string* out, std::string_view cp1252);

inline void AppendInt(std::string* out, std::int64_t value) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  out->append(digits, end);
}

inline void AppendBool(std::string* out, bool value) { out->append(value ? "true" : "false"); }

}  // namespace watrix::screen_text

#endif  // WATRIX_HOST_SCREEN_TEXT_H_
