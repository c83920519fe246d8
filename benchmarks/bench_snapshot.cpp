// Snapshots beside a limit program: taking with formatting, comparing, exporting, and memory.

#include "BenchmarkDevice.h"
#include "LimitSnapshot.h"
#include "LimitStore.h"
#include "Measurement.h"

#include <KrParameterInstance/ParameterContainerHostInformation.h>
#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrSystem/System.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <cstdio>
#include <map>
#include <memory>

namespace {

constexpr int Sizes[] = {16000, 80000};
constexpr int ReferenceSize = 16000;
/// Bounds hold at both sizes.
constexpr int EverySize = 0;
constexpr int RecordElements = 16000;
/// Every hundredth value differs.
constexpr int DifferentStep = 100;
const QString Tag = QStringLiteral("da_2026");

class Host final : public ParameterContainerHostInformation {
public:
    QList<eLivingSpace> livingSpaces() const override
    {
        return {eLivingSpace::Global, eLivingSpace::Axis1, eLivingSpace::Axis2, eLivingSpace::Axis3,
            eLivingSpace::Axis4};
    }
    unsigned int deviceFamilyIdentifier() const override { return 77; }
};

enum class eState { First, Second };

QString text(qint64 i, bool isDifferent)
{
    return QString::number(double((i * 7 + (isDifferent ? 13 : 0)) % 90000) / 100.0, 'f', 2);
}

/// Value i as typed, in a state of the device.
QString typed(qint64 i, eState state)
{
    return text(i, state == eState::Second && i % DifferentStep == DifferentStep - 1);
}

/// The library's side: a container, written value by value.
class Drive {
public:
    virtual ~Drive() = default;

    qint64 valueCount = 0;
    /// Of the parameters that differ in the second state.
    qint64 differentCount = 0;
    ParameterContainer container;

    virtual void write(eState state) = 0;

protected:
    void prepare(ServoDriveFirmware *firmware)
    {
        container.setHostInformation(&m_host);
        container.setFirmware(firmware);
        container.setParameterChangeTag(Tag);
    }

private:
    Host m_host;
};

class ManyParameters final : public Drive {
public:
    explicit ManyParameters(int size)
        : m_device(size / BenchmarkDevice::AxisCount)
    {
        prepare(m_device.firmware());
        m_device.fill(container);
        valueCount = size;
        differentCount = size / DifferentStep;
    }

    void write(eState state) override
    {
        qint64 i = 0;
        for (const ParameterCoordinate &coordinate : m_device.coordinates()) {
            for (int axis = 1; axis <= BenchmarkDevice::AxisCount; ++axis)
                container.writeValue(eLivingSpace(axis), coordinate, 0, typed(i++, state));
        }
    }

private:
    BenchmarkDevice m_device;
};

class OneRecord final : public Drive {
public:
    OneRecord()
        : m_record(RecordElements)
    {
        prepare(m_record.firmware());
        m_record.fill(container);
        valueCount = RecordElements;
        differentCount = 1;
    }

    void write(eState state) override
    {
        // A comparison ends at the first difference: those of a record stand at its end.
        constexpr int FirstDifferent = RecordElements - RecordElements / DifferentStep;
        for (int i = 0; i < RecordElements; ++i) {
            container.writeValue(eLivingSpace::Axis1, m_record.coordinate(), quint16(i),
                text(i, state == eState::Second && i >= FirstDifferent));
        }
    }

private:
    BenchmarkRecord m_record;
};

using MakeDrive = std::function<std::unique_ptr<Drive>()>;

std::unique_ptr<LimitStore> limitStore(int size, eState state)
{
    auto store = std::make_unique<LimitStore>();
    for (int i = 0; i < size; ++i) {
        store->create(quint32(i), QStringLiteral("1250"));
        store->write(quint32(i), typed(i, state), Tag);
    }
    return store;
}

QStringList names(int size)
{
    QStringList texts;
    for (int i = 0; i < size; ++i)
        texts.append(QStringLiteral("Current %1").arg(i));
    return texts;
}

void takeLimit(benchmark::State &state, int size)
{
    const auto store = limitStore(size, eState::First);
    const QStringList texts = names(size);
    std::unique_ptr<LimitSnapshot> snapshot;
    measure(
        state, size, [&] { snapshot = std::make_unique<LimitSnapshot>(); },
        [&] { snapshot->take(*store, texts); });
    check(state,
        snapshot->values().size() == size
            && snapshot->values().value(1).display == QLatin1String("0.07"));
}

void takeLibrary(benchmark::State &state, const MakeDrive &makeDrive)
{
    const auto drive = makeDrive();
    drive->write(eState::First);
    std::unique_ptr<ParameterValueSnapshot> snapshot;
    measure(
        state, drive->valueCount,
        [&] { snapshot = std::make_unique<ParameterValueSnapshot>(&drive->container); },
        [&] { snapshot->applyNoFilter(); });
    check(state,
        snapshot->value(eLivingSpace::Axis1, snapshot->parameterList().value(0), 0, true)
            .endsWith(QLatin1String(" A")));
}

void compareLimit(benchmark::State &state, int size)
{
    LimitSnapshot before;
    LimitSnapshot after;
    before.take(*limitStore(size, eState::First), names(size));
    after.take(*limitStore(size, eState::Second), names(size));
    QList<quint32> different;
    measure(
        state, size, [&] { different.clear(); }, [&] { different = before.different(after); });
    check(state, different.size() == size / DifferentStep);
}

void compareLibrary(benchmark::State &state, const MakeDrive &makeDrive)
{
    const auto drive = makeDrive();
    ParameterValueSnapshot before(&drive->container);
    ParameterValueSnapshot after(&drive->container);
    drive->write(eState::First);
    before.applyNoFilter();
    drive->write(eState::Second);
    after.applyNoFilter();
    QList<ParameterCoordinate> different;
    measure(
        state, drive->valueCount, [&] { different.clear(); },
        [&] { different = before.parameterListDifferent(&after); });
    check(state, different.size() == drive->differentCount);
}

qsizetype lineCount(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll().count('\n') : 0;
}

void exportLimit(benchmark::State &state, int size)
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("limit.txt"));
    LimitSnapshot snapshot;
    snapshot.take(*limitStore(size, eState::First), names(size));
    measure(
        state, size, [&] { QFile::remove(fileName); }, [&] { snapshot.write(fileName); });
    check(state, lineCount(fileName) == size);
}

