#pragma once
// The conversions of Access field bytes into the values the import writes, apart from the mdbtools
// table they come from, so that they can be tested and fuzzed on bytes alone.

#include <cstddef>
#include <cstdint>
#include <string>

namespace qkdb {

// Throws DataError "table "<table>": <what> (the file is damaged)".
[[noreturn]] void Damaged(const std::string& table, const std::string& what);

// The exact decimal text of a Currency value, a count of ten-thousandths: "17.45", "-3", "0.0001".
std::string CurrencyText(std::int64_t value);

// A Single (its IEEE 754 bits) as the double of its shortest decimal text, so 0.05 stays 0.05.
double SingleValue(std::uint32_t bits);

// The text "YYYY-MM-DD HH:MM:SS" of an Access date (days since 1899-12-30); throws DataError naming
// table for a value outside the years 100 to 9999 or not finite.
std::string DateText(double value, const std::string& table);

// UTF-8 of Jet 4 text: UTF-16LE, or "compressed" after the marker FF FE. Never throws; an unpaired
// surrogate becomes U+FFFD and an odd last byte is dropped.
std::string Utf16Text(const unsigned char* p, std::size_t size);

}  // namespace qkdb
