// What the statement frame costs, beside the database's own C API.
//
// 1. A page of 2000 rows read by keyset from a table of a million
//    TSRLBRMK rows (built once per run in one bulk transaction; the paging
//    key SHORT_NAME has its unique index), forward (SHORT_NAME > key) and
//    backward (SHORT_NAME < key, descending), on SQLite and on PostgreSQL:
//      BM_FramePage    a list block through the statement frame (ReadList
//                      into a group of 2000), as the list windows read;
//      BM_CApiPage     the same statement through sqlite3_prepare/step or
//                      libpq's PQexecParams, copied into the same group.
//    Before timing, each start key's page is read both ways and compared
//    row by row; inside the loops every page must hold 2000 rows that begin
//    with the expected key, or the benchmark stops with an error.
// 2. IS numbers per second on PostgreSQL with 1, 2, 4 and 8 clients, one
//    transaction per number, each client a process with its own connection
//    (the units keep static storage and are not reentrant, so clients are
//    processes, as real clients are): DETERMINE_NEXT_IS_NUMBER through the
//    frame, beside BEGIN / SELECT ... FOR UPDATE / UPDATE / COMMIT through
//    libpq. The counter must end at its start plus the numbers counted.
//
// PostgreSQL runs in a private cluster (tests/pg), or at WATRIX_BENCH_PG
// when that names a database URL. WATRIX_BENCH_ROWS changes the table's
// size (default 1000000).
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <libpq-fe.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "frame/host_port.h"
#include "frame/run_context.h"
#include "frame/unit.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/database.h"
#include "store/is_number.h"
#include "store/schema.h"
#include "store/soci.h"
#include "bench/bench_databases.h"
#include "tests/pg/pg_cluster.h"

