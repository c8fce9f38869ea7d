#include "weather/CTempDataYear.h"

CTempDataYear::CTempDataYear(const CTempDataYear& other) : CAData(other) { *this = other; }

CTempDataYear& CTempDataYear::operator=(const CTempDataYear& other) {
  if (this == &other) return *this;
  CAData::operator=(other);
  FilePath = other.FilePath;
  DayTempList.RemoveAll();
  for (POSITION pos = other.DayTempList.GetHeadPosition(); pos != nullptr;) {
    DayTempList.AddTail(other.DayTempList.GetNext(pos));
  }
  return *this;
}

void CTempDataYear::Init(const wchar_t* path) { FilePath = path; }

CString CTempDataYear::GetFilePath() const { return FilePath; }

ADataDef::ErrorCode CTempDataYear::DataInPut(CADataStream stream) { return CAData::DataInPut(stream); }

ADataDef::ErrorCode CTempDataYear::DataOutPut(CADataStream stream) { return CAData::DataOutPut(stream); }

ADataDef::ErrorCode CTempDataYear::DataInPro(CADataExchange exchange) { return CAData::DataInPro(exchange); }

ADataDef::ErrorCode CTempDataYear::DataOutPro(CADataExchange exchange) { return CAData::DataOutPro(exchange); }
