#pragma once
// The PostgreSQL backend: a connection to a database on a server, for offices that share one
// reference database. Reached by a connection URI (postgresql://host:port/db?...). Compiled into the
// module postgresql with libpq, not into the library (PgBackend.h opens it through the module).
//
// The server must hold the reference tables as data/schema.sql makes them, read through
// PgSchema (texts as citext, so they compare ignoring case as in Access; keys as identity columns
// named "id"). Unquoted names fold to lower case on the server, and the dialect layer folds bracketed
// ones the same way, so "Country", [Country] and country are one table. Every statement runs through
// the extended protocol, which refuses a second statement; every row write is one transaction.

#include <memory>
#include <string>
#include <unordered_map>

#include "tablekit/CADOConnection.h"

struct pg_conn;

namespace tablekit {

class PgConnection : public CADOConnection {
 public:
  // The open connection, or null with the reason in error. user and password fill in what the URI
  // leaves out; empty ones are not passed.
  static std::unique_ptr<PgConnection> Open(const std::string& uri, const std::string& user,
                                            const std::string& password, std::string& error);
  ~PgConnection() override;

  int GetConnectType() const override;
  bool Query(const std::string& sql, ResultSet& result, std::string& error) override;
  bool Execute(const std::string& sql, std::string& error) override;
  // The new row's key is the value of its "id" column, which every reference table has.
  bool InsertRow(const std::string& table, const ColumnValues& values, long long& newKey,
                 std::string& error) override;
  bool UpdateRow(const std::string& table, const std::string& keyColumn, long long key,
                 const ColumnValues& values, std::string& error) override;

 private:
  explicit PgConnection(pg_conn* conn) : m_conn(conn) {}
  // The name of the table with this OID, as the server reports it; cached.
  std::string TableName(unsigned int oid);

  pg_conn* m_conn;
  std::unordered_map<unsigned int, std::string> m_tableNames;
};

}  // namespace tablekit
