#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include "tests/snapshot/SnapshotFixture.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrSystem/System.h>

#include <QtCore/QTranslator>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>

/// The comparison with three columns, with real keys, and in English.
class tst_SnapshotWidgetInUse : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void threeSnapshots();
    void changedAndBack();
    void missingInTheMiddle();
    void rowsStayWithoutTheirSnapshots();
    void rowsStayWhenASnapshotTakesMore();
    void stepwise();
    void stepwiseUntilEnded_data();
    void stepwiseUntilEnded();
    void wholeRowsAreSelected();
    void english();
    void changesTheLanguage();

private:
    void append(const char *title);
    QTreeWidget *tree() const { return m_widget->findChild<QTreeWidget *>(); }
    QStringList visibleRows() const;
    QStringList selectedRows() const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(tree(), key, modifiers);
    }

    std::unique_ptr<SnapshotFixture> m_fixture;
    std::vector<std::unique_ptr<ParameterValueSnapshot>> m_snapshots;
    std::unique_ptr<ParameterValueSnapshotWidget> m_widget;
};

/// A00 to A03, global, with the values 10 to 13.
void tst_SnapshotWidgetInUse::init()
{
    System::information()->setUserAccessLevel(3);
    m_fixture = std::make_unique<SnapshotFixture>();
    for (const char *coordinate : {"A00", "A01", "A02", "A03"}) {
        m_fixture->add(SnapshotFixture::parameter(coordinate, "Speed").global());
        m_fixture->write(0, coordinate, 0, QStringLiteral("1") + QLatin1Char(coordinate[2]));
    }
    m_widget = std::make_unique<ParameterValueSnapshotWidget>(nullptr);
}

void tst_SnapshotWidgetInUse::cleanup()
{
    m_widget.reset();
    m_snapshots.clear();
    m_fixture.reset();
}

void tst_SnapshotWidgetInUse::append(const char *title)
{
    m_snapshots.push_back(std::make_unique<ParameterValueSnapshot>(m_fixture->container.get()));
    m_snapshots.back()->applyNoFilter();
    m_widget->appendSnapshot(m_snapshots.back().get(), QString::fromLatin1(title));
}

QStringList tst_SnapshotWidgetInUse::visibleRows() const
{
    QStringList rows;
    for (int row = 0; row < tree()->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *item = tree()->topLevelItem(row);
        QStringList texts;
        for (int column = 0; column < tree()->columnCount(); ++column)
            texts.append(item->text(column));
        if (!item->isHidden())
            rows.append(texts.join(QLatin1Char('|')));
    }
    return rows;
}

QStringList tst_SnapshotWidgetInUse::selectedRows() const
{
    QStringList rows;
    for (const QTreeWidgetItem *item : tree()->selectedItems())
        rows.append(item->text(0).left(3));
    return rows;
}

/// Every pair of neighbours counts, the first one and the last.
void tst_SnapshotWidgetInUse::threeSnapshots()
{
    append("eins");
    m_fixture->write(0, "A00", 0, QStringLiteral("20"));
    append("zwei");
    m_fixture->write(0, "A02", 0, QStringLiteral("22"));
    append("drei");
    m_widget->update();
    QCOMPARE(tree()->columnCount(), 4);
    QCOMPARE(tree()->headerItem()->text(3), QStringLiteral("drei"));
    QCOMPARE(visibleRows(),
        (QStringList {QStringLiteral("A00 Speed|10|20|20"), QStringLiteral("A02 Speed|12|12|22")}));
    const QList<QPushButton *> buttons = m_widget->findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), 3);
    QCOMPARE(buttons.at(2)->text(), QStringLiteral("Spalte \"drei\" exportieren"));
    QCOMPARE(buttons.at(2)->property("index").toInt(), 2);
}

/// The first column is like the last one; the one between is not.
void tst_SnapshotWidgetInUse::changedAndBack()
{
    append("eins");
    m_fixture->write(0, "A01", 0, QStringLiteral("21"));
    append("zwei");
    m_fixture->write(0, "A01", 0, QStringLiteral("11"));
    append("drei");
    m_widget->update();
    QCOMPARE(visibleRows(), QStringList {QStringLiteral("A01 Speed|11|21|11")});
}

