#pragma once

#include <array>
#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

#include "platform/com/Dispatch.h"

/// Makes the rows of a member table from the operations themselves, so that a row can say nothing about types that the
/// operation does not:
///
///     constexpr Member kMembers[] = {Get<&_Remark::get_MemoText>(OLESTR("MemoText"), 14), ...};
namespace quorvel::com {

/// The identifier of an interface; specialised for each interface that members take or deliver.
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

/// One argument on its way from a VARIANT to an operation: by value, by reference, or as a VARIANT.
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

/// An operation whose arguments are all given.
template <typename Interface, typename... Arguments>
struct PlainSignature {
  static constexpr std::array<ArgumentType, sizeof...(Arguments)> kTypes{Argument<Arguments>::kType...};
  static constexpr ArgumentType kResult{};

  template <auto Slot>
  static HRESULT Call(IDispatch& object, VARIANT* arguments, VARIANT& /*result*/) {
    return [&]<std::size_t... Index>(std::index_sequence<Index...>) {
      return (static_cast<Interface&>(object).*Slot)(Argument<Arguments>(arguments[Index]).Pass()...);
    }
    (std::index_sequence_for<Arguments...>{});
  }
};

/// An operation that delivers through its last argument, a pointer to `Result`.
template <typename Interface, typename Result, typename... Arguments>
struct DeliveringSignature {
  static constexpr std::array<ArgumentType, sizeof...(Arguments)> kTypes{Argument<Arguments>::kType...};
  static constexpr ArgumentType kResult = Carried<Result>::kType;

  template <auto Slot>
  static HRESULT Call(IDispatch& object, VARIANT* arguments, VARIANT& result) {
    Result delivered{};
    const HRESULT outcome = [&]<std::size_t... Index>(std::index_sequence<Index...>) {
      return (static_cast<Interface&>(object).*Slot)(Argument<Arguments>(arguments[Index]).Pass()..., &delivered);
    }
    (std::index_sequence_for<Arguments...>{});
    if (FAILED(outcome)) return outcome;
    result.vt = kResult.type;
    Carried<Result>::Write(result, delivered);
    return outcome;
  }
};

/// Takes an operation's type apart.
template <typename Operation>
struct Signature;

template <typename Interface, typename... Arguments>
struct Signature<HRESULT (QUORVEL_CALL Interface::*)(Arguments...)> {
  using All = std::tuple<Arguments...>;
  using Plain = PlainSignature<Interface, Arguments...>;

  /// Only its type counts.
  static constexpr auto Delivering() {
    return []<std::size_t... Index>(std::index_sequence<Index...>) {
      using Result = std::remove_pointer_t<std::tuple_element_t<sizeof...(Index), All>>;
      return DeliveringSignature<Interface, Result, std::tuple_element_t<Index, All>...>{};
    }
    (std::make_index_sequence<sizeof...(Arguments) - 1>{});
  }
};

template <auto Slot, typename Shape>
constexpr Member MakeMember(Name name, DISPID id, MemberKind kind, std::span<const Parameter> parameters) {
  // A wrong number of parameters does not compile: the tables are constants.
  if (parameters.size() != Shape::kTypes.size()) throw "a parameter for each argument";
  return {name, id, kind, parameters, Shape::kTypes, Shape::kResult, &Shape::template Call<Slot>};
}

inline constexpr Parameter kNewValue[] = {{OLESTR("value")}};

template <auto Slot>
constexpr Member Get(Name name, DISPID id, std::span<const Parameter> parameters = {}) {
  return MakeMember<Slot, decltype(Signature<decltype(Slot)>::Delivering())>(name, id, MemberKind::Get, parameters);
}
template <auto Slot>
constexpr Member Put(Name name, DISPID id) {
  return MakeMember<Slot, typename Signature<decltype(Slot)>::Plain>(name, id, MemberKind::Put, kNewValue);
}
template <auto Slot>
constexpr Member PutRef(Name name, DISPID id) {
  return MakeMember<Slot, typename Signature<decltype(Slot)>::Plain>(name, id, MemberKind::PutRef, kNewValue);
}
template <auto Slot>
constexpr Member Method(Name name, DISPID id, std::span<const Parameter> parameters = {}) {
  return MakeMember<Slot, typename Signature<decltype(Slot)>::Plain>(name, id, MemberKind::Method, parameters);
}
template <auto Slot>
constexpr Member Function(Name name, DISPID id, std::span<const Parameter> parameters = {}) {
  return MakeMember<Slot, decltype(Signature<decltype(Slot)>::Delivering())>(name, id, MemberKind::Method, parameters);
}

}  // namespace quorvel::com
