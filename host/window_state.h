// An open window as the host keeps it: the field buffers that read_window and
// write_window move values through, the rows of its lists, the state of its
// controls, and the ScreenPort that the module's transport functions reach
// it by.
//
// Contract: one OpenWindow per open WindowRow of an active procedure; the
// handle() it gives the module stays valid for the window's life. Field k is
// ControlRow k of the window.
#ifndef WATRIX_HOST_WINDOW_STATE_H_
#define WATRIX_HOST_WINDOW_STATE_H_

#include <map>
#include <string>
#include <vector>

#include "frame/host_port.h"
#include "frame/tables.h"
#include "host/resources.h"

namespace watrix {

// One row of a list control, as list row add gave it.
struct ListRow {
  int row_number = 0;  // group row, from 1
  std::string buffer;  // per column: six display bytes, then the value
  char flag = ' ';     // the row state mark: ' ', 'S', 'C'
};

struct Field {
  const lk::ControlRow* control = nullptr;
  std::uint16_t tag = 0;
  const lk::AttributeType* type = nullptr;  // entry fields and lists' columns
  std::string attribute;                    // view attribute name, for fields
  int width = 0;                            // characters a user may type
  std::vector<char> buffer;                 // six display bytes, value, NUL
  char* value = nullptr;                    // into buffer, behind the display bytes
  std::vector<ListRow> rows;                // lists
  int option = -1;                          // radio groups, drop-downs, check boxes
  std::map<int, char> flags;                // lists: group row -> mark, kept across refills
  bool changed = false;                     // edited since the last screen
};

class OpenWindow {
 public:
  OpenWindow(const lk::WindowRow* row, const Dialog* dialog);
  OpenWindow(const OpenWindow&) = delete;
  OpenWindow& operator=(const OpenWindow&) = delete;

  const lk::WindowRow* row() const { return row_; }
  const Dialog* dialog() const { return dialog_; }
  lk::WindowHandle handle() { return &handle_; }
  std::vector<Field>& fields() { return fields_; }
  const std::vector<Field>& fields() const { return fields_; }

  // The field index of a control id, or -1.
  int FieldOf(lk::u32 control_id) const;
  // The ActionControlRow of a control id, or null.
  const lk::ActionControlRow* ActionOf(lk::u32 control_id) const;
  // The ActionControlRow whose keyword is `keyword`, or null.
  const lk::ActionControlRow* ActionByKeyword(const char* keyword) const;
  // The first EventRow of (control, event), or null.
  const lk::EventRow* EventOf(lk::u32 control_id, const char* event_name) const;

  // Whether a control takes input now: its enable rules, then what the units
  // set with control enable and control disable.
  bool Enabled(lk::u32 control_id) const;
  void SetOverride(lk::u32 control_id, bool enabled) { overrides_[control_id] = enabled; }

  // The value of field k as shown, trailing blanks removed.
  std::string ValueOf(int k) const;
  // Puts a typed value into field k (blank-padded to its width).
  void SetValue(int k, const std::string& value);
  // Selects group row `row_number` of list field k as a click does: marks it
  // current and clears the others. Returns false when the list has no such
  // row on show.
  bool SelectRow(int k, int row_number);
  // Marks exactly the listed rows.
  bool SelectRows(int k, const std::vector<int>& row_numbers);
  // Whether list field k has a selected row.
  bool HasSelection(int k) const;

 private:
  static const lk::ScreenPort kPort;

  const lk::WindowRow* row_;
  const Dialog* dialog_;
  lk::HostWindow handle_;
  std::vector<Field> fields_;
  std::vector<char*> field_table_;
  std::map<lk::u32, bool> overrides_;

  friend struct ScreenPortImpl;
};

// The width of a field's value on screen, from its attribute type.
int ScreenWidth(const lk::AttributeType& type);

}  // namespace watrix

#endif  // WATRIX_HOST_WINDOW_STATE_H_
