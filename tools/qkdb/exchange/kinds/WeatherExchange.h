#pragma once
// The weather of "qkdb export weather": one row per weather row of the database, named by its
// city, province and country, with every item of the weather table as "qkdb weather --json" gives it
// (the table's units, null for NULL) and the position in degrees beside the radians. Export only:
// weather comes in through "qkdb init" and "qkdb import-epw". The record classes must be bound.

#include "exchange/ExchangeTable.h"

namespace qkdb {

ExchangeTable ExportWeather();

}  // namespace qkdb
