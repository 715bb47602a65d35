// End-to-end tests of the watrix program: starts `watrix serve` as a child
// process on a free port, reads the address it prints, and drives the menu
// over HTTP as the page or a script would. Also checks the command line's
// exit statuses, the db commands and the clean stop on SIGINT and SIGTERM.
//
// The tests that touch a database run once on each backend: on a fresh
// SQLite file, and on a fresh database of the private PostgreSQL cluster
// (tests/pg). When the cluster cannot run, the PostgreSQL cases fail with
// the reason; they are never skipped.
//
// The program is $WATRIX_BUILD/watrix; its module libraries lie beside it.
// Every child started here is killed before the test program ends.
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <regex>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <httplib.h>
#include <nlohmann/json.hpp>

#include "tests/pg/pg_cluster.h"

extern char** environ;

namespace watrix {
namespace {

using nlohmann::json;

constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kMenuA[] = "RT1A_REFERENCE_TABLE_MAINT_MENU";
constexpr char kCharSelect[] = "RT1B_CHAR_TYPE_SELECT";

enum class Backend { kSqlite, kPostgres };

const auto kBackends = ::testing::Values(Backend::kSqlite, Backend::kPostgres);

std::string BackendName(const ::testing::TestParamInfo<Backend>& info) {
  return info.param == Backend::kSqlite ? "Sqlite" : "Postgres";
}

void PrintTo(Backend backend, std::ostream* out) {
  *out << (backend == Backend::kSqlite ? "SQLite" : "PostgreSQL");
}

// The URL of a fresh, empty database of `backend`: an SQLite file in folder
// `dir`, or a new database of the private cluster. "" with *why_not set when
// there is none.
std::string NewDatabaseUrl(Backend backend, const std::string& dir, std::string* why_not) {
  if (backend == Backend::kSqlite) {
    if (dir.empty()) {
      *why_not = "no scratch folder under /tmp";
      return "";
    }
    return "sqlite:" + dir + "/watrix.db";
  }
  testing::PgCluster& cluster = testing::PgCluster::Shared();
  if (!cluster.Available()) {
    *why_not = "PostgreSQL test cluster: " + cluster.why_not();
    return "";
  }
  std::string url = cluster.NewDatabase();
  if (url.empty()) *why_not = "PostgreSQL test cluster: CREATE DATABASE failed";
  return url;
}

std::string ProgramPath() {
  const char* build = std::getenv("WATRIX_BUILD");
  return std::string(build ? build : ".") + "/watrix";
}

// Starts `program args...` with standard output (and, when err_fd is not
// null, standard error) on pipes. Returns the child's pid, or -1.
pid_t Spawn(const std::vector<std::string>& args, int* out_fd, int* err_fd) {
  int out[2];
  int err[2] = {-1, -1};
  if (pipe2(out, O_CLOEXEC) != 0) return -1;
  if (err_fd && pipe2(err, O_CLOEXEC) != 0) return -1;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, out[1], 1);
  if (err_fd) posix_spawn_file_actions_adddup2(&actions, err[1], 2);
  std::vector<char*> argv;
  for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  pid_t pid = -1;
  if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ) != 0) {
    pid = -1;
  }
  posix_spawn_file_actions_destroy(&actions);
  close(out[1]);
  *out_fd = out[0];
  if (err_fd) {
    close(err[1]);
    *err_fd = err[0];
  }
  return pid;
}

// Reads fd until end of file.
std::string ReadAll(int fd) {
  std::string text;
  char buf[4096];
  ssize_t n;
  while ((n = read(fd, buf, sizeof(buf))) > 0) text.append(buf, n);
  close(fd);
  return text;
}

