#include <KrParameterDefinition/ParameterDefinition.h>

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype Nowhere = -1;

RecordParameterDefinition recordOf(const QList<ParameterDefinition::Element> &elements)
{
    QList<RecordParameterDefinition::Element> named;
    named.reserve(elements.size());
    for (const ParameterDefinition::Element &element : elements)
        named.append({element.number, element.name, element.nameCommonTextIndex});
    return RecordParameterDefinition(named);
}

bool hasUsableElements(const ParameterDefinition::Content &content)
{
    const qsizetype described = content.elements.size();
    const bool countFits = content.isRecord
        ? described >= 1 && described <= ParameterDefinition::LastElementCount
        : described == 1 && content.elementCount >= 1
            && content.elementCount <= ParameterDefinition::LastElementCount;
    return countFits
        && std::all_of(content.elements.cbegin(), content.elements.cend(),
            [](const ParameterDefinition::Element &element) { return bool(element.information); });
}

} // namespace

ParameterDefinition::ParameterDefinition(Content content)
    : m_isValid(!content.identifier.isEmpty() && hasUsableElements(content))
    , m_content(std::move(content))
{
    if (!m_content.isRecord)
        return;
    m_record = std::make_unique<const RecordParameterDefinition>(recordOf(m_content.elements));
    m_positions.reserve(m_content.elements.size());
    for (qsizetype position = 0; position < m_content.elements.size(); ++position) {
        const quint16 number = m_content.elements.at(position).number;
        if (!m_positions.contains(number))
            m_positions.insert(number, position);
    }
}

ParameterDefinition::~ParameterDefinition() = default;

const RecordParameterDefinition *ParameterDefinition::queryRecordDefinition() const
{
    return m_record.get();
}

quint16 ParameterDefinition::elementCount() const
{
    return m_record ? m_record->elementCount() : m_content.elementCount;
}

quint32 ParameterDefinition::elementVersion(quint16 element) const
{
    if (!m_record)
        return m_content.version;
    const qsizetype position = recordPosition(element);
    return position == Nowhere ? 0 : m_content.elements.at(position).version;
}

const IParameterElementInformation *ParameterDefinition::queryElementInformation(
    quint16 element) const
{
    if (!m_record)
        return m_content.elements.isEmpty() ? nullptr
                                            : m_content.elements.constFirst().information.get();
    const qsizetype position = recordPosition(element);
    return position == Nowhere ? nullptr : m_content.elements.at(position).information.get();
}

QString ParameterDefinition::elementDefaultValue(quint16 element) const
{
    if (m_record) {
        const qsizetype position = recordPosition(element);
        return position == Nowhere ? QString() : m_content.elements.at(position).defaultValue;
    }
    if (element < m_content.defaultValues.size())
        return m_content.defaultValues.at(element);
    if (!m_content.defaultValues.isEmpty())
        return m_content.defaultValues.constFirst();
    return m_content.elements.isEmpty() ? QString() : m_content.elements.constFirst().defaultValue;
}

bool ParameterDefinition::isParameterIdentical(const ParameterDefinition *other) const
{
    return isSameParameter(other) && m_content.version == other->m_content.version;
}

bool ParameterDefinition::versionsOfTheSameParameter(const ParameterDefinition *other) const
{
    return isSameParameter(other) && m_content.version != other->m_content.version;
}

bool ParameterDefinition::isSameParameter(const ParameterDefinition *other) const
{
    return other && !m_content.identifier.isEmpty()
        && m_content.identifier == other->m_content.identifier;
}

qsizetype ParameterDefinition::recordPosition(quint16 element) const
{
    // Most records count their elements from 0 without a gap.
    if (element < m_content.elements.size() && m_content.elements.at(element).number == element)
        return element;
    return m_positions.value(element, Nowhere);
}
