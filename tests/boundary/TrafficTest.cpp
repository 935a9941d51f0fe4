// Whole messages from outside: every call that one of them makes, in its order, and every line that it logs.
#include "tests/support/FakeHost.h"

#include <QDialog>
#include <QEnterEvent>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>; // readable in a failure

// The calls since the last clearTraffic(), as "number" or "number:detail".
Lines traffic(const FakeHost &host) {
    Lines result;
    for (const Call &call : host.calls()) {
        if (!call.toHost)
            continue;
        QString text = QString::number(call.message);
        const char *record = call.wRecord.constData();
        if (call.message == 3001 || call.message == 3002) {
            text += ":" + bytes::text8(record, 0, 255) + "/" + bytes::text8(record, 255, 255) + "/" +
                    bytes::text8(record, 510, 255);
        } else if (call.message == 5008) {
            text += ":" + bytes::text8(record, 4, 255);
        } else if (call.message == 3110) {
            text += ":" + bytes::text8(record, 0, 255);
        }
        result.push_back(text.toStdString());
    }
    return result;
}

// The lines of the module itself since the log was cleared, as "type level text".
Lines moduleLines(const FakeHost &host) {
    Lines result;
    for (const LogLine &line : host.log) {
        if (line.text.contains("|GraphModule|"))
            result.push_back(QString("%1 %2 %3").arg(line.type).arg(line.level).arg(line.text).toStdString());
    }
    return result;
}

const Lines windowTraffic{"3001:MAINWINDOW/VELMAR/",
                          "3001:MAINWINDOW/VELMAR/",
                          "3560",
                          "5008:Auto scroll positions",
                          "5008:Auto scroll positions",
                          "3550",
                          "3551",
                          "3550",
                          "3551",
                          "3552",
                          "3002:MVINDICATORS//",
                          "3001:MVINDICATORS//",
                          "6500",
                          "6501",
                          "3553",
                          "3550",
                          "3551",
                          "3552"};

TEST(Traffic, OfAStart) {
    FakeHost host(FakeHost::Created);
    host.clearTraffic();
    host.send(3004u);
    EXPECT_EQ(traffic(host), (Lines{"3116", "3117", "3207", "3205", "3002:DEALING//", "3001:DEALING//",
                                    "3001:MAINWINDOW/VELMAR/", "3110:DealingEvent", "3110:SkinEventData",
                                    "3110:Velmar Game Mode", "3110:Velmar Competition Mode", "3112"}));
    host.clearTraffic();
    host.send(3066u);
    EXPECT_EQ(traffic(host), (Lines{"3001:STATUSBAR/VELMAR/velmarStatusBar", "7000", "7000"}));
}

TEST(Traffic, OfANewWindow) {
    for (const Word kind : {0u, 1u}) {
        FakeHost host;
        host.clearTraffic();
        host.createBareChart(QSize(400, 300), kind);
        EXPECT_EQ(traffic(host), windowTraffic);
    }
}

// A window that comes before the start finds the dealing side itself, after it stands.
TEST(Traffic, OfAWindowAheadOfTheStart) {
    FakeHost host(FakeHost::Created);
    host.clearTraffic();
    host.createBareChart();
    Lines expected = windowTraffic;
    expected.insert(expected.end(),
                    {"3002:DEALING//", "3001:DEALING//", "3001:MAINWINDOW/VELMAR/", "3110:DealingEvent"});
    EXPECT_EQ(traffic(host), expected);
    host.clearTraffic();
    host.send(3004u);
    EXPECT_EQ(traffic(host), (Lines{"3116", "3117", "3207", "3205", "3110:SkinEventData",
                                    "3110:Velmar Game Mode", "3110:Velmar Competition Mode", "3112"}));
}

