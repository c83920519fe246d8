#include <KrParameterInstance/ParameterContainer.h>

#include "container/BinaryValue.h"
#include "container/ComparisonSelection.h"
#include "container/ContainerPersistence.h"
#include "container/FirmwareContent.h"
#include "container/ParameterContainerPrivate.h"
#include "container/QuestionRound.h"
#include "value/ActionParameterImplementation.h"

#include <KrFirmware/ParameterFunctionProvider.h>
#include <KrDatatype/DatatypeProvider.h>
#include <KrParameterInstance/ParameterContainerHostInformation.h>

#include <QtCore/QRegularExpression>

#include <algorithm>

ParameterContainer::ParameterContainer(QObject *parent)
    : ParameterProvider(parent)
    , d(new ParameterContainerPrivate(this))
{
}

ParameterContainer::~ParameterContainer()
{
    delete d;
}

QList<ParameterContainer *> ParameterContainer::instances()
{
    return ParameterContainerPrivate::instances();
}

void ParameterContainer::setDomain(const QString &domain)
{
    d->domain = domain;
}

QString ParameterContainer::domain() const
{
    return d->domain;
}

void ParameterContainer::setFirmware(ServoDriveFirmware *firmware)
{
    d->setFirmware(firmware);
}

ServoDriveFirmware *ParameterContainer::firmware() const
{
    return d->firmware;
}

ParameterFunctionProvider *ParameterContainer::functionProvider() const
{
    return d->functionProvider.get();
}

void ParameterContainer::setHostInformation(ParameterContainerHostInformation *host)
{
    d->host = host;
}

ParameterContainerHostInformation *ParameterContainer::hostInformation() const
{
    return d->host;
}

unsigned int ParameterContainer::deviceFamilyIdentifier()
{
    return d->host ? d->host->deviceFamilyIdentifier() : 0;
}

bool ParameterContainer::isOnline() const
{
    return d->online;
}

bool ParameterContainer::isReadOnly() const
{
    return d->readOnly;
}

void ParameterContainer::setOnline(bool isOnline)
{
    const QPointer<ParameterContainer> guard(this);
    const quint32 call = ++d->onlineCalls;
    Q_EMIT onlineSetToChange(isOnline);
    // The latest call counts: one that a listener made is not undone by the older one.
    if (!guard || d->onlineCalls != call)
        return;
    const bool wasOnline = d->online;
    d->online = isOnline;
    for (const QPointer<CoordinateInstanceSet> &set : d->guardedSets()) {
        if (set)
            set->onOnlineChanged(wasOnline);
        // A listener that switched again has told the newer state.
        if (!guard || d->online != isOnline)
            return;
    }
    Q_EMIT onlineChanged(isOnline);
}

void ParameterContainer::setReadOnly(bool readOnly)
{
    const QPointer<ParameterContainer> guard(this);
    const quint32 call = ++d->readOnlyCalls;
    Q_EMIT readOnlySetToChange(readOnly);
    if (!guard || d->readOnlyCalls != call)
        return;
    const bool wasReadOnly = d->readOnly;
    d->readOnly = readOnly;
    for (const QPointer<CoordinateInstanceSet> &set : d->guardedSets()) {
        if (set)
            set->onReadOnlyChanged(wasReadOnly);
        // A listener that switched again has told the newer state.
        if (!guard || d->readOnly != readOnly)
            return;
    }
    Q_EMIT readOnlyChanged(readOnly);
}

bool ParameterContainer::createOrUpdateParameter(
    ParameterDefinition *definition, const QString &locatorText)
{
    return d->createOrUpdate(definition, locatorText);
}

void ParameterContainer::deleteParameter(const QString &locatorText)
{
    if (CoordinateInstanceSet *set = d->find(locatorText))
        d->remove(set);
}

void ParameterContainer::clear()
{
    d->removeAll(d->guardedSets());
}

void ParameterContainer::clear(const QString &name)
{
    // Deliberate: the stores of one device state keep global values, that of state 0 does not.
    const bool isGlobalExempt =
        name.startsWith(QLatin1String("ts_")) && !name.startsWith(QLatin1String("ts_0"));
    const QRegularExpression tagPattern(name);
    const QPointer<ParameterContainer> guard(this);
    for (const QPointer<CoordinateInstanceSet> &set : d->guardedSets()) {
        if (set && !(isGlobalExempt && set->isGlobalParameter()))
            set->clearStore(name, tagPattern);
        if (!guard)
            return;
    }
}

ParameterDefinition *ParameterContainer::queryParameter(const QString &locatorText) const
{
    const CoordinateInstanceSet *set = d->find(locatorText);
    return set ? set->definition() : nullptr;
}

ParameterSetup *ParameterContainer::queryParameterInstance(const QString &locatorText) const
{
    return d->find(locatorText);
}

