#include "apps/host/TrialCopy.h"

#include "apps/host/DriveProject.h"
#include "apps/host/ProjectFolder.h"

#include <KrParameterInstance/ParameterSetup.h>
#include <KrSystem/System.h>

#include <QtCore/QMap>
#include <QtCore/QSignalBlocker>

namespace {

/// As the block names a value.
QByteArray valueKey(const ValuePlace &place)
{
    return "V_" + QByteArray::number(int(place.livingSpace)) + '_'
        + QByteArray::number(place.element);
}

QByteArray sectionName(const ParameterCoordinate &coordinate)
{
    return coordinate.toSortableText().toLatin1();
}

} // namespace

TrialCopy::TrialCopy(const DriveProject &project)
{
    const QSignalBlocker silence(System::instance());
    m_copy = project.fresh();
    QMap<QString, QByteArray> blocks;
    project.container().saveTo(blocks);
    m_saved.setIniText(blocks.value(ProjectFolder::parameterBlockName()));
    m_copy->container().loadFrom(blocks);
    QObject::connect(&m_copy->container(), &ParameterContainer::parameterNativeValueChanged,
        &m_copy->container(), [this](const ParameterAddress &address) { note(address); });
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
    found->setOnlineValueText(place.livingSpace, place.element, nativeText);
    const QString shown =
        found->displayValueText(place.livingSpace, place.element, unit == eUnit::With);
    putBack();
    return shown;
}

std::optional<QString> TrialCopy::nativeText(const ValuePlace &place, const QString &displayText)
{
    const QSignalBlocker silence(System::instance());
    ParameterSetup *found = parameter(place);
    if (!found || !found->isValueTextAcceptable(place.livingSpace, place.element, displayText))
        return std::nullopt;
    found->setValueText(place.livingSpace, place.element, displayText);
    const QString stored = found->nativeValueText(place.livingSpace, place.element, false);
    putBack();
    return stored;
}

void TrialCopy::follow(const ValuePlace &place, const QString &nativeText)
{
    const QSignalBlocker silence(System::instance());
    ParameterSetup *found = parameter(place);
    if (!found)
        return;
    m_followed[place.coordinate].insert(valueKey(place), nativeText);
    found->setOnlineValueText(place.livingSpace, place.element, nativeText);
    putBack();
}

void TrialCopy::note(const ParameterAddress &address)
{
    const auto changed = m_copy->container().parameterInformation(address.coordinate());
    if (changed)
        m_changed.append(ValuePlace::of(address, *changed));
}

QString TrialCopy::keptText(const ValuePlace &place) const
{
    const QByteArray key = valueKey(place);
    const auto followed = m_followed.constFind(place.coordinate);
    if (followed != m_followed.cend() && followed->contains(key))
        return followed->value(key);
    const LmIniParser::IniSection *saved = m_saved.section(sectionName(place.coordinate));
    return saved ? QString::fromLatin1(saved->read(key)) : QString();
}

bool TrialCopy::isAsKept(const ValuePlace &place)
{
    const ParameterSetup *found = parameter(place);
    return !found
        || found->nativeValueText(place.livingSpace, place.element, false) == keptText(place);
}

void TrialCopy::putBack()
{
    // In the order of the changes: what a function sets again comes after what it follows.
    const QList<ValuePlace> changed = m_changed;
    for (const ValuePlace &place : changed) {
        if (ParameterSetup *found = parameter(place))
            found->setOnlineValueText(place.livingSpace, place.element, keptText(place));
    }
    m_changed.removeIf([this](const ValuePlace &place) { return isAsKept(place); });
    if (!m_changed.isEmpty())
        loadChanged();
    m_changed.clear();
}

/// Loading runs no function.
void TrialCopy::loadChanged()
{
    LmIniParser::IniParser parser;
    for (const ValuePlace &place : std::as_const(m_changed)) {
        const QByteArray name = sectionName(place.coordinate);
        const LmIniParser::IniSection *saved = m_saved.section(name);
        if (!saved || parser.section(name))
            continue;
        LmIniParser::IniSection &section = *parser.createSection(name);
        for (qsizetype i = 0; i < saved->keyCount(); ++i)
            section.write(saved->keyAt(i), saved->read(saved->keyAt(i)));
        const QHash<QByteArray, QString> followed = m_followed.value(place.coordinate);
        for (auto it = followed.cbegin(); it != followed.cend(); ++it)
            section.write(it.key(), it.value().toLatin1());
    }
    QMap<QString, QByteArray> blocks {
        {ProjectFolder::parameterBlockName(), parser.getIniTextWithoutByteOrderMarker()}};
    m_copy->container().loadFrom(blocks);
}

ParameterSetup *TrialCopy::parameter(const ValuePlace &place)
{
    return m_copy->container().parameterSetup(place.coordinate);
}
