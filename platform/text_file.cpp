#include "platform/text_file.h"

#include <pthread.h>

#include <map>
#include <memory>
#include <new>
#include <span>
#include <utility>

#include "platform/made_once.h"
#include "platform/run_time_error.h"
#include "platform/windows_1252.h"

namespace zef {
namespace {

constexpr std::int32_t kLastNumber = 511;

using OpenFiles = std::map<std::int32_t, OutputFile>;

/// The files of each thread, by the system's own key. A variable of the language that ends with its thread would keep
/// the library mapped until then; a key can be given back.
class FilesByThread {
 public:
  FilesByThread() {
    if (pthread_key_create(&key_, &End) != 0) throw RunTimeError(FailureNumber::TooManyFiles);
  }
  /// Closes what this thread has left open. A file of another thread stays open until the process ends.
  ~FilesByThread() {
    End(Mine());
    pthread_key_delete(key_);
  }
  FilesByThread(const FilesByThread&) = delete;
  FilesByThread& operator=(const FilesByThread&) = delete;

  /// Null if this thread has none.
  OpenFiles* Mine() const { return static_cast<OpenFiles*>(pthread_getspecific(key_)); }
  OpenFiles& Begin() {
    auto files = std::make_unique<OpenFiles>();
    if (pthread_setspecific(key_, files.get()) != 0) throw std::bad_alloc();
    return *files.release();
  }
  void End() {
    End(Mine());
    pthread_setspecific(key_, nullptr);
  }

 private:
  static void End(void* files) { delete static_cast<OpenFiles*>(files); }

  pthread_key_t key_{};
};

constinit MadeOnce<FilesByThread> files_by_thread;

OpenFiles* MyFiles() {
  const FilesByThread* const all = files_by_thread.IfMade();
  return all == nullptr ? nullptr : all->Mine();
}

OutputFile* FindFile(std::int32_t number) {
  OpenFiles* const files = MyFiles();
  if (files == nullptr) return nullptr;
  const auto file = files->find(number);
  return file == files->end() ? nullptr : &file->second;
}

OutputFile& FileOf(std::int32_t number) {
  OutputFile* const file = FindFile(number);
  if (file == nullptr) throw RunTimeError(FailureNumber::BadFileNumber);
  return *file;
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
  const OpenFiles* const files = MyFiles();
  if (files == nullptr) return 1;
  std::int32_t number = 1;
  for (const auto& [taken, file] : *files) {
    if (taken != number) break;
    ++number;
  }
  if (number > kLastNumber) throw RunTimeError(FailureNumber::TooManyFiles);
  return number;
}

void OpenForOutput(const std::string& path, std::int32_t number) {
  if (number < 1 || number > kLastNumber) throw RunTimeError(FailureNumber::BadFileNumber);
  if (FindFile(number) != nullptr) throw RunTimeError(FailureNumber::FileNumberTaken);
  OutputFile file(path);
  OpenFiles* const files = MyFiles();
  (files != nullptr ? *files : files_by_thread.Get().Begin()).emplace(number, std::move(file));
}

void Print(std::int32_t number, std::string_view text) {
  const std::string bytes = ToWindows1252(text);
  FileOf(number).Write(std::as_bytes(std::span(bytes)));
}

void CloseFile(std::int32_t number) {
  OutputFile file = std::move(FileOf(number));
  OpenFiles& files = *MyFiles();
  files.erase(number);
  if (files.empty()) files_by_thread.Get().End();
  file.Close();
}

void ReleaseFileNumbers() { files_by_thread.Release(); }

}  // namespace zef
