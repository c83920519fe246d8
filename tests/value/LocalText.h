#pragma once

#include <QtCore/QString>
#include <QtCore/QByteArray>

/// Rows are written with "." as decimal point. This is the text as the system locale of the run
/// shows it: a run under de_DE has "," (LC_ALL is set by the test's registration).
inline QString localText(const QString &text)
{
    const bool isGerman = qgetenv("LC_ALL").startsWith("de");
    return isGerman ? QString(text).replace(QLatin1Char('.'), QLatin1Char(',')) : text;
}
