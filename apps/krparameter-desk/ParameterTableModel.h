#pragma once

#include "apps/host/ValuePlace.h"
#include "apps/krparameter-desk/RowSearch.h"
#include "apps/krparameter-desk/ShownRows.h"
#include "apps/krparameter-desk/TableColumns.h"

#include <QtCore/QAbstractTableModel>
#include <QtCore/QHash>
#include <QtCore/QTimer>

#include <functional>
#include <memory>
#include <optional>

class DriveProject;
class ParameterAddress;
class RowTexts;
class ValueWriter;

/// The values of a device, one a row in the natural order of their addresses: those that the user may
/// see, on the chosen axis, holding the searched text.
class ParameterTableModel : public QAbstractTableModel, public TableColumns {
    Q_OBJECT

public:
    explicit ParameterTableModel(QObject *parent = nullptr);
    ~ParameterTableModel() override;

    /// Null for both: no rows. **Owner** the caller; they outlive their stay here.
    void setDevice(DriveProject *project, ValueWriter *writer);
    /// Empty: all axes. Global parameters belong to every axis.
    void setAxis(std::optional<eLivingSpace> axis);
    /// Rows whose texts are not read yet stay until they are, soon after.
    void setSearchedText(const QString &text);
    /// Every text anew, in another language for example.
    void refresh();
    /// Does at once what waits for the event loop: shows and hides rows, searches those not read yet.
    void settle();

    /// Of the device, also of rows that are not shown.
    bool contains(const ValuePlace &place) const { return m_rowOfPlace.contains(place); }
    /// Those that the user may see on the chosen axis, whatever is searched.
    qsizetype searchableCount() const { return m_shown.searchableCount(); }
    std::optional<ValuePlace> placeAt(const QModelIndex &index) const;
    /// Invalid where no row of the place is shown.
    QModelIndex indexOf(const ValuePlace &place, eColumn column = Value) const;

    /// For the user: why the value of the row cannot be written now. Empty where it can.
    QString writeObstacle(const QModelIndex &index) const;

    /// Of an address, a name or a value, among all rows that the user may see whatever is searched. Of
    /// parameters with axes the first one's; numbers, which are short, are left out.
    QStringList longestTexts(eColumn column) const;
    /// That values have or can have.
    QStringList longestChoices() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Writes the display text. **Refused** like ValueWriter::write(). **Emits** writeAnswered.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

Q_SIGNALS:
    /// What the sink said to a write, empty where it said nothing.
    void writeAnswered(const QModelIndex &index, bool isAccepted, const QString &message);

private:
    void listen();
    void listenToParameters();
    void rebuild();
    void rebuildSoon();
    void onLevelChanged();
    void updateVisibility();
    void changeShown(const std::function<void()> &change);
    void startSearch();
    void prepareSearch();
    void readPiece();
    void readTexts(qsizetype end);
    void findRows();
    QStringList longest(const std::function<QString(const ValuePlace &)> &textOf) const;
    void onValueChanged(const ParameterAddress &address);
    void onVisibilityChanged(const ParameterAddress &address);
    void updateRow(const ValuePlace &place);

    DriveProject *m_project = nullptr;
    ValueWriter *m_writer = nullptr;
    /// Null without device.
    std::unique_ptr<RowTexts> m_texts;
    /// Every value of the device.
    QList<ValuePlace> m_places;
    QHash<ValuePlace, int> m_rowOfPlace;
    ShownRows m_shown;
    /// The texts of the first rows; those of all once the desk was idle.
    RowSearch m_search;
    /// Runs until all texts are read.
    QTimer m_idle;
    QString m_searchedText;
    /// Whose visibility changed since the event loop ran last.
    QList<int> m_rowsToShow;
    /// A change of the device's parameters comes as many signals.
    bool m_isRebuildPending = false;
    /// Every value tells of its own visibility then.
    bool m_isLevelChanging = false;
};
