#include "IniContent.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QtTest>

using LmIniParser::IniParser;
using LmIniParser::IniSection;

/// What is written and how it is read, as literal texts.
class tst_IniParser : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void empty();
    void writesInOrder();
    void writtenForm_data();
    void writtenForm();
    void writtenName_data();
    void writtenName();
    void createSectionAgain();
    void removeLastSection();
    void sectionAddressesLast();
    void writeAgainReplaces();
    void writeOwnViews();
    void sectionOfItsOwn();
    void reads_data();
    void reads();
    void malformed_data();
    void malformed();
    void firstMalformedLinesAreTen();
    void setIniTextReplaces();
    void setIniTextFromBorrowedMemory();
    void byteOrderMark_data();
    void byteOrderMark();
    void endsWithoutLineEnd_data();
    void endsWithoutLineEnd();
    void containerHeaderIsAComment();
    void lookUpInAnyOrder_data();
    void lookUpInAnyOrder();
    void viewsLastWhileReading();
};

void tst_IniParser::empty()
{
    IniParser parser;
    QCOMPARE(parser.getIniText(), QByteArray());
    QCOMPARE(parser.getIniTextWithoutByteOrderMarker(), QByteArray());
    QCOMPARE(parser.allSectionNames(), QList<QByteArray>());
    QVERIFY(!parser.section("E084"));
    QVERIFY(!parser.utf8Encoded());
    QCOMPARE(parser.malformedLineCount(), 0);
    QCOMPARE(parser.firstMalformedLines(), QList<qsizetype>());
    QVERIFY(!parser.endsWithoutLineEnd());
}

void tst_IniParser::writesInOrder()
{
    IniParser parser;
    IniSection *second = parser.createSection("E084");
    second->write("V_1_0", "1234");
    IniSection *first = parser.createSection("A000");
    first->write("V_0_0", "7");
    second->write("VC_1_0", "fw_2");
    second->write("DV_1_0", "");
    QCOMPARE(parser.getIniTextWithoutByteOrderMarker(),
        QByteArray("[E084]\r\nV_1_0=1234\r\nVC_1_0=fw_2\r\nDV_1_0=\r\n[A000]\r\nV_0_0=7\r\n"));
    QCOMPARE(parser.allSectionNames(), QList<QByteArray>({"E084", "A000"}));
    QCOMPARE(second->keys(), QList<QByteArray>({"V_1_0", "VC_1_0", "DV_1_0"}));
}

