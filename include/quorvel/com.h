#pragma once

/// The few COM types that quorvel.h needs.
///
/// On Windows they are the operating system's own. Elsewhere this header defines them in namespace Quorvel, with the
/// layouts and rules of the originals: a host with `using namespace Quorvel` compiles on both. Its functions are
/// inline; texts are allocated with malloc, so host and component may free each other's.
///
/// The differences elsewhere: OLECHAR is char16_t, a VARIANT has no arrays or user types and no member for its decimal,
/// and there are no apartments, so an object is used on one thread and cannot be marshalled to another.

#ifdef _WIN32

#include <oaidl.h>
#include <oleauto.h>
#define QUORVEL_CALL STDMETHODCALLTYPE
namespace Quorvel {}

#else

#include <cstdint>
#include <cstdlib>
#include <cstring>

#define QUORVEL_CALL
#ifndef OLESTR
#define OLESTR(text) u##text
#endif

// Some headers for databases define this name as a macro.
#pragma push_macro("BOOL")
#undef BOOL

namespace Quorvel {

using BOOL = std::int32_t;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using FLOAT = float;
using DOUBLE = double;
using OLECHAR = char16_t;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;
/// Text with its length in bytes in the four bytes before it and a zero after it; null is the empty text.
using BSTR = OLECHAR*;
/// Days since 1899-12-30; the fraction is the time of day and counts forwards also in negative dates.
using DATE = double;
/// True is all bits set.
using VARIANT_BOOL = std::int16_t;
using VARTYPE = std::uint16_t;
using HRESULT = std::int32_t;
using SCODE = std::int32_t;
using LCID = std::uint32_t;
using DISPID = LONG;

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001U);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002U);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003U);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
inline constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFU);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000EU);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057U);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = static_cast<HRESULT>(0x80040110U);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = static_cast<HRESULT>(0x80040111U);
inline constexpr HRESULT CO_E_CLASSSTRING = static_cast<HRESULT>(0x800401F3U);
inline constexpr HRESULT DISP_E_UNKNOWNINTERFACE = static_cast<HRESULT>(0x80020001U);
inline constexpr HRESULT DISP_E_MEMBERNOTFOUND = static_cast<HRESULT>(0x80020003U);
inline constexpr HRESULT DISP_E_PARAMNOTFOUND = static_cast<HRESULT>(0x80020004U);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = static_cast<HRESULT>(0x80020005U);
inline constexpr HRESULT DISP_E_UNKNOWNNAME = static_cast<HRESULT>(0x80020006U);
inline constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008U);
inline constexpr HRESULT DISP_E_EXCEPTION = static_cast<HRESULT>(0x80020009U);
inline constexpr HRESULT DISP_E_OVERFLOW = static_cast<HRESULT>(0x8002000AU);
inline constexpr HRESULT DISP_E_BADINDEX = static_cast<HRESULT>(0x8002000BU);
inline constexpr HRESULT DISP_E_BADPARAMCOUNT = static_cast<HRESULT>(0x8002000EU);
inline constexpr HRESULT DISP_E_PARAMNOTOPTIONAL = static_cast<HRESULT>(0x8002000FU);

[[nodiscard]] constexpr bool SUCCEEDED(HRESULT result) noexcept { return result >= 0; }
[[nodiscard]] constexpr bool FAILED(HRESULT result) noexcept { return result < 0; }

/// The fixed identifiers of members and of a property's new value.
inline constexpr DISPID DISPID_VALUE = 0;
inline constexpr DISPID DISPID_UNKNOWN = -1;
inline constexpr DISPID DISPID_PROPERTYPUT = -3;
inline constexpr DISPID DISPID_NEWENUM = -4;

inline constexpr WORD DISPATCH_METHOD = 1;
inline constexpr WORD DISPATCH_PROPERTYGET = 2;
inline constexpr WORD DISPATCH_PROPERTYPUT = 4;
inline constexpr WORD DISPATCH_PROPERTYPUTREF = 8;

/// The types of a VARIANT.
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
  VT_BYREF = 0x4000,
};

