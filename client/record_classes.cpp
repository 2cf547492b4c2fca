#include "client/record_classes.h"

#include <filesystem>

#include "addressbook/contact.h"
#include "addressbook/phone_log.h"
#include "calendar/alarm.h"
#include "calendar/event.h"
#include "client/record_info.h"
#include "folders/category.h"
#include "folders/folder.h"
#include "notes/note.h"
#include "tasks/task.h"
#include "users/user.h"

namespace zef::client {
namespace {

constexpr bool kKept = true;

template <class Item>
PropertyValue RuleOf(const Item& item) {
  return SpecOf(*item.Recurrence);
}

/// Only readable by itself: the words of a rule depend on one another, and the commands that make one put it together.
template <class Item>
void SetRule(Item& item, const PropertyValue& rule) {
  WriteRule(std::get<RuleSpec>(rule), *item.Recurrence);
}

template <class Item>
constexpr Member<Item> Rule() {
  return {"Recurrence", Derived<Item>{PropertyType::Rule, &RuleOf<Item>, &SetRule<Item>}, kKept};
}

PropertyValue AttachedName(const CAlarm& alarm) { return alarm.Attachement->Name.get(); }

/// Attaches the file of a path; an empty path takes the file away.
void Attach(CAlarm& alarm, const PropertyValue& value) {
  const std::filesystem::path path(std::get<std::string>(value));
  CAttachement& file = *alarm.Attachement;
  file.Name = path.filename().string();
  file.DocType = path.has_extension() ? path.extension().string().substr(1) : std::string();
  file.FileName = path.empty() ? std::string() : std::filesystem::absolute(path).lexically_normal().string();
  file.Description = std::string();
  if (!path.empty()) file.ResetFlagsX(true, file.IsNew());  // the same path may hold another content by now
}

PropertyValue TypeOf(const CUser& user) { return user.UserType(); }

void SetPassword(CUser& user, const PropertyValue& password) { user.Password = std::get<std::string>(password); }

PropertyValue FullNameOf(const CContact& contact) { return contact.FullName(); }

constexpr Member<CFolder> kFolder[] = {
    {"ID", &CFolder::ID, kKept},
    {"ParentID", &CFolder::ParentID},
    {"Name", &CFolder::Name},
    {"Description", &CFolder::Description},
    {"ItemsType", &CFolder::ItemsType, kKept},  // what is in the folder already would be lost to sight
    {"Protected", &CFolder::Protected, kKept},
    {"DateLastUpdate", &CFolder::DateLastUpdate, kKept},
};

constexpr Member<CTask> kTask[] = {
    {"ID", &CTask::ID, kKept},
    {"FolderID", &CTask::FolderID},
    {"CategoryID", &CTask::CategoryID},
    {"Name", &CTask::Name},
    {"Description", &CTask::Description},
    {"AssignedTo", &CTask::AssignedTo},
    {"Priority", &CTask::Priority},
    {"StatusID", &CTask::StatusID},
    {"StartDate", &CTask::StartDate},
    {"DueDate", &CTask::DueDate},
    {"Completed", &CTask::Completed},
    {"DateCompleted", &CTask::DateCompleted},
    Rule<CTask>(),
    {"DateLastUpdate", &CTask::DateLastUpdate, kKept},
};

constexpr Member<CEvent> kEvent[] = {
    {"ID", &CEvent::ID, kKept},
    {"FolderID", &CEvent::FolderID},
    {"CategoryID", &CEvent::CategoryID},
    {"ContactID", &CEvent::ContactID},
    {"Text", &CEvent::Text},
    {"Location", &CEvent::Location},
    {"StartDate", &CEvent::StartDate},
    {"EndDate", &CEvent::EndDate},
    {"Reminder", &CEvent::Reminder},
    {"EType", &CEvent::EType, kKept},
    {"LinkID", &CEvent::LinkID, kKept},
    Rule<CEvent>(),
    {"DateLastUpdate", &CEvent::DateLastUpdate, kKept},
};

constexpr Member<CContact> kContact[] = {
    {"ID", &CContact::ID, kKept},
    {"FolderID", &CContact::FolderID},
    {"CategoryID", &CContact::CategoryID},
    {"FullName", Derived<CContact>{PropertyType::Text, &FullNameOf}},
    {"FirstName", &CContact::FirstName},
    {"LastName", &CContact::LastName},
    {"MI", &CContact::MI},
    {"Suffix", &CContact::Suffix},
    {"Dear", &CContact::Dear},
    {"Address", &CContact::Address},
    {"City", &CContact::City},
    {"State", &CContact::State},
    {"Country", &CContact::Country},
    {"PostalCode", &CContact::PostalCode},
    {"Region", &CContact::Region},
    {"Phone", &CContact::Phone},
    {"MobilePhone", &CContact::MobilePhone},
    {"Email", &CContact::Email},
    {"URL", &CContact::URL},
    {"JobTitle", &CContact::JobTitle},
    {"BirthDate", &CContact::BirthDate},
    {"Anniversary", &CContact::Anniversary},
    {"Company", &CContact::Company},
    {"WorkAddress", &CContact::WorkAddress},
    {"WorkCity", &CContact::WorkCity},
    {"WorkCountry", &CContact::WorkCountry},
    {"WorkState", &CContact::WorkState},
    {"WorkPostalCode", &CContact::WorkPostalCode},
    {"WorkRegion", &CContact::WorkRegion},
    {"WorkPhone", &CContact::WorkPhone},
    {"WorkExtension", &CContact::WorkExtension},
    {"WorkFax", &CContact::WorkFax},
    {"WorkEmail", &CContact::WorkEmail},
    {"WorkURL", &CContact::WorkURL},
    {"WorkOffice", &CContact::WorkOffice},
    {"WorkDepartment", &CContact::WorkDepartment},
    {"Profession", &CContact::Profession},
    {"AssistantName", &CContact::AssistantName},
    {"LastmeetingDate", &CContact::LastmeetingDate},
    {"ReferredBy", &CContact::ReferredBy},
    {"Notes", &CContact::Notes},
    {"CustomField1", &CContact::CustomField1},
    {"CustomField2", &CContact::CustomField2},
    {"DateLastUpdate", &CContact::DateLastUpdate, kKept},
};

constexpr Member<CNote> kNote[] = {
    {"ID", &CNote::ID, kKept}, {"FolderID", &CNote::FolderID}, {"CategoryID", &CNote::CategoryID},
    {"Title", &CNote::Title},  {"Text", &CNote::Text},         {"DateLastUpdate", &CNote::DateLastUpdate, kKept},
};

constexpr Member<CAlarm> kAlarm[] = {
    {"ID", &CAlarm::ID, kKept},
    {"FolderID", &CAlarm::FolderID},
    {"CategoryID", &CAlarm::CategoryID},
    {"Text", &CAlarm::Text},
    {"StartDate", &CAlarm::StartDate},
    {"Reminder", &CAlarm::Reminder},
    {"Attachement", Derived<CAlarm>{PropertyType::Text, &AttachedName, &Attach}},
    Rule<CAlarm>(),
    {"DateLastUpdate", &CAlarm::DateLastUpdate, kKept},
};

constexpr Member<CPhoneLog> kCall[] = {
    {"ID", &CPhoneLog::ID, kKept},
    {"ContactID", &CPhoneLog::ContactID},
    {"Direction", &CPhoneLog::Direction},
    {"RecordDate", &CPhoneLog::RecordDate},
    {"PhoneNumber", &CPhoneLog::PhoneNumber},
    {"Subject", &CPhoneLog::Subject},
    {"Notes", &CPhoneLog::Notes},
    {"DateLastUpdate", &CPhoneLog::DateLastUpdate, kKept},
};

constexpr Member<CCategory> kCategory[] = {
    {"ID", &CCategory::ID, kKept},
    {"Name", &CCategory::Name},
    {"Color", &CCategory::Color},
    {"DateLastUpdate", &CCategory::DateLastUpdate, kKept},
};

constexpr Member<CUser> kUser[] = {
    {"ID", &CUser::ID, kKept},
    {"Name", &CUser::Name},
    {"FullName", &CUser::FullName},
    {"Rights", &CUser::Rights},
    {"UserType", Derived<CUser>{PropertyType::Text, &TypeOf}},
    {"Email", &CUser::Email},
    {"Password", Derived<CUser>{PropertyType::Text, nullptr, &SetPassword}},
    {"CreationDate", &CUser::CreationDate, kKept},
    {"DateLastUpdate", &CUser::DateLastUpdate, kKept},
};

}  // namespace

// The sort clause of a list stands behind its condition; only the loading of folders has one of its own.
constexpr RecordClass<CFolder> kFolderClass{"folder",
                                            kFolder,
                                            "",
                                            "",
                                            &CSession::GetFolder,
                                            &CSession::CreateFolder,
                                            &CSession::LoadFoldersWithCriteria,
                                            &CSession::DeleteFolder};
constexpr RecordClass<CTask> kTaskClass{"task",
                                        kTask,
                                        "TSK_FolderID",
                                        "TSK_ID",
                                        &CSession::GetTask,
                                        &CSession::CreateTask,
                                        &CSession::LoadTasksWithCriteria,
                                        &CSession::DeleteTask,
                                        &CTask::Save2File};
constexpr RecordClass<CEvent> kEventClass{"event",
                                          kEvent,
                                          "EVE_FolderID",
                                          "EVE_StartDate, EVE_ID",
                                          &CSession::GetEvent,
                                          &CSession::CreateEvent,
                                          &CSession::LoadEventsWithCriteria,
                                          &CSession::DeleteEvent,
                                          &CEvent::Save2File};
constexpr RecordClass<CContact> kContactClass{"contact",
                                              kContact,
                                              "CNT_FolderID",
                                              "CNT_LastName, CNT_FirstName, CNT_MI, CNT_ID",
                                              &CSession::GetContact,
                                              &CSession::CreateContact,
                                              &CSession::LoadContactsWithCriteria,
                                              &CSession::DeleteContact,
                                              &CContact::Save2File};
constexpr RecordClass<CNote> kNoteClass{"note",
                                        kNote,
                                        "NOT_FolderID",
                                        "NOT_ID",
                                        &CSession::GetNote,
                                        &CSession::CreateNote,
                                        &CSession::LoadNotesWithCriteria,
                                        &CSession::DeleteNote,
                                        &CNote::Save2File};
constexpr RecordClass<CAlarm> kAlarmClass{"alarm",
                                          kAlarm,
                                          "ALA_FolderID",
                                          "ALA_StartDate, ALA_ID",
                                          &CSession::GetAlarm,
                                          &CSession::CreateAlarm,
                                          &CSession::LoadAlarmsWithCriteria,
                                          &CSession::DeleteAlarm,
                                          &CAlarm::Save2File};
constexpr RecordClass<CPhoneLog> kCallClass{"call",
                                            kCall,
                                            "",
                                            "PL_RecordDate, PL_ID",
                                            &CSession::GetPhoneLog,
                                            &CSession::CreatePhoneLog,
                                            &CSession::LoadPhoneLogsWithCriteria,
                                            &CSession::DeletePhoneLog};
constexpr RecordClass<CCategory> kCategoryClass{"category",
                                                kCategory,
                                                "",
                                                "CAT_Name, CAT_ID",
                                                &CSession::GetCategory,
                                                nullptr,
                                                &CSession::LoadCategoriesWithCriteria,
                                                &CSession::DeleteCategory};
constexpr RecordClass<CUser> kUserClass{"user",
                                        kUser,
                                        "",
                                        "USR_Name, USR_ID",
                                        &CSession::GetUser,
                                        nullptr,
                                        &CSession::LoadUsersWithCriteria,
                                        &CSession::DeleteUser};

}  // namespace zef::client
