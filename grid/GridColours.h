#pragma once

#include <cstdint>

namespace quorvel {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  friend bool operator==(const Colour&, const Colour&) = default;
};

/// Of a colour as designs store it: 0xBBGGRR.
[[nodiscard]] constexpr Colour FromStored(std::uint32_t stored) noexcept {
  return {static_cast<std::uint8_t>(stored), static_cast<std::uint8_t>(stored >> 8U),
          static_cast<std::uint8_t>(stored >> 16U)};
}

inline constexpr Colour kOddRow = FromStored(0xBFFFFF);
inline constexpr Colour kEvenRow = FromStored(0xC1D7B0);

/// How well one colour is told from the other, from 1 to 21; text is read with ease from 4.5 on.
[[nodiscard]] double Contrast(Colour left, Colour right) noexcept;

/// `share` of the second colour in the first.
[[nodiscard]] Colour Mix(Colour first, Colour second, double share) noexcept;

/// The design's background where text of that colour is read on it; else darkened or lightened as far as it takes, its
/// hue kept. A dark theme's light text gets dark rows that way.
[[nodiscard]] Colour ReadableBackground(Colour design, Colour text) noexcept;

}  // namespace quorvel
