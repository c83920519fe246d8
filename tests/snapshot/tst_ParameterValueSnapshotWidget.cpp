#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include "snapshot/SnapshotItem.h"
#include "tests/snapshot/AddressFilter.h"
#include "tests/snapshot/SnapshotWidgetTest.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrSystem/System.h>

#include <QtTest/QTest>
#include <QtWidgets/QBoxLayout>

/// The rows of the comparison, as its tree shows them.
class tst_ParameterValueSnapshotWidget : public SnapshotWidgetTest {
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

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
    void appendDoesNotRefill();
    void updateStartsAnew();
    void deletedSnapshot();
    void columnsFitTheirContents();
    void oneChangeAmongManyElements();
};

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

void tst_ParameterValueSnapshotWidget::oneChangeAmongManyElements()
{
    m_fixture->add(SnapshotFixture::parameter("C00", "Long").global().elementCount(16000));
    m_widget->appendSnapshot(take(), QStringLiteral("Vorher"));
    m_fixture->write(0, "C00", 15999, QStringLiteral("5"));
    m_widget->appendSnapshot(take(), QStringLiteral("Nachher"));
    m_widget->update();
    QCOMPARE(visibleRows(),
        (QStringList {QStringLiteral("C00 Long||"), QStringLiteral(" C00[15999] Long|0|5")}));
}

QTEST_MAIN(tst_ParameterValueSnapshotWidget)
#include "tst_ParameterValueSnapshotWidget.moc"
