#include "soak/Trend.h"

#include "soak/Samples.h"

namespace vantix::test {

double SlopeOf(const std::vector<Point>& points) {
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

MemoryGrowth GrowthOf(const std::vector<Sample>& samples, size_t wantedRequests) {
    constexpr double kKiB = 1024;
    constexpr double kHour = 3600;
    std::vector<Point> overTime;
    std::vector<Point> overRequests;
    for (const Sample& sample : samples) {
        if (sample.requests * 10 >= wantedRequests) {
            const auto memory = static_cast<double>(sample.residentKiB);
            overTime.push_back({sample.seconds, memory});
            overRequests.push_back({static_cast<double>(sample.requests), memory});
        }
    }
    return {SlopeOf(overTime) * kHour / kKiB, SlopeOf(overRequests) * kKiB};
}

}  // namespace vantix::test
