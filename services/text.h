// Field services on texts: compare and move. Every statement of the units is
// built from these two; they take plain references and allocate nothing.
#ifndef WATRIX_SERVICES_TEXT_H_
#define WATRIX_SERVICES_TEXT_H_

#include <cstdint>

namespace lk {

// 0 if equal, where a missing tail and trailing blanks are the same (a zeroed
// attribute equals a blank one, "A" equals "A   "); negative if `a` sorts
// before `b`, positive after. Bytes compare unsigned.
std::int16_t TextCompare(const char* a, const char* b);

// Copies `source` into `dest` of `width` bytes, the last byte being NUL;
// blank-pads behind a short source; keeps width - 1 characters of a long
// one. Safe when source and dest are the same.
void TextMove(char* dest, const char* source, int width);

// The copy of a varying text: at most width - 1 characters, then NUL, with
// the rest of the field NUL-filled.
void BoundedCopy(char* dest, const char* source, int width);

// True when `text` holds nothing but blanks (or nothing).
bool TextIsBlank(const char* text);

}  // namespace lk

#endif  // WATRIX_SERVICES_TEXT_H_
