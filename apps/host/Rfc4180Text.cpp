#include "apps/host/Rfc4180Text.h"

#include <algorithm>

namespace {

bool isSign(QChar c)
{
    return c == u'+' || c == u'-';
}

bool isNumberCharacter(QChar c)
{
    return (c >= u'0' && c <= u'9') || c == u'.' || c == u',';
}

/// Of units like "mm/s²", "°C" and "10^n s": nothing that a formula could call.
bool isUnitCharacter(QChar c)
{
    return c.isLetter() || c.isNumber() || c == u'/' || c == u'%' || c == u'°' || c == u'·'
        || c == u'^' || c == u' ';
}

/// A formula may come without any bracket: "/A1" divides by a cell, which letters and digits name.
bool isUnit(QStringView text)
{
    const auto *end = text.end();
    if (text.isEmpty() || text.front() == u'/' || text.front() == u'·' || text.front() == u'^')
        return false;
    const auto isCellName = [](QChar a, QChar b) { return a.isLetter() && b.isDigit(); };
    return std::all_of(text.begin(), end, isUnitCharacter)
        && std::adjacent_find(text.begin(), end, isCellName) == end;
}

/// The digits behind a sign, an exponent, and nothing or a unit behind a blank.
bool isNumberWithUnit(QStringView text)
{
    const auto skipNumber = [&text] {
        const auto *end = std::find_if_not(text.begin(), text.end(), isNumberCharacter);
        const bool isThere = end != text.begin();
        text = text.mid(end - text.begin());
        return isThere;
    };
    if (!skipNumber())
        return false;
    if (text.size() > 1 && (text.front() == u'E' || text.front() == u'e')) {
        text = text.mid(isSign(text.at(1)) ? 2 : 1);
        if (!skipNumber())
            return false;
    }
    if (text.isEmpty())
        return true;
    return text.front() == u' ' && isUnit(text.trimmed());
}

QString escaped(QString field)
{
    if (Rfc4180Text::isFormula(field) || field.startsWith(u'\''))
        field.prepend(u'\'');
    return field.replace(u'"', QLatin1String("\"\""));
}

} // namespace

QByteArray Rfc4180Text::row(const QStringList &fields)
{
    QByteArray row;
    for (const QString &field : fields) {
        if (!row.isEmpty())
            row += ',';
        row += '"' + escaped(field).toUtf8() + '"';
    }
    return row + "\r\n";
}

bool Rfc4180Text::isFormula(const QString &text)
{
    if (text.isEmpty())
        return false;
    const QChar first = text.front();
    if (isSign(first))
        return text.size() > 1 && !isNumberWithUnit(QStringView(text).mid(1));
    return first == u'=' || first == u'@' || first == u'\t' || first == u'\r' || first == u'\n';
}
