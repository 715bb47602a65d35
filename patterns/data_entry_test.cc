// Required fields in window order and the internal error.
#include "patterns/data_entry.h"

#include <string>

#include <gtest/gtest.h>

#include "frame/views.h"
#include "services/text.h"

namespace lk::patterns {
namespace {

TEST(DataEntryTest, OnlyTheFirstBlankFieldIsMarked) {
  RunContext rc;
  char area[kDatabaseAreaSize];
  ResetRunContext(&rc, area);
  Shown<7> short_name = {{'1', '0', ' ', ' ', ' ', ' '}, "      "};
  Shown<61> description = {{'3', 'a', ' ', ' ', ' ', ' '}, ""};
  EXPECT_FALSE(CheckRequired(&rc, {{short_name.display, short_name.value},
                                   {description.display, description.value}}));
  EXPECT_EQ(EXIT_FIELD_REQUIRED, rc.exit_state);
  EXPECT_EQ('E', rc.message_kind);
  EXPECT_EQ(std::string("An entry must be made in this field."),
            std::string(rc.exit_message).substr(0, 36));
  EXPECT_EQ("10    ", std::string(short_name.display, 6));
  EXPECT_EQ("3a    ", std::string(description.display, 6));  // untouched
  // Corrected, the first gets its plain attribute back at the next test.
  TextMove(short_name.value, "J", 7);
  EXPECT_FALSE(CheckRequired(&rc, {{short_name.display, short_name.value},
                                   {description.display, description.value}}));
  EXPECT_EQ("3a    ", std::string(short_name.display, 6));
  EXPECT_EQ("10    ", std::string(description.display, 6));
}

TEST(DataEntryTest, InternalErrorAsksForRollback) {
  RunContext rc;
  char area[kDatabaseAreaSize];
  ResetRunContext(&rc, area);
  InternalError(&rc);
  EXPECT_EQ(EXIT_SYSTEM_ERROR, rc.exit_state);
  EXPECT_EQ('R', rc.exit_rollback);
  EXPECT_EQ('E', rc.message_kind);
  EXPECT_STREQ("An internal system error has occurred.  Contact system administrator.",
               std::string(rc.exit_message).substr(0, 69).c_str());
}

}  // namespace
}  // namespace lk::patterns
