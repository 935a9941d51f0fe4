#include "chart/GraphArea.h"

#include "chart/GraphEvents.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "dialogs/ChooseLayerDialog.h"
#include "module/GraphModule.h"

#include <QCoreApplication>
#include <QPointer>
#include <algorithm>
#include <climits>

CRGraphArea::Properties::Properties(const CRGraphModule *module)
    : backgroundColor(0xFFFFFF), gridColor(0xECE9D8), fontColor(0x7C7B68),
      font(module->getFont(font::chartElement), 8) {}

CRGraphArea::Properties::Properties(const CRGraphWidget *widget)
    : backgroundColor(widget->m_backgroundColor), gridColor(widget->m_gridColor), fontColor(widget->m_fontColor),
      font(widget->m_areaFont) {}

CRGraphArea::CRGraphArea(CRGraphWidget *widget, float height, const QString &name)
    : m_pWidget(widget), m_properties(widget->Module()), m_heightShare(height), m_title(name) {
    if (!widget->m_loading)
        m_layers.push_back(new CRGraphLayer(this, widget->Module()->tr("G0034") + QLatin1String(" 1")));
}

CRGraphArea::~CRGraphArea() {
    while (!m_layers.empty()) {
        CRGraphLayer *layer = m_layers.back();
        try {
            m_pWidget->DeleteLayerPrimitives(layer);
        } catch (...) {
            // The host threw; the series go with the window's list.
        }
        m_layers.pop_back();
        delete layer;
    }
}

CRGraphLayer *CRGraphArea::GetLayer(int index, const QString &name) {
    if (m_layers.size() == 1) {
        m_layers.front()->UpdatePrimitivesData();
        if (m_layers.front()->GetPrimitiveCount() == 0)
            return m_layers.front();
    }
    const QPointer<CRGraphWidget> window(m_pWidget);
    // The dialog runs an event loop: the window may go in it, and takes the dialog with it.
    const QPointer<CChooseLayerDialog> dialog = new CChooseLayerDialog(this, index, name);
    const bool accepted = dialog->exec() == QDialog::Accepted && dialog;
    const int chosen = accepted ? dialog->GetLayer() : -1;
    delete dialog.data();
    if (!accepted || !window || window->FindArea(this) < 0)
        return nullptr;
    const int count = static_cast<int>(m_layers.size());
    if (chosen >= 0 && chosen < count)
        return m_layers[static_cast<std::size_t>(chosen)];
    const QString numbered = QString(window->Module()->tr("G0034") + QLatin1String(" %1")).arg(count + 1);
    const QPointer<CRGraphLayer> layer = new CRGraphLayer(this, name.isEmpty() ? numbered : name);
    AddGraphLayer(layer);
    return layer;
}

void CRGraphArea::AddGraphLayer(CRGraphLayer *layer) {
    InsertGraphLayer(static_cast<int>(m_layers.size()), layer);
}

void CRGraphArea::InsertGraphLayer(int index, CRGraphLayer *layer) {
    const int count = static_cast<int>(m_layers.size());
    m_layers.insert(m_layers.begin() + (index < 0 || index > count ? count : index), layer);
    m_pWidget->UndoMilestone(m_pWidget->Module()->tr("Create layer"));
}

void CRGraphArea::DeleteGraphLayer(int index, bool refresh) {
    if (index < 0 || index >= static_cast<int>(m_layers.size()))
        return;
    CRGraphLayer *layer = m_layers[static_cast<std::size_t>(index)];
    const QPointer<CRGraphArea> alive(this);
    m_pWidget->DeleteLayerPrimitives(layer);
    // The removal talks to the host, so the layer is looked up again.
    if (!alive)
        return;
    const auto place = std::find(m_layers.begin(), m_layers.end(), layer);
    if (place == m_layers.end())
        return;
    m_layers.erase(place);
    delete layer;
    if (!refresh)
        return;
    const QPointer<CRGraphWidget> window(m_pWidget);
    window->UpdateTitle();
    if (window)
        window->ChangeDesktop();
    if (!window)
        return;
    window->UpdateScaleWidth();
    window->UpdatePrimitiveCount();
    window->UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
    if (window)
        window->update();
}

void CRGraphArea::DeleteGraphLayer(CRGraphLayer *layer) {
    const QPointer<CRGraphWidget> window(m_pWidget);
    const auto place = std::find(m_layers.begin(), m_layers.end(), layer);
    if (place != m_layers.end())
        DeleteGraphLayer(static_cast<int>(place - m_layers.begin()), true);
    if (window)
        window->UpdateTitle();
    if (window)
        window->ChangeDesktop();
}

void CRGraphArea::DeleteUnusedLayers() {
    for (std::size_t i = 0; i < m_layers.size();) {
        m_layers[i]->UpdatePrimitivesData();
        if (m_layers[i]->GetPrimitiveCount() > 0) {
            ++i;
        } else if (m_layers.size() > 1) {
            DeleteGraphLayer(static_cast<int>(i), false);
        } else {
            m_layers[i]->SetDataScaleSelfTuning(true);
            break;
        }
    }
}

