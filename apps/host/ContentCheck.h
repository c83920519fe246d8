#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>

#include <functional>

class DriveProject;
class ParameterDefinition;
class ParameterInformation;
struct ValuePlace;

/// Finds what a description says that cannot be meant, though it can be used.
class ContentCheck {
    Q_DECLARE_TR_FUNCTIONS(ContentCheck)

public:
    struct Finding {
        /// A path inside the description or an address; empty: the whole of it.
        QString place;
        QString text;
    };

    /// Every value is read once, all at their defaults. Findings of reading the description first,
    /// then numbers beyond the firmware's, dependencies that lead nowhere, values, and what the sink
    /// was told meanwhile.
    static QList<Finding> findings(DriveProject &project);

private:
    explicit ContentCheck(DriveProject &project)
        : m_project(project)
    {
    }

    void takeWarnings();
    void checkNumbers();
    void checkDependencies();
    void checkValues();
    void checkLimits(const ParameterInformation &parameter, const ValuePlace &place);
    void find(const ParameterInformation &parameter, const ValuePlace &place, const QString &text);
    /// Calls for every element that has properties of its own.
    void forEachInformation(
        const std::function<void(const ParameterInformation &, quint16)> &function);
    QHash<ParameterCoordinate, const ParameterDefinition *> definitions() const;

    DriveProject &m_project;
    QList<Finding> m_findings;
};
