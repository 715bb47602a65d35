// Eight client processes, each with its own host session and connection,
// take 500 IS numbers each from one counter at the same time, one event
// (one transaction) per number: every number from the counter's start + 1
// to start + 4000 is handed out exactly once, and the counter ends at
// start + 4000. On PostgreSQL the counter row's lock serialises them; on
// SQLite the writers' BEGIN IMMEDIATE does.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "store/database.h"
#include "store/schema.h"
#include "store/soci.h"
#include "store/test_database.h"
#include "tests/store_concurrency/client_session.h"

namespace watrix::testing {
namespace {

using lk::store::Dialect;

constexpr int kClients = 8;
constexpr int kNumbersEach = 500;
constexpr long long kStart = 7000;

// The work of one client process: waits until `go` closes, then clicks
// "&Number" kNumbersEach times and writes each number shown, one a line, to
// `out`. Answers the process's exit status.
int RunClient(const std::string& url, int go, int out) {
  ClientSession client;
  const std::string why = client.Open(url);
  if (!why.empty()) {
    dprintf(out, "error: %s\n", why.c_str());
    return 2;
  }
  char c;
  while (read(go, &c, 1) < 0 && errno == EINTR) {
  }
  for (int i = 0; i < kNumbersEach; ++i) {
    const Reply r = client.Click("&Number", "TSRLBRMK");
    if (r.status != 200 || !r.body["failure"].is_null()) {
      dprintf(out, "error: event %d: %s\n", i, r.body.dump().c_str());
      return 3;
    }
    dprintf(out, "%s\n", client.Note().c_str());
  }
  return 0;
}

class IsNumberConcurrencyTest : public ::testing::TestWithParam<Dialect> {
 protected:
  void TearDown() override { lk::store::testing::RemoveSqliteFiles(path_); }
  std::string path_;
};

TEST_P(IsNumberConcurrencyTest, EightClientsTakeEveryNumberExactlyOnce) {
  std::string why_not;
  const std::string url = lk::store::testing::NewDatabaseUrl(GetParam(), &path_, &why_not);
  ASSERT_FALSE(url.empty()) << why_not;
  {
    // Closed before the clients are forked.
    std::string error;
    std::unique_ptr<lk::store::Database> db = lk::store::Database::Open(url, &error);
    ASSERT_NE(nullptr, db) << error;
    lk::store::CreateSchema(*db->connection());
    *db->connection()->sql
        << "INSERT INTO TSMEISN (TSMEISN_NAME, TSMEISN_ORG_ID, IS_NUMBER, TABLE_VERSION, "
           "V_USERID_CODE, V_LAST_UPDATE_TS, D_USERID_CODE, D_LAST_UPDT_TS) VALUES "
           "('TSRLBRMK', 'ORG1', :n, NULL, NULL, NULL, 'SETUP', '2020-01-01 00:00:00')",
        soci::use(kStart);
  }

  int go[2];
  ASSERT_EQ(0, pipe(go));
  std::vector<pid_t> children;
  std::vector<int> outputs;
  for (int k = 0; k < kClients; ++k) {
    int out[2];
    ASSERT_EQ(0, pipe(out));
    const pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
      close(go[1]);
      close(out[0]);
      for (int fd : outputs) close(fd);
      _exit(RunClient(url, go[0], out[1]));
    }
    close(out[1]);
    children.push_back(pid);
    outputs.push_back(out[0]);
  }
  close(go[0]);
  close(go[1]);  // all clients start now

  std::vector<long long> numbers;
  for (int k = 0; k < kClients; ++k) {
    std::string text;
    char buffer[4096];
    ssize_t n;
    while ((n = read(outputs[k], buffer, sizeof buffer)) != 0) {
      if (n < 0 && errno == EINTR) continue;
      ASSERT_GT(n, 0);
      text.append(buffer, static_cast<std::size_t>(n));
    }
    close(outputs[k]);
    int status = 0;
    ASSERT_EQ(children[k], waitpid(children[k], &status, 0));
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0)
        << "client " << k << " ended with " << status << ": " << text.substr(0, 2000);
    std::size_t start = 0;
    int lines = 0;
    while (start < text.size()) {
      const std::size_t end = text.find('\n', start);
      const std::string line = text.substr(start, end - start);
      start = end == std::string::npos ? text.size() : end + 1;
      if (line.rfind("error", 0) == 0) continue;
      numbers.push_back(std::atoll(line.c_str()));
      ++lines;
    }
    EXPECT_EQ(kNumbersEach, lines) << "client " << k;
  }

  std::sort(numbers.begin(), numbers.end());
  std::vector<long long> want;
  for (long long n = kStart + 1; n <= kStart + kClients * kNumbersEach; ++n) want.push_back(n);
  EXPECT_EQ(want.size(), numbers.size());
  EXPECT_TRUE(numbers == want) << "numbers handed out twice or not at all";
  const auto twice = std::adjacent_find(numbers.begin(), numbers.end());
  EXPECT_EQ(numbers.end(), twice) << "handed out twice: " << *twice;

  std::string error;
  std::unique_ptr<lk::store::Database> db = lk::store::Database::Open(url, &error);
  ASSERT_NE(nullptr, db) << error;
  double counter = 0;
  *db->connection()->sql << "SELECT IS_NUMBER FROM TSMEISN WHERE TSMEISN_NAME = 'TSRLBRMK'",
      soci::into(counter);
  EXPECT_EQ(static_cast<double>(kStart + kClients * kNumbersEach), counter);
}

INSTANTIATE_TEST_SUITE_P(Backends, IsNumberConcurrencyTest, lk::store::testing::kBackends,
                         lk::store::testing::BackendName);

}  // namespace
}  // namespace watrix::testing
