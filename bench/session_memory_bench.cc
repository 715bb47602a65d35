// What an idle session costs the server in resident memory.
//
// The benchmark makes the host as `watrix serve` does (MakeHost, the module
// beside this program) on a fresh SQLite database, which MakeHost gives the
// schema; no data is loaded: the menu reads no table. It opens one session
// and ends it, so that what the first session alone brings (the module's
// first use, SQLite's own start) is not counted against every session, and
// then reads the process's resident memory (VmRSS of /proc/self/status,
// after malloc_trim(0), the mean of a few readings). It opens 400 sessions
// through the Host interface, as POST /api/sessions does, and checks that
// each answers 201 with the menu (RT1_REFERENCE_TABLE_MAINT_MENU) open and
// alone on its screen; it reads the resident memory again and prints the
// difference per session beside the baseline. It then asks every session for
// its screen again (the menu must still be there). For comparison, not for
// the goal, each session then opens the lab remark list and closes it, and
// the memory is read again: a session that has once run a statement keeps
// what its connection read, the schema first. At last it ends them all and
// reads the memory once more.
//
// The sessions are opened in-process rather than over HTTP: an idle session
// holds no HTTP connection, and what the web server keeps (its threads, its
// files) does not grow with the sessions; a session is what the host keeps
// between two requests of it.
//
// Beside RSS it prints the bytes malloc has handed out (mallinfo2), which
// are the part of RSS that the session's own objects make up; the rest is
// the arenas' free space and the pages of other mappings.
//
// WATRIX_BENCH_SESSIONS changes the 400 sessions. The last line is the goal:
//   goal idle-session-memory: KB (at most 256)
#include <limits.h>
#include <malloc.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <nlohmann/json.hpp>

#include "bench/program_dir.h"
#include "host/host.h"

