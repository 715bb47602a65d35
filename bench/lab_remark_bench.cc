// What the lab remark list's Open costs on the server, beside the bare read
// of the rows it shows.
//
// TSRLBRMK holds 100,000 remarks (WATRIX_BENCH_ROWS changes it); 2000 of
// them have short names from "R00001" to "R02000", inside the list's range
// "1".."zzzzzz", the others begin with "0" and fall before it (a million
// rows at most). On SQLite and on PostgreSQL:
//   BM_Rt50Open   "Lab &Remark" clicked on the menu of a host session
//                 (Session over liblkbase.so, SociStore): the flow, the
//                 Open event with LIST_LAB_REMARKS, the window written and
//                 the SCREEN built as the JSON text the HTTP interface
//                 sends (Session::EventText), in one transaction. Only that
//                 event is timed; the text is parsed and checked after it,
//                 and "C&lose" brings the menu back between iterations.
//   BM_FrameRead  the list's statement (the range, SHORT_NAME order, LIMIT
//                 2001) through the statement frame (ReadList) into a group
//                 of 2000 rows, outside any window.
//   BM_CApiRead   the same statement through sqlite3_prepare/step or
//                 libpq's PQexecParams, into the same group.
// The frame and the C API read are compared row by row before timing;
// every Open must show 2000 rows from R00001 to R02000, or the benchmark
// stops with an error. The figures stand side by side at the end.
//
// PostgreSQL runs in a private cluster (tests/pg), or at WATRIX_BENCH_PG.
#include <limits.h>
#include <sqlite3.h>
#include <stdlib.h>
#include <unistd.h>

#include <libpq-fe.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include "frame/host_port.h"
#include "frame/run_context.h"
#include "frame/unit.h"
#include "host/modules.h"
#include "host/session.h"
#include "services/text.h"
#include "store/actions.h"
#include "store/database.h"
#include "store/schema.h"
#include "store/store_port.h"
#include "bench/bench_databases.h"
#include "bench/medians.h"
#include "bench/program_dir.h"
#include "tests/pg/pg_cluster.h"

