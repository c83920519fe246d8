#include "tests/model/ContainerModel.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array Letters {u'A', u'B', u'C', u'D', u'E', u'Q'};
constexpr std::array<quint16, 6> Lines {12, 7, 1, 20, 1, 0};

QString truth(bool value)
{
    return value ? u"true"_s : u"false"_s;
}

} // namespace

quint32 ContainerModel::readLevel(int parameter, int version)
{
    constexpr std::array<quint32, ParameterCount> levels {0, 2, 3, 0, 4, 1};
    return parameter == A12 ? quint32(2 * version) : levels[size_t(parameter)];
}

quint32 ContainerModel::writeLevel(int parameter)
{
    constexpr std::array<quint32, ParameterCount> levels {0, 2, 0, 1, 3, 4};
    return levels[size_t(parameter)];
}

quint16 ContainerModel::definedCount(int parameter, int version)
{
    return parameter == B07 ? quint16(2 + version) : quint16(1);
}

QList<quint16> ContainerModel::recordElements(int version)
{
    return version == 0 ? QList<quint16> {0, 5} : QList<quint16> {5, 0, 7};
}

bool ContainerModel::isModelled(const Step &step) const
{
    if (step.kind == Step::StartConsistence)
        return parameters[size_t(step.parameter)].instances.contains(
            livingSpace(step.parameter, step.livingSpace));
    if (step.kind != Step::Load)
        return true;
    // A block of other parameters empties what it lacks, which is told elsewhere.
    return std::equal(parameters.begin(), parameters.end(), m_saved.begin(),
        [](const Parameter &a, const Parameter &b) {
            return a.instances.keys() == b.instances.keys() && a.version == b.version
                && a.moveableLine == b.moveableLine;
        });
}

QStringList ContainerModel::take(const Step &step)
{
    const QString text = QString::number(step.number);
    const int space = livingSpace(step.parameter, step.livingSpace);
    Parameter &parameter = parameters[size_t(step.parameter)];
    const bool isPlace = isThere(step.parameter, space, step.element);
    QStringList told;
    switch (step.kind) {
    case Step::Create:
        told = create(step);
        break;
    case Step::Update:
        told = update(step);
        break;
    case Step::Delete:
        if (!parameter.instances.isEmpty())
            told = remove(step.parameter);
        break;
    case Step::Clear:
        told = clear();
        break;
    case Step::WriteDisplay: {
        const auto [lower, upper] = limits(step.parameter, space);
        const bool isInside = (lower.isEmpty() || step.number >= lower.toInt())
            && (upper.isEmpty() || step.number <= upper.toInt());
        if (isPlace && isInside)
            told = store(step.parameter, space, step.element, text);
        break;
    }
    case Step::WriteNative:
        if (elements(step.parameter).contains(step.element))
            told = storeOnline(step.parameter, space, step.element, text);
        break;
    case Step::WriteUndecorated:
        if (isPlace)
            told = store(step.parameter, space, step.element, text);
        break;
    case Step::Online:
        isOnline = step.number % 2 == 0;
        told = {u"c.onlineSetToChange(%1)"_s.arg(truth(isOnline)),
            u"c.onlineChanged(%1)"_s.arg(truth(isOnline))};
        break;
    case Step::ReadOnly:
        told = changeReadOnly(step.number % 2 == 0);
        break;
    case Step::Level:
        told = changeLevel(quint32(step.number % 6));
        break;
    case Step::Firmware:
        firmware = step.number % FirmwareCount;
        for (int i = 0; i < ParameterCount; ++i)
            told += askFlagsAnew(i);
        break;
    case Step::ElementCount:
        told = changeCount(quint16(step.number % 5));
        break;
    case Step::Coordinate:
        parameters[Q00].moveableLine = parameters[Q00].instances.isEmpty()
            ? parameters[Q00].moveableLine
            : quint16(step.number % 4);
        break;
    case Step::Save:
        save();
        break;
    case Step::Load:
        told = load();
        break;
    case Step::StartConsistence:
        told = startRun(step);
        break;
    case Step::CancelConsistence:
        if (!parameter.instances.isEmpty()) {
            parameter.runs.remove(space);
            told = {run("Canceled", step.parameter, space)};
        }
        break;
    case Step::KindCount:
        break;
    }
    materialize();
    return told;
}