void tst_IniParser::writtenForm_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("line");

    const QByteArray k("k");
    QTest::newRow("plain value") << k << QByteArray("1234") << QByteArray("k=1234");
    QTest::newRow("negative number") << k << QByteArray("-0.5") << QByteArray("k=-0.5");
    QTest::newRow("empty value") << k << QByteArray() << QByteArray("k=");
    QTest::newRow("blank inside") << k << QByteArray("a b") << QByteArray("k=a b");
    QTest::newRow("blank only") << k << QByteArray(" ") << QByteArray("k=\" \"");
    QTest::newRow("leading blank") << k << QByteArray(" a") << QByteArray("k=\" a\"");
    QTest::newRow("trailing blank") << k << QByteArray("a ") << QByteArray("k=\"a \"");
    QTest::newRow("assignment in a value") << k << QByteArray("=a=b") << QByteArray("k==a=b");
    QTest::newRow("semicolon in a value") << k << QByteArray(";a;") << QByteArray("k=;a;");
    QTest::newRow("brackets in a value") << k << QByteArray("[a]") << QByteArray("k=[a]");
    QTest::newRow("backslash in a value") << k << QByteArray("C:\\n") << QByteArray("k=C:\\n");
    QTest::newRow("quote inside a value") << k << QByteArray("3\"") << QByteArray("k=3\"");
    QTest::newRow("leading quote") << k << QByteArray("\"3") << QByteArray("k=\"\\\"3\"");
    QTest::newRow("backslash in a quoted value")
        << k << QByteArray("\\ ") << QByteArray("k=\"\\\\ \"");
    QTest::newRow("line ends") << k << QByteArray("a\r\nb") << QByteArray("k=\"a\\r\\nb\"");
    QTest::newRow("tab") << k << QByteArray("a\tb") << QByteArray("k=\"a\\tb\"");
    QTest::newRow("NUL") << k << QByteArray("a\0b", 3) << QByteArray("k=\"a\\x00b\"");
    QTest::newRow("last control byte") << k << QByteArray("\x1F") << QByteArray("k=\"\\x1F\"");
    QTest::newRow("delete") << k << QByteArray("\x7F") << QByteArray("k=\"\\x7F\"");
    QTest::newRow("Latin-1 letters") << k << QByteArray("\xE4\xFF") << QByteArray("k=\xE4\xFF");
    QTest::newRow("Latin-1 bytes 80 to A0")
        << k << QByteArray("\x80\xA0") << QByteArray("k=\x80\xA0");
    QTest::newRow("empty key") << QByteArray() << QByteArray("v") << QByteArray("\"\"=v");
    QTest::newRow("assignment in a key")
        << QByteArray("a=b") << QByteArray("v") << QByteArray("\"a=b\"=v");
    QTest::newRow("semicolon before a key")
        << QByteArray(";a") << QByteArray("v") << QByteArray("\";a\"=v");
    QTest::newRow("number sign before a key")
        << QByteArray("#a") << QByteArray("v") << QByteArray("\"#a\"=v");
    QTest::newRow("bracket before a key")
        << QByteArray("[a") << QByteArray("v") << QByteArray("\"[a\"=v");
    QTest::newRow("marks inside a key")
        << QByteArray("a;#[]b") << QByteArray("v") << QByteArray("a;#[]b=v");
    QTest::newRow("quote before a key")
        << QByteArray("\"a") << QByteArray("v") << QByteArray("\"\\\"a\"=v");
    QTest::newRow("blank before a key")
        << QByteArray(" a") << QByteArray("v") << QByteArray("\" a\"=v");
    QTest::newRow("blank behind a key")
        << QByteArray("a ") << QByteArray("v") << QByteArray("\"a \"=v");
    QTest::newRow("line feed in a key")
        << QByteArray("a\nb") << QByteArray("v") << QByteArray("\"a\\nb\"=v");
}

void tst_IniParser::writtenForm()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, line);
    const QByteArray text = textOf({{"S", {{key, value}}}});
    QCOMPARE(text, QByteArray("[S]\r\n" + line + "\r\n"));
    QCOMPARE(contentOf(text), Sections({{"S", {{key, value}}}}));
}

void tst_IniParser::writtenName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("plain") << QByteArray("E084") << QByteArray("[E084]\r\n");
    QTest::newRow("empty") << QByteArray() << QByteArray("[]\r\n");
    QTest::newRow("blank inside") << QByteArray("a b") << QByteArray("[a b]\r\n");
    QTest::newRow("leading blank") << QByteArray(" a") << QByteArray("[\" a\"]\r\n");
    QTest::newRow("trailing tab") << QByteArray("a\t") << QByteArray("[\"a\\t\"]\r\n");
    QTest::newRow("opening bracket") << QByteArray("[a[") << QByteArray("[[a[]\r\n");
    QTest::newRow("closing bracket") << QByteArray("a]") << QByteArray("[\"a]\"]\r\n");
    QTest::newRow("leading quote") << QByteArray("\"") << QByteArray("[\"\\\"\"]\r\n");
    QTest::newRow("comment and assignment marks") << QByteArray(";a=#") << QByteArray("[;a=#]\r\n");
    QTest::newRow("line end") << QByteArray("a\n[b]") << QByteArray("[\"a\\n[b]\"]\r\n");
    QTest::newRow("byte-order mark")
        << QByteArray("\xEF\xBB\xBF") << QByteArray("[\xEF\xBB\xBF]\r\n");
}

void tst_IniParser::writtenName()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, text);
    QCOMPARE(textOf({{name, {}}}), text);
    QCOMPARE(contentOf(text), Sections({{name, {}}}));
}

void tst_IniParser::createSectionAgain()
{
    IniParser parser;
    IniSection *section = parser.createSection("A");
    QVERIFY(parser.createSection("a") != section);
    QCOMPARE(parser.createSection("A"), section);
    QCOMPARE(parser.section("A"), section);
    QCOMPARE(parser.allSectionNames(), QList<QByteArray>({"A", "a"}));
    parser.setIniText("[A]\nk=1\n");
    parser.createSection("A")->write("l", "2");
    QCOMPARE(parser.getIniText(), QByteArray("[A]\r\nk=1\r\nl=2\r\n"));
}

