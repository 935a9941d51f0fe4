#include "host/window/SymbolPanel.h"
#include "host/window/Theme.h"
#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>
#include <cmath>

namespace desk {

namespace {

enum Column { SymbolColumn, BidColumn, AskColumn, SpreadColumn, ColumnCount };

} // namespace

SymbolPanel::SymbolPanel(QWidget *parent) : QDockWidget(parent) {
    setObjectName(QStringLiteral("symbolPanel"));
    auto *body = new QWidget(this);
    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(6, 2, 4, 4);
    layout->setSpacing(4);
    m_filter = new QLineEdit(body);
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(theme::icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
    m_model = new QStandardItemModel(0, ColumnCount, this);
    m_proxy = new QSortFilterProxyModel(this);
    m_proxy->setSourceModel(m_model);
    m_proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_proxy->setFilterKeyColumn(SymbolColumn);
    m_view = new QTreeView(body);
    m_view->setObjectName(QStringLiteral("symbolView"));
    m_view->setModel(m_proxy);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    m_view->header()->setSectionsMovable(false);
    m_view->header()->setStretchLastSection(false);
    m_view->header()->setMinimumSectionSize(40);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->setTextElideMode(Qt::ElideNone);
    m_view->header()->setSectionResizeMode(SymbolColumn, QHeaderView::Stretch);
    for (const int column : {BidColumn, AskColumn, SpreadColumn})
        m_view->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    layout->addWidget(m_filter);
    layout->addWidget(m_view, 1);
    setWidget(body);

    connect(m_filter, &QLineEdit::textChanged, m_proxy, &QSortFilterProxyModel::setFilterFixedString);
    connect(m_filter, &QLineEdit::returnPressed, this, [this] {
        if (!m_view->currentIndex().isValid())
            m_view->setCurrentIndex(m_proxy->index(0, 0));
        if (!currentSymbol().isEmpty())
            emit addWanted(currentSymbol());
    });
    connect(m_view, &QTreeView::activated, this, [this] { emit addWanted(currentSymbol()); });
    connect(m_view, &QWidget::customContextMenuRequested, this, &SymbolPanel::showMenu);
    retranslate();
}

int SymbolPanel::rowOf(const QString &symbol) const {
    const QList<QStandardItem *> items = m_model->findItems(symbol, Qt::MatchExactly, SymbolColumn);
    return items.isEmpty() ? -1 : items.first()->row();
}

void SymbolPanel::setSymbol(const QString &symbol, int digits) {
    m_entries[symbol].digits = digits;
    if (rowOf(symbol) >= 0)
        return;
    QList<QStandardItem *> row;
    for (int column = 0; column < ColumnCount; ++column) {
        row << new QStandardItem(column == SymbolColumn ? symbol : QString());
        if (column != SymbolColumn)
            row.last()->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    m_model->appendRow(row);
}

void SymbolPanel::removeAll() {
    m_model->setRowCount(0);
    m_entries.clear();
}

void SymbolPanel::setQuote(const QString &symbol, double bid, double ask) {
    const int row = rowOf(symbol);
    if (row < 0)
        return;
    Entry &entry = m_entries[symbol];
    const QColor colour = bid > entry.bid && entry.bid > 0   ? theme::rise()
                          : bid < entry.bid && entry.bid > 0 ? theme::fall()
                                                             : QColor();
    entry.bid = bid;
    m_model->item(row, BidColumn)->setText(QString::number(bid, 'f', entry.digits));
    m_model->item(row, AskColumn)->setText(QString::number(ask, 'f', entry.digits));
    const double points = (ask - bid) * std::pow(10.0, std::max(0, entry.digits - 1));
    m_model->item(row, SpreadColumn)->setText(QString::number(points, 'f', 1));
    m_model->item(row, SpreadColumn)->setForeground(theme::faint());
    if (colour.isValid()) {
        m_model->item(row, BidColumn)->setForeground(colour);
        m_model->item(row, AskColumn)->setForeground(colour);
    }
}

QStringList SymbolPanel::symbols() const {
    QStringList names;
    for (int row = 0; row < m_model->rowCount(); ++row)
        names << m_model->item(row, SymbolColumn)->text();
    return names;
}

QString SymbolPanel::currentSymbol() const {
    const QModelIndex index = m_view->currentIndex();
    return index.isValid() ? index.sibling(index.row(), SymbolColumn).data().toString() : QString();
}

void SymbolPanel::select(const QString &symbol) {
    const int row = rowOf(symbol);
    if (row >= 0)
        m_view->setCurrentIndex(m_proxy->mapFromSource(m_model->index(row, SymbolColumn)));
}

void SymbolPanel::filter(const QString &text) {
    m_filter->setText(text);
    m_filter->setFocus();
}

void SymbolPanel::showMenu(const QPoint &point) {
    const QModelIndex index = m_view->indexAt(point);
    if (!index.isValid())
        return;
    const QString symbol = index.sibling(index.row(), SymbolColumn).data().toString();
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("symbolMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Add to the active chart"), this, [this, symbol] { emit addWanted(symbol); });
    menu->addAction(tr("Open in a new chart"), this, [this, symbol] { emit openWanted(symbol); });
    menu->popup(m_view->viewport()->mapToGlobal(point));
}

void SymbolPanel::changeEvent(QEvent *event) {
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void SymbolPanel::retranslate() {
    setWindowTitle(tr("Symbols"));
    m_filter->setPlaceholderText(tr("Find a symbol"));
    m_model->setHorizontalHeaderLabels({tr("Symbol"), tr("Bid"), tr("Ask"), tr("Spread")});
    m_view->setToolTip(tr("Double-click adds a symbol to the active chart"));
    for (const int column : {BidColumn, AskColumn, SpreadColumn})
        m_model->horizontalHeaderItem(column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

} // namespace desk
