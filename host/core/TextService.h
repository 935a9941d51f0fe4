#pragma once
#include "host/core/Service.h"
#include <QStringList>

#include <memory>

namespace desk {

class TextTranslator;

// The module's texts (3019) and the languages of the desk (3116, 3117). Texts of the module are found by
// context and id, texts of the desk by their English form; both end in one table per language.
class TextService : public Service {
public:
    explicit TextService(Host &host);
    ~TextService() override;
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;

    static QStringList languages(); // "English", "Chinese (Simplified)"
    QString language() const { return m_language; }
    // Installs the language; the module is told (3115), so that it sends its texts again.
    void setLanguage(const QString &language);
    int textCount() const;

private:
    QString m_language;
    std::unique_ptr<TextTranslator> m_translator;
};

} // namespace desk
