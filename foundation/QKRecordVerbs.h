#pragma once
// The steps that every record class shares (a value class bound to a table through tagDBSTRUCT),
// written once here and used by each record's own verbs, which only supply their query texts and
// the temporary record that carries their natural key. Internal to the library.
//
// QK_IMPLEMENT_RECORD_TABLE(Record, Value) defines what QK_DECLARE_RECORD_TABLE (QKRecordTable.h)
// declares: the class-wide members, S_Init, the connection and table getters, and the row moved
// through Value's named items. A record that moves its row in its own way uses
// QK_IMPLEMENT_RECORD_TABLE_BASICS(Record), everything but the two row movers, and writes those.

#include "datakit/CAData.h"
#include "foundation/QKLoad.h"
#include "mfc/CString.h"
#include "tablekit/CADORecordset.h"
#include "tablekit/tagDBSTRUCT.h"

class CADODatabase;

namespace QKRecordVerbs {

// A long-lived connection (a record class's, the load-parameter one): created on first use (it stays
// null if that allocation fails), opened on path whenever it is found closed. A failed open is not
// reported here: the next query on it fails.
CADODatabase* OpenOnDemand(CADODatabase*& connection, const CString& path);

// Reads the named items of value from the columns of the current row of rs, and writes them.
void ReadItems(CADORecordset& rs, CAData& value);
void WriteItems(CADORecordset& rs, CAData& value);

// Reads the "ID" of the first row of sql into record (a null db is the record's own). When the query
// fails, or finds no row, the key is left as it was.
void ReadKey(tagDBSTRUCT& record, const wchar_t* sql, CADODatabase* db);

// Opens rs on sql run straight on db's active connection (its option block and connection kind), as
// the static lookups do: nonzero on success, 0 when db is null or the query cannot run.
int OpenOnConnection(CADORecordset& rs, const wchar_t* sql, CADODatabase* db);
// The "ID" of the first row of sql run straight on db's active connection: -1 when the query cannot
// run (db null or not open, a bad table), 0 for no row.
long FirstId(const wchar_t* sql, CADODatabase* db);
// FirstId of "select ID from <table> where Name="<name>"": the Has… lookups of the record classes.
long FirstIdByName(const CString& table, const wchar_t* name, CADODatabase* db);

// Runs sql, a query of keys, through record (a null db is the record's own): -1 when it fails, else
// the number of rows; with exactly one row the record takes its "ID", with several it keeps its own.
long CountKeyRows(tagDBSTRUCT& record, const wchar_t* sql, CADODatabase* db);

// The formats of the message of a failed deletion, with the table's name: the places and the rooms
// end it in "!", the envelope catalogue in a full-width "！". Hosts compare the texts as they stand.
inline constexpr const wchar_t* kDeleteFailed = L"删除表 \"%s\" 时出错!";
inline constexpr const wchar_t* kDeleteFailedFullWidth = L"删除表 \"%s\" 时出错！";

// The message of a failed deletion of table, in format (one of the two above).
CString DeleteFailedText(const CString& table, const wchar_t* format = kDeleteFailed);

// Runs "delete from <table> where <column>=<id>" through record on db: 1, or 0 after showing the
// deletion message for table (in format) with style, also put into message when one is given (a null
// db fails). The deletions of the administration classes.
int DeleteWhereOrTell(tagDBSTRUCT& record, const CString& table, const wchar_t* column, long id, CADODatabase* db,
                      unsigned int style, const wchar_t* format = kDeleteFailed, CString* message = nullptr);
// DeleteWhereOrTell by the key column "Id".
int DeleteRowOrTell(tagDBSTRUCT& record, const CString& table, long id, CADODatabase* db, unsigned int style);

// Runs sql and loads its first row into record: DBS_EXIST (record is now that row, its ID
// included), DBS_NOTEXIST for no row, DBS_ERROR when the query fails. A null db is the record's own.
template <class Record>
QKLoad::DBStatusCode LoadFirst(Record& record, const wchar_t* sql, CADODatabase* db) {
  CADORecordset rs;
  if (!record.ExecSql(sql, &rs, db)) return QKLoad::DBS_ERROR;
  if (rs.GetRecordCount() < 1) {
    rs.Close();
    return QKLoad::DBS_NOTEXIST;
  }
  record.MakeObjectFromRS(rs);
  rs.Close();
  return QKLoad::DBS_EXIST;
}

// Inserts self unless probe (a fresh record holding self's natural key) finds a stored row. A found
// row becomes self when bTakeExisting is nonzero. DBS_ADDED, DBS_EXIST or DBS_ERROR.
template <class Record>
QKLoad::DBStatusCode AddIfNotExist(Record& self, Record probe, CADODatabase* db, int bTakeExisting) {
  if (db == nullptr) db = self.GetUserDatabase();
  QKLoad::DBStatusCode found = probe.IsExist(db);
  if (found == QKLoad::DBS_EXIST && bTakeExisting) {
    self = probe;
    return QKLoad::DBS_EXIST;
  }
  if (found == QKLoad::DBS_NOTEXIST) return self.InsertData(db) ? QKLoad::DBS_ADDED : QKLoad::DBS_ERROR;
  return found;
}

// Writes self into its own row unless probe (a fresh record holding self's natural key) finds that
// key on another row; that row becomes self when bTakeOther is nonzero, and nothing is written.
// DBS_UPDATED, DBS_EXIST or DBS_ERROR. A key that no row holds is written in place: a rename.
template <class Record>
QKLoad::DBStatusCode UpdateIfNoOther(Record& self, Record probe, CADODatabase* db, int bTakeOther) {
  if (db == nullptr) db = self.GetUserDatabase();
  QKLoad::DBStatusCode found = probe.IsExist(db);
  if (found == QKLoad::DBS_ERROR) return QKLoad::DBS_ERROR;
  if (found == QKLoad::DBS_EXIST && probe.GetID() != self.GetID()) {
    if (bTakeOther) self = probe;
    return QKLoad::DBS_EXIST;
  }
  return self.UpdateData(self.GetID(), db) ? QKLoad::DBS_UPDATED : QKLoad::DBS_ERROR;
}

}  // namespace QKRecordVerbs

