#pragma once

#include <KrFirmware/CallbackProvider.h>

class ParameterContainerPrivate;

/// Hands what the firmware's functions ask to the container's private object, which creates and keeps
/// exactly one delegate.
class CallbackProviderDelegate final : public CallbackProvider {
public:
    /// The text form of a value that is read or written.
    enum class eForm { Display, Native, Undecorated };

    explicit CallbackProviderDelegate(ParameterContainerPrivate *container)
        : m_container(container)
    {
    }
    ~CallbackProviderDelegate() = default;
    Q_DISABLE_COPY_MOVE(CallbackProviderDelegate)

    QString readValue(
        int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit) override;
    QString readValueNative(
        int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit) override;
    QString readUndecoratedValue(
        int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit) override;
    void writeValue(int livingSpace, unsigned short coordinate, unsigned short element,
        const QString &text) override;
    void writeValueNative(int livingSpace, unsigned short coordinate, unsigned short element,
        const QString &text) override;
    void writeUndecoratedValue(int livingSpace, unsigned short coordinate, unsigned short element,
        const QString &text) override;
    QVariant parameterProperty(
        unsigned short coordinate, const QString &key, const QVariant &fallback) override;
    QVariant elementProperty(
        unsigned short coordinate, unsigned short element, unsigned int property) override;
    QVariant datatypeProperty(unsigned short coordinate, const QString &key) override;
    QVariant systemProperty(const QString &key) override;
    QString containerText(const QString &key) override;
    void addInformationMessage(const QString &text) override;
    void addWarningMessage(const QString &text) override;
    void addCriticalMessage(const QString &text) override;

private:
    ParameterContainerPrivate *m_container;
};
