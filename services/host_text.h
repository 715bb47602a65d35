// Host text prepare: makes a view text fit for use as a database input.
#ifndef WATRIX_SERVICES_HOST_TEXT_H_
#define WATRIX_SERVICES_HOST_TEXT_H_

#include <cstdint>

namespace lk {

// With `length` null: a fixed host text, left as moved. With a length: a
// varying host text; its trailing blanks are dropped and *length set to what
// remains. After it a value of no characters is one blank (length 1), since
// the database cannot store an empty text in these columns.
void HostTextPrepare(std::int16_t* length, char* text);

}  // namespace lk

#endif  // WATRIX_SERVICES_HOST_TEXT_H_
