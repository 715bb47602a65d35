// Values of columns as text (see column_value.h).
#include "store/column_value.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "services/cp1252.h"

namespace lk::store {

namespace {

// The first character of `text`, valid UTF-8, that code page 1252 lacks.
std::string_view FirstRefused(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    const auto b = static_cast<unsigned char>(text[i]);
    std::size_t n = b < 0x80 ? 1 : (b & 0xE0) == 0xC0 ? 2 : (b & 0xF0) == 0xE0 ? 3 : 4;
    n = std::min(n, text.size() - i);
    std::string converted;
    std::string why;
    if (!Utf8ToCp1252(text.substr(i, n), &converted, &why)) return text.substr(i, n);
    i += n;
  }
  return {};
}

// "U+0100" for the one UTF-8 character in `utf8`.
std::string CodePoint(std::string_view utf8) {
  if (utf8.empty()) return "a character";
  const auto b = static_cast<unsigned char>(utf8[0]);
  std::uint32_t cp = b < 0x80             ? b
                     : (b & 0xE0) == 0xC0 ? b & 0x1F
                     : (b & 0xF0) == 0xE0 ? b & 0x0F
                                          : b & 0x07;
  for (std::size_t k = 1; k < utf8.size(); ++k) {
    cp = (cp << 6) | (static_cast<unsigned char>(utf8[k]) & 0x3F);
  }
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "U+%04X", static_cast<unsigned>(cp));
  return buffer;
}

bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }

std::string RightTrimBlanks(const std::string& text) {
  std::size_t end = text.size();
  while (end > 0 && text[end - 1] == ' ') --end;
  return text.substr(0, end);
}

// Parses [+-]digits[.digits] into sign, integer digits without leading
// zeros and fraction digits without trailing zeros.
bool ParseDecimal(const std::string& text, bool* negative, std::string* whole,
                  std::string* fraction) {
  std::size_t i = 0;
  *negative = false;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
    *negative = text[i] == '-';
    ++i;
  }
  std::string w;
  while (i < text.size() && IsDigit(text[i])) w += text[i++];
  std::string f;
  if (i < text.size() && text[i] == '.') {
    ++i;
    while (i < text.size() && IsDigit(text[i])) f += text[i++];
  }
  if (i != text.size() || (w.empty() && f.empty())) return false;
  std::size_t lead = 0;
  while (lead < w.size() && w[lead] == '0') ++lead;
  *whole = w.substr(lead);
  while (!f.empty() && f.back() == '0') f.pop_back();
  *fraction = f;
  return true;
}

bool NormalizeNumber(const Column& column, std::string* value, std::string* error) {
  bool negative = false;
  std::string whole;
  std::string fraction;
  if (!ParseDecimal(*value, &negative, &whole, &fraction)) {
    *error = "\"" + *value + "\" is not a number";
    return false;
  }
  std::size_t max_whole = 12;
  std::size_t max_fraction = 0;
  if (column.type == ColumnType::kNumber3) max_whole = 3;
  if (column.type == ColumnType::kNumber14_4) {
    max_whole = 10;
    max_fraction = 4;
  }
  if (fraction.size() > max_fraction) {
    *error = max_fraction == 0
                 ? "\"" + *value + "\" is not a whole number"
                 : "\"" + *value + "\" has more than " + std::to_string(max_fraction) + " decimals";
    return false;
  }
  if (whole.size() > max_whole) {
    *error = "\"" + *value + "\" has more than " + std::to_string(max_whole) +
             (max_fraction == 0 ? " digits" : " digits before the point");
    return false;
  }
  std::string normal = whole.empty() ? "0" : whole;
  if (!fraction.empty()) normal += "." + fraction;
  if (negative && normal != "0") normal = "-" + normal;
  *value = normal;
  return true;
}

int DaysInMonth(int year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month == 2 && ((year % 4 == 0 && year % 100 != 0) || year % 400 == 0)) return 29;
  return kDays[month - 1];
}

