// Tests of the host text prepare service.
#include "services/host_text.h"

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "services/text.h"

namespace lk {
namespace {

struct VaryingCase {
  const char* value;
  const char* expect;
};

TEST(HostTextPrepareTest, VaryingTextTable) {
  const VaryingCase cases[] = {
      {"", " "},
      {"   ", " "},
      {"ABC", "ABC"},
      {"ABC   ", "ABC"},
      {" A B  ", " A B"},
  };
  for (const VaryingCase& c : cases) {
    SCOPED_TRACE(std::string("\"") + c.value + "\"");
    char text[11];
    BoundedCopy(text, c.value, sizeof(text));
    std::int16_t length = static_cast<std::int16_t>(std::strlen(text));
    HostTextPrepare(&length, text);
    EXPECT_EQ(std::string(c.expect), std::string(text));
    EXPECT_EQ(static_cast<std::int16_t>(std::strlen(c.expect)), length);
  }
}

TEST(HostTextPrepareTest, LengthSetToCapacityStopsAtTheText) {
  char text[11];
  BoundedCopy(text, "AB ", sizeof(text));
  std::int16_t length = 10;  // the capacity, not the text's length
  HostTextPrepare(&length, text);
  EXPECT_STREQ("AB", text);
  EXPECT_EQ(2, length);
}

TEST(HostTextPrepareTest, FixedTextIsLeftAsMoved) {
  char text[7];
  TextMove(text, "AB", sizeof(text));
  HostTextPrepare(nullptr, text);
  EXPECT_STREQ("AB    ", text);
}

TEST(HostTextPrepareTest, EmptyFixedTextBecomesOneBlank) {
  char text[7] = {};
  HostTextPrepare(nullptr, text);
  EXPECT_STREQ(" ", text);
}

TEST(HostTextPrepareTest, PreparedBlankStillComparesAsUnset) {
  char text[5] = {};
  std::int16_t length = 0;
  HostTextPrepare(&length, text);
  EXPECT_EQ(0, TextCompare(text, ""));
}

}  // namespace
}  // namespace lk
