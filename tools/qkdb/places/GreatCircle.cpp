#include "places/GreatCircle.h"

#include <algorithm>
#include <cmath>

namespace qkdb {

double GreatCircleKm(double lon1, double lat1, double lon2, double lat2) {
  constexpr double kEarthRadiusKm = 6371.0;
  const double sinLat = std::sin((lat2 - lat1) / 2.0);
  const double sinLon = std::sin((lon2 - lon1) / 2.0);
  const double a = sinLat * sinLat + std::cos(lat1) * std::cos(lat2) * sinLon * sinLon;
  return 2.0 * kEarthRadiusKm * std::asin(std::sqrt(std::min(1.0, a)));
}

}  // namespace qkdb