/// The layer at `index` and the front one change places.
void CRGraphArea::BringLayerToFront(int index) {
    if (index < 0 || index >= static_cast<int>(m_layers.size()))
        return;
    std::swap(m_layers[static_cast<std::size_t>(index)], m_layers.back());
    m_pWidget->UpdateScaleWidth();
    m_pWidget->UpdatePrimitiveCount();
    m_pWidget->update();
}

/// The layer at `index` and the one at the back change places.
void CRGraphArea::SendLayerToBack(int index) {
    if (index < 0 || index >= static_cast<int>(m_layers.size()))
        return;
    std::swap(m_layers[static_cast<std::size_t>(index)], m_layers.front());
    m_pWidget->UpdateScaleWidth();
    m_pWidget->UpdatePrimitiveCount();
    m_pWidget->update();
}

void CRGraphArea::UpdateData() {
    for (CRGraphLayer *layer : m_layers)
        layer->UpdateData();
}

int CRGraphArea::GetIndex() const {
    return m_pWidget->FindArea(this);
}

int CRGraphArea::GetPrimitiveCount() const {
    int count = 0;
    for (const CRGraphLayer *layer : m_layers)
        count += layer->GetPrimitiveCount();
    return count;
}

/// Some series of the pane has something to show.
bool CRGraphArea::HasPoints() const {
    for (const CRGraphLayer *layer : m_layers) {
        for (const CRPrimitive *primitive : layer->m_primitives) {
            if (primitive->GetDataPointCount() > 0)
                return true;
        }
    }
    return false;
}

namespace {

int periodRank(char letter) {
    switch (letter) {
    case 'D':
        return 1;
    case 'W':
        return 2;
    case 'M':
        return 3;
    case 'Y':
        return 4;
    default:
        return 0;
    }
}

template <class Key>
void keepSmallest(std::vector<CRPrimitive *> &list, Key key) {
    int smallest = INT_MAX;
    for (const CRPrimitive *primitive : list)
        smallest = std::min(smallest, key(primitive));
    list.erase(std::remove_if(list.begin(), list.end(),
                              [&](const CRPrimitive *primitive) { return key(primitive) != smallest; }),
               list.end());
}

} // namespace

/// The pane's reference series: the selected ones go first, then the finest period, then the rank.
CRPrimitive *CRGraphArea::GetBasePrimitive() const {
    std::vector<CRPrimitive *> list;
    std::vector<CRPrimitive *> selected;
    for (const CRGraphLayer *layer : m_layers) {
        for (CRPrimitive *primitive : layer->m_primitives) {
            if (!primitive->GetArray())
                continue;
            list.push_back(primitive);
            if (primitive->IsSelected())
                selected.push_back(primitive);
        }
    }
    if (!selected.empty())
        list.swap(selected);
    if (list.empty())
        return nullptr;
    const auto period = [](const CRPrimitive *primitive) -> const namePeriod & {
        return primitive->GetArray()->identity.m_periods;
    };
    keepSmallest(list, [&](const CRPrimitive *primitive) { return periodRank(period(primitive).period); });
    if (periodRank(period(list.front()).period) == 0) {
        // Ticks, of length 0, stay only among themselves.
        keepSmallest(list, [&](const CRPrimitive *primitive) {
            return period(primitive).lenPeriod == 0 ? INT_MAX : period(primitive).lenPeriod;
        });
    }
    return *std::min_element(list.begin(), list.end(), [](const CRPrimitive *a, const CRPrimitive *b) {
        return a->GetArray()->coord.rank < b->GetArray()->coord.rank;
    });
}

int CRGraphArea::GetLastSignedTimePos(const unsigned short *name) const {
    std::vector<CRPrimitive *> primitives;
    m_pWidget->GetAllPrimitives(&primitives);
    int last = -1;
    for (const CRPrimitive *primitive : primitives) {
        if (primitive->NameIs(name))
            last = std::max(last, primitive->GetLastSignedTimePos());
    }
    return last;
}

/// The layers keep their own copies of the window's self-tuning options.
void CRGraphArea::ApplyPropertyPage(const CPropertyHead *) {
    if (m_pWidget->m_loading)
        return;
    for (CRGraphLayer *layer : m_layers) {
        layer->m_tradeInSelfTuning = m_pWidget->m_tradeInSelfTuning;
        layer->m_candleInSelfTuning = m_pWidget->m_candleInSelfTuning;
    }
}

/// The pane outlives the handler that asks for its end.
void CRGraphArea::OnDeleteArea() {
    QCoreApplication::postEvent(m_pWidget, new CGraphEvent(CGraphEvent::DeleteArea, GetIndex()));
}

void CRGraphArea::customEvent(QEvent *event) {
    QObject::customEvent(event);
}
