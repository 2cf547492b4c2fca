#include "platform/text_order.h"

#include <unicode/ucol.h>

#include <limits>
#include <memory>

#include "platform/made_once.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace zef::text {
namespace {

void Require(UErrorCode status) {
  if (U_FAILURE(status)) throw RunTimeError(FailureNumber::InvalidCall, "The order of texts is not available.");
}

/// The root order with two levels: letters, then accents. Comparing does not change it, so all threads share one.
class Collator {
 public:
  Collator() {
    ucol_setStrength(collator_.get(), UCOL_SECONDARY);
    UErrorCode status = U_ZERO_ERROR;
    ucol_setAttribute(collator_.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    Require(status);
  }
  const UCollator* get() const { return collator_.get(); }

 private:
  struct Close {
    void operator()(UCollator* collator) const { ucol_close(collator); }
  };

  static UCollator* Open() {
    UErrorCode status = U_ZERO_ERROR;
    UCollator* const collator = ucol_open("", &status);
    Require(status);
    return collator;
  }

  const std::unique_ptr<UCollator, Close> collator_{Open()};
};

constinit MadeOnce<const Collator> shared_collator;

std::int32_t Size(std::string_view text) {
  if (text.size() > std::numeric_limits<std::int32_t>::max()) throw RunTimeError(FailureNumber::OutOfMemory);
  return static_cast<std::int32_t>(text.size());
}

}  // namespace

int CompareByCollation(std::string_view a, std::string_view b) {
  UErrorCode status = U_ZERO_ERROR;
  const UCollationResult order =
      ucol_strcollUTF8(shared_collator.Get().get(), a.data(), Size(a), b.data(), Size(b), &status);
  Require(status);
  return order;
}

void ReleaseOrder() { shared_collator.Release(); }

}  // namespace zef::text