namespace watrix {
namespace {

using lk::store::Dialect;

constexpr int kPage = 2000;
constexpr int kStartKeys = 16;
int g_rows = 1000000;

// ---- The rows ----

// The row's SHORT_NAME: its number in six letters, so that name order is
// number order.
std::string Name(int i) {
  std::string s(6, 'A');
  for (int k = 5; k >= 0; --k) {
    s[k] = static_cast<char>('A' + i % 26);
    i /= 26;
  }
  return s;
}

// A group of 2000 rows, as a list window's export holds it (rows from 1).
struct Page {
  int count;
  double is[kPage + 1];
  char org[kPage + 1][9];
  char name[kPage + 1][7];
  char desc[kPage + 1][61];
  char user[kPage + 1][9];
  char ts[kPage + 1][21];
};

// ---- Through the statement frame ----

struct Row {
  double TSRLBRMK_IS_NUMBER;
  char TSRLBRMK_ORG_ID[9];
  char SHORT_NAME[7];
  char DESCRIPTION_TEXT[61];
  char D_USERID_CODE[9];
  char D_LAST_UPDATE_TIMESTAMP[21];
};
using lk::store::HostChar;
constexpr lk::store::HostColumn kColumns[] = {
    lk::store::HostNumber("TSRLBRMK_IS_NUMBER", LK_PLACE(Row, TSRLBRMK_IS_NUMBER)),
    HostChar("TSRLBRMK_ORG_ID", 8, LK_PLACE(Row, TSRLBRMK_ORG_ID)),
    HostChar("SHORT_NAME", 6, LK_PLACE(Row, SHORT_NAME)),
    lk::store::HostVarchar("DESCRIPTION_TEXT", 60, LK_PLACE(Row, DESCRIPTION_TEXT)),
    HostChar("D_USERID_CODE", 8, LK_PLACE(Row, D_USERID_CODE)),
    lk::store::HostDate("D_LAST_UPDATE_TS", LK_PLACE(Row, D_LAST_UPDATE_TIMESTAMP)),
};
constexpr lk::store::HostColumn kKey[] = {HostChar("SHORT_NAME", 6, LK_PLACE(Row, SHORT_NAME))};

#define PAGE_SELECT                                                                         \
  "SELECT TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, DESCRIPTION_TEXT, D_USERID_CODE, " \
  "D_LAST_UPDATE_TS FROM TSRLBRMK "
#define PAGE_FORWARD "WHERE SHORT_NAME > %s ORDER BY SHORT_NAME LIMIT 2000"
#define PAGE_BACKWARD "WHERE SHORT_NAME < %s ORDER BY SHORT_NAME DESC LIMIT 2000"

constexpr lk::store::StatementDef kForward = {
    "0000000001", 1,
    PAGE_SELECT "WHERE SHORT_NAME > :SHORT_NAME ORDER BY SHORT_NAME LIMIT 2000", kKey, kColumns};
constexpr lk::store::StatementDef kBackward = {
    "0000000002", 2,
    PAGE_SELECT "WHERE SHORT_NAME < :SHORT_NAME ORDER BY SHORT_NAME DESC LIMIT 2000", kKey,
    kColumns};

// One backend: the frame's connection and the C API's own.
struct Backend {
  Dialect dialect;
  std::string url;
  std::unique_ptr<lk::store::Database> db;
  lk::SessionPort port{};
  lk::RunContext rc{};
  char area[lk::kDatabaseAreaSize] = {};
  sqlite3* lite = nullptr;
  PGconn* pg = nullptr;
  std::vector<std::string> keys;  // start keys of the pages
};
Backend g_backends[2];

const lk::UnitId kListUnit = {"0000088001", "READ_BENCH_REMARK_PAGE"};

void FramePage(Backend& be, bool forward, const std::string& key, Page* page) {
  static lk::UnitStorage unit;
  static lk::store::Cursor cursor;
  static lk::store::EntityState state;
  static Row in, row;
  be.rc.run_mode = ' ';
  lk::store::RunActionBlock(&unit, kListUnit, &be.port, nullptr, &be.rc, {&cursor},
                            [&](lk::store::Block& block) {
    lk::store::ResetEntity(&state);
    lk::TextMove(in.SHORT_NAME, key.c_str(), sizeof in.SHORT_NAME);
    page->count = 0;
    lk::store::ReadList(block, &cursor, forward ? kForward : kBackward, &state, &in, &row, [&] {
      const int r = ++page->count;
      page->is[r] = row.TSRLBRMK_IS_NUMBER;
      lk::TextMove(page->org[r], row.TSRLBRMK_ORG_ID, 9);
      lk::TextMove(page->name[r], row.SHORT_NAME, 7);
      lk::BoundedCopy(page->desc[r], row.DESCRIPTION_TEXT, 61);
      lk::TextMove(page->user[r], row.D_USERID_CODE, 9);
      std::memcpy(page->ts[r], row.D_LAST_UPDATE_TIMESTAMP, 21);
      return page->count < kPage;
    });
  });
}

// ---- Through the C APIs ----

// "YYYY-MM-DD HH:MM:SS" -> 20 digits.
void Digits(const char* text, char* out) {
  static const int kAt[14] = {0, 1, 2, 3, 5, 6, 8, 9, 11, 12, 14, 15, 17, 18};
  for (int i = 0; i < 14; ++i) out[i] = text[kAt[i]];
  std::memset(out + 14, '0', 6);
  out[20] = '\0';
}

void SqlitePage(Backend& be, bool forward, const std::string& key, Page* page) {
  static std::string text[2];
  if (text[0].empty()) {
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, PAGE_SELECT PAGE_BACKWARD, "?1");
    text[0] = buffer;
    std::snprintf(buffer, sizeof buffer, PAGE_SELECT PAGE_FORWARD, "?1");
    text[1] = buffer;
  }
  sqlite3_stmt* st = nullptr;
  page->count = 0;
  if (sqlite3_prepare_v2(be.lite, text[forward].c_str(), -1, &st, nullptr) != SQLITE_OK) return;
  sqlite3_bind_text(st, 1, key.c_str(), static_cast<int>(key.size()), SQLITE_STATIC);
  while (sqlite3_step(st) == SQLITE_ROW) {
    const int r = ++page->count;
    page->is[r] = sqlite3_column_double(st, 0);
    bench::Fixed(page->org[r], reinterpret_cast<const char*>(sqlite3_column_text(st, 1)), 9);
    bench::Fixed(page->name[r], reinterpret_cast<const char*>(sqlite3_column_text(st, 2)), 7);
    std::snprintf(page->desc[r], 61, "%s", reinterpret_cast<const char*>(sqlite3_column_text(st, 3)));
    bench::Fixed(page->user[r], reinterpret_cast<const char*>(sqlite3_column_text(st, 4)), 9);
    Digits(reinterpret_cast<const char*>(sqlite3_column_text(st, 5)), page->ts[r]);
  }
  sqlite3_finalize(st);
}

void PgPage(Backend& be, bool forward, const std::string& key, Page* page) {
  static std::string text[2];
  if (text[0].empty()) {
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, PAGE_SELECT PAGE_BACKWARD, "$1");
    text[0] = buffer;
    std::snprintf(buffer, sizeof buffer, PAGE_SELECT PAGE_FORWARD, "$1");
    text[1] = buffer;
  }
  const char* values[1] = {key.c_str()};
  PGresult* res = PQexecParams(be.pg, text[forward].c_str(), 1, nullptr, values, nullptr,
                               nullptr, 0);
  page->count = 0;
  if (PQresultStatus(res) == PGRES_TUPLES_OK) {
    const int n = PQntuples(res);
    for (int t = 0; t < n; ++t) {
      const int r = ++page->count;
      page->is[r] = std::atof(PQgetvalue(res, t, 0));
      bench::Fixed(page->org[r], PQgetvalue(res, t, 1), 9);
      bench::Fixed(page->name[r], PQgetvalue(res, t, 2), 7);
      std::snprintf(page->desc[r], 61, "%s", PQgetvalue(res, t, 3));
      bench::Fixed(page->user[r], PQgetvalue(res, t, 4), 9);
      Digits(PQgetvalue(res, t, 5), page->ts[r]);
    }
  }
  PQclear(res);
}

