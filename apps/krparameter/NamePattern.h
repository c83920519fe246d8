#pragma once

#include <QtCore/QRegularExpression>
#include <QtCore/QString>

/// A text to look for in addresses and names: a part of them, or, with "*" and "?", the shape of the
/// whole. Case does not matter.
class NamePattern {
public:
    /// An empty text matches everything.
    explicit NamePattern(const QString &text);

    bool matches(const QString &text) const;

private:
    QString m_part;
    /// Empty where the text has no wildcards.
    QRegularExpression m_shape;
};
