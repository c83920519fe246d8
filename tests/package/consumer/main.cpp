#include <KrParameterInstance/ActionParameter.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterContainerHostInformation.h>
#include <KrParameterInstance/ParameterData.h>
#include <KrParameterInstance/ParameterNavigationHost.h>
#include <KrParameterInstance/ParameterSetup.h>
#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include <KrFirmware/ServoDriveFirmware.h>

#include <QCoreApplication>
#include <QTextStream>

namespace {

class Host final : public ParameterContainerHostInformation {
public:
    explicit Host(const ServoDriveFirmware &firmware)
        : m_family(firmware.deviceFamilyIdentifier())
    {
        for (const int axis : firmware.axes())
            m_livingSpaces.append(eLivingSpace(axis));
    }

    QList<eLivingSpace> livingSpaces() const override { return m_livingSpaces; }
    unsigned int deviceFamilyIdentifier() const override { return m_family; }

private:
    QList<eLivingSpace> m_livingSpaces {eLivingSpace::Global};
    unsigned int m_family;
};

/// Writes another value to the first parameter that takes one; true when it reads back.
bool writesAndReadsBack(ParameterContainer &container)
{
    const QList<ParameterCoordinate> coordinates = container.parameterList();
    for (const ParameterCoordinate &coordinate : coordinates) {
        const auto information = container.parameterInformation(coordinate);
        const eLivingSpace space = information->livingSpaces().constFirst();
        const quint16 element = information->elementList().constFirst();
        if (!information->isWritable(space, element))
            continue;
        const QString other = information->lowerLimitText(space, element);
        if (other.isEmpty()
            || other == container.readValueNative(space, coordinate, element, false))
            continue;
        container.writeValueNative(space, coordinate, element, other);
        return container.readValueNative(space, coordinate, element, false) == other;
    }
    return false;
}

} // namespace

/// Takes a device description, fills a container from it, writes one value and reads it back.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    DescriptionError error;
    const auto firmware =
        ServoDriveFirmware::loadFromFile(application.arguments().value(1), &error);
    if (!firmware) {
        out << error.toText() << Qt::endl;
        return 1;
    }
    Host host(*firmware);
    ParameterContainer container;
    container.setHostInformation(&host);
    container.setFirmware(firmware.get());
    for (const quint32 number : firmware->parameterNumbers()) {
        ParameterDefinition *definition = firmware->parameterDefinition(number);
        for (const int axis : firmware->axes())
            container.createOrUpdateParameter(
                definition, QStringLiteral("Drive.%1;{P%2}").arg(axis).arg(number));
    }
    out << container.parameterList().size() << " parameters" << Qt::endl;
    return !container.parameterList().isEmpty() && writesAndReadsBack(container) ? 0 : 1;
}
