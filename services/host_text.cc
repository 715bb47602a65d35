// Host text prepare: makes a view text fit for use as a database input.
//
// The database cannot hold a text of no characters in these columns, so an
// empty value goes in as one blank; compared as a view text it is the same
// unset value. A varying text loses its trailing blanks, which the text
// compare of the units does not see either, so a value read back compares
// equal to the one written.
#include "services/host_text.h"

#include <cstring>

namespace lk {

void HostTextPrepare(std::int16_t* length, char* text) {
  if (length == nullptr) {
    if (text[0] == '\0') {
      text[0] = ' ';
      text[1] = '\0';
    }
    return;
  }
  const std::size_t limit = *length > 0 ? static_cast<std::size_t>(*length) : 0;
  std::size_t n = strnlen(text, limit);
  while (n > 0 && text[n - 1] == ' ') --n;
  if (n == 0) {
    text[0] = ' ';
    n = 1;
  }
  text[n] = '\0';
  *length = static_cast<std::int16_t>(n);
}

}  // namespace lk
