#include "platform/stream.h"

#include <array>
#include <limits>
#include <utility>

#include "platform/file.h"
#include "platform/run_time_error.h"

namespace zef {
namespace {

/// Runs `action`; a failure of the file keeps its sentence and takes the number that clients know from streams.
template <class Action>
auto Renumbered(FailureNumber number, Action&& action) -> decltype(action()) {
  try {
    return action();
  } catch (const RunTimeError& failure) {
    throw RunTimeError(number, failure.description());
  }
}

void RequireSize(std::uint64_t size) {
  if (size <= static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max())) return;
  throw RunTimeError(FailureNumber::FileNotRead, "The file is too large.");
}

/// What is in a file, to its end: it may have grown or shrunk since it was opened.
Bytes ReadToEnd(InputFile& file) {
  RequireSize(file.size());
  Bytes bytes(static_cast<std::size_t>(file.size()));
  bytes.resize(file.Read(bytes));
  std::array<std::byte, 4096> more;
  while (const std::size_t count = file.Read(more)) {
    RequireSize(bytes.size() + count);
    bytes.insert(bytes.end(), more.begin(), more.begin() + count);
  }
  return bytes;
}

}  // namespace

void Stream::RequireOpen() const {
  if (!open_) throw RunTimeError(FailureNumber::ObjectClosed);
}

void Stream::Open() {
  if (open_) throw RunTimeError(FailureNumber::ObjectOpen);
  if (Type != adTypeBinary) throw RunTimeError(FailureNumber::InvalidArgument);
  open_ = true;
}

void Stream::Close() {
  RequireOpen();
  bytes_ = Bytes();
  open_ = false;
}

void Stream::LoadFromFile(const std::string& path) {
  RequireOpen();
  auto file = Renumbered(FailureNumber::FileNotOpened, [&] { return InputFile(path); });
  bytes_ = Renumbered(FailureNumber::FileNotRead, [&] { return ReadToEnd(file); });
}

void Stream::SaveToFile(const std::string& path, SaveOption option) {
  RequireOpen();
  if (option != adSaveCreateOverWrite) throw RunTimeError(FailureNumber::InvalidArgument);
  Renumbered(FailureNumber::FileNotWritten, [&] { WriteWholeFile(path, bytes_); });
}

Value Stream::Read() {
  RequireOpen();
  return std::exchange(bytes_, Bytes());
}

void Stream::Write(Value&& content) {
  RequireOpen();
  auto* bytes = std::get_if<Bytes>(&content);
  if (bytes == nullptr) throw RunTimeError(FailureNumber::InvalidArgument);
  bytes_ = std::move(*bytes);
}

}  // namespace zef
