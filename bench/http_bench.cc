// What one event costs over HTTP, beside what HTTP alone costs.
//
// The benchmark runs the host (MakeHost, the module beside this program) and
// its HttpServer in this process on a free loopback port, and drives them
// with httplib::Client over one kept-alive connection:
//
//   BM_EmptyRoundTrip  GET /api/screen without a token: the server answers
//                      401 itself and never asks the host. The floor that
//                      HTTP sets.
//   BM_ScreenRoundTrip GET /api/screen of a session: the host's queue and
//                      the screen's JSON, no unit runs.
//   BM_MenuEvent       Click "Additional Tables >>>" on the menu, then
//                      "C&lose" on RT1A: two events per iteration.
//
// Every answer is checked so that speed never hides a wrong result: its
// status, and its body either the same text as an answer checked in full
// before, or checked in full now (parsed, and the windows it lists, or the
// error it gives). These screens do not change from one iteration to the
// next, so after the first answer each check is one comparison of texts, a
// few hundred nanoseconds, and all three benchmarks send their requests back
// to back alike; a full parse with nlohmann::json between the requests would
// take longer than the empty round trip, and the idle server between them
// would pay wake-ups that the empty round trip does not. A wrong answer
// stops the benchmark with an error. The figures are printed side by side
// at the end, then one line per goal.
#include <limits.h>
#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <httplib.h>
#include <nlohmann/json.hpp>

#include "bench/medians.h"
#include "bench/program_dir.h"
#include "host/host.h"
#include "web/server.h"

namespace watrix {
namespace {

using nlohmann::json;

constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kMenuA[] = "RT1A_REFERENCE_TABLE_MAINT_MENU";

// Each benchmark runs this many times, the three interleaved at random, and
// the summary takes the median of each: the machine is shared, and a burst
// of other work then moves all three alike rather than one.
constexpr int kRepetitions = 5;

int g_port = 0;
std::string g_token;

std::unique_ptr<httplib::Client> NewClient() {
  auto client = std::make_unique<httplib::Client>("127.0.0.1", g_port);
  client->set_keep_alive(true);
  client->set_tcp_nodelay(true);
  return client;
}

// True when `screen` lists exactly `names`, bottom to top.
bool WindowsAre(const json& screen, const std::vector<std::string>& names) {
  if (!screen.is_object() || !screen.contains("windows")) return false;
  const json& windows = screen["windows"];
  if (!windows.is_array() || windows.size() != names.size()) return false;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (windows[i].value("name", "") != names[i]) return false;
  }
  return true;
}

// Checks answers of one kind: a body the same as the last one checked in
// full passes at once; any other is checked in full by `check`.
class KnownAnswer {
 public:
  explicit KnownAnswer(std::function<bool(const json&)> check) : check_(std::move(check)) {}

  bool operator()(const std::string& body) {
    if (!known_.empty() && body == known_) return true;
    if (!check_(json::parse(body, nullptr, false))) return false;
    known_ = body;
    return true;
  }

