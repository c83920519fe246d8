#include <KrSystem/System.h>

System *System::instance()
{
    // Never destroyed: messages may still come while static objects of other libraries end.
    static System *const system = new System;
    return system;
}

SystemInformation *System::information()
{
    return &instance()->m_information;
}

void System::addInformationMessage(const QString &title, const QString &text)
{
    instance()->add({SystemMessage::eSeverity::Information, title, text});
}

void System::addWarningMessage(const QString &title, const QString &text)
{
    instance()->add({SystemMessage::eSeverity::Warning, title, text});
}

void System::addCriticalMessage(const QString &title, const QString &text)
{
    instance()->add({SystemMessage::eSeverity::Critical, title, text});
}

void System::add(const SystemMessage &message)
{
    // The list gives up its first entry by moving its begin, so that a full sink costs no more than
    // an empty one.
    if (m_messages.size() >= MessageBound)
        m_messages.removeFirst();
    m_messages.append(message);
    Q_EMIT messageAdded(message);
}
