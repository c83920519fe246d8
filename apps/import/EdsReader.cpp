#include "apps/import/EdsReader.h"

#include "apps/import/ImportRemarks.h"

#include <QtCore/QByteArray>
#include <QtCore/QStringDecoder>
#include <QtCore/QStringView>

namespace {

QString decoded(const QByteArray &bytes)
{
    const auto marked = QStringConverter::encodingForData(bytes);
    QStringDecoder decoder(marked.value_or(QStringConverter::Utf8));
    QString text = decoder.decode(bytes);
    if (!decoder.hasError())
        return text;
    return QString::fromLatin1(bytes);
}

bool isComment(QStringView line)
{
    return line.startsWith(QLatin1Char(';')) || line.startsWith(QLatin1Char('#'))
        || line.startsWith(QLatin1String("//"));
}

/// Takes one line after the other.
class LineReader {
public:
    LineReader(EdsFile &file, ImportRemarks &remarks)
        : m_file(file)
        , m_remarks(remarks)
    {
    }

    void take(QStringView line)
    {
        ++m_line;
        const QStringView text = line.trimmed();
        if (text.isEmpty() || isComment(text))
            return;
        if (text.startsWith(QLatin1Char('[')))
            takeSection(text);
        else
            takeEntry(text);
    }

private:
    void takeSection(QStringView text)
    {
        m_section = nullptr;
        const qsizetype end = text.indexOf(QLatin1Char(']'));
        if (end < 0)
            remark(QStringLiteral("the section has no closing bracket: %1"), text);
        const QStringView name = text.sliced(1, (end < 0 ? text.size() : end) - 1).trimmed();
        if (name.isEmpty()) {
            remark(QStringLiteral("a section without name, skipped: %1"), text);
            return;
        }
        const QStringView rest = end < 0 ? QStringView() : text.sliced(end + 1).trimmed();
        if (!rest.isEmpty() && !isComment(rest))
            remark(QStringLiteral("text after a section's name, skipped: %1"), rest);

        m_section = m_file.openSection(name.toString(), m_line);
        if (m_section->line() != m_line) {
            m_remarks.add(m_line,
                QStringLiteral("the section %1 of line %2 goes on here")
                    .arg(ImportRemarks::excerpt(name), QString::number(m_section->line())));
        }
    }

    void takeEntry(QStringView text)
    {
        const qsizetype equals = text.indexOf(QLatin1Char('='));
        if (equals < 0) {
            remark(QStringLiteral("neither section, entry nor comment, skipped: %1"), text);
            return;
        }
        const QStringView key = text.first(equals).trimmed();
        if (key.isEmpty()) {
            remark(QStringLiteral("an entry without key, skipped: %1"), text);
            return;
        }
        if (m_section == nullptr) {
            remark(QStringLiteral("an entry outside of any section, skipped: %1"), text);
            return;
        }
        const QString value = text.sliced(equals + 1).trimmed().toString();
        if (!m_section->add({key.toString(), value, m_line}))
            remark(QStringLiteral("the key is there already, its first value counts: %1"), text);
    }

    void remark(const QString &text, QStringView piece)
    {
        m_remarks.add(m_line, text.arg(ImportRemarks::excerpt(piece)));
    }

    EdsFile &m_file;
    ImportRemarks &m_remarks;
    /// Borrowed from the file; null outside of any section.
    EdsSection *m_section = nullptr;
    int m_line = 0;
};

} // namespace

EdsFile EdsReader::read(const QByteArray &bytes, ImportRemarks &remarks)
{
    const QString text = decoded(bytes);
    const QStringView view(text);
    EdsFile file;
    LineReader lines(file, remarks);
    qsizetype start = 0;
    for (qsizetype i = 0; i < view.size(); ++i) {
        const bool isReturn = view[i] == QLatin1Char('\r');
        if (!isReturn && view[i] != QLatin1Char('\n'))
            continue;
        lines.take(view.sliced(start, i - start));
        if (isReturn && i + 1 < view.size() && view[i + 1] == QLatin1Char('\n'))
            ++i;
        start = i + 1;
    }
    lines.take(view.sliced(start));
    return file;
}
