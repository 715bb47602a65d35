// The host over a real database, on SQLite and on a private PostgreSQL
// cluster: the host's preparation of the database before it serves (the
// schema made once, a database that cannot be opened, logins of the users'
// own only on PostgreSQL), sessions that log in with their user's own
// credentials, and a session's events as transactions of its own connection
// that go on after the database dropped it.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "host/host.h"
#include "host/session.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/soci.h"
#include "store/store_port.h"
#include "tests/pg/pg_cluster.h"

namespace watrix {
namespace {

using lk::store::Database;
using testing::PgCluster;

std::string BuildFolder() {
  const char* b = std::getenv("WATRIX_BUILD");
  return b != nullptr ? b : ".";
}

Modules* TestModules() {
  static Modules* modules = new Modules(BuildFolder(), "TESTMOD");
  return modules;
}

bool HasSchema(const std::string& url) {
  std::string error;
  std::unique_ptr<Database> db = Database::Open(url, &error);
  EXPECT_NE(nullptr, db) << error;
  return db != nullptr && lk::store::SchemaExists(*db->connection());
}

// The message of the std::runtime_error that MakeHost throws, or "".
std::string MakeHostRefusal(const HostOptions& options) {
  try {
    MakeHost(options);
  } catch (const std::runtime_error& e) {
    return e.what();
  }
  return "";
}

enum class Backend { kSqlite, kPostgres };

std::string BackendName(const ::testing::TestParamInfo<Backend>& info) {
  return info.param == Backend::kSqlite ? "Sqlite" : "Postgres";
}

class HostDatabaseTest : public ::testing::TestWithParam<Backend> {
 protected:
  void SetUp() override {
    if (GetParam() == Backend::kSqlite) {
      char folder[] = "/tmp/watrix-host-db-test-XXXXXX";
      ASSERT_NE(nullptr, mkdtemp(folder));
      folder_ = folder;
      url_ = "sqlite:" + folder_ + "/watrix.db";
    } else {
      ASSERT_TRUE(cluster().Available()) << cluster().why_not();
      url_ = cluster().NewDatabase();
      ASSERT_FALSE(url_.empty());
      db_name_ = url_.substr(url_.rfind('/') + 1);
    }
  }
  void TearDown() override {
    if (!folder_.empty()) std::filesystem::remove_all(folder_);
  }

  static PgCluster& cluster() { return PgCluster::Shared(); }
  bool postgres() const { return GetParam() == Backend::kPostgres; }

  HostOptions Options(const std::string& auth = "none") const {
    HostOptions options;
    options.module_dir = BuildFolder();
    options.database = url_;
    options.auth = auth;
    return options;
  }

  // The server ends the session's connection, as an administrator would.
  void DropConnection(Database* db) {
    if (!postgres()) {
      db->connection()->sql->close();
      return;
    }
    int pid = 0;
    *db->connection()->sql << "SELECT pg_backend_pid()", soci::into(pid);
    std::string out;
    ASSERT_TRUE(cluster().Psql("postgres",
                               "SELECT pg_terminate_backend(" + std::to_string(pid) + ")", &out))
        << out;
    for (int i = 0; i < 200; ++i) {
      ASSERT_TRUE(cluster().Psql(
          "postgres", "SELECT count(*) FROM pg_stat_activity WHERE pid = " + std::to_string(pid),
          &out));
      if (out == "0\n") return;
      usleep(10000);
    }
    FAIL() << "the backend stays";
  }

  // The database goes away for new connections too, and comes back.
  void TakeDatabaseAway(Database* db) {
    if (postgres()) {
      std::string out;
      ASSERT_TRUE(cluster().Psql("postgres",
                                 "ALTER DATABASE " + db_name_ + " ALLOW_CONNECTIONS false", &out))
          << out;
      DropConnection(db);
    } else {
      DropConnection(db);
      std::filesystem::rename(folder_, folder_ + ".away");
    }
  }
  void BringDatabaseBack() {
    if (postgres()) {
      std::string out;
      ASSERT_TRUE(cluster().Psql("postgres",
                                 "ALTER DATABASE " + db_name_ + " ALLOW_CONNECTIONS true", &out))
          << out;
    } else {
      std::filesystem::rename(folder_ + ".away", folder_);
    }
  }

