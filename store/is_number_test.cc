// DETERMINE_NEXT_IS_NUMBER on SQLite and PostgreSQL: the first number of a
// counter, one step per call, no gap after a rollback, twelve nines, one
// counter per organisation, the name "TSMPROLE", first numbers taken at the
// same moment by two clients, and the fatal stop at each of its statements.
#include "store/is_number.h"

#include <atomic>
#include <chrono>
#include <cstring>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "frame/host_port.h"
#include "services/number.h"
#include "services/text.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/soci.h"
#include "store/test_database.h"

#include <soci/sqlite3/soci-sqlite3.h>

namespace lk::store {
namespace {

void FixedClock(void*, std::int32_t* date, std::int32_t* time, char* text) {
  *date = 20240305;
  *time = 101112;
  std::memcpy(text, "20240305101112345678", 21);
}

// One client: its connection, RunContext and SessionPort.
struct Client {
  std::unique_ptr<Database> db;
  SessionPort port{};
  RunContext rc{};
  char area[kDatabaseAreaSize] = {};

  bool Open(const std::string& url) {
    std::string error;
    db = Database::Open(url, &error);
    EXPECT_NE(nullptr, db) << error;
    if (db == nullptr) return false;
    port = SessionPort{nullptr, &FixedClock, db->connection()};
    ResetRunContext(&rc, area);
    return true;
  }
  void Begin() {
    std::string error;
    ASSERT_TRUE(db->Begin(&error)) << error;
  }
  void Commit() {
    std::string error;
    ASSERT_TRUE(db->Commit(&error)) << error;
  }

  // One call as a caller makes it: views zeroed and filled, run_mode ' '.
  EisnExport Next(const char* name, const char* org = "ORG1", const char* user = "JSMITH") {
    EisnSystemVariable system{};
    TextMove(system.USER_ID_CODE, user, sizeof system.USER_ID_CODE);
    TextMove(system.CURRENT_ORG_ID, org, sizeof system.CURRENT_ORG_ID);
    EisnImport import{};
    TextMove(import.TSMEISN_NAME, name, sizeof import.TSMEISN_NAME);
    TextMove(import.TSMEISN_ORG_ID, "", sizeof import.TSMEISN_ORG_ID);
    EisnExport out{};
    std::memcpy(rc.status, "  ", 3);
    std::memcpy(rc.status_detail, "  ", 3);
    rc.run_mode = ' ';
    SetExit(&rc, EXIT_NONE, nullptr, 'N');
    DETERMINE_NEXT_IS_NUMBER(&port, nullptr, &rc, &system, &import, &out);
    return out;
  }
  bool Failed() const { return FailureTravels(rc); }
};

class IsNumberTest : public testing::BackendTest {
 protected:
  void SetUp() override {
    testing::BackendTest::SetUp();
    if (HasFatalFailure()) return;
    CreateSchema(connection());
    ASSERT_TRUE(client_.Open(url()));
  }
  void TearDown() override {
    client_.db.reset();
    testing::BackendTest::TearDown();
  }

  bool postgres() const { return GetParam() == Dialect::kPostgres; }

  void Counter(const char* name, const char* org, double number) {
    sql() << "INSERT INTO TSMEISN (TSMEISN_NAME, TSMEISN_ORG_ID, IS_NUMBER, TABLE_VERSION, "
             "V_USERID_CODE, V_LAST_UPDATE_TS, D_USERID_CODE, D_LAST_UPDT_TS) VALUES "
             "(:n, :o, :i, NULL, NULL, NULL, 'SETUP', '2020-01-01 00:00:00')",
        soci::use(std::string(name)), soci::use(std::string(org)), soci::use(number);
  }
  double Stored(const char* name, const char* org) {
    double number = -1;
    sql() << "SELECT IS_NUMBER FROM TSMEISN WHERE TSMEISN_NAME = :n AND TSMEISN_ORG_ID = :o",
        soci::use(std::string(name)), soci::use(std::string(org)), soci::into(number);
    return number;
  }
  long long Rows(const std::string& where) {
    long long n = -1;
    sql() << "SELECT count(*) FROM TSMEISN WHERE " + where, soci::into(n);
    return n;
  }

