#include <KrMultilingual/LanguageManager.h>

LanguageManager::LanguageManager()
    : m_languages {QStringLiteral("de"), QStringLiteral("en")}
    , m_active(QStringLiteral("de"))
{
}

LanguageManager *LanguageManager::instance()
{
    // Never destroyed: texts are still read while static objects of other libraries end.
    static LanguageManager *const manager = new LanguageManager;
    return manager;
}

const QString &LanguageManager::activeLanguage()
{
    return instance()->m_active;
}

QStringList LanguageManager::languageList()
{
    return instance()->m_languages;
}

bool LanguageManager::setActiveLanguage(const QString &language)
{
    if (!m_languages.contains(language))
        return false;
    if (language == m_active)
        return true;

    // The argument may be a reference to what a listener replaces.
    const QString active = language;
    m_active = active;
    Q_EMIT activeLanguageChanged(active);
    return true;
}

bool LanguageManager::setLanguageList(const QStringList &languages)
{
    if (languages.isEmpty())
        return false;
    m_languages = languages;
    return setActiveLanguage(m_languages.contains(m_active) ? m_active : m_languages.first());
}
