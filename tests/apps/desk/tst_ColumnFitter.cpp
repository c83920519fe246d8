#include "apps/krparameter-desk/ColumnFitter.h"

#include "apps/krparameter-desk/LongestTexts.h"
#include "tests/apps/desk/DeskOnScreen.h"
#include "tests/support/TestSettings.h"

#include <QtGui/QHelpEvent>
#include <QtTest/QTest>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolTip>

class tst_ColumnFitter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<DeskOnScreen>(description()); }
    void cleanup() { m_desk.reset(); }

    void share_data();
    void share();
    void shareLeavesTheLeast_data();
    void shareLeavesTheLeast();
    void longestTexts();
    void longestTextsOfADevice();
    void nothingIsCutWhereThereIsRoom();
    void narrowWindow();
    void tooNarrowWindow();
    void narrowWindowBeginsWithTheAddress();
    void whatTheUserScrolledToStays();
    void wideWindowHasRoomForChoices();
    void searchMovesNoColumn();
    void widthsFollowTheLanguage();
    void widthOfTheUserStays();
    void widthsThatNobodySetAreNotKept();
    void cutCellsTellTheirText();

private:
    static QByteArray description();
    DeskOnScreen &desk() const { return *m_desk; }
    int width(ParameterTableModel::eColumn column) const
    {
        return desk().table().columnWidth(column);
    }
    /// Of the text alone, in the table's font.
    int advance(const QString &text) const
    {
        return desk().table().fontMetrics().horizontalAdvance(text);
    }
    void resize(int width) const;

    const TestSettings m_settings;
    std::unique_ptr<DeskOnScreen> m_desk;
};

namespace {

const QString LongName =
    QStringLiteral("Referenziergeschwindigkeiten bei der Suche des Nullpunkts");
const QString LongNameInEnglish = QStringLiteral("Homing speeds");
const QString StandingChoice = QStringLiteral("10: Synchronservomotor, Sinuskommutierung");
const QString LongChoice =
    QStringLiteral("21: Bürstenloser Motor mit Blockkommutierung und zwei Gebern");

} // namespace

/// C01 has more letters on level 5 than everything else.
QByteArray tst_ColumnFitter::description()
{
    return QStringLiteral(R"({
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 82, "name": "Fitting", "hasPhysicalAxes": true, "axes": [1, 2]},
  "languages": ["de", "en"],
  "dataTypes": ["UINT16"],
  "parameters": [
    {"number": 1, "coordinates": ["C00"], "name": {"de": "Motor", "en": "Motor"},
     "elements": [{"dataType": "UINT16", "kind": 1, "default": 10,
                   "choices": {"0": "Kein Motor", "10": "%1", "21": "%2"},
                   "levels": {"read": 0, "write": 2}}]},
    {"number": 2, "coordinates": ["C01"], "name": "%3%3", "global": true,
     "elements": [{"dataType": "UINT16", "kind": 0, "default": 1,
                   "levels": {"read": 5, "write": 5}}]},
    {"number": 3, "coordinates": ["C02"], "name": {"de": "%3", "en": "%4"},
     "elements": [{"dataType": "UINT16", "kind": 0, "default": 1,
                   "levels": {"read": 0, "write": 2}}]}
  ]
})")
        .arg(StandingChoice.mid(4), LongChoice.mid(4), LongName, LongNameInEnglish)
        .toUtf8();
}

void tst_ColumnFitter::resize(int width) const
{
    desk().window->resize(width, 600);
    QTRY_COMPARE(desk().window->width(), width);
    QCoreApplication::processEvents();
}

void tst_ColumnFitter::share_data()
{
    QTest::addColumn<int>("name");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("choice");
    QTest::addColumn<int>("room");
    QTest::addColumn<int>("nameWidth");
    QTest::addColumn<int>("valueWidth");
    QTest::newRow("room for both and all choices") << 300 << 200 << 250 << 900 << 300 << 250;
    QTest::newRow("room for a part of the choices") << 300 << 200 << 250 << 520 << 300 << 220;
    QTest::newRow("just room for both") << 300 << 200 << 250 << 500 << 300 << 200;
    QTest::newRow("the wider one gives way") << 300 << 200 << 250 << 499 << 299 << 200;
    QTest::newRow("a value gives way too") << 200 << 300 << 350 << 450 << 200 << 250;
    QTest::newRow("until both are equal") << 300 << 200 << 250 << 400 << 200 << 200;
    QTest::newRow("and equally from then on") << 300 << 200 << 250 << 300 << 150 << 150;
    QTest::newRow("choices shorter than what stands there") << 300 << 200 << 0 << 900 << 300 << 200;
    QTest::newRow("no room") << 300 << 200 << 250 << 0 << 0 << 0;
    QTest::newRow("less than none") << 300 << 200 << 250 << -50 << 0 << 0;
}

void tst_ColumnFitter::share()
{
    QFETCH(int, name);
    QFETCH(int, value);
    QFETCH(int, choice);
    QFETCH(int, room);
    const ColumnFitter::Widths widths = ColumnFitter::share({name, value, choice}, room);
    QTEST(widths.name, "nameWidth");
    QTEST(widths.value, "valueWidth");
}