// Waits up to `seconds` for pid; kills it if it is still there. Returns the
// wait status.
int WaitOrKill(pid_t pid, int seconds) {
  int status = 0;
  auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  while (std::chrono::steady_clock::now() < deadline) {
    if (waitpid(pid, &status, WNOHANG) == pid) return status;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  kill(pid, SIGKILL);
  waitpid(pid, &status, 0);
  return status;
}

// A `watrix serve` child on a fresh database of its own, of `backend`.
class ServerProcess {
 public:
  explicit ServerProcess(Backend backend) : backend_(backend) {
    char dir[] = "/tmp/watrix_http_test_XXXXXX";
    if (mkdtemp(dir)) dir_ = dir;
  }

  ~ServerProcess() {
    Stop(SIGKILL);
    if (!dir_.empty()) std::filesystem::remove_all(dir_);
  }

  // Makes the database, starts the server and waits up to 30 s for its
  // address line.
  bool Start(std::string* error) {
    const std::string db = NewDatabaseUrl(backend_, dir_, error);
    if (db.empty()) return false;
    pid_ = Spawn({ProgramPath(), "serve", "--listen", "127.0.0.1:0", "--db", db}, &out_fd_,
                 nullptr);
    if (pid_ < 0) {
      *error = "cannot start " + ProgramPath();
      return false;
    }
    std::string line;
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (line.find('\n') == std::string::npos) {
      auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
          deadline - std::chrono::steady_clock::now());
      pollfd p = {out_fd_, POLLIN, 0};
      if (left.count() <= 0 || poll(&p, 1, static_cast<int>(left.count())) <= 0) {
        *error = "no address printed within 30 s; got: " + line;
        return false;
      }
      char buf[256];
      ssize_t n = read(out_fd_, buf, sizeof(buf));
      if (n <= 0) {
        *error = "the server ended before printing its address; got: " + line;
        return false;
      }
      line.append(buf, n);
    }
    std::smatch m;
    static const std::regex kAddress(
        R"(^WATRIX serving on http://127\.0\.0\.1:([0-9]+)/\n)");
    if (!std::regex_search(line, m, kAddress)) {
      *error = "unexpected first line: " + line;
      return false;
    }
    port_ = std::stoi(m[1]);
    return port_ > 0;
  }

  // Sends `sig` and returns the wait status (-1 if not running).
  int Stop(int sig) {
    if (pid_ <= 0) return -1;
    kill(pid_, sig);
    int status = WaitOrKill(pid_, 20);
    pid_ = -1;
    if (out_fd_ >= 0) close(out_fd_);
    out_fd_ = -1;
    return status;
  }

  int port() const { return port_; }

 private:
  Backend backend_;
  std::string dir_;
  pid_t pid_ = -1;
  int out_fd_ = -1;
  int port_ = 0;
};

// Runs the program to its end; returns its wait status, output and errors.
struct RunResult {
  int status = -1;
  std::string out;
  std::string err;
};

RunResult RunProgram(std::vector<std::string> args) {
  args.insert(args.begin(), ProgramPath());
  RunResult r;
  int out = -1, err = -1;
  pid_t pid = Spawn(args, &out, &err);
  if (pid < 0) return r;
  // The outputs are small: usage texts.
  r.out = ReadAll(out);
  r.err = ReadAll(err);
  r.status = WaitOrKill(pid, 20);
  return r;
}

json Event(const std::string& window, const std::string& control,
           const std::string& event = "Click") {
  return {{"window", window}, {"control", control}, {"event", event}};
}

std::vector<std::string> WindowNames(const json& screen) {
  std::vector<std::string> names;
  for (const json& w : screen.at("windows")) names.push_back(w.at("name"));
  return names;
}

// The menu over HTTP. The tests of one backend share a server, started by
// the first of them; each works in sessions of its own.
class MenuHttpTest : public ::testing::TestWithParam<Backend> {
 protected:
  // One server per backend, and why it did not start.
  struct Shared {
    std::unique_ptr<ServerProcess> server;
    std::string start_error;
  };

  static void TearDownTestSuite() {
    for (Shared& shared : shared_) shared = Shared();
  }

  void SetUp() override {
    Shared& shared = shared_[static_cast<int>(GetParam())];
    if (shared.server == nullptr) {
      shared.server = std::make_unique<ServerProcess>(GetParam());
      if (!shared.server->Start(&shared.start_error) && shared.start_error.empty()) {
        shared.start_error = "the server did not start";
      }
    }
    ASSERT_EQ("", shared.start_error);
    client_ = std::make_unique<httplib::Client>("127.0.0.1", shared.server->port());
    client_->set_read_timeout(30, 0);
  }

  httplib::Result CreateSession(const json& request) {
    return client_->Post("/api/sessions", request.dump(), "application/json");
  }

