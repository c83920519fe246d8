#pragma once

#include "snapshot/SnapshotRow.h"

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// Writes the rows of a comparison as HTML. Hidden rows are left out with everything below them.
///
/// Deliberate: the text above the table, the first title and the rows' own titles are HTML and
/// stand as they are; everything else is escaped. Column widths do not depend on the number of
/// columns.
class SnapshotHtmlReport {
public:
    enum class eCharsetLine { Without, With };

    /// The titles of all columns, the first of them that of the rows' titles.
    static QString document(const QString &header, const QStringList &columnTitles,
        const QList<SnapshotRow> &rows, eCharsetLine charsetLine);
};
