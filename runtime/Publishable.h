#pragma once

namespace quorvel {

/// Lets a runtime object remember the published object that hosts see, so that a host always gets the same pointer.
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
