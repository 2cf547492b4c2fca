#include "client/record_classes.h"

#include <filesystem>
#include <type_traits>

#include "client/record_info.h"

namespace zef::client {
namespace {

constexpr bool kKept = true;

template <class T>
constexpr PropertyType kTypeOf = PropertyType::Number;
template <>
constexpr PropertyType kTypeOf<bool> = PropertyType::Flag;
template <>
constexpr PropertyType kTypeOf<Date> = PropertyType::Date;
template <>
constexpr PropertyType kTypeOf<std::string> = PropertyType::Text;

template <class R, class T, DISPID Id>
R OwnerOf(Property<T, Id> R::*);
template <class R, class T, DISPID Id>
T HeldBy(Property<T, Id> R::*);

/// A plain property of a class.
template <auto Held>
constexpr auto Plain(std::string_view name, bool kept = false) {
  using R = decltype(OwnerOf(Held));
  using T = decltype(HeldBy(Held));
  using Shown = std::conditional_t<std::is_enum_v<T>, std::int32_t, T>;
  return Member<R>{
      name, kTypeOf<T>, [](const R& record) -> PropertyValue { return static_cast<Shown>((record.*Held).get()); },
      [](R& record, const PropertyValue& value) { record.*Held = static_cast<T>(std::get<Shown>(value)); }, kept};
}

/// Only readable by itself: the words of a rule depend on one another, and the commands that make one put it together.
template <class R>
constexpr Member<R> Rule() {
  return {"Recurrence", PropertyType::Rule, [](const R& item) -> PropertyValue { return SpecOf(item.Recurrence); },
          [](R& item, const PropertyValue& rule) { WriteRule(std::get<RuleSpec>(rule), item.Recurrence); }, kKept};
}

PropertyValue AttachedName(const CAlarm& alarm) { return alarm.Attachement->Name.get(); }

/// Attaches the file of a path; an empty path takes the file away.
void Attach(CAlarm& alarm, const PropertyValue& value) {
  const std::filesystem::path path(std::get<std::string>(value));
  CAttachement file = alarm.Attachement;
  file.Name = path.filename().string();
  file.DocType = path.has_extension() ? path.extension().string().substr(1) : std::string();
  file.FileName = path.empty() ? std::string() : std::filesystem::absolute(path).lexically_normal().string();
  file.Description = std::string();
  if (!path.empty()) file.ResetFlagsX(true, file.IsNew());  // the same path may hold another content by now
}

PropertyValue TypeOf(const CUser& user) { return user.UserType(); }

void SetPassword(CUser& user, const PropertyValue& password) { user.Password = std::get<std::string>(password); }

PropertyValue FullNameOf(const CContact& contact) { return contact.FullName.get(); }

constexpr Member<CFolder> kFolder[] = {
    Plain<&CFolder::ID>("ID", kKept),
    Plain<&CFolder::ParentID>("ParentID"),
    Plain<&CFolder::Name>("Name"),
    Plain<&CFolder::Description>("Description"),
    Plain<&CFolder::ItemsType>("ItemsType", kKept),  // what is in the folder already would be lost to sight
    Plain<&CFolder::Protected>("Protected", kKept),
    Plain<&CFolder::DateLastUpdate>("DateLastUpdate", kKept),
};

constexpr Member<CTask> kTask[] = {
    Plain<&CTask::ID>("ID", kKept),
    Plain<&CTask::FolderID>("FolderID"),
    Plain<&CTask::CategoryID>("CategoryID"),
    Plain<&CTask::Name>("Name"),
    Plain<&CTask::Description>("Description"),
    Plain<&CTask::AssignedTo>("AssignedTo"),
    Plain<&CTask::Priority>("Priority"),
    Plain<&CTask::StatusID>("StatusID"),
    Plain<&CTask::StartDate>("StartDate"),
    Plain<&CTask::DueDate>("DueDate"),
    Plain<&CTask::Completed>("Completed"),
    Plain<&CTask::DateCompleted>("DateCompleted"),
    Rule<CTask>(),
    Plain<&CTask::DateLastUpdate>("DateLastUpdate", kKept),
};

constexpr Member<CEvent> kEvent[] = {
    Plain<&CEvent::ID>("ID", kKept),
    Plain<&CEvent::FolderID>("FolderID"),
    Plain<&CEvent::CategoryID>("CategoryID"),
    Plain<&CEvent::ContactID>("ContactID"),
    Plain<&CEvent::Text>("Text"),
    Plain<&CEvent::Location>("Location"),
    Plain<&CEvent::StartDate>("StartDate"),
    Plain<&CEvent::EndDate>("EndDate"),
    Plain<&CEvent::Reminder>("Reminder"),
    Plain<&CEvent::EType>("EType", kKept),
    Plain<&CEvent::LinkID>("LinkID", kKept),
    Rule<CEvent>(),
    Plain<&CEvent::DateLastUpdate>("DateLastUpdate", kKept),
};

constexpr Member<CContact> kContact[] = {
    Plain<&CContact::ID>("ID", kKept),
    Plain<&CContact::FolderID>("FolderID"),
    Plain<&CContact::CategoryID>("CategoryID"),
    {"FullName", PropertyType::Text, &FullNameOf},
    Plain<&CContact::FirstName>("FirstName"),
    Plain<&CContact::LastName>("LastName"),
    Plain<&CContact::MI>("MI"),
    Plain<&CContact::Suffix>("Suffix"),
    Plain<&CContact::Dear>("Dear"),
    Plain<&CContact::Address>("Address"),
    Plain<&CContact::City>("City"),
    Plain<&CContact::State>("State"),
    Plain<&CContact::Country>("Country"),
    Plain<&CContact::PostalCode>("PostalCode"),
    Plain<&CContact::Region>("Region"),
    Plain<&CContact::Phone>("Phone"),
    Plain<&CContact::MobilePhone>("MobilePhone"),
    Plain<&CContact::Email>("Email"),
    Plain<&CContact::URL>("URL"),
    Plain<&CContact::JobTitle>("JobTitle"),
    Plain<&CContact::BirthDate>("BirthDate"),
    Plain<&CContact::Anniversary>("Anniversary"),
    Plain<&CContact::Company>("Company"),
    Plain<&CContact::WorkAddress>("WorkAddress"),
    Plain<&CContact::WorkCity>("WorkCity"),
    Plain<&CContact::WorkCountry>("WorkCountry"),
    Plain<&CContact::WorkState>("WorkState"),
    Plain<&CContact::WorkPostalCode>("WorkPostalCode"),
    Plain<&CContact::WorkRegion>("WorkRegion"),
    Plain<&CContact::WorkPhone>("WorkPhone"),
    Plain<&CContact::WorkExtension>("WorkExtension"),
    Plain<&CContact::WorkFax>("WorkFax"),
    Plain<&CContact::WorkEmail>("WorkEmail"),
    Plain<&CContact::WorkURL>("WorkURL"),
    Plain<&CContact::WorkOffice>("WorkOffice"),
    Plain<&CContact::WorkDepartment>("WorkDepartment"),
    Plain<&CContact::Profession>("Profession"),
    Plain<&CContact::AssistantName>("AssistantName"),
    Plain<&CContact::LastmeetingDate>("LastmeetingDate"),
    Plain<&CContact::ReferredBy>("ReferredBy"),
    Plain<&CContact::Notes>("Notes"),
    Plain<&CContact::CustomField1>("CustomField1"),
    Plain<&CContact::CustomField2>("CustomField2"),
    Plain<&CContact::DateLastUpdate>("DateLastUpdate", kKept),
};

constexpr Member<CNote> kNote[] = {
    Plain<&CNote::ID>("ID", kKept),
    Plain<&CNote::FolderID>("FolderID"),
    Plain<&CNote::CategoryID>("CategoryID"),
    Plain<&CNote::Title>("Title"),
    Plain<&CNote::Text>("Text"),
    Plain<&CNote::DateLastUpdate>("DateLastUpdate", kKept),
};

constexpr Member<CAlarm> kAlarm[] = {
    Plain<&CAlarm::ID>("ID", kKept),
    Plain<&CAlarm::FolderID>("FolderID"),
    Plain<&CAlarm::CategoryID>("CategoryID"),
    Plain<&CAlarm::Text>("Text"),
    Plain<&CAlarm::StartDate>("StartDate"),
    Plain<&CAlarm::Reminder>("Reminder"),
    {"Attachement", PropertyType::Text, &AttachedName, &Attach},
    Rule<CAlarm>(),
    Plain<&CAlarm::DateLastUpdate>("DateLastUpdate", kKept),
};

constexpr Member<CPhoneLog> kCall[] = {
    Plain<&CPhoneLog::ID>("ID", kKept),
    Plain<&CPhoneLog::ContactID>("ContactID"),
    Plain<&CPhoneLog::Direction>("Direction"),
    Plain<&CPhoneLog::RecordDate>("RecordDate"),
    Plain<&CPhoneLog::PhoneNumber>("PhoneNumber"),
    Plain<&CPhoneLog::Subject>("Subject"),
    Plain<&CPhoneLog::Notes>("Notes"),
    Plain<&CPhoneLog::DateLastUpdate>("DateLastUpdate", kKept),
};

constexpr Member<CCategory> kCategory[] = {
    Plain<&CCategory::ID>("ID", kKept),
    Plain<&CCategory::Name>("Name"),
    Plain<&CCategory::Color>("Color"),
    Plain<&CCategory::DateLastUpdate>("DateLastUpdate", kKept),
};

constexpr Member<CUser> kUser[] = {
    Plain<&CUser::ID>("ID", kKept),
    Plain<&CUser::Name>("Name"),
    Plain<&CUser::FullName>("FullName"),
    Plain<&CUser::Rights>("Rights"),
    {"UserType", PropertyType::Text, &TypeOf},
    Plain<&CUser::Email>("Email"),
    {"Password", PropertyType::Text, nullptr, &SetPassword},
    Plain<&CUser::CreationDate>("CreationDate", kKept),
    Plain<&CUser::DateLastUpdate>("DateLastUpdate", kKept),
};

/// A member function of the library as a plain one.
template <auto Function>
constexpr auto kRun = [](const auto& object, const auto&... arguments) { return (object.*Function)(arguments...); };

}  // namespace

// The sort clause of a list stands behind its condition; only the loading of folders has one of its own.
constexpr RecordClass<CFolder, CFolders> kFolderClass{"folder",
                                                      kFolder,
                                                      "",
                                                      "",
                                                      kRun<&CSession::GetFolder>,
                                                      kRun<&CSession::CreateFolder>,
                                                      kRun<&CSession::LoadFoldersWithCriteria>,
                                                      kRun<&CSession::DeleteFolder>};
constexpr RecordClass<CTask, CTasks> kTaskClass{"task",
                                                kTask,
                                                "TSK_FolderID",
                                                "TSK_ID",
                                                kRun<&CSession::GetTask>,
                                                kRun<&CSession::CreateTask>,
                                                kRun<&CSession::LoadTasksWithCriteria>,
                                                kRun<&CSession::DeleteTask>,
                                                kRun<&CTask::Save2File>};
constexpr RecordClass<CEvent, CEvents> kEventClass{"event",
                                                   kEvent,
                                                   "EVE_FolderID",
                                                   "EVE_StartDate, EVE_ID",
                                                   kRun<&CSession::GetEvent>,
                                                   kRun<&CSession::CreateEvent>,
                                                   kRun<&CSession::LoadEventsWithCriteria>,
                                                   kRun<&CSession::DeleteEvent>,
                                                   kRun<&CEvent::Save2File>};
constexpr RecordClass<CContact, CContacts> kContactClass{"contact",
                                                         kContact,
                                                         "CNT_FolderID",
                                                         "CNT_LastName, CNT_FirstName, CNT_MI, CNT_ID",
                                                         kRun<&CSession::GetContact>,
                                                         kRun<&CSession::CreateContact>,
                                                         kRun<&CSession::LoadContactsWithCriteria>,
                                                         kRun<&CSession::DeleteContact>,
                                                         kRun<&CContact::Save2File>};
constexpr RecordClass<CNote, CNotes> kNoteClass{"note",
                                                kNote,
                                                "NOT_FolderID",
                                                "NOT_ID",
                                                kRun<&CSession::GetNote>,
                                                kRun<&CSession::CreateNote>,
                                                kRun<&CSession::LoadNotesWithCriteria>,
                                                kRun<&CSession::DeleteNote>,
                                                kRun<&CNote::Save2File>};
constexpr RecordClass<CAlarm, CAlarms> kAlarmClass{"alarm",
                                                   kAlarm,
                                                   "ALA_FolderID",
                                                   "ALA_StartDate, ALA_ID",
                                                   kRun<&CSession::GetAlarm>,
                                                   kRun<&CSession::CreateAlarm>,
                                                   kRun<&CSession::LoadAlarmsWithCriteria>,
                                                   kRun<&CSession::DeleteAlarm>,
                                                   kRun<&CAlarm::Save2File>};
constexpr RecordClass<CPhoneLog, CPhoneLogs> kCallClass{"call",
                                                        kCall,
                                                        "",
                                                        "PL_RecordDate, PL_ID",
                                                        kRun<&CSession::GetPhoneLog>,
                                                        kRun<&CSession::CreatePhoneLog>,
                                                        kRun<&CSession::LoadPhoneLogsWithCriteria>,
                                                        kRun<&CSession::DeletePhoneLog>};
constexpr RecordClass<CCategory, CCategories> kCategoryClass{"category",
                                                             kCategory,
                                                             "",
                                                             "CAT_Name, CAT_ID",
                                                             kRun<&CSession::GetCategory>,
                                                             nullptr,
                                                             kRun<&CSession::LoadCategoriesWithCriteria>,
                                                             kRun<&CSession::DeleteCategory>};
constexpr RecordClass<CUser, CUsers> kUserClass{"user",
                                                kUser,
                                                "",
                                                "USR_Name, USR_ID",
                                                kRun<&CSession::GetUser>,
                                                nullptr,
                                                kRun<&CSession::LoadUsersWithCriteria>,
                                                kRun<&CSession::DeleteUser>};

}  // namespace zef::client
