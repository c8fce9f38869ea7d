#pragma once
// What the fault tests run against a database: each family of operations runs in a fixed order on
// the seeded rows and reports every result as one line of text, so a test compares the whole family
// at once and a failure shows every result side by side. Status codes appear by name (DBS_ERROR);
// the verbs that return int appear as numbers; the messages shown meanwhile follow as "[style] text".

#include <string>

// Looks up the seeded rows: Country IsExist and ReadData, Weather IsExist, BoundingStructure
// IsExist, RoomUse IsExist, RULoadParam IsExist, a city's ID by its name, and the walls of the
// envelope type (by name).
std::string RunLookups();
// Changes the seeded rows: Country AddIfNotExist (a new name) and UpdateIfNoOther (a rename),
// Province InsertData, City UpdateData and RemoveData, BoundingStructure and RULoadParam
// AddOrUpdate (updates), Weather AddIfNotExist with its update of the found row.
std::string RunWrites();
// Builds the trees (places, places with a weather file, envelope, constructions, rooms) and shows
// their shapes: name(children,...).
std::string RunTrees();
// Deletes a seeded row of each administration: DeleteCountry, DeleteWeatherByCityID (with its
// error text), DeleteBSCode (with its message text), DeleteRoomUse.
std::string RunDeletions();

// The results each family gives on the healthy seeded database, when every statement fails, and
// (kWritesRefused) when the rows can be read but not written.
extern const char* const kLookupsFound;
extern const char* const kLookupsFailed;
extern const char* const kWritesDone;
extern const char* const kWritesFailed;
extern const char* const kWritesRefused;
extern const char* const kTreesWhole;
extern const char* const kTreesRootsOnly;
extern const char* const kDeletionsDone;
extern const char* const kDeletionsFailed;
