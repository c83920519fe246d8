#pragma once

#include <QtCore/QString>

#include <variant>
#include <vector>

/// One value of a JSON file. Numbers keep the text of the file, so that nothing is rounded; members
/// keep the order of the file. Immutable after parsing, so that a value's address names it.
class JsonValue {
public:
    struct Member;
    struct Number {
        QString text;
    };
    using List = std::vector<JsonValue>;
    using Object = std::vector<Member>;
    using Content = std::variant<std::monostate, bool, Number, QString, List, Object>;

    JsonValue() = default;
    explicit JsonValue(Content content);
    JsonValue(JsonValue &&) noexcept = default;
    JsonValue &operator=(JsonValue &&) noexcept = default;
    ~JsonValue();

    /// Null where the value is of another type.
    const bool *toBool() const { return std::get_if<bool>(&m_content); }
    const Number *toNumber() const { return std::get_if<Number>(&m_content); }
    const QString *toText() const { return std::get_if<QString>(&m_content); }
    const List *toList() const { return std::get_if<List>(&m_content); }
    const Object *toObject() const { return std::get_if<Object>(&m_content); }
    /// Null where the value is no object or lacks the key.
    const JsonValue *member(QLatin1StringView key) const;

    /// Appends a text that is equal for values written alike and different for all others.
    void appendSignature(QString &signature) const;

private:
    Content m_content;
};

struct JsonValue::Member {
    QString key;
    JsonValue value;
};
