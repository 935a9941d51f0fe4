// "Show base data": the instruments behind the indicators of the chart.
#include "chart/GraphWidget.h"

#include "module/HostCalls.h"
#include "objects/Indicator.h"

#include <QMenu>
#include <QPointer>
#include <set>

// Adds an entry for each base object; false when there is none.
bool CRGraphWidget::GetBaseData(QMenu *menu) {
    QPointer<QMenu> target(menu);
    std::vector<void *> handles;
    for (const CRIndicator *indicator : m_indicators)
        handles.push_back(indicator->GetHandle());
    std::set<void *> bases;
    for (void *handle : handles)
        if (void *base = HostCalls::baseObject(handle))
            bases.insert(base);
    for (void *base : bases) {
        const coreNameInstrument names = HostCalls::identity(base).sNameInstrument;
        QString text = fieldText(names.m_szNameSymbol);
        const QString second = fieldText(names.m_szType);
        if (!second.isEmpty())
            text += QLatin1Char('/') + second;
        auto display = zeroRecord<coreDisplayNames>();
        std::memcpy(display.symbol, names.m_szNameSymbol, sizeof display.symbol);
        HostCalls::displayNames(base, display);
        const QString alias = fieldText(display.alias);
        if (!target)
            return false;
        target->addAction(alias.isEmpty() ? text : alias)->setData(static_cast<uint>(toWord(base)));
    }
    if (target && !bases.empty())
        connect(target.data(), &QMenu::triggered, this, &CRGraphWidget::OnShowBaseData, Qt::UniqueConnection);
    return !bases.empty();
}

// Selects the base's series; shows them in a pane of their own first when they are not on the chart.
void CRGraphWidget::OnShowBaseData(QAction *action) {
    void *handle = action ? fromWord<void>(static_cast<Word>(action->data().toUInt())) : nullptr;
    if (!handle)
        return;
    QPointer<CRGraphWidget> guard(this);
    if (CRIndicator *indicator = FindIndicator(handle)) {
        indicator->Select(true);
        update();
        return;
    }
    const int area = CreateArea(-1);
    if (!guard)
        return;
    m_nSelectedArea = area;
    m_firstAreaForEmpty = false;
    unsigned short symbol[1] = {0};
    char none[1] = {0};
    AddPrimaryPrimitive(symbol, none, zeroRecord<namePeriod>(), none, 0, handle);
    if (!guard)
        return;
    m_firstAreaForEmpty = true;
    for (const CRIndicator *indicator : m_indicators)
        for (CRPrimitive *primitive : indicator->m_primitives)
            if (primitive->m_hDpa == handle)
                primitive->SetSelected(true);
    update();
}
