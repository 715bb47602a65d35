// The private PostgreSQL cluster of a test program (see pg_cluster.h).
//
// How it runs:
//  - The binaries come from the newest /usr/lib/postgresql/*/bin that holds
//    initdb, pg_ctl and psql.
//  - The cluster lives in a fresh folder under /tmp: data/ (the cluster),
//    the server's socket, and server.log. Run as root, the folder belongs to
//    the user "postgres" and every PostgreSQL program runs as that user (the
//    server refuses root); run as anyone else, they run as the caller.
//  - The superuser is "postgres" whoever runs it. Local socket connections
//    and loopback connections of "postgres" are trusted; every other role
//    must give its password over the loopback (scram-sha-256), so that tests
//    of logins with a user's own credentials see a real refusal.
//  - At start a small watcher process is forked that waits for the test
//    program to end, however it ends (exit, abort, a signal), then stops the
//    server at once (SIGQUIT to the postmaster: an immediate shutdown) and
//    removes the folder. At a normal exit the destructor lets the watcher do
//    its work and waits for it, so that nothing is left behind.
//
// Thread safety: Shared() is safe to call from any thread; NewDatabase and
// Psql may run concurrently.
#include "tests/pg/pg_cluster.h"

#include <fcntl.h>
#include <grp.h>
#include <netinet/in.h>
#include <pwd.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>
#include <vector>

extern char** environ;

