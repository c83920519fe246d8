#include "tests/model/ContainerStage.h"

#include "tests/support/ContainerInternals.h"
#include "tests/support/DefinitionBuilder.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrSystem/System.h>

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtCore/QSet>

#include <array>

using namespace Qt::StringLiterals;
using enum eParameterProperty;

namespace {

/// Nested steps of one step; each may lead to more.
constexpr int MostHostileSteps = 6;

const QString &name(int parameter)
{
    static const std::array<QString, ContainerModel::ParameterCount> names {
        u"A12"_s, u"B07"_s, u"C01"_s, u"D20"_s, u"E01"_s, u"Q00"_s};
    return names[size_t(parameter)];
}

std::unique_ptr<ParameterDefinition> makeDefinition(int parameter, int version)
{
    DefinitionBuilder builder;
    builder.identifier(name(parameter))
        .coordinates({name(parameter)})
        .version(quint32(version) + 1)
        .levels(
            ContainerModel::readLevel(parameter, version), ContainerModel::writeLevel(parameter));
    switch (parameter) {
    case ContainerModel::A12:
        builder.property(LimitDependency, 1)
            .property(ScalingDependency, 1)
            .property(PostwriteDependency, 1)
            .property(HidingDependency, 1)
            .property(MeasuringUnitDependency, 1);
        break;
    case ContainerModel::B07:
        builder.elementCount(ContainerModel::definedCount(parameter, version))
            .property(LimitFunctionIndex, 1U)
            .property(HidingFunctionIndex, 1U);
        break;
    case ContainerModel::C01:
        builder.property(PostwriteFunctionIndex, 1U).units({}, {}, u"<localAxis:A12>"_s);
        break;
    case ContainerModel::D20:
        for (const quint16 element : ContainerModel::recordElements(version))
            builder.element(element, u"x"_s);
        break;
    case ContainerModel::E01:
        builder.global().property(ScalingFunctionIndex, 1U);
        break;
    default:
        break;
    }
    return builder.build();
}

ParameterDefinition *definition(int parameter, int version)
{
    static std::array<
        std::array<std::unique_ptr<ParameterDefinition>, ContainerModel::VersionCount>,
        ContainerModel::ParameterCount>
        definitions;
    auto &place = definitions[size_t(parameter)][size_t(version)];
    if (!place)
        place = makeDefinition(parameter, version);
    return place.get();
}

constexpr char FirstFunctions[] = R"json("functions": {
    "limit": {"1": ["local v = readValueNative(parameter.livingSpace, 'A12')",
                    "if math.type(v) then return -100, v end"]},
    "hiding": {"1": ["local v = readValueNative(parameter.livingSpace, 'A12')",
                     "return math.type(v) and v % 2 == 1 or false"]},
    "postWrite": {"1": ["local space = parameter.livingSpace",
                        "local v = readValueNative(space, 'A12')",
                        "writeValueNative(space, 'D20', 5, v + 1)"]}})json";
constexpr char SecondFunctions[] = R"json("functions": {
    "limit": {"1": "return -1000, 1000"},
    "hiding": {"1": ["local v = readValueNative(parameter.livingSpace, 'A12')",
                     "if v == 7 then error('seven') end",
                     "return math.type(v) and v > 5 or false"]},
    "postWrite": {"1": ["local space = parameter.livingSpace",
                        "local v = readValueNative(space, 'A12')",
                        "addWarningMessage('written')",
                        "writeValueNative(space, 'D20', 5, v * 2)"]}})json";

ServoDriveFirmware *firmware(int number)
{
    static const auto first = TestFirmware::load(TestFirmware::PlainAxesFamily, FirstFunctions);
    static const auto second = TestFirmware::load(TestFirmware::PlainAxesFamily, SecondFunctions);
    return number == 0 ? nullptr : number == 1 ? first.get() : second.get();
}

} // namespace

ContainerStage::ContainerStage(quint32 hostileSeed)
    : m_seed(hostileSeed)
    , m_random(hostileSeed)
{
    System::information()->setUserAccessLevel(0);
    if (isHostile())
        listen(System::instance());
    open();
}

ContainerStage::~ContainerStage()
{
    m_hostileSteps = 0;
    m_container.reset();
    m_messages.take();
    System::information()->setUserAccessLevel(0);
}

void ContainerStage::open()
{
    m_container = std::make_unique<ParameterContainer>();
    ContainerInternals::of(*m_container)->clock = [] { return QTime(12, 0); };
    m_log.attach(m_container.get(), u"c"_s);
    if (isHostile())
        listen(m_container.get());
}

