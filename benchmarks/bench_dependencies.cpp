// What dependencies cost: writing with them beside writing without, few among many parameters beside few
// among few, and limits of a function beside limits of the definition.

#include "Measurement.h"

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

void readLimits(benchmark::State &state, Device &device)
{
    constexpr int Reads = 1000;
    const ParameterSetup *setup =
        device.container().parameterSetup(device.coordinates().constFirst()).data();
    QString limit;
    measure(
        state, Reads, [] {},
        [&] {
            for (int i = 0; i < Reads; ++i)
                limit = setup->upperLimitText(eLivingSpace::Axis1, 0);
        });
    check(state, limit == u"1000000"_s);
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

double mebibytesAfterAMillionWrites()
{
    Device device(400, {}, tenth(u"scaling"_s));
    for (int i = 0; i < 1000; ++i)
        device.write(0, QString::number(i));
    const size_t before = allocated();
    for (int i = 0; i < MillionWrites; ++i)
        device.write(i % 400, QString::number(i % 90001));
    return (double(allocated()) - double(before)) / (1024 * 1024);
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
    std::printf(
        "memory: %.3f MiB more after a million writes (bound 1)\n", mebibytesAfterAMillionWrites());
    printHostileWrite("endless function of 1,000 followers", u"while true do end"_s);
    printHostileWrite("slow function of 1,000 followers",
        u"for i = 1, 900000 do end return readValueNative(1, 'A00'), 1000"_s);
    for (const int size : Sizes) {
        const auto plain = [size] { return new Device(size, {}, withoutLinks); };
        addWith("write-all/limit", size, writeAll, plain);
        addWith("write-all/library", size, writeAll,
            [size] { return new Device(size, {}, tenth(u"scaling"_s)); });
    }
    const QJsonObject limits {{u"1"_s, u"return -1000000, 1000000"_s}};
    addWith("limit-function/limit", ReferenceSize, readLimits,
        [] { return new Device(1, {}, withoutLinks); });
    addWith("limit-function/library", ReferenceSize, readLimits, [limits] {
        return new Device(1, {{u"limit"_s, limits}}, [](int) -> Links {
            return {{}, {{u"limit"_s, 1}}};
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
    return runPairs(argc, argv, 0, {{"write-all", 1.25}, {"followed-by", 1.5}});
}
