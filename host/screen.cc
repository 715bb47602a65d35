// Building the WINDOW JSON of an open window. The texts of the window
// (title, labels, button texts, column headings, option texts of the string
// table) go out exactly as the dialog template has them, trailing and inner
// blanks included; values and list cells lose their trailing blanks.
#include "host/screen.h"

#include <algorithm>
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

// A list cell as shown: texts trimmed, numbers in decimal without leading
// zeros (0 shows blank), timestamps through their picture.
std::string CellText(const lk::AttributeType& type, const char* bytes) {
  switch (type.type_letter != nullptr ? type.type_letter[0] : 'S') {
    case 'B':
    case 'I': {
      double v;
      std::memcpy(&v, bytes, sizeof v);
      if (v == 0) return "";
      char text[64];
      std::snprintf(text, sizeof text, "%.*f", static_cast<int>(type.length >> 16), v);
      return text;
    }
    case 'L': {
      std::int32_t v;
      std::memcpy(&v, bytes, sizeof v);
      return v == 0 ? "" : std::to_string(v);
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
    case 'L':
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

// The CONTROL of field f; its keys in sorted order, as a json object keeps
// them.
void AppendField(std::string* out, const OpenWindow& window, const Field& f,
                 const ModuleImage& module) {
  const Dialog* dialog = window.dialog();
  const lk::u32 id = f.control->control_id;
  const DialogControl* r = dialog != nullptr ? dialog->Find(id) : nullptr;
  const bool list = f.tag == lk::kTagList || f.tag == lk::kTagColumnDropDown;
  const bool field = f.tag != lk::kTagButton && f.tag != lk::kTagScroll && f.tag != 0 && !list;
  const bool has_options =
      f.tag == lk::kTagRadio || f.tag == lk::kTagDropDown || f.tag == lk::kTagCheck;

  out->append("{\"attribute\":");
  if (f.attribute.empty()) {
    out->append("null");
  } else {
    AppendString(out, f.attribute);
  }

  const lk::ListDescriptor* list_descriptor =
      list ? static_cast<const lk::ListDescriptor*>(f.control->descriptor) : nullptr;
  // Where each column's value starts in a row's buffer, and its type.
  std::vector<std::pair<int, const lk::AttributeType*>> cuts;
  if (list) {
    out->append(",\"columns\":[");
    int offset = 0;
    bool first = true;
    for (const lk::ListColumnRow* col = list_descriptor->columns;
         col != nullptr && col->right_edge != 0; ++col) {
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
      cuts.emplace_back(offset + lk::kDisplayWidth, &col->type);
      offset += lk::kDisplayWidth + ColumnStorage(col->type);
    }
    out->push_back(']');
  }

  if (r != nullptr && r->is_default) out->append(",\"default\":true");

  char display[lk::kDisplayWidth];
  if (field) {
    for (int k = 0; k < lk::kDisplayWidth; ++k)
      display[k] = f.buffer[k] == '\0' ? ' ' : f.buffer[k];
  } else {
    std::fill(display, display + lk::kDisplayWidth, ' ');
  }
  out->append(",\"display\":");
  AppendString(out, std::string_view(display, lk::kDisplayWidth));
  out->append(",\"enabled\":");
  AppendBool(out, window.Enabled(id));
  out->append(",\"error\":");
  AppendBool(out, field && display[0] == '1' && display[1] == '0');
  out->append(",\"focus\":");
  AppendBool(out, field && display[1] == 'i');
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

  std::vector<OptionText> options;
  if (has_options) {
    options = OptionTexts(f, module);
    out->append(",\"options\":[");
    for (std::size_t i = 0; i < options.size(); ++i) {
      if (i > 0) out->push_back(',');
      out->append("{\"text\":");
      AppendCp1252(out, options[i].text);
      out->append(",\"value\":");
      AppendCp1252(out, options[i].value);
      out->push_back('}');
    }
    out->push_back(']');
  }

  out->append(",\"protected\":");
  AppendBool(out, f.tag == lk::kTagProtected || (field && display[1] == 'g'));

  if (list) {
    out->append(",\"rows\":[");
    bool first = true;
    for (const ListRow& lr : f.rows) {
      if (!first) out->push_back(',');
      first = false;
      out->append("{\"cells\":[");
      bool first_cell = true;
      for (auto [at, type] : cuts) {
        if (!first_cell) out->push_back(',');
        first_cell = false;
        if (at + ColumnStorage(*type) <= static_cast<int>(lr.buffer.size())) {
          AppendCell(out, *type, lr.buffer.data() + at);
        } else {
          out->append("\"\"");
        }
      }
      out->append("],\"row\":");
      AppendInt(out, lr.row_number);
      out->append(",\"selected\":");
      AppendBool(out, lr.flag == 'S' || lr.flag == 'C');
      out->push_back('}');
    }
    out->push_back(']');
  }

  out->append(",\"type\":");
  AppendString(out, TypeOf(f.tag));
  out->append(",\"value\":");
  if (has_options && f.option >= 0 && f.option < static_cast<int>(options.size())) {
    AppendCp1252(out, options[f.option].value);
  } else if (field) {
    AppendCp1252(out, TrimmedView(f.value));
  } else {
    out->append("\"\"");
  }
  AppendPlace(out, r);
  out->push_back('}');
}

// The CONTROL of a static text or group box of the template.
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

}  // namespace

void AppendWindowJson(const OpenWindow& window, const ModuleImage& module,
                      const char* procedure_name, std::string* out) {
  const Dialog* dialog = window.dialog();
  out->append("{\"controls\":[");
  bool first = true;
  for (const Field& f : window.fields()) {
    if (!first) out->push_back(',');
    first = false;
    AppendField(out, window, f, module);
  }
  // Static texts and group boxes, in template order.
  if (dialog != nullptr) {
    for (const DialogControl& r : dialog->controls) {
      if (r.kind != "static" && r.kind != "group") continue;
      if (!first) out->push_back(',');
      first = false;
      AppendStatic(out, window, r);
    }
  }
  out->append("],\"height\":");
  AppendInt(out, dialog != nullptr ? dialog->height : 200);
  out->append(",\"kind\":");
  AppendString(out, window.row()->kind);
  out->append(",\"name\":");
  AppendString(out, window.row()->name);
  out->append(",\"procedure\":");
  AppendString(out, procedure_name);
  out->append(",\"title\":");
  if (dialog != nullptr) {
    AppendCp1252(out, dialog->title);
  } else {
    AppendString(out, window.row()->name);
  }
  out->append(",\"width\":");
  AppendInt(out, dialog != nullptr ? dialog->width : 316);
  out->push_back('}');
}

}  // namespace watrix