struct GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];
};
[[nodiscard]] inline bool operator==(const GUID& left, const GUID& right) noexcept {
  return std::memcmp(&left, &right, sizeof(GUID)) == 0;
}
[[nodiscard]] inline bool operator!=(const GUID& left, const GUID& right) noexcept { return !(left == right); }
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline constexpr GUID IID_NULL{0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};
inline constexpr GUID IID_IUnknown{0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_IClassFactory{0x00000001, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_IDispatch{0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_IEnumVARIANT{0x00020404, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_IErrorInfo{0x1CF2B120, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
inline constexpr GUID IID_ISupportErrorInfo{
    0xDF0B3D60, 0x548F, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};

// Interfaces have no destructor, so that their tables of operations contain only the operations of the interface.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

struct IUnknown {
  virtual HRESULT QueryInterface(REFIID riid, void** object) = 0;
  virtual ULONG AddRef() = 0;
  virtual ULONG Release() = 0;
};

struct IDispatch;
struct ITypeInfo;

/// A decimal number of 96 bits, divided by 10 as often as `scale` says (0 to 28). A VARIANT with one is these bytes
/// with VT_DECIMAL in the first member: copy it into the VARIANT with memcpy, then set vt.
struct DECIMAL {
  USHORT wReserved;
  BYTE scale;
  BYTE sign;  ///< 0, or 0x80 for a negative number
  ULONG Hi32;
  ULONGLONG Lo64;
};

/// A value of any type. Its owner clears it.
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
    FLOAT fltVal;
    DOUBLE dblVal;
    VARIANT_BOOL boolVal;
    SCODE scode;
    LONGLONG cyVal;  ///< ten-thousandths
    DATE date;
    BSTR bstrVal;
    IUnknown* punkVal;
    IDispatch* pdispVal;
    BYTE* pbVal;
    SHORT* piVal;
    LONG* plVal;
    LONGLONG* pllVal;
    FLOAT* pfltVal;
    DOUBLE* pdblVal;
    VARIANT_BOOL* pboolVal;
    SCODE* pscode;
    DATE* pdate;
    BSTR* pbstrVal;
    IUnknown** ppunkVal;
    IDispatch** ppdispVal;
    VARIANT* pvarVal;
    void* byref;
    char cVal;
    USHORT uiVal;
    ULONG ulVal;
    ULONGLONG ullVal;
    INT intVal;
    UINT uintVal;
    void* reservedPair[2];
  };
};
using VARIANTARG = VARIANT;

/// The arguments of a call in reverse order; the named ones come before the others.
struct DISPPARAMS {
  VARIANTARG* rgvarg;
  DISPID* rgdispidNamedArgs;
  UINT cArgs;
  UINT cNamedArgs;
};

/// The error of a call by name. The caller frees the texts.
struct EXCEPINFO {
  WORD wCode;
  WORD wReserved;
  BSTR bstrSource;
  BSTR bstrDescription;
  BSTR bstrHelpFile;
  DWORD dwHelpContext;
  void* pvReserved;
  HRESULT (*pfnDeferredFillIn)(EXCEPINFO* info);
  SCODE scode;
};

struct IDispatch : IUnknown {
  virtual HRESULT GetTypeInfoCount(UINT* count) = 0;
  virtual HRESULT GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) = 0;
  virtual HRESULT GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) = 0;
  virtual HRESULT Invoke(DISPID member, REFIID riid, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                         EXCEPINFO* exception, UINT* argumentInError) = 0;
};

struct IClassFactory : IUnknown {
  virtual HRESULT CreateInstance(IUnknown* outer, REFIID riid, void** object) = 0;
  virtual HRESULT LockServer(BOOL lock) = 0;
};

struct IEnumVARIANT : IUnknown {
  virtual HRESULT Next(ULONG count, VARIANT* values, ULONG* fetched) = 0;
  virtual HRESULT Skip(ULONG count) = 0;
  virtual HRESULT Reset() = 0;
  virtual HRESULT Clone(IEnumVARIANT** copy) = 0;
};

struct IErrorInfo : IUnknown {
  virtual HRESULT GetGUID(GUID* interfaceId) = 0;
  virtual HRESULT GetSource(BSTR* source) = 0;
  virtual HRESULT GetDescription(BSTR* description) = 0;
  virtual HRESULT GetHelpFile(BSTR* file) = 0;
  virtual HRESULT GetHelpContext(DWORD* context) = 0;
};

struct ISupportErrorInfo : IUnknown {
  virtual HRESULT InterfaceSupportsErrorInfo(REFIID riid) = 0;
};

/// Access to the error object of the current thread, which the component keeps, for GetErrorInfo and SetErrorInfo.
/// QuorvelCreate returns this interface for the name "Quorvel.ThreadErrors". DllGetClassObject returns it for
/// CLSID_ThreadErrors too, but a host or another library may have a function of that name, which is then called
/// instead.
struct IThreadErrors : IUnknown {
  virtual HRESULT SetErrorInfo(IErrorInfo* error) = 0;
  virtual HRESULT GetErrorInfo(IErrorInfo** error) = 0;
};

#pragma GCC diagnostic pop

inline constexpr GUID IID_IThreadErrors{0xAD7D6DE0, 0x5475, 0x4CC4, {0xAC, 0xF6, 0x3D, 0x00, 0xB7, 0x4D, 0xD7, 0xF1}};
inline constexpr GUID CLSID_ThreadErrors{0xD273346F, 0x724C, 0x42EB, {0x8D, 0xF0, 0x4C, 0x80, 0x53, 0x45, 0xA1, 0xCB}};

/// @name Texts
/// @{

/// A text of `byteLength` bytes, copied from `bytes` if that is not null; null when there is no memory.
[[nodiscard]] inline BSTR SysAllocStringByteLen(const char* bytes, UINT byteLength) noexcept {
  constexpr std::size_t kPrefix = 8;  // the length, and what keeps the characters aligned
  if (byteLength > 0xFFFFFFF0U) return nullptr;
  auto* block = static_cast<char*>(std::malloc(kPrefix + byteLength + sizeof(OLECHAR)));
  if (block == nullptr) return nullptr;
  std::memcpy(block + kPrefix - sizeof(UINT), &byteLength, sizeof(UINT));
  char* text = block + kPrefix;
  if (bytes != nullptr) std::memcpy(text, bytes, byteLength);
  text[byteLength] = text[byteLength + 1] = '\0';
  return reinterpret_cast<BSTR>(text);
}

/// A text of `length` characters, which may include zeros.
[[nodiscard]] inline BSTR SysAllocStringLen(const OLECHAR* text, UINT length) noexcept {
  if (length > 0x7FFFFFF0U) return nullptr;
  return SysAllocStringByteLen(reinterpret_cast<const char*>(text), length * static_cast<UINT>(sizeof(OLECHAR)));
}

/// A copy of a text that ends with a zero; null for null.
[[nodiscard]] inline BSTR SysAllocString(const OLECHAR* text) noexcept {
  if (text == nullptr) return nullptr;
  UINT length = 0;
  while (text[length] != 0) ++length;
  return SysAllocStringLen(text, length);
}

inline void SysFreeString(BSTR text) noexcept {
  if (text != nullptr) std::free(reinterpret_cast<char*>(text) - 8);
}

[[nodiscard]] inline UINT SysStringByteLen(BSTR text) noexcept {
  UINT length = 0;
  if (text != nullptr) std::memcpy(&length, reinterpret_cast<const char*>(text) - sizeof(UINT), sizeof(UINT));
  return length;
}

[[nodiscard]] inline UINT SysStringLen(BSTR text) noexcept {
  return SysStringByteLen(text) / static_cast<UINT>(sizeof(OLECHAR));
}
/// @}

/// @name Values of any type
/// @{

inline void VariantInit(VARIANT* value) noexcept { std::memset(value, 0, sizeof(VARIANT)); }

/// Frees the content of the value and makes it empty.
inline HRESULT VariantClear(VARIANT* value) noexcept {
  if (value->vt == VT_BSTR) SysFreeString(value->bstrVal);
  if ((value->vt == VT_DISPATCH || value->vt == VT_UNKNOWN) && value->punkVal != nullptr) value->punkVal->Release();
  value->vt = VT_EMPTY;
  return S_OK;
}

/// Makes `target` a copy with its own text or reference. On failure it is left empty.
inline HRESULT VariantCopy(VARIANT* target, const VARIANT* source) noexcept {
  if (target == source) return S_OK;
  VariantClear(target);
  VARIANT copy = *source;
  if (copy.vt == VT_BSTR && copy.bstrVal != nullptr) {
    copy.bstrVal = SysAllocStringByteLen(reinterpret_cast<const char*>(copy.bstrVal), SysStringByteLen(copy.bstrVal));
    if (copy.bstrVal == nullptr) return E_OUTOFMEMORY;
  }
  if ((copy.vt == VT_DISPATCH || copy.vt == VT_UNKNOWN) && copy.punkVal != nullptr) copy.punkVal->AddRef();
  *target = copy;
  return S_OK;
}
/// @}

}  // namespace Quorvel

