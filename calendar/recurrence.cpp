#include "calendar/recurrence.h"

#include "calendar/next_occurrence.h"
#include "session/operations.h"
#include "textviews/labels.h"

namespace zef {
namespace {

constexpr char kFieldsArray[] = "CRecurrence.GetFieldsArray";

}  // namespace

struct RecurrenceColumns {
  static constexpr Column<CRecurrence> kList[] = {
      Key<CRecurrence>("REC_ID"),
      Stored<CRecurrence>("REC_Type", &CRecurrence::RType, 4),
      Stored<CRecurrence>("REC_OccurencesNo", &CRecurrence::OccurencesNo, 0),
      Stored<CRecurrence>("REC_Options1", &CRecurrence::Options1, 1),
      Stored<CRecurrence>("REC_Options2", &CRecurrence::Options2, 2),
      Stored<CRecurrence>("REC_SubType", &CRecurrence::SubType, 3),
      Stored<CRecurrence>("REC_Day", &CRecurrence::days_, 6),
      Stored<CRecurrence>("REC_Month", &CRecurrence::month_, 7),
      Stored<CRecurrence>("REC_WeekNumber", &CRecurrence::WeekNumber, 8),
      Stored<CRecurrence>("REC_EndDate", &CRecurrence::EndDate, 5),
  };
  static constexpr Table kTable{"Recurrences", kList, 15};
};

void CRecurrence::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, RecurrenceColumns::kTable, Deref(Rs));
  SetFlags(false, false);
}

bool CRecurrence::GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const {
  return FillFieldsArray(*this, RecurrenceColumns::kTable, kFieldsArray, enmType, strFields, lngFieldsCount);
}

bool CRecurrence::Save() {
  return SaveDrawingID(RecurrenceColumns::kTable, "CRecurrence.Save", kFieldsArray, kRecurrenceSequence);
}

Date CRecurrence::NextOccuranceDate(Date dtmReference) const noexcept {
  const Rule rule{.type = RType,
                  .sub_type = SubType,
                  .options1 = Options1,
                  .options2 = Options2,
                  .week_number = WeekNumber,
                  .days = days_,
                  .end = EndDate};
  return NextOccurrence(rule, dtmReference);
}

Ref<CRecurrence> CSession::GetRecurrence(std::int32_t lngRecurrenceID) {
  return GetRecord<CRecurrence>(*this, "GetRecurrence", CRecurrence::kSelectRow, lngRecurrenceID);
}

bool CSession::DeleteRecurrence(std::int32_t lngRecurrenceID) {
  return DeleteRow(*this, "DeleteRecurrence", "DELETE * FROM Recurrences WHERE REC_ID=", lngRecurrenceID);
}

}  // namespace zef
