#include "text/NearNames.h"

#include <algorithm>
#include <set>

namespace qkdb {

namespace {

// Edits (insert, delete, replace one character) that turn a into b.
std::size_t EditDistance(const std::wstring& a, const std::wstring& b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[b.size()];
}

}  // namespace

std::wstring Folded(const CString& text) {
  std::wstring folded(text.GetString());
  for (wchar_t& c : folded)
    if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
  return folded;
}

std::vector<std::string> NearestNames(const CString& typed, const std::vector<Candidate>& candidates,
                                      std::size_t limit) {
  const std::wstring folded = Folded(typed);
  // A name holding the typed one is what was meant, most likely ("会议室" for "会议室（内区）").
  std::set<std::string> holding;
  for (const Candidate& c : candidates)
    if (!folded.empty() && Folded(c.compared).find(folded) != std::wstring::npos) holding.insert(c.shown);
  if (!holding.empty()) {
    std::vector<std::string> names(holding.begin(), holding.end());
    if (names.size() > limit) names.resize(limit);
    return names;
  }
  std::size_t best = std::max<std::size_t>(1, folded.size() / 2);
  std::set<std::string> nearest;
  for (const Candidate& c : candidates) {
    const std::size_t d = EditDistance(folded, Folded(c.compared));
    if (d > best) continue;
    if (d < best) nearest.clear();
    best = d;
    nearest.insert(c.shown);
  }
  std::vector<std::string> names(nearest.begin(), nearest.end());
  if (names.size() > limit) names.resize(limit);
  return names;
}

}  // namespace qkdb
