#pragma once
// QKReferenceDatabase: the shipped reference database bound to every record class in one call. A host
// that opens the reference database (share/QKModelDataBase/reference.db, or a PostgreSQL database made
// from the same schema) calls Bind once at start-up, after CQKDBGlobalSetting::GetGlobalSetting,
// instead of one S_Init per record class. A host with tables of its own still calls each class's
// S_Init itself.
//
// The one rule a caller must not miss: Bind only tells the classes where their tables are; each class
// opens its own connection on first use and keeps it, as after S_Init. Call it before any record is
// read, from the thread that uses the library.

#include "QKExport.h"
#include "mfc/CString.h"

class QK_EXPORT QKReferenceDatabase {
 public:
  // Checks that path (an SQLite file, or a postgresql:// URI) opens and holds every table of the
  // reference schema, then calls S_Init(path, table) on every record class with its table: Country,
  // Province, City, Weather, TimberingType, Timbering, BSCategory, BSType, BSCode, BoundingStructure,
  // RoomType, RoomUse, RULoadParam. Returns 1; 0 when the database cannot be used, with the reason in
  // *error when error is not null, and nothing bound.
  static int Bind(const wchar_t* path, CString* error = nullptr);
};
