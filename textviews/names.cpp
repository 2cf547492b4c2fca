#include "textviews/names.h"

#include "folders/category.h"
#include "folders/folder.h"
#include "session/collections.h"

namespace zef {
namespace {

/// What a look-up of the session finds, or Nothing. The look-up traps its failure; it is raised again here.
template <class Element>
Ref<Element> Found(const Ref<CSession>& record_session, Ref<Element> (CSession::*get)(std::int32_t), std::int32_t id) {
  CSession& session = Deref(record_session);
  Ref<Element> element = (session.*get)(id);
  if (element || !session.GetErrorFlag()) return element;
  throw RunTimeError(static_cast<FailureNumber>(session.GetErrorCode()), session.GetErrorDescription());
}

}  // namespace

std::string FolderName(const Ref<CSession>& session, std::int32_t folder) {
  return folder < 1 ? std::string() : Deref(Found(session, &CSession::GetFolder, folder)).Name.get();
}

std::string CategoryName(const Ref<CSession>& session, std::int32_t category) {
  const Ref<CCategory> found = Found(session, &CSession::GetCategory, category);
  return found ? found->Name.get() : std::string();
}

std::string StatusName(const Ref<CSession>& session, std::int32_t status) {
  return status < 1 ? std::string() : Deref(Found(session, &CSession::GetTaskStatus, status)).Text;
}

}  // namespace zef
