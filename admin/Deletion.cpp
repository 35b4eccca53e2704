#include "admin/Deletion.h"

#include <fmt/format.h>

#include "platform/CurrentPrompts.h"

namespace quorvel {

std::string RelationText(std::initializer_list<Relation> relations) {
  std::string text;
  for (const Relation& relation : relations) {
    if (relation.count <= 0) continue;
    if (&relation != relations.begin()) text += " and ";
    text += fmt::format("{}{}", relation.count, relation.words);
  }
  return text;
}

bool ConfirmDelete(std::string_view title, std::string_view id, std::string_view relation,
                   std::string_view secondLine) {
  const std::string question =
      fmt::format("{}{}\r\n{} you want to PERMANENTLY delete {}?", id, relation, secondLine, id);
  return CurrentPrompts().ShowMessage(question, title, PromptButtons::YesNo, PromptIcon::Exclamation) ==
         PromptAnswer::Yes;
}

}  // namespace quorvel
