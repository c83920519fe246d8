#pragma once

#include <KrParameterDefinition/KrParameterDefinitionExport.h>

#include <QtCore/QtGlobal>

#include <exception>

/// Thrown by the value records for an element error; carries the reason as a number.
class KrParameterDefinition_EXPORT ParameterException : public std::exception {
public:
    enum eReason : quint32 {
        ElementNotInParameter = 2,
        NoOwningInstanceSet = 7,
    };

    explicit ParameterException(quint32 reason) noexcept
        : m_reason(reason)
    {
    }
    ~ParameterException() override;

    quint32 reason() const noexcept { return m_reason; }
    /// English text of the reason for logs, never null.
    const char *what() const noexcept override;

private:
    quint32 m_reason;
};
