// pg_cluster_hold: the private PostgreSQL test cluster (pg_cluster.h) for
// scripts. Starts the cluster, makes one empty database, prints its URL
// ("postgresql://postgres@127.0.0.1:PORT/NAME") and a newline on standard
// output, and holds the cluster until SIGTERM, SIGINT or SIGHUP; then stops
// it and removes its folder, and exits 0.
//
// When the cluster cannot start, or the database cannot be made, it prints
// the reason on standard error, prints nothing on standard output and exits
// 1. However the program ends, even by SIGKILL, the cluster's watcher stops
// the server and removes the folder.
#include <signal.h>

#include <cstdio>
#include <string>

#include "tests/pg/pg_cluster.h"

int main(int argc, char** argv) {
  (void)argv;
  if (argc != 1) {
    std::fprintf(stderr, "usage: pg_cluster_hold\n");
    return 2;
  }
  watrix::testing::PgCluster& cluster = watrix::testing::PgCluster::Shared();
  if (!cluster.Available()) {
    std::fprintf(stderr, "pg_cluster_hold: PostgreSQL test cluster: %s\n",
                 cluster.why_not().c_str());
    return 1;
  }
  const std::string url = cluster.NewDatabase();
  if (url.empty()) {
    std::fprintf(stderr, "pg_cluster_hold: CREATE DATABASE failed\n");
    return 1;
  }
  // From here a stop signal is taken by sigwait, so that the cluster is
  // stopped and removed before the program ends. A signal that comes
  // earlier ends the program at once, and the watcher cleans up behind it.
  // The mask is set only now, so that the server does not inherit it.
  sigset_t stop;
  sigemptyset(&stop);
  sigaddset(&stop, SIGTERM);
  sigaddset(&stop, SIGINT);
  sigaddset(&stop, SIGHUP);
  sigprocmask(SIG_BLOCK, &stop, nullptr);

  std::printf("%s\n", url.c_str());
  std::fflush(stdout);

  int signal_number = 0;
  sigwait(&stop, &signal_number);
  return 0;
}
