// What the library shows to the outside, and the module's card.
#include "tests/support/FakeHost.h"

#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

namespace {

QStringList linesOf(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromLocal8Bit(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
}

TEST(Exports, AreExactlyFour) {
    QStringList names;
    for (const QString &line : linesOf("nm", {"-D", "--defined-only", VELMAR_LIBRARY}))
        names.append(line.section(' ', -1));
    names.sort();
    EXPECT_EQ(names, (QStringList{"GetModuleInfo", "Initialize", "ReceiveMessage", "module"}));
}

TEST(Exports, LibraryNeedsOnlyQtAndTheRunTime) {
    QStringList names;
    for (const QString &line : linesOf("readelf", {"-d", VELMAR_LIBRARY})) {
        if (line.contains("(NEEDED)"))
            names.append(line.section('[', 1).section(']', 0, 0));
    }
    EXPECT_TRUE(names.contains("libQt5Widgets.so.5")) << names.join(' ').toStdString();
    for (const QString &name : names) {
        const bool allowed = name.startsWith("libQt5Core.") || name.startsWith("libQt5Gui.") ||
                             name.startsWith("libQt5Widgets.") || name.startsWith("libQt5PrintSupport.") ||
                             name.startsWith("libstdc++.") || name.startsWith("libgcc_s.") ||
                             name.startsWith("libc.") || name.startsWith("libm.") ||
                             name.startsWith("ld-linux.") || name.startsWith("libasan.") ||
                             name.startsWith("libubsan.");
        EXPECT_TRUE(allowed) << name.toStdString();
    }
}

TEST(ModuleInfo, NullIsIgnored) {
    FakeHost host(FakeHost::Loaded);
    EXPECT_EQ(host.GetModuleInfo(nullptr), 0);
}

TEST(ModuleInfo, FieldsStandAtTheirOffsets) {
    FakeHost host(FakeHost::Loaded);
    bytes::Record info(2315 + 16);
    std::memset(info.data(), 0x5A, static_cast<std::size_t>(info.size()));
    EXPECT_EQ(host.GetModuleInfo(reinterpret_cast<MODULE_INFO *>(info.data())), 0);
    EXPECT_EQ(bytes::text8(info.data(), 0, 255), "Velmar.Graph module");
    EXPECT_EQ(bytes::u8(info.data(), 254), 0);
    EXPECT_EQ(bytes::text8(info.data(), 255, 255), "Chart analysis");
    EXPECT_EQ(bytes::u32(info.data(), 1279), 12u);
    EXPECT_EQ(bytes::u32(info.data(), 1283), 1u);
    EXPECT_EQ(bytes::u32(info.data(), 1287), 2u);
    EXPECT_EQ(bytes::u32(info.data(), 1291), 8u);
    EXPECT_EQ(bytes::text8(info.data(), 1295, 20), "CTranslateGraphic");
    EXPECT_EQ(bytes::u32(info.data(), 1315), 124u);
    for (int i = 510; i < 1279; ++i)
        ASSERT_EQ(bytes::u8(info.data(), i), 0) << i;
    for (int i = 1319; i < 2315; ++i)
        ASSERT_EQ(bytes::u8(info.data(), i), 0) << i;
    for (int i = 2315; i < info.size(); ++i)
        ASSERT_EQ(bytes::u8(info.data(), i), 0x5A) << i;
}

TEST(Initialize, SendsNothing) {
    FakeHost host(FakeHost::Loaded);
    host.initialize();
    EXPECT_EQ(host.hostCalls(), 0);
}

TEST(BeforeInitialize, EveryMessageIsSurvivedWithoutAHost) {
    FakeHost host(FakeHost::Loaded);
    for (const unsigned message : {3007u, 3004u, 3066u, 3081u})
        EXPECT_EQ(host.send(message), 0) << message;
    Word done = 0;
    EXPECT_EQ(host.send(3062u, &done), 0);
    EXPECT_EQ(host.send(3009u), 1);
    EXPECT_EQ(host.hostCalls(), 0);
}

// Without a host a chart still comes up, and every call to the host is left out.
TEST(BeforeInitialize, AChartComesUpWithoutAHost) {
    FakeHost host(FakeHost::Loaded);
    host.send(3007u);
    host.send(3004u);
    Chart chart = host.createChart();
    ASSERT_TRUE(chart.widget);
    EXPECT_FALSE(host.grab(chart).isNull());
    host.tick();
    EXPECT_EQ(host.hostCalls(), 0);
}

TEST(Library, LoadsAndUnloadsAgainAndAgain) {
    for (int round = 0; round < 8; ++round) {
        FakeHost host;
        Chart chart = host.createChart();
        ASSERT_TRUE(chart.widget);
        ASSERT_TRUE(host.addInstrument(chart, "EURUSD"));
        host.tick();
        EXPECT_FALSE(host.grab(chart).isNull());
    }
}

TEST(Library, LeavesTheProcessWhenItIsClosed) {
    const auto mapped = [] {
        QFile maps("/proc/self/maps");
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libvelmargraph");
    };
    {
        FakeHost host;
        Chart chart = host.createChart();
        host.addInstrument(chart, "EURUSD");
        host.addIndicator(chart, "Bollinger");
        host.grab(chart);
        EXPECT_TRUE(mapped());
    }
    EXPECT_FALSE(mapped());
}

TEST(Library, OpensAndClosesManyWindows) {
    FakeHost host;
    for (int round = 0; round < 20; ++round) {
        Chart chart = host.createChart();
        ASSERT_TRUE(chart.widget);
        host.addInstrument(chart, "EURUSD");
        host.tick();
        const QPointer<QWidget> widget = chart.widget;
        host.deleteChart(chart);
        EXPECT_FALSE(widget);
    }
}

} // namespace
