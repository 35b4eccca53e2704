#pragma once

#include <cstdint>
#include <string>

namespace quorvel::bench {

/// The owner of that many remarks in the benchmarks' database; their customer key is the number itself.
inline std::string OwnerOf(std::int64_t remarks) { return "N" + std::to_string(remarks); }

inline constexpr const char* kContext = "CustMaint";
inline constexpr const char* kUser = "admin";
inline constexpr std::int16_t kEntityType = 501;

/// The sample database with owners of 10, 1,000, 10,000, 100,000 and 1,000,000 remarks, made on first use in a
/// temporary folder; the component's settings point to it. Gives the file's path.
const std::string& DatabaseFile();

}  // namespace quorvel::bench
