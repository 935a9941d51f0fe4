#pragma once

#include "support/Fonts.h"

#include <QImage>
#include <QPixmap>
#include <QRgb>
#include <QString>

class CRGraphModule;

// The look of the charts: fonts, colours, icons and background images.
class CSkin {
public:
    explicit CSkin(CRGraphModule *module);

    void InitSkinData();                // the default look, images from the compiled-in resources
    void LoadSkin(const QString &name); // the look of that name; the default look where it has none

    QString m_path;
    CMvGraphFont m_font;
    CMvGraphFont m_titleFont;
    QRgb m_backColor = 0xFFFFFF;
    QRgb m_gridColor = 0xECE9D8;
    QRgb m_fontColor = 0x7C7B68;
    QRgb m_timeBackColor = 0xFFFFFF;
    QRgb m_timeGridColor = 0xECE9D8;
    QRgb m_timeFontColor = 0x7C7B68;
    QRgb m_toolBarBackColor = 0xF6F6F6;
    QRgb m_toolBarFrontColor = 0x000000;
    QRgb m_tradeBuyColor = 0x84B9E7;
    QRgb m_tradeSellColor = 0x9DE191;
    QRgb m_tradeActiveColor = 0xF6F6F6;
    QRgb m_tradePendingColor = 0xF6F6F6;
    QRgb m_tradeRemovedColor = 0xF6F6F6;
    QRgb m_tradeDoneColor = 0xF6F6F6;
    bool m_autoScroll = true;
    QPixmap m_addIcon;
    QPixmap m_propertiesIcon;
    QPixmap m_zoomInIcon;
    QPixmap m_zoomOutIcon;
    QPixmap m_tradeAutoIcon;
    QPixmap m_dealIcon;
    QImage m_backImage;
    int m_backPosition = 0; // 0 centred, 1 scaled
    QPixmap m_upDealIcon;
    QPixmap m_downDealIcon;
    QPixmap m_upLimitIcon;
    QPixmap m_downLimitIcon;
    QPixmap m_goodSmileIcon;
    QPixmap m_badSmileIcon;
    QImage m_toolBarImage;
    CRGraphModule *m_module = nullptr;
};

// An image of the compiled-in resources; null for an unknown name.
QPixmap LoadModulePixmap(const QString &name);
