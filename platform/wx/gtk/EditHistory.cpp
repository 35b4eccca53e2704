#include "platform/wx/gtk/EditHistory.h"

namespace quorvel::ui {
namespace {

constexpr auto kPause = std::chrono::seconds(2);

bool IsBlank(char character) noexcept { return character == ' ' || character == '\t' || character == '\n'; }

bool IsBackspace(const TextChange& before, const TextChange& change) noexcept {
  return change.offset + change.length == before.offset;
}

}  // namespace

void EditHistory::End(Clock::time_point now) {
  m_isInAction = false;
  Commit(std::exchange(m_action, {}), now);
}

void EditHistory::Add(TextChange change, Clock::time_point now) {
  m_action.push_back(std::move(change));
  if (!m_isInAction) End(now);
}

void EditHistory::Forget() noexcept {
  m_done.clear();
  m_undone.clear();
  m_action.clear();
}

void EditHistory::Commit(Changes changes, Clock::time_point now) {
  if (changes.empty()) return;
  m_undone.clear();
  const bool isTyping = changes.back().length == 1;
  if (!m_done.empty() && changes.size() == 1 && isTyping) {
    Step& step = m_done.back();
    if (step.isTyping && now - step.last < kPause && Continues(step.changes.back(), changes.front())) {
      step.last = now;
      return Append(step.changes.back(), changes.front());
    }
  }
  m_done.push_back({std::move(changes), now, isTyping});
}

/// A new line, the first letter of a word and, when deleting, the end of a word begin a step.
bool EditHistory::Continues(const TextChange& before, const TextChange& change) {
  if (before.isInsertion != change.isInsertion || change.text == "\n") return false;
  const bool isBlank = IsBlank(change.text.front());
  if (change.isInsertion) {
    return change.offset == before.offset + before.length && (isBlank || !IsBlank(before.text.back()));
  }
  if (IsBackspace(before, change)) return !isBlank || IsBlank(before.text.front());
  return change.offset == before.offset && (isBlank || !IsBlank(before.text.back()));
}

void EditHistory::Append(TextChange& before, const TextChange& change) {
  const bool isInFront = !change.isInsertion && IsBackspace(before, change);
  before.length += change.length;
  if (isInFront) {
    before.offset = change.offset;
    before.text.insert(0, change.text);
  } else {
    before.text += change.text;
  }
}

EditHistory::Changes EditHistory::Move(std::vector<Step>& from, std::vector<Step>& to) {
  if (from.empty()) return {};
  to.push_back(std::move(from.back()));
  from.pop_back();
  // Typing after this is another step.
  to.back().isTyping = false;
  if (!from.empty()) from.back().isTyping = false;
  return to.back().changes;
}

}  // namespace quorvel::ui
