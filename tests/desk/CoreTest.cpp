// The desk's core: interfaces, routes, objects, subscriptions and events, with a module of the test's own.
#include "host/core/CalculatedObject.h"
#include "host/core/DateService.h"
#include "host/core/DealingService.h"
#include "host/core/EventService.h"
#include "host/core/FolderService.h"
#include "host/core/Front.h"
#include "host/core/Host.h"
#include "host/core/IdentityService.h"
#include "host/core/InterfaceService.h"
#include "host/core/Journal.h"
#include "host/core/LogService.h"
#include "host/core/MessageNames.h"
#include "host/core/RefusalService.h"
#include "host/core/Service.h"
#include "host/core/SubscriptionService.h"
#include "host/core/TextService.h"
#include "host/core/Trace.h"
#include "host/pages/Page.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace desk;

namespace {

struct Received {
    unsigned message;
    int wParam;
    int lParam;
};

// What the module of these tests got; each case starts with none.
std::vector<Received> received;
std::function<int(unsigned, int, int)> answer;

int receiveMessage(void *, unsigned int message, int wParam, int lParam) {
    received.push_back({message, wParam, lParam});
    return answer ? answer(message, wParam, lParam) : 0;
}

class Recorder : public Service {
public:
    Recorder(Host &host, const QByteArray &kind)
        : Service(host), handleOf(registerInterface(kind, "VELMAR", "Test")) {}
    bool handle(Handle, unsigned message, int, int, int &result) override {
        messages.push_back(message);
        result = 7;
        return true;
    }
    void subscriptionChanged(Handle object, bool subscribed) override {
        changes.push_back({object, subscribed});
    }
    using Service::take;

    Handle handleOf;
    std::vector<unsigned> messages;
    std::vector<std::pair<Handle, bool>> changes;
};

class TestObject : public CalculatedObject {
public:
    TestObject(Recorder &maker, bool instrument, std::vector<Handle> sources = {}, int outputCount = 1)
        : CalculatedObject(maker, maker.handleOf), m_instrument(instrument), m_sources(std::move(sources)),
          m_arrays(std::size_t(outputCount), zeroRecord<mvDataPointArray>()) {
        m_identity = zeroRecord<coreNameInstrument>();
        fillField(m_identity.m_szNameSymbol, QStringLiteral("EUR/USD"));
        fillField(m_identity.m_szType, "Bid");
        m_identity.m_periods = {'I', 5, 0};
    }
    bool isInstrument() const override { return m_instrument; }
    const coreNameInstrument &identity() const override { return m_identity; }
    std::vector<mvDataPointArray *> outputs() const override {
        std::vector<mvDataPointArray *> result;
        for (mvDataPointArray &array : m_arrays)
            result.push_back(&array);
        return result;
    }
    std::vector<Handle> sources() const override { return m_sources; }
    int sourceLine() const override { return m_instrument ? 1 : 2; }
    namePeriod period() const override { return m_identity.m_periods; }
    DisplayNames displayNames() const override { return {"EUR", "USD", "EUR/USD"}; }
    QString menuText() const override { return QStringLiteral("Test (14)"); }
    LevelLine levels() const override { return {1, 0xff0000, {30.0f, 70.0f}}; }
    std::vector<coreIndicatorLinks> links() const override { return {{0, 1, 1, 2, 2}}; }

private:
    bool m_instrument;
    std::vector<Handle> m_sources;
    coreNameInstrument m_identity;
    mutable std::vector<mvDataPointArray> m_arrays;
};

class CoreTest : public testing::Test {
protected:
    CoreTest() {
        received.clear();
        answer = nullptr;
        host.attachModule(&receiveMessage);
        host.addService<InterfaceService>();
        host.addService<SubscriptionService>();
        host.addService<IdentityService>();
        host.addService<RefusalService>();
    }
    ~CoreTest() override { answer = nullptr; }