QList<QString> ParameterContainer::queryParameterAnchors(
    const QString &locatorText, bool exact) const
{
    QString pattern = locatorText;
    pattern.replace(QLatin1Char('.'), QLatin1String("\\."));
    pattern =
        QLatin1Char('^') + pattern + (exact ? QLatin1String(";") : QLatin1String("(\\.(\\d+))+;"));
    const QRegularExpression expression(pattern);
    QList<QString> anchors;
    if (!expression.isValid())
        return anchors;
    for (auto it = d->locatorSets.cbegin(); it != d->locatorSets.cend(); ++it) {
        if (expression.match(it.key()).hasMatch())
            anchors.append(it.key());
    }
    return anchors;
}

QPointer<ParameterSetup> ParameterContainer::parameterSetup(const ParameterCoordinate &coordinate)
{
    return QPointer<ParameterSetup>(d->find(coordinate));
}

QPointer<ParameterInformation> ParameterContainer::parameterInformation(
    const ParameterCoordinate &coordinate)
{
    return QPointer<ParameterInformation>(d->find(coordinate));
}

QList<ParameterCoordinate> ParameterContainer::parameterList()
{
    return d->coordinateSets.coordinates();
}

QList<ParameterCoordinate> ParameterContainer::compareParameterCoordinateList(
    eLivingSpace livingSpace)
{
    const ComparisonSelection selection(livingSpace);
    QList<ParameterCoordinate> list;
    for (const QPointer<CoordinateInstanceSet> &set : d->guardedSets()) {
        if (set && selection.accepts(set))
            list.append(set->coordinate());
    }
    return list;
}

ActionParameter *ParameterContainer::createAction(QString coordinateText, eLivingSpace livingSpace)
{
    const QPointer<ParameterSetup> setup = parameterSetup(ParameterCoordinate(coordinateText));
    return setup ? new ActionParameterImplementation(setup, livingSpace) : nullptr;
}

QList<QString> ParameterContainer::contentIssuesForFirmware(ServoDriveFirmware *firmware) const
{
    FirmwareContent content;
    d->coordinateSets.forEach([&content](const CoordinateInstanceSet &set) { content.add(set); });
    return firmware ? content.issues(*firmware) : QList<QString>();
}

QString ParameterContainer::readValue(eLivingSpace livingSpace,
    const ParameterCoordinate &coordinate, quint16 element, bool withUnit) const
{
    const CoordinateInstanceSet *set = d->find(coordinate);
    return set ? set->displayValueText(livingSpace, element, withUnit) : QString();
}

QString ParameterContainer::readValueNative(eLivingSpace livingSpace,
    const ParameterCoordinate &coordinate, quint16 element, bool withUnit) const
{
    const CoordinateInstanceSet *set = d->find(coordinate);
    return set ? set->nativeValueText(livingSpace, element, withUnit) : QString();
}

QString ParameterContainer::readUndecoratedValue(eLivingSpace livingSpace,
    const ParameterCoordinate &coordinate, quint16 element, bool withUnit) const
{
    const CoordinateInstanceSet *set = d->find(coordinate);
    return set ? set->valueText(livingSpace, element, withUnit) : QString();
}

void ParameterContainer::writeValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate,
    quint16 element, const QString &text)
{
    if (CoordinateInstanceSet *set = d->find(coordinate))
        set->setValueText(livingSpace, element, text);
}

void ParameterContainer::writeValueNative(eLivingSpace livingSpace,
    const ParameterCoordinate &coordinate, quint16 element, const QString &text)
{
    if (CoordinateInstanceSet *set = d->find(coordinate))
        set->setOnlineValueText(livingSpace, element, text);
}

void ParameterContainer::writeUndecoratedValue(eLivingSpace livingSpace,
    const ParameterCoordinate &coordinate, quint16 element, const QString &text)
{
    if (CoordinateInstanceSet *set = d->find(coordinate))
        set->setNativeValue(livingSpace, element, text);
}

QByteArray ParameterContainer::nativeValueBinary(
    const ParameterAddress &address, bool byteOrder) const
{
    const CoordinateInstanceSet *set = d->find(address.coordinate());
    const eLivingSpace livingSpace = d->livingSpace(address);
    if (!set || !set->hasInstance(livingSpace))
        return {};
    const SimpleType *type = BinaryValue::typeOf(*set, address.element());
    if (!type)
        return {};
    const QString text = set->nativeValueText(livingSpace, address.element(), false);
    return BinaryValue::pack(text, *type, BinaryValue::byteOrder(byteOrder));
}

