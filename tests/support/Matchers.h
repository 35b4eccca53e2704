#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <string>

#include "platform/Error.h"

namespace quorvel::test {

// The matchers that many tests use, by their short names.
using ::testing::_;
using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::ContainsRegex;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::Field;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

/// An Error with that number and a description that meets a matcher.
inline auto IsError(std::int32_t number, const testing::Matcher<std::string>& description) {
  return AllOf(testing::Property("Number", &Error::Number, number),
               testing::Property("Description", &Error::Description, description));
}
/// The same with that source.
inline auto IsError(std::int32_t number, const testing::Matcher<std::string>& source,
                    const testing::Matcher<std::string>& description) {
  return AllOf(IsError(number, description), testing::Property("Source", &Error::Source, source));
}

inline auto HasNumber(std::int32_t number) { return testing::Property("Number", &Error::Number, number); }

}  // namespace quorvel::test
