#pragma once
// How the commands that read the reference database answer: the database chosen by --db opened or a
// one-line failure, numbers as the table stores them, and text laid out in columns.

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace qkdb {

class CommandDatabase;

// Prints "qkdb: <message>" as one line on standard error and returns status (main.cpp gives the
// meaning of each status).
int Tell(int status, std::string_view message);

// Opens the database chosen from dbOption (ReferenceDatabase.h) into db, which binds the record
// classes to it while it lives: 0, or 2 after telling why it cannot be read (missing, not a database,
// tables missing).
int OpenChosenDatabase(const std::string& dbOption, CommandDatabase& db);

// v rounded to 15 significant digits. The value classes keep Pa and fractions while the tables keep
// hPa and percent, and the division and multiplication on the way can leave the last bit off: a stored
// 58 % reads back as 57.99999999999999. Fifteen digits are what a double holds exactly in decimal, so
// rounding there gives the stored decimal back.
double AsStored(double v);
// text in double quotes, with JSON's escapes for quotes and control characters: a name typed with a
// line break in it cannot break a one-line message.
std::string Quoted(std::string_view text);
// The shortest text that reads back as v ("58", "1013.3", "0.0003"), without an exponent unless v
// is below 1e-6 or above 1e15 in size.
std::string Number(double v);
// v with a fixed number of decimals ("113.6500").
std::string Fixed(double v, int decimals);

// How many terminal columns the UTF-8 text takes: two for a Chinese, Japanese or Korean glyph or a
// full-width form, one for anything else.
std::size_t DisplayWidth(std::string_view utf8);
// Prints rows as columns two blanks apart, each as wide as its widest cell; the last cell of a row
// is not padded, so no line ends in blanks.
void PrintColumns(std::ostream& out, const std::vector<std::vector<std::string>>& rows);

}  // namespace qkdb
