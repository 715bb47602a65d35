// View transport driven from the dictionary: the window pair read_window and
// write_window, the view copy pair, the stream pair and the flow pair.
//
// A module describes, per window and per flow, which view attributes its
// fields and flows carry, by name ("EXPORT.LAB_REMARK.SHORT_NAME": a ViewRow
// name followed by an AttributeRow name). The templates below turn such a
// description into the functions that the design tables refer to; each
// resolves its names against the dictionary once, at load, into a plan of
// locations, widths and types, and afterwards only moves bytes.
//
// Contract: a name that the dictionary does not hold is a fault of the
// tables; plan building aborts the process with the name, so a wrong table
// fails the first test that loads it. The functions themselves cannot fail.
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
