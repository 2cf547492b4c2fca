#include "bench/contact_texts.h"
#include "bench/digest.h"

namespace zef::bench {

std::uint64_t DigestOf(const CContact& contact) {
  Digest digest;
  digest.Add(contact.ID);
  digest.Add(contact.FolderID.get());
  digest.Add(contact.CategoryID.get());
  for (const auto date :
       {&CContact::BirthDate, &CContact::Anniversary, &CContact::LastmeetingDate, &CContact::DateLastUpdate}) {
    digest.Add((contact.*date)->value());
  }
  for (const auto text : kContactTexts) digest.Add(std::string_view((contact.*text).get()));
  return digest.value();
}

std::uint64_t DigestOf(const HandContact& contact) {
  Digest digest;
  digest.Add(contact.id);
  digest.Add(contact.folder_id);
  digest.Add(contact.category_id);
  for (const double date :
       {contact.birth_date, contact.anniversary, contact.last_meeting_date, contact.date_last_update})
    digest.Add(date);
  for (const std::string& text : contact.texts) digest.Add(std::string_view(text));
  return digest.value();
}

std::uint64_t DigestOf(const CTag& tag) {
  Digest digest;
  digest.Add(tag.ID);
  digest.Add(std::string_view(tag.Text));
  return digest.value();
}

std::uint64_t DigestOf(const HandTag& tag) {
  Digest digest;
  digest.Add(tag.id);
  digest.Add(std::string_view(tag.text));
  return digest.value();
}

}  // namespace zef::bench
