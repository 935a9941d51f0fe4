// The menu under the add button, and its tool bar variant.
#include "chart/GraphWidget.h"

#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/ToolBar.h"

#include <QMenu>
#include <QPointer>
#include <cstring>

namespace {

struct QuickSymbol {
    const char *title;
    const char *word;
};

constexpr QuickSymbol quickSymbols[] = {
    {"USD/CHF", "CHF"}, {"EUR/USD", "EUR"}, {"GBP/USD", "GBP"}, {"USD/JPY", "JPY"}};

struct QuickPeriod {
    const char *textId;
    namePeriod period;
};

// The units above hours come with length 0: the host stores 1.
constexpr QuickPeriod quickPeriods[] = {
    {"M0254", {'I', 60, 0}},     {"M0255", {'I', 180, 0}},   {"C0014Day", {'D', 0, 0}},
    {"C0027Month", {'M', 0, 0}}, {"C0045Year", {'Y', 0, 0}},
};

enum QuickAction { allInstruments = 4, allIndicators = 12 };

struct QuickIndicator {
    int data;
    const char *textId;
    const char *name;
};

constexpr QuickIndicator quickIndicators[] = {
    {5, "Ind0009", "MA"}, {8, "Ind0065", "MACD"}, {10, "Ind0054", "Ichimoku"}, {11, "Ind0015", "Bollinger"}};

constexpr char quickProvider[] = "VELMAR";

const char *quickWord(const QString &text) {
    for (const QuickSymbol &symbol : quickSymbols)
        if (text == QLatin1String(symbol.word))
            return symbol.word;
    return nullptr;
}

} // namespace

void CRGraphWidget::OnBnClickedAddGraphMenu() {
    m_nSelectedArea = -1;
    QPointer<CRGraphWidget> guard(this);
    UpdatePrimitiveCount();
    if (!guard)
        return;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // Entries are connected one by one: a menu's own signal would also bring those of its submenus.
    const auto addEntry = [this, menu](const QString &text, int data) {
        QAction *action = menu->addAction(text);
        action->setData(data);
        connect(action, &QAction::triggered, this, [this, action] { OnQuickAddGraphPressed(action); });
        return action;
    };
    for (const QuickSymbol &symbol : quickSymbols) {
        QMenu *submenu = menu->addMenu(QLatin1String(symbol.title));
        QAction *entry = submenu->menuAction();
        entry->setData(QLatin1String(symbol.word));
        connect(entry, &QAction::hovered, this, [this, entry] { OnQuickAddGraphSelected(entry); });
        int row = 0;
        for (const QuickPeriod &period : quickPeriods)
            submenu->addAction(m_module->tr(period.textId, 0))->setData(row++);
        // The symbol of the submenu counts, however its entry was reached.
        connect(submenu, &QMenu::triggered, this, [this, entry](QAction *action) {
            OnQuickAddGraphSelected(entry);
            OnQuickAddGraphSelectedPeriod(action);
        });
    }
    addEntry(m_module->tr("M0036", 0) + QLatin1String("..."), allInstruments);
    menu->addSeparator();
    for (const QuickIndicator &indicator : quickIndicators)
        addEntry(m_module->tr(indicator.textId, 0), indicator.data)->setEnabled(m_nPrimitiveCount > 0);
    addEntry(m_module->tr("M0037", 0) + QLatin1String("..."), allIndicators)
        ->setEnabled(m_nPrimitiveCount > 0);
    menu->popup(m_pAddGraphButton ? m_pAddGraphButton->mapToGlobal(QPoint(0, m_pAddGraphButton->height()))
                                  : QCursor::pos());
}

void CRGraphWidget::OnQuickAddGraphSelected(QAction *action) {
    if (const char *word = action ? quickWord(action->data().toString()) : nullptr)
        fillField(m_quickAdd.m_szNameSymbol, QString::fromLatin1(word));
}

void CRGraphWidget::OnQuickAddGraphPressed(QAction *action) {
    const int data = action ? action->data().toInt() : 0;
    if (data == allInstruments)
        HostCalls::raisePanel(ComponentHandle(), HostCalls::instrumentPanel);
    else if (data == allIndicators)
        HostCalls::raisePanel(ComponentHandle(), HostCalls::indicatorPanel);
    for (const QuickIndicator &indicator : quickIndicators)
        if (indicator.data == data) {
            AddVelmarIndicator(indicator.name);
            return;
        }
}

void CRGraphWidget::OnQuickAddGraphSelectedPeriod(QAction *action) {
    bool isNumber = false;
    const int row = action ? action->data().toInt(&isNumber) : -1;
    if (!isNumber || row < 0 || row >= static_cast<int>(sizeof quickPeriods / sizeof quickPeriods[0]))
        return;
    m_chooseLayerOnAdd = false;
    m_quickAdd.m_periods = quickPeriods[row].period;
    fillField(m_quickAdd.m_szType, "Bid");
    fillField(m_quickAddProvider, quickProvider);
    AddQuickInstrument();
}

// A tick chart of one of the four symbols.
void CRGraphWidget::OnMODERNQuickAddGraphPressed(int symbol) {
    if (symbol < 0 || symbol >= static_cast<int>(sizeof quickSymbols / sizeof quickSymbols[0]))
        return;
    fillField(m_quickAdd.m_szNameSymbol, QString::fromLatin1(quickSymbols[symbol].word));
    m_quickAdd.m_periods = namePeriod{'I', 0, 0};
    fillField(m_quickAdd.m_szType, "Middle");
    fillField(m_quickAddProvider, quickProvider);
    AddQuickInstrument();
}

// Opens the host's picker on one of its chart identities.
void CRGraphWidget::OnMODERNAddGraphPressed(int entry) {
    if (!ComponentHandle() || entry < 0 || entry >= static_cast<int>(m_chartIdentities.size()))
        return;
    const coreNameInstrument &names = m_chartIdentities[static_cast<std::size_t>(entry)].sNameInstrument;
    HostCalls::openChartIdentity(ComponentHandle(), fieldText(names.m_szNameSymbol) + QLatin1Char('/') +
                                                        fieldText(names.m_szType));
}

// Works on a copy: the host can bring the next request while this one is being served.
void CRGraphWidget::AddQuickInstrument() {
    coreNameInstrument what = m_quickAdd;
    char provider[sizeof m_quickAddProvider];
    std::memcpy(provider, m_quickAddProvider, sizeof provider);
    AddPrimaryPrimitive(what.m_szNameSymbol, what.m_szType, what.m_periods, provider, 0, nullptr);
}
