// The SCREEN's JSON text against nlohmann::json's dump(-1, ' ', false,
// replace), the form the HTTP interface has always sent: every byte of
// ASCII, valid and broken UTF-8, every byte of code page 1252, integers.
#include "host/screen_text.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "services/cp1252.h"

namespace watrix {
namespace {

std::string Dumped(const nlohmann::json& value) {
  return value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string Written(const std::string& utf8) {
  std::string out = "[";  // text before it stays
  screen_text::AppendString(&out, utf8);
  return out.substr(1);
}

TEST(JsonTextTest, EveryAsciiByteAsNlohmannWritesIt) {
  for (int c = 0; c < 0x80; ++c) {
    const std::string text = std::string("a") + static_cast<char>(c) + "z";
    EXPECT_EQ(Dumped(text), Written(text)) << "byte " << c;
  }
  EXPECT_EQ("\"\"", Written(""));
  EXPECT_EQ(Dumped("Accep&t \"quoted\" C:\\dir\t\r\n"), Written("Accep&t \"quoted\" C:\\dir\t\r\n"));
}

TEST(JsonTextTest, Utf8GoesAsItIsAndBrokenUtf8AsNlohmannReplacesIt) {
  const std::vector<std::string> texts = {
      "\xC2\xB5g/L",                 // 2 bytes
      "\xE2\x82\xAC 5",              // 3 bytes
      "\xF0\x9F\x98\x80!",           // 4 bytes
      "\xC2\x81",                    // a C1 control, not escaped
      "ok \x80 lone continuation",   // broken from here on
      "\xC0\x80 overlong",           //
      "\xE0\x80\x80 overlong",       //
      "\xED\xA0\x80 surrogate",      //
      "\xF4\x90\x80\x80 too high",   //
      "\xF5\x80\x80\x80",            //
      "cut \xE2\x82",                // ends inside a character
      "\xE2\x82\xAC then \xFF",      // valid first, then broken
      "\"\xC3\xA9\"\n\xC3",          // escapes, then broken
  };
  for (const std::string& text : texts) EXPECT_EQ(Dumped(text), Written(text)) << text;
}

TEST(JsonTextTest, EveryCp1252ByteAsItsUtf8) {
  for (int c = 0; c < 256; ++c) {
    const std::string text = std::string("x") + static_cast<char>(c) + "y  ";
    std::string out;
    screen_text::AppendCp1252(&out, text);
    EXPECT_EQ(Dumped(lk::Cp1252ToUtf8(text)), out) << "byte " << c;
  }
}

TEST(JsonTextTest, IntegersAndBooleans) {
  for (std::int64_t v : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{316},
                         std::int64_t{4294967295}, std::numeric_limits<std::int64_t>::min(),
                         std::numeric_limits<std::int64_t>::max()}) {
    std::string out;
    screen_text::AppendInt(&out, v);
    EXPECT_EQ(Dumped(v), out);
  }
  std::string out;
  screen_text::AppendBool(&out, true);
  screen_text::AppendBool(&out, false);
  EXPECT_EQ("truefalse", out);
}

}  // namespace
}  // namespace watrix
