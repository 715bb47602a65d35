// The body-style data entry window: the window of a first-page list that
// adds or changes one row. The list's flow runs its procedure body first
// (flow-on mode "E"); the window ends by EXIT_RETURN with the COMMAND
// "REFRESH", so that the list reloads, by Accept and by Cancel alike.
// Written once for every such window; a module gives its row's forms
// (patterns/first_page_list.h), its field tests, its duplicate check and its
// IDENTIFY and MODIFY action blocks through a traits type (BodyEntry below).
//
// The views (BodyEntryImport, BodyEntryExport), by the dictionary's names:
//   EXPORT_DATA_CHANGED.RUNTIME_SUPPLIED  FLAG: "Y" once a field was edited
//   EXPORT.SYSTEM_VARIABLE                USER_ID_CODE, CURRENT_ORG_ID
//   EXPORT.<the entity>                   the row in the window (member ROW)
//   EXPORT.RUNTIME_SUPPLIED               the COMMAND that opened the window,
//                                         kept since events rewrite COMMAND,
//                                         and the list's SUBSCRIPT
//
// What each step does:
//   Body     EXIT_NONE; the import view into the export view by the
//            dictionary. Where L gives kCodeDisplayOnChange (six
//            characters), the COMMAND "CHANGE" puts it on the row's first
//            identity attribute (a code table's code).
//   Changed  EXPORT_DATA_CHANGED := "Y"; nothing else. A field typed and
//            typed back to what it was counts as changed. The exit state
//            that stands after it is the body's: EXIT_NONE, no message.
//   Accept   1. EXIT_NONE, blank message.
//            2. The module's field tests (required fields in window order,
//               patterns/data_entry.h, then its own rules); a failure stops.
//            3. The kept COMMAND "ADD": the module's duplicate check. Its
//               NOT FOUND exit state is the success; any other gives the
//               module's duplicate exit state and words, kind 'E', "10    "
//               on the key fields, and stops. Then EXIT_NONE, the IDENTIFY
//               block with SYSTEM_VARIABLE and the row, the returned row into
//               the window, EXPORT_DATA_CHANGED := "N"; an exit state other
//               than EXIT_NONE becomes the internal error (rollback 'R') and
//               stops.
//            4. The kept COMMAND "CHANGE", only if EXPORT_DATA_CHANGED is
//               "Y": the duplicate check as in 3 (the module says what it
//               binds, and a check that meets the row itself is kept as the
//               module has it), EXIT_NONE, the MODIFY block, the returned
//               row, the flag "N", the internal error as in 3. Nothing
//               changed: no statement runs, and the Accept is a success.
//               Any other kept COMMAND writes nothing.
//            5. COMMAND := "REFRESH", EXIT_RETURN: the window closes.
//   Cancel   COMMAND := "REFRESH", EXIT_RETURN, blank message; no test runs.
// A write block that wrote nothing returns a blank row: then the window
// keeps what was typed. Otherwise its row, with the new stamp, goes into the
// window, where it shows when an error keeps the window open after the write.
//
// Contract: the event actions run in the units' entry protocol
// (frame/unit.h); a fatal status of a callee leaves by the abort frame. No
// allocation; one thread. A BodyEntry<L> instance holds the static storage of
// its units.
#ifndef WATRIX_PATTERNS_BODY_ENTRY_H_
#define WATRIX_PATTERNS_BODY_ENTRY_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/transport/plan.h"
#include "frame/unit.h"
#include "frame/views.h"
#include "patterns/data_entry.h"
#include "patterns/first_page_list.h"
#include "services/text.h"

namespace lk::patterns {

template <class Forms>
struct BodyEntryImport {
  char reserved[4];
  FlagView EXPORT_DATA_CHANGED;
  struct {
    SystemVariableView SYSTEM_VARIABLE;
    typename Forms::Row ROW;
    RuntimeSuppliedView RUNTIME_SUPPLIED;
  } EXPORT;
};

template <class Forms>
struct BodyEntryExport {
  std::uint32_t reserved;
  FlagShown EXPORT_DATA_CHANGED;
  struct {
    SystemVariableShown SYSTEM_VARIABLE;
    typename Forms::Shown ROW;
    RuntimeSuppliedShown RUNTIME_SUPPLIED;
  } EXPORT;
};

// Whether a write block returned a row: one of its timestamps is set, as
// every write stamps the row.
bool WroteRow(RowAttributes attributes, const void* row);

// L, the traits of one window, gives:
//   using Forms                          the row's forms
//   static const ViewNameRow& Views()    the procedure's dictionary
//   static constexpr ViewShape kShape
//   static constexpr UnitId kBodyId
//   static bool CheckFields(RunContext*, BodyEntryExport<Forms>*)
//        the required fields and the module's rules; false stops the Accept
//   static void CheckDuplicate(HandleA, HandleB, RunContext*,
//                              const BodyEntryExport<Forms>&, bool adding)
//        calls the duplicate check action block
//   static constexpr u32 kNotFound       the check's NOT FOUND exit state
//   static constexpr u32 kDuplicateExit  and the module's words for a hit:
//   static constexpr const char* kDuplicateText
//   using Blocks; static constexpr UnitId kIdentifyId, kModifyId
//        the write action blocks (patterns/row_blocks.h): Blocks::Identify
//        and Blocks::Modify(const UnitId&, HandleA, HandleB, RunContext*,
//        const SystemVariableView*, const Row*, Row* written)
template <class L>
class BodyEntry {
 public:
  using Forms = typename L::Forms;
  using Row = typename Forms::Row;
  using Import = BodyEntryImport<Forms>;
  using Export = BodyEntryExport<Forms>;

