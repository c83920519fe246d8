#include "apps/import/ParameterConversion.h"

#include "apps/import/ImportRemarks.h"
#include "apps/import/NativeValue.h"

namespace {

/// Converts the value of one simple object or sub-object.
class ElementConversion {
public:
    ElementConversion(const DictionaryEntry &entry, const CanOpenDataType &type,
        const QString &place, std::optional<quint8> nodeId, ImportRemarks &remarks)
        : m_entry(entry)
        , m_type(type)
        , m_place(place)
        , m_nodeId(nodeId)
        , m_remarks(remarks)
    {
    }

    ImportedElement convert()
    {
        m_element.subIndex = m_entry.subIndex;
        m_element.name = m_entry.name;
        m_element.type = &m_type;
        m_element.isWritable = m_entry.access != eObjectAccess::ReadOnly;
        m_element.isWriteOnly = m_entry.access == eObjectAccess::WriteOnly;
        m_element.isMappable = m_entry.isMappable;
        convertLimits();
        convertDefault();
        convertConfiguredValue();
        return m_element;
    }

    /// Of the conversion that was made.
    qsizetype valuesWithoutNodeId() const { return m_valuesWithoutNodeId; }

private:
    void convertLimits()
    {
        if (!m_type.isNumber()) {
            // Texts have no limits; what stands there belongs to no value.
            return;
        }
        m_element.lowerLimit = limit(m_entry.lowLimit, QLatin1String("LowLimit"));
        m_element.upperLimit = limit(m_entry.highLimit, QLatin1String("HighLimit"));
        if (isLess(m_element.upperLimit, m_element.lowerLimit)) {
            remark(m_entry.lowLimit, QLatin1String("LowLimit"),
                ParameterConversion::tr("liegt über HighLimit; beide Grenzen weggelassen"));
            m_element.lowerLimit.clear();
            m_element.upperLimit.clear();
        }
        if (!m_type.isNarrower)
            return;
        if (m_element.lowerLimit.isEmpty())
            m_element.lowerLimit = NativeValue::minimumText(m_type);
        if (m_element.upperLimit.isEmpty())
            m_element.upperLimit = NativeValue::maximumText(m_type);
    }

    QString limit(const DictionaryText &text, QLatin1String key)
    {
        const NativeValue value = read(text, key);
        return value.isGood() ? value.text() : QString();
    }

    void convertDefault()
    {
        const QLatin1String key("DefaultValue");
        const NativeValue value = converted(m_entry.defaultValue);
        const bool isNumber = m_type.isNumber();
        const QString start =
            value.text().isEmpty() && isNumber ? QStringLiteral("0") : value.text();
        m_element.defaultText = isNumber ? nearest(start) : start;
        if (value.state() == NativeValue::eState::Missing)
            return;
        if (value.isGood() && m_element.defaultText != value.text()) {
            remark(m_entry.defaultValue, key,
                ParameterConversion::tr("liegt außerhalb seiner Grenzen; stattdessen %1")
                    .arg(m_element.defaultText));
        } else if (!value.isGood()) {
            const QString instead = isNumber
                ? ParameterConversion::tr("stattdessen %1").arg(m_element.defaultText)
                : ParameterConversion::tr("weggelassen");
            remark(m_entry.defaultValue, key, value.note() + QLatin1String("; ") + instead);
        } else if (!value.note().isEmpty()) {
            remark(m_entry.defaultValue, key, value.note());
        }
    }

    void convertConfiguredValue()
    {
        const QLatin1String key("ParameterValue");
        const NativeValue value = read(m_entry.configuredValue, key);
        if (!value.isGood())
            return;
        m_element.configuredText = value.text();
        if (m_type.isNumber() && nearest(value.text()) != value.text())
            remark(m_entry.configuredValue, key,
                ParameterConversion::tr(
                    "liegt außerhalb seiner Grenzen; übernommen wie konfiguriert"));
    }

    NativeValue read(const DictionaryText &text, QLatin1String key)
    {
        const NativeValue value = converted(text);
        if (!value.isGood() && value.state() != NativeValue::eState::Missing)
            remark(text, key,
                value.note() + QLatin1String("; ") + ParameterConversion::tr("weggelassen"));
        else if (!value.note().isEmpty())
            remark(text, key, value.note());
        return value;
    }

    NativeValue converted(const DictionaryText &text)
    {
        const NativeValue value = NativeValue::read(m_type, text.text, m_nodeId);
        if (value.state() == NativeValue::eState::NodeIdUnknown)
            ++m_valuesWithoutNodeId;
        return value;
    }

    /// The closest number within the limits.
    QString nearest(const QString &text) const
    {
        if (isLess(text, m_element.lowerLimit))
            return m_element.lowerLimit;
        return isLess(m_element.upperLimit, text) ? m_element.upperLimit : text;
    }

    /// False where one of them is not there.
    bool isLess(const QString &a, const QString &b) const
    {
        return !a.isEmpty() && !b.isEmpty() && NativeValue::compare(m_type, a, b) < 0;
    }

    void remark(const DictionaryText &text, QLatin1String key, const QString &what)
    {
        m_remarks.add(text.line,
            QStringLiteral("%1: %2 %3 %4")
                .arg(m_place, key, ImportRemarks::excerpt(text.text), what));
    }

    const DictionaryEntry &m_entry;
    const CanOpenDataType &m_type;
    QString m_place;
    std::optional<quint8> m_nodeId;
    ImportRemarks &m_remarks;
    ImportedElement m_element;
    qsizetype m_valuesWithoutNodeId = 0;
};

/// Why values of that type are not taken.
QString reasonAgainst(const CanOpenDataType *type, quint32 code)
{
    if (type == nullptr)
        return ParameterConversion::tr("der Datentyp 0x%1 ist keiner der Grundtypen")
            .arg(QStringLiteral("%1").arg(code, 4, 16, QLatin1Char('0')).toUpper());
    return ParameterConversion::tr("eine Gerätebeschreibung hat keinen Datentyp für %1")
        .arg(QLatin1String(type->name));
}

} // namespace

ParameterConversion::Result ParameterConversion::convert(
    const ObjectDictionary &dictionary, std::optional<quint8> nodeId, ImportRemarks &remarks)
{
    const std::optional<quint8> usedNodeId = nodeId ? nodeId : dictionary.device.nodeId;
    Result result;
    for (const DictionaryObject &object : dictionary.objects) {
        ImportedParameter parameter {
            object.index, object.name, object.denotation, object.isRecord, {}};
        SkippedObject place {object.index, std::nullopt, object.line, {}};
        for (const DictionaryEntry &entry : object.entries) {
            if (object.isRecord)
                place.subIndex = entry.subIndex;
            const CanOpenDataType *type = CanOpenDataType::find(entry.dataType);
            if (type == nullptr || !type->hasValue()) {
                place.line = entry.line;
                place.reason = reasonAgainst(type, entry.dataType);
                result.skipped.append(place);
                continue;
            }
            ElementConversion conversion(entry, *type, place.place(), usedNodeId, remarks);
            parameter.elements.append(conversion.convert());
            result.valuesWithoutNodeId += conversion.valuesWithoutNodeId();
        }
        if (!parameter.elements.isEmpty())
            result.parameters.append(parameter);
        else if (object.isRecord)
            result.skipped.append({object.index, std::nullopt, object.line,
                tr("keines seiner Unterobjekte hat einen Wert")});
    }
    return result;
}
