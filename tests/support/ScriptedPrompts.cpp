#include "tests/support/ScriptedPrompts.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/CurrentPrompts.h"

namespace quorvel::test {

PromptAnswer ScriptedPrompts::ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                                          PromptIcon icon) {
  shown.push_back({std::string(text), std::string(title), buttons, icon});
  if (const auto act = std::exchange(meanwhile, nullptr)) act();
  if (buttons == PromptButtons::Ok) return PromptAnswer::Ok;
  if (answers.empty()) {
    ADD_FAILURE() << "unexpected question: " << text;
    return PromptAnswer::No;
  }
  const PromptAnswer answer = answers.front();
  answers.pop_front();
  return answer;
}

std::optional<std::string> ScriptedPrompts::AskText(std::string_view prompt, std::string_view title) {
  shown.push_back({std::string(prompt), std::string(title), PromptButtons::Ok, PromptIcon::None});
  if (texts.empty()) {
    ADD_FAILURE() << "unexpected input box: " << prompt;
    return std::nullopt;
  }
  auto text = texts.front();
  texts.pop_front();
  return text;
}

void ScriptedPrompts::KeepDrawing() noexcept {
  if (const auto act = std::exchange(meanwhile, nullptr)) act();
  ++drawings;
}

PromptsGuard::PromptsGuard() { m_before = ExchangePrompts(m_prompts); }

PromptsGuard::~PromptsGuard() { ExchangePrompts(m_before); }

}  // namespace quorvel::test
