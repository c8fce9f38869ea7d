#include "FaultOperations.h"

#include "MessageCapture.h"
#include "envelope/CQKBSDataAdmin.h"
#include "envelope/CQKBoundingStructure.h"
#include "envelope/CQKCrXs.h"
#include "foundation/QKLoad.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomUse.h"
#include "rooms/CQKRoomUseDataAdmin.h"
#include "weather/CQKWeather.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace {

std::string Name(QKLoad::DBStatusCode status) {
  switch (status) {
    case QKLoad::DBS_OK: return "DBS_OK";
    case QKLoad::DBS_ERROR: return "DBS_ERROR";
    case QKLoad::DBS_EXIST: return "DBS_EXIST";
    case QKLoad::DBS_UPDATED: return "DBS_UPDATED";
    case QKLoad::DBS_ADDED: return "DBS_ADDED";
    case QKLoad::DBS_NOTEXIST: return "DBS_NOTEXIST";
  }
  return "DBS_" + std::to_string(static_cast<int>(status));
}

std::string Quoted(const CString& text) { return "\"" + text.ToUtf8() + "\""; }

// The messages shown while capture lived, each as " [style] text".
std::string Shown(const MessageCapture& capture) {
  std::string out;
  for (const auto& [text, style] : capture.shown) out += " [" + std::to_string(style) + "] " + text.ToUtf8();
  return out;
}

// name(child,child,...) down the whole tree; "null" for no tree.
template <class Node>
std::string Shape(const Node* node) {
  if (node == nullptr) return "null";
  std::string out = node->strName.ToUtf8();
  if (node->arrChild.GetSize() == 0) return out;
  out += "(";
  for (int i = 0; i < node->arrChild.GetSize(); ++i) out += (i ? "," : "") + Shape(node->arrChild[i]);
  return out + ")";
}

}  // namespace

const char* const kLookupsFound =
    "Country.IsExist=DBS_EXIST Country.ReadData=1 \"中国\" Weather.IsExist=DBS_EXIST "
    "BoundingStructure.IsExist=DBS_EXIST RoomUse.IsExist=DBS_EXIST RULoadParam.IsExist=2 GetCityIdByName=1 2 "
    "GetBSCodeCWallDataAry=W1,W2";
const char* const kLookupsFailed =
    "Country.IsExist=DBS_ERROR Country.ReadData=0 \"\" Weather.IsExist=DBS_ERROR "
    "BoundingStructure.IsExist=DBS_ERROR RoomUse.IsExist=DBS_ERROR RULoadParam.IsExist=1 GetCityIdByName=0 0 "
    "GetBSCodeCWallDataAry=";
const char* const kWritesDone =
    "Country.AddIfNotExist=DBS_ADDED Country.UpdateIfNoOther=DBS_UPDATED Province.InsertData=1 "
    "City.UpdateData=1 City.RemoveData=1 BoundingStructure.AddOrUpdate=DBS_UPDATED RULoadParam.AddOrUpdate=2 "
    "Weather.AddIfNotExist(update)=DBS_EXIST";
const char* const kWritesFailed =
    "Country.AddIfNotExist=DBS_ERROR Country.UpdateIfNoOther=DBS_ERROR Province.InsertData=0 "
    "City.UpdateData=0 City.RemoveData=0 BoundingStructure.AddOrUpdate=DBS_ERROR RULoadParam.AddOrUpdate=1 "
    "Weather.AddIfNotExist(update)=DBS_ERROR";
// The weather verb found its row and, as its header says, answers DBS_EXIST whether or not its
// update was written.
const char* const kWritesRefused =
    "Country.AddIfNotExist=DBS_ERROR Country.UpdateIfNoOther=DBS_ERROR Province.InsertData=0 "
    "City.UpdateData=0 City.RemoveData=0 BoundingStructure.AddOrUpdate=DBS_ERROR RULoadParam.AddOrUpdate=1 "
    "Weather.AddIfNotExist(update)=DBS_EXIST";
const char* const kTreesWhole =
    "cities=*(中国(北京(北京,延庆))) withWeather=*(中国(北京(北京))) envelope=*全部围护结构类型*(外墙(砖墙)) "
    "constructions=*全部材质类型*(砖(黏土砖)) rooms=*(办公(办公室,会议室))";
const char* const kTreesRootsOnly =
    "cities=* withWeather=* envelope=*全部围护结构类型* constructions=*全部材质类型* rooms=*";
const char* const kDeletionsDone = "DeleteCountry=1 DeleteWeatherByCityID=1 \"\" DeleteBSCode=0 \"\" DeleteRoomUse=1";
const char* const kDeletionsFailed =
    "DeleteCountry=0 DeleteWeatherByCityID=0 \"删除表 \"Weather\" 时出错!\" "
    "DeleteBSCode=1 \"删除表 \"BSCode\" 时出错！\" DeleteRoomUse=0 shown:"
    " [16] 删除表 \"Country\" 时出错! [16] 删除表 \"BSCode\" 时出错！ [16] 删除表 \"RULoadParam\" 时出错!";

