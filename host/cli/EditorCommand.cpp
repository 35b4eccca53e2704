#include <CLI/App.hpp>
#include <memory>

#include "host/cli/Commands.h"
#include "host/cli/LoadedContext.h"

namespace quorvel::cli {
namespace {

struct EditorArguments : LoadArguments {
  bool window = false;
};

void RunEditor(const EditorArguments& arguments) {
  if (!arguments.window) {
    throw CLI::ValidationError("edit needs --window; add, change and remove edit without one");
  }
  const LoadedContext context(arguments, "quorvel.edit");
  context->EditMemos();
}

}  // namespace

void AddEditorCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("edit", "Edit the remarks in the window that a host application shows");
  const auto arguments = std::make_shared<EditorArguments>();
  AddLoadOptions(*command, *arguments, Owner::Required);
  command->add_flag("--window", arguments->window, "Opens the window; edit has no other way");
  command->group("Remarks")->callback([arguments] { RunEditor(*arguments); });
}

}  // namespace quorvel::cli
