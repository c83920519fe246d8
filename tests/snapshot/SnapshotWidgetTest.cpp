#include "tests/snapshot/SnapshotWidgetTest.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrSystem/System.h>

#include <QtTest/QTest>

namespace {

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

SnapshotWidgetTest::SnapshotWidgetTest() = default;

SnapshotWidgetTest::~SnapshotWidgetTest() = default;

void SnapshotWidgetTest::setUp()
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

void SnapshotWidgetTest::tearDown()
{
    System::instance()->setMainWindow(nullptr);
    m_widget.reset();
    m_snapshots.clear();
    m_fixture.reset();
}

QList<QPushButton *> SnapshotWidgetTest::buttons() const
{
    return m_widget->findChildren<QPushButton *>();
}

QStringList SnapshotWidgetTest::visibleRows() const
{
    QStringList texts;
    for (int i = 0; i < tree()->topLevelItemCount(); ++i)
        appendVisible(texts, *tree(), *tree()->topLevelItem(i), 0);
    return texts;
}

ParameterValueSnapshot *SnapshotWidgetTest::take()
{
    m_snapshots.push_back(std::make_unique<ParameterValueSnapshot>(m_fixture->container.get()));
    m_snapshots.back()->applyNoFilter();
    return m_snapshots.back().get();
}

void SnapshotWidgetTest::answerDialog(const QString &fileName)
{
    priv()->chooseSaveFile = [this, fileName](QWidget *parent, const QString &caption,
                                 const QString &directory, const QString &filter) {
        m_dialogParent = parent;
        m_dialogs = {caption, directory, filter};
        return fileName;
    };
}

void SnapshotWidgetTest::click(int button)
{
    m_widget->show();
    QTest::mouseClick(buttons().at(button), Qt::LeftButton);
}
