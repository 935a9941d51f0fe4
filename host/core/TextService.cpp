#include "host/core/TextService.h"
#include "host/core/DateService.h"
#include "host/core/Host.h"
#include "host/core/TextTranslator.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

namespace desk {

namespace {

struct Language {
    const char *name;
    const char *table;
    QLocale::Language locale;
    QLocale::Country country;
};

constexpr Language known[] = {
    {"English", "", QLocale::English, QLocale::UnitedKingdom},
    {"Chinese (Simplified)", ":/texts/chinese.txt", QLocale::Chinese, QLocale::China},
};

} // namespace

TextService::TextService(Host &host)
    : Service(host), m_language(QString::fromLatin1(known[0].name)),
      m_translator(std::make_unique<TextTranslator>()) {
    take(coreHandle(), {ToHost::InsertText, ToHost::LanguageCount, ToHost::Languages});
    QCoreApplication::installTranslator(m_translator.get());
    DateService::setLocale(QLocale(known[0].locale, known[0].country));
}

TextService::~TextService() {
    DateService::setLocale(QLocale(known[0].locale, known[0].country));
    QCoreApplication::removeTranslator(m_translator.get());
}

QStringList TextService::languages() {
    QStringList names;
    for (const Language &language : known)
        names << QString::fromLatin1(language.name);
    return names;
}

int TextService::textCount() const {
    return m_translator->count();
}

bool TextService::handle(Handle, unsigned message, int wParam, int, int &result) {
    if (!wParam)
        return false;
    result = 0;
    if (message == ToHost::InsertText) {
        const auto &record = *fromWord<coreTranslateText>(wParam);
        m_translator->insert(fieldBytes(record.context), fieldBytes(record.id), fieldText(record.text));
        return true;
    }
    auto &list = *fromWord<coreLanguageList>(wParam);
    if (message == ToHost::LanguageCount) {
        list.count = int(std::size(known));
        return true;
    }
    const int count = std::min(int(list.count), int(std::size(known)));
    for (int i = 0; list.languages && i < count; ++i) {
        fillField(list.languages[i].name, known[i].name);
        list.languages[i].current = m_language == QLatin1String(known[i].name) ? 1 : 0;
    }
    return true;
}

void TextService::setLanguage(const QString &language) {
    const auto found =
        std::find_if(std::begin(known), std::end(known), [&language](const Language &candidate) {
            return language == QLatin1String(candidate.name);
        });
    if (found == std::end(known) || m_language == language)
        return;
    m_language = language;
    m_translator->loadTable(QString::fromLatin1(found->table));
    DateService::setLocale(QLocale(found->locale, found->country));
    // Installing again is what tells every widget that its texts changed.
    QCoreApplication::removeTranslator(m_translator.get());
    QCoreApplication::installTranslator(m_translator.get());
    coreGlobalParameters change{1, 1};
    host().sendToModule(ToModule::GlobalParameters, toWord(&change));
}

} // namespace desk
