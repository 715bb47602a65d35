// Tests of the CSV reader and writer, and of the load and dump of tables on
// both backends.
#include "store/csv.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "store/schema.h"
#include "store/soci.h"
#include "store/test_database.h"

namespace lk::store {
namespace {

// A record as text: a quoted field is written "q:" and its text.
std::vector<std::vector<std::string>> ReadAll(const std::string& input, std::string* error,
                                              std::vector<int>* lines = nullptr) {
  std::istringstream in(input);
  CsvReader reader(&in);
  std::vector<std::vector<std::string>> records;
  std::vector<CsvField> fields;
  while (reader.Next(&fields, error)) {
    std::vector<std::string> record;
    for (const CsvField& f : fields) record.push_back((f.quoted ? "q:" : "") + f.text);
    records.push_back(record);
    if (lines != nullptr) lines->push_back(reader.line());
  }
  return records;
}

TEST(CsvReaderTest, Records) {
  using Records = std::vector<std::vector<std::string>>;
  struct Case {
    std::string input;
    Records records;
  };
  const Case kCases[] = {
      {"", {}},
      {"a,b,c\n", {{"a", "b", "c"}}},
      {"a,b\nc,d", {{"a", "b"}, {"c", "d"}}},
      {"a,b\r\nc,d\r\n", {{"a", "b"}, {"c", "d"}}},
      {"\"a,b\",\"c\"\"d\"\n", {{"q:a,b", "q:c\"d"}}},
      {"\"two\nlines\",x\n", {{"q:two\nlines", "x"}}},
      {"\"two\r\nlines\",x\r\n", {{"q:two\r\nlines", "x"}}},
      {",\n", {{"", ""}}},
      {"\"\",x\n", {{"q:", "x"}}},
      {"x,\"\"\n", {{"x", "q:"}}},
      {" a , b \n", {{" a ", " b "}}},
      {"a\n\nb\n", {{"a"}, {""}, {"b"}}},
      {"a\n\n", {{"a"}}},
      {"a\r\n\r\n", {{"a"}}},
      {"\xEF\xBB\xBF"
       "a,b\n",
       {{"a", "b"}}},
      {"\xEF\xBBx\n", {{"\xEF\xBBx"}}},
      {"caf\xC3\xA9,\xE2\x82\xAC\n", {{"caf\xC3\xA9", "\xE2\x82\xAC"}}},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(::testing::PrintToString(c.input));
    std::string error;
    EXPECT_EQ(c.records, ReadAll(c.input, &error));
    EXPECT_EQ("", error);
  }
}

TEST(CsvReaderTest, Malformed) {
  struct Case {
    std::string input;
    int line;
    const char* error;
  };
  const Case kCases[] = {
      {"h\n\"abc\n", 2, "not closed"},
      {"h\n\"a\"b\n", 2, "after the closing quote"},
      {"h\na\"b\n", 2, "double quote inside"},
      {"h\nok\na\rb\n", 3, "carriage return"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(::testing::PrintToString(c.input));
    std::istringstream in(c.input);
    CsvReader reader(&in);
    std::vector<CsvField> fields;
    std::string error;
    while (reader.Next(&fields, &error)) {
    }
    EXPECT_NE(std::string::npos, error.find(c.error)) << error;
    EXPECT_EQ(c.line, reader.line());
  }
}

TEST(CsvReaderTest, LinesAndBytes) {
  const std::string input = "h\n\"x\ny\",z\nw\n";
  std::string error;
  std::vector<int> lines;
  ReadAll(input, &error, &lines);
  EXPECT_EQ((std::vector<int>{1, 2, 4}), lines);
  std::istringstream in(input);
  CsvReader reader(&in);
  std::vector<CsvField> fields;
  while (reader.Next(&fields, &error)) {
  }
  EXPECT_EQ(input.size(), reader.bytes());
}

TEST(CsvWriterTest, Records) {
  using Fields = std::vector<std::optional<std::string>>;
  struct Case {
    Fields fields;
    std::string output;
  };
  const Case kCases[] = {
      {{"a", "b"}, "a,b\n"},
      {{std::nullopt, "b", std::nullopt}, ",b,\n"},
      {{"", "b"}, "\"\",b\n"},
      {{" ", "b "}, " ,b \n"},
      {{"a,b", "c\"d", "two\nlines", "cr\r"}, "\"a,b\",\"c\"\"d\",\"two\nlines\",\"cr\r\"\n"},
      {{"caf\xC3\xA9"}, "caf\xC3\xA9\n"},
  };
  for (const Case& c : kCases) {
    std::ostringstream out;
    WriteCsvRecord(out, c.fields);
    EXPECT_EQ(c.output, out.str());
    // And back.
    std::istringstream in(out.str());
    CsvReader reader(&in);
    std::vector<CsvField> fields;
    std::string error;
    ASSERT_TRUE(reader.Next(&fields, &error)) << error;
    ASSERT_EQ(c.fields.size(), fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
      EXPECT_EQ(c.fields[i].value_or(""), fields[i].text);
      EXPECT_EQ(c.fields[i].has_value() && c.fields[i]->empty(),
                fields[i].quoted && fields[i].text.empty());
    }
  }
}

// ---- Load and dump, on both backends.

constexpr char kLabRemarkHeader[] =
    "TSRLBRMK_IS_NUMBER,TSRLBRMK_ORG_ID,SHORT_NAME,DESCRIPTION_TEXT,D_USERID_CODE,"
    "D_LAST_UPDATE_TS\n";

class LoadDumpTest : public testing::BackendTest {
 protected:
  void SetUp() override {
    BackendTest::SetUp();
    if (HasFatalFailure()) return;
    try {
      CreateSchema(connection());
    } catch (const std::exception& e) {
      FAIL() << "CreateSchema: " << e.what();
    }
  }

  bool Load(const std::string& table, const std::string& text, std::uint64_t* rows,
            std::string* error, const LoadProgress& progress = nullptr) {
    std::istringstream in(text);
    return LoadCsv(connection(), table, in, text.size(), progress, rows, error);
  }

  std::string Dump(const std::string& table) {
    std::ostringstream out;
    std::string error;
    EXPECT_TRUE(DumpCsv(connection(), table, out, &error)) << error;
    return out.str();
  }

  long long Count(const std::string& table) {
    long long n = -1;
    sql() << "SELECT count(*) FROM " + table, soci::into(n);
    return n;
  }
};

TEST_P(LoadDumpTest, RoundTrip) {
  struct Case {
    const char* table;
    std::string text;  // in primary key order, in the dump's own form
    std::uint64_t rows;
  };
  const Case kCases[] = {
      {"TSRLBRMK",
       std::string(kLabRemarkHeader) +
           "1,ZZZZZZZZ,J,Estimated value,JSMITH,2024-03-05 14:07:09\n"
           "2,ZZZZZZZZ,<,Less than the reporting limit,JSMITH,2024-03-05 14:07:09\n"
           "3,ZZZZZZZZ,K, ,JSMITH,1999-12-31 23:59:59\n"
           "4,ORG1,\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9,\"Quoted \"\"words\"\", and a "
           "comma\",A,0001-01-01 00:00:00\n",
       4},
      {"TSMFHU",
       "TSMFHU_IS_NUMBER,TSMFHU_ORG_ID,HYDROLOGIC_UNIT_CD,TYPE_CODE,NAME,STATES_NAME,"
       "LAT_MAX_DEGREE,LAT_MIN_DEGREE,LONG_MAX_DEGREE,LONG_MIN_DEGREE,D_USERID_CODE,"
       "D_LAST_UPDT_TS\n"
       "1,ORG2,01010002,CATUNIT,\"Allagash, \"\"upper\"\" part\",ME,47.5,46.1234,-68.25,-70,"
       "JSMITH,2024-03-05 14:07:09\n"
       "1,ZZZZZZZZ,01010001,CATUNIT,\"Two\nlines\",ME NH,47,0,0.0001,-179.9999,JSMITH,"
       "2024-03-05 14:07:09\n"
       "2,ZZZZZZZZ,01010003,REGION,,,,,,,JSMITH,1999-12-31 23:59:59\n"
       "3,ZZZZZZZZ,01010004,SUBREGN,\"\",  x,,,,,JSMITH,2000-01-01 00:00:00\n"
       "10,ZZZZZZZZ,01010005,ACCUNIT,Caf\xC3\xA9 \xE2\x82\xAC \xC5\xB8,,9999999999.9999,2,3,4,J,"
       "2024-01-01 00:00:00\n",
       5},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.table);
    std::uint64_t rows = 0;
    std::string error;
    ASSERT_TRUE(Load(c.table, c.text, &rows, &error)) << error;
    EXPECT_EQ(c.rows, rows);
    EXPECT_EQ(c.text, Dump(c.table));
  }
}

TEST_P(LoadDumpTest, DumpWritesKeyOrder) {
  const std::string rows[] = {
      "10,ZZZZZZZZ,C,c,JSMITH,2024-03-05 14:07:09\n",
      "2,ZZZZZZZZ,B,b,JSMITH,2024-03-05 14:07:09\n",
      "2,AAAAAAAA,A,a,JSMITH,2024-03-05 14:07:09\n",
  };
  std::uint64_t loaded = 0;
  std::string error;
  ASSERT_TRUE(Load("TSRLBRMK", kLabRemarkHeader + rows[0] + rows[1] + rows[2], &loaded, &error))
      << error;
  EXPECT_EQ(kLabRemarkHeader + rows[2] + rows[1] + rows[0], Dump("TSRLBRMK"));
}

TEST_P(LoadDumpTest, NullableColumnsMayBeLeftOut) {
  std::uint64_t rows = 0;
  std::string error;
  ASSERT_TRUE(Load("TSMFHU",
                   "D_LAST_UPDT_TS,D_USERID_CODE,TYPE_CODE,HYDROLOGIC_UNIT_CD,TSMFHU_ORG_ID,"
                   "TSMFHU_IS_NUMBER\n"
                   "2024-03-05 14:07:09,JSMITH,REGION,01000000,ZZZZZZZZ,7\n",
                   &rows, &error))
      << error;
  EXPECT_EQ(1u, rows);
  EXPECT_EQ(
      "TSMFHU_IS_NUMBER,TSMFHU_ORG_ID,HYDROLOGIC_UNIT_CD,TYPE_CODE,NAME,STATES_NAME,"
      "LAT_MAX_DEGREE,LAT_MIN_DEGREE,LONG_MAX_DEGREE,LONG_MIN_DEGREE,D_USERID_CODE,"
      "D_LAST_UPDT_TS\n"
      "7,ZZZZZZZZ,01000000,REGION,,,,,,,JSMITH,2024-03-05 14:07:09\n",
      Dump("TSMFHU"));
  long long nulls = -1;
  sql() << "SELECT count(*) FROM TSMFHU WHERE NAME IS NULL AND STATES_NAME IS NULL AND "
           "LAT_MAX_DEGREE IS NULL",
      soci::into(nulls);
  EXPECT_EQ(1, nulls);
}

TEST_P(LoadDumpTest, EmptyFieldIsNullOrBlank) {
  std::uint64_t rows = 0;
  std::string error;
  // DESCRIPTION_TEXT does not allow NULL: an empty field is a blank.
  ASSERT_TRUE(Load("TSRLBRMK",
                   std::string(kLabRemarkHeader) + "1,ZZZZZZZZ,J,,JSMITH,2024-03-05 14:07:09\n",
                   &rows, &error))
      << error;
  std::string description;
  soci::indicator indicator = soci::i_null;
  sql() << "SELECT DESCRIPTION_TEXT FROM TSRLBRMK", soci::into(description, indicator);
  EXPECT_EQ(soci::i_ok, indicator);
  EXPECT_EQ(" ", description);
  // FIELD_VALUE allows NULL: an empty field is NULL, "" an empty text.
  ASSERT_TRUE(Load("TSMPRMVL",
                   "TSMPRMVL_IS_NUMBER,TSMPRMVL_ORG_ID,TABLE_NAME,FIELD_NAME,SEQUENCE_NUMBER,"
                   "FIELD_VALUE,D_USERID_CODE,D_LAST_UPDATE_TS\n"
                   "1,ZZZZZZZZ,TSRUOM,UOM_TYPE,1,,JSMITH,2024-03-05 14:07:09\n"
                   "2,ZZZZZZZZ,TSRUOM,UOM_TYPE,2,\"\",JSMITH,2024-03-05 14:07:09\n",
                   &rows, &error))
      << error;
  long long nulls = -1;
  long long empties = -1;
  sql() << "SELECT count(*) FROM TSMPRMVL WHERE FIELD_VALUE IS NULL", soci::into(nulls);
  sql() << "SELECT count(*) FROM TSMPRMVL WHERE FIELD_VALUE = ''", soci::into(empties);
  EXPECT_EQ(1, nulls);
  EXPECT_EQ(1, empties);
}

TEST_P(LoadDumpTest, RefusalsLoadNothingAndNameTheLine) {
  const std::string good = "1,ZZZZZZZZ,J,Estimated,JSMITH,2024-03-05 14:07:09\n";
  struct Case {
    const char* name;
    std::string text;
    int line;
    const char* reason;  // a part of the error, whatever the case
  };
  const Case kCases[] = {
      {"unknown column",
       "TSRLBRMK_IS_NUMBER,TSRLBRMK_ORG_ID,SHORT_NAME,DESCRIPTION_TEXT,D_USERID_CODE,"
       "D_LAST_UPDATE_TS,COLOR\n" +
           good,
       1, "unknown column \"COLOR\""},
      {"column in the wrong case",
       "tsrlbrmk_is_number,TSRLBRMK_ORG_ID,SHORT_NAME,DESCRIPTION_TEXT,D_USERID_CODE,"
       "D_LAST_UPDATE_TS\n" +
           good,
       1, "unknown column"},
      {"column twice",
       "TSRLBRMK_IS_NUMBER,TSRLBRMK_ORG_ID,SHORT_NAME,SHORT_NAME,DESCRIPTION_TEXT,"
       "D_USERID_CODE,D_LAST_UPDATE_TS\n",
       1, "SHORT_NAME stands twice"},
      {"missing column",
       "TSRLBRMK_IS_NUMBER,TSRLBRMK_ORG_ID,DESCRIPTION_TEXT,D_USERID_CODE,D_LAST_UPDATE_TS\n", 1,
       "SHORT_NAME is missing"},
      {"empty file", "", 1, "header"},
      {"too long", kLabRemarkHeader + good + "2,ZZZZZZZZ,ABCDEFG,x,JSMITH,2024-03-05 14:07:09\n", 3,
       "SHORT_NAME: the value is 7 characters long; SHORT_NAME holds 6"},
      {"too long in characters",
       kLabRemarkHeader + good +
           "2,ZZZZZZZZ,\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9,x,JSMITH,"
           "2024-03-05 14:07:09\n",
       3, "7 characters long"},
      {"bad number", kLabRemarkHeader + good + "2x,ZZZZZZZZ,K,x,JSMITH,2024-03-05 14:07:09\n", 3,
       "TSRLBRMK_IS_NUMBER: \"2x\" is not a number"},
      {"bad date", kLabRemarkHeader + good + "2,ZZZZZZZZ,K,x,JSMITH,2024-02-30 00:00:00\n", 3,
       "D_LAST_UPDATE_TS: \"2024-02-30 00:00:00\" is no such moment"},
      {"date without time", kLabRemarkHeader + good + "2,ZZZZZZZZ,K,x,JSMITH,2024-02-03\n", 3,
       "not a date"},
      {"outside code page 1252",
       kLabRemarkHeader + good + "2,ZZZZZZZZ,K,\xC4\x80,JSMITH,2024-03-05 14:07:09\n", 3, "U+0100"},
      {"not UTF-8", kLabRemarkHeader + good + "2,ZZZZZZZZ,K,\xC3(,JSMITH,2024-03-05 14:07:09\n", 3,
       "UTF-8"},
      {"empty number", kLabRemarkHeader + good + ",ZZZZZZZZ,K,x,JSMITH,2024-03-05 14:07:09\n", 3,
       "TSRLBRMK_IS_NUMBER: needs a value"},
      {"fields missing", kLabRemarkHeader + good + "2,ZZZZZZZZ,K\n", 3,
       "3 fields where the header has 6"},
      {"quote not closed",
       kLabRemarkHeader + good + "2,ZZZZZZZZ,\"K,x,JSMITH,2024-03-05 14:07:09\n", 3, "not closed"},
      {"duplicate business key",
       kLabRemarkHeader + good + "2,ZZZZZZZZ,J,x,JSMITH,2024-03-05 14:07:09\n", 3, ""},
      {"duplicate primary key",
       kLabRemarkHeader + good + "1,ZZZZZZZZ,K,x,JSMITH,2024-03-05 14:07:09\n", 3, ""},
      {"a record over two lines before",
       kLabRemarkHeader + std::string("1,ZZZZZZZZ,J,\"two\nlines\",JSMITH,2024-03-05 14:07:09\n") +
           "1,ZZZZZZZZ,K,x,JSMITH,2024-03-05 14:07:09\n",
       4, ""},
  };
  // A row loaded before stays; nothing of a refused file stays.
  std::uint64_t rows = 0;
  std::string error;
  ASSERT_TRUE(
      Load("TSRLBRMK",
           std::string(kLabRemarkHeader) + "100,ZZZZZZZZ,Z,Before,JSMITH,2024-03-05 14:07:09\n",
           &rows, &error))
      << error;
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    error.clear();
    EXPECT_FALSE(Load("TSRLBRMK", c.text, &rows, &error));
    const std::string prefix = "line " + std::to_string(c.line) + ": ";
    EXPECT_EQ(0u, error.rfind(prefix, 0)) << error;
    EXPECT_NE(std::string::npos, error.find(c.reason)) << error;
    EXPECT_EQ(1, Count("TSRLBRMK"));
  }
}

TEST_P(LoadDumpTest, ConstraintRefusalsSayWhich) {
  struct Case {
    const char* table;
    std::string text;
    int line;
    std::vector<const char*> reasons;  // one of them, in any case
  };
  const Case kCases[] = {
      {"TSRLBRMK",
       std::string(kLabRemarkHeader) + "1,ZZZZZZZZ,J,x,JSMITH,2024-03-05 14:07:09\n"
                                       "2,ZZZZZZZZ,J  ,y,JSMITH,2024-03-05 14:07:09\n",
       3,
       {"unique", "duplicate key"}},
      {"TSRCTCA",
       "TSRCHAR_IS_NUMBER,TSRCHAR_ORG_ID,TSRCHTYP_CATEGORY,TSRCHTYP_SUBCATGRY,TSRCHTYP_ORG_ID,"
       "D_USERID_CODE,D_LAST_UPDATE_TS\n"
       "1,ZZZZZZZZ,CHEMICAL,Metals,ZZZZZZZZ,JSMITH,2024-03-05 14:07:09\n",
       2,
       {"foreign key"}},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.table);
    std::uint64_t rows = 0;
    std::string error;
    EXPECT_FALSE(Load(c.table, c.text, &rows, &error));
    EXPECT_EQ(0u, error.rfind("line " + std::to_string(c.line) + ": ", 0)) << error;
    std::string lower = error;
    for (char& ch : lower) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    bool found = false;
    for (const char* reason : c.reasons) found = found || lower.find(reason) != std::string::npos;
    EXPECT_TRUE(found) << error;
    EXPECT_EQ(0, Count(c.table));
  }
}

