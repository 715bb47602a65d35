// The statement frame and the algorithms of the action blocks, one suite on
// SQLite and on PostgreSQL: the outcomes of each statement kind, entity
// state, host variables (cut, blank, NULL, timestamps, code page 1252),
// permitted values on both sides, the fatal path, the row lock of a read
// for update, and the cursors that every way out of a block closes.
#include "store/statement.h"

#include <atomic>
#include <cctype>
#include <chrono>
#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "frame/host_port.h"
#include "frame/views.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/soci.h"
#include "store/test_database.h"

#include <soci/sqlite3/soci-sqlite3.h>

namespace lk::store {
namespace {

// ---- The records and statements of the tests ----

// A LAB_REMARK entity view; DESCRIPTION_TEXT and NOTE_SHORT_NAME are wider
// than their columns, as a view attribute may be.
struct Remark {
  double TSRLBRMK_IS_NUMBER;
  char TSRLBRMK_ORG_ID[9];
  char SHORT_NAME[7];
  char DESCRIPTION_TEXT[101];
  char D_USERID_CODE[9];
  char D_LAST_UPDATE_TIMESTAMP[21];
  char LONG_SHORT_NAME[21];
};

const char* const kShortNames[] = {"AA", "BB", "CC", nullptr};
constexpr std::uint32_t kShortNameAttribute = 4711;

constexpr HostColumn kIs = HostNumber("TSRLBRMK_IS_NUMBER", LK_PLACE(Remark, TSRLBRMK_IS_NUMBER));
constexpr HostColumn kOrg = HostChar("TSRLBRMK_ORG_ID", 8, LK_PLACE(Remark, TSRLBRMK_ORG_ID));
constexpr HostColumn kShort = HostChar("SHORT_NAME", 6, LK_PLACE(Remark, SHORT_NAME));
constexpr HostColumn kDesc = HostVarchar("DESCRIPTION_TEXT", 60, LK_PLACE(Remark, DESCRIPTION_TEXT));
constexpr HostColumn kUser = HostChar("D_USERID_CODE", 8, LK_PLACE(Remark, D_USERID_CODE));
constexpr HostColumn kStamp = HostDate("D_LAST_UPDATE_TS", LK_PLACE(Remark, D_LAST_UPDATE_TIMESTAMP));

constexpr HostColumn kAll[] = {kIs, kOrg, kShort, kDesc, kUser, kStamp};
constexpr HostColumn kAllPermitted[] = {
    kIs, kOrg,
    HostChar("SHORT_NAME", 6, LK_PLACE(Remark, SHORT_NAME), 0, kShortNames, kShortNameAttribute),
    kDesc, kUser, kStamp};
// SHORT_NAME taken from an attribute of 20 characters.
constexpr HostColumn kAllFromLong[] = {
    kIs, kOrg, HostChar("SHORT_NAME", 6, LK_PLACE(Remark, LONG_SHORT_NAME)), kDesc, kUser, kStamp};
constexpr HostColumn kKey[] = {kIs, kOrg};
constexpr HostColumn kOrgOnly[] = {kOrg};
constexpr HostColumn kNameOnly[] = {kShort};
constexpr HostColumn kChange[] = {kDesc, kUser, kStamp};

#define REMARK_COLUMNS \
  "TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, DESCRIPTION_TEXT, D_USERID_CODE, " \
  "D_LAST_UPDATE_TS"
#define REMARK_VALUES                                                                         \
  ":TSRLBRMK_IS_NUMBER, :TSRLBRMK_ORG_ID, :SHORT_NAME, :DESCRIPTION_TEXT, :D_USERID_CODE, " \
  ":D_LAST_UPDATE_TS"

constexpr StatementDef kInsert = {
    "0000000001", 1, "INSERT INTO TSRLBRMK (" REMARK_COLUMNS ") VALUES (" REMARK_VALUES ")", kAll,
    {}};
constexpr StatementDef kInsertPermitted = {
    "0000000001", 1, "INSERT INTO TSRLBRMK (" REMARK_COLUMNS ") VALUES (" REMARK_VALUES ")",
    kAllPermitted, {}};
constexpr StatementDef kInsertFromLong = {
    "0000000001", 1, "INSERT INTO TSRLBRMK (" REMARK_COLUMNS ") VALUES (" REMARK_VALUES ")",
    kAllFromLong, {}};
constexpr StatementDef kSelectOfOrg = {
    "0000000002", 2,
    "SELECT " REMARK_COLUMNS " FROM TSRLBRMK WHERE TSRLBRMK_ORG_ID = :TSRLBRMK_ORG_ID", kOrgOnly,
    kAll};
constexpr StatementDef kSelectByKey = {
    "0000000003", 3,
    "SELECT " REMARK_COLUMNS " FROM TSRLBRMK "
    "WHERE TSRLBRMK_IS_NUMBER = :TSRLBRMK_IS_NUMBER AND TSRLBRMK_ORG_ID = :TSRLBRMK_ORG_ID",
    kKey, kAll};
constexpr StatementDef kSelectPermitted = {
    "0000000003", 3,
    "SELECT " REMARK_COLUMNS " FROM TSRLBRMK "
    "WHERE TSRLBRMK_IS_NUMBER = :TSRLBRMK_IS_NUMBER AND TSRLBRMK_ORG_ID = :TSRLBRMK_ORG_ID",
    kKey, kAllPermitted};
constexpr StatementDef kListAfter = {
    "0000000004", 4,
    "SELECT " REMARK_COLUMNS " FROM TSRLBRMK WHERE SHORT_NAME > :SHORT_NAME ORDER BY SHORT_NAME",
    kNameOnly, kAll};
constexpr StatementDef kLock = {
    "0000000005", 5,
    "SELECT " REMARK_COLUMNS " FROM TSRLBRMK "
    "WHERE TSRLBRMK_IS_NUMBER = :TSRLBRMK_IS_NUMBER AND TSRLBRMK_ORG_ID = :TSRLBRMK_ORG_ID",
    kKey, kAll, /*for_update=*/true};
constexpr StatementDef kUpdateCurrent = {
    "0000000006", 6,
    "UPDATE TSRLBRMK SET DESCRIPTION_TEXT = :DESCRIPTION_TEXT, D_USERID_CODE = :D_USERID_CODE, "
    "D_LAST_UPDATE_TS = :D_LAST_UPDATE_TS",
    kChange, {}};
constexpr StatementDef kUpdateByKey = {
    "0000000007", 7,
    "UPDATE TSRLBRMK SET DESCRIPTION_TEXT = :DESCRIPTION_TEXT, D_USERID_CODE = :D_USERID_CODE, "
    "D_LAST_UPDATE_TS = :D_LAST_UPDATE_TS "
    "WHERE TSRLBRMK_IS_NUMBER = :TSRLBRMK_IS_NUMBER AND TSRLBRMK_ORG_ID = :TSRLBRMK_ORG_ID",
    kAll, {}};
// The keyset form of a page: the same placeholder twice.
constexpr StatementDef kPageAfter = {
    "0000000008", 8,
    "SELECT " REMARK_COLUMNS " FROM TSRLBRMK WHERE SHORT_NAME > :SHORT_NAME "
    "OR (SHORT_NAME = :SHORT_NAME AND TSRLBRMK_IS_NUMBER > :TSRLBRMK_IS_NUMBER) "
    "ORDER BY SHORT_NAME, TSRLBRMK_IS_NUMBER",
    kAll, kAll};
constexpr StatementDef kListPermitted = {
    "0000000004", 4,
    "SELECT " REMARK_COLUMNS " FROM TSRLBRMK WHERE SHORT_NAME > :SHORT_NAME ORDER BY SHORT_NAME",
    kNameOnly, kAllPermitted};
constexpr HostColumn kRenameColumns[] = {kShort};
constexpr StatementDef kRenameCurrent = {"0000000013", 13,
                                         "UPDATE TSRLBRMK SET SHORT_NAME = :SHORT_NAME",
                                         kRenameColumns, {}};
constexpr StatementDef kBroken = {"0000000009", 9,
                                  "SELECT " REMARK_COLUMNS " FROM NO_SUCH_TABLE", {}, kAll};

// A FIPS_HYDROLOGIC_UNIT entity view: NAME, STATES_NAME and the degrees
// may be NULL.
struct Huc {
  double TSMFHU_IS_NUMBER;
  char TSMFHU_ORG_ID[9];
  char NAME[201];
  char STATES_NAME[17];
  double LATITUDE_MAXIMUM_DEGREE_MEASURE;
  char D_LAST_UPDATE_TIMESTAMP[21];
};
constexpr HostColumn kHucWithIndicators[] = {
    HostNumber("TSMFHU_IS_NUMBER", LK_PLACE(Huc, TSMFHU_IS_NUMBER)),
    HostVarchar("NAME", 200, LK_PLACE(Huc, NAME), kNullable),
    HostChar("STATES_NAME", 16, LK_PLACE(Huc, STATES_NAME), kNullable),
    HostNumber("LAT_MAX_DEGREE", LK_PLACE(Huc, LATITUDE_MAXIMUM_DEGREE_MEASURE), kNullable),
    HostDate("D_LAST_UPDT_TS", LK_PLACE(Huc, D_LAST_UPDATE_TIMESTAMP)),
};
constexpr HostColumn kHucWithout[] = {
    HostNumber("TSMFHU_IS_NUMBER", LK_PLACE(Huc, TSMFHU_IS_NUMBER)),
    HostVarchar("NAME", 200, LK_PLACE(Huc, NAME)),
};
constexpr StatementDef kHucList = {
    "0000000010", 10,
    "SELECT TSMFHU_IS_NUMBER, NAME, STATES_NAME, LAT_MAX_DEGREE, D_LAST_UPDT_TS FROM TSMFHU "
    "ORDER BY TSMFHU_IS_NUMBER",
    {}, kHucWithIndicators};
constexpr StatementDef kHucListWithout = {
    "0000000011", 11, "SELECT TSMFHU_IS_NUMBER, NAME FROM TSMFHU ORDER BY TSMFHU_IS_NUMBER", {},
    kHucWithout};

const UnitId kTestUnit = {"0000077001", "TEST_STATEMENT_BLOCK"};

constexpr std::uint32_t kExitNotFound = 0x7E570001;
constexpr std::uint32_t kExitNotUnique = 0x7E570002;
constexpr std::uint32_t kExitPermitted = 0x7E570003;

void FixedClock(void*, std::int32_t* date, std::int32_t* time, char* text) {
  *date = 20240305;
  *time = 101112;
  std::memcpy(text, "20240305101112345678", 21);
}

Remark MakeRemark(double is, const char* org, const char* name, const char* description) {
  Remark r{};
  r.TSRLBRMK_IS_NUMBER = is;
  TextMove(r.TSRLBRMK_ORG_ID, org, sizeof r.TSRLBRMK_ORG_ID);
  TextMove(r.SHORT_NAME, name, sizeof r.SHORT_NAME);
  BoundedCopy(r.DESCRIPTION_TEXT, description, sizeof r.DESCRIPTION_TEXT);
  TextMove(r.D_USERID_CODE, "JSMITH", sizeof r.D_USERID_CODE);
  std::memcpy(r.D_LAST_UPDATE_TIMESTAMP, "20240102030405000000", 21);
  return r;
}

std::string Trim(const char* text) {
  std::string s(text);
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s;
}

// A MODIFY block as the modules have them: read for update by key, then an
// update of the row under the cursor; NOT FOUND as an exit state.
UnitStorage modify_unit;
Cursor modify_cursor;
EntityState modify_state;
Remark modify_entity;

void ModifyRemark(HandleA a, HandleB b, RunContext* rc, const Remark* in) {
  RunActionBlock(&modify_unit, UnitId{"0000077002", "MODIFY_TEST_REMARK"}, a, b, rc,
                 {&modify_cursor}, [&](Block& block) {
                   ResetEntity(&modify_state);
                   ReadForUpdate(block, &modify_cursor, kLock, &modify_state, in, &modify_entity);
                   if (StateIs(modify_state.status, "NF")) {
                     SetExit(rc, kExitNotFound, "LAB_REMARK was not found.", 'N');
                     return;
                   }
                   if (!StateIs(modify_state.status, "OK")) FailOnStatus(block, modify_state);
                   Update(block, kUpdateCurrent, &modify_state, in, &modify_entity,
                          &modify_cursor);
                   if (StateIs(modify_state.status, "DF")) {
                     SetExit(rc, kExitNotUnique, "LAB_REMARK is not unique.", 'N');
                   } else if (!StateIs(modify_state.status, "OK")) {
                     FailOnStatus(block, modify_state);
                   }
                 });
}

// ---- The fixture ----

class StatementTest : public testing::BackendTest {
 protected:
  void SetUp() override {
    testing::BackendTest::SetUp();
    if (HasFatalFailure()) return;
    CreateSchema(connection());
    std::string error;
    db_ = Database::Open(url(), &error);
    ASSERT_NE(nullptr, db_) << error;
    port_ = SessionPort{nullptr, &FixedClock, db_->connection()};
    ResetRunContext(&rc_, area_);
    modify_cursor.Close();
  }

