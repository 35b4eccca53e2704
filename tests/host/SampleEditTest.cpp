#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/sample/EditUntilSettled.h"

namespace sample {
namespace {

/// Remarks of a place, with a database that refuses the first writes.
struct StandIn {
  bool placeSaves = true;
  int refusals = 0;
  bool isUnsaved = false;
  bool opens = true;
  std::vector<std::string> calls{};

  void Edit() {
    calls.emplace_back("edit");
    if (!opens) throw ComponentError{-1, "Quorvel", "No window can be opened"};
    isUnsaved = true;
    if (placeSaves) Write();
  }
  void Save() {
    calls.emplace_back("save");
    Write();
  }
  void Write() {
    if (refusals-- > 0) throw ComponentError{-2147217871, "Quorvel.Embedded", "Timeout expired"};
    isUnsaved = false;
  }
  [[nodiscard]] bool IsUnsaved() const { return isUnsaved; }
  [[nodiscard]] bool IsLeftToSave() const { return !placeSaves; }
};

/// Edits, answers the questions in turn, and returns what was done; a question is "failed?" or "save?".
std::vector<std::string> Edit(StandIn remarks, std::vector<UnsavedAnswer> answers) {
  EditUntilSettled(remarks, [&](const ComponentError* failure) {
    remarks.calls.emplace_back(failure != nullptr ? "failed?" : "save?");
    const UnsavedAnswer answer = answers.at(0);
    answers.erase(answers.begin());
    return answer;
  });
  EXPECT_TRUE(answers.empty());
  return remarks.calls;
}

TEST(SampleEdit, LosesNoChangeUnasked) {
  using Calls = std::vector<std::string>;
  using enum UnsavedAnswer;
  EXPECT_EQ(Edit({}, {}), Calls{"edit"});
  EXPECT_EQ(Edit({.placeSaves = false}, {Save}), (Calls{"edit", "save?", "save"}));
  EXPECT_EQ(Edit({.placeSaves = false}, {OpenAgain, ThrowAway}), (Calls{"edit", "save?", "edit", "save?"}));
  EXPECT_EQ(Edit({.refusals = 2}, {Save, Save}), (Calls{"edit", "failed?", "save", "failed?", "save"}));
  EXPECT_EQ(Edit({.placeSaves = false, .refusals = 1}, {Save, OpenAgain, Save}),
            (Calls{"edit", "save?", "save", "failed?", "edit", "save?", "save"}));
  EXPECT_THROW(Edit({.opens = false}, {}), ComponentError);  // nothing is at stake, so nothing is asked
}

}  // namespace
}  // namespace sample
