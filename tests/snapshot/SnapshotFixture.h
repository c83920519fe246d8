#pragma once

#include "tests/support/DefinitionBuilder.h"
#include "tests/support/TestHostInformation.h"

#include <KrParameterInstance/ParameterContainer.h>

#include <QtTest/QTest>

#include <memory>
#include <vector>

/// A container for snapshots: parameters are added by a line each and take texts as they come.
class SnapshotFixture {
public:
    SnapshotFixture() { container->setHostInformation(&host); }
    ~SnapshotFixture() { container.reset(); }
    Q_DISABLE_COPY_MOVE(SnapshotFixture)

    /// The builder starts with the coordinate and a name; its texts may be anything.
    static DefinitionBuilder parameter(const char *coordinate, const char *name)
    {
        const QString text = QString::fromLatin1(coordinate);
        return DefinitionBuilder()
            .identifier(text)
            .coordinates({text})
            .name(QString::fromUtf8(name))
            .kind(6);
    }
    /// In living space 0 for a global parameter, otherwise on axes 1 and 2.
    void add(const DefinitionBuilder &builder) { add(builder, QStringLiteral("S")); }
    /// Under an anchor like "Drive.1" in that living space alone.
    void add(const DefinitionBuilder &builder, const QString &anchor)
    {
        definitions.push_back(builder.build());
        const QString locator = anchor + QStringLiteral(";{")
            + definitions.back()->defaultCoordinates().first().toText() + QLatin1Char('}');
        QVERIFY(container->createOrUpdateParameter(definitions.back().get(), locator));
    }
    /// Native text.
    void write(int livingSpace, const char *coordinate, quint16 element, const QString &text)
    {
        container->writeValueNative(static_cast<eLivingSpace>(livingSpace),
            ParameterCoordinate(QString::fromLatin1(coordinate)), element, text);
    }

    TestHostInformation host;
    /// Borrowed by the container, which goes first.
    std::vector<std::unique_ptr<ParameterDefinition>> definitions;
    std::unique_ptr<ParameterContainer> container = std::make_unique<ParameterContainer>();
};

inline ParameterCoordinate at(const char *coordinate)
{
    return ParameterCoordinate(QString::fromLatin1(coordinate));
}

inline QStringList sortedTexts(const QList<ParameterCoordinate> &coordinates)
{
    QStringList result;
    for (const ParameterCoordinate &coordinate : coordinates)
        result.append(coordinate.toText());
    result.sort();
    return result;
}
