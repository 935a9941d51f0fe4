#include "chart/ZoomModel.h"

#include <algorithm>

namespace {

constexpr double zoomStep = 1.3;
constexpr int autoZoomLimit = 100;
constexpr int mostScreenPoints = 1000000;

// The position count is applied last: a chart of fewer than 10 positions shows them all.
int limited(int points, int positionCount) {
    points = std::max(points, leastScreenPoints);
    return positionCount > 0 ? std::min(points, positionCount) : points;
}

} // namespace

int zoomedIn(int points, int positionCount) {
    return limited(static_cast<int>(points / zoomStep), positionCount);
}

int zoomedOut(int points, int positionCount) {
    return limited(static_cast<int>(points * zoomStep), positionCount);
}

int wantedPoints(int sliderValue, int positionCount) {
    const int most = std::max(positionCount, mostScreenPoints);
    return sliderValue < -most ? most : std::max(-sliderValue, leastScreenPoints);
}

int pointsAfterRebuild(int points, bool first, int freeSpacePositions, bool autoZoomOut) {
    if (first && points < leastScreenPoints)
        points = freeSpacePositions * 2;
    if (points == 0)
        return usualScreenPoints;
    const bool mayShrink = !first || points >= leastScreenPoints;
    return mayShrink && autoZoomOut && points > autoZoomLimit ? usualScreenPoints : points;
}
