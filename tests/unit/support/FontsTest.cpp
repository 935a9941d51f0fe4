#include "support/Fonts.h"
#include "tests/unit/support/UnitHost.h"

#include <gtest/gtest.h>

namespace {

TEST(FontsTest, FamiliesByElement) {
    testApplication();
    const font::DefaultManager standard;
    const font::ChinaManager china;
    for (int code = 0; code <= 21; ++code) {
        const bool tahoma =
            code == 1 || code == 2 || code == 3 || code == 7 || code == 10 || code == 19 || code == 21;
        const char *family = tahoma ? "Tahoma" : code == 9 ? "Courier New" : "Arial";
        EXPECT_EQ(standard.GetFont(font::elementCode(code)), family) << code;
        EXPECT_EQ(china.GetFont(font::elementCode(code)), code == 21 ? "Arial" : "SimSun") << code;
    }
    for (int code : {-1, 22, 1000}) {
        EXPECT_EQ(standard.GetFont(font::elementCode(code)), "Arial");
        EXPECT_EQ(china.GetFont(font::elementCode(code)), "Arial");
    }
}

TEST(FontsTest, TheLanguageChoosesTheManager) {
    const struct {
        const char *language;
        int sizeOf8;
    } rows[] = {
        {"Chinese (Simplified)", 10}, {"English", 8}, {"", 8}, {"chinese (simplified)", 8}, {"Russian", 8}};
    for (const auto &row : rows) {
        const std::unique_ptr<font::Manager> manager(font::CreateManager(row.language));
        EXPECT_EQ(manager->getFontSize(8), row.sizeOf8) << row.language;
    }
    EXPECT_EQ(font::Manager().getFontSize(8), 8);
}

TEST(FontsTest, ReplacementsAreFoundByFamilyAndSize) {
    testApplication();
    font::FontOperationSystemFactory factory;
    factory.Insert(QFont("Tahoma", 8), QFont("DejaVu Sans", 9));
    QFont bold("Tahoma", 8);
    bold.setBold(true);
    EXPECT_EQ(factory.GetFont(bold).family(), "DejaVu Sans");
    EXPECT_EQ(factory.GetFont(bold).pointSize(), 9);
    EXPECT_EQ(factory.GetFont(QFont("Tahoma", 9)).family(), "Tahoma");
    EXPECT_EQ(font::GetOperationSystemFont(bold), bold);
}

TEST(FontsTest, AFontFollowsTheSizeRuleAndKeepsTheSizeAskedFor) {
    testApplication();
    const CMvGraphFont before(font::chartElement, 8); // a module that was not started has no manager
    EXPECT_EQ(before.pointSize(), 8);
    EXPECT_EQ(before.family(), "Arial");

    UnitHost host;
    host.answers[3116] = [](int wParam, int) {
        fromWord<coreLanguageList>(wParam)->count = 1;
        return 0;
    };
    host.answers[3117] = [](int wParam, int) {
        coreLanguage &language = fromWord<coreLanguageList>(wParam)->languages[0];
        fillField(language.name, "Chinese (Simplified)");
        language.current = 1;
        return 0;
    };
    host.attach();
    GetModule()->initFonts();
    const CMvGraphFont font(font::chartElement, 8);
    EXPECT_EQ(font.family(), "SimSun");
    EXPECT_EQ(font.pointSize(), 10);
    EXPECT_EQ(font.logicalSize(), 8);
    EXPECT_EQ(font.correctedSize(), 10);
    EXPECT_EQ(font.weight(), 50);
    EXPECT_FALSE(font.italic());
    host.answers.clear();
    GetModule()->initFonts();
    EXPECT_EQ(CMvGraphFont(font::chartElement, 8).pointSize(), 8);
}

TEST(FontMetricsTest, WidthsAreThoseOfQt) {
    testApplication();
    const QFont font("DejaVu Sans", 9);
    const CMvFontMetrics metrics(font);
    EXPECT_EQ(metrics.width("EUR/USD"), QFontMetrics(font).horizontalAdvance("EUR/USD"));
    EXPECT_EQ(metrics.width("EUR/USD", 3), metrics.width("EUR"));
    EXPECT_EQ(metrics.width(QChar('W')), QFontMetrics(font).horizontalAdvance('W'));
}

TEST(FontMetricsTest, TheSecondFrameMeasuresNothing) {
    testApplication();
    clearFontCache();
    const auto frame = [] {
        for (int size : {7, 8, 9}) {
            QFont font("DejaVu Sans", size);
            for (int i = 0; i < 20; ++i) {
                const QString text = QString::number(1.3 + i * 0.001, 'f', 4);
                EXPECT_EQ(textWidth(font, text), QFontMetrics(font).horizontalAdvance(text));
                textRect(font, text, Qt::AlignLeft);
            }
            EXPECT_EQ(textHeight(font), QFontMetrics(font).height());
        }
    };
    const unsigned int built = metricsBuilt();
    frame();
    EXPECT_EQ(metricsBuilt() - built, 3u);
    const unsigned int measured = textsMeasured();
    frame();
    EXPECT_EQ(metricsBuilt() - built, 3u);
    EXPECT_EQ(textsMeasured(), measured);
}

TEST(FontMetricsTest, ATextRectangleIsKeptPerFlags) {
    testApplication();
    const QFont font("DejaVu Sans", 9);
    const QString text = "two\nlines";
    const QRect oneLine = textRect(font, text, Qt::TextSingleLine);
    EXPECT_GT(textRect(font, text, 0).height(), oneLine.height());
    EXPECT_EQ(textRect(font, text, Qt::TextSingleLine), oneLine);
}

TEST(FontMetricsTest, ManyFontsAndTextsDoNotGrowWithoutEnd) {
    testApplication();
    for (int size = 1; size < 40; ++size)
        textWidth(QFont("DejaVu Sans", size), "x");
    const QFont font("DejaVu Sans", 8);
    for (int i = 0; i < 5000; ++i)
        textWidth(font, QString::number(i));
    EXPECT_EQ(textWidth(font, "17"), QFontMetrics(font).horizontalAdvance("17"));
}

} // namespace
