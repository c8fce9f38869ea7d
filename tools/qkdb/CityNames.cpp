#include "CityNames.h"

#include <algorithm>
#include <map>
#include <set>

#include "geography/CQKCity.h"
#include "tablekit/CADORecordset.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace qkdb {

namespace {

// Latin letters folded to lower case, as the tables' NOCASE collation compares them.
std::wstring Folded(const CString& text) {
  std::wstring folded(text.GetString());
  for (wchar_t& c : folded)
    if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
  return folded;
}

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

struct KnownName {
  long cityId;
  CString name;      // the stored name or the alias
  CString cityName;  // the stored name of the city
  CString kind;      // "" for the stored name, else the alias's kind
};

// Every stored name and every alias. The aliases are read whole and compared here, so the typed
// name never becomes part of a statement.
std::vector<KnownName> KnownNames() {
  std::vector<KnownName> names;
  CQKCity city;
  CADORecordset rs;
  if (city.ExecSql(L"select ID, Name from City", &rs, nullptr))
    for (; !rs.IsEOF(); rs.MoveNext()) {
      KnownName n{0, L"", L"", L""};
      rs.GetFieldValue(0, n.cityId);
      rs.GetFieldValue(1, n.name);
      n.cityName = n.name;
      names.push_back(n);
    }
  CADORecordset aliases;
  if (city.ExecSql(L"select a.CId, a.Alias, c.Name, a.Kind from CityAlias a inner join City c on c.ID = a.CId",
                   &aliases, nullptr))
    for (; !aliases.IsEOF(); aliases.MoveNext()) {
      KnownName n{0, L"", L"", L""};
      aliases.GetFieldValue(0, n.cityId);
      aliases.GetFieldValue(1, n.name);
      aliases.GetFieldValue(2, n.cityName);
      aliases.GetFieldValue(3, n.kind);
      names.push_back(n);
    }
  return names;
}

// "襄樊" for a stored name, "襄樊 (襄阳市)" for an alias.
std::string Shown(const KnownName& n) {
  return n.kind.IsEmpty() ? n.name.ToUtf8() : n.cityName.ToUtf8() + " (" + n.name.ToUtf8() + ")";
}

}  // namespace

CityByName FindCity(const std::string& name) {
  CQKCity city;
  city.Name = CString::FromUtf8(name);
  // With no city of that name the library gives the first city of the table: check it matched.
  if (CQKWeatherDataAdmin::GetCityIdByName(city) && city.ReadData(city.GetID()) &&
      city.Name.CompareNoCase(CString::FromUtf8(name)) == 0)
    return {city.GetID(), "", {}, false};

  const std::wstring typed = Folded(CString::FromUtf8(name));
  const std::vector<KnownName> names = KnownNames();
  std::map<long, const KnownName*> matches;
  for (const KnownName& n : names)
    if (!n.kind.IsEmpty() && Folded(n.name) == typed) matches.emplace(n.cityId, &n);
  CityByName found;
  if (matches.size() == 1) {
    const KnownName& n = *matches.begin()->second;
    return {n.cityId, n.name.ToUtf8() + " (" + n.kind.ToUtf8() + ")", {}, false};
  }
  for (const auto& [id, n] : matches) found.candidates.push_back(Shown(*n));
  found.ambiguous = !matches.empty();
  if (found.ambiguous) return found;

  // The nearest names: the fewest edits, and no more than half the typed name's length.
  std::size_t best = std::max<std::size_t>(1, typed.size() / 2);
  std::set<std::string> nearest;
  for (const KnownName& n : names) {
    const std::size_t d = EditDistance(typed, Folded(n.name));
    if (d > best) continue;
    if (d < best) nearest.clear();
    best = d;
    nearest.insert(Shown(n));
  }
  for (const std::string& n : nearest)
    if (found.candidates.size() < 5) found.candidates.push_back(n);
  return found;
}

}  // namespace qkdb