QList<quint16> ContainerModel::elements(int parameter) const
{
    const Parameter &p = parameters[size_t(parameter)];
    if (p.instances.isEmpty())
        return {};
    if (parameter == D20)
        return recordElements(p.version);
    QList<quint16> list;
    for (quint16 element = 0; element < p.count; ++element)
        list.append(element);
    return list;
}

QString ContainerModel::coordinateText(int parameter) const
{
    const quint16 line = parameter == Q00 ? parameters[Q00].moveableLine : Lines[size_t(parameter)];
    return Letters[size_t(parameter)] + QString::number(line).rightJustified(2, u'0');
}

QString ContainerModel::value(int parameter, int livingSpace, quint16 element) const
{
    return parameters[size_t(parameter)].instances.value(livingSpace).values.value(element, u"0"_s);
}

bool ContainerModel::isVisible(int parameter, int livingSpace, quint16 element) const
{
    const Parameter &p = parameters[size_t(parameter)];
    return !p.instances.value(livingSpace).hidden.value(element)
        && readLevel(parameter, p.version) <= level;
}

bool ContainerModel::isWritable(int parameter) const
{
    return !isReadOnly && writeLevel(parameter) <= level;
}

std::pair<QString, QString> ContainerModel::limits(int parameter, int livingSpace) const
{
    if (parameter != B07 || firmware == 0)
        return {};
    if (firmware == 2)
        return {u"-1000"_s, u"1000"_s};
    if (!parameters[A12].instances.contains(livingSpace))
        return {};
    return {u"-100"_s, value(A12, livingSpace, 0)};
}

bool ContainerModel::isThere(int parameter, int livingSpace, quint16 element) const
{
    return parameters[size_t(parameter)].instances.contains(livingSpace)
        && elements(parameter).contains(element);
}

QString ContainerModel::address(int parameter, int livingSpace, quint16 element) const
{
    const QString text = coordinateText(parameter);
    return u"%1.%2%3[%4]"_s.arg(qMax(livingSpace, 1))
        .arg(text.front())
        .arg(text.sliced(1).toInt(), 3, 10, QLatin1Char('0'))
        .arg(element, 5, 10, QLatin1Char('0'));
}

QString ContainerModel::container(
    const char *signal, int parameter, int livingSpace, quint16 element) const
{
    return u"c.parameter%1(%2)"_s.arg(
        QLatin1String(signal), address(parameter, livingSpace, element));
}

QString ContainerModel::set(
    const char *signal, int parameter, int livingSpace, quint16 element) const
{
    return u"s.%1(%2)"_s.arg(QLatin1String(signal), address(parameter, livingSpace, element));
}

QString ContainerModel::run(const char *signal, int parameter, int livingSpace) const
{
    return u"run%1(%2 %3)"_s.arg(QLatin1String(signal), coordinateText(parameter)).arg(livingSpace);
}

QStringList ContainerModel::create(const Step &step)
{
    // The moveable one has one instance, so that every one of its locators leads to it.
    const int space = step.parameter == Q00 ? 1 : livingSpace(step.parameter, step.livingSpace);
    Parameter &parameter = parameters[size_t(step.parameter)];
    if (parameter.instances.contains(space))
        return {};
    if (parameter.instances.isEmpty()) {
        parameter = Parameter();
        parameter.version = step.number % VersionCount;
        parameter.count = definedCount(step.parameter, parameter.version);
    }
    parameter.instances.insert(space, {});
    return {u"c.parameterAdded(%1)"_s.arg(coordinateText(step.parameter))};
}

