#pragma once

/// The binary layout of automation objects under its published names: on Linux declared here, header-only and with
/// nothing behind it but `malloc`; on Windows the system's own. Names follow the published ones, not this project's.
#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// Behind the first.
#include <oaidl.h>
#include <oleauto.h>
#include <olectl.h>

#undef CreateEvent  // the name of a member

#else

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;  // 32 bits everywhere, unlike the language's own type
using ULONG = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using HRESULT = std::int32_t;
using SCODE = std::int32_t;
using DISPID = std::int32_t;
using LCID = std::uint32_t;
using BOOL = std::int32_t;
using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;
using DATE = double;
using OLECHAR = char16_t;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;
using BSTR = OLECHAR*;

struct GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];

  friend bool operator==(const GUID& a, const GUID& b) { return std::memcmp(&a, &b, sizeof a) == 0; }
};
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

// Results.

inline constexpr HRESULT HresultOf(std::uint32_t bits) { return static_cast<HRESULT>(bits); }
inline constexpr bool SUCCEEDED(HRESULT result) { return result >= 0; }
inline constexpr bool FAILED(HRESULT result) { return result < 0; }

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = HresultOf(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = HresultOf(0x80004002);
inline constexpr HRESULT E_POINTER = HresultOf(0x80004003);
inline constexpr HRESULT E_FAIL = HresultOf(0x80004005);
inline constexpr HRESULT E_UNEXPECTED = HresultOf(0x8000FFFF);
inline constexpr HRESULT E_OUTOFMEMORY = HresultOf(0x8007000E);
inline constexpr HRESULT E_INVALIDARG = HresultOf(0x80070057);
inline constexpr HRESULT DISP_E_UNKNOWNINTERFACE = HresultOf(0x80020001);
inline constexpr HRESULT DISP_E_MEMBERNOTFOUND = HresultOf(0x80020003);
inline constexpr HRESULT DISP_E_PARAMNOTFOUND = HresultOf(0x80020004);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = HresultOf(0x80020005);
inline constexpr HRESULT DISP_E_UNKNOWNNAME = HresultOf(0x80020006);
inline constexpr HRESULT DISP_E_BADVARTYPE = HresultOf(0x80020008);
inline constexpr HRESULT DISP_E_EXCEPTION = HresultOf(0x80020009);
inline constexpr HRESULT DISP_E_OVERFLOW = HresultOf(0x8002000A);
inline constexpr HRESULT DISP_E_BADINDEX = HresultOf(0x8002000B);
inline constexpr HRESULT DISP_E_BADPARAMCOUNT = HresultOf(0x8002000E);
inline constexpr HRESULT DISP_E_PARAMNOTOPTIONAL = HresultOf(0x8002000F);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = HresultOf(0x80040110);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = HresultOf(0x80040111);

// Identifiers and flags of late binding.

inline constexpr DISPID DISPID_UNKNOWN = -1;
inline constexpr DISPID DISPID_VALUE = 0;
inline constexpr DISPID DISPID_PROPERTYPUT = -3;
inline constexpr DISPID DISPID_NEWENUM = -4;
inline constexpr WORD DISPATCH_METHOD = 1;
inline constexpr WORD DISPATCH_PROPERTYGET = 2;
inline constexpr WORD DISPATCH_PROPERTYPUT = 4;
inline constexpr WORD DISPATCH_PROPERTYPUTREF = 8;

// Kinds of a variant's value.

enum VARENUM : VARTYPE {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_UNKNOWN = 13,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_ARRAY = 0x2000,
  VT_BYREF = 0x4000,
  VT_TYPEMASK = 0xFFF,
};
inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

struct IUnknown {
  virtual HRESULT QueryInterface(REFIID riid, void** object) = 0;
  virtual ULONG AddRef() = 0;
  virtual ULONG Release() = 0;

 protected:
  ~IUnknown() = default;  // not virtual: the table holds the published entries alone
};
struct IDispatch;
struct ITypeInfo;

struct CY {
  LONGLONG int64;  // ten-thousandths
};

struct SAFEARRAYBOUND {
  ULONG cElements;
  LONG lLbound;
};

/// Its bounds stand last dimension first, its elements first index fastest.
struct SAFEARRAY {
  USHORT cDims;
  USHORT fFeatures;
  ULONG cbElements;
  ULONG cLocks;
  void* pvData;
  SAFEARRAYBOUND rgsabound[1];
};

/// What makes a variant 24 bytes long; no value of this library is one.
struct VariantRecord {
  void* pvRecord;
  void* pRecInfo;
};

struct VARIANT {
  VARTYPE vt;
  WORD wReserved1;
  WORD wReserved2;
  WORD wReserved3;
  union {
    LONGLONG llVal;
    LONG lVal;
    BYTE bVal;
    SHORT iVal;
    float fltVal;
    double dblVal;
    VARIANT_BOOL boolVal;
    SCODE scode;
    CY cyVal;
    DATE date;
    BSTR bstrVal;
    IUnknown* punkVal;
    IDispatch* pdispVal;
    SAFEARRAY* parray;
    signed char cVal;
    USHORT uiVal;
    ULONG ulVal;
    ULONGLONG ullVal;
    INT intVal;
    UINT uintVal;
    BYTE* pbVal;
    SHORT* piVal;
    LONG* plVal;
    LONGLONG* pllVal;
    float* pfltVal;
    double* pdblVal;
    VARIANT_BOOL* pboolVal;
    SCODE* pscode;
    CY* pcyVal;
    DATE* pdate;
    BSTR* pbstrVal;
    IUnknown** ppunkVal;
    IDispatch** ppdispVal;
    SAFEARRAY** pparray;
    VARIANT* pvarVal;
    void* byref;
    VariantRecord record;
  };
};
using VARIANTARG = VARIANT;

/// Arguments stand from last to first; named ones at the front, with their identifiers in `rgdispidNamedArgs`.
struct DISPPARAMS {
  VARIANTARG* rgvarg;
  DISPID* rgdispidNamedArgs;
  UINT cArgs;
  UINT cNamedArgs;
};

struct EXCEPINFO {
  WORD wCode;
  WORD wReserved;
  BSTR bstrSource;
  BSTR bstrDescription;
  BSTR bstrHelpFile;
  DWORD dwHelpContext;
  void* pvReserved;
  HRESULT (*pfnDeferredFillIn)(EXCEPINFO*);
  SCODE scode;
};

static_assert(sizeof(GUID) == 16 && sizeof(VARIANT) == 24 && offsetof(VARIANT, lVal) == 8);
static_assert(sizeof(DISPPARAMS) == 24 && sizeof(EXCEPINFO) == 64 && offsetof(EXCEPINFO, scode) == 56);
static_assert(offsetof(SAFEARRAY, pvData) == 16 && offsetof(SAFEARRAY, rgsabound) == 24);

struct IDispatch : IUnknown {
  virtual HRESULT GetTypeInfoCount(UINT* count) = 0;
  virtual HRESULT GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) = 0;
  virtual HRESULT GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) = 0;
  virtual HRESULT Invoke(DISPID member, REFIID riid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                         EXCEPINFO* failure, UINT* argument) = 0;

 protected:
  ~IDispatch() = default;
};

