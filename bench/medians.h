// Interleaved repetitions and their medians, for the benchmarks that set an
// event beside its baseline.
//
// On a shared machine a burst of other work lands on whichever benchmark
// runs at the time; one run of each, one after the other, can then differ
// by a third for no reason of their own. Every benchmark is repeated and
// the repetitions of all of them run in a random order, so that a burst
// falls on all alike (InitializeInterleaved);
// MedianReporter keeps the median
// of each benchmark's repetitions (or its one run, when the command line
// asks for no repetitions) in wall clock milliseconds, under its name and
// arguments ("BM_Rt50Open/0").
#ifndef WATRIX_BENCH_MEDIANS_H_
#define WATRIX_BENCH_MEDIANS_H_

#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace watrix::bench {

// Initialises Google Benchmark with the repetitions and the interleaving
// put first on the command line, so that a flag the caller gives wins.
// False when the command line holds a flag it does not know (reported).
inline bool InitializeInterleaved(int argc, char** argv, int repetitions) {
  static std::vector<std::string> added;
  static std::vector<char*> args;
  added.assign({"--benchmark_enable_random_interleaving=true",
                "--benchmark_repetitions=" + std::to_string(repetitions)});
  args.assign(argv, argv + argc);
  for (std::size_t i = 0; i < added.size(); ++i)
    args.insert(args.begin() + 1 + static_cast<long>(i), added[i].data());
  int n = static_cast<int>(args.size());
  benchmark::Initialize(&n, args.data());
  return !benchmark::ReportUnrecognizedArguments(n, args.data());
}

// A goal line as scripts/bench.sh reads it: "goal NAME: RATIOx (at most LIMITx)".
inline std::string GoalLine(const std::string& name, double ratio, double limit) {
  char line[200];
  std::snprintf(line, sizeof line, "goal %s: %.2fx (at most %gx)", name.c_str(), ratio, limit);
  return line;
}

class MedianReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& r : runs) {
      if (r.error_occurred) continue;
      std::string name = r.run_name.function_name;
      if (!r.run_name.args.empty()) name += "/" + r.run_name.args;
      if (r.run_type == Run::RT_Aggregate && r.aggregate_name == "median") {
        millis_[name] = Millis(r);
        medians_.insert(name);
      } else if (r.run_type == Run::RT_Iteration && medians_.count(name) == 0) {
        millis_[name] = Millis(r);
      }
    }
  }

  // The median (or the one run) of `name`, in milliseconds; 0 when it has
  // none.
  double Get(const std::string& name) const {
    const auto it = millis_.find(name);
    return it == millis_.end() ? 0 : it->second;
  }

 private:
  static double Millis(const Run& r) {
    return r.GetAdjustedRealTime() * benchmark::GetTimeUnitMultiplier(benchmark::kMillisecond) /
           benchmark::GetTimeUnitMultiplier(r.time_unit);
  }

  std::map<std::string, double> millis_;
  std::set<std::string> medians_;
};

}  // namespace watrix::bench

#endif  // WATRIX_BENCH_MEDIANS_H_
