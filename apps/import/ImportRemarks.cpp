#include "apps/import/ImportRemarks.h"

#include "apps/import/EdsEntry.h"

#include <algorithm>

namespace {

constexpr qsizetype LongestExcerpt = 60;

} // namespace

void ImportRemarks::add(int line, const QString &text)
{
    if (m_remarks.size() >= MaximumCount) {
        ++m_omitted;
        return;
    }
    m_remarks.append({line, text});
}

void ImportRemarks::add(const EdsEntry &entry, const QString &text)
{
    const QString piece = entry.key + QLatin1Char('=') + entry.value;
    add(entry.line, excerpt(piece) + QLatin1Char(' ') + text);
}

QList<ImportRemark> ImportRemarks::sorted() const
{
    QList<ImportRemark> remarks = m_remarks;
    std::stable_sort(remarks.begin(), remarks.end(),
        [](const ImportRemark &a, const ImportRemark &b) { return a.line < b.line; });
    return remarks;
}

QString ImportRemarks::excerpt(QStringView text)
{
    QString piece = text.first(std::min(text.size(), LongestExcerpt)).toString();
    for (QChar &c : piece) {
        if (!c.isPrint())
            c = QLatin1Char('?');
    }
    const QLatin1String tail(text.size() > LongestExcerpt ? "..." : "");
    return QLatin1Char('"') + piece + tail + QLatin1Char('"');
}
