#include "tests/support/MessageRecorder.h"

#include <KrSystem/System.h>

#include <QtTest/QTest>

using eSeverity = SystemMessage::eSeverity;

class tst_MessageRecorder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void expectedMessagesAreNoProblem();
    void unexpectedMessageIsAProblem();
    void missingMessageIsAProblem();
    void wrongOrderIsAProblem();
    void everyFieldIsCompared_data();
    void everyFieldIsCompared();
    void takenMessagesAreNoProblem();
    void earlierMessagesPlayNoPart();
};

namespace {

const QString Title = QStringLiteral("Title");
const QString Text = QStringLiteral("Text");

} // namespace

void tst_MessageRecorder::expectedMessagesAreNoProblem()
{
    MessageRecorder recorder;
    recorder.expect(eSeverity::Information, Title, Text);
    recorder.expect(eSeverity::Critical, Title, Text);
    System::addInformationMessage(Title, Text);
    System::addCriticalMessage(Title, Text);
    QVERIFY(recorder.verify());
    QCOMPARE(recorder.take(), QList<SystemMessage>());
}

void tst_MessageRecorder::unexpectedMessageIsAProblem()
{
    MessageRecorder recorder;
    System::addWarningMessage(Title, Text);
    QCOMPARE(recorder.takeProblems(),
        QStringList {QStringLiteral("Unexpected message: warning \"Title\": Text")});
    QVERIFY(recorder.verify());
}

void tst_MessageRecorder::missingMessageIsAProblem()
{
    MessageRecorder recorder;
    recorder.expect(eSeverity::Critical, Title, Text);
    QCOMPARE(recorder.takeProblems(),
        QStringList {QStringLiteral("Missing message: critical \"Title\": Text")});
    QVERIFY(recorder.verify());
}

void tst_MessageRecorder::wrongOrderIsAProblem()
{
    MessageRecorder recorder;
    recorder.expect(eSeverity::Information, Title, QStringLiteral("first"));
    recorder.expect(eSeverity::Information, Title, QStringLiteral("second"));
    System::addInformationMessage(Title, QStringLiteral("second"));
    System::addInformationMessage(Title, QStringLiteral("first"));
    QCOMPARE(recorder.takeProblems(),
        (QStringList {QStringLiteral("Unexpected message: information \"Title\": second"),
            QStringLiteral("Missing message: information \"Title\": second")}));
}

void tst_MessageRecorder::everyFieldIsCompared_data()
{
    QTest::addColumn<int>("severity");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");

    QTest::newRow("another severity") << int(eSeverity::Warning) << Title << Text;
    QTest::newRow("another title") << int(eSeverity::Critical) << QStringLiteral("title") << Text;
    QTest::newRow("another text") << int(eSeverity::Critical) << Title << QStringLiteral("Texts");
}

void tst_MessageRecorder::everyFieldIsCompared()
{
    QFETCH(int, severity);
    QFETCH(QString, title);
    QFETCH(QString, text);

    MessageRecorder recorder;
    recorder.expect(eSeverity(severity), title, text);
    System::addCriticalMessage(Title, Text);
    QCOMPARE(recorder.takeProblems().size(), 2);
}

void tst_MessageRecorder::takenMessagesAreNoProblem()
{
    MessageRecorder recorder;
    System::addWarningMessage(Title, Text);
    QCOMPARE(recorder.take(), (QList<SystemMessage> {{eSeverity::Warning, Title, Text}}));
    QCOMPARE(recorder.take(), QList<SystemMessage>());
    QVERIFY(recorder.verify());
}

void tst_MessageRecorder::earlierMessagesPlayNoPart()
{
    System::addWarningMessage(Title, Text);
    MessageRecorder recorder;
    QVERIFY(recorder.verify());
}

QTEST_GUILESS_MAIN(tst_MessageRecorder)

#include "tst_MessageRecorder.moc"
