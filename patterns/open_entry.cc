// The Open-style data entry window: Open, the write of Accept, Cancel.
#include "patterns/open_entry.h"

#include <cstring>

#include "frame/views.h"
#include "patterns/data_entry.h"
#include "services/text.h"

namespace lk::patterns {

namespace internal {

bool BeginOpen(const OpenEntry& entry, RunContext* rc, char* org_id, int org_width,
               char* kept_command) {
  SetExit(rc, EXIT_NONE, nullptr, 'N');
  if (!entry.keeps_org_id) TextMove(org_id, kNationalOrgId, org_width);
  TextMove(kept_command, rc->command, entry.kept_command_width);
  return TextCompare(rc->command, "CHANGE") == 0;
}

EntryMode WriteMode(const char* kept_command, std::span<const EditedField> edited) {
  if (TextCompare(kept_command, "ADD") == 0) return EntryMode::kAdd;
  if (TextCompare(kept_command, "CHANGE") != 0) return EntryMode::kOther;
  for (const EditedField& f : edited)
    if (TextCompare(f.value, f.shown) != 0) return EntryMode::kChange;
  return EntryMode::kOther;
}

bool NoDuplicate(const OpenEntry& entry, RunContext* rc, std::span<char* const> duplicate_marks) {
  if (rc->exit_state == entry.not_found_exit) return true;
  SetExit(rc, entry.duplicate_exit, entry.duplicate_text, 'E');
  for (char* display : duplicate_marks) std::memcpy(display, kDisplayError, kDisplayWidth);
  return false;
}

void EndWrite(const OpenEntry& entry, RunContext* rc, bool wrote) {
  if (wrote && rc->exit_state != EXIT_NONE) {
    if (entry.checks_in_blocks) {
      // The block's refusal stands, as an error.
      rc->message_kind = 'E';
      return;
    }
    InternalError(rc);
    return;
  }
  if (rc->exit_state != EXIT_NONE) return;
  SetExit(rc, EXIT_CANCEL, nullptr, 'N');
  if (entry.return_command != nullptr) SetCommand(rc, entry.return_command);
}

}  // namespace internal

void OpenEntryCancel(const OpenEntry& entry, RunContext* rc) {
  SetExit(rc, EXIT_CANCEL, nullptr, 'N');
  if (entry.return_command != nullptr) SetCommand(rc, entry.return_command);
}

}  // namespace lk::patterns
