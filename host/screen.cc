// Building the WINDOW JSON of an open window. The texts of the window
// (title, labels, button texts, column headings, option texts of the string
// table) go out exactly as the dialog template has them, trailing and inner
// blanks included; values and list cells lose their trailing blanks.
#include "host/screen.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "frame/views.h"
#include "host/screen_text.h"
#include "services/cp1252.h"
#include "services/timestamp.h"

namespace watrix {

namespace {

const char* TypeOf(std::uint16_t tag) {
  switch (tag) {
    case lk::kTagEntry: return "edit";
    case lk::kTagProtected: return "readonly";
    case lk::kTagMultiline: return "multiline";
    case lk::kTagRadio: return "radio";
    case lk::kTagDropDown: return "combo";
    case lk::kTagList: return "list";
    case lk::kTagColumnDropDown: return "combo";
    case lk::kTagCheck: return "check";
    case lk::kTagScroll: return "picture";
    default: return "button";
  }
}

std::string TrimRight(std::string s) {
  while (!s.empty() && (s.back() == ' ' || s.back() == '\0')) s.pop_back();
  return s;
}

// Bytes a column's value takes in a list row: the view's own storage.
int ColumnStorage(const lk::AttributeType& type) {
  switch (type.type_letter != nullptr ? type.type_letter[0] : 'S') {
    case 'B':
    case 'I':
      return 8;
    case 'L':
      return 4;
    case 'Q':
      return lk::kTimestampStorage;
    default:
      return static_cast<int>(type.length & 0xFFFF) + 1;
  }
}

// A number cell ('B', 'I' or 'L') as shown, into `text` (at least
// kNumberText bytes): decimal without leading zeros, with the type's
// places ("%.*f"), and 0 blank. Answers its length.
constexpr std::size_t kNumberText = 352;
std::size_t NumberText(const lk::AttributeType& type, const char* bytes, char* text) {
  std::to_chars_result r{text, {}};
  if (type.type_letter[0] == 'L') {
    std::int32_t v;
    std::memcpy(&v, bytes, sizeof v);
    if (v == 0) return 0;
    r = std::to_chars(text, text + kNumberText, v);
  } else {
    double v;
    std::memcpy(&v, bytes, sizeof v);
    if (v == 0) return 0;
    r = std::to_chars(text, text + kNumberText, v, std::chars_format::fixed,
                      static_cast<int>(type.length >> 16));
  }
  return r.ec == std::errc() ? static_cast<std::size_t>(r.ptr - text) : 0;
}

// A list cell as shown: texts trimmed, numbers in decimal without leading
// zeros (0 shows blank), timestamps through their picture.
std::string CellText(const lk::AttributeType& type, const char* bytes) {
  switch (type.type_letter != nullptr ? type.type_letter[0] : 'S') {
    case 'B':
    case 'I':
    case 'L': {
      char text[kNumberText];
      return std::string(text, NumberText(type, bytes, text));
    }
    case 'Q': {
      if (bytes[0] == '\0') return "";
      if (type.picture == nullptr || type.picture[0] == '\0') return std::string(bytes, 20);
      char shown[27];
      lk::TimestampToPicture(bytes, shown);
      return shown;
    }
    default:
      return TrimRight(std::string(bytes, strnlen(bytes, ColumnStorage(type))));
  }
}

using screen_text::AppendBool;
using screen_text::AppendCp1252;
using screen_text::AppendInt;
using screen_text::AppendString;

// Trailing blanks and NULs off.
std::string_view TrimmedView(std::string_view s) {
  while (!s.empty() && (s.back() == ' ' || s.back() == '\0')) s.remove_suffix(1);
  return s;
}

// The geometry of a control: its last keys, as they sort after all others.
void AppendPlace(std::string* out, const DialogControl* r) {
  out->append(",\"w\":");
  AppendInt(out, r != nullptr ? r->w : 0);
  out->append(",\"x\":");
  AppendInt(out, r != nullptr ? r->x : 0);
  out->append(",\"y\":");
  AppendInt(out, r != nullptr ? r->y : 0);
}

// A list cell as CellText shows it, as a JSON string.
void AppendCell(std::string* out, const lk::AttributeType& type, const char* bytes) {
  switch (type.type_letter != nullptr ? type.type_letter[0] : 'S') {
    case 'B':
    case 'I':
    case 'L': {
      // Digits, sign and point need no escaping.
      char text[kNumberText];
      const std::size_t n = NumberText(type, bytes, text);
      out->push_back('"');
      out->append(text, n);
      out->push_back('"');
      return;
    }
    case 'Q':
      AppendCp1252(out, CellText(type, bytes));
      return;
    default:
      AppendCp1252(out, TrimmedView(std::string_view(bytes, strnlen(bytes, ColumnStorage(type)))));
  }
}

// The option values and texts of a radio group, drop-down or check box, as
// the SCREEN shows them: 1252 texts.
struct OptionText {
  std::string value;
  std::string text;
};

std::vector<OptionText> OptionTexts(const Field& f, const ModuleImage& module) {
  std::vector<OptionText> options;
  const lk::ValueDictionary* values = nullptr;
  const lk::u32* items = nullptr;
  if (f.tag == lk::kTagRadio || f.tag == lk::kTagDropDown) {
    const auto* d = static_cast<const lk::ItemDescriptor*>(f.control->descriptor);
    values = d->values;
    items = static_cast<const lk::u32*>(d->items);
  } else if (f.tag == lk::kTagCheck) {
    values = static_cast<const lk::CheckDescriptor*>(f.control->descriptor)->values;
  }
  if (values == nullptr || values->permitted == nullptr) return options;
  int i = 0;
  for (const lk::PermittedRow* p = values->permitted; p->literal != nullptr; ++p, ++i) {
    OptionText o;
    o.value = TrimRight(p->literal);
    o.text = o.value;
    // A drop-down's item i holds the string-table id of its text, given as
    // the string table has it.
    if (f.tag == lk::kTagDropDown && items != nullptr) {
      const lk::u32* item = items;
      for (int k = 0; k < i && *item != 0; ++k) ++item;
      if (*item != 0) {
        auto s = module.resources().strings.find(*item & 0xFFFF);
        if (s != module.resources().strings.end()) o.text = s->second;
      }
    }
    options.push_back(std::move(o));
  }
  return options;
}

// A list column's value in a row's buffer: where it starts, and its type.
struct Cut {
  int at;
  const lk::AttributeType* type;
  int storage;  // ColumnStorage(*type)
  bool text;    // a text column, not a number or a timestamp
};

// The length of `bytes` without its trailing blanks, eight at a time: a
// text column is blank-padded to its whole storage.
std::size_t TrimmedLength(const char* bytes, std::size_t n) {
  constexpr std::uint64_t kBlanks = 0x2020202020202020ULL;
  while (n >= 8) {
    std::uint64_t word;
    std::memcpy(&word, bytes + n - 8, 8);
    if (word != kBlanks) break;
    n -= 8;
  }
  while (n > 0 && bytes[n - 1] == ' ') --n;
  return n;
}

}  // namespace

// The CONTROL of field k, keys in sorted order as a json object keeps them,
// cut where the values that change go in: head, display, enabled, error,
// focus, middle, protected, rows (lists), tail, value, place.
struct WindowLayouts::Control {
  lk::u32 id = 0;
  bool value_field = false;       // shows a value and its display bytes
  bool list = false;
  bool always_protected = false;  // a read-only field
  std::string head;    // {"attribute":..[,"columns":[..]][,"default":true],"display":
  std::string middle;  // ,"h":..,"id":..,"keyword":..,"label":..[,"multiple":true],"name":..
                       // [,"options":[..]],"protected":
  std::string tail;    // ,"type":"..","value":
  std::string place;   // ,"w":..,"x":..,"y":..}
  std::vector<std::string> option_values;  // as JSON strings
  std::vector<Cut> cuts;                   // lists
};

struct WindowLayouts::Window {
  std::vector<Control> fields;  // field k of the window
  std::string statics;        // the static texts and group boxes, comma-separated
  std::string before_procedure;  // ],"height":..,"kind":..,"name":..,"procedure":
  std::string after_procedure;   // ,"title":..,"width":..}
};

namespace {

WindowLayouts::Control FieldLayout(const OpenWindow& window, const Field& f,
                                 const ModuleImage& module) {
  WindowLayouts::Control L;
  const Dialog* dialog = window.dialog();
  const lk::u32 id = f.control->control_id;
  const DialogControl* r = dialog != nullptr ? dialog->Find(id) : nullptr;
  L.id = id;
  L.list = f.tag == lk::kTagList || f.tag == lk::kTagColumnDropDown;
  L.value_field = f.tag != lk::kTagButton && f.tag != lk::kTagScroll && f.tag != 0 && !L.list;
  L.always_protected = f.tag == lk::kTagProtected;
  const bool has_options =
      f.tag == lk::kTagRadio || f.tag == lk::kTagDropDown || f.tag == lk::kTagCheck;

  std::string* out = &L.head;
  out->append("{\"attribute\":");
  if (f.attribute.empty()) {
    out->append("null");
  } else {
    AppendString(out, f.attribute);
  }
  if (L.list) {
    const auto* list = static_cast<const lk::ListDescriptor*>(f.control->descriptor);
    out->append(",\"columns\":[");
    int offset = 0;
    bool first = true;
    for (const lk::ListColumnRow* col = list->columns; col != nullptr && col->right_edge != 0;
         ++col) {
      const DialogControl* h = dialog != nullptr ? dialog->Find(col->heading_id) : nullptr;
      if (!first) out->push_back(',');
      first = false;
      out->append("{\"align\":");
      const char align = static_cast<char>(col->alignment);
      AppendString(out, std::string_view(&align, 1));
      out->append(",\"attribute\":");
      if (h != nullptr && !h->attribute.empty()) {
        AppendString(out, h->attribute);
      } else {
        out->append("null");
      }
      out->append(",\"heading\":");
      AppendCp1252(out, h != nullptr ? std::string_view(h->text) : std::string_view());
      out->append(",\"right\":");
      AppendInt(out, col->right_edge);
      out->push_back('}');
      const char letter = col->type.type_letter != nullptr ? col->type.type_letter[0] : 'S';
      L.cuts.push_back({offset + lk::kDisplayWidth, &col->type, ColumnStorage(col->type),
                        letter != 'B' && letter != 'I' && letter != 'L' && letter != 'Q'});
      offset += lk::kDisplayWidth + ColumnStorage(col->type);
    }
    out->push_back(']');
  }
  if (r != nullptr && r->is_default) out->append(",\"default\":true");
  out->append(",\"display\":");

  out = &L.middle;
  out->append(",\"h\":");
  AppendInt(out, r != nullptr ? r->h : 0);
  out->append(",\"id\":");
  AppendInt(out, id);
  out->append(",\"keyword\":");
  const lk::ActionControlRow* a = window.ActionOf(id);
  if (a != nullptr && a->command != nullptr && a->command[0] != '\0') {
    AppendString(out, a->command);
  } else {
    out->append("null");
  }
  std::string_view label;
  if (f.tag == lk::kTagButton || f.tag == lk::kTagScroll || f.tag == 0) {
    if (r != nullptr) label = r->text;
  } else if (f.control->label_id != 0 && dialog != nullptr) {
    if (const DialogControl* l = dialog->Find(f.control->label_id)) label = l->text;
  } else if (f.tag == lk::kTagCheck && r != nullptr) {
    // A check box without a static of its own is labelled by its own text.
    label = r->text;
  }
  out->append(",\"label\":");
  AppendCp1252(out, label);
  if (r != nullptr && r->multiple) out->append(",\"multiple\":true");
  out->append(",\"name\":");
  AppendString(out, f.control->control_name != nullptr ? f.control->control_name : "");
  if (has_options) {
    const std::vector<OptionText> options = OptionTexts(f, module);
    out->append(",\"options\":[");
    for (std::size_t i = 0; i < options.size(); ++i) {
      if (i > 0) out->push_back(',');
      out->append("{\"text\":");
      AppendCp1252(out, options[i].text);
      out->append(",\"value\":");
      std::string value;
      AppendCp1252(&value, options[i].value);
      out->append(value);
      out->push_back('}');
      L.option_values.push_back(std::move(value));
    }
    out->push_back(']');
  }
  out->append(",\"protected\":");

  L.tail.append(",\"type\":");
  AppendString(&L.tail, TypeOf(f.tag));
  L.tail.append(",\"value\":");
  AppendPlace(&L.place, r);
  L.place.push_back('}');
  return L;
}

// The CONTROL of a static text or group box of the template: nothing in it
// changes.
void AppendStatic(std::string* out, const OpenWindow& window, const DialogControl& r) {
  std::string_view design;
  for (const lk::StaticItemRow* s = window.row()->statics; s != nullptr && s->id_kind != 0; ++s)
    if ((s->id_kind >> 16) == r.id && s->design_name != nullptr) design = s->design_name;
  out->append(r.center ? "{\"align\":\"C\"" : "{\"align\":\"L\"");
  out->append(
      ",\"attribute\":null,\"display\":\"      \",\"enabled\":true,\"error\":false,"
      "\"focus\":false,\"h\":");
  AppendInt(out, r.h);
  out->append(",\"id\":");
  AppendInt(out, r.id);
  out->append(",\"keyword\":null,\"label\":");
  AppendCp1252(out, r.text);
  out->append(",\"name\":");
  AppendString(out, design);
  out->append(",\"protected\":false,\"type\":");
  AppendString(out, r.kind);
  out->append(",\"value\":\"\"");
  AppendPlace(out, &r);
  out->push_back('}');
}

std::unique_ptr<WindowLayouts::Window> MakeLayout(const OpenWindow& window,
                                                  const ModuleImage& module) {
  auto layout = std::make_unique<WindowLayouts::Window>();
  const Dialog* dialog = window.dialog();
  for (const Field& f : window.fields()) layout->fields.push_back(FieldLayout(window, f, module));
  // Static texts and group boxes, in template order.
  if (dialog != nullptr) {
    for (const DialogControl& r : dialog->controls) {
      if (r.kind != "static" && r.kind != "group") continue;
      if (!layout->statics.empty()) layout->statics.push_back(',');
      AppendStatic(&layout->statics, window, r);
    }
  }
  std::string* out = &layout->before_procedure;
  out->append("],\"height\":");
  AppendInt(out, dialog != nullptr ? dialog->height : 200);
  out->append(",\"kind\":");
  AppendString(out, window.row()->kind);
  out->append(",\"name\":");
  AppendString(out, window.row()->name);
  out->append(",\"procedure\":");
  out = &layout->after_procedure;
  out->append(",\"title\":");
  if (dialog != nullptr) {
    AppendCp1252(out, dialog->title);
  } else {
    AppendString(out, window.row()->name);
  }
  out->append(",\"width\":");
  AppendInt(out, dialog != nullptr ? dialog->width : 316);
  out->push_back('}');
  return layout;
}

// The rows of a list: {"cells":[..],"row":N,"selected":B}, comma-separated.
// A list may show thousands of rows, so the plain case is written by hand:
// each row is put together in a buffer on the stack and appended at once. A
// text cell of plain bytes (screen_text::kPlainBytes) is copied as it is;
// any other cell (an escape, a character beyond ASCII, a number, a
// timestamp) goes through AppendCell.
void AppendRows(std::string* out, const Field& f, const std::vector<Cut>& cuts) {
  constexpr std::size_t kBuffer = 2048;
  constexpr std::size_t kRoom = 64;  // the most that a row's own keys take at once
  char buffer[kBuffer];
  char* p = buffer;
  auto flush = [&] {
    out->append(buffer, p - buffer);
    p = buffer;
  };
  auto put = [&](const char* text, std::size_t n) {
    std::memcpy(p, text, n);
    p += n;
  };
  bool first = true;
  for (const ListRow& lr : f.rows) {
    if (static_cast<std::size_t>(buffer + kBuffer - p) < kRoom) flush();
    if (first) {
      put("{\"cells\":[", 10);
    } else {
      put(",{\"cells\":[", 11);
    }
    first = false;
    bool first_cell = true;
    for (const Cut& cut : cuts) {
      if (!first_cell) *p++ = ',';
      first_cell = false;
      if (cut.at + cut.storage > static_cast<int>(lr.buffer.size())) {
        put("\"\"", 2);
        continue;
      }
      const char* bytes = lr.buffer.data() + cut.at;
      bool plain = cut.text;
      std::size_t n = 0;
      if (plain) {
        n = TrimmedLength(bytes, strnlen(bytes, cut.storage));
        for (std::size_t k = 0; k < n && plain; ++k)
          plain = screen_text::kPlainBytes.plain[static_cast<unsigned char>(bytes[k])];
      }
      if (!plain) {
        flush();
        AppendCell(out, *cut.type, bytes);
        continue;
      }
      if (static_cast<std::size_t>(buffer + kBuffer - p) < n + kRoom) {
        flush();
        if (n + kRoom > kBuffer) {
          out->push_back('"');
          out->append(bytes, n);
          out->push_back('"');
          continue;
        }
      }
      *p++ = '"';
      put(bytes, n);
      *p++ = '"';
    }
    put("],\"row\":", 8);
    p = std::to_chars(p, buffer + kBuffer, lr.row_number).ptr;
    if (lr.flag == 'S' || lr.flag == 'C') {
      put(",\"selected\":true}", 17);
    } else {
      put(",\"selected\":false}", 18);
    }
  }
  flush();
}

// The CONTROL of field f: its layout with the values of now.
void AppendField(std::string* out, const OpenWindow& window, const Field& f,
                 const WindowLayouts::Control& L) {
  const bool field = L.value_field;
  char display[lk::kDisplayWidth];
  out->append(L.head);
  if (field) {
    for (int k = 0; k < lk::kDisplayWidth; ++k)
      display[k] = f.buffer[k] == '\0' ? ' ' : f.buffer[k];
    AppendString(out, std::string_view(display, lk::kDisplayWidth));
  } else {
    std::fill(display, display + lk::kDisplayWidth, ' ');
    out->append("\"      \"");
  }
  out->append(window.Enabled(L.id) ? ",\"enabled\":true" : ",\"enabled\":false");
  out->append(field && display[0] == '1' && display[1] == '0' ? ",\"error\":true"
                                                               : ",\"error\":false");
  out->append(field && display[1] == 'i' ? ",\"focus\":true" : ",\"focus\":false");
  out->append(L.middle);
  AppendBool(out, L.always_protected || (field && display[1] == 'g'));
  if (L.list) {
    out->append(",\"rows\":[");
    AppendRows(out, f, L.cuts);
    out->push_back(']');
  }
  out->append(L.tail);
  if (f.option >= 0 && f.option < static_cast<int>(L.option_values.size())) {
    out->append(L.option_values[f.option]);
  } else if (field) {
    AppendCp1252(out, TrimmedView(f.value));
  } else {
    out->append("\"\"");
  }
  out->append(L.place);
}

}  // namespace

WindowLayouts::WindowLayouts() = default;
WindowLayouts::~WindowLayouts() = default;

const WindowLayouts::Window& WindowLayouts::Of(const OpenWindow& window,
                                               const ModuleImage& module) {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = windows_.find(window.row());
    if (it != windows_.end()) return *it->second;
  }
  // Made outside the lock; a second caller that made the same one keeps the
  // first.
  std::unique_ptr<Window> made = MakeLayout(window, module);
  std::lock_guard<std::mutex> lock(mutex_);
  return *windows_.emplace(window.row(), std::move(made)).first->second;
}

void AppendWindowJson(const OpenWindow& window, const ModuleImage& module,
                      const char* procedure_name, std::string* out) {
  const WindowLayouts::Window& layout = module.window_layouts().Of(window, module);
  out->append("{\"controls\":[");
  const std::vector<Field>& fields = window.fields();
  for (std::size_t k = 0; k < fields.size(); ++k) {
    if (k > 0) out->push_back(',');
    AppendField(out, window, fields[k], layout.fields[k]);
  }
  if (!layout.statics.empty()) {
    if (!fields.empty()) out->push_back(',');
    out->append(layout.statics);
  }
  out->append(layout.before_procedure);
  AppendString(out, procedure_name);
  out->append(layout.after_procedure);
}

}  // namespace watrix
