#include "apps/import/EdsReader.h"

#include "apps/import/ImportRemarks.h"

#include <QtCore/QByteArray>
#include <QtCore/QStringDecoder>
#include <QtCore/QStringView>

namespace {

QString decoded(const QByteArray &bytes)
{
    const auto marked = QStringConverter::encodingForData(bytes);
    // Stateless: a character that is cut at the very end is an error, not the begin of what follows.
    QStringDecoder decoder(
        marked.value_or(QStringConverter::Utf8), QStringConverter::Flag::Stateless);
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
            remark(EdsReader::tr("dem Abschnitt fehlt die schließende Klammer: %1"), text);
        const QStringView name = text.sliced(1, (end < 0 ? text.size() : end) - 1).trimmed();
        if (name.isEmpty()) {
            remark(EdsReader::tr("ein Abschnitt ohne Namen, übersprungen: %1"), text);
            return;
        }
        const QStringView rest = end < 0 ? QStringView() : text.sliced(end + 1).trimmed();
        if (!rest.isEmpty() && !isComment(rest))
            remark(EdsReader::tr("Text hinter dem Namen eines Abschnitts, übersprungen: %1"), rest);

        m_section = m_file.openSection(name.toString(), m_line);
        if (m_section->line() != m_line) {
            m_remarks.add(m_line,
                EdsReader::tr("der Abschnitt %1 aus Zeile %2 geht hier weiter")
                    .arg(ImportRemarks::excerpt(name), QString::number(m_section->line())));
        }
    }

    void takeEntry(QStringView text)
    {
        const qsizetype equals = text.indexOf(QLatin1Char('='));
        if (equals < 0) {
            remark(EdsReader::tr("weder Abschnitt noch Eintrag noch Kommentar, übersprungen: %1"),
                text);
            return;
        }
        const QStringView key = text.first(equals).trimmed();
        if (key.isEmpty()) {
            remark(EdsReader::tr("ein Eintrag ohne Schlüssel, übersprungen: %1"), text);
            return;
        }
        if (m_section == nullptr) {
            remark(EdsReader::tr("ein Eintrag außerhalb eines Abschnitts, übersprungen: %1"), text);
            return;
        }
        const QString value = text.sliced(equals + 1).trimmed().toString();
        if (!m_section->add({key.toString(), value, m_line}))
            remark(EdsReader::tr("der Schlüssel steht schon da, sein erster Wert gilt: %1"), text);
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
