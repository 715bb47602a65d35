// The private PostgreSQL cluster: it starts, gives databases that are apart
// from each other, runs SQL, refuses a role without its password over the
// loopback, and leaves nothing behind when the program ends, whether it
// exits or crashes.
#include "tests/pg/pg_cluster.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

namespace watrix::testing {
namespace {

constexpr char kChildVariable[] = "WATRIX_PG_CLUSTER_CHILD";

// Child mode: started again by the test below with kChildVariable set to
// "exit" or "abort", the program starts the cluster, prints its port and
// data folder, and ends that way before any test runs.
[[maybe_unused]] const bool kChildRan = [] {
  const char* mode = std::getenv(kChildVariable);
  if (mode == nullptr) return false;
  PgCluster& cluster = PgCluster::Shared();
  std::string folder;
  if (!cluster.Available() || !cluster.Psql("postgres", "SHOW data_directory", &folder)) {
    std::printf("unavailable %s\n", cluster.why_not().c_str());
    std::exit(3);
  }
  std::printf("%d %s", cluster.port(), folder.c_str());
  std::fflush(stdout);
  if (std::strcmp(mode, "abort") == 0) std::abort();
  std::exit(0);
}();

bool Accepts(int port) {
  const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<uint16_t>(port));
  const bool ok = connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  close(fd);
  return ok;
}

bool Exists(const std::string& path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0;
}

class PgClusterTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(cluster_.Available()) << cluster_.why_not(); }
  PgCluster& cluster_ = PgCluster::Shared();
};

TEST_F(PgClusterTest, StartsOnALoopbackPort) {
  EXPECT_GT(cluster_.port(), 0);
  EXPECT_TRUE(Accepts(cluster_.port()));
  std::string out;
  ASSERT_TRUE(cluster_.Psql("postgres", "SHOW listen_addresses", &out)) << out;
  EXPECT_EQ("127.0.0.1\n", out);
  ASSERT_TRUE(cluster_.Psql("postgres", "SHOW server_encoding", &out)) << out;
  EXPECT_EQ("UTF8\n", out);
  ASSERT_TRUE(cluster_.Psql("postgres", "SELECT current_user", &out)) << out;
  EXPECT_EQ("postgres\n", out);
}

TEST_F(PgClusterTest, DatabasesAreApart) {
  const std::string first = cluster_.NewDatabase();
  const std::string second = cluster_.NewDatabase();
  const std::string prefix =
      "postgresql://postgres@127.0.0.1:" + std::to_string(cluster_.port()) + "/";
  ASSERT_EQ(0u, first.rfind(prefix, 0)) << first;
  ASSERT_EQ(0u, second.rfind(prefix, 0)) << second;
  ASSERT_NE(first, second);
  const std::string a = first.substr(prefix.size());
  const std::string b = second.substr(prefix.size());

  std::string out;
  ASSERT_TRUE(cluster_.Psql(a, "CREATE TABLE t (k integer primary key, v varchar(10))", &out))
      << out;
  ASSERT_TRUE(cluster_.Psql(a, "INSERT INTO t VALUES (1, 'one'), (2, 'two')", &out)) << out;
  ASSERT_TRUE(cluster_.Psql(a, "SELECT k, v FROM t ORDER BY k", &out)) << out;
  EXPECT_EQ("1|one\n2|two\n", out);

  // The second database has no such table; a failing statement says so.
  EXPECT_FALSE(cluster_.Psql(b, "SELECT k FROM t", &out));
  EXPECT_NE(std::string::npos, out.find("does not exist")) << out;
  ASSERT_TRUE(cluster_.Psql(b, "SELECT count(*) FROM pg_tables WHERE tablename = 't'", &out))
      << out;
  EXPECT_EQ("0\n", out);
}

TEST_F(PgClusterTest, UnknownDatabaseFails) {
  std::string out;
  EXPECT_FALSE(cluster_.Psql("no_such_database", "SELECT 1", &out));
  EXPECT_NE(std::string::npos, out.find("no_such_database")) << out;
}

// Runs this program again in child mode; answers what it printed and how it
// ended.
std::string RunChild(const char* mode, int* status) {
  int fds[2];
  if (pipe(fds) != 0) return "";
  const pid_t pid = fork();
  if (pid == 0) {
    dup2(fds[1], 1);
    close(fds[0]);
    close(fds[1]);
    setenv(kChildVariable, mode, 1);
    execl("/proc/self/exe", "pg_cluster_test", "--gtest_list_tests", static_cast<char*>(nullptr));
    _exit(127);
  }
  close(fds[1]);
  std::string out;
  char buffer[512];
  ssize_t n;
  while ((n = read(fds[0], buffer, sizeof buffer)) > 0) out.append(buffer, static_cast<size_t>(n));
  close(fds[0]);
  waitpid(pid, status, 0);
  return out;
}

// Waits for the watcher of a dead program to finish: the server gone from
// its port and the folder removed.
bool GoneWithin(int port, const std::string& folder, std::chrono::seconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (std::chrono::steady_clock::now() < deadline) {
    if (!Accepts(port) && !Exists(folder)) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return !Accepts(port) && !Exists(folder);
}

TEST(PgClusterLifetime, StoppedAndRemovedWhenTheProgramExits) {
  int status = 0;
  const std::string out = RunChild("exit", &status);
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << out;
  int port = 0;
  std::string data;
  std::istringstream(out) >> port >> data;
  ASSERT_GT(port, 0) << out;
  ASSERT_EQ(0u, data.rfind("/tmp/watrix-pg-", 0)) << out;
  const std::string folder = data.substr(0, data.rfind('/'));
  // A normal exit waits for the watcher: all is gone already.
  EXPECT_FALSE(Exists(folder)) << folder;
  EXPECT_FALSE(Accepts(port));
}

TEST(PgClusterLifetime, StoppedAndRemovedWhenTheProgramCrashes) {
  int status = 0;
  const std::string out = RunChild("abort", &status);
  ASSERT_TRUE(WIFSIGNALED(status)) << out;
  int port = 0;
  std::string data;
  std::istringstream(out) >> port >> data;
  ASSERT_GT(port, 0) << out;
  const std::string folder = data.substr(0, data.rfind('/'));
  ASSERT_EQ(0u, folder.rfind("/tmp/watrix-pg-", 0)) << out;
  EXPECT_TRUE(GoneWithin(port, folder, std::chrono::seconds(60)));
}

}  // namespace
}  // namespace watrix::testing
