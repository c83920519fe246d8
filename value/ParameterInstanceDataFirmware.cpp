// What ParameterInstanceData asks the firmware: checks, conversions, limits, hidden flags, corrections.

#include "value/ParameterInstanceData.h"

#include "value/DisplayForms.h"
#include "value/NumberText.h"
#include "value/PropertyResolver.h"
#include "value/RejectionReport.h"

#include <KrDatatype/SimpleType.h>
#include <KrFirmware/ParameterFunctionProvider.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>
#include <KrSystem/System.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>

namespace {

/// Stores the text. True where it differs from the one that was there; what nobody knew did not change.
bool remember(QString &text, const QString &now)
{
    const bool isChanged = !text.isNull() && text != now;
    text = ElementTexts::stored(now);
    return isChanged;
}

} // namespace

bool ParameterInstanceData::checkValue(quint16 element, const QString &nativeText)
{
    const QPointer<ParameterSetup> owner(m_owner);
    const quint32 code = checkCode(element, nativeText);
    if (owner && code != 0 && elements().contains(element))
        rejectValue(element, nativeText, code);
    return owner && code == 0;
}

quint32 ParameterInstanceData::checkCode(quint16 element, const QString &nativeText)
{
    checkElement(element);
    ParameterFunctionProvider *firmware = provider();
    return firmware ? firmware->checkValue(nativeText, &m_delegate, element) : 0;
}

void ParameterInstanceData::rejectValue(quint16 element, const QString &nativeText, quint32 code)
{
    const QPointer<ParameterSetup> owner(m_owner);
    ParameterFunctionProvider *firmware = provider();
    const QString corrected =
        firmware ? firmware->correctValue(nativeText, &m_delegate, element) : nativeText;
    // Deliberate: the report names the corrected value, not the typed one.
    if (owner && elements().contains(element))
        reportRejection(element, corrected, code);
}

void ParameterInstanceData::reportRejection(
    quint16 element, const QString &nativeText, quint32 code)
{
    const QPointer<ParameterSetup> owner(m_owner);
    const QString valueText = toValueText(element, nativeText);
    if (!owner)
        return;
    // A text that is no number has no display form of a number: it is named as it was typed.
    const bool isNumberExpected =
        DisplayForms::showsNumbers(facts(element).kind, facts(element).type);
    const QString shown = isNumberExpected && !NumberText::isNumber(valueText)
        ? valueText
        : owner->prepareValueText(valueText, livingSpace(), element, true, nullptr);
    if (!owner || !elements().contains(element))
        return;
    System::addCriticalMessage(container()->domain(),
        RejectionReport::rejectionMessage(addressText(element), shown, code));
}

bool ParameterInstanceData::isWritable(quint16 element) const
{
    return !facts(element).isNeverWritten;
}

QString ParameterInstanceData::toValueText(quint16 element, const QString &nativeText) const
{
    ParameterFunctionProvider *firmware = provider();
    return firmware ? firmware->valueText(nativeText, &m_delegate, element) : nativeText;
}

QString ParameterInstanceData::toNativeText(quint16 element, const QString &valueText) const
{
    ParameterFunctionProvider *firmware = provider();
    return firmware ? firmware->nativeText(valueText, &m_delegate, element) : valueText;
}

QString ParameterInstanceData::lowerLimit(quint16 element) const
{
    ParameterFunctionProvider *firmware = provider();
    const QPointer<ParameterSetup> owner(m_owner);
    const QString limit = firmware ? firmware->lowerLimit(&m_delegate, element) : QString();
    return limit.isEmpty() && owner ? facts(element).lowerLimit : limit;
}

QString ParameterInstanceData::upperLimit(quint16 element) const
{
    ParameterFunctionProvider *firmware = provider();
    const QPointer<ParameterSetup> owner(m_owner);
    const QString limit = firmware ? firmware->upperLimit(&m_delegate, element) : QString();
    return limit.isEmpty() && owner ? facts(element).upperLimit : limit;
}

void ParameterInstanceData::runFunction(eFunctionKind kind, quint16 element)
{
    if (ParameterFunctionProvider *firmware = provider())
        firmware->runFunction(kind, &m_delegate, element);
}

