#pragma once
// CTempDataYear: names a file of yearly temperature data and carries its daily records. The library
// only carries them: nothing here fills the list or reads the file.
//
// The value's own stream and named exchange hold neither the path nor the list (only the CAData base
// items, of which there are none). The list travels separately in its archive form,
// DayTempList.StoreTo / LoadFrom: the element count in the archive count encoding, then each record
// as its raw 768-byte block, in list order; loading appends to the end of the list.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "mfc/CList.h"
#include "mfc/CString.h"

// One day of temperature data: 96 doubles (a quarter-hourly day, for instance), whose layout belongs to
// the host. A plain record, archived as its raw bytes.
struct DayTempData {
  double Values[96];
};
static_assert(sizeof(DayTempData) == 768, "a day record is archived as a 768-byte block");

class QK_EXPORT CTempDataYear : public CAData {
 public:
  CTempDataYear() = default;
  // Copies the path and every record: the copy shares nothing with its source.
  CTempDataYear(const CTempDataYear& other);
  CTempDataYear& operator=(const CTempDataYear& other);
  ~CTempDataYear() override = default;

  // Sets the path of the yearly data file, nothing else. CAData's Init() stays callable beside it.
  using CAData::Init;
  void Init(const wchar_t* path);
  CString GetFilePath() const;

  // Only the CAData base's items: the path and the list are not part of them. Each returns 0.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  CList<DayTempData> DayTempList;  // the daily records, in insertion order

 private:
  CString FilePath;
};