  Client client_;
};

TEST_P(IsNumberTest, TheFirstRowEverOfATableGetsOne) {
  client_.Begin();
  const EisnExport out = client_.Next("TSRLBRMK");
  ASSERT_FALSE(client_.Failed()) << client_.area;
  EXPECT_EQ(1.0, out.IS_NUMBER);
  EXPECT_STREQ("ORG1    ", out.TSMEISN_ORG_ID);
  EXPECT_EQ(EXIT_NONE, client_.rc.exit_state);
  EXPECT_STREQ("DETERMINE_NEXT_IS_NUMBER", client_.rc.unit_name);
  EXPECT_STREQ("0000000012", client_.rc.statement);
  client_.Commit();

  // The row as the insert made it: NULLs where the block writes none, the
  // caller's user, the clock to the second.
  soci::indicator version_ind, v_user_ind, v_ts_ind;
  std::string version, v_user, user;
  std::tm v_ts{}, stamp{};
  double number = 0;
  sql() << "SELECT IS_NUMBER, TABLE_VERSION, V_USERID_CODE, V_LAST_UPDATE_TS, D_USERID_CODE, "
           "D_LAST_UPDT_TS FROM TSMEISN WHERE TSMEISN_NAME = 'TSRLBRMK' AND TSMEISN_ORG_ID = "
           "'ORG1'",
      soci::into(number), soci::into(version, version_ind), soci::into(v_user, v_user_ind),
      soci::into(v_ts, v_ts_ind), soci::into(user), soci::into(stamp);
  EXPECT_EQ(1.0, number);
  EXPECT_EQ(soci::i_null, version_ind);
  EXPECT_EQ(soci::i_null, v_user_ind);
  EXPECT_EQ(soci::i_null, v_ts_ind);
  EXPECT_EQ("JSMITH", user.substr(0, 6));
  EXPECT_EQ(124, stamp.tm_year);
  EXPECT_EQ(10, stamp.tm_hour);
  EXPECT_EQ(12, stamp.tm_sec);
}

TEST_P(IsNumberTest, TheCounterMovesByExactlyOnePerCall) {
  Counter("TSRUOM", "ORG1", 41);
  client_.Begin();
  for (double want : {42.0, 43.0, 44.0}) {
    const EisnExport out = client_.Next("TSRUOM", "ORG1", "KJONES");
    ASSERT_FALSE(client_.Failed()) << client_.area;
    EXPECT_EQ(want, out.IS_NUMBER);
    EXPECT_STREQ("0000000004", client_.rc.statement);
  }
  client_.Commit();
  EXPECT_EQ(44.0, Stored("TSRUOM", "ORG1"));
  std::string user;
  sql() << "SELECT D_USERID_CODE FROM TSMEISN WHERE TSMEISN_NAME = 'TSRUOM'", soci::into(user);
  EXPECT_EQ("KJONES", user.substr(0, 6));
}

TEST_P(IsNumberTest, ARolledBackCallLeavesNoGap) {
  Counter("TSRLBRMK", "ORG1", 10);
  sql() << "INSERT INTO TSRLBRMK (TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, "
           "DESCRIPTION_TEXT, D_USERID_CODE, D_LAST_UPDATE_TS) VALUES (10, 'ORG1', 'AA', 'a', "
           "'SETUP', '2020-01-01 00:00:00')";
  // The caller takes 11, and then its insert fails: the event is rolled
  // back with the counter's step.
  client_.Begin();
  EXPECT_EQ(11.0, client_.Next("TSRLBRMK").IS_NUMBER);
  bool refused = false;
  try {
    *client_.db->connection()->sql
        << "INSERT INTO TSRLBRMK (TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, "
           "DESCRIPTION_TEXT, D_USERID_CODE, D_LAST_UPDATE_TS) VALUES (11, 'ORG1', 'AA', 'dup', "
           "'JSMITH', '2024-03-05 10:11:12')";
  } catch (const soci::soci_error&) {
    refused = true;
  }
  EXPECT_TRUE(refused);
  client_.db->Rollback();
  EXPECT_EQ(10.0, Stored("TSRLBRMK", "ORG1"));
  // The next caller gets the same number, and keeps it.
  client_.Begin();
  EXPECT_EQ(11.0, client_.Next("TSRLBRMK").IS_NUMBER);
  client_.Commit();
  EXPECT_EQ(11.0, Stored("TSRLBRMK", "ORG1"));
}

TEST_P(IsNumberTest, TwelveNinesAreTheNumberFitServicesToDecide) {
  Counter("TSMVSTC", "ORG1", 999999999999.0);
  client_.Begin();
  const EisnExport out = client_.Next("TSMVSTC");
  ASSERT_FALSE(client_.Failed()) << client_.area;
  const double fitted = NumberFit(999999999999.0 + 1, 0, 0, 12);
  EXPECT_EQ(fitted, out.IS_NUMBER);
  client_.Commit();
  EXPECT_EQ(fitted, Stored("TSMVSTC", "ORG1"));
}

TEST_P(IsNumberTest, TwoOrganisationsHaveSeparateCountersUnderOneName) {
  Counter("TSRUOM", "ORG1", 5);
  Counter("TSRUOM", "ORG2", 100);
  client_.Begin();
  struct Case {
    const char* org;
    double want;
  } cases[] = {{"ORG1", 6}, {"ORG2", 101}, {"ORG1", 7}, {"ORG3", 1}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.org);
    const EisnExport out = client_.Next("TSRUOM", c.org);
    ASSERT_FALSE(client_.Failed()) << client_.area;
    EXPECT_EQ(c.want, out.IS_NUMBER);
    EXPECT_EQ(std::string(c.org) + "    ", out.TSMEISN_ORG_ID);
  }
  client_.Commit();
  EXPECT_EQ(7.0, Stored("TSRUOM", "ORG1"));
  EXPECT_EQ(101.0, Stored("TSRUOM", "ORG2"));
  EXPECT_EQ(1.0, Stored("TSRUOM", "ORG3"));
}

TEST_P(IsNumberTest, ProjectStationRolesCountUnderTsmprole) {
  Counter("TSMPROLE", "ORG1", 20);
  client_.Begin();
  EXPECT_EQ(21.0, client_.Next("TSMPROLE").IS_NUMBER);
  client_.Commit();
  EXPECT_EQ(21.0, Stored("TSMPROLE", "ORG1"));
  EXPECT_EQ(0, Rows("TSMEISN_NAME = 'TSMPSR'"));
}

// Two clients that start the first number of a counter at the same moment.
// PostgreSQL: both find no row, the second insert waits for the first's
// transaction and then fails: NOT UNIQUE. SQLite serialises the writers
// already at BEGIN: the second finds the first's row and takes 2.
TEST_P(IsNumberTest, FirstNumbersAtTheSameMoment) {
  Client second;
  ASSERT_TRUE(second.Open(url()));
  int second_pid = 0;
  if (postgres()) *second.db->connection()->sql << "SELECT pg_backend_pid()", soci::into(second_pid);

  std::atomic<bool> seen_waiting{false};
  if (!postgres()) {
    // SQLite's second client waits in its BEGIN IMMEDIATE: note when it does.
    auto* backend =
        static_cast<soci::sqlite3_session_backend*>(second.db->connection()->sql->get_backend());
    sqlite_api::sqlite3_busy_handler(
        backend->conn_,
        [](void* flag, int) -> int {
          static_cast<std::atomic<bool>*>(flag)->store(true);
          std::this_thread::sleep_for(std::chrono::milliseconds(1));
          return 1;
        },
        &seen_waiting);
  }

  client_.Begin();
  EXPECT_EQ(1.0, client_.Next("TSRBIOPT").IS_NUMBER);
  EisnExport second_out{};
  std::thread other([&] {
    second.Begin();
    second_out = second.Next("TSRBIOPT");
  });
  if (postgres()) {
    // Commit once the second client waits on the first's row.
    Dialect d;
    std::unique_ptr<soci::session> watcher = OpenSession(url(), &d);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    int waiting = 0;
    while (waiting == 0 && std::chrono::steady_clock::now() < deadline) {
      *watcher << "SELECT count(*) FROM pg_stat_activity WHERE pid = :p AND wait_event_type = "
                  "'Lock'",
          soci::use(second_pid), soci::into(waiting);
      if (waiting == 0) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_EQ(1, waiting);
  } else {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!seen_waiting.load() && std::chrono::steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_TRUE(seen_waiting.load());
  }
  client_.Commit();
  other.join();
  ASSERT_FALSE(second.Failed()) << second.area;
  if (postgres()) {
    EXPECT_EQ(EXIT_EISN_NOT_UNIQUE, second.rc.exit_state);
    EXPECT_STREQ(kEisnNotUniqueText, second.rc.exit_message);
    EXPECT_EQ('N', second.rc.message_kind);
    EXPECT_EQ(0.0, second_out.IS_NUMBER);
    second.db->Rollback();
    EXPECT_EQ(1.0, Stored("TSRBIOPT", "ORG1"));
  } else {
    EXPECT_EQ(EXIT_NONE, second.rc.exit_state);
    EXPECT_EQ(2.0, second_out.IS_NUMBER);
    second.Commit();
    EXPECT_EQ(2.0, Stored("TSRBIOPT", "ORG1"));
  }
}

// The race's outcome on both backends: a row of the counter appears between
// the read and the insert (a trigger stands in for the other client), and
// the insert's unique violation becomes NOT UNIQUE.
TEST_P(IsNumberTest, AnInsertThatMeetsAnotherFirstRowIsNotUnique) {
  if (postgres()) {
    sql() << "CREATE FUNCTION slip_in() RETURNS trigger AS $$ BEGIN "
             "IF NEW.TABLE_VERSION IS NULL AND NEW.D_USERID_CODE <> 'OTHER' THEN "
             "INSERT INTO TSMEISN VALUES (NEW.TSMEISN_NAME, NEW.TSMEISN_ORG_ID, 1, 'X', NULL, "
             "NULL, 'OTHER', NEW.D_LAST_UPDT_TS); END IF; RETURN NEW; END $$ LANGUAGE plpgsql";
    sql() << "CREATE TRIGGER slip BEFORE INSERT ON TSMEISN FOR EACH ROW EXECUTE FUNCTION slip_in()";
  } else {
    sql() << "CREATE TRIGGER slip BEFORE INSERT ON TSMEISN WHEN NEW.TABLE_VERSION IS NULL "
             "BEGIN INSERT INTO TSMEISN (TSMEISN_NAME, TSMEISN_ORG_ID, IS_NUMBER, TABLE_VERSION, "
             "D_USERID_CODE, D_LAST_UPDT_TS) VALUES (NEW.TSMEISN_NAME, NEW.TSMEISN_ORG_ID, 1, "
             "'X', 'OTHER', NEW.D_LAST_UPDT_TS); END";
  }
  client_.Begin();
  const EisnExport out = client_.Next("TSRFLDGR");
  ASSERT_FALSE(client_.Failed()) << client_.area;
  EXPECT_EQ(EXIT_EISN_NOT_UNIQUE, client_.rc.exit_state);
  EXPECT_STREQ("ENTITY_INTERNAL_SYSTEM_NUMBER is not unique.", client_.rc.exit_message);
  EXPECT_EQ('N', client_.rc.message_kind);
  EXPECT_EQ(0.0, out.IS_NUMBER);
}

// The cases run in this order in one database, each on a counter of its
// own; the table goes last.
TEST_P(IsNumberTest, ADatabaseFailureIsAFatalStopAtItsStatement) {
  Counter("TSRANLEQ", "ORG1", 3);
  if (postgres()) {
    sql() << "CREATE FUNCTION refuse() RETURNS trigger AS $$ BEGIN RAISE EXCEPTION 'refused'; "
             "END $$ LANGUAGE plpgsql";
  }
  struct Case {
    const char* why;
    const char* name;
    const char* sqlite;
    const char* postgres;
    std::uint32_t site;
  } cases[] = {
      {"the update", "TSRANLEQ",
       "CREATE TRIGGER refuse_update BEFORE UPDATE ON TSMEISN BEGIN "
       "SELECT RAISE(ABORT, 'refused'); END",
       "CREATE TRIGGER refuse_update BEFORE UPDATE ON TSMEISN FOR EACH ROW "
       "EXECUTE FUNCTION refuse()",
       4},
      {"the insert", "TSRLSPP",
       "CREATE TRIGGER refuse_insert BEFORE INSERT ON TSMEISN BEGIN "
       "SELECT RAISE(ABORT, 'refused'); END",
       "CREATE TRIGGER refuse_insert BEFORE INSERT ON TSMEISN FOR EACH ROW "
       "EXECUTE FUNCTION refuse()",
       12},
      {"the read for update", "TSRANLPR", "DROP TABLE TSMEISN", "DROP TABLE TSMEISN", 3},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    sql() << (postgres() ? c.postgres : c.sqlite);
    client_.Begin();
    const std::uint32_t exit_before = client_.rc.exit_state;
    const EisnExport out = client_.Next(c.name);
    EXPECT_TRUE(client_.Failed());
    EXPECT_STREQ("FE", client_.rc.status);
    EXPECT_STREQ("DB", client_.rc.status_detail);
    EXPECT_EQ(c.site, client_.rc.fail_site);
    EXPECT_STREQ("DETERMINE_NEXT_IS_NUMBER", client_.rc.unit_name);
    EXPECT_EQ(exit_before, client_.rc.exit_state);
    EXPECT_EQ(0.0, out.IS_NUMBER);
    EXPECT_NE(std::string::npos, std::string(client_.area).find("sqlcode -2")) << client_.area;
    client_.db->Rollback();
  }
}

TEST_P(IsNumberTest, ALoadOnlyCallDoesNothing) {
  Counter("TSRUOM", "ORG1", 5);
  client_.Begin();
  EisnSystemVariable system{};
  EisnImport import{};
  TextMove(import.TSMEISN_NAME, "TSRUOM", sizeof import.TSMEISN_NAME);
  EisnExport out;
  std::memset(&out, 0x5A, sizeof out);
  client_.rc.run_mode = 'L';
  DETERMINE_NEXT_IS_NUMBER(&client_.port, nullptr, &client_.rc, &system, &import, &out);
  EisnExport untouched;
  std::memset(&untouched, 0x5A, sizeof untouched);
  EXPECT_EQ(0, std::memcmp(&out, &untouched, sizeof out));
  client_.Commit();
  EXPECT_EQ(5.0, Stored("TSRUOM", "ORG1"));
}

INSTANTIATE_TEST_SUITE_P(Backends, IsNumberTest, testing::kBackends, testing::BackendName);

}  // namespace
}  // namespace lk::store