void CApiPage(Backend& be, bool forward, const std::string& key, Page* page) {
  if (be.dialect == Dialect::kSqlite) {
    SqlitePage(be, forward, key, page);
  } else {
    PgPage(be, forward, key, page);
  }
}

// ---- Building the table ----

bool Fail(const std::string& why) { return bench::Fail("store_bench", why); }

bool BuildSqlite(Backend& be) {
  if (sqlite3_open(be.url.substr(7).c_str(), &be.lite) != SQLITE_OK) return Fail("sqlite3_open");
  char* error = nullptr;
  sqlite3_exec(be.lite, "BEGIN", nullptr, nullptr, nullptr);
  sqlite3_stmt* st = nullptr;
  if (sqlite3_prepare_v2(be.lite,
                         "INSERT INTO TSRLBRMK VALUES (?1, 'ORG1', ?2, ?3, 'LOADER', "
                         "'2024-01-01 00:00:00')",
                         -1, &st, nullptr) != SQLITE_OK)
    return Fail(sqlite3_errmsg(be.lite));
  for (int i = 0; i < g_rows; ++i) {
    const std::string name = Name(i);
    const std::string desc = "Remark " + std::to_string(i);
    sqlite3_bind_int64(st, 1, i + 1);
    sqlite3_bind_text(st, 2, name.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(st, 3, desc.c_str(), -1, SQLITE_TRANSIENT);
    if (sqlite3_step(st) != SQLITE_DONE) return Fail(sqlite3_errmsg(be.lite));
    sqlite3_reset(st);
  }
  sqlite3_finalize(st);
  if (sqlite3_exec(be.lite, "COMMIT", nullptr, nullptr, &error) != SQLITE_OK)
    return Fail(error != nullptr ? error : "COMMIT");
  sqlite3_exec(be.lite, "ANALYZE", nullptr, nullptr, nullptr);
  return true;
}

bool BuildPostgres(Backend& be) {
  be.pg = PQconnectdb(be.url.c_str());
  if (PQstatus(be.pg) != CONNECTION_OK) return Fail(PQerrorMessage(be.pg));
  const std::string insert =
      "INSERT INTO TSRLBRMK SELECT g + 1, 'ORG1', chr(65 + (g / 11881376) % 26) || "
      "chr(65 + (g / 456976) % 26) || chr(65 + (g / 17576) % 26) || chr(65 + (g / 676) % 26) || "
      "chr(65 + (g / 26) % 26) || chr(65 + g % 26), 'Remark ' || g, 'LOADER', "
      "'2024-01-01 00:00:00' FROM generate_series(0, " +
      std::to_string(g_rows - 1) + ") g";
  for (const std::string& sql : {std::string("BEGIN"), insert, std::string("COMMIT"),
                                 std::string("ANALYZE TSRLBRMK")}) {
    PGresult* res = PQexec(be.pg, sql.c_str());
    const ExecStatusType status = PQresultStatus(res);
    PQclear(res);
    if (status != PGRES_COMMAND_OK) return Fail(sql.substr(0, 40) + ": " + PQerrorMessage(be.pg));
  }
  return true;
}

bool SamePage(const Page& a, const Page& b, std::string* why) {
  if (a.count != b.count) {
    *why = "counts " + std::to_string(a.count) + " and " + std::to_string(b.count);
    return false;
  }
  for (int r = 1; r <= a.count; ++r) {
    if (a.is[r] != b.is[r] || std::strcmp(a.org[r], b.org[r]) != 0 ||
        std::strcmp(a.name[r], b.name[r]) != 0 || std::strcmp(a.desc[r], b.desc[r]) != 0 ||
        std::strcmp(a.user[r], b.user[r]) != 0 || std::strcmp(a.ts[r], b.ts[r]) != 0) {
      *why = "row " + std::to_string(r) + ": " + a.name[r] + " / " + b.name[r];
      return false;
    }
  }
  return true;
}

bool Prepare(Backend& be) {
  std::string error;
  be.db = lk::store::Database::Open(be.url, &error);
  if (be.db == nullptr) return Fail(error);
  lk::store::CreateSchema(*be.db->connection());
  be.port = lk::SessionPort{nullptr, nullptr, be.db->connection()};
  lk::ResetRunContext(&be.rc, be.area);
  const auto start = std::chrono::steady_clock::now();
  if (!(be.dialect == Dialect::kSqlite ? BuildSqlite(be) : BuildPostgres(be))) return false;
  std::printf("%s: %d rows built in %.1f s\n", be.dialect == Dialect::kSqlite ? "SQLite" : "PostgreSQL",
              g_rows,
              std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  // Start keys spread over the table, each with a full page on both sides.
  for (int k = 0; k < kStartKeys; ++k)
    be.keys.push_back(Name(kPage + 1 + (g_rows - 2 * kPage - 2) / (kStartKeys - 1) * k));
  static Page framed, direct;
  for (const std::string& key : be.keys) {
    for (bool forward : {true, false}) {
      FramePage(be, forward, key, &framed);
      if (lk::FailureTravels(be.rc)) return Fail(std::string("frame: ") + be.area);
      CApiPage(be, forward, key, &direct);
      std::string why;
      if (framed.count != kPage) return Fail("a page of " + std::to_string(framed.count) + " rows");
      if (!SamePage(framed, direct, &why)) return Fail("frame and C API differ at " + key + ": " + why);
    }
  }
  return true;
}

// ---- The page benchmarks ----

template <bool kFrame>
void BM_Page(benchmark::State& state) {
  Backend& be = g_backends[state.range(0)];
  const bool forward = state.range(1) == 1;
  if (be.db == nullptr) {
    state.SkipWithError("backend not prepared");
    return;
  }
  static Page page;
  std::size_t k = 0;
  for (auto _ : state) {
    const std::string& key = be.keys[k++ % be.keys.size()];
    if (kFrame) {
      FramePage(be, forward, key, &page);
    } else {
      CApiPage(be, forward, key, &page);
    }
    // The first row follows the key: one past it, or one before it.
    const std::string want = Name(static_cast<int>(page.is[1]) - 1);
    if (page.count != kPage || std::string(page.name[1]) != want ||
        (forward ? std::string(page.name[1]) <= key : std::string(page.name[1]) >= key)) {
      state.SkipWithError("wrong page");
      return;
    }
  }
  state.counters["rows/s"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * kPage, benchmark::Counter::kIsRate);
  state.SetLabel(std::string(be.dialect == Dialect::kSqlite ? "sqlite" : "postgresql") +
                 (forward ? " forward" : " backward"));
}

void PageArgs(benchmark::internal::Benchmark* b) {
  for (int backend : {0, 1})
    for (int forward : {1, 0}) b->Args({backend, forward});
  b->Unit(benchmark::kMillisecond);
}
BENCHMARK_TEMPLATE(BM_Page, true)->Name("BM_FramePage")->Apply(PageArgs);
BENCHMARK_TEMPLATE(BM_Page, false)->Name("BM_CApiPage")->Apply(PageArgs);

// Collects the page times for the summary.
class SummaryReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& r : runs) {
      if (r.error_occurred) continue;
      millis_[r.benchmark_name()] = r.GetAdjustedRealTime();
    }
  }
  void Finalize() override {
    ConsoleReporter::Finalize();
    std::printf("\none page of %d rows, wall clock (frame beside the C API):\n", kPage);
    const char* names[2] = {"SQLite    ", "PostgreSQL"};
    for (int backend : {0, 1}) {
      for (int forward : {1, 0}) {
        const std::string args = "/" + std::to_string(backend) + "/" + std::to_string(forward);
        const double frame = millis_["BM_FramePage" + args];
        const double capi = millis_["BM_CApiPage" + args];
        if (frame <= 0 || capi <= 0) continue;
        std::printf("  %s %-8s  frame %8.2f ms   C API %8.2f ms   %.2fx\n", names[backend],
                    forward ? "forward" : "backward", frame, capi, frame / capi);
      }
    }
  }

 private:
  std::map<std::string, double> millis_;
};

