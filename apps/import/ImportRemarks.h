#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringView>

struct EdsEntry;

/// Something odd in the file that was read, and how it was taken.
struct ImportRemark {
    /// Counted from 1; 0 where the remark belongs to no line.
    int line = 0;
    /// In the language of the user.
    QString text;
};

/// The remarks of one import. Bounded, so that a file of noise costs no memory: what exceeds the
/// bound is counted only.
class ImportRemarks {
public:
    static constexpr qsizetype MaximumCount = 1000;

    void add(int line, const QString &text);
    /// `text` goes on after the entry, as in: "PDOMapping=x" ist keine 32-Bit-Zahl.
    void add(const EdsEntry &entry, const QString &text);
    /// Ascending by line, those of one line in the order in which they were made.
    QList<ImportRemark> sorted() const;
    qsizetype omitted() const { return m_omitted; }

    /// A piece of the file for a remark: quoted, without control characters and cut to 60
    /// characters.
    static QString excerpt(QStringView text);

private:
    QList<ImportRemark> m_remarks;
    qsizetype m_omitted = 0;
};
