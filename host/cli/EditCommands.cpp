// The commands add, change and remove. They ask the same rights as the editor before they write.

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <limits>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "data/modUserName.h"
#include "host/cli/Commands.h"
#include "host/cli/Input.h"
#include "host/cli/LoadedContext.h"
#include "host/cli/TextLayout.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "runtime/RemarkRights.h"

namespace quorvel::cli {
namespace {

struct EditArguments : LoadArguments {
  std::int32_t index = 0;
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

std::shared_ptr<Remark> FindRemark(const RemarkContext& context, std::int32_t index, const std::string& source) {
  auto remark = context.RemarkList()->Item(std::int64_t{index});
  if (remark) return remark;
  const auto count = static_cast<std::size_t>(context.MemoCount());
  Refuse(source, fmt::format("There is no remark {}: {} may read {} of {}", index, context.UserID(),
                             Counted(count, "remark"), context.OwnerID()));
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
  fmt::print("{} remark {} ({}, {}):\n  {}\n", verb, remark.MemoKey(), OneLine(remark.TypeCaption()),
             OneLine(remark.UserID()), Paragraph(TrimBlanks(remark.MemoText()), 2, 0));
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
  if (!arguments.text && !arguments.type) throw CLI::ValidationError("--text or --type must say what to change");
  std::optional<std::string> text;
  if (arguments.text) text = ReadRemarkText(*arguments.text, source);
  const LoadedContext context(arguments, source);
  const auto remark = FindRemark(*context, arguments.index, source);
  RequireUpdate(*context, arguments.index, *remark, source);
  if (arguments.type) MoveToType(*context, arguments.index, *remark, *arguments.type);
  if (text) remark->SetMemoText(std::move(*text));
  remark->SetUserID(arguments.user.empty() ? modUserName::GetUserName() : arguments.user);
  remark->SetDirty(true);
  context->Save(true);
  PrintWritten("Changed", *remark);
}

void RunRemove(const EditArguments& arguments) {
  const std::string source = "quorvel.remove";
  const LoadedContext context(arguments, source);
  const auto remark = FindRemark(*context, arguments.index, source);
  RequireDelete(*context, arguments.index, *remark, source);
  context->RemarkList()->Remove(std::int64_t{arguments.index});
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

void AddIndexOption(CLI::App& command, EditArguments& arguments) {
  command.add_option("--index", arguments.index, "Which remark: its number in the list")
      ->required()
      ->check(CLI::Range(1, std::numeric_limits<std::int32_t>::max()))
      ->type_name("N");
}

void AddRemarkOptions(CLI::App& command, EditArguments& arguments, bool required) {
  command.add_option("--type", arguments.type, "The remark's type, such as Cust.General")
      ->required(required)
      ->type_name("ID");
  command.add_option("--text", arguments.text, "The remark's text; - reads it from the standard input")
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
  AddIndexOption(*command, *arguments);
  AddRemarkOptions(*command, *arguments, false);
}

void AddRemoveCommand(CLI::App& app) {
  const auto arguments = std::make_shared<EditArguments>();
  CLI::App* command = AddEditCommand(app, "remove", "Delete a remark", arguments, RunRemove);
  AddIndexOption(*command, *arguments);
}

}  // namespace quorvel::cli
