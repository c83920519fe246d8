#include "apps/krparameter-desk/ParameterTableModel.h"
#include "apps/krparameter-desk/RowTexts.h"
#include "apps/krparameter-desk/ValueWriter.h"
#include "tests/apps/desk/FollowingDevice.h"
#include "tests/support/MessageRecorder.h"

#include <KrMultilingual/LanguageManager.h>
#include <KrParameterInstance/ParameterSetup.h>
#include <KrSystem/System.h>

#include <QtGui/QUndoStack>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>

class tst_ParameterTableModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void emptyWithoutDevice();
    void naturalOrder();
    void columns_data();
    void columns();
    void headers();
    void accessLevel();
    void axis();
    void search();
    void searchFollowsValues();
    void searchIsReadWhileIdle();
    void searchOfManyRows();
    void searchOfManyRowsAtOnce();
    void searchOfManyRowsStays();
    void selectionSurvivesTheSearch();
    void differsFromDefault();
    void choices();
    void setData();
    void refusedData();
    void onlyWritableValuesAreEditable();
    void readOnlyContainer();
    void valueFromElsewhere();
    void textsFollowTheirOwnValue();
    void limitsFollowOtherValues();
    void visibilityFollowsOtherValuesAtOnce();
    void searchFollowsTheAccessLevel();
    void languages();
    void elementCountChanges();
    void removedParameter();

private:
    void open(std::unique_ptr<DeskDevice> device);
    QStringList addresses() const;
    QString text(const char *coordinate, int livingSpace, quint16 element,
        ParameterTableModel::eColumn column) const;

    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<DeskDevice> m_device;
    std::unique_ptr<DriveProject> m_project;
    std::unique_ptr<QUndoStack> m_stack;
    std::unique_ptr<ValueWriter> m_writer;
    std::unique_ptr<ParameterTableModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

using Model = ParameterTableModel;

namespace {

/// K01 with 4000 elements of the value 7: more than are read for searching before the first key.
QByteArray manyRows()
{
    return R"json({
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 80, "name": "Many", "hasPhysicalAxes": true, "axes": [1]},
  "languages": ["de", "en"], "dataTypes": ["UINT16"],
  "parameters": [
    {"number": 1, "coordinates": ["K01"], "name": {"de": "Viele", "en": "Many"}, "global": true,
     "elementCount": 4000,
     "elements": [{"dataType": "UINT16", "kind": 0, "default": 7,
                   "levels": {"read": 0, "write": 2}}]}]
})json";
}

} // namespace

void tst_ParameterTableModel::init()
{
    System::information()->setUserAccessLevel(4);
    m_messages = std::make_unique<MessageRecorder>();
    m_model = std::make_unique<Model>();
    m_tester = std::make_unique<QAbstractItemModelTester>(m_model.get());
    open(std::make_unique<DeskDevice>());
}

void tst_ParameterTableModel::open(std::unique_ptr<DeskDevice> device)
{
    m_model->setDevice(nullptr, nullptr);
    m_writer.reset();
    m_device = std::move(device);
    m_project = m_device->open();
    m_stack = std::make_unique<QUndoStack>();
    m_writer = std::make_unique<ValueWriter>(m_project->container(), *m_stack);
    m_model->setDevice(m_project.get(), m_writer.get());
}

void tst_ParameterTableModel::cleanup()
{
    LanguageManager::instance()->setActiveLanguage(QStringLiteral("de"));
    m_tester.reset();
    m_model.reset();
    m_writer.reset();
    m_stack.reset();
    m_project.reset();
    m_messages.reset();
}

QStringList tst_ParameterTableModel::addresses() const
{
    QStringList result;
    for (int row = 0; row < m_model->rowCount(); ++row)
        result.append(m_model->index(row, Model::Address).data().toString());
    return result;
}

QString tst_ParameterTableModel::text(const char *coordinate, int livingSpace, quint16 element,
    ParameterTableModel::eColumn column) const
{
    return m_model->indexOf(place(coordinate, livingSpace, element), column).data().toString();
}

void tst_ParameterTableModel::emptyWithoutDevice()
{
    m_model->setDevice(nullptr, nullptr);
    QCOMPARE(m_model->rowCount(), 0);
    QCOMPARE(m_model->columnCount(), 8);
    QVERIFY(!m_model->contains(place("A20")));
    QVERIFY(!m_model->indexOf(place("A20")).isValid());
    m_model->setSearchedText(QStringLiteral("x"));
    m_model->setAxis(eLivingSpace::Axis1);
    m_model->refresh();
    QCOMPARE(m_model->searchableCount(), 0);
}

