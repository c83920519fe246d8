#pragma once

#include "tests/model/ContainerModel.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtCore/QMap>

#include <memory>
#include <random>

/// The container that the steps are taken on. With a seed, a listener to every signal of container and
/// sets and to every message takes steps of its own, or destroys the container; another one then takes
/// its place.
class ContainerStage : public QObject {
    Q_OBJECT

public:
    static constexpr quint32 NoSeed = 0;

    explicit ContainerStage(quint32 hostileSeed = NoSeed);
    ~ContainerStage() override;

    bool isHostile() const { return m_seed != NoSeed; }
    void take(const Step &step);
    /// What the container told since the last question.
    QStringList takeTold();
    /// What differs from the model; empty: nothing.
    QString difference(const ContainerModel &model) const;
    /// What the container says of itself that contradicts; empty: nothing.
    QString contradiction() const;

private Q_SLOTS:
    void react();

private:
    void open();
    void perform(const Step &step);
    void create(const Step &step);
    void update(const Step &step);
    /// By any of its locators; null where the parameter is not there.
    ParameterSetup *setup(int parameter) const;
    static QString locator(int parameter, int livingSpace);
    void listen(QObject *source);

    MessageRecorder m_messages;
    SignalLog m_log;
    std::unique_ptr<ParameterContainer> m_container;
    QMap<QString, QByteArray> m_blocks;
    quint32 m_seed;
    std::mt19937 m_random;
    /// Hostile steps that the step at hand may still lead to.
    int m_hostileSteps = 0;
};
