// The tables under win_head, assembled at compile time from the modules'
// declarations (frame/head/module_decl.h): the procedure table in the order
// of kProcedureList, the window table in procedure order and each module's
// window order, and the view index with two rows per declared procedure.
//
// Procedures that no module declares yet have a row with no entry, no view
// functions, sizes 0 and no windows; the menu's flows to them carry no send
// or receive, and the host fails such a flow as a missing module. Procedures
// of other modules have a row without entry or trancode, with the view sizes
// their module gives where they are known.
//
// Contract: HeadTables<M...> holds constant arrays only; a declaration of an
// unknown, external or twice declared procedure stops the compilation.
#ifndef WATRIX_FRAME_HEAD_ASSEMBLE_H_
#define WATRIX_FRAME_HEAD_ASSEMBLE_H_

#include <array>

#include "frame/head/module_decl.h"
#include "frame/head/procedure_list.h"
#include "frame/tables.h"

namespace lk::head {

// The cells the host owns: one shared by every procedure row, one behind
// the application block.
inline u32 shared_cell;
inline u32 runtime_cell;

// View sizes of procedures of other modules, where their module gives them.
struct ExternalSizes {
  u32 id;
  u32 import_size;
  u32 export_size;
};
inline constexpr ExternalSizes kExternalSizes[] = {
    {kProcedureList[42].id, 5823088, 6491648},
};

template <const ModuleDecl&... M>
class HeadTables {
  static constexpr int kDeclared = (M.count + ... + 0);

  // The declaration of each procedure of kProcedureList, or null.
  static constexpr std::array<const ProcedureDecl*, kProcedures> Declarations() {
    std::array<const ProcedureDecl*, kProcedures> by_index{};
    int placed = 0;
    auto place = [&](const ModuleDecl& m) {
      for (int k = 0; k < m.count; ++k) {
        const ProcedureDecl& p = m.procedures[k];
        int i = ProcedureIndex(p.id);
        if (i < 0 || i >= kLocalProcedures) throw "a module declares a procedure it cannot hold";
        if (by_index[i] != nullptr) throw "two declarations of one procedure";
        by_index[i] = &p;
        ++placed;
      }
    };
    (place(M), ...);
    if (placed != kDeclared) throw "a declaration was not placed";
    return by_index;
  }
  static constexpr auto kByIndex = Declarations();

  static constexpr int WindowCount() {
    int n = 0;
    for (const ProcedureDecl* p : kByIndex)
      if (p != nullptr) n += p->window_count;
    return n;
  }

  static constexpr ProcedureRow Row(int i) {
    const ProcedureName& name = kProcedureList[i];
    if (i >= kLocalProcedures) {
      u32 import_size = 0, export_size = 0;
      for (const ExternalSizes& s : kExternalSizes)
        if (s.id == name.id) import_size = s.import_size, export_size = s.export_size;
      return {name.id, name.name, &shared_cell, 0, import_size, 0, export_size, nullptr,
              nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
              name.short_name};
    }
    const ProcedureDecl* p = kByIndex[i];
    if (p == nullptr)
      return {name.id, name.name, &shared_cell, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr,
              nullptr, nullptr, nullptr, nullptr, name.short_name, name.short_name};
    return {name.id,          name.name,           &shared_cell,         0,
            p->import_size,   0,                   p->export_size,       p->entry,
            p->flows.state,   p->flows.exits,      p->flows.flows,       p->import_to_export,
            p->export_to_import, p->import_unpack, p->export_pack,       name.short_name,
            name.short_name};
  }

 public:
  static constexpr std::array<ProcedureRow, kProcedures + 1> kProcedureTable = [] {
    std::array<ProcedureRow, kProcedures + 1> rows{};
    for (int i = 0; i < kProcedures; ++i) rows[i] = Row(i);
    return rows;
  }();

  static constexpr std::array<WindowRow, WindowCount() + 1> kWindows = [] {
    std::array<WindowRow, WindowCount() + 1> rows{};
    int n = 0;
    for (const ProcedureDecl* p : kByIndex)
      if (p != nullptr)
        for (int w = 0; w < p->window_count; ++w) rows[n++] = p->windows[w];
    return rows;
  }();

  static constexpr std::array<ViewNameRow, 2 * kDeclared + 1> kViewNames = [] {
    std::array<ViewNameRow, 2 * kDeclared + 1> rows{};
    int n = 0;
    for (int i = 0; i < kProcedures; ++i) {
      const ProcedureDecl* p = kByIndex[i];
      if (p == nullptr) continue;
      rows[n++] = {kProcedureList[i].name, p->view_rows, p->group_rows, p->id};
      // A procedure without a title (a dialog entered only from elsewhere)
      // is found by its name alone.
      if (p->title != nullptr) rows[n++] = {p->title, p->view_rows, p->group_rows, p->id};
    }
    return rows;
  }();
};

}  // namespace lk::head

#endif  // WATRIX_FRAME_HEAD_ASSEMBLE_H_
