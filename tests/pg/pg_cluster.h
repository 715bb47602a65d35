// A private PostgreSQL cluster for a test program: initdb into a temporary
// folder, pg_ctl on a free loopback port, run as the non-root user
// "postgres" (the server refuses root), stopped and removed at the end.
//
// Use: PgCluster::Shared() starts the cluster on first use, once per test
// program, and stops it at exit. NewDatabase() makes an empty database and
// answers its URL ("postgresql://postgres@127.0.0.1:PORT/NAME"); the
// superuser "postgres" is trusted, any other role gives its password over
// the loopback, so that logins with a user's own credentials can be refused
// as a real server refuses them. When the PostgreSQL binaries are missing,
// Available() is false and the tests of that backend fail with the reason
// (they are never skipped silently).
#ifndef WATRIX_TESTS_PG_PG_CLUSTER_H_
#define WATRIX_TESTS_PG_PG_CLUSTER_H_

#include <string>

namespace watrix::testing {

class PgCluster {
 public:
  static PgCluster& Shared();

  bool Available() const { return available_; }
  const std::string& why_not() const { return why_not_; }
  int port() const { return port_; }

  // Creates a fresh empty database and answers its URL.
  std::string NewDatabase();

  // Runs SQL as the superuser on database `db` (psql -c); true on success.
  bool Psql(const std::string& db, const std::string& sql, std::string* output = nullptr);

  ~PgCluster();

 private:
  PgCluster();
  bool available_ = false;
  std::string why_not_;
  std::string folder_;
  int port_ = 0;
  int next_db_ = 0;
};

}  // namespace watrix::testing

#endif  // WATRIX_TESTS_PG_PG_CLUSTER_H_
