// What the store benchmarks share: a scratch folder removed at exit, the two
// databases they measure (SQLite in that folder; PostgreSQL from
// WATRIX_BENCH_PG or a private cluster), and the blank-padded copy with
// which the C API readers fill a fixed text the way the frame does.
#ifndef WATRIX_BENCH_BENCH_DATABASES_H_
#define WATRIX_BENCH_BENCH_DATABASES_H_

#include <stdlib.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

#include "tests/pg/pg_cluster.h"

namespace watrix::bench {

// A folder under /tmp named after the program, removed with everything in
// it when the object goes. ok() is false when it could not be made.
class ScratchDir {
 public:
  explicit ScratchDir(const std::string& program) {
    std::string pattern = "/tmp/watrix_" + program + "_XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) {
      std::perror((program + ": mkdtemp").c_str());
      return;
    }
    path_ = pattern;
  }
  ~ScratchDir() {
    if (!path_.empty()) std::filesystem::remove_all(path_);
  }
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  bool ok() const { return !path_.empty(); }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

// Says why `program` cannot go on, and answers false.
inline bool Fail(const std::string& program, const std::string& why) {
  std::fprintf(stderr, "%s: %s\n", program.c_str(), why.c_str());
  return false;
}

// The URLs of the two databases: SQLite in `dir`, PostgreSQL as above.
// False, with the reason on stderr, when PostgreSQL cannot be had.
inline bool DatabaseUrls(const std::string& program, const std::string& dir,
                         std::string* sqlite, std::string* postgres) {
  *sqlite = "sqlite:" + dir + "/bench.db";
  if (const char* url = std::getenv("WATRIX_BENCH_PG")) {
    *postgres = url;
    return true;
  }
  testing::PgCluster& cluster = testing::PgCluster::Shared();
  if (!cluster.Available()) return Fail(program, "no PostgreSQL: " + cluster.why_not());
  *postgres = cluster.NewDatabase();
  return true;
}

// Copies `text` into a fixed text of `width` bytes: blank padded, NUL last.
inline void Fixed(char* dest, const char* text, int width) {
  const std::size_t n = std::min(std::strlen(text), static_cast<std::size_t>(width - 1));
  std::memcpy(dest, text, n);
  std::memset(dest + n, ' ', static_cast<std::size_t>(width - 1) - n);
  dest[width - 1] = '\0';
}

}  // namespace watrix::bench

#endif  // WATRIX_BENCH_BENCH_DATABASES_H_
