// Building the WINDOW JSON of an open window. The texts of the window
// (title, labels, button texts, column headings, option texts of the string
// table) go out exactly as the dialog template has them, trailing and inner
// blanks included; values and list cells lose their trailing blanks.
#include "host/screen.h"

#include <cstdio>
#include <cstring>
#include <set>
#include <string>

#include "frame/views.h"
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

std::string Display(const char* bytes) {
  std::string d(bytes, lk::kDisplayWidth);
  for (char& c : d)
    if (c == '\0') c = ' ';
  return d;
}

std::string TrimRight(std::string s) {
  while (!s.empty() && (s.back() == ' ' || s.back() == '\0')) s.pop_back();
  return s;
}

void Place(nlohmann::json* c, const DialogControl* r) {
  (*c)["x"] = r != nullptr ? r->x : 0;
  (*c)["y"] = r != nullptr ? r->y : 0;
  (*c)["w"] = r != nullptr ? r->w : 0;
  (*c)["h"] = r != nullptr ? r->h : 0;
}

nlohmann::json Options(const Field& f, const ModuleImage& module) {
  nlohmann::json options = nlohmann::json::array();
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
    std::string text = TrimRight(p->literal);
    // A drop-down's item i holds the string-table id of its text, given as
    // the string table has it.
    if (f.tag == lk::kTagDropDown && items != nullptr) {
      const lk::u32* item = items;
      for (int k = 0; k < i && *item != 0; ++k) ++item;
      if (*item != 0) {
        auto s = module.resources().strings.find(*item & 0xFFFF);
        if (s != module.resources().strings.end()) text = s->second;
      }
    }
    options.push_back({{"value", lk::Cp1252ToUtf8(TrimRight(p->literal))},
                       {"text", lk::Cp1252ToUtf8(text)}});
  }
  return options;
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

}  // namespace

