// What stands behind the opaque handles: the small C interfaces through which
// the services of the module reach the host.
//
// HandleA points at a SessionPort (the session's clock and, once the store is
// built, its database); HandleB points at a WindowPort (window open and close,
// control enable and disable). A WindowHandle points at a HostWindow, whose
// ScreenPort gives the field buffers and list services that read_window and
// write_window use.
//
// Contract: the host fills these records and keeps them alive for as long as
// a unit may run with them. All functions run on the one runtime thread.
// Field and list indexes count ControlRow entries of the window from 0.
#ifndef WATRIX_FRAME_HOST_PORT_H_
#define WATRIX_FRAME_HOST_PORT_H_

#include <cstdint>

namespace lk {

struct SessionPort {
  void* host;
  // Fills date (YYYYMMDD), time (HHMMSS) and text (20 digits, NUL) from the
  // session's clock.
  void (*clock)(void* host, std::int32_t* date, std::int32_t* time, char* text);
  // The session's database; the store's own interface (store/).
  void* store;
};

struct WindowPort {
  void* host;
  void (*window_open)(void* host, const char* window_name);
  void (*window_close)(void* host, const char* window_name);
  void (*control_enable)(void* host, const char* keyword);
  void (*control_disable)(void* host, const char* keyword);
};

struct HostWindow;

// The window and list services of one open window.
struct ScreenPort {
  // One entry per ControlRow: an entry field's value buffer, with its six
  // display bytes in front of it; for a list, null (lists go through the list
  // functions below); for a button, null.
  char** (*field_table)(HostWindow* window);
  // Empties the list at field index `list` ahead of filling.
  void (*list_reset)(HostWindow* window, int list);
  // Reserves room for `count` rows.
  void (*list_reserve)(HostWindow* window, int list, int count);
  // Appends a row buffer of `row_size` bytes that stands for group row
  // `row_number` (from 1).
  void (*list_row_add)(HostWindow* window, int list, const char* row, int row_size,
                       int row_number);
  // Gives the first row at or after position `start` (from 0) into `row`, and
  // its group row number in *row_number; returns the row's position, or -1 at
  // the end of the list.
  int (*list_row_read)(HostWindow* window, int list, int start, char* row, int row_size,
                       int* row_number);
  // Copies the row flags of the group rows 1..count of the list into the
  // view's flag array (`stride` bytes apart, row r at flags + r * stride), and
  // back again.
  void (*list_flags_read)(HostWindow* window, int list, char* flags, int stride, int count);
  void (*list_flags_write)(HostWindow* window, int list, const char* flags, int stride,
                           int count);
  // Sets a radio group, drop-down or check box to option `position` (from 0),
  // or clears it with -1; and reads the option back.
  void (*option_set)(HostWindow* window, int field, int position);
  int (*option_get)(HostWindow* window, int field);
};

struct HostWindow {
  const ScreenPort* port;
  void* self;
};

}  // namespace lk

#endif  // WATRIX_FRAME_HOST_PORT_H_
