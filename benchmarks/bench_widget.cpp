// What people see, beside the bare work with Qt types: filling the comparison, its HTML, live search,
// and opening a device until its first rows stand there.

#include "BenchmarkDevice.h"
#include "Measurement.h"
#include "apps/host/DriveHostInformation.h"
#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/ParameterTableModel.h"
#include "apps/krparameter-desk/ParameterTableView.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrParameterInstance/ParameterValueSnapshotWidget.h>
#include <KrSystem/System.h>

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QTreeWidget>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <map>
#include <numeric>
#include <utility>
#include <vector>

namespace {

constexpr int Rounds = 9;
constexpr int WidgetRows = 16000;
constexpr int ReportRows = 160;
constexpr int SearchRows = 20000;
constexpr int OpenedParameters = 4000;
constexpr QSize TableSize(1000, 600);

/// Typed one letter after the other; the last one finds a handful of rows.
const QString Keys[] = {QStringLiteral("c"), QStringLiteral("cu"), QStringLiteral("cur"),
    QStringLiteral("curr"), QStringLiteral("curre"), QStringLiteral("current 49")};

/// Processor time of this thread: the ratios hold on a busy machine too.
double now()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// What is held of a container at two times.
class Changes {
public:
    virtual ~Changes() = default;

    ParameterContainer container;
    ParameterValueSnapshot before {&container};
    ParameterValueSnapshot after {&container};

protected:
    void prepare(ServoDriveFirmware *firmware)
    {
        container.setHostInformation(&m_host);
        container.setFirmware(firmware);
    }

private:
    DriveHostInformation m_host {{1, 2, 3, 4}, 77};
};

/// Every value of a device changed.
class ManyChanges final : public Changes {
public:
    explicit ManyChanges(int rows)
        : m_device(rows / BenchmarkDevice::AxisCount)
    {
        prepare(m_device.firmware());
        m_device.fill(container);
        before.applyNoFilter();
        for (const ParameterCoordinate &coordinate : m_device.coordinates()) {
            for (int axis = 1; axis <= BenchmarkDevice::AxisCount; ++axis)
                container.writeValueNative(
                    eLivingSpace(axis), coordinate, 0, QStringLiteral("1300"));
        }
        after.applyNoFilter();
    }

private:
    BenchmarkDevice m_device;
};

/// Every value of a device changed that has one axis: each parameter has one row.
class OneRowChanges final : public Changes {
public:
    explicit OneRowChanges(int rows)
        : m_device(rows)
    {
        prepare(m_device.firmware());
        for (int i = 0; i < rows; ++i)
            container.createOrUpdateParameter(m_device.definitions().at(i),
                m_device.locatorTexts().at(qsizetype(i) * BenchmarkDevice::AxisCount));
        before.applyNoFilter();
        for (const ParameterCoordinate &coordinate : m_device.coordinates())
            container.writeValueNative(eLivingSpace::Axis1, coordinate, 0, QStringLiteral("1300"));
        after.applyNoFilter();
    }

private:
    BenchmarkDevice m_device;
};

/// Every second element of one record changed; the rows of the others are hidden.
class RecordChanges final : public Changes {
public:
    explicit RecordChanges(int rows)
        : m_record(rows)
    {
        prepare(m_record.firmware());
        m_record.fill(container);
        before.applyNoFilter();
        for (int element = 0; element < rows; element += 2)
            container.writeValueNative(eLivingSpace::Axis1, m_record.coordinate(), quint16(element),
                QStringLiteral("1300"));
        after.applyNoFilter();
    }

private:
    BenchmarkRecord m_record;
};

/// The same for every measurement; names come from the container where it is connected.
enum class eNames { Frozen, Connected };

template <typename Kind>
Changes &changesOf(int rows, eNames names)
{
    static std::map<std::pair<int, eNames>, std::unique_ptr<Kind>> all;
    auto &entry = all[{rows, names}];
    if (!entry) {
        entry = std::make_unique<Kind>(rows);
        if (names == eNames::Frozen) {
            entry->before.disconnectFromSourceContainer();
            entry->after.disconnectFromSourceContainer();
        }
    }
    return *entry;
}

void fill(ParameterValueSnapshotWidget &widget, Changes &changes)
{
    widget.appendSnapshot(&changes.before, QStringLiteral("Before"));
    widget.appendSnapshot(&changes.after, QStringLiteral("After"));
    widget.update();
}

/// A row as the widget shows it.
struct ShownRow {
    QStringList texts;
    bool isHidden = false;
    QList<ShownRow> children;
};

ShownRow shownRow(const QTreeWidgetItem &item)
{
    ShownRow row {{item.text(0), item.text(1), item.text(2)}, item.isHidden(), {}};
    for (int i = 0; i < item.childCount(); ++i)
        row.children.append(shownRow(*item.child(i)));
    return row;
}

QList<ShownRow> shownRows(Changes &changes)
{
    ParameterValueSnapshotWidget widget(nullptr);
    fill(widget, changes);
    const auto *tree = widget.findChild<QTreeWidget *>();
    QList<ShownRow> result;
    for (int row = 0; row < tree->topLevelItemCount(); ++row)
        result.append(shownRow(*tree->topLevelItem(row)));
    return result;
}

QList<QTreeWidgetItem *> itemsOf(const QList<ShownRow> &rows)
{
    QList<QTreeWidgetItem *> items;
    items.reserve(rows.size());
    for (const ShownRow &row : rows) {
        items.append(new QTreeWidgetItem(row.texts));
        if (!row.children.isEmpty())
            items.last()->addChildren(itemsOf(row.children));
    }
    return items;
}

void hide(QTreeWidget &tree, const QList<ShownRow> &rows, const QModelIndex &parent = {})
{
    for (int i = 0; i < rows.size(); ++i) {
        if (rows.at(i).isHidden)
            tree.setRowHidden(i, parent, true);
        if (!rows.at(i).children.isEmpty())
            hide(tree, rows.at(i).children, tree.model()->index(i, 0, parent));
    }
}

/// Items made detached and inserted at once in their order, then the hidden rows and the columns.
void updateLimit(benchmark::State &state, int size, Changes &changes)
{
    const QList<ShownRow> rows = shownRows(changes);
    QTreeWidget tree;
    tree.setColumnCount(3);
    measure(
        state, size, [] {},
        [&] {
            tree.clear();
            tree.addTopLevelItems(itemsOf(rows));
            hide(tree, rows);
            for (int column = 0; column < tree.columnCount(); ++column)
                tree.resizeColumnToContents(column);
        });
    check(state, tree.topLevelItemCount() == rows.size());
}

const QTreeWidgetItem *firstValue(const QTreeWidget &tree)
{
    const QTreeWidgetItem *first = tree.topLevelItem(0);
    return first->childCount() > 0 ? first->child(0) : first;
}

void updateWidget(benchmark::State &state, int size, Changes &changes)
{
    ParameterValueSnapshotWidget widget(nullptr);
    fill(widget, changes);
    measure(
        state, size, [] {}, [&] { widget.update(); });
    const auto *tree = widget.findChild<QTreeWidget *>();
    const int count = tree->topLevelItemCount();
    check(state,
        (count == size || tree->topLevelItem(0)->childCount() == size)
            && firstValue(*tree)->text(2) == QLatin1String("13.00 A"));
}

void addUpdate(
    const std::string &operation, int size, Changes &(*changes)(int, eNames), eNames names)
{
    add(operation + "/limit", size,
        [=](benchmark::State &state) { updateLimit(state, size, changes(size, names)); });
    add(operation + "/library", size,
        [=](benchmark::State &state) { updateWidget(state, size, changes(size, names)); });
}

/// The pieces of the document one after the other, none of them looked at.
void htmlLimit(benchmark::State &state)
{
    const QList<ShownRow> rows = shownRows(changesOf<ManyChanges>(ReportRows, eNames::Frozen));
    QString html;
    measure(
        state, ReportRows, [&] { html = QString(); },
        [&] {
            html.reserve(rows.size() * 160);
            for (const ShownRow &row : rows) {
                html.append(QLatin1StringView("<tr>"));
                for (const QString &cell : row.texts) {
                    html.append(QLatin1StringView("<td>"))
                        .append(cell)
                        .append(QLatin1StringView("</td>\n"));
                }
                html.append(QLatin1StringView("</tr>"));
            }
        });
    check(state, html.count(QLatin1String("<tr>")) == ReportRows);
}

void htmlReport(benchmark::State &state)
{
    ParameterValueSnapshotWidget widget(nullptr);
    fill(widget, changesOf<ManyChanges>(ReportRows, eNames::Frozen));
    QString html;
    measure(
        state, ReportRows, [&] { html = QString(); }, [&] { html = widget.report(); });
    check(state, html.count(QLatin1String("<tr>")) == ReportRows);
}

QString descriptionFile(int parameters)
{
    static const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("%1.json").arg(parameters));
    QFile file(name);
    if (!file.exists() && file.open(QIODevice::WriteOnly))
        file.write(BenchmarkDevice::description(parameters));
    return name;
}

