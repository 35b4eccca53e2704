#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "ado/Recordset.h"

// Rules fill and read a window's controls through these faces and need no toolkit. The window implements them over its
// controls. Texts are UTF-8; a face is used on the window's thread only.

namespace quorvel {

/// The index of no item of a list.
inline constexpr std::int32_t kNoItem = -1;

/// A list box. Indexes count from 0. Every item has a text and a datum, a number that holds the key of the item's row.
class ItemList {
 public:
  virtual ~ItemList() = default;

  /// Removes every item; then none is current.
  virtual void Clear() = 0;
  /// Adds an item after the last one and leaves the current one current.
  virtual void Add(std::string_view text, std::int32_t datum) = 0;
  virtual void Remove(std::int32_t index) = 0;

  [[nodiscard]] virtual std::int32_t Count() const = 0;
  [[nodiscard]] virtual std::string Text(std::int32_t index) const = 0;
  [[nodiscard]] virtual std::int32_t Datum(std::int32_t index) const = 0;

  /// The current item, or kNoItem.
  [[nodiscard]] virtual std::int32_t ListIndex() const = 0;
  /// Makes an item current. An index without an item makes none current.
  virtual void SetListIndex(std::int32_t index) = 0;
};

/// A combo box: a list and the text beside it.
class Choice : public ItemList {
 public:
  /// The text that the box shows; empty when no item is current and nothing was typed.
  [[nodiscard]] virtual std::string CurrentText() const = 0;
};

/// A box for text, typed or only shown.
class TextField {
 public:
  virtual ~TextField() = default;
  [[nodiscard]] virtual std::string Text() const = 0;
  virtual void SetText(std::string_view text) = 0;
};

/// A number that the user steps up and down.
class NumberField {
 public:
  virtual ~NumberField() = default;
  [[nodiscard]] virtual std::int32_t Value() const = 0;
  virtual void SetValue(std::int32_t value) = 0;
};

/// A control that can be disabled: a button or a check box.
class EnabledControl {
 public:
  virtual ~EnabledControl() = default;
  virtual void SetEnabled(bool enabled) = 0;
};

/// A check box. Its value is what the database stores: 1 checked, 0 unchecked.
class CheckField : public EnabledControl {
 public:
  [[nodiscard]] virtual std::int32_t Value() const = 0;
  virtual void SetValue(std::int32_t value) = 0;
};

/// A grid that shows rows and changes none.
class RowsView {
 public:
  virtual ~RowsView() = default;
  /// Shows these rows instead of the previous ones and keeps them while they are shown; null shows none.
  virtual void Show(std::shared_ptr<ado::Recordset> rows) = 0;

  /// The text that explains a row, for the user who rests on it; the row is 1-based among the rows shown. The
  /// empty text explains nothing.
  using Explanation = std::function<std::string(std::int32_t row)>;
  /// Explains the rows that are shown, until the next Show.
  virtual void Explain(Explanation explanation) = 0;
};

}  // namespace quorvel
