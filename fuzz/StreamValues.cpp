#include "StreamValues.h"

#include "construction/CQKStuTimeberingName.h"
#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingData.h"
#include "construction/CQKWallData.h"
#include "construction/tagQKTIMBERINGCHARACTER.h"
#include "construction/tagQKWALL.h"
#include "construction/tagQKWALLCHARACTER.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructureData.h"
#include "envelope/CQKMateralData.h"
#include "foundation/CQKNamedData.h"
#include "geography/CQKCityData.h"
#include "geography/CQKCountryData.h"
#include "geography/CQKProvinceData.h"
#include "rooms/CQKRURoomUseParamBaseData.h"
#include "rooms/CQKRoomTypeData.h"
#include "rooms/CQKRoomUseData.h"
#include "weather/CQKDesignData.h"
#include "weather/CQKWeatherData.h"
#include "weather/CTempDataYear.h"

namespace {

template <class T>
ADataDef::ErrorCode ReadThenWrite(CADataStream in, CADataStream out) {
  T value;
  const ADataDef::ErrorCode result = value.DataInPut(in);
  value.DataOutPut(out);
  return result;
}

template <class T>
void WriteDefault(CADataStream out) {
  T value;
  value.DataOutPut(out);
}

template <class T>
constexpr StreamValue Entry(const char* name) {
  return {name, &ReadThenWrite<T>, &WriteDefault<T>};
}

}  // namespace

const StreamValue kStreamValues[] = {
    Entry<CAData>("CAData"),
    Entry<CQKNamedData>("CQKNamedData"),
    Entry<CQKCountryData>("CQKCountryData"),
    Entry<CQKProvinceData>("CQKProvinceData"),
    Entry<CQKCityData>("CQKCityData"),
    Entry<CQKDesignData>("CQKDesignData"),
    Entry<CTempDataYear>("CTempDataYear"),
    Entry<CQKWeatherData>("CQKWeatherData"),
    Entry<CQKMateralData>("CQKMateralData"),
    Entry<CQKBSType>("CQKBSType"),
    Entry<CQKBSCode>("CQKBSCode"),
    Entry<CQKBoundingStructureData>("CQKBoundingStructureData"),
    Entry<tagQKTIMBERINGCHARACTER>("tagQKTIMBERINGCHARACTER"),
    Entry<CQKStuTimeberingName>("CQKStuTimeberingName"),
    Entry<CQKTimberingData>("CQKTimberingData"),
    Entry<CQKTimbering>("CQKTimbering"),
    Entry<tagQKWALL>("tagQKWALL"),
    Entry<tagQKWALLCHARACTER>("tagQKWALLCHARACTER"),
    Entry<CQKWallData>("CQKWallData"),
    Entry<CQKRoomTypeData>("CQKRoomTypeData"),
    Entry<CQKRoomUseData>("CQKRoomUseData"),
    Entry<CQKRURoomUseParamBaseData>("CQKRURoomUseParamBaseData"),
};
const std::size_t kStreamValueCount = std::size(kStreamValues);
