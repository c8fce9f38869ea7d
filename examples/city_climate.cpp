// examples/city_climate.cpp
// The design climate of a city of the reference database, found by its Chinese name: whether it is
// the city's own or borrowed from the nearest city with a weather file, and the two design
// temperatures a load calculation starts from. Usage: city_climate REFERENCE_DB [CITY] (default 郑州).

#include <cstdio>
#include <string>

#include "binding/QKReferenceDatabase.h"
#include "foundation/CQKDBGlobalSetting.h"
#include "foundation/QKLoad.h"
#include "geography/CQKCity.h"
#include "mfc/CString.h"
#include "weather/CQKWeather.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace {

int Fail(const std::string& message) {
  std::fprintf(stderr, "city_climate: %s\n", message.c_str());
  return 1;
}

int Report(const CString& database, const CString& name) {
  CString error;
  if (!QKReferenceDatabase::Bind(database, &error)) return Fail(error.ToUtf8());

  // With no city of that name GetCityIdByName gives the first city of the table: read it back.
  CQKCity city;
  city.Name = name;
  const bool found = CQKWeatherDataAdmin::GetCityIdByName(city) && city.ReadData(city.GetID());
  if (!found || city.Name.CompareNoCase(name) != 0) return Fail("no city named " + name.ToUtf8());

  // A city without a weather row would answer with a fresh record's defaults (Beijing's).
  CQKWeather weather;
  weather.CId = city.GetID();
  if (weather.IsExist(nullptr) != QKLoad::DBS_EXIST) return Fail("no climate stored for " + name.ToUtf8());
  // 1: the row names no weather file, so the nearest city's climate was taken, and its names with it.
  const int borrowed = CQKWeatherDataAdmin::GetWeatherByCityId(weather);

  std::printf("city: %s\n", city.Name.ToUtf8().c_str());
  if (borrowed)
    std::printf("climate: borrowed from %s (%s)\n", weather.CityName.ToUtf8().c_str(),
                weather.ProvinceName.ToUtf8().c_str());
  else
    std::printf("climate: its own (%s, %s)\n", weather.ProvinceName.ToUtf8().c_str(),
                weather.CountryName.ToUtf8().c_str());
  std::printf("summer air-conditioning outdoor dry-bulb: %.1f °C\n", weather.XjKtSwGqWd);
  std::printf("winter heating outdoor temperature: %.1f °C\n", weather.DjCnSwGqWd);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return Fail("usage: city_climate REFERENCE_DB [CITY]");
  // The one process-wide object: made before any database is touched, removed at the end.
  if (CQKDBGlobalSetting::GetGlobalSetting() == nullptr) return Fail("cannot start the library");
  const int status = Report(CString::FromUtf8(argv[1]), CString::FromUtf8(argc > 2 ? argv[2] : "郑州"));
  CQKDBGlobalSetting::RemoveGlobalSetting();
  return status;
}
