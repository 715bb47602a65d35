// RunContext: the one block that the host allocates and every unit and
// service shares; the exit states that every procedure may use.
//
// Contract: the host owns the block for the life of a session. Units write
// command, exit_state, exit_message, message_kind, exit_rollback, run_mode,
// subscript_fault, fail_site, fail_detail, status, status_detail, statement,
// unit_number and unit_name; the host reads them after each call (see
// host/session.h, "how a call ends"). Text fields are NUL-terminated.
#ifndef WATRIX_FRAME_RUN_CONTEXT_H_
#define WATRIX_FRAME_RUN_CONTEXT_H_

#include <cstdint>

namespace lk {

// The request and answer block of the current timestamp service.
struct ServiceBlock {
  char service_code[4];  // "702"
  std::int32_t answer_date;  // YYYYMMDD
  std::int32_t answer_time;  // HHMMSS
  char answer_text[21];      // 20 digits and NUL
  char rest[204 - 4 - 4 - 4 - 21 - 3];
};
static_assert(sizeof(ServiceBlock) == 204);

struct RunContext {
  char command[81];
  std::uint32_t exit_state;
  char exit_message[81];
  char message_kind;   // 'N', 'E', 'I'
  char exit_rollback;  // ' ' or 'R'
  char run_mode;       // 'L', ' ', 'Y'
  char subscript_fault;  // ' ' or 'Y'
  std::uint32_t fail_site;
  std::uint32_t fail_detail;
  char status[3];         // "  " all is well, "FE" a failure travels
  char status_detail[3];  // "DB", "DF", "BP", ...
  char* database_area;    // at least 136 bytes, owned by the host
  const char* statement;  // the StatementNumber of the statement now running
  char unit_number[11];
  char unit_name[33];
  ServiceBlock service_block;
  char cascade_flags[5];
};

// Size of the buffer behind RunContext.database_area.
constexpr int kDatabaseAreaSize = 256;

// Exit states shared by all procedures.
constexpr std::uint32_t EXIT_NONE = 0x0360172B;
constexpr std::uint32_t EXIT_RETURN = 0x03601743;
constexpr std::uint32_t EXIT_CANCEL = 0x288401E3;
constexpr std::uint32_t EXIT_SYSTEM_ERROR = 0x03604075;
constexpr std::uint32_t EXIT_FIELD_REQUIRED = 0x035C8480;
constexpr std::uint32_t EXIT_NOT_IMPLEMENTED = 0x0360174A;

inline constexpr char kSystemErrorText[] =
    "An internal system error has occurred.  Contact system administrator.";
inline constexpr char kFieldRequiredText[] = "An entry must be made in this field.";
inline constexpr char kNotImplementedText[] = "This selection has not been implemented.";

// Puts a fresh block in place: blank status, run_mode ' ', no message.
void ResetRunContext(RunContext* rc, char* database_area);

// True when RunContext says a failure is travelling: status not blank,
// run_mode 'Y' or subscript_fault 'Y'.
bool FailureTravels(const RunContext& rc);

// Sets exit_state, exit_message (text, or blanks for none), message_kind and
// exit_rollback in one step.
void SetExit(RunContext* rc, std::uint32_t state, const char* message, char kind,
             char rollback = ' ');

// Puts `command` into RunContext.command: a bounded copy of at most 80
// characters that fills the rest of the 81 bytes with NUL.
void SetCommand(RunContext* rc, const char* command);

}  // namespace lk

#endif  // WATRIX_FRAME_RUN_CONTEXT_H_
