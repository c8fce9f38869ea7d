#include "places/CityNames.h"

#include <map>

#include "text/NearNames.h"
#include "geography/CQKCity.h"
#include "tablekit/CADORecordset.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace qkdb {

namespace {

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
  std::vector<Candidate> candidates;
  for (const KnownName& n : names) candidates.push_back({n.name, Shown(n)});
  for (const std::string& n : NearestNames(CString::FromUtf8(name), candidates)) found.candidates.push_back(n);
  return found;
}

}  // namespace qkdb
