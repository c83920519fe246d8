#include "Decimal.h"

#include <algorithm>

namespace {

/// Exponents beyond it in either direction are as good as this one: far outside of every type.
constexpr qint64 LargestExponent = 1'000'000;
/// Where counting a written exponent stops; more than any text has digits.
constexpr qint64 ExponentStop = 1'000'000'000'000;

constexpr bool isDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

/// Takes an optional sign off the front; true for "-".
bool takeSign(QStringView &text)
{
    if (text.isEmpty() || (text.front() != u'-' && text.front() != u'+'))
        return false;
    const bool isNegative = text.front() == u'-';
    text = text.sliced(1);
    return isNegative;
}

/// `text` is what follows the "e". Nothing where it is no exponent.
std::optional<qint64> exponentFromText(QStringView text)
{
    const bool isNegative = takeSign(text);
    if (text.isEmpty())
        return std::nullopt;

    qint64 value = 0;
    for (const QChar c : text) {
        if (!isDigit(c.unicode()))
            return std::nullopt;
        value = std::min(value * 10 + (c.unicode() - u'0'), ExponentStop);
    }
    return isNegative ? -value : value;
}

} // namespace

std::optional<Decimal> Decimal::fromText(QStringView text)
{
    Decimal result;
    result.m_isNegative = takeSign(text);

    // Highest digit first here, turned round below.
    qint64 exponent = 0;
    bool hasPoint = false;
    bool hasDigits = false;
    qsizetype position = 0;
    for (; position < text.size(); ++position) {
        const char16_t c = text[position].unicode();
        if (c == u'.' && !hasPoint) {
            hasPoint = true;
            continue;
        }
        if (!isDigit(c))
            break;
        hasDigits = true;
        const bool isKept = result.m_count < KeptDigits;
        if (isKept && (c != u'0' || result.m_count > 0))
            result.m_digits[size_t(result.m_count++)] = quint8(c - u'0');
        exponent += (isKept ? 0 : 1) - (hasPoint ? 1 : 0);
    }
    if (!hasDigits)
        return std::nullopt;
    if (position < text.size()) {
        if (text[position] != u'e' && text[position] != u'E')
            return std::nullopt;
        const std::optional<qint64> written = exponentFromText(text.sliced(position + 1));
        if (!written)
            return std::nullopt;
        exponent += *written;
    }

    std::reverse(result.m_digits.begin(), result.m_digits.begin() + result.m_count);
    result.m_exponent = int(std::clamp(exponent, -LargestExponent, LargestExponent));
    result.trim();
    return result;
}

bool Decimal::isInteger() const
{
    return m_exponent >= 0
        || std::all_of(m_digits.begin(), m_digits.begin() + std::min(-m_exponent, m_count),
            [](quint8 digit) { return digit == 0; });
}

void Decimal::multiply(quint32 factor)
{
    quint64 carry = 0;
    for (int i = 0; i < m_count; ++i) {
        carry += quint64(m_digits[size_t(i)]) * factor;
        m_digits[size_t(i)] = quint8(carry % 10);
        carry /= 10;
    }
    for (; carry != 0; carry /= 10)
        m_digits[size_t(m_count++)] = quint8(carry % 10);
    if (factor == 0)
        trim();
}

void Decimal::extend(int places)
{
    if (isZero() || places <= 0)
        return;
    std::copy_backward(
        m_digits.begin(), m_digits.begin() + m_count, m_digits.begin() + m_count + places);
    std::fill_n(m_digits.begin(), places, quint8(0));
    m_count += places;
    m_exponent -= places;
}

quint32 Decimal::divide(quint32 divisor)
{
    quint64 remainder = 0;
    for (int i = m_count - 1; i >= 0; --i) {
        remainder = remainder * 10 + m_digits[size_t(i)];
        m_digits[size_t(i)] = quint8(remainder / divisor);
        remainder %= divisor;
    }
    while (m_count > 0 && m_digits[size_t(m_count - 1)] == 0)
        --m_count;
    return quint32(remainder);
}

void Decimal::dropRounded(int places)
{
    if (places <= 0)
        return;
    m_exponent += places;
    if (places > m_count) {
        m_count = 0;
        return;
    }

    const bool isRoundedUp = m_digits[size_t(places - 1)] >= 5;
    std::copy(m_digits.begin() + places, m_digits.begin() + m_count, m_digits.begin());
    m_count -= places;
    if (isRoundedUp)
        increment();
}

void Decimal::increment()
{
    int i = 0;
    for (; i < m_count && m_digits[size_t(i)] == 9; ++i)
        m_digits[size_t(i)] = 0;
    if (i == m_count)
        m_digits[size_t(m_count++)] = 0;
    ++m_digits[size_t(i)];
}

QString Decimal::toText() const
{
    Decimal plain = *this;
    plain.trim();
    if (plain.isZero())
        return QStringLiteral("0");

    // Sign, "0.", the digits and as many zeros as the exponent asks for.
    std::array<char16_t, 3 * Capacity> buffer;
    char16_t *out = buffer.data();
    if (plain.m_isNegative)
        *out++ = u'-';
    if (plain.integerDigits() <= 0) {
        *out++ = u'0';
        *out++ = u'.';
        out = std::fill_n(out, -plain.integerDigits(), u'0');
    }
    for (int i = plain.m_count - 1; i >= 0; --i) {
        *out++ = char16_t(u'0' + plain.m_digits[size_t(i)]);
        if (i > 0 && i == -plain.m_exponent)
            *out++ = u'.';
    }
    out = std::fill_n(out, std::max(plain.m_exponent, 0), u'0');
    return QStringView(buffer.data(), out).toString();
}

void Decimal::trim()
{
    while (m_count > 0 && m_digits[size_t(m_count - 1)] == 0)
        --m_count;
    if (m_count == 0) {
        m_exponent = 0;
        m_isNegative = false;
        return;
    }
    int zeros = 0;
    while (m_digits[size_t(zeros)] == 0)
        ++zeros;
    if (zeros == 0)
        return;
    std::copy(m_digits.begin() + zeros, m_digits.begin() + m_count, m_digits.begin());
    m_count -= zeros;
    m_exponent += zeros;
}