void ContainerStage::take(const Step &step)
{
    m_hostileSteps = isHostile() ? MostHostileSteps : 0;
    perform(step);
    m_hostileSteps = 0;
    if (!m_container)
        open();
    m_messages.take();
}

QStringList ContainerStage::takeTold()
{
    return m_log.take();
}

void ContainerStage::perform(const Step &step)
{
    ParameterContainer &container = *m_container;
    ParameterSetup *set = setup(step.parameter);
    const auto space = eLivingSpace(ContainerModel::livingSpace(step.parameter, step.livingSpace));
    const ParameterCoordinate at = set ? set->coordinate() : ParameterCoordinate();
    const QString text = QString::number(step.number);
    switch (step.kind) {
    case Step::Create:
        create(step);
        return;
    case Step::Update:
        update(step);
        return;
    case Step::Delete:
        container.deleteParameter(locator(step.parameter, 1));
        if (m_container)
            m_container->deleteParameter(locator(step.parameter, 2));
        return;
    case Step::Clear:
        container.clear();
        return;
    case Step::WriteDisplay:
        container.writeValue(space, at, step.element, text);
        return;
    case Step::WriteNative:
        container.writeValueNative(space, at, step.element, text);
        return;
    case Step::WriteUndecorated:
        container.writeUndecoratedValue(space, at, step.element, text);
        return;
    case Step::Online:
        container.setOnline(step.number % 2 == 0);
        return;
    case Step::ReadOnly:
        container.setReadOnly(step.number % 2 == 0);
        return;
    case Step::Level:
        System::information()->setUserAccessLevel(quint32(step.number % 6));
        return;
    case Step::Firmware:
        container.setFirmware(firmware(step.number % ContainerModel::FirmwareCount));
        return;
    case Step::ElementCount:
        if (ParameterSetup *counted = setup(ContainerModel::B07))
            counted->setElementCount(quint16(step.number % 5));
        return;
    case Step::Coordinate:
        if (ParameterSetup *moved = setup(ContainerModel::Q00))
            moved->setCoordinate(
                ParameterCoordinate(ParameterCoordinate::MoveableGroup, quint16(step.number % 4)));
        return;
    case Step::Save:
        container.saveTo(m_blocks);
        return;
    case Step::Load:
        container.loadFrom(m_blocks);
        return;
    case Step::StartConsistence:
        if (set)
            set->startAllElementsConsistenceOnce(space);
        return;
    case Step::CancelConsistence:
        if (set)
            set->cancelAllElementsConsistenceOnce(space);
        return;
    case Step::KindCount:
        return;
    }
}

void ContainerStage::create(const Step &step)
{
    const bool isAlone =
        step.parameter == ContainerModel::Q00 || step.parameter == ContainerModel::E01;
    const QString text = locator(step.parameter, isAlone ? 1 : step.livingSpace);
    // A parameter that is there is another living space's: it keeps its definition.
    const auto *known = static_cast<CoordinateInstanceSet *>(setup(step.parameter));
    const QPointer<ContainerStage> guard(this);
    ParameterDefinition *chosen = known
        ? known->definition()
        : definition(step.parameter, step.number % ContainerModel::VersionCount);
    m_container->createOrUpdateParameter(chosen, text);
    ParameterSetup *created = m_container ? setup(step.parameter) : nullptr;
    if (!created || created == known)
        return;
    for (auto signal : {&ParameterInformation::allElementsConsistenceOnceDone,
             &ParameterInformation::allElementsConsistenceOnceCanceled}) {
        const QString told = signal == &ParameterInformation::allElementsConsistenceOnceDone
            ? u"Done"_s
            : u"Canceled"_s;
        connect(created, signal, this,
            [this, told](const ParameterCoordinate &coordinate, eLivingSpace space) {
                m_log.note(u"run%1(%2 %3)"_s.arg(told, coordinate.toText()).arg(int(space)));
            });
    }
    const std::pair<void (ParameterInformation::*)(ParameterAddress), QString> ofTheSetAlone[] = {
        {&ParameterInformation::limitsChanged, u"limitsChanged"_s},
        {&ParameterInformation::writabilityChanged, u"writabilityChanged"_s},
        {&ParameterInformation::measuringUnitChanged, u"measuringUnitChanged"_s}};
    for (const auto &[signal, told] : ofTheSetAlone) {
        connect(created, signal, this, [this, told = told](const ParameterAddress &at) {
            m_log.note(u"s.%1(%2)"_s.arg(told, at.toSortableText()));
        });
    }
    if (isHostile())
        listen(created);
}