  void TearDown() override {
    modify_cursor.Close();
    db_.reset();
    testing::BackendTest::TearDown();
  }

  bool postgres() const { return GetParam() == Dialect::kPostgres; }

  // The unit's transaction. On SQLite it holds the write lock: rows of the
  // other client go in before it.
  void Begin() {
    std::string error;
    ASSERT_TRUE(db_->Begin(&error)) << error;
  }
  void Commit() {
    std::string error;
    ASSERT_TRUE(db_->Commit(&error)) << error;
  }

  // Runs `body` as the body of an action block.
  void Run(std::initializer_list<Cursor*> cursors, const std::function<void(Block&)>& body) {
    static UnitStorage unit;
    std::memcpy(rc_.status, "  ", 3);
    std::memcpy(rc_.status_detail, "  ", 3);
    rc_.run_mode = ' ';
    RunActionBlock(&unit, kTestUnit, &port_, nullptr, &rc_, cursors, body);
  }

  // Writes rows as the other client, outside the unit's transaction.
  void Seed(const Remark& r) {
    Run({}, [&](Block& block) {
      static EntityState state;
      Remark entity{};
      Insert(block, kInsert, &state, &r, &entity);
      ASSERT_STREQ("OK", state.status);
    });
  }
  void SeedRows(const std::vector<Remark>& rows) {
    Begin();
    for (const Remark& r : rows) Seed(r);
    Commit();
  }

