#pragma once
// CQKRURoomUseParamBaseData: the load parameters of one room use: indoor design conditions of winter
// and summer, occupant density, lighting and equipment standards, fresh air, noise, the load indices
// of the load components, the occupants' labour intensity and infiltration. A plain value, creatable
// by class name.
//
// Relative humidities are fractions in memory and in the ordered stream, percent in the named exchange
// (the load-parameter table). The labour intensity is kept twice: as a name (LaoDongQD) and as an id
// (LDQDId); the exchange carries it as the int id, and the name wins: a stored name that the labour
// table knows gives its own id, whatever LDQDId says.
//
// The labour table is one map shared by every value and rebuilt, with exactly its five rows, each
// time a value is constructed. Not safe for concurrent use.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "foundation/CLxMap.h"
#include "foundation/QKLoad.h"
#include "mfc/CString.h"

class QK_EXPORT CQKRURoomUseParamBaseData : public CAData {
  DECLARE_DYNCREATE(CQKRURoomUseParamBaseData)

 public:
  CQKRURoomUseParamBaseData();
  CQKRURoomUseParamBaseData(const CQKRURoomUseParamBaseData&) = default;
  CQKRURoomUseParamBaseData& operator=(const CQKRURoomUseParamBaseData&) = default;
  ~CQKRURoomUseParamBaseData() override = default;

  // Sets the defaults (initData).
  void Init() override;
  // Each returns 0; an item that cannot be read leaves its field as it was.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  // Stores the id only (the name stays); ET_OK.
  QKLoad::ErrorType SetLDQDId(QKLoad::EQKLdQdType id);
  QKLoad::EQKLdQdType GetLDQDId() const { return LDQDId; }

  // The name of labour intensity id: 1 and name set, or 0 and name untouched for an id not in the table.
  static int LDQDId2Name(const QKLoad::EQKLdQdType& id, CString& name);
  // The id of the first row whose name equals name ignoring case: 1 and id set, or 0 and id untouched.
  static int LDQDName2Id(QKLoad::EQKLdQdType& id, const CString& name);
  // The labour table: 静坐, 极轻劳动, 轻度劳动, 中等劳动, 重度劳动 under ids 0 to 4.
  static CLxMap<QKLoad::EQKLdQdType, CString> s_m_mapLDQD;

  long RUId;              // ID of the room use
  double DongJiSNSJWD;    // winter indoor design temperature, °C
  double DongJiSNSJXDSD;  // winter indoor design relative humidity, fraction
  double XiaJiSNSJWD;     // summer indoor design temperature, °C
  double XiaJiSNSJXDSD;   // summer indoor design relative humidity, fraction
  double RenYuanMD;       // occupant density
  double ZhaoMingBZ;      // lighting standard
  double SheBeiBZ;        // equipment standard
  double XinFengL;        // fresh-air rate
  int ZaoYin;             // noise level
  double ZongLengZB;      // total cooling index
  double ZongReZB;        // total heating index
  double WeiHuLZB;        // envelope cooling index
  double RenYuanLZB;      // occupant cooling index
  double XinFengLZB;      // fresh-air cooling index
  double QiTaLZB;         // other cooling index
  double WeiHuRZB;        // envelope heating index
  double RenYuanRZB;      // occupant heating index
  double XinFengRZB;      // fresh-air heating index
  CString LaoDongQD;      // labour-intensity name
  double ShenTouL;        // infiltration rate
  long ParamAux;          // carried and streamed only
  QKLoad::EQKLdQdType LDQDId;  // labour-intensity id; not streamed

 protected:
  void initData();

 private:
  static void RebuildLabourTable();
};
