#pragma once

#include <QtCore/QList>
#include <QtCore/QSet>

#include <memory>

class IParameterElementInformation;
class ParameterDefinition;
class RecordParameterDefinition;

/// Knows which elements a parameter has: the one place that asks whether it is a record.
class ElementCatalogue {
public:
    /// Answer for an element that the parameter lacks.
    static constexpr qsizetype NoPosition = -1;
    static constexpr quint16 LeastCount = 1;
    static constexpr quint16 GreatestCount = 16000;

    ElementCatalogue();
    ~ElementCatalogue();
    Q_DISABLE_COPY(ElementCatalogue)
    ElementCatalogue(ElementCatalogue &&) noexcept;
    ElementCatalogue &operator=(ElementCatalogue &&) noexcept;

    /// Takes the elements, and of a simple parameter the count, as they are defined.
    /// **Owner** the caller; the definition outlives the catalogue. Null: no elements.
    void setDefinition(const ParameterDefinition *definition);
    const ParameterDefinition *definition() const { return m_definition; }
    /// Null for a simple parameter.
    const RecordParameterDefinition *record() const { return m_record; }

    bool isRecord() const { return m_record != nullptr; }
    quint16 count() const { return m_count; }
    /// Of a simple parameter. **Range** 1 to 16000.
    void setCount(quint16 count);
    bool contains(quint16 element) const { return position(element) != NoPosition; }
    /// Place of the element in list().
    qsizetype position(quint16 element) const
    {
        if (m_positions)
            return soughtPosition(element);
        return element < m_count ? element : NoPosition;
    }
    /// In the order of the definition.
    QList<quint16> list() const;
    QSet<quint16> set() const;
    /// The key under which overrides and informations are kept: the element of a record, else 0.
    quint16 informationKey(quint16 element) const { return isRecord() ? element : 0; }
    /// Null for an element that the parameter lacks. **Owner** the definition.
    const IParameterElementInformation *information(quint16 element) const;
    /// Whether texts name an element: of a record, or where more than one is defined. A changed count
    /// renames nothing.
    bool isElementNamed() const;

private:
    struct Positions;

    qsizetype soughtPosition(quint16 element) const;

    const ParameterDefinition *m_definition = nullptr;
    const RecordParameterDefinition *m_record = nullptr;
    /// Null where every element stands at the place of its own number.
    std::unique_ptr<const Positions> m_positions;
    quint16 m_count = 0;
};
