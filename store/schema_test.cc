// Tests of the schema: its description, and the DDL as both backends take
// it: idempotent creation, keys, NULLs, references, indexes, comparison and
// order.
#include "store/schema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "store/soci.h"
#include "store/test_database.h"

namespace lk::store {
namespace {

using Row = std::map<std::string, std::optional<std::string>>;

std::string Upper(std::string text) {
  for (char& ch : text) {
    if (ch >= 'a' && ch <= 'z') ch = static_cast<char>(ch - 'a' + 'A');
  }
  return text;
}

std::string Lower(std::string text) {
  for (char& ch : text) {
    if (ch >= 'A' && ch <= 'Z') ch = static_cast<char>(ch - 'A' + 'a');
  }
  return text;
}

bool Contains(const std::string& text, const std::string& part) {
  return Lower(text).find(Lower(part)) != std::string::npos;
}

// Seed 0 is "A", 25 "Z", 26 "BA": distinct for distinct seeds.
std::string Letters(int seed) {
  std::string s;
  do {
    s.insert(s.begin(), static_cast<char>('A' + seed % 26));
    seed /= 26;
  } while (seed > 0);
  return s;
}

// A value of `column` for the row of `seed`. It depends only on the type,
// the width and the seed, so that a reference and the key it points to get
// the same value for the same seed.
std::string Value(const Column& column, int seed) {
  switch (column.type) {
    case ColumnType::kChar:
    case ColumnType::kVarchar:
      return Letters(seed).substr(0, static_cast<std::size_t>(column.width));
    case ColumnType::kNumber12:
      return std::to_string(seed + 1);
    case ColumnType::kNumber14_4:
      return std::to_string(seed) + ".25";
    case ColumnType::kNumber3:
      return std::to_string(seed % 1000);
    case ColumnType::kDate:
      return "2024-01-02 03:04:05";
  }
  return "";
}

Row MakeRow(const Table& table, int seed) {
  Row row;
  for (const Column& c : table.columns) row[c.name] = Value(c, seed);
  return row;
}

// Inserts `row`; answers "" or the database's refusal.
std::string Insert(soci::session& sql, const Table& table, const Row& row) {
  std::string columns;
  std::string placeholders;
  std::vector<std::string> values;
  std::vector<soci::indicator> indicators;
  for (const auto& [name, value] : row) {
    if (!columns.empty()) {
      columns += ", ";
      placeholders += ", ";
    }
    columns += name;
    placeholders += ":v" + std::to_string(values.size());
    values.push_back(value.value_or(""));
    indicators.push_back(value ? soci::i_ok : soci::i_null);
  }
  try {
    soci::statement st(sql);
    for (std::size_t i = 0; i < values.size(); ++i)
      st.exchange(soci::use(values[i], indicators[i]));
    st.alloc();
    st.prepare(std::string("INSERT INTO ") + table.name + " (" + columns + ") VALUES (" +
               placeholders + ")");
    st.define_and_bind();
    st.execute(true);
  } catch (const soci::soci_error& e) {
    return e.what();
  }
  return "";
}

// Inserts the row of `seed` with the rows of the same seed that it refers
// to, unless `done` has it already.
std::string InsertWithParents(soci::session& sql, const Table& table, int seed,
                              std::set<std::pair<std::string, int>>* done) {
  if (!done->insert({table.name, seed}).second) return "";
  for (const Table::Reference& r : table.references) {
    if (std::string(r.table) == table.name) continue;  // a row may refer to itself
    std::string error = InsertWithParents(sql, *FindTable(r.table), seed, done);
    if (!error.empty()) return error;
  }
  return Insert(sql, table, MakeRow(table, seed));
}

std::string InsertWithParents(soci::session& sql, const Table& table, int seed) {
  std::set<std::pair<std::string, int>> done;
  return InsertWithParents(sql, table, seed, &done);
}

std::vector<std::string> Strings(soci::session& sql, const std::string& query) {
  std::vector<std::string> out;
  soci::rowset<std::string> rows = sql.prepare << query;
  for (const std::string& s : rows) out.push_back(s);
  return out;
}

long long Count(soci::session& sql, const std::string& query) {
  long long n = -1;
  sql << query, soci::into(n);
  return n;
}

// Everything the catalog says of the schema: tables, columns, indexes and
// constraints.
std::vector<std::string> Catalog(soci::session& sql, Dialect dialect) {
  if (dialect == Dialect::kSqlite) {
    return Strings(sql,
                   "SELECT type || ' ' || name || ' ' || ifnull(sql, '') FROM sqlite_master "
                   "ORDER BY type, name");
  }
  std::vector<std::string> out = Strings(
      sql,
      "SELECT table_name || '.' || column_name || ' ' || data_type || ' ' || is_nullable || "
      "' ' || coalesce(collation_name, '') || ' ' || "
      "coalesce(character_maximum_length::text, '') || ' ' || "
      "coalesce(numeric_precision::text, '') || ' ' || coalesce(numeric_scale::text, '') "
      "FROM information_schema.columns WHERE table_schema = current_schema() ORDER BY 1");
  for (const std::string& s :
       Strings(sql,
               "SELECT indexdef FROM pg_indexes WHERE schemaname = current_schema() "
               "ORDER BY 1")) {
    out.push_back(s);
  }
  for (const std::string& s :
       Strings(sql,
               "SELECT conrelid::regclass::text || ' ' || conname || ' ' || "
               "pg_get_constraintdef(oid) || ' ' || condeferrable::text || "
               "condeferred::text FROM pg_constraint "
               "WHERE connamespace = current_schema()::regnamespace ORDER BY 1")) {
    out.push_back(s);
  }
  return out;
}

// The column lists of the indexes of `table`, upper case; "<expr>" for a
// term that is an expression.
std::vector<std::vector<std::string>> Indexes(soci::session& sql, Dialect dialect,
                                              const std::string& table) {
  std::vector<std::vector<std::string>> out;
  if (dialect == Dialect::kSqlite) {
    for (const std::string& index :
         Strings(sql, "SELECT name FROM pragma_index_list('" + table + "')")) {
      std::vector<std::string> columns;
      for (const std::string& c :
           Strings(sql, "SELECT ifnull(name, '<expr>') FROM pragma_index_info('" + index +
                            "') ORDER BY seqno")) {
        columns.push_back(Upper(c));
      }
      out.push_back(columns);
    }
    return out;
  }
  for (const std::string& def :
       Strings(sql,
               "SELECT indexdef FROM pg_indexes WHERE schemaname = current_schema() AND "
               "tablename = '" +
                   Lower(table) + "'")) {
    const std::size_t open = def.find("btree (");
    const std::size_t close = def.find(')', open);
    std::vector<std::string> columns;
    std::string list = def.substr(open + 7, close - open - 7);
    std::size_t at = 0;
    while (at <= list.size()) {
      std::size_t comma = list.find(", ", at);
      if (comma == std::string::npos) comma = list.size();
      columns.push_back(Upper(list.substr(at, comma - at)));
      at = comma + 2;
    }
    out.push_back(columns);
  }
  return out;
}

std::vector<std::string> Strings(const std::vector<const char*>& names) {
  return std::vector<std::string>(names.begin(), names.end());
}

// ---- The description itself.

TEST(SchemaTablesTest, WrittenAndReadTables) {
  const std::set<std::string> written = {"TSRLBRMK", "TSRBIOPT", "TSMPSR",   "TSRUOM",  "TSMLTHUN",
                                         "TSMGEOUN", "TSMSIC",   "TSMFHU",   "TSMNAL",  "TSMVSTC",
                                         "TSRFLDGR", "TSRANLEQ", "TSRANLPR", "TSRLSPP", "TSMPRMVL",
                                         "TSRCHTYP", "TSRCTCA",  "TSMGEOPA", "TSMEISN"};
  const std::set<std::string> read = {"TSRCHAR",  "TSRCHALS", "TSRCALT",  "TSRCITN", "TSMSTATN",
                                      "TSMFSA",   "TSMSPRNG", "TSMIGUA",  "TSMALP",  "TSRFDACT",
                                      "TSRRSULT", "TSRRCI",   "TSRRQCAF", "TSRDQL"};
  std::set<std::string> got_written;
  std::set<std::string> got_read;
  for (const Table& t : Tables()) (t.written ? got_written : got_read).insert(t.name);
  EXPECT_EQ(written, got_written);
  EXPECT_EQ(read, got_read);
  EXPECT_EQ(written.size() + read.size(), Tables().size());
  EXPECT_EQ(nullptr, FindTable("TSMERMSG"));
  ASSERT_NE(nullptr, FindTable("TSRLBRMK"));
  EXPECT_EQ(nullptr, FindTable("TSRLBRMK")->Find("NO_SUCH_COLUMN"));
}

TEST(SchemaTablesTest, ColumnsAsTheWarehouseNamesThem) {
  struct Case {
    const char* table;
    const char* column;
    ColumnType type;
    int width;
    bool nullable;
  };
  const Case kCases[] = {
      {"TSRLBRMK", "SHORT_NAME", ColumnType::kChar, 6, false},
      {"TSRLBRMK", "DESCRIPTION_TEXT", ColumnType::kVarchar, 60, false},
      {"TSRLBRMK", "D_LAST_UPDATE_TS", ColumnType::kDate, 0, false},
      {"TSRBIOPT", "D_LAST_UPDT_TS", ColumnType::kDate, 0, false},
      {"TSMFHU", "HYDROLOGIC_UNIT_CD", ColumnType::kChar, 8, false},
      {"TSMFHU", "NAME", ColumnType::kVarchar, 200, true},
      {"TSMFHU", "LAT_MAX_DEGREE", ColumnType::kNumber14_4, 0, true},
      {"TSMVSTC", "SECONDARY_TYPE_CD", ColumnType::kVarchar, 30, true},
      {"TSMPRMVL", "SEQUENCE_NUMBER", ColumnType::kNumber3, 0, true},
      {"TSMPRMVL", "FIELD_DESC", ColumnType::kVarchar, 254, true},
      {"TSRANLPR", "TSRANLPR0IS_NUMBER", ColumnType::kNumber12, 0, true},
      {"TSRANLPR", "DESCRIPTION_TEXT", ColumnType::kVarchar, 4000, false},
      {"TSMEISN", "TABLE_VERSION", ColumnType::kChar, 12, true},
      {"TSMEISN", "V_USERID_CODE", ColumnType::kChar, 8, true},
      {"TSMEISN", "V_LAST_UPDATE_TS", ColumnType::kDate, 0, true},
      {"TSMEISN", "IS_NUMBER", ColumnType::kNumber12, 0, false},
      {"TSRCHAR", "EXTRNL_SERIAL_NUM", ColumnType::kNumber12, 0, true},
      {"TSRCITN", "PUBLICATION_YEAR", ColumnType::kChar, 18, false},
      {"TSMGEOPA", "COUNTRY_NAME", ColumnType::kChar, 13, false},
      {"TSMGEOPA", "FIPS_COUNTY_CODE", ColumnType::kChar, 3, true},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.table) + "." + c.column);
    const Table* table = FindTable(c.table);
    ASSERT_NE(nullptr, table);
    const Column* column = table->Find(c.column);
    ASSERT_NE(nullptr, column);
    EXPECT_EQ(c.type, column->type);
    EXPECT_EQ(c.width, column->width);
    EXPECT_EQ(c.nullable, column->nullable);
  }
}