QStringList ContainerModel::update(const Step &step)
{
    Parameter &parameter = parameters[size_t(step.parameter)];
    const int version = step.number % VersionCount;
    if (parameter.instances.isEmpty() || parameter.version == version)
        return {};
    parameter.version = version;
    parameter.count = definedCount(step.parameter, version);
    if (step.parameter == D20) {
        for (Instance &instance : parameter.instances) {
            // Texts stay for a definition that has the element again.
            for (const quint16 element : instance.values.keys()) {
                if (!recordElements(version).contains(element))
                    instance.hidden.remove(element);
            }
        }
    }
    forgetAnswers(step.parameter);
    return definitionChanged(step.parameter) + loseElements(step.parameter)
        + askFlagsAnew(step.parameter);
}

QStringList ContainerModel::remove(int parameter)
{
    const QString told = u"c.parameterRemoved(%1)"_s.arg(coordinateText(parameter));
    parameters[size_t(parameter)] = Parameter();
    return {told};
}

QStringList ContainerModel::clear()
{
    QStringList told;
    for (int i = 0; i < ParameterCount; ++i) {
        if (!parameters[size_t(i)].instances.isEmpty())
            told += remove(i);
    }
    return told;
}

QStringList ContainerModel::store(
    int parameter, int livingSpace, quint16 element, const QString &text)
{
    if (value(parameter, livingSpace, element) == text)
        return {};
    if (parameter == A12) {
        // Asked for before the change where nobody did since.
        for (const quint16 each : elements(C01)) {
            if (parameters[C01].instances.contains(livingSpace)
                && !parameters[C01].instances[livingSpace].toldUnits.contains(each))
                parameters[C01].instances[livingSpace].toldUnits.insert(
                    each, value(A12, livingSpace, 0));
        }
    }
    parameters[size_t(parameter)].instances[livingSpace].values.insert(element, text);
    QStringList told {container("ValueChanged", parameter, livingSpace, element),
        container("NativeValueChanged", parameter, livingSpace, element)};
    return parameter == A12 ? told + followers(livingSpace, text) : told;
}

/// Limits, scaling, post-write, hiding, units.
QStringList ContainerModel::followers(int livingSpace, const QString &text)
{
    QStringList told = followLimits(livingSpace);
    if (parameters[E01].instances.contains(0))
        told += container("ValueChanged", E01, 0, 0);
    const int number = text.toInt();
    if (firmware != 0 && parameters[C01].instances.contains(livingSpace)
        && elements(D20).contains(5))
        told += storeOnline(
            D20, livingSpace, 5, QString::number(firmware == 1 ? number + 1 : number * 2));
    if (parameters[B07].instances.contains(livingSpace)) {
        for (const quint16 each : elements(B07))
            told += askFlagAnew(B07, livingSpace, each);
    }
    return told + followUnits(livingSpace, text);
}

QStringList ContainerModel::followLimits(int livingSpace)
{
    if (!parameters[B07].instances.contains(livingSpace))
        return {};
    QStringList told;
    for (const quint16 element : elements(B07)) {
        QString &known = parameters[B07].instances[livingSpace].toldLimits[element];
        const QString now = limitTexts(livingSpace);
        if (std::exchange(known, now) != now)
            told += set("limitsChanged", B07, livingSpace, element);
    }
    return told;
}

QStringList ContainerModel::followUnits(int livingSpace, const QString &text)
{
    if (!parameters[C01].instances.contains(livingSpace))
        return {};
    QStringList told;
    for (const quint16 element : elements(C01)) {
        QString &known = parameters[C01].instances[livingSpace].toldUnits[element];
        if (std::exchange(known, text) != text) {
            told += set("measuringUnitChanged", C01, livingSpace, element);
            told += container("MeasuringUnitChanged", C01, livingSpace, element);
        }
    }
    return told;
}

QString ContainerModel::limitTexts(int livingSpace) const
{
    const auto [lower, upper] = limits(B07, livingSpace);
    return lower + u' ' + upper;
}

QStringList ContainerModel::storeOnline(
    int parameter, int livingSpace, quint16 element, const QString &text)
{
    QStringList told;
    if (isThere(parameter, livingSpace, element))
        told = store(parameter, livingSpace, element, text);
    return told + arrived(parameter, livingSpace, element);
}

