#include <KrMultilingual/LanguageManager.h>
#include <KrMultilingual/ParameterText.h>

#include <QtCore/QVariant>
#include <QtTest/QtTest>

#include <utility>

namespace {

const QString German = QStringLiteral("de");
const QString English = QStringLiteral("en");
const QString French = QStringLiteral("fr");

ParameterText germanAndEnglish()
{
    ParameterText text;
    text.setText(German, QStringLiteral("I"), QStringLiteral("Strom"));
    text.setText(English, QStringLiteral("C"), QStringLiteral("Current"));
    return text;
}

} // namespace

class tst_ParameterText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // First: nothing of the library but the type itself was used before.
    void convertersAreThereAtLoad();
    void cleanup();
    void isEmptyByDefault();
    void answersEachLanguage();
    void answersTheActiveLanguage();
    void fallsBackToTheFirstLanguageWithText();
    void fallsBackForEachFormOnItsOwn();
    void replacingKeepsTheLanguagesPlace();
    void emptyTextsRemoveTheLanguage();
    void copiesAreIndependent();
    void movedFromIsUsable();
    void comparesByContentAndOrder();
    void keepsAnyCharacter();
    void convertsToText();
    void convertsFromText();
};

void tst_ParameterText::convertersAreThereAtLoad()
{
    QVERIFY(QMetaType::canConvert(
        QMetaType::fromType<QString>(), QMetaType::fromType<ParameterText>()));
    QVERIFY(QMetaType::canConvert(
        QMetaType::fromType<ParameterText>(), QMetaType::fromType<QString>()));
}

void tst_ParameterText::cleanup()
{
    LanguageManager::instance()->setActiveLanguage(German);
}

void tst_ParameterText::isEmptyByDefault()
{
    const ParameterText text;
    QVERIFY(text.isEmpty());
    QVERIFY(text.languages().isEmpty());
    QCOMPARE(text.longText(), QString());
    QCOMPARE(text.shortText(), QString());
    QCOMPARE(text.longText(English), QString());
}

void tst_ParameterText::answersEachLanguage()
{
    const ParameterText text = germanAndEnglish();
    QVERIFY(!text.isEmpty());
    QCOMPARE(text.languages(), QStringList({German, English}));
    QCOMPARE(text.shortText(German), QStringLiteral("I"));
    QCOMPARE(text.longText(German), QStringLiteral("Strom"));
    QCOMPARE(text.shortText(English), QStringLiteral("C"));
    QCOMPARE(text.longText(English), QStringLiteral("Current"));
}

void tst_ParameterText::answersTheActiveLanguage()
{
    const ParameterText text = germanAndEnglish();
    QCOMPARE(text.longText(), QStringLiteral("Strom"));
    QCOMPARE(text.shortText(), QStringLiteral("I"));
    QVERIFY(LanguageManager::instance()->setActiveLanguage(English));
    QCOMPARE(text.longText(), QStringLiteral("Current"));
    QCOMPARE(text.shortText(), QStringLiteral("C"));
}

void tst_ParameterText::fallsBackToTheFirstLanguageWithText()
{
    QCOMPARE(germanAndEnglish().longText(French), QStringLiteral("Strom"));
    QCOMPARE(germanAndEnglish().longText(QString()), QStringLiteral("Strom"));

    ParameterText text;
    text.setText(English, QString(), QStringLiteral("Current"));
    text.setText(French, QString(), QStringLiteral("Courant"));
    QCOMPARE(text.longText(), QStringLiteral("Current"));
    QCOMPARE(text.longText(QStringLiteral("FR")), QStringLiteral("Current"));
}

void tst_ParameterText::fallsBackForEachFormOnItsOwn()
{
    ParameterText text;
    text.setText(German, QStringLiteral("I"), QString());
    text.setText(English, QString(), QStringLiteral("Current"));
    QCOMPARE(text.longText(German), QStringLiteral("Current"));
    QCOMPARE(text.shortText(German), QStringLiteral("I"));
    QCOMPARE(text.shortText(English), QStringLiteral("I"));
    QCOMPARE(text.longText(French), QStringLiteral("Current"));
}