TEST(SchemaTablesTest, KeysAndReferencesHold) {
  std::set<std::string> before;
  for (const Table& t : Tables()) {
    SCOPED_TRACE(t.name);
    std::set<std::string> names;
    for (const Column& c : t.columns) {
      EXPECT_TRUE(names.insert(c.name).second) << "column " << c.name << " twice";
      EXPECT_LE(std::string(c.name).size(), 32u);
      const bool text = c.type == ColumnType::kChar || c.type == ColumnType::kVarchar;
      EXPECT_EQ(text, c.width > 0) << c.name;
    }
    ASSERT_FALSE(t.primary_key.empty());
    for (const char* k : t.primary_key) {
      ASSERT_NE(nullptr, t.Find(k)) << k;
      EXPECT_FALSE(t.Find(k)->nullable) << k;
    }
    std::vector<std::vector<const char*>> lists = t.unique_keys;
    lists.insert(lists.end(), t.paging_keys.begin(), t.paging_keys.end());
    for (const auto& list : lists) {
      for (const char* k : list) EXPECT_NE(nullptr, t.Find(k)) << k;
    }
    for (const Table::Reference& r : t.references) {
      SCOPED_TRACE(std::string("reference to ") + r.table);
      const Table* parent = FindTable(r.table);
      ASSERT_NE(nullptr, parent);
      // Parents come first; a table may refer to itself.
      EXPECT_TRUE(before.count(r.table) == 1 || std::string(r.table) == t.name);
      std::vector<std::string> pk = Strings(parent->primary_key);
      std::vector<std::string> to = Strings(r.table_columns);
      std::sort(pk.begin(), pk.end());
      std::sort(to.begin(), to.end());
      EXPECT_EQ(pk, to) << "a reference points at the parent's primary key";
      ASSERT_EQ(r.columns.size(), r.table_columns.size());
      for (std::size_t i = 0; i < r.columns.size(); ++i) {
        const Column* from = t.Find(r.columns[i]);
        const Column* key = parent->Find(r.table_columns[i]);
        ASSERT_NE(nullptr, from) << r.columns[i];
        ASSERT_NE(nullptr, key) << r.table_columns[i];
        EXPECT_EQ(key->type, from->type) << r.columns[i];
        EXPECT_EQ(key->width, from->width) << r.columns[i];
      }
    }
    before.insert(t.name);
  }
}

