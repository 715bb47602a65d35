// Tests of ResetRunContext, FailureTravels and SetExit.
#include "frame/run_context.h"

#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace lk {
namespace {

const std::string kBlankMessage(80, ' ');

TEST(RunContextTest, ResetPutsAFreshBlockInPlace) {
  RunContext rc;
  std::memset(&rc, 0x5A, sizeof(rc));
  char area[kDatabaseAreaSize];
  ResetRunContext(&rc, area);
  for (char c : rc.command) EXPECT_EQ('\0', c);
  EXPECT_EQ(EXIT_NONE, rc.exit_state);
  EXPECT_EQ(kBlankMessage, std::string(rc.exit_message));
  EXPECT_EQ('N', rc.message_kind);
  EXPECT_EQ(' ', rc.exit_rollback);
  EXPECT_EQ(' ', rc.run_mode);
  EXPECT_EQ(' ', rc.subscript_fault);
  EXPECT_STREQ("  ", rc.status);
  EXPECT_STREQ("  ", rc.status_detail);
  EXPECT_EQ(area, rc.database_area);
  EXPECT_EQ(nullptr, rc.statement);
  EXPECT_EQ(0u, rc.fail_site);
  EXPECT_EQ(0, std::memcmp(rc.cascade_flags, "NNNNN", 5));
  EXPECT_FALSE(FailureTravels(rc));
}

TEST(RunContextTest, FailureTravelsTable) {
  struct Case {
    const char* status;
    char run_mode;
    char subscript_fault;
    bool travels;
  } cases[] = {
      {"  ", ' ', ' ', false}, {"", ' ', ' ', false},  {"FE", ' ', ' ', true},
      {"  ", 'Y', ' ', true},  {"  ", ' ', 'Y', true}, {"  ", 'L', ' ', false},
  };
  char area[kDatabaseAreaSize];
  for (const Case& c : cases) {
    RunContext rc;
    ResetRunContext(&rc, area);
    std::strcpy(rc.status, c.status);
    rc.run_mode = c.run_mode;
    rc.subscript_fault = c.subscript_fault;
    EXPECT_EQ(c.travels, FailureTravels(rc)) << c.status << c.run_mode << c.subscript_fault;
  }
}

TEST(RunContextTest, SetExitWithMessageFillsNul) {
  RunContext rc;
  char area[kDatabaseAreaSize];
  ResetRunContext(&rc, area);
  SetExit(&rc, EXIT_SYSTEM_ERROR, kSystemErrorText, 'E', 'R');
  EXPECT_EQ(EXIT_SYSTEM_ERROR, rc.exit_state);
  EXPECT_STREQ(kSystemErrorText, rc.exit_message);
  for (std::size_t i = std::strlen(kSystemErrorText); i < sizeof(rc.exit_message); ++i) {
    EXPECT_EQ('\0', rc.exit_message[i]) << i;
  }
  EXPECT_EQ('E', rc.message_kind);
  EXPECT_EQ('R', rc.exit_rollback);

  SetExit(&rc, EXIT_RETURN, nullptr, 'N');
  EXPECT_EQ(EXIT_RETURN, rc.exit_state);
  EXPECT_EQ(kBlankMessage, std::string(rc.exit_message));
  EXPECT_EQ('N', rc.message_kind);
  EXPECT_EQ(' ', rc.exit_rollback);

  SetExit(&rc, EXIT_RETURN, "", 'N');
  EXPECT_EQ(kBlankMessage, std::string(rc.exit_message));

  const std::string longer(100, 'm');
  SetExit(&rc, EXIT_NONE, longer.c_str(), 'I');
  EXPECT_EQ(std::string(80, 'm'), std::string(rc.exit_message));
}

}  // namespace
}  // namespace lk
