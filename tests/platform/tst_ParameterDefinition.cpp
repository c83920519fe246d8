#include <KrParameterDefinition/ParameterDefinition.h>

#include <KrMultilingual/LanguageManager.h>

#include <QtTest/QtTest>

namespace {

std::shared_ptr<ElementInformation> information(int readLevel)
{
    auto result = std::make_shared<ElementInformation>();
    result->setProperty(eParameterProperty::ReadLevel, readLevel);
    return result;
}

ParameterText text(const QString &german, const QString &english)
{
    ParameterText result;
    result.setText(QStringLiteral("de"), german, german);
    result.setText(QStringLiteral("en"), english, english);
    return result;
}

ParameterDefinition::Element element(quint16 number, const QString &defaultValue)
{
    ParameterDefinition::Element result;
    result.number = number;
    result.version = number + 10U;
    result.information = information(number);
    result.defaultValue = defaultValue;
    return result;
}

ParameterDefinition::Content simpleContent()
{
    ParameterDefinition::Content content;
    content.identifier = QStringLiteral("P1");
    content.version = 3;
    content.elements = {element(0, QStringLiteral("5"))};
    return content;
}

ParameterDefinition::Content recordContent(const QList<quint16> &numbers)
{
    ParameterDefinition::Content content;
    content.identifier = QStringLiteral("P2");
    content.version = 4;
    content.isRecord = true;
    for (const quint16 number : numbers)
        content.elements.append(element(number, QString::number(number * 2)));
    return content;
}

ParameterDefinition::Content identified(const QString &identifier, quint32 version)
{
    ParameterDefinition::Content content = simpleContent();
    content.identifier = identifier;
    content.version = version;
    return content;
}

} // namespace

class tst_ParameterDefinition : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void simpleParameter();
    void simpleDefaults_data();
    void simpleDefaults();
    void recordParameter();
    void recordLacksElement();
    void aRepeatedNumberKeepsItsFirstEntry();
    void holds16000Elements();
    void answersItsContent();
    void descriptionFollowsActiveLanguage();
    void isValid_data();
    void isValid();
    void isInvalid_data();
    void isInvalid();
    void invalidDefinitionAnswersEmpty();
    void identityAndVersions_data();
    void identityAndVersions();
    void nullIsNoParameter();

private:
    /// Contents of the rows; a row names its position.
    QList<ParameterDefinition::Content> m_contents;
    void addContentRow(const char *name, const ParameterDefinition::Content &content);
};

void tst_ParameterDefinition::addContentRow(
    const char *name, const ParameterDefinition::Content &content)
{
    QTest::newRow(name) << int(m_contents.size());
    m_contents.append(content);
}

void tst_ParameterDefinition::simpleParameter()
{
    ParameterDefinition::Content content = simpleContent();
    content.elementCount = 4;
    const ParameterDefinition definition(content);

    QVERIFY(definition.isValid());
    QVERIFY(definition.isSimpleParameterDefinition());
    QVERIFY(!definition.isRecordParameterDefinition());
    QVERIFY(!definition.queryRecordDefinition());
    QCOMPARE(definition.elementCount(), quint16(4));
    QCOMPARE(definition.elementVersion(0), 3U);
    QCOMPARE(definition.elementVersion(9), 3U);
    const IParameterElementInformation *shared = content.elements.constFirst().information.get();
    QCOMPARE(definition.queryElementInformation(0), shared);
    QCOMPARE(definition.queryElementInformation(3), shared);
    QCOMPARE(definition.queryElementInformation(65535), shared);
}

void tst_ParameterDefinition::simpleDefaults_data()
{
    QTest::addColumn<QStringList>("defaultValues");
    QTest::addColumn<quint16>("element");
    QTest::addColumn<QString>("text");

    const QStringList values {QStringLiteral("1"), QString(), QStringLiteral("3")};
    QTest::newRow("first of the list") << values << quint16(0) << QStringLiteral("1");
    QTest::newRow("empty text of the list") << values << quint16(1) << QString();
    QTest::newRow("last of the list") << values << quint16(2) << QStringLiteral("3");
    QTest::newRow("beyond the list") << values << quint16(3) << QStringLiteral("1");
    QTest::newRow("far beyond the list") << values << quint16(65535) << QStringLiteral("1");
    QTest::newRow("no list") << QStringList() << quint16(0) << QStringLiteral("5");
    QTest::newRow("no list, later element") << QStringList() << quint16(7) << QStringLiteral("5");
}

void tst_ParameterDefinition::simpleDefaults()
{
    QFETCH(QStringList, defaultValues);
    QFETCH(quint16, element);
    QFETCH(QString, text);

    ParameterDefinition::Content content = simpleContent();
    content.elementCount = 4;
    content.defaultValues = defaultValues;
    QCOMPARE(ParameterDefinition(content).elementDefaultValue(element), text);
}

