#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

/// Tables as text with commas, every text of which reads back. **Source** RFC 4180.
///
/// **Shape**
///   row   = field *( "," field ) CR LF
///   field = '"' text '"', quotes in the text doubled
/// A text that a spreadsheet would run as a formula, and one that begins with "'", has one more "'"
/// in front. **Encoding** UTF-8.
class Rfc4180Text {
public:
    static QByteArray row(const QStringList &fields);
    /// Begins with "=", "@", a tab or a line end, or with a sign that is not that of a number with
    /// its unit. A unit begins with no operator and has no digit behind a letter: it names no cell.
    static bool isFormula(const QString &text);
};