  // Opens a session of JSMITH in ZZZZZZZZ; returns its token.
  std::string Login() {
    auto r = CreateSession({{"user", "JSMITH"}, {"org", "ZZZZZZZZ"}});
    EXPECT_TRUE(r);
    if (!r) return "";
    EXPECT_EQ(201, r->status) << r->body;
    return json::parse(r->body, nullptr, false).value("session", "");
  }

  httplib::Result Post(const std::string& token, const std::string& body) {
    return client_->Post("/api/events",
                         {{"Authorization", "Bearer " + token}}, body,
                         "application/json");
  }

  // Posts `event`, expects `status`, and returns the answer's body.
  json Send(const std::string& token, const json& event, int status = 200) {
    auto r = Post(token, event.dump());
    EXPECT_TRUE(r) << event.dump();
    if (!r) return json();
    EXPECT_EQ(status, r->status) << event.dump() << " -> " << r->body;
    EXPECT_EQ("application/json; charset=utf-8",
              r->get_header_value("Content-Type"));
    json body = json::parse(r->body, nullptr, false);
    EXPECT_TRUE(body.is_object()) << r->body;
    if (status != 200) {
      EXPECT_TRUE(body.contains("error")) << r->body;
    }
    return body;
  }

  json Screen(const std::string& token, int status = 200) {
    auto r = client_->Get("/api/screen", {{"Authorization", "Bearer " + token}});
    EXPECT_TRUE(r);
    if (!r) return json();
    EXPECT_EQ(status, r->status) << r->body;
    return json::parse(r->body, nullptr, false);
  }

  static Shared shared_[2];
  std::unique_ptr<httplib::Client> client_;
};

MenuHttpTest::Shared MenuHttpTest::shared_[2];

TEST_P(MenuHttpTest, CreateSessionOpensTheMenu) {
  auto r = CreateSession({{"user", "JSMITH"}, {"org", "ZZZZZZZZ"}});
  ASSERT_TRUE(r);
  ASSERT_EQ(201, r->status) << r->body;
  EXPECT_EQ("no-store", r->get_header_value("Cache-Control"));
  json body = json::parse(r->body);
  ASSERT_TRUE(body["session"].is_string());
  const std::string token = body["session"];
  EXPECT_FALSE(token.empty());
  const json& screen = body["screen"];
  ASSERT_EQ(std::vector<std::string>{kMenu}, WindowNames(screen));
  const json& menu = screen["windows"][0];
  EXPECT_EQ("RT1 Reference Table Maintenance Menu", menu["title"]);
  EXPECT_EQ(kMenu, menu["procedure"]);
  EXPECT_TRUE(menu["controls"].is_array());
  EXPECT_TRUE(screen["message"].is_null());
  EXPECT_TRUE(screen["failure"].is_null());
  EXPECT_EQ(false, screen["ended"]);

  EXPECT_EQ(screen, Screen(token));
}

TEST_P(MenuHttpTest, UserAndOrgAreOneToEightCharacters) {
  struct Case {
    const char* user;
    const char* org;
    int status;
  };
  // Lengths count characters of code page 1252, not bytes of UTF-8.
  const Case kCases[] = {
      {"JSMITH", "ZZZZZZZZ", 201},
      {"ABCDEFGH", "Z", 201},
      {"ABCDEFGHI", "ZZZZZZZZ", 400},
      {"JSMITH", "ZZZZZZZZZ", 400},
      {"", "ZZZZZZZZ", 400},
      {"JSMITH", "", 400},
      {"\u00c4\u00c4\u00c4\u00c4\u00c4\u00c4\u00c4\u00c4", "ZZZZZZZZ", 201},
      {"J\u20ac", "ZZZZZZZZ", 201},
      {"\u4e2d", "ZZZZZZZZ", 400},
      {"JSMITH", "Z\u4e2d", 400},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.user) + "/" + c.org);
    auto r = CreateSession({{"user", c.user}, {"org", c.org}});
    ASSERT_TRUE(r);
    EXPECT_EQ(c.status, r->status) << r->body;
    json body = json::parse(r->body, nullptr, false);
    if (c.status == 400) {
      EXPECT_TRUE(body.contains("error")) << r->body;
    }
  }
}

