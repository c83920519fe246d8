#pragma once

#include "apps/online/RegisterMap.h"
#include "apps/simulation/AxisStates.h"
#include "apps/simulation/DriveAction.h"
#include "apps/simulation/MeasuredMotion.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

#include <vector>

class DriveProject;

/// A described drive that lives: keeps its values in registers, judges what is written to them, runs its
/// actions, moves its measured values, and starts up.
class SimulatedDrive : public QObject {
    Q_OBJECT

public:
    enum class eVerdict {
        Done,
        NoSuchValue, ///< A register without value, or half a value.
        ReadOnly,
        NotAccepted, ///< Outside of limits and choices.
        WrongState, ///< Not now.
    };

    /// **Owner** the caller; the project outlives the drive.
    explicit SimulatedDrive(DriveProject &project);

    const RegisterMap &registerMap() const { return m_map; }
    /// Empty where a register does not exist.
    QList<quint16> read(const RegisterSpan &span) const;
    /// Whole values only. **Refused** what one of them does not take: none is stored.
    eVerdict write(const RegisterSpan &span, const QList<quint16> &registers);
    /// A moment of the drive's life.
    void tick();

    DriveProject &project() { return m_project; }

private:
    void fillRegisters();
    void findInhabitants();
    void store(const MappedValue &value);
    void onChanged(const ParameterAddress &address);
    eVerdict judge(const MappedValue &value, const QByteArray &bytes) const;
    void take(const MappedValue &value, const QByteArray &bytes);
    void startUp();
    qsizetype actionAt(const ValuePlace &place) const;

    DriveProject &m_project;
    ParameterContainer &m_container;
    const RegisterMap m_map;
    /// Unit to its registers from 0 to the last that carries a value.
    QHash<quint8, QList<quint16>> m_registers;
    AxisStates m_states;
    std::vector<DriveAction> m_actions;
    std::vector<MeasuredMotion> m_motions;
    quint64 m_ticks = 0;
};
