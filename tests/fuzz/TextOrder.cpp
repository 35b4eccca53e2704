// Three texts, a line each, compared without regard to letter case: indexes of database files depend on one order of
// all texts, whatever their bytes.

#include <string>

#include "platform/Text.h"
#include "platform/Utf.h"
#include "tests/fuzz/Fuzz.h"

namespace quorvel::fuzz {
namespace {

void CheckPair(std::string_view left, std::string_view right) {
  const int order = CompareIgnoringCase(left, right);
  Require(CompareIgnoringCase(right, left) == -order, "the other way round the order is the opposite");
  Require((order == 0) == (FoldCase(left) == FoldCase(right)), "equal texts are those that fold to the same");
  Require(CompareIgnoringCase(FoldCase(left), right) == order, "folding does not change the order");
}

}  // namespace

void Try(std::string_view input) {
  const std::string_view first = TakeUntil('\n', input);
  const std::string_view second = TakeUntil('\n', input);
  const std::string_view third = TakeUntil('\n', input);
  CheckPair(first, second);
  CheckPair(second, third);
  const bool rises = CompareIgnoringCase(first, second) <= 0 && CompareIgnoringCase(second, third) <= 0;
  if (rises) Require(CompareIgnoringCase(first, third) <= 0, "the order of three texts has no circle");
  if (const auto wide = utf::ToUtf16(first)) Require(utf::ToUtf8(*wide) == first, "a text is read back from UTF-16");
}

}  // namespace quorvel::fuzz
