#include "snapshot/SnapshotJsonParameter.h"

#include <QtCore/QJsonArray>
#include <QtCore/QMap>

#include <algorithm>
#include <limits>

namespace {

const QString Coordinate = QStringLiteral("coordinate");
const QString Name = QStringLiteral("name");
const QString LivingSpaces = QStringLiteral("livingSpaces");
const QString Elements = QStringLiteral("elements");
const QString Values = QStringLiteral("values");
const QString Number = QStringLiteral("number");
const QString ReadLevel = QStringLiteral("readLevel");
const QString IsRejected = QStringLiteral("isRejected");
const QString LivingSpace = QStringLiteral("livingSpace");
const QString Element = QStringLiteral("element");
const QString Display = QStringLiteral("display");
const QString Native = QStringLiteral("native");
const QString Value = QStringLiteral("value");
const QString ScaledUnit = QStringLiteral("scaledUnit");
const QString NativeUnit = QStringLiteral("nativeUnit");

constexpr auto LastLivingSpace = static_cast<qint32>(eLivingSpace::Axis4);

/// Nothing for what is no whole number of the type.
template <typename T>
std::optional<T> whole(const QJsonValue &value)
{
    const qint64 number = value.toInteger(-1);
    if (number < 0 || number > std::numeric_limits<T>::max())
        return std::nullopt;
    return static_cast<T>(number);
}

std::optional<eLivingSpace> livingSpaceOf(const QJsonValue &value)
{
    const auto number = whole<qint32>(value);
    return number && *number <= LastLivingSpace ? std::optional(eLivingSpace(*number))
                                                : std::nullopt;
}

/// A text may be left out.
bool isText(const QJsonValue &value)
{
    return value.isString() || value.isUndefined();
}

/// A list may be left out.
bool isList(const QJsonValue &value)
{
    return value.isArray() || value.isUndefined();
}

bool isFlag(const QJsonValue &value)
{
    return value.isBool() || value.isUndefined();
}

void insertText(QJsonObject &object, const QString &key, const QString &text)
{
    if (!text.isEmpty())
        object.insert(key, text);
}

QJsonArray elementsOf(const SnapshotRecord &record)
{
    const SnapshotLayout &layout = record.layout();
    QJsonArray elements;
    for (const quint16 element : layout.positions) {
        QJsonObject object {
            {Number, element}, {ReadLevel, qint64(record.elementReadLevel(element))}};
        insertText(object, Name, record.elementName(element));
        if (!std::binary_search(layout.elements.cbegin(), layout.elements.cend(), element))
            object.insert(IsRejected, true);
        elements.append(object);
    }
    return elements;
}

QJsonObject valueOf(eLivingSpace livingSpace, quint16 element, const SnapshotValue &value)
{
    QJsonObject object {{LivingSpace, static_cast<qint32>(livingSpace)}, {Element, element},
        {Display, value.display}, {Native, value.native}, {Value, value.undecorated}};
    insertText(object, ScaledUnit, value.scaledUnit());
    insertText(object, NativeUnit, value.nativeUnit());
    return object;
}

bool isEmpty(const SnapshotValue &value)
{
    return value.display.isEmpty() && value.native.isEmpty() && value.undecorated.isEmpty()
        && !value.units;
}

QJsonArray valuesOf(const SnapshotRecord &record)
{
    const SnapshotLayout &layout = record.layout();
    QJsonArray values;
    for (const eLivingSpace livingSpace : layout.tables) {
        for (const quint16 element : layout.positions) {
            const SnapshotValue &value = record.value(livingSpace, element);
            if (!isEmpty(value)
                || std::binary_search(layout.elements.cbegin(), layout.elements.cend(), element))
                values.append(valueOf(livingSpace, element, value));
        }
    }
    return values;
}

} // namespace

/// The way of one object into its record.
class SnapshotJsonParameter::Draft {
public:
    explicit Draft(SnapshotPool &pool)
        : m_pool(pool)
    {
    }

    bool readElement(const QJsonObject &object);
    bool readValue(const QJsonObject &object);
    /// The positions and tables are complete.
    void finish(SnapshotLayout &layout, QList<QString> &names, QList<SnapshotValue> &values) const;

private:
    struct ElementDraft {
        QString name;
        quint32 readLevel = 0;
        bool isRejected = false;
    };

    SnapshotPool &m_pool;
    QMap<quint16, ElementDraft> m_elements;
    /// By living space, then by element.
    QMap<eLivingSpace, QHash<quint16, SnapshotValue>> m_values;
};

