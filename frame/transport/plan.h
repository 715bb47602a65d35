// View transport driven from the dictionary: the window pair read_window and
// write_window, the view copy pair, the stream pair and the flow pair.
//
// A module describes, per window and per flow, which view attributes its
// fields and flows carry, by name ("EXPORT.LAB_REMARK.SHORT_NAME": a ViewRow
// name followed by an AttributeRow name). The templates below turn such a
// description into the functions that the design tables refer to; each
// resolves its names against the dictionary once, into a plan of locations,
// widths and types, and afterwards only moves bytes.
//
// Contract: a name that the dictionary does not hold, or a dictionary that
// breaks the conventions below, is a fault of the tables; plan building
// prints the name to stderr and aborts the process, so a wrong table fails
// the first test that loads it. Plans are built at first use, or ahead of it
// by the Prepare functions (a host calls them at load). They are cached by
// the address of the binding or ViewNameRow, so bindings, dictionaries and
// views' tables must have static storage and never change. All functions run
// on the one runtime thread; plan building allocates, the transport itself
// allocates nothing. The functions themselves cannot fail.
//
// The dictionary as read here:
// - AttributeRow.import_location / export_location: byte offset of the value
//   in the view; 0 means no counterpart (views begin with a reserved header,
//   so no attribute lies at 0). In an export view a single attribute's six
//   display bytes lie at export_location - 6.
// - A ViewRow with occurs > 0 belongs to a group of `occurs` rows, numbered
//   from 1 with slot 0 kept. Its locations are those of row 0; row r lies at
//   location + r * storage. In the export view the display array lies
//   directly before the value array: display of row r at
//   export_location - 6 * (occurs + 1) + 6 * r.
// - GroupRow.view_range: low half the index of the group's first ViewRow,
//   high half one behind its last. count_location and import_count_location
//   are the offsets of the group's 32-bit row count in the export and import
//   view, 0 when the view has none. The array ends with the row named "*".
//   A count outside 0..occurs is taken as the nearest bound.
// - View copies move each attribute that has a location in both views. A
//   group's destination count is set from the source's count, then rows
//   0..count move; a group whose source view has no count moves whole (rows
//   0..occurs) and leaves the destination's count as it stands.
// - AttributeType.type_letter: "S " fixed text (moved by TextMove), "Y "
//   varying text (BoundedCopy of storage), "Q " timestamp (21 bytes), "L "
//   32-bit long (storage 4), "B " and "I " a double (storage 8). The length's
//   low half is the digits or characters, its high half the decimals.
//
// Window fields (ScreenPort::field_table entry k for ControlRow k):
// - An entry field's buffer holds FieldTextWidth(type) characters and a NUL,
//   where type is the AttributeType of its FieldDescriptor; six display bytes
//   lie in front of it. Write copies the value and the display bytes, then
//   reduces a second display character above 'h' by 8 in the view ("3i" ->
//   "3a"), so a cursor setting fires once. Read copies the characters back
//   into the import view and never writes the attribute's NUL.
// - Fixed text shows blank-padded, varying text NUL-padded. A timestamp whose
//   type has a picture shows through it ("YYYY-MM-DD-HH.MI.SS.NNNNNN"), one
//   without as its 20 digits; a zeroed timestamp shows blank, and a blank
//   field reads back as a zeroed timestamp; other text reads back as its
//   digits in order, zero-filled to 20. Numbers show as the shortest decimal
//   text that reads back to the same value, and 0 shows blank ("blank or zero
//   means nothing is there"); a blank field reads as 0, text that is no
//   number leaves the attribute as it stands, a long takes the integer part.
// - Radio group, drop-down, check box: option_set with the value's position
//   in its ValueDictionary's PermittedList (TextCompare), -1 when absent;
//   the display bytes go in front of the field's entry when it has one, with
//   the same second-character rule. Read takes the literal at option_get's
//   position; -1 leaves the attribute as it stands. They carry text only.
// - List: a row buffer holds, per column in binding order, the column's six
//   display bytes and then its value in view form (storage bytes: text with
//   its NUL, a raw double or long, a 20-digit timestamp); the ListDescriptor's
//   row size must be their sum. The host formats cells by the ListColumnRow's
//   AttributeType. Write adds rows 1..count, skipping rows flagged 'H', each
//   with its group row number, then writes the row flags of rows 1..count.
//   Read takes rows by list_row_read from position 0 until -1 into the import
//   group at the row number given, then reads the flags back for the import
//   group's count; the import count stays as it was. A list's columns and
//   row flag are columns of one group, which has an export count; an entry
//   field or option bound to a group column is a fault of the tables.
//
// ViewStream encoding (native byte order; the stream never leaves the
// process): a run of records. A value record is the stream letter (1 byte),
// the width (u32) and the value count (u32), then count values of the
// letter's element size: 'S', 'Y' the width; 'Q' 21; 'L' and 'B' 4; 'N' a
// double, 8 (its width is the digits); 'C' 1. A skip record is '-', width 0,
// count the skipped rows, and no values. A pack of zero values appends
// nothing. Order: each single attribute of the dictionary (one value), then
// each group: its count ('B'), a 'C' value 'Y' per row, a skip of limit -
// count rows when below the limit, then per column its rows 1..count and the
// same skip. A group without an export count packs all its rows. Values
// travel as the view's bytes. An attribute without an export location packs
// zeros; one without an import location is read and dropped. Pack writes the
// whole view or, when capacity - size has no room for ExportPackSize bytes,
// nothing at all. Unpack stops at the first record that is missing or whose letter or
// element size differs, and leaves the rest of the view as it stands; it
// takes group rows up to its own limit and passes over the rest.
//
// Flows: a FlowPair names a source attribute (`from`) and a target attribute
// (`to`). Send copies source export `from` to target import `to`; receive
// runs the source's export_to_import, then copies target export `to` to
// source import `from`. A pair of group columns carries the whole column
// (rows 0 up to the smaller limit) and the group's count; a pair of one group
// column and one single attribute is a fault of the tables. Values of the
// same form are copied byte for byte; texts of different widths are moved by
// the destination's type.
#ifndef WATRIX_FRAME_TRANSPORT_PLAN_H_
#define WATRIX_FRAME_TRANSPORT_PLAN_H_

