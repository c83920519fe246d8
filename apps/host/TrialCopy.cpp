#include "apps/host/TrialCopy.h"

#include "apps/host/DriveProject.h"

#include <KrParameterInstance/ParameterSetup.h>
#include <KrSystem/System.h>

#include <QtCore/QMap>
#include <QtCore/QSignalBlocker>

TrialCopy::TrialCopy(const DriveProject &project)
{
    const QSignalBlocker silence(System::instance());
    m_copy = project.fresh();
    QMap<QString, QByteArray> blocks;
    project.container().saveTo(blocks);
    m_copy->container().loadFrom(blocks);
    // Read-only values are shown as they are, also where the device would have to be online.
    m_copy->container().setReadOnly(true);
}

TrialCopy::~TrialCopy() = default;

QString TrialCopy::displayText(const ValuePlace &place, const QString &nativeText, eUnit unit)
{
    const QSignalBlocker silence(System::instance());
    ParameterSetup *found = parameter(place);
    if (!found)
        return {};
    const QString before = found->nativeValueText(place.livingSpace, place.element, false);
    found->setOnlineValueText(place.livingSpace, place.element, nativeText);
    const QString shown =
        found->displayValueText(place.livingSpace, place.element, unit == eUnit::With);
    found->setOnlineValueText(place.livingSpace, place.element, before);
    return shown;
}

std::optional<QString> TrialCopy::nativeText(const ValuePlace &place, const QString &displayText)
{
    const QSignalBlocker silence(System::instance());
    ParameterSetup *found = parameter(place);
    if (!found || !found->isValueTextAcceptable(place.livingSpace, place.element, displayText))
        return std::nullopt;
    const QString before = found->nativeValueText(place.livingSpace, place.element, false);
    found->setValueText(place.livingSpace, place.element, displayText);
    const QString stored = found->nativeValueText(place.livingSpace, place.element, false);
    found->setOnlineValueText(place.livingSpace, place.element, before);
    return stored;
}

void TrialCopy::follow(const ValuePlace &place, const QString &nativeText)
{
    const QSignalBlocker silence(System::instance());
    if (ParameterSetup *found = parameter(place))
        found->setOnlineValueText(place.livingSpace, place.element, nativeText);
}

ParameterSetup *TrialCopy::parameter(const ValuePlace &place)
{
    return m_copy->container().parameterSetup(place.coordinate);
}