bool SnapshotJsonParameter::Draft::readElement(const QJsonObject &object)
{
    const auto number = whole<quint16>(object.value(Number));
    const auto readLevel = whole<quint32>(object.value(ReadLevel));
    if (!number || !readLevel || !isText(object.value(Name)) || !isFlag(object.value(IsRejected))
        || m_elements.contains(*number))
        return false;
    m_elements.insert(
        *number, {object.value(Name).toString(), *readLevel, object.value(IsRejected).toBool()});
    return true;
}

bool SnapshotJsonParameter::Draft::readValue(const QJsonObject &object)
{
    const auto livingSpace = livingSpaceOf(object.value(LivingSpace));
    const auto element = whole<quint16>(object.value(Element));
    if (!livingSpace || !element || !m_elements.contains(*element))
        return false;
    for (const QString &key : {Display, Native, Value, ScaledUnit, NativeUnit}) {
        if (!isText(object.value(key)))
            return false;
    }
    QHash<quint16, SnapshotValue> &table = m_values[*livingSpace];
    if (table.contains(*element))
        return false;
    SnapshotValue value;
    value.display = object.value(Display).toString();
    value.native = object.value(Native).toString();
    value.undecorated = object.value(Value).toString();
    value.units =
        m_pool.units(object.value(ScaledUnit).toString(), object.value(NativeUnit).toString());
    table.insert(*element, value);
    return true;
}

void SnapshotJsonParameter::Draft::finish(
    SnapshotLayout &layout, QList<QString> &names, QList<SnapshotValue> &values) const
{
    layout.positions = m_elements.keys();
    layout.tables = m_values.keys();
    bool isNamed = false;
    for (auto element = m_elements.cbegin(); element != m_elements.cend(); ++element) {
        layout.readLevels.append(element->readLevel);
        names.append(element->name);
        isNamed = isNamed || !element->name.isEmpty();
        if (!element->isRejected)
            layout.elements.append(element.key());
    }
    if (!isNamed)
        names.clear();
    values.reserve(layout.tables.size() * layout.positions.size());
    for (const QHash<quint16, SnapshotValue> &table : m_values) {
        for (const quint16 element : std::as_const(layout.positions))
            values.append(table.value(element));
    }
}

QJsonObject SnapshotJsonParameter::write(
    const ParameterCoordinate &coordinate, const SnapshotRecord &record)
{
    return {{Coordinate, coordinate.toText()}, {Name, record.name()},
        {LivingSpaces, write(record.layout().livingSpaces)}, {Elements, elementsOf(record)},
        {Values, valuesOf(record)}};
}

QJsonArray SnapshotJsonParameter::write(QList<eLivingSpace> livingSpaces)
{
    std::sort(livingSpaces.begin(), livingSpaces.end());
    QJsonArray array;
    // A host may offer other numbers too; no value lives there.
    for (const eLivingSpace livingSpace : std::as_const(livingSpaces)) {
        const QJsonValue number(static_cast<qint32>(livingSpace));
        if (livingSpaceOf(number))
            array.append(number);
    }
    return array;
}

std::optional<SnapshotRecord> SnapshotJsonParameter::read(const QJsonObject &object)
{
    const auto livingSpaces = readLivingSpaces(object.value(LivingSpaces));
    if (!livingSpaces || !isText(object.value(Name)) || !isList(object.value(Elements))
        || !isList(object.value(Values)))
        return std::nullopt;
    Draft draft(m_pool);
    for (const QJsonValue element : object.value(Elements).toArray()) {
        if (!draft.readElement(element.toObject()))
            return std::nullopt;
    }
    for (const QJsonValue value : object.value(Values).toArray()) {
        if (!draft.readValue(value.toObject()))
            return std::nullopt;
    }
    SnapshotRecord record;
    SnapshotLayout layout;
    layout.livingSpaces = *livingSpaces;
    draft.finish(layout, record.m_elementNames, record.m_values);
    record.m_name = object.value(Name).toString();
    record.m_layout = m_pool.layout(layout);
    return record;
}

std::optional<QList<eLivingSpace>> SnapshotJsonParameter::readLivingSpaces(const QJsonValue &value)
{
    if (!value.isArray())
        return std::nullopt;
    QList<eLivingSpace> result;
    for (const QJsonValue entry : value.toArray()) {
        const auto livingSpace = livingSpaceOf(entry);
        if (!livingSpace || (!result.isEmpty() && *livingSpace <= result.constLast()))
            return std::nullopt;
        result.append(*livingSpace);
    }
    return result;
}
