// For the store's tests: a fixture that gives each test a fresh, empty
// database on the backend of its parameter, so that one list of tests runs
// on SQLite and on PostgreSQL alike.
//
// SQLite: a new file under the test's temporary folder, removed at the end.
// PostgreSQL: a new database of the private test cluster (tests/pg). When
// the cluster cannot run, the PostgreSQL cases fail with the reason; they
// are never skipped.
//
// Use:
//   class FooTest : public lk::store::testing::BackendTest {};
//   TEST_P(FooTest, Bar) { ... connection() ... }
//   INSTANTIATE_TEST_SUITE_P(Backends, FooTest, lk::store::testing::kBackends,
//                            lk::store::testing::BackendName);
#ifndef WATRIX_STORE_TEST_DATABASE_H_
#define WATRIX_STORE_TEST_DATABASE_H_

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <exception>
#include <memory>
#include <string>

#include "store/connection.h"
#include "store/soci.h"
#include "store/url.h"
#include "tests/pg/pg_cluster.h"

namespace lk::store::testing {

inline const auto kBackends = ::testing::Values(Dialect::kSqlite, Dialect::kPostgres);

inline std::string BackendName(const ::testing::TestParamInfo<Dialect>& info) {
  return info.param == Dialect::kSqlite ? "Sqlite" : "Postgres";
}

// A URL of a fresh, empty database of `dialect`, or "" with *why_not set.
// *path is the SQLite file to remove afterwards ("" for PostgreSQL).
inline std::string NewDatabaseUrl(Dialect dialect, std::string* path, std::string* why_not) {
  path->clear();
  if (dialect == Dialect::kSqlite) {
    static std::atomic<int> counter{0};
    *path = ::testing::TempDir() + "store_test_" + std::to_string(getpid()) + "_" +
            std::to_string(++counter) + ".db";
    std::remove(path->c_str());
    return "sqlite:" + *path;
  }
  watrix::testing::PgCluster& cluster = watrix::testing::PgCluster::Shared();
  if (!cluster.Available()) {
    *why_not = "PostgreSQL test cluster: " + cluster.why_not();
    return "";
  }
  std::string url = cluster.NewDatabase();
  if (url.empty()) *why_not = "PostgreSQL test cluster: CREATE DATABASE failed";
  return url;
}

inline void RemoveSqliteFiles(const std::string& path) {
  if (path.empty()) return;
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
    std::remove((path + suffix).c_str());
  }
}

class BackendTest : public ::testing::TestWithParam<Dialect> {
 protected:
  void SetUp() override {
    std::string why_not;
    url_ = NewDatabaseUrl(GetParam(), &path_, &why_not);
    ASSERT_FALSE(url_.empty()) << why_not;
    Dialect dialect = Dialect::kSqlite;
    try {
      sql_ = OpenSession(url_, &dialect);
    } catch (const std::exception& e) {
      FAIL() << "cannot open " << url_ << ": " << e.what();
    }
    ASSERT_EQ(GetParam(), dialect);
  }

  void TearDown() override {
    sql_.reset();
    RemoveSqliteFiles(path_);
  }

  Connection connection() { return Connection{sql_.get(), GetParam()}; }
  soci::session& sql() { return *sql_; }
  const std::string& url() const { return url_; }

 private:
  std::string url_;
  std::string path_;
  std::unique_ptr<soci::session> sql_;
};

}  // namespace lk::store::testing

#endif  // WATRIX_STORE_TEST_DATABASE_H_