TEST_P(LoadDumpTest, ReferencedRowsLoadFirst) {
  std::uint64_t rows = 0;
  std::string error;
  ASSERT_TRUE(Load("TSRCHTYP",
                   "TSRCHTYP_CATEGORY,TSRCHTYP_SUBCATGRY,TSRCHTYP_ORG_ID,D_USERID_CODE,"
                   "D_LAST_UPDATE_TS\n"
                   "CHEMICAL,Metals,ZZZZZZZZ,JSMITH,2024-03-05 14:07:09\n",
                   &rows, &error))
      << error;
  ASSERT_TRUE(Load("TSRCHAR",
                   "TSRCHAR_IS_NUMBER,TSRCHAR_ORG_ID,SEARCH_NAME,DISPLAY_NAME,CHAR_TYPE_CODE,"
                   "D_SCR_TYPE_CD,UOM_TYPE,PROC_REQ_IND_CD,SAMP_FRAC_REQ_CD,D_USERID_CODE,"
                   "D_LAST_UPDATE_TS\n"
                   "1,ZZZZZZZZ,IRON,Iron,P,CHEM,SUBST,N,Y,JSMITH,2024-03-05 14:07:09\n",
                   &rows, &error))
      << error;
  ASSERT_TRUE(Load("TSRCTCA",
                   "TSRCHAR_IS_NUMBER,TSRCHAR_ORG_ID,TSRCHTYP_CATEGORY,TSRCHTYP_SUBCATGRY,"
                   "TSRCHTYP_ORG_ID,D_USERID_CODE,D_LAST_UPDATE_TS\n"
                   "1,ZZZZZZZZ,CHEMICAL,Metals,ZZZZZZZZ,JSMITH,2024-03-05 14:07:09\n",
                   &rows, &error))
      << error;
  EXPECT_EQ(1, Count("TSRCTCA"));
}

