// Files of settings: each byte of the file that is not changed stays, and a value that is written is read back.

#include <initializer_list>
#include <string>

#include "platform/RegistryExport.h"
#include "tests/fuzz/Fuzz.h"

namespace quorvel::fuzz {
namespace {

using registry::RegistryExport;

constexpr const char* kKey = R"(HKEY_LOCAL_MACHINE\Software\Tarnwick)";

std::string TextOf(const RegistryExport& file, const char* name) {
  const auto value = file.Find(kKey, name);
  return value ? value->text + "|" + std::to_string(static_cast<int>(value->type)) : "none";
}

void Set(RegistryExport& file, std::string_view text) {
  const std::string before = file.Text();
  const std::string other = TextOf(file, "Password");
  if (!file.SetString(kKey, "Server", text)) {
    Require(file.Text() == before, "a value that cannot be written changes nothing");
    return;
  }
  const auto again = RegistryExport::Parse(file.Text());
  Require(again.has_value(), "a changed file can be read");
  for (const auto* read : std::initializer_list<const RegistryExport*>{&file, &*again}) {
    Require(TextOf(*read, "Server") == std::string(text) + "|1", "a value that is written is read back");
    Require(TextOf(*read, "Password") == other, "another value keeps its text");
  }
  Require(again->Text() == file.Text(), "every byte is kept");
}

}  // namespace

void Try(std::string_view input) {
  auto file = RegistryExport::Parse(input);
  if (!file) return;
  if (!file->IsEmpty() && !input.starts_with("\xFF\xFE")) Require(file->Text() == input, "every byte is kept");
  for (const std::string& problem : file->Problems(kKey)) {
    Require(problem.starts_with("Line "), "a problem names its line");
  }
  const bool hasKey = file->AddKey(kKey);
  Require(hasKey == file->HasKey(kKey), "a key that was added is there");
  for (const std::string_view text : {input.substr(0, input.size() / 2), std::string_view("HOST\\\"A\""), input}) {
    if (hasKey) Set(*file, text);
  }
}

}  // namespace quorvel::fuzz