QStringList ContainerModel::arrived(int parameter, int livingSpace, quint16 element)
{
    const auto found = parameters[size_t(parameter)].runs.find(livingSpace);
    if (found == parameters[size_t(parameter)].runs.end() || !found->remove(element)
        || !found->isEmpty())
        return {};
    return {run("Done", parameter, livingSpace)};
}

QStringList ContainerModel::changeLevel(quint32 newLevel)
{
    if (newLevel == level)
        return {};
    QStringList told {u"c.accessLevelUpdateStarted()"_s};
    ContainerModel before = *this;
    level = newLevel;
    for (int i = 0; i < ParameterCount; ++i) {
        for (const int space : parameters[size_t(i)].instances.keys()) {
            for (const quint16 element : elements(i)) {
                if (isVisible(i, space, element) != before.isVisible(i, space, element))
                    told += container("VisibilityChanged", i, space, element);
                if (isWritable(i) != before.isWritable(i))
                    told += set("writabilityChanged", i, space, element);
            }
        }
    }
    return told + QStringList {u"c.accessLevelUpdateFinished()"_s};
}

QStringList ContainerModel::changeReadOnly(bool newReadOnly)
{
    QStringList told {u"c.readOnlySetToChange(%1)"_s.arg(truth(newReadOnly))};
    const ContainerModel before = *this;
    isReadOnly = newReadOnly;
    for (int i = 0; i < ParameterCount; ++i) {
        for (const int space : parameters[size_t(i)].instances.keys()) {
            for (const quint16 element : elements(i)) {
                if (isWritable(i) != before.isWritable(i))
                    told += set("writabilityChanged", i, space, element);
            }
        }
    }
    return told + QStringList {u"c.readOnlyChanged(%1)"_s.arg(truth(newReadOnly))};
}

QStringList ContainerModel::changeCount(quint16 count)
{
    Parameter &parameter = parameters[B07];
    if (parameter.instances.isEmpty() || isOnline || isReadOnly || count == 0)
        return {};
    parameter.count = count;
    forgetAnswers(B07);
    return definitionChanged(B07) + loseElements(B07)
        + QStringList {container("NativeValueChanged", B07, 1, 0)};
}

QStringList ContainerModel::load()
{
    QStringList told;
    for (int i = 0; i < ParameterCount; ++i) {
        Parameter &parameter = parameters[size_t(i)];
        const Parameter &saved = m_saved[size_t(i)];
        QStringList values;
        const bool isRecounted = parameter.count != saved.count;
        parameter.count = saved.count;
        for (const int space : parameter.instances.keys()) {
            for (const quint16 element : elements(i)) {
                const QString loaded = saved.instances.value(space).values.value(element, u"0"_s);
                // What was not there is new, whatever its default.
                const bool isThere = parameter.instances[space].values.contains(element);
                if (isThere && value(i, space, element) == loaded)
                    continue;
                parameter.instances[space].values.insert(element, loaded);
                values += container("ValueChanged", i, space, element);
                values += container("NativeValueChanged", i, space, element);
            }
            for (const quint16 element : elements(i)) {
                if (!parameter.instances[space].defaults.contains(element))
                    values += container("DefaultValueChanged", i, space, element);
                parameter.instances[space].defaults.insert(element);
            }
        }
        forgetAnswers(i);
        if (isRecounted)
            told += definitionChanged(i) + loseElements(i);
        told += values;
    }
    for (int i = 0; i < ParameterCount; ++i)
        told += askFlagsAnew(i);
    return told;
}

QStringList ContainerModel::startRun(const Step &step)
{
    const int space = livingSpace(step.parameter, step.livingSpace);
    if (!isOnline)
        return {run("Canceled", step.parameter, space)};
    QList<quint16> list = elements(step.parameter);
    std::sort(list.begin(), list.end());
    parameters[size_t(step.parameter)].runs.insert(
        space, QSet<quint16>(list.cbegin(), list.cend()));
    QStringList told;
    for (const quint16 element : list)
        told += container("NeedsOnlineConsistenceOnce", step.parameter, space, element);
    return told;
}

