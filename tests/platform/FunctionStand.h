#pragma once

#include "PlainContainer.h"
#include "PlainParameterData.h"

#include "tests/support/TestFirmware.h"

#include <KrFirmware/ParameterFunctionProvider.h>
#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <memory>

/// A firmware with functions, its provider and an element that has index 1 of every kind: D10 of
/// living space 2, an INT32.
class FunctionStand {
public:
    /// Kind to the function's text; all have index 1.
    using Functions = QHash<QString, QString>;

    explicit FunctionStand(const Functions &functions)
        : FunctionStand(Tables {tables(functions)})
    {
    }
    FunctionStand(const char *kind, const QString &text)
        : FunctionStand(Functions {{QString::fromLatin1(kind), text}})
    {
    }
    /// Functions of one kind by index.
    FunctionStand(const char *kind, const QHash<int, QString> &texts)
        : FunctionStand(Tables {{{QString::fromLatin1(kind), table(texts)}}})
    {
    }
    Q_DISABLE_COPY_MOVE(FunctionStand)

    QString lower() { return provider->lowerLimit(&data, 0); }
    QString upper() { return provider->upperLimit(&data, 0); }
    void postWrite() { provider->runFunction(eFunctionKind::Postwrite, &data, 0); }
    /// What the post-write function hands to a message.
    QString told()
    {
        postWrite();
        return container.takeCalls().join(u'|');
    }

    PlainContainer container;
    PlainParameterData data;
    std::unique_ptr<ServoDriveFirmware> firmware;
    std::unique_ptr<ParameterFunctionProvider> provider;

private:
    struct Tables {
        QJsonObject object;
    };

    explicit FunctionStand(const Tables &tables)
        : firmware(TestFirmware::load(TestFirmware::PhysicalAxesFamily,
            "\"functions\": " + QJsonDocument(tables.object).toJson(QJsonDocument::Compact)))
        , provider(firmware ? firmware->createParameterFunctionProvider() : nullptr)
    {
        data.type = 3;
        data.address =
            ParameterAddress(1, ParameterCoordinate(QStringLiteral("D10")), 0).toNumber();
        if (provider)
            provider->setCallbackProvider(&container);
    }

    static QJsonObject table(const QHash<int, QString> &texts)
    {
        QJsonObject object;
        for (auto it = texts.cbegin(); it != texts.cend(); ++it)
            object.insert(QString::number(it.key()), it.value());
        return object;
    }
    static QJsonObject tables(const Functions &functions)
    {
        QJsonObject object;
        for (auto it = functions.cbegin(); it != functions.cend(); ++it)
            object.insert(it.key(), table({{1, it.value()}}));
        return object;
    }
};
