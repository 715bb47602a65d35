// The cascade delete entries, the cascade step service and the REMOVE action
// blocks' root call and cascade loop. The database cases run on SQLite and
// on a private PostgreSQL cluster, each in a transaction of the host's own
// kind (store/database.h); the step service and the rules' agreement with
// the schema need no database.
#include "store/cascade.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/host_port.h"
#include "frame/run_context.h"
#include "frame/unit.h"
#include "store/cascade_loop.h"
#include "store/cascade_rules.h"
#include "store/cascade_step.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/soci.h"
#include "store/test_database.h"

namespace lk::store {
namespace {

// ---- Key records, filled as the text move service fills them ----

template <std::size_t N>
void Move(char (&field)[N], const char* text) {
  const std::size_t n = std::min(std::strlen(text), N - 1);
  std::memcpy(field, text, n);
  std::memset(field + n, ' ', N - 1 - n);
  field[N - 1] = '\0';
}

IsNumberKey IsKey(double number, const char* org_id) {
  IsNumberKey key{};
  key.is_number = number;
  Move(key.org_id, org_id);
  return key;
}

template <int kWidth>
CodeKey<kWidth> Code(const char* code, const char* org_id) {
  CodeKey<kWidth> key{};
  Move(key.code, code);
  Move(key.org_id, org_id);
  return key;
}

template <typename Record>
std::vector<char> Bytes(const Record& record) {
  const char* p = reinterpret_cast<const char*>(&record);
  return std::vector<char>(p, p + sizeof record);
}

// ---- Rows ----

// A column value to insert: a number or a text.
struct Value {
  bool is_text = false;
  long long number = 0;
  std::string text;
};
Value Num(long long number) { return {false, number, {}}; }
Value Txt(const char* text) { return {true, 0, text}; }
using Row = std::map<std::string, Value>;

struct TableRow {
  const char* table;
  Row row;
};

// A value as an SQL literal of a test's predicate.
std::string Literal(const Value& v) {
  return v.is_text ? "'" + v.text + "'" : std::to_string(v.number);
}

// ---- Hooks that count ----

int g_step_calls = 0;
bool g_refuse_keys = false;  // answer every key request with "RQ"
void CountingStepService(HandleA a, HandleB b, CascadeRecord* record, const char* descriptor) {
  ++g_step_calls;
  if (g_refuse_keys && record->first == 'R') {
    std::memcpy(record->result, "RQ", 2);
    return;
  }
  CascadeStep(a, b, record, descriptor);
}

int g_dependent_calls = 0;
void CountingDependent(HandleA, HandleB, RunContext*, CascadeRecord*, const void*,
                       std::uint32_t*) {
  ++g_dependent_calls;
}

constexpr UnitId kRemoveUnit = {"0017498133", "REMOVE_UNDER_TEST"};

bool Blank(const char* status) {
  return (status[0] == ' ' || status[0] == '\0') && (status[1] == ' ' || status[1] == '\0');
}

// ---- The fixture: a fresh database with the schema, a session port, a
// RunContext, and a transaction open ----

class CascadeTest : public ::testing::TestWithParam<Dialect> {
 protected:
  void SetUp() override {
    std::string why_not;
    const std::string url = testing::NewDatabaseUrl(GetParam(), &path_, &why_not);
    ASSERT_FALSE(url.empty()) << why_not;
    std::string error;
    db_ = Database::Open(url, &error);
    ASSERT_NE(nullptr, db_) << error;
    CreateSchema(*db_->connection());
    port_ = SessionPort{nullptr, nullptr, db_->connection()};
    ResetRunContext(&rc_, area_);
    std::memset(&record_, 0, sizeof record_);
    previous_service_ = SetCascadeStepServiceForTesting(&CountingStepService);
    g_step_calls = 0;
    g_dependent_calls = 0;
    g_refuse_keys = false;
    ASSERT_TRUE(db_->Begin(&error)) << error;
  }

  void TearDown() override {
    SetCascadeStepServiceForTesting(previous_service_);
    g_refuse_keys = false;
    StartPendingQueue(&record_, {}, {});
    db_.reset();
    testing::RemoveSqliteFiles(path_);
  }

  soci::session& sql() { return *db_->connection()->sql; }
  HandleA a() { return &port_; }

  // Inserts a row of `table`: the given columns, and a made-up value for
  // every other column that may not be NULL.
  void Insert(const char* table, const Row& given) {
    const Table* t = FindTable(table);
    ASSERT_NE(nullptr, t) << table;
    for (const auto& [name, value] : given) ASSERT_NE(nullptr, t->Find(name)) << name;
    const long long serial = ++serial_;
    std::vector<Value> values;
    std::string columns;
    std::string places;
    for (const Column& c : t->columns) {
      auto it = given.find(c.name);
      if (it == given.end() && c.nullable) continue;
      values.push_back(it != given.end() ? it->second : MadeUp(c, serial));
      if (!columns.empty()) {
        columns += ", ";
        places += ", ";
      }
      columns += c.name;
      places += ":p" + std::to_string(values.size() - 1);
    }
    soci::statement st(sql());
    for (Value& v : values) {
      if (v.is_text) {
        st.exchange(soci::use(v.text));
      } else {
        st.exchange(soci::use(v.number));
      }
    }
    st.alloc();
    st.prepare(std::string("INSERT INTO ") + table + " (" + columns + ") VALUES (" + places +
               ")");
    st.define_and_bind();
    st.execute(true);
  }

  void InsertAll(const std::vector<TableRow>& rows) {
    for (const TableRow& r : rows) {
      Insert(r.table, r.row);
      if (HasFatalFailure()) return;
    }
  }

  long long Count(const std::string& table, const std::string& where) {
    long long n = -1;
    sql() << "SELECT COUNT(*) FROM " + table + " WHERE " + where, soci::into(n);
    return n;
  }

  // The predicate that finds `row` of `table` by its primary key.
  static std::string KeyOf(const char* table, const Row& row) {
    std::string where;
    for (const char* column : FindTable(table)->primary_key) {
      if (!where.empty()) where += " AND ";
      where += std::string(column) + " = " + Literal(row.at(column));
    }
    return where;
  }

  long long CountRow(const TableRow& r) { return Count(r.table, KeyOf(r.table, r.row)); }

  // Ends the arranging transaction and opens the one the test acts in.
  void Arranged() {
    std::string error;
    ASSERT_TRUE(db_->Commit(&error)) << error;
    ASSERT_TRUE(db_->Begin(&error)) << error;
  }

