#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskWindow.h"
#include "tests/apps/desk/AnsweringDialogs.h"
#include "tests/apps/desk/DeskDevice.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestSettings.h"

#include <KrSystem/System.h>

#include <QtTest/QTest>
#include <QtWidgets/QListView>

/// No snapshot is lost unasked: none can be taken once more.
class tst_DeskSnapshots : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void removesIfAgreed_data();
    void removesIfAgreed();
    void removesNothingOfNone();
    void closesIfAgreed_data();
    void closesIfAgreed();
    void closesUnaskedWithoutSnapshots();
    void asksForUnsavedChangesFirst();

private:
    void take() { m_window->actions()[DeskActions::TakeSnapshot]->trigger(); }

    const TestSettings m_settings;
    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<DeskDevice> m_device;
    std::unique_ptr<AnsweringDialogs> m_dialogs;
    std::unique_ptr<DeskWindow> m_window;
};

void tst_DeskSnapshots::init()
{
    System::information()->setUserAccessLevel(4);
    m_messages = std::make_unique<MessageRecorder>();
    m_device = std::make_unique<DeskDevice>();
    m_dialogs = std::make_unique<AnsweringDialogs>();
    m_window = std::make_unique<DeskWindow>(*m_dialogs);
    QVERIFY(m_window->session().open(m_device->fileName()));
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_DeskSnapshots::cleanup()
{
    m_window.reset();
    m_messages.reset();
}

void tst_DeskSnapshots::removesIfAgreed_data()
{
    QTest::addColumn<bool>("agrees");
    QTest::newRow("the user agrees") << true;
    QTest::newRow("the user does not agree") << false;
}

void tst_DeskSnapshots::removesIfAgreed()
{
    QFETCH(bool, agrees);
    take();
    take();
    m_dialogs->asked.clear();
    m_dialogs->losesSnapshots = agrees;
    auto *list = m_window->findChild<QListView *>(QStringLiteral("snapshots"));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(m_dialogs->asked, QStringList(QStringLiteral("remove: Snapshot 1")));
    QCOMPARE(m_window->snapshots().names(),
        agrees ? QStringList(QStringLiteral("Snapshot 2"))
               : (QStringList {QStringLiteral("Snapshot 1"), QStringLiteral("Snapshot 2")}));
}

void tst_DeskSnapshots::removesNothingOfNone()
{
    m_window->actions()[DeskActions::RemoveSnapshot]->trigger();
    QCOMPARE(m_dialogs->asked, QStringList());
}

void tst_DeskSnapshots::closesIfAgreed_data()
{
    removesIfAgreed_data();
}

void tst_DeskSnapshots::closesIfAgreed()
{
    QFETCH(bool, agrees);
    take();
    take();
    // Also those that are not compared.
    m_window->snapshots().setData(
        m_window->snapshots().index(0), Qt::Unchecked, Qt::CheckStateRole);
    m_dialogs->asked.clear();
    m_dialogs->losesSnapshots = agrees;
    QTest::keyClick(m_window.get(), Qt::Key_Q, Qt::ControlModifier);
    QCOMPARE(m_dialogs->asked, QStringList(QStringLiteral("snapshots: Snapshot 1, Snapshot 2")));
    QCOMPARE(m_window->isVisible(), !agrees);
}

void tst_DeskSnapshots::closesUnaskedWithoutSnapshots()
{
    QVERIFY(m_window->close());
    QCOMPARE(m_dialogs->asked, QStringList());
}

void tst_DeskSnapshots::asksForUnsavedChangesFirst()
{
    take();
    m_dialogs->asked.clear();
    m_window->session().project()->container().writeValueNative(
        eLivingSpace::Global, place("B10").coordinate, 0, QStringLiteral("11"));
    m_dialogs->unsavedAnswer = DeskDialogs::eUnsaved::Cancel;
    QVERIFY(!m_window->close());
    QCOMPARE(m_dialogs->asked, QStringList(QStringLiteral("unsaved")));
    m_dialogs->unsavedAnswer = DeskDialogs::eUnsaved::Discard;
    QVERIFY(m_window->close());
    QCOMPARE(m_dialogs->asked.constLast(), QStringLiteral("snapshots: Snapshot 1"));
}

QTEST_MAIN(tst_DeskSnapshots)
#include "tst_DeskSnapshots.moc"
