#include "grid/GridColours.h"

#include <algorithm>
#include <cmath>

namespace quorvel {
namespace {

/// 4.5 can just be read; people who read all day need more.
constexpr double kEnough = 7;
constexpr Colour kBlack{0, 0, 0};
constexpr Colour kWhite{255, 255, 255};

double Linear(std::uint8_t channel) noexcept {
  const double value = channel / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(Colour colour) noexcept {
  return 0.2126 * Linear(colour.red) + 0.7152 * Linear(colour.green) + 0.0722 * Linear(colour.blue);
}

std::uint8_t MixChannel(std::uint8_t first, std::uint8_t second, double share) noexcept {
  return static_cast<std::uint8_t>(std::lround(first + (second - first) * share));
}

}  // namespace

double Contrast(Colour left, Colour right) noexcept {
  const auto [darker, lighter] = std::minmax({Luminance(left), Luminance(right)});
  return (lighter + 0.05) / (darker + 0.05);
}

Colour Mix(Colour first, Colour second, double share) noexcept {
  return {MixChannel(first.red, second.red, share), MixChannel(first.green, second.green, share),
          MixChannel(first.blue, second.blue, share)};
}

Colour ReadableBackground(Colour design, Colour text) noexcept {
  const Colour target = Contrast(kBlack, text) > Contrast(kWhite, text) ? kBlack : kWhite;
  // In small steps, so that two backgrounds of different lightness stay different.
  for (int percent = 0; percent < 100; percent += 2) {
    const Colour mixed = Mix(design, target, percent / 100.0);
    if (Contrast(mixed, text) >= kEnough) return mixed;
  }
  return target;
}

}  // namespace quorvel
