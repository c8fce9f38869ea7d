#include "import/epw/EpwPlace.h"

#include <cmath>
#include <numbers>
#include <sstream>
#include <vector>

#include "text/CsvTable.h"
#include "import/WriteTransaction.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "mfc/CString.h"

namespace qkdb {

namespace {

// The station's position may differ this much, in degrees of latitude and of longitude, from a
// weather row's and still be taken for the same station.
constexpr double kSameStation = 0.05;

// The city of a weather row with its province and country names; the queries add columns after these.
const std::string kPlace = "SELECT c.ID, c.Name, p.Name, k.Name";
const std::string kOfWeather =
    " FROM Weather w JOIN City c ON c.ID = w.CId LEFT JOIN Province p ON p.ID = c.PId "
    "LEFT JOIN Country k ON k.ID = p.CId ";

// A weather row whose file WeatherFileSource records as a neighbour's (Own 0) merely names that file
// as its nearest: it is not the file's station, and an import never lands on it by the file's name.
// A database without that table knows only files of their own station.
const std::string kBorrowedFile =
    "EXISTS (SELECT 1 FROM WeatherFileSource s WHERE s.CId = w.CId AND s.EpwName = w.EpwName AND s.Own = 0)";

EpwPlace Found(const std::vector<std::string>& row, std::string how) {
  return EpwPlace{std::stol(row[0]), row[1], row[2], row[3], std::move(how)};
}

bool NamesStation(const std::string& epwName, const std::string& wmo) {
  std::string word;
  for (char c : epwName + ".") {
    if (c == '.' || c == '_') {
      if (word == wmo) return true;
      word.clear();
    } else {
      word += c;
    }
  }
  return false;
}

double Degrees(const std::string& radians) { return std::stod(radians) * 180.0 / std::numbers::pi; }

// The place records look names up in SQL texts of their own, which cannot hold a double quote.
void CheckName(const std::string& name, const char* what) {
  if (name.empty()) throw DataError(std::string("the ") + what + " has no name (give it with --" + what + ")");
  if (name.find('"') != std::string::npos)
    throw DataError(std::string("the ") + what + " name " + name + " holds a double quote, which place names cannot");
}

template <typename Record>
const char* Add(Record& record, CADODatabase* db, const std::string& what) {
  const QKLoad::DBStatusCode status = record.AddIfNotExist(db, 1);
  if (status == QKLoad::DBS_ERROR) throw DataError("cannot write the " + what);
  return status == QKLoad::DBS_ADDED ? "added" : "found";
}

EpwPlace AddByNames(CADODatabase* db, const std::string& cityName, const std::string& provinceName,
                    const std::string& countryName) {
  CheckName(countryName, "country");
  CheckName(provinceName, "province");
  CheckName(cityName, "city");
  CQKCountry country;
  country.Name = CString::FromUtf8(countryName);
  const char* countryHow = Add(country, db, "country " + countryName);
  CQKProvince province;
  province.CId = country.GetID();
  province.Name = CString::FromUtf8(provinceName);
  const char* provinceHow = Add(province, db, "province " + provinceName);
  CQKCity city;
  city.PId = province.GetID();
  city.Name = CString::FromUtf8(cityName);
  const char* cityHow = Add(city, db, "city " + cityName);
  std::ostringstream how;
  how << "by its names: city " << cityHow << ", province " << provinceHow << ", country " << countryHow;
  return EpwPlace{city.GetID(), cityName, provinceName, countryName, how.str()};
}

}  // namespace

EpwPlace FindOrAddPlace(WriteTransaction& tx, const std::string& fileName, const EpwLocation& location,
                        const PlaceNames& names) {
  if (names.city.empty()) {
    const std::string what = "look the station up";
    const bool sources = tx.HasTable("WeatherFileSource");
    const std::string ownFile = sources ? " AND NOT " + kBorrowedFile : "";
    const std::string noOwnFile = sources ? " OR " + kBorrowedFile : "";
    auto rows = tx.Rows(kPlace + kOfWeather + "WHERE w.EpwName = " + WriteTransaction::Literal(fileName) + ownFile +
                            " ORDER BY w.ID",
                        what);
    if (!rows.empty()) return Found(rows.front(), "by its weather file's name");

    if (!location.wmo.empty())
      for (const auto& row :
           tx.Rows(kPlace + ", w.EpwName" + kOfWeather + "WHERE w.EpwName <> ''" + ownFile + " ORDER BY w.ID", what))
        if (NamesStation(row[4], location.wmo))
          return Found(row, "by its WMO station " + location.wmo + " (weather file " + row[4] + ")");

    // Positions are stored in radians.
    const double toRadians = std::numbers::pi / 180.0;
    const std::string wd = WriteTransaction::Literal(location.latitude * toRadians);
    const std::string jd = WriteTransaction::Literal(location.longitude * toRadians);
    const std::string near = WriteTransaction::Literal(kSameStation * toRadians);
    rows = tx.Rows(kPlace + ", w.JD, w.WD" + kOfWeather + "WHERE (w.EpwName IS NULL OR w.EpwName = ''" + noOwnFile +
                       ") AND abs(w.WD - " + wd + ") <= " + near + " AND abs(w.JD - " + jd + ") <= " + near +
                       " ORDER BY (w.WD - " + wd + ") * (w.WD - " + wd + ") + (w.JD - " + jd + ") * (w.JD - " + jd +
                       "), w.ID",
                   what);
    if (!rows.empty()) {
      std::ostringstream how;
      how.precision(4);
      how << std::fixed << "by its position: its weather row stands at " << Degrees(rows.front()[4]) << "° E, "
          << Degrees(rows.front()[5]) << "° N";
      return Found(rows.front(), how.str());
    }
  }
  return AddByNames(tx.Database(), names.city.empty() ? location.city : names.city,
                    names.province.empty() ? location.region : names.province,
                    names.country.empty() ? location.country : names.country);
}

}  // namespace qkdb
