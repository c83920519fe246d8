// The spine of the store beside a limit program: create, write, read, save, load, and memory.

#include "BenchmarkDevice.h"
#include "LimitStore.h"
#include "Measurement.h"

#include <KrParameterInstance/ParameterSetup.h>
#include <KrSystem/System.h>

#include <QtCore/QCoreApplication>

#include <cstdio>
#include <map>

namespace {

constexpr int Sizes[] = {400, 4000, 20000};
constexpr int ReferenceSize = 4000;
constexpr int RecordElements = 16000;
/// Bytes a value, and times as much a value as simple parameters cost.
constexpr double MemoryBound = 350;
constexpr double RecordBound = 1.5;

const QString Tag = QStringLiteral("da_2026");

const BenchmarkDevice &device(int size)
{
    static std::map<int, std::unique_ptr<BenchmarkDevice>> devices;
    auto &entry = devices[size];
    if (!entry)
        entry = std::make_unique<BenchmarkDevice>(size);
    return *entry;
}

const BenchmarkRecord &record()
{
    static const BenchmarkRecord device(RecordElements);
    return device;
}

/// Value i of a round as typed; every round writes another value.
QString typed(qint64 i, qint64 round)
{
    return QString::number(double((i * 7 + round * 13) % 90000) / 100.0, 'f', 2);
}

QList<QString> typedTexts(qint64 count, qint64 round)
{
    QList<QString> texts;
    texts.reserve(count);
    for (qint64 i = 0; i < count; ++i)
        texts.append(typed(i, round));
    return texts;
}

std::unique_ptr<ParameterContainer> makeContainer(ServoDriveFirmware *firmware)
{
    auto container = std::make_unique<ParameterContainer>();
    container->setFirmware(firmware);
    container->setParameterChangeTag(Tag);
    return container;
}

eLivingSpace axis(int index)
{
    return eLivingSpace(index + 1);
}

quint32 limitAddress(qsizetype parameter, int axisIndex)
{
    return quint32(parameter) * BenchmarkDevice::AxisCount + quint32(axisIndex);
}

void forEach(const BenchmarkDevice &used,
    const std::function<void(const ParameterCoordinate &, eLivingSpace, qsizetype)> &function)
{
    qsizetype i = 0;
    for (const ParameterCoordinate &coordinate : used.coordinates()) {
        for (int a = 0; a < BenchmarkDevice::AxisCount; ++a)
            function(coordinate, axis(a), i++);
    }
}

std::unique_ptr<LimitStore> makeLimit(const BenchmarkDevice &used)
{
    auto store = std::make_unique<LimitStore>();
    const QString defaultText = QStringLiteral("1250");
    for (qsizetype p = 0; p < used.coordinates().size(); ++p) {
        for (int a = 0; a < BenchmarkDevice::AxisCount; ++a)
            store->create(limitAddress(p, a), defaultText);
    }
    return store;
}

void createLimit(benchmark::State &state, int size)
{
    const BenchmarkDevice &used = device(size);
    std::unique_ptr<LimitStore> store;
    measure(
        state, used.valueCount(), [&] { store.reset(); }, [&] { store = makeLimit(used); });
    check(state, store->size() == used.valueCount());
}

void createByAxisLimit(benchmark::State &state, int size)
{
    const BenchmarkDevice &used = device(size);
    const QString defaultText = QStringLiteral("1250");
    std::unique_ptr<LimitStore> store;
    measure(
        state, used.valueCount(), [&] { store = std::make_unique<LimitStore>(); },
        [&] {
            for (qsizetype i = 0; i < used.locatorTexts().size(); ++i)
                store->createByText(used.locatorTexts().at(i), quint32(i), defaultText);
        });
    check(state, store->size() == used.valueCount());
}

void createLibraryWith(
    benchmark::State &state, int size, void (BenchmarkDevice::*fill)(ParameterContainer &) const)
{
    const BenchmarkDevice &used = device(size);
    std::unique_ptr<ParameterContainer> container;
    measure(
        state, used.valueCount(),
        [&] {
            container.reset();
            container = makeContainer(used.firmware());
        },
        [&] { (used.*fill)(*container); });
    check(state, container->parameterList().size() == size);
}

void createLibrary(benchmark::State &state, int size)
{
    createLibraryWith(state, size, &BenchmarkDevice::fill);
}

void createByAxisLibrary(benchmark::State &state, int size)
{
    createLibraryWith(state, size, &BenchmarkDevice::fillByAxis);
}

std::unique_ptr<ParameterContainer> writtenContainer(const BenchmarkDevice &used)
{
    auto container = makeContainer(used.firmware());
    used.fill(*container);
    forEach(used, [&](const ParameterCoordinate &coordinate, eLivingSpace space, qsizetype i) {
        container->writeValue(space, coordinate, 0, typed(i, 1));
    });
    return container;
}

/// Both write over values that are there: a first write costs the library the default as well.
void writeLimit(benchmark::State &state, int size)
{
    const BenchmarkDevice &used = device(size);
    const auto store = makeLimit(used);
    for (quint32 i = 0; i < quint32(used.valueCount()); ++i)
        store->write(i, typed(i, 1), Tag);
    quint64 heard = 0;
    const auto hear = [&heard](quint32 address) { heard += address; };
    QObject::connect(store.get(), &LimitStore::valueChanged, hear);
    QObject::connect(store.get(), &LimitStore::nativeValueChanged, hear);
    QObject::connect(store.get(), &LimitStore::parameterValueChanged, hear);
    QObject::connect(store.get(), &LimitStore::parameterNativeValueChanged, hear);
    QList<QString> texts;
    qint64 round = 1;
    bool isRight = true;
    measure(
        state, used.valueCount(), [&] { texts = typedTexts(used.valueCount(), ++round); },
        [&] {
            for (qsizetype i = 0; i < texts.size(); ++i)
                isRight = store->write(quint32(i), texts.at(i), Tag) && isRight;
        });
    check(state, isRight && heard > 0);
}

void writeLibrary(benchmark::State &state, int size)
{
    const BenchmarkDevice &used = device(size);
    const auto container = writtenContainer(used);
    quint64 heard = 0;
    const auto hear = [&heard](ParameterAddress address) { heard += address.toNumber(); };
    QObject::connect(container.get(), &ParameterContainer::parameterValueChanged, hear);
    QObject::connect(container.get(), &ParameterContainer::parameterNativeValueChanged, hear);
    for (const ParameterCoordinate &coordinate : used.coordinates()) {
        ParameterSetup *setup = container->parameterSetup(coordinate);
        QObject::connect(setup, &ParameterInformation::valueChanged, hear);
        QObject::connect(setup, &ParameterInformation::nativeValueChanged, hear);
    }
    QList<QString> texts;
    qint64 round = 1;
    measure(
        state, used.valueCount(), [&] { texts = typedTexts(used.valueCount(), ++round); },
        [&] {
            qsizetype i = 0;
            for (const ParameterCoordinate &coordinate : used.coordinates()) {
                for (int a = 0; a < BenchmarkDevice::AxisCount; ++a)
                    container->writeValue(axis(a), coordinate, 0, texts.at(i++));
            }
        });
    const QString last =
        container->readUndecoratedValue(eLivingSpace::Axis1, used.coordinates().first(), 0, false);
    check(state, heard > 0 && last.toDouble() == texts.first().toDouble());
}

void readLimit(benchmark::State &state, int size)
{
    const BenchmarkDevice &used = device(size);
    const auto store = makeLimit(used);
    for (quint32 i = 0; i < quint32(used.valueCount()); ++i)
        store->write(i, typed(i, 1), Tag);
    qsizetype length = 0;
    measure(
        state, used.valueCount(), [&] { length = 0; },
        [&] {
            for (quint32 i = 0; i < quint32(used.valueCount()); ++i)
                length += store->display(i).size();
        });
    check(state, length > 5 * used.valueCount() && store->display(1) == QLatin1String("0.20 A"));
}

void readLibrary(benchmark::State &state, int size)
{
    const BenchmarkDevice &used = device(size);
    const auto container = writtenContainer(used);
    qsizetype length = 0;
    measure(
        state, used.valueCount(), [&] { length = 0; },
        [&] {
            for (const ParameterCoordinate &coordinate : used.coordinates()) {
                for (int a = 0; a < BenchmarkDevice::AxisCount; ++a)
                    length += container->readValue(axis(a), coordinate, 0, true).size();
            }
        });
    const QString second =
        container->readValue(eLivingSpace::Axis2, used.coordinates().first(), 0, true);
    check(state, length > 5 * used.valueCount() && second == QLatin1String("0.20 A"));
}

void saveLimit(benchmark::State &state, int size)
{
    const BenchmarkDevice &used = device(size);
    const auto store = makeLimit(used);
    for (quint32 i = 0; i < quint32(used.valueCount()); ++i)
        store->write(i, typed(i, 1), Tag);
    QByteArray block;
    measure(
        state, used.valueCount(), [&] { block = QByteArray(); }, [&] { block = store->save(); });
    check(state, block.startsWith("V_0=13\r\n"));
}

void saveLibrary(benchmark::State &state, int size)
{
    const BenchmarkDevice &used = device(size);
    const auto container = writtenContainer(used);
    QMap<QString, QByteArray> blocks;
    measure(
        state, used.valueCount(), [&] { blocks.clear(); }, [&] { container->saveTo(blocks); });
    check(state, blocks.first().contains("\r\nV_1_0=13\r\n"));
}

void loadLimit(benchmark::State &state, int size)
{
    const BenchmarkDevice &used = device(size);
    const auto store = makeLimit(used);
    for (quint32 i = 0; i < quint32(used.valueCount()); ++i)
        store->write(i, typed(i, 1), Tag);
    const QByteArray block = store->save();
    std::unique_ptr<LimitStore> loaded;
    measure(
        state, used.valueCount(), [&] { loaded = makeLimit(used); }, [&] { loaded->load(block); });
    check(state, loaded->display(1) == QLatin1String("0.20 A"));
}

void loadLibrary(benchmark::State &state, int size)
{
    const BenchmarkDevice &used = device(size);
    QMap<QString, QByteArray> blocks;
    writtenContainer(used)->saveTo(blocks);
    std::unique_ptr<ParameterContainer> loaded;
    measure(
        state, used.valueCount(),
        [&] {
            loaded = makeContainer(used.firmware());
            used.fill(*loaded);
        },
        [&] { loaded->loadFrom(blocks); });
    const QString second =
        loaded->readValue(eLivingSpace::Axis2, used.coordinates().first(), 0, true);
    check(state, second == QLatin1String("0.20 A"));
}

/// The same work a value on one record of 16,000 elements, beside 4,000 parameters of four axes.
void recordCreate(benchmark::State &state)
{
    std::unique_ptr<ParameterContainer> container;
    measure(
        state, record().valueCount(),
        [&] {
            container.reset();
            container = makeContainer(record().firmware());
        },
        [&] { record().fill(*container); });
    check(state,
        container->parameterInformation(record().coordinate())->elementCount() == RecordElements);
}

std::unique_ptr<ParameterContainer> writtenRecord()
{
    auto container = makeContainer(record().firmware());
    record().fill(*container);
    for (quint16 e = 0; e < RecordElements; ++e)
        container->writeValue(eLivingSpace::Axis1, record().coordinate(), e, typed(e, 1));
    return container;
}

/// Four listeners hear of each value, as of those of simple parameters.
void recordWrite(benchmark::State &state)
{
    const auto container = writtenRecord();
    quint64 heard = 0;
    const auto hear = [&heard](ParameterAddress address) { heard += address.toNumber(); };
    QObject::connect(container.get(), &ParameterContainer::parameterValueChanged, hear);
    QObject::connect(container.get(), &ParameterContainer::parameterNativeValueChanged, hear);
    ParameterSetup *setup = container->parameterSetup(record().coordinate());
    QObject::connect(setup, &ParameterInformation::valueChanged, hear);
    QObject::connect(setup, &ParameterInformation::nativeValueChanged, hear);
    QList<QString> texts;
    qint64 round = 1;
    measure(
        state, record().valueCount(), [&] { texts = typedTexts(record().valueCount(), ++round); },
        [&] {
            for (quint16 e = 0; e < RecordElements; ++e)
                container->writeValue(eLivingSpace::Axis1, record().coordinate(), e, texts.at(e));
        });
    const QString second =
        container->readUndecoratedValue(eLivingSpace::Axis1, record().coordinate(), 1, false);
    check(state, heard > 0 && second.toDouble() == texts.at(1).toDouble());
}

void recordRead(benchmark::State &state)
{
    const auto container = makeContainer(record().firmware());
    record().fill(*container);
    qsizetype length = 0;
    measure(
        state, record().valueCount(), [&] { length = 0; },
        [&] {
            for (quint16 e = 0; e < RecordElements; ++e)
                length += container->readValue(eLivingSpace::Axis1, record().coordinate(), e, true)
                              .size();
        });
    check(state, length == 7 * RecordElements);
}

void recordSaveLoad(benchmark::State &state)
{
    const auto container = makeContainer(record().firmware());
    record().fill(*container);
    QMap<QString, QByteArray> blocks;
    measure(
        state, record().valueCount(), [&] { blocks.clear(); },
        [&] {
            container->saveTo(blocks);
            container->loadFrom(blocks);
        });
    check(state, blocks.first().contains("\r\nV_1_15999=1250\r\n"));
}

void plainSaveLoad(benchmark::State &state)
{
    const auto container = writtenContainer(device(ReferenceSize));
    QMap<QString, QByteArray> blocks;
    measure(
        state, device(ReferenceSize).valueCount(), [&] { blocks.clear(); },
        [&] {
            container->saveTo(blocks);
            container->loadFrom(blocks);
        });
    check(state, blocks.first().contains("\r\nV_1_0=13\r\n"));
}

/// Bytes a value with value, default and tag set, everything that the container keeps included.
double memoryPerValue(int size)
{
    const BenchmarkDevice &used = device(size);
    const size_t before = allocated();
    const auto container = writtenContainer(used);
    return double(allocated() - before) / double(used.valueCount());
}

double recordMemoryPerValue()
{
    record();
    const size_t before = allocated();
    const auto container = writtenRecord();
    return double(allocated() - before) / double(record().valueCount());
}

void addSized(const char *name, int size, void (*function)(benchmark::State &, int))
{
    add(name, size, [function, size](benchmark::State &state) { function(state, size); });
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    System::information()->setUserAccessLevel(6);
    const double memory = memoryPerValue(ReferenceSize);
    printBounded("memory of 4,000 parameters of four axes", memory, "bytes a value", MemoryBound);
    printBounded("memory of a record of 16,000 elements beside it", recordMemoryPerValue() / memory,
        "times", RecordBound);
    for (const int size : Sizes) {
        addSized("create/limit", size, createLimit);
        addSized("create/library", size, createLibrary);
        addSized("create-by-axis/limit", size, createByAxisLimit);
        addSized("create-by-axis/library", size, createByAxisLibrary);
        addSized("write/limit", size, writeLimit);
        addSized("write/library", size, writeLibrary);
        addSized("read/limit", size, readLimit);
        addSized("read/library", size, readLibrary);
        addSized("save/limit", size, saveLimit);
        addSized("save/library", size, saveLibrary);
        addSized("load/limit", size, loadLimit);
        addSized("load/library", size, loadLibrary);
    }
    // For the record, 4,000 simple parameters stand in the place of the limit.
    const auto plain = [](auto function) {
        return [function](benchmark::State &state) { function(state, ReferenceSize); };
    };
    add("record-create/limit", RecordElements, plain(createLibrary));
    add("record-create/library", RecordElements, recordCreate);
    add("record-write/limit", RecordElements, plain(writeLibrary));
    add("record-write/library", RecordElements, recordWrite);
    add("record-read/limit", RecordElements, plain(readLibrary));
    add("record-read/library", RecordElements, recordRead);
    add("record-save-load/limit", RecordElements, plainSaveLoad);
    add("record-save-load/library", RecordElements, recordSaveLoad);
    return runPairs(argc, argv, ReferenceSize,
        {{"create", 3.0}, {"create-by-axis", 3.0}, {"write", 3.0}, {"read", 1.9}, {"save", 4.0},
            {"load", 4.0}, {"record-create", RecordBound}, {"record-write", RecordBound},
            {"record-read", RecordBound}, {"record-save-load", RecordBound}});
}
