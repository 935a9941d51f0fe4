#include "host/indicators/Formula.h"
#include <QLocale>

namespace desk {

Formula::~Formula() = default;

QString Formula::arguments() const {
    QStringList texts;
    for (const Parameter &parameter : m_parameters) {
        if (!parameter.shown)
            continue;
        if (parameter.kind == PageItem::List)
            texts << parameter.choices.value(parameter.value.toInt());
        else if (parameter.kind == PageItem::Double)
            texts << QString::number(parameter.value.toDouble(), 'g', 6);
        else
            texts << parameter.value.toString();
    }
    return texts.join(QStringLiteral(", "));
}

int Formula::addInt(const QString &name, int value, int minimum, int maximum, bool shown) {
    m_parameters.push_back({name, PageItem::Int, value, double(minimum), double(maximum), 0, {}, shown});
    return int(m_parameters.size()) - 1;
}

int Formula::addDouble(const QString &name, double value, double minimum, double maximum, int digits) {
    m_parameters.push_back({name, PageItem::Double, value, minimum, maximum, digits, {}, true});
    return int(m_parameters.size()) - 1;
}

int Formula::addList(const QString &name, const QStringList &choices, int value, bool shown) {
    m_parameters.push_back({name, PageItem::List, value, 0, double(choices.size() - 1), 0, choices, shown});
    return int(m_parameters.size()) - 1;
}

int Formula::addSwitch(const QString &name, bool value) {
    m_parameters.push_back({name, PageItem::Boolean, value, 0, 1, 0, {}, false});
    return int(m_parameters.size()) - 1;
}

int Formula::addPrice() {
    return addList(QObject::tr("Price"),
                   {QObject::tr("Close"), QObject::tr("Open"), QObject::tr("High"), QObject::tr("Low"),
                    QObject::tr("Median"), QObject::tr("Typical"), QObject::tr("Weighted")},
                   0, false);
}

} // namespace desk
