#include "tasks/task.h"
#include "textviews/export.h"
#include "textviews/labels.h"
#include "textviews/named_value.h"

namespace zef {
namespace {

std::string StatusOf(const CTask& task) { return StatusName(task.Session(), task.StatusID); }

constexpr NamedValue<CTask> kLabels[] = {
    {"Name:", Plain<&CTask::Name>},
    {"Description:", Plain<&CTask::Description>},
    {"Folder:", FolderOf},
    {"Category:", CategoryOf},
    {"Status:", StatusOf},
    {"Priority:", Plain<&CTask::Priority>},
    {"Start date:", ShortDateOrNothing<&CTask::StartDate>},
    {"Due date:", ShortDateOrNothing<&CTask::DueDate>},
    {"Completed:", Plain<&CTask::Completed>},
    {"Date completed:", ShortDateOrNothing<&CTask::DateCompleted>},
    {"Assigned to:", Plain<&CTask::AssignedTo>},
    {"Date last updated:", Plain<&CTask::DateLastUpdate>},
};

constexpr NamedValue<CTask> kFields[] = {
    {"TSK_Name", Plain<&CTask::Name>},
    {"TSK_Description", Plain<&CTask::Description>},
    {"TSK_StartDate", DateOrNothing<&CTask::StartDate>},
    {"TSK_DueDate", DateOrNothing<&CTask::DueDate>},
    {"TSK_AssignedTo", Plain<&CTask::AssignedTo>},
    {"TSK_Completed", Plain<&CTask::Completed>},
    {"TSK_DateCompleted", DateOrNothing<&CTask::DateCompleted>},
    {"CAT_Name", CategoryLookedUp},
};

}  // namespace

void FillLabels(const CTask& task, FieldsArray& rows) { FillRows(rows, kLabels, task); }

std::string CTask::Field2String(const std::string& strFldName) const { return ValueOf(kFields, strFldName, *this); }

bool CTask::Save2File(const std::string& strFile) const {
  return Trapped(Session(), "CTask.Save2File", false, [&] {
    Deref(Session()).ClearError();
    const std::int32_t file = OpenExport(strFile);
    const std::optional<std::string> lines = FieldLines(*this);
    if (!lines) return false;
    Print(file, *lines);
    if (!PrintChildren(file, *this)) return false;
    CloseFile(file);
    return true;
  });
}

}  // namespace zef
