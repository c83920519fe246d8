#include "tests/snapshot/SnapshotWidgetTest.h"
#include "tests/support/GoldenFile.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrSystem/System.h>
#include <LmUtilities/DefaultPathSetting.h>

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>
#include <QtWidgets/QBoxLayout>

/// What the comparison hands out: text files and reports, by real clicks.
class tst_SnapshotWidgetExport : public SnapshotWidgetTest {
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void buttonsInTheirOrder();
    void everyHeaderAddsAButton();
    void textExport_data();
    void textExport();
    void textExportCancelled();
    void textExportDisabled();
    void textExportOfDeletedSnapshot();
    void textExportIndex_data();
    void textExportIndex();
    void htmlExport();
    void htmlExportCancelled();
    void htmlExportCannotBeOpened();
    void widgetGoesWhileTheDialogIsOpen();
    void report();
    void reportFollowsTheShownRows();
    void reportFollowsTheTree();
};

namespace {

QByteArray content(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void tst_SnapshotWidgetExport::buttonsInTheirOrder()
{
    m_widget->appendSnapshot(nullptr, QStringLiteral("A&B %1"));
    m_widget->setHtmlHeader(QString());
    m_widget->appendSnapshot(nullptr, QStringLiteral("Zwei"));
    QCOMPARE(m_widget->layout()->count(), 2);
    QLayout *row = m_widget->layout()->itemAt(1)->layout();
    QVERIFY(qobject_cast<QHBoxLayout *>(row));
    QCOMPARE(row->count(), 4);
    QStringList texts;
    for (int i = 0; i < 3; ++i)
        texts.append(qobject_cast<QPushButton *>(row->itemAt(i)->widget())->text());
    QCOMPARE(texts,
        (QStringList {QStringLiteral("Spalte \"A&B %1\" exportieren"),
            QStringLiteral("HTML exportieren"), QStringLiteral("Spalte \"Zwei\" exportieren")}));
    QCOMPARE(row->itemAt(0)->widget()->property("index").toInt(), 0);
    QCOMPARE(row->itemAt(2)->widget()->property("index").toInt(), 1);
    const QSpacerItem *spacer = row->itemAt(3)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(10, 10));
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
}

void tst_SnapshotWidgetExport::everyHeaderAddsAButton()
{
    m_widget->setHtmlHeader(QStringLiteral("first"));
    m_widget->setHtmlHeader(QStringLiteral("second"));
    QCOMPARE(buttons().size(), 2);
    QCOMPARE(buttons().at(0)->text(), QStringLiteral("HTML exportieren"));
    QCOMPARE(buttons().at(1)->text(), QStringLiteral("HTML exportieren"));
    QVERIFY(m_widget->report().contains(QStringLiteral("\nsecond<br><br>\n")));
}

void tst_SnapshotWidgetExport::textExport_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QByteArray>("lines");
    // Only the parameter that is shown, with its hidden rows.
    QTest::newRow("first column") << 0
                                  << QByteArrayLiteral("\"1.A00\";\"Speed\";\"11 rpm\"\n"
                                                       "\"2.A00\";\"Speed\";\"12 rpm\"\n");
    QTest::newRow("second column") << 1
                                   << QByteArrayLiteral("\"1.A00\";\"Speed\";\"11 rpm\"\n"
                                                        "\"2.A00\";\"Speed\";\"13 rpm\"\n");
}

void tst_SnapshotWidgetExport::textExport()
{
    QFETCH(int, button);
    QFETCH(QByteArray, lines);
    QWidget mainWindow;
    System::instance()->setMainWindow(&mainWindow);
    DefaultPathSetting(DefaultPathSetting::ParameterValueExport)
        .setPath(m_directory.path() + QStringLiteral("/start"));
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_fixture->write(2, "A00", 0, QStringLiteral("13"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->update();
    const QString fileName = m_directory.filePath(QStringLiteral("text.txt"));
    answerDialog(fileName);
    click(button);
    QCOMPARE(m_dialogs,
        (QStringList {QStringLiteral("Parameterwerte exportieren"),
            m_directory.path() + QStringLiteral("/start"), QStringLiteral("Textdateien (*.txt)")}));
    QVERIFY(m_dialogParent == &mainWindow);
    QCOMPARE(content(fileName), QByteArrayLiteral("\xEF\xBB\xBF\r\n") + lines);
    // Only the report's folder is remembered.
    QCOMPARE(DefaultPathSetting(DefaultPathSetting::ParameterValueExport).path(),
        m_directory.path() + QStringLiteral("/start"));
}

void tst_SnapshotWidgetExport::textExportCancelled()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    answerDialog(QString());
    click(0);
    QCOMPARE(m_dialogs.value(0), QStringLiteral("Parameterwerte exportieren"));
}

void tst_SnapshotWidgetExport::textExportDisabled()
{
    ParameterValueSnapshot *snapshot = take();
    snapshot->setSaveToTextFileEnabled(false);
    m_widget->appendSnapshot(snapshot, QStringLiteral("Jetzt"));
    m_widget->update();
    const QString fileName = m_directory.filePath(QStringLiteral("disabled.txt"));
    answerDialog(fileName);
    click(0);
    QVERIFY(!QFile::exists(fileName));
}

void tst_SnapshotWidgetExport::textExportOfDeletedSnapshot()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    m_snapshots.clear();
    const QString fileName = m_directory.filePath(QStringLiteral("deleted.txt"));
    answerDialog(fileName);
    click(0);
    QVERIFY(!QFile::exists(fileName));
}

void tst_SnapshotWidgetExport::textExportIndex_data()
{
    QTest::addColumn<QVariant>("index");
    QTest::newRow("none") << QVariant();
    QTest::newRow("behind the last") << QVariant(1);
    QTest::newRow("negative") << QVariant(-1);
    QTest::newRow("no number") << QVariant(QStringLiteral("x"));
}

