#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace zef::bench {

/// Adds up the time between `Start` and `Stop`.
class Stopwatch {
 public:
  void Start() { started_ = Clock::now(); }
  void Stop() { elapsed_ += Clock::now() - started_; }
  /// Time that another process has measured.
  void Add(double seconds) {
    elapsed_ += std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
  }
  double Seconds() const { return std::chrono::duration<double>(elapsed_).count(); }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point started_;
  Clock::duration elapsed_{};
};

/// The same work done by the library and by hand. Each member does all operations of one round, times with the watch
/// what counts, and returns a digest of what the round delivered: it must be the same on both sides, so that neither
/// can leave work out.
class Contest {
 public:
  virtual ~Contest() = default;
  virtual std::uint64_t Ours(int round, Stopwatch& watch) = 0;
  virtual std::uint64_t ByHand(int round, Stopwatch& watch) = 0;
};

/// One row of the final table. The sides run in turn, round by round, and so that each begins every other round; the
/// row shows the median time of an operation on both sides and the median of the rounds' ratios.
struct Row {
  std::string name;
  double target = 0;   ///< the ratio that is allowed; 0 for none
  double longest = 0;  ///< the seconds that are allowed for one of ours, in place of a ratio; 0 for none
  int operations = 1;  ///< of each side in one round
  int rounds = 1;
  std::function<std::unique_ptr<Contest>(int operations)> make;
};

/// Makes a row known to the benchmark program; the contest is made when its turn comes.
void Register(Row row);

/// Two amounts of memory, in bytes.
struct Amounts {
  double ours = 0;
  double by_hand = 0;
};

/// A row whose first amount may not exceed `target` bytes.
void RegisterAmounts(const std::string& name, double target, std::function<Amounts()> measure);

}  // namespace zef::bench
