#include <CLI/App.hpp>
#include <memory>

#include <fmt/format.h>

#include "host/cli/Commands.h"
#include "host/cli/LoadedContext.h"
#include "host/cli/Secrets.h"
#include "host/cli/Terminal.h"
#include "host/cli/TextLayout.h"
#include "platform/ShortDate.h"

namespace quorvel::cli {
namespace {

struct PopupArguments : LoadArguments {
  bool window = false;
};

void ShowRemark(const Remark& remark, std::int32_t ordinal, std::int32_t count) {
  fmt::print("\n{}  ({} on {})\n", OneLine(remark.TypeCaption()), OneLine(remark.UserID()),
             FormatShortDate(remark.DateStamp()));
  fmt::print("{}\n", Paragraph(remark.MemoText(), 0, OutputWidth()));
  fmt::print("Remark {} of {}\n", ordinal, count);
}

void ShowAll(const RemarkContext& context) {
  fmt::print("{} {} Remarks [{}]\n", OwnerTitle(context), OneLine(context.EntityName()),
             OneLine(WithoutPassword(context.Server())));
  std::int32_t ordinal = 0;
  for (const auto& remark : *context.RemarkList()->Items()) {
    if (!remark->ShowPopup()) continue;
    if (ordinal > 0 && !WaitForEnter("\nEnter for the next remark ")) return;
    ShowRemark(*remark, ++ordinal, context.PopupCount());
  }
}

void RunPopup(const PopupArguments& arguments) {
  const LoadedContext context(arguments, "quorvel.popup");
  if (context->PopupCount() == 0) {
    fmt::print("No remarks to pop up.\n");
  } else if (arguments.window) {
    context->PopupMemos();
  } else {
    ShowAll(*context);
  }
}

}  // namespace

void AddPopupCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("popup", "Walk through the remarks that must be seen");
  auto arguments = std::make_shared<PopupArguments>();
  AddLoadOptions(*command, *arguments, Owner::Optional);
  command->add_flag("--window", arguments->window, "In the window that a host application shows");
  command->group("Remarks")->callback([arguments] { RunPopup(*arguments); });
}

}  // namespace quorvel::cli