struct IEnumVARIANT : IUnknown {
  virtual HRESULT Next(ULONG count, VARIANT* values, ULONG* fetched) = 0;
  virtual HRESULT Skip(ULONG count) = 0;
  virtual HRESULT Reset() = 0;
  virtual HRESULT Clone(IEnumVARIANT** copy) = 0;

 protected:
  ~IEnumVARIANT() = default;
};

/// What went wrong in the last call of an object that it is asked of; the texts are the receiver's.
struct IErrorInfo : IUnknown {
  virtual HRESULT GetGUID(GUID* guid) = 0;
  virtual HRESULT GetSource(BSTR* source) = 0;
  virtual HRESULT GetDescription(BSTR* description) = 0;
  virtual HRESULT GetHelpFile(BSTR* file) = 0;
  virtual HRESULT GetHelpContext(DWORD* context) = 0;

 protected:
  ~IErrorInfo() = default;
};

struct IClassFactory : IUnknown {
  virtual HRESULT CreateInstance(IUnknown* outer, REFIID riid, void** object) = 0;
  virtual HRESULT LockServer(BOOL lock) = 0;

 protected:
  ~IClassFactory() = default;
};

inline constexpr IID IID_NULL{};
inline constexpr IID IID_IUnknown{0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IClassFactory{1, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IDispatch{0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IEnumVARIANT{0x00020404, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IErrorInfo{0x1CF2B120, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};

// Texts: UTF-16, the length in bytes in the 32 bits in front, a zero behind. The block begins 8 bytes before the text
// and belongs to `malloc`; a null pointer is the empty text.

/// A text of `length` units, which are copied if `source` is given; null if there is no memory.
inline BSTR SysAllocStringLen(const OLECHAR* source, UINT length) {
  const std::size_t bytes = std::size_t{length} * sizeof(OLECHAR);
  if (bytes > 0xFFFFFFF0u) return nullptr;
  char* const block = static_cast<char*>(std::malloc(8 + bytes + sizeof(OLECHAR)));
  if (block == nullptr) return nullptr;
  const auto size = static_cast<std::uint32_t>(bytes);
  std::memcpy(block + 4, &size, sizeof size);
  char* const text = block + 8;
  if (source != nullptr) std::memcpy(text, source, bytes);
  std::memset(text + bytes, 0, sizeof(OLECHAR));
  return reinterpret_cast<BSTR>(text);
}
inline BSTR SysAllocString(const OLECHAR* source) {
  if (source == nullptr) return nullptr;
  UINT length = 0;
  while (source[length] != 0) ++length;
  return SysAllocStringLen(source, length);
}
inline UINT SysStringByteLen(BSTR text) {
  if (text == nullptr) return 0;
  std::uint32_t size = 0;
  std::memcpy(&size, reinterpret_cast<const char*>(text) - 4, sizeof size);
  return size;
}
inline UINT SysStringLen(BSTR text) { return SysStringByteLen(text) / UINT{sizeof(OLECHAR)}; }
inline void SysFreeString(BSTR text) {
  if (text != nullptr) std::free(reinterpret_cast<char*>(text) - 8);
}

// Variants and arrays.

inline void VariantInit(VARIANT* variant) { std::memset(static_cast<void*>(variant), 0, sizeof *variant); }

/// An array of elements that are all zero; null if there is no memory.
inline SAFEARRAY* SafeArrayCreate(VARTYPE kind, UINT dimensions, const SAFEARRAYBOUND* bounds) {
  const ULONG size = kind == VT_UI1 ? 1 : kind == VT_BSTR ? sizeof(BSTR) : kind == VT_I4 ? sizeof(LONG) : 0;
  if (size == 0 || dimensions == 0) return nullptr;
  const std::size_t head = offsetof(SAFEARRAY, rgsabound) + dimensions * sizeof(SAFEARRAYBOUND);
  auto* const array = static_cast<SAFEARRAY*>(std::calloc(1, head < sizeof(SAFEARRAY) ? sizeof(SAFEARRAY) : head));
  if (array == nullptr) return nullptr;
  std::size_t elements = 1;
  for (UINT i = 0; i < dimensions; ++i) {
    array->rgsabound[dimensions - 1 - i] = bounds[i];
    elements *= bounds[i].cElements;
  }
  array->cDims = static_cast<USHORT>(dimensions);
  array->fFeatures = kind == VT_BSTR ? 0x0100 : 0;
  array->cbElements = size;
  array->pvData = std::calloc(elements > 0 ? elements : 1, size);
  if (array->pvData != nullptr) return array;
  std::free(array);
  return nullptr;
}
inline std::size_t SafeArrayElements(const SAFEARRAY* array) {
  std::size_t elements = 1;
  for (USHORT i = 0; i < array->cDims; ++i) elements *= array->rgsabound[i].cElements;
  return elements;
}
inline HRESULT VariantClear(VARIANT* variant);

/// Frees one element of an array with these features.
inline void SafeArrayClearElement(USHORT features, void* element) {
  constexpr USHORT kTexts = 0x0100;
  constexpr USHORT kObjects = 0x0200 | 0x0400;
  constexpr USHORT kVariants = 0x0800;
  if ((features & kTexts) != 0) {
    SysFreeString(*static_cast<BSTR*>(element));
  } else if ((features & kObjects) != 0) {
    IUnknown* const object = *static_cast<IUnknown**>(element);
    if (object != nullptr) object->Release();
  } else if ((features & kVariants) != 0) {
    VariantClear(static_cast<VARIANT*>(element));
  }
}

/// Frees the array and what its elements own.
inline HRESULT SafeArrayDestroy(SAFEARRAY* array) {
  if (array == nullptr) return S_OK;
  const std::size_t elements = array->pvData == nullptr ? 0 : SafeArrayElements(array);
  for (std::size_t i = 0; i < elements; ++i) {
    SafeArrayClearElement(array->fFeatures, static_cast<char*>(array->pvData) + i * array->cbElements);
  }
  std::free(array->pvData);
  std::free(array);
  return S_OK;
}

/// Frees what the variant owns and empties it; what it refers to stays.
inline HRESULT VariantClear(VARIANT* variant) {
  if ((variant->vt & VT_BYREF) != 0) {
  } else if ((variant->vt & VT_ARRAY) != 0) {
    SafeArrayDestroy(variant->parray);
  } else if (variant->vt == VT_BSTR) {
    SysFreeString(variant->bstrVal);
  } else if (variant->vt == VT_UNKNOWN || variant->vt == VT_DISPATCH) {
    if (variant->punkVal != nullptr) variant->punkVal->Release();
  }
  VariantInit(variant);
  return S_OK;
}

#endif

// What a library of components exports: "DllGetClassObject", and three functions of the other type.

using GetClassObjectFunction = HRESULT(REFCLSID rclsid, REFIID riid, void** object);
using LibraryFunction = HRESULT();
