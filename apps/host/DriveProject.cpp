#include "apps/host/DriveProject.h"

#include "apps/host/Progress.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterSetup.h>

namespace {

QString locatorText(int axis, quint32 number)
{
    return QStringLiteral("Drive.%1;{P%2}").arg(axis).arg(number);
}

} // namespace

std::unique_ptr<DriveProject> DriveProject::open(
    const QString &descriptionFile, QString &error, Progress *progress)
{
    DescriptionError problem;
    std::shared_ptr<ServoDriveFirmware> firmware =
        ServoDriveFirmware::loadFromFile(descriptionFile, &problem);
    if (!firmware) {
        error = problem.toText();
        return nullptr;
    }
    std::unique_ptr<DriveProject> project(new DriveProject(std::move(firmware)));
    if (!project->createParameters(progress)) {
        error = tr("abgebrochen");
        return nullptr;
    }
    return project;
}

DriveProject::DriveProject(std::shared_ptr<ServoDriveFirmware> firmware)
    : m_firmware(std::move(firmware))
    , m_hostInformation(m_firmware->axes(), m_firmware->deviceFamilyIdentifier())
{
    m_container.setHostInformation(&m_hostInformation);
    m_container.setDomain(m_firmware->deviceFamilyName());
    m_container.setFirmware(m_firmware.get());
}

DriveProject::~DriveProject() = default;

std::unique_ptr<DriveProject> DriveProject::fresh() const
{
    std::unique_ptr<DriveProject> project(new DriveProject(m_firmware));
    project->m_container.setDomain(m_container.domain());
    project->createParameters(nullptr);
    return project;
}

bool DriveProject::createParameters(Progress *progress)
{
    const QList<quint32> numbers = m_firmware->parameterNumbers();
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        if (progress && !progress->advance(i, numbers.size()))
            return false;
        createParameter(numbers.at(i));
    }
    return !progress || progress->advance(numbers.size(), numbers.size());
}

void DriveProject::createParameter(quint32 number)
{
    ParameterDefinition *definition = m_firmware->parameterDefinition(number);
    for (const int axis : m_firmware->axes()) {
        const QString text = locatorText(axis, number);
        m_container.createOrUpdateParameter(definition, text);
        // A global parameter has its one value now.
        const ParameterSetup *parameter = m_container.queryParameterInstance(text);
        if (!parameter || parameter->isGlobalParameter())
            return;
    }
}
