#pragma once

#include <KrParameterInstance/ParameterNavigationHost.h>

#include <functional>

class DriveProject;
class ParameterTableModel;
class ParameterTableView;

/// Leads to the rows of the table.
class TableNavigation : public ParameterNavigationHost {
    Q_OBJECT

public:
    /// **Owner** of all the caller. `reveal` is called before a row is shown: it takes away what
    /// keeps the row from being seen.
    TableNavigation(ParameterTableModel &model, ParameterTableView &view,
        const std::function<void()> &reveal, QObject *parent);

    /// Null: no device.
    void setProject(DriveProject *project) { m_project = project; }

    bool canNavigateToParameter(const ParameterCoordinate &coordinate) const override;
    /// To the first of its values.
    void navigateToParameter(const ParameterCoordinate &coordinate) override;
    bool canNavigateToAddress(const ParameterAddress &address) const override;
    void navigateToAddress(const ParameterAddress &address) override;
    ParameterAddress currentAddress() const override;
    ParameterContainer *parameterContainer() const override;

    /// The device has a parameter of the address, whoever may see it.
    bool isKnown(const ParameterAddress &address) const;
    /// For the user: why neither the address nor its parameter can be gone to.
    QString obstacle(const ParameterAddress &address) const;
    /// For the user: why no row of a comparison of these devices can be gone to. Empty where one of them is
    /// open, or none at all.
    QString comparisonObstacle(const QStringList &devices) const;

private:
    ParameterTableModel &m_model;
    ParameterTableView &m_view;
    std::function<void()> m_reveal;
    DriveProject *m_project = nullptr;
};
