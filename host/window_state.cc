// Open windows: field buffers, list rows, control state, and the ScreenPort
// functions that the module's transport calls.
#include "host/window_state.h"

#include "frame/transport/plan.h"
#include "frame/views.h"

#include <algorithm>
#include <cstring>

namespace watrix {

int ScreenWidth(const lk::AttributeType& type) {
  const std::string letter = type.type_letter != nullptr ? type.type_letter : "S ";
  const int length = static_cast<int>(type.length & 0xFFFF);
  const int decimals = static_cast<int>(type.length >> 16);
  switch (letter[0]) {
    case 'Q':
      return 26;
    case 'B':
    case 'L':
    case 'I':
      // Sign, digits and, with decimals, the point.
      return length + 1 + (decimals > 0 ? 1 : 0);
    default:
      return length;
  }
}

namespace {

std::string AttributeOfControlName(const char* name) {
  std::string a = name != nullptr ? name : "";
  while (!a.empty() && a.back() >= '0' && a.back() <= '9') a.pop_back();
  return a;
}

}  // namespace

OpenWindow::OpenWindow(const lk::WindowRow* row, const Dialog* dialog)
    : row_(row), dialog_(dialog) {
  handle_.port = &kPort;
  handle_.self = this;
  for (const lk::ControlRow* c = row->controls; c != nullptr && c->control_id != 0; ++c) {
    Field f;
    f.control = c;
    f.tag = c->descriptor != nullptr ? lk::DescriptorTag(c->descriptor) : 0;
    switch (f.tag) {
      case lk::kTagEntry:
      case lk::kTagProtected:
      case lk::kTagMultiline:
        f.type = static_cast<const lk::FieldDescriptor*>(c->descriptor)->type;
        f.attribute = AttributeOfControlName(c->control_name);
        f.width = ScreenWidth(*f.type);
        break;
      case lk::kTagRadio:
      case lk::kTagDropDown:
      case lk::kTagCheck:
        f.attribute = AttributeOfControlName(c->control_name);
        f.width = 0;
        break;
      default:
        break;
    }
    // Room for the widest value a field may show, and the NUL.
    const int shown = f.type != nullptr ? static_cast<int>(lk::FieldTextWidth(*f.type)) : 0;
    f.buffer.assign(lk::kDisplayWidth + std::max({shown, f.width, 1}) + 1, '\0');
    std::memset(f.buffer.data(), ' ', lk::kDisplayWidth);
    fields_.push_back(std::move(f));
  }
  for (Field& f : fields_) {
    f.value = f.buffer.data() + lk::kDisplayWidth;
    const bool entry = f.tag == lk::kTagEntry || f.tag == lk::kTagProtected ||
                       f.tag == lk::kTagMultiline || f.tag == lk::kTagRadio ||
                       f.tag == lk::kTagDropDown || f.tag == lk::kTagCheck;
    field_table_.push_back(entry ? f.value : nullptr);
  }
}

int OpenWindow::FieldOf(lk::u32 control_id) const {
  for (std::size_t k = 0; k < fields_.size(); ++k)
    if (fields_[k].control->control_id == control_id) return static_cast<int>(k);
  return -1;
}

const lk::ActionControlRow* OpenWindow::ActionOf(lk::u32 control_id) const {
  for (const lk::ActionControlRow* a = row_->actions; a != nullptr && a->control_id != 0; ++a)
    if (a->control_id == control_id) return a;
  return nullptr;
}

const lk::ActionControlRow* OpenWindow::ActionByKeyword(const char* keyword) const {
  for (const lk::ActionControlRow* a = row_->actions; a != nullptr && a->control_id != 0; ++a)
    if (a->command != nullptr && std::strcmp(a->command, keyword) == 0) return a;
  return nullptr;
}

const lk::EventRow* OpenWindow::EventOf(lk::u32 control_id, const char* event_name) const {
  for (const lk::EventRow* e = row_->events; e != nullptr && e->control_id != 0; ++e)
    if (e->control_id == control_id && std::strcmp(e->event_name, event_name) == 0) return e;
  return nullptr;
}

bool OpenWindow::Enabled(lk::u32 control_id) const {
  auto it = overrides_.find(control_id);
  if (it != overrides_.end()) return it->second;
  const int k = FieldOf(control_id);
  if (k < 0) return true;
  const lk::ControlRow* c = fields_[k].control;
  if (c->enable_rule == nullptr) return true;
  for (const void* const* r = c->enable_rule; *r != nullptr; ++r) {
    const auto* rule = static_cast<const lk::RuleRecord*>(*r);
    const int watched = FieldOf(rule->watched);
    if (watched < 0) continue;
    const bool selected = HasSelection(watched);
    if (rule->mode == 0 && !selected) return false;
    if (rule->mode == 1 && selected) return false;
  }
  return true;
}

std::string OpenWindow::ValueOf(int k) const {
  const Field& f = fields_[k];
  std::string v(f.value);
  while (!v.empty() && v.back() == ' ') v.pop_back();
  return v;
}

void OpenWindow::SetValue(int k, const std::string& value) {
  Field& f = fields_[k];
  const int width = std::max(f.width, 1);
  std::memset(f.value, ' ', width);
  std::memcpy(f.value, value.data(), std::min<std::size_t>(value.size(), width));
  f.value[width] = '\0';
}

bool OpenWindow::SelectRow(int k, int row_number) {
  return SelectRows(k, {row_number});
}

bool OpenWindow::SelectRows(int k, const std::vector<int>& row_numbers) {
  Field& f = fields_[k];
  for (int n : row_numbers) {
    bool shown = false;
    for (const ListRow& r : f.rows) shown = shown || r.row_number == n;
    if (!shown) return false;
  }
  for (ListRow& r : f.rows) {
    const bool chosen =
        std::find(row_numbers.begin(), row_numbers.end(), r.row_number) != row_numbers.end();
    r.flag = chosen ? (row_numbers.size() == 1 ? 'C' : 'S') : ' ';
  }
  return true;
}

bool OpenWindow::HasSelection(int k) const {
  for (const ListRow& r : fields_[k].rows)
    if (r.flag == 'S' || r.flag == 'C') return true;
  return false;
}

// ---- The ScreenPort: what the module's transport functions call ----

struct ScreenPortImpl {
  static OpenWindow* Self(lk::HostWindow* w) { return static_cast<OpenWindow*>(w->self); }
  static Field* ListField(lk::HostWindow* w, int list) {
    OpenWindow* self = Self(w);
    if (list < 0 || list >= static_cast<int>(self->fields_.size())) return nullptr;
    return &self->fields_[list];
  }

