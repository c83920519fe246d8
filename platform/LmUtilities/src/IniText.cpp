#include "IniText.h"

#include <array>
#include <cstring>
#include <utility>

namespace LmIniParser {

namespace {

/// What a byte means to the reader, as bits.
enum ByteClass : quint8 {
    Control = 1,
    Assignment = 2,
    SectionEnd = 4,
    Blank = 8,
    Quote = 16,
    /// Begins a comment or a section where it is the first byte of a line.
    LineMark = 32,
};

constexpr std::array<quint8, 256> makeByteClasses()
{
    std::array<quint8, 256> classes = {};
    for (std::size_t byte = 0; byte < 0x20; ++byte)
        classes[byte] = Control;
    classes[0x7f] = Control;
    classes[' '] = Blank;
    classes['='] = Assignment;
    classes[']'] = SectionEnd;
    classes['"'] = Quote;
    classes['['] = LineMark;
    classes[';'] = LineMark;
    classes['#'] = LineMark;
    return classes;
}

constexpr std::array<quint8, 256> ByteClasses = makeByteClasses();

quint8 classOf(char byte)
{
    return ByteClasses[static_cast<quint8>(byte)];
}

/// Whether the reader takes the bytes as they are: none of `forbidden` anywhere, none of
/// `forbiddenFirst` in front, no blank at either end.
bool isPlain(QByteArrayView bytes, quint8 forbidden, quint8 forbiddenFirst)
{
    if (bytes.isEmpty())
        return true;
    quint8 seen = 0;
    for (const char byte : bytes)
        seen |= classOf(byte);
    return !(seen & forbidden) && !(classOf(bytes.front()) & (forbiddenFirst | Blank | Quote))
        && !(classOf(bytes.back()) & Blank);
}

QByteArray quoted(QByteArrayView bytes)
{
    static constexpr char HexDigits[] = "0123456789ABCDEF";
    QByteArray text;
    text.reserve(bytes.size() + 8);
    text += '"';
    for (const char byte : bytes) {
        if (byte == '"' || byte == '\\') {
            text += '\\';
            text += byte;
        } else if (!(classOf(byte) & Control)) {
            text += byte;
        } else if (byte == '\n') {
            text += "\\n";
        } else if (byte == '\r') {
            text += "\\r";
        } else if (byte == '\t') {
            text += "\\t";
        } else {
            text += "\\x";
            text += HexDigits[static_cast<quint8>(byte) >> 4];
            text += HexDigits[byte & 15];
        }
    }
    text += '"';
    return text;
}

int hexDigit(char byte)
{
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    if (byte >= 'A' && byte <= 'F')
        return byte - 'A' + 10;
    return byte >= 'a' && byte <= 'f' ? byte - 'a' + 10 : -1;
}

/// Decodes the escape whose byte behind the backslash is at `at` and moves `at` behind it.
std::optional<char> unescape(char *&at, const char *end)
{
    if (at == end)
        return std::nullopt;
    switch (*at++) {
    case '"':
        return '"';
    case '\\':
        return '\\';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    case 'x':
        break;
    default:
        return std::nullopt;
    }
    if (end - at < 2 || hexDigit(at[0]) < 0 || hexDigit(at[1]) < 0)
        return std::nullopt;
    const int value = hexDigit(at[0]) * 16 + hexDigit(at[1]);
    at += 2;
    return static_cast<char>(value);
}

char *put(char *at, QByteArrayView bytes)
{
    if (!bytes.isEmpty())
        std::memcpy(at, bytes.data(), static_cast<std::size_t>(bytes.size()));
    return at + bytes.size();
}

} // namespace

std::optional<QByteArrayView> unquoteInPlace(char *&at, const char *end)
{
    char *const begin = ++at;
    char *decoded = begin;
    while (at < end) {
        const char byte = *at++;
        if (byte == '"')
            return QByteArrayView(begin, decoded);
        if (byte != '\\') {
            *decoded++ = byte;
            continue;
        }
        const std::optional<char> escaped = unescape(at, end);
        if (!escaped)
            return std::nullopt;
        *decoded++ = *escaped;
    }
    return std::nullopt;
}

IniTextWriter::IniTextWriter(qsizetype expectedSize)
    : m_text(expectedSize, Qt::Uninitialized)
{
}

void IniTextWriter::addSection(QByteArrayView name)
{
    QByteArray form;
    if (!isPlain(name, Control | SectionEnd, 0))
        name = form = quoted(name);
    char *at = makeRoom(name.size() + SectionOverhead);
    *at++ = '[';
    at = put(at, name);
    put(at, "]\r\n");
}

void IniTextWriter::addKey(QByteArrayView key, QByteArrayView value)
{
    QByteArray keyForm;
    QByteArray valueForm;
    if (key.isEmpty() || !isPlain(key, Control | Assignment, LineMark))
        key = keyForm = quoted(key);
    if (!isPlain(value, Control, 0))
        value = valueForm = quoted(value);
    char *at = makeRoom(key.size() + value.size() + KeyOverhead);
    at = put(at, key);
    *at++ = '=';
    at = put(at, value);
    put(at, "\r\n");
}

QByteArray IniTextWriter::take()
{
    m_text.truncate(m_used);
    return std::move(m_text);
}

char *IniTextWriter::makeRoom(qsizetype size)
{
    if (m_used + size > m_text.size()) {
        QByteArray larger(qMax(2 * m_text.size(), m_used + size), Qt::Uninitialized);
        put(larger.data(), QByteArrayView(m_text).first(m_used));
        m_text = std::move(larger);
    }
    char *const place = m_text.data() + m_used;
    m_used += size;
    return place;
}

} // namespace LmIniParser
