// The settings page of an indicator: its parameters, and the look of each line.
#include "host/indicators/Indicator.h"
#include "host/indicators/IndicatorService.h"
#include "module/HostRecords.h"
#include <QColor>
#include <QCoreApplication>
#include <cmath>

namespace desk {

namespace {

constexpr int parameterGroup = 1;
constexpr int lookGroup = 2; // of the first line; one group a line
constexpr int widestPen = 5;

enum LookItem { ItemColour = 1, ItemWeight, ItemPen };

QString text(const char *words) {
    return QCoreApplication::translate("desk", words);
}

// What the editor gave must be what was offered.
bool fits(const Parameter &parameter, const QVariant &value) {
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (parameter.kind == PageItem::Boolean)
        return value.canConvert<bool>();
    return isNumber && std::isfinite(number) && number >= parameter.minimum && number <= parameter.maximum;
}

PageItem itemOf(PageItem::Kind kind, int group, int index, const QString &name, const QVariant &value) {
    PageItem item;
    item.kind = kind;
    item.group = group;
    item.index = index;
    item.name = name;
    item.value = value;
    return item;
}

} // namespace

std::unique_ptr<Page> Indicator::page() const {
    auto page = std::make_unique<Page>();
    page->title = text(m_kind.displayName);
    page->text = menuText();
    PageGroup group;
    group.name = text("Parameters");
    group.index = parameterGroup;
    for (const Parameter &parameter : m_formula->parameters()) {
        PageItem item =
            itemOf(parameter.kind, parameterGroup, group.items.size() + 1, parameter.name, parameter.value);
        item.minimum = parameter.minimum;
        item.maximum = parameter.maximum;
        item.digits = parameter.digits;
        item.step = std::pow(10.0, -parameter.digits);
        item.choices = parameter.choices;
        group.items.append(item);
    }
    if (!group.items.isEmpty())
        page->groups.append(group);
    for (int i = 0; i < int(m_outputs.size()); ++i) {
        const Output &output = m_outputs[size_t(i)];
        if (!output.present)
            continue;
        const coreTypeShow &show = output.line->record()->typeShow;
        PageGroup look;
        look.name = output.name;
        look.index = lookGroup + i;
        look.items.append(
            itemOf(PageItem::Colour, look.index, ItemColour, text("Color"), QColor(show.secondColor)));
        PageItem weight = itemOf(PageItem::Int, look.index, ItemWeight, text("Line width"), show.weightPen);
        weight.minimum = 1;
        weight.maximum = widestPen;
        look.items.append(weight);
        PageItem pen = itemOf(PageItem::List, look.index, ItemPen, text("Pen"), int(show.penType) - 1);
        pen.choices = QStringList{text("Solid"), text("Dashes"), text("Dots"), text("Dash, dot"),
                                  text("Dash, dot, dot")};
        look.items.append(pen);
        page->groups.append(look);
    }
    return page;
}

QString Indicator::applyParameters(const Page &page, bool &changed) {
    std::vector<Parameter> &parameters = m_formula->parameters();
    for (size_t i = 0; i < parameters.size(); ++i) {
        const PageItem *item = page.find(parameterGroup, int(i) + 1);
        if (!item || !fits(parameters[i], item->value))
            return text("%1: the value is out of its range.").arg(parameters[i].name);
    }
    for (size_t i = 0; i < parameters.size(); ++i) {
        const QVariant &value = page.find(parameterGroup, int(i) + 1)->value;
        changed = changed || value.toDouble() != parameters[i].value.toDouble();
        parameters[i].value = parameters[i].kind == PageItem::Double    ? QVariant(value.toDouble())
                              : parameters[i].kind == PageItem::Boolean ? QVariant(value.toBool())
                                                                        : QVariant(value.toInt());
    }
    return QString();
}

bool Indicator::applyLook(const Page &page) {
    bool changed = false;
    for (int i = 0; i < int(m_outputs.size()); ++i) {
        coreTypeShow &show = m_outputs[size_t(i)].line->record()->typeShow;
        const coreTypeShow before = show;
        const PageItem *colour = page.find(lookGroup + i, ItemColour);
        const PageItem *weight = page.find(lookGroup + i, ItemWeight);
        const PageItem *pen = page.find(lookGroup + i, ItemPen);
        if (colour && colour->value.value<QColor>().isValid())
            show.firstColor = show.secondColor = colour->value.value<QColor>().rgb();
        if (weight)
            show.weightPen = qBound(1, weight->value.toInt(), widestPen);
        if (pen)
            show.penType =
                eCoreTypeShowPen(qBound(1, pen->value.toInt() + 1, int(eCoreTypeShowPenDashDotDot)));
        changed = changed || std::memcmp(&before, &show, sizeof show) != 0;
    }
    return changed;
}

QString Indicator::applyPage(const Page &page) {
    const std::vector<mvDataPointArray *> before = outputs();
    std::vector<QString> names;
    for (const Output &output : m_outputs)
        names.push_back(output.name);
    bool changed = false;
    const QString refusal = applyParameters(page, changed);
    if (!refusal.isEmpty())
        return refusal;
    const bool look = applyLook(page);
    if (!changed && !look)
        return QString();
    if (changed)
        recompute();
    bool renamed = false;
    for (size_t i = 0; i < m_outputs.size(); ++i)
        renamed = renamed || m_outputs[i].name != names[i];
    m_service.changed(*this, {changed, look, renamed, outputs() != before});
    return QString();
}

} // namespace desk
