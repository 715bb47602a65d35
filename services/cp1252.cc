// Code page 1252 <-> UTF-8.
#include "services/cp1252.h"

#include <cstdint>

namespace lk {

namespace {

// Unicode code points of 1252's bytes 0x80..0x9F; 0 where 1252 has none.
constexpr std::uint16_t kHigh[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string* out, std::uint32_t cp) {
  if (cp < 0x80) {
    out->push_back(static_cast<char>(cp));
  } else if (cp < 0x800) {
    out->push_back(static_cast<char>(0xC0 | (cp >> 6)));
    out->push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else {
    out->push_back(static_cast<char>(0xE0 | (cp >> 12)));
    out->push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out->push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }
}

}  // namespace

bool Utf8ToCp1252(std::string_view utf8, std::string* out, std::string* error) {
  out->clear();
  std::size_t i = 0;
  while (i < utf8.size()) {
    const auto b = static_cast<unsigned char>(utf8[i]);
    std::uint32_t cp = 0;
    int extra = 0;
    if (b < 0x80) {
      cp = b;
    } else if ((b & 0xE0) == 0xC0) {
      cp = b & 0x1F;
      extra = 1;
    } else if ((b & 0xF0) == 0xE0) {
      cp = b & 0x0F;
      extra = 2;
    } else if ((b & 0xF8) == 0xF0) {
      cp = b & 0x07;
      extra = 3;
    } else {
      *error = "text is not valid UTF-8";
      return false;
    }
    for (int k = 1; k <= extra; ++k) {
      if (i + k >= utf8.size()) {
        *error = "text is not valid UTF-8";
        return false;
      }
      const auto c = static_cast<unsigned char>(utf8[i + k]);
      if ((c & 0xC0) != 0x80) {
        *error = "text is not valid UTF-8";
        return false;
      }
      cp = (cp << 6) | (c & 0x3F);
    }
    const bool overlong = (extra == 1 && cp < 0x80) || (extra == 2 && cp < 0x800) ||
                          (extra == 3 && cp < 0x10000);
    if (overlong || (cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) {
      *error = "text is not valid UTF-8";
      return false;
    }
    i += extra + 1;
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) {
      out->push_back(static_cast<char>(cp));
      continue;
    }
    int found = -1;
    for (int k = 0; k < 32; ++k) {
      if (kHigh[k] != 0 && kHigh[k] == cp) {
        found = k;
        break;
      }
    }
    if (found < 0) {
      *error = "text holds a character outside code page 1252";
      return false;
    }
    out->push_back(static_cast<char>(0x80 + found));
  }
  return true;
}

std::string Cp1252ToUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char ch : text) {
    const auto b = static_cast<unsigned char>(ch);
    if (b >= 0x80 && b < 0xA0) {
      AppendUtf8(&out, kHigh[b - 0x80] != 0 ? kHigh[b - 0x80] : b);
    } else {
      AppendUtf8(&out, b);
    }
  }
  return out;
}

}  // namespace lk