QStringList ContainerModel::loseElements(int parameter)
{
    QStringList told;
    const QList<quint16> list = elements(parameter);
    auto &runs = parameters[size_t(parameter)].runs;
    for (const int space : runs.keys()) {
        const QSet<quint16> awaited = runs.value(space);
        runs[space].intersect(QSet<quint16>(list.cbegin(), list.cend()));
        if (!awaited.isEmpty() && runs.value(space).isEmpty())
            told += run("Done", parameter, space);
    }
    return told;
}

QStringList ContainerModel::definitionChanged(int parameter) const
{
    QStringList told;
    for (const int space : parameters[size_t(parameter)].instances.keys()) {
        for (const quint16 element : elements(parameter))
            told += container("DefinitionChanged", parameter, space, element);
    }
    return told;
}

QStringList ContainerModel::askFlagsAnew(int parameter)
{
    forgetAnswers(parameter);
    QStringList told;
    for (const int space : parameters[size_t(parameter)].instances.keys()) {
        for (const quint16 element : elements(parameter)) {
            if (parameters[size_t(parameter)].instances[space].hidden.contains(element))
                told += askFlagAnew(parameter, space, element);
        }
    }
    return told;
}

QStringList ContainerModel::askFlagAnew(int parameter, int livingSpace, quint16 element)
{
    const bool wasVisible = isVisible(parameter, livingSpace, element);
    parameters[size_t(parameter)].instances[livingSpace].hidden.insert(
        element, answerHidden(parameter, livingSpace));
    return isVisible(parameter, livingSpace, element) == wasVisible
        ? QStringList()
        : QStringList {container("VisibilityChanged", parameter, livingSpace, element)};
}

bool ContainerModel::answerHidden(int parameter, int livingSpace) const
{
    if (parameter != B07 || firmware == 0 || !parameters[A12].instances.contains(livingSpace))
        return false;
    const int number = value(A12, livingSpace, 0).toInt();
    // At 7 the second firmware's function fails, which is no answer.
    return firmware == 1 ? number % 2 != 0 : number > 5 && number != 7;
}

/// What a change is measured by, and the flags of elements beyond the count.
void ContainerModel::forgetAnswers(int parameter)
{
    const QList<quint16> list = elements(parameter);
    for (Instance &instance : parameters[size_t(parameter)].instances) {
        instance.toldLimits.clear();
        instance.toldUnits.clear();
        for (const quint16 element : instance.hidden.keys()) {
            if (!list.contains(element))
                instance.hidden.remove(element);
        }
    }
}

bool ContainerModel::storesDefault(int parameter, quint16 element) const
{
    return parameter == D20
        || element < definedCount(parameter, parameters[size_t(parameter)].version);
}

void ContainerModel::save()
{
    for (int i = 0; i < ParameterCount; ++i) {
        for (Instance &instance : parameters[size_t(i)].instances) {
            for (const quint16 element : elements(i)) {
                if (storesDefault(i, element))
                    instance.defaults.insert(element);
            }
        }
    }
    m_saved = parameters;
}

/// The test reads everything after each step: what was not there is there then.
void ContainerModel::materialize()
{
    for (int i = 0; i < ParameterCount; ++i) {
        for (const int space : parameters[size_t(i)].instances.keys()) {
            Instance &instance = parameters[size_t(i)].instances[space];
            for (const quint16 element : elements(i)) {
                if (!instance.values.contains(element)) {
                    instance.values.insert(element, u"0"_s);
                    if (storesDefault(i, element))
                        instance.defaults.insert(element);
                }
                if (!instance.hidden.contains(element))
                    instance.hidden.insert(element, answerHidden(i, space));
                if (i == B07 && !instance.toldLimits.contains(element))
                    instance.toldLimits.insert(element, limitTexts(space));
            }
        }
    }
}
