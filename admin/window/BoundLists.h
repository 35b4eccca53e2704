#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/Controls.h"
#include "platform/wx/ListSearch.h"

class wxListBox;

// The faces of lists over the toolkit's controls. Nothing that the program sets raises an event.

namespace quorvel {

class SearchCombo;

/// A list box, which is searched by typing. Added items show when the window is idle or when an item is asked for,
/// whichever comes first: thousands of them are shown at once much faster than one by one.
class BoundList : public ItemList {
 public:
  enum class Order { Alphabetical, AsFilled };

  void Attach(wxListBox& box, Order order);

  void Clear() override;
  /// Adds the item at its place in the order, which need not be the last.
  void Add(std::string_view text, std::int32_t datum) override;
  void Remove(std::int32_t index) override;
  [[nodiscard]] std::int32_t Count() const override { return static_cast<std::int32_t>(m_items.size()); }
  [[nodiscard]] std::string Text(std::int32_t index) const override { return At(index).text; }
  [[nodiscard]] std::int32_t Datum(std::int32_t index) const override { return At(index).datum; }
  [[nodiscard]] std::int32_t ListIndex() const override;
  /// Also brings the item into view.
  void SetListIndex(std::int32_t index) override;
  [[nodiscard]] wxListBox& Box() const noexcept { return *m_box; }

 private:
  struct Item {
    std::string text;
    std::int32_t datum;
  };
  [[nodiscard]] const Item& At(std::int32_t index) const;
  void ShowAdded() const;
  void ShowOne() const;
  void ShowAll() const;

  wxListBox* m_box = nullptr;
  Order m_order = Order::Alphabetical;
  mutable std::vector<Item> m_items;  ///< the shown ones, in their order, and then those added since
  mutable std::size_t m_shown = 0;
  ui::ListSearch m_search;
};

/// A combo box. Items are shown in the order in which they are added.
class BoundCombo : public Choice {
 public:
  void Attach(SearchCombo& box) noexcept { m_box = &box; }

  void Clear() override;
  void Add(std::string_view text, std::int32_t datum) override;
  void Remove(std::int32_t index) override;
  [[nodiscard]] std::int32_t Count() const override { return static_cast<std::int32_t>(m_data.size()); }
  [[nodiscard]] std::string Text(std::int32_t index) const override;
  [[nodiscard]] std::int32_t Datum(std::int32_t index) const override {
    return m_data.at(static_cast<std::size_t>(index));
  }
  [[nodiscard]] std::int32_t ListIndex() const override;
  void SetListIndex(std::int32_t index) override;
  [[nodiscard]] std::string CurrentText() const override;
  [[nodiscard]] SearchCombo& Box() const noexcept { return *m_box; }

 private:
  SearchCombo* m_box = nullptr;
  std::vector<std::int32_t> m_data;
};

}  // namespace quorvel