void tst_ColumnFitter::shareLeavesTheLeast_data()
{
    QTest::addColumn<int>("name");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("room");
    QTest::addColumn<int>("nameWidth");
    QTest::addColumn<int>("valueWidth");
    QTest::newRow("none is in danger") << 300 << 200 << 320 << 160 << 160;
    QTest::newRow("the name has its least") << 300 << 200 << 270 << 140 << 130;
    QTest::newRow("just both") << 300 << 200 << 260 << 140 << 120;
    QTest::newRow("one less scrolls") << 300 << 200 << 259 << 140 << 120;
    QTest::newRow("no room scrolls") << 300 << 200 << 0 << 140 << 120;
    QTest::newRow("less than none scrolls") << 300 << 200 << -50 << 140 << 120;
    QTest::newRow("a short value gives the name its least") << 300 << 130 << 265 << 140 << 125;
    QTest::newRow("both need no more") << 140 << 120 << 0 << 140 << 120;
}

/// Of 140 for the name, 120 for the value.
void tst_ColumnFitter::shareLeavesTheLeast()
{
    QFETCH(int, name);
    QFETCH(int, value);
    QFETCH(int, room);
    const ColumnFitter::Widths widths = ColumnFitter::share({name, value, 0, 140, 120}, room);
    QTEST(widths.name, "nameWidth");
    QTEST(widths.value, "valueWidth");
}

void tst_ColumnFitter::longestTexts()
{
    LongestTexts longest;
    for (const char *text : {"aa", "", "dddd", "b", "dddd", "ccc", "1", "2", "3", "4", "5", "6666"})
        longest.add(QString::fromLatin1(text));
    QCOMPARE(longest.texts().join(u' '), QStringLiteral("dddd 6666 ccc aa b 1 2 3"));
}

void tst_ColumnFitter::longestTextsOfADevice()
{
    const ParameterTableModel &model = desk().model();
    QCOMPARE(model.longestTexts(ParameterTableModel::Address),
        (QStringList {QStringLiteral("1.C00"), QStringLiteral("1.C02")}));
    QCOMPARE(model.longestTexts(ParameterTableModel::Name),
        (QStringList {LongName, QStringLiteral("Motor")}));
    QCOMPARE(model.longestTexts(ParameterTableModel::Value), QStringList(StandingChoice));
    QCOMPARE(model.longestTexts(ParameterTableModel::Unit), QStringList());
    QCOMPARE(model.longestChoices(), QStringList(LongChoice));
    // What is searched changes nothing, what may be seen does.
    desk().model().setSearchedText(QStringLiteral("c00"));
    QCOMPARE(model.longestTexts(ParameterTableModel::Name).constFirst(), LongName);
    desk().window->setAccessLevel(5);
    QCOMPARE(model.longestTexts(ParameterTableModel::Name).constFirst(), LongName + LongName);
    QCOMPARE(ParameterTableModel().longestTexts(ParameterTableModel::Name), QStringList());
}

void tst_ColumnFitter::nothingIsCutWhereThereIsRoom()
{
    resize(1440);
    QVERIFY(width(ParameterTableModel::Name) > advance(LongName));
    QVERIFY(width(ParameterTableModel::Value) > advance(StandingChoice));
    QVERIFY(!desk().table().horizontalScrollBar()->isVisible());
}

/// Both columns give way, and no column leaves the window.
void tst_ColumnFitter::narrowWindow()
{
    resize(1100);
    QVERIFY(qAbs(width(ParameterTableModel::Name) - width(ParameterTableModel::Value)) <= 1);
    QVERIFY(width(ParameterTableModel::Name) > 100);
    QVERIFY(!desk().table().horizontalScrollBar()->isVisible());
    QVERIFY(width(ParameterTableModel::ChangeTag) > advance(QStringLiteral("Änderungsmarke")));
}

/// The table scrolls, and names stay to be told from one another.
void tst_ColumnFitter::tooNarrowWindow()
{
    resize(700);
    const int letter = advance(QStringLiteral("x"));
    QVERIFY(desk().table().horizontalScrollBar()->isVisible());
    QCOMPARE(width(ParameterTableModel::Name), 20 * letter);
    QCOMPARE(width(ParameterTableModel::Value), 18 * letter);
    desk().table().horizontalScrollBar()->setValue(desk().table().horizontalScrollBar()->maximum());
    desk().table().goTo(desk().model().indexOf(place("C02", 1)));
    const QRect value = desk().table().visualRect(desk().model().indexOf(place("C02", 1)));
    QVERIFY(desk().table().viewport()->rect().contains(value));
}

