#pragma once

#include "apps/import/EdsEntry.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>

class ImportRemarks;

/// One section of an electronic data sheet with its entries in the order of the file.
class EdsSection {
    Q_DECLARE_TR_FUNCTIONS(EdsSection)

public:
    EdsSection(const QString &name, int line);

    /// As the file writes it.
    QString name() const { return m_name; }
    /// Where the section begins.
    int line() const { return m_line; }
    const QList<EdsEntry> &entries() const { return m_entries; }
    bool contains(const QString &key) const { return m_positions.contains(comparable(key)); }
    /// An entry without key, of the section's line, where there is none.
    EdsEntry entry(const QString &key) const;
    /// Empty where there is no such key.
    QString value(const QString &key) const { return entry(key).value; }

    /// The value as one line of printable text.
    QString printable(const QString &key) const;
    /// 0 where there is no such key.
    /// **Reports** a value that is no unsigned number of 32 bits; it counts as 0.
    quint32 number(const QString &key, ImportRemarks &remarks) const;

    /// **Refused** a key that is there already: false, and the first value stays.
    bool add(const EdsEntry &entry);

    /// The form in which keys and section names are compared: lower case, without blanks.
    static QString comparable(const QString &name);

private:
    QString m_name;
    int m_line;
    QList<EdsEntry> m_entries;
    /// Comparable key to position.
    QHash<QString, qsizetype> m_positions;
};
