#pragma once

#include <KrMultilingual/ParameterTextMap.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

class ParameterInformation;

/// Converts the value texts of one parameter between their stored and their display form.
/// The caller has checked the element and the living space.
class ValueTextConverter {
public:
    /// **Owner** the caller of the information, which outlives the converter.
    explicit ValueTextConverter(const ParameterInformation &information);

    /// Value text to display text; an empty text stays empty. An empty `unit` appends none; only
    /// the decimal form has one.
    QString prepare(
        const QString &valueText, eLivingSpace livingSpace, quint16 element, const QString &unit);
    /// Display text to value text. `unit` is the scaled unit's long text that may follow a decimal
    /// number. **Refused** a text that is not of its form: the result is empty.
    QString adopt(
        const QString &displayText, eLivingSpace livingSpace, quint16 element, const QString &unit);
    /// A definition's default, which is in no display form.
    QString adoptDefault(const QString &text, quint16 element);
    /// A text in the form of a given parameter kind, without unit; an empty text stays empty.
    QString format(const QString &text, eLivingSpace livingSpace, quint16 element, int kind);

    /// The entries of the element's choice, placeholders replaced by what they stand for; empty where
    /// the element has no choice.
    ParameterTextMap choiceTexts(eLivingSpace livingSpace, quint16 element) const;

    /// Of the last call, one text for each fault; empty: the call succeeded.
    const QStringList &problems() const { return m_problems; }

private:
    const ParameterInformation &m_information;
    QStringList m_problems;
};