void exportLibrary(benchmark::State &state, const MakeDrive &makeDrive)
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("library.txt"));
    const auto drive = makeDrive();
    drive->write(eState::First);
    ParameterValueSnapshot snapshot(&drive->container);
    snapshot.applyNoFilter();
    const QList<ParameterCoordinate> coordinates = snapshot.parameterList();
    measure(
        state, drive->valueCount, [&] { QFile::remove(fileName); },
        [&] { snapshot.saveToTextFile(fileName, coordinates); });
    // One more for the line end behind the byte-order mark; the active axis is a parameter too.
    check(state, lineCount(fileName) >= drive->valueCount + 1);
}

double memoryPerValue(const MakeDrive &makeDrive)
{
    const auto drive = makeDrive();
    drive->write(eState::First);
    const std::size_t before = allocated();
    ParameterValueSnapshot snapshot(&drive->container);
    snapshot.applyNoFilter();
    return double(allocated() - before) / double(drive->valueCount);
}

double limitMemoryPerValue(int size)
{
    const auto store = limitStore(size, eState::First);
    const QStringList texts = names(size);
    const std::size_t before = allocated();
    LimitSnapshot snapshot;
    snapshot.take(*store, texts);
    return double(allocated() - before) / size;
}

void printMemory(const std::string &what, double bytes)
{
    constexpr double Bound = 350;
    printBounded("memory of a " + what, bytes, "bytes a value", Bound);
}

MakeDrive many(int size)
{
    return [size] { return std::make_unique<ManyParameters>(size); };
}

std::unique_ptr<Drive> record()
{
    return std::make_unique<OneRecord>();
}

void addPair(const std::string &operation, int size, void (*limit)(benchmark::State &, int),
    void (*library)(benchmark::State &, const MakeDrive &), const MakeDrive &makeDrive)
{
    add(operation + "/limit", size, [=](benchmark::State &state) { limit(state, size); });
    add(operation + "/library", size, [=](benchmark::State &state) { library(state, makeDrive); });
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    System::information()->setUserAccessLevel(6);
    for (const int size : Sizes)
        printMemory("snapshot of " + std::to_string(size) + " values", memoryPerValue(many(size)));
    printMemory("snapshot of a record of 16000 elements", memoryPerValue(record));
    std::printf("memory: %.0f bytes a value, limit program at %d values\n",
        limitMemoryPerValue(ReferenceSize), ReferenceSize);
    for (const int size : Sizes) {
        addPair("snapshot", size, takeLimit, takeLibrary, many(size));
        addPair("compare", size, compareLimit, compareLibrary, many(size));
        addPair("export", size, exportLimit, exportLibrary, many(size));
    }
    addPair("record-snapshot", RecordElements, takeLimit, takeLibrary, record);
    addPair("record-compare", RecordElements, compareLimit, compareLibrary, record);
    addPair("record-export", RecordElements, exportLimit, exportLibrary, record);
    return runPairs(argc, argv, EverySize,
        {{"snapshot", 1.5}, {"compare", 1.0}, {"export", 2.0}, {"record-snapshot", 1.5},
            {"record-compare", 1.0}, {"record-export", 2.0}});
}
