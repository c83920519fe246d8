#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include "snapshot/ParameterValueSnapshotWidgetPrivate.h"
#include "snapshot/SnapshotItem.h"
#include "tests/snapshot/AddressFilter.h"
#include "tests/snapshot/SnapshotFixture.h"
#include "tests/support/GoldenFile.h"
#include "tests/support/TestSettings.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrSystem/System.h>
#include <LmUtilities/DefaultPathSetting.h>

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QPushButton>

/// The comparison in a window, with real clicks.
class tst_ParameterValueSnapshotWidget : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void treeSetUp();
    void emptyWithoutSnapshot();
    void rowsOfOneSnapshot();
    void identicalSnapshotsAreEmpty();
    void changeReport();
    void equalRowsAreHidden();
    void allRowsMayBeHidden();
    void missingValueIsGrey();
    void missingElementIsGrey();
    void maskedValueIsComparedUnmasked();
    void missingLivingSpaceIsGrey();
    void rejectedValueIsEmpty();
    void unreadableValueIsEmpty();
    void unreadableElementIsEmpty();
    void itemsAnswerLikeOthers();
    void reportFollowsTheTree();
    void appendDoesNotRefill();
    void updateStartsAnew();
    void deletedSnapshot();
    void columnsFitTheirContents();
    void fillingIsLinear();

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

private:
    QTreeWidget *tree() const { return m_widget->findChild<QTreeWidget *>(); }
    ParameterValueSnapshotWidgetPrivate *priv() const
    {
        return static_cast<ParameterValueSnapshotWidgetPrivate *>(tree());
    }
    QList<QPushButton *> buttons() const;
    QStringList visibleRows() const;
    ParameterValueSnapshot *take();
    void answerDialog(const QString &fileName);
    void click(int button);

    const TestSettings m_settings;
    QTemporaryDir m_directory;
    std::unique_ptr<SnapshotFixture> m_fixture;
    std::vector<std::unique_ptr<ParameterValueSnapshot>> m_snapshots;
    std::unique_ptr<ParameterValueSnapshotWidget> m_widget;
    /// Caption, start folder and name filter of the dialogs that were asked for.
    QStringList m_dialogs;
    QWidget *m_dialogParent = nullptr;
};