  // Runs `body` as inside an action block's abort frame; true if it jumped.
  template <typename Body>
  bool Aborts(Body&& body, int* jump = nullptr) {
    try {
      body();
    } catch (const UnitAbort& abort) {
      if (jump != nullptr) *jump = abort.value;
      return true;
    }
    return false;
  }

  bool Remove(DeleteEntry entry, const void* key, CascadeSteps steps, int* jump = nullptr) {
    return Aborts(
        [&] {
          RemoveThroughCascade(a(), nullptr, &rc_, &record_, entry, key, entity_status_, steps,
                               kRemoveUnit);
        },
        jump);
  }

  static Value MadeUp(const Column& c, long long serial) {
    const std::string digits = std::to_string(serial);
    switch (c.type) {
      case ColumnType::kChar:
        return Txt(digits.substr(digits.size() > static_cast<std::size_t>(c.width)
                                     ? digits.size() - c.width
                                     : 0)
                       .c_str());
      case ColumnType::kVarchar:
        return Txt(("V" + digits).substr(0, c.width).c_str());
      case ColumnType::kNumber12:
      case ColumnType::kNumber3:
        return Num(serial % 1000);
      case ColumnType::kNumber14_4:
        return Num(12);
      case ColumnType::kDate:
        return Txt("2004-05-13 09:19:54");
    }
    return Txt("");
  }

