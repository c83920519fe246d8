#pragma once

#include "apps/krparameter/Option.h"

#include <QtCore/QCoreApplication>

#include <optional>

class CommandLine;

/// Where a drive is reached, or where it listens.
class NetworkOptions {
    Q_DECLARE_TR_FUNCTIONS(NetworkOptions)

public:
    /// "--host" and "--port".
    static QList<Option> all();
    /// 127.0.0.1 where none is given.
    static QString host(const CommandLine &line);
    /// From 0 to 65535, 502 where none is given; empty for anything else, `error` says why.
    static std::optional<quint16> port(const CommandLine &line, QString &error);
    /// Of an option that takes a number from 0 to a greatest one; the default where it is not given.
    static std::optional<int> number(const CommandLine &line, const QString &option,
        int defaultValue, int greatest, QString &error);
};
