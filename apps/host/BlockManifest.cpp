#include "apps/host/BlockManifest.h"

#include <LmUtilities/IniParser.h>

namespace {

constexpr QByteArrayView Header(";type=\"projectmanifest\" version=\"0\"\r\n");
constexpr QByteArrayView SizeKey("Bytes");
constexpr QByteArrayView SectionCountKey("Sections");

std::optional<qsizetype> count(QByteArrayView text)
{
    bool isNumber = false;
    const qlonglong number = text.toByteArray().toLongLong(&isNumber);
    return isNumber && number >= 0 ? std::optional(qsizetype(number)) : std::nullopt;
}

} // namespace

QString BlockManifest::fileName()
{
    return QStringLiteral("Manifest.ini");
}

BlockManifest BlockManifest::fromBytes(const QByteArray &bytes)
{
    LmIniParser::IniParser parser;
    parser.setIniText(bytes);
    BlockManifest manifest;
    if (parser.endsWithoutLineEnd())
        return manifest;
    for (const QByteArray &name : parser.allSectionNames()) {
        const LmIniParser::IniSection &section = *parser.section(name);
        const std::optional<qsizetype> size = count(section.read(SizeKey));
        const std::optional<qsizetype> sections = count(section.read(SectionCountKey));
        if (size && sections)
            manifest.m_entries.insert(QString::fromUtf8(name), {*size, *sections});
    }
    return manifest;
}

QByteArray BlockManifest::toBytes() const
{
    LmIniParser::IniParser parser;
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
        LmIniParser::IniSection &section = *parser.createSection(it.key().toUtf8());
        section.write(SizeKey, QByteArray::number(it->size));
        section.write(SectionCountKey, QByteArray::number(it->sectionCount));
    }
    return Header.toByteArray() + parser.getIniTextWithoutByteOrderMarker();
}

std::optional<BlockManifest::Entry> BlockManifest::entry(const QString &blockName) const
{
    const auto found = m_entries.find(blockName);
    return found == m_entries.end() ? std::nullopt : std::optional(*found);
}

void BlockManifest::note(const QString &blockName, const QByteArray &block)
{
    LmIniParser::IniParser parser;
    parser.setIniText(block);
    m_entries.insert(blockName, {block.size(), parser.allSectionNames().size()});
}