TEST_P(LoadDumpTest, LoadAppends) {
  std::uint64_t rows = 0;
  std::string error;
  ASSERT_TRUE(Load("TSRBIOPT",
                   "TSRBIOPT_IS_NUMBER,TSRBIOPT_ORG_ID,NAME,D_USERID_CODE,D_LAST_UPDT_TS\n"
                   "1,ZZZZZZZZ,Liver,JSMITH,2024-03-05 14:07:09\n",
                   &rows, &error))
      << error;
  // A header alone loads no rows; a byte order mark and CRLF are taken.
  ASSERT_TRUE(Load("TSRBIOPT",
                   "TSRBIOPT_IS_NUMBER,TSRBIOPT_ORG_ID,NAME,D_USERID_CODE,D_LAST_UPDT_TS\n", &rows,
                   &error))
      << error;
  EXPECT_EQ(0u, rows);
  ASSERT_TRUE(Load("TSRBIOPT",
                   "\xEF\xBB\xBFTSRBIOPT_IS_NUMBER,TSRBIOPT_ORG_ID,NAME,D_USERID_CODE,"
                   "D_LAST_UPDT_TS\r\n"
                   "2,ZZZZZZZZ,Gill,JSMITH,2024-03-05 14:07:09\r\n"
                   "3,ZZZZZZZZ,Muscle,JSMITH,2024-03-05 14:07:09",
                   &rows, &error))
      << error;
  EXPECT_EQ(2u, rows);
  EXPECT_EQ(3, Count("TSRBIOPT"));
  EXPECT_FALSE(Load("TSRBIOPTX", "A\n", &rows, &error));
  EXPECT_NE(std::string::npos, error.find("no table TSRBIOPTX")) << error;
}

