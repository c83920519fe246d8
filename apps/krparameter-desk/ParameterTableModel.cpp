#include "apps/krparameter-desk/ParameterTableModel.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/MeasuredTexts.h"
#include "apps/krparameter-desk/RowTexts.h"
#include "apps/krparameter-desk/TableCells.h"
#include "apps/krparameter-desk/ValueWriter.h"

#include <utility>

ParameterTableModel::ParameterTableModel(QObject *parent)
    : QAbstractTableModel(parent)
    , m_search([this](qsizetype row) { return m_texts->searched(m_places.at(row)); })
{
    connect(&m_search, &SearchedTexts::foundAnew, this, &ParameterTableModel::updateFound);
    connect(&m_changes, &DeviceChanges::valueChanged, this, &ParameterTableModel::updateRow);
    connect(&m_changes, &DeviceChanges::visibilityChanged, this,
        &ParameterTableModel::onVisibilityChanged);
    connect(&m_changes, &DeviceChanges::allChanged, this, &ParameterTableModel::refresh);
    connect(&m_changes, &DeviceChanges::parametersChanged, this, &ParameterTableModel::reset);
}

ParameterTableModel::~ParameterTableModel() = default;

void ParameterTableModel::setDevice(DriveProject *project, ValueWriter *writer)
{
    m_changes.setDevice(nullptr);
    if (m_writer)
        m_writer->disconnect(this);
    beginResetModel();
    m_project = project;
    m_writer = writer;
    m_texts = project ? std::make_unique<RowTexts>(*project) : nullptr;
    rebuild();
    endResetModel();
    m_changes.setDevice(project);
    if (!m_writer)
        return;
    connect(m_writer, &ValueWriter::written, this, &ParameterTableModel::updateRow);
    connect(m_writer, &ValueWriter::connectingChanged, this, &ParameterTableModel::refresh);
}

void ParameterTableModel::rebuild()
{
    m_places = m_project ? ValuePlace::allOf(m_project->container()) : QList<ValuePlace>();
    m_rowsToShow.clear();
    m_rowOfPlace.clear();
    m_rowOfPlace.reserve(m_places.size());
    m_shown.setPlaces(m_places);
    for (int row = 0; row < m_places.size(); ++row) {
        m_rowOfPlace.insert(m_places.at(row), row);
        m_shown.setVisible(row, m_texts->isVisible(m_places.at(row)));
    }
    startSearch();
    m_shown.update();
}

void ParameterTableModel::reset()
{
    beginResetModel();
    rebuild();
    endResetModel();
}

void ParameterTableModel::setAxis(std::optional<eLivingSpace> axis)
{
    changeShown([&] { m_shown.setAxis(axis); });
}

void ParameterTableModel::setSearchedText(const QString &text)
{
    changeShown([&] {
        m_search.setPattern(text);
        m_shown.setFound(m_search.found());
    });
}

void ParameterTableModel::refresh()
{
    changeShown([this] {
        for (int row = 0; row < m_places.size(); ++row)
            m_shown.setVisible(row, m_texts->isVisible(m_places.at(row)));
        startSearch();
    });
    if (m_shown.count() > 0)
        Q_EMIT dataChanged(index(0, 0), index(m_shown.count() - 1, ColumnCount - 1));
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
}

void ParameterTableModel::settle()
{
    updateVisibility();
    if (!m_search.isAwaited())
        return;
    m_search.readAll();
    updateFound();
}

std::optional<ValuePlace> ParameterTableModel::placeAt(const QModelIndex &index) const
{
    if (!index.isValid() || index.row() >= m_shown.count())
        return {};
    return m_places.at(m_shown.rowAt(index.row()));
}

QModelIndex ParameterTableModel::indexOf(const ValuePlace &place, eColumn column) const
{
    const int row = m_rowOfPlace.value(place, ShownRows::NotShown);
    const int shownRow = row == ShownRows::NotShown ? row : m_shown.shownRowOf(row);
    return shownRow == ShownRows::NotShown ? QModelIndex() : index(shownRow, column);
}