  bool Failed() const { return FailureTravels(rc_); }

  std::string Database() const { return rc_.database_area; }

  long long CountRemarks(const std::string& where = "1 = 1") {
    long long n = -1;
    sql() << "SELECT count(*) FROM TSRLBRMK WHERE " + where, soci::into(n);
    return n;
  }

  std::unique_ptr<lk::store::Database> db_;
  SessionPort port_{};
  RunContext rc_{};
  char area_[kDatabaseAreaSize] = {};
};

// ---- Outcomes ----

TEST(SqlAreaTest, OnlyZeroHundredAndMinusOneAreToldApart) {
  struct Case {
    int sqlcode;
    Outcome want;
  } cases[] = {
      {0, Outcome::kOk},           {100, Outcome::kNotFound},       {-1, Outcome::kUnique},
      {1, Outcome::kOther},        {1403, Outcome::kOther},         {-2, Outcome::kOther},
      {kSqlNullFetched, Outcome::kOther}, {kSqlNotInCodePage, Outcome::kOther},
      {kSqlFailed, Outcome::kOther},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.sqlcode);
    EXPECT_EQ(c.want, Classify(c.sqlcode));
  }
}

TEST(SqlAreaTest, FormatsTheAreaAsText) {
  SqlArea area;
  ClearSqlArea(&area);
  area.sqlcode = -2;
  area.rows = 3;
  std::snprintf(area.code, sizeof area.code, "22012");
  std::snprintf(area.message, sizeof area.message, "division by zero");
  char out[kDatabaseAreaSize];
  FormatSqlArea(area, out, sizeof out);
  EXPECT_STREQ("[sqlcode -2, rows 3] 22012: division by zero", out);
  char small[12];
  FormatSqlArea(area, small, sizeof small);
  EXPECT_STREQ("[sqlcode -2", small);
}

TEST_P(StatementTest, SelectIntoThatFindsTwoRowsSucceedsWithOneOfThem) {
  SeedRows({MakeRemark(1, "ORG1", "AA", "first"), MakeRemark(2, "ORG1", "BB", "second")});
  Begin();
  EntityState state;
  ResetEntity(&state);
  Remark in = MakeRemark(0, "ORG1", "", "");
  Remark entity{};
  Run({}, [&](Block& block) { SelectOne(block, kSelectOfOrg, &state, &in, &entity); });
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ("OK", state.status);
  EXPECT_STREQ("OK", state.currency);
  EXPECT_STREQ("SL", state.verb);
  EXPECT_EQ(0, ModuleSqlArea().sqlcode);
  const std::string name = Trim(entity.SHORT_NAME);
  EXPECT_TRUE(name == "AA" || name == "BB") << name;
  EXPECT_EQ(name == "AA" ? 1.0 : 2.0, entity.TSRLBRMK_IS_NUMBER);
}

TEST_P(StatementTest, SelectOfNoRowIsNotFound) {
  Begin();
  EntityState state;
  ResetEntity(&state);
  Remark in = MakeRemark(9, "ORG1", "", "");
  Remark entity{};
  Run({}, [&](Block& block) { SelectOne(block, kSelectByKey, &state, &in, &entity); });
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ("NF", state.status);
  EXPECT_STREQ("DU", state.currency);
  EXPECT_EQ(100, ModuleSqlArea().sqlcode);
  EXPECT_STREQ("0000000003", rc_.statement);
}

// ---- Lists ----

// A list block: rows into a group of `limit`, escaping when it is full.
struct Group {
  int count = 0;
  std::vector<std::string> names;
};

TEST_P(StatementTest, ListWithNoRowGivesNotFoundAnEmptyGroupAndNoMessage) {
  Begin();
  static Cursor cursor;
  EntityState state;
  ResetEntity(&state);
  Remark in = MakeRemark(0, "", "", "");
  Remark entity{};
  Group group;
  const std::uint32_t exit_before = rc_.exit_state;
  Run({&cursor}, [&](Block& block) {
    ReadList(block, &cursor, kListAfter, &state, &in, &entity, [&] {
      group.names.push_back(Trim(entity.SHORT_NAME));
      return ++group.count < 5;
    });
    if (!StateIs(state.status, "OK") && !StateIs(state.status, "NF"))
      FailOnStatus(block, state);
  });
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ("NF", state.status);
  EXPECT_STREQ("DU", state.currency);
  EXPECT_EQ(0, group.count);
  EXPECT_FALSE(cursor.open());
  EXPECT_EQ(exit_before, rc_.exit_state);
  EXPECT_EQ('N', rc_.message_kind);
  EXPECT_TRUE(TextIsBlank(rc_.exit_message));
}

TEST_P(StatementTest, ListTakesRowsInOrderAndEscapesWhenTheGroupIsFull) {
  SeedRows({MakeRemark(3, "ORG1", "CC", "c"), MakeRemark(1, "ORG1", "AA", "a"),
            MakeRemark(4, "ORG2", "DD", "d"), MakeRemark(2, "ORG1", "BB", "b")});
  Begin();
  struct Case {
    int limit;
    std::vector<std::string> want;
    const char* status;
  } cases[] = {
      {2, {"AA", "BB"}, "OK"},
      {10, {"AA", "BB", "CC", "DD"}, "NF"},
      {4, {"AA", "BB", "CC", "DD"}, "OK"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.limit);
    static Cursor cursor;
    EntityState state;
    ResetEntity(&state);
    Remark in = MakeRemark(0, "", "", "");
    Remark entity{};
    Group group;
    Run({&cursor}, [&](Block& block) {
      ReadList(block, &cursor, kListAfter, &state, &in, &entity, [&] {
        group.names.push_back(Trim(entity.SHORT_NAME));
        return ++group.count < c.limit;
      });
    });
    ASSERT_FALSE(Failed()) << Database();
    EXPECT_EQ(c.want, group.names);
    EXPECT_STREQ(c.status, state.status);
    EXPECT_STREQ("DU", state.currency);
    EXPECT_FALSE(cursor.open());
  }
}

TEST_P(StatementTest, APlaceholderMayStandTwice) {
  SeedRows({MakeRemark(1, "ORG1", "AA", "a"), MakeRemark(2, "ORG1", "BB", "b"),
            MakeRemark(3, "ORG1", "CC", "c")});
  Begin();
  static Cursor cursor;
  EntityState state;
  ResetEntity(&state);
  Remark in = MakeRemark(2, "ORG1", "BB", "");
  Remark entity{};
  std::vector<std::string> names;
  Run({&cursor}, [&](Block& block) {
    ReadList(block, &cursor, kPageAfter, &state, &in, &entity, [&] {
      names.push_back(Trim(entity.SHORT_NAME));
      return true;
    });
  });
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_EQ(std::vector<std::string>{"CC"}, names);
}

TEST_P(StatementTest, UnknownSqlcodeOnAFetchIsAFatalStop) {
  struct Case {
    const char* why;
    const char* second_row;  // the row that fails, after a good one
    const StatementDef* statement;
    int sqlcode;
  } cases[] = {
      {"NULL without an indicator", "NULL", &kHucListWithout, kSqlNullFetched},
      {"a character outside code page 1252", "'\xE4\xB8\xAD'", &kHucList, kSqlNotInCodePage},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    sql() << "DELETE FROM TSMFHU";
    sql() << "INSERT INTO TSMFHU (TSMFHU_IS_NUMBER, TSMFHU_ORG_ID, HYDROLOGIC_UNIT_CD, TYPE_CODE, "
             "NAME, D_USERID_CODE, D_LAST_UPDT_TS) VALUES (1, 'ORG1', '01010001', 'CATUNIT', "
             "'Upper St. John', 'JSMITH', '2024-01-02 03:04:05')";
    sql() << std::string("INSERT INTO TSMFHU (TSMFHU_IS_NUMBER, TSMFHU_ORG_ID, "
                         "HYDROLOGIC_UNIT_CD, TYPE_CODE, NAME, D_USERID_CODE, D_LAST_UPDT_TS) "
                         "VALUES (2, 'ORG1', '01010002', 'CATUNIT', ") +
                 c.second_row + ", 'JSMITH', '2024-01-02 03:04:05')";
    Begin();
    static Cursor cursor;
    EntityState state;
    ResetEntity(&state);
    Huc entity{};
    int rows = 0;
    bool after = false;
    Run({&cursor}, [&](Block& block) {
      ReadList(block, &cursor, *c.statement, &state, &entity, &entity, [&] {
        ++rows;
        return true;
      });
      after = true;
    });
    EXPECT_TRUE(Failed());
    EXPECT_FALSE(after);
    EXPECT_EQ(1, rows);
    EXPECT_STREQ("FE", rc_.status);
    EXPECT_STREQ("DB", rc_.status_detail);
    EXPECT_STREQ("DB", state.status);
    EXPECT_EQ(c.statement->site, rc_.fail_site);
    EXPECT_STREQ(c.statement->number, rc_.statement);
    EXPECT_STREQ("TEST_STATEMENT_BLOCK", rc_.unit_name);
    EXPECT_EQ(c.sqlcode, ModuleSqlArea().sqlcode);
    EXPECT_NE(std::string::npos,
              Database().find("[sqlcode " + std::to_string(c.sqlcode) + ", rows 2]"))
        << Database();
    EXPECT_FALSE(cursor.open());  // closed on the way out of the block
    db_->Rollback();
  }
}

TEST_P(StatementTest, AFailingStatementIsAFatalStopWithTheDatabasesWords) {
  Begin();
  static Cursor cursor;
  EntityState state;
  ResetEntity(&state);
  Remark entity{};
  Run({&cursor}, [&](Block& block) {
    ReadList(block, &cursor, kBroken, &state, &entity, &entity, [] { return true; });
  });
  ASSERT_TRUE(Failed());
  EXPECT_STREQ("FE", rc_.status);
  EXPECT_STREQ("DB", rc_.status_detail);
  EXPECT_EQ(9u, rc_.fail_site);
  EXPECT_EQ(kSqlFailed, ModuleSqlArea().sqlcode);
  EXPECT_EQ(' ', rc_.run_mode);
  // SQLite: SQLITE_ERROR (1); PostgreSQL: undefined_table.
  EXPECT_STREQ(postgres() ? "42P01" : "1", ModuleSqlArea().code);
  std::string words = Database();
  for (char& c : words) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  EXPECT_NE(std::string::npos, words.find("no_such_table")) << words;
}

// ---- Read for update and update ----

TEST_P(StatementTest, ModifyUpdatesTheRowUnderItsCursor) {
  SeedRows({MakeRemark(1, "ORG1", "AA", "old"), MakeRemark(2, "ORG1", "BB", "other")});
  Begin();
  Remark in = MakeRemark(1, "ORG1", "AA", "new words");
  TextMove(in.D_USERID_CODE, "KJONES", sizeof in.D_USERID_CODE);
  std::memcpy(in.D_LAST_UPDATE_TIMESTAMP, "20250607080910999999", 21);
  rc_.run_mode = ' ';
  ModifyRemark(&port_, nullptr, &rc_, &in);
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ("OK", modify_state.status);
  EXPECT_STREQ("UP", modify_state.verb);
  EXPECT_STREQ("OK", modify_state.currency);
  EXPECT_STREQ("LK", modify_state.lock);
  EXPECT_EQ(1, ModuleSqlArea().rows);
  EXPECT_STREQ("new words", modify_entity.DESCRIPTION_TEXT);
  EXPECT_STREQ("20250607080910000000", modify_entity.D_LAST_UPDATE_TIMESTAMP);
  EXPECT_FALSE(modify_cursor.open());
  Commit();
  std::string words;
  sql() << "SELECT DESCRIPTION_TEXT FROM TSRLBRMK WHERE TSRLBRMK_IS_NUMBER = 1", soci::into(words);
  EXPECT_EQ("new words", words);
  sql() << "SELECT DESCRIPTION_TEXT FROM TSRLBRMK WHERE TSRLBRMK_IS_NUMBER = 2", soci::into(words);
  EXPECT_EQ("other", words);
}

TEST_P(StatementTest, ASecondModifyInTheSameRunFindsItsCursorClosed) {
  SeedRows({MakeRemark(1, "ORG1", "AA", "a"), MakeRemark(2, "ORG1", "BB", "b")});
  Begin();
  for (int round = 1; round <= 3; ++round) {
    SCOPED_TRACE(round);
    EXPECT_FALSE(modify_cursor.open());
    const std::string words = "round " + std::to_string(round);
    Remark in = MakeRemark(round % 2 == 1 ? 1 : 2, "ORG1", "", words.c_str());
    rc_.run_mode = ' ';
    ModifyRemark(&port_, nullptr, &rc_, &in);
    ASSERT_FALSE(Failed()) << Database();
    EXPECT_STREQ("OK", modify_state.status);
    EXPECT_FALSE(modify_cursor.open());
  }
  // A MODIFY that stops on the fatal path closes its cursor too.
  Remark bad = MakeRemark(1, "ORG1", "", "");
  std::memcpy(bad.D_LAST_UPDATE_TIMESTAMP, "00000000000000000000", 21);  // no date
  rc_.run_mode = ' ';
  ModifyRemark(&port_, nullptr, &rc_, &bad);
  EXPECT_TRUE(Failed());
  EXPECT_STREQ("0000000006", rc_.statement);
  EXPECT_FALSE(modify_cursor.open());
}

TEST_P(StatementTest, ModifyOfAVanishedRowGivesItsNotFoundMessage) {
  SeedRows({MakeRemark(1, "ORG1", "AA", "a")});
  sql() << "DELETE FROM TSRLBRMK WHERE TSRLBRMK_IS_NUMBER = 1";
  Begin();
  Remark in = MakeRemark(1, "ORG1", "AA", "changed");
  const std::uint32_t before = rc_.exit_state;
  rc_.run_mode = ' ';
  ModifyRemark(&port_, nullptr, &rc_, &in);
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_NE(before, rc_.exit_state);
  EXPECT_EQ(kExitNotFound, rc_.exit_state);
  EXPECT_STREQ("LAB_REMARK was not found.", rc_.exit_message);
  EXPECT_EQ('N', rc_.message_kind);
  EXPECT_STREQ("NF", modify_state.status);
  EXPECT_STREQ("DU", modify_state.currency);
  EXPECT_STREQ("UL", modify_state.lock);
}

TEST_P(StatementTest, AnUpdateUnderTheCursorThatMeetsAUniqueKeyGivesDf) {
  SeedRows({MakeRemark(1, "ORG1", "AA", "a"), MakeRemark(2, "ORG1", "BB", "b")});
  Begin();
  static Cursor cursor;
  EntityState state;
  ResetEntity(&state);
  Remark key = MakeRemark(2, "ORG1", "", "");
  Remark entity{};
  Remark rename = MakeRemark(2, "ORG1", "AA", "");
  Run({&cursor}, [&](Block& block) {
    ReadForUpdate(block, &cursor, kLock, &state, &key, &entity);
    ASSERT_STREQ("OK", state.status);
    EXPECT_TRUE(cursor.open());
    Update(block, kRenameCurrent, &state, &rename, &entity, &cursor);
  });
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ("DF", state.status);
  EXPECT_STREQ("DU", state.currency);
  EXPECT_STREQ("UP", state.verb);
  EXPECT_STREQ("BB    ", entity.SHORT_NAME);  // the row as read stays
  EXPECT_FALSE(cursor.open());
}

TEST_P(StatementTest, UpdateWithoutACurrentRowIsFatalWithDu) {
  Begin();
  EntityState state;
  ResetEntity(&state);  // currency "DU", lock "UL"
  Remark in = MakeRemark(1, "ORG1", "AA", "x");
  Remark entity{};
  Run({}, [&](Block& block) { Update(block, kUpdateByKey, &state, &in, &entity); });
  EXPECT_STREQ("FE", rc_.status);
  EXPECT_STREQ("DU", rc_.status_detail);
  EXPECT_EQ('Y', rc_.run_mode);
}

TEST_P(StatementTest, UpdateByKeyThatFindsNoRowIsFatal) {
  Begin();
  EntityState state;
  ResetEntity(&state);
  SetState(state.currency, "OK");
  SetState(state.lock, "LK");
  Remark in = MakeRemark(42, "ORG1", "AA", "x");
  Remark entity{};
  Run({}, [&](Block& block) { Update(block, kUpdateByKey, &state, &in, &entity); });
  EXPECT_STREQ("FE", rc_.status);
  EXPECT_STREQ("DB", rc_.status_detail);
  EXPECT_EQ(7u, rc_.fail_site);
  EXPECT_EQ(0, ModuleSqlArea().sqlcode);
  EXPECT_EQ(0, ModuleSqlArea().rows);
}

// A second client holds the row; the read for update waits until that
// client's transaction ends, and then reads what it committed.
TEST_P(StatementTest, ARowAnotherClientHoldsMakesTheReadForUpdateWait) {
  SeedRows({MakeRemark(1, "ORG1", "AA", "before")});
  std::atomic<bool> waiting{false};
  std::atomic<bool> released{false};
  bool released_when_read = false;
  soci::session& other = sql();

  int client_pid = 0;
  if (postgres()) {
    *db_->connection()->sql << "SELECT pg_backend_pid()", soci::into(client_pid);
    other << "BEGIN";
    std::string held;
    other << "SELECT SHORT_NAME FROM TSRLBRMK WHERE TSRLBRMK_IS_NUMBER = 1 FOR UPDATE",
        soci::into(held);
    other << "UPDATE TSRLBRMK SET DESCRIPTION_TEXT = 'held' WHERE TSRLBRMK_IS_NUMBER = 1";
  } else {
    other << "BEGIN IMMEDIATE";
    other << "UPDATE TSRLBRMK SET DESCRIPTION_TEXT = 'held' WHERE TSRLBRMK_IS_NUMBER = 1";
    // The client's BEGIN IMMEDIATE is where SQLite waits: note when it does.
    auto* backend =
        static_cast<soci::sqlite3_session_backend*>(db_->connection()->sql->get_backend());
    sqlite_api::sqlite3_busy_handler(
        backend->conn_,
        [](void* flag, int) -> int {
          static_cast<std::atomic<bool>*>(flag)->store(true);
          std::this_thread::sleep_for(std::chrono::milliseconds(1));
          return 1;
        },
        &waiting);
  }

  std::thread client([&] {
    std::string error;
    if (!db_->Begin(&error)) {
      ADD_FAILURE() << error;
      return;
    }
    Remark in = MakeRemark(1, "ORG1", "AA", "after");
    rc_.run_mode = ' ';
    ModifyRemark(&port_, nullptr, &rc_, &in);
    released_when_read = released.load();
  });

  // Wait until the client is seen waiting, then let the holder commit.
  std::unique_ptr<soci::session> watcher;
  if (postgres()) {
    Dialect d;
    watcher = OpenSession(url(), &d);
  }
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!waiting.load() && std::chrono::steady_clock::now() < deadline) {
    if (postgres()) {
      int n = 0;
      *watcher << "SELECT count(*) FROM pg_stat_activity WHERE pid = :p AND wait_event_type = "
                  "'Lock'",
          soci::use(client_pid), soci::into(n);
      if (n > 0) waiting = true;
    }
    if (!waiting.load()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  EXPECT_TRUE(waiting.load()) << "the client never waited";
  released = true;
  other << "COMMIT";
  client.join();

  EXPECT_TRUE(released_when_read);
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ("OK", modify_state.status);
  Commit();
  std::string words;
  sql() << "SELECT DESCRIPTION_TEXT FROM TSRLBRMK WHERE TSRLBRMK_IS_NUMBER = 1", soci::into(words);
  EXPECT_EQ("after", words);
  if (!postgres()) {
    auto* backend =
        static_cast<soci::sqlite3_session_backend*>(db_->connection()->sql->get_backend());
    sqlite_api::sqlite3_busy_timeout(backend->conn_, 60000);
  }
}

// ---- Host variables ----

TEST_P(StatementTest, OverlongTextIsCutBeforeTheStatement) {
  Begin();
  EntityState state;
  ResetEntity(&state);
  Remark in = MakeRemark(1, "ORG1", "", std::string(100, 'x').c_str());
  TextMove(in.LONG_SHORT_NAME, "ABCDEFGHIJKLMNOPQRST", sizeof in.LONG_SHORT_NAME);
  Remark entity{};
  Run({}, [&](Block& block) { Insert(block, kInsertFromLong, &state, &in, &entity); });
  // PostgreSQL refuses a value too long for its column: only a cut one goes.
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ("OK", state.status);
  EXPECT_EQ(std::string(60, 'x'), entity.DESCRIPTION_TEXT);
  Commit();
  std::string words, name;
  sql() << "SELECT DESCRIPTION_TEXT, SHORT_NAME FROM TSRLBRMK", soci::into(words), soci::into(name);
  EXPECT_EQ(std::string(60, 'x'), words);
  EXPECT_EQ("ABCDEF", name);
}

TEST_P(StatementTest, AStoredTimestampComesBackWithAZeroFraction) {
  Begin();
  EntityState state;
  ResetEntity(&state);
  Remark in = MakeRemark(1, "ORG1", "AA", "a");
  std::memcpy(in.D_LAST_UPDATE_TIMESTAMP, "20231231235958987654", 21);
  Remark entity{};
  Run({}, [&](Block& block) {
    Insert(block, kInsert, &state, &in, &entity);
    Remark read{};
    SelectOne(block, kSelectByKey, &state, &in, &read);
    EXPECT_STREQ("20231231235958000000", read.D_LAST_UPDATE_TIMESTAMP);
  });
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ("20231231235958000000", entity.D_LAST_UPDATE_TIMESTAMP);
  Commit();
  // The database holds the moment to the second, in its own form.
  std::string stored;
  sql() << (postgres() ? "SELECT to_char(D_LAST_UPDATE_TS, 'YYYY-MM-DD HH24:MI:SS.US') FROM TSRLBRMK"
                       : "SELECT D_LAST_UPDATE_TS FROM TSRLBRMK"),
      soci::into(stored);
  EXPECT_EQ(postgres() ? "2023-12-31 23:59:58.000000" : "2023-12-31 23:59:58", stored);
}

TEST_P(StatementTest, NullInANullableColumnReadsAsBlanksAndZeros) {
  sql() << "INSERT INTO TSMFHU (TSMFHU_IS_NUMBER, TSMFHU_ORG_ID, HYDROLOGIC_UNIT_CD, TYPE_CODE, "
           "NAME, STATES_NAME, LAT_MAX_DEGREE, D_USERID_CODE, D_LAST_UPDT_TS) VALUES "
           "(1, 'ORG1', '01010001', 'CATUNIT', NULL, NULL, NULL, 'JSMITH', '2024-01-02 03:04:05')";
  sql() << "INSERT INTO TSMEISN (TSMEISN_NAME, TSMEISN_ORG_ID, IS_NUMBER, TABLE_VERSION, "
           "V_USERID_CODE, V_LAST_UPDATE_TS, D_USERID_CODE, D_LAST_UPDT_TS) VALUES "
           "('TSMFHU', 'ORG1', 7, NULL, NULL, NULL, 'JSMITH', '2024-01-02 03:04:05')";
  Begin();
  static Cursor cursor;
  EntityState state;
  ResetEntity(&state);
  Huc entity;
  std::memset(&entity, 'x', sizeof entity);
  entity.LATITUDE_MAXIMUM_DEGREE_MEASURE = 9;
  int rows = 0;
  Run({&cursor}, [&](Block& block) {
    ReadList(block, &cursor, kHucList, &state, &entity, &entity, [&] {
      ++rows;
      return true;
    });
  });
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_EQ(1, rows);
  EXPECT_TRUE(TextIsBlank(entity.NAME));
  EXPECT_EQ(std::string(16, ' '), entity.STATES_NAME);
  EXPECT_EQ(0.0, entity.LATITUDE_MAXIMUM_DEGREE_MEASURE);
  EXPECT_STREQ("20240102030405000000", entity.D_LAST_UPDATE_TIMESTAMP);

  // The second audit pair of TSMEISN: blanks and the empty timestamp.
  struct Pair {
    char V_USERID_CODE[9];
    char V_LAST_UPDATE_TIMESTAMP[21];
  } pair;
  std::memset(&pair, 'x', sizeof pair);
  static constexpr HostColumn kPair[] = {
      HostChar("V_USERID_CODE", 8, LK_PLACE(Pair, V_USERID_CODE), kNullable),
      HostDate("V_LAST_UPDATE_TS", LK_PLACE(Pair, V_LAST_UPDATE_TIMESTAMP), kNullable)};
  static constexpr StatementDef kReadPair = {
      "0000000012", 12, "SELECT V_USERID_CODE, V_LAST_UPDATE_TS FROM TSMEISN", {}, kPair};
  Run({}, [&](Block& block) { SelectOne(block, kReadPair, &state, &pair, &pair); });
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ("        ", pair.V_USERID_CODE);
  EXPECT_STREQ("00000000000000000000", pair.V_LAST_UPDATE_TIMESTAMP);
}

TEST_P(StatementTest, ABlankValueIsStoredAsOneBlank) {
  Begin();
  EntityState state;
  ResetEntity(&state);
  Remark in = MakeRemark(1, "ORG1", "", "");  // SHORT_NAME and DESCRIPTION_TEXT blank
  TextMove(in.DESCRIPTION_TEXT, "", 30);       // 29 blanks
  Remark entity{};
  Run({}, [&](Block& block) { Insert(block, kInsert, &state, &in, &entity); });
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ(" ", entity.DESCRIPTION_TEXT);
  Commit();
  std::string words;
  long long length = 0;
  sql() << "SELECT DESCRIPTION_TEXT, length(DESCRIPTION_TEXT) FROM TSRLBRMK", soci::into(words),
      soci::into(length);
  EXPECT_EQ(" ", words);
  EXPECT_EQ(1, length);
  if (!postgres()) {
    // A fixed char column keeps no trailing blanks either: one blank.
    std::string name;
    sql() << "SELECT SHORT_NAME FROM TSRLBRMK", soci::into(name);
    EXPECT_EQ(" ", name);
  }
  EXPECT_EQ(1, CountRemarks("SHORT_NAME = ' '"));
}

TEST_P(StatementTest, TextsCrossAsCodePage1252) {
  Begin();
  EntityState state;
  ResetEntity(&state);
  // "Café €5" in code page 1252.
  Remark in = MakeRemark(1, "ORG1", "\xC9T\xC9", "Caf\xE9 \x80" "5");
  Remark entity{};
  Run({}, [&](Block& block) {
    Insert(block, kInsert, &state, &in, &entity);
    Remark read{};
    SelectOne(block, kSelectByKey, &state, &in, &read);
    EXPECT_STREQ("\xC9T\xC9   ", read.SHORT_NAME);
    EXPECT_STREQ("Caf\xE9 \x80" "5", read.DESCRIPTION_TEXT);
  });
  ASSERT_FALSE(Failed()) << Database();
  Commit();
  std::string words;
  sql() << "SELECT DESCRIPTION_TEXT FROM TSRLBRMK", soci::into(words);
  EXPECT_EQ("Caf\xC3\xA9 \xE2\x82\xAC" "5", words);  // UTF-8 in the database
}

// ---- Permitted values ----

TEST_P(StatementTest, APermittedValueViolationOnReadIsFatalWithTheAttribute) {
  SeedRows({MakeRemark(1, "ORG1", "ZZ", "not in the list"), MakeRemark(2, "ORG1", "BB", "in")});
  Begin();
  struct Case {
    double is;
    bool fatal;
  } cases[] = {{2, false}, {1, true}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.is);
    ResetRunContext(&rc_, area_);
    EntityState state;
    ResetEntity(&state);
    Remark in = MakeRemark(c.is, "ORG1", "", "");
    Remark entity{};
    bool branched = false;
    Run({}, [&](Block& block) {
      SelectOne(block, kSelectPermitted, &state, &in, &entity);
      if (StateIs(state.status, "OK")) {
        branched = true;
        return;
      }
      FailOnStatus(block, state);
    });
    EXPECT_EQ(c.fatal, Failed());
    EXPECT_EQ(!c.fatal, branched);
    if (!c.fatal) continue;
    EXPECT_STREQ("IA", state.status);
    EXPECT_STREQ("DU", state.currency);
    EXPECT_STREQ("FE", rc_.status);
    EXPECT_STREQ("IA", rc_.status_detail);
    EXPECT_EQ(kShortNameAttribute, rc_.fail_detail);
    EXPECT_EQ('Y', rc_.run_mode);
  }
}

TEST_P(StatementTest, ARowNotPermittedStopsEveryListThatTouchesIt) {
  SeedRows({MakeRemark(1, "ORG1", "AA", "a"), MakeRemark(2, "ORG1", "QQ", "q"),
            MakeRemark(3, "ORG1", "BB", "b")});
  Begin();
  static Cursor cursor;
  EntityState state;
  ResetEntity(&state);
  Remark in = MakeRemark(0, "", "", "");
  Remark entity{};
  std::vector<std::string> names;
  Run({&cursor}, [&](Block& block) {
    ReadList(block, &cursor, kListPermitted, &state, &in, &entity, [&] {
      names.push_back(Trim(entity.SHORT_NAME));
      return true;
    });
  });
  EXPECT_EQ((std::vector<std::string>{"AA", "BB"}), names);  // QQ sorts last
  EXPECT_STREQ("FE", rc_.status);
  EXPECT_STREQ("IA", rc_.status_detail);
  EXPECT_EQ(kShortNameAttribute, rc_.fail_detail);
  EXPECT_FALSE(cursor.open());
}

TEST_P(StatementTest, APermittedValueViolationOnWriteSendsNoStatement) {
  Begin();
  struct Case {
    const char* name;
    const char* status;
  } cases[] = {{"ZZ", "BP"}, {"", "BP"}, {"CC", "OK"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ResetRunContext(&rc_, area_);
    rc_.statement = "untouched";
    ModuleSqlArea().sqlcode = 12345;
    EntityState state;
    ResetEntity(&state);
    Remark in = MakeRemark(1, "ORG1", c.name, "x");
    Remark entity{};
    Run({}, [&](Block& block) {
      Insert(block, kInsertPermitted, &state, &in, &entity);
      if (StateIs(state.status, "BP"))
        SetExit(block.rc(), kExitPermitted, "LAB_REMARK permitted value violation.", 'N');
    });
    ASSERT_FALSE(Failed()) << Database();
    EXPECT_STREQ(c.status, state.status);
    if (std::string(c.status) == "BP") {
      EXPECT_STREQ("untouched", rc_.statement);
      EXPECT_EQ(12345, ModuleSqlArea().sqlcode);
      EXPECT_EQ(kShortNameAttribute, rc_.fail_detail);
      EXPECT_EQ(kExitPermitted, rc_.exit_state);
      EXPECT_STREQ("DU", state.currency);
    } else {
      EXPECT_STREQ("0000000001", rc_.statement);
      EXPECT_STREQ("LK", state.lock);
    }
  }
  Commit();
  EXPECT_EQ(1, CountRemarks());
  EXPECT_EQ(1, CountRemarks("SHORT_NAME = 'CC'"));
}

// ---- Unique violations ----

TEST_P(StatementTest, AUniqueViolationGivesDf) {
  SeedRows({MakeRemark(1, "ORG1", "AA", "a")});
  Begin();
  struct Case {
    const char* why;
    Remark row;
  } cases[] = {
      {"business key", MakeRemark(2, "ORG1", "AA", "same short name")},
      {"primary key", MakeRemark(1, "ORG1", "QQ", "same key")},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    EntityState state;
    ResetEntity(&state);
    Remark entity{};
    Run({}, [&](Block& block) { Insert(block, kInsert, &state, &c.row, &entity); });
    ASSERT_FALSE(Failed()) << Database();
    EXPECT_STREQ("DF", state.status);
    EXPECT_STREQ("DU", state.currency);
    EXPECT_STREQ("CR", state.verb);
    EXPECT_EQ(kSqlUnique, ModuleSqlArea().sqlcode);
    if (postgres()) {
      EXPECT_STREQ("23505", ModuleSqlArea().code);
    } else {
      const std::string code = ModuleSqlArea().code;
      EXPECT_TRUE(code == "2067" || code == "1555") << code;
    }
  }
  // Each failed write undid itself alone, on PostgreSQL too (behind its
  // savepoint): the unit of work goes on and commits.
  EntityState state;
  ResetEntity(&state);
  Remark entity{};
  const Remark good = MakeRemark(3, "ORG1", "BB", "b");
  Run({}, [&](Block& block) { Insert(block, kInsert, &state, &good, &entity); });
  ASSERT_FALSE(Failed()) << Database();
  EXPECT_STREQ("OK", state.status);
  std::string why;
  EXPECT_TRUE(db_->Commit(&why)) << why;
  EXPECT_EQ(2, CountRemarks());
  EXPECT_EQ(1, CountRemarks("SHORT_NAME = 'BB'"));
}

// ---- Entering a block ----

TEST_P(StatementTest, ALoadOnlyCallRunsNoStatement) {
  Begin();
  static UnitStorage unit;
  ResetRunContext(&rc_, area_);
  rc_.run_mode = 'L';
  rc_.statement = "untouched";
  bool ran = false;
  RunActionBlock(&unit, kTestUnit, &port_, nullptr, &rc_, {}, [&](Block&) { ran = true; });
  EXPECT_FALSE(ran);
  EXPECT_STREQ("untouched", rc_.statement);
  EXPECT_EQ(0, unit.nesting);
}

TEST_P(StatementTest, ASessionWithoutADatabaseFailsItsStatements) {
  SessionPort no_store{nullptr, &FixedClock, nullptr};
  static UnitStorage unit;
  ResetRunContext(&rc_, area_);
  EntityState state;
  ResetEntity(&state);
  Remark in = MakeRemark(1, "ORG1", "AA", "a");
  Remark entity{};
  RunActionBlock(&unit, kTestUnit, &no_store, nullptr, &rc_, {},
                 [&](Block& block) { SelectOne(block, kSelectByKey, &state, &in, &entity); });
  EXPECT_STREQ("FE", rc_.status);
  EXPECT_STREQ("DB", rc_.status_detail);
  EXPECT_NE(std::string::npos, Database().find("no database")) << Database();
}

// The reads kept on the backend's own API and the one-time reads through
// SOCI put the same bytes into the record, NULLs, code page 1252 text,
// numbers and dates alike.
TEST_P(StatementTest, KeptReadsAndOneTimeReadsFillTheRecordAlike) {
  ASSERT_NE(nullptr, db_->connection()->native);
  sql() << "INSERT INTO TSMFHU (TSMFHU_IS_NUMBER, TSMFHU_ORG_ID, HYDROLOGIC_UNIT_CD, TYPE_CODE, "
           "NAME, STATES_NAME, LAT_MAX_DEGREE, D_USERID_CODE, D_LAST_UPDT_TS) VALUES "
           "(1, 'ORG1', '01010001', 'CATUNIT', NULL, NULL, NULL, 'JSMITH', "
           "'2024-01-02 03:04:05')";
  sql() << "INSERT INTO TSMFHU (TSMFHU_IS_NUMBER, TSMFHU_ORG_ID, HYDROLOGIC_UNIT_CD, TYPE_CODE, "
           "NAME, STATES_NAME, LAT_MAX_DEGREE, D_USERID_CODE, D_LAST_UPDT_TS) VALUES "
           "(2, 'ORG1', '01010002', 'CATUNIT', 'Caf\xC3\xA9 \xE2\x82\xAC', 'ME', 45.1234, "
           "'JSMITH', '1999-12-31 23:59:58')";
  // The same connection without its kept reads takes the one-time path.
  Connection one_time = *db_->connection();
  one_time.native = nullptr;
  SessionPort one_time_port{nullptr, &FixedClock, &one_time};
  auto read_all = [&](SessionPort* port) {
    static UnitStorage unit;
    static Cursor cursor;
    std::vector<Huc> rows;
    EntityState state;
    ResetEntity(&state);
    rc_.run_mode = ' ';
    RunActionBlock(&unit, kTestUnit, port, nullptr, &rc_, {&cursor}, [&](Block& block) {
      Huc entity;
      std::memset(&entity, 'x', sizeof entity);
      ReadList(block, &cursor, kHucList, &state, &entity, &entity, [&] {
        rows.push_back(entity);
        return true;
      });
    });
    return rows;
  };
  Begin();
  const std::vector<Huc> kept = read_all(&port_);
  ASSERT_FALSE(Failed()) << Database();
  const std::vector<Huc> once = read_all(&one_time_port);
  ASSERT_FALSE(Failed()) << Database();
  ASSERT_EQ(2u, kept.size());
  ASSERT_EQ(2u, once.size());
  for (std::size_t i = 0; i < kept.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(0, std::memcmp(&kept[i], &once[i], sizeof(Huc)));
  }
  EXPECT_STREQ("Caf\xE9 \x80", kept[1].NAME);
  EXPECT_STREQ("19991231235958000000", kept[1].D_LAST_UPDATE_TIMESTAMP);
}

INSTANTIATE_TEST_SUITE_P(Backends, StatementTest, testing::kBackends, testing::BackendName);

}  // namespace
}  // namespace lk::store
