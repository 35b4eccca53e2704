#pragma once

#include <array>
#include <cstddef>
#include <iterator>
#include <tuple>
#include <type_traits>
#include <utility>

#include "platform/com/Dispatch.h"

/// Makes the rows of a member table from the operations themselves, so that the types in a row are always those of the
/// operation:
///
///     constexpr Member kMembers[] = {Get<&_RemarkList::get_Item, kIndexKey>(OLESTR("Item"), DISPID_VALUE), ...};
///
/// This row is the same as
///
///     Member{OLESTR("Item"), DISPID_VALUE, MemberKind::Get, kIndexKey,
///            {ArgumentType{VT_VARIANT, true}},
///            ArgumentType{VT_DISPATCH, false, &IID__Remark},
///            [](IDispatch& object, VARIANT* arguments, VARIANT& result) {
///              _Remark* delivered = nullptr;
///              const HRESULT outcome = static_cast<_RemarkList&>(object).get_Item(&arguments[0], &delivered);
///              if (FAILED(outcome)) return outcome;
///              result.vt = VT_DISPATCH;
///              result.pdispVal = delivered;
///              return outcome;
///            }}
namespace quorvel::com {

/// The identifier of an interface, specialised for each one that members take or deliver.
template <typename Interface>
inline constexpr const GUID* kInterfaceId = nullptr;

/// How a C++ type travels in a VARIANT.
template <typename T>
struct Carried;

template <>
struct Carried<BSTR> {
  static constexpr ArgumentType kType{VT_BSTR};
  static BSTR Read(const VARIANT& value) { return value.bstrVal; }
  static void Write(VARIANT& value, BSTR text) { value.bstrVal = text; }
};

template <>
struct Carried<LONG> {
  static constexpr ArgumentType kType{VT_I4};
  static LONG Read(const VARIANT& value) { return value.lVal; }
  static void Write(VARIANT& value, LONG number) { value.lVal = number; }
};

template <>
struct Carried<VARIANT_BOOL> {
  static constexpr ArgumentType kType{VT_BOOL};
  static VARIANT_BOOL Read(const VARIANT& value) { return value.boolVal; }
  static void Write(VARIANT& value, VARIANT_BOOL flag) { value.boolVal = flag; }
};

template <>
struct Carried<DATE> {
  static constexpr ArgumentType kType{VT_DATE};
  static DATE Read(const VARIANT& value) { return value.date; }
  static void Write(VARIANT& value, DATE date) { value.date = date; }
};

template <typename Enumeration>
requires std::is_enum_v<Enumeration>
struct Carried<Enumeration> {
  static constexpr ArgumentType kType{VT_I4};
  static Enumeration Read(const VARIANT& value) { return static_cast<Enumeration>(value.lVal); }
  static void Write(VARIANT& value, Enumeration number) { value.lVal = static_cast<LONG>(number); }
};

template <>
struct Carried<IUnknown*> {
  static constexpr ArgumentType kType{VT_UNKNOWN};
  static void Write(VARIANT& value, IUnknown* object) { value.punkVal = object; }
};

/// The value must hold exactly that interface.
template <typename Interface>
requires std::is_base_of_v<IDispatch, Interface>
struct Carried<Interface*> {
  static constexpr ArgumentType kType{VT_DISPATCH, false, kInterfaceId<Interface>};
  static Interface* Read(const VARIANT& value) { return static_cast<Interface*>(value.pdispVal); }
  static void Write(VARIANT& value, Interface* object) { value.pdispVal = object; }
};

/// Passes a VARIANT to an operation as an argument of type T: a value, a pointer to a value, or the VARIANT itself.
template <typename T>
class Argument {
 public:
  static constexpr ArgumentType kType = Carried<T>::kType;
  explicit Argument(VARIANT& value) : m_value(Carried<T>::Read(value)) {}
  T Pass() { return m_value; }

 private:
  T m_value;
};

template <typename T>
requires requires { Carried<T>::kType; }
class Argument<T*> {
 public:
  static constexpr ArgumentType kType{Carried<T>::kType.type, true, Carried<T>::kType.interfaceId};
  explicit Argument(VARIANT& value) : m_value(Carried<T>::Read(value)) {}
  T* Pass() { return &m_value; }

 private:
  T m_value;
};

template <>
class Argument<VARIANT*> {
 public:
  static constexpr ArgumentType kType{VT_VARIANT, true};
  explicit Argument(VARIANT& value) : m_value(value) {}
  VARIANT* Pass() { return &m_value; }