 private:
  std::function<bool(const json&)> check_;
  std::string known_;
};

bool IsError(const json& body) {
  return body.is_object() && body.size() == 1 && body.contains("error") &&
         body["error"].is_string();
}

void BM_EmptyRoundTrip(benchmark::State& state) {
  auto client = NewClient();
  KnownAnswer refused(IsError);
  for (auto _ : state) {
    auto r = client->Get("/api/screen");
    if (!r || r->status != 401 || !refused(r->body)) {
      state.SkipWithError("GET /api/screen without a token is not 401");
      break;
    }
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_EmptyRoundTrip)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(kRepetitions)
    ->ReportAggregatesOnly(true);

void BM_ScreenRoundTrip(benchmark::State& state) {
  auto client = NewClient();
  const httplib::Headers auth = {{"Authorization", "Bearer " + g_token}};
  KnownAnswer menu([](const json& s) { return WindowsAre(s, {kMenu}); });
  for (auto _ : state) {
    auto r = client->Get("/api/screen", auth);
    if (!r || r->status != 200 || !menu(r->body)) {
      state.SkipWithError("GET /api/screen does not show the menu");
      break;
    }
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ScreenRoundTrip)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(kRepetitions)
    ->ReportAggregatesOnly(true);

void BM_MenuEvent(benchmark::State& state) {
  auto client = NewClient();
  const httplib::Headers auth = {{"Authorization", "Bearer " + g_token}};
  const std::string open =
      json{{"window", kMenu}, {"control", "Additional Tables >>>"},
           {"event", "Click"}}
          .dump();
  const std::string close =
      json{{"window", kMenuA}, {"control", "C&lose"}, {"event", "Click"}}.dump();
  KnownAnswer opened([](const json& s) { return WindowsAre(s, {kMenu, kMenuA}); });
  KnownAnswer closed([](const json& s) { return WindowsAre(s, {kMenu}); });
  for (auto _ : state) {
    auto r = client->Post("/api/events", auth, open, "application/json");
    if (!r || r->status != 200 || !opened(r->body)) {
      state.SkipWithError("Additional Tables >>> did not open RT1A on top");
      break;
    }
    r = client->Post("/api/events", auth, close, "application/json");
    if (!r || r->status != 200 || !closed(r->body)) {
      state.SkipWithError("C&lose on RT1A did not close it");
      break;
    }
  }
  state.SetItemsProcessed(2 * state.iterations());
}
BENCHMARK(BM_MenuEvent)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(kRepetitions)
    ->ReportAggregatesOnly(true);

// The console report, then the figures side by side: medians of the
// interleaved repetitions.
class SummaryReporter : public bench::MedianReporter {
 public:
  void Finalize() override {
    MedianReporter::Finalize();
    auto get = [this](const char* name) { return Get(name) * 1000; };
    const double empty = get("BM_EmptyRoundTrip");
    const double screen = get("BM_ScreenRoundTrip");
    const double event = get("BM_MenuEvent") / 2;
    if (empty <= 0 || screen <= 0 || event <= 0) return;
    std::printf(
        "\nper request, wall clock:\n"
        "  empty HTTP round trip (401 by the server)  %9.1f us  1.00x\n"
        "  GET /api/screen of a session               %9.1f us  %.2fx\n"
        "  menu event (POST /api/events)              %9.1f us  %.2fx\n",
        empty, screen, screen / empty, event, event / empty);
    std::printf("%s\n", bench::GoalLine("http-menu-event", event / empty, 2).c_str());
    std::printf("%s\n", bench::GoalLine("http-get-screen", screen / empty, 2).c_str());
  }
};

int Main(int argc, char** argv) {
  // Interleaved repetitions unless the command line says otherwise (a flag
  // given later wins).
  if (!bench::InitializeInterleaved(argc, argv, kRepetitions)) return 1;
  signal(SIGPIPE, SIG_IGN);

  // The menu reads no table; the database only has to exist.
  char dir[] = "/tmp/watrix_http_bench_XXXXXX";
  if (mkdtemp(dir) == nullptr) {
    std::perror("http_bench: mkdtemp");
    return 1;
  }
  struct RemoveDir {
    std::string path;
    ~RemoveDir() { std::filesystem::remove_all(path); }
  } remove_dir{dir};

  std::unique_ptr<Host> host;
  try {
    HostOptions options;
    options.module_dir = bench::ProgramDir();
    options.database = std::string("sqlite:") + dir + "/bench.db";
    host = MakeHost(options);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "http_bench: cannot start the host: %s\n", e.what());
    return 1;
  }
  HttpServer server(host.get());
  std::string error;
  if (!server.Start("127.0.0.1:0", &error)) {
    std::fprintf(stderr, "http_bench: %s\n", error.c_str());
    return 1;
  }
  g_port = server.port();

  auto client = NewClient();
  auto r = client->Post("/api/sessions",
                        json{{"user", "JSMITH"}, {"org", "ZZZZZZZZ"}}.dump(),
                        "application/json");
  if (!r || r->status != 201) {
    std::fprintf(stderr, "http_bench: POST /api/sessions failed: %s\n",
                 r ? r->body.c_str() : httplib::to_string(r.error()).c_str());
    return 1;
  }
  json created = json::parse(r->body, nullptr, false);
  if (!created.is_object() || !created["session"].is_string() ||
      !WindowsAre(created["screen"], {kMenu})) {
    std::fprintf(stderr, "http_bench: the session does not open the menu: %s\n",
                 r->body.c_str());
    return 1;
  }
  g_token = created["session"];
  client.reset();

  SummaryReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  server.Stop();
  return 0;
}

}  // namespace
}  // namespace watrix

int main(int argc, char** argv) { return watrix::Main(argc, argv); }