std::unique_ptr<DriveProject> openProject(int parameters)
{
    QString error;
    return DriveProject::open(descriptionFile(parameters), error);
}

/// The table as on the desk.
struct Table {
    explicit Table(DriveProject *project)
        : view(model, nullptr)
    {
        view.resize(TableSize);
        view.show();
        model.setDevice(project, nullptr);
    }

    ~Table() { model.setDevice(nullptr, nullptr); }

    ParameterTableModel model;
    ParameterTableView view;
};

QList<QString> searchedTexts(const ParameterTableModel &model)
{
    QList<QString> texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList columns;
        for (const auto column : {ParameterTableModel::Address, ParameterTableModel::Name,
                 ParameterTableModel::Unit, ParameterTableModel::Value})
            columns.append(model.index(row, column).data().toString());
        texts.append(columns.join(QLatin1Char('\n')).toCaseFolded());
    }
    return texts;
}

/// One key an item, the rows found counted.
void searchLimit(benchmark::State &state)
{
    const auto project = openProject(SearchRows / BenchmarkDevice::AxisCount);
    const Table table(project.get());
    const QList<QString> texts = searchedTexts(table.model);
    qsizetype found = 0;
    measure(
        state, std::size(Keys), [&] { found = 0; },
        [&] {
            for (const QString &key : Keys) {
                for (const QString &text : texts)
                    found += text.contains(key) ? 1 : 0;
            }
        });
    check(state, found > 5 * SearchRows);
}

