#include "tablekit/postgres/PgConnection.h"

#include <libpq-fe.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "tablekit/CADODatabase.h"

namespace tablekit {
namespace {

// Type OIDs of the parameters this backend binds (fixed in every PostgreSQL release).
constexpr Oid kInt8 = 20;
constexpr Oid kFloat8 = 701;
constexpr Oid kBytea = 17;
// Result types read as numbers; the rest are read as text.
constexpr Oid kBool = 16;
constexpr Oid kInt2 = 21;
constexpr Oid kInt4 = 23;
constexpr Oid kFloat4 = 700;
constexpr Oid kNumeric = 1700;

// RAII for a result.
struct Result {
  PGresult* res = nullptr;
  ~Result() { PQclear(res); }
};

// The server's message without the line break libpq ends it with; false, for the caller to return.
bool Fail(const char* message, std::string& error) {
  error = message;
  while (!error.empty() && (error.back() == '\n' || error.back() == ' ')) error.pop_back();
  return false;
}

// Bound values in the text format (a blob in binary), with their types: the server converts them to
// the column's type. values points into texts, so it is made once every value has been added.
struct Parameters {
  std::vector<std::string> texts;
  std::vector<bool> nulls;
  std::vector<Oid> types;
  std::vector<int> lengths;
  std::vector<int> formats;
  std::vector<const char*> values;

  void Add(const FieldValue& v) {
    std::string text;
    Oid type = 0;  // a text: its type is the column's
    int format = 0;
    switch (v.kind) {
      case FieldValue::Kind::Null: break;
      case FieldValue::Kind::Integer: text = std::to_string(v.integer); type = kInt8; break;
      case FieldValue::Kind::Real: {
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.17g", v.real);
        text = buffer;
        type = kFloat8;
        break;
      }
      case FieldValue::Kind::Text: text = v.text.ToUtf8(); break;
      case FieldValue::Kind::Blob: text.assign(v.blob.begin(), v.blob.end()); type = kBytea; format = 1; break;
    }
    nulls.push_back(v.kind == FieldValue::Kind::Null);
    lengths.push_back(static_cast<int>(text.size()));
    texts.push_back(std::move(text));
    types.push_back(type);
    formats.push_back(format);
  }
  int Count() const { return static_cast<int>(texts.size()); }
  void Finish() {
    values.clear();
    for (std::size_t i = 0; i < texts.size(); ++i) values.push_back(nulls[i] ? nullptr : texts[i].data());
  }
};

// Runs one statement by the extended protocol (which refuses a second one).
bool Run(PGconn* conn, const std::string& sql, Parameters* params, Result& result, std::string& error) {
  if (params) params->Finish();
  const int n = params ? params->Count() : 0;
  result.res = PQexecParams(conn, sql.c_str(), n, params ? params->types.data() : nullptr,
                            params ? params->values.data() : nullptr, params ? params->lengths.data() : nullptr,
                            params ? params->formats.data() : nullptr, 0);
  const ExecStatusType status = PQresultStatus(result.res);
  if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK) return true;
  return Fail(result.res ? PQresultErrorMessage(result.res) : PQerrorMessage(conn), error);
}

FieldValue ReadValue(const PGresult* res, int row, int column) {
  if (PQgetisnull(res, row, column)) return FieldValue();
  const char* text = PQgetvalue(res, row, column);
  switch (PQftype(res, column)) {
    case kBool: return FieldValue::Int(text[0] == 't' ? 1 : 0);
    case kInt2:
    case kInt4:
    case kInt8: return FieldValue::Int(std::strtoll(text, nullptr, 10));
    case kFloat4:
    case kFloat8:
    case kNumeric: return FieldValue::Real(std::strtod(text, nullptr));
    default:
      return FieldValue::Text(CString::FromUtf8(std::string_view(text, static_cast<std::size_t>(PQgetlength(res, row, column)))));
  }
}

}  // namespace

