// What dependencies cost: writing with them beside writing without, few among many parameters beside few
// among few, and a limit function of a description beside the same one in C++.

#include "Measurement.h"
#include "tests/support/ContainerInternals.h"

#include <KrFirmware/CallbackProvider.h>
#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>
#include <KrSystem/System.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int Sizes[] = {400, 4000, 20000};
constexpr int ReferenceSize = 4000;
constexpr int MillionWrites = 1000000;

ParameterCoordinate coordinateOf(int parameter)
{
    // Spread over the groups without the moveable one.
    const int group = parameter % 24 + 1;
    return ParameterCoordinate(quint16(group >= 17 ? group + 1 : group), quint16(parameter / 24));
}

/// Dependencies and functions of one parameter, by their names in a description.
struct Links {
    QJsonObject dependencies;
    QJsonObject functions;
};

/// A device of 32-bit values on one axis.
class Device {
public:
    Device(int size, const QJsonObject &functions, const std::function<Links(int)> &links)
    {
        QJsonArray parameters;
        for (int i = 0; i < size; ++i) {
            const Links own = links(i);
            QJsonObject element {{u"dataType"_s, u"INT32"_s}, {u"kind"_s, 0},
                {u"limits"_s, QJsonObject {{u"lower"_s, -1000000}, {u"upper"_s, 1000000}}}};
            if (!own.dependencies.isEmpty())
                element.insert(u"dependencies"_s, own.dependencies);
            if (!own.functions.isEmpty())
                element.insert(u"functions"_s, own.functions);
            parameters.append(QJsonObject {{u"number"_s, i + 1}, {u"name"_s, u"Value"_s},
                {u"coordinates"_s, QJsonArray {coordinateOf(i).toText()}},
                {u"elements"_s, QJsonArray {element}}});
        }
        const QJsonObject family {{u"identifier"_s, 78}, {u"name"_s, u"Dependencies"_s},
            {u"hasPhysicalAxes"_s, false}, {u"axes"_s, QJsonArray {1}}};
        const QJsonObject root {{u"format"_s, u"kr-device-description"_s}, {u"version"_s, 1},
            {u"family"_s, family}, {u"languages"_s, QJsonArray {u"de"_s}},
            {u"dataTypes"_s, QJsonArray {u"INT32"_s}}, {u"functions"_s, functions},
            {u"parameters"_s, parameters}};
        DescriptionError error;
        m_firmware =
            ServoDriveFirmware::loadFromBytes(QJsonDocument(root).toJson(), u"benchmark"_s, &error);
        if (!m_firmware) {
            std::fprintf(stderr, "%s\n", qPrintable(error.toText()));
            std::abort();
        }
        m_container.setFirmware(m_firmware.get());
        for (int i = 0; i < size; ++i) {
            m_container.createOrUpdateParameter(
                m_firmware->parameterDefinition(quint32(i + 1)), u"D.1;{P%1}"_s.arg(i + 1));
            m_coordinates.append(coordinateOf(i));
        }
        for (const ParameterCoordinate &coordinate : std::as_const(m_coordinates))
            m_container.readValue(eLivingSpace::Axis1, coordinate, 0, true);
    }

    ParameterContainer &container() { return m_container; }
    const QList<ParameterCoordinate> &coordinates() const { return m_coordinates; }
    void write(qsizetype parameter, const QString &text)
    {
        m_container.writeValue(eLivingSpace::Axis1, m_coordinates.at(parameter), 0, text);
    }
    QString text(qsizetype parameter) const
    {
        return m_container.readValueNative(
            eLivingSpace::Axis1, m_coordinates.at(parameter), 0, false);
    }

private:
    std::unique_ptr<ServoDriveFirmware> m_firmware;
    ParameterContainer m_container;
    QList<ParameterCoordinate> m_coordinates;
};

Links withoutLinks(int)
{
    return {};
}

/// One parameter in ten leads to its neighbour.
std::function<Links(int)> tenth(const QString &kind)
{
    return [kind](int parameter) -> Links {
        const QJsonObject link {{kind, parameter / 10 + 1}};
        if (parameter % 10 == 0)
            return {link, {}};
        return parameter % 10 == 1 ? Links {{}, link} : Links {};
    };
}

/// One parameter in ten leads to its neighbour, in turn by its limits, whether it is hidden, its scaling.
Links tenthOfEachKind(int parameter)
{
    const QList<QString> kinds {u"limit"_s, u"hiding"_s, u"scaling"_s};
    return tenth(kinds.at(parameter / 10 % kinds.size()))(parameter);
}

