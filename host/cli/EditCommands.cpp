// The commands add, change and remove. They ask the same rights as the editor before they write.

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "data/modUserName.h"
#include "host/cli/ChosenRemark.h"
#include "host/cli/Commands.h"
#include "host/cli/Input.h"
#include "host/cli/LoadedContext.h"
#include "host/cli/Output.h"
#include "host/cli/TextLayout.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "runtime/RemarkRights.h"

namespace quorvel::cli {
namespace {

struct EditArguments : LoadArguments {
  RemarkChoice choice;
  std::optional<std::string> type;
  std::optional<std::string> text;
};

[[noreturn]] void Refuse(const std::string& source, const std::string& sentence) {
  throw Error(ErrorNumber::Component, source, sentence);
}

std::string ReadRemarkText(const std::string& argument, const std::string& source) {
  std::string text = ReadTextArgument(argument, source);
  if (text.find_first_not_of(" \t\r\n\v\f") == std::string::npos) Refuse(source, "A remark needs a text");
  return text;
}

void RequireCreate(const RemarkContext& context, const RemarkType& type, const std::string& source) {
  if (type.CanCreate() > 0) return;
  Refuse(source,
         fmt::format("{} may not create remarks of type {}", OneLine(context.UserID()), OneLine(type.TypeID())));
}

/// As in the editor, authors have rights on their own remarks that the type alone does not give.
RemarkRights Rights(const RemarkContext& context, std::int32_t index) {
  return RightsOnRemark(context, index, context.UserID());
}

void RequireUpdate(const RemarkContext& context, std::int32_t index, const Remark& remark, const std::string& source) {
  if (Rights(context, index).canUpdate) return;
  Refuse(source,
         fmt::format("{} may not change this remark of type {}", OneLine(context.UserID()), OneLine(remark.TypeID())));
}

void RequireDelete(const RemarkContext& context, std::int32_t index, const Remark& remark, const std::string& source) {
  if (Rights(context, index).canDelete) return;
  Refuse(source,
         fmt::format("{} may not delete this remark of type {}", OneLine(context.UserID()), OneLine(remark.TypeID())));
}

void PrintWritten(std::string_view verb, const Remark& remark) {
  PrintDone(fmt::format("{} remark {}", verb, remark.MemoKey()),
            fmt::format(" ({}, {}):\n  {}", OneLine(remark.TypeCaption()), OneLine(remark.UserID()),
                        Paragraph(TrimBlanks(remark.MemoText()), 2, 0)));
}

void RunAdd(const EditArguments& arguments) {
  const std::string source = "quorvel.add";
  const std::string text = ReadRemarkText(*arguments.text, source);
  const LoadedContext context(arguments, source);
  if (const auto type = context->Item(*arguments.type)) RequireCreate(*context, *type, source);
  context->AddRemark(*arguments.type, text, arguments.user);
  context->Save(true);
  PrintWritten("Added", *context->RemarkList()->Items()->back());
}

/// A change of type deletes the remark from one type and creates it in another, so it needs both rights.
void MoveToType(const RemarkContext& context, std::int32_t index, Remark& remark, const std::string& typeID) {
  const std::string source = "quorvel.change";
  const auto type = context.Item(typeID);
  if (!type) Refuse(source, "Illegal remark type for this context");
  if (type == remark.RemarkType()) return;
  RequireDelete(context, index, remark, source);
  RequireCreate(context, *type, source);
  remark.SetRemarkType(type);
}

void RunChange(const EditArguments& arguments) {
  const std::string source = "quorvel.change";
  RequireChoice(arguments.choice);
  if (!arguments.text && !arguments.type) throw CLI::ValidationError("--text or --type must say what to change");
  std::optional<std::string> text;
  if (arguments.text) text = ReadRemarkText(*arguments.text, source);
  const LoadedContext context(arguments, source);
  const std::int32_t index = FindChosen(*context, arguments.choice, source);
  const auto remark = context->RemarkList()->Item(std::int64_t{index});
  RequireUpdate(*context, index, *remark, source);
  if (arguments.type) MoveToType(*context, index, *remark, *arguments.type);
  if (text) remark->SetMemoText(std::move(*text));
  remark->SetUserID(arguments.user.empty() ? modUserName::GetUserName() : arguments.user);
  remark->SetDirty(true);
  context->Save(true);
  PrintWritten("Changed", *remark);
}

void RunRemove(const EditArguments& arguments) {
  const std::string source = "quorvel.remove";
  RequireChoice(arguments.choice);
  const LoadedContext context(arguments, source);
  const std::int32_t index = FindChosen(*context, arguments.choice, source);
  const auto remark = context->RemarkList()->Item(std::int64_t{index});
  RequireDelete(*context, index, *remark, source);
  context->RemarkList()->Remove(std::int64_t{index});
  context->Save(true);
  PrintWritten("Removed", *remark);
}

CLI::App* AddEditCommand(CLI::App& app, const char* name, const char* description,
                         const std::shared_ptr<EditArguments>& arguments, void (*run)(const EditArguments&)) {
  CLI::App* command = app.add_subcommand(name, description);
  AddLoadOptions(*command, *arguments, Owner::Required);
  command->group("Remarks")->callback([arguments, run] { run(*arguments); });
  return command;
}

void AddRemarkOptions(CLI::App& command, EditArguments& arguments, bool required) {
  command.add_option("--type", arguments.type, "The remark's type, such as Cust.General")
      ->required(required)
      ->type_name("ID");
  command.add_option("--text", arguments.text, "The remark's text in UTF-8; - reads it from the standard input")
      ->required(required)
      ->type_name("TEXT");
}

}  // namespace

void AddAddCommand(CLI::App& app) {
  const auto arguments = std::make_shared<EditArguments>();
  CLI::App* command = AddEditCommand(app, "add", "Add a remark", arguments, RunAdd);
  AddRemarkOptions(*command, *arguments, true);
}

void AddChangeCommand(CLI::App& app) {
  const auto arguments = std::make_shared<EditArguments>();
  CLI::App* command = AddEditCommand(app, "change", "Change a remark's text or type", arguments, RunChange);
  AddChoiceOptions(*command, arguments->choice);
  AddRemarkOptions(*command, *arguments, false);
}

void AddRemoveCommand(CLI::App& app) {
  const auto arguments = std::make_shared<EditArguments>();
  CLI::App* command = AddEditCommand(app, "remove", "Delete a remark", arguments, RunRemove);
  AddChoiceOptions(*command, arguments->choice);
}

}  // namespace quorvel::cli
