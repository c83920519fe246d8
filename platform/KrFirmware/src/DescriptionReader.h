#pragma once

#include "DescriptionFindings.h"
#include "JsonValue.h"

#include <KrMultilingual/ParameterText.h>

#include <QtCore/QStringList>

#include <initializer_list>
#include <optional>

/// Reads the field types of a description. What is of another type or out of range is refused with
/// what would be accepted, and an empty result is given.
class DescriptionReader {
public:
    explicit DescriptionReader(DescriptionFindings &findings)
        : m_findings(findings)
    {
    }

    DescriptionFindings &findings() const { return m_findings; }
    /// Languages of the description, the first is the fallback.
    const QStringList &languages() const { return m_languages; }
    void setLanguages(const QStringList &languages) { m_languages = languages; }

    /// An object of which every key is one of the given.
    void expectKeys(const JsonValue &value, std::initializer_list<QLatin1StringView> keys) const;
    /// Null, and refused, where the object lacks the key.
    const JsonValue *required(const JsonValue &object, QLatin1StringView key) const;

    /// Empty list or object where refused.
    const JsonValue::List &list(const JsonValue &value) const;
    const JsonValue::Object &object(const JsonValue &value) const;
    QString text(const JsonValue &value) const;
    QString filledText(const JsonValue &value) const;
    QStringList textList(const JsonValue &value) const;
    bool boolean(const JsonValue &value) const;
    /// `least` where refused.
    qint64 wholeNumber(const JsonValue &value, qint64 least, qint64 most) const;
    /// **Range** 0 to 65535, 0 for none.
    int systemStringNumber(const JsonValue &value) const;
    quint32 version(const JsonValue &value) const;
    /// A key that is a whole number written plainly; refused at `value`.
    std::optional<qint32> numberKey(
        const JsonValue::Member &member, qint32 least, qint32 most) const;
    /// A text in languages: a plain text stands for every language.
    ParameterText multilingualText(const JsonValue &value) const;

private:
    void addLanguage(ParameterText &text, const QString &language, const JsonValue &value) const;

    DescriptionFindings &m_findings;
    QStringList m_languages;
};
