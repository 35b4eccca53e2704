#include "host/cli/ListJson.h"

#include <fmt/format.h>

#include <cstdint>
#include <nlohmann/json.hpp>

#include "platform/Text.h"
#include "platform/Utf.h"

namespace quorvel::cli {
namespace {

using Json = nlohmann::ordered_json;

Json OfType(const RemarkType& type) {
  return {{"id", type.TypeID()},           {"caption", type.Caption()}, {"showPopup", type.ShowPopup()},
          {"canCreate", type.CanCreate()}, {"canRead", type.CanRead()}, {"canUpdate", type.CanUpdate()},
          {"canDelete", type.CanDelete()}};
}

Json OfRemark(const Remark& remark, std::size_t index) {
  constexpr std::size_t kToTheSecond = 19;
  return {{"index", index},
          {"key", remark.MemoKey()},
          {"typeId", remark.TypeID()},
          {"typeCaption", remark.TypeCaption()},
          {"dateStamp", FormatDateTime(remark.DateStamp(), 'T').substr(0, kToTheSecond)},
          {"userId", remark.UserID()},
          {"text", remark.MemoText()},
          {"showPopup", remark.ShowPopup()}};
}

Json OfContext(const RemarkContext& context) {
  return {{"id", context.ContextID()},
          {"caption", context.Caption()},
          {"entityKey", context.EntityKey()},
          {"entityName", context.EntityName()},
          {"groupByType", context.GroupByType()},
          {"allowRowSizing", context.AllowRowSizing()},
          {"rowHeight", context.RowHeight()},
          {"editBehavior", static_cast<std::int32_t>(context.EditBehavior())}};
}

/// Readers of JSON get the same text from an escape, and the terminal of a person who looks at it is safe.
std::string Escaped(const std::string& json) {
  std::string escaped;
  for (std::size_t position = 0; position < json.size();) {
    const std::size_t begin = position;
    const char32_t character = utf::Take(json, position);
    if (CanMisleadTerminal(character)) {
      escaped += fmt::format("\\u{:04x}", static_cast<std::uint32_t>(character));
    } else {
      escaped.append(json, begin, position - begin);
    }
  }
  return escaped;
}

}  // namespace

std::string ListAsJson(const RemarkContext& context) {
  Json types = Json::array();
  for (const auto& type : context.Types()->All()) types.push_back(OfType(*type));
  Json remarks = Json::array();
  for (const auto& remark : *context.RemarkList()->Items()) remarks.push_back(OfRemark(*remark, remarks.size() + 1));
  const Json list = {{"context", OfContext(context)},
                     {"owner", {{"id", context.OwnerID()}, {"key", context.OwnerKey()}, {"name", context.OwnerName()}}},
                     {"user", context.UserID()},
                     {"types", std::move(types)},
                     {"remarks", std::move(remarks)},
                     {"memoCount", context.MemoCount()},
                     {"popupCount", context.PopupCount()}};
  return Escaped(list.dump(2, ' ', false, Json::error_handler_t::replace));
}

}  // namespace quorvel::cli
