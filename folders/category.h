#pragma once

#include <cstdint>
#include <string>

#include "session/record.h"

namespace zef {

/// A named colour that records refer to by its identifier; two may bear one name. A client makes a category itself and
/// gives it its session; the first `Save` draws the identifier.
class CCategory : public Record<CCategory> {
 public:
  CCategory() = default;

  Property<std::int32_t> Color{*this};  ///< the client's; stored and handed back
  Property<std::string> Name{*this};
  Property<Date> DateLastUpdate{*this};  ///< as last read; `Save` stamps the row, not the object

  void GetValuesFromRS(const Ref<Recordset>& Rs);
  /// Has no transaction of its own. If no identifier can be drawn, the record shows why in the name of the sequence.
  bool Save();
};

}  // namespace zef
