#pragma once

#include <string>

namespace zef::client {

/// A line on a terminal that tells what a long command is doing, each text in the place of the one before; gone with
/// the object. It stands on standard error; if that is no terminal, or a plain one, nothing is told.
class Progress {
 public:
  Progress();
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Tell(const std::string& text);

 private:
  bool on_terminal_;
  std::string shown_;
};

}  // namespace zef::client
