#pragma once

#include <cstdint>
#include <string>

#include "session/record.h"

namespace zef {

/// One account of the database. A client makes a user itself and gives it its session; the first `Save` draws the
/// identifier. Passwords are stored as they are given, in clear.
class CUser : public Record<CUser> {
 public:
  CUser() = default;

  Property<std::string> Name{*this};      ///< what the user logs in with; two may bear one name
  Property<std::string> Password{*this};  ///< empty for none
  Property<std::string> FullName{*this};
  Property<std::int32_t> Rights{
      *this};  ///< a mask of `Rights`; it takes effect once the client gives it to the session
  Property<std::string> Email{*this};
  Property<Date> DateLastUpdate{*this};  ///< as last read; `Save` stamps the row, not the object
  Property<Date> CreationDate{*this, Now()};

  void GetValuesFromRS(const Ref<Recordset>& Rs);
  /// Checks no rights, so that everybody may change the own account, and has no transaction of its own. If no
  /// identifier can be drawn, the record shows why in the name of the sequence.
  bool Save();

  // The bits of this user's rights, whatever the session's are.

  bool IsAdministrator() const { return (Rights.get() & zef::Administrator) != 0; }
  bool IsDataEditor() const { return (Rights.get() & zef::DataEditor) != 0; }
  bool IsDataViewer() const { return (Rights.get() & zef::DataViewer) != 0; }
  /// The rights in words, by the first bit that is set: "Full/Read/Write", "Read/Write" or "Read only"; empty without
  /// any.
  std::string UserType() const;
};

}  // namespace zef
