#pragma once

#include <KrParameterInstance/KrParameterInstanceExport.h>

#include <QtCore/QObject>
#include <QtCore/QString>

/// An action of the drive: starts the procedure and follows its progress and result.
/// Declaration order is binary interface; do not reorder.
class KrParameterInstance_EXPORT ActionParameter : public QObject {
    Q_OBJECT

public:
    explicit ActionParameter(QObject *parent = nullptr);
    ~ActionParameter() override;

    /// **Refused** while the action is not enabled: false, nothing is written.
    virtual bool start() = 0;
    virtual bool isIdle() const = 0;
    /// Long text in the active language.
    virtual QString name() const = 0;
    /// Name and display text of the result element.
    virtual QString stateText() const = 0;
    virtual QString description() const = 0;

Q_SIGNALS:
    /// **Unit** percent.
    void progressChanged(int percent);
    void enableChanged(bool enabled);
    void stateChanged();
};
