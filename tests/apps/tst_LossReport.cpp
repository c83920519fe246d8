#include "apps/host/LossReport.h"
#include "tests/apps/SmallDevice.h"

#include <KrParameterInstance/ParameterSetup.h>

#include <QtCore/QJsonObject>
#include <QtTest/QTest>

class tst_LossReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingToLose();
    void namesEveryKindOfText();
    void overridesAndTheirTags();
    void overridesThatTheDefinitionLacks();
    void boundary();
};

void tst_LossReport::nothingToLose()
{
    const SmallDevice device;
    const LossReport report = LossReport::of(device.open()->container());
    QVERIFY(report.isEmpty());
    QCOMPARE(report.toText(), QString());
}

void tst_LossReport::namesEveryKindOfText()
{
    const SmallDevice device;
    const auto project = device.open();
    ParameterContainer &container = project->container();
    // Read once, so that the tag below marks nothing but what is written under it.
    QVERIFY(LossReport::of(container).isEmpty());
    container.setParameterChangeTag(QStringLiteral("→"));
    container.writeValueNative(eLivingSpace::Axis2, at("B01"), 0, QStringLiteral("Ω"));
    container.parameterSetup(at("B01"))->setDefaultNativeValueText(
        eLivingSpace::Axis2, 0, QStringLiteral("Ж"));
    const LossReport report = LossReport::of(container);
    QStringList found;
    for (const QJsonValue &loss : report.toJson()) {
        found.append(loss.toObject().value(QLatin1String("address")).toString() + u' '
            + loss.toObject().value(QLatin1String("kind")).toString() + u' '
            + loss.toObject().value(QLatin1String("text")).toString());
    }
    QCOMPARE(found,
        (QStringList {QStringLiteral("2.B01 value Ω"), QStringLiteral("2.B01 valueChangeTag →"),
            QStringLiteral("2.B01 defaultValue Ж"),
            QStringLiteral("2.B01 defaultValueChangeTag →")}));
}

void tst_LossReport::overridesAndTheirTags()
{
    const SmallDevice device;
    const auto project = device.open();
    ParameterContainer &container = project->container();
    QVERIFY(LossReport::of(container).isEmpty());
    container.setParameterChangeTag(QStringLiteral("→"));
    ParameterSetup *parameter = container.parameterSetup(at("E30"));
    parameter->setProperty(2, eParameterProperty::ReadLevel, ParameterProperty(quint32(1)));
    parameter->setProperty(2, eParameterProperty::WriteLevel, ParameterProperty(quint32(3)));
    QCOMPARE(LossReport::of(container).toText(),
        QStringLiteral(
            "Parameter E30[2]: Eigenschaft \"→\" enthält Zeichen, die Latin-1 nicht kennt\n")
            .repeated(2));
    container.setParameterChangeTag(QStringLiteral("a"));
    parameter->setProperty(2, eParameterProperty::ReadLevel, ParameterProperty(quint32(2)));
    parameter->setProperty(2, eParameterProperty::WriteLevel, ParameterProperty(quint32(4)));
    QVERIFY(LossReport::of(container).isEmpty());
    container.setParameterChangeTag(QStringLiteral("€"));
    parameter->setProperty(
        2, eParameterProperty::DecimalPlacesBehind, ParameterProperty(quint32(1)));
    QCOMPARE(LossReport::of(container).toText(),
        QStringLiteral(
            "Parameter E30[2]: Eigenschaft \"€\" enthält Zeichen, die Latin-1 nicht kennt\n"));
}

void tst_LossReport::overridesThatTheDefinitionLacks()
{
    const SmallDevice device;
    const auto project = device.open();
    QMap<QString, QByteArray> blocks {{QStringLiteral("Parameter.ini"),
        "\xEF\xBB\xBF[A020]\r\nV_0_0=abc\r\nDV_0_0=abc\r\nP_0_8=\xCE\xA9\r\n"}};
    project->container().loadFrom(blocks);
    QCOMPARE(LossReport::of(project->container()).toText(),
        QStringLiteral(
            "Parameter A20: Eigenschaft \"Ω\" enthält Zeichen, die Latin-1 nicht kennt\n"));
}

void tst_LossReport::boundary()
{
    const SmallDevice device;
    const auto project = device.open();
    project->container().writeValueNative(eLivingSpace::Global, at("A20"), 0, QString(QChar(0xFF)));
    QVERIFY(LossReport::of(project->container()).isEmpty());
    project->container().writeValueNative(
        eLivingSpace::Global, at("A20"), 0, QString(QChar(0x100)));
    QVERIFY(!LossReport::of(project->container()).isEmpty());
}

QTEST_GUILESS_MAIN(tst_LossReport)
#include "tst_LossReport.moc"
