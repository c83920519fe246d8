#pragma once

#include "value/ElementStore.h"
#include "value/ParameterDataDelegate.h"

#include <KrFirmware/eFunctionKind.h>
#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

class ElementCatalogue;
class ElementFacts;
class ParameterContainer;
class ParameterFunctionProvider;
class ParameterSetup;
class PropertyResolver;
class QRegularExpression;

namespace LmIniParser {
class IniSection;
}

/// The value record of one parameter in one living space: for every element the native text, the
/// default's native text and a change tag for each.
///
/// A text that is not there is computed on the first read and stored. Texts of elements that the
/// parameter lacks now, by a shortened element count or another definition, stay: a count that grows
/// again, or a definition that has them again, finds them.
class ParameterInstanceData {
public:
    /// What a load changed, in the order of the element list.
    struct Changes {
        QList<quint16> values;
        QList<quint16> defaults;
    };

    ParameterInstanceData();
    ~ParameterInstanceData();
    Q_DISABLE_COPY_MOVE(ParameterInstanceData)

    /// Counts the records of the process from 1.
    quint32 serialNumber() const { return m_serialNumber; }
    /// **Owner** of both is the instance set, which owns the record too. Null for a record whose set is
    /// gone while a function of the firmware still looks at it.
    void setOwner(
        ParameterSetup *owner, const PropertyResolver *properties, eLivingSpace livingSpace);
    ParameterSetup *owner() const { return m_owner; }
    /// Number of the record in saved keys and its living space.
    quint32 axisNumber() const { return m_axisNumber; }
    eLivingSpace livingSpace() const { return eLivingSpace(m_axisNumber); }
    const ParameterData *delegate() const { return &m_delegate; }
    /// Empty for an element that the parameter lacks.
    const ElementFacts &facts(quint16 element) const;
    /// Reaches the same element's texts under a new order of elements; what the new order lacks is kept
    /// aside.
    void rearrange(const ElementCatalogue &before, const ElementCatalogue &after);

    /// The native text. Where there is none the default is taken, stored and stamped. A stored text is
    /// told of an element that the parameter lacks now too, like defaultValue() and the tags.
    /// **Throws** ParameterException, like every operation that takes an element: reason 2 for an
    /// element that the parameter lacks, reason 7 without owner.
    QString value(quint16 element);
    /// Whether that is the native text; does all that value() does.
    bool hasValue(quint16 element, const QString &nativeText);
    /// The native text for questions that the firmware's functions depend on themselves: where there
    /// is none, the default as it is defined. Neither asks the firmware nor stores; an element that
    /// the parameter lacks has an empty text.
    QString valueWithoutFirmware(quint16 element) const;
    /// The default's native text. Where there is none the definition's default is corrected by the
    /// firmware, stored and stamped. An element of a simple parameter beyond the defined count has the
    /// default of element 0; none is stored for it.
    QString defaultValue(quint16 element);
    /// Stores and stamps with the container's change tag.
    void setValue(quint16 element, QString nativeText);
    void setDefaultValue(quint16 element, const QString &nativeText);
    /// Empty where there is none.
    QString valueChangeTag(quint16 element) const;
    QString defaultValueChangeTag(quint16 element) const;
    /// An empty tag removes the one that is there.
    void setValueChangeTag(quint16 element, const QString &tag);
    void setDefaultValueChangeTag(quint16 element, const QString &tag);
    /// Distinct tags that are not empty, sorted.
    QStringList changeTags() const;

    /// Throws or returns.
    void checkElement(quint16 element) const;
    /// Invalid without owner.
    ParameterAddress address(quint16 element) const;
    /// With axis prefix unless global, with element of a record and where more than one is defined.
    QString addressText(quint16 element) const;
    /// Whether the firmware accepts the native text; everything is accepted without firmware.
    /// **Reports** a refused text critical, titled with the container's domain.
    bool checkValue(quint16 element, const QString &nativeText);
    /// The firmware's answer alone; 0 is acceptable.
    quint32 checkCode(quint16 element, const QString &nativeText);
    /// **Reports** why a native text was refused.
    void rejectValue(quint16 element, const QString &nativeText, quint32 code);
    /// False where the definition forbids writing at all.
    bool isWritable(quint16 element) const;

