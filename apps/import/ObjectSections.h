#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QMap>

class EdsFile;
class EdsSection;
class ImportRemarks;

/// The sections of a file that belong to one index. Borrowed from the file, null where there are
/// none.
struct ObjectSections {
    Q_DECLARE_TR_FUNCTIONS(ObjectSections)

public:
    /// Of the first of them.
    int line = 0;
    const EdsSection *object = nullptr;
    QMap<quint8, const EdsSection *> subObjects;
    const EdsSection *names = nullptr;
    const EdsSection *defaults = nullptr;
    const EdsSection *values = nullptr;

    /// By index. The file must outlive them.
    /// **Reports** sections that name no object and sections that mean the same as an earlier one.
    static QMap<quint16, ObjectSections> collect(const EdsFile &file, ImportRemarks &remarks);
};
