#include "data/modError.h"

#include <fmt/format.h>

#include <exception>

#include "platform/Environment.h"
#include "platform/Error.h"

namespace quorvel::modError {
namespace {

constexpr std::string_view kMarker = " encountered error ";

/// The error in flight as an Error. Without one, error 5 (invalid call).
Error PendingError() {
  try {
    if (std::current_exception() == nullptr) ThrowInvalidCall();
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::exception& foreign) {
    return {ErrorNumber::DbUnspecified, "", foreign.what()};
  } catch (...) {
    return {ErrorNumber::DbUnspecified, "", "Unspecified error"};
  }
}

std::string ChainedSource(const std::string& before, std::string_view moduleName, std::string_view procName) {
  const Version version = ComponentVersion();
  const bool isChain = before.find('.') != std::string::npos;
  return fmt::format("{}{}{}.{}.{}@{}:{}[version {}.{}.{}]", isChain ? before : "", isChain ? "->\r\n" : "",
                     kApplicationName, moduleName, procName, EnvironmentVariable("COMPUTERNAME"),
                     EnvironmentVariable("USERNAME"), version.major, version.minor, version.revision);
}

}  // namespace

void RaiseError(std::string_view moduleName, std::string_view procName, std::string_view context) {
  const Error pending = PendingError();
  std::string description = pending.Description();
  if (!context.empty() && description.find(kMarker) == std::string::npos) {
    description = fmt::format("{}{}{} ({})", context, kMarker, pending.Number(), description);
  }
  throw Error(pending.Number(), ChainedSource(pending.Source(), moduleName, procName), std::move(description));
}

std::string ErrorSource(std::string_view moduleName, std::string_view procName) {
  const bool isPending = std::current_exception() != nullptr;
  return ChainedSource(isPending ? PendingError().Source() : "", moduleName, procName);
}

}  // namespace quorvel::modError