void tst_SnapshotWidgetInUse::missingInTheMiddle()
{
    append("eins");
    const auto whole = m_snapshots.back().get();
    m_fixture->container->deleteParameter(QStringLiteral("S;{A03}"));
    append("zwei");
    m_widget->appendSnapshot(whole, QStringLiteral("drei"));
    m_widget->update();
    QCOMPARE(visibleRows(), QStringList {QStringLiteral("A03 Speed|13|<nicht vorhanden>|13")});
    const QTreeWidgetItem *item = tree()->topLevelItem(0);
    QVERIFY(item->foreground(2) != QBrush());
    QCOMPARE(item->foreground(3), QBrush());
}

/// What is shown stays until the next filling, whatever becomes of the snapshots; a row that somebody
/// took out of the tree stays even longer.
void tst_SnapshotWidgetInUse::rowsStayWithoutTheirSnapshots()
{
    append("eins");
    m_fixture->write(0, "A01", 0, QStringLiteral("21"));
    m_fixture->container->deleteParameter(QStringLiteral("S;{A03}"));
    append("zwei");
    m_widget->update();
    const QString report = m_widget->report();
    m_fixture->container->clear();
    m_snapshots.front()->applyNoFilter();
    m_snapshots.pop_back();
    QCOMPARE(visibleRows(),
        (QStringList {
            QStringLiteral("A01 Speed|11|21"), QStringLiteral("A03 Speed|13|<nicht vorhanden>")}));
    QCOMPARE(m_widget->report(), report);

    const std::unique_ptr<QTreeWidgetItem> item(tree()->takeTopLevelItem(1));
    m_widget.reset();
    m_snapshots.clear();
    QCOMPARE(item->text(0), QStringLiteral("A03 Speed"));
    QCOMPARE(item->text(1), QStringLiteral("13"));
    QCOMPARE(item->text(2), QStringLiteral("<nicht vorhanden>"));
}

/// Until the next filling, whatever becomes of the values that they show.
void tst_SnapshotWidgetInUse::rowsStayWhenASnapshotTakesMore()
{
    append("eins");
    m_fixture->write(0, "A01", 0, QStringLiteral("21"));
    append("zwei");
    m_fixture->write(0, "A01", 0, QStringLiteral("31"));
    ParameterValueSnapshot third(m_fixture->container.get());
    third.applyNoFilter();
    third.disconnectFromSourceContainer();
    m_widget->update();
    const QStringList rows {QStringLiteral("A01 Speed|11|21")};
    QCOMPARE(visibleRows(), rows);

    ParameterValueSnapshot &first = *m_snapshots.front();
    ParameterValueSnapshot &second = *m_snapshots.back();
    first.disconnectFromSourceContainer();
    second.disconnectFromSourceContainer();
    QVERIFY(first.unite(&third));
    QVERIFY(second.fromJson(third.toJson()));
    QCOMPARE(visibleRows(), rows);
    m_widget->update();
    QCOMPARE(visibleRows(), QStringList());
    QVERIFY(second.fromJson(R"({"format": "kr-parameter-snapshot", "version": 1,
        "livingSpaces": [0], "parameters": []})"));
    m_widget->update();
    QCOMPARE(visibleRows().size(), 4);
    QCOMPARE(visibleRows().at(1), QStringLiteral("A01 Speed|31|<nicht vorhanden>"));
}

/// With Shift from one row to another, with Control one by one, and all at once.
/// Four parameters and four rows, of equal weight.
void tst_SnapshotWidgetInUse::stepwise()
{
    append("Jetzt");
    QList<qsizetype> told;
    QVERIFY(m_widget->updateStepwise([&](qsizetype done, qsizetype total) {
        told.append(done * 100 / total);
        return true;
    }));
    QCOMPARE(told, (QList<qsizetype> {0, 12, 25, 37, 50, 62, 75, 87}));
    QCOMPARE(visibleRows().size(), 4);
    QVERIFY(m_widget->updateStepwise({}));
    QCOMPARE(visibleRows().size(), 4);
    QVERIFY(ParameterValueSnapshotWidget(nullptr).updateStepwise([](auto, auto) { return false; }));
}

void tst_SnapshotWidgetInUse::stepwiseUntilEnded_data()
{
    QTest::addColumn<int>("steps");
    QTest::newRow("at once") << 1;
    QTest::newRow("among the parameters") << 3;
    QTest::newRow("at the first row") << 5;
    QTest::newRow("at the last row") << 8;
}

