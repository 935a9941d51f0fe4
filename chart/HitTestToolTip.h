#pragma once

#include <QString>
#include <vector>

// What the tool tip says about one point of a series.
struct ToolTipValue {
    QString name;
    double value;
};

struct ToolTipPoint {
    QString alias;
    QString date;
    QString time; // printed for intraday series only
    bool isIntraday = false;
    int decimals = 0;
    std::vector<ToolTipValue> values;
};

QString toolTipEntry(const ToolTipPoint &point);