namespace {

QByteArray content(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void appendVisible(QStringList &texts, const QTreeWidget &tree, QTreeWidgetItem &item, int depth)
{
    if (item.isHidden())
        return;
    QString text = QString(depth, QLatin1Char(' ')) + item.text(0);
    for (int column = 1; column < tree.columnCount(); ++column)
        text += QLatin1Char('|') + item.text(column);
    texts.append(text);
    for (int i = 0; i < item.childCount(); ++i)
        appendVisible(texts, tree, *item.child(i), depth + 1);
}

} // namespace

/// A00 "Speed" on two axes in rpm, B01 "Table" with the elements 0 and 2.
void tst_ParameterValueSnapshotWidget::init()
{
    System::information()->setUserAccessLevel(3);
    m_dialogs.clear();
    m_fixture = std::make_unique<SnapshotFixture>();
    m_fixture->add(SnapshotFixture::parameter("A00", "Speed").units(QStringLiteral("rpm")));
    m_fixture->add(SnapshotFixture::parameter("B01", "Table")
                       .global()
                       .element(0, QStringLiteral("First"))
                       .element(2, QStringLiteral("Second")));
    m_fixture->write(1, "A00", 0, QStringLiteral("11"));
    m_fixture->write(2, "A00", 0, QStringLiteral("12"));
    m_fixture->write(0, "B01", 0, QStringLiteral("<1>"));
    m_fixture->write(0, "B01", 2, QStringLiteral("2"));
    m_widget = std::make_unique<ParameterValueSnapshotWidget>(nullptr);
}

void tst_ParameterValueSnapshotWidget::cleanup()
{
    System::instance()->setMainWindow(nullptr);
    m_widget.reset();
    m_snapshots.clear();
    m_fixture.reset();
}

QList<QPushButton *> tst_ParameterValueSnapshotWidget::buttons() const
{
    return m_widget->findChildren<QPushButton *>();
}

QStringList tst_ParameterValueSnapshotWidget::visibleRows() const
{
    QStringList texts;
    for (int i = 0; i < tree()->topLevelItemCount(); ++i)
        appendVisible(texts, *tree(), *tree()->topLevelItem(i), 0);
    return texts;
}

ParameterValueSnapshot *tst_ParameterValueSnapshotWidget::take()
{
    m_snapshots.push_back(std::make_unique<ParameterValueSnapshot>(m_fixture->container.get()));
    m_snapshots.back()->applyNoFilter();
    return m_snapshots.back().get();
}

void tst_ParameterValueSnapshotWidget::answerDialog(const QString &fileName)
{
    priv()->chooseSaveFile = [this, fileName](QWidget *parent, const QString &caption,
                                 const QString &directory, const QString &filter) {
        m_dialogParent = parent;
        m_dialogs = {caption, directory, filter};
        return fileName;
    };
}

void tst_ParameterValueSnapshotWidget::click(int button)
{
    m_widget->show();
    QTest::mouseClick(buttons().at(button), Qt::LeftButton);
}

void tst_ParameterValueSnapshotWidget::treeSetUp()
{
    QCOMPARE(tree()->columnCount(), 0);
    QCOMPARE(tree()->headerItem()->text(0), QString());
    QVERIFY(!tree()->isSortingEnabled());
    QVERIFY(tree()->rootIsDecorated());
    QVERIFY(tree()->alternatingRowColors());
    QCOMPARE(tree()->contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(tree()->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(tree()->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(m_widget->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QVERIFY(qobject_cast<QVBoxLayout *>(m_widget->layout()));
    QCOMPARE(m_widget->layout()->count(), 1);
    QVERIFY(m_widget->layout()->itemAt(0)->widget() == tree());
}

void tst_ParameterValueSnapshotWidget::emptyWithoutSnapshot()
{
    QVERIFY(m_widget->isEmpty());
    m_widget->update();
    QVERIFY(m_widget->isEmpty());
    QCOMPARE(tree()->topLevelItemCount(), 0);
}

void tst_ParameterValueSnapshotWidget::rowsOfOneSnapshot()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    QVERIFY(!m_widget->isEmpty());
    QCOMPARE(tree()->columnCount(), 2);
    QCOMPARE(tree()->headerItem()->text(0), QStringLiteral("Parameter"));
    QCOMPARE(tree()->headerItem()->text(1), QStringLiteral("Jetzt"));
    QCOMPARE(visibleRows(),
        (QStringList {QStringLiteral("1.A00 Speed|11 rpm"), QStringLiteral("2.A00 Speed|12 rpm"),
            QStringLiteral("B01 Table|"), QStringLiteral(" B01[0] First|<1>"),
            QStringLiteral(" B01[2] Second|2")}));

    auto *parameter = dynamic_cast<CoordinateItem *>(tree()->topLevelItem(1));
    QVERIFY(parameter);
    QCOMPARE(parameter->livingSpace(), eLivingSpace::Axis2);
    QCOMPARE(parameter->coordinate(), at("A00"));
    QCOMPARE(parameter->data(1, Qt::UserRole).toString(), QStringLiteral("12 rpm"));
    auto *element = dynamic_cast<ElementTreeWidgetItem *>(tree()->topLevelItem(2)->child(1));
    QVERIFY(element);
    QCOMPARE(element->livingSpace(), eLivingSpace::Global);
    QCOMPARE(element->coordinate(), at("B01"));
    QCOMPARE(element->element(), quint16(2));
    // The view reads the same through its model.
    const QModelIndex index = tree()->model()->index(1, 1);
    QCOMPARE(index.data(Qt::DisplayRole).toString(), QStringLiteral("12 rpm"));
    QCOMPARE(index.data(Qt::UserRole).toString(), QStringLiteral("12 rpm"));
}

void tst_ParameterValueSnapshotWidget::identicalSnapshotsAreEmpty()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->update();
    QVERIFY(m_widget->isEmpty());
    QCOMPARE(tree()->columnCount(), 3);
}

void tst_ParameterValueSnapshotWidget::changeReport()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_fixture->write(0, "B01", 2, QStringLiteral("3"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->update();
    QCOMPARE(visibleRows(),
        (QStringList {QStringLiteral("B01 Table||"), QStringLiteral(" B01[2] Second|2|3")}));
}

void tst_ParameterValueSnapshotWidget::equalRowsAreHidden()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_fixture->write(2, "A00", 0, QStringLiteral("13"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->update();
    QCOMPARE(tree()->topLevelItemCount(), 2);
    QVERIFY(tree()->topLevelItem(0)->isHidden());
    QCOMPARE(visibleRows(), QStringList {QStringLiteral("2.A00 Speed|12 rpm|13 rpm")});
}

/// The native text and the masked display text differ, the value text does not.
void tst_ParameterValueSnapshotWidget::allRowsMayBeHidden()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_fixture->container->deleteParameter(QStringLiteral("S;{A00}"));
    m_fixture->add(SnapshotFixture::parameter("A00", "Speed").levels(4, 0));
    ParameterValueSnapshot *after = take();
    m_widget->appendSnapshot(after, QStringLiteral("Nachher"));
    m_widget->update();
    // One column unreadable and empty, the other one not.
    QCOMPARE(visibleRows(),
        (QStringList {
            QStringLiteral("1.A00 Speed|11 rpm|"), QStringLiteral("2.A00 Speed|12 rpm|")}));

    m_widget = std::make_unique<ParameterValueSnapshotWidget>(nullptr);
    m_widget->appendSnapshot(after, QStringLiteral("Vorher"));
    m_fixture->write(1, "A00", 0, QStringLiteral("99"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->update();
    QVERIFY(!m_widget->isEmpty());
    QCOMPARE(visibleRows(), QStringList());
}

void tst_ParameterValueSnapshotWidget::missingValueIsGrey()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_fixture->container->deleteParameter(QStringLiteral("S;{A00}"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->update();
    QCOMPARE(visibleRows().first(), QStringLiteral("1.A00 Speed|11 rpm|<nicht vorhanden>"));
    const QTreeWidgetItem *item = tree()->topLevelItem(0);
    QCOMPARE(item->foreground(2),
        QBrush(tree()->palette().color(QPalette::Disabled, QPalette::ButtonText)));
    QCOMPARE(item->foreground(2).style(), Qt::SolidPattern);
    QCOMPARE(item->foreground(1), QBrush());
    QVERIFY(!item->data(2, Qt::UserRole).isValid());
}

void tst_ParameterValueSnapshotWidget::missingElementIsGrey()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_fixture->container->deleteParameter(QStringLiteral("S;{B01}"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->update();
    QCOMPARE(visibleRows(),
        (QStringList {QStringLiteral("B01 Table||"),
            QStringLiteral(" B01[0] First|<1>|<nicht vorhanden>"),
            QStringLiteral(" B01[2] Second|2|<nicht vorhanden>")}));
    const QTreeWidgetItem *element = tree()->topLevelItem(0)->child(1);
    QCOMPARE(element->foreground(2),
        QBrush(tree()->palette().color(QPalette::Disabled, QPalette::ButtonText)));
    QCOMPARE(element->foreground(1), QBrush());
    QVERIFY(!element->data(2, Qt::UserRole).isValid());
    QCOMPARE(tree()->topLevelItem(0)->foreground(2), QBrush());
}

/// What is shown and what is compared need not be the same.
void tst_ParameterValueSnapshotWidget::maskedValueIsComparedUnmasked()
{
    m_fixture->add(SnapshotFixture::parameter("C00", "Secret")
                       .global()
                       .units(QStringLiteral("rpm"), QStringLiteral("inc"))
                       .levels(0, 6));
    m_fixture->write(0, "C00", 0, QStringLiteral("7"));
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    QCOMPARE(visibleRows().last(), QStringLiteral("C00 Secret|<offline> rpm"));
    const QTreeWidgetItem *item = tree()->topLevelItem(tree()->topLevelItemCount() - 1);
    QCOMPARE(item->data(1, Qt::UserRole).toString(), QStringLiteral("7 rpm"));
}

void tst_ParameterValueSnapshotWidget::missingLivingSpaceIsGrey()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_fixture->host.setLivingSpaces({eLivingSpace::Axis1});
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->update();
    QCOMPARE(visibleRows(), QStringList {QStringLiteral("2.A00 Speed|12 rpm|<nicht vorhanden>")});
    const QTreeWidgetItem *item = tree()->topLevelItem(1);
    QCOMPARE(item->foreground(2),
        QBrush(tree()->palette().color(QPalette::Disabled, QPalette::ButtonText)));
    QCOMPARE(item->foreground(1), QBrush());
}

/// The snapshot has the living space, so that nothing is missing: the value is there, and empty.
void tst_ParameterValueSnapshotWidget::rejectedValueIsEmpty()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    const AddressFilter filter({QStringLiteral("2.A000[00000]")});
    ParameterValueSnapshot filtered(m_fixture->container.get());
    filtered.apply(filter);
    QVERIFY(filtered.livingSpaces(at("A00")).contains(eLivingSpace::Axis2));
    m_widget->appendSnapshot(&filtered, QStringLiteral("Nachher"));
    m_widget->update();
    const QTreeWidgetItem *item = tree()->topLevelItem(1);
    QCOMPARE(item->text(0), QStringLiteral("2.A00 Speed"));
    QCOMPARE(item->text(2), QString());
    QCOMPARE(item->foreground(2), QBrush());
    QCOMPARE(item->data(2, Qt::UserRole), QVariant(QString()));
}

void tst_ParameterValueSnapshotWidget::unreadableValueIsEmpty()
{
    m_fixture->add(SnapshotFixture::parameter("C00", "Secret").global().levels(4, 0));
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    QCOMPARE(visibleRows().last(), QStringLiteral("C00 Secret|"));
    const QTreeWidgetItem *item = tree()->topLevelItem(tree()->topLevelItemCount() - 1);
    QCOMPARE(item->foreground(1), QBrush());
    QVERIFY(!item->data(1, Qt::UserRole).isValid());
    System::information()->setUserAccessLevel(4);
    m_widget->update();
    QCOMPARE(visibleRows().last(), QStringLiteral("C00 Secret|0"));
}

void tst_ParameterValueSnapshotWidget::unreadableElementIsEmpty()
{
    m_fixture->add(SnapshotFixture::parameter("C00", "Pair")
                       .global()
                       .element(0, QStringLiteral("Open"))
                       .element(1, QStringLiteral("Secret"))
                       .levels(4, 0));
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    QCOMPARE(visibleRows().mid(5),
        (QStringList {QStringLiteral("C00 Pair|"), QStringLiteral(" C00[0] Open|0"),
            QStringLiteral(" C00[1] Secret|")}));
    const QTreeWidgetItem *element = tree()->topLevelItem(3)->child(1);
    QCOMPARE(element->foreground(1), QBrush());
    QVERIFY(!element->data(1, Qt::UserRole).isValid());
}

void tst_ParameterValueSnapshotWidget::itemsAnswerLikeOthers()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    const QTreeWidgetItem *record = tree()->topLevelItem(2);
    QCOMPARE(record->data(0, Qt::EditRole), QVariant(QStringLiteral("B01 Table")));
    QCOMPARE(record->child(1)->data(1, Qt::EditRole), QVariant(QStringLiteral("2")));
    const std::unique_ptr<QTreeWidgetItem> copy(record->clone());
    // The copy needs neither the tree nor its rows.
    m_widget.reset();
    QCOMPARE(copy->text(0), QStringLiteral("B01 Table"));
    QCOMPARE(copy->childCount(), 2);
    QCOMPARE(copy->child(1)->text(0), QStringLiteral("B01[2] Second"));
    QCOMPARE(copy->child(1)->data(1, Qt::UserRole), QVariant(QStringLiteral("2")));
    QVERIFY(dynamic_cast<ElementTreeWidgetItem *>(copy->child(1)));
}

/// What a host did to the tree counts.
void tst_ParameterValueSnapshotWidget::reportFollowsTheTree()
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

void tst_ParameterValueSnapshotWidget::appendDoesNotRefill()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    QVERIFY(m_widget->isEmpty());
    QCOMPARE(tree()->columnCount(), 0);
}

void tst_ParameterValueSnapshotWidget::updateStartsAnew()
{
    ParameterValueSnapshot *snapshot = take();
    m_widget->appendSnapshot(snapshot, QStringLiteral("Jetzt"));
    m_widget->update();
    m_fixture->write(1, "A00", 0, QStringLiteral("77"));
    m_fixture->container->deleteParameter(QStringLiteral("S;{B01}"));
    snapshot->applyNoFilter();
    m_widget->update();
    QCOMPARE(visibleRows(),
        (QStringList {QStringLiteral("1.A00 Speed|77 rpm"), QStringLiteral("2.A00 Speed|12 rpm")}));
}

void tst_ParameterValueSnapshotWidget::deletedSnapshot()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_snapshots.pop_back();
    m_widget->update();
    QCOMPARE(visibleRows().first(), QStringLiteral("1.A00 Speed|11 rpm|<nicht vorhanden>"));
}

/// Each column, wider and narrower than the 100 pixels of a column that nobody fitted; the last one
/// takes what is left.
void tst_ParameterValueSnapshotWidget::columnsFitTheirContents()
{
    const auto width = [this](const QString &text) {
        return tree()->fontMetrics().horizontalAdvance(text);
    };
    const QString longText = QStringLiteral("a text that is wider than any column is without it");
    m_fixture = std::make_unique<SnapshotFixture>();
    m_fixture->add(SnapshotFixture::parameter("C00", "x").global());
    ParameterValueSnapshot *first = take();
    m_fixture->write(0, "C00", 0, longText);
    ParameterValueSnapshot *second = take();
    m_widget->appendSnapshot(first, QStringLiteral("a"));
    m_widget->appendSnapshot(second, QStringLiteral("b"));
    m_widget->appendSnapshot(first, longText);
    m_widget->update();
    QVERIFY(width(longText) > 100);
    QVERIFY(tree()->columnWidth(0) >= width(QStringLiteral("C00 x")));
    QVERIFY(tree()->columnWidth(0) < 100);
    QVERIFY(tree()->columnWidth(1) >= width(QStringLiteral("0")));
    QVERIFY(tree()->columnWidth(1) < 100);
    QVERIFY(tree()->columnWidth(2) >= width(longText));
    QVERIFY(tree()->columnWidth(3) >= width(longText));
}

/// Hiding 16000 elements takes a moment where each item looks for itself among its neighbours.
void tst_ParameterValueSnapshotWidget::fillingIsLinear()
{
    m_fixture->add(SnapshotFixture::parameter("C00", "Long").global().elementCount(16000));
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_fixture->write(0, "C00", 15999, QStringLiteral("5"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->update();
    QCOMPARE(visibleRows(),
        (QStringList {QStringLiteral("C00 Long||"), QStringLiteral(" C00[15999] Long|0|5")}));
}

void tst_ParameterValueSnapshotWidget::buttonsInTheirOrder()
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

void tst_ParameterValueSnapshotWidget::everyHeaderAddsAButton()
{
    m_widget->setHtmlHeader(QStringLiteral("first"));
    m_widget->setHtmlHeader(QStringLiteral("second"));
    QCOMPARE(buttons().size(), 2);
    QCOMPARE(buttons().at(0)->text(), QStringLiteral("HTML exportieren"));
    QCOMPARE(buttons().at(1)->text(), QStringLiteral("HTML exportieren"));
    QVERIFY(m_widget->report().contains(QStringLiteral("\nsecond<br><br>\n")));
}

void tst_ParameterValueSnapshotWidget::textExport_data()
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

void tst_ParameterValueSnapshotWidget::textExport()
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

void tst_ParameterValueSnapshotWidget::textExportCancelled()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    answerDialog(QString());
    click(0);
    QCOMPARE(m_dialogs.value(0), QStringLiteral("Parameterwerte exportieren"));
}

void tst_ParameterValueSnapshotWidget::textExportDisabled()
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

void tst_ParameterValueSnapshotWidget::textExportOfDeletedSnapshot()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    m_snapshots.clear();
    const QString fileName = m_directory.filePath(QStringLiteral("deleted.txt"));
    answerDialog(fileName);
    click(0);
    QVERIFY(!QFile::exists(fileName));
}

void tst_ParameterValueSnapshotWidget::textExportIndex_data()
{
    QTest::addColumn<QVariant>("index");
    QTest::newRow("none") << QVariant();
    QTest::newRow("behind the last") << QVariant(1);
    QTest::newRow("negative") << QVariant(-1);
    QTest::newRow("no number") << QVariant(QStringLiteral("x"));
}

void tst_ParameterValueSnapshotWidget::textExportIndex()
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

void tst_ParameterValueSnapshotWidget::htmlExport()
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

void tst_ParameterValueSnapshotWidget::htmlExportCancelled()
{
    DefaultPathSetting(DefaultPathSetting::HtmlReport).setPath(m_directory.path());
    m_widget->setHtmlHeader(QString());
    answerDialog(QString());
    click(0);
    QCOMPARE(m_dialogs.value(0), QStringLiteral("Änderungen als HTML exportieren"));
    QCOMPARE(DefaultPathSetting(DefaultPathSetting::HtmlReport).path(), m_directory.path());
}

void tst_ParameterValueSnapshotWidget::htmlExportCannotBeOpened()
{
    DefaultPathSetting(DefaultPathSetting::HtmlReport).setPath(m_directory.path());
    m_widget->setHtmlHeader(QString());
    answerDialog(m_directory.filePath(QStringLiteral("none/report.html")));
    click(0);
    QCOMPARE(DefaultPathSetting(DefaultPathSetting::HtmlReport).path(), m_directory.path());
}

void tst_ParameterValueSnapshotWidget::widgetGoesWhileTheDialogIsOpen()
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

void tst_ParameterValueSnapshotWidget::report()
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

void tst_ParameterValueSnapshotWidget::reportFollowsTheShownRows()
{
    m_widget->appendSnapshot(take(), QStringLiteral("Jetzt"));
    m_widget->update();
    const QString before = m_widget->report();
    m_widget->appendSnapshot(take(), QStringLiteral("Danach"));
    QCOMPARE(m_widget->report(), before);
}

QTEST_MAIN(tst_ParameterValueSnapshotWidget)
#include "tst_ParameterValueSnapshotWidget.moc"
