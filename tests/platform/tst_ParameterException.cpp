#include <KrParameterDefinition/ParameterException.h>

#include <QtTest/QtTest>

class tst_ParameterException : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reasonAndText_data();
    void reasonAndText();
    void isCaughtAcrossTheLibraryAsStandardException();
};

void tst_ParameterException::reasonAndText_data()
{
    QTest::addColumn<quint32>("reason");
    QTest::addColumn<QString>("text");

    QTest::newRow("element not in parameter") << 2U << QStringLiteral("element not in parameter");
    QTest::newRow("no owning instance set") << 7U << QStringLiteral("no owning instance set");
    QTest::newRow("other reason") << 0U << QStringLiteral("parameter error");
    QTest::newRow("largest reason") << 4294967295U << QStringLiteral("parameter error");
}

void tst_ParameterException::reasonAndText()
{
    QFETCH(quint32, reason);
    QFETCH(QString, text);

    const ParameterException exception(reason);
    QCOMPARE(exception.reason(), reason);
    QCOMPARE(QString::fromLatin1(exception.what()), text);
}

void tst_ParameterException::isCaughtAcrossTheLibraryAsStandardException()
{
    QVERIFY_EXCEPTION_THROWN(
        throw ParameterException(ParameterException::ElementNotInParameter), std::exception);
}

QTEST_APPLESS_MAIN(tst_ParameterException)
#include "tst_ParameterException.moc"
