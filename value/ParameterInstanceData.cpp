#include "value/ParameterInstanceData.h"

#include "value/PropertyResolver.h"
#include "value/ValueTextConverter.h"

#include <KrFirmware/ParameterFunctionProvider.h>
#include <KrParameterDefinition/ParameterDefinition.h>
#include <KrParameterDefinition/ParameterException.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>
#include <LmUtilities/IniSection.h>

#include <QtCore/QPointer>
#include <QtCore/QRegularExpression>
#include <QtCore/QVarLengthArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace {

quint32 lastSerialNumber = 0;

/// The four keys of one element. "V_1_0" ends "DV_1_0", so two buffers carry them all.
class SectionKeys {
public:
    SectionKeys(quint32 axisNumber, quint16 element)
    {
        char *end = m_text.data() + Prefix;
        end = std::to_chars(end, m_text.data() + m_text.size(), axisNumber).ptr;
        *end++ = '_';
        end = std::to_chars(end, m_text.data() + m_text.size(), element).ptr;
        m_length = end - m_text.data() - Prefix;
        std::copy_n(m_text.data() + Prefix, m_length, m_tag.data() + TagPrefix);
    }

    QByteArrayView value() const { return {m_text.data() + 1, Prefix - 1 + m_length}; }
    QByteArrayView defaultValue() const { return {m_text.data(), Prefix + m_length}; }
    QByteArrayView valueTag() const { return {m_tag.data() + 1, TagPrefix - 1 + m_length}; }
    QByteArrayView defaultTag() const { return {m_tag.data(), TagPrefix + m_length}; }

private:
    static constexpr qsizetype Prefix = 3;
    static constexpr qsizetype TagPrefix = 4;

    std::array<char, 24> m_text {'D', 'V', '_'};
    std::array<char, 24> m_tag {'D', 'V', 'C', '_'};
    qsizetype m_length = 0;
};

QString decoded(QByteArrayView bytes, bool utf8)
{
    return ElementTexts::stored(utf8 ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes));
}

/// Writes without a byte array of its own; what Latin-1 lacks becomes "?".
void writeLatin1(LmIniParser::IniSection &section, QByteArrayView key, const QString &text)
{
    QVarLengthArray<char, 64> bytes(text.size());
    std::transform(text.cbegin(), text.cend(), bytes.begin(),
        [](QChar c) { return c.unicode() > 0xFF ? '?' : char(uchar(c.unicode())); });
    section.write(key, QByteArrayView(bytes.constData(), bytes.size()));
}

} // namespace

/// The default of an element while the firmware corrects it; nests, as the firmware may read others.
struct ParameterInstanceData::Computation {
    Computation(ParameterInstanceData &computed, quint16 computedElement)
        : record(computed)
        , owner(computed.m_owner)
        , element(computedElement)
        , outer(std::exchange(computed.m_computation, this))
    {
    }
    ~Computation()
    {
        if (owner)
            record.m_computation = outer;
    }
    Q_DISABLE_COPY_MOVE(Computation)

    ParameterInstanceData &record;
    /// Null once the record is gone.
    const QPointer<ParameterSetup> owner;
    const quint16 element;
    const Computation *const outer;
};

ParameterInstanceData::ParameterInstanceData()
    : m_delegate(this)
    , m_serialNumber(++lastSerialNumber)
{
}

ParameterInstanceData::~ParameterInstanceData() = default;

void ParameterInstanceData::setOwner(
    ParameterSetup *owner, const PropertyResolver *properties, eLivingSpace livingSpace)
{
    m_owner = owner;
    m_properties = properties;
    m_axisNumber = quint32(livingSpace);
}

