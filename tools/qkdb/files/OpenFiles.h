#pragma once
// Which other processes have a file open: asked before a database is replaced. A process that holds
// the old file open (a host program with the reference database open through the library) would go
// on reading and writing it after the rename, unlinked: its writes would vanish without a word.
//
// Read from /proc, as lsof and fuser read it: processes of other users are seen only with the right to
// look into them. Elsewhere than on Linux no holder is found.

#include <filesystem>
#include <string>
#include <vector>

namespace qkdb {

// Every process but this one that holds file (or its SQLite journal or write-ahead log) open, each as
// "pid 1234 (python3)".
std::vector<std::string> ProcessesHolding(const std::filesystem::path& file);

// The refusal to replace file while others hold it: "" when none does, else one line naming them and
// the option (option) that replaces it anyway.
std::string RefuseToReplaceHeld(const std::filesystem::path& file, const std::string& option);

}  // namespace qkdb
