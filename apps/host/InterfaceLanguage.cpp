#include "apps/host/InterfaceLanguage.h"

#include <KrMultilingual/LanguageManager.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

namespace {

constexpr QLatin1StringView TranslationFolder(":/i18n");

} // namespace

InterfaceLanguage::InterfaceLanguage(const QString &language)
    : m_isKnown(LanguageManager::languageList().contains(language))
{
    if (!m_isKnown)
        return;
    LanguageManager::instance()->setActiveLanguage(language);
    installTranslations(language);
}

InterfaceLanguage::~InterfaceLanguage() = default;

/// All texts but those of the firmware library are written in German; of German only these have a file.
void InterfaceLanguage::installTranslations(const QString &language)
{
    const QDir folder(TranslationFolder);
    for (const QString &file : folder.entryList({QStringLiteral("*_%1.qm").arg(language)})) {
        auto translator = std::make_unique<QTranslator>();
        if (translator->load(folder.filePath(file))
            && QCoreApplication::installTranslator(translator.get()))
            m_translators.push_back(std::move(translator));
    }
}
