#include "platform/wx/EditHistory.h"

#include <gmock/gmock.h>

#include <chrono>
#include <string>
#include <tuple>
#include <vector>

namespace quorvel::ui {
namespace {

/// A user at a text, with a clock that only the test moves.
class EditHistoryTest : public testing::Test {
 protected:
  void Insert(std::size_t offset, const std::wstring& added) { Act({true, offset, added}); }
  void Delete(std::size_t offset, std::size_t length) { Act({false, offset, m_text.substr(offset, length)}); }
  void Type(const std::wstring& letters) {
    for (const wchar_t letter : letters) Insert(m_text.size(), std::wstring(1, letter));
  }
  /// The text after each step back, up to the first, or after each step that is made again.
  std::vector<std::wstring> TextsAfter(EditHistory::Changes (EditHistory::*step)()) {
    std::vector<std::wstring> texts;
    for (auto changes = (m_history.*step)(); !changes.empty(); changes = (m_history.*step)()) {
      for (const TextChange& change : changes) Make(change);
      texts.push_back(m_text);
    }
    return texts;
  }

  EditHistory m_history;
  EditHistory::Clock::time_point m_now;
  std::wstring m_text;

 private:
  void Act(const TextChange& change) {
    Make(change);
    m_history.Add(change, m_now);
  }
  void Make(const TextChange& change) {
    change.isInsertion ? m_text.insert(change.offset, change.text) : m_text.erase(change.offset, change.text.size());
  }
};

TEST_F(EditHistoryTest, StepsEndAtWordsPausesAndOtherPlaces) {
  Type(L"one two");
  m_now += std::chrono::seconds(3);
  Type(L"fold");
  Insert(0, L"x");
  EXPECT_THAT(TextsAfter(&EditHistory::Undo), testing::ElementsAre(L"one twofold", L"one two", L"one ", L""));
  EXPECT_THAT(TextsAfter(&EditHistory::Redo),
              testing::ElementsAre(L"one ", L"one two", L"one twofold", L"xone twofold"));
}

TEST_F(EditHistoryTest, DeletingGoesBackByWordsInBothDirections) {
  Insert(0, L"one two");
  for (const std::size_t offset : {6U, 5U, 4U, 3U, 2U}) Delete(offset, 1);
  EXPECT_THAT(TextsAfter(&EditHistory::Undo), testing::ElementsAre(L"one ", L"one two", L""));
  Insert(0, L"one two");
  for (int i = 0; i < 5; ++i) Delete(0, 1);
  EXPECT_THAT(TextsAfter(&EditHistory::Undo), testing::ElementsAre(L"two", L"one two", L""));
}

TEST_F(EditHistoryTest, AReplacedSelectionIsOneStepAndClearsWhatWasTakenBack) {
  Type(L"one");
  (void)m_history.Undo();
  m_history.Begin();
  Delete(0, 3);
  Insert(0, L"two");
  m_history.End(m_now);
  EXPECT_TRUE(m_history.Redo().empty());
  EXPECT_THAT(TextsAfter(&EditHistory::Undo), testing::ElementsAre(L"one"));
}

TEST(DifferenceTest, TheInsertionPointTellsWhereAnActionTookPlace) {
  using Case = std::tuple<const wchar_t*, const wchar_t*, std::size_t, const wchar_t*>;
  // The changes are written as + or -, offset, text.
  for (const auto& [before, after, caret, expected] : {
           Case{L"", L"a", 1, L"+0a"},
           Case{L"hello", L"helllo", 3, L"+2l"},
           Case{L"hello", L"helo", 2, L"-2l"},
           Case{L"hello", L"helo", 3, L"-3l"},
           Case{L"a\r\nb", L"a\r\n\r\nb", 3, L"+1\r\n"},
           Case{L"one two six", L"one 2 six", 5, L"-4two+42"},
           Case{L"one two", L"one", 0, L"-3 two"},
           Case{L"same", L"same", 4, L""},
           Case{L"gone", L"", 9, L"-0gone"},
       }) {
    std::wstring changes;
    for (const TextChange& change : Difference(before, after, caret)) {
      changes += (change.isInsertion ? L"+" : L"-") + std::to_wstring(change.offset) + change.text;
    }
    EXPECT_EQ(changes, expected) << before << " -> " << after;
  }
}

}  // namespace
}  // namespace quorvel::ui
