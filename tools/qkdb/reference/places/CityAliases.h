#pragma once
// The other names an engineer types for the cities of the reference database, into CityAlias (a table
// the library does not read; qkdb resolves these names before it asks the library):
//   - the official name with its administrative suffix, and today's name of a renamed city
//     (data/cn_city_official_names.csv: 重庆市, 恩施土家族苗族自治州, 襄阳 for 襄樊);
//   - the station names of the standard where they differ from the city's (库尔勒, 康定, 马坡岭);
//   - the English name of the city's own weather file in the EPW station list (Chongqing, Changsha),
//     and the Hanyu Pinyin of its official name (data/cn_city_pinyin.csv: Sanya).
// A name equal to the city's own name, or given twice for one city, is stored once or not at all.

#include <filesystem>
#include <map>
#include <string>

#include "reference/places/WeatherFiles.h"

namespace qkdb {

class SideRows;

// Written through rows, in the build's transaction. cityOf: the city of every station; files: every
// station's weather file. Throws DataError for data that cannot be used or a row that cannot be
// written.
void LoadCityAliases(const std::filesystem::path& dataDir, SideRows& rows, const std::map<std::string, long>& cityOf,
                     const std::map<std::string, WeatherFile>& files);

}  // namespace qkdb
