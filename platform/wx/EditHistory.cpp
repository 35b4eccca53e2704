#include "platform/wx/EditHistory.h"

#include <algorithm>
#include <utility>

namespace quorvel::ui {
namespace {

constexpr auto kPause = std::chrono::seconds(2);

bool IsBlank(wchar_t character) noexcept { return character == L' ' || character == L'\t' || character == L'\n'; }

bool IsBackspace(const TextChange& before, const TextChange& change) noexcept { return change.End() == before.offset; }

std::size_t CommonStart(std::wstring_view one, std::wstring_view other) {
  return static_cast<std::size_t>(std::ranges::mismatch(one, other).in1 - one.begin());
}

}  // namespace

void EditHistory::Add(TextChange change, Clock::time_point now) {
  m_action.push_back(std::move(change));
  if (!m_isInAction) End(now);
}

void EditHistory::End(Clock::time_point now) {
  m_isInAction = false;
  Add(std::exchange(m_action, {}), now);
}

void EditHistory::Forget() noexcept {
  m_done.clear();
  m_undone.clear();
  m_action.clear();
}

void EditHistory::Add(Changes action, Clock::time_point now) {
  if (action.empty()) return;
  m_undone.clear();
  const bool isTyping = action.back().text.size() == 1;
  if (!m_done.empty() && action.size() == 1 && isTyping) {
    Step& step = m_done.back();
    if (step.isTyping && now - step.last < kPause && Continues(step.changes.back(), action.front())) {
      step.last = now;
      return Append(step.changes.back(), action.front());
    }
  }
  m_done.push_back({std::move(action), now, isTyping});
}

/// A new line, the first letter of a word and, when deleting, the end of a word begin a step.
bool EditHistory::Continues(const TextChange& before, const TextChange& change) {
  if (before.isInsertion != change.isInsertion || change.text == L"\n") return false;
  const bool isBlank = IsBlank(change.text.front());
  if (change.isInsertion) return change.offset == before.End() && (isBlank || !IsBlank(before.text.back()));
  if (IsBackspace(before, change)) return !isBlank || IsBlank(before.text.front());
  return change.offset == before.offset && (isBlank || !IsBlank(before.text.back()));
}

void EditHistory::Append(TextChange& before, const TextChange& change) {
  if (!change.isInsertion && IsBackspace(before, change)) {
    before.offset = change.offset;
    before.text.insert(0, change.text);
  } else {
    before.text += change.text;
  }
}

EditHistory::Changes EditHistory::Undo() {
  Changes changes = Move(m_done, m_undone);
  std::ranges::reverse(changes);
  for (TextChange& change : changes) change.isInsertion = !change.isInsertion;
  return changes;
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

EditHistory::Changes Difference(std::wstring_view before, std::wstring_view after, std::size_t caret) {
  // An action leaves the insertion point at its end, so the text behind it is the former text.
  const std::size_t behind = after.size() - std::min(caret, after.size());
  std::size_t tail = 0;
  while (tail < std::min(behind, before.size()) && before[before.size() - tail - 1] == after[after.size() - tail - 1])
    ++tail;
  before.remove_suffix(tail);
  after.remove_suffix(tail);
  const std::size_t head = CommonStart(before, after);
  EditHistory::Changes changes;
  if (head < before.size()) changes.push_back({false, head, std::wstring(before.substr(head))});
  if (head < after.size()) changes.push_back({true, head, std::wstring(after.substr(head))});
  return changes;
}

}  // namespace quorvel::ui
