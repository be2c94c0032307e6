#pragma once

#include <cstdint>

#include "generate/output.h"

// Places of a site of 60 km by 60 km, strewn or walked by a fixed series of random numbers.
namespace bench {

// SplitMix64: the library's distributions differ from one library to the next.
class Random {
  public:
    // 0 to limit - 1
    std::int64_t below(std::int64_t limit) {
        state_ += 0x9e3779b97f4a7c15U;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9U;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebU;
        return static_cast<std::int64_t>((z ^ (z >> 31)) % static_cast<std::uint64_t>(limit));
    }

  private:
    std::uint64_t state_ = 20240501;
};

// Coordinates are counted in millionths of a metre.
inline constexpr std::int64_t kMetre = 1'000'000;
inline constexpr std::int64_t kMillimetre = kMetre / 1000;

struct Place {
    std::int64_t x, y;
};

inline Place somewhere(Random& random) {
    return {(300'000 + random.below(60'000)) * kMetre + random.below(kMetre),
            (6'200'000 + random.below(60'000)) * kMetre + random.below(kMetre)};
}

inline void step(Random& random, Place& place) {
    place.x += random.below(50 * kMetre) - 25 * kMetre;
    place.y += random.below(50 * kMetre) - 25 * kMetre;
}

// The place with six decimals as a line's rest in a .mif.
inline Output& operator<<(Output& mif, const Place& place) {
    return mif.decimal(place.x, 6).operator<<(" ").decimal(place.y, 6) << "\n";
}

// The place as two 64-bit floats of a .shp.
inline std::string littleMetres(const Place& place) {
    constexpr auto kUnit = static_cast<double>(kMetre);
    return little(static_cast<double>(place.x) / kUnit) +
           little(static_cast<double>(place.y) / kUnit);
}

}  // namespace bench