extern "C" Quorvel::HRESULT DllGetClassObject(Quorvel::REFCLSID rclsid, Quorvel::REFIID riid, void** object);
extern "C" Quorvel::HRESULT DllCanUnloadNow();
extern "C" Quorvel::HRESULT QuorvelCreate(Quorvel::LPCOLESTR progId, Quorvel::REFIID riid, void** object);

namespace Quorvel {

/// @name The thread's error object
/// @{

/// Takes the error object of the last failed call on this thread; S_FALSE and null when there is none. E_INVALIDARG
/// when `error` is null.
inline HRESULT GetErrorInfo(ULONG /*reserved*/, IErrorInfo** error) noexcept {
  if (error == nullptr) return E_INVALIDARG;
  *error = nullptr;
  IThreadErrors* errors = nullptr;
  const HRESULT result =
      QuorvelCreate(OLESTR("Quorvel.ThreadErrors"), IID_IThreadErrors, reinterpret_cast<void**>(&errors));
  if (FAILED(result)) return result;
  const HRESULT taken = errors->GetErrorInfo(error);
  errors->Release();
  return taken;
}

/// Replaces the thread's error object; null removes it.
inline HRESULT SetErrorInfo(ULONG /*reserved*/, IErrorInfo* error) noexcept {
  IThreadErrors* errors = nullptr;
  const HRESULT result =
      QuorvelCreate(OLESTR("Quorvel.ThreadErrors"), IID_IThreadErrors, reinterpret_cast<void**>(&errors));
  if (FAILED(result)) return result;
  errors->SetErrorInfo(error);
  errors->Release();
  return S_OK;
}
/// @}

}  // namespace Quorvel

#pragma pop_macro("BOOL")

#endif
