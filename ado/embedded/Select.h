#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ado/embedded/Expression.h"

namespace quorvel::ado::embedded {

/// A translated SELECT, in parts, so that INSERT can convert the items of its list.
struct Select {
  struct Item {
    Expression expression;
    std::string alias;
    std::optional<std::size_t> target;  ///< the variable of `@v = expression`
  };

  std::string head;  ///< SELECT [DISTINCT]
  std::vector<Item> items;
  std::string tail;  ///< from FROM on

  [[nodiscard]] std::string Sql() const;
  /// The variables that the items go into, in order.
  [[nodiscard]] std::vector<std::size_t> Targets() const;
};

}  // namespace quorvel::ado::embedded
