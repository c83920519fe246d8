#pragma once

#include <LmUtilities/IniParser.h>

#include <utility>

using Keys = QList<std::pair<QByteArray, QByteArray>>;
using Sections = QList<std::pair<QByteArray, Keys>>;

inline Sections contentOf(const LmIniParser::IniParser &parser)
{
    Sections sections;
    for (const QByteArray &name : parser.allSectionNames()) {
        Keys keys;
        for (const QByteArray &key : parser.section(name)->keys())
            keys.append({key, parser.section(name)->read(key).toByteArray()});
        sections.append({name, keys});
    }
    return sections;
}

inline Sections contentOf(const QByteArray &text)
{
    LmIniParser::IniParser parser;
    parser.setIniText(text);
    return contentOf(parser);
}

inline QByteArray textOf(const Sections &sections)
{
    LmIniParser::IniParser parser;
    for (const auto &[name, keys] : sections) {
        LmIniParser::IniSection *section = parser.createSection(name);
        for (const auto &[key, value] : keys)
            section->write(key, value);
    }
    return parser.getIniTextWithoutByteOrderMarker();
}

inline QByteArray resaved(const QByteArray &text)
{
    LmIniParser::IniParser parser;
    parser.setIniText(text);
    return parser.getIniText();
}

inline QByteArray repeated(const QByteArray &line, qsizetype size)
{
    return line.repeated(size / line.size());
}
