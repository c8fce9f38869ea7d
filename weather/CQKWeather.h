#pragma once
// CQKWeather: the design climate of one city as a row of the weather table, found by the city's ID
// (CId). The row is the value's named exchange, so the table holds pressures in hPa and humidities in
// percent, and the place names are not stored: the lookups of CQKWeatherDataAdmin fill them in from
// the geography tables.
//
// The class-wide connection, path and table follow the record pattern (QKRecordTable.h). Not safe
// for concurrent use.

#include "QKExport.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "tablekit/tagDBSTRUCT.h"
#include "weather/CQKWeatherData.h"

class QK_EXPORT CQKWeather : public CQKWeatherData, public tagDBSTRUCT {
  QK_DECLARE_RECORD_TABLE(CQKWeather)

 public:
  // The Beijing defaults, with aux stored in Aux2.
  explicit CQKWeather(int aux = 0);
  CQKWeather(const CQKWeather&) = default;
  CQKWeather& operator=(const CQKWeather&) = default;
  ~CQKWeather() override = default;

  // Looks CId up: DBS_EXIST when one row or more has it (with exactly one, ID becomes that row's key;
  // with several, ID is left as it was), DBS_NOTEXIST, DBS_ERROR when the query fails. Only the key
  // is read, nothing else of the row.
  QKLoad::DBStatusCode IsExist(CADODatabase* db);
  // Inserts this climate into db (null: the record's own) unless its CId is stored: DBS_ADDED or
  // DBS_ERROR. When it is stored: DBS_EXIST, and with bUpdate nonzero the row with this record's ID is
  // overwritten first, always in the record's own database whatever db is, and whether or not that
  // write succeeds. After IsExist found several rows, that ID is whatever the record held.
  QKLoad::DBStatusCode AddIfNotExist(CADODatabase* db, int bUpdate);
  // Writes this record into the row with key id of db (null: the record's own).
  int UpdateData(long id, CADODatabase* db = nullptr) override;

  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateWeatherTableData(CADODatabase* from, CADODatabase* to);

  // A weather value with the Beijing defaults that takes from this record only the position, the
  // names, the design conditions, the infiltration factors, the zone, the ground temperatures, Aux2,
  // EpwName, TimeZone, Elevation, CityType and both design days. The four most-frequent-wind items, the
  // wind words, EpwType, Aux1, the monthly tables and the orientation table keep their defaults.
  // C++ never calls a conversion to a base class by itself: `CQKWeatherData v = weather;` copies every
  // field. Call it by name, `weather.operator CQKWeatherData()`, for this partial copy.
  // g++ and clang both warn about it, and both read the GCC pragma.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wclass-conversion"
#endif
  operator CQKWeatherData() const;
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
};
