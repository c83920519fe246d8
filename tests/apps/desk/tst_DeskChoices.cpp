#include "tests/apps/desk/DeskOnScreen.h"
#include "tests/support/TestSettings.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QAbstractItemView>

/// Choosing from lists with real clicks and keys.
class tst_DeskChoices : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<DeskOnScreen>(description()); }
    void cleanup() { m_desk.reset(); }

    void opens_data();
    void opens();
    void typed_data();
    void typed();
    void keysOnlyMoveTheSelection();
    void tabChoosesAndGoesOn();
    void clickInTheList();
    void releaseOfTheOpeningClick();
    void clickBesideTheList();
    void escape_data();
    void escape();
    void wheelOnTheClosedList();
    void leftWithoutAChoice();
    void refused();
    void refusedAndGivenUp();
    void noSuchEntry();
    void deviceChangesMeanwhile();
    void listIsAsWideAsItsTexts();

private:
    static QByteArray description();
    DeskOnScreen &desk() const { return *m_desk; }
    bool isOpen() const { return desk().list() && desk().list()->view()->isVisible(); }
    QString selected() const
    {
        return desk().list()->view()->currentIndex().data(Qt::UserRole).toString();
    }
    int writes() const { return desk().window->session().undoStack()->count(); }
    void clickEntry(int row) const;
    void writeFromOutside(const char *native) const;
    void expectRefusal()
    {
        desk().messages.expect(
            MessageRecorder::eSeverity::Critical, QStringLiteral("Choosing"), TooLarge);
    }

    static const QString TooLarge;
    const TestSettings m_settings;
    std::unique_ptr<DeskOnScreen> m_desk;
};

const QString tst_DeskChoices::TooLarge =
    QStringLiteral("Parameter C00: Fehler beim Übernehmen des Werts - Wert \"100\" ist zu groß");

/// C00 has numbers that begin with one another, and one above its limit.
QByteArray tst_DeskChoices::description()
{
    return R"({
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 80, "name": "Choosing", "hasPhysicalAxes": true, "axes": [1]},
  "languages": ["de", "en"],
  "dataTypes": ["UINT16"],
  "parameters": [
    {"number": 1, "coordinates": ["C00"], "name": "Motor", "global": true,
     "elements": [{"dataType": "UINT16", "kind": 1, "default": 10,
                   "limits": {"lower": 0, "upper": 100},
                   "choices": {"0": "Kein Motor", "3": "Asynchronmotor", "7": "Linearmotor",
                               "10": "Synchronservomotor, Sinuskommutierung, mit Geber",
                               "12": "Schrittmotor", "65535": "Fremder Motor"},
                   "levels": {"read": 0, "write": 2}}]},
    {"number": 2, "coordinates": ["C01"], "name": "Zahl", "global": true,
     "elements": [{"dataType": "UINT16", "kind": 0, "default": 1,
                   "levels": {"read": 0, "write": 2}}]}
  ]
})";
}

void tst_DeskChoices::clickEntry(int row) const
{
    QAbstractItemView *view = desk().list()->view();
    const QPoint cell = view->visualRect(view->model()->index(row, 0)).center();
    QTest::mouseMove(view->viewport(), cell);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
}

void tst_DeskChoices::writeFromOutside(const char *native) const
{
    desk().window->navigation().parameterContainer()->writeValueNative(
        eLivingSpace::Global, place("C00").coordinate, 0, QString::fromLatin1(native));
}

void tst_DeskChoices::opens_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"double click", "Return", "F2"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_DeskChoices::opens()
{
    QFETCH(QString, way);
    desk().click(place("C00"));
    if (way == QLatin1String("double click"))
        desk().doubleClick(place("C00"));
    else
        desk().press(way == QLatin1String("F2") ? Qt::Key_F2 : Qt::Key_Return);
    QVERIFY(isOpen());
    QCOMPARE(selected(), QStringLiteral("10"));
    desk().press(Qt::Key_Return);
    QVERIFY(!desk().list());
    QCOMPARE(writes(), 0);
    QVERIFY(desk().table().hasFocus());
}

void tst_DeskChoices::typed_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QString>("selected");
    QTest::newRow("the first digit opens the list") << QByteArray("0") << "0";
    QTest::newRow("a number that another one begins with") << QByteArray("10") << "10";
    QTest::newRow("the first that begins so") << QByteArray("1") << "10";
    QTest::newRow("the second digit tells them apart") << QByteArray("12") << "12";
    QTest::newRow("all digits") << QByteArray("65535") << "65535";
    QTest::newRow("the text") << QByteArray("lin") << "7";
    QTest::newRow("a text with blanks") << QByteArray("kein m") << "0";
    QTest::newRow("a letter of several") << QByteArray("s") << "10";
    QTest::newRow("Backspace takes a digit back") << QByteArray("13\b") << "10";
    QTest::newRow("Backspace takes all back") << QByteArray("0\b") << "10";
}

