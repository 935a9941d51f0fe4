#include "support/Skin.h"

#include <QPixmapCache>

CSkin::CSkin(CRGraphModule *module)
    : m_font(font::chartElement, 8), m_titleFont(font::chartElement, 7), m_module(module) {
    InitSkinData();
}

void CSkin::InitSkinData() {
    m_addIcon = LoadModulePixmap("addgraph.png");
    m_propertiesIcon = LoadModulePixmap("prop.png");
    m_zoomInIcon = LoadModulePixmap("zm1.png");
    m_zoomOutIcon = LoadModulePixmap("zm2.png");
    m_tradeAutoIcon = LoadModulePixmap("tradein.png");
    m_upDealIcon = LoadModulePixmap("up_deal.png");
    m_downDealIcon = LoadModulePixmap("down_deal.png");
    m_upLimitIcon = LoadModulePixmap("up_limit.png");
    m_downLimitIcon = LoadModulePixmap("down_limit.png");
    m_goodSmileIcon = LoadModulePixmap("smile2.png");
    m_badSmileIcon = LoadModulePixmap("smile1.png");
    m_dealIcon = LoadModulePixmap("b_g_deal.png");
}

void CSkin::LoadSkin(const QString &) {
    *this = CSkin(m_module);
}

QPixmap LoadModulePixmap(const QString &name) {
    const QString path = QLatin1String(":/") + name;
    QPixmap pixmap;
    if (!QPixmapCache::find(path, &pixmap) && pixmap.load(path))
        QPixmapCache::insert(path, pixmap);
    return pixmap;
}
