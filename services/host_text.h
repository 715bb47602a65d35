// Host text prepare: makes a view text fit for use as a database input.
#ifndef WATRIX_SERVICES_HOST_TEXT_H_
#define WATRIX_SERVICES_HOST_TEXT_H_

#include <cstdint>

namespace lk {

// With `length` null: a fixed host text, left as moved. With a length: a
// varying host text of at most *length characters (it ends at its first NUL
// if that comes sooner); its trailing blanks are dropped, a NUL put behind
// what remains and *length set to it. After it a value of no characters is one
// blank (length 1), for a fixed text too, since the database cannot store an
// empty text in these columns.
// REQUIRES: `text` has room for *length + 1 bytes, and for at least 2.
void HostTextPrepare(std::int16_t* length, char* text);

}  // namespace lk

#endif  // WATRIX_SERVICES_HOST_TEXT_H_