TEST(SchemaTablesTest, StatementsPerDialect) {
  for (Dialect d : {Dialect::kSqlite, Dialect::kPostgres}) {
    SCOPED_TRACE(d == Dialect::kSqlite ? "sqlite" : "postgres");
    const std::vector<std::string> statements = SchemaStatements(d);
    int tables = 0;
    int references = 0;
    for (const std::string& s : statements) {
      tables += s.rfind("CREATE TABLE IF NOT EXISTS ", 0) == 0;
      for (std::size_t at = s.find("FOREIGN KEY"); at != std::string::npos;
           at = s.find("FOREIGN KEY", at + 1)) {
        ++references;
      }
      EXPECT_TRUE(s.find("IF NOT EXISTS") != std::string::npos) << s;
      if (s.rfind("CREATE TABLE", 0) == 0) {
        // Every table has a char column: fixed text compares blank padded.
        EXPECT_EQ(d == Dialect::kPostgres, s.find("COLLATE \"C\"") != std::string::npos) << s;
        EXPECT_EQ(d == Dialect::kSqlite, s.find("COLLATE RTRIM") != std::string::npos) << s;
      }
    }
    std::size_t expected_references = 0;
    for (const Table& t : Tables()) expected_references += t.references.size();
    EXPECT_EQ(static_cast<int>(Tables().size()), tables);
    EXPECT_EQ(static_cast<int>(expected_references), references);
    for (const std::string& s : statements) {
      std::size_t deferred = 0;
      for (std::size_t at = s.find("DEFERRABLE INITIALLY DEFERRED"); at != std::string::npos;
           at = s.find("DEFERRABLE INITIALLY DEFERRED", at + 1)) {
        ++deferred;
      }
      std::size_t keys = 0;
      for (std::size_t at = s.find("FOREIGN KEY"); at != std::string::npos;
           at = s.find("FOREIGN KEY", at + 1)) {
        ++keys;
      }
      EXPECT_EQ(d == Dialect::kPostgres ? keys : 0u, deferred) << s;
    }
  }
}

