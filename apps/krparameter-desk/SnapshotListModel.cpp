#include "apps/krparameter-desk/SnapshotListModel.h"

#include "apps/host/Progress.h"
#include "apps/host/ValuePlace.h"

#include <KrFilter/Filter.h>
#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterContainer.h>

#include <algorithm>

namespace {

/// Accepts everything and tells how many values it was asked for.
class CountingFilter final : public Filter {
public:
    CountingFilter(Progress &progress, qsizetype total)
        : m_progress(progress)
        , m_total(total)
    {
    }

    bool testElement(const FilterElement &) const override
    {
        m_isCancelled = m_isCancelled || !m_progress.advance(m_done++, m_total);
        return !m_isCancelled;
    }
    bool isCancelled() const { return m_isCancelled; }

private:
    Progress &m_progress;
    qsizetype m_total;
    mutable qsizetype m_done = 0;
    mutable bool m_isCancelled = false;
};

/// False where the progress ended it.
bool fill(ParameterValueSnapshot &snapshot, ParameterContainer &container, Progress *progress)
{
    if (!progress) {
        snapshot.applyNoFilter();
        return true;
    }
    const CountingFilter filter(*progress, ValuePlace::allOf(container).size());
    snapshot.apply(filter);
    return !filter.isCancelled();
}

} // namespace

SnapshotListModel::SnapshotListModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

SnapshotListModel::~SnapshotListModel() = default;

bool SnapshotListModel::take(ParameterContainer &container, const QString &name, Progress *progress)
{
    auto snapshot = std::make_unique<ParameterValueSnapshot>(&container);
    if (!fill(*snapshot, container, progress))
        return false;
    const int row = rowCount();
    beginInsertRows({}, row, row);
    const ServoDriveFirmware *firmware = container.firmware();
    m_entries.push_back(
        {name, firmware ? firmware->deviceFamilyName() : QString(), std::move(snapshot), true});
    endInsertRows();
    Q_EMIT checkedChanged();
    return true;
}

void SnapshotListModel::removeAt(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    // Who shows it lets it go before it is gone.
    const Entry removed = std::move(m_entries.at(size_t(row)));
    beginRemoveRows({}, row, row);
    m_entries.erase(m_entries.begin() + row);
    endRemoveRows();
    Q_EMIT checkedChanged();
}

void SnapshotListModel::clear()
{
    const std::vector<Entry> removed = std::move(m_entries);
    beginResetModel();
    m_entries.clear();
    endResetModel();
    Q_EMIT checkedChanged();
}

QString SnapshotListModel::suggestedName() const
{
    for (int number = rowCount() + 1;; ++number) {
        const QString name = tr("Snapshot %1").arg(number);
        if (!has(name))
            return name;
    }
}

QStringList SnapshotListModel::names() const
{
    QStringList result;
    for (const Entry &entry : m_entries)
        result.append(entry.name);
    return result;
}

QList<ParameterValueSnapshot *> SnapshotListModel::checkedSnapshots() const
{
    QList<ParameterValueSnapshot *> result;
    for (const Entry &entry : m_entries) {
        if (entry.isChecked)
            result.append(entry.snapshot.get());
    }
    return result;
}

QStringList SnapshotListModel::checkedNames() const
{
    QStringList result;
    for (const Entry &entry : m_entries) {
        if (entry.isChecked)
            result.append(entry.name);
    }
    return result;
}

QStringList SnapshotListModel::checkedDevices() const
{
    QStringList result;
    for (const Entry &entry : m_entries) {
        if (entry.isChecked && !entry.device.isEmpty() && !result.contains(entry.device))
            result.append(entry.device);
    }
    return result;
}

int SnapshotListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_entries.size());
}

QVariant SnapshotListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Entry &entry = m_entries.at(size_t(index.row()));
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return entry.name;
    case Qt::ToolTipRole:
        return entry.device.isEmpty() ? entry.name : tr("%1, von %2").arg(entry.name, entry.device);
    case Qt::CheckStateRole:
        return entry.isChecked ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool SnapshotListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.row() >= rowCount())
        return false;
    Entry &entry = m_entries.at(size_t(index.row()));
    const QString name = value.toString().trimmed();
    if (role == Qt::CheckStateRole)
        entry.isChecked = value.toInt() == Qt::Checked;
    else if (role == Qt::EditRole && !name.isEmpty())
        entry.name = name;
    else
        return false;
    Q_EMIT dataChanged(index, index);
    Q_EMIT checkedChanged();
    return true;
}

Qt::ItemFlags SnapshotListModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractListModel::flags(index);
    return index.isValid() ? flags | Qt::ItemIsUserCheckable | Qt::ItemIsEditable : flags;
}

bool SnapshotListModel::has(const QString &name) const
{
    return std::any_of(m_entries.begin(), m_entries.end(),
        [&name](const Entry &entry) { return entry.name == name; });
}
