#pragma once
// ImportReport: what an import did or would do, row by row: each entry added, updated (with what
// changed), left as it was, or refused with the reason. An import with one refused row changes
// nothing (the import command rolls its transaction back), so the report tells every reason at once.

#include <string>
#include <vector>

namespace qkdb {

class ImportReport {
 public:
  void Added(const std::string& what) { m_lines.push_back("added " + what); ++m_added; }
  void Updated(const std::string& what) { m_lines.push_back("updated " + what); ++m_updated; }
  void Unchanged() { ++m_unchanged; }
  void Refused(const std::string& where, const std::string& why) {
    m_refused.push_back("refused " + where + ": " + why);
  }

  bool AnyRefused() const { return !m_refused.empty(); }
  std::size_t RefusedCount() const { return m_refused.size(); }
  // The lines on standard output: what was written (or, with a refusal, only the refusals), then the
  // counts.
  std::string Text() const;

 private:
  std::vector<std::string> m_lines;
  std::vector<std::string> m_refused;
  std::size_t m_added = 0, m_updated = 0, m_unchanged = 0;
};

}  // namespace qkdb
