#include "value/ChoiceForm.h"

#include <KrMultilingual/LanguageManager.h>

#include <QtCore/QScopeGuard>
#include <QtTest/QtTest>

namespace {

ParameterText text(const char *german, const char *english)
{
    ParameterText both;
    both.setText(QStringLiteral("de"), QString(), QString::fromUtf8(german));
    both.setText(QStringLiteral("en"), QString(), QString::fromUtf8(english));
    return both;
}

ParameterTextMap choice()
{
    ParameterTextMap map;
    map.insert(-1, text("Aus", "Off"));
    map.insert(0, text("", ""));
    map.insert(3, text("Drehmoment", "Torque"));
    map.insert(7, text("Drehmoment", "Torque"));
    map.insert(8, text("12", "12"));
    map.insert(9, text("%1: %2", "%1: %2"));
    map.insert(10, text("x: y", "x: y"));
    return map;
}

QString longText(const ParameterText &entry)
{
    return entry.longText();
}

} // namespace

class tst_ChoiceForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void show_data();
    void show();
    void showInTheActiveLanguage();
    void showAsksForTheEntryText();
    void readNumber_data();
    void readNumber();
    void readNumberRefuses_data();
    void readNumberRefuses();
    void readText_data();
    void readText();
};

void tst_ChoiceForm::show_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("key and text") << QStringLiteral("3") << QStringLiteral("3: Drehmoment");
    QTest::newRow("negative key") << QStringLiteral("-1") << QStringLiteral("-1: Aus");
    QTest::newRow("the key is shown in decimal")
        << QStringLiteral(" +03") << QStringLiteral("3: Drehmoment");
    QTest::newRow("an empty entry text") << QStringLiteral("0") << QStringLiteral("0: ");
    QTest::newRow("place holders of the pattern are text")
        << QStringLiteral("9") << QStringLiteral("9: %1: %2");
    QTest::newRow("an absent key as it stands") << QStringLiteral("04") << QStringLiteral("04");
    QTest::newRow("no number as it stands") << QStringLiteral("abc") << QStringLiteral("abc");
    QTest::newRow("a fraction as it stands") << QStringLiteral("3.0") << QStringLiteral("3.0");
    QTest::newRow("a number beyond 32 bits as it stands")
        << QStringLiteral("4294967299") << QStringLiteral("4294967299");
}

void tst_ChoiceForm::show()
{
    QFETCH(QString, value);
    QTEST(ChoiceForm::show(value, choice(), longText), "text");
}

void tst_ChoiceForm::showInTheActiveLanguage()
{
    LanguageManager::instance()->setActiveLanguage(QStringLiteral("en"));
    const auto german =
        qScopeGuard([] { LanguageManager::instance()->setActiveLanguage(QStringLiteral("de")); });
    QCOMPARE(
        ChoiceForm::show(QStringLiteral("3"), choice(), longText), QStringLiteral("3: Torque"));
}

void tst_ChoiceForm::showAsksForTheEntryText()
{
    const auto bracketed = [](const ParameterText &entry) {
        return QLatin1Char('[') + entry.longText() + QLatin1Char(']');
    };
    QCOMPARE(
        ChoiceForm::show(QStringLiteral("-1"), choice(), bracketed), QStringLiteral("-1: [Aus]"));
}

void tst_ChoiceForm::readNumber_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");
    QTest::newRow("number before the colon")
        << QStringLiteral("3: Drehmoment") << QStringLiteral("3");
    QTest::newRow("the text behind it does not count")
        << QStringLiteral("3: Aus") << QStringLiteral("3");
    QTest::newRow("number alone") << QStringLiteral("3") << QStringLiteral("3");
    QTest::newRow("blanks around") << QStringLiteral(" 3 : Drehmoment") << QStringLiteral("3");
    QTest::newRow("negative") << QStringLiteral("-1: Aus") << QStringLiteral("-1");
    QTest::newRow("leading zeros") << QStringLiteral("03") << QStringLiteral("3");
    QTest::newRow("an absent key") << QStringLiteral("99") << QStringLiteral("99");
    QTest::newRow("64 bits unsigned")
        << QStringLiteral("18446744073709551615") << QStringLiteral("18446744073709551615");
    QTest::newRow("the first colon counts") << QStringLiteral("9: %1: %2") << QStringLiteral("9");
}

void tst_ChoiceForm::readNumber()
{
    QFETCH(QString, typed);
    QFETCH(QString, value);
    QCOMPARE(ChoiceForm::readNumber(typed), std::optional(value));
}

void tst_ChoiceForm::readNumberRefuses_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << QString();
    QTest::newRow("text") << QStringLiteral("Drehmoment");
    QTest::newRow("colon first") << QStringLiteral(": 3");
    QTest::newRow("number and text without colon") << QStringLiteral("3 Drehmoment");
    QTest::newRow("fraction") << QStringLiteral("3.5");
}

void tst_ChoiceForm::readNumberRefuses()
{
    QFETCH(QString, typed);
    QCOMPARE(ChoiceForm::readNumber(typed), std::nullopt);
}

void tst_ChoiceForm::readText_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");
    QTest::newRow("entry text") << QStringLiteral("Aus") << QStringLiteral("-1");
    QTest::newRow("outer blanks") << QStringLiteral(" Aus ") << QStringLiteral("-1");
    QTest::newRow("the lowest of equal texts")
        << QStringLiteral("Drehmoment") << QStringLiteral("3");
    QTest::newRow("text with colon") << QStringLiteral("x: y") << QStringLiteral("10");
    QTest::newRow("case counts") << QStringLiteral("aus") << QStringLiteral("aus");
    QTest::newRow("another language is no entry")
        << QStringLiteral("Torque") << QStringLiteral("Torque");
    QTest::newRow("unknown text is unchanged")
        << QStringLiteral(" abc ") << QStringLiteral(" abc ");
    QTest::newRow("empty is no entry") << QString() << QString();
    QTest::newRow("blank is no entry") << QStringLiteral(" ") << QStringLiteral(" ");
}

void tst_ChoiceForm::readText()
{
    QFETCH(QString, typed);
    QTEST(ChoiceForm::readText(typed, choice(), longText), "value");
}

QTEST_APPLESS_MAIN(tst_ChoiceForm)
#include "tst_ChoiceForm.moc"