TEST_P(LoadDumpTest, ProgressIsTold) {
  std::string text = kLabRemarkHeader;
  for (int i = 1; i <= 2500; ++i) {
    text += std::to_string(i) + ",ZZZZZZZZ,S" + std::to_string(i) + ",Remark " + std::to_string(i) +
            ",JSMITH,2024-03-05 14:07:09\n";
  }
  struct Call {
    std::uint64_t rows, bytes, total;
  };
  std::vector<Call> calls;
  std::uint64_t rows = 0;
  std::string error;
  ASSERT_TRUE(Load("TSRLBRMK", text, &rows, &error,
                   [&](std::uint64_t r, std::uint64_t b, std::uint64_t t) {
                     calls.push_back({r, b, t});
                   }))
      << error;
  EXPECT_EQ(2500u, rows);
  ASSERT_EQ(3u, calls.size());
  EXPECT_EQ(1000u, calls[0].rows);
  EXPECT_EQ(2000u, calls[1].rows);
  EXPECT_EQ(2500u, calls[2].rows);
  EXPECT_LT(calls[0].bytes, calls[1].bytes);
  EXPECT_LT(calls[1].bytes, calls[2].bytes);
  EXPECT_EQ(text.size(), calls[2].bytes);
  for (const Call& c : calls) EXPECT_EQ(text.size(), c.total);
  EXPECT_EQ(2500, Count("TSRLBRMK"));
}

INSTANTIATE_TEST_SUITE_P(Backends, LoadDumpTest, testing::kBackends, testing::BackendName);

}  // namespace
}  // namespace lk::store
