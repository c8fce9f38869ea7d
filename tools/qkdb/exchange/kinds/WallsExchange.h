#pragma once
// The envelope catalogue of "qkdb export walls" and "qkdb import walls": categories > types > codes,
// one row per layer of each code's bounding structure, outside first, the construction named by its
// name. A code without layers, a type without codes and a category without types are each a row with
// the names it has and the rest empty. Categories come in their listing order (OrderId); a category
// the import adds goes after the others. The record classes must be bound to the database.

#include "exchange/ExchangeTable.h"
#include "exchange/ImportReport.h"

namespace qkdb {

class WriteTransaction;

std::vector<ExchangeColumn> WallColumns();
// Throws DataError for a layer naming a construction the database does not hold.
ExchangeTable ExportWalls();
// Adds or updates categories, types (by name, over the whole catalogue), codes (by name) and their
// bounding structures through CQKBSCategory, CQKBSType, CQKBSCode and CQKBoundingStructure on the
// transaction's connection. A layer's construction must already be in the database (import the
// constructions first). A row that cannot be taken is refused in report; a database that fails
// throws DataError.
void ImportWalls(WriteTransaction& tx, const ExchangeTable& table, ImportReport& report);

}  // namespace qkdb
