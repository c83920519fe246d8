#include "tests/snapshot/SnapshotFixture.h"

#include <QtTest/QTest>

SnapshotFixture::SnapshotFixture()
    : container(std::make_unique<ParameterContainer>())
{
    container->setHostInformation(&host);
}

SnapshotFixture::~SnapshotFixture() = default;

DefinitionBuilder SnapshotFixture::parameter(const char *coordinate, const char *name)
{
    const QString text = QString::fromLatin1(coordinate);
    return DefinitionBuilder()
        .identifier(text)
        .coordinates({text})
        .name(QString::fromUtf8(name))
        .kind(6);
}

void SnapshotFixture::add(const DefinitionBuilder &builder)
{
    definitions.push_back(builder.build());
    ParameterDefinition *definition = definitions.back().get();
    const QString text = definition->defaultCoordinates().first().toText();
    QVERIFY(container->createOrUpdateParameter(definition, QStringLiteral("S;{%1}").arg(text)));
}

void SnapshotFixture::write(
    int livingSpace, const char *coordinate, quint16 element, const QString &text)
{
    container->writeValueNative(
        static_cast<eLivingSpace>(livingSpace), at(coordinate), element, text);
}

ParameterCoordinate at(const char *coordinate)
{
    return ParameterCoordinate(QString::fromLatin1(coordinate));
}

QStringList sortedTexts(const QList<ParameterCoordinate> &coordinates)
{
    QStringList result;
    for (const ParameterCoordinate &coordinate : coordinates)
        result.append(coordinate.toText());
    result.sort();
    return result;
}
