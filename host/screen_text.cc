// JSON strings written as nlohmann::json writes them, without its tree.
#include "host/screen_text.h"

#include <nlohmann/json.hpp>

#include "services/cp1252.h"

namespace watrix::screen_text {

namespace {

// Whether `s` is well-formed UTF-8 (RFC 3629: no overlong forms, no
// surrogates, nothing above U+10FFFF), as nlohmann::json's decoder accepts it.
bool ValidUtf8(std::string_view s) {
  const auto* p = reinterpret_cast<const unsigned char*>(s.data());
  const auto* end = p + s.size();
  while (p < end) {
    const unsigned char b = *p;
    if (b < 0x80) {
      ++p;
      continue;
    }
    int extra;
    unsigned char low = 0x80, high = 0xBF;  // the bounds of the second byte
    if (b >= 0xC2 && b <= 0xDF) {
      extra = 1;
    } else if (b >= 0xE0 && b <= 0xEF) {
      extra = 2;
      if (b == 0xE0) low = 0xA0;
      if (b == 0xED) high = 0x9F;
    } else if (b >= 0xF0 && b <= 0xF4) {
      extra = 3;
      if (b == 0xF0) low = 0x90;
      if (b == 0xF4) high = 0x8F;
    } else {
      return false;
    }
    if (end - p <= extra) return false;
    if (p[1] < low || p[1] > high) return false;
    for (int k = 2; k <= extra; ++k)
      if ((p[k] & 0xC0) != 0x80) return false;
    p += extra + 1;
  }
  return true;
}

void AppendEscaped(std::string* out, unsigned char c) {
  switch (c) {
    case '\b': out->append("\\b"); return;
    case '\t': out->append("\\t"); return;
    case '\n': out->append("\\n"); return;
    case '\f': out->append("\\f"); return;
    case '\r': out->append("\\r"); return;
    case '"': out->append("\\\""); return;
    case '\\': out->append("\\\\"); return;
    default: {
      static const char kHex[] = "0123456789abcdef";
      const char escaped[6] = {'\\', 'u', '0', '0', kHex[c >> 4], kHex[c & 0xF]};
      out->append(escaped, sizeof escaped);
    }
  }
}

}  // namespace

void AppendString(std::string* out, std::string_view s) {
  const std::size_t start = out->size();
  out->push_back('"');
  const char* p = s.data();
  const char* end = p + s.size();
  bool checked = false;  // the bytes from the first high one on are valid UTF-8
  while (p < end) {
    const char* run = p;
    while (p < end && kPlainBytes.plain[static_cast<unsigned char>(*p)]) ++p;
    out->append(run, p);
    if (p == end) break;
    const auto c = static_cast<unsigned char>(*p);
    if (c >= 0x80) {
      if (!checked) {
        if (!ValidUtf8(std::string_view(p, end - p))) {
          out->resize(start);
          out->append(nlohmann::json(std::string(s)).dump(
              -1, ' ', false, nlohmann::json::error_handler_t::replace));
          return;
        }
        checked = true;
      }
      out->push_back(static_cast<char>(c));
    } else {
      AppendEscaped(out, c);
    }
    ++p;
  }
  out->push_back('"');
}

void AppendCp1252(std::string* out, std::string_view cp1252) {
  for (char c : cp1252) {
    if (static_cast<unsigned char>(c) >= 0x80) {
      AppendString(out, lk::Cp1252ToUtf8(cp1252));
      return;
    }
  }
  AppendString(out, cp1252);
}

}  // namespace watrix::screen_text