void tst_IniParser::removeLastSection()
{
    IniParser parser;
    parser.removeLastSection();
    parser.createSection("A")->write("k", "1");
    parser.createSection("B")->write("l", "2");
    parser.removeLastSection();
    QCOMPARE(parser.allSectionNames(), QList<QByteArray>({"A"}));
    QVERIFY(!parser.section("B"));
    parser.createSection("B")->write("m", "3");
    QCOMPARE(parser.getIniText(), QByteArray("[A]\r\nk=1\r\n[B]\r\nm=3\r\n"));
}

void tst_IniParser::sectionAddressesLast()
{
    IniParser parser;
    IniSection *first = parser.createSection("first");
    first->write("k", "v");
    const QByteArrayView value = first->read("k");
    for (int number = 0; number < 10000; ++number)
        parser.createSection(QByteArray::number(number))->write("k", "w");
    QCOMPARE(parser.section("first"), first);
    QCOMPARE(value.toByteArray(), QByteArray("v"));
}

void tst_IniParser::writeAgainReplaces()
{
    IniParser parser;
    parser.setIniText("[S]\na=1\nb=2\n");
    IniSection *section = parser.createSection("S");
    section->write("a", "long enough to need room");
    section->write("c", "3");
    section->write("c", "");
    QCOMPARE(parser.getIniText(), QByteArray("[S]\r\na=long enough to need room\r\nb=2\r\nc=\r\n"));
}

void tst_IniParser::writeOwnViews()
{
    IniSection section;
    section.write("a", "value");
    for (int number = 0; number < 1000; ++number)
        section.write(QByteArray::number(number), section.read("a"));
    section.write(section.read("a"), section.read("a"));
    section.write("a", section.read("999"));
    QCOMPARE(section.read("999").toByteArray(), QByteArray("value"));
    QCOMPARE(section.read("value").toByteArray(), QByteArray("value"));
    QCOMPARE(section.read("a").toByteArray(), QByteArray("value"));
}

void tst_IniParser::sectionOfItsOwn()
{
    IniSection section;
    QVERIFY(!section.contains("a"));
    QVERIFY(section.read("a").isEmpty());
    QCOMPARE(section.keys(), QList<QByteArray>());
    section.write("a", "");
    QVERIFY(section.contains("a"));
    QVERIFY(section.find("a"));
    QVERIFY(section.find("a")->isEmpty());
    QVERIFY(!section.find("A"));
    QVERIFY(!section.contains("A"));
    QVERIFY(!section.contains(""));
    section.write("", "v");
    QCOMPARE(section.read(QByteArrayView()).toByteArray(), QByteArray("v"));
}

