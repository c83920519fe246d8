#pragma once

#include <QtCore/QStringList>

/// The longest of many texts. By letters; so there are several, of which one is widest in a font.
class LongestTexts {
public:
    void add(const QString &text);
    /// The longest first, each once.
    const QStringList &texts() const { return m_texts; }

private:
    QStringList m_texts;
};
