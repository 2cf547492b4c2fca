#include "client/record_info.h"

#include <array>

namespace zef::client {

RuleSpec SpecOf(const CRecurrence& rule) {
  RuleSpec spec{.type = rule.RType};
  if (spec.type == kNoRule) return spec;
  const std::array<bool, 7> days{rule.Monday, rule.Tuesday,  rule.Wendsday, rule.Thursday,
                                 rule.Friday, rule.Saturday, rule.Sunday};
  spec.sub_type = rule.SubType;
  spec.options1 = rule.Options1;
  spec.options2 = rule.Options2;
  spec.week_number = rule.WeekNumber;
  spec.end = rule.EndDate;
  spec.occurrences = rule.OccurencesNo;
  for (std::size_t i = 0; i < days.size(); ++i) spec.days |= static_cast<std::int32_t>(days[i]) << i;
  return spec;
}

FolderInfo InfoOf(const CFolder& folder) {
  return {.id = folder.ID,
          .parent = folder.ParentID,
          .kind = folder.ItemsType,
          .is_protected = folder.Protected,
          .shows_all = folder.IsAllEventsFolder() || folder.IsAllTasksFolder(),
          .name = folder.Name,
          .description = folder.Description};
}

TaskInfo InfoOf(const CTask& task) {
  return {.id = task.ID,
          .folder = task.FolderID,
          .name = task.Name,
          .description = task.Description,
          .assigned_to = task.AssignedTo,
          .priority = task.Priority,
          .start = task.StartDate,
          .due = task.DueDate,
          .done = task.Completed > 0,
          .rule = SpecOf(task.Recurrence)};
}

EventInfo InfoOf(const CEvent& event) {
  return {.id = event.ID,
          .folder = event.FolderID,
          .text = event.Text,
          .location = event.Location,
          .start = event.StartDate,
          .end = event.EndDate,
          .reminder = event.Reminder,
          .type = event.EType,
          .link = event.LinkID,
          .rule = SpecOf(event.Recurrence)};
}

void WriteRule(const RuleSpec& spec, CRecurrence rule) {
  if (spec.type == kNoRule) return;
  rule.RType = static_cast<RecurrenceType>(spec.type);
  rule.SubType = spec.sub_type;
  rule.Options1 = spec.options1;
  rule.Options2 = spec.options2;
  rule.WeekNumber = spec.week_number;
  rule.EndDate = spec.end;
  rule.OccurencesNo = spec.occurrences;
  const auto falls_on = [&](int bit) { return (spec.days >> bit & 1) != 0; };
  rule.Monday = falls_on(0);
  rule.Tuesday = falls_on(1);
  rule.Wendsday = falls_on(2);
  rule.Thursday = falls_on(3);
  rule.Friday = falls_on(4);
  rule.Saturday = falls_on(5);
  rule.Sunday = falls_on(6);
}

CRecurrence RecordOf(const RuleSpec& spec) {
  CRecurrence rule = Make<CRecurrence>();
  WriteRule(spec, rule);
  return rule;
}

}  // namespace zef::client
