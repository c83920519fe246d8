#include "snapshot/SnapshotHtmlReport.h"
#include "tests/snapshot/SnapshotCells.h"
#include "tests/support/GoldenFile.h"

#include <QtTest/QTest>

/// The report, byte by byte.
class tst_SnapshotHtmlReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void goldenFile_data();
    void goldenFile();
    void escaping_data();
    void escaping();
    void unitOfACell();
    void safeForm();
    void withoutRows();
    void withoutColumns();
};

namespace {

using eForm = SnapshotHtmlReport::eForm;

SnapshotRow row(const QString &title, const QStringList &texts)
{
    SnapshotRow result;
    result.title = title;
    for (const QString &text : texts)
        result.cells.append(snapshotCell(text, text));
    return result;
}

/// A shown parameter, a record with a shown, a hidden and a greyed element, a hidden parameter, a
/// hidden record with an element that is not hidden itself.
QList<SnapshotRow> rows(int columnCount)
{
    const auto texts = [columnCount](const QStringList &all) { return all.first(columnCount); };
    const SnapshotRow shown = row(QStringLiteral("1.A00 <b>Drehzahl</b> & Co"),
        texts({QStringLiteral("1 < 2"), QStringLiteral("\"2\""), QStringLiteral("3 µm")}));
    SnapshotRow record = row(QStringLiteral("A12 Satz"), {});
    record.children = {row(QStringLiteral("A12[0] Erstes"),
                           texts({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")})),
        row(QStringLiteral("A12[1] Gleich"),
            texts({QStringLiteral("7"), QStringLiteral("7"), QStringLiteral("7")})),
        row(QStringLiteral("A12[2]"),
            texts({QStringLiteral("<nicht vorhanden>"), QString(), QStringLiteral("a&b>c")}))};
    record.children[1].isHidden = true;
    SnapshotRow hidden = row(QStringLiteral("A13 Versteckt"),
        texts({QStringLiteral("8"), QStringLiteral("8"), QStringLiteral("8")}));
    hidden.isHidden = true;
    SnapshotRow hiddenRecord = row(QStringLiteral("A14 Versteckt"), {});
    hiddenRecord.children = {row(QStringLiteral("A14[0] Darunter"),
        texts({QStringLiteral("9"), QStringLiteral("9"), QStringLiteral("9")}))};
    hiddenRecord.isHidden = true;
    return {shown, record, hidden, hiddenRecord};
}

} // namespace

void tst_SnapshotHtmlReport::goldenFile_data()
{
    QTest::addColumn<int>("columnCount");
    QTest::addColumn<eForm>("form");
    QTest::addColumn<QString>("header");
    const QString header = QStringLiteral("<h1>Änderungen</h1>");
    QTest::newRow("report-1.html") << 1 << eForm::Report << QString();
    QTest::newRow("report-2.html") << 2 << eForm::Report << header;
    QTest::newRow("report-3.html") << 3 << eForm::Report << header;
    QTest::newRow("report-2-file.html") << 2 << eForm::File << header;
}

void tst_SnapshotHtmlReport::goldenFile()
{
    QFETCH(int, columnCount);
    QFETCH(eForm, form);
    QFETCH(QString, header);
    const QStringList titles {QStringLiteral("Parameter"), QStringLiteral("Vor<her>"),
        QStringLiteral("Nach&her"), QStringLiteral("Jetzt")};
    const QByteArray document =
        SnapshotHtmlReport::document(header, titles.first(columnCount + 1), rows(columnCount), form)
            .toUtf8();
    const QString name = QStringLiteral("snapshot/") + QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(document, GoldenFile::expected(name, document));
}

void tst_SnapshotHtmlReport::escaping_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("html");
    QTest::newRow("nothing") << QStringLiteral("abc") << QStringLiteral("abc");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("less") << QStringLiteral("<") << QStringLiteral("&lt;");
    QTest::newRow("greater") << QStringLiteral(">") << QStringLiteral("&gt;");
    QTest::newRow("ampersand") << QStringLiteral("&") << QStringLiteral("&amp;");
    QTest::newRow("quote") << QStringLiteral("\"") << QStringLiteral("&quot;");
    QTest::newRow("apostrophe stays") << QStringLiteral("'") << QStringLiteral("'");
    QTest::newRow("escaped again") << QStringLiteral("&lt;") << QStringLiteral("&amp;lt;");
    QTest::newRow("at both ends") << QStringLiteral("<a&b>") << QStringLiteral("&lt;a&amp;b&gt;");
}

void tst_SnapshotHtmlReport::escaping()
{
    QFETCH(QString, text);
    QFETCH(QString, html);
    QCOMPARE(SnapshotHtmlReport::document(text, {text, text}, {row(text, {text})}, eForm::Report),
        QStringLiteral("<html>\n<body>\n%1<br><br>\n<table border=\"1\" width=\"100%\">\n"
                       "<thead bgcolor=\"lightgrey\"><th  width=\"40%\">%1</th>\n"
                       "<th width=\"30%\">%2</th>\n</thead>"
                       "<tr><td>%1</td>\n<td>%2</td>\n</tr></table></body>\n</html>\n")
            .arg(text, html));
}

/// Names are escaped; the header is the host's own HTML.
void tst_SnapshotHtmlReport::unitOfACell()
{
    SnapshotRow row;
    row.cells = {snapshotCell(QStringLiteral("5 < 6"), QStringLiteral("5"), QStringLiteral("m&s")),
        snapshotCell(QString(), QString(), QStringLiteral("A"))};
    const QString html = SnapshotHtmlReport::document(
        QString(), {QString(), QString(), QString()}, {row}, eForm::Report);
    QVERIFY(html.contains(QStringLiteral("<td>5 &lt; 6 m&amp;s</td>\n<td> A</td>\n")));
}

void tst_SnapshotHtmlReport::safeForm()
{
    const QString script = QStringLiteral("<script>alert(\"1\")</script>");
    SnapshotRow parent = row(QStringLiteral("A00 ") + script, {});
    parent.children = {row(QStringLiteral("A00[1] ") + script, {script})};
    QCOMPARE(SnapshotHtmlReport::document(QStringLiteral("<h1>H</h1>"),
                 {QStringLiteral("<b>P</b>"), script}, {parent}, eForm::Safe),
        QStringLiteral("<html>\n<head>\n<meta charset=\"UTF-8\">\n"
                       "<meta http-equiv=\"Content-Security-Policy\" "
                       "content=\"default-src 'none'\">\n</head>\n"
                       "<body>\n<h1>H</h1><br><br>\n<table border=\"1\" width=\"100%\">\n"
                       "<thead bgcolor=\"lightgrey\"><th  width=\"40%\">&lt;b&gt;P&lt;/b&gt;</th>\n"
                       "<th width=\"30%\">%1</th>\n</thead>"
                       "<tr><td>A00 %1</td>\n<td></td>\n</tr>"
                       "<tr><td>&nbsp;&nbsp;A00[1] %1</td>\n<td>%1</td>\n</tr>"
                       "</table></body>\n</html>\n")
            .arg(QStringLiteral("&lt;script&gt;alert(&quot;1&quot;)&lt;/script&gt;")));
}

void tst_SnapshotHtmlReport::withoutRows()
{
    QCOMPARE(
        SnapshotHtmlReport::document(QStringLiteral("H"), {QStringLiteral("P")}, {}, eForm::File),
        QStringLiteral("<html>\n<meta charset=\"UTF-8\"><body>\nH<br><br>\n"
                       "<table border=\"1\" width=\"100%\">\n<thead bgcolor=\"lightgrey\">"
                       "<th  width=\"40%\">P</th>\n</thead></table></body>\n</html>\n"));
}

void tst_SnapshotHtmlReport::withoutColumns()
{
    QCOMPARE(SnapshotHtmlReport::document(QString(), {}, {}, eForm::Report),
        QStringLiteral("<html>\n<body>\n<br><br>\n<table border=\"1\" width=\"100%\">\n"
                       "<thead bgcolor=\"lightgrey\"><th  width=\"40%\"></th>\n"
                       "</thead></table></body>\n</html>\n"));
}

QTEST_GUILESS_MAIN(tst_SnapshotHtmlReport)
#include "tst_SnapshotHtmlReport.moc"
