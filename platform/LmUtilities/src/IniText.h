#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>

#include <optional>

namespace LmIniParser {

/// Space and tab: what may stand around a token without belonging to it.
constexpr bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

/// Decodes the quoted token that begins at `at`, over its own bytes: a token is never longer than
/// its quoted form. Moves `at` behind the closing quote. Nothing where the closing quote is missing
/// or an escape is unknown.
std::optional<QByteArrayView> unquoteInPlace(char *&at, const char *end);

/// Builds INI text: tokens stand as they are where the reader takes them so, quoted where it would
/// not.
class IniTextWriter {
public:
    /// `expectedSize` of the text in bytes: exact where nothing needs quotes.
    explicit IniTextWriter(qsizetype expectedSize);

    void addSection(QByteArrayView name);
    void addKey(QByteArrayView key, QByteArrayView value);
    /// The finished text; the writer is used up.
    QByteArray take();

    /// Bytes that a section line or a key line has beside its tokens.
    static constexpr qsizetype SectionOverhead = 4;
    static constexpr qsizetype KeyOverhead = 3;

private:
    char *makeRoom(qsizetype size);

    QByteArray m_text;
    qsizetype m_used = 0;
};

} // namespace LmIniParser
