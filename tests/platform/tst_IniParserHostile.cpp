#include "IniContent.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QtTest>

using LmIniParser::IniParser;

namespace {

QByteArray randomBytes(QRandomGenerator &random, int largestSize)
{
    QByteArray bytes(random.bounded(largestSize + 1), Qt::Uninitialized);
    for (char &byte : bytes)
        byte = static_cast<char>(random.bounded(256));
    return bytes;
}

/// Bytes that mean something to the reader are frequent.
QByteArray randomIniBytes(QRandomGenerator &random, int largestSize)
{
    static const QByteArray alphabet("[]=;#\"\\ \t\r\n\0xnABab01\xEF\xBB\xBF\xFF", 24);
    QByteArray bytes(random.bounded(largestSize + 1), Qt::Uninitialized);
    for (char &byte : bytes)
        byte = alphabet[random.bounded(alphabet.size())];
    return bytes;
}

QByteArray allBytes()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(static_cast<char>(byte));
    return bytes;
}

constexpr qsizetype LargeSize = 64 * 1024 * 1024;

} // namespace

/// Any bytes, random texts, broken files and large ones.
class tst_IniParserHostile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyByteReturns();
    void injection_data();
    void injection();
    void randomMapsReturn();
    void randomTextsSettle();
    void everyPrefixIsRead();
    void largeTexts_data();
    void largeTexts();
    void manySectionsAndKeys();
};

void tst_IniParserHostile::everyByteReturns()
{
    const QByteArray bytes = allBytes();
    const Sections all({{bytes, {{bytes, bytes}}}});
    QCOMPARE(contentOf(textOf(all)), all);
    for (const char byte : bytes) {
        for (const QByteArray &token :
            {QByteArray(1, byte), QByteArray(2, byte), QByteArray(1, byte) + 'a',
                'a' + QByteArray(1, byte), 'a' + QByteArray(1, byte) + 'b'}) {
            const Sections sections({{token, {{token, token}, {"key", "v"}}}});
            const QByteArray text = textOf(sections);
            QCOMPARE(contentOf(text), sections);
            QCOMPARE(resaved(text), text);
        }
    }
}

void tst_IniParserHostile::injection_data()
{
    QTest::addColumn<QByteArray>("attack");

    QTest::newRow("a key behind LF") << QByteArray("1\nV_1_1=2");
    QTest::newRow("a key behind CR LF") << QByteArray("1\r\nV_1_1=2");
    QTest::newRow("a key behind CR") << QByteArray("1\rV_1_1=2");
    QTest::newRow("a section behind LF") << QByteArray("1\n[E084]\nV_0_0=2");
    QTest::newRow("a section end and a key") << QByteArray("A]\nV_1_1=2\n[B");
    QTest::newRow("a quote that closes") << QByteArray("\"\nV_1_1=2");
    QTest::newRow("an escaped quote that closes") << QByteArray("\\\"\nV_1_1=2");
    QTest::newRow("a backslash that escapes the closing quote") << QByteArray(" \\");
    QTest::newRow("an escape that makes a line end") << QByteArray("1\\r\\nV_1_1=2");
    QTest::newRow("a quoted escape") << QByteArray("\"1\\nV_1_1=2\"");
    QTest::newRow("an assignment") << QByteArray("V_1_1=2");
    QTest::newRow("a comment") << QByteArray(";1");
    QTest::newRow("a comment of the other kind") << QByteArray("#1");
    QTest::newRow("NUL and a key") << QByteArray("1\0\nV_1_1=2", 10);
    QTest::newRow("vertical tab and form feed") << QByteArray("1\v\fV_1_1=2");
    QTest::newRow("a byte-order mark") << QByteArray("\xEF\xBB\xBF[E084]\nV_0_0=2");
    QTest::newRow("next line of Latin-1") << QByteArray("1\x85V_1_1=2");
    QTest::newRow("line separator of UTF-8") << QByteArray("1\xE2\x80\xA8V_1_1=2");
}

void tst_IniParserHostile::injection()
{
    QFETCH(QByteArray, attack);
    const Keys ordinary({{"V_1_0", "1"}});
    const Sections asValue({{"A000", {{"V_1_0", attack}, {"DV_1_0", "0"}}}, {"B000", ordinary}});
    const Sections asKey({{"A000", {{attack, "1"}, {"DV_1_0", "0"}}}, {"B000", ordinary}});
    const Sections asName({{attack, ordinary}, {"B000", ordinary}});
    for (const Sections &sections : {asValue, asKey, asName}) {
        IniParser parser;
        parser.setIniText(textOf(sections));
        QCOMPARE(contentOf(parser), sections);
        QCOMPARE(parser.malformedLineCount(), 0);
    }
}