void ContainerStage::update(const Step &step)
{
    for (const int space : {1, 2}) {
        const QString text = locator(step.parameter, space);
        if (m_container && m_container->queryParameterInstance(text)) {
            m_container->createOrUpdateParameter(
                definition(step.parameter, step.number % ContainerModel::VersionCount), text);
            return;
        }
    }
}

ParameterSetup *ContainerStage::setup(int parameter) const
{
    ParameterSetup *found = m_container->queryParameterInstance(locator(parameter, 1));
    return found ? found : m_container->queryParameterInstance(locator(parameter, 2));
}

QString ContainerStage::locator(int parameter, int livingSpace)
{
    return u"D.%1;%2"_s.arg(livingSpace).arg(name(parameter));
}

void ContainerStage::listen(QObject *source)
{
    const QMetaMethod reaction = metaObject()->method(metaObject()->indexOfSlot("react()"));
    const QMetaObject *meta = source->metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() == QMetaMethod::Signal)
            connect(source, meta->method(i), this, reaction);
    }
}

void ContainerStage::react()
{
    if (m_hostileSteps <= 0 || !m_container)
        return;
    --m_hostileSteps;
    const auto upTo = [this](int last) {
        return std::uniform_int_distribution<int>(0, last)(m_random);
    };
    if (upTo(9) == 0) {
        m_container.reset();
        return;
    }
    Step step;
    step.kind = Step::eKind(upTo(Step::KindCount - 1));
    step.parameter = upTo(ContainerModel::ParameterCount - 1);
    step.livingSpace = 1 + upTo(1);
    step.element = quint16(upTo(7));
    step.number = upTo(12);
    perform(step);
}

QString ContainerStage::difference(const ContainerModel &model) const
{
    if (m_container->isOnline() != model.isOnline || m_container->isReadOnly() != model.isReadOnly
        || m_container->firmware() != firmware(model.firmware))
        return u"state of the container"_s;
    QSet<QString> expected;
    for (int i = 0; i < ContainerModel::ParameterCount; ++i) {
        const ContainerModel::Parameter &parameter = model.parameters[size_t(i)];
        if (parameter.instances.isEmpty())
            continue;
        const QString text = model.coordinateText(i);
        expected.insert(text);
        const ParameterSetup *set = m_container->parameterSetup(ParameterCoordinate(text)).data();
        if (!set || set->livingSpaces().size() != parameter.instances.size())
            return text + u": instances"_s;
        if (set->elementList() != model.elements(i))
            return text + u": elements"_s;
        for (const int space : parameter.instances.keys()) {
            const auto at = eLivingSpace(space);
            for (const quint16 element : model.elements(i)) {
                const QString place =
                    u"%1, living space %2, element %3: "_s.arg(text).arg(space).arg(element);
                const QString value = set->nativeValueText(at, element, false);
                if (value != model.value(i, space, element))
                    return place + value + u" instead of "_s + model.value(i, space, element);
                if (set->isVisible(at, element) != model.isVisible(i, space, element))
                    return place + u"visibility"_s;
                if (set->isWritable(at, element) != model.isWritable(i))
                    return place + u"writability"_s;
                const auto [lower, upper] = model.limits(i, space);
                if (set->lowerLimitText(at, element) != lower
                    || set->upperLimitText(at, element) != upper)
                    return place + u"limits"_s;
            }
        }
    }
    QSet<QString> found;
    for (const ParameterCoordinate &coordinate : m_container->parameterList())
        found.insert(coordinate.toText());
    return found == expected ? QString() : u"parameters"_s;
}

QString ContainerStage::contradiction() const
{
    const bool hasProvider = m_container->functionProvider() != nullptr;
    if (hasProvider != (m_container->firmware() != nullptr))
        return u"firmware and its functions"_s;
    for (const ParameterCoordinate &coordinate : m_container->parameterList()) {
        const ParameterSetup *set = m_container->parameterSetup(coordinate).data();
        if (!set || set->coordinate() != coordinate)
            return coordinate.toText() + u": its coordinate"_s;
        for (const eLivingSpace space : set->livingSpaces()) {
            if (!set->hasInstance(space))
                return coordinate.toText() + u": its instances"_s;
            for (const quint16 element : set->elementList()) {
                const QString native = set->nativeValueText(space, element, false);
                if (m_container->readValueNative(space, coordinate, element, false) != native)
                    return coordinate.toText() + u": its value"_s;
                set->isVisible(space, element);
                set->upperLimitText(space, element);
            }
        }
    }
    return {};
}
