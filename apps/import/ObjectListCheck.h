#pragma once

#include "apps/import/ObjectSections.h"
#include "apps/import/SkippedObject.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QList>

/// Compares the object lists of a file with the sections that it has.
class ObjectListCheck {
    Q_DECLARE_TR_FUNCTIONS(ObjectListCheck)

public:
    /// Objects that are listed and have no section.
    /// **Reports** objects that no list names, numbers that are no index and wrong counts. A file
    /// without any list has none of these.
    static QList<SkippedObject> run(
        const EdsFile &file, const QMap<quint16, ObjectSections> &sections, ImportRemarks &remarks);
};
