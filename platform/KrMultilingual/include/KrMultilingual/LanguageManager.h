#pragma once

#include <KrMultilingual/KrMultilingualExport.h>

#include <QtCore/QObject>
#include <QtCore/QStringList>

/// The language in which texts are answered, and the languages there are. One for the process;
/// starts with "de" active out of "de", "en".
class KrMultilingual_EXPORT LanguageManager : public QObject {
    Q_OBJECT

public:
    static LanguageManager *instance();
    static const QString &activeLanguage();
    static QStringList languageList();

    /// **Refused** a language that the list lacks: false, nothing changes.
    /// **Emits** activeLanguageChanged where it differs.
    bool setActiveLanguage(const QString &language);
    /// Replaces the list; an active language that is no longer in it gives way to the first.
    /// **Refused** an empty list.
    bool setLanguageList(const QStringList &languages);

Q_SIGNALS:
    void activeLanguageChanged(const QString &language);

private:
    LanguageManager();

    QStringList m_languages;
    QString m_active;
};