std::string RunLookups() {
  CQKCountry country;
  country.Name = L"中国";
  std::string out = "Country.IsExist=" + Name(country.IsExist(nullptr));
  CQKCountry read;
  const int readResult = read.ReadData(1);
  out += " Country.ReadData=" + std::to_string(readResult) + " " + Quoted(read.Name);
  CQKWeather weather;
  weather.CId = 1;
  out += " Weather.IsExist=" + Name(weather.IsExist(nullptr));
  CQKBoundingStructure bs;
  bs.BSCId = 1;
  out += " BoundingStructure.IsExist=" + Name(bs.IsExist(nullptr));
  CQKRoomUse use;
  use.RTId = 1;
  use.Name = L"办公室";
  out += " RoomUse.IsExist=" + Name(use.IsExist(nullptr));
  CQKRULoadParam load;
  load.RUId = 1;
  out += " RULoadParam.IsExist=" + std::to_string(load.IsExist(nullptr));
  CQKCity city;
  city.Name = L"延庆";
  const int cityFound = CQKWeatherDataAdmin::GetCityIdByName(city);
  out += " GetCityIdByName=" + std::to_string(cityFound) + " " + std::to_string(city.GetID());
  CQKBSType type;
  type.SetID(1);
  CLxArray<CQKWallData> walls;
  CQKBSDataAdmin().GetBSCodeCWallDataAry(type, walls, false, CQKCrXs());
  out += " GetBSCodeCWallDataAry=";
  for (int i = 0; i < walls.GetSize(); ++i) out += (i ? "," : "") + walls[i].Name.ToUtf8();
  return out;
}

std::string RunWrites() {
  CQKCountry added;
  added.Name = L"法国";
  std::string out = "Country.AddIfNotExist=" + Name(added.AddIfNotExist(nullptr, 0));
  CQKCountry renamed;
  renamed.SetID(1);
  renamed.Name = L"中华";
  out += " Country.UpdateIfNoOther=" + Name(renamed.UpdateIfNoOther(nullptr, 0));
  CQKProvince province;
  province.CId = 1;
  province.Name = L"河北";
  out += " Province.InsertData=" + std::to_string(province.InsertData());
  CQKCity city;
  city.PId = 1;
  city.Name = L"北京市";
  out += " City.UpdateData=" + std::to_string(city.UpdateData(1));
  out += " City.RemoveData=" + std::to_string(city.RemoveData(2));
  CQKBoundingStructure bs;
  bs.BSCId = 1;
  bs.HouDuS = L"370";
  out += " BoundingStructure.AddOrUpdate=" + Name(bs.AddOrUpdate(nullptr));
  CQKRULoadParam load;
  load.RUId = 1;
  load.XinFengL = 40;
  out += " RULoadParam.AddOrUpdate=" + std::to_string(load.AddOrUpdate(nullptr));
  CQKWeather weather;
  weather.CId = 1;
  out += " Weather.AddIfNotExist(update)=" + Name(weather.AddIfNotExist(nullptr, 1));
  return out;
}

std::string RunTrees() {
  MessageCapture capture;
  CQKWeatherDataAdmin places;
  CQKBSDataAdmin envelope;
  CQKRoomUseDataAdmin rooms;
  std::string out = "cities=" + Shape(places.GetCityNodes(1, false));
  out += " withWeather=" + Shape(places.GetCityNodes(1, true));
  out += " envelope=" + Shape(envelope.GetBSNodes(1));
  out += " constructions=" + Shape(envelope.GetTimbNodes(1));
  out += " rooms=" + Shape(rooms.GetRoomUseNodes(1));
  if (!capture.shown.empty()) out += " shown:" + Shown(capture);
  return out;
}

std::string RunDeletions() {
  MessageCapture capture;
  CQKWeatherDataAdmin places;
  CQKCountry country;
  country.SetID(1);
  std::string out = "DeleteCountry=" + std::to_string(places.DeleteCountry(country));
  // Each result is taken before its text is read: the operands of + run in no fixed order.
  CString error;
  const int byCity = places.DeleteWeatherByCityID(2, error);
  out += " DeleteWeatherByCityID=" + std::to_string(byCity) + " " + Quoted(error);
  CQKBSDataAdmin envelope;
  CQKBSCode code;
  code.SetID(2);
  CString message;
  const int codeResult = envelope.DeleteBSCode(code, message);
  out += " DeleteBSCode=" + std::to_string(codeResult) + " " + Quoted(message);
  CQKRoomUseDataAdmin rooms;
  CQKRoomUse use;
  use.SetID(2);
  out += " DeleteRoomUse=" + std::to_string(rooms.DeleteRoomUse(use));
  if (!capture.shown.empty()) out += " shown:" + Shown(capture);
  return out;
}
