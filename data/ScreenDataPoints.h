#pragma once

class CRGraphWidget;

// What a rebuild of the positions does with a chart of few points: widens the free space and the view.
class ScreenDataPointsUpdate {
public:
    virtual void Update(int points, CRGraphWidget *widget) const;
};

// The same place, with nothing done.
class ScreenDataPointsNotUpdate {
public:
    virtual void Update(int points, CRGraphWidget *widget) const;
};
