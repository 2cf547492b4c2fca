#include "platform/text_file.h"

#include <map>
#include <span>

#include "platform/run_time_error.h"
#include "platform/windows_1252.h"

namespace zef {
namespace {

constexpr std::int32_t kLastNumber = 511;

using OpenFiles = std::map<std::int32_t, OutputFile>;
thread_local OpenFiles open_files;

OpenFiles::iterator FileOf(std::int32_t number) {
  const auto file = open_files.find(number);
  if (file == open_files.end()) throw RunTimeError(FailureNumber::BadFileNumber);
  return file;
}

}  // namespace

TextReader::TextReader(const std::string& path) : file_((FreeFile(), path)) {}

const std::string& TextReader::Next() {
  portion_.clear();
  const std::size_t count = file_.Read(bytes_);
  read_ += count;
  if (read_ > kMost) throw RunTimeError(FailureNumber::PathFileAccess, "The text file is too long.");
  AppendFromWindows1252(portion_, std::span(bytes_.data(), count));
  return portion_;
}

std::int32_t FreeFile() {
  std::int32_t number = 1;
  for (const auto& [taken, file] : open_files) {
    if (taken != number) break;
    ++number;
  }
  if (number > kLastNumber) throw RunTimeError(FailureNumber::TooManyFiles);
  return number;
}

void OpenForOutput(const std::string& path, std::int32_t number) {
  if (number < 1 || number > kLastNumber) throw RunTimeError(FailureNumber::BadFileNumber);
  if (open_files.contains(number)) throw RunTimeError(FailureNumber::FileNumberTaken);
  open_files.emplace(number, OutputFile(path));
}

void Print(std::int32_t number, std::string_view text) {
  const std::string bytes = ToWindows1252(text);
  FileOf(number)->second.Write(std::as_bytes(std::span(bytes)));
}

void CloseFile(std::int32_t number) {
  const auto open_file = FileOf(number);
  OutputFile file = std::move(open_file->second);
  open_files.erase(open_file);
  file.Close();
}

}  // namespace zef
