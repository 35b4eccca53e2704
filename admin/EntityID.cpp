#include "admin/EntityID.h"

#include <fmt/format.h>

#include "admin/Query.h"
#include "platform/Text.h"
#include "platform/Value.h"

namespace quorvel {
namespace {

// The entity's key follows.
constexpr std::string_view kSelectEntityID =
    "SELECT RemarkEntityID "
    "FROM ttwRemarkEntity "
    "WHERE RemarkEntityKey = ";

}  // namespace

std::string ReadEntityID(std::int32_t entityKey) {
  if (entityKey == 0) return {};
  const auto row = Query(fmt::format("{}{}", kSelectEntityID, entityKey));
  if (row->EndOfFile()) return {};
  return std::string(TrimBlanks(ToText(row->Fields("RemarkEntityID").Value())));
}

}  // namespace quorvel