void tst_IniParser::reads_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Sections>("expected");

    const Sections one({{"S", {{"k", "v"}}}});
    QTest::newRow("line ends CR LF") << QByteArray("[S]\r\nk=v\r\n") << one;
    QTest::newRow("line ends LF") << QByteArray("[S]\nk=v\n") << one;
    QTest::newRow("no last line end") << QByteArray("[S]\nk=v") << one;
    QTest::newRow("half a last line end") << QByteArray("[S]\r\nk=v\r") << one;
    QTest::newRow("blanks everywhere") << QByteArray(" [\t S ]\t\n\t k \t= v \t\n") << one;
    QTest::newRow("blank lines") << QByteArray("\n\r\n  \t\n[S]\n\nk=v\n\n") << one;
    QTest::newRow("comments") << QByteArray(";c\n#c\n[S]\n ; [T]\n# k=w\n;\nk=v\n;k=x\n") << one;
    QTest::newRow("quoted tokens") << QByteArray("[ \"S\" ]\n \"k\" = \"v\" \n") << one;
    QTest::newRow("every escape") << QByteArray("[S]\nk=\"\\\"\\\\\\n\\r\\t\\x00\\xfF\"\n")
                                  << Sections({{"S", {{"k", QByteArray("\"\\\n\r\t\0\xFF", 7)}}}});
    QTest::newRow("a plain value has no escapes")
        << QByteArray("[S]\nk=\\n\"\\x41\n") << Sections({{"S", {{"k", "\\n\"\\x41"}}}});
    QTest::newRow("a comment mark inside a line is no comment")
        << QByteArray("[S]\nk=v ; w # x\n") << Sections({{"S", {{"k", "v ; w # x"}}}});
    QTest::newRow("empty value") << QByteArray("[S]\nk=\nl= \n")
                                 << Sections({{"S", {{"k", ""}, {"l", ""}}}});
    QTest::newRow("empty quoted tokens")
        << QByteArray("[\"\"]\n\"\"=\"\"\n") << Sections({{"", {{"", ""}}}});
    QTest::newRow("only the first assignment parts")
        << QByteArray("[S]\na=b=c\n") << Sections({{"S", {{"a", "b=c"}}}});
    QTest::newRow("CR inside a line belongs to it")
        << QByteArray("[S]\nk=a\rb\r\r\n") << Sections({{"S", {{"k", "a\rb\r"}}}});
    QTest::newRow("NUL inside a line belongs to it")
        << QByteArray("[S]\nk=a\0b\n", 10) << Sections({{"S", {{"k", QByteArray("a\0b", 3)}}}});
    QTest::newRow("a repeated section continues the first")
        << QByteArray("[S]\na=1\n[T]\nc=3\n[S]\nb=2\n")
        << Sections({{"S", {{"a", "1"}, {"b", "2"}}}, {"T", {{"c", "3"}}}});
    QTest::newRow("a repeated key takes the later value and keeps its place")
        << QByteArray("[S]\na=1\nb=2\na=3\n") << Sections({{"S", {{"a", "3"}, {"b", "2"}}}});
    QTest::newRow("plain and quoted name the same key")
        << QByteArray("[S]\na=1\n[\"S\"]\n\"a\"=2\n") << Sections({{"S", {{"a", "2"}}}});
    QTest::newRow("letters differ by case") << QByteArray(
        "[S]\na=1\nA=2\n[s]\n") << Sections({{"S", {{"a", "1"}, {"A", "2"}}}, {"s", {}}});
    QTest::newRow("nothing") << QByteArray() << Sections();
}

void tst_IniParser::reads()
{
    QFETCH(QByteArray, text);
    IniParser parser;
    parser.setIniText(text);
    QTEST(contentOf(parser), "expected");
    QCOMPARE(parser.malformedLineCount(), 0);
    QCOMPARE(parser.firstMalformedLines(), QList<qsizetype>());
}

void tst_IniParser::malformed_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Sections>("expected");
    QTest::addColumn<QList<qsizetype>>("lines");

    const Sections one({{"S", {{"a", "1"}, {"b", "2"}}}});
    const QList<qsizetype> third = {3};
    QTest::newRow("no assignment") << QByteArray("[S]\na=1\nword\nb=2\n") << one << third;
    QTest::newRow("no key") << QByteArray("[S]\na=1\n =v\nb=2\n") << one << third;
    QTest::newRow("quoted key without assignment")
        << QByteArray("[S]\na=1\n\"k\"\nb=2\n") << one << third;
    QTest::newRow("quoted key followed by more")
        << QByteArray("[S]\na=1\n\"k\"x=v\nb=2\n") << one << third;
    QTest::newRow("quoted key without end") << QByteArray("[S]\na=1\n\"k=v\nb=2\n") << one << third;
    QTest::newRow("quoted value without end")
        << QByteArray("[S]\na=1\na=\"v\nb=2\n") << one << third;
    QTest::newRow("lone quote") << QByteArray("[S]\na=1\na=\"\nb=2\n") << one << third;
    QTest::newRow("quoted value followed by more")
        << QByteArray("[S]\na=1\na=\"v\" w\nb=2\n") << one << third;
    QTest::newRow("unknown escape") << QByteArray("[S]\na=1\na=\"\\q\"\nb=2\n") << one << third;
    QTest::newRow("escape without end") << QByteArray("[S]\na=1\na=\"\\\nb=2\n") << one << third;
    QTest::newRow("one hex digit") << QByteArray("[S]\na=1\na=\"\\x4\"\nb=2\n") << one << third;
    QTest::newRow("hex cut by the line end")
        << QByteArray("[S]\na=1\na=\"\\x4\nb=2\n") << one << third;
    QTest::newRow("no hex digits") << QByteArray("[S]\na=1\na=\"\\xG0\"\nb=2\n") << one << third;

    const Sections first({{"S", {{"a", "1"}}}, {"T", {{"c", "3"}}}});
    const QList<qsizetype> thirdAndItsKey = {3, 4};
    QTest::newRow("section without end skips its keys")
        << QByteArray("[S]\na=1\n[X\nb=2\n[T]\nc=3\n") << first << thirdAndItsKey;
    QTest::newRow("section followed by more skips its keys")
        << QByteArray("[S]\na=1\n[X] y\nb=2\n[T]\nc=3\n") << first << thirdAndItsKey;
    QTest::newRow("section with two ends skips its keys")
        << QByteArray("[S]\na=1\n[X]]\nb=2\n[T]\nc=3\n") << first << thirdAndItsKey;
    QTest::newRow("quoted section without end skips its keys")
        << QByteArray("[S]\na=1\n[\"X]\nb=2\n[T]\nc=3\n") << first << thirdAndItsKey;
    QTest::newRow("quoted section without bracket skips its keys")
        << QByteArray("[S]\na=1\n[\"X\"\nb=2\n[T]\nc=3\n") << first << thirdAndItsKey;
    QTest::newRow("lone bracket skips its keys")
        << QByteArray("[S]\na=1\n[\nb=2\n[T]\nc=3\n") << first << thirdAndItsKey;
    QTest::newRow("keys before the first section")
        << QByteArray("a=0\n\nb=0\r\n[S]\na=1\n[T]\nc=3\n") << first << QList<qsizetype>({1, 3});
    QTest::newRow("the last line without line end")
        << QByteArray("[S]\na=1\n[T]\nc=3\nd") << first << QList<qsizetype>({5});
}

