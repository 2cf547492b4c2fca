#include "client/store_session.h"

/// Accounts by their names.
namespace zef::client {

RecordValues Store::LogIn(const std::string& name, const std::string& password) {
  const CUser user = session_->it.CheckUser(name, password);
  if (!user) session_->RefuseAsRecorded("No user has this name and this password.");
  return Record(RecordType::User, user.ID);
}

std::optional<std::int32_t> Store::UserID(const std::string& name) {
  const std::int32_t id = session_->it.GetUserID4Name(name);
  if (session_->it.GetErrorFlag()) session_->RefuseAsRecorded("The users could not be read.");
  if (id == -1) return std::nullopt;
  return id;
}

}  // namespace zef::client
