#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QObject>
#include <QtCore/QSet>

class ParameterContainer;
class RegisterMap;

/// The values that parameters await which wait for all their elements.
class ElementWaits : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller; the container outlives this.
    explicit ElementWaits(ParameterContainer &container);

    /// **Owner** the caller; the map outlives the run.
    void start(const RegisterMap &map);
    /// The parameters that were waiting, as the places of their elements 0.
    QList<ValuePlace> stop();

    void add(qsizetype value);
    bool contains(qsizetype value) const { return m_values.contains(value); }
    void done(qsizetype value) { m_values.remove(value); }
    /// The parameters that await any of the values, which will not come.
    QList<ValuePlace> takeLost(const QList<qsizetype> &values);
    /// Tells a parameter that one of its elements does not come.
    void cancel(const ValuePlace &place);

private:
    /// Whoever waited for all elements does so no more.
    void onCanceled(const ParameterCoordinate &coordinate, eLivingSpace livingSpace);

    ParameterContainer &m_container;
    /// Null while stopped.
    const RegisterMap *m_map = nullptr;
    QSet<qsizetype> m_values;
};
