#include "reference/ReferenceLoader.h"

#include <cstdio>

#include "mfc/CString.h"
#include "files/SharedConnection.h"
#include "reference/SideRows.h"
#include "reference/catalogue/CatalogueLoader.h"
#include "reference/places/CityAliases.h"
#include "reference/places/PlaceLoader.h"
#include "reference/rooms/RoomLoader.h"
#include "reference/rooms/RoomSchedules.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"
#include "text/CsvTable.h"

namespace qkdb {

void LoadReference(const std::filesystem::path& dataDir, CADODatabase& db, const std::string& path) {
  SharedConnection shared(db, path);
  SideRows beside(db);
  const Places places = LoadPlaces(dataDir, db);
  LoadCityAliases(dataDir, beside, places.cityOf, places.files);
  LoadCatalogue(dataDir, db);
  LoadRoomSchedules(dataDir, beside, LoadRooms(dataDir, db));
}

std::vector<std::pair<std::string, long>> CountRows(CADODatabase& db) {
  static const char* const tables[] = {"Country",   "Province",      "City",          "Weather",
                                       "WeatherFileSource", "CityAlias", "TimberingType", "Timbering",
                                       "BSCategory", "BSType",   "BSCode",        "BoundingStructure",
                                       "RoomType",  "RoomUse",       "RULoadParam", "RoomUseSchedule"};
  std::vector<std::pair<std::string, long>> counts;
  for (const char* table : tables) {
    CADORecordset rs(&db);
    long count = -1;
    if (!rs.Open(CString::FromUtf8(std::string("SELECT COUNT(*) AS N FROM ") + table)) ||
        !rs.GetFieldValue(L"N", count))
      throw DataError(std::string("cannot count the rows of ") + table);
    counts.emplace_back(table, count);
  }
  return counts;
}

void PrintCounts(const std::vector<std::pair<std::string, long>>& counts) {
  for (const auto& [table, count] : counts) std::printf("  %-18s %6ld\n", table.c_str(), count);
}

}  // namespace qkdb
