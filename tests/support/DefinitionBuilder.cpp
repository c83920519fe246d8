#include "tests/support/DefinitionBuilder.h"

#include <KrDatatype/DatatypeProvider.h>

namespace {

using enum eParameterProperty;

constexpr eParameterProperty NumbersOfEveryElement[] = {PrereadFunctionIndex, PrewriteFunctionIndex,
    PostwriteFunctionIndex, PostreadFunctionIndex, HidingFunctionIndex, ReadLevel, WriteLevel,
    LimitFunctionIndex, MemoryAllocation, ParameterKind, EnableOffRequired, ProcessDataMappable,
    AutomaticOnlineUpdate, NoWrite, ScalingFunctionIndex, DecimalPlacesBehind,
    DecimalPlacesSignificant, AdditionalReadTimeout, AdditionalWriteTimeout, CyclicOnlineUpdateRate,
    LimitDependency, ScalingDependency, PostwriteDependency, PrereadDependency, PostreadDependency,
    PrewriteDependency, HidingDependency, MeasuringUnitDependency, IsScopeChoice, OnlineOrder};

/// A short text that nobody should show stands beside every text that there is.
void setText(ParameterText &text, const QString &language, const QString &longText)
{
    const QString shortText =
        longText.isEmpty() ? QString() : QStringLiteral("short of ") + longText;
    text.setText(language, shortText, longText);
}

ParameterText textOf(const QString &german, const QString &english)
{
    ParameterText text;
    setText(text, QStringLiteral("de"), german);
    setText(text, QStringLiteral("en"), english.isEmpty() ? german : english);
    return text;
}

/// Unit locators stay plain texts, like the empty unit.
QVariant unitOf(const QString &unit)
{
    if (unit.isEmpty() || unit.startsWith(u'<'))
        return unit;
    ParameterText text;
    for (const auto &language : {QStringLiteral("de"), QStringLiteral("en")})
        text.setText(language, unit, unit);
    return QVariant::fromValue(text);
}

} // namespace

DefinitionBuilder::DefinitionBuilder()
{
    m_content.identifier = QStringLiteral("P1");
    m_content.version = 1;
    m_content.name = textOf(QStringLiteral("Parameter"), {});
    for (const eParameterProperty number : NumbersOfEveryElement)
        property(number, 0U);
    datatype(QStringLiteral("INT32"));
    units({});
}

