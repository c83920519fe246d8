#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

/// Hears the messages of the sink for as long as it lives.
class SinkCapture {
public:
    SinkCapture();
    Q_DISABLE_COPY_MOVE(SinkCapture)

    /// One message a line, each once.
    QString text() const { return m_texts.join(QLatin1Char('\n')); }

private:
    QObject m_listener;
    QStringList m_texts;
};
