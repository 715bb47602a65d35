// Files compiled into the program: the page, its scripts and styles, and the
// help pages. cmake/embed.cmake generates the tables from the files under
// web/, so the server never reads the filesystem.
//
// A table is an array of EmbeddedFile that ends with an entry whose path is
// nullptr. A path is the file's path below its base folder with a leading
// "/": for kWebFiles, whose base is web/, "/static/index.html" and
// "/help/RT1_REFERENCE_TABLE_MAINT_MENU.html". `data` holds `size` bytes
// followed by one NUL byte that `size` does not count. Tables are constant
// and live as long as the program.
#ifndef WATRIX_WEB_EMBEDDED_H_
#define WATRIX_WEB_EMBEDDED_H_

#include <cstddef>

struct EmbeddedFile {
  const char* path;
  const char* data;
  std::size_t size;
};

// The files of web/static and web/help.
extern const EmbeddedFile kWebFiles[];

#endif  // WATRIX_WEB_EMBEDDED_H_
