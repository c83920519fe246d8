#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonArray>
#include <QtCore/QList>
#include <QtCore/QString>

class ParameterContainer;
class Progress;

/// The texts of a container that its saved block, which is Latin-1, cannot hold. Change tags of
/// overridden properties are known only for the read and the write level; others are not named.
struct LossReport {
    Q_DECLARE_TR_FUNCTIONS(LossReport)

public:
    enum class eText { Value, ValueChangeTag, DefaultValue, DefaultValueChangeTag, Property };

    struct Loss {
        QString address;
        eText kind = eText::Value;
        QString text;
    };

    QList<Loss> losses;
    bool wasCancelled = false;

    static LossReport of(ParameterContainer &container, Progress *progress = nullptr);

    bool isEmpty() const { return losses.isEmpty(); }
    /// One loss a line, with a line end behind each.
    QString toText() const;
    QJsonArray toJson() const;
};
