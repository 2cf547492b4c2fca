#include "bench/contact_statements.h"
#include "bench/postgresql/server_records.h"
#include "bench/statement_texts.h"

namespace zef::bench {
namespace {

std::unique_ptr<HandFolder> ReadFolder(const ServerRow& row) {
  auto folder = std::make_unique<HandFolder>();
  HandFolder& f = *folder;
  row.ReadAll(f.id, f.parent_id, f.options, f.name, f.description, f.items_type, f.date_last_update, f.is_protected);
  return folder;
}

std::unique_ptr<HandRule> ReadRule(const ServerRow& row) {
  auto rule = std::make_unique<HandRule>();
  HandRule& r = *rule;
  row.ReadAll(r.id, r.type, r.occurrences, r.options1, r.options2, r.sub_type, r.days, r.month, r.week_number,
              r.end_date);
  return rule;
}

std::unique_ptr<HandNotification> ReadNotification(const ServerRow& row) {
  auto notification = std::make_unique<HandNotification>();
  HandNotification& n = *notification;
  row.ReadAll(n.id, n.subject, n.message, n.email, n.cc, n.bcc, n.type, n.status, n.sending_date);
  return notification;
}

std::unique_ptr<HandEvent> ReadEvent(const ServerRow& row) {
  auto event = std::make_unique<HandEvent>();
  HandEvent& e = *event;
  row.ReadAll(e.id, e.folder_id, e.category_id, e.notification_id, e.recurrence_id, e.contact_id, e.text, e.location,
              e.start_date, e.end_date, e.reminder, e.date_last_update);
  row.IsNull(12) ? void(e.type = "E") : row.Read(12, e.type);
  row.IsNull(13) ? void(e.link_id = -1) : row.Read(13, e.link_id);
  return event;
}

/// The first row of a statement for one number, made an object by `read`; null without a row.
template <class Read>
auto GetOne(const HandServer& server, const std::string& statement, std::int32_t number, Read read) {
  const ServerResult result = server.Run(statement, number);
  return PQntuples(result.get()) > 0 ? read(ServerRow(result.get(), 0)) : nullptr;
}

void ReadContact(const ServerRow& row, HandContact& c) {
  row.ReadAll(c.id, c.folder_id, c.category_id, c.birth_date, c.anniversary, c.last_meeting_date, c.date_last_update);
  for (int i = 0; i < kTextCount; ++i) {
    row.Read(kContactNumbers + kContactDates + i, c.texts[static_cast<std::size_t>(i)]);
  }
}

std::unique_ptr<HandContact> NewContact(const ServerRow& row) {
  auto contact = std::make_unique<HandContact>();
  ReadContact(row, *contact);
  return contact;
}

}  // namespace

ServerReader::ServerReader(const HandServer& server)
    : server_(server),
      folder_(server.Prepare(std::string(kSelectFolders) + "FLD_ID=?1")),
      event_(server.Prepare(std::string(kSelectEvents) + "EVE_ID=?1")),
      rule_(server.Prepare(kSelectRule)),
      notification_(server.Prepare(kSelectNotification)) {}

std::unique_ptr<HandFolder> ServerReader::GetFolder(std::int32_t id) const {
  return GetOne(server_, folder_, id, ReadFolder);
}

std::unique_ptr<HandEvent> ServerReader::GetEvent(std::int32_t id) const {
  auto event = GetOne(server_, event_, id, ReadEvent);
  if (!event) return nullptr;
  event->notification = GetOne(server_, notification_, event->notification_id, ReadNotification);
  event->rule = GetOne(server_, rule_, event->recurrence_id, ReadRule);
  return event;
}

ServerContactReader::ServerContactReader(const HandServer& server)
    : server_(server),
      one_(server.Prepare("SELECT " + ContactColumns() + " FROM Contacts WHERE CNT_ID=?1")),
      many_(server.Prepare("SELECT " + ContactColumns() + " FROM Contacts WHERE CNT_ID>=?1")) {}

std::unique_ptr<HandContact> ServerContactReader::Get(std::int32_t id) const {
  return GetOne(server_, one_, id, NewContact);
}

HandContacts ServerContactReader::Load(std::int32_t first) const {
  HandContacts contacts;
  server_.EachRow(many_, first, [&](const ServerRow& row) { contacts.push_back(NewContact(row)); });
  return contacts;
}

HandTags ServerContactReader::LoadTags(std::int32_t first) const {
  HandTags tags;
  HandContact contact;
  server_.EachRow(many_, first, [&](const ServerRow& row) {
    ReadContact(row, contact);
    tags.push_back(std::make_unique<HandTag>(HandTag{contact.id, contact.FullName()}));
  });
  return tags;
}

}  // namespace zef::bench
