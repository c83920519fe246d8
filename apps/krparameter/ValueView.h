#pragma once

#include "apps/host/ValuePlace.h"

#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonObject>

class TrialCopy;

/// One value as the commands show it.
class ValueView {
    Q_DECLARE_TR_FUNCTIONS(ValueView)

public:
    /// **Owner** the caller of both, which outlive the view.
    ValueView(const ParameterInformation &parameter, const ValuePlace &place);

    QString address() const { return m_place.addressText(m_parameter); }
    /// The parameter's name, of a record with the element's behind it.
    QString name() const;
    /// The three forms; the display text with its unit.
    QString display() const;
    QString value() const;
    QString native() const;
    /// Also of an empty value.
    QString unit() const;
    QString nativeUnit() const;

    /// Why the display text, typed in again, would not give the same native text; empty where it
    /// would, for no text at all, and for a masked value, whose text stands for none.
    QString readBackNote(TrialCopy &trial) const;
    /// The note as a line of its own below the value; `subject` names the text where it is one of
    /// several.
    static QString noteLine(const QString &note, const QString &subject = {});
    /// "0: Aus, 1: Ein" without the choices that the limits rule out, "0.100 A bis 40.000 A", or what the
    /// data type takes; empty for a type that is not known.
    QString accepted(TrialCopy &trial) const;
    /// Why this user cannot write the value; empty where he can.
    QString writeRefusal() const;

    /// "address", "name", "display", "value", "native", "unit".
    QJsonObject toJson() const;
    /// The same with "note" where there is one.
    QJsonObject toNotedJson(TrialCopy &trial) const;
    /// The same with limits, choices, default and levels.
    QJsonObject toFullJson(TrialCopy &trial) const;
    /// Several lines, each with a line end.
    QString toFullText(TrialCopy &trial) const;

    /// In one line: line ends and other control characters escaped.
    static QString singleLine(const QString &text);

private:
    QString unit(eParameterProperty unit) const;
    bool isMasked(TrialCopy &trial) const;
    QString limit(TrialCopy &trial, const QString &nativeText) const;
    QString limits(TrialCopy &trial) const;
    QStringList choices() const;
    QStringList acceptedChoices(TrialCopy &trial) const;
    QString access() const;
    QString acceptedByType(TrialCopy &trial) const;
    int number(eParameterProperty property) const;

    const ParameterInformation &m_parameter;
    ValuePlace m_place;
};
