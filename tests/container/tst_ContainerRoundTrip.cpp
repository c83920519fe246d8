#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"

#include <QtTest/QtTest>

#include <random>

using namespace Qt::StringLiterals;
using enum eLivingSpace;

namespace {

constexpr int ContainerCount = 1000;
constexpr quint32 Seed = 20011;
const QString BlockName = u"Parameter.ini"_s;

/// What a container holds, beside the container itself.
struct Entry {
    QString value;
    QString defaultValue;
    QString valueTag;
    QString defaultTag;

    friend bool operator==(const Entry &, const Entry &) = default;
};

/// Coordinate text, living space and element to texts.
using Content = QMap<std::tuple<QString, int, int>, Entry>;

class Generator {
public:
    explicit Generator(quint32 seed)
        : m_random(seed)
    {
    }

    int below(int end) { return int(m_random() % quint32(end)); }
    /// Of characters U+0000 to U+00FF, each of them in turn and some at random.
    QString text()
    {
        QString text;
        const int size = below(12);
        for (int i = 0; i < size; ++i)
            text += QChar(i % 2 == 0 ? m_next++ & 0xFF : below(256));
        used += text;
        return text;
    }

    QString used;

private:
    std::mt19937 m_random;
    int m_next = 0;
};

struct Plan {
    DefinitionBuilder builder;
    QString coordinate;
    QStringList locators;
    int elementCount = 0; ///< 0: as defined.
};

QList<Plan> plans(Generator &generator)
{
    QList<Plan> list;
    const int count = 1 + generator.below(5);
    for (int i = 0; i < count; ++i) {
        Plan plan;
        plan.coordinate = QChar(u'A' + i) + QString::number(10 + generator.below(900));
        plan.builder = at(plan.coordinate);
        const int shape = generator.below(4);
        if (shape == 0) {
            plan.builder.element(quint16(1 + generator.below(5)), u"Eins"_s)
                .element(0, u"Null"_s)
                .element(quint16(100 + generator.below(16000)), u"Weit"_s);
        } else {
            plan.builder.elementCount(quint16(1 + generator.below(4)));
            plan.elementCount = shape == 1 ? 1 + generator.below(7) : 0;
        }
        if (generator.below(3) == 0) {
            plan.builder.global();
            plan.locators = {u"S;"_s + plan.coordinate};
        } else {
            for (int space = 1; space <= 4; ++space) {
                if (space == 1 || generator.below(2) == 0)
                    plan.locators.append(u"D.%1;%2"_s.arg(space).arg(plan.coordinate));
            }
        }
        list.append(plan);
    }
    return list;
}

void create(TestContainer &container, const QList<Plan> &plans)
{
    for (const Plan &plan : plans) {
        ParameterDefinition *definition = container.define(plan.builder);
        for (const QString &locator : plan.locators)
            QVERIFY(container->createOrUpdateParameter(definition, locator));
    }
}

void fill(TestContainer &container, const QList<Plan> &plans, Generator &generator)
{
    for (const Plan &plan : plans) {
        ParameterSetup *setup = container.setup(plan.coordinate);
        if (plan.elementCount > 0)
            setup->setElementCount(quint16(plan.elementCount));
        for (const eLivingSpace space : setup->livingSpaces()) {
            for (const quint16 element : setup->elementList()) {
                setup->setOnlineValueText(space, element, generator.text());
                setup->setDefaultNativeValueText(space, element, generator.text());
                setup->setValueChangeTag(space, element, generator.text());
                setup->setDefaultValueChangeTag(space, element, generator.text());
            }
        }
    }
}

Content content(const TestContainer &container)
{
    Content content;
    for (const ParameterCoordinate &coordinate : container->parameterList()) {
        const QPointer<ParameterSetup> setup = container->parameterSetup(coordinate);
        for (const eLivingSpace space : setup->livingSpaces()) {
            for (const quint16 element : setup->elementList()) {
                content.insert({coordinate.toText(), int(space), int(element)},
                    {setup->nativeValueText(space, element, false),
                        setup->defaultNativeValueText(space, element),
                        setup->attribute(space, element, u"ValueChangeTag"_s),
                        setup->attribute(space, element, u"DefaultValueChangeTag"_s)});
            }
        }
    }
    return content;
}

} // namespace

