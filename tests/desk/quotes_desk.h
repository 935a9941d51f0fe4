#pragma once
// A desk without windows: the host's core, quotes and indicators, and a module of the test's own that notes
// what it is told.
#include "host/core/Front.h"
#include "host/core/Host.h"
#include "host/core/IdentityService.h"
#include "host/core/InterfaceService.h"
#include "host/core/SubscriptionService.h"
#include "host/indicators/IndicatorService.h"
#include "host/quotes/CandleService.h"
#include "host/quotes/QuoteBook.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include "quotes_folder.h"
#include <random>

namespace desk {

class QuietFront : public Front {
public:
    void tell(Level, const QString &sentence) override { sentences << sentence; }
    bool confirm(CalculatedObject &object) override {
        ++confirms;
        return consent ? consent(object) : true;
    }
    QStringList sentences;
    int confirms = 0;
    std::function<bool(CalculatedObject &)> consent;
};

class QuoteDesk : public testing::Test {
protected:
    struct Update {
        unsigned message;
        Handle object;
        Handle window;
        int kind;
        std::string name;
    };
    static constexpr Handle window = 0x7001;

    QuoteDesk() {
        told.clear();
        host.setFront(&front);
        host.addService<InterfaceService>();
        host.addService<IdentityService>();
        host.addService<SubscriptionService>();
        candles = &host.addService<CandleService>(book);
        indicators = &host.addService<IndicatorService>(*candles, book);
        host.attachModule(&QuoteDesk::receive);
    }
    ~QuoteDesk() override { host.setFront(nullptr); }

    static int receive(void *, unsigned message, int wParam, int lParam) {
        if (message == ToModule::UpdateData) {
            const auto &record = *fromWord<coreCoreUpdateDpaData>(wParam);
            told.push_back({message, Handle(toWord(record.owner)), Handle(toWord(record.widget)),
                            record.updateKind, fieldText(record.identity.m_szNameSymbol).toStdString()});
        } else if (message == ToModule::RebuildOutputs) {
            const auto &record = *fromWord<coreRebuildDpa>(lParam);
            told.push_back({message, Handle(toWord(record.handle)), Handle(wParam), record.count, ""});
        } else if (message == ToModule::Rename) {
            const auto &record = *fromWord<coreRenameDpa>(lParam);
            told.push_back({message, Handle(toWord(record.handle)), Handle(wParam), 0, ""});
        }
        return 0;
    }

    int send(unsigned message, int wParam = 0, int lParam = 0) {
        return sendTo(host.coreHandle(), message, wParam, lParam);
    }
    int sendTo(Handle target, unsigned message, int wParam = 0, int lParam = 0) {
        return Host::send(fromWord<void>(target), message, wParam, lParam);
    }
    Word word(unsigned message, Handle object, Word start = 0) {
        send(message, int(object), toWord(&start));
        return start;
    }
    Handle instrument(const char *symbol, const char *type, Period period) {
        auto demand = zeroRecord<coreDemandsIndicator>();
        setName(demand.sNameInstrument, QString::fromLatin1(symbol), QString::fromLatin1(type), period);
        send(ToHost::CreateObject, toWord(&demand));
        return Handle(toWord(demand.handle));
    }
    Handle demandIndicator(const char *name, Word number = 0) {
        auto demand = zeroRecord<coreDemandsIndicator>();
        demand.parameter = indicators->interfaceHandle();
        demand.nSzNumber = number;
        fillField(demand.sNameInstrument.m_szNameSymbol, QString::fromLatin1(name));
        send(ToHost::CreateObject, toWord(&demand));
        return Handle(toWord(demand.handle));
    }
    // In the order in which a chart adds one.
    Handle indicator(const char *name, Handle base, int line = 1) {
        const Handle object = demandIndicator(name);
        if (object == 0)
            return 0;
        subscribe(object);
        if (word(ToHost::SourceCount, object, 1) != 0)
            bind(object, base, line);
        EXPECT_EQ(word(ToHost::ConfirmObject, object, 1), 1u);
        arrays(object);
        return object;
    }
    int bind(Handle object, Handle base, int line = 1) {
        mvDataPointArray *source = arrays(base)[size_t(line - 1)];
        coreListCreateData list{1, &source};
        return send(ToHost::HandOverSources, int(object), toWord(&list));
    }
    void subscribe(Handle object, Handle toWindow = window, bool on = true) {
        coreChartWindow chart{0, fromWord<CRGraphWidget>(toWindow)};
        send(on ? ToHost::Subscribe : ToHost::Unsubscribe, int(object), toWord(&chart));
    }
    std::vector<mvDataPointArray *> arrays(Handle object) {
        std::vector<mvDataPointArray *> result(word(ToHost::OutputCount, object));
        coreListCreateData list{int(result.size()), result.data()};
        EXPECT_EQ(send(ToHost::OutputArrays, int(object), toWord(&list)), 0);
        EXPECT_EQ(+list.count, int(result.size()));
        return result;
    }
    template <class Point>
    static std::vector<Point> points(const mvDataPointArray *array) {
        EXPECT_EQ(+array->recordSize, sizeof(Point));
        std::vector<Point> result(size_t(array->count));
        if (array->count > 0)
            std::memcpy(static_cast<void *>(result.data()), array->data, result.size() * sizeof(Point));
        return result;
    }
    std::shared_ptr<CalculatedObject> object(Handle handle) { return host.objects().find(handle); }
    static std::vector<Update> updatesOf(Handle handle) {
        std::vector<Update> result;
        std::copy_if(told.begin(), told.end(), std::back_inserter(result),
                     [handle](const Update &update) { return update.object == handle; });
        return result;
    }

    // Bars of five minutes from a walk of its own, in trading hours of a week from 2012-01-30 on.
    static std::vector<Bar> walk(int count, unsigned seed = 1, qint32 start = 0) {
        std::mt19937 random(seed);
        std::vector<Bar> bars;
        float price = 1.3f;
        qint32 time = start != 0 ? start : utc("2012-01-30 00:00:00");
        while (int(bars.size()) < count) {
            Bar bar{time, price, price, price, price, float(1 + random() % 90)};
            for (int i = 0; i < 6; ++i) {
                price += float(int(random() % 201) - 100) * 1e-5f;
                bar.high = std::max(bar.high, price);
                bar.low = std::min(bar.low, price);
            }
            bar.close = price;
            bars.push_back(bar);
            time = BarCutter({'I', 5}).next(time);
        }
        return bars;
    }
    void give(const char *symbol, std::vector<Bar> bars, Period period = {'I', 5}, Side side = Side::Bid,
              int digits = 5) {
        book.addSymbol({QString::fromLatin1(symbol), digits}).addMade(side, period, std::move(bars));
    }
    bool quote(const char *symbol, qint32 time, float bid) {
        return book.quote(QString::fromLatin1(symbol), {time * 1000LL, bid, bid + 0.0002f, 1});
    }

    QuietFront front;
    QuoteBook book;
    Host host;
    CandleService *candles = nullptr;
    IndicatorService *indicators = nullptr;
    static inline std::vector<Update> told;
};

} // namespace desk
