#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

class ParameterContainer;
class QUndoStack;
struct StoredValue;

/// Writes what the user types, so that it can be undone.
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

    /// Display text. **Refused** what this user cannot write now, and what the firmware refuses.
    /// **Emits** written. **Reports** what the container reports.
    Outcome write(const ValuePlace &place, const QString &displayText);
    /// Stores what stood there before. **Emits** written.
    void restore(const ValuePlace &place, const StoredValue &value);
    /// What changes now changes because of the user.
    bool isWriting() const { return m_isWriting; }

Q_SIGNALS:
    /// By the user: a write, an undo or a redo.
    void written(const ValuePlace &place);

private:
    QPointer<ParameterContainer> m_container;
    QPointer<QUndoStack> m_undoStack;
    bool m_isWriting = false;
};
