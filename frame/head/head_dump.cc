// Writing the text image of the tables under win_head; see head_dump.h.
#include "frame/head/head_dump.h"

#include <dlfcn.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <utility>

namespace lk {

namespace {

constexpr int kMaxRows = 100000;

// How far ahead of win_head the application block may lie and still count
// as standing directly ahead of it.
constexpr std::ptrdiff_t kMaxGap = 64;

// A row of the radio item table of a radio group (tag 5).
struct RadioItemRow {
  u32 item_control;  // item number high, the button's control id low
  u32 zero1;
  u32 zero2;
  const char* literal;
};

// ---- Values ----

std::string Dec(std::uint64_t v) { return std::to_string(v); }

std::string Hex(u32 v) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", v);
  return text;
}

std::string Hex16(std::uint16_t v) {
  char text[8];
  std::snprintf(text, sizeof text, "0x%04X", v);
  return text;
}

// A word that holds a character: the character when it is printable.
std::string Chr(u32 v) {
  if (v < 0x20 || v >= 0x7F) return Dec(v);
  if (v == '\'' || v == '\\') return std::string("'\\") + static_cast<char>(v) + "'";
  return std::string("'") + static_cast<char>(v) + "'";
}

// AttributeType.length: the digits or characters, and the decimals in the
// high half; hex as soon as there are decimals.
std::string Length(u32 v) { return (v >> 16) != 0 ? Hex(v) : Dec(v); }

std::string Quote(const char* s, std::size_t n) {
  std::string text = "\"";
  for (std::size_t i = 0; i < n; ++i) {
    const unsigned char c = static_cast<unsigned char>(s[i]);
    if (c == '"' || c == '\\') {
      text += '\\';
      text += static_cast<char>(c);
    } else if (c >= 0x20 && c < 0x7F) {
      text += static_cast<char>(c);
    } else {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\x%02X", c);
      text += escape;
    }
  }
  return text + "\"";
}

std::string Text(const char* s) { return s == nullptr ? "null" : Quote(s, std::strlen(s)); }

template <typename F>
std::string Fn(F f) {
  return f != nullptr ? "fn" : "null";
}

std::string Bytes(const void* p, std::size_t n) {
  std::string text;
  const auto* b = static_cast<const unsigned char*>(p);
  for (std::size_t i = 0; i < n; ++i) {
    char hex[4];
    std::snprintf(hex, sizeof hex, "%02x", b[i]);
    if (i != 0) text += ' ';
    text += hex;
  }
  return text;
}

bool AllZero(const void* p, std::size_t n) {
  const auto* b = static_cast<const unsigned char*>(p);
  for (std::size_t i = 0; i < n; ++i)
    if (b[i] != 0) return false;
  return true;
}

// A zeroed cell of `words` words that the runtime owns.
std::string Cell(const u32* cell, int words) {
  if (cell == nullptr) return "null";
  std::string text = "cell";
  for (int i = 0; i < words; ++i) text += " " + Dec(cell[i]);
  return text;
}

std::string Rows(int n) { return Dec(n) + (n == 1 ? " row" : " rows"); }

std::string At(const std::string& path, int i) { return path + "[" + Dec(i) + "]"; }

// ---- The image ----

class Image {
 public:
  void Put(const std::string& path, const std::string& value) {
    text_ += path;
    text_ += " = ";
    text_ += value;
    text_ += '\n';
  }

