#include "tests/textviews/full_records.h"

namespace zef::test {
namespace {

using Labels = FullRecords;

TEST_F(Labels, NoteHasTenRowsThoughFiveAreFilled) {
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_TRUE(FullNote()->GetFieldsArray(FN_SERIALIZE, fields, count));
  EXPECT_EQ(count, 10);
  EXPECT_EQ(LabelRows(*FullNote()).size(), 5u);
}

TEST_F(Labels, TaskWithoutAStatusHasAnEmptyOneAndMakesNoLookup) {
  EXPECT_EQ(LabelRow(*New<CTask>(), 4), "Status:|");
  EXPECT_EQ(Sent(), Texts{});
}

TEST_F(Labels, NamesCostOneQueryEach) {
  LabelRows(*FullTask());
  EXPECT_EQ(Sent(), (Texts{"SELECT * FROM Folders WHERE FLD_ID=900", "SELECT * FROM Categories WHERE CAT_ID=901",
                           "SELECT * FROM lstTaskStatus WHERE TS_ID=902"}));
}

TEST_F(Labels, NamesAreLookedUpAgainEachTime) {
  LabelRows(*FullNote());
  LabelRows(*FullNote());
  EXPECT_EQ(Sent().size(), 4u);
}

TEST_F(Labels, ReferencesBelowOneAreEmptyAndMakeNoLookup) {
  const Ref<CTask> task = New<CTask>();
  for (const std::int32_t none : {0, -1}) {
    task->FolderID = task->CategoryID = task->StatusID = none;
    const Texts rows = LabelRows(*task);
    EXPECT_EQ(Texts(rows.begin() + 2, rows.begin() + 5), (Texts{"Folder:|", "Category:|", "Status:|"})) << none;
  }
  EXPECT_EQ(Sent(), Texts{});
}

TEST_F(Labels, RecordWithoutReferencesNeedsNoSession) {
  EXPECT_EQ(LabelRows(*MakeRef<CTask>()), LabelRows(*New<CTask>()));
  EXPECT_EQ(LabelRows(*MakeRef<CContact>()), LabelRows(*New<CContact>()));
}

TEST_F(Labels, ReferenceWithoutASessionIsRaised) {
  const Ref<CNote> note = MakeRef<CNote>();
  note->FolderID = 900;
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_EQ(NumberRaised([&] { note->GetFieldsArray(FN_SERIALIZE, fields, count); }), 91);
}

TEST_F(Labels, CategoryWithoutARowIsEmpty) {
  const Ref<CNote> note = New<CNote>();
  note->CategoryID = 12345;
  EXPECT_EQ(LabelRow(*note, 3), "Category:|");
}

TEST_F(Labels, NegativeReminderIsEmpty) {
  const Ref<CAlarm> alarm = New<CAlarm>();
  alarm->Reminder = -1;
  EXPECT_EQ(LabelRow(*alarm, 4), "Reminder:|");
}

TEST_F(Labels, StartOfAnAlarmThatIsZeroIsEmpty) {
  const Ref<CAlarm> alarm = New<CAlarm>();
  alarm->StartDate = Date();
  EXPECT_EQ(LabelRow(*alarm, 3), "Start date:|");
}

TEST_F(Labels, DatesOfAnEventThatAreZeroAreEmpty) {
  const Ref<CEvent> event = New<CEvent>();
  event->StartDate = Date();
  event->EndDate = Date();
  EXPECT_EQ(LabelRow(*event, 1), "Start date:|");
  EXPECT_EQ(LabelRow(*event, 2), "End date:|");
}

TEST_F(Labels, DatesOfAContactThatAreZeroAreShown) {
  EXPECT_EQ(LabelRow(*New<CContact>(), 40), "Birth date|12/30/1899");
}

TEST_F(Labels, SendingDateThatIsZeroIsEmpty) {
  const Ref<CNotification> notification = New<CNotification>();
  notification->SendingDate = Date();
  EXPECT_EQ(LabelRow(*notification, 6), "Sending date|");
}

TEST_F(Labels, StatusOfANotificationIsAWord) {
  const Ref<CNotification> notification = New<CNotification>();
  const Texts words = {"Not sent", "Sent OK", "Errors", "Inactive"};
  for (std::int32_t status = 0; status < 4; ++status) {
    notification->Status = status;
    EXPECT_EQ(LabelRow(*notification, 5), "Status:|" + words[static_cast<std::size_t>(status)]);
  }
}

TEST_F(Labels, StatusOfANotificationThatIsUnknownIsEmpty) {
  const Ref<CNotification> notification = New<CNotification>();
  for (const std::int32_t status : {9, 4, -1}) {
    notification->Status = status;
    EXPECT_EQ(LabelRow(*notification, 5), "Status:|") << status;
  }
}

// ---- The array

/// What `GetFieldsArray` makes, into an array and a number that come from elsewhere.
struct Delivered {
  template <class R>
  Delivered(const R& record, FieldType type) : done(record.GetFieldsArray(type, fields, count)) {
    for (std::int32_t row = 0; row <= fields.LastRow(); ++row) {
      for (std::int32_t column = 0; column <= fields.LastColumn(); ++column) texts += fields(row, column);
    }
  }
  std::string Size() const {
    return std::to_string(count) + ": " + std::to_string(fields.LastRow()) + "," + std::to_string(fields.LastColumn());
  }

