#pragma once

#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <utility>
#include <vector>

/// Records the signals of several objects in one list, so that a test compares their order at once.
///
/// **Shape** of an entry: "name.signal(argument, argument)". An address is its sortable text, a
/// coordinate its text, a bool "true" or "false", an enumerator its number, a text stands as it is,
/// what has no text is its type's name.
class SignalLog : public QObject {
public:
    SignalLog() = default;

    /// Records every signal that the object's class declares beyond QObject's own.
    /// **Owner** the caller; the object may go before the log.
    void attach(QObject *source, const QString &name);
    /// Adds an entry of the test's own between the signals.
    void note(const QString &entry) { m_entries.append(entry); }

    QStringList entries() const { return m_entries; }
    /// Returns the entries and empties the list.
    QStringList take() { return std::exchange(m_entries, {}); }
    /// The entries without those of other signals, in order.
    QStringList entriesOf(const QString &signalName) const;
    qsizetype count(const QString &signalName) const { return entriesOf(signalName).size(); }

    /// Receives the signals: each has a slot number of its own, which no class declares.
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    struct Source {
        QString name;
        QMetaMethod signal;
    };

    std::vector<Source> m_sources;
    QStringList m_entries;
};
