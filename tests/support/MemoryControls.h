#pragma once

#include <array>
#include <cstdint>
#include <deque>
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
  [[nodiscard]] std::string Text(std::int32_t index) const override {
    return items.at(static_cast<std::size_t>(index)).first;
  }
  [[nodiscard]] std::int32_t Datum(std::int32_t index) const override {
    return items.at(static_cast<std::size_t>(index)).second;
  }
  [[nodiscard]] std::int32_t ListIndex() const override { return sets.back(); }
  void SetListIndex(std::int32_t index) override { sets.push_back(index < Count() ? index : -1); }
  [[nodiscard]] std::string CurrentText() const override { return ListIndex() < 0 ? "" : Text(ListIndex()); }

  std::vector<std::pair<std::string, std::int32_t>> items;
  std::vector<std::int32_t> sets = {-1};
};

class MemoryText : public TextField {
 public:
  [[nodiscard]] std::string Text() const override { return text; }
  void SetText(std::string_view value) override { text = value; }

  std::string text;
};

/// A check box, a number field or a button.
class MemoryValue : public CheckField, public NumberField {
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

/// Makes controls in memory, which live as long as the object, for faces and arrays of faces.
class MemoryControls {
 public:
  void Make(auto&... faces) { (MakeOne(faces), ...); }

 private:
  void MakeOne(ItemList*& face) { face = &m_choices.emplace_back(); }
  void MakeOne(Choice*& face) { face = &m_choices.emplace_back(); }
  void MakeOne(TextField*& face) { face = &m_texts.emplace_back(); }
  void MakeOne(RowsView*& face) { face = &m_rows.emplace_back(); }
  void MakeOne(auto*& face) { face = &m_values.emplace_back(); }
  template <typename Face, std::size_t N>
  void MakeOne(std::array<Face*, N>& faces) {
    for (Face*& face : faces) MakeOne(face);
  }

  std::deque<MemoryChoice> m_choices;
  std::deque<MemoryText> m_texts;
  std::deque<MemoryRows> m_rows;
  std::deque<MemoryValue> m_values;
};

}  // namespace quorvel::test