void tst_DeskChoices::typed()
{
    QFETCH(QByteArray, keys);
    QFETCH(QString, selected);
    desk().click(place("C00"));
    for (const char key : keys) {
        if (key == '\b')
            desk().press(Qt::Key_Backspace);
        else
            desk().type(QByteArray(1, key).constData());
        QCOMPARE(writes(), 0);
        QVERIFY(isOpen());
    }
    QCOMPARE(this->selected(), selected);
    if (selected == QLatin1String("65535"))
        expectRefusal();
    desk().press(Qt::Key_Return);
    QCOMPARE(desk().native(place("C00")),
        selected == QLatin1String("65535") ? QStringLiteral("10") : selected);
}

void tst_DeskChoices::keysOnlyMoveTheSelection()
{
    desk().click(place("C00"));
    desk().press(Qt::Key_F2);
    desk().press(Qt::Key_Home);
    desk().press(Qt::Key_Down);
    desk().press(Qt::Key_Down);
    desk().press(Qt::Key_Down);
    desk().press(Qt::Key_Up);
    QCOMPARE(selected(), QStringLiteral("7"));
    QCOMPARE(desk().native(place("C00")), QStringLiteral("10"));
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("C00")));
    // A digit starts anew.
    desk().type("1");
    QCOMPARE(selected(), QStringLiteral("10"));
    desk().press(Qt::Key_Down);
    desk().press(Qt::Key_Return);
    QCOMPARE(desk().native(place("C00")), QStringLiteral("12"));
    QCOMPARE(writes(), 1);
}

void tst_DeskChoices::tabChoosesAndGoesOn()
{
    desk().click(place("C00"));
    desk().type("7");
    desk().press(Qt::Key_Tab);
    QCOMPARE(desk().native(place("C00")), QStringLiteral("7"));
    QVERIFY(desk().field());
    QVERIFY(desk().field()->hasFocus());
    desk().press(Qt::Key_Backtab);
    QVERIFY(isOpen());
    QCOMPARE(selected(), QStringLiteral("7"));
    desk().press(Qt::Key_Tab);
    QCOMPARE(writes(), 1);
}

void tst_DeskChoices::clickInTheList()
{
    desk().doubleClick(place("C00"));
    clickEntry(1);
    QCOMPARE(desk().native(place("C00")), QStringLiteral("3"));
    QCOMPARE(writes(), 1);
    QVERIFY(desk().table().hasFocus());
}

/// The list lies over the cell: the button that opened it goes up above an entry.
void tst_DeskChoices::releaseOfTheOpeningClick()
{
    desk().doubleClick(place("C00"));
    QAbstractItemView *view = desk().list()->view();
    const QPoint cell = view->visualRect(view->model()->index(1, 0)).center();
    QTest::mouseMove(view->viewport(), cell);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
    QVERIFY(isOpen());
    QCOMPARE(desk().native(place("C00")), QStringLiteral("10"));
}

void tst_DeskChoices::clickBesideTheList()
{
    desk().doubleClick(place("C00"));
    desk().press(Qt::Key_Down);
    QWidget *popup = QApplication::activePopupWidget();
    QVERIFY(popup);
    QTest::mouseClick(popup, Qt::LeftButton, Qt::NoModifier, QPoint(-5, -5));
    QVERIFY(!isOpen());
    desk().click(place("C01"));
    QVERIFY(!desk().list());
    QCOMPARE(writes(), 0);
}

void tst_DeskChoices::escape_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::newRow("at once") << QByteArray();
    QTest::newRow("after digits") << QByteArray("12");
    QTest::newRow("after letters that no entry has") << QByteArray("xyz");
}

void tst_DeskChoices::escape()
{
    QFETCH(QByteArray, keys);
    desk().click(place("C00"));
    desk().press(Qt::Key_F2);
    desk().type(keys.constData());
    desk().press(Qt::Key_Escape);
    QVERIFY(desk().table().hasFocus());
    QVERIFY(!desk().list());
    QCOMPARE(desk().native(place("C00")), QStringLiteral("10"));
    QCOMPARE(writes(), 0);
}