TEST_P(MenuHttpTest, AdditionalTablesOpensOnTopAndCloses) {
  const std::string token = Login();
  json screen = Send(token, Event(kMenu, "Additional Tables >>>"));
  ASSERT_EQ((std::vector<std::string>{kMenu, kMenuA}), WindowNames(screen));
  EXPECT_EQ("RT1A Reference Table Menu (Continued)", screen["windows"][1]["title"]);

  // Only the window on top takes events.
  Send(token, Event(kMenu, "&Characteristic"), 409);
  EXPECT_EQ((std::vector<std::string>{kMenu, kMenuA}),
            WindowNames(Screen(token)));

  screen = Send(token, Event(kMenuA, "C&lose"));
  EXPECT_EQ(std::vector<std::string>{kMenu}, WindowNames(screen));
  EXPECT_EQ(false, screen["ended"]);
}

TEST_P(MenuHttpTest, CharacteristicOpensTheTypeSelection) {
  const std::string token = Login();
  json screen = Send(token, Event(kMenu, "&Characteristic"));
  ASSERT_EQ((std::vector<std::string>{kMenu, kCharSelect}), WindowNames(screen));
  screen = Send(token, Event(kCharSelect, "C&lose"));
  EXPECT_EQ(std::vector<std::string>{kMenu}, WindowNames(screen));
}

TEST_P(MenuHttpTest, FlowToAMissingProcedureSaysSo) {
  struct Case {
    const char* control;
    const char* text;
  };
  // RT36 holds while the FIPS hydrologic unit module has no entry yet; RT52
  // lives in LKBASE2, which is not installed.
  const Case kCases[] = {
      {"FIPS Hydrologic Unit",
       "Procedure RT36_FIPS_HUC_MAINT_LIST of module LKBASE is not available."},
      {"Error Messa&ge",
       "Procedure RT52_ERROR_MESSAGES_MAINT_LIST of module LKBASE2 is not "
       "available."},
  };
  const std::string token = Login();
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.control);
    json screen = Send(token, Event(kMenu, c.control));
    EXPECT_EQ(std::vector<std::string>{kMenu}, WindowNames(screen));
    EXPECT_EQ((json{{"kind", "E"}, {"text", c.text}}), screen["message"]);
    EXPECT_TRUE(screen["failure"].is_null());
    EXPECT_EQ(false, screen["ended"]);
  }
  // The menu still works.
  json screen = Send(token, Event(kMenu, "Additional Tables >>>"));
  EXPECT_EQ((std::vector<std::string>{kMenu, kMenuA}), WindowNames(screen));
}

TEST_P(MenuHttpTest, HelpNamesTheWindowsHelpPage) {
  const std::string token = Login();
  json screen = Send(token, Event(kMenu, "&Help"));
  EXPECT_EQ("/help/RT1_REFERENCE_TABLE_MAINT_MENU", screen["help"]);
  EXPECT_EQ(std::vector<std::string>{kMenu}, WindowNames(screen));

  auto r = client_->Get(screen["help"].get<std::string>());
  ASSERT_TRUE(r);
  EXPECT_EQ(200, r->status);
  EXPECT_EQ("text/html; charset=utf-8", r->get_header_value("Content-Type"));
  EXPECT_FALSE(r->body.empty());
}

TEST_P(MenuHttpTest, RefusedEventsChangeNothing) {
  const std::string token = Login();
  const json before = Screen(token);

  Send(token, Event(kMenu, "No Such Button"), 400);
  Send(token, Event("NO_SUCH_WINDOW", "C&lose"), 400);

  auto r = Post(token, R"({"window": "RT1_REFERENCE_TABLE_MAINT_MENU", )");
  ASSERT_TRUE(r);
  EXPECT_EQ(400, r->status);

  // U+4E2D has no place in code page 1252. The menu has no field to type
  // into, so this is refused on two counts; the code page itself is pinned
  // by the user ids of UserAndOrgAreOneToEightCharacters.
  json event = Event(kMenu, "&Characteristic");
  event["values"] = {{"&Characteristic", "\u4e2d"}};
  Send(token, event, 400);

  EXPECT_EQ(before, Screen(token));
}

TEST_P(MenuHttpTest, TokenIsNeeded) {
  auto r = client_->Get("/api/screen");
  ASSERT_TRUE(r);
  EXPECT_EQ(401, r->status);
  r = client_->Post("/api/events", Event(kMenu, "&Help").dump(),
                    "application/json");
  ASSERT_TRUE(r);
  EXPECT_EQ(401, r->status);
  Screen("no-such-token", 401);
  Send("no-such-token", Event(kMenu, "&Help"), 401);
}

