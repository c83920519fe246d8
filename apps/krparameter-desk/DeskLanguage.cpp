#include "apps/krparameter-desk/DeskLanguage.h"

#include "apps/host/InterfaceLanguage.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>

DeskLanguage::DeskLanguage(QObject *parent)
    : QObject(parent)
{
    choose(QStringLiteral("de"));
}

DeskLanguage::~DeskLanguage() = default;

bool DeskLanguage::choose(const QString &language)
{
    if (language == m_name)
        return true;
    auto chosen = std::make_unique<InterfaceLanguage>(language);
    if (!chosen->isKnown())
        return false;
    m_name = language;
    m_language = std::move(chosen);
    m_toolkit = std::make_unique<QTranslator>();
    if (m_toolkit->load(QStringLiteral("qtbase_") + language,
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(m_toolkit.get());
    Q_EMIT changed();
    return true;
}
