#pragma once

#include "JsonValue.h"

#include <QtCore/QStringView>

#include <optional>

/// Reads JSON text (RFC 8259) strictly: a key that is repeated in one object, a text with half of a
/// surrogate pair and anything after the value are refused. Depth and count of the values are
/// bounded, so that no input overflows the stack or fills the memory.
class JsonParser {
public:
    static constexpr int DeepestNesting = 32;
    static constexpr qsizetype MostValues = 4'000'000;

    explicit JsonParser(QStringView text)
        : m_text(text)
    {
    }

    /// Nothing where the text is refused; error() then says why. Called once.
    std::optional<JsonValue> parse();
    /// "line 3, column 14: ..."; empty where nothing was refused.
    QString error() const { return m_error; }

private:
    bool parseValue(JsonValue &value, int depth);
    bool parseList(JsonValue &value, int depth);
    bool parseObject(JsonValue &value, int depth);
    bool parseNumber(JsonValue &value);
    bool parseText(QString &text);
    bool parseEscape(QString &text);
    bool parseCodeUnit(QString &text);
    bool parseWord(QLatin1StringView word);
    bool skipDigits();

    void skipBlanks();
    char16_t current() const;
    bool take(char16_t c);
    bool refuse(const QString &reason) { return refuseAt(m_position, reason); }
    bool refuseAt(qsizetype position, const QString &reason);

    QStringView m_text;
    qsizetype m_position = 0;
    qsizetype m_count = 0;
    QString m_error;
};
