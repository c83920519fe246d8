#include "apps/simulation/DriveOrders.h"

#include "apps/host/DriveProject.h"
#include "apps/simulation/DriveServer.h"
#include "apps/simulation/SimulatedDrive.h"

#include <KrParameterInstance/ParameterContainer.h>

#include <optional>

namespace {

const QString Good = QStringLiteral("ok");
constexpr int GreatestCount = 1000000;

QString error(const char *reason)
{
    return QLatin1String("error ") + QLatin1String(reason);
}

std::optional<int> number(const QString &text)
{
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    return isNumber && value >= 0 && value <= GreatestCount ? std::optional(value) : std::nullopt;
}

struct Fault {
    const char *name;
    void (AnswerFaults::*set)(int);
};

constexpr Fault Faults[] = {
    {"lose", &AnswerFaults::lose},
    {"double", &AnswerFaults::repeat},
    {"refuse", &AnswerFaults::refuse},
    {"busy", &AnswerFaults::beBusy},
    {"silent", &AnswerFaults::fallSilentAfter},
};

} // namespace

DriveOrders::DriveOrders(SimulatedDrive &drive, DriveServer &server)
    : m_drive(drive)
    , m_server(server)
{
}

QString DriveOrders::follow(const QString &line)
{
    // A native text may have blanks at its ends and within.
    const QStringList words = line.split(u' ');
    const QString order = words.constFirst();
    if (order == QLatin1String("get") || order == QLatin1String("set"))
        return access(words);
    if (order == QLatin1String("quit") && words.size() == 1) {
        Q_EMIT quitOrdered();
        return Good;
    }
    if (order == QLatin1String("clear") && words.size() == 1) {
        m_server.faults().clear();
        return Good;
    }
    return count(words);
}

QString DriveOrders::count(const QStringList &words)
{
    const std::optional<int> first = words.size() > 1 ? number(words.at(1)) : std::nullopt;
    const std::optional<int> second = words.size() > 2 ? number(words.at(2)) : std::nullopt;
    const QString order = words.constFirst();
    if (order == QLatin1String("delay") && words.size() == 3) {
        if (!first || !second)
            return error("number");
        m_server.faults().delay(*first, AnswerFaults::milliseconds(*second));
        return Good;
    }
    if (order == QLatin1String("tick") && words.size() == 2)
        return tick(words.at(1));
    for (const Fault &fault : Faults) {
        if (order != QLatin1String(fault.name) || words.size() != 2)
            continue;
        if (!first)
            return error("number");
        (m_server.faults().*fault.set)(*first);
        return Good;
    }
    return error("order");
}

QString DriveOrders::tick(const QString &text)
{
    const std::optional<int> times = number(text);
    if (!times)
        return error("number");
    for (int i = 0; i < *times; ++i)
        m_drive.tick();
    return Good;
}

QString DriveOrders::access(const QStringList &words)
{
    const ParameterAddress address(words.value(1), true);
    const qsizetype index = m_drive.registerMap().indexOf(address);
    if (index < 0)
        return error("address");
    ParameterContainer &container = m_drive.project().container();
    const ValuePlace &place = m_drive.registerMap().values().at(index).place;
    if (words.constFirst() == QLatin1String("set")) {
        const QString text = words.sliced(2).join(u' ');
        container.writeValueNative(place.livingSpace, place.coordinate, place.element, text);
        return Good;
    }
    if (words.size() != 2)
        return error("order");
    return Good + u' '
        + container.readValueNative(place.livingSpace, place.coordinate, place.element, false);
}
