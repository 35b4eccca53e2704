// Prints the remarks as a list for people: under their types where the context groups them, else with a column of
// types.

#include <CLI/App.hpp>
#include <algorithm>
#include <memory>
#include <vector>

#include <fmt/format.h>

#include "host/cli/Commands.h"
#include "host/cli/ListJson.h"
#include "host/cli/LoadedContext.h"
#include "host/cli/Terminal.h"
#include "host/cli/TextLayout.h"
#include "platform/ShortDate.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

struct ListArguments : LoadArguments {
  bool json = false;
};

/// The widths of the columns before the text.
struct Columns {
  std::size_t index;
  std::size_t key = 0;
  std::size_t user = 0;
  std::size_t type = 0;  ///< 0 leaves the column out
};

std::string Padded(std::string text, std::size_t width) {
  text.append(width - std::min(width, CountCharacters(text)), ' ');
  return text;
}

/// The mark keeps the key apart from the index before it.
std::string KeyMark(const Remark& remark) { return fmt::format("#{}", remark.MemoKey()); }

Columns Measure(const RemarkContext& context) {
  const auto& remarks = *context.RemarkList()->Items();
  Columns columns{.index = fmt::formatted_size("{}", remarks.size())};
  for (const auto& remark : remarks) {
    columns.key = std::max(columns.key, KeyMark(*remark).size());
    columns.user = std::max(columns.user, CountCharacters(OneLine(remark->UserID())));
    if (context.GroupByType()) continue;
    columns.type = std::max(columns.type, CountCharacters(OneLine(remark->TypeCaption())));
  }
  return columns;
}

void PrintRemark(const Remark& remark, std::size_t index, const Columns& columns, std::size_t width) {
  std::string line = fmt::format("  {:>{}}  {:<{}}  {}  ", index, columns.index, KeyMark(remark), columns.key,
                                 FormatShortDate(remark.DateStamp()));
  if (columns.type > 0) line += Padded(OneLine(remark.TypeCaption()), columns.type + 2);
  line += Padded(OneLine(remark.UserID()), columns.user + 2);
  fmt::print("{}{}\n", line, Paragraph(remark.MemoText(), CountCharacters(line), width));
}

void PrintRemarks(const RemarkContext& context, const RemarkType* type, const Columns& columns) {
  const auto& remarks = *context.RemarkList()->Items();
  const std::size_t width = OutputWidth();
  bool isFirst = true;
  for (std::size_t i = 0; i < remarks.size(); ++i) {
    if (type != nullptr && remarks[i]->RemarkType().get() != type) continue;
    if (isFirst) fmt::print("\n");
    if (isFirst && type != nullptr) {
      fmt::print("{} [{}]{}\n", OneLine(type->Caption()), OneLine(type->TypeID()),
                 type->ShowPopup() ? ", pops up" : "");
    }
    isFirst = false;
    PrintRemark(*remarks[i], i + 1, columns, width);
  }
}

/// An empty list may be empty only because of the rights, so they are printed too.
void PrintRights(const RemarkContext& context) {
  bool mayRead = false;
  std::vector<std::string> createable;
  for (const auto& type : context.Types()->All()) {
    mayRead = mayRead || type->CanRead() > 0;
    if (type->CanCreate() > 0) createable.push_back(OneLine(type->TypeID()));
  }
  const std::string user = OneLine(context.UserID());
  if (!mayRead) fmt::print("{} may read no remarks here\n", user);
  if (createable.empty()) createable.emplace_back("no remarks here");
  fmt::print("{} may add {}\n", user, fmt::join(createable, ", "));
}

void PrintList(const RemarkContext& context) {
  const std::string owner = OwnerTitle(context);
  fmt::print("{}, {}, as {}\n", owner.empty() ? "No owner" : owner, OneLine(context.Caption()),
             OneLine(context.UserID()));
  const Columns columns = Measure(context);
  if (context.GroupByType()) {
    for (const auto& type : context.Types()->All()) PrintRemarks(context, type.get(), columns);
  } else {
    PrintRemarks(context, nullptr, columns);
  }
  const auto count = static_cast<std::size_t>(context.MemoCount());
  fmt::print("\n{}, {} to pop up\n", Counted(count, "remark"), context.PopupCount());
  PrintRights(context);
}

void RunList(const ListArguments& arguments) {
  const LoadedContext context(arguments, "quorvel.list");
  if (arguments.json) {
    fmt::print("{}\n", ListAsJson(*context));
  } else {
    PrintList(*context);
  }
}

}  // namespace

void AddListCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("list", "List the remarks that a user may read");
  auto arguments = std::make_shared<ListArguments>();
  AddLoadOptions(*command, *arguments, Owner::Optional);
  command->add_flag("--json", arguments->json, "Everything that was loaded, as JSON");
  command->group("Remarks")->callback([arguments] { RunList(*arguments); });
}

}  // namespace quorvel::cli
