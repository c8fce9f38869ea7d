#include "files/SharedConnection.h"

#include "binding/ReferenceTables.h"
#include "tablekit/CADODatabase.h"

namespace qkdb {

SharedConnection::SharedConnection(CADODatabase& db, const std::string& path) {
  const CString where = CString::FromUtf8(path);
  ForEachRecordClass([&]<typename Record>(const wchar_t* table) {
    m_kept.push_back({Record::m_pADODatabase, Record::s_m_strDataBasePath, Record::s_m_strTableName});
    Record::S_Init(where, table);
    Record::m_pADODatabase = &db;
  });
}

SharedConnection::~SharedConnection() {
  std::size_t i = 0;
  ForEachRecordClass([&]<typename Record>(const wchar_t*) {
    const Kept& kept = m_kept[i++];
    Record::m_pADODatabase = kept.connection;
    Record::S_Init(kept.path, kept.table);
  });
}

}  // namespace qkdb
