#include "platform/wx/gtk/EditHistory.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace quorvel::ui {
namespace {

/// A user at a text of plain letters, with a clock that only the test moves.
class EditHistoryTest : public testing::Test {
 protected:
  void Insert(int offset, const std::string& added) { Make({true, offset, static_cast<int>(added.size()), added}); }
  void Delete(int offset, int length) {
    Make({false, offset, length, m_text.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length))});
  }
  void Type(const std::string& letters) {
    for (const char letter : letters) Insert(static_cast<int>(m_text.size()), std::string(1, letter));
  }
  /// The text after each step back, up to the first.
  std::vector<std::string> TextsBack() {
    std::vector<std::string> texts;
    for (auto changes = m_history.Undo(); !changes.empty(); changes = m_history.Undo()) {
      std::ranges::reverse(changes);
      for (const TextChange& change : changes) Apply(change, !change.isInsertion);
      texts.push_back(m_text);
    }
    return texts;
  }

  EditHistory m_history;
  EditHistory::Clock::time_point m_now;
  std::string m_text;

 private:
  void Make(const TextChange& change) {
    Apply(change, change.isInsertion);
    m_history.Add(change, m_now);
  }
  void Apply(const TextChange& change, bool isInsertion) {
    const auto at = static_cast<std::size_t>(change.offset);
    isInsertion ? m_text.insert(at, change.text) : m_text.erase(at, change.text.size());
  }
};

TEST_F(EditHistoryTest, StepsEndAtWordsPausesAndOtherPlaces) {
  Type("one two");
  m_now += std::chrono::seconds(3);
  Type("fold");
  Insert(0, "x");
  EXPECT_THAT(TextsBack(), testing::ElementsAre("one twofold", "one two", "one ", ""));
  for (auto changes = m_history.Redo(); !changes.empty(); changes = m_history.Redo()) {
    for (const TextChange& change : changes) m_text.insert(static_cast<std::size_t>(change.offset), change.text);
  }
  EXPECT_EQ(m_text, "xone twofold");
}

TEST_F(EditHistoryTest, DeletingGoesBackByWordsInBothDirections) {
  Insert(0, "one two");
  for (const int offset : {6, 5, 4, 3, 2}) Delete(offset, 1);
  EXPECT_THAT(TextsBack(), testing::ElementsAre("one ", "one two", ""));
  Insert(0, "one two");
  for (int i = 0; i < 5; ++i) Delete(0, 1);
  EXPECT_THAT(TextsBack(), testing::ElementsAre("two", "one two", ""));
}

TEST_F(EditHistoryTest, AReplacedSelectionIsOneStepAndClearsWhatWasTakenBack) {
  Type("one");
  (void)m_history.Undo();
  m_history.Begin();
  Delete(0, 3);
  Insert(0, "two");
  m_history.End(m_now);
  EXPECT_TRUE(m_history.Redo().empty());
  EXPECT_THAT(TextsBack(), testing::ElementsAre("one"));
}

}  // namespace
}  // namespace quorvel::ui