void tst_IniParser::malformed()
{
    QFETCH(QByteArray, text);
    QFETCH(QList<qsizetype>, lines);
    IniParser parser;
    parser.setIniText(text);
    QTEST(contentOf(parser), "expected");
    QTEST(parser.firstMalformedLines(), "lines");
    QCOMPARE(parser.malformedLineCount(), lines.size());
}

void tst_IniParser::firstMalformedLinesAreTen()
{
    IniParser parser;
    parser.setIniText(";c\n" + QByteArray("x\n").repeated(25));
    QCOMPARE(parser.malformedLineCount(), 25);
    QCOMPARE(parser.firstMalformedLines(), QList<qsizetype>({2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
}

void tst_IniParser::setIniTextReplaces()
{
    IniParser parser;
    parser.createSection("A")->write("k", "v");
    parser.setIniText("\xEF\xBB\xBFx\n[B]\nl=w");
    QCOMPARE(contentOf(parser), Sections({{"B", {{"l", "w"}}}}));
    parser.setIniText("");
    QCOMPARE(contentOf(parser), Sections());
    QVERIFY(!parser.section("B"));
    QVERIFY(!parser.utf8Encoded());
    QVERIFY(!parser.endsWithoutLineEnd());
    QCOMPARE(parser.malformedLineCount(), 0);
    QCOMPARE(parser.firstMalformedLines(), QList<qsizetype>());
}

void tst_IniParser::setIniTextFromBorrowedMemory()
{
    const QByteArray source("[S]\nk=\"a\\nb\"\n");
    QByteArray memory = source;
    IniParser parser;
    parser.setIniText(QByteArray::fromRawData(memory.constData(), memory.size()));
    QCOMPARE(memory, source);
    memory.fill('?');
    QCOMPARE(contentOf(parser), Sections({{"S", {{"k", "a\nb"}}}}));
}

void tst_IniParser::byteOrderMark_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("utf8");
    QTest::addColumn<QByteArray>("saved");

    QTest::newRow("with the mark") << QByteArray("\xEF\xBB\xBF[S]\r\nk=\xC3\xA4\r\n") << true
                                   << QByteArray("\xEF\xBB\xBF[S]\r\nk=\xC3\xA4\r\n");
    QTest::newRow("UTF-8 bytes without the mark")
        << QByteArray("[S]\r\nk=\xC3\xA4\r\n") << false << QByteArray("[S]\r\nk=\xC3\xA4\r\n");
    QTest::newRow("the mark alone")
        << QByteArray("\xEF\xBB\xBF") << true << QByteArray("\xEF\xBB\xBF");
    QTest::newRow("part of the mark") << QByteArray("\xEF\xBB") << false << QByteArray();
    QTest::newRow("the mark not in front")
        << QByteArray(";\n\xEF\xBB\xBF[S]\n") << false << QByteArray();
    QTest::newRow("nothing") << QByteArray() << false << QByteArray();
}

void tst_IniParser::byteOrderMark()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, utf8);
    QFETCH(QByteArray, saved);
    IniParser parser;
    parser.setIniText(text);
    QCOMPARE(parser.utf8Encoded(), utf8);
    QCOMPARE(parser.getIniText(), saved);
    QCOMPARE(parser.getIniTextWithoutByteOrderMarker(), utf8 ? saved.sliced(3) : saved);
}