void tst_SnapshotWidgetInUse::stepwiseUntilEnded()
{
    QFETCH(int, steps);
    append("Jetzt");
    m_widget->update();
    int told = 0;
    QVERIFY(!m_widget->updateStepwise([&](qsizetype, qsizetype) { return ++told < steps; }));
    QCOMPARE(told, steps);
    QVERIFY(m_widget->isEmpty());
    QVERIFY(!m_widget->report().contains(QStringLiteral("<tr>")));
    m_widget->update();
    QCOMPARE(visibleRows().size(), 4);
}

void tst_SnapshotWidgetInUse::wholeRowsAreSelected()
{
    append("eins");
    m_widget->update();
    m_widget->show();
    m_widget->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_widget.get()));
    tree()->setFocus();
    press(Qt::Key_Home);
    press(Qt::Key_Down);
    QCOMPARE(selectedRows(), QStringList {QStringLiteral("A01")});
    press(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(selectedRows(), (QStringList {QStringLiteral("A01"), QStringLiteral("A02")}));
    QVERIFY(tree()->selectionModel()->isRowSelected(1, {}));
    QVERIFY(tree()->selectionModel()->isSelected(tree()->model()->index(2, 1)));
    press(Qt::Key_Home);
    QCOMPARE(selectedRows(), QStringList {QStringLiteral("A00")});
    press(Qt::Key_End, Qt::ControlModifier);
    press(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(selectedRows(), (QStringList {QStringLiteral("A00"), QStringLiteral("A03")}));
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(selectedRows().size(), 4);
}

void tst_SnapshotWidgetInUse::english()
{
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/i18n/KrParameterInstance_en.qm")));
    QCoreApplication::installTranslator(&translator);
    append("before");
    m_fixture->container->deleteParameter(QStringLiteral("S;{A03}"));
    append("after");
    m_widget->setHtmlHeader(QStringLiteral("Report"));
    m_widget->update();
    QCOMPARE(tree()->headerItem()->text(0), QStringLiteral("Parameter"));
    QCOMPARE(visibleRows(), QStringList {QStringLiteral("A03 Speed|13|<not present>")});
    QStringList buttons;
    for (const QPushButton *button : m_widget->findChildren<QPushButton *>())
        buttons.append(button->text());
    QCOMPARE(buttons,
        (QStringList {QStringLiteral("Export column \"before\""),
            QStringLiteral("Export column \"after\""), QStringLiteral("Export HTML")}));
    QVERIFY(m_widget->report().contains(QStringLiteral("<td>&lt;not present&gt;</td>")));
}

/// Buttons and header at once, the rows with the next filling.
void tst_SnapshotWidgetInUse::changesTheLanguage()
{
    append("before");
    m_fixture->container->deleteParameter(QStringLiteral("S;{A03}"));
    append("after");
    m_widget->setHtmlHeader(QStringLiteral("Report"));
    m_widget->update();
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/i18n/KrParameterInstance_en.qm")));
    QCoreApplication::installTranslator(&translator);
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_widget.get(), &change);
    QStringList buttons;
    for (const QPushButton *button : m_widget->findChildren<QPushButton *>())
        buttons.append(button->text());
    QCOMPARE(buttons.join(u'|'),
        QStringLiteral("Export column \"before\"|Export column \"after\"|Export HTML"));
    QCOMPARE(tree()->headerItem()->text(0), QStringLiteral("Parameter"));
    QCOMPARE(tree()->headerItem()->text(2), QStringLiteral("after"));
    QCOMPARE(visibleRows(), QStringList {QStringLiteral("A03 Speed|13|<nicht vorhanden>")});
    m_widget->update();
    QCOMPARE(visibleRows(), QStringList {QStringLiteral("A03 Speed|13|<not present>")});
    // One that shows nothing yet.
    ParameterValueSnapshotWidget empty(nullptr);
    QCoreApplication::sendEvent(&empty, &change);
    QCOMPARE(empty.findChild<QTreeWidget *>()->columnCount(), 0);
}

QTEST_MAIN(tst_SnapshotWidgetInUse)
#include "tst_SnapshotWidgetInUse.moc"
