#pragma once

#include "apps/krparameter-desk/TrialTexts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPair>

/// What the table says about one value. A place that the device lacks has empty texts.
class RowTexts {
    Q_DECLARE_TR_FUNCTIONS(RowTexts)

public:
    /// A choice: native text, and the text that is shown.
    using Choice = QPair<QString, QString>;

    /// **Owner** of the project the caller; it outlives the texts.
    explicit RowTexts(DriveProject &project);

    QString address(const ValuePlace &place) const;
    /// The parameter's name, of a record with the element's behind it.
    QString name(const ValuePlace &place) const;
    /// As it is shown, without unit.
    QString value(const ValuePlace &place) const;
    QString unit(const ValuePlace &place) const;
    QString defaultValue(const ValuePlace &place) const;
    QString lowerLimit(const ValuePlace &place) const;
    QString upperLimit(const ValuePlace &place) const;
    QString changeTag(const ValuePlace &place) const;
    /// Empty for a value that is no choice.
    QList<Choice> choices(const ValuePlace &place) const;
    /// Empty for a value that is no choice.
    QString longestChoice(const ValuePlace &place) const;
    QString nativeValue(const ValuePlace &place) const;

    bool isVisible(const ValuePlace &place) const;
    /// The value that starts an action of the drive.
    bool startsAction(const ValuePlace &place) const;
    /// False for a value that the device measures: its default says nothing.
    bool differsFromDefault(const ValuePlace &place) const;
    /// Of a decimal number, which stands on the right.
    bool isNumber(const ValuePlace &place) const;
    /// Address, name, unit and value, one a line.
    QString searched(const ValuePlace &place) const;

private:
    QPointer<ParameterInformation> parameter(const ValuePlace &place) const;

    DriveProject &m_project;
    mutable TrialTexts m_trial;
};
