#include "apps/krparameter-desk/ParameterTableModel.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/LongestTexts.h"
#include "apps/krparameter-desk/RowTexts.h"
#include "apps/krparameter-desk/TableCells.h"
#include "apps/krparameter-desk/ValueWriter.h"

#include <KrParameterInstance/ParameterInformation.h>

#include <algorithm>
#include <utility>

namespace {

/// Of which the search reads the texts at a time: about 2 ms.
constexpr qsizetype RowsOfAPiece = 1500;

} // namespace

ParameterTableModel::ParameterTableModel(QObject *parent)
    : QAbstractTableModel(parent)
{
    connect(&m_idle, &QTimer::timeout, this, &ParameterTableModel::prepareSearch);
}

ParameterTableModel::~ParameterTableModel() = default;

void ParameterTableModel::setDevice(DriveProject *project, ValueWriter *writer)
{
    if (m_project) {
        m_project->container().disconnect(this);
        for (const ParameterCoordinate &coordinate : m_project->container().parameterList()) {
            if (const auto parameter = m_project->container().parameterInformation(coordinate))
                parameter->disconnect(this);
        }
    }
    if (m_writer)
        m_writer->disconnect(this);
    beginResetModel();
    m_project = project;
    m_writer = writer;
    m_texts = project ? std::make_unique<RowTexts>(*project) : nullptr;
    rebuild();
    endResetModel();
    listen();
}

void ParameterTableModel::listen()
{
    if (!m_project)
        return;
    const ParameterContainer *container = &m_project->container();
    connect(container, &ParameterContainer::parameterValueChanged, this,
        &ParameterTableModel::onValueChanged);
    connect(container, &ParameterContainer::parameterNativeValueChanged, this,
        &ParameterTableModel::onValueChanged);
    connect(container, &ParameterContainer::parameterDefaultValueChanged, this,
        &ParameterTableModel::onValueChanged);
    connect(container, &ParameterContainer::parameterMeasuringUnitChanged, this,
        &ParameterTableModel::onValueChanged);
    connect(container, &ParameterContainer::parameterVisibilityChanged, this,
        &ParameterTableModel::onVisibilityChanged);
    connect(container, &ParameterContainer::accessLevelUpdateFinished, this,
        &ParameterTableModel::onLevelChanged);
    connect(container, &ParameterContainer::onlineChanged, this, &ParameterTableModel::refresh);
    connect(container, &ParameterContainer::readOnlyChanged, this, &ParameterTableModel::refresh);
    connect(container, &ParameterContainer::accessLevelUpdateStarted, this,
        [this] { m_isLevelChanging = true; });
    connect(
        container, &ParameterContainer::parameterAdded, this, &ParameterTableModel::rebuildSoon);
    connect(
        container, &ParameterContainer::parameterRemoved, this, &ParameterTableModel::rebuildSoon);
    connect(container, &ParameterContainer::parameterDefinitionChanged, this,
        &ParameterTableModel::rebuildSoon);
    if (m_writer) {
        connect(m_writer, &ValueWriter::written, this, &ParameterTableModel::updateRow);
        connect(m_writer, &ValueWriter::connectingChanged, this, &ParameterTableModel::refresh);
    }
    listenToParameters();
}

