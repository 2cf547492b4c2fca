#pragma once

#include "session/fields_array.h"
#include "session/record_classes.h"

namespace zef {

// The rows of `FN_SERIALIZE`, labels with values for people, one function for each class that has them. They go into an
// array that is clear and long enough; a failure leaves the rows filled until then. Names of folders, categories and
// statuses are looked up through the record's session each time.

void FillLabels(const CAlarm& alarm, FieldsArray& rows);
void FillLabels(const CAttachement& attachement, FieldsArray& rows);
void FillLabels(const CContact& contact, FieldsArray& rows);
void FillLabels(const CEvent& event, FieldsArray& rows);
void FillLabels(const CNote& note, FieldsArray& rows);
void FillLabels(const CNotification& notification, FieldsArray& rows);
void FillLabels(const CRecurrence& rule, FieldsArray& rows);
void FillLabels(const CTask& task, FieldsArray& rows);

}  // namespace zef
