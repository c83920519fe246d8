#pragma once

#include "value/ChangeTag.h"

#include <QtCore/QString>

#include <memory>
#include <utility>
#include <vector>

/// What is stored of one element. A text is null where there is none; a stored empty text is not.
struct ElementTexts {
    QString value;
    QString defaultValue;
    ChangeTag valueTag;
    ChangeTag defaultTag;
    bool isHiddenKnown = false;
    bool isHidden = false;

    /// A text as it is stored: never null, so that null means "not there".
    static QString stored(QString text)
    {
        return text.isNull() ? QString(QLatin1String("")) : std::move(text);
    }
    /// Whether it holds nothing that is to be kept.
    bool isEmpty() const
    {
        return value.isNull() && defaultValue.isNull() && valueTag.isEmpty()
            && defaultTag.isEmpty();
    }
};

/// The texts of a record's elements by their position. Most parameters have one element: it stands in
/// the store itself.
class ElementStore {
public:
    size_t size() const { return 1 + (m_rest ? m_rest->size() : 0); }
    /// Null beyond size().
    const ElementTexts *find(size_t position) const
    {
        if (position == 0)
            return &m_first;
        return m_rest && position <= m_rest->size() ? &(*m_rest)[position - 1] : nullptr;
    }
    /// Grows to the position.
    ElementTexts &at(size_t position)
    {
        if (position == 0)
            return m_first;
        if (!m_rest)
            m_rest = std::make_unique<std::vector<ElementTexts>>();
        if (position > m_rest->size())
            m_rest->resize(position);
        return (*m_rest)[position - 1];
    }
    void reserve(size_t size)
    {
        if (size > 1)
            at(size - 1);
    }

private:
    ElementTexts m_first;
    std::unique_ptr<std::vector<ElementTexts>> m_rest;
};
