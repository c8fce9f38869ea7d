#pragma once
// EPW files written by the tests: a header as EnergyPlus weather files have it and a year of hourly
// records whose values are not imported.

#include <string>

// Header lines 3 to 8 of an EPW file; their content is not imported, only their order is checked.
extern const char* const kRestOfHeader[6];

// The LOCATION line of the CSWD file of Zhengzhou (shared samples).
extern const std::string kZhengzhouLocation;
// The Zhengzhou line of the sample, as the 2009 ASHRAE Handbook tables lay it out.
extern const std::string kDesignConditions;

// The text of an EPW file: location, design conditions, the rest of the header, then records hourly
// records (a year holds 8760), lines ended by eol.
std::string EpwText(const std::string& location, const std::string& design = kDesignConditions, int records = 8760,
                    const std::string& eol = "\n");
