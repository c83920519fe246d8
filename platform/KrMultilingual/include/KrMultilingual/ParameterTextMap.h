#pragma once

#include <KrMultilingual/ParameterText.h>

#include <QtCore/QList>
#include <QtCore/QMap>

/// Number to text, ascending: the entries of a choice.
///
/// Variants convert both ways with QVariantMap, whose keys are the numbers in decimal and whose
/// values are texts; other keys are left out when read, and a plain string is a text too.
class KrMultilingual_EXPORT ParameterTextMap {
public:
    bool isEmpty() const { return m_texts.isEmpty(); }
    bool contains(qint32 key) const { return m_texts.contains(key); }
    /// Ascending.
    QList<qint32> keys() const { return m_texts.keys(); }
    /// Empty where the key is absent.
    ParameterText text(qint32 key) const { return m_texts.value(key); }

    void insert(qint32 key, const ParameterText &text) { m_texts.insert(key, text); }

    friend bool operator==(const ParameterTextMap &a, const ParameterTextMap &b)
    {
        return a.m_texts == b.m_texts;
    }

private:
    QMap<qint32, ParameterText> m_texts;
};

Q_DECLARE_METATYPE(ParameterTextMap)
