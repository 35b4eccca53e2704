#include "host/cli/LoadedContext.h"

#include <CLI/App.hpp>

#include <fmt/format.h>

#include "host/cli/ConnectionSettings.h"
#include "host/cli/Input.h"
#include "host/cli/TextLayout.h"

namespace quorvel::cli {

void AddLoadOptions(CLI::App& command, LoadArguments& arguments, Owner owner) {
  command.add_option("--context", arguments.context, "The place in the host application, such as CustMaint")
      ->required()
      ->type_name("ID");
  CLI::Option* ownerOption =
      command.add_option("--owner", arguments.owner, "The record that the remarks are on, such as C1044")
          ->type_name("ID");
  // A context loads without an owner, but a remark without an owner could never be found again.
  const auto isGiven = [](const std::string& id) { return id.empty() ? "an owner must be named" : ""; };
  if (owner == Owner::Required) ownerOption->required()->check(isGiven, "");
  command.add_option("--user", arguments.user, "Whose rights count; without it, who is logged on")->type_name("ID");
}

// The delegated constructor completes the object, so the destructor runs also when Load throws.
LoadedContext::LoadedContext(const LoadArguments& arguments, const std::string& source) : LoadedContext() {
  RequireUtf8(arguments.owner, "The owner", source);
  RequireUtf8(arguments.user, "The user", source);
  RequireDatabase(source);
  m_context->Load(arguments.context, arguments.owner, arguments.user);
}

std::string OwnerTitle(const RemarkContext& context) {
  if (context.OwnerID().empty()) return {};
  return fmt::format("{} [{}]", OneLine(context.OwnerName()), OneLine(context.OwnerID()));
}

}  // namespace quorvel::cli