// Which of the host's interfaces answers a message; the core without one.
const char *answeredBy(unsigned message) {
    if (message == 4023)
        return "CANDLE";
    if ((message >= 3500 && message < 3600) || message == 5008 || message == 5033 ||
        (message > 10000 && message < 10100))
        return "MAINWINDOW";
    if (message == 7000 || message == 7001)
        return "STATUSBAR";
    if (message >= 6500 && message <= 6502)
        return "MVINDICATORS";
    if (message == 12002)
        return "MvDealingHistory";
    return message >= 16000 ? "DEALING" : nullptr;
}

// From the start to the end, with nearly all that a chart can ask.
void wholeRun(FakeHost &host) {
    host.send(3004u);
    host.send(3066u);
    Chart chart = host.createChart(QSize(400, 300));
    host.addInstrument(chart, "EURUSD");
    for (const char *name : {"Bollinger", "CHF+EUR"}) {
        host.addIndicator(chart, name);
        EXPECT_EQ(host.lastObject()->subscribers.count(chart.handle), 1u) << name;
    }
    host.tick();
    host.grab(chart);
    for (QToolButton *button : chart.widget->findChildren<QToolButton *>()) {
        if (button->toolTip() == "Extend chart left edge")
            button->click();
    }
    host.send(3553u);
    host.send(3545u, 2);
    bytes::Record window(8);
    bytes::put<Word>(window.data(), 4, static_cast<Word>(toWord(chart.handle)));
    int reload[2] = {0, 3};
    host.send(3518u, window.data(), reload);
    bytes::Record account(300);
    bytes::put<Word>(account.data(), 0, host.interfaceOf("DEALING"));
    host.emitEvent("DealingEvent", 16048, account.data(), 300);
    host.reportSymbols = {"GBPUSD"};
    host.onDialog([](QDialog *dialog) { dialog->accept(); });
    bytes::Record report(806);
    EXPECT_EQ(host.send(12001u, chart.handle, report.data()), 0);
    QMetaObject::invokeMethod(chart.widget, "OnShowProperties");
    host.send(5004u, chart.handle);
}

TEST(Traffic, EveryMessageGoesToItsTarget) {
    FakeHost host(FakeHost::Created);
    wholeRun(host);
    std::set<QString> asked;
    for (const Call &call : host.calls()) {
        if (!call.toHost)
            continue;
        const Word target = static_cast<Word>(toWord(call.target));
        if (call.message == 3061) { // the maker of the object, whichever it is
            EXPECT_EQ(target, host.object(static_cast<Word>(call.wParam))->maker);
            continue;
        }
        const char *by = answeredBy(call.message);
        EXPECT_EQ(target, by ? host.interfaceOf(by) : host.coreHandle()) << call.message;
        asked.insert(by ? by : "core");
    }
    EXPECT_EQ(asked, (std::set<QString>{"core", "CANDLE", "DEALING", "MAINWINDOW", "MVINDICATORS",
                                        "MvDealingHistory", "STATUSBAR"}));
}

// A handle in the first word is one that the host has given out for an object.
TEST(Traffic, ObjectsAreNamedByTheirHandles) {
    FakeHost host(FakeHost::Created);
    wholeRun(host);
    int named = 0;
    for (const Call &call : host.calls()) {
        switch (call.toHost ? call.message : 0) {
        case 3013:
        case 3014:
        case 3042:
        case 3043:
        case 3045:
        case 3046:
        case 3048:
        case 3051:
        case 3052:
        case 3055:
        case 3058:
        case 3061:
        case 3093:
        case 3119:
        case 3130:
        case 3131:
        case 3135:
        case 3152:
        case 12002:
            EXPECT_TRUE(host.object(static_cast<Word>(call.wParam))) << call.message;
            ++named;
            break;
        default:
            break;
        }
    }
    EXPECT_GT(named, 50);
}