DefinitionBuilder &DefinitionBuilder::identifier(const QString &identifier)
{
    m_content.identifier = identifier;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::version(quint32 version)
{
    m_content.version = version;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::name(const QString &german, const QString &english)
{
    m_content.name = textOf(german, english);
    return *this;
}

DefinitionBuilder &DefinitionBuilder::name(const ParameterText &text)
{
    m_content.name = text;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::nameCommonText(int index)
{
    m_content.nameCommonTextIndex = index;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::description(const QString &german, const QString &english)
{
    m_content.description = textOf(german, english);
    return *this;
}

DefinitionBuilder &DefinitionBuilder::global(bool isGlobal)
{
    m_content.isGlobal = isGlobal;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::physicalAxis(bool isPhysicalAxis)
{
    m_content.isPhysicalAxis = isPhysicalAxis;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::multiInstance()
{
    m_content.isSingleInstance = false;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::coordinates(const QStringList &texts)
{
    m_content.defaultCoordinates.clear();
    for (const QString &text : texts)
        m_content.defaultCoordinates.append(ParameterCoordinate(text));
    return *this;
}

DefinitionBuilder &DefinitionBuilder::anchors(const QStringList &locatorTexts)
{
    m_content.anchors = locatorTexts;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::elementCount(quint16 count)
{
    m_content.elementCount = count;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::defaultValues(const QStringList &nativeTexts)
{
    m_content.defaultValues = nativeTexts;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::element(
    quint16 number, const QString &german, const QString &english)
{
    return element(number, textOf(german, english));
}

DefinitionBuilder &DefinitionBuilder::element(quint16 number, const ParameterText &name)
{
    m_content.isRecord = true;
    m_elements.append(m_all);
    m_elements.last().number = number;
    m_elements.last().name = name;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::elementVersion(quint32 version)
{
    draft().version = version;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::elementNameCommonText(int index)
{
    draft().nameCommonTextIndex = index;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::defaultValue(const QString &nativeText)
{
    draft().defaultValue = nativeText;
    return *this;
}

DefinitionBuilder &DefinitionBuilder::property(eParameterProperty property, const QVariant &value)
{
    draft().information.setProperty(property, value);
    return *this;
}

DefinitionBuilder &DefinitionBuilder::without(eParameterProperty property)
{
    draft().information.removeProperty(property);
    return *this;
}

DefinitionBuilder &DefinitionBuilder::settable(eParameterProperty property)
{
    draft().information.setPropertySettable(property, true);
    return *this;
}

DefinitionBuilder &DefinitionBuilder::datatype(const QString &shortName)
{
    const SimpleType *type = DatatypeProvider::instance()->simpleType(shortName);
    Q_ASSERT_X(type, "DefinitionBuilder::datatype", "unknown short name");
    return datatype(type->id());
}

DefinitionBuilder &DefinitionBuilder::datatype(quint8 id)
{
    return property(Datatype, quint32(id));
}

DefinitionBuilder &DefinitionBuilder::kind(quint32 kind)
{
    return property(ParameterKind, kind);
}

DefinitionBuilder &DefinitionBuilder::levels(quint32 readLevel, quint32 writeLevel)
{
    return property(ReadLevel, readLevel).property(WriteLevel, writeLevel);
}

DefinitionBuilder &DefinitionBuilder::limits(const QString &lower, const QString &upper)
{
    return property(LowerLimitValue, lower).property(UpperLimitValue, upper);
}

DefinitionBuilder &DefinitionBuilder::decimals(qint32 behind, quint32 significant)
{
    return property(DecimalPlacesBehind, behind).property(DecimalPlacesSignificant, significant);
}

DefinitionBuilder &DefinitionBuilder::scaling(float factor, quint32 fullScaleValue)
{
    property(ScalingFactor, factor);
    return fullScaleValue == 0 ? without(FullScaleValue) : property(FullScaleValue, fullScaleValue);
}

DefinitionBuilder &DefinitionBuilder::units(
    const QString &scaled, const QString &native, const QString &fieldbus)
{
    property(ScaledMeasuringUnit, unitOf(scaled)).property(NativeMeasuringUnit, unitOf(native));
    return property(FieldbusMeasuringUnit, unitOf(fieldbus));
}

DefinitionBuilder &DefinitionBuilder::choices(const QMap<qint32, QString> &texts)
{
    ParameterTextMap map;
    for (auto entry = texts.cbegin(); entry != texts.cend(); ++entry)
        map.insert(entry.key(), textOf(entry.value(), {}));
    return choices(map);
}

DefinitionBuilder &DefinitionBuilder::choices(const ParameterTextMap &texts)
{
    return property(ChoiceMap, QVariant::fromValue(texts));
}

std::unique_ptr<ParameterDefinition> DefinitionBuilder::build() const
{
    ParameterDefinition::Content content = m_content;
    const QList<ElementDraft> drafts =
        m_elements.isEmpty() ? QList<ElementDraft> {m_all} : m_elements;
    for (const ElementDraft &draft : drafts) {
        ParameterDefinition::Element element;
        element.number = draft.number;
        element.name = draft.name;
        element.nameCommonTextIndex = draft.nameCommonTextIndex;
        element.version = draft.version.value_or(content.version);
        element.information = std::make_shared<const ElementInformation>(draft.information);
        element.defaultValue = draft.defaultValue;
        content.elements.append(element);
    }
    if (!content.isRecord && content.defaultValues.isEmpty())
        content.defaultValues.append(m_all.defaultValue);
    return std::make_unique<ParameterDefinition>(std::move(content));
}
