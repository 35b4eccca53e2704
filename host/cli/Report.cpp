#include "host/cli/Report.h"

#include <fmt/format.h>

#include "platform/Text.h"

namespace quorvel::cli {

bool Report::Check(std::string_view what, std::string_view problem, std::string_view remedy) {
  ++m_checks;
  if (problem.empty()) {
    fmt::print("ok    {}\n", Printable(TrimBlanks(what)));
    return true;
  }
  ++m_failures;
  fmt::print("FAIL  {}: {}\n      {}\n", Printable(TrimBlanks(what)), Printable(problem), remedy);
  return false;
}

void Report::Skip(std::string_view what, std::string_view reason) {
  fmt::print("?     {}: {}\n", Printable(what), Printable(reason));
}

}  // namespace quorvel::cli
