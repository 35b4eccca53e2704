#include "data/modRegistry.h"

#include <fmt/format.h>

#include <exception>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "platform/Environment.h"
#include "platform/Error.h"

namespace quorvel::modRegistry {
namespace {

/// The description has no room for the reason, so the log has it, and an exception that is nested in the Error.
[[noreturn]] void Refuse(std::string_view keyPath, std::string_view valueName, const std::error_code& reason) {
  std::string description = fmt::format("Could not read or create registry string value: {}\\{}", keyPath, valueName);
  const std::string why = registry::Explain(reason);
  LogWarning(fmt::format("{} in {}: {}", description, registry::StoreLocation(), why));
  try {
    throw std::runtime_error(why);
  } catch (const std::runtime_error&) {
    std::throw_with_nested(Error(ErrorNumber::RegistryWrite, "GetRegStringValue", std::move(description)));
  }
}

}  // namespace

std::string GetRegStringValue(registry::Hive hive, std::string_view keyPath, std::string_view valueName,
                              std::string_view defaultValue) {
  std::error_code failure;
  const auto key = registry::Key::Create(hive, keyPath, failure);
  if (!key) Refuse(keyPath, valueName, failure);
  const auto found = key->Query(valueName);
  if (found && found->type == registry::ValueType::String) return found->text;
  if (found) {
    LogWarning(fmt::format("Warning: Converted registry value to string: \r\n{}\\{}", keyPath, valueName));
  }
  // Nothing read is not yet a missing value, and another process may set it just now. The store looks again.
  const registry::Assignment value{std::string(valueName), std::string(defaultValue), true};
  failure = key->Assign({&value, 1});
  if (failure) Refuse(keyPath, valueName, failure);
  const auto stored = key->Query(valueName);
  if (!stored) Refuse(keyPath, valueName, std::make_error_code(std::errc::io_error));
  return stored->text;
}

}  // namespace quorvel::modRegistry