  // The row that ends an array: "end" when all its bytes are zero.
  template <typename T>
  void End(const std::string& path, const T& row) {
    Put(path, AllZero(&row, sizeof row) ? "end" : "end, bytes " + Bytes(&row, sizeof row));
  }

  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

// Writes the array `rows`: its row count at `path`, each row before the one
// for which is_end holds by `row` under `row_path`[i], then the ending row
// by `end`.
template <typename T, typename IsEnd, typename Row, typename EndRow>
void Array(Image& out, const std::string& path, const std::string& row_path, const T* rows,
           IsEnd is_end, Row row, EndRow end) {
  if (rows == nullptr) {
    out.Put(path, "null");
    return;
  }
  int n = 0;
  while (n < kMaxRows && !is_end(rows[n])) ++n;
  if (n == kMaxRows) {
    out.Put(path, "no end within " + Dec(kMaxRows) + " rows");
    return;
  }
  out.Put(path, Rows(n));
  for (int i = 0; i < n; ++i) row(At(row_path, i), rows[i]);
  end(At(row_path, n), rows[n]);
}

template <typename T, typename IsEnd, typename Row>
void Array(Image& out, const std::string& path, const T* rows, IsEnd is_end, Row row) {
  Array(out, path, path, rows, is_end, row,
        [&out](const std::string& p, const T& r) { out.End(p, r); });
}

// ---- Dictionary rows ----

void Permitted(Image& out, const std::string& path, const PermittedRow* rows) {
  Array(
      out, path, rows, [](const PermittedRow& r) { return r.literal == nullptr; },
      [&out](const std::string& p, const PermittedRow& r) {
        out.Put(p + ".literal", Text(r.literal));
        out.Put(p + ".zero", Dec(r.zero));
      });
}

void Type(Image& out, const std::string& path, const AttributeType& t) {
  out.Put(path + ".display_width", Dec(t.display_width));
  out.Put(path + ".type_letter", Text(t.type_letter));
  out.Put(path + ".length", Length(t.length));
  out.Put(path + ".picture", Text(t.picture));
  Permitted(out, path + ".permitted", t.permitted);
  out.Put(path + ".flags", Hex(t.flags));
  out.Put(path + ".reserved[0]", Dec(t.reserved[0]));
  out.Put(path + ".reserved[1]", Dec(t.reserved[1]));
}

void TypeRef(Image& out, const std::string& path, const AttributeType* t) {
  if (t == nullptr) {
    out.Put(path, "null");
    return;
  }
  out.Put(path, "ref");
  Type(out, path, *t);
}

void Attributes(Image& out, const std::string& path, const AttributeRow* rows) {
  Array(
      out, path, rows, [](const AttributeRow& r) { return r.attribute_name == nullptr; },
      [&out](const std::string& p, const AttributeRow& r) {
        out.Put(p + ".attribute_name", Text(r.attribute_name));
        out.Put(p + ".storage", Dec(r.storage));
        out.Put(p + ".import_location", Dec(r.import_location));
        out.Put(p + ".export_location", Dec(r.export_location));
        TypeRef(out, p + ".type", r.type);
      });
}

void ViewRows(Image& out, const std::string& path, const ViewRow* rows) {
  Array(
      out, path, rows, [](const ViewRow& r) { return r.view_name == nullptr; },
      [&out](const std::string& p, const ViewRow& r) {
        out.Put(p + ".view_name", Text(r.view_name));
        out.Put(p + ".occurs", Dec(r.occurs));
        out.Put(p + ".zero", Dec(r.zero));
        Attributes(out, p + ".attributes", r.attributes);
      });
}

void GroupRowFields(Image& out, const std::string& p, const GroupRow& r) {
  out.Put(p + ".group_name", Text(r.group_name));
  out.Put(p + ".view_range", Hex(r.view_range));
  out.Put(p + ".kind", Dec(r.kind));
  out.Put(p + ".count_location", Dec(r.count_location));
  out.Put(p + ".import_count_location", Dec(r.import_count_location));
  out.Put(p + ".reserved", Dec(r.reserved));
}

// The group rows end with the row named "*", which is written in full.
void GroupRows(Image& out, const std::string& path, const GroupRow* rows) {
  Array(
      out, path, path, rows,
      [](const GroupRow& r) {
        return r.group_name == nullptr || std::strcmp(r.group_name, "*") == 0;
      },
      [&out](const std::string& p, const GroupRow& r) { GroupRowFields(out, p, r); },
      [&out](const std::string& p, const GroupRow& r) {
        if (r.group_name == nullptr) {
          out.Put(p, "end without \"*\", bytes " + Bytes(&r, sizeof r));
          return;
        }
        GroupRowFields(out, p, r);
      });
}

// The view index. The arrays of a ViewNameRow that an earlier row already
// led to are named, not written again.
void ViewNames(Image& out, const std::string& path, const std::string& row_path,
               const ViewNameRow* rows) {
  std::map<const void*, std::string> seen;
  Array(
      out, path, row_path, rows, [](const ViewNameRow& r) { return r.key == nullptr; },
      [&out, &seen](const std::string& p, const ViewNameRow& r) {
        out.Put(p + ".key", Text(r.key));
        auto once = [&out, &seen](const std::string& field, const void* array, auto write) {
          auto it = array != nullptr ? seen.find(array) : seen.end();
          if (it != seen.end()) {
            out.Put(field, "same as " + it->second);
            return;
          }
          if (array != nullptr) seen[array] = field;
          write();
        };
        once(p + ".view_rows", r.view_rows, [&] { ViewRows(out, p + ".view_rows", r.view_rows); });
        once(p + ".group_rows", r.group_rows,
             [&] { GroupRows(out, p + ".group_rows", r.group_rows); });
        out.Put(p + ".procedure_id", Dec(r.procedure_id));
      },
      [&out](const std::string& p, const ViewNameRow& r) { out.End(p, r); });
}

// ---- Controls ----

void Values(Image& out, const std::string& path, const ValueDictionary* v) {
  if (v == nullptr) {
    out.Put(path, "null");
    return;
  }
  out.Put(path, "ref");
  Permitted(out, path + ".permitted", v->permitted);
  out.Put(path + ".type_letter", Text(v->type_letter));
  out.Put(path + ".length", Length(v->length));
  out.Put(path + ".word", Hex(v->word));
  out.Put(path + ".zero_cell", Cell(v->zero_cell, 1));
  out.Put(path + ".zero", Dec(v->zero));
}

void ListColumns(Image& out, const std::string& path, const ListColumnRow* rows) {
  Array(
      out, path, rows, [](const ListColumnRow& r) { return r.right_edge == 0; },
      [&out](const std::string& p, const ListColumnRow& r) {
        out.Put(p + ".heading_left", Hex(r.heading_left));
        out.Put(p + ".heading_right", Hex(r.heading_right));
        out.Put(p + ".right_edge", Dec(r.right_edge));
        out.Put(p + ".alignment", Chr(r.alignment));
        out.Put(p + ".offset_value", Dec(r.offset_value));
        out.Put(p + ".offset_end", Dec(r.offset_end));
        Type(out, p + ".type", r.type);
        out.Put(p + ".reserved13", Dec(r.reserved13));
        out.Put(p + ".heading_id", Dec(r.heading_id));
        out.Put(p + ".reserved15[0]", Dec(r.reserved15[0]));
        out.Put(p + ".reserved15[1]", Dec(r.reserved15[1]));
      });
}

void Items(Image& out, const std::string& path, std::uint16_t tag, const void* items) {
  if (tag == kTagRadio) {
    Array(
        out, path, static_cast<const RadioItemRow*>(items),
        [](const RadioItemRow& r) { return r.item_control == 0; },
        [&out](const std::string& p, const RadioItemRow& r) {
          out.Put(p + ".item_control", Hex(r.item_control));
          out.Put(p + ".zero1", Dec(r.zero1));
          out.Put(p + ".zero2", Dec(r.zero2));
          out.Put(p + ".literal", Text(r.literal));
        });
    return;
  }
  Array(
      out, path, static_cast<const u32*>(items), [](u32 w) { return w == 0; },
      [&out](const std::string& p, u32 w) { out.Put(p, Hex(w)); });
}

void Descriptor(Image& out, const std::string& path, const void* descriptor) {
  if (descriptor == nullptr) {
    out.Put(path, "null");
    return;
  }
  const std::uint16_t tag = DescriptorTag(descriptor);
  switch (tag) {
    case kTagEntry:
    case kTagProtected:
    case kTagMultiline: {
      const auto* d = static_cast<const FieldDescriptor*>(descriptor);
      out.Put(path, tag == kTagEntry       ? "entry field"
                    : tag == kTagProtected ? "protected field"
                                           : "multi-line field");
      out.Put(path + ".tag", Hex(d->tag));
      TypeRef(out, path + ".type", d->type);
      return;
    }
    case kTagRadio:
    case kTagDropDown: {
      const auto* d = static_cast<const ItemDescriptor*>(descriptor);
      out.Put(path, tag == kTagRadio ? "radio group" : "drop-down");
      out.Put(path + ".tag", Hex(d->tag));
      Items(out, path + ".items", tag, d->items);
      Values(out, path + ".values", d->values);
      return;
    }
    case kTagList:
    case kTagColumnDropDown: {
      const auto* d = static_cast<const ListDescriptor*>(descriptor);
      out.Put(path, tag == kTagList ? "list" : "column drop-down");
      out.Put(path + ".size_tag", Hex(d->size_tag));
      ListColumns(out, path + ".columns", d->columns);
      out.Put(path + ".heading_strip", Dec(d->heading_strip));
      out.Put(path + ".row_attribute_address", Fn(d->row_attribute_address));
      return;
    }
    case kTagCheck: {
      const auto* d = static_cast<const CheckDescriptor*>(descriptor);
      out.Put(path, "check box");
      out.Put(path + ".tag", Hex(d->tag));
      out.Put(path + ".two", Dec(d->two));
      Values(out, path + ".values", d->values);
      return;
    }
    case kTagScroll: {
      const auto* d = static_cast<const ScrollDescriptor*>(descriptor);
      out.Put(path, "scroll button");
      out.Put(path + ".tag", Hex(d->tag));
      out.Put(path + ".direction", Text(d->direction));
      out.Put(path + ".list", Hex(d->list));
      out.Put(path + ".constant", Hex(d->constant));
      return;
    }
    case kTagButton:
      // The single 16-bit word; the words behind it belong to other buttons.
      out.Put(path, "button");
      out.Put(path + ".tag", Hex16(tag));
      return;
    default:
      out.Put(path, "unknown tag " + Dec(tag));
      return;
  }
}

void Rules(Image& out, const std::string& path, const void* const* rules) {
  Array(
      out, path, rules, [](const void* r) { return r == nullptr; },
      [&out](const std::string& p, const void* r) {
        const auto* rule = static_cast<const RuleRecord*>(r);
        out.Put(p, "ref");
        out.Put(p + ".mode", Dec(rule->mode));
        out.Put(p + ".zero", Dec(rule->zero));
        out.Put(p + ".watched", Dec(rule->watched));
        for (int i = 0; i < 3; ++i) out.Put(p + ".end[" + Dec(i) + "]", Hex16(rule->end[i]));
      });
}

void Dependants(Image& out, const std::string& path, const u32* words) {
  constexpr u32 kEnd = 0xFFFF0000u;
  Array(
      out, path, path, words, [](u32 w) { return w == kEnd; },
      [&out](const std::string& p, u32 w) { out.Put(p, Hex(w)); },
      [&out](const std::string& p, u32 w) { out.Put(p, "end " + Hex(w)); });
}

// ---- Windows ----

void Actions(Image& out, const std::string& path, const ActionControlRow* rows) {
  Array(
      out, path, rows, [](const ActionControlRow& r) { return r.control_id == 0; },
      [&out](const std::string& p, const ActionControlRow& r) {
        out.Put(p + ".control_id", Dec(r.control_id));
        out.Put(p + ".command", Text(r.command));
        out.Put(p + ".action", Dec(r.action));
        Rules(out, p + ".enable_rule", static_cast<const void* const*>(r.enable_rule));
        out.Put(p + ".command_code", Hex(r.command_code));
        out.Put(p + ".control_type", Hex(r.control_type));
        out.Put(p + ".control_name", Text(r.control_name));
      });
}

// Whether a control's enable rule list is the one of its ActionControlRow.
std::string SharedWithAction(const ControlRow& c, const ActionControlRow* actions) {
  for (int i = 0; actions != nullptr && i < kMaxRows && actions[i].control_id != 0; ++i) {
    if (actions[i].control_id != c.control_id) continue;
    return actions[i].enable_rule == c.enable_rule ? "yes" : "no";
  }
  return "no action row";
}

void Controls(Image& out, const std::string& path, const ControlRow* rows,
              const ActionControlRow* actions) {
  Array(
      out, path, rows, [](const ControlRow& r) { return r.control_id == 0; },
      [&out, actions](const std::string& p, const ControlRow& r) {
        out.Put(p + ".control_id", Dec(r.control_id));
        Descriptor(out, p + ".descriptor", r.descriptor);
        Dependants(out, p + ".dependants", r.dependants);
        Rules(out, p + ".enable_rule", r.enable_rule);
        if (r.enable_rule != nullptr)
          out.Put(p + ".enable_rule.shared_with_action", SharedWithAction(r, actions));
        out.Put(p + ".label_id", Dec(r.label_id));
        out.Put(p + ".control_name", Text(r.control_name));
        out.Put(p + ".reserved", Dec(r.reserved));
      });
}

void Events(Image& out, const std::string& path, const EventRow* rows) {
  Array(
      out, path, rows, [](const EventRow& r) { return r.control_id == 0; },
      [&out](const std::string& p, const EventRow& r) {
        out.Put(p + ".control_id", Dec(r.control_id));
        out.Put(p + ".event_name", Text(r.event_name));
        out.Put(p + ".handler", Fn(r.handler));
        out.Put(p + ".command", Text(r.command));
        out.Put(p + ".map_first", Chr(r.map_first));
        out.Put(p + ".value_location", Dec(r.value_location));
        out.Put(p + ".value_form", Hex(r.value_form));
        out.Put(p + ".reserved", Dec(r.reserved));
      });
}

void EventParameters(Image& out, const std::string& path, const EventParameterRow* rows) {
  Array(
      out, path, rows, [](const EventParameterRow& r) { return r.control_id == 0; },
      [&out](const std::string& p, const EventParameterRow& r) {
        out.Put(p + ".control_id", Dec(r.control_id));
        out.Put(p + ".event_name", Text(r.event_name));
        out.Put(p + ".index", Dec(r.index));
        out.Put(p + ".parameter_name", Text(r.parameter_name));
        out.Put(p + ".value_location", Dec(r.value_location));
        out.Put(p + ".value_form", Hex(r.value_form));
        out.Put(p + ".zero", Dec(r.zero));
      });
}

void Statics(Image& out, const std::string& path, const StaticItemRow* rows) {
  Array(
      out, path, rows, [](const StaticItemRow& r) { return r.id_kind == 0; },
      [&out](const std::string& p, const StaticItemRow& r) {
        out.Put(p + ".id_kind", Hex(r.id_kind));
        out.Put(p + ".design_name", Text(r.design_name));
        out.Put(p + ".zero", Dec(r.zero));
      });
}

// A table that never has rows: only its first word can be read.
std::string SpareTable(const void* table) {
  if (table == nullptr) return "null";
  const u32 first = *static_cast<const u32*>(table);
  return first == 0 ? "empty table" : "table with first word " + Hex(first);
}

void Windows(Image& out, const std::string& path, const std::string& row_path,
             const WindowRow* rows) {
  Array(
      out, path, row_path, rows, [](const WindowRow& r) { return r.procedure_id == 0; },
      [&out](const std::string& p, const WindowRow& r) {
        out.Put(p + ".procedure_id", Dec(r.procedure_id));
        out.Put(p + ".dialog_id", Dec(r.dialog_id));
        Actions(out, p + ".actions", r.actions);
        Controls(out, p + ".controls", r.controls, r.actions);
        out.Put(p + ".read_window", Fn(r.read_window));
        out.Put(p + ".write_window", Fn(r.write_window));
        out.Put(p + ".kind", Text(r.kind));
        out.Put(p + ".mode", Text(r.mode));
        Events(out, p + ".events", r.events);
        out.Put(p + ".name", Text(r.name));
        out.Put(p + ".reserved11", Dec(r.reserved11));
        out.Put(p + ".reserved12", Dec(r.reserved12));
        Statics(out, p + ".statics", r.statics);
        EventParameters(out, p + ".event_parameters", r.event_parameters);
        out.Put(p + ".spare_table", SpareTable(r.spare_table));
        out.Put(p + ".reserved16", Dec(r.reserved16));
      },
      [&out](const std::string& p, const WindowRow& r) { out.End(p, r); });
}

// ---- Procedures and flows ----

void ExitRows(Image& out, const std::string& path, const ExitRow* rows) {
  Array(
      out, path, rows, [](const ExitRow& r) { return r.exit_state == 0 && r.flow_id == 0; },
      [&out](const std::string& p, const ExitRow& r) {
        out.Put(p + ".exit_state", Hex(r.exit_state));
        out.Put(p + ".flow_id", Hex(r.flow_id));
        out.Put(p + ".action", Chr(r.action));
      });
}

// Exactly one ReturnRow a flow; it has no ending row.
void Returns(Image& out, const std::string& path, const ReturnRow* r) {
  if (r == nullptr) {
    out.Put(path, "null");
    return;
  }
  out.Put(path, "ref");
  out.Put(path + ".reserved1", Dec(r->reserved1));
  out.Put(path + ".reserved2", Dec(r->reserved2));
  out.Put(path + ".exit_state", Hex(r->exit_state));
  out.Put(path + ".reserved4", Dec(r->reserved4));
  out.Put(path + ".reserved5", Dec(r->reserved5));
  out.Put(path + ".reserved6", Dec(r->reserved6));
}

void FlowRows(Image& out, const std::string& path, const FlowRow* rows) {
  Array(
      out, path, rows, [](const FlowRow& r) { return r.flow_id == 0; },
      [&out](const std::string& p, const FlowRow& r) {
        out.Put(p + ".flow_id", Hex(r.flow_id));
        out.Put(p + ".flow_kind", Text(r.flow_kind));
        out.Put(p + ".target_id", Dec(r.target_id));
        out.Put(p + ".target_name", Text(r.target_name));
        out.Put(p + ".send", Fn(r.send));
        out.Put(p + ".receive", Fn(r.receive));
        Returns(out, p + ".returns", r.returns);
        out.Put(p + ".on_mode", Text(r.on_mode));
        out.Put(p + ".on_command", Text(r.on_command));
        out.Put(p + ".return_mode", Text(r.return_mode));
        out.Put(p + ".return_command", Text(r.return_command));
        out.Put(p + ".reserved", Dec(r.reserved));
      });
}

// A procedure's shared cell: the root's, as every row should hold.
std::string SharedCell(const u32* cell, const u32* head_cell) {
  if (cell == nullptr) return "null";
  if (cell == head_cell) return "same as win_head.shared_cell, " + Cell(cell, 1);
  return "own " + Cell(cell, 1);
}

void Procedures(Image& out, const std::string& path, const std::string& row_path,
                const ProcedureRow* rows, const u32* head_cell) {
  Array(
      out, path, row_path, rows, [](const ProcedureRow& r) { return r.id == 0; },
      [&out, head_cell](const std::string& p, const ProcedureRow& r) {
        out.Put(p + ".id", Dec(r.id));
        out.Put(p + ".name", Text(r.name));
        out.Put(p + ".shared_cell", SharedCell(r.shared_cell, head_cell));
        out.Put(p + ".reserved4", Dec(r.reserved4));
        out.Put(p + ".import_size", Dec(r.import_size));
        out.Put(p + ".reserved6", Dec(r.reserved6));
        out.Put(p + ".export_size", Dec(r.export_size));
        out.Put(p + ".entry", Fn(r.entry));
        out.Put(p + ".flow_state", Cell(r.flow_state, 2));
        ExitRows(out, p + ".exit_rows", r.exit_rows);
        FlowRows(out, p + ".flow_rows", r.flow_rows);
        out.Put(p + ".import_to_export", Fn(r.import_to_export));
        out.Put(p + ".export_to_import", Fn(r.export_to_import));
        out.Put(p + ".import_unpack", Fn(r.import_unpack));
        out.Put(p + ".export_pack", Fn(r.export_pack));
        out.Put(p + ".trancode", Text(r.trancode));
        out.Put(p + ".short_name", Text(r.short_name));
      },
      [&out](const std::string& p, const ProcedureRow& r) { out.End(p, r); });
}

// ---- The name list ----

// Rows of kNameRowWidth characters up to the one that starts with "0", then
// what follows the list.
void NameList(Image& out, const std::string& path, const std::string& row_path, const char* list) {
  if (list == nullptr) {
    out.Put(path, "null");
    return;
  }
  int n = 0;
  const char* row = list;
  for (; n < kMaxRows; ++n, row += kNameRowWidth) {
    const std::size_t length = strnlen(row, kNameRowWidth);
    if (length < static_cast<std::size_t>(kNameRowWidth)) {
      out.Put(path, Rows(n) + ", then a row cut by NUL after " + Dec(length) +
                        " characters: " + Quote(row, length));
      return;
    }
    if (row[0] == '0') break;
  }
  if (n == kMaxRows) {
    out.Put(path, "no end within " + Dec(kMaxRows) + " rows");
    return;
  }
  out.Put(path, Rows(n));
  for (int i = 0; i < n; ++i)
    out.Put(At(row_path, i), Quote(list + i * kNameRowWidth, kNameRowWidth));
  out.Put(At(row_path, n), "end " + Quote(row, kNameRowWidth));
  out.Put(row_path + ".after_end",
          row[kNameRowWidth] == '\0' ? "NUL" : Quote(row + kNameRowWidth, 1));
}

// ---- The application block and the root ----

void Application(Image& out, const std::string& path, const std::string& row_path,
                 const WinHead& head) {
  const ApplicationBlock* a = head.application;
  if (a == nullptr) {
    out.Put(path, "null");
    return;
  }
  out.Put(path, "ref");
  out.Put(row_path + ".model_name", Text(a->model_name));
  out.Put(row_path + ".schema_word", Text(a->schema_word));
  out.Put(row_path + ".dbms", Text(a->dbms));
  out.Put(row_path + ".decimal_mark", Text(a->decimal_mark));
  out.Put(row_path + ".thousands_mark", Text(a->thousands_mark));
  out.Put(row_path + ".profile", Text(a->profile));
  out.Put(row_path + ".model_stamp", Text(a->model_stamp));
  out.Put(row_path + ".runtime_cell", Cell(a->runtime_cell, 1));
  out.Put(row_path + ".code_page", Text(a->code_page));
  for (int i = 0; i < 3; ++i) out.Put(row_path + ".reserved[" + Dec(i) + "]", Dec(a->reserved[i]));
  // Where the block stands: its end, the bytes up to win_head, win_head.
  const char* end = reinterpret_cast<const char*>(a + 1);
  const char* root = reinterpret_cast<const char*>(&head);
  const std::ptrdiff_t gap = root - end;
  if (gap < 0 || gap > kMaxGap) {
    out.Put(row_path + ".place", "not directly ahead of win_head");
    return;
  }
  out.Put(row_path + ".place", "directly ahead of win_head, " + Dec(gap) + " bytes between");
  if (gap > 0) out.Put(row_path + ".between", Bytes(end, static_cast<std::size_t>(gap)));
}

void Head(Image& out, const WinHead& head) {
  Procedures(out, "win_head.procedures", "procedures", head.procedures, head.shared_cell);
  Windows(out, "win_head.windows", "windows", head.windows);

  if (head.module_entry == nullptr) {
    out.Put("win_head.module_entry", "null");
  } else {
    out.Put("win_head.module_entry", "ref");
    out.Put("win_head.module_entry.module_name", Text(head.module_entry->module_name));
    for (int i = 0; i < 3; ++i)
      out.Put("win_head.module_entry.zero[" + Dec(i) + "]", Dec(head.module_entry->zero[i]));
  }

  if (head.dictionary == nullptr) {
    out.Put("win_head.dictionary", "null");
  } else {
    out.Put("win_head.dictionary", head.dictionary == head.module_entry + 1
                                       ? "directly behind module_entry"
                                       : "not directly behind module_entry");
    // Its first word: the view names the index leads to, as the index does.
    const void* first = *static_cast<const void* const*>(head.dictionary);
    const bool same = head.view_index != nullptr && first == head.view_index->view_names;
    out.Put("win_head.dictionary[0]", first == nullptr ? "null"
                                      : same           ? "same as win_head.view_index.view_names"
                                                       : "other reference");
  }

  out.Put("win_head.shared_cell", Cell(head.shared_cell, 1));

  if (head.view_index == nullptr) {
    out.Put("win_head.view_index", "null");
  } else {
    out.Put("win_head.view_index", "ref");
    out.Put("win_head.view_index.module_name", Text(head.view_index->module_name));
    ViewNames(out, "win_head.view_index.view_names", "view_names", head.view_index->view_names);
  }

  NameList(out, "win_head.name_list", "name_list", head.name_list);
  out.Put("win_head.reserved8", Dec(head.reserved8));
  Application(out, "win_head.application", "application", head);
  out.Put("win_head.reserved10", Dec(head.reserved10));
  out.Put("win_head.true_word", Chr(head.true_word));
  out.Put("win_head.false_word", Chr(head.false_word));
}

}  // namespace

const WinHead* LoadWinHead(const std::string& path, std::string* error) {
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    const char* why = dlerror();
    *error = why != nullptr ? why : "cannot load " + path;
    return nullptr;
  }
  const auto* head = static_cast<const WinHead*>(dlsym(library, "win_head"));
  if (head == nullptr) {
    *error = path + " has no win_head";
    dlclose(library);
    return nullptr;
  }
  return head;
}

std::string DumpWinHead(const WinHead& head) {
  Image out;
  Head(out, head);
  return out.Take();
}

}  // namespace lk
