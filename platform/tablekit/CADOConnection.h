#pragma once
// CADOConnection: one open connection of a database backend, behind which SQLite (and later a
// server) sits. Internal to the record-access library: CADODatabase owns it, CADORecordset runs its
// queries on it. Statements reach it already translated by the dialect layer, as UTF-8.
//
// Every operation returns false with a readable reason in error on failure; none throws.

#include <string>
#include <utility>
#include <vector>

#include "mfc/CString.h"
#include "tablekit/FieldValue.h"

namespace tablekit {

struct ResultSet {
  std::vector<CString> columns;
  // The table every column comes from, when they all come from one; empty otherwise. Only such a
  // result can be written back row by row.
  std::string table;
  std::vector<std::vector<FieldValue>> rows;
};

using ColumnValues = std::vector<std::pair<std::string, FieldValue>>;  // UTF-8 column name, value

// name as a standard quoted identifier, "name", with a quote inside doubled: how the backends name
// the tables and columns of the row writes they build themselves.
inline std::string QuoteIdentifier(const std::string& name) {
  std::string out = "\"";
  for (char c : name) {
    if (c == '"') out.push_back('"');
    out.push_back(c);
  }
  return out + "\"";
}

}  // namespace tablekit

class CADOConnection {
 public:
  virtual ~CADOConnection() = default;
  // The kind of backend: one of CADODatabase's connect types.
  virtual int GetConnectType() const = 0;
  // Runs one query and collects every row.
  virtual bool Query(const std::string& sql, tablekit::ResultSet& result, std::string& error) = 0;
  // Whether the backend takes a query's literals as bound values (QueryBound), so that it can keep
  // one prepared statement for every id and name.
  virtual bool BindsLiterals() const { return false; }
  // Runs one query whose "?" stand for values, in order (from TranslateAccessSqlBound).
  virtual bool QueryBound(const std::string& sql, const std::vector<tablekit::FieldValue>& values,
                          tablekit::ResultSet& result, std::string& error) {
    (void)sql, (void)values, (void)result;
    error = "this database does not take bound values";
    return false;
  }
  // How long a statement waits for a lock another connection holds before it fails, in ms, from now
  // on. Backends that wait their own way keep it.
  virtual void SetLockWait(int milliseconds) { (void)milliseconds; }
  // Ends the read transaction the connection began for a ReadScope (ReadScope.h); backends that
  // begin none have nothing to do.
  virtual void EndReadScope() {}
  // Runs one statement that returns no rows.
  virtual bool Execute(const std::string& sql, std::string& error) = 0;
  // Inserts one row with bound values; the database assigns the key, returned in newKey.
  virtual bool InsertRow(const std::string& table, const tablekit::ColumnValues& values, long long& newKey,
                         std::string& error) = 0;
  // Writes the values into the row whose keyColumn equals key, with bound values.
  virtual bool UpdateRow(const std::string& table, const std::string& keyColumn, long long key,
                         const tablekit::ColumnValues& values, std::string& error) = 0;
};