// ---- The schema in a database, on both backends.

class SchemaTest : public testing::BackendTest {
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

  // Runs `body` in a transaction that is rolled back afterwards.
  template <typename Body>
  void RolledBack(Body body) {
    sql() << "BEGIN";
    body();
    sql() << "ROLLBACK";
  }
};

TEST_P(SchemaTest, ExistsOnlyOnceCreated) {
  std::string path;
  std::string why_not;
  const std::string url = testing::NewDatabaseUrl(GetParam(), &path, &why_not);
  ASSERT_FALSE(url.empty()) << why_not;
  {
    auto sql = OpenSession(url, nullptr);
    Connection fresh{sql.get(), GetParam()};
    EXPECT_FALSE(SchemaExists(fresh));
    *sql << "CREATE TABLE TSRLBRMK (X INTEGER)";
    EXPECT_FALSE(SchemaExists(fresh)) << "one table is not the schema";
  }
  testing::RemoveSqliteFiles(path);
  EXPECT_TRUE(SchemaExists(connection()));
}

TEST_P(SchemaTest, CreatingTwiceChangesNothing) {
  const std::vector<std::string> first = Catalog(sql(), GetParam());
  ASSERT_EQ("", InsertWithParents(sql(), *FindTable("TSRLBRMK"), 1));
  ASSERT_NO_THROW(CreateSchema(connection()));
  EXPECT_EQ(first, Catalog(sql(), GetParam()));
  EXPECT_EQ(1, Count(sql(), "SELECT count(*) FROM TSRLBRMK")) << "the data stays";
  const long long tables =
      Count(sql(), GetParam() == Dialect::kSqlite
                       ? "SELECT count(*) FROM sqlite_master WHERE type = 'table'"
                       : "SELECT count(*) FROM information_schema.tables "
                         "WHERE table_schema = current_schema()");
  EXPECT_EQ(static_cast<long long>(Tables().size()), tables);
}