void tst_ParameterText::replacingKeepsTheLanguagesPlace()
{
    ParameterText text = germanAndEnglish();
    text.setText(German, QStringLiteral("U"), QStringLiteral("Spannung"));
    QCOMPARE(text.languages(), QStringList({German, English}));
    QCOMPARE(text.longText(French), QStringLiteral("Spannung"));
    QCOMPARE(text.shortText(German), QStringLiteral("U"));
}

void tst_ParameterText::emptyTextsRemoveTheLanguage()
{
    ParameterText text = germanAndEnglish();
    text.setText(French, QString(), QString());
    QCOMPARE(text.languages(), QStringList({German, English}));
    text.setText(German, QString(), QString());
    QCOMPARE(text.languages(), QStringList({English}));
    QCOMPARE(text.longText(German), QStringLiteral("Current"));
    text.setText(English, QString(), QString());
    QVERIFY(text.isEmpty());
    QCOMPARE(text, ParameterText());

    text.setText(German, QString(), QString());
    QVERIFY(text.isEmpty());
}

void tst_ParameterText::copiesAreIndependent()
{
    const ParameterText text = germanAndEnglish();
    ParameterText copy = text;
    QCOMPARE(copy, text);
    copy.setText(German, QString(), QStringLiteral("Spannung"));
    QCOMPARE(copy.longText(), QStringLiteral("Spannung"));
    QCOMPARE(text.longText(), QStringLiteral("Strom"));

    copy = text;
    QCOMPARE(copy.longText(), QStringLiteral("Strom"));
    const ParameterText &self = copy;
    copy = self;
    QCOMPARE(copy.longText(), QStringLiteral("Strom"));
}

void tst_ParameterText::movedFromIsUsable()
{
    ParameterText text = germanAndEnglish();
    const ParameterText moved = std::move(text);
    QCOMPARE(moved.longText(), QStringLiteral("Strom"));
    text = ParameterText();
    QVERIFY(text.isEmpty());
    text.setText(German, QString(), QStringLiteral("neu"));
    QCOMPARE(text.longText(), QStringLiteral("neu"));
}

void tst_ParameterText::comparesByContentAndOrder()
{
    QVERIFY(germanAndEnglish() == germanAndEnglish());
    QVERIFY(!(germanAndEnglish() == ParameterText()));
    QVERIFY(!(ParameterText() == germanAndEnglish()));

    ParameterText shortDiffers = germanAndEnglish();
    shortDiffers.setText(German, QStringLiteral("U"), QStringLiteral("Strom"));
    QVERIFY(!(shortDiffers == germanAndEnglish()));

    ParameterText otherOrder;
    otherOrder.setText(English, QStringLiteral("C"), QStringLiteral("Current"));
    otherOrder.setText(German, QStringLiteral("I"), QStringLiteral("Strom"));
    QVERIFY(!(otherOrder == germanAndEnglish()));
}

void tst_ParameterText::keepsAnyCharacter()
{
    const QString odd =
        QString::fromUtf16(u"\0\n\u00B5\uFFFF", 4) + QChar(0xD800) + QString(100000, u'x');
    ParameterText text;
    text.setText(odd, odd, odd);
    QCOMPARE(text.longText(odd), odd);
    QCOMPARE(text.languages(), QStringList({odd}));
}

void tst_ParameterText::convertsToText()
{
    const QVariant variant = QVariant::fromValue(germanAndEnglish());
    QCOMPARE(variant.toString(), QStringLiteral("Strom"));
    QVERIFY(LanguageManager::instance()->setActiveLanguage(English));
    QCOMPARE(variant.toString(), QStringLiteral("Current"));

    const ParameterText text = germanAndEnglish();
    QString converted;
    QVERIFY(QMetaType::convert(
        QMetaType::fromType<ParameterText>(), &text, QMetaType::fromType<QString>(), &converted));
    QCOMPARE(converted, QStringLiteral("Current"));
}

void tst_ParameterText::convertsFromText()
{
    QVERIFY(LanguageManager::instance()->setActiveLanguage(English));
    const ParameterText text = QVariant(QStringLiteral("mA")).value<ParameterText>();
    QCOMPARE(text.languages(), QStringList({English}));
    QCOMPARE(text.longText(), QStringLiteral("mA"));
    QCOMPARE(text.shortText(), QStringLiteral("mA"));
    QVERIFY(QVariant(QString()).value<ParameterText>().isEmpty());
}

QTEST_GUILESS_MAIN(tst_ParameterText)
#include "tst_ParameterText.moc"
