#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QStringList>

class LimitStore;

/// The bare minimum work of a snapshot with Qt types and one QHash: three texts, two units, name and level for
/// each value, formatted as the library formats them.
class LimitSnapshot {
public:
    struct Frozen {
        QString display;
        QString native;
        QString undecorated;
        QString scaledUnit;
        QString nativeUnit;
        QString name;
        quint32 readLevel = 0;
    };

    /// `names` by address.
    void take(const LimitStore &store, const QStringList &names);
    /// The addresses of which display and native text with unit differ, and those of one side alone.
    QList<quint32> different(const LimitSnapshot &other) const;
    /// One line a value, ascending by address.
    bool write(const QString &fileName) const;

    const QHash<quint32, Frozen> &values() const { return m_values; }

private:
    QHash<quint32, Frozen> m_values;
};
