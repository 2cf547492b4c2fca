#pragma once

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>

namespace zef::test {

/// Lets this process, which should be a `Process`, have so much memory of its own at most.
void LimitMemory(std::size_t bytes);

/// A piece of work in a process of its own, which runs from construction on. No connection may be open when it is made:
/// the engine's locks are the business of one process.
class Process {
 public:
  /// One that hangs ends by itself after `seconds_to_live`, and with it the test.
  explicit Process(const std::function<std::string()>& work, unsigned seconds_to_live = 60);
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  /// Waits for the end and gives what the work returned; "raised " and the sentence if it raised a failure, nothing if
  /// it died.
  std::string Result();
  /// Ends it at once, as `kill -9` does; it gets no chance to clean up.
  void Kill();

 private:
  pid_t child_ = -1;
  int result_ = -1;
};

}  // namespace zef::test
