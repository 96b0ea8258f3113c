#pragma once

#include <vector>

namespace vantix::test {

struct Point {
    double x = 0;
    double y = 0;
};

/// The slope of the straight line that lies closest to the points, by least squares; 0 for fewer than two places.
inline double SlopeOf(const std::vector<Point>& points) {
    Point mean;
    for (const Point& point : points) {
        mean.x += point.x / static_cast<double>(points.size());
        mean.y += point.y / static_cast<double>(points.size());
    }
    double both = 0;
    double square = 0;
    for (const Point& point : points) {
        both += (point.x - mean.x) * (point.y - mean.y);
        square += (point.x - mean.x) * (point.x - mean.x);
    }
    return square > 0 ? both / square : 0;
}

}  // namespace vantix::test
