// Tests of the check and normal form of column values, and of the dump
// form.
#include "store/column_value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>

namespace lk::store {
namespace {

std::string Utf8(std::uint32_t cp) {
  std::string out;
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
  return out;
}

TEST(CheckCp1252TextTest, HoldsExactlyTheCharactersOf1252) {
  // 1..0x7F, 0xA0..0xFF, and the 27 characters 1252 puts at 0x80..0x9F.
  const std::set<std::uint32_t> high = {0x20AC, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x017D, 0x2018,
                                        0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC,
                                        0x2122, 0x0161, 0x203A, 0x0153, 0x017E, 0x0178};
  int held = 0;
  for (std::uint32_t cp = 0; cp <= 0x10FFFF; ++cp) {
    if (cp >= 0xD800 && cp <= 0xDFFF) continue;
    const bool expected =
        (cp >= 1 && cp <= 0x7F) || (cp >= 0xA0 && cp <= 0xFF) || high.count(cp) == 1;
    std::size_t characters = 0;
    std::string error;
    const bool got = CheckCp1252Text(Utf8(cp), &characters, &error);
    ASSERT_EQ(expected, got) << "U+" << std::hex << cp << ": " << error;
    if (got) {
      EXPECT_EQ(1u, characters);
      ++held;
    }
  }
  EXPECT_EQ(127 + 96 + 27, held);
}

TEST(CheckCp1252TextTest, Table) {
  struct Case {
    const char* text;
    bool ok;
    std::size_t characters;
    const char* error;
  };
  const Case kCases[] = {
      {"", true, 0, ""},
      {"plain", true, 5, ""},
      {"caf\xC3\xA9", true, 4, ""},
      {"\xE2\x82\xAC 5", true, 3, ""},
      {"\xC4\x80", false, 0, "U+0100"},
      {"\xF0\x9F\x98\x80", false, 0, "U+1F600"},
      {"\xC2\x81", false, 0, "U+0081"},
      {"\xC3", false, 0, "UTF-8"},
      {"\xC3(", false, 0, "UTF-8"},
      {"\xC0\xAF", false, 0, "UTF-8"},      // overlong
      {"\xED\xA0\x80", false, 0, "UTF-8"},  // a surrogate
      {"\xFF", false, 0, "UTF-8"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.text);
    std::size_t characters = 99;
    std::string error;
    EXPECT_EQ(c.ok, CheckCp1252Text(c.text, &characters, &error)) << error;
    if (c.ok) {
      EXPECT_EQ(c.characters, characters);
    } else {
      EXPECT_NE(std::string::npos, error.find(c.error)) << error;
    }
  }
  std::string error;
  EXPECT_FALSE(CheckCp1252Text(std::string("a\0b", 3), nullptr, &error));
  EXPECT_NE(std::string::npos, error.find("NUL")) << error;
}

TEST(NormalizeValueTest, Table) {
  const Column kChar6 = {"SHORT_NAME", ColumnType::kChar, 6, false};
  const Column kVarchar4 = {"NAME", ColumnType::kVarchar, 4, true};
  const Column kNumber12 = {"IS_NUMBER", ColumnType::kNumber12, 0, false};
  const Column kNumber14_4 = {"LAT_MAX_DEGREE", ColumnType::kNumber14_4, 0, true};
  const Column kNumber3 = {"SEQUENCE_NUMBER", ColumnType::kNumber3, 0, true};
  const Column kDate = {"D_LAST_UPDATE_TS", ColumnType::kDate, 0, false};
  struct Case {
    const Column* column;
    const char* in;
    bool ok;
    const char* out_or_error;  // the normal form, or a part of the error
  };
  const Case kCases[] = {
      {&kChar6, "AB", true, "AB"},
      {&kChar6, "AB    ", true, "AB"},
      {&kChar6, "AB        ", true, "AB"},  // blanks beyond the width do not count
      {&kChar6, " AB", true, " AB"},
      {&kChar6, "", true, " "},
      {&kChar6, "   ", true, " "},
      {&kChar6, "ABCDEF", true, "ABCDEF"},
      {&kChar6, "ABCDEFG", false, "7 characters long; SHORT_NAME holds 6"},
      {&kChar6, "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", true,
       "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"},
      {&kChar6, "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", false, "7 characters"},
      {&kChar6, "\xC4\x80", false, "code page 1252"},
      {&kVarchar4, "ab  ", true, "ab  "},  // varchar keeps its blanks
      {&kVarchar4, "ab   ", false, "5 characters"},
      {&kVarchar4, "", true, ""},
      {&kNumber12, "12", true, "12"},
      {&kNumber12, "+0012", true, "12"},
      {&kNumber12, "-7", true, "-7"},
      {&kNumber12, "-0", true, "0"},
      {&kNumber12, "12.000", true, "12"},
      {&kNumber12, "999999999999", true, "999999999999"},
      {&kNumber12, "1000000000000", false, "more than 12 digits"},
      {&kNumber12, "12.5", false, "not a whole number"},
      {&kNumber12, "12a", false, "not a number"},
      {&kNumber12, "", false, "not a number"},
      {&kNumber12, ".", false, "not a number"},
      {&kNumber12, "1e3", false, "not a number"},
      {&kNumber12, " 12", false, "not a number"},
      {&kNumber14_4, "45.1234", true, "45.1234"},
      {&kNumber14_4, "45.12340", true, "45.1234"},
      {&kNumber14_4, "-0.5", true, "-0.5"},
      {&kNumber14_4, ".5", true, "0.5"},
      {&kNumber14_4, "7.", true, "7"},
      {&kNumber14_4, "9999999999.9999", true, "9999999999.9999"},
      {&kNumber14_4, "10000000000", false, "more than 10 digits before the point"},
      {&kNumber14_4, "1.23456", false, "more than 4 decimals"},
      {&kNumber3, "999", true, "999"},
      {&kNumber3, "-999", true, "-999"},
      {&kNumber3, "1000", false, "more than 3 digits"},
      {&kDate, "2024-02-29 23:59:59", true, "2024-02-29 23:59:59"},
      {&kDate, "0001-01-01 00:00:00", true, "0001-01-01 00:00:00"},
      {&kDate, "2023-02-29 00:00:00", false, "no such moment"},
      {&kDate, "2100-02-29 00:00:00", false, "no such moment"},
      {&kDate, "2000-02-29 00:00:00", true, "2000-02-29 00:00:00"},
      {&kDate, "2024-04-31 00:00:00", false, "no such moment"},
      {&kDate, "2024-01-01 24:00:00", false, "no such moment"},
      {&kDate, "0000-01-01 00:00:00", false, "no such moment"},
      {&kDate, "2024-01-01", false, "not a date"},
      {&kDate, "2024-01-01T00:00:00", false, "not a date"},
      {&kDate, "2024-01-0100.00.00", false, "not a date"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.column->name) + " '" + c.in + "'");
    std::string value = c.in;
    std::string error;
    const bool ok = NormalizeValue(*c.column, &value, &error);
    EXPECT_EQ(c.ok, ok) << error;
    if (c.ok) {
      EXPECT_EQ(c.out_or_error, value);
    } else {
      EXPECT_NE(std::string::npos, error.find(c.out_or_error)) << error;
    }
  }
}

TEST(DumpFormTest, Table) {
  const Column kChar6 = {"SHORT_NAME", ColumnType::kChar, 6, false};
  const Column kVarchar4 = {"NAME", ColumnType::kVarchar, 4, true};
  const Column kNumber12 = {"IS_NUMBER", ColumnType::kNumber12, 0, false};
  const Column kNumber14_4 = {"LAT_MAX_DEGREE", ColumnType::kNumber14_4, 0, true};
  const Column kDate = {"D_LAST_UPDATE_TS", ColumnType::kDate, 0, false};
  struct Case {
    const Column* column;
    const char* stored;
    const char* dumped;
  };
  const Case kCases[] = {
      {&kChar6, "AB    ", "AB"},  // PostgreSQL pads char
      {&kChar6, "AB", "AB"},      // SQLite keeps what was written
      {&kChar6, "      ", " "},
      {&kVarchar4, "ab  ", "ab  "},
      {&kVarchar4, "", ""},
      {&kNumber12, "12", "12"},
      {&kNumber12, "12.0", "12"},
      {&kNumber14_4, "12.5000", "12.5"},  // PostgreSQL numeric(14,4)
      {&kNumber14_4, "12.5", "12.5"},     // SQLite REAL
      {&kNumber14_4, "-70.0", "-70"},
      {&kNumber14_4, "1.0e-05", "0"},
      {&kNumber14_4, "0.30000000000000004", "0.3"},
      {&kNumber14_4, "-0.00001", "0"},
      {&kDate, "2024-01-02 03:04:05", "2024-01-02 03:04:05"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.column->name) + " '" + c.stored + "'");
    EXPECT_EQ(c.dumped, DumpForm(*c.column, c.stored));
  }
}

}  // namespace
}  // namespace lk::store
