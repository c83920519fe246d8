#include "apps/krparameter-desk/ValueWriter.h"
#include "tests/apps/desk/FollowingDevice.h"
#include "tests/support/MessageRecorder.h"

#include <KrParameterInstance/ParameterSetup.h>
#include <KrSystem/System.h>

#include <QtGui/QUndoStack>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

class tst_ValueWriter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void acceptedWrite();
    void refusedWrite();
    void notWritable();
    void refusedWhileItConnects();
    void unknownPlace();
    void undoAndRedo();
    void undoRestoresTheChangeTag();
    void sameValueIsNoChange();
    void undoTakesBackWhatChangedAlong();
    void changesFromElsewhereStay();
    void commandIsNotUndone();
    void commandStaysWhereAWriteGaveIt();
    void restoreIsRefusedWhileReadOnly();
    void afterTheContainer();

private:
    void open(std::unique_ptr<DeskDevice> device);
    QString native(const ValuePlace &at) const
    {
        return m_project->container().readValueNative(
            at.livingSpace, at.coordinate, at.element, false);
    }

    std::unique_ptr<DeskDevice> m_device;
    std::unique_ptr<DriveProject> m_project;
    std::unique_ptr<QUndoStack> m_stack;
    std::unique_ptr<ValueWriter> m_writer;
};

void tst_ValueWriter::init()
{
    System::information()->setUserAccessLevel(4);
    open(std::make_unique<DeskDevice>());
}

void tst_ValueWriter::open(std::unique_ptr<DeskDevice> device)
{
    m_writer.reset();
    m_device = std::move(device);
    m_project = m_device->open();
    m_stack = std::make_unique<QUndoStack>();
    m_writer = std::make_unique<ValueWriter>(m_project->container(), *m_stack);
}

void tst_ValueWriter::cleanup()
{
    m_writer.reset();
    m_stack.reset();
    m_project.reset();
}

void tst_ValueWriter::acceptedWrite()
{
    MessageRecorder messages;
    const QSignalSpy written(m_writer.get(), &ValueWriter::written);
    const auto outcome = m_writer->write(place("B01", 2), QStringLiteral("5 A"));
    QVERIFY(outcome.isAccepted);
    QCOMPARE(outcome.message, QString());
    QCOMPARE(native(place("B01", 2)), QStringLiteral("5000"));
    QCOMPARE(native(place("B01", 1)), QStringLiteral("4200"));
    QCOMPARE(written.count(), 1);
    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(m_stack->undoText(), QStringLiteral("2.B01"));
    QVERIFY(!m_writer->isWriting());
}

void tst_ValueWriter::refusedWrite()
{
    MessageRecorder messages;
    const QString text = QStringLiteral(
        "Parameter 1.B01: Fehler beim Übernehmen des Werts - Wert \"40.000 A\" ist zu groß");
    messages.expect(MessageRecorder::eSeverity::Critical, QStringLiteral("Desk drive"), text);
    const QSignalSpy written(m_writer.get(), &ValueWriter::written);
    const auto outcome = m_writer->write(place("B01", 1), QStringLiteral("41"));
    QVERIFY(!outcome.isAccepted);
    QCOMPARE(outcome.message, text);
    QCOMPARE(native(place("B01", 1)), QStringLiteral("4200"));
    QCOMPARE(written.count(), 0);
    QCOMPARE(m_stack->count(), 0);
}

void tst_ValueWriter::notWritable()
{
    MessageRecorder messages;
    System::information()->setUserAccessLevel(2);
    const auto outcome = m_writer->write(place("B100"), QStringLiteral("5"));
    QVERIFY(!outcome.isAccepted);
    QCOMPARE(outcome.message, QStringLiteral("B100 ist erst ab Zugriffsstufe 4 schreibbar."));
    QCOMPARE(native(place("B100")), QStringLiteral("100"));
}

