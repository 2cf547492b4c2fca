#pragma once

#include <cstdint>
#include <string>

#include "session/record.h"

namespace zef {

/// Who called. Values are stored.
enum CallDirection : std::int32_t { DIR_INCOMING = 0, DIR_OUTGOING = 1 };

/// One telephone call. It may name a contact, which need not exist; the number is the client's and is not taken from
/// there.
class CPhoneLog : public Record<CPhoneLog> {
 public:
  CPhoneLog() = default;

  Property<std::int32_t> ContactID{*this};
  Property<std::int32_t> Direction{*this};  ///< a `CallDirection`
  Property<Date> RecordDate{*this};
  Property<std::string> Subject{*this};
  Property<std::string> PhoneNumber{*this};
  Property<std::string> Notes{*this};
  Property<Date> DateLastUpdate{*this};  ///< written as it stands: no `Save` stamps it

  void GetValuesFromRS(const Ref<Recordset>& Rs);
  /// Writes the row if something changed; joins a transaction that runs and opens none.
  bool Save();
};

}  // namespace zef
