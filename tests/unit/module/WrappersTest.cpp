// The typed wrappers: what they send, and what they give back without a host.
#include "chart/Primitive.h"
#include "module/HostCalls.h"
#include "module/HostMessages.h"
#include "tests/unit/module/RecordingHost.h"

#include <QToolButton>
#include <gtest/gtest.h>

namespace {

void *handle(Word word) {
    return fromWord<void>(word);
}

TEST(CoreWrapper, WithoutHostGivesTheNeutralValues) {
    RecordingHost host(false);
    const Interface::Core core(&module);
    char id[] = "id", text[] = "text";
    EXPECT_EQ(core.GetInterface("a", "b", "c"), nullptr);
    EXPECT_EQ(core.GetInterface(zeroRecord<coreNameInterface>()), nullptr);
    EXPECT_EQ(core.GetNumberPointArray(nullptr), 0);
    EXPECT_EQ(core.GetNumberOwnerLine(nullptr), 0);
    EXPECT_EQ(core.InsertTranslate("context", id, text), -1);
    EXPECT_EQ(core.AddLs(nullptr, nullptr, nullptr, nullptr), -1);
    EXPECT_EQ(core.DelLs(nullptr, nullptr), -1);
    EXPECT_EQ(core.DelSafeLs(nullptr, nullptr), -1);
    const CRPrimitive primitive(0, nullptr, 0);
    EXPECT_EQ(core.GetCountLs(&primitive), 0);
    EXPECT_TRUE(host.asked.empty());
}

TEST(LsWrapper, WithoutHostGivesTheNeutralValues) {
    RecordingHost host(false);
    const Interface::Ls ls(&module);
    QString name;
    lsSizeOutShape sizes = zeroRecord<lsSizeOutShape>();
    lsControlPointsShapes points = zeroRecord<lsControlPointsShapes>();
    EXPECT_EQ(ls.DeleteObject(nullptr, nullptr), -1);
    EXPECT_EQ(ls.GetName(nullptr, nullptr, nullptr, name), -1);
    EXPECT_EQ(ls.Focus(nullptr, nullptr, true, 0), -1);
    EXPECT_EQ(ls.GetCountControlPoint(nullptr, nullptr), 0);
    EXPECT_EQ(ls.GetCountShape(nullptr, nullptr), 0);
    EXPECT_EQ(ls.GetCountOutShape(nullptr, nullptr, sizes), -1);
    EXPECT_EQ(ls.GetListControlPointer(nullptr, nullptr, points), -1);
    EXPECT_EQ(ls.GetPrecision(nullptr, nullptr), 4);
    EXPECT_TRUE(host.asked.empty());
}

TEST(CoreWrapper, FullPathIsOneStaticRecord) {
    RecordingHost host;
    Word source = 0x10;
    host.answer = [&](const RecordingHost::Asked &call) {
        const void *record = fromWord<void>(call.lParam);
        EXPECT_EQ(bytes::u32(record, 4), 1024u);
        bytes::put<Word>(fromWord<void>(bytes::u32(record, 0)), 0, source++);
        return 0;
    };
    const Interface::Core core(&module);
    const coreFullPathHandle *first = core.GetFullPathHandleDpa(handle(1));
    EXPECT_EQ(bytes::u32(first->buffer, 0), 0x10u);
    const coreFullPathHandle *second = core.GetFullPathHandleDpa(handle(2));
    EXPECT_EQ(first, second);
    EXPECT_EQ(bytes::u32(first->buffer, 0), 0x11u);
    EXPECT_EQ(host.asked[1].wParam, 2);
    EXPECT_EQ(host.asked[1].message, 3093u);
}

TEST(CoreWrapper, ListOfNoStudiesIsNull) {
    RecordingHost host;
    const Interface::Core core(&module);
    const CRPrimitive primitive(0, nullptr, 0);
    Word list = 1;
    int entries = -1;
    host.answer = [&](const RecordingHost::Asked &call) {
        list = bytes::u32(fromWord<void>(call.lParam), 12);
        entries = bytes::i32(fromWord<void>(call.lParam), 8);
        if (list)
            bytes::put<Word>(fromWord<void>(list), 4, 0x77);
        return 0;
    };
    core.GetListLs(&primitive, 0);
    EXPECT_EQ(host.asked.back().message, 3070u);
    EXPECT_EQ(list, 0u);
    EXPECT_EQ(entries, 0);
    EXPECT_EQ(core.GetListLs(&primitive, 2)->list[0].m_object, 0x77u);
    EXPECT_EQ(entries, 2);
    host.answer = nullptr;
    EXPECT_EQ(core.GetListLs(&primitive, 2)->list[0].m_object, 0u); // zeroed before each call
}

TEST(LsWrapper, CreateRecordHoldsNameArrayAndPane) {
    RecordingHost host;
    const Interface::Ls ls(&module);
    const CRPrimitive primitive(0, nullptr, 0);
    bytes::Record seen(275);
    host.answer = [&](const RecordingHost::Asked &call) {
        std::memcpy(seen.data(), fromWord<void>(call.wParam), 275);
        bytes::put<Word>(fromWord<void>(call.wParam), 259, 0x55);
        return 0;
    };
    const lsCreateObject *record = ls.CreateObject("PolyLine", &primitive, handle(0x33));
    EXPECT_EQ(host.asked.back().message, 4500u);
    EXPECT_EQ(toWord(host.asked.back().target), 0x33);
    EXPECT_EQ(bytes::text8(seen.data(), 0, 255), "PolyLine");
    EXPECT_EQ(bytes::u32(seen.data(), 255), 0u);
    EXPECT_EQ(bytes::u32(seen.data(), 259), 0u);
    EXPECT_EQ(Word(record->handle), 0x55u); // a copy: it lies at an odd address
}

TEST(LsWrapper, NamesAndFocus) {
    RecordingHost host;
    const Interface::Ls ls(&module);
    bytes::Record focus(9);
    host.answer = [&](const RecordingHost::Asked &call) {
        if (call.message == ToHost::StudyNames) {
            bytes::putText8(fromWord<void>(call.lParam), 0, 255, "Line");
            bytes::putText16(fromWord<void>(call.lParam), 255, 512, "Trend line");
        }
        if (call.message == ToHost::StudyFocus)
            std::memcpy(focus.data(), fromWord<void>(call.wParam), 9);
        return 3;
    };
    char tool[255];
    QString name;
    EXPECT_EQ(ls.GetName(handle(1), handle(2), tool, name), 3);
    EXPECT_STREQ(tool, "Line");
    EXPECT_EQ(name, "Trend line");
    EXPECT_EQ(ls.Focus(handle(1), handle(2), true, 9), 3);
    EXPECT_EQ(bytes::u32(focus.data(), 0), 2u);
    EXPECT_EQ(bytes::u8(focus.data(), 4), 1);
    EXPECT_EQ(bytes::u32(focus.data(), 5), 9u);
    EXPECT_EQ(ls.GetPrecision(handle(1), handle(2)), 4); // the host left it alone
}

TEST(LsWrapper, RebindAndAttachGoToTheCore) {
    RecordingHost host;
    const Interface::Core core(&module);
    host.answer = [](const RecordingHost::Asked &call) {
        if (call.message == ToHost::AttachLineStudy) {
            EXPECT_EQ(bytes::u32(fromWord<void>(call.lParam), 0), 0x10u);
            EXPECT_EQ(bytes::u32(fromWord<void>(call.lParam), 4), 0x20u);
            EXPECT_EQ(bytes::u32(fromWord<void>(call.lParam), 8), 0x30u);
        }
        return static_cast<int>(call.message);
    };
    EXPECT_EQ(core.AddLs(handle(5), fromWord<mvDataPointArray>(Word(0x10)), handle(0x20), handle(0x30)),
              3068);
    EXPECT_EQ(host.asked[0].wParam, 5);
    EXPECT_EQ(core.DelLs(handle(6), handle(7)), 3071);
    EXPECT_EQ(host.asked[1].wParam, 6);
    EXPECT_EQ(host.asked[1].lParam, 7);
    EXPECT_EQ(core.DelSafeLs(handle(6), handle(7)), 3072);
}

TEST(HostCalls, StartValuesHoldWithoutAnAnswer) {
    RecordingHost host;
    EXPECT_EQ(HostCalls::sourceCount(handle(1)), 1);
    EXPECT_TRUE(HostCalls::confirmObject(handle(1)));
    const unsigned short name[255] = {'M', 'A'};
    EXPECT_TRUE(HostCalls::indicatorNeedsSource(handle(1), name));
    EXPECT_EQ(HostCalls::outputCount(handle(1)), 0);
    EXPECT_EQ(HostCalls::linkCount(handle(1)), 0);
    EXPECT_EQ(HostCalls::interfaceOfObject(handle(1)), nullptr);
    EXPECT_EQ(HostCalls::nearestSource(handle(1)), nullptr);
    EXPECT_EQ(HostCalls::readCrossCursor(handle(1), 1), 1u);
    namePeriod start = zeroRecord<namePeriod>();
    start.period = 'W';
    EXPECT_EQ(HostCalls::sourcePeriod(handle(1), start).period, 'W');
}

TEST(HostCalls, AnsweredCountsNeverExceedTheRoom) {
    RecordingHost host;
    int answered = 99;
    host.answer = [&](const RecordingHost::Asked &call) {
        bytes::put<int>(fromWord<void>(call.lParam), 0, answered);
        return 0;
    };
    EXPECT_EQ(HostCalls::outputArrays(handle(1), 2).size(), 2u);
    EXPECT_EQ(HostCalls::links(handle(1), 3).size(), 3u);
    EXPECT_EQ(HostCalls::reportSymbols(handle(1), handle(2), 4).size(), 4u);
    answered = -5;
    EXPECT_TRUE(HostCalls::outputArrays(handle(1), 2).empty());
    EXPECT_TRUE(HostCalls::links(handle(1), 3).empty());
    EXPECT_TRUE(HostCalls::outputArrays(handle(1), -1).empty());
    EXPECT_TRUE(HostCalls::links(handle(1), 0).empty());
}

TEST(HostCalls, LevelsStayWithinTheRecord) {
    RecordingHost host;
    int count = 1000;
    host.answer = [&](const RecordingHost::Asked &call) {
        bytes::put<int>(fromWord<void>(call.lParam), 4, count);
        return 0;
    };
    EXPECT_EQ(HostCalls::horizontalLevels(handle(1)).count, 64);
    count = -1;
    EXPECT_EQ(HostCalls::horizontalLevels(handle(1)).count, 0);
}

TEST(HostCalls, SubscriptionsNameModuleAndWindow) {
    RecordingHost host;
    auto *window = fromWord<CRGraphWidget>(Word(0x99));
    host.answer = [&](const RecordingHost::Asked &call) {
        const void *record =
            fromWord<void>(call.message == ToHost::WindowGoesAway ? call.wParam : call.lParam);
        EXPECT_EQ(bytes::u32(record, 0), 0x4444u);
        EXPECT_EQ(bytes::u32(record, 4), 0x99u);
        return 0;
    };
    HostCalls::subscribe(handle(1), window);
    HostCalls::unsubscribe(handle(1), window);
    HostCalls::windowGoesAway(window);
    EXPECT_EQ(host.asked[0].message, 3013u);
    EXPECT_EQ(host.asked[1].message, 3014u);
    EXPECT_EQ(host.asked[2].message, 3150u);
}

TEST(HostCalls, WindowsComeInTheOutWordOrAsTheResult) {
    RecordingHost host;
    Word out = 0;
    int result = 0;
    host.answer = [&](const RecordingHost::Asked &call) {
        EXPECT_EQ(call.wParam, 1);
        bytes::put<Word>(fromWord<void>(call.lParam), 0, out);
        return result;
    };
    EXPECT_EQ(HostCalls::zoomSlider(handle(1)), nullptr);
    out = 0x123450;
    EXPECT_EQ(toWord(HostCalls::zoomSlider(handle(1))), 0x123450);
    out = 0;
    QToolButton button;
    result = toWord(&button);
    EXPECT_EQ(HostCalls::toolButton(handle(1), ToHost::ZoomInButton), &button);
    for (const int code : {1, -1, 65535, 0x543210}) {
        result = code;
        EXPECT_EQ(HostCalls::toolButton(handle(1), ToHost::ZoomInButton), nullptr) << code;
    }
}

TEST(HostCalls, ProviderIsTheSecondNameOrTheOnlyOne) {
    RecordingHost host;
    int offset = 255;
    host.answer = [&](const RecordingHost::Asked &call) {
        bytes::putText8(fromWord<void>(call.lParam), offset, 255, "VELMAR");
        return 0;
    };
    EXPECT_EQ(HostCalls::providerName(handle(1)), "VELMAR");
    offset = 0;
    EXPECT_EQ(HostCalls::providerName(handle(1)), "VELMAR");
}

TEST(HostCalls, MilestonesAndCaptions) {
    RecordingHost host;
    bytes::Record milestone(259);
    QString caption;
    host.answer = [&](const RecordingHost::Asked &call) {
        if (call.message == ToHost::Milestone)
            std::memcpy(milestone.data(), fromWord<void>(call.wParam), 259);
        if (call.message == ToHost::CaptionChanged)
            caption = bytes::text16(fromWord<void>(call.lParam), 0, 255);
        return 0;
    };
    HostCalls::milestone(handle(1), "Create area");
    EXPECT_EQ(bytes::u8(milestone.data(), 0), 0);
    EXPECT_EQ(bytes::text8(milestone.data(), 4, 255), "Create area");
    HostCalls::desktopChanged(handle(1));
    for (int i = 0; i < 259; ++i)
        ASSERT_EQ(bytes::u8(milestone.data(), i), 0);
    HostCalls::captionChanged(handle(1), nullptr, QString(400, 'c'));
    EXPECT_EQ(caption, QString(254, 'c'));
}

TEST(HostCalls, InterfacesOfAKindComeInOneCall) {
    RecordingHost host;
    host.answer = [&](const RecordingHost::Asked &call) {
        const void *record = fromWord<void>(call.wParam);
        char *out = fromWord<char>(bytes::u32(record, 769));
        if (call.message == ToHost::CountInterfaces)
            bytes::put<int>(out, 0, 2);
        if (call.message == ToHost::FindInterface) {
            EXPECT_EQ(bytes::u32(record, 765), 2u);
            bytes::put<Word>(out, 0, 0x21);
            bytes::put<Word>(out, 4, 0x22);
        }
        return 0;
    };
    const std::vector<void *> found = HostCalls::findInterfaces("DEALING");
    EXPECT_EQ(found, (std::vector<void *>{handle(0x21), handle(0x22)}));
}

} // namespace
