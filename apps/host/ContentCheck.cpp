#include "apps/host/ContentCheck.h"

#include "apps/host/DriveProject.h"
#include "apps/host/ValuePlace.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterDefinition/ParameterDefinition.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <KrSystem/System.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <limits>

namespace {

using enum eParameterProperty;

struct DependencyKind {
    /// As the description names it.
    const char *name;
    eParameterProperty dependency;
    eParameterProperty index;
};

constexpr DependencyKind DependencyKinds[] = {
    {"limit", LimitDependency, LimitFunctionIndex},
    {"scaling", ScalingDependency, ScalingFunctionIndex},
    {"postWrite", PostwriteDependency, PostwriteFunctionIndex},
    {"preRead", PrereadDependency, PrereadFunctionIndex},
    {"postRead", PostreadDependency, PostreadFunctionIndex},
    {"preWrite", PrewriteDependency, PrewriteFunctionIndex},
    {"hiding", HidingDependency, HidingFunctionIndex},
};

constexpr eParameterProperty UnitProperties[] = {
    ScaledMeasuringUnit, NativeMeasuringUnit, FieldbusMeasuringUnit};

/// "<localAxis:E12>" and "<activeAxis:E12>" name E12; the library takes nothing else for a locator but
/// these with a line feed behind them.
ParameterCoordinate locatedCoordinate(const ParameterProperty &unit)
{
    static const QRegularExpression locator(QRegularExpression::anchoredPattern(
        QStringLiteral("<(?:localAxis|activeAxis):([A-Z][0-9]{1,3})>\\n?")));
    const QVariant &value = unit.asVariant();
    if (value.metaType() != QMetaType::fromType<QString>())
        return {};
    return ParameterCoordinate(locator.match(value.toString()).captured(1));
}

/// Of whole numbers; true for any other type.
bool isInsideType(const QString &number, const SimpleType &type)
{
    const quint32 surplus = 64 - 8 * type.sizeInBytes();
    bool isNumber = false;
    if (type.kind() == SimpleType::SignedInteger) {
        const qint64 value = number.toLongLong(&isNumber);
        return isNumber && value >= std::numeric_limits<qint64>::min() >> surplus
            && value <= std::numeric_limits<qint64>::max() >> surplus;
    }
    if (type.kind() == SimpleType::UnsignedInteger) {
        const quint64 value = number.toULongLong(&isNumber);
        return isNumber && value <= std::numeric_limits<quint64>::max() >> surplus;
    }
    return true;
}

/// Whether both are numbers and the first is the greater one. Whole numbers of 64 bits beyond the
/// 53 of a double are equal where they differ by little.
bool isGreater(const QString &a, const QString &b)
{
    bool areNumbers[2] = {};
    return a.toDouble(&areNumbers[0]) > b.toDouble(&areNumbers[1]) && areNumbers[0]
        && areNumbers[1];
}

} // namespace

QList<ContentCheck::Finding> ContentCheck::findings(DriveProject &project)
{
    ContentCheck check(project);
    check.takeWarnings();
    check.checkNumbers();
    check.checkDependencies();
    QStringList told;
    QObject listener;
    QObject::connect(System::instance(), &System::messageAdded, &listener,
        [&told](const SystemMessage &message) { told.append(message.text); });
    check.checkValues();
    told.removeDuplicates();
    for (const QString &text : std::as_const(told))
        check.m_findings.append({QString(), text});
    return check.m_findings;
}

void ContentCheck::takeWarnings()
{
    for (const QString &warning : m_project.firmware().warnings()) {
        const qsizetype colon = warning.indexOf(QLatin1String(": "));
        if (colon < 0)
            m_findings.append({QString(), warning});
        else
            m_findings.append({warning.first(colon), warning.sliced(colon + 2)});
    }
}

void ContentCheck::checkNumbers()
{
    ParameterContainer &container = m_project.container();
    for (const QString &name : container.contentIssuesForFirmware(container.firmware()))
        m_findings.append(
            {name, tr("das Gerät verwendet eine höhere Nummer, als seine Firmware hat")});
}

