#pragma once

#include <cstdint>
#include <string>

namespace quorvel::bench {

/// The ID of the owner that has that many remarks in the benchmarks' database.
inline std::string OwnerOf(std::int64_t remarks) { return "N" + std::to_string(remarks); }

inline constexpr const char* kContext = "CustMaint";
inline constexpr const char* kUser = "admin";

/// The sample database with owners of 10, 1,000, 10,000, 100,000 and 1,000,000 remarks, made on first use in a
/// temporary folder; the component's settings name it. Returns the file's path.
const std::string& DatabaseFile();

}  // namespace quorvel::bench
