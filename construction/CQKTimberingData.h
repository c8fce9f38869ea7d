#pragma once
// CQKTimberingData: one layer of a construction as the catalogue stores it: its properties
// (tagQKTIMBERINGCHARACTER) and the material it is made of (CQKStuTimeberingName). A plain value,
// creatable by class name. Setters store what they are given (no range check) and return ET_OK.
//
// Stream: the properties' stream (with its version), then the material's. The named exchange holds
// only the CAData items: a layer's values are not exchanged by name at this level.

#include "QKExport.h"
#include "construction/CQKStuTimeberingName.h"
#include "construction/tagQKTIMBERINGCHARACTER.h"
#include "datakit/CAData.h"
#include "foundation/QKLoad.h"

class QK_EXPORT CQKTimberingData : public CAData {
  DECLARE_DYNCREATE(CQKTimberingData)

 public:
  CQKTimberingData() = default;
  CQKTimberingData(const CQKTimberingData&) = default;
  CQKTimberingData& operator=(const CQKTimberingData&) = default;
  ~CQKTimberingData() override = default;

  // Both parts back to their defaults.
  void Init() override;
  // The properties' own result (23 for a newer layer format), else 0.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  tagQKTIMBERINGCHARACTER GetTimberData() const { return m_Timber; }
  QKLoad::ErrorType SetTimberData(const tagQKTIMBERINGCHARACTER& timber);
  CQKStuTimeberingName GetTimberNameStruct() const { return m_Name; }
  QKLoad::ErrorType SetTimberNameStruct(const CQKStuTimeberingName& name);

  int GetStuffID() const { return m_Name.TimberingID; }
  QKLoad::ErrorType SetStuffID(int id);
  CString GetStuffName() const { return m_Name.TimberingName; }
  QKLoad::ErrorType SetStuffName(const wchar_t* name);

  double GetThick() const { return m_Timber.Thick; }
  QKLoad::ErrorType SetThick(double v);
  double GetGMD() const { return m_Timber.GMD; }
  QKLoad::ErrorType SetGMD(double v);
  double GetDrXs() const { return m_Timber.DrXs; }
  QKLoad::ErrorType SetDrXs(double v);
  double GetBRr() const { return m_Timber.BRr; }
  QKLoad::ErrorType SetBRr(double v);
  double GetDrXsXz() const { return m_Timber.DrXsXz; }
  QKLoad::ErrorType SetDrXsXz(double v);
  int GetRoughness() const { return m_Timber.Roughness; }
  QKLoad::ErrorType SetRoughness(int v);
  double GetTheAbs() const { return m_Timber.TheAbs; }
  QKLoad::ErrorType SetTheAbs(double v);
  double GetSolAbs() const { return m_Timber.SolAbs; }
  QKLoad::ErrorType SetSolAbs(double v);
  double GetVisAbs() const { return m_Timber.VisAbs; }
  QKLoad::ErrorType SetVisAbs(double v);
  double GetSolarT() const { return m_Timber.SolarT; }
  QKLoad::ErrorType SetSolarT(double v);
  double GetSolarRFront() const { return m_Timber.SolarRFront; }
  QKLoad::ErrorType SetSolarRFront(double v);
  double GetSolarRBack() const { return m_Timber.SolarRBack; }
  QKLoad::ErrorType SetSolarRBack(double v);
  double GetVisibleT() const { return m_Timber.VisibleT; }
  QKLoad::ErrorType SetVisibleT(double v);
  double GetVisibleRFront() const { return m_Timber.VisibleRFront; }
  QKLoad::ErrorType SetVisibleRFront(double v);
  double GetVisibleRBack() const { return m_Timber.VisibleRBack; }
  QKLoad::ErrorType SetVisibleRBack(double v);
  double GetInfraredT() const { return m_Timber.InfraredT; }
  QKLoad::ErrorType SetInfraredT(double v);
  double GetInfraredEFront() const { return m_Timber.InfraredEFront; }
  QKLoad::ErrorType SetInfraredEFront(double v);
  double GetInfraredEBack() const { return m_Timber.InfraredEBack; }
  QKLoad::ErrorType SetInfraredERBack(double v);  // the setter of InfraredEBack, so spelled

 private:
  void InitData();

  tagQKTIMBERINGCHARACTER m_Timber;
  CQKStuTimeberingName m_Name;
};
