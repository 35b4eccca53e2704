#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace quorvel {

/// The one exception of the component: the content of a host's error object.
///
/// `number` is -1 for the component's own errors, a classic small number for errors of the language
/// runtime (see ErrorNumber) and a negative HRESULT for errors of the data layer. `source` names where
/// the error arose ("RemarkContext.LoadContext", a provider's name, or a chain built by modError).
/// All texts are UTF-8.
class Error : public std::exception {
 public:
  Error(std::int32_t number, std::string source, std::string description)
      : m_number(number), m_source(std::move(source)), m_description(std::move(description)) {}

  [[nodiscard]] std::int32_t Number() const noexcept { return m_number; }
  [[nodiscard]] const std::string& Source() const noexcept { return m_source; }
  [[nodiscard]] const std::string& Description() const noexcept { return m_description; }
  [[nodiscard]] const char* what() const noexcept override { return m_description.c_str(); }

 private:
  std::int32_t m_number;
  std::string m_source;
  std::string m_description;
};

/// The error of a window or a box that cannot be opened: the user has seen nothing.
class NoWindow : public Error {
 public:
  using Error::Error;
};

/// Numbers that hosts test for. The small ones are those of the classic language runtime; the negative
/// ones are the HRESULTs that ADO and its providers give.
namespace ErrorNumber {
inline constexpr std::int32_t Component = -1;
inline constexpr std::int32_t InvalidCall = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t SubscriptOutOfRange = 9;
inline constexpr std::int32_t TypeMismatch = 13;
inline constexpr std::int32_t ObjectNotSet = 91;
inline constexpr std::int32_t InvalidUseOfNull = 94;
inline constexpr std::int32_t RegistryWrite = 110;
inline constexpr std::int32_t AlreadyModal = 400;
inline constexpr std::int32_t DuplicateKey = 457;

inline constexpr std::int32_t DbUnspecified = -2147467259;         // E_FAIL
inline constexpr std::int32_t DbObjectNotFound = -2147217865;      // SQLSTATE 42S02
inline constexpr std::int32_t DbStatement = -2147217900;           // other SQLSTATE 42xxx
inline constexpr std::int32_t DbIntegrity = -2147217873;           // SQLSTATE 23xxx
inline constexpr std::int32_t DbTimeout = -2147217871;             // SQLSTATE HYT00
inline constexpr std::int32_t DbLogin = -2147217843;               // SQLSTATE 28000
inline constexpr std::int32_t AdoInvalidArgument = -2146825287;    // adErrInvalidArgument, 3001
inline constexpr std::int32_t AdoNoCurrentRecord = -2146825267;    // adErrNoCurrentRecord, 3021
inline constexpr std::int32_t AdoItemNotFound = -2146825023;       // adErrItemNotFound, 3265
inline constexpr std::int32_t AdoDataConversion = -2146824867;     // adErrDataConversion, 3421
inline constexpr std::int32_t AdoObjectClosed = -2146824584;       // adErrObjectClosed, 3704
inline constexpr std::int32_t AdoObjectOpen = -2146824583;         // adErrObjectOpen, 3705
inline constexpr std::int32_t AdoInvalidConnection = -2146824579;  // adErrInvalidConnection, 3709
}  // namespace ErrorNumber

/// The errors of the language runtime, with their classic descriptions and the source "Quorvel".
[[noreturn]] void ThrowObjectNotSet();
[[noreturn]] void ThrowSubscriptOutOfRange();
[[noreturn]] void ThrowInvalidUseOfNull();
[[noreturn]] void ThrowTypeMismatch();
[[noreturn]] void ThrowOverflow();
[[noreturn]] void ThrowInvalidCall();
[[noreturn]] void ThrowDuplicateKey();
[[noreturn]] void ThrowAlreadyModal();

}  // namespace quorvel
