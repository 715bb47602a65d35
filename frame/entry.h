// The calling shapes of the functions the design tables refer to.
//
// HandleA and HandleB are opaque to the units: the host passes its session
// (HandleA, see frame/host_port.h) and its window services (HandleB) through
// them, and the units hand them on unchanged to every service and action
// block. A window handle is what read_window and write_window receive.
#ifndef WATRIX_FRAME_ENTRY_H_
#define WATRIX_FRAME_ENTRY_H_

namespace lk {

struct RunContext;
struct ViewStream;
struct HostWindow;

using HandleA = void*;
using HandleB = void*;
using WindowHandle = HostWindow*;

// ProcedureRow.entry and EventRow.handler.
using ProcedureEntry = void (*)(HandleA, HandleB, RunContext*, void* import_view,
                                void* export_view);
using EventAction = ProcedureEntry;

// import_to_export(import, export) and export_to_import(export, import).
using ViewCopy = void (*)(const void* from, void* to);

// import_unpack(import, stream) and export_pack(export, stream).
using StreamFn = void (*)(void* view, ViewStream* stream);

// FlowRow.send(target import, source export).
using FlowSend = void (*)(void* target_import, const void* source_export);

// FlowRow.receive(source export, source import, target export).
using FlowReceive = void (*)(void* source_export, void* source_import,
                             const void* target_export);

// WindowRow.read_window(window, import) and write_window(window, export).
using WindowIo = void (*)(WindowHandle window, void* view);

// ListDescriptor.row_attribute_address(export view, row) -> row's first
// display attribute.
using RowAddress = char* (*)(void* export_view, int row);

}  // namespace lk

#endif  // WATRIX_FRAME_ENTRY_H_