class tst_ContainerRoundTrip : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everythingReturns();
    void overridesThatTheDefinitionLacksReturn();
};

void tst_ContainerRoundTrip::everythingReturns()
{
    MessageRecorder messages;
    Generator generator(Seed);
    for (int run = 0; run < ContainerCount; ++run) {
        const QList<Plan> shapes = plans(generator);
        TestContainer container;
        create(container, shapes);
        fill(container, shapes, generator);
        const Content before = content(container);
        QVERIFY(!before.isEmpty());
        QMap<QString, QByteArray> blocks;
        QMap<QString, QByteArray> again;
        QVERIFY(container->saveTo(blocks));
        QVERIFY(container->saveTo(again));
        QCOMPARE(again, blocks);

        TestContainer other;
        create(other, shapes);
        QVERIFY(other->loadFrom(blocks));
        const Content after = content(other);
        QVERIFY2(after == before, qPrintable(QString::number(run)));
        QVERIFY(other->saveTo(again));
        QCOMPARE(again.value(BlockName), blocks.value(BlockName));
    }
    for (int character = 0; character < 256; ++character)
        QVERIFY(generator.used.contains(QChar(character)));
}

void tst_ContainerRoundTrip::overridesThatTheDefinitionLacksReturn()
{
    using enum eParameterProperty;
    MessageRecorder messages;
    TestContainer container;
    const DefinitionBuilder first =
        at(u"A12"_s).property(ShownOffline, true).limits(u"0"_s, u"9"_s).scaling(1.0F);
    const DefinitionBuilder second = DefinitionBuilder(at(u"A12"_s)).version(2).without(ReadLevel);
    QVERIFY(container.create(first, u"D.1;a"_s));
    ParameterSetup *setup = container.setup(u"A12"_s);
    setup->setProperty(0, ReadLevel, ParameterProperty(3U));
    setup->setProperty(0, ShownOffline, ParameterProperty(false));
    setup->setProperty(0, LowerLimitValue, ParameterProperty(u"t:x"_s));
    container->setParameterChangeTag(u"tag"_s);
    setup->setProperty(0, ScalingFactor, ParameterProperty(0.1F));
    container->setParameterChangeTag(QString());
    QVERIFY(container.create(second, u"D.1;a"_s));
    QMap<QString, QByteArray> blocks;
    QVERIFY(container->saveTo(blocks));
    const QByteArray block = "\r\n[A012]\r\nV_1_0=0\r\nDV_1_0=0\r\nP_0_5=3\r\nP_0_8=s:t:x\r\n"
                             "P_0_20=0.1\r\nPC_0_20=tag\r\nP_0_47=0\r\n";
    QVERIFY(blocks.value(BlockName).endsWith(block));

    TestContainer other;
    QVERIFY(other.create(second, u"D.1;a"_s));
    QVERIFY(other->loadFrom(blocks));
    const ParameterSetup *loaded = other.setup(u"A12"_s);
    QCOMPARE(loaded->elementProperty(0, ReadLevel).asUint32(), 3U);
    QCOMPARE(loaded->elementProperty(0, LowerLimitValue).asString(), u"t:x"_s);
    QCOMPARE(loaded->elementProperty(0, ScalingFactor).asFloat(), 0.1F);
    QMap<QString, QByteArray> again;
    QVERIFY(other->saveTo(again));
    QCOMPARE(again.value(BlockName), blocks.value(BlockName));
}

QTEST_GUILESS_MAIN(tst_ContainerRoundTrip)
#include "tst_ContainerRoundTrip.moc"