  std::unique_ptr<Database> db_;
  std::string path_;
  SessionPort port_{};
  RunContext rc_{};
  char area_[kDatabaseAreaSize]{};
  CascadeRecord record_{};
  char entity_status_[3] = "OK";
  CascadeStepService previous_service_ = nullptr;
  long long serial_ = 100;
};

// Parents that several cases need.
const TableRow kStationType = {"TSMVSTC", {{"TSMVSTC_IS_NUMBER", Num(1)},
                                           {"TSMVSTC_ORG_ID", Txt("ORG1")}}};
TableRow Station(long long n) {
  return {"TSMSTATN", {{"TSMSTATN_IS_NUMBER", Num(n)}, {"TSMSTATN_ORG_ID", Txt("ORG1")},
                       {"TSMVSTC_IS_NUMBER", Num(1)}, {"TSMVSTC_ORG_ID", Txt("ORG1")}}};
}
TableRow IsRow(const char* table, long long n, const char* org_id) {
  const std::string t = table;
  return {table, {{t + "_IS_NUMBER", Num(n)}, {t + "_ORG_ID", Txt(org_id)}}};
}

// ---- Every root entry deletes its row and no other ----

struct RootCase {
  const char* entry_name;
  DeleteEntry entry;
  std::vector<TableRow> parents;
  TableRow gone;   // the row whose key the entry gets
  TableRow stays;  // the same table, another key
  std::vector<char> key;
  CascadeSteps steps;  // the REMOVE action block's table of steps
};

std::vector<RootCase> RootCases() {
  CharacteristicTypeKey type_key{};
  Move(type_key.category, "CHEMICAL");
  Move(type_key.subcategory, "Metals");
  Move(type_key.org_id, "ORG1");
  CategoryAssignmentKey assignment_key{};
  assignment_key.tsrchar_is_number = 1;
  Move(assignment_key.tsrchar_org_id, "ORG1");
  Move(assignment_key.tsrchtyp_category, "CHEMICAL");
  Move(assignment_key.tsrchtyp_subcatgry, "Solids");
  Move(assignment_key.tsrchtyp_org_id, "ORG1");
  NativeAmericanLandKey land_key{};
  Move(land_key.code, "NAL01");
  Move(land_key.state, "AZ");
  Move(land_key.org_id, "ORG1");

  auto type = [](const char* subcategory) {
    return TableRow{"TSRCHTYP", {{"TSRCHTYP_CATEGORY", Txt("CHEMICAL")},
                                 {"TSRCHTYP_SUBCATGRY", Txt(subcategory)},
                                 {"TSRCHTYP_ORG_ID", Txt("ORG1")}}};
  };
  auto assignment = [](const char* subcategory) {
    return TableRow{"TSRCTCA", {{"TSRCHAR_IS_NUMBER", Num(1)}, {"TSRCHAR_ORG_ID", Txt("ORG1")},
                                {"TSRCHTYP_CATEGORY", Txt("CHEMICAL")},
                                {"TSRCHTYP_SUBCATGRY", Txt(subcategory)},
                                {"TSRCHTYP_ORG_ID", Txt("ORG1")}}};
  };
  auto code = [](const char* table, const char* column, const char* value, const char* org) {
    return TableRow{table, {{column, Txt(value)}, {std::string(table) + "_ORG_ID", Txt(org)}}};
  };
  auto is_case = [](const char* name, DeleteEntry entry, const char* table,
                    CascadeSteps steps = {}) {
    return RootCase{name, entry, {}, IsRow(table, 7, "ORG1"), IsRow(table, 7, "ORG2"),
                    Bytes(IsKey(7, "ORG1")), steps};
  };

  return {
      is_case("E2738301", &E2738301, "TSRLBRMK"),
      is_case("E0591960", &E0591960, "TSRBIOPT"),
      is_case("E4348087", &E4348087, "TSMPSR"),
      is_case("E2738395", &E2738395, "TSRUOM"),
      {"E2173100", &E2173100, {}, code("TSMLTHUN", "TSMLTHUN_CD", "LITH1", "ORG1"),
       code("TSMLTHUN", "TSMLTHUN_CD", "LITH1", "ORG2"), Bytes(Code<12>("LITH1", "ORG1")), {}},
      {"E2173103", &E2173103, {}, code("TSMGEOUN", "TSMGEOUN_CD", "GEO1", "ORG1"),
       code("TSMGEOUN", "TSMGEOUN_CD", "GEO1", "ORG2"), Bytes(Code<12>("GEO1", "ORG1")),
       kGeologicUnitSteps},
      {"E6427297", &E6427297, {}, code("TSMSIC", "TSMSIC_CODE", "1311", "ORG1"),
       code("TSMSIC", "TSMSIC_CODE", "1311", "ORG2"), Bytes(Code<4>("1311", "ORG1")),
       kStandardIndustrialCodeSteps},
      is_case("E2167124", &E2167124, "TSMFHU"),
      {"E6375965", &E6375965, {},
       {"TSMNAL", {{"TSMNAL_CD", Txt("NAL01")}, {"TSMNAL_STATE", Txt("AZ")},
                   {"TSMNAL_ORG_ID", Txt("ORG1")}}},
       {"TSMNAL", {{"TSMNAL_CD", Txt("NAL01")}, {"TSMNAL_STATE", Txt("NM")},
                   {"TSMNAL_ORG_ID", Txt("ORG1")}}},
       Bytes(land_key), {}},
      is_case("E9874205", &E9874205, "TSMVSTC"),
      is_case("E2738391", &E2738391, "TSRFLDGR", kNatFieldGearSteps),
      is_case("E2738397", &E2738397, "TSRANLEQ"),
      is_case("E2738402", &E2738402, "TSRANLPR", kNatAnalyticalProcedureSteps),
      is_case("E9555774", &E9555774, "TSRLSPP"),
      is_case("E3022453", &E3022453, "TSMPRMVL"),
      is_case("E2738406", &E2738406, "TSRCHAR"),
      {"E0595618", &E0595618, {}, type("Metals"), type("Nutrients"), Bytes(type_key), {}},
      {"E0595621", &E0595621, {IsRow("TSRCHAR", 1, "ORG1"), type("Solids"), type("Gases")},
       assignment("Solids"), assignment("Gases"), Bytes(assignment_key), {}},
      is_case("E2174604", &E2174604, "TSMGEOPA"),
  };
}

TEST_P(CascadeTest, EveryRootEntryDeletesItsRowAndNoOther) {
  const std::vector<RootCase> cases = RootCases();
  ASSERT_EQ(cascade::RootRules().size(), cases.size());
  for (const RootCase& c : cases) {
    SCOPED_TRACE(c.entry_name);
    InsertAll(c.parents);
    Insert(c.gone.table, c.gone.row);
    Insert(c.stays.table, c.stays.row);
    ASSERT_FALSE(HasFatalFailure());
    Arranged();
    g_step_calls = 0;

    EXPECT_FALSE(Remove(c.entry, c.key.data(), c.steps)) << rc_.database_area;
    EXPECT_TRUE(Blank(rc_.status)) << rc_.status << " " << rc_.database_area;
    EXPECT_EQ(0, CountRow(c.gone));
    EXPECT_EQ(1, CountRow(c.stays));
    // A table without dependants asks the step service nothing; one with
    // dependants asks once and hears that no work is pending.
    EXPECT_EQ(c.steps.empty() ? 0 : 1, g_step_calls);

    std::string error;
    ASSERT_TRUE(db_->Commit(&error)) << error;
    ASSERT_TRUE(db_->Begin(&error)) << error;
    EXPECT_EQ(0, CountRow(c.gone));
    EXPECT_EQ(1, CountRow(c.stays));
  }
}

TEST_P(CascadeTest, AnAlreadyDeletedRowIsNoFailure) {
  const IsNumberKey key = IsKey(99, "ORG1");
  EXPECT_FALSE(Remove(&E2738301, &key, {}));
  EXPECT_TRUE(Blank(rc_.status));
}

// ---- Dependent steps ----

TEST_P(CascadeTest, GeologicUnitGoesWithItsSpringsAndIntervalsInOneTransaction) {
  const std::vector<TableRow> rows = {
      kStationType, Station(10), Station(11),
      {"TSMGEOUN", {{"TSMGEOUN_CD", Txt("GEO1")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}},
      {"TSMGEOUN", {{"TSMGEOUN_CD", Txt("GEO2")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}},
      {"TSMSPRNG", {{"TSMSTATN_IS_NUMBER", Num(10)}, {"TSMSTATN_ORG_ID", Txt("ORG1")},
                    {"TSMGEOUN_CD", Txt("GEO1")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}},
      {"TSMSPRNG", {{"TSMSTATN_IS_NUMBER", Num(11)}, {"TSMSTATN_ORG_ID", Txt("ORG1")},
                    {"TSMGEOUN_CD", Txt("GEO2")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}},
      {"TSMIGUA", {{"TSMIGUA_IS_NUMBER", Num(1)}, {"TSMIGUA_ORG_ID", Txt("ORG1")},
                   {"TSMGEOUN_CD", Txt("GEO1")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}},
      {"TSMIGUA", {{"TSMIGUA_IS_NUMBER", Num(2)}, {"TSMIGUA_ORG_ID", Txt("ORG1")},
                   {"TSMGEOUN_CD", Txt("GEO1")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}},
      {"TSMIGUA", {{"TSMIGUA_IS_NUMBER", Num(3)}, {"TSMIGUA_ORG_ID", Txt("ORG1")},
                   {"TSMGEOUN_CD", Txt("GEO2")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}},
  };
  const std::string geo1 = "TSMGEOUN_CD = 'GEO1'";
  const std::string geo2 = "TSMGEOUN_CD = 'GEO2'";
  const Code12Key key = Code<12>("GEO1", "ORG1");

  for (const bool commit : {true, false}) {
    SCOPED_TRACE(commit ? "commit" : "rollback");
    InsertAll(rows);
    ASSERT_FALSE(HasFatalFailure());
    Arranged();
    g_step_calls = 0;
    rc_.unit_number[0] = '\0';

    EXPECT_FALSE(Remove(&E2173103, &key, kGeologicUnitSteps)) << rc_.database_area;
    EXPECT_TRUE(Blank(rc_.status)) << rc_.database_area;
    // Three dependants: a request and a key for each, and the last request.
    EXPECT_EQ(7, g_step_calls);
    EXPECT_NE(0, std::memcmp(record_.result, "OK", 2));
    EXPECT_STREQ(kRemoveUnit.number, rc_.unit_number);
    EXPECT_STREQ(kRemoveUnit.name, rc_.unit_name);
    for (const char* table : {"TSMGEOUN", "TSMSPRNG", "TSMIGUA"}) {
      SCOPED_TRACE(table);
      EXPECT_EQ(0, Count(table, geo1));
      EXPECT_EQ(1, Count(table, geo2));
    }
    EXPECT_EQ(2, Count("TSMSTATN", "1 = 1"));

    std::string error;
    if (commit) {
      ASSERT_TRUE(db_->Commit(&error)) << error;
      ASSERT_TRUE(db_->Begin(&error)) << error;
      EXPECT_EQ(0, Count("TSMGEOUN", geo1) + Count("TSMSPRNG", geo1) + Count("TSMIGUA", geo1));
      // Leave the tables as they were for the rollback round.
      sql() << "DELETE FROM TSMIGUA";
      sql() << "DELETE FROM TSMSPRNG";
      sql() << "DELETE FROM TSMGEOUN";
      sql() << "DELETE FROM TSMSTATN";
      sql() << "DELETE FROM TSMVSTC";
    } else {
      db_->Rollback();
      ASSERT_TRUE(db_->Begin(&error)) << error;
      EXPECT_EQ(1, Count("TSMGEOUN", geo1));
      EXPECT_EQ(1, Count("TSMSPRNG", geo1));
      EXPECT_EQ(2, Count("TSMIGUA", geo1));
    }
  }
}

TEST_P(CascadeTest, IndustrialClassGoesWithItsFacilityAssignments) {
  InsertAll({kStationType, Station(10), Station(11),
             {"TSMSIC", {{"TSMSIC_CODE", Txt("1311")}, {"TSMSIC_ORG_ID", Txt("ORG1")}}},
             {"TSMSIC", {{"TSMSIC_CODE", Txt("1312")}, {"TSMSIC_ORG_ID", Txt("ORG1")}}}});
  for (long long station : {10, 11}) {
    for (const char* sic : {"1311", "1312"}) {
      Insert("TSMFSA", {{"TSMSTATN_IS_NUMBER", Num(station)}, {"TSMSTATN_ORG_ID", Txt("ORG1")},
                        {"TSMSIC_CODE", Txt(sic)}, {"TSMSIC_ORG_ID", Txt("ORG1")}});
    }
  }
  ASSERT_FALSE(HasFatalFailure());
  Arranged();

  const Code4Key key = Code<4>("1311", "ORG1");
  EXPECT_FALSE(Remove(&E6427297, &key, kStandardIndustrialCodeSteps)) << rc_.database_area;
  EXPECT_TRUE(Blank(rc_.status)) << rc_.database_area;
  EXPECT_EQ(0, Count("TSMFSA", "TSMSIC_CODE = '1311'"));
  EXPECT_EQ(2, Count("TSMFSA", "TSMSIC_CODE = '1312'"));
  EXPECT_EQ(0, Count("TSMSIC", "TSMSIC_CODE = '1311'"));
  std::string error;
  EXPECT_TRUE(db_->Commit(&error)) << error;
}

TEST_P(CascadeTest, ProcedureCutsTheReferencesOfOtherProcedures) {
  auto procedure = [](long long n, long long refers_to) {
    TableRow r = IsRow("TSRANLPR", n, "ORG1");
    if (refers_to != 0) {
      r.row["TSRANLPR0IS_NUMBER"] = Num(refers_to);
      r.row["TSRANLPR0ORG_ID"] = Txt("ORG1");
    }
    return r;
  };
  // 1 names itself; 2 and 3 name 1; 4 names 2.
  InsertAll({procedure(1, 1), procedure(2, 1), procedure(3, 1), procedure(4, 2)});
  ASSERT_FALSE(HasFatalFailure());
  Arranged();

  const IsNumberKey key = IsKey(1, "ORG1");
  EXPECT_FALSE(Remove(&E2738402, &key, kNatAnalyticalProcedureSteps)) << rc_.database_area;
  EXPECT_TRUE(Blank(rc_.status)) << rc_.database_area;
  EXPECT_EQ(5, g_step_calls);  // two dependants
  EXPECT_EQ(0, Count("TSRANLPR", "TSRANLPR_IS_NUMBER = 1"));
  EXPECT_EQ(2, Count("TSRANLPR", "TSRANLPR_IS_NUMBER IN (2, 3) AND TSRANLPR0IS_NUMBER IS NULL "
                                 "AND TSRANLPR0ORG_ID IS NULL"));
  EXPECT_EQ(1, Count("TSRANLPR", "TSRANLPR_IS_NUMBER = 4 AND TSRANLPR0IS_NUMBER = 2"));
  std::string error;
  EXPECT_TRUE(db_->Commit(&error)) << error;
}

TEST_P(CascadeTest, EquipmentCutsTheReferencesOfItsProcedures) {
  TableRow procedure = IsRow("TSRANLPR", 1, "ORG1");
  procedure.row["TSRANLEQ_IS_NUMBER"] = Num(5);
  procedure.row["TSRANLEQ_ORG_ID"] = Txt("ORG1");
  InsertAll({IsRow("TSRANLEQ", 5, "ORG1"), procedure});
  ASSERT_FALSE(HasFatalFailure());
  Arranged();

  const IsNumberKey key = IsKey(5, "ORG1");
  EXPECT_FALSE(Remove(&E2738397, &key, {})) << rc_.database_area;
  EXPECT_TRUE(Blank(rc_.status)) << rc_.database_area;
  EXPECT_EQ(0, Count("TSRANLEQ", "1 = 1"));
  EXPECT_EQ(1, Count("TSRANLPR", "TSRANLEQ_IS_NUMBER IS NULL AND TSRANLEQ_ORG_ID IS NULL"));
  std::string error;
  EXPECT_TRUE(db_->Commit(&error)) << error;
}

TEST_P(CascadeTest, CharacteristicGoesWithItsAssignmentsAndAliases) {
  InsertAll({IsRow("TSRCHAR", 1, "ORG1"), IsRow("TSRCHAR", 2, "ORG1"),
             {"TSRCHTYP", {{"TSRCHTYP_CATEGORY", Txt("CHEMICAL")},
                           {"TSRCHTYP_SUBCATGRY", Txt("Metals")},
                           {"TSRCHTYP_ORG_ID", Txt("ORG1")}}},
             IsRow("TSRCALT", 1, "ORG1")});
  for (long long characteristic : {1, 2}) {
    Insert("TSRCTCA", {{"TSRCHAR_IS_NUMBER", Num(characteristic)},
                       {"TSRCHAR_ORG_ID", Txt("ORG1")},
                       {"TSRCHTYP_CATEGORY", Txt("CHEMICAL")},
                       {"TSRCHTYP_SUBCATGRY", Txt("Metals")},
                       {"TSRCHTYP_ORG_ID", Txt("ORG1")}});
    Insert("TSRCHALS", {{"TSRCHALS_IS_NUMBER", Num(characteristic)},
                        {"TSRCHALS_ORG_ID", Txt("ORG1")},
                        {"TSRCHAR_IS_NUMBER", Num(characteristic)},
                        {"TSRCHAR_ORG_ID", Txt("ORG1")},
                        {"TSRCALT_IS_NUMBER", Num(1)},
                        {"TSRCALT_ORG_ID", Txt("ORG1")}});
  }
  ASSERT_FALSE(HasFatalFailure());
  Arranged();

  const IsNumberKey key = IsKey(1, "ORG1");
  EXPECT_FALSE(Remove(&E2738406, &key, {})) << rc_.database_area;
  EXPECT_TRUE(Blank(rc_.status)) << rc_.database_area;
  for (const char* table : {"TSRCHAR", "TSRCTCA", "TSRCHALS"}) {
    SCOPED_TRACE(table);
    EXPECT_EQ(0, Count(table, "TSRCHAR_IS_NUMBER = 1"));
    EXPECT_EQ(1, Count(table, "TSRCHAR_IS_NUMBER = 2"));
  }
  std::string error;
  EXPECT_TRUE(db_->Commit(&error)) << error;
}

TEST_P(CascadeTest, ARuleTheBlockDoesNotKnowEndsWithFE) {
  InsertAll({{"TSMGEOUN", {{"TSMGEOUN_CD", Txt("GEO1")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}},
             {"TSMIGUA", {{"TSMIGUA_IS_NUMBER", Num(1)}, {"TSMIGUA_ORG_ID", Txt("ORG1")},
                          {"TSMGEOUN_CD", Txt("GEO1")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}}});
  ASSERT_FALSE(HasFatalFailure());
  Arranged();
  std::memset(area_, 'x', sizeof area_);
  const std::uint32_t relationships[] = {kGeologicUnitSprings, kGeologicUnitIntervals};
  // The table knows another rule only.
  const CascadeStepRow rows[] = {{kGeologicUnitRule + 1, relationships, &CountingDependent}};

  const Code12Key key = Code<12>("GEO1", "ORG1");
  int jump = 0;
  EXPECT_TRUE(Remove(&E2173103, &key, rows, &jump));
  EXPECT_EQ(0x100, jump);
  EXPECT_STREQ("FE", rc_.status);
  EXPECT_STREQ("FE", rc_.status_detail);
  EXPECT_EQ(std::string(kDatabaseAreaSize, '\0'), std::string(area_, kDatabaseAreaSize));
  EXPECT_EQ(1, g_step_calls);
  EXPECT_EQ(0, g_dependent_calls);
  EXPECT_EQ(kGeologicUnitRule, record_.rule);
}

TEST_P(CascadeTest, NoPendingWorkEndsAtTheFirstStepRequest) {
  Insert("TSMGEOUN", {{"TSMGEOUN_CD", Txt("GEO1")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}});
  ASSERT_FALSE(HasFatalFailure());
  Arranged();
  const std::uint32_t relationships[] = {kGeologicUnitSprings, kGeologicUnitIntervals};
  const CascadeStepRow rows[] = {{kGeologicUnitRule, relationships, &CountingDependent}};
  std::strcpy(rc_.unit_name, "SOMETHING_ELSE");

  const Code12Key key = Code<12>("GEO1", "ORG1");
  EXPECT_FALSE(Remove(&E2173103, &key, rows));
  EXPECT_TRUE(Blank(rc_.status));
  EXPECT_EQ(1, g_step_calls);
  EXPECT_EQ(0, g_dependent_calls);
  EXPECT_NE(0, std::memcmp(record_.result, "OK", 2));
  EXPECT_STREQ(kRemoveUnit.name, rc_.unit_name);
  EXPECT_EQ(0, Count("TSMGEOUN", "1 = 1"));
}

TEST_P(CascadeTest, AFailingStepJumpsWith512) {
  InsertAll({{"TSMGEOUN", {{"TSMGEOUN_CD", Txt("GEO1")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}},
             {"TSMIGUA", {{"TSMIGUA_IS_NUMBER", Num(1)}, {"TSMIGUA_ORG_ID", Txt("ORG1")},
                          {"TSMGEOUN_CD", Txt("GEO1")}, {"TSMGEOUN_ORG_ID", Txt("ORG1")}}}});
  ASSERT_FALSE(HasFatalFailure());
  Arranged();
  const Code12Key key = Code<12>("GEO1", "ORG1");
  struct Case {
    const char* name;
    std::vector<std::uint32_t> relationships;  // what the block's table knows
    DeleteEntry entry;
    bool refuse_keys;
    int dependent_calls;
    bool area_zeroed;
  } cases[] = {
      // The relationship is known, the entry is of another rule: it refuses
      // the token.
      {"entry of another rule", {kGeologicUnitIntervals}, &E6427302, false, 0, false},
      // The relationship is unknown: no key is asked for, and the entry
      // refuses the token it does not know.
      {"unknown relationship", {kGeologicUnitSprings}, &E6427302, false, 0, false},
      // The step service gives no key: the entry is not called.
      {"no key", {kGeologicUnitIntervals}, &CountingDependent, true, 0, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ResetRunContext(&rc_, area_);
    std::memset(area_, 'x', sizeof area_);
    g_refuse_keys = c.refuse_keys;
    g_dependent_calls = 0;
    const CascadeStepRow rows[] = {{kGeologicUnitRule, c.relationships, c.entry}};
    int jump = 0;
    EXPECT_TRUE(Remove(&E2173103, &key, rows, &jump));
    EXPECT_EQ(512, jump);
    EXPECT_STREQ("FE", rc_.status);
    EXPECT_STREQ("FE", rc_.status_detail);
    EXPECT_EQ(c.dependent_calls, g_dependent_calls);
    EXPECT_EQ(c.area_zeroed,
              std::string(kDatabaseAreaSize, '\0') == std::string(area_, kDatabaseAreaSize));
    db_->Rollback();
    std::string error;
    ASSERT_TRUE(db_->Begin(&error)) << error;
  }
}

// ---- The database refuses a row still referred to by a table without a
// step ----

TEST_P(CascadeTest, ARowStillReferredToIsRefusedThroughTheStatus) {
  struct Case {
    const char* name;
    DeleteEntry entry;
    std::vector<TableRow> rows;
    std::vector<char> key;
    TableRow kept;
  };
  TableRow result = IsRow("TSRRSULT", 1, "ORG1");
  result.row["TSRUOM_IS_NUMBER"] = Num(7);
  result.row["TSRUOM_ORG_ID"] = Txt("ORG1");
  TableRow quality = IsRow("TSRRQCAF", 1, "ORG1");
  quality.row["TSRUOM_IS_NUMBER"] = Num(7);
  quality.row["TSRUOM_ORG_ID"] = Txt("ORG1");
  TableRow activity = IsRow("TSRFDACT", 1, "ORG1");
  activity.row["TSRBIOPT_IS_NUMBER"] = Num(7);
  activity.row["TSRBIOPT_ORG_ID"] = Txt("ORG1");
  TableRow second_area = IsRow("TSMALP", 1, "ORG1");
  second_area.row["TSMGEOPA0IS_NUMBER"] = Num(7);
  second_area.row["TSMGEOPA0ORG_ID"] = Txt("ORG1");
  TableRow land_use = IsRow("TSMALP", 1, "ORG1");
  land_use.row["TSMNAL_CD"] = Txt("NAL01");
  land_use.row["TSMNAL_STATE"] = Txt("AZ");
  land_use.row["TSMNAL_ORG_ID"] = Txt("ORG1");
  const TableRow land = {"TSMNAL", {{"TSMNAL_CD", Txt("NAL01")}, {"TSMNAL_STATE", Txt("AZ")},
                                    {"TSMNAL_ORG_ID", Txt("ORG1")}}};
  NativeAmericanLandKey land_key{};
  Move(land_key.code, "NAL01");
  Move(land_key.state, "AZ");
  Move(land_key.org_id, "ORG1");
  const TableRow type = {"TSRCHTYP", {{"TSRCHTYP_CATEGORY", Txt("CHEMICAL")},
                                      {"TSRCHTYP_SUBCATGRY", Txt("Metals")},
                                      {"TSRCHTYP_ORG_ID", Txt("ORG1")}}};
  const TableRow assignment = {"TSRCTCA", {{"TSRCHAR_IS_NUMBER", Num(1)},
                                           {"TSRCHAR_ORG_ID", Txt("ORG1")},
                                           {"TSRCHTYP_CATEGORY", Txt("CHEMICAL")},
                                           {"TSRCHTYP_SUBCATGRY", Txt("Metals")},
                                           {"TSRCHTYP_ORG_ID", Txt("ORG1")}}};
  CharacteristicTypeKey type_key{};
  Move(type_key.category, "CHEMICAL");
  Move(type_key.subcategory, "Metals");
  Move(type_key.org_id, "ORG1");
  TableRow station = Station(1);
  station.row["TSMVSTC_IS_NUMBER"] = Num(7);

  const Case cases[] = {
      {"TSRUOM by TSRRSULT", &E2738395, {IsRow("TSRUOM", 7, "ORG1"), result},
       Bytes(IsKey(7, "ORG1")), IsRow("TSRUOM", 7, "ORG1")},
      {"TSRUOM by TSRRQCAF", &E2738395, {IsRow("TSRUOM", 7, "ORG1"), quality},
       Bytes(IsKey(7, "ORG1")), IsRow("TSRUOM", 7, "ORG1")},
      {"TSRBIOPT by TSRFDACT", &E0591960, {IsRow("TSRBIOPT", 7, "ORG1"), activity},
       Bytes(IsKey(7, "ORG1")), IsRow("TSRBIOPT", 7, "ORG1")},
      {"TSMGEOPA by TSMALP's second area", &E2174604, {IsRow("TSMGEOPA", 7, "ORG1"), second_area},
       Bytes(IsKey(7, "ORG1")), IsRow("TSMGEOPA", 7, "ORG1")},
      {"TSMNAL by TSMALP", &E6375965, {land, land_use}, Bytes(land_key), land},
      {"TSMVSTC by TSMSTATN", &E9874205, {IsRow("TSMVSTC", 7, "ORG1"), station},
       Bytes(IsKey(7, "ORG1")), IsRow("TSMVSTC", 7, "ORG1")},
      {"TSRCHTYP by TSRCTCA", &E0595618, {IsRow("TSRCHAR", 1, "ORG1"), type, assignment},
       Bytes(type_key), type},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    InsertAll(c.rows);
    ASSERT_FALSE(HasFatalFailure());
    Arranged();
    ResetRunContext(&rc_, area_);
    std::memcpy(entity_status_, "OK", 3);

    int jump = 0;
    EXPECT_TRUE(Remove(c.entry, c.key.data(), {}, &jump));
    EXPECT_EQ(0x100, jump);
    EXPECT_STREQ("FE", rc_.status);
    EXPECT_STREQ("DB", rc_.status_detail);
    EXPECT_STREQ("FE", entity_status_);
    // The database's own words.
    std::string words = area_;
    for (char& ch : words) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    EXPECT_NE(std::string::npos, words.find("foreign key")) << area_;

    db_->Rollback();
    std::string error;
    ASSERT_TRUE(db_->Begin(&error)) << error;
    EXPECT_EQ(1, CountRow(c.kept));
    // Clear the tables for the next case, children first.
    for (auto it = c.rows.rbegin(); it != c.rows.rend(); ++it) {
      sql() << std::string("DELETE FROM ") + it->table;
    }
    ASSERT_TRUE(db_->Commit(&error)) << error;
    ASSERT_TRUE(db_->Begin(&error)) << error;
  }
}

// ---- The disassociation ----

TEST_P(CascadeTest, DisassociationNullsTheReferenceAndDeletesNothing) {
  auto procedure = [](long long n, long long equipment) {
    TableRow r = IsRow("TSRANLPR", n, "ORG1");
    r.row["TSRANLEQ_IS_NUMBER"] = Num(equipment);
    r.row["TSRANLEQ_ORG_ID"] = Txt("ORG1");
    return r;
  };
  InsertAll({IsRow("TSRANLEQ", 5, "ORG1"), IsRow("TSRANLEQ", 6, "ORG1"), procedure(1, 5),
             procedure(2, 5)});
  ASSERT_FALSE(HasFatalFailure());
  Arranged();

  ProcedureLinkRecord link{};
  link.tsranlpr_is_number = 1;
  Move(link.tsranlpr_org_id, "ORG1");
  link.tsrcitn.indicator = -1;
  link.tsranlpr0.indicator = -1;
  link.tsranleq.is_number = 5;
  Move(link.tsranleq.org_id, "ORG1");
  const IsNumberKey equipment = IsKey(5, "ORG1");
  struct Case {
    const char* name;
    IsNumberKey equipment;
    long long procedures_without_equipment;
  } cases[] = {
      // Equipment 6 is not the procedure's: nothing to cut.
      {"other equipment", IsKey(6, "ORG1"), 0},
      {"its equipment", equipment, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ResetRunContext(&rc_, area_);
    EXPECT_FALSE(Aborts([&] {
      CallDisassociation(a(), nullptr, &rc_, &record_, &link, &c.equipment, entity_status_,
                         kRemoveUnit);
    })) << rc_.database_area;
    EXPECT_TRUE(Blank(rc_.status)) << rc_.database_area;
    EXPECT_EQ(0, std::memcmp("YYYYY", rc_.cascade_flags, 5));
    EXPECT_STREQ(kRemoveUnit.name, rc_.unit_name);
    EXPECT_EQ(0, g_step_calls);
    EXPECT_EQ(2, Count("TSRANLEQ", "1 = 1"));
    EXPECT_EQ(2, Count("TSRANLPR", "1 = 1"));
    EXPECT_EQ(c.procedures_without_equipment,
              Count("TSRANLPR", "TSRANLEQ_IS_NUMBER IS NULL AND TSRANLEQ_ORG_ID IS NULL"));
    EXPECT_EQ(1, Count("TSRANLPR", "TSRANLPR_IS_NUMBER = 2 AND TSRANLEQ_IS_NUMBER = 5"));
  }
  std::string error;
  EXPECT_TRUE(db_->Commit(&error)) << error;
}

// ---- Wrong calls ----

TEST_P(CascadeTest, WrongCallsEndWithFE) {
  const IsNumberKey key = IsKey(7, "ORG1");
  SessionPort no_store{nullptr, nullptr, nullptr};
  struct Case {
    const char* name;
    DeleteEntry entry;
    HandleA handle;
    char last_flag;
    std::uint32_t token;
  } cases[] = {
      {"root entry with a token", &E2738301, a(), 'Y', kGeologicUnitSprings},
      {"root entry as a step", &E2738301, a(), 'N', 0},
      {"session without a database", &E2738301, &no_store, 'Y', 0},
      {"step entry as a root", &E7337703, a(), 'Y', kGeologicUnitSprings},
      {"step entry with another rule's token", &E7337703, a(), 'N', kIndustrialClassFacilities},
      {"step entry without a cascade under way", &E7337703, a(), 'N', kGeologicUnitSprings},
      {"step to no table of this schema", &E2753024, a(), 'N', kFieldGearRelationship},
      {"step to no table of this schema", &E6427302, a(), 'N', kIndustrialClassOther},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ResetRunContext(&rc_, area_);
    SetCascadeRootFlag(&rc_, c.last_flag);
    std::uint32_t token = c.token;
    c.entry(c.handle, nullptr, &rc_, &record_, &key, &token);
    EXPECT_STREQ("FE", rc_.status);
    EXPECT_STREQ("FE", rc_.status_detail);
    EXPECT_NE('\0', area_[0]);
  }
}

INSTANTIATE_TEST_SUITE_P(Backends, CascadeTest, testing::kBackends, testing::BackendName);

// ---- The step service, without a database ----

PendingRow Pending(std::uint32_t rule, std::uint32_t relationship, double number,
                   const char* org_id) {
  KeyValue n;
  n.number = number;
  KeyValue t;
  t.is_text = true;
  t.text = org_id;
  return {rule, relationship, {n, t}};
}

std::string Descriptor(const char* sizes, const char* fields) {
  return std::string("4.2.    ") + sizes + fields;
}

TEST(CascadeStepTest, AnswersThePendingRowsInOrderThenNone) {
  CascadeRecord record{};
  StartPendingQueue(&record, {}, {Pending(1, 11, 42, "ORG1"), Pending(2, 22, 43, "ORG2")});
  EXPECT_EQ(2u, PendingCount(&record));
  const std::string descriptor = Descriptor("00080008", "IS_NUMBRFLORG_ID  CH");
  struct Step {
    std::uint32_t rule;
    std::uint32_t relationship;
    double number;
    const char* org_id;
  } steps[] = {{1, 11, 42, "ORG1    "}, {2, 22, 43, "ORG2    "}};
  for (const Step& s : steps) {
    record.first = 'N';
    CascadeStep(nullptr, nullptr, &record, kStepRequestText);
    ASSERT_EQ(0, std::memcmp(record.result, "OK", 2));
    EXPECT_EQ(s.rule, record.rule);
    EXPECT_EQ(s.relationship, record.relationship);
    record.first = 'R';
    CascadeStep(nullptr, nullptr, &record, descriptor.c_str());
    ASSERT_EQ(0, std::memcmp(record.result, "OK", 2));
    double number = 0;
    std::memcpy(&number, record.message, sizeof number);
    EXPECT_EQ(s.number, number);
    EXPECT_EQ(s.org_id, std::string(record.message + 8, 8));
  }
  record.first = 'N';
  CascadeStep(nullptr, nullptr, &record, kStepRequestText);
  EXPECT_EQ(0, std::memcmp(record.result, "NF", 2));
  EXPECT_EQ(0u, record.rule);
  EXPECT_EQ(0u, record.relationship);
  EXPECT_EQ(0u, PendingCount(&record));
  EXPECT_EQ(nullptr, CascadeRootKey(&record));
}

TEST(CascadeStepTest, ARootCallStartsTheQueueAfresh) {
  CascadeRecord record{};
  StartPendingQueue(&record, {}, {Pending(1, 11, 42, "ORG1"), Pending(1, 11, 43, "ORG1")});
  record.first = 'N';
  CascadeStep(nullptr, nullptr, &record, kStepRequestText);
  StartPendingQueue(&record, {}, {});
  EXPECT_EQ(0u, PendingCount(&record));
  record.first = 'N';
  CascadeStep(nullptr, nullptr, &record, kStepRequestText);
  EXPECT_EQ(0, std::memcmp(record.result, "NF", 2));
}

TEST(CascadeStepTest, RefusesWhatDoesNotFit) {
  struct Case {
    const char* name;
    bool ask_next_first;
    char first;
    std::string descriptor;
  } cases[] = {
      {"key before a row is presented", false, 'R', Descriptor("00080008", "IS_NUMBRFLORG_ID  CH")},
      {"one column too few", true, 'R', Descriptor("0008", "IS_NUMBRFL")},
      {"kinds swapped", true, 'R', Descriptor("00080008", "ORG_ID  CHIS_NUMBRFL")},
      {"number of 4 bytes", true, 'R', Descriptor("00040008", "IS_NUMBRFLORG_ID  CH")},
      {"text too short", true, 'R', Descriptor("00080003", "IS_NUMBRFLORG_ID  CH")},
      {"unknown kind", true, 'R', Descriptor("00080008", "IS_NUMBRFLORG_ID  XX")},
      {"other version", true, 'R', "4.1.    00080008IS_NUMBRFLORG_ID  CH"},
      {"size not digits", true, 'R', Descriptor("00080 08", "IS_NUMBRFLORG_ID  CH")},
      {"blank request", true, ' ', Descriptor("00080008", "IS_NUMBRFLORG_ID  CH")},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CascadeRecord record{};
    StartPendingQueue(&record, {}, {Pending(1, 11, 42, "ORG1")});
    if (c.ask_next_first) {
      record.first = 'N';
      CascadeStep(nullptr, nullptr, &record, kStepRequestText);
      ASSERT_EQ(0, std::memcmp(record.result, "OK", 2));
    }
    record.first = c.first;
    CascadeStep(nullptr, nullptr, &record, c.descriptor.c_str());
    EXPECT_EQ(0, std::memcmp(record.result, "RQ", 2));
    StartPendingQueue(&record, {}, {});
  }
}

TEST(CascadeStepTest, TheDescriptorTemplateReadsAsText) {
  KeyDescriptor d = kDependentKeyDescriptor;
  std::memcpy(d.sizes[0], "0008", 4);
  std::memcpy(d.sizes[1], "0008", 4);
  EXPECT_STREQ("4.2.    00080008IS_NUMBRFLORG_ID  CH", reinterpret_cast<const char*>(&d));
}

// ---- The rules agree with the schema ----

std::set<std::string> SetOf(std::span<const char* const> names) {
  return std::set<std::string>(names.begin(), names.end());
}

TEST(CascadeRulesTest, EveryRootKeyIsItsTablesPrimaryKey) {
  for (const cascade::RootRule& rule : cascade::RootRules()) {
    SCOPED_TRACE(rule.entry);
    const Table* table = FindTable(rule.table);
    ASSERT_NE(nullptr, table);
    ASSERT_EQ(table->primary_key.size(), rule.key.size());
    for (std::size_t i = 0; i < rule.key.size(); ++i) {
      EXPECT_STREQ(table->primary_key[i], rule.key[i].column);
      const Column* column = table->Find(rule.key[i].column);
      ASSERT_NE(nullptr, column);
      const bool number = column->type == ColumnType::kNumber12;
      EXPECT_EQ(number, rule.key[i].kind == cascade::KeyKind::kNumber);
      if (!number) {
        EXPECT_EQ(static_cast<std::size_t>(column->width) + 1, rule.key[i].width);
      }
    }
  }
}

TEST(CascadeRulesTest, EveryReferenceToADeletedTableHasAFate) {
  for (const cascade::RootRule& rule : cascade::RootRules()) {
    SCOPED_TRACE(rule.entry);
    // What the schema says refers to the rule's table ...
    std::multiset<std::pair<std::string, std::set<std::string>>> schema;
    for (const Table& t : Tables()) {
      for (const Table::Reference& r : t.references) {
        if (std::string(r.table) != rule.table) continue;
        // The referring columns stand in the order of the referred key.
        for (std::size_t i = 0; i < r.table_columns.size(); ++i) {
          EXPECT_STREQ(rule.key[i].column, r.table_columns[i]);
        }
        schema.insert({t.name, std::set<std::string>(r.columns.begin(), r.columns.end())});
      }
    }
    // ... is what the rule has a fate for.
    std::multiset<std::pair<std::string, std::set<std::string>>> rules;
    for (const cascade::Referrer& r : rule.referrers) {
      rules.insert({r.table, SetOf(r.columns)});
      // A rule with steps defers the checks to the commit: a refusal would
      // come too late.
      if (!rule.steps.empty()) {
        EXPECT_NE(cascade::Fate::kRefuse, r.fate) << r.table;
      }
    }
    for (const cascade::StepRule* step : rule.steps) {
      EXPECT_STREQ(rule.table, step->root_table);
      for (const cascade::Relationship& rel : step->relationships) {
        if (rel.table != nullptr) rules.insert({rel.table, SetOf(rel.columns)});
      }
    }
    EXPECT_EQ(schema, rules);
  }
}

TEST(CascadeRulesTest, EveryDependantIsFoundByTheKeyAStepHandsOver) {
  for (const cascade::StepRule* step : cascade::StepRules()) {
    SCOPED_TRACE(step->entry);
    for (const cascade::Relationship& rel : step->relationships) {
      if (rel.table == nullptr) continue;
      const Table* table = FindTable(rel.table);
      ASSERT_NE(nullptr, table);
      // An IS number and an ORG ID, as the descriptor lays them out ...
      ASSERT_EQ(2u, rel.key.size());
      EXPECT_EQ(ColumnType::kNumber12, table->Find(rel.key[0])->type);
      EXPECT_EQ(ColumnType::kChar, table->Find(rel.key[1])->type);
      EXPECT_EQ(8, table->Find(rel.key[1])->width);
      // ... which, with the referring columns, hold the primary key.
      std::set<std::string> known = SetOf(rel.key);
      for (const char* c : rel.columns) known.insert(c);
      for (const char* c : table->primary_key) EXPECT_EQ(1u, known.count(c)) << c;
      // A cut reference must be one that may be NULL.
      if (rel.fate == cascade::Fate::kCut) {
        for (const char* c : rel.columns) EXPECT_TRUE(table->Find(c)->nullable) << c;
      }
    }
  }
}

TEST(CascadeRulesTest, TheRemoveBlocksStepTablesMatchTheRules) {
  const CascadeSteps tables[] = {kNatFieldGearSteps, kStandardIndustrialCodeSteps,
                                 kGeologicUnitSteps, kNatAnalyticalProcedureSteps};
  std::size_t rows = 0;
  for (const CascadeSteps& steps : tables) {
    for (const CascadeStepRow& row : steps) {
      ++rows;
      const cascade::StepRule* rule = nullptr;
      for (const cascade::StepRule* r : cascade::StepRules()) {
        if (r->rule == row.rule) rule = r;
      }
      ASSERT_NE(nullptr, rule) << row.rule;
      std::set<std::uint32_t> want;
      for (const cascade::Relationship& rel : rule->relationships) want.insert(rel.number);
      EXPECT_EQ(want, std::set<std::uint32_t>(row.relationships.begin(),
                                             row.relationships.end()));
    }
  }
  EXPECT_EQ(cascade::StepRules().size(), rows);
}

}  // namespace
}  // namespace lk::store