// Room for answers goes out as zeros, behind what the module itself has put there.
TEST(Traffic, RoomForAnswersIsZeroed) {
    struct Room {
        unsigned message;
        bool first; // in the first word's record, else in the second's
        int from;
        int size;
    };
    const Room rooms[] = {
        {3008, true, 778, 28}, {3012, false, 0, 773},   {3043, false, 0, 4},    {3048, false, 0, 4},
        {3051, false, 0, 4},   {3055, false, 0, 1555},  {3058, false, 0, 268},  {3110, true, 255, 4},
        {3112, true, 255, 4},  {3116, true, 0, 8},      {3125, true, 0, 2048},  {3205, true, 0, 4},
        {3207, true, 0, 8},    {3500, true, 0, 264},    {3503, true, 0, 12288}, {3506, true, 0, 4},
        {3550, false, 0, 4},   {3551, false, 0, 4},     {3552, false, 0, 4},    {3553, false, 0, 4},
        {3560, true, 0, 4},    {4023, true, 510, 1530}, {6500, true, 0, 4},     {6502, true, 510, 264},
        {7000, true, 8, 4},    {10057, false, 0, 4},    {16026, false, 0, 8},
    };
    FakeHost host(FakeHost::Created);
    wholeRun(host);
    Chart chart = host.createChart(QSize(400, 300));
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5)); // asks for the tool
    QCoreApplication::sendEvent(chart.widget, &enter);
    host.addInstrument(chart, "EURUSD");
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    bytes::put<Word>(&item, 1288, 5);
    mvwcDpaList list{1, &item};
    host.workFolder = "/users/one"; // a template asks for it
    EXPECT_EQ(host.send(5006u, chart.handle, &list), 1);
    for (const Room &room : rooms) {
        const std::vector<Call> calls = host.callsOf(room.message);
        EXPECT_FALSE(calls.empty()) << room.message;
        for (const Call &call : calls) {
            const QByteArray record = room.first ? call.wRecord : call.lRecord;
            ASSERT_GE(record.size(), room.from + room.size) << room.message;
            EXPECT_EQ(record.mid(room.from, room.size), QByteArray(room.size, 0)) << room.message;
        }
    }
}

TEST(Traffic, OfTheFocus) {
    FakeHost host;
    Chart chart = host.createBareChart();
    for (const char *shown : {"10051", "10052"}) {
        host.clearTraffic();
        EXPECT_EQ(host.send(5009u, chart.handle), 0);
        EXPECT_EQ(traffic(host), (Lines{"3553", "3550", "3551", "3552", "10057", shown}));
        const Call question = host.callsOf(10057).front();
        EXPECT_EQ(bytes::u32(question.lRecord.constData(), 0), 0u);
        EXPECT_EQ(question.wParam, host.calls().back().wParam);
        EXPECT_EQ(host.calls().back().lParam, 0);
    }
}

TEST(Traffic, OfResizeAndShowIsNone) {
    FakeHost host;
    Chart chart = host.createBareChart();
    host.clearTraffic();
    host.send(5005u, chart.handle);
    host.send(5011u, chart.handle);
    EXPECT_EQ(traffic(host), Lines());
}

TEST(Traffic, OfTheEndOfAnEmptyWindow) {
    FakeHost host;
    Chart chart = host.createChart();
    host.clearTraffic();
    host.send(5004u, chart.handle);
    EXPECT_EQ(traffic(host), (Lines{"3150", "10055"}));
}

// A host without labels is asked for its panes again when a window clears them.
TEST(Traffic, OfAStatusBarWithoutLabels) {
    FakeHost host(FakeHost::Started);
    host.troubleMessage(7000);
    host.send(3066u);
    Chart chart = host.createChart();
    host.clearTraffic();
    host.send(5004u, chart.handle);
    EXPECT_EQ(host.count(7000), 0);
    const std::vector<Call> panes = host.callsOf(7001);
    ASSERT_EQ(panes.size(), 2u);
    EXPECT_EQ(bytes::u32(panes[0].wRecord.constData(), 16), 98u);
    EXPECT_EQ(bytes::u32(panes[1].wRecord.constData(), 16), 99u);
}