/// The rows found stand in the table; `show` is what else is done at each key.
void search(benchmark::State &state, const std::function<void()> &show)
{
    const auto project = openProject(SearchRows / BenchmarkDevice::AxisCount);
    Table table(project.get());
    table.model.setSearchedText(QStringLiteral("x"));
    table.model.settle();
    QApplication::processEvents();
    int shown = 0;
    measure(
        state, std::size(Keys), [&] { table.model.setSearchedText({}); },
        [&] {
            for (const QString &key : Keys) {
                table.model.setSearchedText(key);
                show();
            }
            shown = table.model.rowCount();
        });
    check(state, shown > 0 && shown < SearchRows / 10);
}

/// Milliseconds of each key, the median of as many rounds: the first one on a table that was opened
/// just before, which has read none of its texts, and on one that was idle since.
void printKeys()
{
    constexpr double AimedMilliseconds = 5.0;
    const auto project = openProject(SearchRows / BenchmarkDevice::AxisCount);
    Table table(project.get());
    const auto milliseconds = [&](bool isIdle, const QString &key) {
        std::vector<double> times;
        for (int round = 0; round < Rounds; ++round) {
            table.model.setSearchedText(key.chopped(1));
            if (key.size() == 1)
                table.model.refresh();
            for (int event = 0; isIdle && event < SearchRows / 100; ++event)
                QApplication::processEvents();
            const double start = now();
            table.model.setSearchedText(key);
            times.push_back((now() - start) * 1000);
        }
        std::nth_element(times.begin(), times.begin() + Rounds / 2, times.end());
        return times[Rounds / 2];
    };
    const auto print = [](const QString &what, double time) {
        std::printf("search of %d rows, %s: %.1f ms (aim %.0f)%s\n", SearchRows, qPrintable(what),
            time, AimedMilliseconds, time > AimedMilliseconds ? "  over" : "");
    };
    print(QStringLiteral("first key at once"), milliseconds(false, Keys[0]));
    print(QStringLiteral("first key"), milliseconds(true, Keys[0]));
    for (size_t i = 1; i < std::size(Keys); ++i)
        print(QStringLiteral("\"%1\"").arg(Keys[i]), milliseconds(true, Keys[i]));
}

