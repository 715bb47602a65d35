// What a module declares of itself for the head tables: its procedures, each
// with its entry, its views and their functions, its flows and its windows.
// The head (frame/head/assemble.h) places these declarations in table order;
// a module never writes a row of the procedure table, the window table or
// the view index by hand.
//
// Contract: a ModuleDecl and everything it points to are constant
// expressions with static storage, so that the head tables are assembled at
// compile time. A procedure's id must be one of kProcedureList's local
// procedures, declared by exactly one module; assembly refuses anything else
// at compile time.
#ifndef WATRIX_FRAME_HEAD_MODULE_DECL_H_
#define WATRIX_FRAME_HEAD_MODULE_DECL_H_

#include <cstddef>

#include "frame/tables.h"
#include "frame/transport/plan.h"
#include "frame/window_decl.h"

namespace lk::head {

// A procedure's exits and flows; all null when it has none.
struct FlowsDecl {
  u32* state = nullptr;  // the two-word cell the host owns
  const ExitRow* exits = nullptr;
  const FlowRow* flows = nullptr;
};

struct ProcedureDecl {
  u32 id;
  ProcedureEntry entry;
  u32 import_size;
  u32 export_size;
  FlowsDecl flows;
  // The dictionary, filed in the view index twice: under the procedure's
  // name and under its main window's title.
  const ViewRow* view_rows;
  const GroupRow* group_rows;
  const char* title;
  ViewCopy import_to_export;
  ViewCopy export_to_import;
  StreamFn import_unpack;
  StreamFn export_pack;
  const WindowRow* windows;  // in window table order
  int window_count;
};

struct ModuleDecl {
  const ProcedureDecl* procedures;
  int count;
};

// The declaration of a procedure whose dictionary is `Views`: its view copy
// and stream functions are those of the transport over that dictionary.
template <const ViewNameRow& Views, std::size_t N>
constexpr ProcedureDecl DeclareProcedure(ProcedureEntry entry, u32 import_size, u32 export_size,
                                         const char* title, const WindowRow (&windows)[N],
                                         FlowsDecl flows = {}) {
  return {Views.procedure_id,   entry,
          import_size,          export_size,
          flows,                Views.view_rows,
          Views.group_rows,     title,
          ImportToExport<Views>, ExportToImport<Views>,
          ImportUnpack<Views>,  ExportPack<Views>,
          windows,              static_cast<int>(N)};
}

// The WindowRows of the windows W, in order.
template <const WindowDecl&... W>
inline constexpr WindowRow kWindowsOf[] = {WindowRows<W>::kRow...};

// A procedure whose views are those of `Dictionary` (its Import and Export
// view types), filed as `Views`, with the windows W in window table order.
template <class Dictionary, const ViewNameRow& Views, const WindowDecl&... W>
constexpr ProcedureDecl DeclareProcedure(ProcedureEntry entry, const char* title,
                                         FlowsDecl flows = {}) {
  return DeclareProcedure<Views>(entry, sizeof(typename Dictionary::Import),
                                 sizeof(typename Dictionary::Export), title, kWindowsOf<W...>,
                                 flows);
}

template <std::size_t N>
constexpr ModuleDecl DeclareModule(const ProcedureDecl (&procedures)[N]) {
  return {procedures, static_cast<int>(N)};
}

}  // namespace lk::head

#endif  // WATRIX_FRAME_HEAD_MODULE_DECL_H_