  static char** FieldTable(lk::HostWindow* w) { return Self(w)->field_table_.data(); }
  static void ListReset(lk::HostWindow* w, int list) {
    if (Field* f = ListField(w, list)) f->rows.clear();
  }
  static void ListReserve(lk::HostWindow* w, int list, int count) {
    if (Field* f = ListField(w, list)) f->rows.reserve(count > 0 ? count : 0);
  }
  static void ListRowAdd(lk::HostWindow* w, int list, const char* row, int row_size,
                         int row_number) {
    if (Field* f = ListField(w, list)) f->rows.push_back({row_number, std::string(row, row_size), ' '});
  }
  static int ListRowRead(lk::HostWindow* w, int list, int start, char* row, int row_size,
                         int* row_number) {
    Field* f = ListField(w, list);
    if (f == nullptr || start < 0 || start >= static_cast<int>(f->rows.size())) return -1;
    const ListRow& r = f->rows[start];
    std::memset(row, 0, row_size);
    std::memcpy(row, r.buffer.data(), std::min<std::size_t>(r.buffer.size(), row_size));
    *row_number = r.row_number;
    return start;
  }
  static void ListFlagsRead(lk::HostWindow* w, int list, char* flags, int stride, int count) {
    Field* f = ListField(w, list);
    if (f == nullptr) return;
    for (const ListRow& r : f->rows) {
      if (r.row_number < 1 || r.row_number > count) continue;
      flags[r.row_number * stride] = r.flag;
    }
  }
  static void ListFlagsWrite(lk::HostWindow* w, int list, const char* flags, int stride,
                             int count) {
    Field* f = ListField(w, list);
    if (f == nullptr) return;
    for (ListRow& r : f->rows) {
      if (r.row_number < 1 || r.row_number > count) continue;
      const char mark = flags[r.row_number * stride];
      r.flag = (mark == 'S' || mark == 'C') ? mark : ' ';
    }
  }
  static void OptionSet(lk::HostWindow* w, int field, int position) {
    if (Field* f = ListField(w, field)) f->option = position;
  }
  static int OptionGet(lk::HostWindow* w, int field) {
    Field* f = ListField(w, field);
    return f == nullptr ? -1 : f->option;
  }
};

const lk::ScreenPort OpenWindow::kPort = {
    ScreenPortImpl::FieldTable,    ScreenPortImpl::ListReset,     ScreenPortImpl::ListReserve,
    ScreenPortImpl::ListRowAdd,    ScreenPortImpl::ListRowRead,   ScreenPortImpl::ListFlagsRead,
    ScreenPortImpl::ListFlagsWrite, ScreenPortImpl::OptionSet,    ScreenPortImpl::OptionGet,
};

}  // namespace watrix
