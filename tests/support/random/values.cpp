#include "tests/support/random/values.h"

#include <algorithm>

#include "component/utf16.h"

namespace zef::test {
namespace {

constexpr const char* kTexts[] = {"",
                                  "1",
                                  "-1",
                                  "3.5",
                                  "1e99",
                                  "True",
                                  "5/1/2024 9:00:00 AM",
                                  "O'Neill \"quoted\" [x] %_",
                                  "\xC4\x85\xF0\x9F\x98\x80",
                                  "\xFF\xC0",
                                  "FLD_ID>0",
                                  "1=1 ORDER BY",
                                  "SELECT * FROM Folders",
                                  "SELECT FLD_ID, FLD_ParentID FROM Folders",
                                  "INSERT INTO Notes (NOT_ID) VALUES (77)",
                                  "DELETE * FROM Notes",
                                  "Folders",
                                  "FLD_Name",
                                  "TSK_Name",
                                  "9.1.0",
                                  "Provider=SQLite;Data Source=nowhere.db",
                                  "file.txt",
                                  "no/such/folder/file.txt",
                                  "Admin",
                                  "ID",
                                  "Save",
                                  "NewEnum",
                                  "lngFolderID"};
constexpr std::int32_t kNumbers[] = {0, 1, 2, 3, -1, 4, 5, 7, 12, 18, 255, -32768, 65536, 2147483647, -2147483647 - 1};
constexpr double kDates[] = {0.0, 1.0, 45413.375, -1.25, -657434.0, 2958465.99, 1e300, -1e300};

}  // namespace

RandomValues::RandomValues(Choices& choices, RandomObjects& objects)
    : choices_(choices), objects_(objects), meddler_(objects) {}

std::string_view RandomValues::Name() { return choices_.Of(kTexts); }

bool RandomValues::NothingIsHeld() const {
  return std::ranges::all_of(foreign_, [](const ForeignObject* one) { return one->references == 1; });
}

VARIANT RandomValues::Argument(const component::Type* type) {
  Variant value = type != nullptr && !choices_.OneIn(8) ? Fitting(*type) : Any();
  return choices_.OneIn(3) ? Keep(Reference(std::move(value))).raw() : Keep(std::move(value)).raw();
}

Variant RandomValues::Any() {
  switch (choices_.Below(21)) {
    case 0:
    case 1:
    case 2: return Text();
    case 3:
    case 4:
    case 5: return Variant(choices_.Of(kNumbers));
    case 6: return Variant(choices_.OneIn(2));
    case 7: return Variant::Date(choices_.Of(kDates));
    case 8: return Variant(choices_.Raw<double>());
    case 9: return Variant::Of(VT_I8, choices_.Raw<LONGLONG>());
    case 10: return Variant::Of(VT_CY, choices_.Raw<LONGLONG>());
    case 11: return Decimal();
    case 12: return Variant::Null();
    case 13: return Variant();
    case 14: return Variant::Missing();
    case 15: return Variant::Nothing();
    case 16:
    case 17: return Variant(objects_.Any().object);
    case 18: return Array();
    case 19: return Foreign();
    default: return Variant::Of(static_cast<VARTYPE>(choices_.Raw<std::uint16_t>()), LONGLONG{0});
  }
}

Variant RandomValues::Fitting(const component::Type& type) {
  switch (type.kind) {
    case VT_I4: return Variant(choices_.OneIn(8) ? choices_.Raw<std::int32_t>() : choices_.Of(kNumbers));
    case VT_BOOL: return Variant(choices_.OneIn(2));
    case VT_DATE: return Variant::Date(choices_.OneIn(8) ? choices_.Raw<double>() : choices_.Of(kDates));
    case VT_BSTR: return Text();
    case VT_DISPATCH: return Variant(objects_.AnyOf(type.name));
    default: return Any();
  }
}

/// A known one, or units as they come, unpaired surrogates and zeros among them.
Variant RandomValues::Text() {
  if (!choices_.OneIn(8)) return Variant(choices_.Of(kTexts));
  std::u16string units(choices_.Below(16), u'\0');
  for (char16_t& unit : units) unit = choices_.OneIn(4) ? choices_.Raw<char16_t>() : choices_.Raw<std::uint8_t>();
  std::ranges::replace(units, u'/', u'_');  // no path leads out of the working folder
  return Variant(std::u16string_view(units));
}

Variant RandomValues::Decimal() {
  const auto high = choices_.Raw<std::uint32_t>();
  const auto low = choices_.Raw<std::uint64_t>();
  const auto scale = choices_.Raw<unsigned char>();
  return Variant::Decimal(high, low, scale, choices_.OneIn(2));
}

Variant RandomValues::Array() {
  constexpr VARTYPE kKinds[] = {VT_UI1, VT_BSTR, VT_I4};
  const VARTYPE kind = choices_.Of(kKinds);
  const auto array_kind = static_cast<VARTYPE>(VT_ARRAY | kind);
  if (choices_.OneIn(8)) return Variant::Of(array_kind, static_cast<SAFEARRAY*>(nullptr));
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(choices_.Below(5)), 0}, {static_cast<ULONG>(choices_.Below(3)), 1}};
  const UINT dimensions = choices_.OneIn(2) ? 1 : 2;
  SAFEARRAY* const array = SafeArrayCreate(kind, dimensions, bounds);
  const bool has_elements = bounds[0].cElements > 0 && (dimensions == 1 || bounds[1].cElements > 0);
  if (kind == VT_BSTR && has_elements) {
    static_cast<BSTR*>(array->pvData)[0] = SysAllocString(component::FromUtf16(u"text"));
  }
  return Variant::Of(array_kind, array);
}

Variant RandomValues::Foreign() {
  IDispatch* const object = foreign_[choices_.Below(foreign_.size())];
  object->AddRef();
  return Variant::Of(choices_.OneIn(4) ? VT_UNKNOWN : VT_DISPATCH, object);
}

/// A reference to something that lives until the call is over, or to nothing.
Variant RandomValues::Reference(Variant&& to) {
  Variant& value = Keep(std::move(to));
  if (choices_.OneIn(3)) return Variant::Ref(value);
  if (choices_.OneIn(4)) return Variant::Ref(Keep(Variant::Ref(value)));
  auto kind = static_cast<VARTYPE>(value.kind() & ~VT_BYREF);
  if (kind == VT_VARIANT) kind = VT_EMPTY;  // it would be read, and written, as a whole variant
  if (choices_.OneIn(8)) return Variant::Ref(kind, nullptr);
  return Variant::Ref(kind, kind == VT_DECIMAL ? static_cast<void*>(&value.raw()) : &value.raw().llVal);
}

}  // namespace zef::test
