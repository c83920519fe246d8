#pragma once

#include <LmUtilities/IniSection.h>

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>

#include <deque>
#include <memory>

namespace LmIniParser {

/// Reads and writes INI text, each in one pass. Bytes are never converted: what encoding they are
/// in is the caller's matter, informed by utf8Encoded(). The grammar stands above the reader in
/// IniParser.cpp. Comments are skipped and not kept.
class LmUtilities_EXPORT IniParser {
public:
    IniParser();
    ~IniParser();
    Q_DISABLE_COPY_MOVE(IniParser)

    /// Replaces the content; sections handed out before are gone. Never fails: a line that is
    /// neither section, key nor comment is counted and skipped. A repeated section continues the
    /// first, a repeated key takes the later value. The keys behind an unreadable section line, or
    /// before the first section, belong to none: they are counted and skipped as well.
    void setIniText(const QByteArray &text);
    /// Whether the text set last began with the UTF-8 byte-order mark.
    bool utf8Encoded() const;
    /// Lines of the text set last that were skipped because they could not be read.
    qsizetype malformedLineCount() const;
    /// The numbers of the first ten of them, ascending, counted from 1.
    QList<qsizetype> firstMalformedLines() const;
    /// Whether the text set last had bytes behind its last line end, as a text that was cut has.
    bool endsWithoutLineEnd() const;

    /// In the order of the text, then of creation.
    QList<QByteArray> allSectionNames() const;
    /// Null where there is none. **Owner** the parser.
    const IniSection *section(QByteArrayView name) const;
    /// The section of that name, appended where there is none; its address lasts until the next
    /// setIniText(). **Owner** the parser.
    IniSection *createSection(QByteArrayView name);
    /// The section created last, if any.
    void removeLastSection();
    /// Begins with the byte-order mark where utf8Encoded().
    QByteArray getIniText() const;
    /// Sections and keys in their order, line ends CR LF: equal content gives equal bytes.
    QByteArray getIniTextWithoutByteOrderMarker() const;

private:
    struct NamedSection;

    /// The section that the keys of the following lines belong to; null: none, skip them.
    IniSection *readSectionLine(char *at, const char *end);
    static bool readKeyLine(char *at, char *end, IniSection &section);
    bool readLine(char *at, char *end, IniSection *&current);
    /// Keeps the view of the name.
    IniSection *sectionOf(QByteArrayView name);

    /// The text set last, its quoted tokens decoded in place: the entries read from it are views.
    QByteArray m_text;
    /// The bytes written since, and the names of the sections created.
    std::shared_ptr<ByteArena> m_arena;
    /// A container that leaves its elements where they are when it grows.
    std::deque<NamedSection> m_sections;
    QHash<QByteArrayView, IniSection *> m_sectionOfName;
    QList<qsizetype> m_firstMalformedLines;
    qsizetype m_malformedLineCount = 0;
    bool m_utf8Encoded = false;
    bool m_endsWithoutLineEnd = false;
};

} // namespace LmIniParser
