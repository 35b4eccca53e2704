#pragma once

#include <cstdint>

namespace quorvel {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  friend bool operator==(const Colour&, const Colour&) = default;
};

/// From a stored colour: 0xBBGGRR.
[[nodiscard]] constexpr Colour FromStored(std::uint32_t stored) noexcept {
  return {static_cast<std::uint8_t>(stored), static_cast<std::uint8_t>(stored >> 8U),
          static_cast<std::uint8_t>(stored >> 16U)};
}

inline constexpr Colour kOddRow = FromStored(0xBFFFFF);
inline constexpr Colour kEvenRow = FromStored(0xC1D7B0);

/// The contrast of two colours, from 1 to 21. A text is easy to read from 4.5 on.
[[nodiscard]] double Contrast(Colour left, Colour right) noexcept;

/// Mixes the colours; `share` is that of the second, from 0 to 1.
[[nodiscard]] Colour Mix(Colour first, Colour second, double share) noexcept;

/// The background `design`, made darker or lighter until a text of the colour `text` can be read on it; the hue stays.
/// The light text of a dark theme gets dark rows.
[[nodiscard]] Colour ReadableBackground(Colour design, Colour text) noexcept;

}  // namespace quorvel
