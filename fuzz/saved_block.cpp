// Any bytes as the saved block of a shipped device: loaded, shown, saved, loaded again.

#include "apps/host/BlockComparison.h"
#include "apps/host/DriveHostInformation.h"
#include "fuzz/Rule.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterDefinition/IParameterElementInformation.h>
#include <KrParameterDefinition/ParameterDefinition.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>
#include <KrSystem/System.h>

#include <QtCore/QMap>
#include <QtCore/QSet>

namespace {

const QString BlockName = QStringLiteral("Parameter.ini");
/// Each may ask for 16000 elements: more of them cost time and show nothing new.
constexpr qsizetype MostElementCounts = 2;
/// Parameters, and elements of each, whose values are looked at after a load.
constexpr qsizetype MostParameters = 8;
constexpr qsizetype MostElements = 4;

void load(ParameterContainer &container, const QByteArray &block)
{
    QMap<QString, QByteArray> blocks {{BlockName, block}};
    requireRule(container.loadFrom(blocks), "a load never fails");
}

QByteArray saved(const ParameterContainer &container)
{
    QMap<QString, QByteArray> blocks;
    requireRule(container.saveTo(blocks), "a save never fails");
    return blocks.value(BlockName);
}

std::unique_ptr<ServoDriveFirmware> openDescription()
{
    DescriptionError error;
    auto firmware = ServoDriveFirmware::loadFromFile(QStringLiteral(KR_DEVICE_DESCRIPTION), &error);
    requireRule(firmware != nullptr, "the shipped description is usable");
    return firmware;
}

/// What tells one sort of parameters from another, as far as loading and showing go.
QString sortOf(const ParameterDefinition &definition)
{
    QString sort;
    if (const IParameterElementInformation *element = definition.queryElementInformation(0)) {
        for (const auto property : {eParameterProperty::ParameterKind, eParameterProperty::Datatype,
                 eParameterProperty::MemoryAllocation})
            sort += element->property(property).asString() + u' ';
    }
    return sort + (definition.isRecordParameterDefinition() ? u'r' : u's')
        + (definition.isGlobalParameter() ? u'g' : u'a');
}

/// One parameter of each sort, which is much faster than all of them, and those that the seeds name.
QList<quint32> chosenNumbers(const ServoDriveFirmware &firmware)
{
    const QStringList named {
        QStringLiteral("A20"), QStringLiteral("A30"), QStringLiteral("E84"), QStringLiteral("H00")};
    QSet<QString> sorts;
    QList<quint32> numbers;
    for (const quint32 number : firmware.parameterNumbers()) {
        const ParameterDefinition &definition = *firmware.parameterDefinition(number);
        const QString sort = sortOf(definition);
        const QString coordinate = definition.defaultCoordinates().value(0).toText();
        if (!sorts.contains(sort) || named.contains(coordinate))
            numbers.append(number);
        sorts.insert(sort);
    }
    return numbers;
}

/// Two containers of the device, both as after their creation.
class Subject {
public:
    Subject()
        : m_firmware(openDescription())
        , m_hostInformation(m_firmware->axes(), m_firmware->deviceFamilyIdentifier())
    {
        for (ParameterContainer *container : {&first, &second}) {
            container->setHostInformation(&m_hostInformation);
            container->setFirmware(m_firmware.get());
            create(*container);
        }
        m_defaults = saved(first);
    }

    /// Only what a whole block brings back is kept from one input to the next.
    void reset()
    {
        load(first, m_defaults);
        load(second, m_defaults);
        requireRule(saved(first) == m_defaults, "a whole block replaces everything");
    }

private:
    void create(ParameterContainer &container)
    {
        for (const quint32 number : chosenNumbers(*m_firmware)) {
            for (const int axis : m_firmware->axes())
                container.createOrUpdateParameter(m_firmware->parameterDefinition(number),
                    QStringLiteral("Drive.%1;{P%2}").arg(axis).arg(number));
        }
    }

    // The containers borrow both: they go first.
    const std::unique_ptr<ServoDriveFirmware> m_firmware;
    DriveHostInformation m_hostInformation;
    QByteArray m_defaults;

public:
    ParameterContainer first;
    ParameterContainer second;
};

void checkIniText(const QByteArray &block)
{
    LmIniParser::IniParser any;
    any.setIniText(block);
    const QByteArray text = any.getIniTextWithoutByteOrderMarker();
    LmIniParser::IniParser own;
    own.setIniText(text);
    requireRule(own.malformedLineCount() == 0, "the parser takes what it wrote");
    requireRule(own.allSectionNames() == any.allSectionNames(), "every section is written");
    requireRule(
        own.getIniTextWithoutByteOrderMarker() == text, "INI text is written the same again");
}

void checkReport(const QByteArray &own, ParameterContainer &container)
{
    const LoadReport report = BlockComparison(own, container).report(std::nullopt, nullptr);
    requireRule(report.isComplete(), "a container's own block is complete to another");
    requireRule(!report.isCut(), "a container's own block is not cut");
}

void lookAt(ParameterSetup &parameter, eLivingSpace livingSpace, quint16 element)
{
    const QString shown = parameter.displayValueText(livingSpace, element, true);
    parameter.valueText(livingSpace, element, false);
    parameter.lowerLimitText(livingSpace, element);
    parameter.upperLimitText(livingSpace, element);
    parameter.selectionTexts(livingSpace, element);
    parameter.isVisible(livingSpace, element);
    parameter.isWritable(livingSpace, element);
    parameter.description(element);
    parameter.elementDescription(element);
    parameter.setValueText(livingSpace, element, shown);
    parameter.setOnlineValueText(livingSpace, element, QStringLiteral("1"));
}

/// The values of the parameters that the block names.
void lookAtNamed(const QByteArray &block, ParameterContainer &container)
{
    LmIniParser::IniParser parser;
    parser.setIniText(block);
    for (const QByteArray &name :
        parser.allSectionNames().first(std::min(MostParameters, parser.allSectionNames().size()))) {
        const QPointer<ParameterSetup> parameter =
            container.parameterSetup(ParameterCoordinate(QString::fromLatin1(name)));
        if (!parameter)
            continue;
        for (const eLivingSpace livingSpace : parameter->livingSpaces()) {
            const QList<quint16> elements = parameter->elementList();
            for (const quint16 element : elements.first(std::min(MostElements, elements.size())))
                lookAt(*parameter, livingSpace, element);
        }
    }
}

void loadAndSave(Subject &subject, const QByteArray &block)
{
    subject.reset();
    checkIniText(block);
    ParameterContainer &first = subject.first;
    ParameterContainer &second = subject.second;

    BlockComparison(block, first).report(std::nullopt, nullptr).toText();
    load(first, block);
    const QByteArray own = saved(first);
    checkReport(own, second);
    load(second, own);
    requireRule(saved(second) == own, "what was saved is saved the same again");

    lookAtNamed(block, first);
    const QByteArray changed = saved(first);
    load(second, changed);
    requireRule(saved(second) == changed, "a changed container is saved whole");
    System::instance()->clearMessages();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray block(reinterpret_cast<const char *>(data), qsizetype(size));
    if (block.count("CE") > MostElementCounts)
        return 0;
    // Never destroyed: the fuzzer ends the process where it stands.
    static auto &subject = *new Subject;
    loadAndSave(subject, block);
    return 0;
}
