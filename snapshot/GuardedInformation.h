#pragma once

#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QPointer>

/// A parameter that may go away at any question: its texts come from the firmware's functions.
class GuardedInformation {
public:
    explicit GuardedInformation(ParameterInformation *information)
        : m_information(information)
    {
    }

    explicit operator bool() const { return !m_information.isNull(); }

    /// The answer of the parameter; an empty one once it is gone.
    template <typename Question>
    auto ask(Question question) const
    {
        return m_information ? question(*m_information) : decltype(question(*m_information)) {};
    }

private:
    QPointer<ParameterInformation> m_information;
};
