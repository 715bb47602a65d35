// How values cross between an entity record and the database, written once
// for the statement frame's two paths (SOCI in statement.cc, the backends'
// own C APIs in native_read.cc): texts cut and prepared as host texts, dates
// as 'YYYY-MM-DD HH:MM:SS', number(3) as a 2-byte integer, code page 1252
// in the record and UTF-8 in the database; and the SQL area's words.
//
// Contract: pure functions over the caller's buffers; no state.
#ifndef WATRIX_STORE_HOST_VALUES_H_
#define WATRIX_STORE_HOST_VALUES_H_

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>

#include "store/sql_area.h"
#include "store/statement.h"

namespace lk::store::internal {

inline constexpr char kEmptyTimestamp[] = "00000000000000000000";

// The first line of `text`.
std::string FirstLine(const std::string& text);
// The sqlcode, the database's code and its words into the area.
void PutArea(SqlArea* area, int sqlcode, const std::string& code, const std::string& message);

// Trailing blanks of `text` dropped, one blank left of a blank text.
std::string Trimmed(const char* text);
// The value of input `c` as it goes to the database, in code page 1252: cut
// to the column's width and prepared as a host text.
std::string TextToWrite(const HostColumn& c, const char* attribute);
// "YYYY-MM-DD HH:MM:SS" of a 20-digit timestamp, through timestamp to host.
std::string DateToWrite(const char* attribute);

// A number(3) of a record, held as a 2-byte integer or as a double.
std::int16_t GetSmall(const HostColumn& c, const char* at);
void PutSmall(const HostColumn& c, char* at, std::int16_t small);

// UTF-8 -> code page 1252; plain ASCII, the common case, as it is. False,
// with the reason, for a character 1252 cannot hold.
bool ToCp1252(const char* utf8, std::size_t length, std::string* out, std::string* why);
inline bool ToCp1252(const std::string& utf8, std::string* out, std::string* why) {
  return ToCp1252(utf8.data(), utf8.size(), out, why);
}

// The 20 digits of a fetched date, without the fraction, as timestamp from
// host makes them: from its parts, or from its text 'YYYY-MM-DD HH:MM:SS'
// (false when the text is not of that form).
void PutDate(const std::tm& date, char* attribute);
bool PutDateText(const char* text, std::size_t length, char* attribute);

}  // namespace lk::store::internal

#endif  // WATRIX_STORE_HOST_VALUES_H_
