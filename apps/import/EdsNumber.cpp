#include "apps/import/EdsNumber.h"

#include <limits>

namespace {

constexpr QLatin1String NodeIdName("NODEID");

int digitOf(QChar c)
{
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9')
        return u - u'0';
    const char16_t lower = u | 0x20U;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

bool isWord(QChar c)
{
    return c.unicode() < 128 && c.isLetterOrNumber();
}

} // namespace

class EdsNumber::Parser {
public:
    Parser(QStringView text, std::optional<quint8> nodeId)
        : m_rest(text)
        , m_nodeId(nodeId)
    {
    }

    EdsNumber parse()
    {
        m_number.m_state = eState::Number;
        int terms = 0;
        bool isSigned = false;
        do {
            bool isNegative = false;
            const bool hasSign = takeSign(isNegative);
            isSigned = isSigned || hasSign;
            if (terms > 0 && !hasSign)
                fail(eState::NoNumber);
            takeTerm(isNegative);
            ++terms;
        } while (m_number.isNumber() && !m_rest.isEmpty());
        if (m_usesNodeId && !m_nodeId)
            fail(eState::NodeIdUnknown);
        m_number.m_isBitPattern = m_number.m_isBitPattern && terms == 1 && !isSigned;
        return m_number;
    }

private:
    bool takeSign(bool &isNegative)
    {
        m_rest = m_rest.trimmed();
        if (m_rest.isEmpty())
            return false;
        isNegative = m_rest.front() == QLatin1Char('-');
        if (!isNegative && m_rest.front() != QLatin1Char('+'))
            return false;
        m_rest = m_rest.sliced(1).trimmed();
        return true;
    }

    void takeTerm(bool isNegative)
    {
        const bool hasDollar = m_rest.startsWith(QLatin1Char('$'));
        qsizetype length = hasDollar ? 1 : 0;
        while (length < m_rest.size() && isWord(m_rest[length]))
            ++length;
        const QStringView word = m_rest.first(length).sliced(hasDollar ? 1 : 0);
        m_rest = m_rest.sliced(length).trimmed();

        if (word.compare(NodeIdName, Qt::CaseInsensitive) == 0)
            addNodeId(isNegative);
        else if (hasDollar)
            fail(eState::NoNumber);
        else
            addLiteral(word, isNegative);
    }

    void addNodeId(bool isNegative)
    {
        m_usesNodeId = true;
        add(WideInteger(m_nodeId.value_or(0), isNegative));
    }

    void addLiteral(QStringView word, bool isNegative)
    {
        const bool isHex = word.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
        const QStringView digits = word.sliced(isHex ? 2 : 0);
        m_number.m_isBitPattern = isHex;
        addDigits(digits, isHex ? 16 : baseOf(digits), isNegative);
    }

    int baseOf(QStringView digits)
    {
        if (digits.size() < 2 || digits.front() != QLatin1Char('0'))
            return 10;
        const bool isDecimal =
            digits.contains(QLatin1Char('8')) || digits.contains(QLatin1Char('9'));
        // A single significant digit means the same in both.
        qsizetype zeros = 0;
        while (zeros < digits.size() && digits[zeros] == QLatin1Char('0'))
            ++zeros;
        m_number.m_hasLeadingZeros =
            m_number.m_hasLeadingZeros || isDecimal || digits.size() - zeros > 1;
        return isDecimal ? 10 : 8;
    }

    void addDigits(QStringView digits, int base, bool isNegative)
    {
        if (digits.isEmpty()) {
            fail(eState::NoNumber);
            return;
        }
        constexpr quint64 Maximum = std::numeric_limits<quint64>::max();
        const auto wideBase = quint64(base);
        quint64 magnitude = 0;
        bool isTooLarge = false;
        for (const QChar c : digits) {
            const int digit = digitOf(c);
            if (digit < 0 || digit >= base) {
                fail(eState::NoNumber);
                return;
            }
            isTooLarge = isTooLarge || magnitude > (Maximum - quint64(digit)) / wideBase;
            magnitude = isTooLarge ? 0 : magnitude * wideBase + quint64(digit);
        }
        if (isTooLarge)
            fail(eState::TooLarge);
        else
            add(WideInteger(magnitude, isNegative));
    }

    void add(WideInteger term)
    {
        if (!m_number.isNumber())
            return;
        if (const auto sum = WideInteger::sum(m_number.m_value, term))
            m_number.m_value = *sum;
        else
            fail(eState::TooLarge);
    }

    void fail(eState state)
    {
        if (!m_number.isNumber())
            return;
        m_number.m_state = state;
        m_number.m_value = {};
    }

    QStringView m_rest;
    std::optional<quint8> m_nodeId;
    EdsNumber m_number;
    bool m_usesNodeId = false;
};

EdsNumber EdsNumber::parse(QStringView text, std::optional<quint8> nodeId)
{
    const qsizetype comment = text.indexOf(QLatin1Char(';'));
    const QStringView number = (comment < 0 ? text : text.first(comment)).trimmed();
    if (number.isEmpty())
        return {};
    return Parser(number, nodeId).parse();
}

std::optional<quint32> EdsNumber::unsignedValue(quint32 maximum) const
{
    if (!isNumber() || m_value.isNegative() || m_value.magnitude() > maximum)
        return std::nullopt;
    return quint32(m_value.magnitude());
}
