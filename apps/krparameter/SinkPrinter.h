#pragma once

#include <KrSystem/SystemMessage.h>

#include <QtCore/QObject>

class Console;

/// Reports every message of the sink on the console, with its severity and title.
class SinkPrinter : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller; the console outlives the printer.
    explicit SinkPrinter(Console &console);

private:
    void print(const SystemMessage &message);

    Console &m_console;
};