void tst_SnapshotWidgetExport::textExportIndex()
{
    QFETCH(QVariant, index);
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    buttons().first()->setProperty("index", index);
    const QString fileName = m_directory.filePath(QStringLiteral("index.txt"));
    answerDialog(fileName);
    click(0);
    QVERIFY(!QFile::exists(fileName));
}

void tst_SnapshotWidgetExport::htmlExport()
{
    QWidget mainWindow;
    System::instance()->setMainWindow(&mainWindow);
    DefaultPathSetting(DefaultPathSetting::HtmlReport)
        .setPath(m_directory.path() + QStringLiteral("/start"));
    QVERIFY(QDir(m_directory.path()).mkpath(QStringLiteral("html")));
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->setHtmlHeader(QStringLiteral("<h1>Prüfstand</h1>"));
    m_widget->update();
    const QString fileName = m_directory.filePath(QStringLiteral("html/report.html"));
    answerDialog(fileName);
    click(1);
    QCOMPARE(m_dialogs,
        (QStringList {QStringLiteral("Änderungen als HTML exportieren"),
            m_directory.path() + QStringLiteral("/start"),
            QStringLiteral("HTML-dateien (*.html)")}));
    QVERIFY(m_dialogParent == &mainWindow);
    const QByteArray report = content(fileName);
    QCOMPARE(report, GoldenFile::expected(QStringLiteral("snapshot/widget-1.html"), report));
    QCOMPARE(DefaultPathSetting(DefaultPathSetting::HtmlReport).path(),
        m_directory.path() + QStringLiteral("/html"));
}

void tst_SnapshotWidgetExport::htmlExportCancelled()
{
    DefaultPathSetting(DefaultPathSetting::HtmlReport).setPath(m_directory.path());
    m_widget->setHtmlHeader(QString());
    answerDialog(QString());
    click(0);
    QCOMPARE(m_dialogs.value(0), QStringLiteral("Änderungen als HTML exportieren"));
    QCOMPARE(DefaultPathSetting(DefaultPathSetting::HtmlReport).path(), m_directory.path());
}

void tst_SnapshotWidgetExport::htmlExportCannotBeOpened()
{
    DefaultPathSetting(DefaultPathSetting::HtmlReport).setPath(m_directory.path());
    m_widget->setHtmlHeader(QString());
    answerDialog(m_directory.filePath(QStringLiteral("none/report.html")));
    click(0);
    QCOMPARE(DefaultPathSetting(DefaultPathSetting::HtmlReport).path(), m_directory.path());
}

void tst_SnapshotWidgetExport::widgetGoesWhileTheDialogIsOpen()
{
    const QString fileName = m_directory.filePath(QStringLiteral("gone"));
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->setHtmlHeader(QString());
    for (const char *slot : {"onExportButtonClicked", "onHtmlExportButtonClicked"}) {
        ParameterValueSnapshotWidget *widget = m_widget.release();
        m_widget = std::make_unique<ParameterValueSnapshotWidget>(nullptr);
        auto *tree = widget->findChild<QTreeWidget *>();
        static_cast<ParameterValueSnapshotWidgetPrivate *>(tree)->chooseSaveFile =
            [widget, fileName](QWidget *, const QString &, const QString &, const QString &) {
                delete widget;
                return fileName;
            };
        QVERIFY(QMetaObject::invokeMethod(tree, slot));
        QVERIFY(!QFile::exists(fileName));
    }
}

void tst_SnapshotWidgetExport::report()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Vor<her>"));
    m_fixture->write(2, "A00", 0, QStringLiteral("13"));
    m_fixture->container->deleteParameter(QStringLiteral("S;{B01}"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->setHtmlHeader(QStringLiteral("<h1>Prüfstand</h1>"));
    m_widget->update();
    const QByteArray report = m_widget->report().toUtf8();
    QCOMPARE(report, GoldenFile::expected(QStringLiteral("snapshot/widget-2.html"), report));
}

void tst_SnapshotWidgetExport::reportFollowsTheShownRows()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    const QString before = m_widget->report();
    m_widget->appendSnapshot(take(), QStringLiteral("Danach"));
    QCOMPARE(m_widget->report(), before);
}

/// What a host did to the tree counts.
void tst_SnapshotWidgetExport::reportFollowsTheTree()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    const auto titles = [this] {
        static const QRegularExpression title(QStringLiteral("<tr><td>(?:&nbsp;)*([^<]*)</td>"));
        QStringList result;
        for (const QRegularExpressionMatch &match : title.globalMatch(m_widget->report()))
            result.append(match.captured(1));
        return result;
    };
    const QString axis1 = QStringLiteral("1.A00 Speed");
    const QString axis2 = QStringLiteral("2.A00 Speed");
    const QString table = QStringLiteral("B01 Table");
    const QString first = QStringLiteral("B01[0] First");
    const QString second = QStringLiteral("B01[2] Second");
    QCOMPARE(titles(), (QStringList {axis1, axis2, table, first, second}));
    tree()->topLevelItem(2)->child(0)->setHidden(true);
    QCOMPARE(titles(), (QStringList {axis1, axis2, table, second}));
    tree()->sortItems(0, Qt::DescendingOrder);
    QCOMPARE(titles(), (QStringList {table, second, axis2, axis1}));
    tree()->topLevelItem(0)->setHidden(true);
    QCOMPARE(titles(), (QStringList {axis2, axis1}));
    delete tree()->takeTopLevelItem(1);
    QCOMPARE(titles(), QStringList {axis1});
}

QTEST_MAIN(tst_SnapshotWidgetExport)
#include "tst_SnapshotWidgetExport.moc"
