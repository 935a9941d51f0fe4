// The frame that every module has: interface look-up, named events, texts, fonts, dates.
#include "module/DateTime.h"
#include "module/HostMessages.h"
#include "module/TranslateManager.h"
#include "tests/unit/module/RecordingHost.h"

#include <QDateTime>
#include <gtest/gtest.h>

namespace {

TEST(Module, IsTheOneGlobalObject) {
    EXPECT_EQ(GetModule(), static_cast<CModule *>(&module));
    EXPECT_EQ(GetModule<CRGraphModule>(), &module);
    EXPECT_EQ(module.GetModuleName(), "CRGraphModule");
    EXPECT_EQ(module.GetModuleNameForLog(), "CRGraphModule");
    EXPECT_EQ(module.GetTranslateManager()->GetContextName(), "CTranslateGraphic");
}

TEST(Module, WithoutNameWritesNeitherNameNorDescription) {
    const CModule unnamed(nullptr, 7, 8, 9, "log", "a context of more than twenty bytes");
    bytes::Record info(2315);
    EXPECT_EQ(unnamed.GetModuleInfoWrap(reinterpret_cast<MODULE_INFO *>(info.data())), 0);
    for (int i = 0; i < 510; ++i)
        ASSERT_EQ(bytes::u8(info.data(), i), 0) << i;
    EXPECT_EQ(bytes::u32(info.data(), 1279), 9u);
    EXPECT_EQ(bytes::u32(info.data(), 1283), 8u);
    EXPECT_EQ(bytes::u32(info.data(), 1287), 7u);
    EXPECT_EQ(bytes::text8(info.data(), 1295, 20), "a context of more th");
    EXPECT_EQ(bytes::u32(info.data(), 1315), 20u);
}

TEST(Module, AFullNameEndsInZero) {
    const CModule named(std::string(400, 'n').c_str(), 0, 0, 0, "log", "c");
    bytes::Record info(2315);
    named.GetModuleInfoWrap(reinterpret_cast<MODULE_INFO *>(info.data()));
    EXPECT_EQ(bytes::u8(info.data(), 253), 'n');
    EXPECT_EQ(bytes::u8(info.data(), 254), 0);
    EXPECT_EQ(bytes::text8(info.data(), 255, 255), "Noname module");
}

TEST(Module, OtherMessagesDoNothingInTheFrame) {
    CModule plain("plain", 0, 0, 0, "log", "c");
    EXPECT_EQ(plain.ReceiveMessageWrap(nullptr, 3007, 1, 2), 0);
    EXPECT_EQ(plain.GetDateTime(), nullptr);
    EXPECT_EQ(plain.getFontManager(), nullptr);
}

TEST(GetInterface, WithoutHostIsZero) {
    RecordingHost host(false);
    EXPECT_EQ(module.getInterface("CANDLE", "CANDLE", "VELMAR"), nullptr);
}

// The second text goes to the third field and the third to the second, both cut to the first's length.
TEST(GetInterface, SwapsAndCutsToTheFirstName) {
    RecordingHost host;
    bytes::Record seen(773);
    host.answer = [&](const RecordingHost::Asked &call) {
        std::memcpy(seen.data(), fromWord<void>(call.wParam), 773);
        bytes::put<Word>(fromWord<void>(bytes::u32(seen.data(), 769)), 0, 0x7777);
        return 0;
    };
    EXPECT_EQ(toWord(module.getInterface("AB", "object", "provider")), 0x7777);
    ASSERT_EQ(host.asked.size(), 1u);
    EXPECT_EQ(host.asked[0].message, 3001u);
    EXPECT_EQ(host.asked[0].target, RecordingHost::core());
    EXPECT_EQ(bytes::text8(seen.data(), 0, 255), "AB");
    EXPECT_EQ(bytes::text8(seen.data(), 255, 255), "pr");
    EXPECT_EQ(bytes::text8(seen.data(), 510, 255), "ob");
    EXPECT_EQ(bytes::u32(seen.data(), 765), 1u);
}

TEST(GetInterface, CutsAtTheWidthOfTheFields) {
    RecordingHost host;
    bytes::Record seen(773);
    host.answer = [&](const RecordingHost::Asked &call) {
        std::memcpy(seen.data(), fromWord<void>(call.wParam), 773);
        return 0;
    };
    module.getInterface(QString(300, 'a'), QString(300, 'b'), QString(300, 'c'));
    EXPECT_EQ(bytes::text8(seen.data(), 0, 255), QString(255, 'a'));
    EXPECT_EQ(bytes::text8(seen.data(), 255, 255), QString(255, 'c'));
    EXPECT_EQ(bytes::text8(seen.data(), 510, 255), QString(255, 'b'));
    EXPECT_EQ(bytes::u32(seen.data(), 765), 1u);
}

TEST(NamedEvents, EmittingAnUnknownNameFails) {
    CModule plain("plain", 0, 0, 0, "log", "c");
    MVEvent event = zeroRecord<MVEvent>();
    EXPECT_EQ(plain.EmitEvent("never made", event), 1);
}

TEST(NamedEvents, WithoutHostTheIdIsZeroAndEmittingSucceeds) {
    CModule plain("plain", 0, 0, 0, "log", "c");
    EXPECT_EQ(plain.CreateEvent("own"), 0u);
    MVEvent event = zeroRecord<MVEvent>();
    EXPECT_EQ(plain.EmitEvent("own", event), 0);
}

TEST(NamedEvents, TheFirstIdOfANameStays) {
    RecordingHost host;
    Word next = 31;
    std::vector<Word> emitted;
    host.answer = [&](const RecordingHost::Asked &call) {
        if (call.message == ToHost::CreateEvent)
            bytes::put<Word>(fromWord<void>(call.wParam), 255, next++);
        if (call.message == ToHost::EmitEvent) {
            emitted.push_back(static_cast<Word>(call.wParam));
            EXPECT_EQ(bytes::u32(fromWord<void>(call.lParam), 8), 31u);
            EXPECT_EQ(bytes::text8(fromWord<void>(call.lParam), 16, 255), "first id stays");
        }
        return 0;
    };
    EXPECT_EQ(module.CreateEvent("first id stays"), 31u);
    EXPECT_EQ(module.CreateEvent("first id stays"), 32u);
    MVEvent event = zeroRecord<MVEvent>();
    EXPECT_EQ(module.EmitEvent("first id stays", event), 0);
    EXPECT_EQ(emitted, std::vector<Word>{31});
}

TEST(NamedEvents, SubscriptionNamesTheModule) {
    RecordingHost host;
    bytes::Record record(271);
    bytes::Record end(8);
    host.answer = [&](const RecordingHost::Asked &call) {
        if (call.message == ToHost::SubscribeEvent)
            std::memcpy(record.data(), fromWord<void>(call.wParam), 271);
        if (call.message == ToHost::UnsubscribeEvent)
            std::memcpy(end.data(), fromWord<void>(call.wParam), 8);
        return 0;
    };
    module.SubscribeEvent(QString(300, 'e'));
    EXPECT_EQ(bytes::text8(record.data(), 0, 255), QString(255, 'e'));
    EXPECT_EQ(bytes::u32(record.data(), 255), 0u);
    EXPECT_EQ(bytes::u32(record.data(), 259), 0x4444u);
    EXPECT_EQ(bytes::u32(record.data(), 263), static_cast<Word>(toWord(&module)));
    EXPECT_EQ(bytes::i32(record.data(), 267), -1);
    module.UnSubscribeEvent();
    EXPECT_EQ(bytes::u32(end.data(), 0), 0x4444u);
    EXPECT_EQ(bytes::u32(end.data(), 4), static_cast<Word>(toWord(&module)));
}

TEST(Translation, SendsThreeFieldsOf1024Bytes) {
    RecordingHost host;
    bytes::Record record(3072);
    host.answer = [&](const RecordingHost::Asked &call) {
        std::memcpy(record.data(), fromWord<void>(call.wParam), 3072);
        return 5;
    };
    EXPECT_EQ(module.InsertTranslate("context", "id", "text"), 5);
    EXPECT_EQ(host.asked.front().message, 3019u);
    EXPECT_EQ(bytes::text8(record.data(), 0, 1024), "context");
    EXPECT_EQ(bytes::text8(record.data(), 1024, 1024), "id");
    EXPECT_EQ(bytes::text8(record.data(), 2048, 1024), "text");
    EXPECT_EQ(module.GetTranslateManager()->InsertTranslate("own", "words"), 5);
    EXPECT_EQ(bytes::text8(record.data(), 0, 1024), "CTranslateGraphic");
}

TEST(Translation, AnUnknownIdComesBack) {
    EXPECT_EQ(module.tr("no such id"), "no such id");
    EXPECT_EQ(module.tr(QString("no such id"), QString()), "no such id");
}

TEST(Fonts, FollowTheMarkedLanguage) {
    RecordingHost host;
    std::vector<std::pair<const char *, Word>> languages{{"English", 0}, {"Chinese (Simplified)", 1}};
    host.answer = [&](const RecordingHost::Asked &call) {
        if (call.message == ToHost::LanguageCount)
            bytes::put<int>(fromWord<void>(call.wParam), 0, static_cast<int>(languages.size()));
        if (call.message == ToHost::Languages) {
            char *list = fromWord<char>(bytes::u32(fromWord<void>(call.wParam), 4));
            for (std::size_t i = 0; i < languages.size(); ++i) {
                bytes::putText8(list + 769 * i, 0, 255, languages[i].first);
                bytes::put<Word>(list + 769 * i, 765, languages[i].second);
            }
        }
        return 0;
    };
    module.initFonts();
    EXPECT_EQ(module.getFont(font::chartElement), "SimSun");
    EXPECT_EQ(module.getFontSize(8), 10);
    languages[1].second = 0;
    module.initFonts();
    EXPECT_EQ(module.getFont(font::chartElement), "Arial");
    EXPECT_EQ(module.getFontSize(8), 8);
    languages.clear();
    module.initFonts();
    EXPECT_EQ(module.getFont(font::chartElement), "Arial");
}

void formatDate(const QDateTime &time, const QString &format, QString &result) {
    EXPECT_TRUE(result.isEmpty());
    result = format + QString::number(time.toSecsSinceEpoch());
}

void formatSeconds(long time, const QString &format, bool flag, QString &result) {
    result = format + QString::number(time) + (flag ? "local" : "utc");
}

TEST(Dates, ComeFromTheHostsFormatters) {
    RecordingHost host;
    int refused = 0;
    host.answer = [&](const RecordingHost::Asked &call) {
        bytes::put<coreDateTimeFormatter>(fromWord<void>(call.wParam), 0, &formatDate);
        bytes::put<coreTimeFormatter>(fromWord<void>(call.wParam), 4, &formatSeconds);
        return refused;
    };
    const Velmar::DateTime dates(&module, RecordingHost::core());
    EXPECT_EQ(host.asked.front().message, 3207u);
    EXPECT_EQ(dates.toString(QDateTime::fromSecsSinceEpoch(60, Qt::UTC), "d"), "d60");
    EXPECT_EQ(dates.toString(61L, "t", true), "t61local");
    EXPECT_EQ(dates.toString(61L, "t", false), "t61utc");
    refused = 1;
    const Velmar::DateTime none(&module, RecordingHost::core());
    EXPECT_EQ(none.toString(61L, "t", true), "");
}

TEST(FindDate, IsStoredOnlyWhenItAsksForIt) {
    const GraphModule::CFindDateData before = module.GetFindDateData();
    GraphModule::CFindDateData data;
    data.SetSavedDateTime(QDateTime(QDate(2014, 5, 5), QTime(10, 0), Qt::UTC));
    data.SetSaveDateTime(false);
    module.SetFindDateData(data);
    EXPECT_EQ(module.GetFindDateData().GetSavedTime(), before.GetSavedTime());
    data.SetSaveDateTime(true);
    module.SetFindDateData(data);
    EXPECT_EQ(module.GetFindDateData().GetSavedDateTime(),
              QDateTime(QDate(2014, 5, 5), QTime(10, 0), Qt::UTC));
    EXPECT_TRUE(module.GetFindDateData().IsSaveDateTime());
}

TEST(TimeZone, IsTheClockOfTheData) {
    const QByteArray before = qgetenv("TZ");
    module.SetTimeTz();
    EXPECT_EQ(qgetenv("TZ"), "GST0");
    qputenv("TZ", before);
    tzset();
}

TEST(InterfaceGetters, AskForTheirTriples) {
    RecordingHost host;
    QStringList triples;
    Word handle = 0x9000;
    host.answer = [&](const RecordingHost::Asked &call) {
        if (call.message == ToHost::FindInterface) {
            const char *record = fromWord<char>(call.wParam);
            triples.append(bytes::text8(record, 0, 255) + "/" + bytes::text8(record, 255, 255) + "/" +
                           bytes::text8(record, 510, 255));
            bytes::put<Word>(fromWord<void>(bytes::u32(record, 769)), 0, handle);
        }
        if (call.message == ToHost::InterfaceOfObject)
            bytes::put<Word>(fromWord<void>(call.lParam), 0, 0x8888);
        return 0;
    };
    module.m_lsInterface = nullptr;
    module.m_transportInterface = nullptr;
    handle = 0;
    EXPECT_EQ(module.GetLSInterface(), nullptr);
    handle = 0x9000;
    EXPECT_EQ(toWord(module.GetLSInterface()), 0x9000);
    EXPECT_EQ(toWord(module.GetLSInterface()), 0x9000); // kept from now on
    EXPECT_EQ(toWord(module.GetTransportInterface()), 0x9000);
    module.GetTransportInterface();
    module.GetIndicatorInterface();
    module.GetIndicatorInterface();
    module.GetAutoChartistInterface();
    module.GetOstrelIndicatorInterface(nullptr);
    EXPECT_EQ(toWord(module.GetOstrelIndicatorInterface(&handle)), 0x8888);
    EXPECT_EQ(triples,
              (QStringList{"LineStudies/VELMAR/mvLineStudies", "LineStudies/VELMAR/mvLineStudies",
                           "CANDLE/VELMAR/CANDLE_VELMAR", "MVINDICATORS/VELMAR/BinIndicators",
                           "MVINDICATORS/VELMAR/BinIndicators", "AUTOCHARTIST/VELMAR/AutoChartistPattern",
                           "OSTREL/VELMAR/OstrelVelmar"}));
    module.m_lsInterface = nullptr;
    module.m_transportInterface = nullptr;
}

TEST(DayOff, UnknownSymbolsAreNot) {
    EXPECT_FALSE(module.IsDayOff("never reported"));
}

TEST(DayOff, TableFollowsTheLastReport) {
    RecordingHost host;
    Word flag = 1;
    host.answer = [&](const RecordingHost::Asked &call) {
        char *list = fromWord<char>(call.lParam);
        if (call.message == ToHost::DayOffCount)
            bytes::put<int>(list, 0, 1);
        if (call.message == ToHost::DayOffSymbols) {
            char *records = fromWord<char>(bytes::u32(list, 4));
            bytes::putText8(records, 0, 19, "EURUSD");
            bytes::put<Word>(records, 19, flag);
        }
        return 0;
    };
    module.UpdateDayOffStatusForDealing(&host, nullptr, false);
    EXPECT_TRUE(module.IsDayOff("EURUSD"));
    flag = 0;
    module.UpdateDayOffStatusForDealing(&host, nullptr, false);
    EXPECT_FALSE(module.IsDayOff("EURUSD"));
    flag = 1;
    mvdDealAccount account = zeroRecord<mvdDealAccount>();
    module.UpdateDayoffStatusForAccount(&account, false);
    EXPECT_TRUE(module.IsDayOff("EURUSD"));
    module.UpdateDayoffStatusForAccount(&account, true); // the account is gone
    EXPECT_FALSE(module.IsDayOff("EURUSD"));
    module.UpdateDayoffStatusForAccount(nullptr, true);
}

TEST(PriceType, NoWindowsNeedNoConversion) {
    EXPECT_FALSE(module.NeedToSwitchToBid());
    EXPECT_FALSE(module.NeedToSwitchToMid());
}

// The numbers of the table, and those whose work is not built yet.
TEST(Rows, CoverEveryMessageOnce) {
    const CRGraphModule::RowTable table = CRGraphModule::Rows();
    std::set<unsigned> numbers;
    std::vector<unsigned> silent;
    for (int i = 0; i < table.count; ++i) {
        numbers.insert(table.rows[i].number);
        if (!table.rows[i].handler)
            silent.push_back(table.rows[i].number);
    }
    EXPECT_EQ(table.count, 52);
    EXPECT_EQ(numbers, (std::set<unsigned>{3004, 3005, 3007, 3009, 3010, 3011, 3020,  3021, 3062, 3066, 3073,
                                           3076, 3081, 3114, 3115, 3130, 3140, 3184,  3185, 3518, 3521, 3545,
                                           3546, 3550, 3551, 3552, 3553, 3555, 5001,  5003, 5004, 5005, 5006,
                                           5007, 5009, 5011, 5012, 5014, 5022, 5023,  5024, 5025, 5026, 5027,
                                           5028, 5029, 5030, 5031, 5032, 5034, 10054, 12001}));
    EXPECT_EQ(silent, (std::vector<unsigned>{3020, 3021, 3073, 3140, 3184, 3185, 3521, 5012, 5014, 5026, 5027,
                                             5028, 5029, 5030, 5031, 5032}));
}

} // namespace
