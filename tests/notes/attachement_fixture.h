#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "notes/attachement.h"
#include "tests/support/column_cases.h"
#include "tests/support/record_fixture.h"

namespace zef::test {

/// Names a folder of its own as the temporary folder for as long as it lives.
class TemporaryFolderOverride {
 public:
  explicit TemporaryFolderOverride(const std::string& path) {
    if (const char* old = getenv("TMPDIR")) old_ = old;
    setenv("TMPDIR", path.c_str(), 1);
  }
  ~TemporaryFolderOverride() { old_ ? setenv("TMPDIR", old_->c_str(), 1) : unsetenv("TMPDIR"); }
  TemporaryFolderOverride(const TemporaryFolderOverride&) = delete;
  TemporaryFolderOverride& operator=(const TemporaryFolderOverride&) = delete;

 private:
  std::optional<std::string> old_;
};

/// Tests around one attachment, with a folder for its source and one for cache files.
class AttachementTest : public RecordTest {
 protected:
  std::string SourcePath() const { return (sources_.path() / "source.bin").string(); }
  std::string CachePath(const std::string& name) const { return (cache_.path() / name).string(); }
  /// Makes the source file.
  void PutSource(const std::string& content) const { std::ofstream(SourcePath(), std::ios::binary) << content; }
  static std::string ContentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::vector<std::string> CacheFiles() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(cache_.path())) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  Ref<CAttachement> NewAttachement() {
    auto attachement = MakeRef<CAttachement>();
    attachement->SetSession(session);
    return attachement;
  }
  /// A new attachment of the source file with all properties set.
  Ref<CAttachement> FullAttachement(const std::string& content = "the content") {
    PutSource(content);
    Ref<CAttachement> attachement = NewAttachement();
    attachement->Name = "O'Brien's photo 📷";
    attachement->DocType = "jpg";
    attachement->Description = "In the 'garden'";
    attachement->FileName = SourcePath();
    return attachement;
  }
  /// The same, stored under number 1 and loaded.
  Ref<CAttachement> LoadedAttachement(const std::string& content = "the content") {
    EXPECT_TRUE(FullAttachement(content)->Save()) << session->GetEntireErrorDesc();
    Ref<CAttachement> attachement = session->GetAttachement(1);
    Forget();
    return attachement;
  }

 private:
  TemporaryFolder sources_;
  TemporaryFolder cache_;
  TemporaryFolderOverride override_{cache_.path().string()};
};

}  // namespace zef::test
