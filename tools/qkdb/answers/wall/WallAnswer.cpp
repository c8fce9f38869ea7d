#include "answers/wall/WallAnswer.h"

#include <cmath>
#include <string>

#include "construction/tagQKWALLCHARACTER.h"

namespace qkdb {

void CalculateWall(CQKWallData& wall) {
  wall.Cal(1);
  wall.Cal(0);
}

double Nu(const CQKWallData& wall) { return wall.GetNHrXsData() / (wall.CrSj * wall.CrXs); }

bool IsMassless(const tagQKTIMBERINGCHARACTER& layer) {
  // The wall calculation's own threshold: a volumetric capacity of at most 1e-9 W·h/(m³·K).
  return std::fabs(layer.GMD * layer.GMCXz * layer.BRr / 3.6) <= 1e-9;
}

double LayerResistance(const tagQKTIMBERINGCHARACTER& layer) {
  const double conductivity = layer.DrXs * layer.DrXsXz;
  return IsMassless(layer) ? 1.0 / conductivity : layer.Thick / conductivity;
}

ThicknessAnswer ThicknessFor(const CQKWallData& wall, double targetU, std::optional<int> layer, bool winter) {
  const CQKLayerArray layers = wall.GetTimberingData();
  if (layers.GetSize() == 0) throw ThicknessError(ThicknessError::Kind::kNoLayers, "the wall has no layers");
  ThicknessAnswer answer;
  if (!layer) {
    winter ? wall.CurrectDjThick(targetU, answer.layer, answer.thickness)
           : wall.CurrectThick(targetU, answer.layer, answer.thickness);
    return answer;
  }
  if (*layer < 0 || *layer >= layers.GetSize())
    throw ThicknessError(ThicknessError::Kind::kNoSuchLayer,
                         "layer " + std::to_string(*layer) + " is not a layer of this wall (0 to " +
                             std::to_string(layers.GetSize() - 1) + ")");
  const tagQKTIMBERINGCHARACTER& chosen = layers[*layer];
  if (IsMassless(chosen))
    throw ThicknessError(ThicknessError::Kind::kMassless,
                         "layer " + std::to_string(*layer) + " has no mass: its thickness does not count");
  const double outside = winter ? wall.GetDjWHrXsData() : wall.GetWHrXsData();
  const double conductivity = chosen.DrXs * chosen.DrXsXz;
  const double others = 1.0 / tagQKWALLCHARACTER::K(layers, outside, wall.GetNHrXsData()) - LayerResistance(chosen);
  answer.layer = *layer;
  answer.thickness = (1.0 / targetU - others) * conductivity;
  return answer;
}

}  // namespace qkdb