/// The first value was scrolled to while the table had no size yet.
void tst_ColumnFitter::narrowWindowBeginsWithTheAddress()
{
    desk().window = std::make_unique<DeskWindow>(desk().dialogs);
    QVERIFY(desk().window->session().open(desk().device.fileName()));
    desk().window->resize(700, 600);
    desk().window->show();
    QVERIFY(desk().table().horizontalScrollBar()->maximum() > 0);
    QCOMPARE(desk().table().horizontalScrollBar()->value(), 0);
    // Where the value does not fit it is in view.
    desk().window->resize(480, 600);
    QCoreApplication::processEvents();
    desk().table().goTo(desk().model().indexOf(place("C02", 1)));
    desk().window->resize(490, 600);
    QCoreApplication::processEvents();
    const QRect value = desk().table().visualRect(desk().model().indexOf(place("C02", 1)));
    QVERIFY(value.right() <= desk().table().viewport()->rect().right());
}

/// Whatever becomes of the height, and of the scroll bar beside the rows.
void tst_ColumnFitter::whatTheUserScrolledToStays()
{
    resize(700);
    QScrollBar *bar = desk().table().horizontalScrollBar();
    bar->setValue(bar->maximum());
    const int value = bar->value();
    QVERIFY(value > 0);
    desk().window->resize(desk().window->width(), desk().window->height() - 100);
    QCoreApplication::processEvents();
    QCOMPARE(bar->value(), value);
    desk().window->resize(desk().window->width(), desk().window->height() + 400);
    QCoreApplication::processEvents();
    QCOMPARE(bar->value(), std::min(value, bar->maximum()));
}

void tst_ColumnFitter::wideWindowHasRoomForChoices()
{
    resize(1900);
    QFont bold = desk().table().font();
    bold.setBold(true);
    QVERIFY(width(ParameterTableModel::Value) > QFontMetrics(bold).horizontalAdvance(LongChoice));
    QVERIFY(width(ParameterTableModel::Name) > advance(LongName));
}

void tst_ColumnFitter::searchMovesNoColumn()
{
    const int before = width(ParameterTableModel::Name);
    desk().press(DeskActions::Search);
    desk().type("c00");
    QCoreApplication::processEvents();
    QCOMPARE(width(ParameterTableModel::Name), before);
}

void tst_ColumnFitter::widthsFollowTheLanguage()
{
    resize(1440);
    const int german = width(ParameterTableModel::Name);
    desk().window->language().choose(QStringLiteral("en"));
    QVERIFY(width(ParameterTableModel::Name) < german);
    QVERIFY(width(ParameterTableModel::Name) > advance(LongNameInEnglish));
    desk().window->language().choose(QStringLiteral("de"));
    QCOMPARE(width(ParameterTableModel::Name), german);
}

/// By dragging the border of a title, then in the next run.
void tst_ColumnFitter::widthOfTheUserStays()
{
    QHeaderView *header = desk().table().horizontalHeader();
    const int border = header->sectionViewportPosition(ParameterTableModel::Value) - 2;
    const int before = width(ParameterTableModel::Name);
    const QPoint start(border, header->height() / 2);
    QTest::mousePress(header->viewport(), Qt::LeftButton, Qt::NoModifier, start);
    QMouseEvent move(QEvent::MouseMove, start - QPoint(60, 0), header->mapToGlobal(start),
        Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(header->viewport(), &move);
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, Qt::NoModifier, start - QPoint(60, 0));
    QCOMPARE(width(ParameterTableModel::Name), before - 60);
    desk().window->resize(1500, 600);
    desk().window->language().choose(QStringLiteral("en"));
    QVERIFY(desk().window->session().open(desk().device.fileName()));
    QCOMPARE(width(ParameterTableModel::Name), before - 60);
    desk().window->saveState();
    desk().open();
    desk().window->restoreState();
    QCOMPARE(width(ParameterTableModel::Name), before - 60);
    QVERIFY(desk().window->session().open(desk().device.fileName()));
    QCOMPARE(width(ParameterTableModel::Name), before - 60);
}

void tst_ColumnFitter::widthsThatNobodySetAreNotKept()
{
    resize(1100);
    const int narrow = width(ParameterTableModel::Name);
    desk().window->saveState();
    desk().open();
    desk().window->restoreState();
    QCoreApplication::processEvents();
    resize(1440);
    QVERIFY(width(ParameterTableModel::Name) > narrow);
}

void tst_ColumnFitter::cutCellsTellTheirText()
{
    resize(1000);
    const auto tip = [this](ParameterTableModel::eColumn column) {
        const QModelIndex index = desk().model().indexOf(place("C00", 2), column);
        const QPoint cell = desk().table().visualRect(index).center();
        QHelpEvent event(QEvent::ToolTip, cell, desk().table().viewport()->mapToGlobal(cell));
        QApplication::sendEvent(desk().table().viewport(), &event);
        return QToolTip::text();
    };
    QVERIFY(width(ParameterTableModel::Default) < advance(StandingChoice));
    QCOMPARE(tip(ParameterTableModel::Value), StandingChoice);
    QCOMPARE(tip(ParameterTableModel::Name), QStringLiteral("Motor"));
    QCOMPARE(tip(ParameterTableModel::Default), StandingChoice);
}

QTEST_MAIN(tst_ColumnFitter)
#include "tst_ColumnFitter.moc"