/// What the neighbours are computed by: good for every value that is written.
QJsonObject functionsOfEachKind(int count)
{
    const std::pair<QString, QString> texts[] = {
        {u"limit"_s, u"return -1000000, 1000000 + parameter.element"_s},
        {u"hiding"_s, u"return parameter.element == 1"_s},
        {u"scaling"_s, u"return 1 + parameter.element"_s}};
    QJsonObject functions;
    for (const auto &[kind, text] : texts) {
        QJsonObject table;
        for (int i = 1; i <= count; ++i)
            table.insert(QString::number(i), text);
        functions.insert(kind, table);
    }
    return functions;
}

/// The limits of every value are those that the first one says, as the function of the description does.
class LimitProvider final : public ParameterFunctionProvider {
public:
    void setCallbackProvider(CallbackProvider *callbacks) override { m_callbacks = callbacks; }
    quint32 checkValue(const QString &, const ParameterData *, quint16) override { return 0; }
    QString correctValue(const QString &text, const ParameterData *, quint16) override
    {
        return text;
    }
    QString valueText(const QString &text, const ParameterData *, quint16) override { return text; }
    QString nativeText(const QString &text, const ParameterData *, quint16) override
    {
        return text;
    }
    QString lowerLimit(const ParameterData *, quint16) override { return limits().first; }
    QString upperLimit(const ParameterData *, quint16) override { return limits().second; }
    bool isHidden(const ParameterData *, quint16) override { return false; }
    void runFunction(eFunctionKind, const ParameterData *, quint16) override { }

private:
    std::pair<QString, QString> limits() const
    {
        const qint64 most =
            m_callbacks->readValueNative(1, coordinateOf(0).toNumber(), 0, false).toLongLong();
        return {QString::number(-most), QString::number(most)};
    }

    CallbackProvider *m_callbacks = nullptr;
};

double processorSeconds()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// The first parameter leads to so many others, which are spread over all.
std::function<Links(int)> followed(int receivers, int size)
{
    return [receivers, step = (size - 1) / receivers](int parameter) -> Links {
        const QJsonObject link {{u"scaling"_s, 1}};
        if (parameter == 0)
            return {link, {}};
        const bool isReceiver = parameter % step == 0 && parameter / step <= receivers;
        return isReceiver ? Links {{}, link} : Links {};
    };
}

/// The first parameter has all kinds of dependency, each with one receiver.
Links allKinds(int parameter)
{
    const QList<QString> kinds {u"limit"_s, u"scaling"_s, u"postWrite"_s, u"preRead"_s,
        u"postRead"_s, u"preWrite"_s, u"hiding"_s};
    Links links;
    if (parameter == 0) {
        for (const QString &kind : kinds)
            links.dependencies.insert(kind, 1);
        links.dependencies.insert(u"measuringUnit"_s, 1);
    } else if (parameter <= kinds.size()) {
        links.functions.insert(kinds.at(parameter - 1), 1);
    }
    return links;
}

/// Texts of a round; every round writes others.
QList<QString> texts(qsizetype count, qint64 round)
{
    QList<QString> list;
    list.reserve(count);
    for (qsizetype i = 0; i < count; ++i)
        list.append(QString::number((i * 7 + round * 13) % 90000));
    return list;
}

void writeAll(benchmark::State &state, Device &device)
{
    const qsizetype count = device.coordinates().size();
    QList<QString> typed;
    qint64 round = 0;
    measure(
        state, count, [&] { typed = texts(count, ++round); },
        [&] {
            for (qsizetype i = 0; i < count; ++i)
                device.write(i, typed.at(i));
        });
    check(state, device.text(count - 1) == typed.constLast());
}

/// Writes one parameter again and again.
void writeOne(benchmark::State &state, Device &device)
{
    constexpr int Writes = 100;
    QList<QString> typed;
    qint64 round = 0;
    measure(
        state, Writes, [&] { typed = texts(Writes, ++round); },
        [&] {
            for (const QString &text : std::as_const(typed))
                device.write(0, text);
        });
    check(state, device.text(0) == typed.constLast());
}

/// Of the second parameter; the first one says them.
void readLimits(benchmark::State &state, Device &device)
{
    constexpr int Reads = 1000;
    device.container().writeValueNative(
        eLivingSpace::Axis1, device.coordinates().constFirst(), 0, u"90000"_s);
    const ParameterSetup *setup =
        device.container().parameterSetup(device.coordinates().at(1)).data();
    QString limit;
    measure(
        state, Reads, [] {},
        [&] {
            for (int i = 0; i < Reads; ++i)
                limit = setup->upperLimitText(eLivingSpace::Axis1, 0);
        });
    check(state, limit == u"90000"_s);
}

