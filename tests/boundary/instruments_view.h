#pragma once
// What stands on a chart, read from the window's own lists, and the steps that the tests of adding share.
#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "objects/Indicator.h"
#include "tests/support/FakeHost.h"

#include <QDialog>
#include <QTreeWidget>
#include <gtest/gtest.h>

struct SeriesView {
    QString line;
    int type = -1;
    int area = -1; // pane and layer it stands on, -1 for none
    int layer = -1;
    bool visible = false;
    bool selected = false;
    bool instrument = false;
    Word handle = 0;
    std::vector<float> levels;
    QString name;
    QString alias;
};

struct ChartView {
    std::vector<int> layers; // of each pane
    std::vector<SeriesView> series;
    int indicators = 0;
    int links = 0;
    const SeriesView *line(const QString &name) const {
        for (const SeriesView &entry : series)
            if (entry.line == name)
                return &entry;
        return nullptr;
    }
};

inline ChartView viewOf(const Chart &chart) {
    ChartView view;
    for (const CRGraphArea *area : chart.handle->m_areas)
        view.layers.push_back(static_cast<int>(area->m_layers.size()));
    for (const CRIndicator *indicator : chart.handle->m_indicators) {
        ++view.indicators;
        view.links += static_cast<int>(indicator->m_links.size());
        for (const CRPrimitive *primitive : indicator->m_primitives) {
            SeriesView entry;
            if (const mvDataPointArray *array = primitive->GetArray())
                entry.line = fieldText(array->identity.m_szNameSymbol);
            entry.type = primitive->m_type;
            for (std::size_t a = 0; a < chart.handle->m_areas.size(); ++a)
                for (std::size_t l = 0; l < chart.handle->m_areas[a]->m_layers.size(); ++l)
                    if (chart.handle->m_areas[a]->m_layers[l] == primitive->m_pLayer) {
                        entry.area = static_cast<int>(a);
                        entry.layer = static_cast<int>(l);
                    }
            entry.visible = primitive->m_bVisible != 0;
            entry.selected = primitive->m_bSelected != 0;
            entry.instrument = indicator->m_isInstrument;
            entry.handle = static_cast<Word>(toWord(indicator->m_handle));
            entry.levels = primitive->m_levels;
            entry.name = primitive->m_name;
            entry.alias = primitive->m_alias;
            view.series.push_back(entry);
        }
    }
    return view;
}

/// The messages to the host since the traffic was cleared, in order.
inline std::vector<unsigned> traffic(const FakeHost &host) {
    std::vector<unsigned> numbers;
    for (const Call &call : host.calls())
        if (call.toHost)
            numbers.push_back(call.message);
    return numbers;
}

inline QTreeWidget *treeOf(QDialog *dialog) {
    return dialog->findChild<QTreeWidget *>();
}

/// Closes the next layer dialog with the layer that it offers, or with row `row`.
inline void acceptLayer(FakeHost &host, int row = -1) {
    host.onDialog([row](QDialog *dialog) {
        if (QTreeWidget *tree = row >= 0 ? treeOf(dialog) : nullptr)
            tree->setCurrentItem(tree->topLevelItem(row));
        dialog->accept();
    });
}

inline void rejectDialog(FakeHost &host) {
    host.onDialog([](QDialog *dialog) { dialog->reject(); });
}

/// An indicator kind with one output, and one that has several.
inline FakeIndicator indicatorKind(const QString &name, int placement, int inputs = 1,
                                   const QStringList &outputs = {"Out"}) {
    FakeIndicator kind;
    kind.name = name;
    kind.displayName = name;
    kind.inputs = inputs;
    for (const QString &output : outputs)
        kind.outputs.push_back({output, 4, 0, placement, nullptr});
    return kind;
}

inline bool logged(const FakeHost &host, const QString &text, Word level) {
    for (const LogLine &line : host.log)
        if (line.text.contains(text) && line.level == level)
            return true;
    return false;
}
