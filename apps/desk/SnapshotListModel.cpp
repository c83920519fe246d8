#include "apps/desk/SnapshotListModel.h"

#include <algorithm>

SnapshotListModel::SnapshotListModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

SnapshotListModel::~SnapshotListModel() = default;

void SnapshotListModel::take(ParameterContainer &container, const QString &name)
{
    auto snapshot = std::make_unique<ParameterValueSnapshot>(&container);
    snapshot->applyNoFilter();
    const int row = rowCount();
    beginInsertRows({}, row, row);
    m_entries.push_back({name, std::move(snapshot), true});
    endInsertRows();
    Q_EMIT checkedChanged();
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
