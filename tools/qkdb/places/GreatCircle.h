#pragma once
// The great-circle distance between two places on a sphere of the earth's mean radius (haversine).

namespace qkdb {

// km between (lon1, lat1) and (lon2, lat2), all in radians. The mean radius 6371 km puts the result
// within 0.5 % of the ellipsoid's distance, finer than the stations' positions are printed.
double GreatCircleKm(double lon1, double lat1, double lon2, double lat2);

}  // namespace qkdb
