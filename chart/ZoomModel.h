#pragma once

// How many positions a chart shows; zoom is nothing else.

constexpr int leastScreenPoints = 10;
constexpr int usualScreenPoints = 60;

// One step in or out from `points`. At least 10, but never more than the positions there are.
int zoomedIn(int points, int positionCount);
int zoomedOut(int points, int positionCount);

// The points that a zoom slider asks for with its value, which is minus the points. At least 10; more than
// the positions only as far as a frame can be drawn in time.
int wantedPoints(int sliderValue, int positionCount);

// The points after a rebuild of the positions; `first` for the first one of a window.
int pointsAfterRebuild(int points, bool first, int freeSpacePositions, bool autoZoomOut);
