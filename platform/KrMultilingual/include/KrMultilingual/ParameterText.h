#pragma once

#include <KrMultilingual/KrMultilingualExport.h>

#include <QtCore/QMetaType>
#include <QtCore/QSharedDataPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>

class ParameterTextData;

/// A text in several languages, each as a short and a long text. Implicitly shared.
/// A language without a text is answered with the first language that has one, in the order in
/// which the languages were first set, short and long texts each on their own; the languages are
/// codes like "de".
///
/// Variants convert both ways: QString to a text of the active language (short and long alike), and
/// a text to its long text.
class KrMultilingual_EXPORT ParameterText {
public:
    ParameterText() noexcept;
    ParameterText(const ParameterText &other) noexcept;
    ParameterText(ParameterText &&other) noexcept;
    ParameterText &operator=(const ParameterText &other) noexcept;
    ParameterText &operator=(ParameterText &&other) noexcept;
    ~ParameterText();

    /// No language has a text.
    bool isEmpty() const noexcept;
    /// Those that have a text, in the order in which they were first set.
    QStringList languages() const;
    /// In the active language.
    QString shortText() const;
    QString longText() const;
    QString shortText(const QString &language) const;
    QString longText(const QString &language) const;

    /// Replaces both texts; two empty ones remove the language.
    void setText(const QString &language, const QString &shortText, const QString &longText);

    friend KrMultilingual_EXPORT bool operator==(const ParameterText &a, const ParameterText &b);

private:
    QSharedDataPointer<ParameterTextData> d;
};

Q_DECLARE_METATYPE(ParameterText)
Q_DECLARE_TYPEINFO(ParameterText, Q_RELOCATABLE_TYPE);
