#include "host/cli/Input.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include <fmt/format.h>

#include "platform/Error.h"
#include "platform/Utf.h"

namespace quorvel::cli {
namespace {

constexpr const char* kStandardInput = "-";

struct CloseUnlessStandard {
  void operator()(std::FILE* file) const noexcept {
    if (file != stdin) std::fclose(file);
  }
};

[[noreturn]] void ThrowUnreadable(const std::string& path, const std::string& source) {
  const std::string reason = std::generic_category().message(errno);
  const std::string name = path == kStandardInput ? "the standard input" : path;
  throw Error(ErrorNumber::Component, source, fmt::format("Cannot read {}: {}", name, reason));
}

}  // namespace

std::string ReadWhole(const std::string& path, const std::string& source) {
  const std::unique_ptr<std::FILE, CloseUnlessStandard> file(path == kStandardInput ? stdin
                                                                                    : std::fopen(path.c_str(), "rb"));
  if (!file) ThrowUnreadable(path, source);
  std::string whole;
  std::array<char, 65536> block{};
  while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
    whole.append(block.data(), count);
  }
  if (std::ferror(file.get()) != 0) ThrowUnreadable(path, source);
  return whole;
}

void RequireUtf8(std::string_view text, std::string_view what, const std::string& source) {
  if (utf::IsWellFormed(text)) return;
  throw Error(ErrorNumber::Component, source,
              fmt::format("{} is not UTF-8, and nothing was written. The command iconv converts a text, for example "
                          "iconv -f latin1 -t utf-8",
                          what));
}

std::optional<std::string> ReadInputLine(const std::string& source) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  std::string text = ReadWhole(kStandardInput, source);
  if (text.empty()) return std::nullopt;
  RequireUtf8(text, "The standard input", source);
  if (text.starts_with(kMark)) text.erase(0, kMark.size());
  if (text.ends_with('\n')) text.pop_back();
  if (text.ends_with('\r')) text.pop_back();
  return text;
}

std::string ReadTextArgument(const std::string& argument, const std::string& source) {
  if (argument == kStandardInput) return ReadInputLine(source).value_or("");
  RequireUtf8(argument, "The text", source);
  return argument;
}

}  // namespace quorvel::cli