void tst_ValueWriter::refusedWhileItConnects()
{
    MessageRecorder messages;
    const QSignalSpy changes(m_writer.get(), &ValueWriter::connectingChanged);
    QVERIFY(m_writer->isWritable(place("B10")));
    m_writer->setConnecting(true);
    m_writer->setConnecting(true);
    QCOMPARE(changes.count(), 1);
    QVERIFY(!m_writer->isWritable(place("B10")));
    const auto outcome = m_writer->write(place("B10"), QStringLiteral("11"));
    QVERIFY(!outcome.isAccepted);
    QCOMPARE(outcome.message,
        QStringLiteral("B10 ist noch nicht schreibbar: Der Antrieb wird verbunden, und seine Werte "
                       "ersetzen gleich alle. F9 bricht das ab."));
    QCOMPARE(native(place("B10")), QStringLiteral("10"));
    m_writer->setConnecting(false);
    QCOMPARE(changes.count(), 2);
    QCOMPARE(m_writer->obstacle(place("B10")), QString());
    QVERIFY(m_writer->write(place("B10"), QStringLiteral("11")).isAccepted);
    QCOMPARE(native(place("B10")), QStringLiteral("11"));
}

void tst_ValueWriter::unknownPlace()
{
    MessageRecorder messages;
    const auto outcome = m_writer->write(place("X99"), QStringLiteral("5"));
    QVERIFY(!outcome.isAccepted);
    QCOMPARE(outcome.message, QStringLiteral("Das Gerät hat den Parameter nicht mehr."));
}

void tst_ValueWriter::undoAndRedo()
{
    MessageRecorder messages;
    QVERIFY(m_writer->write(place("B01", 1), QStringLiteral("5")).isAccepted);
    QVERIFY(m_writer->write(place("E30", 0, 2), QStringLiteral("3")).isAccepted);
    const QSignalSpy written(m_writer.get(), &ValueWriter::written);
    m_stack->undo();
    QCOMPARE(native(place("E30", 0, 2)), QStringLiteral("1"));
    QCOMPARE(native(place("B01", 1)), QStringLiteral("5000"));
    m_stack->undo();
    QCOMPARE(native(place("B01", 1)), QStringLiteral("4200"));
    QCOMPARE(written.count(), 2);
    m_stack->redo();
    m_stack->redo();
    QCOMPARE(native(place("B01", 1)), QStringLiteral("5000"));
    QCOMPARE(native(place("E30", 0, 2)), QStringLiteral("3"));
    QCOMPARE(m_stack->count(), 2);
}

void tst_ValueWriter::undoRestoresTheChangeTag()
{
    MessageRecorder messages;
    const auto tag = [this] {
        return m_project->container()
            .parameterInformation(place("B10").coordinate)
            ->attribute(eLivingSpace::Global, 0, QStringLiteral("ValueChangeTag"));
    };
    m_project->container()
        .parameterSetup(place("B10").coordinate)
        ->setValueChangeTag(eLivingSpace::Global, 0, QStringLiteral("before"));
    m_project->container().setParameterChangeTag(QStringLiteral("after"));
    QVERIFY(m_writer->write(place("B10"), QStringLiteral("11")).isAccepted);
    QCOMPARE(tag(), QStringLiteral("after"));
    m_stack->undo();
    QCOMPARE(tag(), QStringLiteral("before"));
    m_stack->redo();
    QCOMPARE(tag(), QStringLiteral("after"));
}

void tst_ValueWriter::sameValueIsNoChange()
{
    MessageRecorder messages;
    QVERIFY(m_writer->write(place("B01", 1), QStringLiteral("4.2")).isAccepted);
    QCOMPARE(m_stack->count(), 0);
    QVERIFY(m_stack->isClean());
}

/// The device's function sets K02 to the double of K01, on an undo too; 7 is no double of 10.
void tst_ValueWriter::undoTakesBackWhatChangedAlong()
{
    MessageRecorder messages;
    open(std::make_unique<FollowingDevice>());
    QVERIFY(m_writer->write(place("K01"), QStringLiteral("30")).isAccepted);
    QCOMPARE(native(place("K02")), QStringLiteral("60"));
    QVERIFY(m_writer->write(place("K01"), QStringLiteral("40")).isAccepted);
    QCOMPARE(native(place("K02")), QStringLiteral("80"));
    m_stack->undo();
    QCOMPARE(native(place("K01")), QStringLiteral("30"));
    QCOMPARE(native(place("K02")), QStringLiteral("60"));
    const QSignalSpy written(m_writer.get(), &ValueWriter::written);
    m_stack->undo();
    QCOMPARE(native(place("K01")), QStringLiteral("10"));
    QCOMPARE(native(place("K02")), QStringLiteral("7"));
    QCOMPARE(written.count(), 2);
    m_stack->redo();
    QCOMPARE(native(place("K01")), QStringLiteral("30"));
    QCOMPARE(native(place("K02")), QStringLiteral("60"));
}

