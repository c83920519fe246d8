#pragma once

#include <KrMultilingual/KrMultilingualExport.h>

#include <QtCore/QMetaType>
#include <QtCore/QSharedDataPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>

class ParameterTextData;

/// A text in several languages, each as a short and a long text. Implicitly shared.
/// A language without a text is answered with the first language that has one, in the order in which
/// the texts were set; the languages are codes like "de".
///
/// Variants convert both ways: QString to a text of the active language, and a text to its long text.
class KrMultilingual_EXPORT ParameterText {
public:
    ParameterText() noexcept;
    ParameterText(const ParameterText &other) noexcept;
    ParameterText(ParameterText &&other) noexcept;
    ParameterText &operator=(const ParameterText &other) noexcept;
    ParameterText &operator=(ParameterText &&other) noexcept;
    ~ParameterText();

    bool isEmpty() const noexcept;
    QStringList languages() const;
    /// In the active language.
    QString shortText() const;
    QString longText() const;
    QString shortText(const QString &language) const;
    QString longText(const QString &language) const;

    void setText(const QString &language, const QString &shortText, const QString &longText);

    friend KrMultilingual_EXPORT bool operator==(const ParameterText &a, const ParameterText &b);

private:
    QSharedDataPointer<ParameterTextData> d;
};

Q_DECLARE_METATYPE(ParameterText)
Q_DECLARE_TYPEINFO(ParameterText, Q_RELOCATABLE_TYPE);
