#pragma once

#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <QtCore/QAbstractListModel>

#include <memory>
#include <vector>

class ParameterContainer;
class Progress;

/// The named snapshots of a device, oldest first. Those that are checked are compared.
class SnapshotListModel : public QAbstractListModel {
    Q_OBJECT

public:
    explicit SnapshotListModel(QObject *parent = nullptr);
    ~SnapshotListModel() override;

    /// Takes everything that the container holds now; the new snapshot is checked. False where the
    /// progress, which may be null, ended it: there is no new one then.
    bool take(ParameterContainer &container, const QString &name, Progress *progress = nullptr);
    void removeAt(int row);
    void clear();
    /// "Snapshot 3" for the third; never a name that is there.
    QString suggestedName() const;

    QStringList names() const;
    /// **Owner** the model.
    QList<ParameterValueSnapshot *> checkedSnapshots() const;
    QStringList checkedNames() const;
    /// The devices that the checked ones were taken of, each once.
    QStringList checkedDevices() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    /// The name, and whether it is checked. **Refused** an empty name.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /// Which snapshots are checked, or what they are called.
    void checkedChanged();

private:
    struct Entry {
        QString name;
        /// Empty where the container had none.
        QString device;
        std::unique_ptr<ParameterValueSnapshot> snapshot;
        bool isChecked = true;
    };

    bool has(const QString &name) const;

    std::vector<Entry> m_entries;
};
