#include "apps/import/EdsSectionName.h"

#include "apps/import/EdsSection.h"

#include <QtCore/QStringView>

namespace {

using eKind = EdsSectionName::eKind;

struct KnownName {
    QLatin1String name;
    eKind kind;
};

// In the form in which names are compared. The standard itself writes "DeviceComissioning".
constexpr KnownName WholeNames[] = {
    {QLatin1String("mandatoryobjects"), eKind::ObjectList},
    {QLatin1String("optionalobjects"), eKind::ObjectList},
    {QLatin1String("manufacturerobjects"), eKind::ObjectList},
    {QLatin1String("fileinfo"), eKind::Administration},
    {QLatin1String("deviceinfo"), eKind::Administration},
    {QLatin1String("dummyusage"), eKind::Administration},
    {QLatin1String("comments"), eKind::Administration},
    {QLatin1String("devicecomissioning"), eKind::Administration},
    {QLatin1String("devicecommissioning"), eKind::Administration},
    {QLatin1String("dynamicchannels"), eKind::Administration},
    {QLatin1String("tools"), eKind::Administration},
    {QLatin1String("supportedmodules"), eKind::Administration},
    {QLatin1String("connectedmodules"), eKind::Administration},
};

constexpr KnownName Tails[] = {
    {QLatin1String(""), eKind::Object},
    {QLatin1String("name"), eKind::NameList},
    {QLatin1String("default"), eKind::DefaultList},
    {QLatin1String("value"), eKind::ValueList},
    {QLatin1String("denotation"), eKind::Accessory},
    {QLatin1String("objectlinks"), eKind::Accessory},
};

constexpr QLatin1String SubTail("sub");
constexpr quint32 NoNumber = 0xFFFFFFFF;

/// Reads 1 to 4 digits and nothing else.
quint32 hexadecimal(QStringView digits)
{
    if (digits.isEmpty() || digits.size() > 4)
        return NoNumber;
    quint32 value = 0;
    for (const QChar c : digits) {
        const char16_t u = c.unicode();
        if (u >= u'0' && u <= u'9')
            value = value * 16 + (u - u'0');
        else if (u >= u'a' && u <= u'f')
            value = value * 16 + (u - u'a' + 10);
        else
            return NoNumber;
    }
    return value;
}

} // namespace

EdsSectionName EdsSectionName::parse(const QString &name)
{
    const QString comparable = EdsSection::comparable(name);
    for (const KnownName &known : WholeNames) {
        if (comparable == known.name)
            return {known.kind, 0, 0};
    }

    QStringView rest(comparable);
    if (rest.startsWith(QLatin1String("0x")))
        rest = rest.sliced(2);
    const quint32 index = rest.size() < 4 ? NoNumber : hexadecimal(rest.first(4));
    if (index == NoNumber || index == 0)
        return {};
    rest = rest.sliced(4);
    for (const KnownName &known : Tails) {
        if (rest == known.name)
            return {known.kind, quint16(index), 0};
    }

    if (!rest.startsWith(SubTail))
        return {};
    const quint32 subIndex = hexadecimal(rest.sliced(SubTail.size()));
    if (subIndex > 0xFF)
        return {};
    return {eKind::SubObject, quint16(index), quint8(subIndex)};
}
