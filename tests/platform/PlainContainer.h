#pragma once

#include <KrFirmware/CallbackProvider.h>
#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QHash>
#include <QtCore/QStringList>

#include <functional>

/// A container's answers to firmware functions, set by the test. Every call is noted as a text; a
/// value that was written is read afterwards.
class PlainContainer final : public CallbackProvider {
public:
    ~PlainContainer() = default;

    /// By "livingSpace coordinate element"; a value that is not there is empty.
    QHash<QString, QString> values;
    /// Coordinate text to data type; INT32 (3) where it is not there.
    QHash<QString, uint> types;
    /// What the property questions answer, by key or number.
    QHash<QString, QVariant> properties;
    /// The change that runs; empty: none.
    QString change;
    QStringList calls;
    /// Runs inside of every call, after it was noted.
    std::function<void(const QString &call)> listener = [](const QString &) {};

    QStringList takeCalls() { return std::exchange(calls, {}); }

    QString readValue(
        int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit) override
    {
        return read("readValue", livingSpace, coordinate, element, withUnit);
    }
    QString readValueNative(
        int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit) override
    {
        return read("readValueNative", livingSpace, coordinate, element, withUnit);
    }
    QString readUndecoratedValue(
        int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit) override
    {
        return read("readUndecoratedValue", livingSpace, coordinate, element, withUnit);
    }
    void writeValue(int livingSpace, unsigned short coordinate, unsigned short element,
        const QString &text) override
    {
        write("writeValue", livingSpace, coordinate, element, text);
    }
    void writeValueNative(int livingSpace, unsigned short coordinate, unsigned short element,
        const QString &text) override
    {
        write("writeValueNative", livingSpace, coordinate, element, text);
    }
    void writeUndecoratedValue(int livingSpace, unsigned short coordinate, unsigned short element,
        const QString &text) override
    {
        write("writeUndecoratedValue", livingSpace, coordinate, element, text);
    }
    QVariant parameterProperty(
        unsigned short coordinate, const QString &key, const QVariant &fallback) override
    {
        note(QStringLiteral("parameterProperty %1 %2").arg(nameOf(coordinate), key));
        return properties.value(key, fallback);
    }
    QVariant elementProperty(
        unsigned short coordinate, unsigned short element, unsigned int property) override
    {
        if (property == DatatypeProperty)
            return types.value(nameOf(coordinate), Int32Type);
        note(QStringLiteral("elementProperty %1 %2 %3")
                 .arg(nameOf(coordinate))
                 .arg(element)
                 .arg(property));
        return properties.value(QString::number(property));
    }
    QVariant datatypeProperty(unsigned short coordinate, const QString &key) override
    {
        note(QStringLiteral("datatypeProperty %1 %2").arg(nameOf(coordinate), key));
        return properties.value(key);
    }
    QVariant systemProperty(const QString &key) override
    {
        note(QStringLiteral("systemProperty %1").arg(key));
        return properties.value(key);
    }
    QString containerText(const QString &key) override
    {
        if (key == QLatin1StringView("change"))
            return change;
        return key == QLatin1StringView("domain") ? QStringLiteral("Device") : QString();
    }
    void addInformationMessage(const QString &text) override
    {
        note(QStringLiteral("addInformationMessage ") + text);
    }
    void addWarningMessage(const QString &text) override
    {
        note(QStringLiteral("addWarningMessage ") + text);
    }
    void addCriticalMessage(const QString &text) override
    {
        note(QStringLiteral("addCriticalMessage ") + text);
    }

private:
    static constexpr unsigned int DatatypeProperty = 16;
    static constexpr uint Int32Type = 3;

    static QString nameOf(unsigned short coordinate)
    {
        return ParameterCoordinate(quint16(coordinate)).toText();
    }
    static QString placeOf(int livingSpace, unsigned short coordinate, unsigned short element)
    {
        return QStringLiteral("%1 %2 %3").arg(livingSpace).arg(nameOf(coordinate)).arg(element);
    }
    void note(const QString &call)
    {
        calls.append(call);
        listener(call);
    }
    QString read(const char *operation, int livingSpace, unsigned short coordinate,
        unsigned short element, bool withUnit)
    {
        const QString place = placeOf(livingSpace, coordinate, element);
        note(QLatin1StringView(operation) + u' ' + place
            + (withUnit ? QStringLiteral(" unit") : QString()));
        return values.value(place);
    }
    void write(const char *operation, int livingSpace, unsigned short coordinate,
        unsigned short element, const QString &text)
    {
        const QString place = placeOf(livingSpace, coordinate, element);
        values.insert(place, text);
        note(QLatin1StringView(operation) + u' ' + place + QStringLiteral(" = ") + text);
    }
};
