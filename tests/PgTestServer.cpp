#include "PgTestServer.h"

#include <libpq-fe.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "tablekit/postgres/PgSchema.h"

std::string PgExec(const std::string& uri, const std::string& sql) {
  PGconn* conn = PQconnectdb(uri.c_str());
  PQsetNoticeProcessor(conn, [](void*, const char*) {}, nullptr);  // "does not exist, skipping"
  std::string error;
  if (PQstatus(conn) != CONNECTION_OK) {
    error = PQerrorMessage(conn);
  } else {
    PGresult* res = PQexec(conn, sql.c_str());
    const ExecStatusType status = PQresultStatus(res);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) error = PQresultErrorMessage(res);
    PQclear(res);
  }
  PQfinish(conn);
  return error;
}

namespace {

// The URI of database name on the server of the maintenance URI server.
std::string WithDatabase(const std::string& server, const std::string& name) {
  const std::size_t query = server.find('?');
  const std::string base = server.substr(0, query);
  const std::size_t slash = base.find('/', base.find("://") + 3);
  return (slash == std::string::npos ? base : base.substr(0, slash)) + "/" + name +
         (query == std::string::npos ? "" : server.substr(query));
}

}  // namespace

PgTestDatabase::PgTestDatabase(Contents contents) {
  const char* server = std::getenv("QK_PG_URI");
  if (server == nullptr || *server == '\0') {
    m_why = "QK_PG_URI is not set";
    return;
  }
  m_server = server;
  static std::atomic<int> counter{0};
  m_name = "qk_test_" + std::to_string(getpid()) + "_" + std::to_string(counter++);
  PgExec(m_server, "DROP DATABASE IF EXISTS " + m_name);
  if (std::string error = PgExec(m_server, "CREATE DATABASE " + m_name + " ENCODING 'UTF8' TEMPLATE template0");
      !error.empty()) {
    m_why = "cannot create a test database: " + error;
    return;
  }
  if (contents == Contents::kEmpty) {
    m_uri = WithDatabase(m_server, m_name);
    return;
  }
  std::ifstream file(QK_SCHEMA_FILE);
  const std::string schema((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  const std::string uri = WithDatabase(m_server, m_name);
  // The tests' own SQL is written for SQLite; these give the server the functions it uses.
  const std::string compatibility =
      "CREATE FUNCTION qk_concat_step(acc text, v anyelement) RETURNS text LANGUAGE sql IMMUTABLE AS"
      " $$ SELECT CASE WHEN v IS NULL THEN acc WHEN acc IS NULL THEN v::text ELSE acc || ',' || v::text END $$;"
      "CREATE AGGREGATE group_concat(anyelement) (SFUNC = qk_concat_step, STYPE = text);"
      "CREATE FUNCTION round(v double precision, digits integer) RETURNS double precision LANGUAGE sql"
      " IMMUTABLE AS $$ SELECT round(v::numeric, digits)::double precision $$;"
      "CREATE FUNCTION typeof(v anyelement) RETURNS text LANGUAGE sql IMMUTABLE AS $$ SELECT CASE"
      " WHEN v IS NULL THEN 'null'"
      " WHEN pg_typeof(v) IN ('smallint'::regtype, 'integer'::regtype, 'bigint'::regtype) THEN 'integer'"
      " WHEN pg_typeof(v) IN ('real'::regtype, 'double precision'::regtype, 'numeric'::regtype) THEN 'real'"
      " ELSE 'text' END $$;";
  if (std::string error = PgExec(uri, tablekit::PostgresSchema(schema) + compatibility); !error.empty()) {
    m_why = "cannot create the schema: " + error;
    return;
  }
  m_uri = uri;
}

PgTestDatabase::~PgTestDatabase() {
  if (!m_name.empty()) PgExec(m_server, "DROP DATABASE IF EXISTS " + m_name + " WITH (FORCE)");
}

void PgTestDatabase::Run(const std::string& sql) const {
  const std::string error = PgExec(m_uri, tablekit::PostgresStatements(sql));
  EXPECT_EQ(error, "") << sql;
}

std::string PgTestDatabase::QueryOne(const std::string& sql) const {
  PGconn* conn = PQconnectdb(m_uri.c_str());
  PQclear(PQexec(conn, "SET extra_float_digits = 0"));  // 15 significant digits, as SQLite prints
  std::string out;
  PGresult* res = PQexec(conn, sql.c_str());
  if (PQresultStatus(res) != PGRES_TUPLES_OK) {
    out = std::string("<error: ") + PQresultErrorMessage(res) + ">";
  } else if (PQntuples(res) < 1) {
    out = "<error: no row>";
  } else if (PQgetisnull(res, 0, 0)) {
    out = "<null>";
  } else {
    out = PQgetvalue(res, 0, 0);
    constexpr Oid kFloat4 = 700, kFloat8 = 701;
    const Oid type = PQftype(res, 0);
    if ((type == kFloat4 || type == kFloat8) && out.find_first_of(".eEnN") == std::string::npos) out += ".0";
  }
  PQclear(res);
  PQfinish(conn);
  return out;
}
