#include "dialogs/ChooseLayerDialog.h"
#include "dialogs/SelectLsDlg.h"
#include "dialogs/SelectSymDlg.h"
#include "module/HostMessages.h"
#include "support/Log.h"
#include "tests/unit/dialogs/TestChart.h"

#include <QTreeWidget>
#include <QtTest>
#include <gtest/gtest.h>

namespace {

Qt::CheckState stateAt(const QTreeWidget *tree, int row) {
    return tree->topLevelItem(row)->checkState(0);
}

// Names the objects of a host by their handles.
void answerNames(UnitHost &host, std::map<Word, QString> names) {
    host.answers[ToHost::Identity] = [names](int wParam, int lParam) {
        const auto it = names.find(static_cast<Word>(wParam));
        auto *identity = fromWord<coreIndicatorIdentity>(lParam);
        if (it != names.end() && identity)
            fillField(identity->sNameInstrument.m_szNameSymbol, it->second);
        return 0;
    };
}

class SelectSymTest : public testing::Test {
protected:
    SelectSymTest() {
        answerNames(host, {{101, "MA"}, {102, "RSI"}, {103, "MA"}});
        host.attach();
        chart.addSeries(chart.layer(), "EUR/USD", true, fromWord<void>(Word(100)));
        chart.addSeries(chart.layer(), "fast", false, fromWord<void>(Word(101)));
        CRGraphLayer *second = chart.addLayer("Layer 2");
        chart.addSeries(second, "strength", false, fromWord<void>(Word(102)));
        chart.addSeries(second, "slow", false, fromWord<void>(Word(103)));
    }
    UnitHost host;
    TestChart chart;
    SelectSymDlg dialog;
};

TEST_F(SelectSymTest, TheTreesShowPanesLayersAndTypes) {
    EXPECT_EQ(dialog.windowTitle(), "G0157");
    EXPECT_TRUE(dialog.isModal());
    ASSERT_TRUE(dialog.Create(chart.get()));
    const QTreeWidget *objects = dialog.ObjectTree();
    EXPECT_EQ(objects->headerItem()->text(0), "G0154");
    EXPECT_EQ(objects->headerItem()->text(1), "G0155");
    ASSERT_EQ(objects->topLevelItemCount(), 1);
    const QTreeWidgetItem *root = objects->topLevelItem(0);
    EXPECT_EQ(root->text(0), "G0019");
    EXPECT_EQ(root->text(1), "fast, strength, slow");
    ASSERT_EQ(root->childCount(), 1);
    EXPECT_EQ(root->child(0)->text(0), "G0017 1");
    ASSERT_EQ(root->child(0)->childCount(), 2);
    EXPECT_EQ(root->child(0)->child(0)->text(0), "G0034 1");
    EXPECT_EQ(root->child(0)->child(0)->text(1), "fast");
    EXPECT_EQ(root->child(0)->child(1)->text(1), "strength, slow");
    const QTreeWidget *types = dialog.TypeTree();
    EXPECT_EQ(types->headerItem()->text(0), "G0156");
    ASSERT_EQ(types->topLevelItemCount(), 3);
    EXPECT_EQ(types->topLevelItem(0)->text(0), "All");
    EXPECT_EQ(types->topLevelItem(1)->text(0), "MA");
    EXPECT_EQ(types->topLevelItem(2)->text(0), "RSI");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(stateAt(types, i), Qt::Unchecked);
}

TEST_F(SelectSymTest, AllAndTheOthersFollowEachOther) {
    dialog.Create(chart.get());
    QTreeWidget *types = dialog.TypeTree();
    int changes = 0;
    QObject::connect(types, &QTreeWidget::itemChanged, types, [&changes] { ++changes; });
    types->topLevelItem(0)->setCheckState(0, Qt::Checked);
    EXPECT_EQ(stateAt(types, 1), Qt::Checked);
    EXPECT_EQ(stateAt(types, 2), Qt::Checked);
    EXPECT_EQ(changes, 3);
    types->topLevelItem(2)->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(stateAt(types, 0), Qt::Unchecked);
    EXPECT_EQ(stateAt(types, 1), Qt::Checked);
    types->topLevelItem(2)->setCheckState(0, Qt::Checked);
    EXPECT_EQ(stateAt(types, 0), Qt::Checked);
    types->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(stateAt(types, 1), Qt::Unchecked);
    types->topLevelItem(1)->setCheckState(0, Qt::PartiallyChecked);
    EXPECT_EQ(stateAt(types, 0), Qt::Unchecked);
    types->topLevelItem(2)->setCheckState(0, Qt::PartiallyChecked);
    EXPECT_EQ(stateAt(types, 0), Qt::Unchecked); // neither all checked nor one unchecked: as it was
}

TEST_F(SelectSymTest, OkCollectsSelectedPartsAndCheckedTypes) {
    dialog.Create(chart.get());
    QTreeWidgetItem *area = dialog.ObjectTree()->topLevelItem(0)->child(0);
    area->child(1)->setSelected(true);
    area->setSelected(true);
    dialog.TypeTree()->topLevelItem(2)->setCheckState(0, Qt::Checked);
    dialog.OnOK();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    const SelectResult &result = dialog.GetResult();
    ASSERT_EQ(result.ids.size(), 2u);
    EXPECT_EQ(result.ids[0].kind, 2);
    EXPECT_EQ(result.ids[0].areaObject, chart.area());
    EXPECT_EQ(result.ids[1].kind, 3);
    EXPECT_EQ(result.ids[1].layerObject, chart.layer(1));
    ASSERT_EQ(result.types.size(), 1u);
    EXPECT_EQ(result.types[0], "RSI");
    dialog.OnOK();
    EXPECT_EQ(dialog.GetResult().ids.size(), 2u); // a second OK does not add to the first
}

TEST_F(SelectSymTest, ThePostedEventOffersTheWholeChart) {
    dialog.Create(chart.get());
    EXPECT_TRUE(dialog.ObjectTree()->selectedItems().isEmpty());
    QCoreApplication::sendPostedEvents(&dialog);
    ASSERT_EQ(dialog.ObjectTree()->selectedItems().size(), 1);
    dialog.OnOK();
    ASSERT_EQ(dialog.GetResult().ids.size(), 1u);
    EXPECT_EQ(dialog.GetResult().ids[0].kind, 1);
    EXPECT_TRUE(dialog.GetResult().types.empty());
}

TEST_F(SelectSymTest, WithoutAChartTheFailureIsLogged) {
    static QString line;
    line.clear();
    host.answers[ToHost::LogWriter] = [](int wParam, int) {
        *fromWord<coreLogWriter>(wParam) = [](const coreLogRecord *record) {
            line = readEndedText(record->text);
            return 0;
        };
        return 0;
    };
    LogHelper::Create(QString("CRGraphModule"), UnitHost::send, nullptr);
    EXPECT_FALSE(dialog.Create(nullptr));
    EXPECT_TRUE(line.endsWith("|SelectSymDlg|279"));
    SelectLsDlg lines;
    EXPECT_EQ(lines.windowTitle(), "G0153");
    EXPECT_FALSE(lines.Create(nullptr));
    EXPECT_TRUE(line.endsWith("|SelectLsDlg|345"));
    host.answers[ToHost::LogWriter] = [](int wParam, int) {
        *fromWord<coreLogWriter>(wParam) = nullptr;
        return 0;
    };
    LogHelper::Create(QString("CRGraphModule"), UnitHost::send, nullptr);
}

TEST(SelectLsTest, StudiesAreThoseThatTheHostLists) {
    UnitHost host;
    TestChart chart;
    chart.addSeries(chart.layer(), "EUR/USD", true, fromWord<void>(Word(100)));
    host.answers[ToHost::CountLineStudies] = [](int, int lParam) {
        fromWord<coreLsCountForDpa>(lParam)->count = 3;
        return 0;
    };
    host.answers[ToHost::ListLineStudies] = [](int, int lParam) {
        auto *list = fromWord<coreLsListForDpa>(lParam);
        for (Word i = 0; i < list->count; ++i)
            list->list[i] = CORE_OBJECT_SYSTEM{9, 1000 + i};
        return 0;
    };
    host.answers[ToHost::StudyNames] = [](int wParam, int lParam) {
        const char *const names[] = {"Trend Line", "Symbol Arrow", "Symbol Star"};
        auto *text = fromWord<char>(lParam);
        std::strcpy(text, names[wParam - 1000]);
        return 0;
    };
    host.attach();
    SelectLsDlg dialog;
    ASSERT_TRUE(dialog.Create(chart.get()));
    ASSERT_EQ(dialog.TypeTree()->topLevelItemCount(), 3);
    EXPECT_EQ(dialog.TypeTree()->topLevelItem(1)->text(0), "Trend Line");
    EXPECT_EQ(dialog.TypeTree()->topLevelItem(2)->text(0), "Symbol");
}

class ChooseLayerTest : public testing::Test {
protected:
    ChooseLayerTest() {
        chart.addSeries(chart.layer(), "EUR/USD", true, fromWord<void>(Word(100)));
        chart.addLayer("second");
        chart.addLayer("third");
    }
    TestChart chart;
};

TEST_F(ChooseLayerTest, TheTreeHasEveryLayerAndANewOne) {
    const CChooseLayerDialog dialog(chart.area(), 0, "MA");
    EXPECT_EQ(dialog.windowTitle(), "G0059");
    const QTreeWidget *tree = dialog.Tree();
    ASSERT_EQ(tree->topLevelItemCount(), 4);
    const char *const headers[] = {"G0034", "C0028Name", "G0055", "G0050"};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(tree->headerItem()->text(i), headers[i]);
    EXPECT_EQ(tree->topLevelItem(0)->text(0), "1");
    EXPECT_EQ(tree->topLevelItem(0)->text(2), "C0032Right");
    EXPECT_EQ(tree->topLevelItem(0)->text(3), "EUR/USD");
    EXPECT_EQ(tree->topLevelItem(1)->text(1), "second");
    EXPECT_EQ(tree->topLevelItem(1)->text(2), "C0023Left");
    EXPECT_EQ(tree->topLevelItem(2)->text(2), "");
    EXPECT_EQ(tree->topLevelItem(3)->text(0), "4");
    EXPECT_EQ(tree->topLevelItem(3)->text(1), "G0047");
    EXPECT_EQ(tree->topLevelItem(3)->text(3), "MA");
}

TEST_F(ChooseLayerTest, TheOwnLayerIsNoChoice) {
    CChooseLayerDialog dialog(chart.area(), 1, QString());
    const struct { int row, layer; } rows[] = {{0, 0}, {1, -1}, {2, 2}, {3, 3}};
    for (const auto &row : rows) {
        dialog.OnSelectionChanged(dialog.Tree()->topLevelItem(row.row), 0);
        EXPECT_EQ(dialog.GetLayer(), row.layer) << row.row;
    }
    dialog.OnSelectionChanged(nullptr, 0);
    EXPECT_EQ(dialog.GetLayer(), -1);
}

TEST_F(ChooseLayerTest, TheOfferedLayerStandsUntilTheUserChooses) {
    EXPECT_EQ(CChooseLayerDialog(chart.area(), 1, QString()).GetLayer(), 1);
    EXPECT_EQ(CChooseLayerDialog(chart.area(), -1, QString()).GetLayer(), 3);
    EXPECT_EQ(CChooseLayerDialog(chart.area(), 99, QString()).GetLayer(), 3);
    EXPECT_EQ(CChooseLayerDialog(nullptr, -1, QString()).GetLayer(), 0);
}

TEST_F(ChooseLayerTest, TheKeyboardChoosesToo) {
    CChooseLayerDialog dialog(chart.area(), 1, QString());
    dialog.show();
    QTest::keyClick(dialog.Tree(), Qt::Key_Down);
    EXPECT_EQ(dialog.GetLayer(), 2);
    QTest::keyClick(dialog.Tree(), Qt::Key_Up);
    EXPECT_EQ(dialog.GetLayer(), -1); // its own
    dialog.Tree()->clearSelection();
    EXPECT_EQ(dialog.GetLayer(), -1);
    dialog.Tree()->topLevelItem(0)->setSelected(true);
    EXPECT_EQ(dialog.GetLayer(), 0);
    QTest::keyClick(dialog.Tree(), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    dialog.show();
    QTest::keyClick(dialog.Tree(), Qt::Key_Escape);
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST_F(ChooseLayerTest, ADoubleClickAcceptsOnlyAChoice) {
    CChooseLayerDialog dialog(chart.area(), 1, QString());
    dialog.show();
    dialog.OnDoubleClicked(dialog.Tree()->topLevelItem(1), 0);
    EXPECT_TRUE(dialog.isVisible());
    dialog.OnDoubleClicked(dialog.Tree()->topLevelItem(2), 0);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.GetLayer(), 2);
}

} // namespace
