#include "apps/import/EdsReader.h"
#include "apps/import/ImportRemarks.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QtTest>

using namespace Qt::StringLiterals;

class tst_EdsReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void value_data();
    void value();
    void oddity_data();
    void oddity();
    void lineNumbers_data();
    void lineNumbers();
    void sectionsKeepTheirOrder();
    void remarksAreBounded();
    void anyPrefix();
    void randomBytes();
};

namespace {

QStringList remarkTexts(const ImportRemarks &remarks)
{
    QStringList texts;
    for (const ImportRemark &remark : remarks.sorted())
        texts.append(QString::number(remark.line) + u": "_s + remark.text);
    return texts;
}

QByteArray utf16(const QString &text)
{
    const QString marked = QChar(QChar::ByteOrderMark) + text;
    return QByteArray(reinterpret_cast<const char *>(marked.utf16()), marked.size() * 2);
}

} // namespace

void tst_EdsReader::value_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");

    QTest::newRow("plain") << "[6040]\nDefaultValue=5\n"_ba << u"5"_s;
    QTest::newRow("CR LF") << "[6040]\r\nDefaultValue=5\r\n"_ba << u"5"_s;
    QTest::newRow("CR alone") << "[6040]\rDefaultValue=5\r"_ba << u"5"_s;
    QTest::newRow("line ends mixed") << "[6040]\r\nX=1\n\rDefaultValue=5"_ba << u"5"_s;
    QTest::newRow("last line without end") << "[6040]\nDefaultValue=5"_ba << u"5"_s;
    QTest::newRow("a line of one blank") << "[6040]\n \nDefaultValue=5\n"_ba << u"5"_s;
    QTest::newRow("blanks around everything")
        << "\t [ 6040 ] \n \t DefaultValue \t=\t 5 \n"_ba << u"5"_s;
    QTest::newRow("key in lower case") << "[6040]\ndefaultvalue=5\n"_ba << u"5"_s;
    QTest::newRow("key in upper case") << "[6040]\nDEFAULTVALUE=5\n"_ba << u"5"_s;
    QTest::newRow("empty value") << "[6040]\nDefaultValue=\n"_ba << QString();
    QTest::newRow("equals sign in the value") << "[6040]\nDefaultValue=a=b\n"_ba << u"a=b"_s;
    QTest::newRow("semicolon in the value") << "[6040]\nDefaultValue=a;b\n"_ba << u"a;b"_s;
    QTest::newRow("bracket in the value") << "[6040]\nDefaultValue=[7]\n"_ba << u"[7]"_s;
    QTest::newRow("comment of a semicolon")
        << "[6040]\n;DefaultValue=4\nDefaultValue=5"_ba << u"5"_s;
    QTest::newRow("comment of a hash") << "[6040]\n#DefaultValue=4\nDefaultValue=5"_ba << u"5"_s;
    QTest::newRow("comment of two slashes")
        << "[6040]\n//DefaultValue=4\nDefaultValue=5"_ba << u"5"_s;
    QTest::newRow("indented comment") << "[6040]\n  ;DefaultValue=4\nDefaultValue=5"_ba << u"5"_s;
    QTest::newRow("comment behind the section")
        << "[6040] ; Controlword\nDefaultValue=5"_ba << u"5"_s;
    QTest::newRow("first of two equal keys")
        << "[6040]\nDefaultValue=5\nDefaultValue=6\n"_ba << u"5"_s;
    QTest::newRow("section goes on later")
        << "[6040]\nX=1\n[6041]\nX=2\n[6040]\nDefaultValue=5\n"_ba << u"5"_s;
    QTest::newRow("UTF-8") << "[6040]\nDefaultValue=\xC3\xBC\n"_ba << u"\u00FC"_s;
    QTest::newRow("UTF-8 with byte-order mark")
        << "\xEF\xBB\xBF[6040]\nDefaultValue=\xC3\xBC\n"_ba << u"\u00FC"_s;
    QTest::newRow("Latin-1") << "[6040]\nDefaultValue=\xFC\n"_ba << u"\u00FC"_s;
    QTest::newRow("Latin-1 in the last byte") << "[6040]\nDefaultValue=\xDF"_ba << u"\u00DF"_s;
    QTest::newRow("UTF-8 cut in its last character")
        << "[6040]\nDefaultValue=\xE2\x82"_ba << u"\u00E2\u0082"_s;
    QTest::newRow("UTF-8 in the last bytes") << "[6040]\nDefaultValue=\xC3\x9F"_ba << u"\u00DF"_s;
    QTest::newRow("UTF-16 cut in its last character")
        << utf16(u"[6040]\r\nDefaultValue=5\r\n;"_s) + '\xDF' << u"5"_s;
    QTest::newRow("UTF-16") << utf16(u"[6040]\r\nDefaultValue=\u00FC\r\n"_s) << u"\u00FC"_s;
}

void tst_EdsReader::value()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);

    ImportRemarks remarks;
    const EdsFile file = EdsReader::read(bytes, remarks);
    const EdsSection *section = file.section(u"6040"_s);
    QVERIFY(section != nullptr);
    QVERIFY(section->contains(u"DefaultValue"_s));
    QCOMPARE(section->value(u"DefaultValue"_s), expected);
}

