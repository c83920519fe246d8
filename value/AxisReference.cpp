#include "value/AxisReference.h"

#include "value/ChoiceForm.h"
#include "value/DisplayForms.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QScopedValueRollback>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr qsizetype MaximumDigits = 3;
/// More references in a row than any device has; deep enough that none is missed, flat enough for
/// any stack.
constexpr int MaximumDepth = 32;
/// Asks the container for the active axis.
constexpr auto ActiveAxisRequest = eLivingSpace(-1);
/// A reference names no element: this one is meant.
constexpr quint16 ReferencedElement = 0;

/// The references being resolved. Each parameter on the way formats its own value, so the chain is
/// kept beside the calls and not handed through them.
struct Link {
    const ParameterInformation *information;
    eLivingSpace livingSpace;
    const Link *outer;
    int depth;
};

thread_local const Link *innermost = nullptr;

bool isBeingResolved(const ParameterInformation *information, eLivingSpace livingSpace)
{
    for (const Link *link = innermost; link; link = link->outer) {
        if (link->information == information && link->livingSpace == livingSpace)
            return true;
    }
    return false;
}

bool takeStart(QStringView &text, QLatin1StringView start)
{
    if (!text.startsWith(start))
        return false;
    text = text.sliced(start.size());
    return true;
}

bool isCoordinate(QStringView text)
{
    if (text.size() < 2 || text.size() > 1 + MaximumDigits || text[0] < QLatin1Char('A')
        || text[0] > QLatin1Char('Z'))
        return false;
    const QStringView digits = text.sliced(1);
    return std::all_of(digits.begin(), digits.end(),
        [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

bool hasReferencedElement(const ParameterInformation &information)
{
    return information.isRecordParameter() ? information.elementList().contains(ReferencedElement)
                                           : ReferencedElement < information.elementCount();
}

/// Of "3: Torque control" only "Torque control".
QString withoutKey(
    const QString &displayText, const ParameterInformation &information, eLivingSpace livingSpace)
{
    const ParameterProperty kind =
        information.elementProperty(ReferencedElement, eParameterProperty::ParameterKind);
    if (!DisplayForms::isChoice(kind.asInt32()))
        return displayText;
    const std::optional<QString> key =
        ChoiceForm::readNumber(information.valueText(livingSpace, ReferencedElement, false));
    if (!key)
        return displayText;
    const QString start = *key + QLatin1StringView(": ");
    return displayText.startsWith(start) ? displayText.sliced(start.size()) : displayText;
}

} // namespace

AxisReference::AxisReference(eAxis axis, const ParameterCoordinate &coordinate)
    : m_axis(axis)
    , m_coordinate(coordinate)
{
}

std::optional<AxisReference> AxisReference::parse(QStringView text)
{
    const bool isLocal = takeStart(text, QLatin1StringView("<localAxis:"));
    if (!isLocal && !takeStart(text, QLatin1StringView("<activeAxis:")))
        return {};
    // "$" of the pattern stands before a final line feed too.
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    if (!text.endsWith(QLatin1Char('>')) || !isCoordinate(text.chopped(1)))
        return {};
    return AxisReference(
        isLocal ? eAxis::Local : eAxis::Active, ParameterCoordinate(text.chopped(1).toString()));
}

std::optional<QString> AxisReference::resolve(
    ParameterContainer *container, eLivingSpace livingSpace) const
{
    if (!container)
        return {};
    const QPointer<ParameterContainer> isThere(container);
    if (m_axis == eAxis::Active)
        livingSpace = eLivingSpace(std::abs(int(container->activeLivingSpace(ActiveAxisRequest))));
    // A missing active axis is reported, to whom it may concern.
    if (!isThere)
        return {};
    const QPointer<ParameterInformation> information =
        container->parameterInformation(m_coordinate);
    if (!information || !hasReferencedElement(*information))
        return {};
    if (information->isGlobalParameter())
        livingSpace = eLivingSpace::Global;

    const Link link {information, livingSpace, innermost, innermost ? innermost->depth + 1 : 1};
    if (!information->hasInstance(livingSpace) || link.depth > MaximumDepth
        || isBeingResolved(information, livingSpace))
        return {};
    const QScopedValueRollback guard(innermost, &link);
    // The display text as it is, never masked: it stands for a part of another parameter's text.
    const QString valueText = information->valueText(livingSpace, ReferencedElement, false);
    const QString text = information
        ? information->prepareValueText(valueText, livingSpace, ReferencedElement, false, nullptr)
        : QString();
    return information ? withoutKey(text, *information, livingSpace) : text;
}
