// The folder of the running benchmark program, where the build puts
// liblkbase.so beside it.
#ifndef WATRIX_BENCH_PROGRAM_DIR_H_
#define WATRIX_BENCH_PROGRAM_DIR_H_

#include <limits.h>
#include <unistd.h>

#include <string>

namespace watrix::bench {

// The folder of /proc/self/exe, or "." when it cannot be read.
inline std::string ProgramDir() {
  char path[PATH_MAX];
  const ssize_t n = readlink("/proc/self/exe", path, sizeof path - 1);
  if (n <= 0) return ".";
  const std::string exe(path, static_cast<std::size_t>(n));
  return exe.substr(0, exe.rfind('/'));
}

}  // namespace watrix::bench

#endif  // WATRIX_BENCH_PROGRAM_DIR_H_
