#pragma once
// QK_DECLARE_RECORD_TABLE(Record): what every record class has besides its own verbs, declared in one
// place as the framework declares run-time classes. Put it first in the class body. It declares:
//
//   static CString s_m_strDataBasePath;   the database file of the table; "" until S_Init
//   static CString s_m_strTableName;      the table; "" until S_Init
//   static CADODatabase* m_pADODatabase;  the connection every object of the class shares: made and
//                                         opened on first use, reopened on the current path whenever
//                                         it is found closed, never closed by the library
//   static void S_Init(dataBasePath, tableName)   where the table lives; call once before first use
//   GetUserDatabase() const    the class-wide connection, opened on demand; returned even when it
//                              could not be opened (its queries then fail)
//   GetTableName(), GetDataBasePath()   copies of the two class-wide texts
//   int MakeObjectFromRS(rs)   loads the current row of rs into this record; nonzero on success
//   GetDataFromRecordSet / SetDataToRecordSet (protected)   the row moved through the value class's
//                              named items: every item is the column of the same name
//
// and leaves the class body in its public section.

class CADODatabase;
class CADORecordset;

#define QK_DECLARE_RECORD_TABLE(Record)                                                  \
 public:                                                                                 \
  static CString s_m_strDataBasePath;                                                    \
  static CString s_m_strTableName;                                                       \
  static CADODatabase* m_pADODatabase;                                                   \
  static void S_Init(const wchar_t* dataBasePath, const wchar_t* tableName);             \
  CADODatabase* GetUserDatabase() const override;                                        \
  CString GetTableName() override;                                                       \
  CString GetDataBasePath() override;                                                    \
  int MakeObjectFromRS(CADORecordset& rs);                                               \
                                                                                         \
 protected:                                                                              \
  int GetDataFromRecordSet(CADORecordset& rs) override;                                  \
  int SetDataToRecordSet(CADORecordset& rs) override;                                    \
                                                                                         \
 public:

// QK_DECLARE_VERBS_BY_NAME(Record): the verbs of a record whose natural key is its name alone, over
// the whole table. Put it in the public section. It declares:
//
//   IsExist(db)       looks the name up: DBS_EXIST (this record becomes the first matching row, its
//                     ID included), DBS_NOTEXIST, DBS_ERROR (a failed query)
//   AddIfNotExist(db, bTakeExisting)   DBS_ADDED (the new ID taken), DBS_EXIST (the stored row
//                     becomes this record when bTakeExisting is nonzero), DBS_ERROR
//   UpdateIfNoOther(db, bTakeOther)    DBS_UPDATED (a name no row holds is a rename in place),
//                     DBS_EXIST when another row holds the name (nothing written; that row becomes
//                     this record when bTakeOther is nonzero), DBS_ERROR
//
// A null db is the record's own connection. Names go into the SQL between double quotes without
// escaping: a name holding a double quote fails its query and writes nothing.

#define QK_DECLARE_VERBS_BY_NAME(Record)                                          \
  QKLoad::DBStatusCode IsExist(CADODatabase* db);                                 \
  QKLoad::DBStatusCode AddIfNotExist(CADODatabase* db, int bTakeExisting);        \
  QKLoad::DBStatusCode UpdateIfNoOther(CADODatabase* db, int bTakeOther);         \
                                                                                  \
 private:                                                                         \
  /* A fresh record holding only this one's name, for the lookups of the verbs. */ \
  Record KeyProbe() const;                                                        \
                                                                                  \
 public:
