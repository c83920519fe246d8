#include "apps/krparameter-desk/SinkCapture.h"

#include <KrSystem/System.h>

SinkCapture::SinkCapture()
{
    QObject::connect(System::instance(), &System::messageAdded, &m_listener,
        [this](const SystemMessage &message) {
            if (!m_texts.contains(message.text))
                m_texts.append(message.text);
        });
}