TEST_P(MenuHttpTest, SessionsAreSeparate) {
  const std::string a = Login();
  const std::string b = Login();
  ASSERT_NE(a, b);
  Send(a, Event(kMenu, "Additional Tables >>>"));
  EXPECT_EQ(std::vector<std::string>{kMenu}, WindowNames(Screen(b)));
  EXPECT_EQ((std::vector<std::string>{kMenu, kMenuA}), WindowNames(Screen(a)));
}

TEST_P(MenuHttpTest, ClosingTheMenuEndsTheRun) {
  const std::string token = Login();
  json screen = Send(token, Event(kMenu, "C&lose"));
  EXPECT_EQ(true, screen["ended"]);
  Send(token, Event(kMenu, "Additional Tables >>>"), 409);
  EXPECT_EQ(true, Screen(token)["ended"]);
}

TEST_P(MenuHttpTest, DeleteEndsTheSession) {
  const std::string token = Login();
  auto r = client_->Delete("/api/session", {{"Authorization", "Bearer " + token}});
  ASSERT_TRUE(r);
  EXPECT_EQ(204, r->status);
  Screen(token, 401);
  Send(token, Event(kMenu, "&Help"), 401);
  r = client_->Delete("/api/session", {{"Authorization", "Bearer " + token}});
  ASSERT_TRUE(r);
  EXPECT_EQ(401, r->status);
}

INSTANTIATE_TEST_SUITE_P(Backends, MenuHttpTest, kBackends, BackendName);

class ServeTest : public ::testing::TestWithParam<Backend> {};

TEST_P(ServeTest, StopsCleanlyOnSigintAndSigterm) {
  for (int sig : {SIGINT, SIGTERM}) {
    SCOPED_TRACE(strsignal(sig));
    ServerProcess server(GetParam());
    std::string error;
    ASSERT_TRUE(server.Start(&error)) << error;
    httplib::Client client("127.0.0.1", server.port());
    auto r = client.Get("/api/screen");
    ASSERT_TRUE(r);
    EXPECT_EQ(401, r->status);
    int status = server.Stop(sig);
    ASSERT_TRUE(WIFEXITED(status)) << "wait status " << status;
    EXPECT_EQ(0, WEXITSTATUS(status));
  }
}

INSTANTIATE_TEST_SUITE_P(Backends, ServeTest, kBackends, BackendName);

TEST(CommandLineTest, ExitStatuses) {
  struct Case {
    std::vector<std::string> args;
    int status;
    const char* out;  // Expected in standard output, or "".
    const char* err;  // Expected in standard error, or "".
  };
  const Case kCases[] = {
      {{"--help"}, 0, "usage: watrix serve [--db URL]", ""},
      {{"serve", "--help"}, 0, "--listen HOST:PORT", ""},
      {{"db", "--help"}, 0, "watrix db load [--db URL] TABLE FILE.csv", ""},
      {{"db", "dump", "--help"}, 0, "watrix db dump [--db URL] TABLE", ""},
      {{}, 2, "", "usage: watrix serve"},
      {{"frobnicate"}, 2, "", "usage: watrix serve"},
      {{"serve", "--listen"}, 2, "", "usage:"},
      {{"serve", "--listen", "nowhere"}, 2, "", "usage:"},
      {{"serve", "--auth", "maybe"}, 2, "", "usage:"},
      {{"serve", "--port", "80"}, 2, "", "usage:"},
      {{"db", "load", "TSRLBRMK"}, 2, "", "usage:"},
      {{"db", "init", "--db", "mysql://localhost/x"}, 2, "", "usage:"},
      {{"db", "dump", "NOSUCH"}, 2, "", "no table NOSUCH"},
      {{"db", "dump", "--db", "sqlite:/nonexistent-folder/w.db", "TSRLBRMK"}, 1, "",
       "no database"},
      {{"db", "init", "--db", "sqlite:/nonexistent-folder/w.db"}, 1, "", "cannot open"},
  };
  for (const Case& c : kCases) {
    std::string line;
    for (const std::string& a : c.args) line += " " + a;
    SCOPED_TRACE("watrix" + line);
    RunResult r = RunProgram(c.args);
    ASSERT_TRUE(WIFEXITED(r.status)) << "wait status " << r.status;
    EXPECT_EQ(c.status, WEXITSTATUS(r.status)) << r.err;
    EXPECT_NE(std::string::npos, r.out.find(c.out)) << r.out;
    EXPECT_NE(std::string::npos, r.err.find(c.err)) << r.err;
  }
}

