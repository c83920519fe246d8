#include "apps/import/ObjectListCheck.h"

#include "apps/import/EdsFile.h"
#include "apps/import/EdsNumber.h"
#include "apps/import/EdsSectionName.h"
#include "apps/import/ImportRemarks.h"

#include <optional>

namespace {

using Sections = QMap<quint16, ObjectSections>;

/// Some tools leave out the "0x": four digits without it are hexadecimal where such an object is.
std::optional<quint16> listedIndex(const QString &text, const Sections &sections)
{
    bool isHex = false;
    const quint16 bare = text.size() == 4 ? text.toUShort(&isHex, 16) : quint16(0);
    if (isHex && sections.contains(bare))
        return bare;
    const auto index = EdsNumber::parse(text).unsignedValue(0xFFFF);
    if (!index || *index == 0)
        return std::nullopt;
    return quint16(*index);
}

void checkCount(const EdsSection &list, qsizetype count, ImportRemarks &remarks)
{
    const EdsEntry supported = list.entry(QStringLiteral("SupportedObjects"));
    const EdsNumber parsed = EdsNumber::parse(supported.value);
    if (parsed.state() != EdsNumber::eState::Empty
        && parsed.unsignedValue(0xFFFF) != std::optional(quint32(count)))
        remarks.add(supported, ObjectListCheck::tr("weicht ab; die Liste nennt %1").arg(count));
}

/// Adds the indices of one list.
void readList(const EdsSection &list, const Sections &sections, QMap<quint16, int> &lines,
    ImportRemarks &remarks)
{
    qsizetype count = 0;
    for (const EdsEntry &entry : list.entries()) {
        if (!EdsNumber::parse(entry.key).isNumber())
            continue;
        ++count;
        const auto index = listedIndex(entry.value, sections);
        if (!index)
            remarks.add(entry, ObjectListCheck::tr("ist kein Index, übersprungen"));
        else if (!lines.contains(*index))
            lines.insert(*index, entry.line);
    }
    checkCount(list, count, remarks);
}

} // namespace

QList<SkippedObject> ObjectListCheck::run(
    const EdsFile &file, const Sections &sections, ImportRemarks &remarks)
{
    QMap<quint16, int> lines;
    bool hasList = false;
    for (const EdsSection &section : file.sections()) {
        if (EdsSectionName::parse(section.name()).kind != EdsSectionName::eKind::ObjectList)
            continue;
        hasList = true;
        readList(section, sections, lines, remarks);
    }
    for (auto it = sections.cbegin(); hasList && it != sections.cend(); ++it) {
        if (!lines.contains(it.key()))
            remarks.add(it->line,
                tr("%1 steht in keiner Objektliste")
                    .arg(SkippedObject {it.key(), {}, 0, {}}.place()));
    }
    QList<SkippedObject> missing;
    for (auto it = lines.cbegin(); it != lines.cend(); ++it) {
        if (!sections.contains(it.key()))
            missing.append({it.key(), {}, *it, tr("aufgeführt, aber ohne Abschnitt")});
    }
    return missing;
}
