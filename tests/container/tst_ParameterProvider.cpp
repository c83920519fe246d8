#include <KrParameterInstance/ParameterContainer.h>

#include <QtCore/QMetaMethod>
#include <QtTest/QtTest>

/// The order of the notification channel's signals, which is binary interface.
class tst_ParameterProvider : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void signalsInTheirOrder();
};

void tst_ParameterProvider::signalsInTheirOrder()
{
    const QMetaObject &meta = ParameterProvider::staticMetaObject;
    QByteArrayList signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        signatures.append(meta.method(i).methodSignature());
    QCOMPARE(signatures,
        (QByteArrayList {"accessLevelUpdateStarted()", "accessLevelUpdateFinished()",
            "readOnlySetToChange(bool)", "onlineSetToChange(bool)", "onlineChanged(bool)",
            "readOnlyChanged(bool)", "parameterNativeValueChanged(ParameterAddress)",
            "parameterValueChanged(ParameterAddress)",
            "parameterDefaultValueChanged(ParameterAddress)",
            "parameterDefinitionChanged(ParameterAddress)",
            "parameterVisibilityChanged(ParameterAddress)",
            "parameterMeasuringUnitChanged(ParameterAddress)",
            "parameterAdded(ParameterCoordinate)", "parameterRemoved(ParameterCoordinate)",
            "parameterNeedsOnlineConsistence(ParameterAddress,bool)",
            "parameterNeedsOnlineConsistenceOnce(ParameterAddress)"}));
}

QTEST_GUILESS_MAIN(tst_ParameterProvider)

#include "tst_ParameterProvider.moc"
