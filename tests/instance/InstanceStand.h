#pragma once

#include "instance/CoordinateInstanceSet.h"
#include "tests/support/ContainerInternals.h"
#include "tests/support/DefinitionBuilder.h"
#include "tests/support/ProgrammedFunctionProvider.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrSystem/System.h>

#include <QtCore/QPointer>
#include <QtTest/QTest>

#include <memory>
#include <vector>

/// A container of the domain "Antrieb" with parameters for a test, a log of its signals and a
/// recorder that fails the test for every message that it did not expect.
class InstanceStand {
public:
    using eSeverity = SystemMessage::eSeverity;

    InstanceStand()
        : container(std::make_unique<ParameterContainer>())
    {
        container->setDomain(QStringLiteral("Antrieb"));
    }
    ~InstanceStand()
    {
        container.reset();
        System::information()->setUserAccessLevel(0);
    }
    Q_DISABLE_COPY_MOVE(InstanceStand)

    /// Lives as long as the stand. Each coordinate's parameter is one of its own unless told otherwise.
    ParameterDefinition *define(
        DefinitionBuilder builder, const QString &coordinate, const QString &identifier = {})
    {
        builder.coordinates({coordinate})
            .identifier(identifier.isEmpty() ? coordinate : identifier);
        return keep(builder.build());
    }
    ParameterDefinition *keep(std::unique_ptr<ParameterDefinition> definition)
    {
        m_definitions.push_back(std::move(definition));
        return m_definitions.back().get();
    }
    /// A parameter with an instance in each living space; a global one has its one instance.
    CoordinateInstanceSet *add(const DefinitionBuilder &builder, const QString &coordinate,
        const QList<int> &livingSpaces = {1}, const QString &identifier = {})
    {
        ParameterDefinition *definition = define(builder, coordinate, identifier);
        for (const int livingSpace : livingSpaces)
            container->createOrUpdateParameter(definition, locator(coordinate, livingSpace));
        return set(coordinate);
    }
    static QString locator(const QString &coordinate, int livingSpace)
    {
        return QStringLiteral("D.%1;%2").arg(livingSpace).arg(coordinate);
    }
    CoordinateInstanceSet *set(const QString &coordinate) const
    {
        return ContainerInternals::of(*container)->find(ParameterCoordinate(coordinate));
    }

    /// Binds the container to functions that the test chooses.
    ProgrammedFunctions *programFirmware()
    {
        functions = std::make_shared<ProgrammedFunctions>();
        ContainerInternals::bind(
            *container, std::make_unique<ProgrammedFunctionProvider>(functions));
        return functions.get();
    }
    /// Signals of the set as "set" and of the container as "container".
    void listen(CoordinateInstanceSet *set)
    {
        log.attach(set, QStringLiteral("set"));
        log.attach(container.get(), QStringLiteral("container"));
    }
    void setUserLevel(quint32 level) { System::information()->setUserAccessLevel(level); }

    void expectWarning(const QString &text)
    {
        messages.expect(eSeverity::Warning, QStringLiteral("CoordinateInstanceSet"), text);
    }
    void expectCritical(const QString &text)
    {
        messages.expect(eSeverity::Critical, QStringLiteral("Antrieb"), text);
    }

    MessageRecorder messages;
    SignalLog log;
    std::shared_ptr<ProgrammedFunctions> functions;

private:
    std::vector<std::unique_ptr<ParameterDefinition>> m_definitions;

public:
    std::unique_ptr<ParameterContainer> container;
};
