#include "ado/embedded/Select.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "ado/embedded/Quoting.h"

namespace quorvel::ado::embedded {

std::string Select::Sql() const {
  std::vector<std::string> list;
  list.reserve(items.size());
  for (const Item& item : items) {
    // The enclosing query compares the texts of a subquery like those of a column.
    const std::string sql = Collated(item.expression);
    list.push_back(item.alias.empty() ? sql : fmt::format("{} AS {}", sql, QuoteName(item.alias)));
  }
  return fmt::format("{} {}{}", head, fmt::join(list, ", "), tail);
}

std::vector<std::size_t> Select::Targets() const {
  std::vector<std::size_t> targets;
  for (const Item& item : items) {
    if (item.target) targets.push_back(*item.target);
  }
  return targets;
}

}  // namespace quorvel::ado::embedded
