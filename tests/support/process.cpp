#include "tests/support/process.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <utility>

#include "platform/run_time_error.h"

namespace zef::test {
namespace {

std::string ResultOf(const std::function<std::string()>& work) {
  try {
    return work();
  } catch (const RunTimeError& failure) {
    return "raised " + failure.description();
  }
}

void WriteAll(int file, const std::string& text) {
  for (std::size_t done = 0; done < text.size();) {
    const ssize_t written = write(file, text.data() + done, text.size() - done);
    if (written <= 0) return;
    done += static_cast<std::size_t>(written);
  }
}

}  // namespace

Process::Process(const std::function<std::string()>& work, unsigned seconds_to_live) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw RunTimeError(FailureNumber::PathFileAccess, "no pipe");
  child_ = fork();
  if (child_ == 0) {
    close(ends[0]);
    alarm(seconds_to_live);
    WriteAll(ends[1], ResultOf(work));
    _exit(0);  // what the parent owns is not the child's to clean up
  }
  close(ends[1]);
  result_ = ends[0];
}

void Process::Kill() { kill(child_, SIGKILL); }

Process::~Process() { Result(); }

std::string Process::Result() {
  if (result_ < 0) return {};
  std::string text;
  std::array<char, 4096> part{};
  for (ssize_t size = 0; (size = read(result_, part.data(), part.size())) > 0;) {
    text.append(part.data(), static_cast<std::size_t>(size));
  }
  close(std::exchange(result_, -1));
  waitpid(std::exchange(child_, -1), nullptr, 0);
  return text;
}

void LimitMemory(std::size_t bytes) {
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_DATA, &limit);
}

}  // namespace zef::test
