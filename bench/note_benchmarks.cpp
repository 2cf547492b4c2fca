#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/benchmarks.h"
#include "bench/by_hand.h"
#include "bench/contest.h"
#include "bench/digest.h"
#include "notes/note.h"

namespace zef::bench {
namespace {

constexpr std::size_t kTextBytes = 1'000'000;
constexpr std::size_t kFileBytes = 10'000'000;

void Require(bool done) {
  if (!done) throw std::runtime_error("a note could not be saved or read");
}

std::uint64_t DigestOfText(std::string_view text) {
  Digest digest;
  digest.Add(text);
  return digest.value();
}

/// Reads one note with a long text.
class LongNoteContest final : public Contest {
 public:
  LongNoteContest(World& world, int reads) : session_(OpenSession(world.Small())), db_(world.Small()), reads_(reads) {
    const Ref<CNote> note = session_->CreateNote();
    Require(note != nullptr);
    while (note->Text->size() < kTextBytes) note->Text += "a line of a long note\r\n";
    Require(note->Save());
    id_ = note->ID;
    select_ = db_.Prepare(
        "SELECT NOT_ID, NOT_FolderID, NOT_CategoryID, NOT_Text, NOT_Title, NOT_DateLastUpdate FROM Notes WHERE "
        "NOT_ID=?1");
  }

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override {
    Ref<CNote> note;
    watch.Start();
    for (int i = 0; i < reads_; ++i) note = session_->GetNote(id_);
    watch.Stop();
    Require(note != nullptr);
    return DigestOfText(note->Text.get());
  }
  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    std::string text;
    watch.Start();
    for (int i = 0; i < reads_; ++i) text = Read();
    watch.Stop();
    return DigestOfText(text);
  }

 private:
  std::string Read() const {
    sqlite3_bind_int(select_.get(), 1, id_);
    Require(db_.Step(select_));
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(select_.get(), 3));
    std::string text(bytes, static_cast<std::size_t>(sqlite3_column_bytes(select_.get(), 3)));
    sqlite3_reset(select_.get());
    return text;
  }

  Ref<CSession> session_;
  HandDatabase db_;
  HandStatement select_;
  int reads_;
  std::int32_t id_ = 0;
};

/// Makes a file of the single-byte encoding a text.
class TextFileContest final : public Contest {
 public:
  explicit TextFileContest(World& world) : session_(OpenSession(world.Small())) {
    std::ofstream file(path_, std::ios::binary);
    for (std::size_t i = 0; i < kFileBytes; ++i) file.put(i % 20 == 19 ? '\xE4' : 'a');
  }

  std::uint64_t Ours(int /*round*/, Stopwatch& watch) override {
    const auto note = MakeRef<CNote>();
    note->SetSession(session_);
    watch.Start();
    const bool read = note->ReadFromFile(path_);
    watch.Stop();
    Require(read);
    return DigestOfText(note->Text.get());
  }
  /// The file's only bytes beyond ASCII are those of Latin-1.
  std::uint64_t ByHand(int /*round*/, Stopwatch& watch) override {
    std::string text;
    watch.Start();
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path_.c_str(), "rb"), std::fclose);
    std::array<unsigned char, 1 << 16> bytes;
    while (const std::size_t count = std::fread(bytes.data(), 1, bytes.size(), file.get())) {
      for (std::size_t i = 0; i < count; ++i) {
        if (bytes[i] < 0x80) {
          text += static_cast<char>(bytes[i]);
        } else {
          text += static_cast<char>(0xC0 | (bytes[i] >> 6));
          text += static_cast<char>(0x80 | (bytes[i] & 0x3F));
        }
      }
    }
    watch.Stop();
    return DigestOfText(text);
  }

 private:
  TemporaryFolder folder_;
  std::string path_ = (folder_.path() / "text.txt").string();
  Ref<CSession> session_;
};

}  // namespace

void RegisterNotes(World& world) {
  Register({.name = "GetNote with a text of 1 MB", .operations = 8, .rounds = world.Rounds(40), .make = [&](int reads) {
              return std::make_unique<LongNoteContest>(world, reads);
            }});
  Register({.name = "ReadFromFile of 10 MB", .rounds = world.Rounds(12), .make = [&](int /*operations*/) {
              return std::make_unique<TextFileContest>(world);
            }});
}

}  // namespace zef::bench