namespace watrix {
namespace {

using lk::store::Dialect;
using nlohmann::json;

constexpr int kShown = 2000;
int g_rows = 100000;

constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kList[] = "RT50_LAB_REMARK_MAINT_LIST";

// The group of rows read, as the list's action block holds it.
struct Group {
  int count;
  double is[kShown + 1];
  char org[kShown + 1][9];
  char name[kShown + 1][7];
  char desc[kShown + 1][61];
};

// ---- Through the statement frame ----

struct Row {
  double TSRLBRMK_IS_NUMBER;
  char TSRLBRMK_ORG_ID[9];
  char SHORT_NAME[7];
  char DESCRIPTION_TEXT[61];
};
struct Range {
  char RANGE_START[7];
  char RANGE_END[7];
};
using lk::store::HostChar;
constexpr lk::store::HostColumn kColumns[] = {
    lk::store::HostNumber("TSRLBRMK_IS_NUMBER", LK_PLACE(Row, TSRLBRMK_IS_NUMBER)),
    HostChar("TSRLBRMK_ORG_ID", 8, LK_PLACE(Row, TSRLBRMK_ORG_ID)),
    HostChar("SHORT_NAME", 6, LK_PLACE(Row, SHORT_NAME)),
    lk::store::HostVarchar("DESCRIPTION_TEXT", 60, LK_PLACE(Row, DESCRIPTION_TEXT)),
};
constexpr lk::store::HostColumn kRange[] = {
    HostChar("RANGE_START", 6, LK_PLACE(Range, RANGE_START)),
    HostChar("RANGE_END", 6, LK_PLACE(Range, RANGE_END)),
};
#define LIST_SELECT                                                                          \
  "SELECT TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, DESCRIPTION_TEXT FROM TSRLBRMK " \
  "WHERE SHORT_NAME >= %s AND SHORT_NAME <= %s ORDER BY SHORT_NAME LIMIT 2001"
constexpr lk::store::StatementDef kList2000 = {
    "0000000001", 1,
    "SELECT TSRLBRMK_IS_NUMBER, TSRLBRMK_ORG_ID, SHORT_NAME, DESCRIPTION_TEXT FROM TSRLBRMK "
    "WHERE SHORT_NAME >= :RANGE_START AND SHORT_NAME <= :RANGE_END ORDER BY SHORT_NAME "
    "LIMIT 2001",
    kRange, kColumns};

// One backend: the session, the frame's connection and the C API's own.
struct Backend {
  Dialect dialect;
  std::string url;
  std::unique_ptr<Session> session;
  std::unique_ptr<lk::store::Database> db;
  lk::SessionPort port{};
  lk::RunContext rc{};
  char area[lk::kDatabaseAreaSize] = {};
  sqlite3* lite = nullptr;
  PGconn* pg = nullptr;
};
Backend g_backends[2];

const lk::UnitId kListUnit = {"0000088101", "READ_BENCH_LAB_REMARK_LIST"};

void FrameRead(Backend& be, Group* group) {
  static lk::UnitStorage unit;
  static lk::store::Cursor cursor;
  static lk::store::EntityState state;
  static Range range;
  static Row row;
  be.rc.run_mode = ' ';
  lk::store::RunActionBlock(&unit, kListUnit, &be.port, nullptr, &be.rc, {&cursor},
                            [&](lk::store::Block& block) {
    lk::store::ResetEntity(&state);
    lk::TextMove(range.RANGE_START, "1", sizeof range.RANGE_START);
    lk::TextMove(range.RANGE_END, "zzzzzz", sizeof range.RANGE_END);
    group->count = 0;
    lk::store::ReadList(block, &cursor, kList2000, &state, &range, &row, [&] {
      if (group->count >= kShown) return false;
      const int r = ++group->count;
      group->is[r] = row.TSRLBRMK_IS_NUMBER;
      lk::TextMove(group->org[r], row.TSRLBRMK_ORG_ID, 9);
      lk::TextMove(group->name[r], row.SHORT_NAME, 7);
      lk::BoundedCopy(group->desc[r], row.DESCRIPTION_TEXT, 61);
      return true;
    });
  });
}

// ---- Through the C APIs ----

// Stores one row of a C API answer; false once the group is full.
bool Take(Group* group, double is, const char* org, const char* name, const char* desc) {
  if (group->count >= kShown) return false;
  const int r = ++group->count;
  group->is[r] = is;
  bench::Fixed(group->org[r], org, 9);
  bench::Fixed(group->name[r], name, 7);
  std::snprintf(group->desc[r], 61, "%s", desc);
  return true;
}

void SqliteRead(Backend& be, Group* group) {
  static std::string text;
  if (text.empty()) {
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, LIST_SELECT, "?1", "?2");
    text = buffer;
  }
  sqlite3_stmt* st = nullptr;
  group->count = 0;
  if (sqlite3_prepare_v2(be.lite, text.c_str(), -1, &st, nullptr) != SQLITE_OK) return;
  sqlite3_bind_text(st, 1, "1", 1, SQLITE_STATIC);
  sqlite3_bind_text(st, 2, "zzzzzz", 6, SQLITE_STATIC);
  while (sqlite3_step(st) == SQLITE_ROW) {
    if (!Take(group, sqlite3_column_double(st, 0),
              reinterpret_cast<const char*>(sqlite3_column_text(st, 1)),
              reinterpret_cast<const char*>(sqlite3_column_text(st, 2)),
              reinterpret_cast<const char*>(sqlite3_column_text(st, 3))))
      break;
  }
  sqlite3_finalize(st);
}

void PgRead(Backend& be, Group* group) {
  static std::string text;
  if (text.empty()) {
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, LIST_SELECT, "$1", "$2");
    text = buffer;
  }
  const char* values[2] = {"1", "zzzzzz"};
  PGresult* res = PQexecParams(be.pg, text.c_str(), 2, nullptr, values, nullptr, nullptr, 0);
  group->count = 0;
  if (PQresultStatus(res) == PGRES_TUPLES_OK) {
    const int n = PQntuples(res);
    for (int t = 0; t < n; ++t) {
      if (!Take(group, std::atof(PQgetvalue(res, t, 0)), PQgetvalue(res, t, 1),
                PQgetvalue(res, t, 2), PQgetvalue(res, t, 3)))
        break;
    }
  }
  PQclear(res);
}

void CApiRead(Backend& be, Group* group) {
  if (be.dialect == Dialect::kSqlite) {
    SqliteRead(be, group);
  } else {
    PgRead(be, group);
  }
}

// ---- Building the table ----

bool Fail(const std::string& why) { return bench::Fail("lab_remark_bench", why); }

// Row i's short name: the first 2000 in the list's range, the rest before it.
std::string Name(int i) {
  char name[16];
  if (i < kShown) {
    std::snprintf(name, sizeof name, "R%05d", i + 1);
  } else {
    std::snprintf(name, sizeof name, "0%05x", i);
  }
  return name;
}

