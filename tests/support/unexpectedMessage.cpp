#include "tests/support/MessageRecorder.h"

#include <KrSystem/System.h>

#include <QtTest/QTest>

/// Fails on purpose: its output is what is tested.
class unexpectedMessage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void failsByDestruction()
    {
        const MessageRecorder recorder;
        System::addWarningMessage(QStringLiteral("Planted"), QStringLiteral("nobody expects this"));
    }
};

QTEST_GUILESS_MAIN(unexpectedMessage)

#include "unexpectedMessage.moc"