TEST_P(SchemaTest, IndexBehindEveryPagingKeyAndReference) {
  for (const Table& t : Tables()) {
    SCOPED_TRACE(t.name);
    const auto indexes = Indexes(sql(), GetParam(), t.name);
    for (const auto& key : t.paging_keys) {
      const std::vector<std::string> want = Strings(key);
      bool found = false;
      for (const auto& index : indexes) {
        found = found || (index.size() >= want.size() &&
                          std::equal(want.begin(), want.end(), index.begin()));
      }
      EXPECT_TRUE(found) << "no index leads with the paging key " << ::testing::PrintToString(want);
    }
    for (const Table::Reference& r : t.references) {
      std::vector<std::string> want = Strings(r.columns);
      std::sort(want.begin(), want.end());
      bool found = false;
      for (const auto& index : indexes) {
        if (index.size() < want.size()) continue;
        std::vector<std::string> lead(index.begin(), index.begin() + want.size());
        std::sort(lead.begin(), lead.end());
        found = found || lead == want;
      }
      EXPECT_TRUE(found) << "no index behind the reference to " << r.table;
    }
  }
}

TEST_P(SchemaTest, EveryBusinessKeyRefusesADuplicate) {
  int keys = 0;
  for (const Table& t : Tables()) {
    for (std::size_t k = 0; k < t.unique_keys.size(); ++k) {
      const std::vector<const char*>& key = t.unique_keys[k];
      SCOPED_TRACE(std::string(t.name) + " key " + ::testing::PrintToString(Strings(key)));
      ++keys;
      // With values in every column, then with NULL wherever the key allows
      // it: a NULL in a key counts as one value.
      bool nullable = false;
      for (const char* column : key) nullable = nullable || t.Find(column)->nullable;
      for (bool nulls : {false, true}) {
        if (nulls && !nullable) continue;
        SCOPED_TRACE(nulls ? "with NULLs" : "with values");
        RolledBack([&] {
          std::set<std::pair<std::string, int>> done;
          Row a = MakeRow(t, 1);
          if (nulls) {
            for (const char* column : key) {
              if (t.Find(column)->nullable) a[column] = std::nullopt;
            }
          }
          for (const Table::Reference& r : t.references) {
            if (std::string(r.table) != t.name) {
              ASSERT_EQ("", InsertWithParents(sql(), *FindTable(r.table), 1, &done));
              ASSERT_EQ("", InsertWithParents(sql(), *FindTable(r.table), 2, &done));
            }
          }
          ASSERT_EQ("", Insert(sql(), t, a));
          // A row of other values goes in beside it...
          Row b = MakeRow(t, 2);
          for (const Table::Reference& r : t.references) {
            // ...and a row that shares the key refers to rows of one seed.
            int shared = 0;
            for (const char* column : r.columns) {
              shared += std::find_if(key.begin(), key.end(), [&](const char* k) {
                          return std::string(k) == column;
                        }) != key.end();
            }
            ASSERT_TRUE(shared == 0 || shared == static_cast<int>(r.columns.size()));
          }
          Row dup = b;
          for (const char* column : key) dup[column] = a[column];
          // A row that refers to itself would now refer to no row.
          for (const Table::Reference& r : t.references) {
            if (std::string(r.table) != t.name) continue;
            for (const char* column : r.columns) dup[column] = std::nullopt;
          }
          const std::string refusal = Insert(sql(), t, dup);
          EXPECT_TRUE(Contains(refusal, "unique") || Contains(refusal, "duplicate key"))
              << "refusal: " << refusal;
          if (GetParam() == Dialect::kSqlite) {
            // PostgreSQL has given up the transaction by now.
            EXPECT_EQ("", Insert(sql(), t, b)) << "the same row with its own key goes in";
          }
        });
      }
      if (GetParam() == Dialect::kPostgres) {
        RolledBack([&] {
          std::set<std::pair<std::string, int>> done;
          ASSERT_EQ("", InsertWithParents(sql(), t, 1, &done));
          EXPECT_EQ("", InsertWithParents(sql(), t, 2, &done))
              << "the same row with its own key goes in";
        });
      }
    }
  }
  EXPECT_EQ(20, keys);  // two keys of TSMPRMVL, one of each other written table
}

