// The Open-style data entry window: a window that the list's flow displays
// first (flow-on mode "D"), whose Open event loads the row, and that ends by
// EXIT_CANCEL. Written once for every such window; a module gives its
// fields, its texts and the calls of its action blocks.
//
// Open (OpenEntryOpen), after the module has moved SYSTEM_VARIABLE and the
// row from the import view into the export view:
//   1. exit state EXIT_NONE, blank message;
//   2. the row's ORG ID := "ZZZZZZZZ", the organisation of national rows,
//      which every new row gets, unless the window keeps_org_id;
//   3. COMMAND is kept in the view, since later events may rewrite the
//      RunContext's COMMAND;
//   4. COMMAND "CHANGE": the module's read (its read action block by the
//      row's key, its results into the export row, the editable fields into
//      the hidden copy). No exit state is tested: a row that has gone leaves
//      a blank window and the read's message of kind 'N', which nobody sees.
//      Any other COMMAND ("ADD"): nothing more.
//
// Accept (OpenEntryWrite), after the module has set EXIT_NONE, moved the
// import row and the hidden copy into the export view, tested the required
// fields (patterns/data_entry.h) and its own field rules:
//   5. the kept COMMAND: "ADD" or "CHANGE"; any other writes nothing;
//   6. "ADD": the duplicate check. Its NOT FOUND exit state is the success;
//      any other gives the module's duplicate exit state and text, kind 'E',
//      "10    " on the fields in `duplicate_marks`, and stops. Then
//      EXIT_NONE and the module's add (its IDENTIFY action block, the
//      returned key into the export row);
//   7. "CHANGE": when no editable field differs from its hidden copy,
//      nothing is written and the Accept ends as a success. Otherwise the
//      duplicate check as in 6, EXIT_NONE and the module's change (its
//      MODIFY action block). The check does not except the row itself;
//      A window whose check sits in its action blocks (checks_in_blocks)
//      skips the check of 6 and 7; one that checks_on_add_only skips it in 7;
//   8. after the add or the change, an exit state other than EXIT_NONE
//      becomes the internal error (EXIT_SYSTEM_ERROR, kind 'E', rollback
//      'R') and the window stays. An exit state still EXIT_NONE becomes
//      EXIT_CANCEL with a blank message (and COMMAND := the entry's
//      return_command, where it names one): the window closes and the list
//      reloads. Where the check sits in the action blocks, the exit state
//      and message of the block stand instead of the internal error, as an
//      error (kind 'E'), and the window stays.
// Cancel (OpenEntryCancel): EXIT_CANCEL, blank message (and the
// return_command); no field is tested.
//
// The callables passed for the action blocks call the block, test the
// callee (CheckCallee) and copy its results; the pattern sets run_mode ' '
// before and puts the running unit's number and name back after each.
//
// Contract: runs inside an event action's abort frame; the pointers lead
// into the export view and live for the call. One thread.
#ifndef WATRIX_PATTERNS_OPEN_ENTRY_H_
#define WATRIX_PATTERNS_OPEN_ENTRY_H_

#include <initializer_list>
#include <span>

#include "frame/entry.h"
#include "frame/run_context.h"
#include "frame/tables.h"
#include "frame/unit.h"

namespace lk::patterns {

// The organisation of national rows.
inline constexpr char kNationalOrgId[] = "ZZZZZZZZ";

// The constant description of one Open-style window.
struct OpenEntry {
  u32 not_found_exit;           // the duplicate check's NOT FOUND exit state
  u32 duplicate_exit;           // the module's DUPLICATE exit state
  const char* duplicate_text;   // and its words
  const char* return_command;   // COMMAND set with EXIT_CANCEL, or null
  int kept_command_width;       // storage of the view's COMMAND attribute
  // The window has no duplicate check of its own: the check sits in the
  // IDENTIFY and MODIFY action blocks, whose exit state and message (kind
  // 'E') stand as they are after a failed write, instead of the internal
  // error; the module's units then show the row as typed again.
  bool checks_in_blocks = false;
  // The row keeps the ORG ID the list gave it (the run's organisation on
  // Add) instead of taking the national one at Open.
  bool keeps_org_id = false;
  // The duplicate check runs on "ADD" only; a change writes without it.
  bool checks_on_add_only = false;
};

// An editable field and its copy as first shown.
struct EditedField {
  const char* value;
  const char* shown;
};

enum class EntryMode { kAdd, kChange, kOther };

namespace internal {
// Steps 1 to 3; answers whether the row must be read.
bool BeginOpen(const OpenEntry& entry, RunContext* rc, char* org_id, int org_width,
               char* kept_command);
// Step 5 and the first half of 7: which write the Accept makes, kOther when
// none.
EntryMode WriteMode(const char* kept_command, std::span<const EditedField> edited);
// Step 6.2: answers false, with the duplicate message set, when the check
// found a row.
bool NoDuplicate(const OpenEntry& entry, RunContext* rc, std::span<char* const> duplicate_marks);
// Step 8.
void EndWrite(const OpenEntry& entry, RunContext* rc, bool wrote);
}  // namespace internal

// The Open event. `read` runs on COMMAND "CHANGE".
template <typename Read>
void OpenEntryOpen(const OpenEntry& entry, RunContext* rc, const UnitId& own, char* org_id,
                   int org_width, char* kept_command, Read&& read) {
  if (!internal::BeginOpen(entry, rc, org_id, org_width, kept_command)) return;
  rc->run_mode = ' ';
  read();
  CheckCallee(rc);
  StoreUnitId(rc, own);
}

// Steps 5 to 8 of Accept.
template <typename Check, typename Add, typename Change>
void OpenEntryWrite(const OpenEntry& entry, RunContext* rc, const UnitId& own,
                    const char* kept_command, std::span<const EditedField> edited,
                    std::span<char* const> duplicate_marks, Check&& check, Add&& add,
                    Change&& change) {
  const EntryMode mode = internal::WriteMode(kept_command, edited);
  if (mode == EntryMode::kOther) {
    internal::EndWrite(entry, rc, false);
    return;
  }
  if (!entry.checks_in_blocks && (mode == EntryMode::kAdd || !entry.checks_on_add_only)) {
    rc->run_mode = ' ';
    check();
    CheckCallee(rc);
    StoreUnitId(rc, own);
    if (!internal::NoDuplicate(entry, rc, duplicate_marks)) return;
  }
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  rc->run_mode = ' ';
  if (mode == EntryMode::kAdd) {
    add();
  } else {
    change();
  }
  CheckCallee(rc);
  StoreUnitId(rc, own);
  internal::EndWrite(entry, rc, true);
}

// The same, with the fields written out at the call.
template <typename Check, typename Add, typename Change>
void OpenEntryWrite(const OpenEntry& entry, RunContext* rc, const UnitId& own,
                    const char* kept_command, std::initializer_list<EditedField> edited,
                    std::initializer_list<char*> duplicate_marks, Check&& check, Add&& add,
                    Change&& change) {
  OpenEntryWrite(entry, rc, own, kept_command,
                 std::span<const EditedField>(edited.begin(), edited.size()),
                 std::span<char* const>(duplicate_marks.begin(), duplicate_marks.size()), check,
                 add, change);
}

// Cancel.
void OpenEntryCancel(const OpenEntry& entry, RunContext* rc);

}  // namespace lk::patterns

#endif  // WATRIX_PATTERNS_OPEN_ENTRY_H_