bool BuildSqlite(Backend& be) {
  if (sqlite3_open(be.url.substr(7).c_str(), &be.lite) != SQLITE_OK) return Fail("sqlite3_open");
  sqlite3_exec(be.lite, "BEGIN", nullptr, nullptr, nullptr);
  sqlite3_stmt* st = nullptr;
  if (sqlite3_prepare_v2(be.lite,
                         "INSERT INTO TSRLBRMK VALUES (?1, 'ZZZZZZZZ', ?2, ?3, 'LOADER', "
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
  char* error = nullptr;
  if (sqlite3_exec(be.lite, "COMMIT", nullptr, nullptr, &error) != SQLITE_OK)
    return Fail(error != nullptr ? error : "COMMIT");
  sqlite3_exec(be.lite, "ANALYZE", nullptr, nullptr, nullptr);
  return true;
}

bool BuildPostgres(Backend& be) {
  be.pg = PQconnectdb(be.url.c_str());
  if (PQstatus(be.pg) != CONNECTION_OK) return Fail(PQerrorMessage(be.pg));
  const std::string insert =
      "INSERT INTO TSRLBRMK SELECT g + 1, 'ZZZZZZZZ', CASE WHEN g < " + std::to_string(kShown) +
      " THEN 'R' || lpad((g + 1)::text, 5, '0') ELSE '0' || lpad(to_hex(g), 5, '0') END, "
      "'Remark ' || g, 'LOADER', '2024-01-01 00:00:00' FROM generate_series(0, " +
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

bool SameGroup(const Group& a, const Group& b, std::string* why) {
  if (a.count != b.count) {
    *why = "counts " + std::to_string(a.count) + " and " + std::to_string(b.count);
    return false;
  }
  for (int r = 1; r <= a.count; ++r) {
    if (a.is[r] != b.is[r] || std::strcmp(a.org[r], b.org[r]) != 0 ||
        std::strcmp(a.name[r], b.name[r]) != 0 || std::strcmp(a.desc[r], b.desc[r]) != 0) {
      *why = "row " + std::to_string(r) + ": " + a.name[r] + " / " + b.name[r];
      return false;
    }
  }
  return true;
}

// Checks a SCREEN after the Open: the list, with R00001 to R02000.
bool ListShown(const json& screen, std::string* why) {
  if (!screen["failure"].is_null()) {
    *why = "failure " + screen["failure"].dump();
    return false;
  }
  const json& windows = screen["windows"];
  if (windows.size() != 1 || windows[0]["name"] != kList) {
    *why = "windows " + windows.dump().substr(0, 200);
    return false;
  }
  for (const json& c : windows[0]["controls"]) {
    if (c["type"] != "list") continue;
    const json& rows = c["rows"];
    if (rows.size() != kShown || rows.front()["cells"][0] != "R00001" ||
        rows.back()["cells"][0] != "R02000") {
      *why = "a list of " + std::to_string(rows.size()) + " rows";
      return false;
    }
    return true;
  }
  *why = "no list";
  return false;
}

bool Prepare(Backend& be, Modules* modules) {
  std::string error;
  be.db = lk::store::Database::Open(be.url, &error);
  if (be.db == nullptr) return Fail(error);
  lk::store::CreateSchema(*be.db->connection());
  be.port = lk::SessionPort{nullptr, nullptr, be.db->connection()};
  lk::ResetRunContext(&be.rc, be.area);
  const auto start = std::chrono::steady_clock::now();
  if (!(be.dialect == Dialect::kSqlite ? BuildSqlite(be) : BuildPostgres(be))) return false;
  std::printf("%s: %d remarks built in %.1f s\n",
              be.dialect == Dialect::kSqlite ? "SQLite" : "PostgreSQL", g_rows,
              std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());

  static Group framed, direct;
  FrameRead(be, &framed);
  if (lk::FailureTravels(be.rc)) return Fail(std::string("frame: ") + be.area);
  CApiRead(be, &direct);
  std::string why;
  if (framed.count != kShown)
    return Fail("the frame read " + std::to_string(framed.count) + " rows");
  if (!SameGroup(framed, direct, &why)) return Fail("frame and C API differ: " + why);

  std::unique_ptr<lk::store::Database> session_db = lk::store::Database::Open(be.url, &error);
  if (session_db == nullptr) return Fail(error);
  be.session = std::make_unique<Session>(
      modules, std::make_unique<lk::store::SociStore>(std::move(session_db)), SystemClock());
  const std::string refused = be.session->Start("BENCH", "ZZZZZZZZ", StartRequest{});
  if (!refused.empty()) return Fail(refused);
  return true;
}

// ---- The benchmarks ----

// A click as the HTTP interface runs it: the answer's status and JSON text.
TextReply ClickText(Session& session, const char* window, const char* control) {
  return session.EventText({{"window", window}, {"control", control}, {"event", "Click"}});
}

json Click(Session& session, const char* window, const char* control, int* status) {
  const TextReply r = ClickText(session, window, control);
  *status = r.status;
  return json::parse(r.body, nullptr, false);
}

void BM_Rt50Open(benchmark::State& state) {
  Backend& be = g_backends[state.range(0)];
  if (be.session == nullptr) {
    state.SkipWithError("backend not prepared");
    return;
  }
  for (auto _ : state) {
    int status = 0;
    const auto start = std::chrono::steady_clock::now();
    const TextReply reply = ClickText(*be.session, kMenu, "Lab &Remark");
    const auto end = std::chrono::steady_clock::now();
    state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    std::string why;
    const json screen = json::parse(reply.body, nullptr, false);
    if (reply.status != 200 || !ListShown(screen, &why)) {
      state.SkipWithError(("wrong screen: " + why).c_str());
      return;
    }
    const json back = Click(*be.session, kList, "C&lose", &status);
    if (status != 200 || back["windows"].size() != 1 || back["windows"][0]["name"] != kMenu) {
      state.SkipWithError("Close did not go back to the menu");
      return;
    }
  }
  state.SetLabel(be.dialect == Dialect::kSqlite ? "sqlite" : "postgresql");
}
BENCHMARK(BM_Rt50Open)
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);

template <bool kFrame>
void BM_Read(benchmark::State& state) {
  Backend& be = g_backends[state.range(0)];
  if (be.db == nullptr) {
    state.SkipWithError("backend not prepared");
    return;
  }
  static Group group;
  for (auto _ : state) {
    if (kFrame) {
      FrameRead(be, &group);
    } else {
      CApiRead(be, &group);
    }
    if (group.count != kShown || std::strcmp(group.name[1], "R00001") != 0 ||
        std::strcmp(group.name[kShown], "R02000") != 0) {
      state.SkipWithError("wrong rows");
      return;
    }
  }
  state.SetLabel(be.dialect == Dialect::kSqlite ? "sqlite" : "postgresql");
}
BENCHMARK_TEMPLATE(BM_Read, true)
    ->Name("BM_FrameRead")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);
BENCHMARK_TEMPLATE(BM_Read, false)
    ->Name("BM_CApiRead")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);