std::unique_ptr<PgConnection> PgConnection::Open(const std::string& uri, const std::string& user,
                                                 const std::string& password, std::string& error) {
  // With expand_dbname the URI's own parts override the keywords before it: user and password given
  // here only fill in what the URI leaves out.
  std::vector<const char*> keys, values;
  if (!user.empty()) {
    keys.push_back("user");
    values.push_back(user.c_str());
  }
  if (!password.empty()) {
    keys.push_back("password");
    values.push_back(password.c_str());
  }
  keys.push_back("dbname");
  values.push_back(uri.c_str());
  keys.push_back("client_encoding");
  values.push_back("UTF8");
  keys.push_back(nullptr);
  values.push_back(nullptr);
  PGconn* conn = PQconnectdbParams(keys.data(), values.data(), 1);
  std::unique_ptr<PgConnection> connection(new PgConnection(conn));  // finishes conn on every failure
  if (conn == nullptr) {
    error = "out of memory";
    return nullptr;
  }
  if (PQstatus(conn) != CONNECTION_OK) {
    Fail(PQerrorMessage(conn), error);
    return nullptr;
  }
  return connection;
}

PgConnection::~PgConnection() { PQfinish(m_conn); }

int PgConnection::GetConnectType() const { return CADODatabase::connectTypePostgreSQL; }

std::string PgConnection::TableName(unsigned int oid) {
  auto found = m_tableNames.find(oid);
  if (found != m_tableNames.end()) return found->second;
  Parameters p;
  p.Add(FieldValue::Int(oid));
  Result r;
  std::string error, name;
  if (Run(m_conn, "SELECT relname FROM pg_class WHERE oid = $1::oid", &p, r, error) && PQntuples(r.res) == 1)
    name = PQgetvalue(r.res, 0, 0);
  m_tableNames.emplace(oid, name);
  return name;
}

bool PgConnection::Query(const std::string& sql, ResultSet& result, std::string& error) {
  Result r;
  if (!Run(m_conn, sql, nullptr, r, error)) return false;
  result = ResultSet();
  const int columns = PQnfields(r.res);
  for (int i = 0; i < columns; ++i) {
    result.columns.push_back(CString::FromUtf8(PQfname(r.res, i)));
    const Oid table = PQftable(r.res, i);
    const std::string name = table == InvalidOid ? std::string() : TableName(table);
    if (i == 0) {
      result.table = name;
    } else if (name.empty() || result.table != name) {
      result.table.clear();
    }
  }
  const int rows = PQntuples(r.res);
  result.rows.reserve(static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    std::vector<FieldValue> values;
    values.reserve(static_cast<std::size_t>(columns));
    for (int i = 0; i < columns; ++i) values.push_back(ReadValue(r.res, row, i));
    result.rows.push_back(std::move(values));
  }
  return true;
}

bool PgConnection::Execute(const std::string& sql, std::string& error) {
  Result r;
  return Run(m_conn, sql, nullptr, r, error);
}

bool PgConnection::InsertRow(const std::string& table, const ColumnValues& values, long long& newKey,
                             std::string& error) {
  std::string sql = "INSERT INTO " + QuoteIdentifier(table);
  Parameters p;
  if (values.empty()) {
    sql += " DEFAULT VALUES";
  } else {
    std::string names, marks;
    for (const auto& [name, value] : values) {
      names += (names.empty() ? "" : ", ") + QuoteIdentifier(name);
      p.Add(value);
      marks += (marks.empty() ? "$" : ", $") + std::to_string(p.Count());
    }
    sql += " (" + names + ") VALUES (" + marks + ")";
  }
  sql += " RETURNING id";
  Result r;
  if (!Run(m_conn, sql, &p, r, error)) return false;
  newKey = std::strtoll(PQgetvalue(r.res, 0, 0), nullptr, 10);
  return true;
}

bool PgConnection::UpdateRow(const std::string& table, const std::string& keyColumn, long long key,
                             const ColumnValues& values, std::string& error) {
  if (values.empty()) return true;
  Parameters p;
  std::string sets;
  for (const auto& [name, value] : values) {
    p.Add(value);
    sets += (sets.empty() ? "" : ", ") + QuoteIdentifier(name) + " = $" + std::to_string(p.Count());
  }
  p.Add(FieldValue::Int(key));
  const std::string sql = "UPDATE " + QuoteIdentifier(table) + " SET " + sets + " WHERE " + QuoteIdentifier(keyColumn) +
                          " = $" + std::to_string(p.Count());
  Result r;
  if (!Run(m_conn, sql, &p, r, error)) return false;
  if (std::strtoll(PQcmdTuples(r.res), nullptr, 10) == 0) {
    error = "no row with key " + std::to_string(key);
    return false;
  }
  return true;
}

}  // namespace tablekit
