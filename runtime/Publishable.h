#pragma once

namespace quorvel {

/// Where a runtime object remembers the object through which hosts see it, so that they always meet the same one.
/// A copy is another object and has none.
class Publishable {
 public:
  Publishable(const Publishable&) = delete;
  Publishable& operator=(const Publishable&) = delete;

  /// Null while no host holds the object. Only the published boundary reads and writes it.
  [[nodiscard]] void* Published() const noexcept { return m_published; }
  void SetPublished(void* published) noexcept { m_published = published; }

 protected:
  Publishable() = default;
  ~Publishable() = default;

 private:
  void* m_published = nullptr;
};

}  // namespace quorvel
