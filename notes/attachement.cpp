#include "notes/attachement.h"

#include <algorithm>
#include <limits>
#include <span>
#include <utility>

#include "platform/file.h"
#include "platform/stream.h"
#include "session/operations.h"
#include "textviews/labels.h"

namespace zef {
namespace {

constexpr Column<CAttachement> Text(std::string_view name, Property<std::string> CAttachement::*member) {
  return {.name = name, .member = member};
}

constexpr Column<CAttachement> kColumns[] = {
    Key<CAttachement>("ATC_ID"),
    Text("ATC_Name", &CAttachement::Name),
    Text("ATC_DocType", &CAttachement::DocType),
    Text("ATC_Description", &CAttachement::Description),
    Text("ATC_FileName", &CAttachement::FileName),
};
constexpr Table kAttachements("Attachements", kColumns, 10);
constexpr std::span kTexts = std::span(kColumns).subspan<1>();

constexpr char kContent[] = "ATC_Content";

const std::string& TextOf(const CAttachement& attachement, const Column<CAttachement>& column) {
  return (attachement.*std::get<Property<std::string> CAttachement::*>(column.member)).get();
}

std::string SelectOne(std::int32_t id) { return "SELECT * FROM Attachements where ATC_ID=" + SqlNumber(id); }

Stream OpenStream() {
  Stream stream;
  stream.Type = adTypeBinary;
  stream.Open();
  return stream;
}

/// The record set to write through: for a new record under a number drawn for it, the table; else the record's row.
Ref<Recordset> OpenRow(CSession& session, CAttachement& attachement) {
  if (!attachement.IsNew()) return OpenSelect(session, SelectOne(attachement.ID));
  if (session.GetUniqueIDFromSeq(kAttachementSequence, attachement.ID, 1) == 0) return nullptr;
  return OpenSelect(session, std::string(kAttachements.name), adCmdTable);
}

void WriteRow(Recordset& rs, const CAttachement& attachement, Stream& content) {
  if (attachement.IsNew()) rs.AddNew();
  const auto set = [&rs](std::string_view column, Value value) { rs.Fields().Item(column).SetValue(std::move(value)); };
  set(kAttachements.key(), attachement.ID);
  for (const Column<CAttachement>& column : kTexts) set(column.name, TextOf(attachement, column));
  set(kContent, content.Read());
  rs.Update();
}

}  // namespace

bool CAttachement::IsEmpty() const {
  return std::all_of(kTexts.begin(), kTexts.end(),
                     [this](const auto& column) { return TextOf(*this, column).empty(); });
}

void CAttachement::GetValuesFromRS(const Ref<Recordset>& Rs) {
  ReadColumns(*this, kAttachements, Deref(Rs));
  SetFlags(false, false);
}

bool CAttachement::GetFieldsArray(FieldType enmType, FieldsArray& strFields, std::int32_t& lngFieldsCount) const {
  return FillFieldsArray(*this, kAttachements, "CAttachement.GetFieldsArray", enmType, strFields, lngFieldsCount);
}

bool CAttachement::Save() {
  return SaveAlone("CAttachement.Save", MaySave::Anyone, [this](CSession& session) {
    const Ref<Recordset> rs = OpenRow(session, *this);
    if (!rs) return Outcome::Failed;
    Stream content = OpenStream();
    content.LoadFromFile(FileName);
    WriteRow(*rs, *this, content);
    content.Close();
    rs->Close();
    return Outcome::Done;
  });
}

bool CAttachement::GetNewCacheFileName(std::string& strCache) {
  return Trapped(Session(), "CAttachement.GetnewCacheFileName", false, [&] {
    const std::string folder = TemporaryFolder();
    for (std::int32_t n = 1;; ++n) {
      std::string candidate = PathInFolder(folder, "zef" + SqlNumber(n) + "." + DocType.get());
      if (!PathExists(candidate)) {
        strCache = std::move(candidate);
        return true;
      }
      if (n == std::numeric_limits<std::int32_t>::max()) throw RunTimeError(FailureNumber::Overflow);
    }
  });
}

bool CAttachement::Cache2File() {
  CSession& session = Deref(Session());
  return Trapped(session, "CAttachement.Cache2File", false, [&] {
    session.ClearError();
    if (CacheFileName->empty()) {
      std::string name;
      if (!GetNewCacheFileName(name)) return false;
      CacheFileName.Load(std::move(name));
    }
    const Ref<Recordset> rs = OpenSelect(session, SelectOne(ID));
    if (rs->EndOfFile()) return true;
    Stream content = OpenStream();
    content.Write(rs->Fields().Item(kContent).Value());
    content.SaveToFile(CacheFileName, adSaveCreateOverWrite);
    return true;
  });
}

Ref<CAttachement> CSession::GetAttachement(std::int32_t lngAttachementID) {
  return GetRecord<CAttachement>(*this, "GetAttachement", CAttachement::kSelectRow, lngAttachementID);
}

bool CSession::DeleteAttachement(std::int32_t lngAttachementID) {
  return DeleteRow(*this, "DeleteAttachement", "DELETE * FROM Attachements WHERE ATC_ID=", lngAttachementID);
}

}  // namespace zef