    /// Native to value text. Identity without firmware, like toNative().
    QString toValueText(quint16 element, const QString &nativeText) const;
    QString toNativeText(quint16 element, const QString &valueText) const;
    QString lowerLimit(quint16 element) const;
    QString upperLimit(quint16 element) const;
    /// Does nothing without firmware.
    void runFunction(eFunctionKind kind, quint16 element);
    /// Asks for the limits anew. True where they differ from the ones asked for last by this; false
    /// where this never asked.
    bool updateLimits(quint16 element);
    /// Whether updateLimits() was asked before.
    bool areLimitsKnown(quint16 element) const;
    bool areUnitsKnown(quint16 element) const;
    /// What was told of limits and units is outdated, and the hidden flags of elements that the
    /// parameter lacks now.
    void forgetAnswers();
    /// Stores the unit texts. True where they differ from the ones stored; false where there were none.
    bool updateUnits(quint16 element, const QString &unitTexts);
    /// Asked of the firmware once; see updateHidden().
    bool isHidden(quint16 element);
    /// The firmware's answer of now; stored.
    bool updateHidden(quint16 element);
    bool isHiddenKnown(quint16 element) const;

    /// Brings an untagged value and default to the text that is expected, then tags them. For the
    /// reconciliation of stored values with the drive's.
    /// **Reports** each correction as information, titled with the container's domain.
    void correctUntagged(quint16 element, const QString &tag, const QString &expectedValueText);

    /// Named texts that go when the store of their name is cleared.
    QString namedText(const QString &name) const;
    void setNamedText(const QString &name, const QString &text);
    /// Drops the named text, and the texts whose change tag the pattern matches; tags stay.
    Changes discard(const QString &name, const QRegularExpression &tagPattern);

    /// Keys "V_", "VC_", "DV_", "DVC_" + axis number + "_" + element. A missing "V_" or "DV_" empties
    /// the text, a missing tag key leaves the container's change tag.
    /// **Encoding** UTF-8 with `utf8`, else Latin-1.
    Changes loadFromSection(const LmIniParser::IniSection &section, bool utf8);
    /// **Encoding** Latin-1.
    void saveToSection(LmIniParser::IniSection &section);

private:
    struct Computation;

    /// Null where nothing is stored for the element.
    const ElementTexts *find(quint16 element) const;
    /// Also of an element that the parameter lacks now.
    const ElementTexts *findKept(quint16 element) const;
    const ElementTexts *findAbsent(quint16 element) const;
    ElementTexts &entry(quint16 element);
    const ElementCatalogue &elements() const;
    ParameterContainer *container() const;
    ParameterFunctionProvider *provider() const;
    ChangeTag currentTag() const;
    /// The element whose definition's default the element has.
    quint16 defaultElement(quint16 element) const;
    QString computeDefault(quint16 element);
    bool isBeingComputed(quint16 element) const;
    void reportRejection(quint16 element, const QString &nativeText, quint32 code);

    ElementStore m_texts;
    ParameterSetup *m_owner = nullptr;
    const PropertyResolver *m_properties = nullptr;
    struct Told {
        QString limits;
        QString units;
    };
    /// What few records have. Null: nothing of it.
    struct Rare {
        QHash<QString, QString> namedTexts;
        /// What listeners were told last of elements that follow other values.
        QHash<quint16, Told> told;
        /// Texts of elements that the definition lacks and m_texts has no place for.
        QHash<quint16, ElementTexts> absent;
    };
    Rare &rare();
    /// Null where nothing was told.
    const Told *told(quint16 element) const;

    std::unique_ptr<Rare> m_rare;
    /// The innermost default that is being computed; null: none. On the stack of its computation.
    const Computation *m_computation = nullptr;
    ParameterDataDelegate m_delegate;
    quint32 m_serialNumber;
    quint32 m_axisNumber = 0;
};
