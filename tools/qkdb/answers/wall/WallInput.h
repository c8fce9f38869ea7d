#pragma once
// The wall the "wall" and "thickness" commands read: JSON from a file or standard input, turned into a
// CQKWallData with its layers (not yet calculated). Layers run from the outside face inwards; units
// are the library's: m, W/(m·K), kg/m³, kJ/(kg·K), surface coefficients W/(m²·K).
//
//   {"inside": 8.7, "outside": 18.6, "outside_winter": 23.0,
//    "layers": [{"name": "...", "thickness": 0.24, "conductivity": 0.81, "density": 1800,
//                "specific_heat": 1.05, "conductivity_correction": 1.0, "density_correction": 1.0}]}
//
// An element of "qkdb walls --json" is such a wall too: its "code" names the wall, and its results
// ("U", "U_winter", "D", "decrement", "delay_h") are accepted and computed anew, not read.
//
// Every problem with the input is an InputError whose text names it in one line, without the
// "qkdb <command>: " prefix, which the command adds.

#include <stdexcept>
#include <string>
#include <string_view>

#include "construction/CQKWallData.h"

namespace qkdb {

struct InputError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The whole of file, or of standard input when file is empty or "-".
std::string ReadInput(const std::string& file);

// Whether a layer value beyond any building material (a thickness above 2 m, a conductivity above 500
// W/(m·K), a density above 25 000 kg/m³, a specific heat above 10 kJ/(kg·K)) is refused as typed in
// another unit, or taken as given; force is how the refusal tells the user to take it as given.
struct Plausibility {
  bool accept = false;
  std::string_view force = "--force";
};

enum class Quantity { kThickness, kConductivity, kDensity, kSpecificHeat };

// The unit a value beyond any building material was most likely meant in ("thickness is in metres"),
// or null for a plausible value. Units: m, W/(m·K), kg/m³, kJ/(kg·K).
const char* UnitHint(Quantity quantity, double value);

// The wall described by text. Unknown keys are refused rather than ignored: a misspelt optional key
// ("density_corection") would otherwise silently fall back to its default.
CQKWallData ParseWall(const std::string& text, const Plausibility& plausibility = {});

// Prints "qkdb <command>: <message>" as one line on standard error; returns 2, the exit status of
// input the tool cannot use.
int Refuse(std::string_view command, std::string_view message);

}  // namespace qkdb
