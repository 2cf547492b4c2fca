#pragma once

#include <string>

#include "tests/support/file_numbers.h"
#include "tests/textviews/full_records.h"

namespace zef::test {

/// Exports into a folder of their own, with all file numbers free.
class Export : public FullRecords {
 private:
  FreeFileNumbers free_numbers_;
};

inline std::string ClassName(const CAlarm&) { return "CAlarm"; }
inline std::string ClassName(const CAttachement&) { return "CAttachement"; }
inline std::string ClassName(const CContact&) { return "CContact"; }
inline std::string ClassName(const CEvent&) { return "CEvent"; }
inline std::string ClassName(const CNote&) { return "CNote"; }
inline std::string ClassName(const CNotification&) { return "CNotification"; }
inline std::string ClassName(const CRecurrence&) { return "CRecurrence"; }
inline std::string ClassName(const CTask&) { return "CTask"; }

/// For tests of each class that writes a file of its own.
template <class R>
class ExportOfOwner : public Export {
 protected:
  /// A record whose category cannot be looked up.
  Ref<R> RecordThatCannotBeShown() {
    const Ref<R> record = this->template New<R>();
    record->CategoryID = 901;
    this->Refuse("SELECT * FROM Categories");
    return record;
  }
  static std::string Member(const std::string& member) { return ClassName(*MakeRef<R>()) + "." + member; }
};
using Owners = testing::Types<CAlarm, CContact, CEvent, CNote, CTask>;

/// For tests of each class that writes to its owner's file, which is open under number 1.
template <class Child>
class ExportOfChild : public Export {
 protected:
  ExportOfChild() { OpenForOutput(this->Path(), 1); }
  const Ref<Child> child = this->template New<Child>();
};
using Children = testing::Types<CNotification, CRecurrence, CAttachement>;

}  // namespace zef::test
