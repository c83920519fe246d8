#include "LimitStore.h"

#include <QtCore/QByteArrayView>

#include <charconv>
#include <cstring>

namespace {

constexpr int Decimals = 2;
/// Four lines of a key, a number or a short tag.
constexpr qsizetype UsualSavedSize = 80;

/// The text's ASCII digits, without any allocation.
template <size_t Size>
const char *latin1(const QString &text, char (&buffer)[Size])
{
    const qsizetype length = qMin(text.size(), qsizetype(Size));
    for (qsizetype i = 0; i < length; ++i)
        buffer[i] = char(text.at(i).unicode());
    return buffer + length;
}

} // namespace

qint64 LimitStore::nativeNumber(const QString &text)
{
    char buffer[32];
    qint64 number = 0;
    std::from_chars(buffer, latin1(text, buffer), number);
    return number;
}

void LimitStore::create(quint32 address, const QString &defaultText)
{
    m_values.insert(address, {QString(), defaultText, QString(), QString(), -100000, 100000});
    m_order.append(address);
}

void LimitStore::createByText(
    const QString &locatorText, quint32 address, const QString &defaultText)
{
    quint32 &known = m_locatorTexts[locatorText];
    create(address, defaultText);
    known = address;
}

bool LimitStore::write(quint32 address, const QString &text, const QString &tag)
{
    const auto found = m_values.find(address);
    if (found == m_values.end())
        return false;
    char buffer[32];
    double number = 0;
    std::from_chars(buffer, latin1(text, buffer), number);
    const auto native = qint64(number / Factor + (number < 0 ? -0.5 : 0.5));
    if (native < found->lower || native > found->upper)
        return false;
    const auto printed = std::to_chars(buffer, buffer + sizeof(buffer), native);
    found->text = QString::fromLatin1(buffer, printed.ptr - buffer);
    found->tag = tag;
    Q_EMIT valueChanged(address);
    Q_EMIT nativeValueChanged(address);
    Q_EMIT parameterValueChanged(address);
    Q_EMIT parameterNativeValueChanged(address);
    return true;
}

QString LimitStore::display(quint32 address) const
{
    const auto found = m_values.constFind(address);
    if (found == m_values.constEnd())
        return {};
    const double number = double(nativeNumber(found->text)) * Factor;
    char buffer[64];
    const auto printed =
        std::to_chars(buffer, buffer + sizeof(buffer), number, std::chars_format::fixed, Decimals);
    std::memcpy(printed.ptr, " A", 2);
    return QString::fromLatin1(buffer, printed.ptr + 2 - buffer);
}

QByteArray LimitStore::save() const
{
    QByteArray block;
    block.reserve(m_order.size() * UsualSavedSize);
    for (const quint32 address : m_order) {
        const Value &value = *m_values.constFind(address);
        char key[16];
        const auto number = std::to_chars(key, key + sizeof(key), address);
        const QByteArrayView keyText(key, number.ptr - key);
        const auto line = [&](const char *prefix, const QString &text) {
            char bytes[64];
            const char *end = latin1(text, bytes);
            block.append(prefix)
                .append(keyText)
                .append('=')
                .append(bytes, end - bytes)
                .append("\r\n");
        };
        line("V_", value.text);
        line("VC_", value.tag);
        line("DV_", value.defaultText);
        line("DVC_", value.defaultTag);
    }
    return block;
}

void LimitStore::load(const QByteArray &block)
{
    const char *at = block.constData();
    const char *const end = at + block.size();
    while (at < end) {
        const auto *lineEnd = static_cast<const char *>(std::memchr(at, '\n', size_t(end - at)));
        const auto *equals = static_cast<const char *>(std::memchr(at, '=', size_t(lineEnd - at)));
        const auto *underscore =
            static_cast<const char *>(std::memchr(at, '_', size_t(equals - at)));
        quint32 address = 0;
        std::from_chars(underscore + 1, equals, address);
        const QString text = QString::fromLatin1(equals + 1, lineEnd - 1 - (equals + 1));
        const auto found = m_values.find(address);
        if (found != m_values.end()) {
            const bool isTag = underscore[-1] == 'C';
            const bool isDefault = *at == 'D';
            QString &target = isDefault ? (isTag ? found->defaultTag : found->defaultText)
                                        : (isTag ? found->tag : found->text);
            target = text;
        }
        at = lineEnd + 1;
    }
}
