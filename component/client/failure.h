#pragma once

#include <cstdint>
#include <cstdio>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

#include "ZEFComponents/automation.h"
#include "ZEFComponents/text.h"

namespace zef {
inline namespace automation {

/// A call that failed: the number and the sentence that the library raised, or the result of a call that it refused.
class Failure : public std::runtime_error {
 public:
  Failure(std::int32_t number, const std::string& sentence, std::string source = "ZEFComponents")
      : std::runtime_error(sentence), number_(number), source_(std::move(source)) {}
  /// A number of the run time such as 91, the provider's own, which is negative, or a result such as
  /// DISP_E_TYPEMISMATCH.
  std::int32_t number() const noexcept { return number_; }
  /// Who raised it.
  const std::string& source() const noexcept { return source_; }

 private:
  std::int32_t number_;
  std::string source_;
};

inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kCannotCreateObject = 429;

/// What a call tells about its failure, with the texts that it handed out.
struct OwnedExcepinfo : EXCEPINFO {
  OwnedExcepinfo() : EXCEPINFO{} {}
  ~OwnedExcepinfo() {
    for (BSTR text : {bstrSource, bstrDescription, bstrHelpFile}) SysFreeString(text);
  }
  OwnedExcepinfo(const OwnedExcepinfo&) = delete;
  OwnedExcepinfo& operator=(const OwnedExcepinfo&) = delete;
};

/// Why the library refused a call that it did not begin; `given` is what was at fault if it was a value.
inline std::string RefusalText(HRESULT result, const std::string& given) {
  switch (result) {
    case DISP_E_TYPEMISMATCH: return given + " is of a type that does not convert";
    case DISP_E_OVERFLOW: return given + " is out of the range of its type";
    case DISP_E_BADPARAMCOUNT: return "The member takes another number of arguments";
    case DISP_E_PARAMNOTOPTIONAL: return "An argument that the member needs is missing";
    case DISP_E_MEMBERNOTFOUND: return "The object has no such member, or none to be used in this way";
    case CLASS_E_CLASSNOTAVAILABLE: return "The library has no such class";
    default: break;
  }
  char code[32];
  std::snprintf(code, sizeof code, "%08X", static_cast<unsigned>(result));
  return std::string("The call was refused with result ") + code;
}

/// True for the number of a call that the library did not begin, as DISP_E_TYPEMISMATCH.
constexpr bool IsRefusal(std::int32_t number) { return static_cast<std::uint32_t>(number) >> 16 == 0x8002; }

[[noreturn]] inline void Raise(HRESULT result, const EXCEPINFO& told = {}, const std::string& given = "An argument") {
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  if (result != DISP_E_EXCEPTION) throw Failure(result, RefusalText(result, given));
  constexpr std::uint32_t kRunTime = 0x800A;
  const auto bits = static_cast<std::uint32_t>(told.scode);
  const std::int32_t number = bits >> 16 == kRunTime ? static_cast<std::int32_t>(bits & 0xFFFF) : told.scode;
  throw Failure(number, TextOf(told.bstrDescription), TextOf(told.bstrSource));
}

/// Raises the failure of a call that tells no more than a code, such as a step of a walk: what was raised stands in the
/// object's `IErrorInfo`.
[[noreturn]] inline void RaiseFailureOf(IUnknown* object, HRESULT result) {
  void* side = nullptr;
  if (result == E_OUTOFMEMORY || FAILED(object->QueryInterface(IID_IErrorInfo, &side))) Raise(result);
  OwnedExcepinfo told;
  auto* const info = static_cast<IErrorInfo*>(side);
  info->GetSource(&told.bstrSource);
  info->GetDescription(&told.bstrDescription);
  info->Release();
  if (told.bstrSource == nullptr) Raise(result);
  told.scode = result;
  Raise(DISP_E_EXCEPTION, told);
}

}  // namespace automation
}  // namespace zef