bool CheckDate(const std::string& value, std::string* error) {
  // YYYY-MM-DD HH:MM:SS
  static constexpr char kShape[] = "dddd-dd-dd dd:dd:dd";
  bool shaped = value.size() == sizeof(kShape) - 1;
  for (std::size_t i = 0; shaped && i < value.size(); ++i) {
    shaped = kShape[i] == 'd' ? IsDigit(value[i]) : value[i] == kShape[i];
  }
  if (!shaped) {
    *error = "\"" + value + "\" is not a date YYYY-MM-DD HH:MM:SS";
    return false;
  }
  const int year = std::atoi(value.substr(0, 4).c_str());
  const int month = std::atoi(value.substr(5, 2).c_str());
  const int day = std::atoi(value.substr(8, 2).c_str());
  const int hour = std::atoi(value.substr(11, 2).c_str());
  const int minute = std::atoi(value.substr(14, 2).c_str());
  const int second = std::atoi(value.substr(17, 2).c_str());
  if (year < 1 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month) ||
      hour > 23 || minute > 59 || second > 59) {
    *error = "\"" + value + "\" is no such moment";
    return false;
  }
  return true;
}

// Formats `x` with `decimals` decimals, then drops trailing zeros and a
// bare point; "-0" becomes "0".
std::string ShortestFixed(double x, int decimals) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, x);
  std::string text = buffer;
  if (text.find('.') != std::string::npos) {
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
  }
  if (text == "-0") text = "0";
  return text;
}

}  // namespace

bool CheckCp1252Text(std::string_view text, std::size_t* characters, std::string* error) {
  // The services' conversion decides what 1252 holds; one byte of 1252 is one
  // character.
  std::string converted;
  std::string why;
  if (!Utf8ToCp1252(text, &converted, &why)) {
    if (why.find("UTF-8") != std::string::npos) {
      *error = "is not valid UTF-8";
    } else {
      *error = "holds " + CodePoint(FirstRefused(text)) + ", which code page 1252 cannot hold";
    }
    return false;
  }
  if (converted.find('\0') != std::string::npos) {
    *error = "holds a NUL character";
    return false;
  }
  if (characters != nullptr) *characters = converted.size();
  return true;
}

bool NormalizeValue(const Column& column, std::string* value, std::string* error) {
  switch (column.type) {
    case ColumnType::kChar:
    case ColumnType::kVarchar: {
      std::size_t characters = 0;
      std::string why;
      if (!CheckCp1252Text(*value, &characters, &why)) {
        *error = "the value " + why;
        return false;
      }
      if (column.type == ColumnType::kChar) {
        std::string trimmed = RightTrimBlanks(*value);
        characters -= value->size() - trimmed.size();  // blanks are one byte each
        *value = trimmed.empty() ? " " : trimmed;
        if (trimmed.empty()) characters = 1;
      }
      if (characters > static_cast<std::size_t>(column.width)) {
        *error = "the value is " + std::to_string(characters) + " characters long; " + column.name +
                 " holds " + std::to_string(column.width);
        return false;
      }
      return true;
    }
    case ColumnType::kNumber12:
    case ColumnType::kNumber14_4:
    case ColumnType::kNumber3:
      return NormalizeNumber(column, value, error);
    case ColumnType::kDate:
      return CheckDate(*value, error);
  }
  *error = "unknown column type";
  return false;
}

std::string DumpForm(const Column& column, const std::string& stored) {
  switch (column.type) {
    case ColumnType::kChar: {
      std::string trimmed = RightTrimBlanks(stored);
      return trimmed.empty() ? " " : trimmed;
    }
    case ColumnType::kNumber12:
    case ColumnType::kNumber3:
    case ColumnType::kNumber14_4: {
      char* end = nullptr;
      const double x = std::strtod(stored.c_str(), &end);
      if (end == stored.c_str() || *end != '\0' || !std::isfinite(x)) return stored;
      return ShortestFixed(x, column.type == ColumnType::kNumber14_4 ? 4 : 0);
    }
    case ColumnType::kVarchar:
    case ColumnType::kDate:
      break;
  }
  return stored;
}

}  // namespace lk::store