// The figures side by side: the median of each benchmark's repetitions.
class SummaryReporter : public bench::MedianReporter {
 public:
  void Finalize() override {
    MedianReporter::Finalize();
    std::printf("\nRT50 Open with %d of %d remarks shown, wall clock per event or read"
                " (medians):\n", kShown, g_rows);
    const char* names[2] = {"SQLite    ", "PostgreSQL"};
    for (int backend : {0, 1}) {
      const std::string arg = "/" + std::to_string(backend);
      const double open = Get("BM_Rt50Open" + arg);
      const double frame = Get("BM_FrameRead" + arg);
      const double capi = Get("BM_CApiRead" + arg);
      if (open <= 0 || frame <= 0 || capi <= 0) continue;
      std::printf("  %s  Open event %7.2f ms   frame read %7.2f ms   C API read %7.2f ms"
                  "   Open / C API %.1fx\n",
                  names[backend], open, frame, capi, open / capi);
      goals_.push_back(bench::GoalLine(std::string("list-event-rt50-open-") +
                                           (backend == 0 ? "sqlite" : "postgresql"),
                                       open / capi, 1.3));
    }
    for (const std::string& g : goals_) std::printf("%s\n", g.c_str());
  }

 private:
  std::vector<std::string> goals_;
};

int Main(int argc, char** argv) {
  if (!bench::InitializeInterleaved(argc, argv, 7)) return 1;
  // Six hexadecimal digits name at most a million rows.
  if (const char* rows = std::getenv("WATRIX_BENCH_ROWS"))
    g_rows = std::clamp(std::atoi(rows), kShown, 1000000);

  bench::ScratchDir dir("lab_remark_bench");
  if (!dir.ok()) return 1;
  g_backends[0].dialect = Dialect::kSqlite;
  g_backends[1].dialect = Dialect::kPostgres;
  if (!bench::DatabaseUrls("lab_remark_bench", dir.path(), &g_backends[0].url,
                           &g_backends[1].url))
    return 1;
  Modules modules(bench::ProgramDir(), "LKBASE");
  for (Backend& be : g_backends) {
    if (!Prepare(be, &modules)) return 1;
  }

  SummaryReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();

  for (Backend& be : g_backends) {
    be.session.reset();
    be.db.reset();
    if (be.lite != nullptr) sqlite3_close(be.lite);
    if (be.pg != nullptr) PQfinish(be.pg);
  }
  return 0;
}

}  // namespace
}  // namespace watrix

int main(int argc, char** argv) { return watrix::Main(argc, argv); }
