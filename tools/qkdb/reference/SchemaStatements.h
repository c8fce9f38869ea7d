#pragma once
// A schema script (data/schema.sql, or the server's form of it) taken apart for a connection that runs
// one statement per call, as the server's extended protocol does.

#include <string>
#include <vector>

namespace qkdb {

// The statements of script in order, comments removed, each without its closing ";". A ";" or "--"
// inside a quoted text or name does not count.
std::vector<std::string> SplitStatements(const std::string& script);
// The names of the tables script creates, as it spells them, in its order.
std::vector<std::string> CreatedTables(const std::string& script);

}  // namespace qkdb