void tst_ParameterDefinition::recordParameter()
{
    ParameterDefinition::Content content = recordContent({7, 3});
    content.elements[0].name = text(QStringLiteral("Sieben"), QStringLiteral("Seven"));
    content.elements[0].nameCommonTextIndex = 70;
    content.elementCount = 99;
    const ParameterDefinition definition(content);

    QVERIFY(definition.isValid());
    QVERIFY(definition.isRecordParameterDefinition());
    QVERIFY(!definition.isSimpleParameterDefinition());
    QCOMPARE(definition.elementCount(), quint16(2));
    QCOMPARE(definition.elementVersion(7), 17U);
    QCOMPARE(definition.elementVersion(3), 13U);
    QCOMPARE(definition.elementDefaultValue(7), QStringLiteral("14"));
    QCOMPARE(definition.elementDefaultValue(3), QStringLiteral("6"));
    const IParameterElementInformation *seven = definition.queryElementInformation(7);
    QVERIFY(seven);
    QCOMPARE(seven->property(eParameterProperty::ReadLevel).asInt32(), 7);

    const RecordParameterDefinition *record = definition.queryRecordDefinition();
    QVERIFY(record);
    QCOMPARE(record->elementList(), QList<quint16>({7, 3}));
    QCOMPARE(record->elementName(7).longText(), QStringLiteral("Sieben"));
    QCOMPARE(record->elementNameCommonTextIndex(7), 70);
}

void tst_ParameterDefinition::recordLacksElement()
{
    const ParameterDefinition definition(recordContent({7, 3}));
    for (const quint16 missing : {0, 1, 4, 65535}) {
        QCOMPARE(definition.elementVersion(missing), 0U);
        QVERIFY(!definition.queryElementInformation(missing));
        QCOMPARE(definition.elementDefaultValue(missing), QString());
    }
}

void tst_ParameterDefinition::aRepeatedNumberKeepsItsFirstEntry()
{
    ParameterDefinition::Content content = recordContent({7, 7, 8});
    content.elements[1].defaultValue = QStringLiteral("second");
    const ParameterDefinition definition(content);
    QCOMPARE(definition.elementCount(), quint16(2));
    QCOMPARE(definition.elementDefaultValue(7), QStringLiteral("14"));
    QCOMPARE(definition.elementDefaultValue(8), QStringLiteral("16"));
}

void tst_ParameterDefinition::holds16000Elements()
{
    QList<quint16> numbers;
    for (int number = 16000; number > 0; --number)
        numbers.append(quint16(number));
    const ParameterDefinition definition(recordContent(numbers));

    QVERIFY(definition.isValid());
    QCOMPARE(definition.elementCount(), quint16(16000));
    for (quint16 number = 1; number <= 16000; ++number) {
        QCOMPARE(definition.elementVersion(number), number + 10U);
        QVERIFY(definition.queryElementInformation(number));
    }
    QVERIFY(!definition.queryElementInformation(0));
}

void tst_ParameterDefinition::answersItsContent()
{
    ParameterDefinition::Content content = simpleContent();
    content.name = text(QStringLiteral("Strom"), QStringLiteral("Current"));
    content.nameCommonTextIndex = 12;
    content.isGlobal = true;
    content.isPhysicalAxis = true;
    content.isSingleInstance = false;
    content.defaultCoordinates = {
        ParameterCoordinate(quint16(5084)), ParameterCoordinate(quint16(1000))};
    content.anchors = {QStringLiteral("S;{P1}")};
    const ParameterDefinition definition(content);

    QCOMPARE(definition.identifier(), QStringLiteral("P1"));
    QCOMPARE(definition.version(), 3U);
    QCOMPARE(definition.name().longText(QStringLiteral("en")), QStringLiteral("Current"));
    QCOMPARE(definition.nameCommonTextIndex(), 12);
    QVERIFY(definition.isGlobalParameter());
    QVERIFY(definition.isPhysicalAxisParameter());
    QVERIFY(!definition.isSingleInstance());
    QCOMPARE(definition.defaultCoordinates(), content.defaultCoordinates);
    QCOMPARE(definition.anchors(), QStringList({QStringLiteral("S;{P1}")}));

    const ParameterDefinition plain(simpleContent());
    QVERIFY(!plain.isGlobalParameter());
    QVERIFY(!plain.isPhysicalAxisParameter());
    QVERIFY(plain.isSingleInstance());
}