bool ParameterInstanceData::updateLimits(quint16 element)
{
    const QPointer<ParameterSetup> owner(m_owner);
    const auto isThere = [&] { return owner && elements().contains(element); };
    const QString lower = isThere() ? lowerLimit(element) : QString();
    const QString upper = isThere() ? upperLimit(element) : QString();
    return isThere() && remember(rare().told[element].limits, lower + QChar(QChar::Null) + upper);
}

bool ParameterInstanceData::updateUnits(quint16 element, const QString &unitTexts)
{
    return remember(rare().told[element].units, unitTexts);
}

bool ParameterInstanceData::areLimitsKnown(quint16 element) const
{
    const Told *known = told(element);
    return known && !known->limits.isNull();
}

bool ParameterInstanceData::areUnitsKnown(quint16 element) const
{
    const Told *known = told(element);
    return known && !known->units.isNull();
}

void ParameterInstanceData::forgetAnswers()
{
    if (m_rare)
        m_rare->told.clear();
    for (size_t position = elements().count(); position < m_texts.size(); ++position)
        m_texts.at(position).isHiddenKnown = false;
}

bool ParameterInstanceData::isHidden(quint16 element)
{
    const ElementTexts *texts = find(element);
    return texts && texts->isHiddenKnown ? texts->isHidden : updateHidden(element);
}

bool ParameterInstanceData::updateHidden(quint16 element)
{
    ParameterFunctionProvider *firmware = provider();
    const QPointer<ParameterSetup> owner(m_owner);
    const bool isHidden = firmware && firmware->isHidden(&m_delegate, element);
    if (!owner || !elements().contains(element))
        return isHidden;
    ElementTexts &texts = entry(element);
    texts.isHidden = isHidden;
    texts.isHiddenKnown = true;
    return isHidden;
}

bool ParameterInstanceData::isHiddenKnown(quint16 element) const
{
    const ElementTexts *texts = find(element);
    return texts && texts->isHiddenKnown;
}

void ParameterInstanceData::correctUntagged(
    quint16 element, const QString &tag, const QString &expectedValueText)
{
    checkElement(element);
    const QPointer<ParameterSetup> owner(m_owner);
    const auto isThere = [&] { return owner && elements().contains(element); };
    const auto differs = [&](const QString &nativeText) {
        const QString current = isThere() ? toValueText(element, nativeText) : QString();
        return isThere() && current != expectedValueText;
    };
    const auto report = [&](const char *text) {
        if (owner) {
            System::addInformationMessage(container()->domain(),
                QCoreApplication::translate("ParameterInstanceData", text)
                    .arg(m_owner->coordinate().toText()));
        }
    };
    // Asked first: reading the value may fill in the default with its tag.
    const bool isValueTagged = !valueChangeTag(element).isEmpty();
    const bool isDefaultTagged = !defaultValueChangeTag(element).isEmpty();
    if (!isValueTagged) {
        if (differs(value(element))) {
            owner->setNativeValue(livingSpace(), element, expectedValueText);
            report(QT_TRANSLATE_NOOP("ParameterInstanceData", "Wert von Parameter %1 korrigiert!"));
        }
        if (isThere())
            setValueChangeTag(element, tag);
    }
    if (!isThere() || isDefaultTagged)
        return;
    if (differs(defaultValue(element))) {
        owner->setDefaultNativeValue(livingSpace(), element, expectedValueText);
        report(QT_TRANSLATE_NOOP(
            "ParameterInstanceData", "Default-Wert von Parameter %1 korrigiert!"));
    }
    if (isThere())
        setDefaultValueChangeTag(element, tag);
}

const ParameterInstanceData::Told *ParameterInstanceData::told(quint16 element) const
{
    if (!m_rare)
        return nullptr;
    const auto found = m_rare->told.constFind(element);
    return found != m_rare->told.constEnd() ? &*found : nullptr;
}

ParameterFunctionProvider *ParameterInstanceData::provider() const
{
    return m_owner->parameterContainer()->functionProvider();
}
