#include <CLI/App.hpp>
#include <memory>
#include <string>

#include "host/cli/Commands.h"
#include "host/cli/LoadedContext.h"
#include "host/cli/Output.h"
#include "platform/CurrentPrompts.h"
#include "platform/Error.h"

namespace quorvel::cli {
namespace {

struct EditorArguments : LoadArguments {
  bool window = false;
};

bool IsUnsaved(const RemarkContext& context) { return context.RemarkList() && context.RemarkList()->Dirty(); }

/// Opens the editor. False when the changes could not be saved and the user wants to see them again.
bool Edited(RemarkContext& context) {
  try {
    context.EditMemos();
    return true;
  } catch (const Error& error) {
    if (!IsUnsaved(context)) throw;
    const std::string question = error.Description() + "\n\nWhat was typed is still there. Open the remarks again?";
    const auto answer =
        CurrentPrompts().ShowMessage(question, "quorvel", PromptButtons::YesNo, PromptIcon::Exclamation);
    if (answer != PromptAnswer::Yes) throw;
    return false;
  }
}

void RunEditor(const EditorArguments& arguments) {
  if (!arguments.window) {
    throw CLI::ValidationError("edit needs --window; add, change and remove edit without one");
  }
  const LoadedContext context(arguments, "quorvel.edit");
  while (!Edited(*context)) {
  }
  if (IsUnsaved(*context)) PrintToErrors("There are changes that were not saved.\n");
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
