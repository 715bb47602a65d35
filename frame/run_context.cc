// RunContext: putting a fresh block in place, telling whether a failure is
// travelling, and setting how a call ends.
//
// Text fields end in NUL. The exit message holds its text followed by NULs;
// "no message" is 80 blanks and a NUL.
#include "frame/run_context.h"

#include <cstring>

namespace lk {

namespace {

constexpr std::size_t kMessageRoom = sizeof(RunContext::exit_message) - 1;

void NoMessage(RunContext* rc) {
  std::memset(rc->exit_message, ' ', kMessageRoom);
  rc->exit_message[kMessageRoom] = '\0';
}

bool Blank(const char* text, std::size_t width) {
  for (std::size_t i = 0; i < width && text[i] != '\0'; ++i) {
    if (text[i] != ' ') return false;
  }
  return true;
}

}  // namespace

void ResetRunContext(RunContext* rc, char* database_area) {
  std::memset(rc, 0, sizeof(*rc));
  rc->exit_state = EXIT_NONE;
  NoMessage(rc);
  rc->message_kind = 'N';
  rc->exit_rollback = ' ';
  rc->run_mode = ' ';
  rc->subscript_fault = ' ';
  std::memcpy(rc->status, "  ", 3);
  std::memcpy(rc->status_detail, "  ", 3);
  rc->database_area = database_area;
  std::memset(rc->cascade_flags, 'N', sizeof(rc->cascade_flags));
}

bool FailureTravels(const RunContext& rc) {
  return !Blank(rc.status, sizeof(rc.status)) || rc.run_mode == 'Y' ||
         rc.subscript_fault == 'Y';
}

void SetExit(RunContext* rc, std::uint32_t state, const char* message, char kind,
             char rollback) {
  rc->exit_state = state;
  if (message == nullptr || message[0] == '\0') {
    NoMessage(rc);
  } else {
    const std::size_t n = strnlen(message, kMessageRoom);
    std::memcpy(rc->exit_message, message, n);
    std::memset(rc->exit_message + n, '\0', sizeof(rc->exit_message) - n);
  }
  rc->message_kind = kind;
  rc->exit_rollback = rollback;
}

void SetCommand(RunContext* rc, const char* command) {
  std::size_t i = 0;
  for (; i + 1 < sizeof rc->command && command[i] != '\0'; ++i) rc->command[i] = command[i];
  for (; i < sizeof rc->command; ++i) rc->command[i] = '\0';
}

}  // namespace lk
