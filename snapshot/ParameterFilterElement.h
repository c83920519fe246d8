#pragma once

#include <KrFilter/FilterElement.h>
#include <KrParameterDefinition/eLivingSpace.h>
#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QPointer>
#include <QtCore/QStringList>

class ParameterInformation;

/// Presents one element of one parameter in one living space to a filter.
///
/// Properties are asked for by the names of eParameterProperty, exactly as written there.
/// "LivingSpace", "Address" and everything from "ValueNative" on are computed texts; a number is
/// read from such a text in decimal, with or without blanks around it, 0 where it is none in range. Every other property is the parameter's
/// own and does not depend on the living space. Deliberate: a name that is unknown, also one that
/// differs in case, answers like "Coordinate".
class ParameterFilterElement : public FilterElement {
    Q_OBJECT

public:
    ParameterFilterElement();
    ~ParameterFilterElement() override;

    /// Null, and an information that is gone: every answer is empty. **Owner** the caller.
    void load(const ParameterInformation *information, eLivingSpace livingSpace, quint16 element);

    /// The number behind a property name; that of "Coordinate" for an unknown one.
    static eParameterProperty property(const QString &propertyName);

    /// Every name that is known, in the order of the numbers.
    static QStringList propertyNames();

    QString stringProperty(QString propertyName) const override;
    quint32 uint32Property(QString propertyName) const override;
    qint32 int32Property(QString propertyName) const override;
    double doubleProperty(QString propertyName) const override;

private:
    QString computedText(eParameterProperty property) const;
    QString livingSpaceText() const;
    QString defaultDisplayText() const;

    QPointer<const ParameterInformation> m_information;
    eLivingSpace m_livingSpace = eLivingSpace::Global;
    quint16 m_element = 0;
};