void tst_IniParserHostile::randomMapsReturn()
{
    QRandomGenerator random(20240611);
    for (int turn = 0; turn < 2000; ++turn) {
        const auto token = [&random, turn] {
            return turn % 2 ? randomBytes(random, 12) : randomIniBytes(random, 12);
        };
        QMap<QByteArray, QMap<QByteArray, QByteArray>> map;
        for (int section = static_cast<int>(random.bounded(6)); section > 0; --section) {
            QMap<QByteArray, QByteArray> &keys = map[token()];
            for (int key = static_cast<int>(random.bounded(40)); key > 0; --key)
                keys[token()] = token();
        }
        Sections sections;
        for (auto section = map.cbegin(); section != map.cend(); ++section) {
            sections.append({section.key(), {}});
            for (auto key = section->cbegin(); key != section->cend(); ++key)
                sections.last().second.append({key.key(), key.value()});
        }
        const QByteArray text = textOf(sections);
        QCOMPARE(contentOf(text), sections);
        QCOMPARE(resaved(text), text);
    }
}

void tst_IniParserHostile::randomTextsSettle()
{
    QRandomGenerator random(7041776);
    for (int turn = 0; turn < 20000; ++turn) {
        QByteArray text = turn % 2 ? randomBytes(random, 300) : randomIniBytes(random, 300);
        if (turn % 3 == 0)
            text.prepend("\xEF\xBB\xBF[S]\n");
        IniParser parser;
        parser.setIniText(text);
        const QByteArray saved = parser.getIniText();
        const Sections content = contentOf(parser);
        parser.setIniText(saved);
        QCOMPARE(parser.malformedLineCount(), 0);
        QVERIFY(!parser.endsWithoutLineEnd());
        QCOMPARE(contentOf(parser), content);
        QCOMPARE(parser.getIniText(), saved);
    }
}

void tst_IniParserHostile::everyPrefixIsRead()
{
    const QByteArray text(
        "\xEF\xBB\xBF[A000]\r\nV_1_0=1234\r\nVC_1_0=\" \\x00\\\\\"\r\n[\"a]\"]\r\n"
        "\"a=b\"=\"\\r\\n\"\r\n");
    const Sections whole({{"A000", {{"V_1_0", "1234"}, {"VC_1_0", QByteArray(" \0\\", 3)}}},
        {"a]", {{"a=b", "\r\n"}}}});
    QCOMPARE(contentOf(text), whole);
    for (qsizetype size = 0; size < text.size(); ++size) {
        IniParser parser;
        parser.setIniText(text.first(size));
        const Sections content = contentOf(parser);
        QVERIFY(content.size() <= whole.size());
        for (qsizetype section = 0; section < content.size(); ++section) {
            QCOMPARE(content[section].first, whole[section].first);
            QVERIFY(content[section].second.size() <= whole[section].second.size());
        }
        const bool atLineEnd = size == 0 || text[size - 1] == '\n' || size == 3;
        QCOMPARE(parser.endsWithoutLineEnd(), size < 3 ? size > 0 : !atLineEnd);
    }
}

void tst_IniParserHostile::largeTexts_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<qsizetype>("malformedLines");

    const QByteArray section("[S]\n");
    QTest::newRow("line ends") << QByteArray() << QByteArray("\n") << qsizetype(0);
    QTest::newRow("no line end") << QByteArray() << QByteArray("x") << qsizetype(1);
    QTest::newRow("NUL bytes") << QByteArray() << QByteArray(1, '\0') << qsizetype(1);
    QTest::newRow("blanks") << QByteArray() << QByteArray(" ") << qsizetype(0);
    QTest::newRow("opening brackets") << QByteArray() << QByteArray("[") << qsizetype(1);
    QTest::newRow("malformed lines") << section << QByteArray("x\n") << LargeSize / 2;
    QTest::newRow("unclosed quotes") << section << QByteArray("a=\"\n") << LargeSize / 4;
    QTest::newRow("one section over and over") << section << QByteArray("[S]\n") << qsizetype(0);
    QTest::newRow("one key over and over") << section << QByteArray("a=b\n") << qsizetype(0);
    QTest::newRow("one plain value") << QByteArray("[S]\na=") << QByteArray("b") << qsizetype(0);
    QTest::newRow("one value of control bytes")
        << QByteArray("[S]\na=") << QByteArray("\x01") << qsizetype(0);
}

void tst_IniParserHostile::largeTexts()
{
    QFETCH(QByteArray, head);
    QFETCH(QByteArray, line);
    IniParser parser;
    parser.setIniText(head + repeated(line, LargeSize));
    QTEST(parser.malformedLineCount(), "malformedLines");
    const QByteArray saved = parser.getIniText();
    parser.setIniText(saved);
    QVERIFY(parser.getIniText() == saved);
}

void tst_IniParserHostile::manySectionsAndKeys()
{
    constexpr int Count = 500000;
    QByteArray text;
    for (int number = 0; number < Count; ++number)
        text += "[" + QByteArray::number(number) + "]\r\n";
    text += "[S]\r\n";
    for (int number = 0; number < Count; ++number)
        text += QByteArray::number(number) + "=v\r\n";
    IniParser parser;
    parser.setIniText(text + text);
    QCOMPARE(parser.malformedLineCount(), 0);
    QCOMPARE(parser.allSectionNames().size(), Count + 1);
    QCOMPARE(parser.section("S")->keys().size(), Count);
    QVERIFY(parser.getIniText() == text);
    for (int number = Count - 1; number >= 0; --number)
        QVERIFY(parser.section("S")->contains(QByteArray::number(number)));
}

QTEST_APPLESS_MAIN(tst_IniParserHostile)

#include "tst_IniParserHostile.moc"