void ParameterInstanceData::rearrange(const ElementCatalogue &before, const ElementCatalogue &after)
{
    if (!before.isRecord() && !after.isRecord())
        return;
    ElementStore texts;
    QHash<quint16, ElementTexts> absent;
    // A simple parameter keeps every element at the place of its number, beyond its count too.
    const auto place = [&after, &texts, &absent](quint16 element, ElementTexts &&moved) {
        const bool isWithinCount = !after.isRecord() && element < ElementCatalogue::GreatestCount;
        const qsizetype position = isWithinCount ? element : after.position(element);
        if (moved.isEmpty() && !after.contains(element))
            return;
        ElementTexts &placed =
            position == ElementCatalogue::NoPosition ? absent[element] : texts.at(size_t(position));
        placed = std::move(moved);
    };
    const QList<quint16> list = before.isRecord() ? before.list() : QList<quint16>();
    for (size_t i = 0; i < m_texts.size(); ++i) {
        if (!before.isRecord())
            place(quint16(i), std::move(m_texts.at(i)));
        else if (i < size_t(list.size()))
            place(list.at(qsizetype(i)), std::move(m_texts.at(i)));
    }
    if (m_rare) {
        // Order carries no meaning.
        for (auto it = m_rare->absent.begin(); it != m_rare->absent.end(); ++it)
            place(it.key(), std::move(it.value()));
        m_rare->absent.clear();
    }
    for (ElementTexts &each : absent)
        each.isHiddenKnown = false;
    if (!absent.isEmpty())
        rare().absent = std::move(absent);
    m_texts = std::move(texts);
}

QString ParameterInstanceData::value(quint16 element)
{
    const ElementTexts *texts = findKept(element);
    if (texts && !texts->value.isNull())
        return texts->value;
    checkElement(element);
    const QPointer<ParameterSetup> owner(m_owner);
    const QString text = defaultValue(element);
    // The firmware ran: what it stored stands, and what is still being computed is not kept.
    texts = owner ? find(element) : nullptr;
    if (texts && !texts->value.isNull())
        return texts->value;
    if (owner && elements().contains(element) && !isBeingComputed(defaultElement(element)))
        setValue(element, text);
    return text;
}

bool ParameterInstanceData::hasValue(quint16 element, const QString &nativeText)
{
    const ElementTexts *texts = findKept(element);
    return texts && !texts->value.isNull() ? texts->value == nativeText
                                           : value(element) == nativeText;
}

QString ParameterInstanceData::valueWithoutFirmware(quint16 element) const
{
    const ElementTexts *texts = find(element);
    if (texts && !texts->value.isNull())
        return texts->value;
    if (texts && !texts->defaultValue.isNull())
        return texts->defaultValue;
    if (!m_owner || !elements().contains(element))
        return {};
    return ValueTextConverter(*m_owner).adoptDefault(
        elements().definition()->elementDefaultValue(element), element);
}

QString ParameterInstanceData::defaultValue(quint16 element)
{
    const ElementTexts *texts = findKept(element);
    if (texts && !texts->defaultValue.isNull())
        return texts->defaultValue;
    if (!m_owner)
        throw ParameterException(ParameterException::NoOwningInstanceSet);
    if (defaultElement(element) != element)
        return defaultValue(0);
    checkElement(element);
    return computeDefault(element);
}

// Deliberate: a simple parameter answers every element beyond its defined count with the default of
// element 0.
quint16 ParameterInstanceData::defaultElement(quint16 element) const
{
    const ParameterDefinition *definition = elements().definition();
    const bool isBeyond =
        !elements().isRecord() && definition && definition->elementCount() <= element;
    return isBeyond ? quint16(0) : element;
}

QString ParameterInstanceData::computeDefault(quint16 element)
{
    const QPointer<ParameterSetup> owner(m_owner);
    ValueTextConverter converter(*m_owner);
    const QString text =
        converter.adoptDefault(elements().definition()->elementDefaultValue(element), element);
    // Correcting a default may read this very element; it is answered with the uncorrected text.
    if (!owner || isBeingComputed(element))
        return text;
    ParameterFunctionProvider *firmware = provider();
    QString corrected = text;
    if (firmware) {
        const Computation computation(*this, element);
        corrected = firmware->correctValue(text, &m_delegate, element);
        if (!owner)
            return corrected;
    }
    const ElementTexts *texts = find(element);
    if (texts && !texts->defaultValue.isNull())
        return texts->defaultValue;
    if (elements().contains(element))
        setDefaultValue(element, corrected);
    return corrected;
}

bool ParameterInstanceData::isBeingComputed(quint16 element) const
{
    for (const Computation *each = m_computation; each; each = each->outer) {
        if (each->element == element)
            return true;
    }
    return false;
}