void tst_ParameterDefinition::descriptionFollowsActiveLanguage()
{
    ParameterDefinition::Content content = simpleContent();
    content.description = text(QStringLiteral("Beschreibung"), QStringLiteral("Description"));
    const ParameterDefinition definition(content);

    QCOMPARE(definition.descriptionText(), QStringLiteral("Beschreibung"));
    QVERIFY(LanguageManager::instance()->setActiveLanguage(QStringLiteral("en")));
    QCOMPARE(definition.descriptionText(), QStringLiteral("Description"));
    QVERIFY(LanguageManager::instance()->setActiveLanguage(QStringLiteral("de")));
}

void tst_ParameterDefinition::isValid_data()
{
    QTest::addColumn<int>("content");
    m_contents.clear();

    ParameterDefinition::Content content = simpleContent();
    addContentRow("simple with one element", content);
    content.elementCount = 16000;
    addContentRow("simple with 16000 elements", content);
    addContentRow("record with one element", recordContent({0}));
    addContentRow("record with the largest number", recordContent({16383}));
}

void tst_ParameterDefinition::isValid()
{
    QFETCH(int, content);
    QVERIFY(ParameterDefinition(m_contents.at(content)).isValid());
}

void tst_ParameterDefinition::isInvalid_data()
{
    QTest::addColumn<int>("content");
    m_contents.clear();

    addContentRow("nothing", {});
    addContentRow("without identifier", identified(QString(), 1));
    ParameterDefinition::Content content = simpleContent();
    content.elements[0].information.reset();
    addContentRow("simple without information", content);
    content = simpleContent();
    content.elements.clear();
    addContentRow("simple without entry", content);
    content = simpleContent();
    content.elements.append(content.elements.constFirst());
    addContentRow("simple with two entries", content);
    content = simpleContent();
    content.elementCount = 0;
    addContentRow("simple with no element", content);
    content.elementCount = 16001;
    addContentRow("simple with 16001 elements", content);
    addContentRow("record without elements", recordContent({}));
    content = recordContent({1, 2});
    content.elements[1].information.reset();
    addContentRow("record with an element without information", content);
    QList<quint16> numbers;
    for (quint16 number = 0; number < 16001; ++number)
        numbers.append(number);
    addContentRow("record with 16001 elements", recordContent(numbers));
}

void tst_ParameterDefinition::isInvalid()
{
    QFETCH(int, content);
    QVERIFY(!ParameterDefinition(m_contents.at(content)).isValid());
}

void tst_ParameterDefinition::invalidDefinitionAnswersEmpty()
{
    const ParameterDefinition definition({});
    QVERIFY(!definition.queryElementInformation(0));
    QCOMPARE(definition.elementDefaultValue(0), QString());
    QVERIFY(definition.name().isEmpty());
    QCOMPARE(definition.descriptionText(), QString());
    QVERIFY(definition.defaultCoordinates().isEmpty());
}

void tst_ParameterDefinition::identityAndVersions_data()
{
    QTest::addColumn<QString>("identifier");
    QTest::addColumn<quint32>("version");
    QTest::addColumn<bool>("identical");
    QTest::addColumn<bool>("versions");

    QTest::newRow("same in the same version") << QStringLiteral("P1") << 3U << true << false;
    QTest::newRow("same in another version") << QStringLiteral("P1") << 2U << false << true;
    QTest::newRow("another in the same version") << QStringLiteral("P2") << 3U << false << false;
    QTest::newRow("another in another version") << QStringLiteral("P2") << 2U << false << false;
    QTest::newRow("letter case differs") << QStringLiteral("p1") << 3U << false << false;
    QTest::newRow("without identifier") << QString() << 3U << false << false;
}

void tst_ParameterDefinition::identityAndVersions()
{
    QFETCH(QString, identifier);
    QFETCH(quint32, version);
    QFETCH(bool, identical);
    QFETCH(bool, versions);

    const ParameterDefinition definition(simpleContent());
    const ParameterDefinition other(identified(identifier, version));
    QCOMPARE(definition.isParameterIdentical(&other), identical);
    QCOMPARE(other.isParameterIdentical(&definition), identical);
    QCOMPARE(definition.versionsOfTheSameParameter(&other), versions);
    QCOMPARE(other.versionsOfTheSameParameter(&definition), versions);
}

void tst_ParameterDefinition::nullIsNoParameter()
{
    const ParameterDefinition definition(simpleContent());
    QVERIFY(!definition.isParameterIdentical(nullptr));
    QVERIFY(!definition.versionsOfTheSameParameter(nullptr));

    const ParameterDefinition unnamed({});
    const ParameterDefinition alsoUnnamed({});
    QVERIFY(!unnamed.isParameterIdentical(&alsoUnnamed));
    QVERIFY(!unnamed.versionsOfTheSameParameter(&alsoUnnamed));
}

QTEST_GUILESS_MAIN(tst_ParameterDefinition)
#include "tst_ParameterDefinition.moc"
