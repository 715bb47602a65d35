// One value of one column as text: the check and normal form with which the
// CSV load takes it, and the form in which the dump writes it, the same on
// both backends.
//
// Texts are UTF-8 whose every character code page 1252 can hold (the views
// hold 1252), NUL excepted; widths count characters. A char value loses its
// trailing blanks (they do not count in a fixed char column), and an
// all-blank one is kept as one blank. Numbers are plain decimals: number(12)
// and number(3) whole, number(14,4) with at most four decimals. A date is
// "YYYY-MM-DD HH:MM:SS", a real moment of the years 0001 to 9999.
#ifndef WATRIX_STORE_COLUMN_VALUE_H_
#define WATRIX_STORE_COLUMN_VALUE_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "store/schema.h"

namespace lk::store {

// Whether `text` is valid UTF-8 of characters that code page 1252 holds,
// without NUL. On success *characters (if not null) is the number of
// characters; on failure *error says why.
bool CheckCp1252Text(std::string_view text, std::size_t* characters, std::string* error);

// Checks `*value` as a value of `column` and rewrites it in its normal form
// (see above). Returns false with the reason in *error ("is 7 characters
// long; SHORT_NAME holds 6").
bool NormalizeValue(const Column& column, std::string* value, std::string* error);

// The text in which a dump writes a value read from the database: numbers
// in their shortest plain form ("12", "-3.25"), char values without
// trailing blanks (one blank when nothing else is left), anything else as
// it is.
std::string DumpForm(const Column& column, const std::string& stored);

}  // namespace lk::store

#endif  // WATRIX_STORE_COLUMN_VALUE_H_
