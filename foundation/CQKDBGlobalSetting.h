#pragma once
// CQKDBGlobalSetting: the library's one process-wide object. It brackets the use of COM on the host's
// thread, holds the shared connection to the load-parameter database, and builds Access connection
// strings. The host creates it with GetGlobalSetting before touching any database and destroys it
// with RemoveGlobalSetting at shutdown; the library never calls either.
//
// The rule a caller must not miss: the first path given to GetLoadParamDatabase that opens wins for
// the life of the instance. Created lazily without a lock: call it from the thread that uses the
// library, which is also the thread whose COM it initialises.

#include "QKExport.h"
#include "mfc/CString.h"

class CADODatabase;

class QK_EXPORT CQKDBGlobalSetting {
 public:
  // Shallow: the copy shares the connection pointer. Never use a copy as a second owner.
  CQKDBGlobalSetting(const CQKDBGlobalSetting& other) = default;
  CQKDBGlobalSetting& operator=(const CQKDBGlobalSetting& other) = default;

  // The instance, created (and COM initialised) on the first call. Null if it could not be
  // allocated; a later call tries again.
  static CQKDBGlobalSetting* GetGlobalSetting();
  // Destroys the instance, closing its load-parameter connection and uninitialising COM. Nothing
  // happens when there is none; a later GetGlobalSetting makes a fresh one.
  static void RemoveGlobalSetting();

  // The load-parameter connection, created on the first call and opened on path while it is not
  // open; once open, path is ignored. Returned even when it could not be opened (its queries then
  // fail); null only if it could not be allocated.
  CADODatabase* GetLoadParamDatabase(const wchar_t* path);
  // "Provider=Microsoft.ACE.OLEDB.12.0;Persist Security Info=False;Data Source=" followed by path.
  // path is not changed.
  CString GetAccessConnectStr(CString& path);

 protected:
  CQKDBGlobalSetting();
  virtual ~CQKDBGlobalSetting();

 private:
  CADODatabase* m_pLoadParamDatabase;  // owned; null until the first GetLoadParamDatabase

  static CQKDBGlobalSetting* m_pGlobalSetting;
};
