// Field services on timestamps.
//
// A view timestamp is 20 digits and a NUL: year (4), month, day, hour,
// minute, second (2 each) and a six-digit fraction. The database reads and
// writes dates through the mask 'YYYY-MM-DDHH24.MI.SS', whose text is
// "YYYY-MM-DDHH.MI.SS": 18 characters, no fraction. A window shows the
// picture "YYYY-MM-DD-HH.MI.SS.NNNNNN". A text that ends early (a zeroed
// attribute) reads as zeros, so an empty timestamp shows digits, not a date.
#include "services/timestamp.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>

#include "frame/host_port.h"

namespace lk {

namespace {

constexpr int kTimestampDigits = 20;
constexpr int kHostLength = 18;
constexpr int kPictureLength = 26;

// Where each of the 20 digits stands in the host text; the fraction does not.
constexpr int kHostPlace[14] = {0, 1, 2, 3, 5, 6, 8, 9, 10, 11, 13, 14, 16, 17};

// Where each of the 20 digits stands in the picture.
constexpr int kPicturePlace[kTimestampDigits] = {0,  1,  2,  3,  5,  6,  8,  9,  11, 12,
                                                 14, 15, 17, 18, 20, 21, 22, 23, 24, 25};

// The `count` characters of `text` as a fixed row, a character past its end
// being '0'.
void ReadPadded(const char* text, int count, char* out) {
  int i = 0;
  for (; i < count && text[i] != '\0'; ++i) out[i] = text[i];
  for (; i < count; ++i) out[i] = '0';
}

// The answer of the clock when the session gives none: the local time of
// this machine.
void MachineClock(std::int32_t* date, std::int32_t* time, char* text) {
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  const long micros = static_cast<long>(
      std::chrono::duration_cast<std::chrono::microseconds>(now.time_since_epoch()).count() %
      1000000);
  std::tm local{};
  localtime_r(&seconds, &local);
  *date = (local.tm_year + 1900) * 10000 + (local.tm_mon + 1) * 100 + local.tm_mday;
  *time = local.tm_hour * 10000 + local.tm_min * 100 + local.tm_sec;
  std::snprintf(text, 21, "%08d%06d%06ld", static_cast<int>(*date), static_cast<int>(*time),
                micros < 0 ? 0L : micros);
}

}  // namespace

void CurrentTimestamp(HandleA a, HandleB b, ServiceBlock* block) {
  (void)b;
  if (std::memcmp(block->service_code, "702", 3) != 0) return;
  const SessionPort* session = static_cast<const SessionPort*>(a);
  std::int32_t date = 0;
  std::int32_t time = 0;
  char text[kTimestampDigits + 1] = {};
  if (session != nullptr && session->clock != nullptr) {
    session->clock(session->host, &date, &time, text);
  } else {
    MachineClock(&date, &time, text);
  }
  text[kTimestampDigits] = '\0';
  block->answer_date = date;
  block->answer_time = time;
  std::memcpy(block->answer_text, text, sizeof(block->answer_text));
}

void StampCurrentTimestamp(HandleA a, HandleB b, RunContext* rc, char* attribute) {
  ServiceBlock* block = &rc->service_block;
  std::memset(block, 0, sizeof(*block));
  std::memcpy(block->service_code, "702", 3);
  CurrentTimestamp(a, b, block);
  // The unit's two scratch texts; they take the answers and nobody reads them.
  char date_text[12] = "20000000";
  char time_text[12] = "00000000";
  std::snprintf(date_text, sizeof(date_text), "%8.8ld", static_cast<long>(block->answer_date));
  std::snprintf(time_text, sizeof(time_text), "%8.8ld", static_cast<long>(block->answer_time));
  std::memcpy(block->answer_text + 14, "000000", 6);
  std::memcpy(attribute, block->answer_text, sizeof(block->answer_text));
}

void TimestampToHost(const char* attribute, char* host) {
  char digits[kTimestampDigits];
  ReadPadded(attribute, kTimestampDigits, digits);
  std::memcpy(host, "0000-00-0000.00.00", kHostLength);
  for (int i = 0; i < 14; ++i) host[kHostPlace[i]] = digits[i];
  host[kHostLength] = '\0';
}

void TimestampFromHost(const char* host, char* attribute) {
  char text[kHostLength];
  ReadPadded(host, kHostLength, text);
  for (int i = 0; i < 14; ++i) attribute[i] = text[kHostPlace[i]];
  std::memset(attribute + 14, '0', 6);
  attribute[kTimestampDigits] = '\0';
}

void TimestampToPicture(const char* attribute, char* shown) {
  char digits[kTimestampDigits];
  ReadPadded(attribute, kTimestampDigits, digits);
  std::memcpy(shown, "0000-00-00-00.00.00.000000", kPictureLength);
  for (int i = 0; i < kTimestampDigits; ++i) shown[kPicturePlace[i]] = digits[i];
  shown[kPictureLength] = '\0';
}

}  // namespace lk