void ParameterInstanceData::setValue(quint16 element, QString nativeText)
{
    ElementTexts &texts = entry(element);
    texts.value = ElementTexts::stored(std::move(nativeText));
    texts.valueTag = currentTag();
}

void ParameterInstanceData::setDefaultValue(quint16 element, const QString &nativeText)
{
    ElementTexts &texts = entry(element);
    texts.defaultValue = ElementTexts::stored(nativeText);
    texts.defaultTag = currentTag();
}

QString ParameterInstanceData::valueChangeTag(quint16 element) const
{
    const ElementTexts *texts = findKept(element);
    return texts ? texts->valueTag.text() : QString();
}

QString ParameterInstanceData::defaultValueChangeTag(quint16 element) const
{
    const ElementTexts *texts = findKept(element);
    return texts ? texts->defaultTag.text() : QString();
}

void ParameterInstanceData::setValueChangeTag(quint16 element, const QString &tag)
{
    entry(element).valueTag = ChangeTag(tag);
}

void ParameterInstanceData::setDefaultValueChangeTag(quint16 element, const QString &tag)
{
    entry(element).defaultTag = ChangeTag(tag);
}

QStringList ParameterInstanceData::changeTags() const
{
    QSet<QString> distinct;
    const size_t shown = std::min(m_texts.size(), size_t(elements().count()));
    for (size_t i = 0; i < shown; ++i) {
        const ElementTexts &texts = *m_texts.find(i);
        distinct << texts.valueTag.text() << texts.defaultTag.text();
    }
    QStringList tags(distinct.begin(), distinct.end());
    tags.removeAll(QString());
    tags.sort();
    return tags;
}

void ParameterInstanceData::checkElement(quint16 element) const
{
    if (!m_owner)
        throw ParameterException(ParameterException::NoOwningInstanceSet);
    if (!elements().contains(element))
        throw ParameterException(ParameterException::ElementNotInParameter);
}

ParameterAddress ParameterInstanceData::address(quint16 element) const
{
    if (!m_owner)
        return {};
    const bool isFirstAxis = m_axisNumber == 0 || m_owner->isGlobalParameter();
    return ParameterAddress(
        isFirstAxis ? 0 : quint8(m_axisNumber - 1), m_owner->coordinate(), element);
}

QString ParameterInstanceData::addressText(quint16 element) const
{
    checkElement(element);
    return address(element).toText(m_owner->isGlobalParameter(), elements().isElementNamed());
}

QString ParameterInstanceData::namedText(const QString &name) const
{
    return m_rare ? m_rare->namedTexts.value(name) : QString();
}

void ParameterInstanceData::setNamedText(const QString &name, const QString &text)
{
    rare().namedTexts.insert(name, text);
}

ParameterInstanceData::Changes ParameterInstanceData::discard(
    const QString &name, const QRegularExpression &tagPattern)
{
    if (m_rare)
        m_rare->namedTexts.remove(name);
    Changes changes;
    if (!tagPattern.isValid())
        return changes;
    const auto isDiscarded = [&tagPattern](const QString &text, const ChangeTag &tag) {
        return !text.isNull() && !tag.isEmpty() && tagPattern.match(tag.text()).hasMatch();
    };
    // Null for an element that the parameter lacks: nobody hears of it.
    const auto discardFrom = [&isDiscarded](ElementTexts &texts, quint16 element, Changes *shown) {
        if (isDiscarded(texts.value, texts.valueTag)) {
            texts.value = QString();
            if (shown)
                shown->values.append(element);
        }
        if (isDiscarded(texts.defaultValue, texts.defaultTag)) {
            texts.defaultValue = QString();
            if (shown)
                shown->defaults.append(element);
        }
    };
    const QList<quint16> list = elements().list();
    for (size_t i = 0; i < m_texts.size(); ++i) {
        const bool isShown = qsizetype(i) < list.size();
        discardFrom(m_texts.at(i), isShown ? list.at(qsizetype(i)) : quint16(0),
            isShown ? &changes : nullptr);
    }
    if (m_rare) {
        for (ElementTexts &texts : m_rare->absent)
            discardFrom(texts, 0, nullptr);
    }
    return changes;
}

