#pragma once

#include "tests/support/DefinitionBuilder.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <memory>
#include <vector>

/// A container with the definitions that it borrows, which outlive it.
class TestContainer {
public:
    TestContainer()
        : m_container(std::make_unique<ParameterContainer>())
    {
    }

    ParameterContainer *operator->() const { return m_container.get(); }
    ParameterContainer &operator*() const { return *m_container; }
    ParameterContainer *get() const { return m_container.get(); }

    /// **Owner** this; the definitions stay when the container goes.
    ParameterDefinition *define(const DefinitionBuilder &builder)
    {
        m_definitions.push_back(builder.build());
        return m_definitions.back().get();
    }
    bool create(const DefinitionBuilder &builder, const QString &locatorText)
    {
        return m_container->createOrUpdateParameter(define(builder), locatorText);
    }
    ParameterSetup *setup(const QString &coordinateText) const
    {
        return m_container->parameterSetup(ParameterCoordinate(coordinateText)).data();
    }
    /// Of the coordinates, ascending.
    QStringList coordinates() const
    {
        QStringList texts;
        for (const ParameterCoordinate &coordinate : m_container->parameterList())
            texts.append(coordinate.toText());
        texts.sort();
        return texts;
    }
    void destroy() { m_container.reset(); }

private:
    std::vector<std::unique_ptr<ParameterDefinition>> m_definitions;
    std::unique_ptr<ParameterContainer> m_container;
};

/// A definition at one coordinate, identified by it.
inline DefinitionBuilder at(const QString &coordinate)
{
    return DefinitionBuilder().identifier(coordinate).coordinates({coordinate});
}
