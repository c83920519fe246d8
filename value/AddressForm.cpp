#include "value/AddressForm.h"

#include "value/NumberText.h"

#include <limits>

std::optional<ParameterAddress> AddressForm::addressOf(const QString &valueText)
{
    const std::optional<quint64> number = NumberText::toUnsigned(valueText);
    // The invalid number is the largest of 32 bits.
    if (!number || *number >= ParameterAddress::InvalidNumber)
        return {};
    const ParameterAddress address {quint32(*number)};
    return address.isValid() ? std::optional(address) : std::nullopt;
}

QString AddressForm::show(const QString &addressText, const QString &name)
{
    QString text;
    text.reserve(addressText.size() + 1 + name.size());
    text.append(addressText);
    text.append(QLatin1Char(' '));
    return text.append(name);
}

QString AddressForm::read(const QString &text)
{
    const QString typed = text.trimmed();
    if (NumberText::toInteger(typed))
        return typed;
    const qsizetype blank = typed.indexOf(QLatin1Char(' '));
    const ParameterAddress address(blank < 0 ? typed : typed.first(blank), true);
    // A bit plays no part in the number, so the text of one would lose it.
    if (!address.isValid() || address.hasBit())
        return text;
    return NumberText::integer(quint64(address.toNumber()));
}
