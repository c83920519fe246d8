#include "FrozenDevice.h"
#include "apps/host/SnapshotDifference.h"

#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QtTest>

class tst_SnapshotDifference : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void none();
    void valuesInOrder();
    void onOneSide();
    void livingSpaceOnOneSide();
    void notReadable();
    void listsWithoutValues();

private:
    SmallDevice m_device;
    std::unique_ptr<DriveProject> m_project;
};

namespace {

constexpr quint32 Everything = 6;

/// "address name: left -> right", "-" for a missing side, "?" for an unreadable one.
QStringList texts(const QList<SnapshotDifference> &differences)
{
    const auto side = [](const SnapshotDifference::Side &side) {
        if (!side.isHeld)
            return QStringLiteral("-");
        return side.isReadable
            ? side.display + QLatin1Char('|') + side.value + QLatin1Char('|') + side.native
            : QStringLiteral("?") + side.display + side.value + side.native;
    };
    QStringList result;
    for (const SnapshotDifference &difference : differences) {
        result.append(difference.address + QLatin1Char(' ') + difference.name + QLatin1String(": ")
            + side(difference.left) + QLatin1String(" -> ") + side(difference.right));
    }
    return result;
}

/// Of one parameter.
std::unique_ptr<ParameterValueSnapshot> read(const char *parameter)
{
    auto snapshot = std::make_unique<ParameterValueSnapshot>(nullptr);
    const QByteArray begin = R"({"format":"kr-parameter-snapshot","version":1,"livingSpaces":[],)";
    return snapshot->fromJson(begin + R"("parameters":[)" + parameter + "]}") ? std::move(snapshot)
                                                                              : nullptr;
}

} // namespace

void tst_SnapshotDifference::init()
{
    m_project = m_device.open();
    QVERIFY(m_project);
}

void tst_SnapshotDifference::none()
{
    const auto left = frozen(*m_project);
    const auto right = frozen(*m_project);
    QCOMPARE(texts(SnapshotDifference::between(*left, *right, Everything)), QStringList());
}

void tst_SnapshotDifference::valuesInOrder()
{
    const auto left = frozen(*m_project);
    write(*m_project, 0, "E30", 2, "7");
    write(*m_project, 2, "B01", 0, "5000");
    write(*m_project, 1, "B01", 0, "4500");
    write(*m_project, 0, "A20", 0, "new");
    const auto right = frozen(*m_project);
    QCOMPARE(texts(SnapshotDifference::between(*left, *right, Everything)),
        (QStringList {QStringLiteral("A20 Text: abc|abc|abc -> new|new|new"),
            QStringLiteral("1.B01 Strom: 4.200 A|4.2 A|4200 mA -> 4.500 A|4.5 A|4500 mA"),
            QStringLiteral("2.B01 Strom: 4.200 A|4.2 A|4200 mA -> 5.000 A|5 A|5000 mA"),
            QStringLiteral("E30[2] Faktor · Nenner: 1|1|1 -> 7|7|7")}));
}

void tst_SnapshotDifference::onOneSide()
{
    const auto left = frozen(*m_project);
    m_project->container().deleteParameter(QStringLiteral("Drive.1;{P1}"));
    const auto right = frozen(*m_project);
    QCOMPARE(texts(SnapshotDifference::between(*left, *right, Everything)),
        QStringList {QStringLiteral("A20 Text: abc|abc|abc -> -")});
    QCOMPARE(texts(SnapshotDifference::between(*right, *left, Everything)),
        QStringList {QStringLiteral("A20 Text: - -> abc|abc|abc")});
}

void tst_SnapshotDifference::livingSpaceOnOneSide()
{
    const auto left = read(R"({"coordinate":"B01","livingSpaces":[1,2],
        "elements":[{"number":0,"readLevel":0}],
        "values":[{"livingSpace":1,"element":0,"display":"1"},
                  {"livingSpace":2,"element":0,"display":"2"}]})");
    const auto right = read(R"({"coordinate":"B01","livingSpaces":[1],
        "elements":[{"number":0,"readLevel":0}],
        "values":[{"livingSpace":1,"element":0,"display":"1"}]})");
    QCOMPARE(texts(SnapshotDifference::between(*left, *right, Everything)),
        QStringList {QStringLiteral("2.B01 : 2|| -> -")});
}

void tst_SnapshotDifference::notReadable()
{
    m_project->container().parameterSetup(at("B01"))->setProperty(
        0, eParameterProperty::ReadLevel, ParameterProperty(3));
    const auto left = frozen(*m_project);
    write(*m_project, 1, "B01", 0, "4500");
    const auto right = frozen(*m_project);
    QCOMPARE(texts(SnapshotDifference::between(*left, *right, 3)),
        QStringList {
            QStringLiteral("1.B01 Strom: 4.200 A|4.2 A|4200 mA -> 4.500 A|4.5 A|4500 mA")});
    // That it differs is told, what it is is not.
    QCOMPARE(texts(SnapshotDifference::between(*left, *right, 2)),
        QStringList {QStringLiteral("1.B01 Strom: ? -> ?")});
}

/// A filter may leave a parameter without elements, and then nothing but its living spaces.
void tst_SnapshotDifference::listsWithoutValues()
{
    const auto left = read(R"({"coordinate":"B01","name":"Strom","livingSpaces":[1,2]})");
    const auto right = read(R"({"coordinate":"B01","name":"Strom","livingSpaces":[1]})");
    QCOMPARE(texts(SnapshotDifference::between(*left, *right, Everything)),
        QStringList {QStringLiteral("B01 Strom: - -> -")});
    QCOMPARE(texts(SnapshotDifference::between(*left, *left, Everything)), QStringList());
}

QTEST_GUILESS_MAIN(tst_SnapshotDifference)
#include "tst_SnapshotDifference.moc"
