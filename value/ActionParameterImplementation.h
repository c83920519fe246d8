#pragma once

#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterDefinition/eLivingSpace.h>
#include <KrParameterInstance/ActionParameter.h>

#include <QtCore/QPointer>

class ParameterSetup;

/// An action whose control, progress and result are elements 0, 1 and 2 of a parameter.
class ActionParameterImplementation final : public ActionParameter {
    Q_OBJECT

public:
    ActionParameterImplementation(const QPointer<ParameterSetup> &parameter, eLivingSpace axis);
    ~ActionParameterImplementation() override;

    bool start() override;
    bool isIdle() const override;
    QString name() const override;
    QString stateText() const override;
    QString description() const override;

private:
    void onActionChanged(ParameterAddress address);
    void announceProgress();
    void deviceControlStateChanged();
    bool isEnabled() const;
    /// A text that is no number counts as 0.
    int number(quint16 element) const;
    int deviceState() const;

    /// Null once the parameter is gone; the action is idle and does nothing then.
    QPointer<ParameterSetup> m_parameter;
    eLivingSpace m_axis;
};