/// What no container tells. Those that are heard already stay so.
void ParameterTableModel::listenToParameters()
{
    if (!m_project)
        return;
    ParameterContainer &container = m_project->container();
    for (const ParameterCoordinate &coordinate : container.parameterList()) {
        const ParameterInformation *parameter = container.parameterInformation(coordinate);
        connect(parameter, &ParameterInformation::limitsChanged, this,
            &ParameterTableModel::onValueChanged, Qt::UniqueConnection);
        connect(parameter, &ParameterInformation::writabilityChanged, this,
            &ParameterTableModel::onValueChanged, Qt::UniqueConnection);
    }
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

void ParameterTableModel::rebuildSoon()
{
    if (m_isRebuildPending)
        return;
    m_isRebuildPending = true;
    const auto reset = [this] {
        m_isRebuildPending = false;
        beginResetModel();
        rebuild();
        endResetModel();
        listenToParameters();
    };
    QMetaObject::invokeMethod(this, reset, Qt::QueuedConnection);
}

void ParameterTableModel::setAxis(std::optional<eLivingSpace> axis)
{
    changeShown([&] { m_shown.setAxis(axis); });
}

void ParameterTableModel::setSearchedText(const QString &text)
{
    changeShown([&] {
        m_searchedText = text;
        if (!text.isEmpty())
            readPiece();
        findRows();
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
    if (m_searchedText.isEmpty() || m_search.size() == m_places.size())
        return;
    changeShown([this] {
        readTexts(m_places.size());
        findRows();
    });
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
    switch (column) {
    case Address:
        return longest([this](const ValuePlace &place) { return m_texts->address(place); });
    case Name:
        return longest([this](const ValuePlace &place) { return m_texts->name(place); });
    case Value:
        return longest([this](const ValuePlace &place) {
            return m_texts->isNumber(place) ? QString() : m_texts->value(place);
        });
    default:
        return {};
    }
}

QStringList ParameterTableModel::longestChoices() const
{
    return longest([this](const ValuePlace &place) {
        return m_texts->isNumber(place) ? QString() : m_texts->longestChoice(place);
    });
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

/// What may be written and what is masked follow the level too, and so does what is found.
void ParameterTableModel::onLevelChanged()
{
    m_isLevelChanging = false;
    refresh();
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

/// Forgets what was read. What is searched now is searched anew in full: rows that are not shown must not
/// come up for a moment.
void ParameterTableModel::startSearch()
{
    m_search.clear();
    m_search.reserve(m_places.size());
    m_idle.start();
    if (!m_searchedText.isEmpty())
        readTexts(m_places.size());
    findRows();
}

/// While nothing else is to be done, so that no key waits for all texts.
void ParameterTableModel::prepareSearch()
{
    const bool isWaitedFor = !m_searchedText.isEmpty() && m_search.size() < m_places.size();
    readPiece();
    if (isWaitedFor)
        changeShown([this] { findRows(); });
}

void ParameterTableModel::readPiece()
{
    readTexts(std::min(m_search.size() + RowsOfAPiece, m_places.size()));
}

void ParameterTableModel::readTexts(qsizetype end)
{
    for (qsizetype row = m_search.size(); row < end; ++row)
        m_search.append(m_texts->searched(m_places.at(row)));
    if (m_search.size() == m_places.size())
        m_idle.stop();
}

/// A row that is not read yet counts as found: one that is selected stays so.
void ParameterTableModel::findRows()
{
    if (m_searchedText.isEmpty()) {
        m_shown.setFound({});
        return;
    }
    QList<bool> found = m_search.find(m_searchedText);
    found.append(QList<bool>(m_places.size() - found.size(), true));
    m_shown.setFound(found);
}

QStringList ParameterTableModel::longest(
    const std::function<QString(const ValuePlace &)> &textOf) const
{
    LongestTexts longest;
    const ValuePlace *first = nullptr;
    for (int row = 0; row < m_places.size(); ++row) {
        const ValuePlace &place = m_places.at(row);
        if (!m_shown.isVisible(row))
            continue;
        if (!first || first->coordinate != place.coordinate)
            first = &place;
        if (first->livingSpace == place.livingSpace)
            longest.add(textOf(place));
    }
    return longest.texts();
}

void ParameterTableModel::onValueChanged(const ParameterAddress &address)
{
    if (const auto parameter = m_project->container().parameterInformation(address.coordinate()))
        updateRow(ValuePlace::of(address, *parameter));
}

void ParameterTableModel::onVisibilityChanged(const ParameterAddress &address)
{
    if (m_isLevelChanging)
        return;
    const auto parameter = m_project->container().parameterInformation(address.coordinate());
    const int row = parameter
        ? m_rowOfPlace.value(ValuePlace::of(address, *parameter), ShownRows::NotShown)
        : ShownRows::NotShown;
    if (row == ShownRows::NotShown)
        return;
    if (m_rowsToShow.isEmpty())
        QMetaObject::invokeMethod(
            this, &ParameterTableModel::updateVisibility, Qt::QueuedConnection);
    m_rowsToShow.append(row);
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
    if (row < m_search.size())
        m_search.replace(row, m_texts->searched(place));
    const QModelIndex first = indexOf(place, Address);
    if (first.isValid())
        Q_EMIT dataChanged(first, first.siblingAtColumn(ColumnCount - 1));
}