    int send(unsigned message, int wParam = 0, int lParam = 0) {
        return Host::send(fromWord<void>(host.coreHandle()), message, wParam, lParam);
    }
    Handle find(const char *kind, const char *provider, const char *object) {
        auto request = zeroRecord<coreNameInterfaceRequest>();
        fillField(request.names.nameIntreface, kind);
        fillField(request.names.nameProvider, provider);
        fillField(request.names.nameObject, object);
        Word found = 0;
        request.mode = 1;
        request.result = Word(toWord(&found));
        send(ToHost::FindInterface, toWord(&request));
        return found;
    }

    Host host;
};

TEST_F(CoreTest, AnEmptyPartOfATripleMatchesAnything) {
    Recorder &candle = host.addService<Recorder>("CANDLE");
    EXPECT_EQ(find("CANDLE", "VELMAR", "Test"), candle.handleOf);
    EXPECT_EQ(find("CANDLE", "", ""), candle.handleOf);
    EXPECT_EQ(find("CANDLE", "OTHER", ""), 0u);
    EXPECT_EQ(find("CANDLES", "", ""), 0u);
}

TEST_F(CoreTest, CountsAndListsTheInterfacesOfAKind) {
    Recorder &first = host.addService<Recorder>("MVINDICATORS");
    Recorder &second = host.addService<Recorder>("MVINDICATORS");
    auto request = zeroRecord<coreNameInterfaceRequest>();
    fillField(request.names.nameIntreface, "MVINDICATORS");
    Word count = 0;
    request.mode = 1;
    request.result = Word(toWord(&count));
    send(ToHost::CountInterfaces, toWord(&request));
    EXPECT_EQ(count, 2u);
    Word handles[3] = {0, 0, 0};
    request.mode = 2;
    request.result = Word(toWord(handles));
    send(ToHost::FindInterface, toWord(&request));
    EXPECT_EQ(handles[0], first.handleOf);
    EXPECT_EQ(handles[1], second.handleOf);
    EXPECT_EQ(handles[2], 0u);
}

TEST_F(CoreTest, TheModuleGetsItsInterfaceHandleAndIsFoundByName) {
    auto request = zeroRecord<coreNameInterfaceRequest>();
    fillField(request.names.nameIntreface, "Windowcomponent");
    fillField(request.names.nameProvider, "VELMAR");
    fillField(request.names.nameObject, "Graphics Unique Name");
    request.mode = host.componentHandle();
    request.result = 1234;
    send(ToHost::RegisterInterface, toWord(&request));
    EXPECT_NE(+request.result, 1234u);
    EXPECT_EQ(+request.result, host.moduleHandle());
    EXPECT_EQ(find("Windowcomponent", "", ""), host.moduleHandle());
}

TEST_F(CoreTest, NamesAnInterfaceInsideItsThreeFields) {
    Recorder &candle = host.addService<Recorder>("CANDLE");
    auto names = zeroRecord<coreNameInterfaceRequest>();
    names.mode = 0x5a5a5a5a;
    EXPECT_EQ(send(ToHost::InterfaceNames, int(candle.handleOf), toWord(&names)), 0);
    EXPECT_EQ(fieldText(names.names.nameIntreface), "CANDLE");
    EXPECT_EQ(fieldText(names.names.nameProvider), "VELMAR");
    EXPECT_EQ(fieldText(names.names.nameObject), "Test");
    EXPECT_EQ(+names.mode, 0x5a5a5a5au);
    EXPECT_EQ(send(ToHost::InterfaceNames, 99, toWord(&names)), 1);
}

TEST_F(CoreTest, ObjectMessagesGoToTheMaker) {
    Recorder &candle = host.addService<Recorder>("CANDLE");
    Recorder &indicators = host.addService<Recorder>("MVINDICATORS");
    auto demand = zeroRecord<coreDemandsIndicator>();
    send(ToHost::CreateObject, toWord(&demand));
    EXPECT_EQ(candle.messages, std::vector<unsigned>{ToHost::CreateObject});
    demand.parameter = indicators.handleOf;
    EXPECT_EQ(send(ToHost::CreateObject, toWord(&demand)), 7);
    EXPECT_EQ(indicators.messages, std::vector<unsigned>{ToHost::CreateObject});
    send(ToHost::CreationAbandoned);
    EXPECT_EQ(indicators.messages.back(), unsigned(ToHost::CreationAbandoned));

    const Handle handle = host.objects().add(std::make_shared<TestObject>(candle, true));
    candle.messages.clear();
    for (const unsigned message : {ToHost::OutputArrays, ToHost::OutputCount, ToHost::SourceCount,
                                   ToHost::ChangeArray, ToHost::ReloadArray, ToHost::ConfirmObject})
        EXPECT_EQ(send(message, int(handle)), 7) << message;
    EXPECT_EQ(candle.messages.size(), 6u);
    EXPECT_EQ(send(ToHost::OutputCount, int(handle) + 1), 0);
    EXPECT_EQ(candle.messages.size(), 6u);
}

TEST_F(CoreTest, AnUnknownMessageIsReportedOnceAndAnsweredWithZero) {
    struct Listener : Front {
        void tell(Level, const QString &sentence) override { sentences << sentence; }
        QStringList sentences;
    } listener;
    host.setFront(&listener);
    EXPECT_EQ(send(3999), 0);
    EXPECT_EQ(send(3999), 0);
    ASSERT_EQ(listener.sentences.size(), 1);
    EXPECT_TRUE(listener.sentences.first().contains("3999"));
    host.setFront(nullptr);
}

TEST_F(CoreTest, NullRecordsAreRefusedWithoutACrash) {
    host.addService<EventService>();
    host.addService<TextService>();
    host.addService<DateService>();
    Recorder &candle = host.addService<Recorder>("CANDLE");
    const Handle handle = host.objects().add(std::make_shared<TestObject>(candle, true));
    for (unsigned message = 3000; message < 3300; ++message)
        send(message);
    // A handle without the record that belongs to it.
    for (const unsigned message : {ToHost::InterfaceNames,
                                   ToHost::Subscribe,
                                   ToHost::Unsubscribe,
                                   ToHost::SystemNumber,
                                   ToHost::InterfaceOfObject,
                                   ToHost::LinkCount,
                                   ToHost::Links,
                                   ToHost::Identity,
                                   ToHost::BindLoadedLine,
                                   ToHost::HorizontalLevels,
                                   ToHost::ObjectProperties,
                                   ToHost::FullPath,
                                   ToHost::SourceInterface,
                                   ToHost::SourceName,
                                   ToHost::SourcePeriod,
                                   ToHost::DisplayNames,
                                   ToHost::BaseObject,
                                   ToHost::OwnerLineNumber,
                                   ToHost::MenuText,
                                   ToHost::ObjectOfNumber})
        send(message, int(handle));
    EXPECT_TRUE(host.objects().find(handle));
}

TEST_F(CoreTest, AnObjectTellsItsIdentity) {
    Recorder &candle = host.addService<Recorder>("CANDLE");
    const Handle instrument = host.objects().add(std::make_shared<TestObject>(candle, true));
    const Handle first =
        host.objects().add(std::make_shared<TestObject>(candle, false, std::vector<Handle>{instrument}));
    const Handle second =
        host.objects().add(std::make_shared<TestObject>(candle, false, std::vector<Handle>{first}));
    const Handle alone = host.objects().add(std::make_shared<TestObject>(candle, false));

    const auto word = [this](unsigned message, Handle handle) {
        Word value = 0;
        send(message, int(handle), toWord(&value));
        return value;
    };
    const auto level = [this](Handle handle) {
        auto record = zeroRecord<coreIndicatorIdentity>();
        send(ToHost::Identity, int(handle), toWord(&record));
        return record.m_nLevelDpa;
    };
    EXPECT_EQ(word(ToHost::InterfaceOfObject, second), candle.handleOf);
    EXPECT_EQ(word(ToHost::BaseObject, second), instrument);
    EXPECT_EQ(word(ToHost::BaseObject, instrument), 0u);
    EXPECT_EQ(word(ToHost::OwnerLineNumber, instrument), 1u);
    EXPECT_EQ(word(ToHost::OwnerLineNumber, first), 2u);
    EXPECT_EQ(word(ToHost::LinkCount, first), 1u);
    EXPECT_NE(word(ToHost::SystemNumber, first), word(ToHost::SystemNumber, second));
    EXPECT_EQ(word(ToHost::ObjectOfNumber, word(ToHost::SystemNumber, first)), first);
    EXPECT_EQ(level(instrument), 0u);
    EXPECT_EQ(level(first), 1u);
    EXPECT_EQ(level(second), 2u);
    EXPECT_EQ(level(alone), 1u);
    EXPECT_EQ(level(0), 0u);

    auto identity = zeroRecord<coreIndicatorIdentity>();
    send(ToHost::Identity, int(instrument), toWord(&identity));
    EXPECT_EQ(+identity.sInterfaceObject.m_object, instrument);
    EXPECT_EQ(fieldText(identity.sNameInterface.nameIntreface), "CANDLE");
    EXPECT_EQ(readText(identity.sNameInstrument.m_szNameSymbol, 255), "EUR/USD");
    EXPECT_NE(+identity.nSzNumber, 0u);
}

TEST_F(CoreTest, TheFullPathNamesTheSourcesTopmostFirst) {
    Recorder &candle = host.addService<Recorder>("CANDLE");
    const Handle instrument = host.objects().add(std::make_shared<TestObject>(candle, true));
    const Handle first =
        host.objects().add(std::make_shared<TestObject>(candle, false, std::vector<Handle>{instrument}));
    const Handle second =
        host.objects().add(std::make_shared<TestObject>(candle, false, std::vector<Handle>{first}));
    const Handle alone = host.objects().add(std::make_shared<TestObject>(candle, false));

    const auto path = [this](Handle handle) {
        Word chain[8];
        std::fill(std::begin(chain), std::end(chain), 0xffffffffu);
        coreFullPathHandle record{reinterpret_cast<char *>(chain), sizeof chain};
        send(ToHost::FullPath, int(handle), toWord(&record));
        std::vector<Word> result;
        for (const Word word : chain) {
            if (word == 0)
                return result;
            result.push_back(word);
        }
        return result;
    };
    const auto nearest = [this](Handle handle) {
        coreFullPathHandle record{nullptr, 1};
        send(ToHost::FullPath, int(handle), toWord(&record));
        return Word(toWord(record.buffer));
    };
    EXPECT_EQ(path(instrument), std::vector<Word>{});
    EXPECT_EQ(path(second), (std::vector<Word>{instrument, first}));
    EXPECT_EQ(path(alone), std::vector<Word>{});
    EXPECT_EQ(nearest(instrument), 0u);
    EXPECT_EQ(nearest(second), first);
    EXPECT_EQ(nearest(alone), alone);
}

TEST_F(CoreTest, LevelsLinksAndNamesFillTheirRecords) {
    Recorder &candle = host.addService<Recorder>("CANDLE");
    const auto object = std::make_shared<TestObject>(candle, true, std::vector<Handle>{}, 2);
    const Handle handle = host.objects().add(object);

    auto levels = zeroRecord<coreHorizontLine>();
    send(ToHost::HorizontalLevels, int(handle), toWord(&levels));
    EXPECT_EQ(+levels.line, 1);
    EXPECT_EQ(+levels.count, 2);
    EXPECT_EQ(+levels.levels[1], 70.0f);

    coreIndicatorLinks room[2];
    coreListIndicatorLinks links{2, room};
    send(ToHost::Links, int(handle), toWord(&links));
    EXPECT_EQ(+links.count, 1);
    EXPECT_EQ(+room[0].colorMode, 2u);
    coreListIndicatorLinks none{0, room};
    send(ToHost::Links, int(handle), toWord(&none));
    EXPECT_EQ(+none.count, 0);

    auto names = zeroRecord<coreDisplayNames>();
    fillField(names.symbol, QStringLiteral("EUR"));
    send(ToHost::DisplayNames, int(handle), toWord(&names));
    EXPECT_EQ(fieldText(names.symbol), "EUR");
    EXPECT_EQ(fieldText(names.suffix), "USD");
    EXPECT_EQ(fieldText(names.alias), "EUR/USD");

    Word line = 0;
    send(ToHost::LineNumberOfArray, toWord(object->outputs()[1]), toWord(&line));
    EXPECT_EQ(line, 2u);
    coreBoundLine bound{2, nullptr};
    EXPECT_EQ(send(ToHost::BindLoadedLine, int(handle), toWord(&bound)), 0);
    EXPECT_EQ(+bound.array, object->outputs()[1]);
    bound = {3, nullptr};
    EXPECT_EQ(send(ToHost::BindLoadedLine, int(handle), toWord(&bound)), 1);
    EXPECT_EQ(+bound.array, nullptr);

    unsigned short text[255];
    send(ToHost::MenuText, int(handle), toWord(text));
    EXPECT_EQ(fieldText(text), "Test (14)");
}

TEST_F(CoreTest, AnUpdateReachesEachSubscribedWindowOnce) {
    Recorder &candle = host.addService<Recorder>("CANDLE");
    const Handle handle = host.objects().add(std::make_shared<TestObject>(candle, true));
    coreChartWindow window{1, fromWord<CRGraphWidget>(Word(0x10))};
    coreChartWindow other{1, fromWord<CRGraphWidget>(Word(0x20))};
    send(ToHost::Subscribe, int(handle), toWord(&window));
    send(ToHost::Subscribe, int(handle), toWord(&window));
    send(ToHost::Subscribe, int(handle), toWord(&other));
    EXPECT_EQ(candle.changes.size(), 2u);

    std::vector<Word> windows;
    answer = [&windows, handle](unsigned message, int wParam, int) {
        if (message == ToModule::UpdateData) {
            const auto &record = *fromWord<coreCoreUpdateDpaData>(wParam);
            EXPECT_EQ(Word(toWord(record.owner)), handle);
            EXPECT_EQ(+record.updateKind, 1);
            windows.push_back(Word(toWord(record.widget)));
        }
        return 0;
    };
    host.notifyUpdate(handle, 1);
    EXPECT_EQ(windows, (std::vector<Word>{0x10, 0x20}));

    windows.clear();
    send(ToHost::WindowGoesAway, toWord(&window));
    send(ToHost::Unsubscribe, int(handle), toWord(&other));
    host.notifyUpdate(handle, 1);
    EXPECT_TRUE(windows.empty());
    EXPECT_FALSE(candle.changes.back().second);
}

// The same series can stand on a chart twice; taking one of them off leaves the other alive.
TEST_F(CoreTest, AWindowThatFollowsAnObjectTwiceIsToldUntilBothAreGone) {
    Recorder &candle = host.addService<Recorder>("CANDLE");
    const Handle handle = host.objects().add(std::make_shared<TestObject>(candle, true));
    coreChartWindow window{1, fromWord<CRGraphWidget>(Word(0x10))};
    int updates = 0;
    answer = [&updates](unsigned message, int, int) {
        updates += message == ToModule::UpdateData;
        return 0;
    };
    send(ToHost::Subscribe, int(handle), toWord(&window));
    send(ToHost::Subscribe, int(handle), toWord(&window));
    send(ToHost::Unsubscribe, int(handle), toWord(&window));
    host.notifyUpdate(handle, 1);
    EXPECT_EQ(updates, 1);
    EXPECT_EQ(candle.changes.size(), 1u);
    send(ToHost::Unsubscribe, int(handle), toWord(&window));
    host.notifyUpdate(handle, 1);
    EXPECT_EQ(updates, 1);
    EXPECT_EQ(candle.changes.size(), 2u);
}

TEST_F(CoreTest, AnObjectThatGoesInTheMiddleOfAnUpdateEndsIt) {
    Recorder &candle = host.addService<Recorder>("CANDLE");
    const Handle handle = host.objects().add(std::make_shared<TestObject>(candle, true));
    coreChartWindow window{1, fromWord<CRGraphWidget>(Word(0x10))};
    coreChartWindow other{1, fromWord<CRGraphWidget>(Word(0x20))};
    send(ToHost::Subscribe, int(handle), toWord(&window));
    send(ToHost::Subscribe, int(handle), toWord(&other));
    answer = [this, handle](unsigned, int, int) {
        host.objects().remove(handle);
        return 0;
    };
    host.notifyUpdate(handle, 0);
    EXPECT_EQ(received.size(), 1u);
}

TEST_F(CoreTest, EventsReachTheirSubscribersWithTheirOwnPointers) {
    EventService &events = host.addService<EventService>();
    int first = 0;
    auto subscription = zeroRecord<coreEventSubscription>();
    fillField(subscription.name, "SkinEventData");
    subscription.interfaceHandle = 77;
    subscription.subscriber = &first;
    subscription.filter = -1;
    send(ToHost::SubscribeEvent, toWord(&subscription));
    auto creation = zeroRecord<coreEventCreation>();
    fillField(creation.name, "SkinEventData");
    send(ToHost::CreateEvent, toWord(&creation));
    EXPECT_NE(+creation.id, 0u);
    const Word id = creation.id;
    send(ToHost::CreateEvent, toWord(&creation));
    EXPECT_EQ(+creation.id, id);

    std::vector<MVEvent> delivered;
    answer = [&delivered](unsigned message, int wParam, int) {
        if (message == ToModule::ReceiveEvent)
            delivered.push_back(*fromWord<MVEvent>(wParam));
        return 0;
    };
    auto event = zeroRecord<MVEvent>();
    event.code = 3521;
    send(ToHost::EmitEvent, int(id), toWord(&event));
    ASSERT_EQ(delivered.size(), 1u);
    EXPECT_EQ(+delivered[0].interfaceHandle, 77u);
    EXPECT_EQ(+delivered[0].subscriber, &first);
    EXPECT_EQ(+delivered[0].code, 3521u);
    EXPECT_EQ(fieldText(delivered[0].name), "SkinEventData");
    EXPECT_EQ(+event.subscriber, nullptr); // the sender's record stays as it was

    coreSubscriber leave{77, &first};
    send(ToHost::UnsubscribeEvent, toWord(&leave));
    EXPECT_EQ(events.emitEvent("SkinEventData", 1), 0);
}

TEST_F(CoreTest, TextsOfTheModuleAreFoundByItsContextAndId) {
    TextService &texts = host.addService<TextService>();
    auto record = zeroRecord<coreTranslateText>();
    fillField(record.context, "CTranslateGraphic");
    fillField(record.id, "G0150");
    fillField(record.text, "You can not add new candle.");
    send(ToHost::InsertText, toWord(&record));
    EXPECT_EQ(QCoreApplication::translate("CTranslateGraphic", "G0150"), "You can not add new candle.");
    EXPECT_EQ(QCoreApplication::translate("Other", "G0150"), "G0150");

    received.clear();
    texts.setLanguage("Chinese (Simplified)");
    EXPECT_EQ(QCoreApplication::translate("CTranslateGraphic", "G0150"),
              QString::fromUtf8("无法添加新的K线。"));
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(received[0].message, unsigned(ToModule::GlobalParameters));
    texts.setLanguage("No such language");
    EXPECT_EQ(texts.language(), "Chinese (Simplified)");

    coreLanguage languages[2];
    clearRecord(languages);
    coreLanguageList list{0, nullptr};
    send(ToHost::LanguageCount, toWord(&list));
    ASSERT_EQ(+list.count, 2);
    list.languages = languages;
    send(ToHost::Languages, toWord(&list));
    EXPECT_EQ(fieldText(languages[0].name), "English");
    EXPECT_EQ(+languages[0].current, 0u);
    EXPECT_EQ(fieldText(languages[1].name), "Chinese (Simplified)");
    EXPECT_EQ(+languages[1].current, 1u);
}

TEST_F(CoreTest, DatesAreTextsOfTheLanguageInUtc) {
    host.addService<DateService>();
    coreDateFormatters formatters{nullptr, nullptr};
    EXPECT_EQ(send(ToHost::DateFormatters, toWord(&formatters)), 0);
    ASSERT_TRUE(formatters.time && formatters.dateTime);
    QString text;
    formatters.time(1399248000, "dd MMM yyyy h:mm:ss", false, text);
    EXPECT_EQ(text, "05 May 2014 0:00:00");
    formatters.dateTime(QDateTime(QDate(2014, 5, 5), QTime(13, 4), Qt::UTC), "MMM dd", text);
    EXPECT_EQ(text, "May 05");
    DateService::setLocale(QLocale(QLocale::Chinese, QLocale::China));
    formatters.time(1399248000, "MMM yyyy", false, text);
    EXPECT_NE(text, "May 2014");
    EXPECT_TRUE(text.contains("2014"));
    DateService::setLocale(QLocale(QLocale::English, QLocale::UnitedKingdom));
}

TEST_F(CoreTest, TheLogWriterKeepsWhatTheThresholdLetsThrough) {
    Journal journal;
    host.addService<LogService>(journal);
    coreLogWriter writer = nullptr;
    send(ToHost::LogWriter, toWord(&writer));
    ASSERT_TRUE(writer);
    unsigned short name[16];
    unsigned short text[16];
    fillField(name, QStringLiteral("CRGraphModule"));
    fillField(text, QStringLiteral("tick"));
    coreLogRecord record{name, 1, 0, text};
    EXPECT_EQ(writer(&record), 0);
    EXPECT_TRUE(journal.lines().empty());
    record.level = 3;
    writer(&record);
    ASSERT_EQ(journal.lines().size(), 1u);
    EXPECT_EQ(journal.lines()[0].source, "CRGraphModule");
    EXPECT_EQ(journal.lines()[0].text, "tick");
    EXPECT_EQ(writer(nullptr), 1);
}

TEST_F(CoreTest, FoldersAreMadeAndWritable) {
    QTemporaryDir place;
    FolderService &folders = host.addService<FolderService>(place.path());
    auto record = zeroRecord<coreFolderPath>();
    record.folder = Folder::Templates;
    EXPECT_EQ(send(ToHost::FolderPath, toWord(&record)), 0);
    EXPECT_TRUE(QFileInfo(fieldText(record.path)).isDir());
    record.folder = 999;
    EXPECT_EQ(send(ToHost::FolderPath, toWord(&record)), 1);
    EXPECT_TRUE(QFileInfo(folders.workFolder() + "/etc").isDir());

    QFile blocker(place.path() + "/file");
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    FolderService &impossible = host.addService<FolderService>(place.path() + "/file/below");
    EXPECT_TRUE(impossible.workFolder().isEmpty());
    EXPECT_EQ(send(ToHost::FolderPath, toWord(&record)), 1);
}

TEST_F(CoreTest, ThePracticeAccountAnswersItsTables) {
    EventService &events = host.addService<EventService>();
    DealingService &dealing = host.addService<DealingService>(events);
    const Handle desk = find("DEALING", "", "");
    ASSERT_NE(desk, 0u);
    const auto ask = [desk](unsigned message, int wParam, int lParam) {
        return Host::send(fromWord<void>(desk), message, wParam, lParam);
    };
    Word count = 0;
    EXPECT_EQ(ask(ToHost::AccountCount, toWord(&count), 0), 0);
    ASSERT_EQ(count, 1u);
    auto account = zeroRecord<mvdDealAccount>();
    mvdList accounts{1, &account};
    EXPECT_EQ(ask(ToHost::Accounts, toWord(&accounts), 0), 0);
    EXPECT_EQ(+account.interfaceHandle, desk);
    count = 5;
    EXPECT_EQ(ask(ToHost::PositionCount, int(account.account), toWord(&count)), 0);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(ask(ToHost::OrderCount, int(account.account) + 1, toWord(&count)), 1);

    dealing.setDayOff("USD/CHF", true);
    mvdList table{0, nullptr};
    ask(ToHost::DayOffCount, int(account.account), toWord(&table));
    ASSERT_EQ(+table.count, 1);
    mvdDayOff row;
    table.records = &row;
    ask(ToHost::DayOffSymbols, int(account.account), toWord(&table));
    EXPECT_EQ(fieldText(row.symbol), "USD/CHF");
    EXPECT_EQ(+row.dayOff, 1u);
}

TEST_F(CoreTest, ADayOffIsAnEventOfTheAccount) {
    EventService &events = host.addService<EventService>();
    DealingService &dealing = host.addService<DealingService>(events);
    auto subscription = zeroRecord<coreEventSubscription>();
    fillField(subscription.name, "DealingEvent");
    subscription.subscriber = this;
    send(ToHost::SubscribeEvent, toWord(&subscription));
    int code = 0;
    Handle account = 0;
    answer = [&](unsigned, int wParam, int) {
        const auto &event = *fromWord<MVEvent>(wParam);
        code = int(event.code);
        EXPECT_EQ(+event.size, int(sizeof(mvdDealAccount)));
        account = static_cast<mvdDealAccount *>(event.data)->account;
        return 0;
    };
    dealing.setDayOff("USD/CHF", true);
    EXPECT_EQ(code, int(EventCode::DayOffChanged));
    EXPECT_NE(account, 0u);
    EXPECT_TRUE(dealing.isDayOff("USD/CHF"));
}

TEST_F(CoreTest, TheTraceNamesAndDecodesBothDirections) {
    QTemporaryDir place;
    const QString file = place.path() + "/trace.txt";
    ASSERT_EQ(host.trace().open(file), "");
    Recorder &candle = host.addService<Recorder>("CANDLE");
    const Handle handle = host.objects().add(std::make_shared<TestObject>(candle, true));
    find("CANDLE", "VELMAR", "");
    coreChartWindow window{1, fromWord<CRGraphWidget>(Word(0x10))};
    send(ToHost::Subscribe, int(handle), toWord(&window));
    send(3999);
    host.notifyUpdate(handle, 0);
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(written.readAll());
    EXPECT_TRUE(text.contains("module -> core: 3001 find interface {\"CANDLE\"/\"VELMAR\"/\"\" mode 1}"))
        << text.toStdString();
    EXPECT_TRUE(text.contains("3013 subscribe"));
    EXPECT_TRUE(text.contains("= 0 (not answered)"));
    EXPECT_TRUE(text.contains("host -> module: 3009 update data {\"\"")) << text.toStdString();
    EXPECT_NE(host.trace().open(place.path() + "/none/trace.txt"), "");
}

TEST(MessageNames, EveryNumberIsFoundUnderItsOwnRow) {
    int toHost = 0;
    int toModule = 0;
    for (unsigned number = 0; number < 20000; ++number) {
        if (const MessageText *text = messageToHost(number)) {
            EXPECT_EQ(text->number, number);
            ++toHost;
        }
        if (const MessageText *text = messageToModule(number)) {
            EXPECT_EQ(text->number, number);
            ++toModule;
        }
    }
    EXPECT_EQ(toHost, 132);
    EXPECT_EQ(toModule, 52);
}

TEST_F(CoreTest, ALibraryThatIsNoneIsRefusedWithASentence) {
    QTemporaryDir place;
    EXPECT_TRUE(host.load(place.path() + "/none.so").contains("does not exist"));
    EXPECT_TRUE(host.load(place.path()).contains("not a file"));
    QFile text(place.path() + "/text.so");
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no library");
    text.close();
    EXPECT_TRUE(host.load(text.fileName()).contains("cannot be loaded"));
    EXPECT_TRUE(host.load("/lib/i386-linux-gnu/libm.so.6").contains("GetModuleInfo"));
}

} // namespace
