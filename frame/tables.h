// The design tables under win_head: the row types of the procedure, flow,
// window, control, event and view dictionary tables, in the field order the
// host reads them in.
//
// Contract: every array is ended by a row whose first field is zero, unless a
// type says otherwise (ModuleNameRow ends with a text row, ReturnRow needs no
// end). Text fields are NUL-terminated; "ref" fields are plain pointers to
// other constant tables; "fn" fields are function references with the calling
// shapes of frame/entry.h. The tables are constant after load except for the
// zeroed cells that the host owns (shared_cell, flow_state, runtime_cell).
#ifndef WATRIX_FRAME_TABLES_H_
#define WATRIX_FRAME_TABLES_H_

#include <cstdint>

#include "frame/entry.h"

namespace lk {

using u32 = std::uint32_t;

struct ProcedureRow;
struct WindowRow;
struct ViewNameRow;
struct ApplicationBlock;

// Four-word record: the module name text and three zero words.
struct ModuleEntry {
  const char* module_name;
  std::uintptr_t zero[3];
};

// Module name and the ViewNameRow array.
struct ViewIndex {
  const char* module_name;
  const ViewNameRow* view_names;
};

// The exported root.
struct WinHead {
  const ProcedureRow* procedures;
  const WindowRow* windows;
  const ModuleEntry* module_entry;
  const void* dictionary;
  u32* shared_cell;
  const ViewIndex* view_index;
  const char* name_list;
  u32 reserved8;
  const ApplicationBlock* application;
  u32 reserved10;
  u32 true_word;   // 'Y'
  u32 false_word;  // 'N'
};

struct ApplicationBlock {
  const char* model_name;
  const char* schema_word;
  const char* dbms;
  const char* decimal_mark;
  const char* thousands_mark;
  const char* profile;
  const char* model_stamp;
  u32* runtime_cell;
  const char* code_page;
  u32 reserved[3];
};

struct ExitRow {
  u32 exit_state;
  u32 flow_id;
  u32 action;  // 'M'
};

struct ReturnRow {
  u32 reserved1;
  u32 reserved2;
  u32 exit_state;
  u32 reserved4;
  u32 reserved5;
  u32 reserved6;
};

struct FlowRow {
  u32 flow_id;              // low half always 0x00E4
  const char* flow_kind;    // "L"
  u32 target_id;
  const char* target_name;
  FlowSend send;
  FlowReceive receive;
  const ReturnRow* returns;
  const char* on_mode;         // "E" or "D"
  const char* on_command;      // "$#CURR#$", a literal, or ""
  const char* return_mode;     // "E"
  const char* return_command;  // "$#CURR#$", "RETURN", or ""
  u32 reserved;
};

struct ProcedureRow {
  u32 id;
  const char* name;
  u32* shared_cell;
  u32 reserved4;
  u32 import_size;
  u32 reserved6;
  u32 export_size;
  ProcedureEntry entry;     // null in external rows
  u32* flow_state;          // two-word zero cell, or null when no flows
  const ExitRow* exit_rows; // null when no flows
  const FlowRow* flow_rows; // null when no flows
  ViewCopy import_to_export;
  ViewCopy export_to_import;
  StreamFn import_unpack;
  StreamFn export_pack;
  const char* trancode;     // null in external rows
  const char* short_name;
};

// One packed row of the name list: 32 + 8 + 8 + 8 + 1 characters, no NUL.
constexpr int kNameRowWidth = 57;

struct ActionControlRow {
  u32 control_id;
  const char* command;  // keyword or ""
  u32 action;           // 0 ordinary, 3 help, 5 (treated as help)
  const void* enable_rule;
  u32 command_code;     // keyword code << 16; low half a dialog id in one row
  u32 control_type;     // 0x00010004
  const char* control_name;
};

struct EventRow {
  u32 control_id;
  const char* event_name;
  EventAction handler;
  const char* command;  // or null
  u32 map_first;        // 'Y' or ' '
  u32 value_location;
  u32 value_form;
  u32 reserved;
};

struct EventParameterRow {
  u32 control_id;
  const char* event_name;
  u32 index;
  const char* parameter_name;
  u32 value_location;
  u32 value_form;
  u32 zero;
};

// ---- Part of the dictionary: controls and attributes ----

// Two words a row: a literal and a zero; a row of two zeros ends it.
struct PermittedRow {
  const char* literal;
  std::uintptr_t zero;
};

struct AttributeType {
  u32 display_width;
  const char* type_letter;  // "S ", "Y ", "B ", "Q ", "L ", "I "
  u32 length;               // decimals in the high half
  const char* picture;      // "" when none
  const PermittedRow* permitted;
  u32 flags;
  u32 reserved[2];
};

struct AttributeRow {
  const char* attribute_name;
  u32 storage;
  u32 import_location;  // 0: no counterpart in the import view
  u32 export_location;
  const AttributeType* type;
};

struct ViewRow {
  const char* view_name;  // "EXPORT.SYSTEM_VARIABLE."
  u32 occurs;             // 0 single, else group rows
  u32 zero;
  const AttributeRow* attributes;
};

struct GroupRow {
  const char* group_name;  // "*" ends the array
  u32 view_range;          // high: one behind the last ViewRow, low: the first
  u32 kind;                // 1
  u32 count_location;      // in the export view
  u32 import_count_location;  // in the import view, 0 when none
  u32 reserved;
};

struct ViewNameRow {
  const char* key;  // procedure name or its main window's title
  const ViewRow* view_rows;
  const GroupRow* group_rows;
  u32 procedure_id;
};

// Control descriptor tags (the first 16-bit word of a descriptor).
enum ControlTag : std::uint16_t {
  kTagEntry = 1,
  kTagProtected = 2,
  kTagMultiline = 4,
  kTagRadio = 5,
  kTagDropDown = 6,
  kTagList = 7,
  kTagColumnDropDown = 8,
  kTagCheck = 11,
  kTagScroll = 13,
  kTagButton = 20,
};

struct FieldDescriptor {  // tags 1, 2, 4
  u32 tag;
  const AttributeType* type;
};

struct ValueDictionary {
  const PermittedRow* permitted;
  const char* type_letter;
  u32 length;
  u32 word;
  u32* zero_cell;
  u32 zero;
};

struct ItemDescriptor {  // tags 5, 6: radio item table or drop-down item table
  u32 tag;
  const void* items;
  const ValueDictionary* values;
};

struct CheckDescriptor {  // tag 11: 1 in the high half of the first word
  u32 tag;
  u32 two;
  const ValueDictionary* values;
};

struct ListColumnRow {
  u32 heading_left;   // x low, y high
  u32 heading_right;  // x low, y high
  u32 right_edge;
  u32 alignment;      // 'C' or 'L'
  u32 offset_value;
  u32 offset_end;
  AttributeType type;
  u32 reserved13;
  u32 heading_id;
  u32 reserved15[2];
};

struct ListDescriptor {  // tags 7, 8: row size in the high half of the first word
  u32 size_tag;
  const ListColumnRow* columns;
  u32 heading_strip;
  RowAddress row_attribute_address;
};

struct ScrollDescriptor {  // tag 13
  u32 tag;
  const char* direction;  // "UP" or "DOWN"
  u32 list;               // list control id low, 1 high
  u32 constant;           // 0x41
};

struct ControlRow {
  u32 control_id;
  const void* descriptor;
  const u32* dependants;  // ended by 0xFFFF0000, or null
  const void* const* enable_rule;  // null-ended list of rule records, or null
  u32 label_id;
  const char* control_name;
  u32 reserved;
};

// A rule record: mode, zero, the watched control id, then 0xFFFF words.
struct RuleRecord {
  std::uint16_t mode;
  std::uint16_t zero;
  std::uint16_t watched;
  std::uint16_t end[3];
};

struct StaticItemRow {
  u32 id_kind;  // control id high, 0x11 group box / 0x12 literal low
  const char* design_name;
  u32 zero;
};

struct WindowRow {
  u32 procedure_id;
  u32 dialog_id;
  const ActionControlRow* actions;
  const ControlRow* controls;
  WindowIo read_window;
  WindowIo write_window;
  const char* kind;  // "SD" or "DD"
  const char* mode;  // "A"
  const EventRow* events;
  const char* name;
  u32 reserved11;
  u32 reserved12;
  const StaticItemRow* statics;
  const EventParameterRow* event_parameters;
  const void* spare_table;
  u32 reserved16;
};

// Keyword codes of ActionControlRow.command_code (high half).
constexpr u32 KeywordCode(u32 code) { return code << 16; }

inline std::uint16_t DescriptorTag(const void* descriptor) {
  return *static_cast<const std::uint16_t*>(descriptor);
}

}  // namespace lk

#endif  // WATRIX_FRAME_TABLES_H_