ParameterInstanceData::Changes ParameterInstanceData::loadFromSection(
    const LmIniParser::IniSection &section, bool utf8)
{
    Changes changes;
    const QList<quint16> list = elements().list();
    const auto note = [&list](QList<quint16> &changed, qsizetype i) {
        if (list.size() == 1)
            changed = list;
        else
            changed.append(list.at(i));
    };
    m_texts.reserve(size_t(list.size()));
    for (qsizetype i = 0; i < list.size(); ++i) {
        const SectionKeys keys(m_axisNumber, list.at(i));
        ElementTexts &texts = m_texts.at(size_t(i));
        const auto take = [&](QByteArrayView key, QByteArrayView tagKey, QString &text,
                              ChangeTag &tag) {
            QString loaded = decoded(section.read(key), utf8);
            const bool isChanged = text.isNull() || text != loaded;
            text = std::move(loaded);
            const std::optional<QByteArrayView> tagBytes = section.find(tagKey);
            if (!tagBytes)
                tag = currentTag();
            else if (utf8)
                tag = ChangeTag(decoded(*tagBytes, utf8));
            else
                tag = ChangeTag(QLatin1StringView(*tagBytes));
            return isChanged;
        };
        if (take(keys.value(), keys.valueTag(), texts.value, texts.valueTag))
            note(changes.values, i);
        if (take(keys.defaultValue(), keys.defaultTag(), texts.defaultValue, texts.defaultTag))
            note(changes.defaults, i);
    }
    return changes;
}

void ParameterInstanceData::saveToSection(LmIniParser::IniSection &section)
{
    const QPointer<ParameterSetup> owner(m_owner);
    for (const quint16 element : elements().list()) {
        if (!elements().contains(element))
            continue;
        // Computing a text that is not there yet may run the firmware.
        const QString text = value(element);
        const QString defaultText =
            owner && elements().contains(element) ? defaultValue(element) : QString();
        const ElementTexts *texts = owner ? find(element) : nullptr;
        if (!owner)
            return;
        if (!texts)
            continue;
        const SectionKeys keys(m_axisNumber, element);
        writeLatin1(section, keys.value(), text);
        if (!texts->valueTag.isEmpty())
            writeLatin1(section, keys.valueTag(), texts->valueTag.text());
        writeLatin1(section, keys.defaultValue(), defaultText);
        if (!texts->defaultTag.isEmpty())
            writeLatin1(section, keys.defaultTag(), texts->defaultTag.text());
    }
}

const ElementTexts *ParameterInstanceData::find(quint16 element) const
{
    if (!m_properties)
        return nullptr;
    const qsizetype position = elements().position(element);
    return position == ElementCatalogue::NoPosition ? nullptr : m_texts.find(size_t(position));
}

const ElementTexts *ParameterInstanceData::findKept(quint16 element) const
{
    const ElementTexts *texts = find(element);
    return texts ? texts : findAbsent(element);
}

const ElementTexts *ParameterInstanceData::findAbsent(quint16 element) const
{
    if (!m_properties || elements().contains(element))
        return nullptr;
    const ElementTexts *beyond = elements().isRecord() ? nullptr : m_texts.find(element);
    if (beyond || !m_rare)
        return beyond;
    const auto found = m_rare->absent.constFind(element);
    return found != m_rare->absent.constEnd() ? &*found : nullptr;
}

ElementTexts &ParameterInstanceData::entry(quint16 element)
{
    checkElement(element);
    return m_texts.at(size_t(elements().position(element)));
}

ParameterInstanceData::Rare &ParameterInstanceData::rare()
{
    if (!m_rare)
        m_rare = std::make_unique<Rare>();
    return *m_rare;
}

const ElementFacts &ParameterInstanceData::facts(quint16 element) const
{
    return m_properties ? m_properties->facts(element) : ElementFacts::none();
}

const ElementCatalogue &ParameterInstanceData::elements() const
{
    return m_properties->elements();
}

ParameterContainer *ParameterInstanceData::container() const
{
    return m_owner->parameterContainer();
}

ChangeTag ParameterInstanceData::currentTag() const
{
    return ChangeTag(container()->parameterChangeTag());
}
