#include "reference/SchemaStatements.h"

#include <regex>

namespace qkdb {

namespace {

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

}  // namespace

std::vector<std::string> SplitStatements(const std::string& script) {
  std::vector<std::string> statements;
  std::string current;
  char quote = 0;  // the quote of the text or name being read, 0 outside one
  for (std::size_t i = 0; i < script.size(); ++i) {
    const char c = script[i];
    if (quote != 0) {
      current += c;
      if (c == quote) quote = 0;  // a doubled quote closes and reopens: the same text
      continue;
    }
    if (c == '\'' || c == '"') {
      quote = c;
      current += c;
    } else if (c == '-' && i + 1 < script.size() && script[i + 1] == '-') {
      i = script.find('\n', i);
      if (i == std::string::npos) break;
      current += '\n';
    } else if (c == ';') {
      if (std::string statement = Trimmed(current); !statement.empty()) statements.push_back(statement);
      current.clear();
    } else {
      current += c;
    }
  }
  if (std::string statement = Trimmed(current); !statement.empty()) statements.push_back(statement);
  return statements;
}

std::vector<std::string> CreatedTables(const std::string& script) {
  static const std::regex kCreate(R"(^CREATE\s+TABLE\s+(?:IF\s+NOT\s+EXISTS\s+)?(\w+))", std::regex::icase);
  std::vector<std::string> tables;
  for (const std::string& statement : SplitStatements(script)) {
    std::smatch match;
    if (std::regex_search(statement, match, kCreate)) tables.push_back(match[1]);
  }
  return tables;
}

}  // namespace qkdb
