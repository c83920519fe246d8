#pragma once

#include "apps/host/ValuePlace.h"
#include "apps/krparameter-desk/DeviceChanges.h"
#include "apps/krparameter-desk/SearchedTexts.h"
#include "apps/krparameter-desk/ShownRows.h"
#include "apps/krparameter-desk/TableColumns.h"

#include <QtCore/QAbstractTableModel>
#include <QtCore/QHash>

#include <functional>
#include <memory>
#include <optional>

class DriveProject;
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

    /// By which the column is measured.
    QStringList longestTexts(eColumn column) const;
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
    void rebuild();
    void reset();
    void changeShown(const std::function<void()> &change);
    void startSearch();
    void updateFound();
    void updateVisibility();
    void updateRow(const ValuePlace &place);
    void onVisibilityChanged(const ValuePlace &place);

    DriveProject *m_project = nullptr;
    ValueWriter *m_writer = nullptr;
    /// Null without device.
    std::unique_ptr<RowTexts> m_texts;
    /// Every value of the device.
    QList<ValuePlace> m_places;
    QHash<ValuePlace, int> m_rowOfPlace;
    ShownRows m_shown;
    SearchedTexts m_search;
    DeviceChanges m_changes;
    /// Whose visibility changed since the event loop ran last.
    QList<int> m_rowsToShow;
};
