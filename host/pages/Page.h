#pragma once
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

namespace desk {

// One row of a page. The value's type follows the kind: int, double, QString, QColor, QFont, int (index in
// `choices`), QDateTime (UTC), bool, quint32 (window id of the hosted widget).
struct PageItem {
    enum Kind { Int, Double, Text, Colour, Font, List, DateTime, Boolean, Widget };

    Kind kind = Int;
    QString name;
    QString description;
    QVariant value;
    double minimum = 0; // Int and Double
    double maximum = 0;
    double step = 1;
    int digits = 0;
    QStringList choices; // List
    int width = 0;       // Widget
    int height = 0;
    bool readOnly = false;
    int group = 0; // what the page's owner calls the group and the item
    int index = 0;
};

struct PageGroup {
    QString name;
    int index = 0;
    QVector<PageItem> items;
};

// A page of settings as the property dock shows it, whoever owns it.
struct Page {
    QString title;
    QString text;
    QVector<PageGroup> groups;

    // The item of an owner's numbers; null when there is none.
    const PageItem *find(int group, int index) const;
    PageItem *find(int group, int index);
};

} // namespace desk
