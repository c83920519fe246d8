#include "apps/import/WideInteger.h"

#include <limits>

QString WideInteger::toText() const
{
    const QString digits = QString::number(m_magnitude);
    return m_isNegative ? QLatin1Char('-') + digits : digits;
}

std::optional<WideInteger> WideInteger::fromText(const QString &text)
{
    const bool isNegative = text.startsWith(QLatin1Char('-'));
    bool isNumber = false;
    const quint64 magnitude = text.mid(isNegative ? 1 : 0).toULongLong(&isNumber, 10);
    if (!isNumber)
        return std::nullopt;
    return WideInteger(magnitude, isNegative);
}

std::optional<WideInteger> WideInteger::sum(WideInteger a, WideInteger b) noexcept
{
    if (a.m_isNegative == b.m_isNegative) {
        if (a.m_magnitude > std::numeric_limits<quint64>::max() - b.m_magnitude)
            return std::nullopt;
        return WideInteger(a.m_magnitude + b.m_magnitude, a.m_isNegative);
    }
    const bool firstIsLarger = a.m_magnitude >= b.m_magnitude;
    const quint64 difference =
        firstIsLarger ? a.m_magnitude - b.m_magnitude : b.m_magnitude - a.m_magnitude;
    return WideInteger(difference, firstIsLarger ? a.m_isNegative : b.m_isNegative);
}
