#pragma once
// Finding a city by the name an engineer types. First the library's own lookup by the stored name;
// then the other names of CityAlias (official names with their suffix, today's names of renamed
// cities, the standard's station names, English names), Latin letters compared without case. A name
// that finds nothing is answered with the nearest stored names. The record classes must be bound to
// the database (OpenChosenDatabase); a database without CityAlias has only the stored names.

#include <string>
#include <vector>

namespace qkdb {

struct CityByName {
  long id = 0;                          // the city; 0 when none, or several, is found
  std::string alias;                    // how it was found: "" by its stored name, else "<alias> (<kind>)"
  std::vector<std::string> candidates;  // several cities of one alias, or the nearest names when none
  bool ambiguous = false;               // the name is an alias of several cities (the candidates)
};

CityByName FindCity(const std::string& name);

}  // namespace qkdb
