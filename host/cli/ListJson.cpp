#include "host/cli/ListJson.h"

#include <nlohmann/json.hpp>

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
  return list.dump(2, ' ', false, Json::error_handler_t::replace);
}

}  // namespace quorvel::cli
