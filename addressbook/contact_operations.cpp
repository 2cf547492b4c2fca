#include "addressbook/contact.h"
#include "addressbook/date_events.h"
#include "session/collections.h"
#include "session/operations.h"

namespace zef {
namespace {

constexpr std::int32_t kContactSequence = 1;
constexpr char kSelect[] = "SELECT * FROM Contacts";

}  // namespace

Ref<CContact> CSession::GetContact(std::int32_t ContactID) {
  return GetRecord<CContact>(*this, "GetContact", "SELECT * FROM Contacts WHERE CNT_ID=", ContactID);
}

Ref<CContact> CSession::DuplicateContact(std::int32_t lngOldContactID) {
  return DuplicateRecord(*this, "CSession.DuplicateContact", &CSession::GetContact, lngOldContactID, kContactSequence);
}

bool CSession::LoadContacts4Folder(const Ref<CContacts>& udtContacts, std::int32_t lngFolderID) {
  return LoadContactsWithCriteria(
      udtContacts, "CNT_FolderID=" + SqlNumber(lngFolderID) + " ORDER BY CNT_LastName, CNT_FirstName, CNT_MI ASC");
}

bool CSession::LoadContactsWithCriteria(const Ref<CContacts>& udtContacts, const std::string& strCriteria) {
  return LoadRecords(*this, udtContacts, "LoadContactsWithCriteria", kSelect, strCriteria);
}

bool CSession::LoadContactTagsWithCriteria(const Ref<CTags>& udtContactTags, const std::string& strCriteria) {
  const auto reader = MakeRef<CContact>();
  reader->SetSession(Ref<CSession>(this));
  return LoadElements(*this, udtContactTags, "LoadContactTagsWithCriteria", SelectText(kSelect, strCriteria),
                      [&](const Ref<Recordset>& rs) {
                        reader->GetValuesFromRS(rs);
                        auto tag = MakeRef<CTag>();
                        tag->ID = reader->ID;
                        tag->Text = reader->FullName();
                        return tag;
                      });
}

Ref<CContact> CSession::CreateContact() {
  return CreateRecord<CContact>(*this, "CSession.CreateContact", kContactSequence);
}

bool CSession::DeleteContact(std::int32_t lngContactID) {
  ClearError();
  if (Refused(*this, "CSession.DeleteContact")) return false;
  return InTransaction(*this, "DeleteContact", [&] {
    Execute(*this, "DELETE * FROM Contacts WHERE CNT_ID=" + SqlNumber(lngContactID));
    DeleteDateEvents(*this, lngContactID);
    return Outcome::Done;
  });
}

bool CSession::GetObjectID(const std::string& strSearch, std::int32_t& lngID, std::int32_t& lngFolderID) {
  const Ref<Recordset> rs = Deref(conDBConnection).Execute(strSearch, adCmdUnspecified);
  if (rs->EndOfFile()) return true;
  lngID = ToLong(rs->Fields().Item("ID").Value());
  lngFolderID = ToLong(rs->Fields().Item("FolderID").Value());
  return true;
}

std::int32_t CSession::GetContactIDByPhoneNumber(const std::string& strNumber) {
  return Trapped(*this, "GetContactIDByPhoneNumber", std::int32_t{-1}, [&] {
    const std::string text = "SELECT * FROM Contacts WHERE CNT_PHONE='" + strNumber + "' or CNT_MobilePhone='" +
                             strNumber + "' or CNT_WorkPhone='" + strNumber + "' or CNT_WorkFax='" + strNumber + "'";
    const Ref<Recordset> rs = Deref(conDBConnection).Execute(text, adCmdUnspecified);
    return rs->EndOfFile() ? -1 : ToLong(rs->Fields().Item("CNT_ID").Value());
  });
}

}  // namespace zef