void tst_DeskChoices::wheelOnTheClosedList()
{
    desk().doubleClick(place("C00"));
    desk().press(Qt::Key_F4);
    QVERIFY(!isOpen());
    ChoiceEditor *list = desk().list();
    const auto turn = [list](int angle) {
        const QPointF at = list->rect().center();
        QWheelEvent event(at, list->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
            Qt::NoScrollPhase, false);
        QApplication::sendEvent(list, &event);
    };
    turn(120);
    turn(120);
    QCOMPARE(list->currentText(), QStringLiteral("3: Asynchronmotor"));
    turn(-120);
    QCOMPARE(list->currentText(), QStringLiteral("7: Linearmotor"));
    QCOMPARE(writes(), 0);
    for (int i = 0; i < 9; ++i)
        turn(120);
    QCOMPARE(list->currentText(), QStringLiteral("0: Kein Motor"));
    desk().press(Qt::Key_Return);
    QCOMPARE(desk().native(place("C00")), QStringLiteral("0"));
    QCOMPARE(writes(), 1);
}

void tst_DeskChoices::leftWithoutAChoice()
{
    desk().doubleClick(place("C00"));
    desk().press(Qt::Key_F4);
    desk().press(Qt::Key_Down);
    QVERIFY(isOpen());
    desk().press(Qt::Key_Down);
    desk().press(Qt::Key_F4);
    desk().window->selectors().searchField()->setFocus();
    QVERIFY(!desk().list());
    QCOMPARE(desk().native(place("C00")), QStringLiteral("10"));
    QCOMPARE(writes(), 0);
}

void tst_DeskChoices::refused()
{
    desk().click(place("C00"));
    desk().press(Qt::Key_Return);
    desk().press(Qt::Key_End);
    expectRefusal();
    desk().press(Qt::Key_Return);
    QVERIFY(desk().list());
    QVERIFY(!isOpen());
    QVERIFY(desk().list()->hasFocus());
    QCOMPARE(desk().list()->currentText(), QStringLiteral("65535: Fremder Motor"));
    QCOMPARE(desk().note()->text(), TooLarge);
    QVERIFY(desk().note()->isVisible());
    // The next key opens the list again.
    desk().press(Qt::Key_Up);
    QVERIFY(isOpen());
    QVERIFY(!desk().note()->isVisible());
    QCOMPARE(selected(), QStringLiteral("12"));
    desk().press(Qt::Key_Return);
    QCOMPARE(desk().native(place("C00")), QStringLiteral("12"));
}

void tst_DeskChoices::refusedAndGivenUp()
{
    desk().click(place("C00"));
    desk().press(Qt::Key_Return);
    desk().press(Qt::Key_End);
    expectRefusal();
    desk().press(Qt::Key_Return);
    desk().press(Qt::Key_Escape);
    QVERIFY(!desk().list());
    QVERIFY(!desk().note()->isVisible());
    QCOMPARE(desk().native(place("C00")), QStringLiteral("10"));
}

void tst_DeskChoices::noSuchEntry()
{
    desk().click(place("C00"));
    desk().type("13");
    QCOMPARE(selected(), QString());
    desk().press(Qt::Key_Return);
    desk().press(Qt::Key_Tab);
    QVERIFY(isOpen());
    desk().press(Qt::Key_Backspace);
    QCOMPARE(selected(), QStringLiteral("10"));
    desk().type("2");
    desk().press(Qt::Key_Return);
    QCOMPARE(desk().native(place("C00")), QStringLiteral("12"));
}

/// Who selected nothing sees what the device has; who did keeps it.
void tst_DeskChoices::deviceChangesMeanwhile()
{
    desk().click(place("C00"));
    desk().press(Qt::Key_Return);
    writeFromOutside("3");
    QCOMPARE(selected(), QStringLiteral("3"));
    desk().press(Qt::Key_Down);
    writeFromOutside("12");
    QCOMPARE(selected(), QStringLiteral("7"));
    desk().press(Qt::Key_Return);
    QCOMPARE(desk().native(place("C00")), QStringLiteral("7"));
    desk().press(Qt::Key_Return);
    writeFromOutside("3");
    desk().press(Qt::Key_Return);
    QCOMPARE(desk().native(place("C00")), QStringLiteral("3"));
    QCOMPARE(writes(), 1);
}

void tst_DeskChoices::listIsAsWideAsItsTexts()
{
    desk().table().setColumnWidth(ParameterTableModel::Value, 60);
    desk().doubleClick(place("C00"));
    const QAbstractItemView *view = desk().list()->view();
    QVERIFY(view->viewport()->width() >= view->sizeHintForColumn(0));
}

QTEST_MAIN(tst_DeskChoices)
#include "tst_DeskChoices.moc"
