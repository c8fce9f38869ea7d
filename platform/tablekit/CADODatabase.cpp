#include "tablekit/CADODatabase.h"

#include "tablekit/AccessDialect.h"
#include "tablekit/postgres/PgBackend.h"
#include "tablekit/sqlite/SqliteConnection.h"

CADODatabase::CADODatabase() = default;
CADODatabase::~CADODatabase() = default;

int CADODatabase::OpenAccess(const wchar_t* path, const wchar_t* user, const wchar_t* password) {
  Close();
  m_strPath = path;
  std::string error;
  const std::string target = m_strPath.ToUtf8();
  if (tablekit::IsPostgresUri(target)) {
    m_pConnection = tablekit::OpenPostgres(target, CString(user).ToUtf8(), CString(password).ToUtf8(), error);
  } else {
    m_pConnection = tablekit::SqliteConnection::Open(target, error);
  }
  SetLastError(m_pConnection ? std::string() : error);
  return m_pConnection != nullptr;
}

int CADODatabase::IsOpen() const { return m_pConnection != nullptr; }

void CADODatabase::Close() { m_pConnection.reset(); }

int CADODatabase::Execute(const wchar_t* sql) {
  if (!m_pConnection) {
    SetLastError("the database is not open");
    return 0;
  }
  std::string translated, error;
  bool ok = tablekit::TranslateAccessSql(sql, translated, error, GetDialect()) &&
            m_pConnection->Execute(translated, error);
  SetLastError(ok ? std::string() : error);
  return ok;
}

CADOConnection* CADODatabase::GetActiveConnection() const { return m_pConnection.get(); }

CADOOP CADODatabase::GetActiveAdoap() const { return CADOOP(); }

int CADODatabase::GetCurrentConnectType() const {
  return m_pConnection ? m_pConnection->GetConnectType() : connectTypeNone;
}

void CADODatabase::SetLastError(const std::string& reasonUtf8) { m_strLastError = CString::FromUtf8(reasonUtf8); }

tablekit::SqlDialect CADODatabase::GetDialect() const {
  return GetCurrentConnectType() == connectTypePostgreSQL ? tablekit::SqlDialect::PostgreSQL
                                                          : tablekit::SqlDialect::SQLite;
}
