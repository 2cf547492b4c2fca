#include "notes/attachement.h"
#include "textviews/export.h"
#include "textviews/labels.h"
#include "textviews/named_value.h"

namespace zef {
namespace {

constexpr NamedValue<CAttachement> kLabels[] = {
    {"Name:", Plain<&CAttachement::Name>},
    {"Document type:", Plain<&CAttachement::DocType>},
    {"Description:", Plain<&CAttachement::Description>},
    {"File name:", Plain<&CAttachement::FileName>},
};

}  // namespace

void FillLabels(const CAttachement& attachement, FieldsArray& rows) { FillRows(rows, kLabels, attachement); }

bool CAttachement::Save2File(std::int32_t lngFileNumber) const {
  return SaveToOpenFile(*this, "CAttachement.Save2File", lngFileNumber);
}

}  // namespace zef
