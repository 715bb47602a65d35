// The units of an Open-style data entry window (patterns/open_entry.h)
// typed over the module's views (patterns/stack_views.h OpenEntryViews): the
// procedure body, and Open, Accept and Cancel as steps that the module takes
// under its own identities (StepAs in frame/unit.h).
//
//   Body    EXIT_NONE; the import view into the export view.
//   Open    SYSTEM_VARIABLE and the row from the import view; then the
//           pattern's Open, whose read on "CHANGE" is the row blocks' Read by the row's
//           key: the row read goes into the window and its editable
//           attributes into EXPORT_HIDDEN.
//   Accept  EXIT_NONE; the row and EXPORT_HIDDEN from the import view;
//           L::CheckFields (the required fields); then the pattern's write,
//           whose edited fields are the attributes of HiddenForms against
//           the row's attributes of the same names, with L::CheckDuplicate,
//           Identify (the IS number and ORG ID it wrote go into the window)
//           and Modify. Where the check sits in the blocks (kEntry's
//           checks_in_blocks), L need not give CheckDuplicate, and a write
//           the block refused puts the import row back into the window.
//   Cancel  the pattern's Cancel.
// Where L gives kKeyDisplayOnChange (six characters, "3gA2B7" and the like),
// Open on "CHANGE" puts it on the row's key attributes, which protects them.
//
// L gives: using Forms (the window's row), HiddenForms (the editable
// attributes), Dictionary (OpenEntryViews over them); Views(), the
// procedure's ViewNameRow; kEntry (the OpenEntry description); kBodyId; the
// hooks CheckFields(rc, Export*) -> bool and CheckDuplicate(a, b, rc,
// const Export&); and the row blocks (patterns/row_blocks.h) with their
// identities: using Blocks, kReadId, kIdentifyId, kModifyId.
//
// Contract: the units' entry protocol of frame/unit.h; OpenEntryUnits<L>
// holds the static storage of its units; one thread.
#ifndef WATRIX_PATTERNS_OPEN_ENTRY_UNITS_H_
#define WATRIX_PATTERNS_OPEN_ENTRY_UNITS_H_

#include <array>
#include <cstddef>
#include <cstring>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/transport/plan.h"
#include "frame/unit.h"
#include "patterns/data_entry.h"
#include "patterns/first_page_list.h"
#include "patterns/open_entry.h"
#include "services/text.h"

namespace lk::patterns {

template <class L>
class OpenEntryUnits {
 public:
  using Forms = typename L::Forms;
  using Hidden = typename L::HiddenForms;
  using Import = typename L::Dictionary::Import;
  using Export = typename L::Dictionary::Export;
  using Row = typename Forms::Row;

  static void Body(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
    EntryBody(&body_unit_, L::Dictionary::kShape, L::kBodyId, L::Views(), a, b, rc, import_view, export_view);
  }

  static void Open(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                   void* export_view) {
    Action(&open_unit_, id, a, b, rc, import_view, export_view, [&](const Import* in, Export* e) {
      TextMove(e->SYSTEM_VARIABLE.USER_ID_CODE.value, in->SYSTEM_VARIABLE.USER_ID_CODE, 9);
      TextMove(e->SYSTEM_VARIABLE.CURRENT_ORG_ID.value, in->SYSTEM_VARIABLE.CURRENT_ORG_ID, 9);
      RowToShown(Forms::kAttributes, &in->ROW, &e->ROW);
      auto& org_id = (e->ROW.*Forms::kOrgId).value;
      OpenEntryOpen(L::kEntry, rc, id, org_id, sizeof org_id, e->RUNTIME_SUPPLIED.COMMAND.value,
                    [&] {
                      Row key{}, row{};
                      CopyKey(in->ROW, &key);
                      L::Blocks::Read(L::kReadId, a, b, rc, &key, &row);
                      CheckCallee(rc);
                      RowToShown(Forms::kAttributes, &row, &e->ROW);
                      for (std::size_t h = 0; h < kHiddenCount; ++h)
                        MoveValue(Hidden::kAttributes[h],
                                  Place(&e->EXPORT_HIDDEN, Hidden::kAttributes[h].shown),
                                  Place(&row, kRowOfHidden[h].row));
                      if constexpr (requires { L::kKeyDisplayOnChange; })
                        MarkKeys(Forms::kAttributes, &e->ROW, L::kKeyDisplayOnChange);
                    });
    });
  }

