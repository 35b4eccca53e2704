#pragma once

#include <memory>
#include <string>

#include "runtime/RemarkContext.h"

namespace CLI {
class App;
}

namespace quorvel::cli {

/// The arguments of RemarkContext::Load.
struct LoadArguments {
  std::string context;
  std::string owner;
  std::string user;  ///< empty means the logon name
};

enum class Owner { Optional, Required };

/// Gives a command the options --context, --owner and --user.
void AddLoadOptions(CLI::App& command, LoadArguments& arguments, Owner owner);

/// A loaded context that is disposed of at the end, also when loading fails.
class LoadedContext {
 public:
  /// The errors are those of RequireUtf8 and RequireDatabase, from `source`, the command, and those of Load.
  LoadedContext(const LoadArguments& arguments, const std::string& source);
  ~LoadedContext() { m_context->Dispose(); }
  LoadedContext(const LoadedContext&) = delete;
  LoadedContext& operator=(const LoadedContext&) = delete;

  RemarkContext& operator*() const noexcept { return *m_context; }
  RemarkContext* operator->() const noexcept { return m_context.get(); }

 private:
  LoadedContext() : m_context(RemarkContext::Create()) {}
  std::shared_ptr<RemarkContext> m_context;
};

/// "Acme Tools [C1044]", on one line; the empty text without an owner.
[[nodiscard]] std::string OwnerTitle(const RemarkContext& context);

}  // namespace quorvel::cli
