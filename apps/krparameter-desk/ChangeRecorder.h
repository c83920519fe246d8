#pragma once

#include "apps/host/ValuePlace.h"
#include "apps/krparameter-desk/StoredValue.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>

class ParameterAddress;
class ParameterContainer;

/// What a container kept of a value, and what it keeps now.
struct ValueChange {
    enum class eState { Before, After };

    const StoredValue &at(eState state) const { return state == eState::Before ? before : after; }

    ValuePlace place;
    StoredValue before;
    StoredValue after;
};

/// Tells what a write changed everywhere: the functions of a device may write other values.
///
/// A value that changed is told by signal, when what it was is gone. So every value is read once, on
/// the first recording, and followed from then on.
class ChangeRecorder : public QObject {
    Q_OBJECT

public:
    /// **Owner** of the container the caller.
    explicit ChangeRecorder(ParameterContainer &container);

    /// Notes what changes from now on; this place also where no signal tells of it.
    void start(const ValuePlace &place);
    /// That changed since start(), in the order of their first change.
    const QList<ValuePlace> &places() const { return m_places; }
    /// As it was at start(); two empty texts for a place that is new since.
    StoredValue before(const ValuePlace &place) const { return m_known.value(place); }
    /// Ends the recording. What is as it was before is no change.
    QList<ValueChange> finish();
    /// All values are about to change; the next recording reads them anew.
    void forget();

private:
    void readAll();
    void note(const ValuePlace &place);
    void onNativeValueChanged(const ParameterAddress &address);

    QPointer<ParameterContainer> m_container;
    /// Empty until the first recording.
    QHash<ValuePlace, StoredValue> m_known;
    QList<ValuePlace> m_places;
    QSet<ValuePlace> m_noted;
    bool m_isRecording = false;
};
