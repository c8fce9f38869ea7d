#pragma once
// Which city of the reference database an EPW file's station belongs to, and adding it when there is
// none. Without names from the command line the station is recognised, in this order, by:
//   1. a weather row naming this very file (EpwName) as its own station's: a row whose file
//      WeatherFileSource records as a neighbour's (Own 0) only names it as its nearest and is passed by;
//   2. such a row naming another file of the same WMO station (the id is one of the dot- or
//      underscore-separated words of an EPW file name: CHN_Henan.Zhengzhou.570830_CSWD.epw);
//   3. the nearest weather row without a file of its own (none, or a neighbour's) within 0.05° of
//      latitude and of longitude (some 5 km:
//      closer than two stations of the national network ever stand), as the shipped data names its
//      places in Chinese and EPW files in English;
//   4. the file's own names: country, then province (the EPW "region") in it, then city in that,
//      each added when missing.
// With --city (and optionally --province, --country) the names decide and steps 1 to 3 are skipped.

#include <string>

#include "import/epw/EpwFile.h"

namespace qkdb {

struct EpwPlace {
  long cityId = 0;
  std::string city, province, country;  // the names as stored
  std::string how;                      // how the city was found or that it was added, for the report
};

struct PlaceNames {
  std::string city, province, country;  // empty: the EPW file's own
};

class WriteTransaction;

// Finds or adds the place within the transaction tx (the record classes bound to its database's
// tables). Throws DataError when a record cannot be read or written.
EpwPlace FindOrAddPlace(WriteTransaction& tx, const std::string& fileName, const EpwLocation& location,
                        const PlaceNames& names);

}  // namespace qkdb