nlohmann::json WindowJson(const OpenWindow& window, const ModuleImage& module,
                          const char* procedure_name) {
  const Dialog* dialog = window.dialog();
  nlohmann::json w;
  w["name"] = window.row()->name;
  w["title"] = dialog != nullptr ? lk::Cp1252ToUtf8(dialog->title) : window.row()->name;
  w["procedure"] = procedure_name;
  w["kind"] = window.row()->kind;
  w["width"] = dialog != nullptr ? dialog->width : 316;
  w["height"] = dialog != nullptr ? dialog->height : 200;
  nlohmann::json controls = nlohmann::json::array();
  std::set<lk::u32> listed;
  for (std::size_t k = 0; k < window.fields().size(); ++k) {
    const Field& f = window.fields()[k];
    const lk::u32 id = f.control->control_id;
    listed.insert(id);
    const DialogControl* r = dialog != nullptr ? dialog->Find(id) : nullptr;
    nlohmann::json c;
    c["id"] = id;
    c["name"] = f.control->control_name != nullptr ? f.control->control_name : "";
    c["type"] = TypeOf(f.tag);
    std::string label;
    if (f.tag == lk::kTagButton || f.tag == lk::kTagScroll || f.tag == 0) {
      if (r != nullptr) label = r->text;
    } else if (f.control->label_id != 0 && dialog != nullptr) {
      if (const DialogControl* l = dialog->Find(f.control->label_id)) {
        label = l->text;
        listed.insert(l->id);
      }
    } else if (f.tag == lk::kTagCheck && r != nullptr) {
      // A check box without a static of its own is labelled by its own text.
      label = r->text;
    }
    c["label"] = lk::Cp1252ToUtf8(label);
    c["attribute"] = f.attribute.empty() ? nlohmann::json(nullptr) : nlohmann::json(f.attribute);
    const lk::ActionControlRow* a = window.ActionOf(id);
    c["keyword"] = (a != nullptr && a->command != nullptr && a->command[0] != '\0')
                       ? nlohmann::json(a->command)
                       : nlohmann::json(nullptr);
    Place(&c, r);
    c["enabled"] = window.Enabled(id);
    const std::string display = Display(f.buffer.data());
    const bool field = f.tag != lk::kTagButton && f.tag != lk::kTagScroll && f.tag != 0 &&
                       f.tag != lk::kTagList && f.tag != lk::kTagColumnDropDown;
    c["value"] = field ? lk::Cp1252ToUtf8(TrimRight(f.value)) : "";
    c["display"] = field ? display : "      ";
    c["focus"] = field && display[1] == 'i';
    c["error"] = field && display.compare(0, 2, "10") == 0;
    c["protected"] = f.tag == lk::kTagProtected || (field && display[1] == 'g');
    if (r != nullptr && r->is_default) c["default"] = true;
    if (r != nullptr && r->multiple) c["multiple"] = true;
    if (f.tag == lk::kTagRadio || f.tag == lk::kTagDropDown || f.tag == lk::kTagCheck) {
      nlohmann::json options = Options(f, module);
      if (f.option >= 0 && f.option < static_cast<int>(options.size()))
        c["value"] = options[f.option]["value"];
      c["options"] = std::move(options);
    }
    if (f.tag == lk::kTagList || f.tag == lk::kTagColumnDropDown) {
      const auto* list = static_cast<const lk::ListDescriptor*>(f.control->descriptor);
      nlohmann::json columns = nlohmann::json::array();
      std::vector<std::pair<int, const lk::AttributeType*>> cuts;  // value offset, type
      int offset = 0;
      for (const lk::ListColumnRow* col = list->columns; col != nullptr && col->right_edge != 0;
           ++col) {
        std::string heading;
        nlohmann::json attribute = nullptr;
        if (dialog != nullptr) {
          if (const DialogControl* h = dialog->Find(col->heading_id)) {
            heading = h->text;
            if (!h->attribute.empty()) attribute = h->attribute;
            listed.insert(h->id);
          }
        }
        columns.push_back({{"heading", lk::Cp1252ToUtf8(heading)},
                           {"attribute", std::move(attribute)},
                           {"right", col->right_edge},
                           {"align", std::string(1, static_cast<char>(col->alignment))}});
        cuts.emplace_back(offset + lk::kDisplayWidth, &col->type);
        offset += lk::kDisplayWidth + ColumnStorage(col->type);
      }
      nlohmann::json rows = nlohmann::json::array();
      for (const ListRow& lr : f.rows) {
        nlohmann::json cells = nlohmann::json::array();
        for (auto [at, type] : cuts) {
          std::string cell;
          if (at + ColumnStorage(*type) <= static_cast<int>(lr.buffer.size()))
            cell = CellText(*type, lr.buffer.data() + at);
          cells.push_back(lk::Cp1252ToUtf8(cell));
        }
        rows.push_back({{"row", lr.row_number},
                        {"cells", std::move(cells)},
                        {"selected", lr.flag == 'S' || lr.flag == 'C'}});
      }
      c["columns"] = std::move(columns);
      c["rows"] = std::move(rows);
    }
    controls.push_back(std::move(c));
  }
  // Static texts and group boxes, in template order.
  if (dialog != nullptr) {
    for (const DialogControl& r : dialog->controls) {
      if (r.kind != "static" && r.kind != "group") continue;
      nlohmann::json c;
      c["id"] = r.id;
      std::string design;
      for (const lk::StaticItemRow* s = window.row()->statics; s != nullptr && s->id_kind != 0; ++s)
        if ((s->id_kind >> 16) == r.id && s->design_name != nullptr) design = s->design_name;
      c["name"] = design;
      c["type"] = r.kind;
      c["label"] = lk::Cp1252ToUtf8(r.text);
      c["attribute"] = nullptr;
      c["keyword"] = nullptr;
      Place(&c, &r);
      c["align"] = r.center ? "C" : "L";
      c["enabled"] = true;
      c["value"] = "";
      c["display"] = "      ";
      c["focus"] = false;
      c["error"] = false;
      c["protected"] = false;
      controls.push_back(std::move(c));
    }
  }
  w["controls"] = std::move(controls);
  return w;
}

}  // namespace watrix
