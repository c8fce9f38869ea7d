#pragma once
// What the tool and the Python package report of a wall: its figures once calculated, the two
// readings of its periodic behaviour engineers use (ISO 13786's decrement factor, GB 50176's 衰减倍数
// and 延迟时间), and the thickness of one layer that gives a required U.

#include <optional>
#include <stdexcept>

#include "construction/CQKWallData.h"

namespace qkdb {

// Calculates wall as the tool reports it: winter first (Cal(1) fills the winter U only), then the
// whole summer calculation, so the harmonics and responses are those of the summer outside coefficient.
void CalculateWall(CQKWallData& wall);

// GB 50176's 衰减倍数 ν of a calculated wall: the amplitude of the outside air temperature over that of
// the inside surface temperature. The inside surface swings with the heat flux through α_i, and the
// flux amplitude is f·U per kelvin outside (f the ISO 13786 decrement factor), so ν = α_i / (f·U).
double Nu(const CQKWallData& wall);

// True when the layer stores no heat (ρ·c·density correction nil): an air gap or a film, whose
// "conductivity" is a conductance and whose thickness does not count.
bool IsMassless(const tagQKTIMBERINGCHARACTER& layer);

// The layer's thermal resistance, m²·K/W: d/(λ·correction), or 1/conductance for a mass-less layer.
double LayerResistance(const tagQKTIMBERINGCHARACTER& layer);

struct ThicknessAnswer {
  int layer = -1;          // counted from 0, the outside face
  double thickness = 0.0;  // m; negative when the target cannot be reached
};

struct ThicknessError : std::runtime_error {
  enum class Kind { kNoLayers, kNoSuchLayer, kMassless };
  ThicknessError(Kind kind, const std::string& message) : std::runtime_error(message), kind(kind) {}
  Kind kind;
};

// The thickness of a layer that gives wall the U targetU (W/(m²·K)) with the summer or, when winter,
// the winter outside coefficient; the wall is not changed. Without layer, the library's choice: the
// layer with the smallest λ·a (a = λ/(ρ·c), the thermal diffusivity), which is the insulation in a
// usual wall, the layer one thickens in practice. The thickness comes out negative when the other
// layers and the surfaces alone give a lower U. Throws ThicknessError.
ThicknessAnswer ThicknessFor(const CQKWallData& wall, double targetU, std::optional<int> layer, bool winter);

}  // namespace qkdb
