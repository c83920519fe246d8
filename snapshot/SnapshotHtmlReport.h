#pragma once

#include "snapshot/SnapshotRow.h"

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// Writes the rows of a comparison as HTML. Hidden rows are left out with everything below them.
///
/// Deliberate: but in the safe form, the first title and the rows' own titles are HTML and stand as
/// they are, as the text above the table does in every form; everything else is escaped. Column
/// widths do not depend on the number of columns.
class SnapshotHtmlReport {
public:
    enum class eForm {
        Report, ///< The plain document.
        File, ///< The same with a charset line.
        Safe, ///< With a head that names the charset and forbids scripts and loading; all titles are
        ///< escaped.
    };

    /// The titles of all columns, the first of them that of the rows' titles.
    static QString document(const QString &header, const QStringList &columnTitles,
        const QList<SnapshotRow> &rows, eForm form);
};
