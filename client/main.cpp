#include <fmt/core.h>

#include <cstdio>
#include <exception>
#include <string>
#include <variant>
#include <vector>

#include "client/arguments.h"
#include "client/commands.h"
#include "client/failure.h"
#include "client/library.h"
#include "client/printable.h"
#include "client/program.h"
#include "client/style.h"

namespace {

using namespace zef::client;

/// What is to be printed.
std::string Answer(std::vector<std::string> words) {
  const auto read = ReadArguments(std::move(words));
  if (const auto* const text = std::get_if<std::string>(&read)) return *text;
  const auto& arguments = std::get<Arguments>(read);
  if (!arguments.library.empty()) UseLibrary(arguments.library);
  Screen screen = TerminalScreen();
  if (arguments.no_colour) screen.colour = false;
  return Run(arguments, screen);
}

/// Raises if the text does not get where it is to go, such as to a full disk.
void Print(const std::string& text) {
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!written || std::fflush(stdout) != 0) throw Failure(kRefused, "The output could not be written.");
}

int Complain(int status, const char* sentence) {
  fmt::print(stderr, "zef: {}\n", Printable(sentence));
  return status;
}

}  // namespace

int main(int count, char** words) {
  try {
    Print(Answer(ProgramWords(count, words)));
    return kDone;
  } catch (const Failure& failure) {
    return Complain(failure.status(), failure.what());
  } catch (const std::exception& failure) {
    return Complain(kRefused, failure.what());
  }
}