#define QK_IMPLEMENT_RECORD_TABLE_BASICS(Record)                                                \
  CString Record::s_m_strDataBasePath;                                                          \
  CString Record::s_m_strTableName;                                                             \
  CADODatabase* Record::m_pADODatabase = nullptr;                                               \
  void Record::S_Init(const wchar_t* dataBasePath, const wchar_t* tableName) {                  \
    s_m_strDataBasePath = dataBasePath;                                                         \
    s_m_strTableName = tableName;                                                               \
  }                                                                                             \
  /* The path comes through the virtual GetDataBasePath, so a host's subclass can redirect it. */ \
  CADODatabase* Record::GetUserDatabase() const {                                               \
    return QKRecordVerbs::OpenOnDemand(m_pADODatabase, const_cast<Record*>(this)->GetDataBasePath()); \
  }                                                                                             \
  CString Record::GetTableName() { return s_m_strTableName; }                                   \
  CString Record::GetDataBasePath() { return s_m_strDataBasePath; }                              \
  int Record::MakeObjectFromRS(CADORecordset& rs) { return GetDataFromRecordSet(rs); }

#define QK_IMPLEMENT_RECORD_TABLE(Record, Value)                                                \
  QK_IMPLEMENT_RECORD_TABLE_BASICS(Record)                                                      \
  int Record::GetDataFromRecordSet(CADORecordset& rs) {                                         \
    if (!tagDBSTRUCT::GetDataFromRecordSet(rs)) return 0;                                       \
    QKRecordVerbs::ReadItems(rs, static_cast<Value&>(*this));                                   \
    return 1;                                                                                   \
  }                                                                                             \
  int Record::SetDataToRecordSet(CADORecordset& rs) {                                           \
    if (!tagDBSTRUCT::SetDataToRecordSet(rs)) return 0;                                         \
    QKRecordVerbs::WriteItems(rs, static_cast<Value&>(*this));                                  \
    return 1;                                                                                   \
  }

// QK_IMPLEMENT_VERBS_BY_NAME(Record, table, nameField, isExistFormat) defines the verbs of a record
// whose natural key is its name alone: KeyProbe (a fresh record holding only the name), IsExist (the
// record's query isExistFormat, formatted with table and the name, loading the first row),
// AddIfNotExist and UpdateIfNoOther. table is the class table (s_m_strTableName) for a lookup that
// stays in the catalogue's table whatever a subclass's row operations use, GetTableName() for one
// that follows them.
#define QK_IMPLEMENT_VERBS_BY_NAME(Record, table, nameField, isExistFormat)                        \
  Record Record::KeyProbe() const {                                                             \
    Record probe;                                                                               \
    probe.nameField = nameField;                                                                \
    return probe;                                                                               \
  }                                                                                             \
  QKLoad::DBStatusCode Record::IsExist(CADODatabase* db) {                                      \
    CString sql;                                                                                \
    sql.Format(isExistFormat, (table).GetString(), nameField.GetString());                      \
    return QKRecordVerbs::LoadFirst(*this, sql, db);                                            \
  }                                                                                             \
  QKLoad::DBStatusCode Record::AddIfNotExist(CADODatabase* db, int bTakeExisting) {             \
    return QKRecordVerbs::AddIfNotExist(*this, KeyProbe(), db, bTakeExisting);                  \
  }                                                                                             \
  QKLoad::DBStatusCode Record::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {              \
    return QKRecordVerbs::UpdateIfNoOther(*this, KeyProbe(), db, bTakeOther);                   \
  }
