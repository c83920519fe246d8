#include "JsonValue.h"

#include <algorithm>

namespace {

/// Length and text, so that no text can look like the end of itself.
void appendCounted(QString &signature, const QString &text)
{
    signature += QString::number(text.size());
    signature += u':';
    signature += text;
}

} // namespace

JsonValue::JsonValue(Content content)
    : m_content(std::move(content))
{
}

JsonValue::~JsonValue() = default;

const JsonValue *JsonValue::member(QLatin1StringView key) const
{
    const Object *object = toObject();
    if (!object)
        return nullptr;
    const auto found = std::find_if(
        object->begin(), object->end(), [key](const Member &member) { return member.key == key; });
    return found == object->end() ? nullptr : &found->value;
}

void JsonValue::appendSignature(QString &signature) const
{
    signature += QChar(u'a' + ushort(m_content.index()));
    if (const bool *value = toBool()) {
        signature += *value ? u'1' : u'0';
    } else if (const Number *number = toNumber()) {
        appendCounted(signature, number->text);
    } else if (const QString *text = toText()) {
        appendCounted(signature, *text);
    } else if (const List *list = toList()) {
        for (const JsonValue &value : *list)
            value.appendSignature(signature);
        signature += u']';
    } else if (const Object *object = toObject()) {
        for (const Member &member : *object) {
            appendCounted(signature, member.key);
            member.value.appendSignature(signature);
        }
        signature += u'}';
    }
}
