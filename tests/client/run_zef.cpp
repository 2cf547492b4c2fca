#include "tests/client/run_zef.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace zef::test {
namespace {

constexpr unsigned kSecondsToLive = 60;

/// Without the streams of the library: they hold what the test has yet to print.
bool Redirect(const char* path, int descriptor) {
  const int file = open(path, O_RDWR | O_CREAT | O_TRUNC, S_IRUSR | S_IWUSR);
  return file >= 0 && dup2(file, descriptor) >= 0;
}

/// Becomes the program; comes back only if it could not be started.
void Become(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<std::string> words{program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  alarm(kSecondsToLive);
  execvp(program.c_str(), pointers.data());
}

bool LeaveTerminal() {
  return Redirect("/dev/null", STDIN_FILENO) && Redirect(".out", STDOUT_FILENO) && Redirect(".err", STDERR_FILENO);
}

/// The text of a file, which is removed.
std::string Taken(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  std::filesystem::remove(path);
  return text;
}

}  // namespace

Ended RunZef(const std::filesystem::path& folder, const std::vector<std::string>& arguments) {
  return RunProgram(folder, ZEF_BINARY, arguments);
}

Ended RunProgram(const std::filesystem::path& folder, const std::string& program,
                 const std::vector<std::string>& arguments) {
  const pid_t child = fork();
  if (child == 0) {
    if (chdir(folder.c_str()) == 0 && LeaveTerminal()) Become(program, arguments);
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Taken(folder / ".out"), Taken(folder / ".err")};
}

std::string ShownOnTerminal(const std::filesystem::path& folder, const std::vector<std::string>& arguments,
                            unsigned short width) {
  int terminal = -1;
  const winsize size{.ws_row = 24, .ws_col = width, .ws_xpixel = 0, .ws_ypixel = 0};
  const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
  if (child == 0) {
    setenv("TERM", "xterm", 1);
    if (chdir(folder.c_str()) == 0) Become(ZEF_BINARY, arguments);
    _exit(127);
  }
  std::string shown;
  std::array<char, 4096> part{};
  for (ssize_t count = 0; (count = read(terminal, part.data(), part.size())) > 0;) {
    shown.append(part.data(), static_cast<std::size_t>(count));
  }
  close(terminal);
  waitpid(child, nullptr, 0);
  return shown;
}

std::string ZefTest::Printed(const std::vector<std::string>& arguments) const {
  const Ended run = Zef(arguments);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  return run.out;
}

std::string ZefTest::Complaint(int status, const std::vector<std::string>& arguments) const {
  const Ended run = Zef(arguments);
  EXPECT_EQ(run.status, status) << run.out << run.err;
  EXPECT_EQ(run.out, "");
  return run.err;
}

std::string ZefTest::Stored(const std::string& select) const {
  auto connection = MakeRef<Connection>();
  connection->Open("Provider=SQLite;Data Source=" + File("people.db").string());
  return Scalar(*connection, select);
}

}  // namespace zef::test