// ---- IS numbers per second ----

constexpr double kSeconds = 2.0;

// One client's loop until `until`: answers how many numbers it took, or -1.
long long FrameClient(const std::string& url, const std::string& org,
                      std::chrono::steady_clock::time_point until) {
  std::string error;
  std::unique_ptr<lk::store::Database> db = lk::store::Database::Open(url, &error);
  if (db == nullptr) return -1;
  lk::SessionPort port{nullptr, nullptr, db->connection()};
  lk::RunContext rc;
  char area[lk::kDatabaseAreaSize];
  lk::ResetRunContext(&rc, area);
  lk::store::EisnSystemVariable system{};
  lk::TextMove(system.USER_ID_CODE, "BENCH", 9);
  lk::TextMove(system.CURRENT_ORG_ID, org.c_str(), 9);
  lk::store::EisnImport import{};
  lk::TextMove(import.TSMEISN_NAME, "TSRLBRMK", 9);
  lk::TextMove(import.TSMEISN_ORG_ID, "", 9);
  long long count = 0;
  double last = 0;
  while (std::chrono::steady_clock::now() < until) {
    if (!db->Begin(&error)) return -1;
    lk::store::EisnExport out{};
    rc.run_mode = ' ';
    lk::store::DETERMINE_NEXT_IS_NUMBER(&port, nullptr, &rc, &system, &import, &out);
    if (lk::FailureTravels(rc) || rc.exit_state != lk::EXIT_NONE || out.IS_NUMBER <= last)
      return -1;
    last = out.IS_NUMBER;
    if (!db->Commit(&error)) return -1;
    ++count;
  }
  return count;
}

