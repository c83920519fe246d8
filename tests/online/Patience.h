#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtTest/QTest>

#include <chrono>

/// Serves events as they come until the condition holds: a wait that looks every few milliseconds would
/// let each round to the drive take so long. The condition may also be one that no event tells of.
template <typename Condition>
void waitUntil(const Condition &condition)
{
    using std::chrono_literals::operator""ms;
    using std::chrono_literals::operator""min;
    // A drive on a busy machine takes its time; waiting for what comes at once costs nothing.
    const QDeadlineTimer end(1min);
    QTimer look;
    look.start(10ms);
    while (!condition() && !end.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

#define QTRY_COMPARE_PATIENTLY(actual, expected)                                                   \
    do {                                                                                           \
        waitUntil([&] { return (actual) == (expected); });                                         \
        QCOMPARE(actual, expected);                                                                \
    } while (false)
#define QTRY_VERIFY_PATIENTLY(condition)                                                           \
    do {                                                                                           \
        waitUntil([&] { return bool(condition); });                                                \
        QVERIFY(condition);                                                                        \
    } while (false)
