#include "foundation/CQKDBGlobalSetting.h"

#include <new>

#include "foundation/QKRecordVerbs.h"
#include "mfc/ComShims.h"
#include "tablekit/CADODatabase.h"

CQKDBGlobalSetting* CQKDBGlobalSetting::m_pGlobalSetting = nullptr;

CQKDBGlobalSetting::CQKDBGlobalSetting() : m_pLoadParamDatabase(nullptr) {
  CoInitialize(nullptr);  // S_FALSE when the host already initialised COM: fine either way
}

CQKDBGlobalSetting::~CQKDBGlobalSetting() {
  delete m_pLoadParamDatabase;  // its destructor closes it
  m_pLoadParamDatabase = nullptr;
  CoUninitialize();
}

CQKDBGlobalSetting* CQKDBGlobalSetting::GetGlobalSetting() {
  if (m_pGlobalSetting == nullptr) m_pGlobalSetting = new (std::nothrow) CQKDBGlobalSetting;
  return m_pGlobalSetting;
}

void CQKDBGlobalSetting::RemoveGlobalSetting() {
  delete m_pGlobalSetting;
  m_pGlobalSetting = nullptr;
}

CADODatabase* CQKDBGlobalSetting::GetLoadParamDatabase(const wchar_t* path) {
  return QKRecordVerbs::OpenOnDemand(m_pLoadParamDatabase, path);
}

CString CQKDBGlobalSetting::GetAccessConnectStr(CString& path) {
  CString text;
  text.Format(L"Provider=Microsoft.ACE.OLEDB.12.0;Persist Security Info=False;Data Source=%s", path.GetString());
  return text;
}