bool Exec(PGconn* pg, const char* sql) {
  PGresult* res = PQexec(pg, sql);
  const bool ok = PQresultStatus(res) == PGRES_COMMAND_OK;
  PQclear(res);
  return ok;
}

long long LibpqClient(const std::string& url, const std::string& org,
                      std::chrono::steady_clock::time_point until) {
  PGconn* pg = PQconnectdb(url.c_str());
  if (PQstatus(pg) != CONNECTION_OK) return -1;
  const char* key[2] = {"TSRLBRMK", org.c_str()};
  long long count = 0;
  double last = 0;
  while (std::chrono::steady_clock::now() < until) {
    if (!Exec(pg, "BEGIN")) return -1;
    PGresult* res = PQexecParams(pg,
                                 "SELECT IS_NUMBER FROM TSMEISN WHERE TSMEISN_NAME = $1 AND "
                                 "TSMEISN_ORG_ID = $2 FOR UPDATE",
                                 2, nullptr, key, nullptr, nullptr, 0);
    if (PQresultStatus(res) != PGRES_TUPLES_OK || PQntuples(res) != 1) return -1;
    const double next = std::atof(PQgetvalue(res, 0, 0)) + 1;
    PQclear(res);
    const std::string number = std::to_string(static_cast<long long>(next));
    const char* values[4] = {number.c_str(), "2024-01-01 00:00:00", key[0], key[1]};
    res = PQexecParams(pg,
                       "UPDATE TSMEISN SET IS_NUMBER = $1, D_USERID_CODE = 'BENCH', "
                       "D_LAST_UPDT_TS = $2 WHERE TSMEISN_NAME = $3 AND TSMEISN_ORG_ID = $4",
                       4, nullptr, values, nullptr, nullptr, 0);
    const bool updated = PQresultStatus(res) == PGRES_COMMAND_OK && std::string(PQcmdTuples(res)) == "1";
    PQclear(res);
    if (!updated || next <= last || !Exec(pg, "COMMIT")) return -1;
    last = next;
    ++count;
  }
  PQfinish(pg);
  return count;
}