 private:
  VARIANT& m_value;
};

/// Splits the type of an operation, HRESULT (Interface::*)(Arguments...), into its parts.
template <typename Operation>
struct Signature;

template <typename InterfaceType, typename... ArgumentTypes>
struct Signature<HRESULT (QUORVEL_CALL InterfaceType::*)(ArgumentTypes...)> {
  using Interface = InterfaceType;
  using Arguments = std::tuple<ArgumentTypes...>;
  static constexpr std::size_t kCount = sizeof...(ArgumentTypes);
};

template <auto Slot>
using SignatureOf = Signature<decltype(Slot)>;
template <auto Slot, std::size_t Position>
using TypeAt = std::tuple_element_t<Position, typename SignatureOf<Slot>::Arguments>;

/// Calls an operation without a result.
template <auto Slot, typename Positions = std::make_index_sequence<SignatureOf<Slot>::kCount>>
struct PlainCall;

template <auto Slot, std::size_t... Position>
struct PlainCall<Slot, std::index_sequence<Position...>> {
  static constexpr std::array<ArgumentType, sizeof...(Position)> kTypes{Argument<TypeAt<Slot, Position>>::kType...};
  static constexpr ArgumentType kResult{};

  static HRESULT Invoke(IDispatch& object, VARIANT* arguments, VARIANT& /*result*/) {
    auto& target = static_cast<typename SignatureOf<Slot>::Interface&>(object);
    return (target.*Slot)(Argument<TypeAt<Slot, Position>>(arguments[Position]).Pass()...);
  }
};

/// Calls an operation that delivers its result through its last argument, a pointer to `Result`.
template <auto Slot, typename Positions = std::make_index_sequence<SignatureOf<Slot>::kCount - 1>>
struct DeliveringCall;

template <auto Slot, std::size_t... Position>
struct DeliveringCall<Slot, std::index_sequence<Position...>> {
  using Result = std::remove_pointer_t<TypeAt<Slot, sizeof...(Position)>>;
  static constexpr std::array<ArgumentType, sizeof...(Position)> kTypes{Argument<TypeAt<Slot, Position>>::kType...};
  static constexpr ArgumentType kResult = Carried<Result>::kType;

  static HRESULT Invoke(IDispatch& object, VARIANT* arguments, VARIANT& result) {
    auto& target = static_cast<typename SignatureOf<Slot>::Interface&>(object);
    Result delivered{};
    const HRESULT outcome = (target.*Slot)(Argument<TypeAt<Slot, Position>>(arguments[Position]).Pass()..., &delivered);
    if (FAILED(outcome)) return outcome;
    result.vt = kResult.type;
    Carried<Result>::Write(result, delivered);
    return outcome;
  }
};

inline constexpr std::array<Parameter, 0> kNoParameters{};
inline constexpr Parameter kNewValue[] = {{OLESTR("value")}};

template <typename Caller, const auto& Parameters>
constexpr Member MakeMember(Name name, DISPID id, MemberKind kind) {
  static_assert(std::size(Parameters) == Caller::kTypes.size(), "one parameter for each argument");
  return {name, id, kind, Parameters, Caller::kTypes, Caller::kResult, &Caller::Invoke};
}

template <auto Slot, const auto& Parameters = kNoParameters>
constexpr Member Get(Name name, DISPID id) {
  return MakeMember<DeliveringCall<Slot>, Parameters>(name, id, MemberKind::Get);
}
template <auto Slot>
constexpr Member Put(Name name, DISPID id) {
  return MakeMember<PlainCall<Slot>, kNewValue>(name, id, MemberKind::Put);
}
template <auto Slot>
constexpr Member PutRef(Name name, DISPID id) {
  return MakeMember<PlainCall<Slot>, kNewValue>(name, id, MemberKind::PutRef);
}
template <auto Slot, const auto& Parameters = kNoParameters>
constexpr Member Method(Name name, DISPID id) {
  return MakeMember<PlainCall<Slot>, Parameters>(name, id, MemberKind::Method);
}
template <auto Slot, const auto& Parameters = kNoParameters>
constexpr Member Function(Name name, DISPID id) {
  return MakeMember<DeliveringCall<Slot>, Parameters>(name, id, MemberKind::Method);
}

}  // namespace quorvel::com
