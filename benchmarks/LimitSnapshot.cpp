#include "LimitSnapshot.h"

#include "LimitStore.h"

#include <QtCore/QFile>

#include <algorithm>
#include <charconv>

namespace {

constexpr int AxisCount = 4;
constexpr int Decimals = 2;
constexpr quint32 ReadLevel = 1;

template <typename... Form>
QString printed(double number, Form... form)
{
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof(buffer), number, form...).ptr;
    return QString::fromLatin1(buffer, end - buffer);
}

bool areDifferent(const LimitSnapshot::Frozen &a, const LimitSnapshot::Frozen &b)
{
    return (a.display != b.display || a.scaledUnit != b.scaledUnit)
        && (a.native != b.native || a.nativeUnit != b.nativeUnit);
}

} // namespace

void LimitSnapshot::take(const LimitStore &store, const QStringList &names)
{
    const QString scaledUnit = QStringLiteral("A");
    const QString nativeUnit = QStringLiteral("cA");
    m_values.clear();
    m_values.reserve(store.size());
    for (const quint32 address : store.addresses()) {
        const QString &native = store.values().constFind(address)->text;
        const double number = LimitStore::nativeNumber(native) * LimitStore::Factor;
        m_values.insert(address,
            {printed(number, std::chars_format::fixed, Decimals), native, printed(number),
                scaledUnit, nativeUnit, names.at(address), ReadLevel});
    }
}

QList<quint32> LimitSnapshot::different(const LimitSnapshot &other) const
{
    QList<quint32> result;
    for (auto value = m_values.cbegin(); value != m_values.cend(); ++value) {
        const auto match = other.m_values.constFind(value.key());
        if (match == other.m_values.cend() || areDifferent(*value, *match))
            result.append(value.key());
    }
    for (auto value = other.m_values.cbegin(); value != other.m_values.cend(); ++value) {
        if (!m_values.contains(value.key()))
            result.append(value.key());
    }
    return result;
}

bool LimitSnapshot::write(const QString &fileName) const
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    QList<quint32> addresses = m_values.keys();
    std::sort(addresses.begin(), addresses.end());
    QString lines;
    for (const quint32 address : std::as_const(addresses)) {
        const Frozen &value = *m_values.constFind(address);
        lines.append(QLatin1Char('"')).append(QString::number(address % AxisCount + 1));
        lines.append(QLatin1String(".A")).append(QString::number(address / AxisCount));
        lines.append(QLatin1String("\";\"")).append(value.name).append(QLatin1String("\";\""));
        lines.append(value.display).append(QLatin1Char(' ')).append(value.scaledUnit);
        lines.append(QLatin1String("\"\n"));
    }
    file.write(lines.toUtf8());
    return true;
}