TEST_P(SchemaTest, NullInKeyDiffersFromBlank) {
  const Table& t = *FindTable("TSMVSTC");
  Row a = MakeRow(t, 1);
  a["SECONDARY_TYPE_CD"] = std::nullopt;
  ASSERT_EQ("", Insert(sql(), t, a));
  Row b = MakeRow(t, 2);
  b["PRIMARY_TYPE_CD"] = a["PRIMARY_TYPE_CD"];
  b["NATURAL_IND_CD"] = a["NATURAL_IND_CD"];
  b["SECONDARY_TYPE_CD"] = " ";
  EXPECT_EQ("", Insert(sql(), t, b)) << "a blank secondary is not NULL";
  Row c = MakeRow(t, 3);
  c["PRIMARY_TYPE_CD"] = a["PRIMARY_TYPE_CD"];
  c["NATURAL_IND_CD"] = a["NATURAL_IND_CD"];
  c["SECONDARY_TYPE_CD"] = std::nullopt;
  EXPECT_NE("", Insert(sql(), t, c)) << "two NULL secondaries are one key";
}

TEST_P(SchemaTest, FixedCharComparesBlankPadded) {
  struct Case {
    const char* table;
    const char* column;
    const char* stored;
    const char* probe;
    bool equal;
  };
  const Case kCases[] = {
      {"TSRLBRMK", "SHORT_NAME", "AB", "AB", true},
      {"TSRLBRMK", "SHORT_NAME", "AB", "AB   ", true},
      {"TSRLBRMK", "SHORT_NAME", "AB    ", "AB", true},
      {"TSRLBRMK", "SHORT_NAME", "AB", " AB", false},
      {"TSRLBRMK", "SHORT_NAME", " ", "", true},
      {"TSRLBRMK", "SHORT_NAME", "ab", "AB", false},
      {"TSMGEOPA", "COUNTRY_CODE", "U", "U ", true},
      {"TSRBIOPT", "NAME", "AB", "AB", true},
      {"TSRBIOPT", "NAME", "AB", "AB ", false},  // varchar: blanks count
      {"TSRBIOPT", "NAME", "AB ", "AB", false},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.table) + "." + c.column + " '" + c.stored + "' = '" + c.probe + "'");
    RolledBack([&] {
      const Table& t = *FindTable(c.table);
      Row row = MakeRow(t, 1);
      row[c.column] = c.stored;
      ASSERT_EQ("", Insert(sql(), t, row));
      std::string probe = c.probe;
      long long n = -1;
      sql() << std::string("SELECT count(*) FROM ") + t.name + " WHERE " + c.column + " = :p",
          soci::use(probe), soci::into(n);
      EXPECT_EQ(c.equal ? 1 : 0, n);
    });
  }
  // The unique key of a char column is blank padded too.
  const Table& t = *FindTable("TSRLBRMK");
  Row a = MakeRow(t, 100);
  a["SHORT_NAME"] = "XY";
  ASSERT_EQ("", Insert(sql(), t, a));
  Row b = MakeRow(t, 101);
  b["SHORT_NAME"] = "XY    ";
  EXPECT_NE("", Insert(sql(), t, b));
}

