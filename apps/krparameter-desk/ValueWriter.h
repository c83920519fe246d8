#pragma once

#include "apps/krparameter-desk/ChangeRecorder.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

class ParameterContainer;
class QUndoStack;

/// Writes what the user types, so that it can be undone with all that changed along.
class ValueWriter : public QObject {
    Q_OBJECT

public:
    struct Outcome {
        bool isAccepted = false;
        /// What the sink was told; of an accepted value what was corrected.
        QString message;
    };

    /// **Owner** the caller of both. After the container's end every write is refused.
    ValueWriter(ParameterContainer &container, QUndoStack &undoStack);

    /// A drive is being called, whose values replace all others as soon as it answers.
    /// **Emits** connectingChanged where it differs.
    void setConnecting(bool isConnecting);
    bool isWritable(const ValuePlace &place) const;
    /// For the user: why the value cannot be written now. Empty where it can.
    QString obstacle(const ValuePlace &place) const;

    /// Display text. **Refused** what this user cannot write now, and what the firmware refuses.
    /// **Emits** written. **Reports** what the container reports.
    Outcome write(const ValuePlace &place, const QString &displayText);
    /// Stores what stood there before or after; afterwards nothing else differs from what it was, also
    /// where the device's functions answer the restored values. **Refused** on a container that is
    /// read only. **Emits** written for every value that was stored.
    bool restore(const QList<ValueChange> &changes, ValueChange::eState state);
    /// All values are about to change, which is nothing to undo.
    void forget() { m_recorder.forget(); }
    /// What changes now changes because of the user.
    bool isWriting() const { return m_isWriting; }

Q_SIGNALS:
    /// By the user: a write, an undo or a redo. What a write changed along is not told.
    void written(const ValuePlace &place);
    /// All values can be written, or none.
    void connectingChanged();

private:
    /// What each value is to be.
    using Targets = QHash<ValuePlace, StoredValue>;

    bool storeDifferent(const QList<ValuePlace> &places, const Targets &targets);

    QPointer<ParameterContainer> m_container;
    QPointer<QUndoStack> m_undoStack;
    ChangeRecorder m_recorder;
    bool m_isWriting = false;
    bool m_isConnecting = false;
};
