#include "answers/MaterialsAnswer.h"

#include "text/NearNames.h"
#include "text/Output.h"
#include "construction/CQKTimbering.h"
#include "construction/tagQKTIMBERINGCHARACTER.h"
#include "envelope/CQKBSDataAdmin.h"

namespace qkdb {

namespace {

using nlohmann::ordered_json;

// A construction without heat capacity is an air space: its conductivity field holds the conductance
// 1/R, W/(m²·K), which is how the wall calculation reads it.
bool IsAirSpace(const CQKTimbering& c) { return c.GetGMD() * c.GetBRr() == 0.0; }

// S24 as the wall calculation computes it for a layer of this material without corrections.
double HeatStorage(const CQKTimbering& c) {
  tagQKTIMBERINGCHARACTER layer;
  layer.DrXs = c.GetDrXs();
  layer.GMD = c.GetGMD();
  layer.BRr = c.GetBRr();
  layer.DrXsXz = 1.0;
  layer.GMCXz = 1.0;
  return layer.GetS();
}

ordered_json Either(bool given, double value) { return given ? ordered_json(value) : ordered_json(); }

}  // namespace

MaterialsAnswer Materials(const std::string& type, const std::string& search) {
  MaterialsAnswer answer;
  CQKBSDataAdmin admin;
  const CQKBSDataAdmin::tagTimbNode* root = admin.GetTimbNodes(1);
  const std::wstring wanted = Folded(CString::FromUtf8(search));
  bool typeFound = type.empty();
  for (int t = 0; root && t < root->arrChild.GetSize(); ++t) {
    const CQKBSDataAdmin::tagTimbNode* typeNode = root->arrChild[t];
    const std::string typeName = typeNode->strName.ToUtf8();
    if (!type.empty() && typeName != type) continue;
    typeFound = true;
    for (int i = 0; i < typeNode->arrChild.GetSize(); ++i) {
      const CQKBSDataAdmin::tagTimbNode* node = typeNode->arrChild[i];
      if (!wanted.empty() && Folded(node->strName).find(wanted) == std::wstring::npos) continue;
      CQKTimbering c;
      if (!c.ReadData(node->nId)) {
        answer.refused = "cannot read the construction with ID " + std::to_string(node->nId);
        return answer;
      }
      const bool air = IsAirSpace(c);
      answer.json.push_back({{"id", node->nId},
                             {"name", c.GetStuffName().ToUtf8()},
                             {"type", typeName},
                             {"density_kg_m3", Either(!air, c.GetGMD())},
                             {"conductivity_w_mk", Either(!air, c.GetDrXs())},
                             {"specific_heat_kj_kgk", Either(!air, c.GetBRr())},
                             {"s24_w_m2k", Either(!air, HeatStorage(c))},
                             {"thermal_resistance_m2k_w", Either(air, 1.0 / c.GetDrXs())}});
    }
  }
  if (!typeFound) answer.refused = "no construction type named " + Quoted(type) + "; \"qkdb tree constructions\" lists them";
  return answer;
}

}  // namespace qkdb