namespace watrix {
namespace {

using nlohmann::json;

constexpr char kMenu[] = "RT1_REFERENCE_TABLE_MAINT_MENU";
constexpr char kList[] = "RT50_LAB_REMARK_MAINT_LIST";
constexpr double kGoalKb = 256;

// A field of /proc/self/status in kB ("VmRSS", "Threads"), or -1.
long StatusField(const char* name) {
  std::ifstream status("/proc/self/status");
  std::string line;
  const std::size_t n = std::strlen(name);
  while (std::getline(status, line)) {
    if (line.compare(0, n, name) == 0 && line.size() > n && line[n] == ':')
      return std::strtol(line.c_str() + n + 1, nullptr, 10);
  }
  return -1;
}

struct Memory {
  double rss_kb = 0;     // VmRSS, mean of the readings
  double heap_kb = 0;    // bytes handed out by malloc, all arenas
  long threads = 0;
};

// Gives malloc's free pages back first, then reads a few times.
Memory Measure() {
  constexpr int kReadings = 5;
  Memory m;
  for (int i = 0; i < kReadings; ++i) {
    malloc_trim(0);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    m.rss_kb += static_cast<double>(StatusField("VmRSS"));
  }
  m.rss_kb /= kReadings;
  const struct mallinfo2 info = mallinfo2();
  m.heap_kb = static_cast<double>(info.uordblks + info.hblkhd) / 1024.0;
  m.threads = StatusField("Threads");
  return m;
}

// True when `screen` shows exactly the menu.
bool MenuOpen(const json& screen) {
  if (!screen.is_object() || !screen.contains("windows")) return false;
  const json& windows = screen["windows"];
  return windows.is_array() && windows.size() == 1 && windows[0].is_object() &&
         windows[0].value("name", "") == kMenu && screen.value("ended", true) == false;
}

// Opens a session for JSMITH in ZZZZZZZZ; its token, or "" with a message.
std::string OpenSession(Host* host) {
  const Reply r = host->CreateSession(json{{"user", "JSMITH"}, {"org", "ZZZZZZZZ"}});
  if (r.status != 201 || !r.body.is_object() || !r.body["session"].is_string() ||
      !MenuOpen(r.body["screen"])) {
    std::fprintf(stderr, "session_memory_bench: the session does not open the menu: %d %s\n",
                 r.status, r.body.dump().c_str());
    return "";
  }
  return r.body["session"].get<std::string>();
}

int Main() {
  int sessions = 400;
  if (const char* n = std::getenv("WATRIX_BENCH_SESSIONS")) sessions = std::max(1, std::atoi(n));

  char dir[] = "/tmp/watrix_session_memory_bench_XXXXXX";
  if (mkdtemp(dir) == nullptr) {
    std::perror("session_memory_bench: mkdtemp");
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
    std::fprintf(stderr, "session_memory_bench: cannot start the host: %s\n", e.what());
    return 1;
  }

  // One session first, ended again: what only the first one brings stays
  // out of the figure.
  {
    const std::string token = OpenSession(host.get());
    if (token.empty()) return 1;
    if (host->EndSession(token).status != 204) {
      std::fprintf(stderr, "session_memory_bench: the first session does not end\n");
      return 1;
    }
  }

  const Memory before = Measure();
  std::vector<std::string> tokens;
  tokens.reserve(static_cast<std::size_t>(sessions));
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < sessions; ++i) {
    std::string token = OpenSession(host.get());
    if (token.empty()) return 1;
    tokens.push_back(std::move(token));
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  const Memory idle = Measure();

  // Every session still shows its menu.
  for (const std::string& token : tokens) {
    const Reply r = host->Screen(token);
    if (r.status != 200 || !MenuOpen(r.body)) {
      std::fprintf(stderr, "session_memory_bench: a session lost its menu: %d %s\n", r.status,
                   r.body.dump().c_str());
      return 1;
    }
  }

  // Then each session opens the lab remark list (its Open event reads
  // TSRLBRMK, which is empty here) and closes it again: back on its menu,
  // idle, but with the schema read by its connection.
  for (const std::string& token : tokens) {
    Reply r = host->Event(token, json{{"window", kMenu}, {"control", "Lab &Remark"},
                                      {"event", "Click"}});
    const json& windows = r.body["windows"];
    if (r.status != 200 || !windows.is_array() || windows.size() != 1 ||
        windows[0].value("name", "") != kList || !r.body["failure"].is_null()) {
      std::fprintf(stderr, "session_memory_bench: Lab &Remark did not open the list: %d %s\n",
                   r.status, r.body.dump().c_str());
      return 1;
    }
    r = host->Event(token, json{{"window", kList}, {"control", "C&lose"}, {"event", "Click"}});
    if (r.status != 200 || !MenuOpen(r.body)) {
      std::fprintf(stderr, "session_memory_bench: C&lose did not go back to the menu: %d %s\n",
                   r.status, r.body.dump().c_str());
      return 1;
    }
  }
  const Memory visited = Measure();
  for (const std::string& token : tokens) {
    if (host->EndSession(token).status != 204) {
      std::fprintf(stderr, "session_memory_bench: a session does not end\n");
      return 1;
    }
  }
  const Memory ended = Measure();

  const double per_session = (idle.rss_kb - before.rss_kb) / sessions;
  const double heap_per_session = (idle.heap_kb - before.heap_kb) / sessions;
  std::printf("%d idle sessions on SQLite, menu open, opened in %.2f s\n", sessions, seconds);
  std::printf("  resident memory before        %10.0f KB   (malloc in use %8.0f KB, %ld threads)\n",
              before.rss_kb, before.heap_kb, before.threads);
  std::printf("  resident memory with them     %10.0f KB   (malloc in use %8.0f KB, %ld threads)\n",
              idle.rss_kb, idle.heap_kb, idle.threads);
  std::printf("  after a visit to a list each   %10.0f KB   (malloc in use %8.0f KB)\n",
              visited.rss_kb, visited.heap_kb);
  std::printf("  resident memory once ended    %10.0f KB   (malloc in use %8.0f KB)\n",
              ended.rss_kb, ended.heap_kb);
  std::printf("  per idle session              %10.1f KB   (malloc in use %8.1f KB)\n",
              per_session, heap_per_session);
  std::printf("  per session back from a list  %10.1f KB   (malloc in use %8.1f KB)\n",
              (visited.rss_kb - before.rss_kb) / sessions,
              (visited.heap_kb - before.heap_kb) / sessions);
  std::printf("goal idle-session-memory: %ld (at most %.0f)\n", std::lround(per_session), kGoalKb);
  return 0;
}

}  // namespace
}  // namespace watrix

int main() { return watrix::Main(); }
