#include "DescriptionFindings.h"

#include "JsonValue.h"

#include <algorithm>
#include <functional>

namespace {

using Visitor = std::function<void(const JsonValue &value, const QString &path)>;

bool isPlainKey(const QString &key)
{
    return !key.isEmpty() && std::all_of(key.cbegin(), key.cend(), [](QChar c) {
        return c == u'_' || c == u'-' || c == u'$' || (c < QChar(0x80) && c.isLetterOrNumber());
    });
}

QString memberPath(const QString &path, const QString &key)
{
    if (!isPlainKey(key))
        return path + QLatin1StringView("[\"") + key + QLatin1StringView("\"]");
    return path.isEmpty() ? key : path + u'.' + key;
}

/// In the order of the file. The parser bounds the depth.
void visit(const JsonValue &value, const QString &path, const Visitor &visitor)
{
    visitor(value, path);
    if (const JsonValue::List *list = value.toList()) {
        for (size_t i = 0; i < list->size(); ++i)
            visit((*list)[i], path + u'[' + QString::number(i) + u']', visitor);
    }
    if (const JsonValue::Object *object = value.toObject()) {
        for (const JsonValue::Member &member : *object)
            visit(member.value, memberPath(path, member.key), visitor);
    }
}

} // namespace

void DescriptionFindings::refuse(const JsonValue &at, const QString &reason)
{
    refuseMissing(at, QString(), reason);
}

void DescriptionFindings::refuseMissing(
    const JsonValue &object, const QString &key, const QString &reason)
{
    if (hasError())
        return;
    m_refused = &object;
    m_missingKey = key;
    m_reason = reason;
}

void DescriptionFindings::warn(const JsonValue &at, const QString &text)
{
    QStringList &texts = m_warnings[&at];
    if (!texts.contains(text))
        texts.append(text);
}

DescriptionError DescriptionFindings::error(const JsonValue &root, const QString &fileName) const
{
    DescriptionError result {fileName, QString(), m_reason};
    visit(root, QString(), [this, &result](const JsonValue &value, const QString &path) {
        if (&value == m_refused)
            result.path = m_missingKey.isEmpty() ? path : memberPath(path, m_missingKey);
    });
    return result;
}

QStringList DescriptionFindings::warnings(const JsonValue &root) const
{
    QStringList result;
    if (m_warnings.isEmpty())
        return result;
    visit(root, QString(), [this, &result](const JsonValue &value, const QString &path) {
        for (const QString &text : m_warnings.value(&value))
            result.append(path + QLatin1StringView(": ") + text);
    });
    return result;
}
