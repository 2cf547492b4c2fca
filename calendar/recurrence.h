#pragma once

#include <cstdint>
#include <string_view>

#include "calendar/recurrence_type.h"
#include "session/record.h"

namespace zef {

/// The sequence that numbers rules.
inline constexpr std::int32_t kRecurrenceSequence = 8;

/// One repetition rule: how often something comes back, on which days, and when that stops. What `Options1`,
/// `Options2`, `SubType` and `WeekNumber` say depends on the type. Weekdays and months count from 0, Monday and
/// January; week number 4 is the last one. A rule does not know its owner.
class CRecurrence : public Record<CRecurrence> {
 public:
  /// Selects one row; its key follows.
  static constexpr std::string_view kSelectRow = "SELECT * FROM Recurrences WHERE REC_ID=";

  CRecurrence() = default;

  /// The zero date means no end; a new rule ends at the moment of its creation until the client says otherwise.
  Property<Date> EndDate{*this, Now()};
  Property<std::int32_t> Options1{*this};
  Property<std::int32_t> Options2{*this};
  Property<std::int32_t> SubType{*this};
  Property<std::int32_t> WeekNumber{*this};
  Property<std::int32_t> OccurencesNo{*this, 1};  ///< counted down by the owner; 0 means no limit
  Property<std::int32_t> RType{*this};            ///< a `RecurrenceType`, not checked

  /// True for `REC_EMPTY`, whatever else the rule holds.
  bool IsEmpty() const { return RType == REC_EMPTY; }

  void GetValuesFromRS(const Ref<Recordset>& Rs);
  bool Save();
  bool GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const;
  /// Writes the rule in words, in labelled lines, to a file that the owner has open.
  bool Save2File(std::int32_t lngFileNumber) const;
  /// The next occurrence after a date, or the zero date if there is none or the rule cannot be worked out. Changes
  /// nothing and records nothing.
  Date NextOccuranceDate(Date dtmReference) const noexcept;

 private:
  friend struct RecurrenceColumns;

  /// A Boolean that is one bit of the rule's days.
  template <int Bit>
  class Weekday {
   public:
    using Held = bool;

    explicit Weekday(CRecurrence& rule) : rule_(rule) {}
    Weekday(const Weekday&) = delete;

    Weekday& operator=(const Weekday& other) { return *this = static_cast<bool>(other); }
    Weekday& operator=(bool set) {
      if (set != static_cast<bool>(*this)) rule_->FlipDay(1 << Bit);
      return *this;
    }
    operator bool() const { return (rule_->days_ & (1 << Bit)) != 0; }

   private:
    WayTo<CRecurrence> rule_;
  };

  void FlipDay(std::int32_t bit) {
    days_ ^= bit;
    MarkModified();
  }

  std::int32_t days_ = 0;   ///< weekday bits, bit 0 Monday
  std::int32_t month_ = 0;  ///< without a meaning; what a row holds is written back

 public:
  Weekday<0> Monday{*this};
  Weekday<1> Tuesday{*this};
  Weekday<2> Wendsday{*this};
  Weekday<3> Thursday{*this};
  Weekday<4> Friday{*this};
  Weekday<5> Saturday{*this};
  Weekday<6> Sunday{*this};
};

}  // namespace zef
