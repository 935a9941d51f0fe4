// The look of a skin on a chart window.
#include "chart/GraphArea.h"
#include "chart/TimeScale.h"
#include "chart/TimeScrollBar.h"
#include "objects/ToolBar.h"
#include "support/Skin.h"
#include "tests/unit/module/LinkedHost.h"

#include <gtest/gtest.h>

namespace {

QPixmap plain(const QColor &color) {
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    return pixmap;
}

struct WindowSkin : testing::Test {
    LinkedHost host;
    Chart chart = host.createChart();
    CRGraphWidget &window = host.window(chart);
    CSkin &skin = *module.GetSkin();

    static QRgb iconColor(const QAbstractButton *button) {
        return button->icon().pixmap(16, 16).toImage().pixel(8, 8) & 0xFFFFFF;
    }
};

TEST_F(WindowSkin, GivesItsFontsAndColours) {
    window.CreateArea(-1);
    skin.m_font = CMvGraphFont("Courier New", 12);
    skin.m_titleFont = CMvGraphFont("Courier New", 9);
    skin.m_backColor = 0x010101;
    skin.m_gridColor = 0x020202;
    skin.m_fontColor = 0x030303;
    skin.m_timeBackColor = 0x040404;
    skin.m_timeGridColor = 0x050505;
    skin.m_timeFontColor = 0x060606;
    window.LoadSkinData();
    EXPECT_EQ(QFont(window.m_areaFont), QFont("Courier New", 12));
    EXPECT_EQ(QFont(window.m_titleFont), QFont("Courier New", 9));
    EXPECT_EQ(window.m_backgroundColor, 0x010101u);
    EXPECT_EQ(window.m_gridColor, 0x020202u);
    EXPECT_EQ(window.m_fontColor, 0x030303u);
    EXPECT_EQ(window.m_pTimeScale->m_backgroundColor, 0x040404u);
    EXPECT_EQ(window.m_pTimeScale->m_gridColor, 0x050505u);
    EXPECT_EQ(window.m_pTimeScale->m_fontColor, 0x060606u);
    EXPECT_EQ(window.m_pTimeScale->height(), 34);
    EXPECT_EQ(window.m_chartRect.height(), 600 - window.m_pScrollBar->height() - 34);
    ASSERT_EQ(window.GetAreaCount(), 2);
    for (const CRGraphArea *area : window.m_areas) {
        EXPECT_EQ(area->m_properties.backgroundColor, 0x010101u);
        EXPECT_EQ(area->m_properties.gridColor, 0x020202u);
        EXPECT_EQ(area->m_properties.fontColor, 0x030303u);
        EXPECT_EQ(area->m_properties.font, QFont("Courier New", 12));
    }
}

TEST_F(WindowSkin, WidensTheScalesForItsFont) {
    host.addInstrument(chart, "EURUSD");
    host.tick();
    const int before = window.m_nRightScaleWidth;
    skin.m_font = CMvGraphFont("Arial", 16);
    window.LoadSkinData();
    EXPECT_GT(window.m_nRightScaleWidth, before + 20);
}

TEST_F(WindowSkin, SwitchesAutoScroll) {
    for (const bool on : {false, true}) {
        window.m_pTimeScale->m_nAutoScrollPositions = 11;
        skin.m_autoScroll = on;
        window.LoadSkinData();
        EXPECT_EQ(window.m_pTimeScale->m_bAutoScroll, on);
        EXPECT_EQ(window.m_pTimeScale->m_nAutoScrollPositions, 3);
    }
}

TEST_F(WindowSkin, GivesItsIconsToTheButtons) {
    skin.m_propertiesIcon = plain(0x112233);
    skin.m_zoomInIcon = plain(0x223344);
    skin.m_zoomOutIcon = plain(0x334455);
    window.LoadSkinData();
    EXPECT_EQ(iconColor(window.m_pPropertiesButton), 0x112233u);
    EXPECT_EQ(iconColor(host.zoomInButton), 0x223344u);
    EXPECT_EQ(iconColor(host.zoomOutButton), 0x334455u);
}

TEST_F(WindowSkin, PaintsTheToolBar) {
    constexpr QRgb magenta = 0xFFFF00FF;
    const auto shows = [this](QRgb color) {
        const QImage image = window.ToolBar()->grab().toImage();
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, image.height() / 2) | 0xFF000000) == color)
                return true;
        return false;
    };
    EXPECT_FALSE(shows(magenta));
    skin.m_toolBarImage = plain(Qt::magenta).toImage();
    window.LoadSkinData();
    EXPECT_TRUE(shows(magenta));
    skin.m_toolBarImage = QImage();
    window.LoadSkinData();
    EXPECT_FALSE(shows(magenta)); // the standard picture
}

TEST_F(WindowSkin, BackImageIsDroppedByAFrame) {
    skin.m_backImage = plain(Qt::magenta).toImage();
    const QImage picture = host.grab(chart);
    EXPECT_TRUE(skin.m_backImage.isNull());
    EXPECT_EQ(picture.pixel(400, 100) | 0xFF000000, 0xFFFFFFFF);
}

} // namespace
