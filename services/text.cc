// Field services on texts: compare and move.
//
// A view text is a run of characters padded on the right and ended by a NUL.
// Compare treats the end of a text as an endless run of blanks, so a zeroed
// attribute, a blank one and a shorter text with the same characters are all
// equal. Move and bounded copy write exactly `width` bytes. None of these
// functions allocates.
#include "services/text.h"

#include <cstring>

namespace lk {

std::int16_t TextCompare(const char* a, const char* b) {
  const unsigned char* p = reinterpret_cast<const unsigned char*>(a);
  const unsigned char* q = reinterpret_cast<const unsigned char*>(b);
  // Walk both texts together while they are equal; a text that has ended
  // stands still on its NUL and counts as a blank.
  for (;;) {
    if (*p == '\0' && *q == '\0') return 0;
    const unsigned char x = (*p == '\0') ? ' ' : *p;
    const unsigned char y = (*q == '\0') ? ' ' : *q;
    if (x != y) return x < y ? -1 : 1;
    if (*p != '\0') ++p;
    if (*q != '\0') ++q;
  }
}

void TextMove(char* dest, const char* source, int width) {
  if (width <= 0) return;
  const std::size_t room = static_cast<std::size_t>(width) - 1;
  // Measure before writing: source and dest may be the same field.
  const std::size_t n = strnlen(source, room);
  if (dest != source) std::memmove(dest, source, n);
  std::memset(dest + n, ' ', room - n);
  dest[room] = '\0';
}

void BoundedCopy(char* dest, const char* source, int width) {
  if (width <= 0) return;
  const std::size_t room = static_cast<std::size_t>(width) - 1;
  const std::size_t n = strnlen(source, room);
  if (dest != source) std::memmove(dest, source, n);
  std::memset(dest + n, '\0', room - n + 1);
}

bool TextIsBlank(const char* text) {
  for (; *text != '\0'; ++text) {
    if (*text != ' ') return false;
  }
  return true;
}

}  // namespace lk