  static void Body(HandleA a, HandleB b, RunContext* rc, void* import_view, void* export_view) {
    EntryBody(&body_unit_, L::kShape, L::kBodyId, L::Views(), a, b, rc, import_view, export_view);
    if constexpr (requires { L::kCodeDisplayOnChange; }) {
      if (TextCompare(rc->command, "CHANGE") == 0) {
        auto& code = static_cast<Export*>(export_view)->EXPORT.ROW.*Forms::kIsNumber;
        std::memcpy(code.display, L::kCodeDisplayOnChange, kDisplayWidth);
      }
    }
  }

  // The Changed event of an editable field. It sets no exit state of its
  // own: what stands is the body's, EXIT_NONE without a message, and not
  // the words of a failed Accept before it.
  static void Changed(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                      void* export_view) {
    EnterEventAction(&changed_unit_, &L::kShape, id, a, b, rc, import_view, export_view, [&] {
      rc->statement = kStatement1;
      TextMove(static_cast<Export*>(export_view)->EXPORT_DATA_CHANGED.FLAG.value, "Y", 2);
      SetExit(rc, EXIT_NONE, nullptr, 'N');
    });
  }

  static void Accept(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                     void* export_view) {
    EnterEventAction(&accept_unit_, &L::kShape, id, a, b, rc, import_view, export_view, [&] {
      Export* out = static_cast<Export*>(export_view);
      rc->statement = kStatement1;
      SetExit(rc, EXIT_NONE, nullptr, 'N');
      if (!L::CheckFields(rc, out)) return;
      const char* kept = out->EXPORT.RUNTIME_SUPPLIED.COMMAND.value;
      if (TextCompare(kept, "ADD") == 0) {
        if (!Write(a, b, rc, id, out, /*adding=*/true)) return;
      } else if (TextCompare(kept, "CHANGE") == 0) {
        if (TextCompare(out->EXPORT_DATA_CHANGED.FLAG.value, "Y") == 0 &&
            !Write(a, b, rc, id, out, /*adding=*/false)) {
          return;
        }
      }
      SetCommand(rc, "REFRESH");
      SetExit(rc, EXIT_RETURN, nullptr, 'N');
    });
  }

  static void Cancel(const UnitId& id, HandleA a, HandleB b, RunContext* rc, void* import_view,
                     void* export_view) {
    EnterEventAction(&cancel_unit_, &L::kShape, id, a, b, rc, import_view, export_view, [&] {
      rc->statement = kStatement1;
      SetCommand(rc, "REFRESH");
      SetExit(rc, EXIT_RETURN, nullptr, 'N');
    });
  }

 private:
  static constexpr char kStatement1[] = "0000000001";
  static constexpr char kStatement2[] = "0000000002";
  static constexpr char kStatement3[] = "0000000003";

  // The duplicate check and the write of ADD or CHANGE; false when the
  // window stays.
  static bool Write(HandleA a, HandleB b, RunContext* rc, const UnitId& own, Export* out,
                    bool adding) {
    rc->statement = kStatement2;
    CallActionBlock(rc, own, [&] { L::CheckDuplicate(a, b, rc, *out, adding); });
    if (rc->exit_state != L::kNotFound) {
      MarkKeys(Forms::kAttributes, &out->EXPORT.ROW, kDisplayError);
      SetExit(rc, L::kDuplicateExit, L::kDuplicateText, 'E');
      return false;
    }
    SetExit(rc, EXIT_NONE, nullptr, 'N');
    rc->statement = kStatement3;
    SystemVariableView system{};
    Row row{}, written{};
    TextMove(system.USER_ID_CODE, out->EXPORT.SYSTEM_VARIABLE.USER_ID_CODE.value,
             sizeof system.USER_ID_CODE);
    TextMove(system.CURRENT_ORG_ID, out->EXPORT.SYSTEM_VARIABLE.CURRENT_ORG_ID.value,
             sizeof system.CURRENT_ORG_ID);
    ShownToRow(Forms::kAttributes, &out->EXPORT.ROW, &row);
    CallActionBlock(rc, own, [&] {
      if (adding) {
        L::Blocks::Identify(L::kIdentifyId, a, b, rc, &system, &row, &written);
      } else {
        L::Blocks::Modify(L::kModifyId, a, b, rc, &system, &row, &written);
      }
    });
    if (WroteRow(Forms::kAttributes, &written))
      RowToShown(Forms::kAttributes, &written, &out->EXPORT.ROW);
    TextMove(out->EXPORT_DATA_CHANGED.FLAG.value, "N", 2);
    if (rc->exit_state != EXIT_NONE) {
      InternalError(rc);
      return false;
    }
    return true;
  }

  static inline UnitStorage body_unit_, changed_unit_, accept_unit_, cancel_unit_;
};

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_BODY_ENTRY_H_