#include <cstdint>

#include "frame/entry.h"
#include "frame/tables.h"

namespace lk {

// One field of a window, in ControlRow order. For an entry field, radio
// group, drop-down or check box: `attribute` names its view attribute. For a
// list: `columns` names the attribute of each ListColumnRow, in order, ended
// by null, and `flag` the two-byte row flag attribute of the group. For a
// button or scroll button: all null.
struct FieldBinding {
  u32 control_id;
  const char* attribute;
  const char* const* columns;
  const char* flag;
};

// One window: its design rows, the procedure's views and its fields (as many
// as ControlRows).
struct WindowBinding {
  const WindowRow* window;
  const ViewNameRow* views;
  const FieldBinding* fields;
};

// One attribute that a flow carries: source export attribute name and target
// attribute name (an import attribute of the target on send, an export
// attribute of the target on receive).
struct FlowPair {
  const char* from;
  const char* to;
};

// One flow: the views of both ends and the pairs of send and receive, each
// ended by {null, null}. `source_views` gives export_to_import of the source
// for the first step of receive.
struct FlowBinding {
  const ViewNameRow* source_views;
  const ViewNameRow* target_views;
  const FlowPair* send;
  const FlowPair* receive;
};

// A ViewStream: the buffer in which a view crosses modules. The host owns
// the bytes; pack appends at `size`, unpack reads from `position`.
struct ViewStream {
  char* data;
  u32 size;
  u32 capacity;
  u32 position;
};

// The generic functions, by the description they work from.
void ReadWindowBy(const WindowBinding& binding, WindowHandle window, void* import_view);
void WriteWindowBy(const WindowBinding& binding, WindowHandle window, void* export_view);
void ImportToExportBy(const ViewNameRow& views, const void* import_view, void* export_view);
void ExportToImportBy(const ViewNameRow& views, const void* export_view, void* import_view);
void ExportPackBy(const ViewNameRow& views, void* export_view, ViewStream* stream);
void ImportUnpackBy(const ViewNameRow& views, void* import_view, ViewStream* stream);
void SendBy(const FlowBinding& flow, void* target_import, const void* source_export);
void ReceiveBy(const FlowBinding& flow, void* source_export, void* source_import,
               const void* target_export);

// Build the plans ahead of the first call, so that a fault of the tables
// shows at load. Calling them again does nothing.
void PrepareWindow(const WindowBinding& binding);
void PrepareViews(const ViewNameRow& views);
void PrepareFlow(const FlowBinding& flow);

// Characters of an entry field's buffer (a NUL follows): the picture's length
// where the type has one, else for texts the length (display_width - 1 when
// the length is 0), 20 for a timestamp, kNumberFieldWidth for a number.
constexpr u32 kNumberFieldWidth = 24;
u32 FieldTextWidth(const AttributeType& type);

// Bytes that ExportPackBy appends for this export view as it stands.
u32 ExportPackSize(const ViewNameRow& views, const void* export_view);

// The shapes that the tables refer to: one instance per window, procedure
// and flow.
template <const WindowBinding& B>
void ReadWindow(WindowHandle window, void* view) { ReadWindowBy(B, window, view); }
template <const WindowBinding& B>
void WriteWindow(WindowHandle window, void* view) { WriteWindowBy(B, window, view); }
template <const ViewNameRow& V>
void ImportToExport(const void* from, void* to) { ImportToExportBy(V, from, to); }
template <const ViewNameRow& V>
void ExportToImport(const void* from, void* to) { ExportToImportBy(V, from, to); }
template <const ViewNameRow& V>
void ExportPack(void* view, ViewStream* stream) { ExportPackBy(V, view, stream); }
template <const ViewNameRow& V>
void ImportUnpack(void* view, ViewStream* stream) { ImportUnpackBy(V, view, stream); }
template <const FlowBinding& F>
void Send(void* target_import, const void* source_export) { SendBy(F, target_import, source_export); }
template <const FlowBinding& F>
void Receive(void* source_export, void* source_import, const void* target_export) {
  ReceiveBy(F, source_export, source_import, target_export);
}

}  // namespace lk

#endif  // WATRIX_FRAME_TRANSPORT_PLAN_H_