TEST(Traffic, ToolWidgetsAreAskedForWithOneAndAnEmptyAnswer) {
    FakeHost host;
    host.clearTraffic();
    host.createBareChart();
    for (const unsigned message : {3550u, 3551u, 3552u, 3553u}) {
        for (const Call &call : host.callsOf(message)) {
            EXPECT_EQ(call.wParam, 1) << message;
            EXPECT_EQ(bytes::u32(call.lRecord.constData(), 0), 0u) << message;
        }
    }
    for (const Call &call : host.callsOf(3560)) {
        EXPECT_EQ(bytes::u32(call.wRecord.constData(), 0), 0u);
        EXPECT_EQ(call.lParam, 0);
    }
}

TEST(Traffic, OfANewInstrumentUpToItsSubscription) {
    FakeHost host;
    Chart chart = host.createChart();
    host.clearTraffic();
    host.addInstrument(chart, "EURUSD");
    const Lines all = traffic(host);
    ASSERT_GT(all.size(), 12u);
    EXPECT_EQ(Lines(all.begin(), all.begin() + 9),
              (Lines{"3012", "3001:CANDLE/VELMAR/", "3001:CANDLE/VELMAR/CANDLE_VELMAR", "4023", "3008",
                     "3093", "3042", "3135", "3013"}));
    EXPECT_EQ(std::count(all.begin(), all.end(), "5008:Add primary primitive"), 1);
    EXPECT_EQ(Lines(all.end() - 2, all.end()), (Lines{"5033", "5008:"}));
    const Call arrays = host.callsOf(3042).front();
    EXPECT_EQ(bytes::i32(arrays.lRecord.constData(), 0), 1);
}

TEST(Traffic, TheDesktopChangeIsARecordOfZeros) {
    FakeHost host;
    Chart chart = host.createChart();
    mvwcDpaList list{0, nullptr};
    host.caption(chart); // the application's caption is asked for once
    for (const unsigned message : {5006u, 5007u}) {
        host.clearTraffic();
        EXPECT_EQ(host.send(message, chart.handle, &list), 0);
        EXPECT_EQ(traffic(host), (Lines{"5033", "5008:"})) << message;
        EXPECT_EQ(host.callsOf(5008).front().wRecord, QByteArray(259, 0)) << message;
        EXPECT_EQ(host.callsOf(5008).front().lParam, 0) << message;
    }
}

// ---- the log ----

