#pragma once

#include <QtCore/QString>
#include <QtCore/QTranslator>

#include <memory>
#include <vector>

/// The language in which the program and the device speak, for as long as this lives.
class InterfaceLanguage {
public:
    /// **Refused** another language than "de" and "en": isKnown() is false, German stays.
    explicit InterfaceLanguage(const QString &language);
    ~InterfaceLanguage();
    Q_DISABLE_COPY_MOVE(InterfaceLanguage)

    bool isKnown() const { return m_isKnown; }

private:
    void installTranslations(const QString &language);

    std::vector<std::unique_ptr<QTranslator>> m_translators;
    bool m_isKnown;
};