void tst_ParameterTableModel::naturalOrder()
{
    QCOMPARE(addresses().join(QLatin1Char(' ')),
        QStringLiteral("A20 1.B01 2.B01 1.B02 2.B02 B10 B100 E30[1] E30[2]"));
}

void tst_ParameterTableModel::columns_data()
{
    QTest::addColumn<QByteArray>("coordinate");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<int>("element");
    QTest::addColumn<QString>("row");
    QTest::newRow("a number in its unit")
        << QByteArray("B01") << 2 << 0 << QStringLiteral("2.B01|Strom|4.200|A|4.200|0.100|40.000|");
    QTest::newRow("a choice") << QByteArray("B02") << 1 << 0
                              << QStringLiteral("1.B02|Bremse|0: Aus||0: Aus|0: Aus|1: Ein|");
    QTest::newRow("an element of a record")
        << QByteArray("E30") << 0 << 2 << QStringLiteral("E30[2]|Faktor · Nenner|1||1|||");
    QTest::newRow("a text") << QByteArray("A20") << 0 << 0
                            << QStringLiteral("A20|Text|abc||abc|||");
}

void tst_ParameterTableModel::columns()
{
    QFETCH(QByteArray, coordinate);
    QFETCH(int, livingSpace);
    QFETCH(int, element);
    QFETCH(QString, row);
    QStringList texts;
    for (int column = 0; column < Model::ColumnCount; ++column)
        texts.append(
            text(coordinate.constData(), livingSpace, quint16(element), Model::eColumn(column)));
    QCOMPARE(texts.join(QLatin1Char('|')), row);
}

