#include "text/Output.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iostream>

#include <nlohmann/json.hpp>

#include "files/ReferenceDatabase.h"
#include "mfc/CString.h"

namespace qkdb {

int Tell(int status, std::string_view message) {
  std::string line = "qkdb: " + std::string(message) + "\n";
  std::fputs(line.c_str(), stderr);
  return status;
}

int OpenChosenDatabase(const std::string& dbOption, CommandDatabase& db) {
  const std::string problem = db.Open(ChooseDatabase(dbOption));
  return problem.empty() ? 0 : Tell(2, problem);
}

std::string Quoted(std::string_view text) { return nlohmann::json(std::string(text)).dump(); }

double AsStored(double v) {
  char text[32];
  std::snprintf(text, sizeof text, "%.15g", v);
  return std::strtod(text, nullptr);
}

std::string Number(double v) {
  char text[64];
  // Plain decimals where an engineer reads them ("0.0003", not "3e-04"); an exponent only for values
  // whose plain form would be long.
  const double size = std::fabs(v);
  const bool plain = size == 0.0 || (size >= 1e-6 && size < 1e15);
  const auto end = plain ? std::to_chars(text, text + sizeof text, v, std::chars_format::fixed).ptr
                         : std::to_chars(text, text + sizeof text, v).ptr;
  return std::string(text, end);
}

std::string Fixed(double v, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, v);
  return text;
}

namespace {

bool IsWide(wchar_t c) {
  return (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0x303E) || (c >= 0x3041 && c <= 0x33FF) ||
         (c >= 0x3400 && c <= 0x4DBF) || (c >= 0x4E00 && c <= 0x9FFF) || (c >= 0xA000 && c <= 0xA4CF) ||
         (c >= 0xAC00 && c <= 0xD7A3) || (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE4F) ||
         (c >= 0xFF00 && c <= 0xFF60) || (c >= 0xFFE0 && c <= 0xFFE6) ||
         (static_cast<unsigned long>(c) >= 0x20000 && static_cast<unsigned long>(c) <= 0x3FFFD);
}

}  // namespace

std::size_t DisplayWidth(std::string_view utf8) {
  const CString text = CString::FromUtf8(utf8);
  std::size_t width = 0;
  for (wchar_t c : text.str()) width += IsWide(c) ? 2 : 1;
  return width;
}

void PrintColumns(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    if (widths.size() < row.size()) widths.resize(row.size(), 0);
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], DisplayWidth(row[i]));
  }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line += std::string(widths[i] - DisplayWidth(row[i]) + 2, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);  // an empty last cell leaves the padding before it
    out << line << '\n';
  }
}

}  // namespace qkdb