  std::string url_;
  std::string folder_;
  std::string db_name_;
};

TEST_P(HostDatabaseTest, ServeMakesTheSchemaOnce) {
  ASSERT_FALSE(HasSchema(url_));
  ASSERT_NO_THROW(MakeHost(Options()));
  EXPECT_TRUE(HasSchema(url_));
  // A second start finds it and changes nothing.
  ASSERT_NO_THROW(MakeHost(Options()));
  EXPECT_TRUE(HasSchema(url_));
}

TEST_P(HostDatabaseTest, ServeRefusesADatabaseThatDoesNotOpen) {
  HostOptions options = Options();
  if (postgres()) {
    options.database = url_ + "_missing";
    const std::string why = MakeHostRefusal(options);
    EXPECT_EQ(0u, why.find("cannot open the database: ")) << why;
    EXPECT_NE(std::string::npos, why.find("does not exist")) << why;
  } else {
    options.database = "sqlite:" + folder_ + "/no/such/folder/watrix.db";
    const std::string why = MakeHostRefusal(options);
    EXPECT_EQ(0u, why.find("cannot open the database " + options.database + ": ")) << why;
  }
  options.database = "mysql://db/w";
  EXPECT_NE("", MakeHostRefusal(options));
}

TEST_P(HostDatabaseTest, UsersOwnLoginsNeedPostgres) {
  if (postgres()) {
    EXPECT_NO_THROW(MakeHost(Options("database")));
  } else {
    EXPECT_NE(
        std::string::npos,
        MakeHostRefusal(Options("database")).find("--auth database needs a PostgreSQL database"));
  }
}

TEST_P(HostDatabaseTest, EachEventIsATransactionThatGoesOnAfterADroppedConnection) {
  std::string error;
  std::unique_ptr<Database> opened = Database::Open(url_, &error);
  ASSERT_NE(nullptr, opened) << error;
  Database* db = opened.get();
  auto store = std::make_unique<lk::store::SociStore>(std::move(opened));
  lk::store::SociStore* port = store.get();
  Session session(TestModules(), std::move(store), SystemClock());
  ASSERT_EQ("", session.Start("JSMITH", "ORG1", StartRequest{"TM1_FORM", "E", "", {}}));
  EXPECT_FALSE(db->in_transaction());

  auto go = [&](const std::string& name) {
    return session.Event({{"window", "TM1_FORM"},
                          {"control", "&Go"},
                          {"event", "Click"},
                          {"values", {{"NAME", name}}}});
  };
  Reply r = go("A");
  ASSERT_EQ(200, r.status) << r.body.dump();
  EXPECT_TRUE(r.body["failure"].is_null()) << r.body.dump();
  EXPECT_FALSE(db->in_transaction());
  EXPECT_EQ(0, db->reconnections());

  // Dropped between events: the next event begins on a new connection.
  DropConnection(db);
  r = go("B");
  ASSERT_EQ(200, r.status) << r.body.dump();
  EXPECT_TRUE(r.body["failure"].is_null()) << r.body.dump();
  EXPECT_EQ(1, db->reconnections());
  EXPECT_EQ(db->connection(), port->ModuleHandle());
  EXPECT_FALSE(db->in_transaction());

  // Gone altogether: the event stops with the database's reason and runs
  // no unit; the windows stay.
  TakeDatabaseAway(db);
  r = go("C");
  ASSERT_EQ(200, r.status) << r.body.dump();
  const nlohmann::json& failure = r.body["failure"];
  ASSERT_TRUE(failure.is_object()) << r.body.dump();
  EXPECT_EQ("FE", failure["status"]);
  EXPECT_EQ("DB", failure["status_detail"]);
  EXPECT_EQ(0u, failure["database"].get<std::string>().find("cannot begin a transaction: "))
      << failure;
  ASSERT_EQ(1u, r.body["windows"].size());
  EXPECT_EQ("TM1_FORM", r.body["windows"][0]["name"]);
  EXPECT_FALSE(db->in_transaction());

  // Back again: the session goes on.
  BringDatabaseBack();
  r = go("D");
  ASSERT_EQ(200, r.status) << r.body.dump();
  EXPECT_TRUE(r.body["failure"].is_null()) << r.body.dump();
  EXPECT_EQ("Saved D", r.body["message"]["text"]);
  EXPECT_FALSE(db->in_transaction());
}

INSTANTIATE_TEST_SUITE_P(Backends, HostDatabaseTest,
                         ::testing::Values(Backend::kSqlite, Backend::kPostgres), BackendName);

TEST(HostLoginTest, SessionsLogInWithTheirUsersOwnCredentials) {
  PgCluster& cluster = PgCluster::Shared();
  ASSERT_TRUE(cluster.Available()) << cluster.why_not();
  const std::string url = cluster.NewDatabase();
  ASSERT_FALSE(url.empty());
  std::string out;
  ASSERT_TRUE(cluster.Psql("postgres",
                           "DO $$ BEGIN IF NOT EXISTS (SELECT FROM pg_roles WHERE rolname = "
                           "'JSMITH') THEN CREATE ROLE \"JSMITH\" LOGIN PASSWORD 's3cret'; END "
                           "IF; END $$",
                           &out))
      << out;
  HostOptions options;
  options.module_dir = BuildFolder();
  options.database = url;
  options.auth = "database";
  std::unique_ptr<Host> host = MakeHost(options);

  Reply r = host->CreateSession({{"user", "JSMITH"}, {"org", "ZZZZZZZZ"}, {"password", "wrong"}});
  EXPECT_EQ(400, r.status);
  EXPECT_NE(std::string::npos, r.body["error"].get<std::string>().find(
                                   "password authentication failed for user \"JSMITH\""))
      << r.body.dump();
  r = host->CreateSession({{"user", "JSMITH"}, {"org", "ZZZZZZZZ"}});
  EXPECT_EQ(400, r.status);
  EXPECT_NE(std::string::npos, r.body["error"].get<std::string>().find("password"))
      << r.body.dump();
  r = host->CreateSession({{"user", "JSMITH"}, {"org", "ZZZZZZZZ"}, {"password", "s3cret"}});
  ASSERT_EQ(201, r.status) << r.body.dump();
  EXPECT_EQ("RT1_REFERENCE_TABLE_MAINT_MENU", r.body["screen"]["windows"][0]["name"]);
  EXPECT_EQ(204, host->EndSession(r.body["session"]).status);

  // Without logins of their own, every session connects with the URL's.
  options.auth = "none";
  host = MakeHost(options);
  r = host->CreateSession({{"user", "NOBODY"}, {"org", "ZZZZZZZZ"}});
  EXPECT_EQ(201, r.status) << r.body.dump();
}

}  // namespace
}  // namespace watrix
