#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

class Command;
class CommandTable;
struct Option;

/// The help of the program and of its commands.
class HelpText {
    Q_DECLARE_TR_FUNCTIONS(HelpText)

public:
    static QString ofProgram(const CommandTable &table);
    static QString ofCommand(const Command &command);

private:
    static QString exitCodes();
};
