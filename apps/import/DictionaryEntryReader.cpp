#include "apps/import/DictionaryEntryReader.h"

#include "apps/import/EdsNumber.h"
#include "apps/import/EdsSection.h"
#include "apps/import/ImportRemarks.h"

namespace {

constexpr quint32 DomainObject = 2;

struct AccessName {
    QLatin1String name;
    eObjectAccess access;
};

constexpr AccessName AccessNames[] = {
    {QLatin1String("ro"), eObjectAccess::ReadOnly},
    {QLatin1String("const"), eObjectAccess::ReadOnly},
    {QLatin1String("wo"), eObjectAccess::WriteOnly},
    {QLatin1String("rw"), eObjectAccess::ReadWrite},
    {QLatin1String("rwr"), eObjectAccess::ReadWrite},
    {QLatin1String("rww"), eObjectAccess::ReadWrite},
};

DictionaryText textOf(const EdsSection &section, const QString &key)
{
    const EdsEntry entry = section.entry(key);
    return {entry.value, entry.line};
}

bool isDomain(const EdsSection &section)
{
    const EdsNumber type = EdsNumber::parse(section.value(QStringLiteral("ObjectType")));
    return type.isNumber() && type.value() == WideInteger(DomainObject, false);
}

eObjectAccess accessOf(const EdsSection &section, ImportRemarks &remarks)
{
    const EdsEntry entry = section.entry(QStringLiteral("AccessType"));
    for (const AccessName &known : AccessNames) {
        if (entry.value.compare(known.name, Qt::CaseInsensitive) == 0)
            return known.access;
    }
    if (entry.value.isEmpty())
        remarks.add(section.line(),
            DictionaryEntryReader::tr("der Abschnitt %1 hat keine Zugriffsart; nur lesbar")
                .arg(ImportRemarks::excerpt(section.name())));
    else
        remarks.add(entry, DictionaryEntryReader::tr("ist keine Zugriffsart; nur lesbar"));
    return eObjectAccess::ReadOnly;
}

} // namespace

std::optional<DictionaryEntry> DictionaryEntryReader::read(
    const EdsSection &section, ImportRemarks &remarks, QString &reason)
{
    if (isDomain(section)) {
        reason = tr("DOMAIN, ein Datenblock ohne eigenen Wert");
        return std::nullopt;
    }
    const QString type = section.value(QStringLiteral("DataType"));
    const auto code = EdsNumber::parse(type).unsignedValue(0xFFFFFFFF);
    if (!code) {
        reason = type.isEmpty()
            ? tr("hat keinen Datentyp")
            : tr("der Datentyp %1 ist keine Zahl").arg(ImportRemarks::excerpt(type));
        return std::nullopt;
    }
    DictionaryEntry entry;
    entry.line = section.line();
    entry.name = section.printable(QStringLiteral("ParameterName"));
    entry.dataType = *code;
    entry.access = accessOf(section, remarks);
    entry.isMappable = section.number(QStringLiteral("PDOMapping"), remarks) != 0;
    entry.defaultValue = textOf(section, QStringLiteral("DefaultValue"));
    entry.lowLimit = textOf(section, QStringLiteral("LowLimit"));
    entry.highLimit = textOf(section, QStringLiteral("HighLimit"));
    entry.configuredValue = textOf(section, QStringLiteral("ParameterValue"));
    return entry;
}
