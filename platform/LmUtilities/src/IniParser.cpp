#include <LmUtilities/IniParser.h>

#include "ByteArena.h"
#include "IniText.h"

#include <cstring>
#include <utility>

namespace LmIniParser {

namespace {

constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";
constexpr qsizetype ByteOrderMarkSize = 3;
constexpr qsizetype ReportedLineCount = 10;

char *findByte(char *at, const char *end, char byte)
{
    return static_cast<char *>(std::memchr(at, byte, static_cast<std::size_t>(end - at)));
}

char *skipBlanks(char *at, const char *end)
{
    while (at < end && isBlank(*at))
        ++at;
    return at;
}

char *withoutTrailingBlanks(const char *begin, char *end)
{
    while (end > begin && isBlank(end[-1]))
        --end;
    return end;
}

} // namespace

struct IniParser::NamedSection {
    NamedSection(QByteArrayView sectionName, std::shared_ptr<ByteArena> arena)
        : name(sectionName)
        , content(std::move(arena))
    {
    }

    QByteArrayView name;
    IniSection content;
};

IniParser::IniParser()
    : m_arena(std::make_shared<ByteArena>())
{
}

IniParser::~IniParser() = default;

// text    = [byte-order mark] *(line (LF / CR LF)) [line]
// line    = *blank [section / key / comment] *blank
// section = "[" *blank [quoted / bytes without "]"] *blank "]"
// key     = (quoted / bytes without "=") *blank "=" *blank [quoted / bytes]
// comment = (";" / "#") bytes
// quoted  = <"> *(byte but <">, "\" / escape) <">
// escape  = "\" (<"> / "\" / "n" / "r" / "t" / "x" hex hex)
// blank   = space / tab
//
// A key does not begin with "[", ";" or "#" unless quoted, and is not empty unless quoted. No token
// spans lines: a line end is searched first, everything else within the line.
void IniParser::setIniText(const QByteArray &text)
{
    m_sectionOfName.clear();
    m_sections.clear();
    m_arena = std::make_shared<ByteArena>();
    m_firstMalformedLines.clear();
    m_malformedLineCount = 0;
    // A copy of our own: it is decoded in place, and the text may be borrowed memory.
    m_text = QByteArray(text.constData(), text.size());
    m_utf8Encoded = m_text.startsWith(QByteArrayView(ByteOrderMark, ByteOrderMarkSize));

    char *at = m_text.data() + (m_utf8Encoded ? ByteOrderMarkSize : 0);
    const char *const end = m_text.constData() + m_text.size();
    m_endsWithoutLineEnd = at < end && end[-1] != '\n';
    IniSection *current = nullptr;
    for (qsizetype lineNumber = 1; at < end; ++lineNumber) {
        char *const lineFeed = findByte(at, end, '\n');
        char *const next = lineFeed ? lineFeed + 1 : m_text.data() + m_text.size();
        char *lineEnd = lineFeed ? lineFeed : next;
        if (lineEnd > at && lineEnd[-1] == '\r')
            --lineEnd;
        if (!readLine(at, lineEnd, current) && ++m_malformedLineCount <= ReportedLineCount)
            m_firstMalformedLines.append(lineNumber);
        at = next;
    }
}

bool IniParser::utf8Encoded() const
{
    return m_utf8Encoded;
}

qsizetype IniParser::malformedLineCount() const
{
    return m_malformedLineCount;
}

QList<qsizetype> IniParser::firstMalformedLines() const
{
    return m_firstMalformedLines;
}

bool IniParser::endsWithoutLineEnd() const
{
    return m_endsWithoutLineEnd;
}

QList<QByteArray> IniParser::allSectionNames() const
{
    QList<QByteArray> names;
    names.reserve(static_cast<qsizetype>(m_sections.size()));
    for (const NamedSection &section : m_sections)
        names.append(section.name.toByteArray());
    return names;
}

const IniSection *IniParser::section(QByteArrayView name) const
{
    return m_sectionOfName.value(name);
}

IniSection *IniParser::createSection(QByteArrayView name)
{
    IniSection *const known = m_sectionOfName.value(name);
    return known ? known : sectionOf(m_arena->store(name));
}

void IniParser::removeLastSection()
{
    if (m_sections.empty())
        return;
    m_sectionOfName.remove(m_sections.back().name);
    m_sections.pop_back();
}

QByteArray IniParser::getIniText() const
{
    QByteArray text = getIniTextWithoutByteOrderMarker();
    if (m_utf8Encoded)
        text.prepend(QByteArrayView(ByteOrderMark, ByteOrderMarkSize));
    return text;
}

QByteArray IniParser::getIniTextWithoutByteOrderMarker() const
{
    qsizetype size = 0;
    for (const NamedSection &section : m_sections) {
        size += section.name.size() + IniTextWriter::SectionOverhead;
        for (const IniSection::Entry &entry : section.content.m_entries)
            size += entry.key.size() + entry.value.size() + IniTextWriter::KeyOverhead;
    }
    IniTextWriter writer(size);
    for (const NamedSection &section : m_sections) {
        writer.addSection(section.name);
        for (const IniSection::Entry &entry : section.content.m_entries)
            writer.addKey(entry.key, entry.value);
    }
    return writer.take();
}

bool IniParser::readLine(char *at, char *end, IniSection *&current)
{
    at = skipBlanks(at, end);
    end = withoutTrailingBlanks(at, end);
    if (at == end || *at == ';' || *at == '#')
        return true;
    if (*at == '[') {
        current = readSectionLine(at, end);
        return current != nullptr;
    }
    return current && readKeyLine(at, end, *current);
}

IniSection *IniParser::readSectionLine(char *at, const char *end)
{
    at = skipBlanks(at + 1, end);
    if (at < end && *at == '"') {
        const std::optional<QByteArrayView> name = unquoteInPlace(at, end);
        at = skipBlanks(at, end);
        const bool closed = name && at + 1 == end && *at == ']';
        return closed ? sectionOf(*name) : nullptr;
    }
    char *const close = findByte(at, end, ']');
    if (!close || close + 1 != end)
        return nullptr;
    return sectionOf({at, withoutTrailingBlanks(at, close)});
}

bool IniParser::readKeyLine(char *at, char *end, IniSection &section)
{
    QByteArrayView key;
    if (*at == '"') {
        const std::optional<QByteArrayView> unquoted = unquoteInPlace(at, end);
        at = skipBlanks(at, end);
        if (!unquoted || at == end || *at != '=')
            return false;
        key = *unquoted;
    } else {
        char *const assignment = findByte(at, end, '=');
        if (!assignment || assignment == at)
            return false;
        key = {at, withoutTrailingBlanks(at, assignment)};
        at = assignment;
    }
    at = skipBlanks(at + 1, end);
    QByteArrayView value(at, end);
    if (at < end && *at == '"') {
        const std::optional<QByteArrayView> unquoted = unquoteInPlace(at, end);
        if (!unquoted || at != end)
            return false;
        value = *unquoted;
    }
    section.put(key, value);
    return true;
}

IniSection *IniParser::sectionOf(QByteArrayView name)
{
    IniSection *&section = m_sectionOfName[name];
    if (!section)
        section = &m_sections.emplace_back(name, m_arena).content;
    return section;
}

} // namespace LmIniParser
