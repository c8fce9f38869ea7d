#include "answers/wall/WallsAnswer.h"

#include "envelope/CQKBSDataAdmin.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKCrXs.h"
#include "text/Output.h"

namespace qkdb {

WallsAnswer TypeWalls(const std::string& typeName, bool calculate) {
  WallsAnswer answer;
  CQKBSType type;
  type.Name = CString::FromUtf8(typeName);
  // A name holding a double quote cannot be looked up (the query fails): no type has it either.
  if (type.IsExist(nullptr) != QKLoad::DBS_EXIST) {
    answer.refused = "no envelope type named " + Quoted(typeName);
    return answer;
  }
  CQKBSDataAdmin admin;
  admin.GetBSCodeCWallDataAry(type, answer.walls, calculate, CQKCrXs());
  return answer;
}

nlohmann::ordered_json WallJson(CQKWallData& wall) {
  nlohmann::ordered_json layers = nlohmann::ordered_json::array();
  CLxArray<CQKTimberingData> timbering = wall.GetTimbering();
  for (int k = 0; k < timbering.GetSize(); ++k) {
    CQKTimberingData& layer = timbering[k];
    layers.push_back({{"name", layer.GetStuffName().ToUtf8()},
                      {"thickness", layer.GetThick()},
                      {"conductivity", layer.GetDrXs()},
                      {"density", layer.GetGMD()},
                      {"specific_heat", layer.GetBRr()},
                      {"conductivity_correction", layer.GetDrXsXz()},
                      {"density_correction", layer.GetTimberData().GMCXz}});
  }
  return {{"code", wall.Name.ToUtf8()},
          {"inside", wall.GetNHrXsData()},
          {"outside", wall.GetWHrXsData()},
          {"outside_winter", wall.GetDjWHrXsData()},
          {"layers", std::move(layers)}};
}

}  // namespace qkdb