/// Also where the undo itself makes a function answer: it changed nothing then, and changes nothing
/// now.
void tst_ValueWriter::changesFromElsewhereStay()
{
    MessageRecorder messages;
    open(std::make_unique<FollowingDevice>());
    const auto store = [this](const char *coordinate, const QString &text) {
        m_project->container().writeValueNative(
            eLivingSpace::Global, place(coordinate).coordinate, 0, text);
    };
    store("K02", QStringLiteral("60"));
    QVERIFY(m_writer->write(place("K01"), QStringLiteral("30")).isAccepted);
    QCOMPARE(native(place("K02")), QStringLiteral("60"));
    store("K02", QStringLiteral("99"));
    store("K08", QStringLiteral("1"));
    m_stack->undo();
    QCOMPARE(native(place("K01")), QStringLiteral("10"));
    QCOMPARE(native(place("K02")), QStringLiteral("99"));
    QCOMPARE(native(place("K08")), QStringLiteral("1"));
}

/// Nothing is stored; what was not undone can be undone later.
/// What nobody stores: a value that starts something, and what it changed along.
void tst_ValueWriter::commandIsNotUndone()
{
    QByteArray text = FollowingDevice::description();
    QCOMPARE(text.count(R"("default": 10,)"), 1);
    open(std::make_unique<DeskDevice>(
        text.replace(R"("default": 10,)", R"("default": 10, "memoryAllocation": 1,)")));
    const ValuePlace source = place("K01", 0);
    QVERIFY(m_writer->write(source, QStringLiteral("20")).isAccepted);
    QCOMPARE(native(source), QStringLiteral("20"));
    QCOMPARE(native(place("K02", 0)), QStringLiteral("40"));
    QCOMPARE(m_stack->count(), 0);
    QVERIFY(m_stack->isClean());
}

/// Undoing the write gives no command, neither the one before nor the same once more.
void tst_ValueWriter::commandStaysWhereAWriteGaveIt()
{
    QByteArray text = FollowingDevice::description();
    QCOMPARE(text.count(R"("default": 7,)"), 1);
    open(std::make_unique<DeskDevice>(
        text.replace(R"("default": 7,)", R"("default": 7, "memoryAllocation": 1,)")));
    QVERIFY(m_writer->write(place("K01", 0), QStringLiteral("20")).isAccepted);
    QCOMPARE(native(place("K02", 0)), QStringLiteral("40"));
    QList<ValuePlace> written;
    connect(m_writer.get(), &ValueWriter::written, this,
        [&written](const ValuePlace &at) { written.append(at); });
    m_stack->undo();
    QCOMPARE(native(place("K01", 0)), QStringLiteral("10"));
    QCOMPARE(written, QList<ValuePlace> {place("K01", 0)});
}

void tst_ValueWriter::restoreIsRefusedWhileReadOnly()
{
    MessageRecorder messages;
    QVERIFY(m_writer->write(place("B10"), QStringLiteral("11")).isAccepted);
    const QSignalSpy written(m_writer.get(), &ValueWriter::written);
    m_project->container().setReadOnly(true);
    m_stack->undo();
    QCOMPARE(native(place("B10")), QStringLiteral("11"));
    m_project->container().setReadOnly(false);
    m_stack->redo();
    QCOMPARE(native(place("B10")), QStringLiteral("11"));
    QCOMPARE(written.count(), 0);
    m_stack->undo();
    QCOMPARE(native(place("B10")), QStringLiteral("10"));
}

void tst_ValueWriter::afterTheContainer()
{
    MessageRecorder messages;
    QVERIFY(m_writer->write(place("B01", 1), QStringLiteral("5")).isAccepted);
    m_project.reset();
    QVERIFY(!m_writer->write(place("B01", 1), QStringLiteral("6")).isAccepted);
    m_stack->undo();
    m_writer.reset();
    m_stack->redo();
}

QTEST_GUILESS_MAIN(tst_ValueWriter)
#include "tst_ValueWriter.moc"
