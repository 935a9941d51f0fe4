// Every indicator on a chart of the real module: it lands where it belongs and is seen in its colours.
#include "host/indicators/Formula.h"
#include "host/indicators/Indicator.h"
#include "host/pages/Page.h"
#include "host/window/IndicatorPanel.h"
#include "module/HostRecords.h"
#include "tests/desk/DeskFixture.h"
#include <QDialog>
#include <QDir>
#include <QTimer>

using namespace desk;
using desk::test::DeskTest;

namespace {

class IndicatorChart : public DeskTest {
protected:
    // An indicator over the price asks for its layer: the one offered is taken.
    void add(ChartPane &pane, const char *name) {
        QTimer consent;
        QObject::connect(&consent, &QTimer::timeout, [] {
            if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
                dialog->accept();
        });
        consent.start(10);
        for (const IndicatorEntry &entry : window().indicators().entries()) {
            if (entry.internalName == QString::fromLatin1(name))
                window().addIndicator(pane, entry);
        }
    }
    // The indicators that the chart follows.
    std::vector<std::shared_ptr<CalculatedObject>> indicatorsOf(const ChartPane &pane) {
        std::vector<std::shared_ptr<CalculatedObject>> result;
        for (const Handle handle : session().host().subscriptions().objects(pane.window())) {
            const auto object = session().host().objects().find(handle);
            if (object && !object->isInstrument())
                result.push_back(object);
        }
        return result;
    }
};

TEST_F(IndicatorChart, EveryKindIsSeenInItsColours) {
    Options wanted = options();
    wanted.size = QSize(2200, 1700);
    wanted.period = Period{'I', 60};
    wanted.quoteFiles.push_back(QuoteFile::fromArgument(
        test::writeBars(folder(), QStringLiteral("bars.csv"), 300, 14) + QStringLiteral("=EUR/USD")));
    start(wanted);
    window().setUnattended(true);
    deck().closeAll();
    std::vector<std::pair<ChartPane *, std::shared_ptr<CalculatedObject>>> charts;
    for (const FormulaKind &kind : formulaKinds()) {
        if (!kind.needsSource)
            continue;
        ChartPane *pane = window().openChart(QStringLiteral("EUR/USD"), Side::Bid, {'I', 60});
        ASSERT_TRUE(pane);
        deck().activate(pane);
        add(*pane, kind.name);
        const auto objects = indicatorsOf(*pane);
        ASSERT_EQ(objects.size(), 1u) << kind.name;
        charts.emplace_back(pane, objects.front());
    }
    settle();
    for (const auto &[pane, object] : charts) {
        const QImage picture = pane->chart()->grab().toImage();
        const QString name = fieldText(object->identity().m_szNameSymbol);
        for (const mvDataPointArray *array : object->outputs()) {
            for (const Word word : {array->typeShow.firstColor, array->typeShow.secondColor})
                EXPECT_GT(countPixels(picture, QColor(word)), 10)
                    << fieldText(array->identity.m_szNameSymbol).toStdString() << " in "
                    << QColor(word).name().toStdString();
        }
        if (qEnvironmentVariableIsSet("VELMAR_PICTURES"))
            picture.save(
                QDir(qEnvironmentVariable("VELMAR_PICTURES")).filePath(name + QStringLiteral(".png")));
    }
}

// The lines that the area lies between have other numbers once the one ahead of them is switched off.
TEST_F(IndicatorChart, BandsWithoutTheirMiddleLineStayFilled) {
    startWithOneChart();
    ChartPane &pane = *deck().active();
    add(pane, "Bollinger");
    ASSERT_EQ(indicatorsOf(pane).size(), 1u);
    const auto bands = indicatorsOf(pane).front();
    const QColor fill(bands->outputs()[1]->typeShow.secondColor);
    settle();
    const int filled = countPixels(pane.chart()->grab().toImage(), fill);
    std::unique_ptr<Page> page = bands->page();
    for (PageGroup &group : page->groups)
        for (PageItem &item : group.items)
            if (item.name == QStringLiteral("Middle line"))
                item.value = false;
    EXPECT_EQ(bands->applyPage(*page), QString());
    ASSERT_EQ(bands->outputs().size(), 2u);
    settle();
    EXPECT_GT(countPixels(pane.chart()->grab().toImage(), fill), filled * 9 / 10);
}

} // namespace
