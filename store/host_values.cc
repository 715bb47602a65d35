// How values cross between an entity record and the database.
#include "store/host_values.h"

#include <cstdio>
#include <cstring>
#include <vector>

#include "services/cp1252.h"
#include "services/host_text.h"
#include "services/text.h"
#include "services/timestamp.h"

namespace lk::store::internal {

std::string FirstLine(const std::string& text) {
  const std::size_t nl = text.find('\n');
  return nl == std::string::npos ? text : text.substr(0, nl);
}

void PutArea(SqlArea* area, int sqlcode, const std::string& code, const std::string& message) {
  area->sqlcode = sqlcode;
  std::snprintf(area->code, sizeof area->code, "%s", code.c_str());
  std::snprintf(area->message, sizeof area->message, "%s", message.c_str());
}

std::string Trimmed(const char* text) {
  std::size_t n = std::strlen(text);
  while (n > 0 && text[n - 1] == ' ') --n;
  return n == 0 ? std::string(" ") : std::string(text, n);
}

std::string TextToWrite(const HostColumn& c, const char* attribute) {
  std::vector<char> host(c.width + 2, '\0');
  if (c.type == HostType::kChar) {
    TextMove(host.data(), attribute, c.width + 1);
    HostTextPrepare(nullptr, host.data());
    return Trimmed(host.data());
  }
  const std::size_t n = strnlen(attribute, c.place.size);
  std::memcpy(host.data(), attribute, n < c.width ? n : c.width);
  std::int16_t length = static_cast<std::int16_t>(c.width);
  HostTextPrepare(&length, host.data());
  return std::string(host.data(), static_cast<std::size_t>(length));
}

std::string DateToWrite(const char* attribute) {
  char host[19];
  TimestampToHost(attribute, host);  // "YYYY-MM-DDHH.MI.SS"
  std::string out(host, 10);
  out += ' ';
  out.append(host + 10, 2);
  out += ':';
  out.append(host + 13, 2);
  out += ':';
  out.append(host + 16, 2);
  return out;
}

std::int16_t GetSmall(const HostColumn& c, const char* at) {
  if (c.place.size == sizeof(double)) {
    double v;
    std::memcpy(&v, at, sizeof v);
    return static_cast<std::int16_t>(v);
  }
  std::int16_t small;
  std::memcpy(&small, at, sizeof small);
  return small;
}

void PutSmall(const HostColumn& c, char* at, std::int16_t small) {
  if (c.place.size == sizeof(double)) {
    const double v = small;
    std::memcpy(at, &v, sizeof v);
  } else {
    std::memcpy(at, &small, sizeof small);
  }
}

bool ToCp1252(const char* utf8, std::size_t length, std::string* out, std::string* why) {
  bool ascii = true;
  for (std::size_t i = 0; i < length && ascii; ++i)
    ascii = static_cast<unsigned char>(utf8[i]) < 0x80;
  if (ascii) {
    out->assign(utf8, length);
    return true;
  }
  return Utf8ToCp1252(std::string(utf8, length), out, why);
}

void PutDate(const std::tm& date, char* attribute) {
  char host[19] = "0000-00-0000.00.00";
  const auto put = [&host](int at, int value, int digits) {
    for (int k = digits - 1; k >= 0; --k, value /= 10)
      host[at + k] = static_cast<char>('0' + (value % 10 + 10) % 10);
  };
  put(0, date.tm_year + 1900, 4);
  put(5, date.tm_mon + 1, 2);
  put(8, date.tm_mday, 2);
  put(10, date.tm_hour, 2);
  put(13, date.tm_min, 2);
  put(16, date.tm_sec, 2);
  TimestampFromHost(host, attribute);
}

bool PutDateText(const char* text, std::size_t length, char* attribute) {
  // "YYYY-MM-DD HH:MM:SS" (a PostgreSQL timestamp may add a fraction).
  if (length < 19 || text[4] != '-' || text[7] != '-' || text[10] != ' ' || text[13] != ':' ||
      text[16] != ':')
    return false;
  std::tm date{};
  auto number = [text](int at, int digits) {
    int v = 0;
    for (int k = 0; k < digits; ++k) v = v * 10 + (text[at + k] - '0');
    return v;
  };
  for (int at : {0, 1, 2, 3, 5, 6, 8, 9, 11, 12, 14, 15, 17, 18})
    if (text[at] < '0' || text[at] > '9') return false;
  date.tm_year = number(0, 4) - 1900;
  date.tm_mon = number(5, 2) - 1;
  date.tm_mday = number(8, 2);
  date.tm_hour = number(11, 2);
  date.tm_min = number(14, 2);
  date.tm_sec = number(17, 2);
  PutDate(date, attribute);
  return true;
}

}  // namespace lk::store::internal
