#pragma once

#include <LmUtilities/IniSection.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <memory>

namespace LmIniParser {

/// Reads and writes INI text in one pass.
class LmUtilities_EXPORT IniParser {
public:
    IniParser();
    ~IniParser();
    Q_DISABLE_COPY_MOVE(IniParser)

    /// Replaces the content. Never fails: a line that is neither section, key nor comment is counted
    /// and skipped.
    void setIniText(const QByteArray &text);
    /// Whether the text set last began with the UTF-8 byte-order mark.
    bool utf8Encoded() const;
    /// In the order of the text.
    QList<QByteArray> allSectionNames() const;
    /// Null where there is none. **Owner** the parser.
    const IniSection *section(QByteArrayView name) const;
    /// The section of that name, appended where there is none. **Owner** the parser.
    IniSection *createSection(QByteArrayView name);
    QByteArray getIniText() const;
    QByteArray getIniTextWithoutByteOrderMarker() const;
};

} // namespace LmIniParser
