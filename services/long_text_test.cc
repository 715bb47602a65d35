// Tests of the long text services: trim, concatenate, substring, and their
// failures through RunContext.
#include "services/long_text.h"

#include <cstring>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace lk {
namespace {

std::string Chars(const LongText& t) { return std::string(t.text, t.length); }

class LongTextTest : public testing::Test {
 protected:
  LongTextTest() : a_(new LongText), b_(new LongText), out_(new LongText) {
    ResetRunContext(&rc_, area_);
    std::memset(out_.get(), 0, sizeof(LongText));
    out_->capacity = kLongTextCapacity;
  }

  bool Failed() const {
    return std::string(rc_.status) == "FE" && std::string(rc_.status_detail) == "LT";
  }

  RunContext rc_{};
  char area_[kDatabaseAreaSize] = {};
  std::unique_ptr<LongText> a_;
  std::unique_ptr<LongText> b_;
  std::unique_ptr<LongText> out_;
};

TEST_F(LongTextTest, FromMovesTheTextAndCountsItsCharacters) {
  LongTextFrom(a_.get(), "Smith  ");
  EXPECT_EQ(kLongTextCapacity, a_->capacity);
  EXPECT_EQ(7, a_->length);
  EXPECT_EQ(' ', a_->text[100]);  // the text move pads with blanks
  EXPECT_EQ('\0', a_->text[kLongTextCapacity]);
}

struct TrimCase {
  const char* in;
  const char* out;
};

TEST_F(LongTextTest, TrimTable) {
  const TrimCase cases[] = {
      {"Smith   ", "Smith"}, {"Smith", "Smith"}, {"   ", ""}, {"", ""}, {" a b ", " a b"},
  };
  for (const TrimCase& c : cases) {
    SCOPED_TRACE(std::string("\"") + c.in + "\"");
    LongTextFrom(a_.get(), c.in);
    LongTextTrim(nullptr, nullptr, &rc_, a_.get(), out_.get());
    EXPECT_FALSE(FailureTravels(rc_));
    EXPECT_EQ(std::string(c.out), Chars(*out_));
    EXPECT_STREQ(c.out, out_->text);
  }
}

TEST_F(LongTextTest, TrimInPlace) {
  LongTextFrom(a_.get(), "abc  ");
  LongTextTrim(nullptr, nullptr, &rc_, a_.get(), a_.get());
  EXPECT_EQ("abc", Chars(*a_));
  EXPECT_STREQ("abc", a_->text);
}

TEST_F(LongTextTest, ConcatOfTrimmedParts) {
  LongTextFrom(a_.get(), "Smith   ");
  LongTextTrim(nullptr, nullptr, &rc_, a_.get(), a_.get());
  LongTextFrom(b_.get(), ";1998");
  LongTextConcat(nullptr, nullptr, &rc_, a_.get(), b_.get(), out_.get());
  EXPECT_FALSE(FailureTravels(rc_));
  EXPECT_EQ("Smith;1998", Chars(*out_));
  EXPECT_STREQ("Smith;1998", out_->text);
}

TEST_F(LongTextTest, ConcatIntoEitherOperand) {
  LongTextFrom(a_.get(), "ab");
  LongTextFrom(b_.get(), "cd");
  LongTextConcat(nullptr, nullptr, &rc_, a_.get(), b_.get(), a_.get());
  EXPECT_EQ("abcd", Chars(*a_));
  LongTextConcat(nullptr, nullptr, &rc_, a_.get(), b_.get(), b_.get());
  EXPECT_EQ("abcdcd", Chars(*b_));
  LongTextConcat(nullptr, nullptr, &rc_, a_.get(), a_.get(), a_.get());
  EXPECT_EQ("abcdabcd", Chars(*a_));
  EXPECT_FALSE(FailureTravels(rc_));
}

TEST_F(LongTextTest, OverflowingConcatFails) {
  const std::string long_part(3000, 'x');
  LongTextFrom(a_.get(), long_part.c_str());
  LongTextFrom(b_.get(), long_part.c_str());
  LongTextFrom(out_.get(), "before");
  LongTextConcat(nullptr, nullptr, &rc_, a_.get(), b_.get(), out_.get());
  EXPECT_TRUE(Failed());
  EXPECT_TRUE(FailureTravels(rc_));
  EXPECT_EQ("before", Chars(*out_));  // the result is left as it was
}

TEST_F(LongTextTest, ConcatUpToCapacitySucceeds) {
  const std::string half(kLongTextCapacity / 2, 'y');
  LongTextFrom(a_.get(), half.c_str());
  LongTextFrom(b_.get(), half.c_str());
  LongTextConcat(nullptr, nullptr, &rc_, a_.get(), b_.get(), out_.get());
  EXPECT_FALSE(FailureTravels(rc_));
  EXPECT_EQ(kLongTextCapacity, out_->length);
}

TEST_F(LongTextTest, ConcatBeyondAPresetSmallerCapacityFails) {
  LongTextFrom(a_.get(), "abc");
  LongTextFrom(b_.get(), "def");
  out_->capacity = 5;
  LongTextConcat(nullptr, nullptr, &rc_, a_.get(), b_.get(), out_.get());
  EXPECT_TRUE(Failed());
}

TEST_F(LongTextTest, SubstringFirstCharacter) {
  LongTextFrom(a_.get(), "Kingdom");
  const OptionalNumber one{'Y', 1};
  LongTextSubstring(nullptr, nullptr, &rc_, a_.get(), &one, &one, out_.get());
  EXPECT_FALSE(FailureTravels(rc_));
  EXPECT_EQ("K", Chars(*out_));
  EXPECT_STREQ("K", out_->text);
}

TEST_F(LongTextTest, SubstringInTheMiddle) {
  LongTextFrom(a_.get(), "Kingdom");
  const OptionalNumber start{'Y', 4};
  const OptionalNumber count{'Y', 3};
  LongTextSubstring(nullptr, nullptr, &rc_, a_.get(), &start, &count, out_.get());
  EXPECT_FALSE(FailureTravels(rc_));
  EXPECT_EQ("gdo", Chars(*out_));
}

struct BadSubstring {
  const char* name;
  OptionalNumber start;
  OptionalNumber count;
};

TEST_F(LongTextTest, SubstringFailures) {
  const BadSubstring cases[] = {
      {"start absent", {'N', 1}, {'Y', 1}},
      {"count absent", {'Y', 1}, {'\0', 1}},
      {"start zero", {'Y', 0}, {'Y', 1}},
      {"start past the end", {'Y', 8}, {'Y', 1}},
      {"count past the end", {'Y', 5}, {'Y', 4}},
      {"count negative", {'Y', 1}, {'Y', -1}},
  };
  for (const BadSubstring& c : cases) {
    SCOPED_TRACE(c.name);
    ResetRunContext(&rc_, area_);
    LongTextFrom(a_.get(), "Kingdom");
    LongTextSubstring(nullptr, nullptr, &rc_, a_.get(), &c.start, &c.count, out_.get());
    EXPECT_TRUE(Failed());
  }
}

TEST_F(LongTextTest, SubstringOfEmptyTextFails) {
  LongTextFrom(a_.get(), "");
  const OptionalNumber one{'Y', 1};
  LongTextSubstring(nullptr, nullptr, &rc_, a_.get(), &one, &one, out_.get());
  EXPECT_TRUE(Failed());
}

}  // namespace
}  // namespace lk