void ContentCheck::checkDependencies()
{
    QHash<eParameterProperty, QSet<qint32>> followed;
    QSet<quint16> located;
    forEachInformation([&](const ParameterInformation &parameter, quint16 element) {
        for (const DependencyKind &kind : DependencyKinds) {
            followed[kind.dependency].insert(
                parameter.elementProperty(element, kind.index).asUint16());
        }
        for (const eParameterProperty unit : UnitProperties)
            located.insert(locatedCoordinate(parameter.elementProperty(element, unit)).toNumber());
    });
    forEachInformation([&](const ParameterInformation &parameter, quint16 element) {
        const QString address = ParameterAddress(0, parameter.coordinate(), element)
                                    .toTextGlobalInstance(parameter.isRecordParameter());
        const auto reference = [&](eParameterProperty dependency) {
            return parameter.elementProperty(element, dependency).asInt32();
        };
        for (const DependencyKind &kind : DependencyKinds) {
            const qint32 number = reference(kind.dependency);
            if (number == 0 || followed[kind.dependency].contains(number))
                continue;
            m_findings.append({address,
                tr("die Abhängigkeit %1 %2 führt zu keinem Wert")
                    .arg(QLatin1String(kind.name))
                    .arg(number)});
        }
        if (reference(MeasuringUnitDependency) != 0
            && !located.contains(parameter.coordinate().toNumber()))
            m_findings.append(
                {address, tr("die Abhängigkeit measuringUnit führt zu keiner Einheit")});
    });
}

void ContentCheck::forEachInformation(
    const std::function<void(const ParameterInformation &, quint16)> &function)
{
    ParameterContainer &container = m_project.container();
    for (const ParameterCoordinate &coordinate : container.parameterList()) {
        const auto parameter = container.parameterInformation(coordinate);
        const QList<quint16> elements = parameter->elementList();
        // The elements of a simple parameter are described as one.
        const qsizetype count = parameter->isRecordParameter() ? elements.size() : 1;
        for (const quint16 element : elements.first(qMin(count, elements.size())))
            function(*parameter, element);
    }
}

QHash<ParameterCoordinate, const ParameterDefinition *> ContentCheck::definitions() const
{
    QHash<ParameterCoordinate, const ParameterDefinition *> found;
    for (const quint32 number : m_project.firmware().parameterNumbers()) {
        const ParameterDefinition *definition = m_project.firmware().parameterDefinition(number);
        for (const ParameterCoordinate &coordinate : definition->defaultCoordinates())
            found.insert(coordinate, definition);
    }
    return found;
}

void ContentCheck::checkValues()
{
    ParameterContainer &container = m_project.container();
    const auto defined = definitions();
    for (const ValuePlace &place : ValuePlace::allOf(container)) {
        const auto parameter = container.parameterInformation(place.coordinate);
        checkLimits(*parameter, place);
        parameter->isVisible(place.livingSpace, place.element);
        parameter->displayValueText(place.livingSpace, place.element, true);
        const ParameterDefinition *definition = defined.value(place.coordinate);
        const QString meant =
            definition ? definition->elementDefaultValue(place.element) : QString();
        const QString taken = parameter->defaultNativeValueText(place.livingSpace, place.element);
        if (isGreater(meant, taken) || isGreater(taken, meant))
            find(*parameter, place,
                tr("der Default %1 ist nicht zulässig; es gilt %2").arg(meant, taken));
    }
}

void ContentCheck::checkLimits(const ParameterInformation &parameter, const ValuePlace &place)
{
    const QString lower = parameter.lowerLimitText(place.livingSpace, place.element);
    const QString upper = parameter.upperLimitText(place.livingSpace, place.element);
    const SimpleType *type =
        DatatypeProvider::instance()->simpleType(parameter.datatype(place.element));
    for (const QString &limit : {lower, upper}) {
        if (type && !limit.isEmpty() && !isInsideType(limit, *type))
            find(parameter, place,
                tr("die Grenze %1 liegt außerhalb des Datentyps %2").arg(limit, type->shortName()));
    }
    if (isGreater(lower, upper))
        find(parameter, place,
            tr("die untere Grenze %1 liegt über der oberen %2").arg(lower, upper));
}

void ContentCheck::find(
    const ParameterInformation &parameter, const ValuePlace &place, const QString &text)
{
    m_findings.append({place.addressText(parameter), text});
}
