#pragma once

#include <vector>

namespace vantix::test {

struct Point {
    double x = 0;
    double y = 0;
};

/// The slope of the straight line that lies closest to the points, by least squares; 0 for fewer than two places.
double SlopeOf(const std::vector<Point>& points);

}  // namespace vantix::test