TEST_P(SchemaTest, TextSortsByByteValue) {
  // UTF-8: "é" is C3 A9, "Ÿ" C5 B8, "€" E2 82 AC; all sort after "z" (7A).
  const std::vector<std::string> names = {"z",   "\xC3\xA9", "a",        "Z", "B", "\xE2\x82\xAC",
                                          "A b", "Ab",       "\xC5\xB8", " x"};
  std::vector<std::string> sorted = names;
  std::sort(sorted.begin(), sorted.end());
  struct Case {
    const char* table;
    const char* column;
  };
  for (const Case& c : {Case{"TSRBIOPT", "NAME"}, Case{"TSRLBRMK", "SHORT_NAME"}}) {
    SCOPED_TRACE(std::string(c.table) + "." + c.column);
    const Table& t = *FindTable(c.table);
    int seed = 0;
    for (const std::string& name : names) {
      Row row = MakeRow(t, ++seed);
      row[c.column] = name;
      ASSERT_EQ("", Insert(sql(), t, row));
    }
    std::vector<std::string> got = Strings(
        sql(), std::string("SELECT ") + c.column + " FROM " + t.name + " ORDER BY " + c.column);
    for (std::string& s : got) {
      while (!s.empty() && s.back() == ' ') s.pop_back();  // char(6) comes back padded
    }
    EXPECT_EQ(sorted, got);
    std::string z = "z";
    long long after_z = -1;
    sql() << std::string("SELECT count(*) FROM ") + t.name + " WHERE " + c.column + " > :z",
        soci::use(z), soci::into(after_z);
    EXPECT_EQ(3, after_z) << "é, Ÿ and € sort after z";
  }
  if (GetParam() == Dialect::kPostgres) {
    // The test cluster's own locale is C, so the order above would hold
    // without the columns' collation: ask the catalog too.
    EXPECT_EQ(0, Count(sql(),
                       "SELECT count(*) FROM information_schema.columns "
                       "WHERE table_schema = current_schema() "
                       "AND data_type IN ('character', 'character varying') "
                       "AND coalesce(collation_name, '') <> 'C'"));
    EXPECT_LT(100, Count(sql(),
                         "SELECT count(*) FROM information_schema.columns "
                         "WHERE table_schema = current_schema() AND collation_name = 'C'"));
  }
}

TEST_P(SchemaTest, NullAllowedOnlyWhereListed) {
  struct Case {
    const char* table;
    const char* column;
    bool allowed;
  };
  const Case kCases[] = {
      {"TSMFHU", "NAME", true},
      {"TSRLBRMK", "SHORT_NAME", false},
      {"TSMEISN", "TABLE_VERSION", true},
      {"TSMEISN", "V_USERID_CODE", true},
      {"TSMEISN", "V_LAST_UPDATE_TS", true},
      {"TSMEISN", "IS_NUMBER", false},
      {"TSMVSTC", "SECONDARY_TYPE_CD", true},
      {"TSRANLPR", "DESCRIPTION_TEXT", false},
      {"TSRLBRMK", "D_LAST_UPDATE_TS", false},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.table) + "." + c.column);
    EXPECT_EQ(c.allowed, FindTable(c.table)->Find(c.column)->nullable);
  }
  // Every column of every table: NULL goes in exactly where it is allowed.
  int columns = 0;
  for (const Table& t : Tables()) {
    for (const Column& c : t.columns) {
      SCOPED_TRACE(std::string(t.name) + "." + c.name);
      ++columns;
      RolledBack([&] {
        std::set<std::pair<std::string, int>> done;
        for (const Table::Reference& r : t.references) {
          if (std::string(r.table) != t.name) {
            ASSERT_EQ("", InsertWithParents(sql(), *FindTable(r.table), 1, &done));
          }
        }
        Row row = MakeRow(t, 1);
        row[c.name] = std::nullopt;
        const std::string refusal = Insert(sql(), t, row);
        if (c.nullable) {
          EXPECT_EQ("", refusal);
        } else {
          EXPECT_TRUE(Contains(refusal, "NOT NULL") || Contains(refusal, "not-null"))
              << "refusal: " << refusal;
        }
      });
    }
  }
  EXPECT_GT(columns, 200);
}

