#include "session/operations.h"
#include "users/tags.h"

namespace zef {
namespace {

/// A table of identifiers and names that the library only reads.
struct LookupList {
  const char* select;
  const char* select_one;  ///< the identifier follows
  TagColumns columns;
};

constexpr LookupList kStatuses{
    "SELECT * FROM lstTaskStatus", "SELECT * FROM lstTaskStatus WHERE TS_ID=", {"TS_ID", "TS_Name"}};
constexpr LookupList kPriorities{
    "SELECT * FROM lstTaskPriority", "SELECT * FROM lstTaskPriority WHERE TP_ID=", {"TP_ID", "TP_Name"}};
constexpr LookupList kStates{"SELECT * FROM lstStates", "SELECT * FROM lstStates WHERE ST_ID=", {"ST_ID", "ST_Name"}};
constexpr LookupList kCountries{
    "SELECT * FROM lstCountries", "SELECT * FROM lstCountries WHERE COU_ID=", {"COU_ID", "COU_Name"}};

bool LoadList(CSession& session, const Ref<CTags>& tags, std::string_view procedure, const LookupList& list) {
  return LoadElements(session, tags, procedure, list.select,
                      [&](const Ref<Recordset>& rs) { return ReadTag(*rs, list.columns); });
}

Ref<CTag> GetEntry(CSession& session, std::string_view procedure, const LookupList& list, std::int32_t id) {
  return GetElement(session, procedure, WithNumber(list.select_one, id),
                    [&](const Ref<Recordset>& rs) { return ReadTag(*rs, list.columns); });
}

}  // namespace

bool CSession::LoadTaskStatusList(const Ref<CTags>& udtStatusList) {
  return LoadList(*this, udtStatusList, "LoadTaskStatusList", kStatuses);
}

bool CSession::LoadTaskPriorityList(const Ref<CTags>& udtPriorityList) {
  return LoadList(*this, udtPriorityList, "LoadTaskPriorityList", kPriorities);
}

bool CSession::LoadStateTags(const Ref<CTags>& udtStateTags) {
  return LoadList(*this, udtStateTags, "LoadStateTags", kStates);
}

bool CSession::LoadCountryTags(const Ref<CTags>& udtCountryTags) {
  return LoadList(*this, udtCountryTags, "LoadCountryTags", kCountries);
}

Ref<CTag> CSession::GetTaskStatus(std::int32_t StatusID) {
  return GetEntry(*this, "GetTaskStatus", kStatuses, StatusID);
}

Ref<CTag> CSession::GetTaskPriority(std::int32_t PriorityID) {
  return GetEntry(*this, "GetTaskPriority", kPriorities, PriorityID);
}

Ref<CTag> CSession::GetStateTag(std::int32_t lngStateID) { return GetEntry(*this, "GetStateTag", kStates, lngStateID); }

Ref<CTag> CSession::GetCountryTag(std::int32_t lngCountryID) {
  return GetEntry(*this, "GetCountryTag", kCountries, lngCountryID);
}

}  // namespace zef