TEST(LogLines, OfEveryMessageThatTellsOne) {
    FakeHost host(FakeHost::Created);
    const auto lines = [&](const std::function<void()> &work) {
        host.log.clear();
        work();
        return moduleLines(host);
    };
    EXPECT_EQ(lines([&] { host.send(3004u); }), (Lines{"1 0 Starting Graph module|GraphModule|938"}));
    EXPECT_EQ(lines([&] { host.send(3066u); }), (Lines{"1 0 CORE_MAINWINDOW_ISLOADING|GraphModule|1140"}));
    EXPECT_EQ(lines([&] { host.send(3081u); }), Lines());
    Word loading = 1;
    EXPECT_EQ(lines([&] { host.send(3062u, &loading); }),
              (Lines{"1 0 CORE_SYSTEM_IS_LOADING|GraphModule|1082"}));
    Chart chart;
    EXPECT_EQ(lines([&] { chart = host.createBareChart(); }),
              (Lines{"1 0 creating window component|GraphModule|1380"}));
    EXPECT_EQ(lines([&] { host.send(5005u, chart.handle); }), Lines());
    EXPECT_EQ(lines([&] { host.send(5009u, chart.handle); }), Lines());
    EXPECT_EQ(lines([&] { host.send(5011u, chart.handle); }), (Lines{"1 0 update|GraphModule|1456"}));
    FakeObject *euro = nullptr;
    EXPECT_EQ(lines([&] { euro = host.addInstrument(chart, "EURUSD"); }), Lines());
    ASSERT_TRUE(euro);
    EXPECT_EQ(lines([&] { host.update(euro, 0); }),
              (Lines{"1 0 CRGraphModule::CoreUpdateDpa start|GraphModule|988"}));
    EXPECT_EQ(lines([&] { host.tick(); }), (Lines{"1 0 CRGraphModule::timerEvent start|GraphModule|194",
                                                  "1 0 m_bUpdatePrimitivePositions = 1|GraphModule|203"}));
    EXPECT_EQ(lines([&] { host.send(3114u); }), (Lines{"1 0 CORE_RECIVE_EVENT|GraphModule|1170"}));
    bytes::Record rebuild(16);
    bytes::put<Word>(rebuild.data(), 0, 0x4711);
    EXPECT_EQ(lines([&] { host.send(3076u, chart.handle, rebuild.data()); }),
              (Lines{"1 0 CRGraphModule::CoreRebuildDpa start|GraphModule|1114",
                     "1 0 CRGraphModule::CoreRebuildDpa finish|GraphModule|1121"}));
    bytes::Record rename(778);
    EXPECT_EQ(lines([&] { host.send(3130u, chart.handle, rename.data()); }),
              (Lines{"1 0 CRGraphModule::CoreRenameDpa start|GraphModule|1127",
                     "1 0 CRGraphModule::CoreRenameDpa finish|GraphModule|1133"}));
    bytes::Record window(8);
    EXPECT_EQ(lines([&] { host.send(3518u, window.data()); }),
              (Lines{"1 4 MWI_SET_PANEL_STATE: wParam is not a GraphWidget|GraphModule|1751"}));
    EXPECT_EQ(lines([&] { host.send(5004u, chart.handle); }),
              (Lines{"1 0 deleting window component|GraphModule|1431"}));
    EXPECT_EQ(lines([&] { host.send(5004u, chart.handle); }),
              (Lines{"1 0 deleting window component|GraphModule|1431"}));
}

// The user has read the warning before it is logged.
TEST(LogLines, OfRefusedTemplatesFollowTheirWarning) {
    FakeHost host;
    Chart chart = host.createChart();
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    bytes::put<Word>(&item, 1288, 5);
    bytes::putText16(&item, 514, 255, "/nowhere/mine.tpl");
    mvwcDpaList list{1, &item};
    for (int round = 0; round < 2; ++round) {
        int linesAtWarning = -1;
        host.onDialog([&](QDialog *dialog) {
            linesAtWarning = 0;
            for (const LogLine &line : host.log)
                linesAtWarning += line.level == 3;
            dialog->reject();
        });
        host.log.clear();
        EXPECT_EQ(host.send(5006u, chart.handle, &list), 1);
        EXPECT_EQ(linesAtWarning, 0);
        int warnings = 0;
        for (const LogLine &line : host.log)
            warnings += line.level == 3 && line.type == 0;
        EXPECT_EQ(warnings, 1);
        host.addInstrument(chart, "EURUSD"); // the second round is for a missing file
    }
}

// A short name stands for a file in the folder of templates.
TEST(AddIndicators, AMissingTemplateIsNamedByItsFile) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    bytes::put<Word>(&item, 1288, 5);
    bytes::putText16(&item, 4, 255, "mine");
    mvwcDpaList list{1, &item};
    host.workFolder = "/users/one";
    EXPECT_EQ(host.send(5006u, chart.handle, &list), 1);
    EXPECT_EQ(host.dialogTexts.last().toStdString(), "Error|File /users/one/templates/mine.tpl not found");
    host.workFolder.clear();
    host.answer(3128, [](void *, int wParam, int) {
        EXPECT_EQ(bytes::u32(fromWord<void>(wParam), 0), 154u);
        bytes::putText16(fromWord<void>(wParam), 4, 1024, "/all/templates");
        return 0;
    });
    EXPECT_EQ(host.send(5006u, chart.handle, &list), 1);
    EXPECT_EQ(host.dialogTexts.last().toStdString(), "Error|File /all/templates/mine.tpl not found");
}

} // namespace