void tst_EdsReader::oddity_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("nothing") << ""_ba << QStringList();
    QTest::newRow("a clean file") << "; c\r\n[6040]\r\n\r\nX=1\r\n"_ba << QStringList();
    QTest::newRow("no equals sign")
        << "[6040]\nwhat\n"_ba
        << QStringList {
               u"2: weder Abschnitt noch Eintrag noch Kommentar, übersprungen: \"what\""_s};
    QTest::newRow("no key") << "[6040]\n=5\n"_ba
                            << QStringList {
                                   u"2: ein Eintrag ohne Schlüssel, übersprungen: \"=5\""_s};
    QTest::newRow("before any section")
        << "X=1\n[6040]\n"_ba
        << QStringList {u"1: ein Eintrag außerhalb eines Abschnitts, übersprungen: \"X=1\""_s};
    QTest::newRow("no closing bracket")
        << "[6040\nX=1\n"_ba
        << QStringList {u"1: dem Abschnitt fehlt die schließende Klammer: \"[6040\""_s};
    QTest::newRow("section without name takes no entries")
        << "[6040]\n[ ]\nX=1\n"_ba
        << QStringList {u"2: ein Abschnitt ohne Namen, übersprungen: \"[ ]\""_s,
               u"3: ein Eintrag außerhalb eines Abschnitts, übersprungen: \"X=1\""_s};
    QTest::newRow("text behind a section")
        << "[6040] x\n"_ba
        << QStringList {u"1: Text hinter dem Namen eines Abschnitts, übersprungen: \"x\""_s};
    QTest::newRow("repeated key")
        << "[6040]\nX=1\nx=2\n"_ba
        << QStringList {u"3: der Schlüssel steht schon da, sein erster Wert gilt: \"x=2\""_s};
    QTest::newRow("repeated section, other case")
        << "[60ff]\nX=1\n[60FF]\nY=2\n"_ba
        << QStringList {u"3: der Abschnitt \"60FF\" aus Zeile 1 geht hier weiter"_s};
    QTest::newRow("repeated section with a placeholder in its name")
        << "[a%2]\nX=1\n[a%2]\nY=2\n"_ba
        << QStringList {u"3: der Abschnitt \"a%2\" aus Zeile 1 geht hier weiter"_s};
    QTest::newRow("control characters are not repeated")
        << "a\0b\x01\n"_ba
        << QStringList {
               u"1: weder Abschnitt noch Eintrag noch Kommentar, übersprungen: \"a?b?\""_s};
    QTest::newRow("long lines are cut")
        << QByteArray(100, 'x')
        << QStringList {u"1: weder Abschnitt noch Eintrag noch Kommentar, übersprungen: "
                        "\"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...\""_s};
}

void tst_EdsReader::oddity()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);

    ImportRemarks remarks;
    EdsReader::read(bytes, remarks);
    QCOMPARE(remarkTexts(remarks), expected);
}

void tst_EdsReader::lineNumbers_data()
{
    QTest::addColumn<QByteArray>("lineEnd");

    QTest::newRow("LF") << "\n"_ba;
    QTest::newRow("CR LF") << "\r\n"_ba;
    QTest::newRow("CR") << "\r"_ba;
}

void tst_EdsReader::lineNumbers()
{
    QFETCH(QByteArray, lineEnd);

    ImportRemarks remarks;
    const EdsFile file =
        EdsReader::read("; head\n\n[6040]\n \nDefaultValue=5"_ba.replace("\n", lineEnd), remarks);
    QCOMPARE(file.section(u"6040"_s)->line(), 3);
    QCOMPARE(file.section(u"6040"_s)->entry(u"DefaultValue"_s).line, 5);
    QCOMPARE(file.section(u"6040"_s)->entry(u"HighLimit"_s).line, 3);
}

void tst_EdsReader::sectionsKeepTheirOrder()
{
    ImportRemarks remarks;
    const EdsFile file = EdsReader::read("[b]\nz=1\na=2\n[A]\n[1018 Sub 0]\n[B]\n", remarks);
    QStringList names;
    for (const EdsSection &section : file.sections())
        names.append(section.name());
    QCOMPARE(names, (QStringList {u"b"_s, u"A"_s, u"1018 Sub 0"_s}));
    QCOMPARE(file.section(u"B"_s)->entries().size(), 2);
    QCOMPARE(file.section(u"B"_s)->entries().first().key, u"z"_s);
    QCOMPARE(file.section(u"1018sub0"_s)->line(), 5);
    QCOMPARE(file.section(u"c"_s), nullptr);
}

void tst_EdsReader::remarksAreBounded()
{
    ImportRemarks remarks;
    EdsReader::read(QByteArray("x\n").repeated(1003), remarks);
    QCOMPARE(remarks.sorted().size(), 1000);
    QCOMPARE(remarks.omitted(), 3);
}

void tst_EdsReader::anyPrefix()
{
    const QByteArray whole = "[6040]\r\nParameterName=\xC3\xBC\n;x\n[6041]\r\n=\nHighLimit=5"_ba;
    for (qsizetype length = 0; length <= whole.size(); ++length) {
        ImportRemarks remarks;
        const EdsFile file = EdsReader::read(whole.first(length), remarks);
        QVERIFY(file.sections().size() <= 2);
    }
}

void tst_EdsReader::randomBytes()
{
    QRandomGenerator random(306);
    const QByteArray alphabet = "[]=;\r\n \t06sub$x\xFF\xC3\0"_ba;
    for (int run = 0; run < 500; ++run) {
        QByteArray bytes;
        for (quint32 length = random.bounded(300U); length > 0; --length) {
            bytes += run % 2 == 0 ? char(random.bounded(256))
                                  : alphabet.at(random.bounded(int(alphabet.size())));
        }
        ImportRemarks remarks;
        const EdsFile file = EdsReader::read(bytes, remarks);
        for (const EdsSection &section : file.sections())
            QVERIFY(!section.name().isEmpty());
    }
}

QTEST_GUILESS_MAIN(tst_EdsReader)
#include "tst_EdsReader.moc"
