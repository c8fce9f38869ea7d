#pragma once
// The constructions of "qkdb export constructions" and "qkdb import constructions": one row per
// construction (a material of the catalogue) with its construction type's name and every column of
// the construction table; a construction type without constructions is a row with its name alone.
// The record classes must be bound to the database.

#include "exchange/ExchangeTable.h"
#include "exchange/ImportReport.h"

namespace qkdb {

class WriteTransaction;

std::vector<ExchangeColumn> ConstructionColumns();
ExchangeTable ExportConstructions();
// Adds the types and constructions the database lacks and updates those whose values differ, by name
// (a construction's name is its key over the whole table), through CQKTimberingType and CQKTimbering
// on the transaction's connection. A row that cannot be taken is refused in report; a database that
// fails throws DataError.
void ImportConstructions(WriteTransaction& tx, const ExchangeTable& table, ImportReport& report);

}  // namespace qkdb