  static void Accept(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                     void* export_view) {
    Action(&accept_unit_, id, a, b, rc, import_view, export_view, [&](const Import* in,
                                                                      Export* e) {
      SetExit(rc, EXIT_NONE, nullptr, 'N');
      RowToShown(Forms::kAttributes, &in->ROW, &e->ROW);
      RowToShown(Hidden::kAttributes, &in->EXPORT_HIDDEN, &e->EXPORT_HIDDEN);
      if (!L::CheckFields(rc, e)) return;
      rc->statement = kStatement2;
      std::array<EditedField, kHiddenCount> edited{};
      for (std::size_t h = 0; h < kHiddenCount; ++h)
        edited[h] = {Place(&e->ROW, kRowOfHidden[h].shown),
                     Place(&e->EXPORT_HIDDEN, Hidden::kAttributes[h].shown)};
      OpenEntryWrite(
          L::kEntry, rc, id, e->RUNTIME_SUPPLIED.COMMAND.value,
          std::span<const EditedField>(edited), std::span<char* const>(),
          [&] {
            if constexpr (requires { &L::CheckDuplicate; }) L::CheckDuplicate(a, b, rc, *e);
          },
          [&] {
            SystemVariableView system = SystemOf(*e);
            Row row{}, written{};
            ShownToRow(Forms::kAttributes, &e->ROW, &row);
            L::Blocks::Identify(L::kIdentifyId, a, b, rc, &system, &row, &written);
            CheckCallee(rc);
            std::memcpy((e->ROW.*Forms::kIsNumber).value, written.*Forms::kIsNumberRow,
                        sizeof(written.*Forms::kIsNumberRow));
            TextMove((e->ROW.*Forms::kOrgId).value, written.*Forms::kOrgIdRow,
                     sizeof(written.*Forms::kOrgIdRow));
          },
          [&] {
            SystemVariableView system = SystemOf(*e);
            Row row{}, written{};
            ShownToRow(Forms::kAttributes, &e->ROW, &row);
            L::Blocks::Modify(L::kModifyId, a, b, rc, &system, &row, &written);
          });
      // A write that the block refused: the window shows the row as typed.
      if (L::kEntry.checks_in_blocks && rc->exit_state != EXIT_CANCEL &&
          rc->exit_state != EXIT_NONE)
        RowToShown(Forms::kAttributes, &in->ROW, &e->ROW);
    });
  }

  static void Cancel(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                     void* export_view) {
    Action(&cancel_unit_, id, a, b, rc, import_view, export_view,
           [&](const Import*, Export*) { OpenEntryCancel(L::kEntry, rc); });
  }

 private:
  static constexpr char kStatement1[] = "0000000001";
  static constexpr char kStatement2[] = "0000000002";
  static constexpr std::size_t kHiddenCount = std::size(Hidden::kAttributes);

  static constexpr bool SameName(const char* x, const char* y) {
    for (; *x != '\0' && *x == *y; ++x, ++y) {
    }
    return *x == *y;
  }
  // The row's attribute of each editable attribute's name.
  static constexpr std::array<RowAttribute, kHiddenCount> kRowOfHidden = [] {
    std::array<RowAttribute, kHiddenCount> found{};
    for (std::size_t h = 0; h < kHiddenCount; ++h) {
      bool seen = false;
      for (const RowAttribute& a : Forms::kAttributes)
        if (SameName(a.name, Hidden::kAttributes[h].name)) found[h] = a, seen = true;
      if (!seen) throw "an editable attribute that the row does not have";
    }
    return found;
  }();

  template <class View>
  static char* Place(View* view, u32 offset) {
    return reinterpret_cast<char*>(view) + offset;
  }

  static void CopyKey(const Row& from, Row* to) {
    std::memcpy(to->*Forms::kIsNumberRow, from.*Forms::kIsNumberRow,
                sizeof(from.*Forms::kIsNumberRow));
    TextMove(to->*Forms::kOrgIdRow, from.*Forms::kOrgIdRow, sizeof(from.*Forms::kOrgIdRow));
  }
  static SystemVariableView SystemOf(const Export& e) {
    SystemVariableView system{};
    TextMove(system.USER_ID_CODE, e.SYSTEM_VARIABLE.USER_ID_CODE.value, 9);
    TextMove(system.CURRENT_ORG_ID, e.SYSTEM_VARIABLE.CURRENT_ORG_ID.value, 9);
    return system;
  }

  template <typename Step>
  static void Action(UnitStorage* unit, const UnitId& id, HandleA a, HandleB b, RunContext* rc,
                     void* import_view, void* export_view, Step&& step) {
    EnterEventAction(unit, &L::Dictionary::kShape, id, a, b, rc, import_view, export_view, [&] {
      rc->statement = kStatement1;
      step(static_cast<const Import*>(import_view), static_cast<Export*>(export_view));
    });
  }

  static inline UnitStorage body_unit_, open_unit_, accept_unit_, cancel_unit_;
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_OPEN_ENTRY_UNITS_H_
