#include "platform/text_file.h"

#include <pthread.h>

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <span>
#include <utility>
#include <variant>

#include "platform/file.h"
#include "platform/made_once.h"
#include "platform/run_time_error.h"
#include "platform/windows_1252.h"

namespace zef {
namespace {

constexpr std::int32_t kLastNumber = 511;
constexpr std::size_t kPortion = 1 << 16;
constexpr std::size_t kMostRead = 1'000'000'000;

/// A file that is read, and how many characters of it have been.
struct InputText {
  explicit InputText(const std::string& path) : file(path) {}

  InputFile file;
  std::size_t read = 0;
};

using OpenFile = std::variant<InputText, OutputFile>;
using OpenFiles = std::map<std::int32_t, OpenFile>;

/// The files of each thread, by the system's own key. A variable of the language that ends with its thread would keep
/// the library mapped until then; a key can be given back. Whatever a thread has left open is closed with it, or here.
class FilesByThread {
 public:
  FilesByThread() {
    if (pthread_key_create(&key_, &EndOfThread) != 0) throw RunTimeError(FailureNumber::TooManyFiles);
  }
  ~FilesByThread() { pthread_key_delete(key_); }
  FilesByThread(const FilesByThread&) = delete;
  FilesByThread& operator=(const FilesByThread&) = delete;

  /// Null if this thread has none.
  OpenFiles* Mine() const { return static_cast<OpenFiles*>(pthread_getspecific(key_)); }
  OpenFiles& Begin() {
    auto files = std::make_unique<OpenFiles>();
    OpenFiles& mine = *files;
    const std::lock_guard lock(mutex_);
    all_.emplace(&mine, std::move(files));
    if (pthread_setspecific(key_, &mine) == 0) return mine;
    all_.erase(&mine);
    throw std::bad_alloc();
  }
  void End() {
    Close(Mine());
    pthread_setspecific(key_, nullptr);
  }

 private:
  static void EndOfThread(void* files);
  void Close(OpenFiles* files) {
    const std::lock_guard lock(mutex_);
    all_.erase(files);
  }

  pthread_key_t key_{};
  std::mutex mutex_;
  std::map<OpenFiles*, std::unique_ptr<OpenFiles>> all_;
};

constinit MadeOnce<FilesByThread> files_by_thread;

void FilesByThread::EndOfThread(void* files) {
  if (FilesByThread* const all = files_by_thread.IfMade()) all->Close(static_cast<OpenFiles*>(files));
}

OpenFiles* MyFiles() {
  const FilesByThread* const all = files_by_thread.IfMade();
  return all == nullptr ? nullptr : all->Mine();
}

OpenFile* FindFile(std::int32_t number) {
  OpenFiles* const files = MyFiles();
  if (files == nullptr) return nullptr;
  const auto file = files->find(number);
  return file == files->end() ? nullptr : &file->second;
}

OpenFile& FileOf(std::int32_t number) {
  OpenFile* const file = FindFile(number);
  if (file == nullptr) throw RunTimeError(FailureNumber::BadFileNumber);
  return *file;
}

/// The file of a number that must be open this way.
template <class Way>
Way& FileOpenAs(std::int32_t number) {
  Way* const file = std::get_if<Way>(&FileOf(number));
  if (file == nullptr) throw RunTimeError(FailureNumber::BadFileMode);
  return *file;
}

template <class Way>
void OpenAs(const std::string& path, std::int32_t number) {
  if (number < 1 || number > kLastNumber) throw RunTimeError(FailureNumber::BadFileNumber);
  if (FindFile(number) != nullptr) throw RunTimeError(FailureNumber::FileNumberTaken);
  OpenFile file(std::in_place_type<Way>, path);
  OpenFiles* const files = MyFiles();
  (files != nullptr ? *files : files_by_thread.Get().Begin()).emplace(number, std::move(file));
}

}  // namespace

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

void OpenForInput(const std::string& path, std::int32_t number) { OpenAs<InputText>(path, number); }

void OpenForOutput(const std::string& path, std::int32_t number) { OpenAs<OutputFile>(path, number); }

std::string Input(std::int32_t number) {
  InputText& text = FileOpenAs<InputText>(number);
  std::array<std::byte, kPortion> bytes;
  const std::size_t count = text.file.Read(bytes);
  text.read += count;
  if (text.read > kMostRead) throw RunTimeError(FailureNumber::PathFileAccess, "The text file is too long.");
  std::string portion;
  AppendFromWindows1252(portion, std::span(bytes.data(), count));
  return portion;
}

void Print(std::int32_t number, std::string_view text) {
  const std::string bytes = ToWindows1252(text);
  FileOpenAs<OutputFile>(number).Write(std::as_bytes(std::span(bytes)));
}

void CloseFile(std::int32_t number) {
  OpenFile file = std::move(FileOf(number));
  OpenFiles& files = *MyFiles();
  files.erase(number);
  if (files.empty()) files_by_thread.Get().End();
  if (auto* const output = std::get_if<OutputFile>(&file)) output->Close();
}

void ReleaseFileNumbers() { files_by_thread.Release(); }

}  // namespace zef
