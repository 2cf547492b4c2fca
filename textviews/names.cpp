#include "textviews/names.h"

#include "folders/category.h"
#include "folders/folder.h"
#include "session/collections.h"

namespace zef {
namespace {

/// What a look-up of the session has found, or Nothing. The look-up has trapped its failure; it is raised again here.
template <class Element>
Ref<Element> Found(const CSession& session, Ref<Element> element) {
  if (element || !session.GetErrorFlag()) return element;
  throw RunTimeError(static_cast<FailureNumber>(session.GetErrorCode()), session.GetErrorDescription());
}

}  // namespace

std::string FolderName(CSession& session, std::int32_t folder) {
  return folder < 1 ? std::string() : Deref(Found(session, session.GetFolder(folder))).Name.get();
}

std::string CategoryName(CSession& session, std::int32_t category) {
  const Ref<CCategory> found = Found(session, session.GetCategory(category));
  return found ? found->Name.get() : std::string();
}

std::string StatusName(CSession& session, std::int32_t status) {
  return status < 1 ? std::string() : Deref(Found(session, session.GetTaskStatus(status))).Text;
}

}  // namespace zef
