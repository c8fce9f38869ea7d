#pragma once
// CQKWallData: one construction as the rest of the system uses it: its layers with the material each
// is made of, the inside, summer-outside and winter-outside surface coefficients, and the results of
// the wall calculation plus U in winter (DjCrXs) and U between two rooms (NCrXs). It also answers how
// thick one layer must be for a required U. Creatable by class name.
//
// The layer list and the material list run parallel (same index, same count): AddTimberingData and
// SetTimbering keep them so. SetDefaultWall clears only the layers, on purpose.
// The named items "An" and "Aw" are also tagQKWALLCHARACTER's: both pairs read and write them.

#include "QKExport.h"
#include "construction/CQKStuTimeberingName.h"
#include "construction/CQKTimberingData.h"
#include "construction/tagQKWALLCHARACTER.h"
#include "foundation/CLxArray.h"
#include "foundation/QKLoad.h"

class QK_EXPORT CQKWallData : public tagQKWALLCHARACTER {
  DECLARE_DYNCREATE(CQKWallData)

 public:
  CQKWallData();
  CQKWallData(const CQKWallData&) = default;
  CQKWallData& operator=(const CQKWallData&) = default;
  // The wall of these layers, calculated for summer; DjCrXs is left at -1.0 (not calculated) until
  // Cal(1).
  explicit CQKWallData(const CLxArray<CQKTimberingData>& layers);
  ~CQKWallData() override = default;

  // ID 0, no name, coefficients 8.7 / 18.6 / 23.0, results 0, no layers.
  void Init() override;
  // A copy of other (a CQKWallData or a class derived from it); 23 for anything else.
  ADataDef::ErrorCode Copy(const CAData* other) override;
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  // Each refuses a value ≤ 0 (false, nothing stored). With bCal: the inside one recalculates winter
  // then summer, the summer one summer, the winter one winter.
  bool SetNHrXsData(double value, bool bCal);
  double GetNHrXsData() const { return NHrXsData; }
  bool SetWHrXsData(double value, bool bCal);
  double GetWHrXsData() const { return WHrXsData; }
  bool SetDjWHrXsData(double value, bool bCal);
  double GetDjWHrXsData() const { return DjWHrXsData; }

  // Appends a layer (inside of the others) and its material; with bCal, Cal(1) then Cal(0).
  void AddTimberingData(const CQKTimberingData& layer, bool bCal);
  // Replaces both lists with these layers; with bCal, Cal(1) then Cal(0).
  void SetTimbering(const CLxArray<CQKTimberingData>& layers, bool bCal);
  // Layer i with material i, for every layer.
  virtual CLxArray<CQKTimberingData> GetTimbering();
  // Replaces the layers (not the materials) by one mass-less layer of conductance 1.0 W/(m²·K), and
  // calculates; with bCal it calculates once more.
  void SetDefaultWall(bool bCal);

  // Mode 0: summer, the whole calculation with WHrXsData outside. Any other mode: winter, DjCrXs only.
  // Both then set NCrXs. ET_OK.
  virtual QKLoad::ErrorType Cal(int mode);
  void CalDjCrXs();
  void CalNCrxs();
  // Thermal inertia index of the layers.
  double CalD() const;
  // The layer and thickness that would give targetK with the summer (CurrectThick) or winter
  // (CurrectDjThick) outside coefficient; the wall itself is not changed. ET_NOLAYER with index -1
  // (and thickness untouched) for a wall without layers.
  QKLoad::ErrorType CurrectThick(double targetK, int& index, double& thickness) const;
  QKLoad::ErrorType CurrectDjThick(double targetK, int& index, double& thickness) const;

  int ID = 0;
  CString Name;
  double DjCrXs = 0.0;       // U in winter, W/(m²·K); -1.0 when not calculated
  double NCrXs = 0.0;        // U with the inside coefficient on both faces, W/(m²·K)
  double NHrXsData = 8.7;    // inside coefficient, W/(m²·K); item "An"
  double WHrXsData = 18.6;   // summer outside coefficient, W/(m²·K); item "Aw"
  double DjWHrXsData = 23.0; // winter outside coefficient, W/(m²·K); item "DjAw"

 protected:
  CLxArray<CQKStuTimeberingName> m_arrTimberingName;  // material of each layer

 private:
  void InitData();
  // Cal(1) then Cal(0), so the inherited coefficients end with the summer values.
  void CalWinterThenSummer();
  QKLoad::ErrorType CorrectThickness(double outside, double targetK, int& index, double& thickness) const;
};
