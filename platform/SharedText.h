#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <utility>

namespace quorvel {

/// A text that does not change. Copies share it and are one pointer each, so that a thousand remarks of one author hold
/// his identifier once. The empty text needs no memory.
class SharedText {
 public:
  SharedText() noexcept = default;
  explicit SharedText(std::string text) : m_node(text.empty() ? nullptr : new Node{std::move(text)}) {}
  SharedText(const SharedText& other) noexcept : m_node(other.m_node) {
    if (m_node != nullptr) m_node->references.fetch_add(1, std::memory_order_relaxed);
  }
  SharedText(SharedText&& other) noexcept : m_node(std::exchange(other.m_node, nullptr)) {}
  SharedText& operator=(SharedText other) noexcept {
    std::swap(m_node, other.m_node);
    return *this;
  }
  ~SharedText() {
    if (m_node != nullptr && m_node->references.fetch_sub(1, std::memory_order_acq_rel) == 1) delete m_node;
  }

  [[nodiscard]] const std::string& Get() const noexcept { return m_node != nullptr ? m_node->text : Empty(); }

 private:
  struct Node {
    std::string text;
    std::atomic<std::uint32_t> references = 1;
  };

  static const std::string& Empty() noexcept {
    static const std::string empty;
    return empty;
  }

  Node* m_node = nullptr;
};

}  // namespace quorvel
