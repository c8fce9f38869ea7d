#pragma once
// The names nearest to one an engineer typed and nobody stored ("did you mean 郑州?"): the names that
// hold it, else those nearest by edit distance (insert, delete or replace one character); Latin letters
// compared without case, as the tables' NOCASE collation compares them.

#include <string>
#include <vector>

#include "mfc/CString.h"

namespace qkdb {

// text with Latin letters folded to lower case.
std::wstring Folded(const CString& text);

// A name that may be offered: compared as compared, shown as shown ("襄樊 (襄阳市)").
struct Candidate {
  CString compared;
  std::string shown;
};

// The shown names of the candidates that hold typed; when none does, those with the fewest edits from
// typed, and no more than half its length away. At most limit of them, in sorted order, each once.
std::vector<std::string> NearestNames(const CString& typed, const std::vector<Candidate>& candidates,
                                      std::size_t limit = 5);

}  // namespace qkdb
