#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

class ParameterInformation;
struct ValuePlace;

/// Says why the user cannot write a value now.
class WriteObstacle {
    Q_DECLARE_TR_FUNCTIONS(WriteObstacle)

public:
    enum class eKind { None, Connecting, ReadOnly, NeverWritten, Level, OnlineOnly, Unexplained };

    struct Facts {
        /// A drive is being called whose values replace all others.
        bool isConnecting;
        bool isWritable;
        bool isReadOnly;
        bool isNeverWritten;
        /// It is written online only, and the container is offline.
        bool isOffline;
        int writeLevel;
        quint32 userLevel;
    };

    /// Where several hold, the one that lasts longest. Unexplained: the value went meanwhile.
    static eKind kindOf(const Facts &facts);
    /// Empty where the value can be written.
    static QString text(
        const ParameterInformation &parameter, const ValuePlace &place, bool isConnecting);
};
