#include "support/Skin.h"

#include <gtest/gtest.h>

namespace {

TEST(Skin, HasTheDefaultLook) {
    const CSkin skin(nullptr);
    EXPECT_TRUE(skin.m_path.isEmpty());
    EXPECT_EQ(skin.m_font.pointSize(), 8);
    EXPECT_EQ(skin.m_titleFont.pointSize(), 7);
    EXPECT_EQ(skin.m_backColor, 0xFFFFFFu);
    EXPECT_EQ(skin.m_gridColor, 0xECE9D8u);
    EXPECT_EQ(skin.m_fontColor, 0x7C7B68u);
    EXPECT_EQ(skin.m_timeBackColor, 0xFFFFFFu);
    EXPECT_EQ(skin.m_timeGridColor, 0xECE9D8u);
    EXPECT_EQ(skin.m_timeFontColor, 0x7C7B68u);
    EXPECT_EQ(skin.m_toolBarBackColor, 0xF6F6F6u);
    EXPECT_EQ(skin.m_toolBarFrontColor, 0x000000u);
    EXPECT_EQ(skin.m_tradeBuyColor, 0x84B9E7u);
    EXPECT_EQ(skin.m_tradeSellColor, 0x9DE191u);
    for (QRgb color : {skin.m_tradeActiveColor, skin.m_tradePendingColor, skin.m_tradeRemovedColor,
                       skin.m_tradeDoneColor})
        EXPECT_EQ(color, 0xF6F6F6u);
    EXPECT_TRUE(skin.m_autoScroll);
    EXPECT_EQ(skin.m_backPosition, 0);
    EXPECT_TRUE(skin.m_backImage.isNull());
    EXPECT_TRUE(skin.m_toolBarImage.isNull());
}

TEST(Skin, ImagesComeFromTheResources) {
    const CSkin skin(nullptr);
    for (const QPixmap *pixmap :
         {&skin.m_addIcon, &skin.m_propertiesIcon, &skin.m_zoomInIcon, &skin.m_zoomOutIcon, &skin.m_tradeAutoIcon,
          &skin.m_dealIcon, &skin.m_upDealIcon, &skin.m_downDealIcon, &skin.m_upLimitIcon, &skin.m_downLimitIcon,
          &skin.m_goodSmileIcon, &skin.m_badSmileIcon})
        EXPECT_FALSE(pixmap->isNull());
    EXPECT_TRUE(LoadModulePixmap("no such image.png").isNull());
    EXPECT_FALSE(LoadModulePixmap("button.png").isNull());
}

TEST(Skin, UnknownNameBringsTheDefaultLookBack) {
    CSkin skin(nullptr);
    skin.m_backColor = 0x123456;
    skin.m_autoScroll = false;
    skin.LoadSkin("no such skin");
    EXPECT_EQ(skin.m_backColor, 0xFFFFFFu);
    EXPECT_TRUE(skin.m_autoScroll);
}

} // namespace