void searchTable(benchmark::State &state)
{
    search(state, [] {});
}

/// The toolkit's painting of a page of rows included.
void searchAndPaint(benchmark::State &state)
{
    search(state, [] { QApplication::processEvents(); });
}

void openLimit(benchmark::State &state)
{
    const QString fileName = descriptionFile(OpenedParameters);
    bool isRead = true;
    measure(
        state, OpenedParameters, [] {},
        [&] {
            QFile file(fileName);
            isRead = file.open(QIODevice::ReadOnly)
                && QJsonDocument::fromJson(file.readAll()).isObject() && isRead;
        });
    check(state, isRead);
}

void openDevice(benchmark::State &state)
{
    descriptionFile(OpenedParameters);
    std::unique_ptr<DriveProject> project;
    std::unique_ptr<Table> table;
    QPixmap picture;
    measure(
        state, OpenedParameters,
        [&] {
            table.reset();
            project.reset();
        },
        [&] {
            project = openProject(OpenedParameters);
            table = std::make_unique<Table>(project.get());
            picture = table->view.grab();
        });
    check(state,
        table->model.rowCount() == OpenedParameters * BenchmarkDevice::AxisCount
            && picture.size() == TableSize);
    table.reset();
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QApplication application(argc, argv);
    System::information()->setUserAccessLevel(6);
    printKeys();
    for (const int size : {WidgetRows / 4, WidgetRows})
        addUpdate("widget-update", size, changesOf<ManyChanges>, eNames::Frozen);
    addUpdate("widget-connected", WidgetRows, changesOf<ManyChanges>, eNames::Connected);
    addUpdate("widget-one-row", WidgetRows, changesOf<OneRowChanges>, eNames::Connected);
    addUpdate("widget-one-row-frozen", WidgetRows, changesOf<OneRowChanges>, eNames::Frozen);
    addUpdate("widget-record", WidgetRows, changesOf<RecordChanges>, eNames::Connected);
    add("widget-html/limit", ReportRows, htmlLimit);
    add("widget-html/library", ReportRows, htmlReport);
    add("search-key/limit", SearchRows, searchLimit);
    add("search-key/desk", SearchRows, searchTable);
    add("search-key-painted/limit", SearchRows, searchLimit);
    add("search-key-painted/desk", SearchRows, searchAndPaint);
    add("open-device/limit", OpenedParameters, openLimit);
    add("open-device/desk", OpenedParameters, openDevice);
    return runPairs(argc, argv, 0,
        {{"widget-update", 1.3}, {"widget-connected", 1.3}, {"widget-one-row", 1.3},
            {"widget-one-row-frozen", 1.3}, {"widget-record", 1.3}, {"widget-html", 2.5}});
}
