#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/Controls.h"

// The faces of controls without a toolkit.

namespace quorvel::test {

/// A combo box or list box in memory that remembers every index that was set.
class MemoryChoice : public Choice {
 public:
  void Clear() override {
    items.clear();
    sets.push_back(-1);
  }
  void Add(std::string_view text, std::int32_t datum) override { items.emplace_back(text, datum); }
  void Remove(std::int32_t index) override {
    items.erase(items.begin() + index);
    sets.push_back(-1);
  }
  [[nodiscard]] std::int32_t Count() const override { return static_cast<std::int32_t>(items.size()); }
  [[nodiscard]] std::string Text(std::int32_t index) const override { return At(index).first; }
  [[nodiscard]] std::int32_t Datum(std::int32_t index) const override { return At(index).second; }
  [[nodiscard]] std::int32_t ListIndex() const override { return sets.back(); }
  void SetListIndex(std::int32_t index) override { sets.push_back(index < Count() ? index : -1); }
  [[nodiscard]] std::string CurrentText() const override { return ListIndex() < 0 ? "" : Text(ListIndex()); }

  [[nodiscard]] const std::pair<std::string, std::int32_t>& At(std::int32_t index) const {
    return items.at(static_cast<std::size_t>(index));
  }
  /// The texts of all items.
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const auto& [text, datum] : items) texts.push_back(text);
    return texts;
  }
  /// Makes the item with that text current, as the user does with a click; false when there is none.
  bool Pick(std::string_view text) {
    for (std::int32_t index = 0; index < Count(); ++index) {
      if (Text(index) != text) continue;
      SetListIndex(index);
      return true;
    }
    return false;
  }

  std::vector<std::pair<std::string, std::int32_t>> items;
  std::vector<std::int32_t> sets = {-1};
};

class MemoryText : public TextField {
 public:
  [[nodiscard]] std::string Text() const override { return text; }
  void SetText(std::string_view value) override { text = value; }

  std::string text;
};

class MemoryNumber : public NumberField {
 public:
  [[nodiscard]] std::int32_t Value() const override { return value; }
  void SetValue(std::int32_t number) override { value = number; }

  std::int32_t value = 0;
};

class MemoryButton : public EnabledControl {
 public:
  void SetEnabled(bool on) override { enabled = on; }

  bool enabled = true;
};

class MemoryCheck : public CheckField {
 public:
  void SetEnabled(bool on) override { enabled = on; }
  [[nodiscard]] std::int32_t Value() const override { return value; }
  void SetValue(std::int32_t number) override { value = number; }

  bool enabled = true;
  std::int32_t value = 0;
};

class MemoryRows : public RowsView {
 public:
  void Show(std::shared_ptr<ado::Recordset> shown) override {
    rows = std::move(shown);
    explanation = {};
  }
  void Explain(Explanation explain) override { explanation = std::move(explain); }

  std::shared_ptr<ado::Recordset> rows;
  Explanation explanation;
};

}  // namespace quorvel::test