void tst_ParameterTableModel::headers()
{
    QStringList titles;
    for (int column = 0; column < m_model->columnCount(); ++column)
        titles.append(m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    QCOMPARE(titles.join(QLatin1Char('|')),
        QStringLiteral("Adresse|Name|Wert|Einheit|Default|Minimum|Maximum|Änderungsmarke"));
    QVERIFY(!m_model->headerData(8, Qt::Horizontal, Qt::DisplayRole).isValid());
}

void tst_ParameterTableModel::accessLevel()
{
    System::information()->setUserAccessLevel(5);
    QCOMPARE(addresses().constLast(), QStringLiteral("P01"));
    QCOMPARE(m_model->rowCount(), 10);
    System::information()->setUserAccessLevel(4);
    QCOMPARE(m_model->rowCount(), 9);
    QVERIFY(m_model->contains(place("P01")));
    QVERIFY(!m_model->indexOf(place("P01")).isValid());
}

void tst_ParameterTableModel::axis()
{
    m_model->setAxis(eLivingSpace::Axis2);
    QCOMPARE(addresses().join(QLatin1Char(' ')),
        QStringLiteral("A20 2.B01 2.B02 B10 B100 E30[1] E30[2]"));
    m_model->setAxis({});
    QCOMPARE(m_model->rowCount(), 9);
}

void tst_ParameterTableModel::search()
{
    m_model->setSearchedText(QStringLiteral("strom"));
    QCOMPARE(addresses().join(QLatin1Char(' ')), QStringLiteral("1.B01 2.B01"));
    QCOMPARE(m_model->searchableCount(), 9);
    m_model->setAxis(eLivingSpace::Axis1);
    QCOMPARE(addresses().join(QLatin1Char(' ')), QStringLiteral("1.B01"));
    m_model->setSearchedText(QString());
    QCOMPARE(m_model->rowCount(), 7);
}

void tst_ParameterTableModel::searchFollowsValues()
{
    m_model->setSearchedText(QStringLiteral("4.2"));
    QCOMPARE(m_model->rowCount(), 2);
    QVERIFY(m_writer->write(place("B01", 1), QStringLiteral("5")).isAccepted);
    // It would vanish under the hands of who types.
    QCOMPARE(m_model->rowCount(), 2);
    m_model->setSearchedText(QStringLiteral("4.20"));
    QCOMPARE(addresses(), QStringList(QStringLiteral("2.B01")));
    m_model->setSearchedText(QStringLiteral("5.0"));
    QCOMPARE(addresses(), QStringList(QStringLiteral("1.B01")));
}

/// What changes meanwhile, before and after the texts are read, is found all the same.
void tst_ParameterTableModel::searchIsReadWhileIdle()
{
    QVERIFY(m_writer->write(place("B01", 1), QStringLiteral("5")).isAccepted);
    QCoreApplication::processEvents();
    QVERIFY(m_writer->write(place("B01", 2), QStringLiteral("6")).isAccepted);
    m_model->setSearchedText(QStringLiteral("5.000"));
    QCOMPARE(addresses(), QStringList(QStringLiteral("1.B01")));
    m_model->setSearchedText(QStringLiteral("6.000"));
    QCOMPARE(addresses(), QStringList(QStringLiteral("2.B01")));
    m_model->setSearchedText(QStringLiteral("4.200"));
    QCOMPARE(m_model->rowCount(), 0);
}

/// What is not read yet stays, also what is selected, until it is read.
void tst_ParameterTableModel::searchOfManyRows()
{
    open(std::make_unique<DeskDevice>(manyRows()));
    QVERIFY(m_writer->write(place("K01", 0, 3999), QStringLiteral("815")).isAccepted);
    const QPersistentModelIndex first(m_model->indexOf(place("K01", 0, 0)));
    const QPersistentModelIndex last(m_model->indexOf(place("K01", 0, 3999)));
    m_model->setSearchedText(QStringLiteral("815"));
    QVERIFY(!first.isValid());
    QVERIFY(last.isValid());
    QCOMPARE(m_model->index(0, Model::Address).data().toString(), QStringLiteral("K01[815]"));
    QVERIFY(m_model->rowCount() > 2);
    QVERIFY(m_model->rowCount() < 4000);
    QTRY_COMPARE(m_model->rowCount(), 5);
    QCOMPARE(addresses().join(QLatin1Char(' ')),
        QStringLiteral("K01[815] K01[1815] K01[2815] K01[3815] K01[3999]"));
    QCOMPARE(last.row(), 4);
    m_model->setSearchedText(QString());
    QCOMPARE(m_model->rowCount(), 4000);
}

void tst_ParameterTableModel::searchOfManyRowsAtOnce()
{
    open(std::make_unique<DeskDevice>(manyRows()));
    m_model->setSearchedText(QStringLiteral("k01[3"));
    m_model->settle();
    QCOMPARE(m_model->rowCount(), 1111);
    m_model->setSearchedText(QStringLiteral("k01[39"));
    QCOMPARE(m_model->rowCount(), 111);
    QSignalSpy changes(m_model.get(), &QAbstractItemModel::layoutChanged);
    m_model->settle();
    QCOMPARE(changes.size(), 0);
}

/// Nothing comes up for a moment when all texts change.
void tst_ParameterTableModel::searchOfManyRowsStays()
{
    open(std::make_unique<DeskDevice>(manyRows()));
    m_model->setSearchedText(QStringLiteral("viele"));
    m_model->settle();
    QCOMPARE(m_model->rowCount(), 4000);
    LanguageManager::instance()->setActiveLanguage(QStringLiteral("en"));
    m_model->refresh();
    QCOMPARE(m_model->rowCount(), 0);
}

void tst_ParameterTableModel::selectionSurvivesTheSearch()
{
    const QPersistentModelIndex kept(m_model->indexOf(place("B10")));
    const QPersistentModelIndex lost(m_model->indexOf(place("B01", 1)));
    m_model->setSearchedText(QStringLiteral("zehn"));
    QCOMPARE(kept.row(), 0);
    QCOMPARE(kept.data().toString(), QStringLiteral("10"));
    QVERIFY(!lost.isValid());
    m_model->setSearchedText(QString());
    QCOMPARE(kept.row(), 5);
}

void tst_ParameterTableModel::differsFromDefault()
{
    const QModelIndex index = m_model->indexOf(place("B01", 1));
    QVERIFY(!index.data(Model::DiffersRole).toBool());
    QVERIFY(m_writer->write(place("B01", 1), QStringLiteral("5")).isAccepted);
    QVERIFY(index.data(Model::DiffersRole).toBool());
    QVERIFY(!index.siblingAtColumn(Model::Default).data(Model::DiffersRole).toBool());
    QCOMPARE(index.data(Qt::AccessibleDescriptionRole).toString(),
        QStringLiteral("weicht vom Default ab"));
    m_stack->undo();
    QVERIFY(!index.data(Model::DiffersRole).toBool());
}

void tst_ParameterTableModel::choices()
{
    using Choices = QList<RowTexts::Choice>;
    QCOMPARE(m_model->indexOf(place("B02", 1)).data(Model::ChoicesRole).value<Choices>(),
        (Choices {{QStringLiteral("0"), QStringLiteral("0: Aus")},
            {QStringLiteral("1"), QStringLiteral("1: Ein")}}));
    QVERIFY(m_model->indexOf(place("B10")).data(Model::ChoicesRole).value<Choices>().isEmpty());
}

void tst_ParameterTableModel::setData()
{
    const QSignalSpy answers(m_model.get(), &Model::writeAnswered);
    const QSignalSpy changes(m_model.get(), &Model::dataChanged);
    const QModelIndex index = m_model->indexOf(place("B02", 2));
    QVERIFY(m_model->setData(index, QStringLiteral("1"), Qt::EditRole));
    QCOMPARE(index.data().toString(), QStringLiteral("1: Ein"));
    QCOMPARE(answers.count(), 1);
    QCOMPARE(answers.at(0).at(1).toBool(), true);
    QVERIFY(changes.count() > 0);
    QVERIFY(
        !m_model->setData(index.siblingAtColumn(Model::Name), QStringLiteral("x"), Qt::EditRole));
    QVERIFY(!m_model->setData(index, QStringLiteral("0"), Qt::UserRole));
    QVERIFY(!m_model->setData(QModelIndex(), QStringLiteral("0"), Qt::EditRole));
}

void tst_ParameterTableModel::refusedData()
{
    const QString message = QStringLiteral(
        "Parameter 1.B01: Fehler beim Übernehmen des Werts - Wert \"0.100 A\" ist zu klein");
    m_messages->expect(MessageRecorder::eSeverity::Critical, QStringLiteral("Desk drive"), message);
    const QSignalSpy answers(m_model.get(), &Model::writeAnswered);
    const QModelIndex index = m_model->indexOf(place("B01", 1));
    QVERIFY(!m_model->setData(index, QStringLiteral("0"), Qt::EditRole));
    QCOMPARE(index.data().toString(), QStringLiteral("4.200"));
    QCOMPARE(answers.count(), 1);
    QCOMPARE(answers.at(0).at(0).toModelIndex(), index);
    QCOMPARE(answers.at(0).at(1).toBool(), false);
    QCOMPARE(answers.at(0).at(2).toString(), message);
}

void tst_ParameterTableModel::onlyWritableValuesAreEditable()
{
    System::information()->setUserAccessLevel(2);
    const auto isEditable = [this](const ValuePlace &at, Model::eColumn column) {
        return m_model->flags(m_model->indexOf(at, column)).testFlag(Qt::ItemIsEditable);
    };
    QVERIFY(isEditable(place("B01", 1), Model::Value));
    QVERIFY(!isEditable(place("B01", 1), Model::Default));
    QVERIFY(!isEditable(place("B100"), Model::Value));
    System::information()->setUserAccessLevel(4);
    QVERIFY(isEditable(place("B100"), Model::Value));
}

void tst_ParameterTableModel::readOnlyContainer()
{
    m_project->container().setReadOnly(true);
    QVERIFY(!m_model->flags(m_model->indexOf(place("B10"))).testFlag(Qt::ItemIsEditable));
    m_project->container().setReadOnly(false);
    QVERIFY(m_model->flags(m_model->indexOf(place("B10"))).testFlag(Qt::ItemIsEditable));
}

void tst_ParameterTableModel::valueFromElsewhere()
{
    const QSignalSpy changes(m_model.get(), &Model::dataChanged);
    m_project->container().writeValueNative(
        eLivingSpace::Axis2, place("B01").coordinate, 0, QStringLiteral("6000"));
    QVERIFY(changes.count() > 0);
    QCOMPARE(changes.at(0).at(0).toModelIndex().row(), 2);
    QCOMPARE(text("B01", 2, 0, Model::Value), QStringLiteral("6.000"));
}

/// The texts of limits come from a second container, which follows the first.
void tst_ParameterTableModel::textsFollowTheirOwnValue()
{
    QCOMPARE(text("B01", 1, 0, Model::UpperLimit), QStringLiteral("40.000"));
    QVERIFY(m_writer->write(place("B01", 1), QStringLiteral("7")).isAccepted);
    QCOMPARE(text("B01", 1, 0, Model::UpperLimit), QStringLiteral("40.000"));
    QCOMPARE(text("B01", 1, 0, Model::Default), QStringLiteral("4.200"));
    QCOMPARE(text("B01", 1, 0, Model::Value), QStringLiteral("7.000"));
}

void tst_ParameterTableModel::limitsFollowOtherValues()
{
    open(std::make_unique<FollowingDevice>());
    const QSignalSpy changes(m_model.get(), &Model::dataChanged);
    QCOMPARE(text("K03", 0, 0, Model::UpperLimit), QStringLiteral("10"));
    QVERIFY(m_writer->write(place("K01"), QStringLiteral("30")).isAccepted);
    QCOMPARE(text("K03", 0, 0, Model::UpperLimit), QStringLiteral("30"));
    const int row = m_model->indexOf(place("K03")).row();
    QVERIFY(std::any_of(changes.begin(), changes.end(), [row](const QVariantList &change) {
        return change.at(0).toModelIndex().row() <= row && change.at(1).toModelIndex().row() >= row
            && change.at(1).toModelIndex().column() >= Model::UpperLimit;
    }));
}

/// However many rows come and go, the rows change once.
void tst_ParameterTableModel::visibilityFollowsOtherValuesAtOnce()
{
    open(std::make_unique<FollowingDevice>());
    const QSignalSpy layouts(m_model.get(), &Model::layoutChanged);
    QCOMPARE(m_model->rowCount(), 10);
    QVERIFY(m_writer->write(place("K01"), QStringLiteral("101")).isAccepted);
    QCoreApplication::processEvents();
    QCOMPARE(m_model->rowCount(), 8);
    QVERIFY(!m_model->indexOf(place("K04")).isValid());
    QCOMPARE(layouts.count(), 1);

    // A device of its own: one container tells of hiding once in five seconds.
    open(std::make_unique<FollowingDevice>());
    QCOMPARE(m_model->rowCount(), 10);
    // The rows are others when the event comes.
    QVERIFY(m_writer->write(place("K01"), QStringLiteral("101")).isAccepted);
    m_model->setDevice(nullptr, nullptr);
    QCoreApplication::processEvents();
    QCOMPARE(m_model->rowCount(), 0);
}

/// Level 5 alone sees what is masked.
void tst_ParameterTableModel::searchFollowsTheAccessLevel()
{
    open(std::make_unique<FollowingDevice>());
    m_model->setSearchedText(QStringLiteral("777"));
    QCOMPARE(m_model->rowCount(), 0);
    System::information()->setUserAccessLevel(5);
    QCOMPARE(addresses(), QStringList(QStringLiteral("K07")));
    System::information()->setUserAccessLevel(4);
    QCOMPARE(m_model->rowCount(), 0);
    m_model->setSearchedText(QStringLiteral("offline"));
    QCOMPARE(addresses(), QStringList(QStringLiteral("K07")));
}

void tst_ParameterTableModel::languages()
{
    m_model->setSearchedText(QStringLiteral("current"));
    QCOMPARE(m_model->rowCount(), 0);
    LanguageManager::instance()->setActiveLanguage(QStringLiteral("en"));
    m_model->refresh();
    QCOMPARE(addresses().join(QLatin1Char(' ')), QStringLiteral("1.B01 2.B01"));
    m_model->setSearchedText(QString());
    QCOMPARE(text("B02", 1, 0, Model::Value), QStringLiteral("0: Off"));
    QCOMPARE(text("B02", 1, 0, Model::UpperLimit), QStringLiteral("1: On"));
}

void tst_ParameterTableModel::elementCountChanges()
{
    const QSignalSpy resets(m_model.get(), &Model::modelReset);
    m_project->container().parameterSetup(place("A20").coordinate)->setElementCount(3);
    QCoreApplication::processEvents();
    QCOMPARE(resets.count(), 1);
    QCOMPARE(
        addresses().first(4).join(QLatin1Char(' ')), QStringLiteral("A20[0] A20[1] A20[2] 1.B01"));
}

void tst_ParameterTableModel::removedParameter()
{
    const QModelIndex index = m_model->indexOf(place("B10"));
    m_project->container().deleteParameter(QStringLiteral("Drive.1;{P5}"));
    // Until the rows are made anew the place has no texts and takes none.
    QCOMPARE(index.data().toString(), QString());
    QVERIFY(!m_model->setData(index, QStringLiteral("1"), Qt::EditRole));
    QCoreApplication::processEvents();
    QCOMPARE(addresses().join(QLatin1Char(' ')),
        QStringLiteral("A20 1.B01 2.B01 1.B02 2.B02 B100 E30[1] E30[2]"));
}

QTEST_GUILESS_MAIN(tst_ParameterTableModel)
#include "tst_ParameterTableModel.moc"