TEST_P(SchemaTest, ValuesOutsideTheirColumnAreRefused) {
  struct Case {
    const char* table;
    const char* column;
    const char* value;
    bool accepted;
  };
  const Case kCases[] = {
      {"TSRLBRMK", "SHORT_NAME", "ABCDEF", true},
      {"TSRLBRMK", "SHORT_NAME", "ABCDEFG", false},
      {"TSRLBRMK", "SHORT_NAME", "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", true},
      {"TSRLBRMK", "DESCRIPTION_TEXT", "", true},
      {"TSRBIOPT", "NAME", "123456789012345678901234567890", true},
      {"TSRBIOPT", "NAME", "1234567890123456789012345678901", false},
      {"TSMPRMVL", "SEQUENCE_NUMBER", "999", true},
      {"TSMPRMVL", "SEQUENCE_NUMBER", "1000", false},
      {"TSRLBRMK", "TSRLBRMK_IS_NUMBER", "999999999999", true},
      {"TSRLBRMK", "TSRLBRMK_IS_NUMBER", "1000000000000", false},
      {"TSMFHU", "LAT_MAX_DEGREE", "-9999999999.5", true},
      {"TSMFHU", "LAT_MAX_DEGREE", "10000000000", false},
      {"TSRLBRMK", "D_LAST_UPDATE_TS", "2024-02-29 23:59:59", true},
      {"TSRLBRMK", "D_LAST_UPDATE_TS", "2023-02-29 00:00:00", false},
      {"TSRLBRMK", "D_LAST_UPDATE_TS", "soon", false},
  };
  int seed = 0;
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.table) + "." + c.column + " = '" + c.value + "'");
    RolledBack([&] {
      const Table& t = *FindTable(c.table);
      Row row = MakeRow(t, ++seed);
      row[c.column] = c.value;
      const std::string refusal = Insert(sql(), t, row);
      EXPECT_EQ(c.accepted, refusal.empty()) << refusal;
    });
  }
}

TEST_P(SchemaTest, ReferencesHoldAtTheEndOfATransaction) {
  const Table& activity = *FindTable("TSRFDACT");
  // A reference to no row is refused (on PostgreSQL at commit).
  {
    sql() << "BEGIN";
    std::string refusal = Insert(sql(), activity, MakeRow(activity, 1));
    if (refusal.empty()) {
      try {
        sql() << "COMMIT";
      } catch (const soci::soci_error& e) {
        refusal = e.what();  // PostgreSQL ends the transaction on its refusal
      }
    } else {
      sql() << "ROLLBACK";
    }
    EXPECT_TRUE(Contains(refusal, "foreign key")) << "refusal: " << refusal;
  }
  ASSERT_EQ("", InsertWithParents(sql(), activity, 1));
  // A cascade removes the parent first, then its dependant.
  sql() << "BEGIN";
  if (GetParam() == Dialect::kSqlite) sql() << "PRAGMA defer_foreign_keys = ON";
  sql() << "DELETE FROM TSRBIOPT";
  sql() << "DELETE FROM TSRFDACT";
  EXPECT_NO_THROW(sql() << "COMMIT");
  EXPECT_EQ(0, Count(sql(), "SELECT count(*) FROM TSRBIOPT"));
  // Removing the parent alone is refused.
  ASSERT_EQ("", InsertWithParents(sql(), activity, 2));
  sql() << "BEGIN";
  if (GetParam() == Dialect::kSqlite) sql() << "PRAGMA defer_foreign_keys = ON";
  sql() << "DELETE FROM TSRBIOPT";
  EXPECT_THROW(sql() << "COMMIT", soci::soci_error);
  // SQLite keeps the transaction open after a refused COMMIT.
  if (GetParam() == Dialect::kSqlite) sql() << "ROLLBACK";
  EXPECT_EQ(1, Count(sql(), "SELECT count(*) FROM TSRBIOPT"));
}

INSTANTIATE_TEST_SUITE_P(Backends, SchemaTest, testing::kBackends, testing::BackendName);

}  // namespace
}  // namespace lk::store