namespace watrix::testing {

namespace {

namespace fs = std::filesystem;

// Where the programs run: as root, as the user "postgres"; else as the
// caller (uid < 0 means "do not switch").
struct RunAs {
  uid_t uid = 0;
  gid_t gid = 0;
  bool switch_user = false;
};

// State of the one cluster of the process, outside the class so that the
// header keeps its shape.
struct ClusterState {
  std::mutex mutex;
  std::string bin;        // folder of initdb, pg_ctl, psql
  RunAs run_as;
  int watcher_fd = -1;    // write end of the watcher's pipe
  pid_t watcher = -1;
};

ClusterState& State() {
  static ClusterState state;
  return state;
}

// The newest /usr/lib/postgresql/VERSION/bin that holds the programs.
std::string FindBinaries(std::string* why) {
  const fs::path root = "/usr/lib/postgresql";
  std::error_code ec;
  std::vector<std::pair<std::vector<int>, fs::path>> found;
  for (fs::directory_iterator it(root, ec), end; !ec && it != end; it.increment(ec)) {
    const fs::path bin = it->path() / "bin";
    bool complete = true;
    for (const char* program : {"initdb", "pg_ctl", "psql", "postgres"})
      complete = complete && access((bin / program).c_str(), X_OK) == 0;
    if (!complete) continue;
    // "15" or "9.6": compare by number, part by part.
    std::vector<int> version;
    std::string name = it->path().filename().string();
    for (std::size_t start = 0; start <= name.size();) {
      std::size_t dot = name.find('.', start);
      if (dot == std::string::npos) dot = name.size();
      version.push_back(std::atoi(name.substr(start, dot - start).c_str()));
      start = dot + 1;
    }
    found.emplace_back(version, bin);
  }
  if (found.empty()) {
    *why = "no PostgreSQL server programs (initdb, pg_ctl, psql, postgres) under " +
           root.string() + "/*/bin";
    return "";
  }
  std::sort(found.begin(), found.end());
  return found.back().second.string();
}

// The environment of a child: ours without the PG* variables, which would
// point the programs elsewhere.
std::vector<std::string> ChildEnvironment() {
  std::vector<std::string> env;
  for (char** e = environ; e != nullptr && *e != nullptr; ++e) {
    if (std::strncmp(*e, "PG", 2) == 0) continue;
    env.emplace_back(*e);
  }
  return env;
}

// Runs `argv` (argv[0] a full path) in folder `cwd` as `run_as`, with
// standard input from /dev/null; answers the exit status (-1 when it could
// not run or died by a signal) and collects standard output and error.
int Run(const std::vector<std::string>& argv, const RunAs& run_as, const std::string& cwd,
        std::string* output) {
  std::vector<char*> args;
  for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
  args.push_back(nullptr);
  const std::vector<std::string> env_text = ChildEnvironment();
  std::vector<char*> env;
  for (const std::string& e : env_text) env.push_back(const_cast<char*>(e.c_str()));
  env.push_back(nullptr);

  int pipe_fds[2];
  if (pipe2(pipe_fds, O_CLOEXEC) != 0) {
    if (output != nullptr) *output = std::string("pipe: ") + std::strerror(errno);
    return -1;
  }
  const int devnull = open("/dev/null", O_RDONLY | O_CLOEXEC);
  const pid_t pid = fork();
  if (pid < 0) {
    if (output != nullptr) *output = std::string("fork: ") + std::strerror(errno);
    close(pipe_fds[0]);
    close(pipe_fds[1]);
    if (devnull >= 0) close(devnull);
    return -1;
  }
  if (pid == 0) {
    // Only async-signal-safe calls from here to exec.
    if (devnull >= 0) dup2(devnull, 0);
    dup2(pipe_fds[1], 1);
    dup2(pipe_fds[1], 2);
    if (run_as.switch_user) {
      if (setgroups(0, nullptr) != 0 || setgid(run_as.gid) != 0 || setuid(run_as.uid) != 0)
        _exit(126);
    }
    if (chdir(cwd.c_str()) != 0) _exit(126);
    close_range(3, ~0U, 0);
    execve(args[0], args.data(), env.data());
    _exit(127);
  }
  close(pipe_fds[1]);
  if (devnull >= 0) close(devnull);
  std::string text;
  char buffer[4096];
  for (;;) {
    const ssize_t n = read(pipe_fds[0], buffer, sizeof buffer);
    if (n > 0) {
      text.append(buffer, static_cast<std::size_t>(n));
    } else if (n < 0 && errno == EINTR) {
      continue;
    } else {
      break;
    }
  }
  close(pipe_fds[0]);
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  if (output != nullptr) *output = text;
  if (!WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

// A port that nobody listens on now: bind to 127.0.0.1:0 and read it back.
int FreePort() {
  const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (fd < 0) return 0;
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = 0;
  int port = 0;
  socklen_t length = sizeof address;
  if (bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
      getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length) == 0)
    port = ntohs(address.sin_port);
  close(fd);
  return port;
}

// The watcher: a shell that reads its standard input (our pipe) to the end,
// which comes when this process is gone, then stops the server at once and
// removes the folder. It runs as we do; root may signal the server of user
// postgres, and anyone else runs the server as themselves.
constexpr char kWatcherScript[] =
    "cat >/dev/null\n"
    "pid=$(head -n 1 \"$1/data/postmaster.pid\" 2>/dev/null)\n"
    "if [ -n \"$pid\" ]; then\n"
    "  kill -QUIT \"$pid\" 2>/dev/null\n"
    "  i=0\n"
    "  while kill -0 \"$pid\" 2>/dev/null && [ $i -lt 200 ]; do sleep 0.05; i=$((i+1)); done\n"
    "fi\n"
    "rm -rf \"$1\"\n";

// Forks the watcher of `folder`; answers the write end of its pipe.
bool StartWatcher(const std::string& folder, std::string* why) {
  int pipe_fds[2];
  if (pipe2(pipe_fds, O_CLOEXEC) != 0) {
    *why = std::string("pipe: ") + std::strerror(errno);
    return false;
  }
  const char* argv[] = {"/bin/sh", "-c", kWatcherScript, "pg-cluster-watcher", folder.c_str(),
                        nullptr};
  const int devnull = open("/dev/null", O_RDWR | O_CLOEXEC);
  const pid_t pid = fork();
  if (pid < 0) {
    *why = std::string("fork: ") + std::strerror(errno);
    close(pipe_fds[0]);
    close(pipe_fds[1]);
    if (devnull >= 0) close(devnull);
    return false;
  }
  if (pid == 0) {
    // Out of the terminal's process group, so that ^C on the test program
    // does not take the watcher with it; no inherited descriptors, so that
    // nobody waits on our output for it.
    setsid();
    dup2(pipe_fds[0], 0);
    if (devnull >= 0) {
      dup2(devnull, 1);
      dup2(devnull, 2);
    }
    close_range(3, ~0U, 0);
    signal(SIGINT, SIG_IGN);
    signal(SIGHUP, SIG_IGN);
    execv("/bin/sh", const_cast<char**>(argv));
    _exit(127);
  }
  close(pipe_fds[0]);
  if (devnull >= 0) close(devnull);
  State().watcher_fd = pipe_fds[1];
  State().watcher = pid;
  return true;
}

std::string LastLines(const std::string& text, int lines) {
  std::size_t at = text.size();
  while (lines-- > 0 && at > 0) {
    const std::size_t nl = text.rfind('\n', at - 1);
    if (nl == std::string::npos) return text;
    at = nl;
  }
  return text.substr(at);
}

}  // namespace

PgCluster& PgCluster::Shared() {
  static PgCluster cluster;
  return cluster;
}

PgCluster::PgCluster() {
  ClusterState& state = State();
  state.bin = FindBinaries(&why_not_);
  if (state.bin.empty()) return;

  if (geteuid() == 0) {
    const passwd* pw = getpwnam("postgres");
    if (pw == nullptr) {
      why_not_ = "running as root, and there is no user \"postgres\" to run the server as";
      return;
    }
    state.run_as = {pw->pw_uid, pw->pw_gid, true};
  }

  char folder_template[] = "/tmp/watrix-pg-XXXXXX";
  if (mkdtemp(folder_template) == nullptr) {
    why_not_ = std::string("mkdtemp under /tmp: ") + std::strerror(errno);
    return;
  }
  folder_ = folder_template;
  std::string why;
  if (!StartWatcher(folder_, &why)) {
    why_not_ = "cannot start the watcher: " + why;
    std::error_code ec;
    fs::remove_all(folder_, ec);
    return;
  }
  if (state.run_as.switch_user &&
      chown(folder_.c_str(), state.run_as.uid, state.run_as.gid) != 0) {
    why_not_ = "chown " + folder_ + " to postgres: " + std::strerror(errno);
    return;
  }
  chmod(folder_.c_str(), 0700);

  const std::string data = folder_ + "/data";
  std::string output;
  if (Run({state.bin + "/initdb", "-D", data, "-A", "trust", "-U", "postgres",
           "--encoding=UTF8", "--locale=C", "--no-sync"},
          state.run_as, folder_, &output) != 0) {
    why_not_ = "initdb failed: " + LastLines(output, 5);
    return;
  }
  {
    // Written in place, so that the file keeps its owner.
    std::ofstream hba(data + "/pg_hba.conf", std::ios::trunc);
    hba << "# The private test cluster: the superuser is trusted, other roles give\n"
           "# their password over the loopback.\n"
           "local all all trust\n"
           "host all postgres 127.0.0.1/32 trust\n"
           "host all all 127.0.0.1/32 scram-sha-256\n";
    if (!hba) {
      why_not_ = "cannot write " + data + "/pg_hba.conf";
      return;
    }
  }

  // The port may be taken between our look and the server's bind: try a few.
  for (int attempt = 0; attempt < 5; ++attempt) {
    const int port = FreePort();
    if (port == 0) {
      why_not_ = "no free port on 127.0.0.1";
      return;
    }
    const std::string options = "-p " + std::to_string(port) + " -k " + folder_ +
                                " -c listen_addresses=127.0.0.1 -c fsync=off"
                                " -c synchronous_commit=off -c full_page_writes=off"
                                " -c max_connections=100 -c shared_buffers=16MB";
    const int status = Run({state.bin + "/pg_ctl", "-D", data, "-l", folder_ + "/server.log",
                            "-o", options, "-w", "-t", "60", "start"},
                           state.run_as, folder_, &output);
    if (status == 0) {
      port_ = port;
      available_ = true;
      why_not_.clear();
      return;
    }
    std::string log;
    std::ifstream in(folder_ + "/server.log");
    log.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    why_not_ = "pg_ctl start failed: " + LastLines(output, 3) + LastLines(log, 5);
  }
}

PgCluster::~PgCluster() {
  ClusterState& state = State();
  if (state.watcher_fd >= 0) {
    // The watcher stops the server and removes the folder once its pipe
    // closes; wait for it, so that the program ends clean.
    close(state.watcher_fd);
    state.watcher_fd = -1;
    int status = 0;
    while (waitpid(state.watcher, &status, 0) < 0 && errno == EINTR) {
    }
    state.watcher = -1;
  }
  available_ = false;
}

std::string PgCluster::NewDatabase() {
  if (!available_) return "";
  int number;
  {
    std::lock_guard<std::mutex> lock(State().mutex);
    number = ++next_db_;
  }
  const std::string name = "db" + std::to_string(number);
  if (!Psql("postgres", "CREATE DATABASE " + name)) return "";
  return "postgresql://postgres@127.0.0.1:" + std::to_string(port_) + "/" + name;
}

bool PgCluster::Psql(const std::string& db, const std::string& sql, std::string* output) {
  if (!available_) {
    if (output != nullptr) *output = why_not_;
    return false;
  }
  const ClusterState& state = State();
  std::string text;
  const int status =
      Run({state.bin + "/psql", "-X", "-q", "-A", "-t", "-v", "ON_ERROR_STOP=1", "-h", folder_,
           "-p", std::to_string(port_), "-U", "postgres", "-d", db, "-c", sql},
          state.run_as, folder_, &text);
  if (output != nullptr) *output = text;
  return status == 0;
}

}  // namespace watrix::testing
