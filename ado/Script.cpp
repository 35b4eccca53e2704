// A line can be a separator only where no comment and no quoted text is open, so the splitter reads line by line and
// skips comments and quoted texts, which may hold line ends.

#include "ado/Script.h"

#include <algorithm>

#include "platform/Text.h"

namespace quorvel::ado {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";

bool IsBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsComment(std::string_view text) {
  return text.starts_with("--") || (text.starts_with("/*") && text.find("*/", 2) == text.size() - 2);
}

bool IsSeparator(std::string_view line) {
  line = Trim(line);
  if (!EqualIgnoringCase(line.substr(0, 2), "GO")) return false;
  const std::string_view rest = Trim(line.substr(2));
  return rest.empty() || IsComment(rest);
}

class Splitter {
 public:
  explicit Splitter(std::string_view script) : m_script(script) {}

  std::vector<Batch> Split() {
    while (m_at < m_script.size()) {
      const std::string_view line = LineHere();
      if (IsSeparator(line)) {
        EndBatch();
        Skip(line.size());
        BeginBatch();
      } else {
        ReadLine();
      }
    }
    EndBatch();
    return std::move(m_batches);
  }

 private:
  [[nodiscard]] std::string_view LineHere() const {
    const auto end = m_script.find('\n', m_at);
    return m_script.substr(m_at, end == std::string_view::npos ? end : end + 1 - m_at);
  }

  void Skip(std::size_t count) {
    const std::string_view skipped = m_script.substr(m_at, count);
    m_line += static_cast<int>(std::count(skipped.begin(), skipped.end(), '\n'));
    m_at += skipped.size();
  }

  /// Reads up to the next line end outside comments and quoted texts, and that line end.
  void ReadLine() {
    while (m_at < m_script.size()) {
      const std::string_view rest = m_script.substr(m_at);
      const char c = rest.front();
      if (rest.starts_with("--")) {
        Skip(std::min(rest.find('\n'), rest.size()));
      } else if (rest.starts_with("/*")) {
        Skip(CommentLength(rest));
      } else if (c == '\'' || c == '"' || c == '[') {
        m_hasContent = true;
        // A doubled quote ends one text and begins the next, with the same effect.
        Skip(std::min(rest.find(c == '[' ? ']' : c, 1), rest.size() - 1) + 1);
      } else {
        m_hasContent = m_hasContent || !IsBlank(c);
        Skip(1);
        if (c == '\n') return;
      }
    }
  }

  /// T-SQL nests these comments.
  static std::size_t CommentLength(std::string_view text) {
    int depth = 0;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
      const std::string_view pair = text.substr(i, 2);
      if (pair == "/*") {
        ++depth;
        ++i;
      } else if (pair == "*/") {
        ++i;
        if (--depth == 0) return i + 1;
      }
    }
    return text.size();
  }

  void BeginBatch() {
    m_begin = m_at;
    m_firstLine = m_line;
    m_hasContent = false;
  }

  void EndBatch() {
    if (m_hasContent) m_batches.push_back({m_script.substr(m_begin, m_at - m_begin), m_firstLine});
  }

  std::string_view m_script;
  std::size_t m_at = 0;
  int m_line = 1;
  std::size_t m_begin = 0;
  int m_firstLine = 1;
  bool m_hasContent = false;
  std::vector<Batch> m_batches;
};

}  // namespace

std::vector<Batch> SplitBatches(std::string_view script) { return Splitter(script).Split(); }

}  // namespace quorvel::ado