void ParameterContainer::setNativeValueBinary(
    const ParameterAddress &address, const QByteArray &bytes, bool byteOrder, bool fromDevice)
{
    CoordinateInstanceSet *set = d->find(address.coordinate());
    const SimpleType *type = set ? BinaryValue::typeOf(*set, address.element()) : nullptr;
    if (!type || bytes.size() < qsizetype(type->sizeInBytes()))
        return;
    const QString text = BinaryValue::unpack(bytes, *type, BinaryValue::byteOrder(byteOrder));
    const eLivingSpace livingSpace = d->livingSpace(address);
    if (fromDevice)
        set->setOnlineValueText(livingSpace, address.element(), text);
    else
        set->setNativeText(livingSpace, address.element(), text);
}

eLivingSpace ParameterContainer::activeLivingSpace(eLivingSpace requested) const
{
    return d->activeLivingSpace(requested);
}

bool ParameterContainer::isGlobalParameter(const ParameterCoordinate &coordinate) const
{
    const CoordinateInstanceSet *set = d->find(coordinate);
    return set && set->definition() && d->isGlobal(set->definition());
}

bool ParameterContainer::isParameterMapped(const ParameterAddress &address) const
{
    return d->isMapped(address);
}

void ParameterContainer::setBlockUsedParameters(const QList<QString> &addressTexts)
{
    d->blockUsedAddresses.clear();
    for (const QString &text : addressTexts) {
        const ParameterAddress address(text, true);
        if (address.isValid())
            d->blockUsedAddresses.append(address);
    }
}

bool ParameterContainer::isParameterBlockUsed(const ParameterAddress &address) const
{
    return std::any_of(d->blockUsedAddresses.cbegin(), d->blockUsedAddresses.cend(),
        [number = address.toNumber()](
            const ParameterAddress &used) { return used.toNumber() == number; });
}

QList<ParameterAddress> ParameterContainer::parameterAddressList(const QString &name)
{
    const auto found = d->addressLists.constFind(name);
    if (found != d->addressLists.constEnd())
        return *found;
    return *d->addressLists.insert(name, d->addresses());
}

void ParameterContainer::resetParameterAddressList(const QString &name)
{
    d->addressLists.remove(name);
}

void ParameterContainer::dispatchDependencyChange(eParameterProperty property,
    eLivingSpace livingSpace, const ParameterCoordinate &coordinate, quint16 element)
{
    d->dispatchDependencyChange(property, livingSpace, coordinate, element);
}

void ParameterContainer::dispatchParameterOnlineConsistenceNeed(
    const ParameterAddress &address, bool value)
{
    Q_EMIT parameterNeedsOnlineConsistence(address, value);
}

void ParameterContainer::dispatchParameterOnlineConsistenceNeedOnce(const ParameterAddress &address)
{
    Q_EMIT parameterNeedsOnlineConsistenceOnce(address);
}

bool ParameterContainer::loadFrom(QMap<QString, QByteArray> &blocks)
{
    ContainerPersistence::load(blocks.value(ContainerPersistence::blockName()), *d);
    return true;
}

bool ParameterContainer::saveTo(QMap<QString, QByteArray> &blocks) const
{
    blocks.insert(ContainerPersistence::blockName(), ContainerPersistence::save(*d));
    return true;
}

QString ParameterContainer::parameterChangeTag() const
{
    return d->parameterChangeTag;
}

QString ParameterContainer::setParameterChangeTag(const QString &tag)
{
    return std::exchange(d->parameterChangeTag, tag);
}

void ParameterContainer::updateParameterChangeTagsIfEmpty(
    const QMap<QString, QString> &valueTags, const QMap<QString, QString> &defaultTags)
{
    // A tag is kept with a text, and a text that is not there is taken from the firmware first.
    const QPointer<ParameterContainer> guard(this);
    const QuestionRound round(*d);
    const auto each = [&](const QMap<QString, QString> &tags, auto fill) {
        for (auto it = tags.cbegin(); guard && it != tags.cend(); ++it) {
            const ParameterAddress address(it.key(), true);
            if (CoordinateInstanceSet *set = d->find(address.coordinate()))
                fill(set, d->livingSpace(address), address.element(), it.value());
        }
    };
    // The defaults first: a value that is not there stamps the default that it is taken from.
    each(defaultTags,
        [](CoordinateInstanceSet *set, eLivingSpace livingSpace, quint16 element,
            const QString &tag) {
            if (set->attribute(livingSpace, element, QStringLiteral("DefaultValueChangeTag"))
                    .isEmpty())
                set->setDefaultValueChangeTag(livingSpace, element, tag);
        });
    each(valueTags,
        [](CoordinateInstanceSet *set, eLivingSpace livingSpace, quint16 element,
            const QString &tag) {
            if (set->attribute(livingSpace, element, QStringLiteral("ValueChangeTag")).isEmpty())
                set->setValueChangeTag(livingSpace, element, tag);
        });
}
