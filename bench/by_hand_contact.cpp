#include "bench/by_hand_contact.h"

#include <tuple>

#include "bench/contact_statements.h"
#include "bench/statement_texts.h"

namespace zef::bench {
namespace {

void Read(sqlite3_stmt* row, HandContact& contact) {
  contact.id = sqlite3_column_int(row, 0);
  contact.folder_id = sqlite3_column_int(row, 1);
  contact.category_id = sqlite3_column_int(row, 2);
  contact.birth_date = sqlite3_column_double(row, 3);
  contact.anniversary = sqlite3_column_double(row, 4);
  contact.last_meeting_date = sqlite3_column_double(row, 5);
  contact.date_last_update = sqlite3_column_double(row, 6);
  for (int i = 0; i < kTextCount; ++i) {
    const int column = kContactNumbers + kContactDates + i;
    std::string& text = contact.texts[static_cast<std::size_t>(i)];
    const unsigned char* value = sqlite3_column_text(row, column);
    if (value == nullptr) {
      text.clear();
    } else {
      text.assign(reinterpret_cast<const char*>(value), static_cast<std::size_t>(sqlite3_column_bytes(row, column)));
    }
  }
}

}  // namespace

std::string HandContact::FullName() const {
  const auto& [first, last, initial, suffix] = std::tie(texts[0], texts[1], texts[2], texts[3]);
  std::string name = last;
  if (!last.empty() && !first.empty()) name += ", ";
  name += first;
  if (!initial.empty()) name.append(" ").append(initial).append(".");
  if (!suffix.empty()) name.append(" ").append(suffix);
  return name;
}

HandContactReader::HandContactReader(const HandDatabase& db)
    : db_(db),
      one_(db.Prepare("SELECT " + ContactColumns() + " FROM Contacts WHERE CNT_ID=?1")),
      many_(db.Prepare("SELECT " + ContactColumns() + " FROM Contacts WHERE CNT_ID>=?1")),
      phone_(db.Prepare("SELECT CNT_ID FROM Contacts WHERE CNT_Phone=?1 OR CNT_MobilePhone=?1 OR CNT_WorkPhone=?1 OR "
                        "CNT_WorkFax=?1")) {}

std::unique_ptr<HandContact> HandContactReader::Get(std::int32_t id) const {
  sqlite3_bind_int(one_.get(), 1, id);
  std::unique_ptr<HandContact> contact;
  if (db_.Step(one_)) {
    contact = std::make_unique<HandContact>();
    Read(one_.get(), *contact);
  }
  sqlite3_reset(one_.get());
  return contact;
}

HandContacts HandContactReader::Load(std::int32_t first) const {
  HandContacts contacts;
  sqlite3_bind_int(many_.get(), 1, first);
  while (db_.Step(many_)) Read(many_.get(), *contacts.emplace_back(std::make_unique<HandContact>()));
  sqlite3_reset(many_.get());
  return contacts;
}

HandTags HandContactReader::LoadTags(std::int32_t first) const {
  HandTags tags;
  HandContact contact;
  sqlite3_bind_int(many_.get(), 1, first);
  while (db_.Step(many_)) {
    Read(many_.get(), contact);
    tags.push_back(std::make_unique<HandTag>(HandTag{contact.id, contact.FullName()}));
  }
  sqlite3_reset(many_.get());
  return tags;
}

std::int32_t HandContactReader::FindPhone(const std::string& number) const {
  sqlite3_bind_text(phone_.get(), 1, number.data(), static_cast<int>(number.size()), SQLITE_STATIC);
  const std::int32_t id = db_.Step(phone_) ? sqlite3_column_int(phone_.get(), 0) : -1;
  sqlite3_reset(phone_.get());
  return id;
}

HandContactWriter::HandContactWriter(const HandDatabase& db)
    : db_(db),
      insert_(db.Prepare(InsertContactText())),
      update_(db.Prepare(UpdateContactText())),
      select_folder_(db.Prepare(kSelectProtectedFolder)),
      delete_events_(db.Prepare(kDeleteDateEvents)) {}

void HandContactWriter::Bind(const HandStatement& statement, const HandContact& contact) const {
  sqlite3_stmt* row = statement.get();
  sqlite3_bind_int(row, 1, contact.id);
  sqlite3_bind_int(row, 2, contact.folder_id);
  sqlite3_bind_int(row, 3, contact.category_id);
  sqlite3_bind_double(row, 4, contact.birth_date);
  sqlite3_bind_double(row, 5, contact.anniversary);
  sqlite3_bind_double(row, 6, contact.last_meeting_date);
  sqlite3_bind_double(row, 7, NowByHand());
  for (int i = 0; i < kTextCount; ++i) {
    const std::string& text = contact.texts[static_cast<std::size_t>(i)];
    sqlite3_bind_text(row, kContactNumbers + kContactDates + i + 1, text.data(), static_cast<int>(text.size()),
                      SQLITE_STATIC);
  }
}

void HandContactWriter::Insert(const HandContact& contact) const {
  Bind(insert_, contact);
  for (int i = 0; i < kTextCount; ++i) {
    if (contact.texts[static_cast<std::size_t>(i)].empty())
      sqlite3_bind_null(insert_.get(), kContactNumbers + kContactDates + i + 1);
  }
  db_.Run(insert_);
}

void HandContactWriter::Update(const HandContact& contact) const {
  Bind(update_, contact);
  db_.Run(update_);
  DeleteEvents("A", "Anniversaries", contact.id);
  DeleteEvents("B", "Birthdays", contact.id);
}

void HandContactWriter::DeleteEvents(const char* type, const std::string& folder, std::int32_t contact) const {
  sqlite3_bind_text(select_folder_.get(), 1, folder.data(), static_cast<int>(folder.size()), SQLITE_STATIC);
  const std::int32_t id = db_.Step(select_folder_) ? sqlite3_column_int(select_folder_.get(), 0) : -1;
  sqlite3_reset(select_folder_.get());
  sqlite3_bind_text(delete_events_.get(), 1, type, 1, SQLITE_STATIC);
  sqlite3_bind_int(delete_events_.get(), 2, contact);
  sqlite3_bind_int(delete_events_.get(), 3, id);
  db_.Run(delete_events_);
}

}  // namespace zef::bench
