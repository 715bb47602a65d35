// Tests of the timestamp services: the current timestamp through a fake
// session clock, and the host and picture forms of a view timestamp.
#include "services/timestamp.h"

#include <cstdio>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "frame/host_port.h"
#include "frame/run_context.h"

namespace lk {
namespace {

// A clock that stands at one second and moves only its microseconds, one per
// call, as two quick calls within a second would see it.
struct FakeClock {
  std::int32_t date = 20040513;
  std::int32_t time = 91954;
  int micros = 123456;
  int calls = 0;
};

void FakeClockRead(void* host, std::int32_t* date, std::int32_t* time, char* text) {
  FakeClock* clock = static_cast<FakeClock*>(host);
  ++clock->calls;
  *date = clock->date;
  *time = clock->time;
  std::snprintf(text, 21, "%08d%06d%06d", static_cast<int>(clock->date),
                static_cast<int>(clock->time), clock->micros++);
}

class CurrentTimestampTest : public testing::Test {
 protected:
  CurrentTimestampTest() {
    session_.host = &clock_;
    session_.clock = FakeClockRead;
    session_.store = nullptr;
    ResetRunContext(&rc_, area_);
  }

  FakeClock clock_;
  SessionPort session_{};
  RunContext rc_{};
  char area_[kDatabaseAreaSize] = {};
};

TEST_F(CurrentTimestampTest, ServiceAnswersFromTheSessionClock) {
  ServiceBlock block{};
  std::memcpy(block.service_code, "702", 3);
  CurrentTimestamp(&session_, nullptr, &block);
  EXPECT_EQ(1, clock_.calls);
  EXPECT_EQ(20040513, block.answer_date);
  EXPECT_EQ(91954, block.answer_time);
  EXPECT_STREQ("20040513091954123456", block.answer_text);
}

TEST_F(CurrentTimestampTest, OtherServiceCodeIsNotAnswered) {
  ServiceBlock block{};
  std::memcpy(block.service_code, "701", 3);
  CurrentTimestamp(&session_, nullptr, &block);
  EXPECT_EQ(0, clock_.calls);
  EXPECT_EQ(0, block.answer_date);
  EXPECT_EQ('\0', block.answer_text[0]);
}

TEST_F(CurrentTimestampTest, StampHasZeroFraction) {
  char attribute[21];
  std::memset(attribute, '#', sizeof(attribute));
  StampCurrentTimestamp(&session_, nullptr, &rc_, attribute);
  EXPECT_STREQ("20040513091954000000", attribute);
}

TEST_F(CurrentTimestampTest, TwoStampsInOneSecondAreTheSame) {
  char first[21];
  char second[21];
  StampCurrentTimestamp(&session_, nullptr, &rc_, first);
  StampCurrentTimestamp(&session_, nullptr, &rc_, second);
  EXPECT_EQ(2, clock_.calls);
  EXPECT_EQ(123458, clock_.micros);  // the clock did move between the calls
  EXPECT_STREQ(first, second);
  EXPECT_EQ(std::string("000000"), std::string(first + 14));
}

TEST_F(CurrentTimestampTest, StampZeroesTheServiceBlockFirst) {
  std::memset(&rc_.service_block, 0xFF, sizeof(rc_.service_block));
  char attribute[21];
  StampCurrentTimestamp(&session_, nullptr, &rc_, attribute);
  EXPECT_EQ(0, std::memcmp(rc_.service_block.service_code, "702", 4));
  for (char c : rc_.service_block.rest) EXPECT_EQ('\0', c);
  EXPECT_EQ(20040513, rc_.service_block.answer_date);
  EXPECT_STREQ("20040513091954000000", rc_.service_block.answer_text);
}

TEST_F(CurrentTimestampTest, WithoutASessionTheMachineClockAnswers) {
  char attribute[21];
  StampCurrentTimestamp(nullptr, nullptr, &rc_, attribute);
  ASSERT_EQ(20u, std::strlen(attribute));
  for (int i = 0; i < 20; ++i) EXPECT_TRUE(attribute[i] >= '0' && attribute[i] <= '9') << i;
  EXPECT_EQ(std::string("000000"), std::string(attribute + 14));
  EXPECT_GE(rc_.service_block.answer_date, 20240101);
}

TEST(TimestampToHostTest, DropsTheFraction) {
  char host[19];
  TimestampToHost("20040513091954123456", host);
  EXPECT_STREQ("2004-05-1309.19.54", host);
}

TEST(TimestampToHostTest, RoundTripLosesOnlyTheFraction) {
  const char* values[] = {"20040513091954123456", "19991231235959999999",
                          "00010101000000000000", "20000229120000000000"};
  for (const char* v : values) {
    SCOPED_TRACE(v);
    char host[19];
    char back[21];
    TimestampToHost(v, host);
    EXPECT_EQ(18u, std::strlen(host));
    TimestampFromHost(host, back);
    EXPECT_EQ(std::string(v, 14) + "000000", std::string(back));
  }
}

TEST(TimestampFromHostTest, EmptyHostTextIsTheEmptyTimestamp) {
  char attribute[21];
  TimestampFromHost("", attribute);
  EXPECT_STREQ("00000000000000000000", attribute);
}

struct PictureCase {
  const char* attribute;
  const char* shown;
};

TEST(TimestampToPictureTest, Table) {
  char zeroed[21] = {};
  const PictureCase cases[] = {
      {"20040513091954123456", "2004-05-13-09.19.54.123456"},
      {"00000000000000000000", "0000-00-00-00.00.00.000000"},
      {"00010101000000000000", "0001-01-01-00.00.00.000000"},
      {zeroed, "0000-00-00-00.00.00.000000"},  // zeros, not a date
  };
  for (const PictureCase& c : cases) {
    SCOPED_TRACE(c.shown);
    char shown[27];
    std::memset(shown, '#', sizeof(shown));
    TimestampToPicture(c.attribute, shown);
    EXPECT_STREQ(c.shown, shown);
  }
}

}  // namespace
}  // namespace lk