// Runs `clients` processes for kSeconds; answers numbers per second, or -1.
double NumbersPerSecond(const std::string& url, bool frame, int clients) {
  const std::string org = std::string(frame ? "F" : "L") + std::to_string(clients);
  Backend& pg = g_backends[1];
  {
    const std::string sql = "INSERT INTO TSMEISN VALUES ('TSRLBRMK', '" + org +
                            "', 0, NULL, NULL, NULL, 'BENCH', '2024-01-01 00:00:00')";
    if (!Exec(pg.pg, sql.c_str())) return -1;
  }
  int go[2];
  if (pipe(go) != 0) return -1;
  std::vector<std::pair<pid_t, int>> children;
  for (int k = 0; k < clients; ++k) {
    int out[2];
    if (pipe(out) != 0) return -1;
    const pid_t pid = fork();
    if (pid == 0) {
      close(go[1]);
      close(out[0]);
      char c;
      while (read(go[0], &c, 1) < 0) {
      }
      const auto until = std::chrono::steady_clock::now() +
                         std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                             std::chrono::duration<double>(kSeconds));
      const long long n = frame ? FrameClient(url, org, until) : LibpqClient(url, org, until);
      dprintf(out[1], "%lld\n", n);
      _exit(n < 0 ? 1 : 0);
    }
    close(out[1]);
    children.emplace_back(pid, out[0]);
  }
  close(go[0]);
  close(go[1]);
  long long total = 0;
  bool ok = true;
  for (auto& [pid, fd] : children) {
    char buffer[64] = {};
    const ssize_t n = read(fd, buffer, sizeof buffer - 1);
    close(fd);
    int status = 0;
    waitpid(pid, &status, 0);
    const long long count = n > 0 ? std::atoll(buffer) : -1;
    if (count < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != 0) ok = false;
    total += count;
  }
  // The counter has moved by exactly the numbers counted.
  const std::string query = "SELECT IS_NUMBER FROM TSMEISN WHERE TSMEISN_ORG_ID = '" + org + "'";
  PGresult* res = PQexec(pg.pg, query.c_str());
  const long long counter = PQntuples(res) == 1 ? std::atoll(PQgetvalue(res, 0, 0)) : -1;
  PQclear(res);
  if (!ok || counter != total) {
    std::fprintf(stderr, "store_bench: %d %s clients: counted %lld, counter at %lld\n", clients,
                 frame ? "frame" : "libpq", total, counter);
    return -1;
  }
  return static_cast<double>(total) / kSeconds;
}

void IsNumberSection() {
  Backend& pg = g_backends[1];
  if (pg.pg == nullptr) return;
  std::printf("\nIS numbers per second on PostgreSQL, one transaction per number, %.0f s each:\n",
              kSeconds);
  std::printf("  clients   DETERMINE_NEXT_IS_NUMBER   libpq (BEGIN/SELECT FOR UPDATE/UPDATE/COMMIT)\n");
  for (int clients : {1, 2, 4, 8}) {
    const double frame = NumbersPerSecond(pg.url, true, clients);
    const double libpq = NumbersPerSecond(pg.url, false, clients);
    if (frame < 0 || libpq < 0) {
      std::printf("  %7d   failed (see above)\n", clients);
      continue;
    }
    std::printf("  %7d   %12.0f /s   %12.0f /s   %.2fx\n", clients, frame, libpq, frame / libpq);
  }
}

int Main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  if (const char* rows = std::getenv("WATRIX_BENCH_ROWS")) g_rows = std::max(3 * kPage, std::atoi(rows));

  bench::ScratchDir dir("store_bench");
  if (!dir.ok()) return 1;
  g_backends[0].dialect = Dialect::kSqlite;
  g_backends[1].dialect = Dialect::kPostgres;
  if (!bench::DatabaseUrls("store_bench", dir.path(), &g_backends[0].url, &g_backends[1].url))
    return 1;
  for (Backend& be : g_backends) {
    if (!Prepare(be)) return 1;
  }

  SummaryReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();

  // The children of the IS number section must not share these.
  for (Backend& be : g_backends) be.db.reset();
  IsNumberSection();

  if (g_backends[0].lite != nullptr) sqlite3_close(g_backends[0].lite);
  if (g_backends[1].pg != nullptr) PQfinish(g_backends[1].pg);
  return 0;
}

}  // namespace
}  // namespace watrix

int main(int argc, char** argv) { return watrix::Main(argc, argv); }