  FieldsArray fields{60, 60};
  std::int32_t count = 99;
  bool done;
  std::string texts;
};

template <class R>
constexpr const char* kSize = "15: 15,2";
template <>
constexpr const char* kSize<CAttachement> = "10: 10,2";
template <>
constexpr const char* kSize<CContact> = "50: 50,2";
template <>
constexpr const char* kSize<CNote> = "10: 10,10";
template <>
constexpr const char* kSize<CTask> = "25: 25,2";

template <class R>
class ArrayOfLabels : public ViewTest {};
using Classes = testing::Types<CAlarm, CAttachement, CContact, CEvent, CNote, CNotification, CRecurrence, CTask>;
TYPED_TEST_SUITE(ArrayOfLabels, Classes);

TYPED_TEST(ArrayOfLabels, HasTheSizeOfItsClass) {
  const Delivered labels(*this->template New<TypeParam>(), FN_SERIALIZE);
  EXPECT_TRUE(labels.done);
  EXPECT_EQ(labels.Size(), kSize<TypeParam>);
}

TYPED_TEST(ArrayOfLabels, HasTextsInItsFirstTwoColumnsOnly) {
  const Delivered labels(*this->template New<TypeParam>(), FN_SERIALIZE);
  for (std::int32_t row = 0; row <= labels.fields.LastRow(); ++row) {
    for (std::int32_t column = 2; column <= labels.fields.LastColumn(); ++column) {
      EXPECT_EQ(labels.fields(row, column), "") << row << "," << column;
    }
  }
}

TYPED_TEST(ArrayOfLabels, OfAnotherTypeHasItsSizeAndNoTexts) {
  for (const std::int32_t type : {0, 3, -1}) {
    const Delivered nothing(*this->template New<TypeParam>(), static_cast<FieldType>(type));
    EXPECT_TRUE(nothing.done);
    EXPECT_EQ(nothing.Size(), kSize<TypeParam>);
    EXPECT_EQ(nothing.texts, "");
  }
}

// ---- Failures

/// Expects that the rows of a record cannot be had, and gives those that were filled.
template <class R>
FieldsArray RowsOfFailure(const R& record) {
  FieldsArray fields;
  std::int32_t count = 0;
  EXPECT_FALSE(record.GetFieldsArray(FN_SERIALIZE, fields, count));
  return fields;
}

TEST_F(Labels, LookupOfAFolderThatFailsIsRecorded) {
  Refuse("SELECT * FROM Folders");
  RowsOfFailure(*FullNote());
  EXPECT_EQ(session->GetErrorProcedure(), "CNote.GetFieldsArray");
  EXPECT_EQ(session->GetErrorDescription(), "made to fail");
}

TEST_F(Labels, LookupOfACategoryThatFailsIsRecorded) {
  Refuse("SELECT * FROM Categories");
  RowsOfFailure(*FullEvent());
  EXPECT_EQ(session->GetErrorProcedure(), "CEvent.GetFieldsArray");
}

TEST_F(Labels, LookupOfAStatusThatFailsIsRecorded) {
  Refuse("SELECT * FROM lstTaskStatus");
  RowsOfFailure(*FullTask());
  EXPECT_EQ(session->GetErrorProcedure(), "CTask.GetFieldsArray");
}

TEST_F(Labels, FolderWithoutARowIsAFailure) {
  const Ref<CAlarm> alarm = New<CAlarm>();
  alarm->FolderID = 12345;
  RowsOfFailure(*alarm);
  EXPECT_EQ(session->GetErrorProcedure(), "CAlarm.GetFieldsArray");
  EXPECT_EQ(session->GetErrorCode(), 91);
}

TEST_F(Labels, StatusWithoutARowIsAFailure) {
  const Ref<CTask> task = New<CTask>();
  task->StatusID = 12345;
  RowsOfFailure(*task);
  EXPECT_EQ(session->GetErrorCode(), 91);
}

TEST_F(Labels, RowsBeforeAFailureStay) {
  Refuse("SELECT * FROM Categories");
  const FieldsArray fields = RowsOfFailure(*FullNote());
  EXPECT_EQ(fields(2, 0) + fields(2, 1), "Folder:Müller's");
  EXPECT_EQ(fields(4, 0) + fields(4, 1), "");
}

TEST_F(Labels, DateOutOfRangeIsAFailure) {
  const Ref<CTask> task = New<CTask>();
  task->DueDate = Date(1e9);
  RowsOfFailure(*task);
  EXPECT_EQ(session->GetErrorCode(), 5);
}

}  // namespace
}  // namespace zef::test
