#include "tests/model/ContainerStage.h"

#include <QtTest/QtTest>

#include <rapidcheck.h>
#include <rapidcheck/state.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int DefaultCount = 2000;

/// Takes a step on both and compares: what was told, and what is there afterwards.
class StepCommand : public rc::state::Command<ContainerModel, ContainerStage> {
public:
    explicit StepCommand(const ContainerModel &)
    {
        // What ends everything is rare, or most steps would find nothing.
        m_step.kind = *rc::gen::weightedElement<Step::eKind>({{8, Step::Create}, {4, Step::Update},
            {1, Step::Delete}, {1, Step::Clear}, {8, Step::WriteDisplay}, {10, Step::WriteNative},
            {8, Step::WriteUndecorated}, {4, Step::Online}, {2, Step::ReadOnly}, {4, Step::Level},
            {6, Step::Firmware}, {8, Step::ElementCount}, {2, Step::Coordinate}, {2, Step::Save},
            {3, Step::Load}, {4, Step::StartConsistence}, {1, Step::CancelConsistence}});
        // Half of all concerns the parameter that others follow.
        m_step.parameter = *rc::gen::oneOf(rc::gen::just(int(ContainerModel::A12)),
            rc::gen::inRange(0, int(ContainerModel::ParameterCount)));
        m_step.livingSpace = *rc::gen::inRange(1, 3);
        m_step.element = *rc::gen::element<quint16>(0, 0, 0, 1, 2, 5, 7);
        const bool isWrite =
            m_step.kind >= Step::WriteDisplay && m_step.kind <= Step::WriteUndecorated;
        const int least = isWrite && m_step.parameter != ContainerModel::A12 ? -200 : 0;
        m_step.number = *rc::gen::inRange(least, 10);
        // Online and read only a device takes less: mostly off.
        if (m_step.kind == Step::Online || m_step.kind == Step::ReadOnly)
            m_step.number = *rc::gen::element(0, 1, 1);
    }

    void checkPreconditions(const ContainerModel &model) const override
    {
        RC_PRE(model.isModelled(m_step));
    }
    void apply(ContainerModel &model) const override { model.take(m_step); }
    void run(const ContainerModel &model, ContainerStage &stage) const override
    {
        stage.take(m_step);
        if (stage.isHostile()) {
            RC_ASSERT(stage.contradiction().toStdString() == std::string());
            stage.takeTold();
            return;
        }
        ContainerModel after = model;
        const QStringList expected = after.take(m_step);
        RC_ASSERT(stage.takeTold().join(u'\n').toStdString() == expected.join(u'\n').toStdString());
        RC_ASSERT(stage.difference(after).toStdString() == std::string());
    }
    void show(std::ostream &stream) const override
    {
        stream << "kind " << int(m_step.kind) << ", parameter " << m_step.parameter
               << ", living space " << m_step.livingSpace << ", element " << m_step.element
               << ", number " << m_step.number;
    }

private:
    Step m_step;
};

bool runSequences(const std::function<quint32()> &seed)
{
    return rc::check([&seed] {
        ContainerStage stage(seed());
        ContainerModel model;
        for (int parameter = 0; parameter < ContainerModel::ParameterCount; ++parameter) {
            for (const int livingSpace : {1, 2}) {
                const Step step {Step::Create, parameter, livingSpace, 0, 0};
                model.take(step);
                stage.take(step);
            }
        }
        stage.takeTold();
        stage.contradiction();
        rc::state::check(model, stage, rc::state::gen::execOneOfWithArgs<StepCommand>());
    });
}

} // namespace

/// Random sequences of what hosts do, beside a model; and with listeners that do what they like.
class tst_ContainerSequences : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void followTheModel();
    void outliveHostileListeners();
};

void tst_ContainerSequences::initTestCase()
{
    const int wanted = qEnvironmentVariableIntValue("KR_SEQUENCE_COUNT");
    const int half = qMax(1, (wanted > 0 ? wanted : DefaultCount) / 2);
    if (!qEnvironmentVariableIsSet("RC_PARAMS"))
        qputenv("RC_PARAMS", "max_size=300 max_success=" + QByteArray::number(half));
}

void tst_ContainerSequences::followTheModel()
{
    QVERIFY(runSequences([] { return ContainerStage::NoSeed; }));
}

void tst_ContainerSequences::outliveHostileListeners()
{
    QVERIFY(runSequences([] { return *rc::gen::inRange<quint32>(1, 1000000000); }));
}

QTEST_GUILESS_MAIN(tst_ContainerSequences)

#include "tst_ContainerSequences.moc"
