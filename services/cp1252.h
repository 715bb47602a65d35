// Code page 1252 <-> UTF-8: texts are 1252 in the views and UTF-8 on the
// wire and in the database; the host and the store convert at their edges
// with these two functions. Everything 1252 can hold converts both ways;
// anything else is refused, never replaced. Pure functions, safe from any
// thread.
#ifndef WATRIX_SERVICES_CP1252_H_
#define WATRIX_SERVICES_CP1252_H_

#include <string>
#include <string_view>

namespace lk {

// Converts UTF-8 to 1252. Returns false, with the reason in *error, for
// malformed UTF-8 or a character that 1252 cannot hold; the five C1
// controls that 1252 leaves undefined (U+0081, U+008D, U+008F, U+0090,
// U+009D) count as such.
bool Utf8ToCp1252(std::string_view utf8, std::string* out, std::string* error);

// Converts 1252 to UTF-8. Bytes 1252 leaves undefined (0x81, 0x8D, 0x8F,
// 0x90, 0x9D) map to the C1 control of the same number.
std::string Cp1252ToUtf8(std::string_view text);

}  // namespace lk

#endif  // WATRIX_SERVICES_CP1252_H_
