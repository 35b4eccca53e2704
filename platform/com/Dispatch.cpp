// IDispatch over a member table: finds the member and its parameters by name, converts the arguments, calls the
// operation and turns its error object into an EXCEPINFO.
#include "platform/com/Dispatch.h"

#include <algorithm>
#include <string>

#include "platform/Environment.h"
#include "platform/Error.h"
#include "platform/com/Arguments.h"
#include "platform/com/CallGuard.h"
#include "platform/com/Variant.h"

namespace quorvel::com {
namespace {

/// All names are ASCII, so only these letters have two cases.
OLECHAR Fold(OLECHAR character) noexcept {
  return character >= 'A' && character <= 'Z' ? static_cast<OLECHAR>(character - 'A' + 'a') : character;
}

bool IsNamed(Name name, LPCOLESTR wanted) noexcept {
  if (wanted == nullptr) return false;
  for (const OLECHAR character : name) {
    if (Fold(character) != Fold(*wanted)) return false;
    ++wanted;
  }
  return *wanted == 0;
}

DISPID FindParameter(std::span<const Member> members, DISPID id, LPCOLESTR name) noexcept {
  for (const Member& member : members) {
    if (member.id != id) continue;
    const auto found =
        std::ranges::find_if(member.parameters, [&](const Parameter& p) { return IsNamed(p.name, name); });
    if (found != member.parameters.end()) return static_cast<DISPID>(found - member.parameters.begin());
  }
  return DISPID_UNKNOWN;
}

bool Answers(const Member& member, WORD flags) noexcept {
  constexpr WORD kAssignments = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
  const auto kind = static_cast<WORD>(member.kind);
  // Callers by name do not know which properties hold objects.
  if (member.kind == MemberKind::PutRef) return (flags & kAssignments) != 0;
  // Some script engines request the enumerator as a method.
  if (member.id == DISPID_NEWENUM && (flags & DISPATCH_METHOD) != 0) return true;
  return (flags & kind) != 0;
}

const Member* FindMember(std::span<const Member> members, DISPID id, WORD flags) noexcept {
  const auto found = std::ranges::find_if(members, [&](const Member& m) { return m.id == id && Answers(m, flags); });
  return found != members.end() ? &*found : nullptr;
}

/// The result of a call by name whose operation failed.
HRESULT Failed(HRESULT result, EXCEPINFO* exception) noexcept {
  TakeError(result, exception);
  return DISP_E_EXCEPTION;
}

[[noreturn]] void ThrowForeignObject() {
  throw Error(ErrorNumber::TypeMismatch, std::string(kApplicationName),
              "This object is of another kind than the call takes, or not of this component: pass one that the "
              "component gave");
}

struct Call {
  IDispatch& object;
  const Member& member;
  LCID locale;
  WORD flags;
  DISPPARAMS& given;
  VARIANT* result;
  EXCEPINFO* exception;
  UINT* argumentInError;
};

HRESULT CallMember(const Call& call) noexcept {
  Arguments arguments;
  const HRESULT taken = arguments.Take(call.member, call.given, call.locale, call.argumentInError);
  if (taken == E_NOINTERFACE) return Failed(Guarded(IID_IDispatch, ThrowForeignObject), call.exception);
  if (FAILED(taken)) return taken;
  OwnedVariant delivered;
  const HRESULT result = call.member.call(call.object, arguments.Values(), delivered.Get());
  if (FAILED(result)) return Failed(result, call.exception);
  if (call.result != nullptr) *call.result = delivered.Release();
  return S_OK;
}

/// Whether the arguments belong to the default member of the object that the member delivers.
bool IsForDeliveredObject(const Call& call) noexcept {
  return call.member.kind == MemberKind::Get && call.member.parameters.empty() &&
         call.member.result.type == VT_DISPATCH && call.given.cArgs > 0;
}

HRESULT CallDeliveredObject(const Call& call) noexcept {
  OwnedVariant delivered;
  DISPPARAMS none{};
  const HRESULT result =
      CallMember({call.object, call.member, call.locale, call.flags, none, &delivered.Get(), call.exception, nullptr});
  if (FAILED(result)) return result;
  IDispatch* target = delivered.Get().pdispVal;
  if (target == nullptr) return Failed(Guarded(IID_IDispatch, [] { ThrowObjectNotSet(); }), call.exception);
  return target->Invoke(DISPID_VALUE, IID_NULL, call.locale, call.flags, &call.given, call.result, call.exception,
                        call.argumentInError);
}

}  // namespace

HRESULT FindNames(std::span<const Member> members, REFIID riid, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  if (riid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr) return E_POINTER;
  if (count == 0) return E_INVALIDARG;
  std::fill_n(ids, count, DISPID_UNKNOWN);
  const auto found = std::ranges::find_if(members, [&](const Member& m) { return IsNamed(m.name, names[0]); });
  if (found == members.end()) return DISP_E_UNKNOWNNAME;
  ids[0] = found->id;
  HRESULT result = S_OK;
  for (UINT index = 1; index < count; ++index) {
    ids[index] = FindParameter(members, found->id, names[index]);
    if (ids[index] == DISPID_UNKNOWN) result = DISP_E_UNKNOWNNAME;
  }
  return result;
}

HRESULT InvokeMember(IDispatch& object, std::span<const Member> members, DISPID id, REFIID riid, LCID locale,
                     WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                     UINT* argumentInError) noexcept {
  if (riid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (arguments == nullptr) return E_POINTER;
  if (result != nullptr) VariantInit(result);
  const Member* member = FindMember(members, id, flags);
  if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
  const Call call{object, *member, locale, flags, *arguments, result, exception, argumentInError};
  return IsForDeliveredObject(call) ? CallDeliveredObject(call) : CallMember(call);
}

}  // namespace quorvel::com