using Run = void (*)(benchmark::State &, Device &);

/// The device is made when it is needed first, and kept.
void addWith(const std::string &name, int size, Run run, const std::function<Device *()> &make)
{
    auto device = std::make_shared<std::unique_ptr<Device>>();
    add(name, size, [run, make, device](benchmark::State &state) {
        if (!*device)
            device->reset(make());
        run(state, **device);
    });
}

/// By which a million writes raise the most memory that the program holds at once.
double peakOfAMillionWrites()
{
    constexpr int Parameters = 400;
    Device device(Parameters, functionsOfEachKind(Parameters / 10), tenthOfEachKind);
    for (const ParameterCoordinate &coordinate : device.coordinates())
        device.container().parameterSetup(coordinate)->isVisible(eLivingSpace::Axis1, 0);
    for (int i = 0; i < 10 * Parameters; ++i)
        device.write(i % Parameters, QString::number(i));
    forgetPeak();
    const double before = peakMebibytes();
    for (int i = 0; i < MillionWrites; ++i)
        device.write(i % Parameters, QString::number(i % 90001));
    return before < 0 ? before : peakMebibytes() - before;
}

/// Of the first write to a value that 1,000 others follow by this limit function, and of the second.
void printHostileWrite(const char *what, const QString &function)
{
    const QJsonObject limits {{u"1"_s, function}};
    Device device(1001, {{u"limit"_s, limits}}, [](int parameter) -> Links {
        const QJsonObject link {{u"limit"_s, 1}};
        return parameter == 0 ? Links {link, {}} : Links {{}, link};
    });
    // The defaults asked the function before; it is to have its chance again.
    device.container().setFirmware(device.container().firmware());
    const double begin = processorSeconds();
    device.write(0, u"1"_s);
    const double middle = processorSeconds();
    device.write(0, u"2"_s);
    std::printf("%s: %.1f ms, then %.1f ms\n", what, (middle - begin) * 1000,
        (processorSeconds() - middle) * 1000);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    System::information()->setUserAccessLevel(6);
    printBounded(
        "peak memory of a million writes to values with limit, hiding and scaling receivers",
        peakOfAMillionWrites(), "MiB more", 1);
    printHostileWrite("endless function of 1,000 followers", u"while true do end"_s);
    printHostileWrite("slow function of 1,000 followers",
        u"for i = 1, 900000 do end return readValueNative(1, 'A00'), 1000"_s);
    for (const int size : Sizes) {
        const auto plain = [size] { return new Device(size, {}, withoutLinks); };
        addWith("write-all/limit", size, writeAll, plain);
        addWith("write-all/library", size, writeAll,
            [size] { return new Device(size, {}, tenth(u"scaling"_s)); });
    }
    addWith("limit-function/limit", ReferenceSize, readLimits, [] {
        auto device = std::make_unique<Device>(2, QJsonObject(), withoutLinks);
        ContainerInternals::bind(device->container(), std::make_unique<LimitProvider>());
        return device.release();
    });
    addWith("limit-function/library", ReferenceSize, readLimits, [] {
        const QString function = u"local most = readValueNative(1, '%1') return -most, most"_s.arg(
            coordinateOf(0).toText());
        return new Device(2, {{u"limit"_s, QJsonObject {{u"1"_s, function}}}}, [](int parameter) {
            return parameter == 1 ? Links {{}, {{u"limit"_s, 1}}} : Links {};
        });
    });
    addWith("all-kinds/limit", ReferenceSize, writeOne,
        [] { return new Device(4000, {}, followed(1, 4000)); });
    addWith("all-kinds/library", ReferenceSize, writeOne,
        [] { return new Device(4000, {}, allKinds); });
    // Among few and among many parameters; the sizes are those of the receivers.
    for (const int receivers : {1, 10, 1000}) {
        const int few = qMax(400, receivers + 1);
        addWith("followed-by/limit", receivers, writeOne,
            [receivers, few] { return new Device(few, {}, followed(receivers, few)); });
        addWith("followed-by/library", receivers, writeOne,
            [receivers] { return new Device(20000, {}, followed(receivers, 20000)); });
    }
    return runPairs(
        argc, argv, 0, {{"write-all", 1.25}, {"followed-by", 1.5}}, {{"write-all", 1.25}});
}
