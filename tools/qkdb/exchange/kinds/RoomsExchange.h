#pragma once
// The room types and room uses of "qkdb export rooms" and "qkdb import rooms": one row per room use
// with its room type's name and its load parameters as the load-parameter table keeps them
// (humidities in percent, the labour intensity as its id 0–4, null where not given); a room type
// without room uses is a row with its name alone. The hourly schedules are not part of it. The record
// classes must be bound to the database.

#include "exchange/ExchangeTable.h"
#include "exchange/ImportReport.h"

namespace qkdb {

class WriteTransaction;

std::vector<ExchangeColumn> RoomColumns();
ExchangeTable ExportRooms();
// Adds or updates room types (by name), room uses (by name within their type) and their load
// parameters through CQKRoomType, CQKRoomUse and CQKRULoadParam on the transaction's connection,
// then stores each parameter exactly as the file gives it, null included. A row that cannot be taken
// is refused in report; a database that fails throws DataError.
void ImportRooms(WriteTransaction& tx, const ExchangeTable& table, ImportReport& report);

}  // namespace qkdb
