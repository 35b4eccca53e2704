#include "host/cli/ChosenRemark.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <limits>

#include <fmt/format.h>

#include "host/cli/TextLayout.h"
#include "platform/Error.h"

namespace quorvel::cli {
namespace {

[[noreturn]] void RefuseMissing(const RemarkContext& context, const std::string& which, const std::string& source) {
  throw Error(ErrorNumber::Component, source,
              fmt::format("There is no remark {}: {} may read {} of {}", which, context.UserID(),
                          Counted(static_cast<std::size_t>(context.MemoCount()), "remark"), context.OwnerID()));
}

std::int32_t FindKey(const RemarkContext& context, std::int32_t key, const std::string& source) {
  const auto& remarks = *context.RemarkList()->Items();
  const auto found =
      std::find_if(remarks.begin(), remarks.end(), [&](const auto& remark) { return remark->MemoKey() == key; });
  if (found == remarks.end()) RefuseMissing(context, fmt::format("with the key {}", key), source);
  return static_cast<std::int32_t>(found - remarks.begin()) + 1;
}

/// The number without leading zeros: the option would read 010 as an octal one.
std::string DecimalNumber(const std::string& text) {
  const std::string sign = text.starts_with('-') ? "-" : "";
  const std::string digits = text.substr(sign.size());
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) {
    throw CLI::ValidationError(fmt::format("{} is not a whole number", OneLine(text)));
  }
  return sign + digits.substr(std::min(digits.find_first_not_of('0'), digits.size() - 1));
}

}  // namespace

void AddChoiceOptions(CLI::App& command, RemarkChoice& choice) {
  CLI::Option* key = command.add_option("--key", choice.key, "Which remark: its key, after the # in the list");
  key->transform(DecimalNumber)->type_name("KEY");
  CLI::Option* index = command.add_option("--index", choice.index,
                                          "Which remark: its number in the list; it changes\n"
                                          "when another user adds or deletes a remark");
  index->check(CLI::Range(1, std::numeric_limits<std::int32_t>::max()))
      ->transform(DecimalNumber)
      ->type_name("N")
      ->excludes(key);
  command.add_option("--expect", choice.expect, "With --index: refuse when that remark has another key")
      ->transform(DecimalNumber)
      ->type_name("KEY")
      ->needs(index);
}

void RequireChoice(const RemarkChoice& choice) {
  if (!choice.key && !choice.index) throw CLI::ValidationError("--key or --index must say which remark");
}

std::int32_t FindChosen(const RemarkContext& context, const RemarkChoice& choice, const std::string& source) {
  if (choice.key) return FindKey(context, *choice.key, source);
  const std::int32_t index = choice.index.value_or(0);
  const auto remark = context.RemarkList()->Item(std::int64_t{index});
  if (!remark) RefuseMissing(context, fmt::format("{}", index), source);
  if (choice.expect && remark->MemoKey() != *choice.expect) {
    throw Error(ErrorNumber::Component, source,
                fmt::format("The list has changed: remark {} has the key {} and not {}", index, remark->MemoKey(),
                            *choice.expect));
  }
  return index;
}

}  // namespace quorvel::cli