void tst_IniParser::endsWithoutLineEnd_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("expected");

    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("the byte-order mark alone") << QByteArray("\xEF\xBB\xBF") << false;
    QTest::newRow("LF") << QByteArray("[S]\n") << false;
    QTest::newRow("CR LF") << QByteArray("[S]\r\n") << false;
    QTest::newRow("cut between CR and LF") << QByteArray("[S]\r") << true;
    QTest::newRow("cut in a line") << QByteArray("[S]\r\nV_1_0=12") << true;
    QTest::newRow("blanks behind the last line end") << QByteArray("[S]\n ") << true;
}

void tst_IniParser::endsWithoutLineEnd()
{
    QFETCH(QByteArray, text);
    IniParser parser;
    parser.setIniText(text);
    QTEST(parser.endsWithoutLineEnd(), "expected");
}

void tst_IniParser::containerHeaderIsAComment()
{
    IniParser parser;
    parser.setIniText(";type=\"parametervalues\" version=\"0\"\r\n[E084]\r\nV_0_0=1\r\n");
    QCOMPARE(contentOf(parser), Sections({{"E084", {{"V_0_0", "1"}}}}));
    QCOMPARE(parser.malformedLineCount(), 0);
}

void tst_IniParser::lookUpInAnyOrder_data()
{
    QTest::addColumn<int>("count");

    QTest::newRow("one key") << 1;
    QTest::newRow("two keys") << 2;
    QTest::newRow("the last count searched by comparing") << 16;
    QTest::newRow("the first count searched by hash") << 17;
    QTest::newRow("the first hash table full") << 32;
    QTest::newRow("the first hash table grown") << 33;
    QTest::newRow("many keys") << 5000;
}

void tst_IniParser::lookUpInAnyOrder()
{
    QFETCH(int, count);
    IniSection section;
    for (int number = 0; number < count; ++number)
        section.write(QByteArray::number(number), QByteArray::number(number + 100000));
    QCOMPARE(section.keys().size(), count);

    const auto found = [&section](int number) {
        const QByteArray key = QByteArray::number(number);
        return section.contains(key)
            && section.read(key).toByteArray() == QByteArray::number(number + 100000);
    };
    for (int number = 0; number < count; ++number) {
        QVERIFY(found(number));
        QVERIFY(!section.contains("x" + QByteArray::number(number)));
    }
    for (int number = count - 1; number >= 0; --number)
        QVERIFY(found(number));
    QRandomGenerator random(1);
    for (int turn = 0; turn < count; ++turn)
        QVERIFY(found(static_cast<int>(random.bounded(count))));
    QVERIFY(!section.contains(QByteArray::number(count)));
}

void tst_IniParser::viewsLastWhileReading()
{
    IniParser parser;
    QByteArray text("[S]\nfirst=\"a\\tb\"\n");
    for (int number = 0; number < 1000; ++number)
        text += QByteArray::number(number) + "=x\n";
    parser.setIniText(text);
    const IniSection *section = parser.section("S");
    const QByteArrayView first = section->read("first");
    const char *const address = first.data();
    for (int number = 999; number >= 0; --number)
        QCOMPARE(section->read(QByteArray::number(number)).toByteArray(), QByteArray("x"));
    QVERIFY(!section->contains("absent"));
    parser.getIniText();
    parser.allSectionNames();
    QCOMPARE(section->read("first").data(), address);
    QCOMPARE(first.toByteArray(), QByteArray("a\tb"));
}

QTEST_APPLESS_MAIN(tst_IniParser)

#include "tst_IniParser.moc"
