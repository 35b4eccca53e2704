#include "platform/com/CallGuard.h"

#include <fmt/format.h>

#include <cstdint>
#include <exception>
#include <new>
#include <string_view>

#include "platform/Environment.h"
#include "platform/Error.h"
#include "platform/com/Text.h"
#include "platform/com/ThreadError.h"

namespace quorvel::com {
namespace {

constexpr std::uint32_t kLanguageRuntime = 0x800A0000U;
constexpr std::int32_t kLastSmallNumber = 0xFFFF;

HRESULT ToHResult(std::int32_t number) noexcept {
  if (number < 0) return number;
  if (number == 0 || number > kLastSmallNumber) return E_FAIL;
  return static_cast<HRESULT>(kLanguageRuntime + static_cast<std::uint32_t>(number));
}

void SetError(REFIID interfaceId, std::string_view source, std::string_view description) noexcept {
  SetThreadError(MakeErrorInfo(interfaceId, source, description).Get());
}

/// Describes an error that has only a number in words that can be searched for.
void DescribeNumber(HRESULT result, EXCEPINFO& exception) noexcept {
  try {
    exception.bstrSource = ToBstr(kApplicationName);
    exception.bstrDescription =
        ToBstr(fmt::format("The call failed with error 0x{:08X}", static_cast<std::uint32_t>(result)));
  } catch (...) {  // NOLINT(bugprone-empty-catch): the number alone is enough
  }
}

}  // namespace

void ClearError() noexcept { SetThreadError(nullptr); }

HRESULT ToHResult(REFIID interfaceId) noexcept {
  try {
    throw;
  } catch (const Error& error) {
    SetError(interfaceId, error.Source(), error.Description());
    return ToHResult(error.Number());
  } catch (const std::bad_alloc&) {
    SetError(interfaceId, kApplicationName, "Out of memory");
    return E_OUTOFMEMORY;
  } catch (const std::exception& error) {
    SetError(interfaceId, kApplicationName, error.what());
    return E_UNEXPECTED;
  } catch (...) {
    SetError(interfaceId, kApplicationName, "Unexpected error");
    return E_UNEXPECTED;
  }
}

void TakeError(HRESULT result, EXCEPINFO* exception) noexcept {
  const Pointer<IErrorInfo> error = TakeThreadError();
  if (exception == nullptr) return;
  *exception = {};
  exception->scode = result;
  if (error) {
    error->GetSource(&exception->bstrSource);
    error->GetDescription(&exception->bstrDescription);
  } else {
    DescribeNumber(result, *exception);
  }
}

}  // namespace quorvel::com