QString ParameterTableModel::writeObstacle(const QModelIndex &index) const
{
    const std::optional<ValuePlace> place = placeAt(index);
    return place && m_writer ? m_writer->obstacle(*place) : QString();
}

QStringList ParameterTableModel::longestTexts(eColumn column) const
{
    return m_texts ? MeasuredTexts(*m_texts, m_places, m_shown).ofColumn(column) : QStringList();
}

QStringList ParameterTableModel::longestChoices() const
{
    return m_texts ? MeasuredTexts(*m_texts, m_places, m_shown).choices() : QStringList();
}

int ParameterTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_shown.count();
}

int ParameterTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ParameterTableModel::data(const QModelIndex &index, int role) const
{
    const std::optional<ValuePlace> place = placeAt(index);
    return place ? TableCells(*m_texts).data(*place, eColumn(index.column()), role) : QVariant();
}

QVariant ParameterTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && section >= 0 && section < ColumnCount
        ? TableCells::header(eColumn(section), role)
        : QVariant();
}

Qt::ItemFlags ParameterTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags result = QAbstractTableModel::flags(index);
    const std::optional<ValuePlace> place = placeAt(index);
    if (place && index.column() == Value && m_writer && m_writer->isWritable(*place))
        result |= Qt::ItemIsEditable;
    return result;
}

bool ParameterTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const std::optional<ValuePlace> place = placeAt(index);
    if (!place || !m_writer || role != Qt::EditRole || index.column() != Value)
        return false;
    const ValueWriter::Outcome outcome = m_writer->write(*place, value.toString());
    // The write may have moved the row.
    Q_EMIT writeAnswered(indexOf(*place), outcome.isAccepted, outcome.message);
    return outcome.isAccepted;
}

/// Rows keep their selection where they are still shown.
void ParameterTableModel::changeShown(const std::function<void()> &change)
{
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    QList<int> rows;
    rows.reserve(before.size());
    for (const QModelIndex &index : before)
        rows.append(m_shown.rowAt(index.row()));
    change();
    m_shown.update();
    QModelIndexList after;
    after.reserve(before.size());
    for (qsizetype i = 0; i < before.size(); ++i) {
        const int shownRow = m_shown.shownRowOf(rows.at(i));
        after.append(shownRow == ShownRows::NotShown ? QModelIndex()
                                                     : index(shownRow, before.at(i).column()));
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

void ParameterTableModel::onVisibilityChanged(const ValuePlace &place)
{
    const int row = m_rowOfPlace.value(place, ShownRows::NotShown);
    if (row == ShownRows::NotShown)
        return;
    if (m_rowsToShow.isEmpty())
        QMetaObject::invokeMethod(
            this, &ParameterTableModel::updateVisibility, Qt::QueuedConnection);
    m_rowsToShow.append(row);
}

void ParameterTableModel::startSearch()
{
    m_search.start(m_places.size());
    m_shown.setFound(m_search.found());
}

void ParameterTableModel::updateFound()
{
    changeShown([this] { m_shown.setFound(m_search.found()); });
}

/// All at once: one value may hide or show many.
void ParameterTableModel::updateVisibility()
{
    const QList<int> rows = std::exchange(m_rowsToShow, {});
    if (rows.isEmpty())
        return;
    changeShown([&] {
        for (const int row : rows)
            m_shown.setVisible(row, m_texts->isVisible(m_places.at(row)));
    });
}

/// A row that is shown stays, also where its value no longer holds the searched text: it would vanish
/// under the hands of who types. The next search leaves it out.
void ParameterTableModel::updateRow(const ValuePlace &place)
{
    const int row = m_rowOfPlace.value(place, ShownRows::NotShown);
    if (row == ShownRows::NotShown)
        return;
    m_search.reread(row);
    const QModelIndex first = indexOf(place, Address);
    if (first.isValid())
        Q_EMIT dataChanged(first, first.siblingAtColumn(ColumnCount - 1));
}
