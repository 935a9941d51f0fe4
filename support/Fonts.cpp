#include "support/Fonts.h"
#include "module/Module.h"

namespace font {

QString Manager::GetFont(elementCode code) const {
    const auto it = m_elements.find(code);
    return it == m_elements.end() ? QStringLiteral("Arial") : it->second.family;
}

void Manager::Insert(const QString &family, std::initializer_list<int> codes) {
    for (int code : codes)
        m_elements[static_cast<elementCode>(code)].family = family;
}

DefaultManager::DefaultManager() {
    Insert("Tahoma", {1, 2, 3, 7, 10, 19, 21});
    Insert("Courier New", {9});
    Insert("Arial", {0, 4, 5, 6, 8, 11, 12, 13, 14, 15, 16, 17, 18, 20});
}

// Code 21 is left out: it falls back to "Arial".
ChinaManager::ChinaManager() {
    Insert("SimSun", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20});
}

Manager *CreateManager(const QString &language) {
    if (language == QLatin1String("Chinese (Simplified)"))
        return new ChinaManager;
    return new DefaultManager;
}

QFont FontOperationSystemFactory::GetFont(const QFont &font) const {
    const auto it = m_fonts.constFind(QFont(font.family(), font.pointSize()));
    return it == m_fonts.constEnd() ? font : QFont(it->family(), it->pointSize());
}

QFont GetOperationSystemFont(const QFont &font) {
    return font;
}

QString familyInForce(const CModule *module, elementCode code) {
    const Manager *manager = module ? module->getFontManager() : nullptr;
    return manager ? manager->GetFont(code) : QStringLiteral("Arial");
}

int sizeInForce(const CModule *module, int size) {
    const Manager *manager = module ? module->getFontManager() : nullptr;
    return manager ? manager->getFontSize(size) : size;
}

} // namespace font
