#pragma once
// A chart window without a host, for tests of the dialogs that list what stands on it.
#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "module/GraphModule.h"
#include "objects/Indicator.h"
#include "tests/support/Series.h"
#include "tests/unit/support/UnitHost.h"

#include <memory>
#include <vector>

class TestChart {
public:
    TestChart() {
        testApplication();
        m_widget = std::make_unique<CRGraphWidget>(GetModule<CRGraphModule>(), nullptr, &m_parent,
                                                   &m_toolBarParent, "chart", Qt::WindowFlags());
    }
    CRGraphWidget *operator->() const { return m_widget.get(); }
    CRGraphWidget *get() const { return m_widget.get(); }
    CRGraphArea *area(int index = 0) const { return m_widget->GetArea(index); }
    CRGraphLayer *layer(int index = 0) const { return area()->m_layers[static_cast<std::size_t>(index)]; }

    CRGraphLayer *addLayer(const QString &name) {
        area()->AddGraphLayer(new CRGraphLayer(area(), name));
        return area()->m_layers.back();
    }

    // A series of five candles; `handle` is what the host would know it by.
    CRPrimitive *addSeries(CRGraphLayer *target, const QString &symbol, bool instrument, void *handle) {
        auto array = std::make_unique<FakeArray>();
        array->setCandles(makeBars(5));
        array->header()->identity = makeName(symbol, "Bid", makePeriod('I', 60));
        array->header()->owner = handle;
        CRIndicator *indicator = m_widget->AddIndicator(handle);
        indicator->m_isInstrument = instrument;
        CRPrimitive *primitive = indicator->AddPrimitive(target, 0, 0, instrument ? PT_CANDLE : PT_LINE);
        primitive->Create(array->header());
        primitive->m_hDpa = handle;
        primitive->m_name = primitive->m_alias = symbol;
        target->UpdatePrimitivesData();
        m_arrays.push_back(std::move(array));
        return primitive;
    }

private:
    QWidget m_parent, m_toolBarParent;
    std::vector<std::unique_ptr<FakeArray>> m_arrays;
    std::unique_ptr<CRGraphWidget> m_widget;
};