class DbCommandTest : public ::testing::TestWithParam<Backend> {};

// The db commands on a fresh database: a dump before the schema is there,
// init (twice), load, dump, a refused load.
TEST_P(DbCommandTest, InitLoadDump) {
  char dir_template[] = "/tmp/watrix_cli_test_XXXXXX";
  ASSERT_NE(nullptr, mkdtemp(dir_template));
  const std::string dir = dir_template;
  std::string why_not;
  const std::string db = NewDatabaseUrl(GetParam(), dir, &why_not);
  ASSERT_NE("", db) << why_not;
  // An SQLite file is not there yet; a PostgreSQL database is, without tables.
  const std::string no_schema =
      GetParam() == Backend::kSqlite ? "there is no database" : "the database has no schema";
  const std::string csv =
      "TSRLBRMK_IS_NUMBER,TSRLBRMK_ORG_ID,SHORT_NAME,DESCRIPTION_TEXT,D_USERID_CODE,"
      "D_LAST_UPDATE_TS\n"
      "1,ZZZZZZZZ,J,Estimated value,JSMITH,2024-03-05 14:07:09\n"
      "2,ZZZZZZZZ,<,\"Less than, the limit\",JSMITH,2024-03-05 14:07:09\n";
  const std::string bad =
      "TSRLBRMK_IS_NUMBER,TSRLBRMK_ORG_ID,SHORT_NAME,DESCRIPTION_TEXT,D_USERID_CODE,"
      "D_LAST_UPDATE_TS\n"
      "3,ZZZZZZZZ,K,Fine,JSMITH,2024-03-05 14:07:09\n"
      "4,ZZZZZZZZ,J,Duplicate short name,JSMITH,2024-03-05 14:07:09\n";
  {
    std::ofstream(dir + "/remarks.csv") << csv;
    std::ofstream(dir + "/bad.csv") << bad;
  }
  struct Step {
    std::vector<std::string> args;
    int status;
    std::string out;  // expected in standard output ("" for anything)
    std::string err;  // expected in standard error ("" for anything)
  };
  const Step kSteps[] = {
      {{"db", "dump", "--db", db, "TSRLBRMK"}, 1, "", no_schema},
      {{"db", "init", "--db", db}, 0, "schema ready: 33 tables", ""},
      {{"db", "init", "--db", db}, 0, "schema ready: 33 tables", ""},
      {{"db", "load", "--db", db, "TSRLBRMK", dir + "/remarks.csv"}, 0,
       "loaded 2 rows into TSRLBRMK", ""},
      {{"db", "load", "--db", db, "TSRLBRMK", dir + "/bad.csv"}, 1, "", "line 3: "},
      {{"db", "load", "--db", db, "TSRLBRMK", dir + "/missing.csv"}, 1, "", "cannot read"},
  };
  for (const Step& step : kSteps) {
    std::string line;
    for (const std::string& a : step.args) line += " " + a;
    SCOPED_TRACE("watrix" + line);
    RunResult r = RunProgram(step.args);
    ASSERT_TRUE(WIFEXITED(r.status)) << "wait status " << r.status;
    EXPECT_EQ(step.status, WEXITSTATUS(r.status)) << r.err;
    EXPECT_NE(std::string::npos, r.out.find(step.out)) << r.out;
    EXPECT_NE(std::string::npos, r.err.find(step.err)) << r.err;
  }
  // What was loaded comes back as it went in; the refused file left nothing.
  RunResult dump = RunProgram({"db", "dump", "--db", db, "TSRLBRMK"});
  ASSERT_TRUE(WIFEXITED(dump.status));
  EXPECT_EQ(0, WEXITSTATUS(dump.status)) << dump.err;
  EXPECT_EQ(csv, dump.out);
  EXPECT_EQ("", dump.err);
  std::filesystem::remove_all(dir);
}

INSTANTIATE_TEST_SUITE_P(Backends, DbCommandTest, kBackends, BackendName);

}  // namespace
}  // namespace watrix
