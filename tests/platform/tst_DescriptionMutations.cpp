#include <KrFirmware/ServoDriveFirmware.h>
#include <KrMultilingual/ParameterText.h>

#include <QtTest/QtTest>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <functional>
#include <memory>
#include <random>

namespace {

/// Every key of the format, each at least once; the element of the first parameter has all of its
/// own.
const char Complete[] = R"({
    "format": "kr-device-description", "version": 1,
    "family": {"identifier": 600, "name": "Drive", "hasPhysicalAxes": false, "axes": [1, 2]},
    "languages": ["de", "en"],
    "dataTypes": ["INT16", "STRING8"],
    "profiles": {
        "base": {"dataType": "INT16", "default": 3},
        "used": {"profile": "base", "levels": {"read": 1}, "settable": [5], "absent": [11]}},
    "systemStrings": {"1": "one"},
    "functions": {"limit": {"1": ""}, "scaling": {"1": ""}, "hiding": {"1": ""},
        "preRead": {"1": ""}, "preWrite": {"1": ""}, "postRead": {"1": ""}, "postWrite": {"1": ""}},
    "parameters": [
        {"number": 1, "identifier": "i", "version": 2,
         "name": {"de": {"short": "s", "long": "l"}, "en": "e"}, "nameCommonText": 1,
         "description": "d", "type": "simple", "instances": "single", "global": true,
         "physicalAxis": true, "coordinates": ["A01", "A02"], "anchors": ["D;x"],
         "elementCount": 3, "defaults": [1, "2"],
         "elements": [{
            "default": 4, "dataType": "INT16", "kind": 3, "levels": {"read": 1, "write": 2},
            "limits": {"lower": -5, "upper": "5"}, "memoryAllocation": 1, "enableOffRequired": 1,
            "processDataMappable": 1, "automaticOnlineUpdate": 1, "noWrite": 1,
            "choices": {"1": "c"}, "units": {"scaled": "A", "native": "B", "fieldbus": "C"},
            "scaling": {"factor": 0.5, "fullScale": 2},
            "decimals": {"behind": 1, "significant": 2}, "editStartStepSize": 0.5,
            "fieldbus": {"factor": 0.5, "decimals": 1}, "timeouts": {"read": 1, "write": 2},
            "cyclicOnlineUpdateRate": 1,
            "dependencies": {"limit": 1, "scaling": 1, "postWrite": 1, "preRead": 1, "postRead": 1,
                "preWrite": 1, "hiding": 1, "measuringUnit": 1},
            "functions": {"preRead": 1, "preWrite": 1, "postWrite": 1, "postRead": 1, "hiding": 1,
                "limit": 1, "scaling": 1},
            "scopeChoice": 1,
            "commonTexts": {"choices": [1], "scaledUnit": 1, "nativeUnit": 1, "fieldbusUnit": 1},
            "onlineOrder": 1, "shownOffline": 1, "descriptionReference": "r", "settable": [5],
            "absent": []}]},
        {"number": 2, "name": "b", "type": "record", "instances": "multi", "coordinates": ["A03"],
         "elements": [
            {"profile": "used", "number": 4, "name": "x", "nameCommonText": 1, "version": 3},
            {"dataType": "STRING8", "default": "x"}]}],
    "systemParameters": [
        {"number": 1, "name": "c", "coordinates": ["A04"], "elements": [{"dataType": "INT16"}]}]
})";

const QString CompleteElement = QStringLiteral("parameters[0].elements[0].");

enum class eDefault { Absent, Zero, EmptyText };

/// What an element has of a property whose key it lacks.
struct PropertyDefault {
    const char *path;
    quint32 property;
    eDefault byDefault;
};

constexpr PropertyDefault PropertyDefaults[] = {
    {"functions.preRead", 0, eDefault::Zero},
    {"functions.preWrite", 1, eDefault::Zero},
    {"functions.postWrite", 2, eDefault::Zero},
    {"functions.postRead", 3, eDefault::Zero},
    {"functions.hiding", 4, eDefault::Zero},
    {"levels.read", 5, eDefault::Zero},
    {"levels.write", 6, eDefault::Zero},
    {"functions.limit", 7, eDefault::Zero},
    {"limits.lower", 8, eDefault::Absent},
    {"limits.upper", 9, eDefault::Absent},
    {"memoryAllocation", 10, eDefault::Zero},
    {"kind", 11, eDefault::Zero},
    {"enableOffRequired", 12, eDefault::Zero},
    {"processDataMappable", 13, eDefault::Zero},
    {"automaticOnlineUpdate", 14, eDefault::Zero},
    {"noWrite", 15, eDefault::Zero},
    {"choices", 17, eDefault::Absent},
    {"units.scaled", 18, eDefault::EmptyText},
    {"units.native", 19, eDefault::EmptyText},
    {"scaling.factor", 20, eDefault::Absent},
    {"functions.scaling", 21, eDefault::Zero},
    {"scaling.fullScale", 22, eDefault::Absent},
    {"decimals.behind", 23, eDefault::Zero},
    {"decimals.significant", 24, eDefault::Zero},
    {"editStartStepSize", 25, eDefault::Absent},
    {"units.fieldbus", 26, eDefault::EmptyText},
    {"fieldbus.factor", 27, eDefault::Absent},
    {"fieldbus.decimals", 28, eDefault::Absent},
    {"timeouts.read", 29, eDefault::Zero},
    {"timeouts.write", 30, eDefault::Zero},
    {"cyclicOnlineUpdateRate", 31, eDefault::Zero},
    {"dependencies.limit", 32, eDefault::Zero},
    {"dependencies.scaling", 33, eDefault::Zero},
    {"dependencies.postWrite", 34, eDefault::Zero},
    {"dependencies.preRead", 35, eDefault::Zero},
    {"dependencies.postRead", 36, eDefault::Zero},
    {"dependencies.preWrite", 37, eDefault::Zero},
    {"dependencies.hiding", 38, eDefault::Zero},
    {"dependencies.measuringUnit", 39, eDefault::Zero},
    {"scopeChoice", 40, eDefault::Zero},
    {"commonTexts.choices", 41, eDefault::Absent},
    {"commonTexts.scaledUnit", 42, eDefault::Absent},
    {"commonTexts.nativeUnit", 43, eDefault::Absent},
    {"commonTexts.fieldbusUnit", 44, eDefault::Absent},
    {"onlineOrder", 45, eDefault::Zero},
    {"shownOffline", 47, eDefault::Absent},
    {"descriptionReference", 50, eDefault::Absent},
};

/// Keys whose absence is refused at their own path.
const char *const Required[] = {"format", "version", "family", "family.identifier", "family.name",
    "family.hasPhysicalAxes", "family.axes", "languages", "dataTypes", "parameters",
    "parameters[0].number", "parameters[0].name", "parameters[0].coordinates",
    "parameters[0].elements", "parameters[0].name.de.short", "parameters[0].name.de.long",
    "parameters[0].elements[0].dataType", "parameters[1].number", "parameters[1].name",
    "parameters[1].coordinates", "parameters[1].elements", "parameters[1].elements[1].dataType",
    "systemParameters[0].number", "systemParameters[0].name", "systemParameters[0].coordinates",
    "systemParameters[0].elements", "systemParameters[0].elements[0].dataType"};

/// Keys without which something else no longer fits.
struct Consequence {
    const char *removed;
    const char *refused;
};

constexpr Consequence Consequences[] = {
    {"profiles", "parameters[1].elements[0].profile"},
    {"profiles.base", "profiles.used.profile"},
    {"profiles.used", "parameters[1].elements[0].profile"},
    {"profiles.base.dataType", "parameters[1].elements[0].dataType"},
    {"profiles.used.profile", "parameters[1].elements[0].dataType"},
    {"parameters[0].elementCount", "parameters[0].defaults"},
    {"parameters[1].type", "parameters[1].elements"},
    {"parameters[1].elements[0].profile", "parameters[1].elements[0].dataType"},
};

/// Places that take a text as well as an object of texts by language.
const char *const Texts[] = {"systemStrings.1", "parameters[0].name", "parameters[0].description",
    "parameters[1].name", "systemParameters[0].name", "parameters[0].elements[0].choices.1",
    "parameters[0].elements[0].units.scaled", "parameters[0].elements[0].units.native",
    "parameters[0].elements[0].units.fieldbus", "parameters[1].elements[0].name"};

/// Places that take a number as well as a text.
const char *const NumbersOrTexts[] = {"profiles.base.default", "parameters[0].defaults[0]",
    "parameters[0].defaults[1]", "parameters[0].elements[0].default",
    "parameters[0].elements[0].limits.lower", "parameters[0].elements[0].limits.upper",
    "parameters[0].elements[0].descriptionReference"};

template <size_t Count>
bool contains(const char *const (&paths)[Count], const QString &path)
{
    return std::any_of(std::begin(paths), std::end(paths),
        [&path](const char *entry) { return path == QLatin1StringView(entry); });
}

/// A text by language, itself an object, takes a text or an object of its two forms.
bool isLanguageText(const QString &path)
{
    return path == QStringLiteral("parameters[0].name.de")
        || path == QStringLiteral("parameters[0].name.en");
}

/// A function takes a text or a list of lines.
bool isFunction(const QString &path)
{
    return path.startsWith(QStringLiteral("functions.")) && path.count(u'.') == 2;
}

bool isAccepted(const QString &path, QJsonValue::Type own, QJsonValue::Type given)
{
    if (given == own)
        return true;
    const bool isNumberOrText = given == QJsonValue::Double || given == QJsonValue::String;
    const bool isTextOrObject = given == QJsonValue::String || given == QJsonValue::Object;
    return (isFunction(path) && given == QJsonValue::Array)
        || (contains(NumbersOrTexts, path) && isNumberOrText)
        || ((contains(Texts, path) || isLanguageText(path)) && isTextOrObject);
}

struct Place {
    QString path;
    QJsonValue::Type type;
    bool isListEntry;
    /// The root with another value at the place, or without it where the value is undefined.
    std::function<QJsonValue(const QJsonValue &)> with;
};

using Rebuild = std::function<QJsonValue(const QJsonValue &)>;

void collect(
    QList<Place> &places, const QJsonValue &value, const QString &path, const Rebuild &rebuild)
{
    const auto add = [&places](const QString &at, const QJsonValue &inner, bool isListEntry,
                         const Rebuild &with) {
        places.append({at, inner.type(), isListEntry, with});
        collect(places, inner, at, with);
    };
    const QJsonObject object = value.toObject();
    for (const QString &key : object.keys()) {
        add(path.isEmpty() ? key : path + u'.' + key, object.value(key), false,
            [object, key, rebuild](const QJsonValue &given) {
                QJsonObject changed = object;
                if (given.isUndefined())
                    changed.remove(key);
                else
                    changed.insert(key, given);
                return rebuild(changed);
            });
    }
    const QJsonArray list = value.toArray();
    for (qsizetype i = 0; i < list.size(); ++i) {
        add(path + u'[' + QString::number(i) + u']', list.at(i), true,
            [list, i, rebuild](const QJsonValue &given) {
                QJsonArray changed = list;
                if (given.isUndefined())
                    changed.removeAt(i);
                else
                    changed.replace(i, given);
                return rebuild(changed);
            });
    }
}

QList<Place> allPlaces()
{
    QList<Place> places;
    collect(places, QJsonDocument::fromJson(Complete).object(), QString(),
        [](const QJsonValue &root) { return root; });
    return places;
}

struct Outcome {
    std::unique_ptr<ServoDriveFirmware> firmware;
    DescriptionError error;
};

Outcome load(const QByteArray &json)
{
    Outcome outcome;
    outcome.firmware =
        ServoDriveFirmware::loadFromBytes(json, QStringLiteral("d.json"), &outcome.error);
    return outcome;
}

Outcome load(const QJsonValue &root)
{
    return load(QJsonDocument(root.toObject()).toJson(QJsonDocument::Compact));
}

} // namespace

class tst_DescriptionMutations : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void completeDescriptionLoads();
    void keyIsRemoved();
    void listEntryIsRemoved();
    void typeIsWrong();
    void unknownKeyIsAdded();
    void fileIsCut();
    void bytesAreWrong();
    void rootIsOfAnotherType();

private:
    void compareDefault(const ServoDriveFirmware &firmware, const PropertyDefault &row);
};

void tst_DescriptionMutations::completeDescriptionLoads()
{
    const Outcome outcome = load(QByteArray(Complete));
    QVERIFY2(outcome.firmware, qPrintable(outcome.error.toText()));
    QCOMPARE(outcome.firmware->warnings(), QStringList());
    // The walk is over the whole file.
    QCOMPARE(allPlaces().size(), 161);
}

void tst_DescriptionMutations::keyIsRemoved()
{
    for (const Place &place : allPlaces()) {
        if (place.isListEntry)
            continue;
        const Outcome outcome = load(place.with(QJsonValue(QJsonValue::Undefined)));
        QString expected = contains(Required, place.path) ? place.path : QString();
        for (const Consequence &row : Consequences) {
            if (place.path == QLatin1StringView(row.removed))
                expected = QLatin1StringView(row.refused);
        }
        QVERIFY2(
            outcome.error.path == expected, qPrintable(place.path + u' ' + outcome.error.toText()));
        QCOMPARE(bool(outcome.firmware), expected.isEmpty());
        if (!outcome.firmware)
            continue;
        for (const PropertyDefault &row : PropertyDefaults) {
            const QString path = CompleteElement + QLatin1StringView(row.path);
            if (path == place.path || path.startsWith(place.path + u'.'))
                compareDefault(*outcome.firmware, row);
        }
    }
}

void tst_DescriptionMutations::compareDefault(
    const ServoDriveFirmware &firmware, const PropertyDefault &row)
{
    const ParameterProperty property =
        firmware.parameterDefinition(1)->queryElementInformation(0)->property(
            eParameterProperty(row.property));
    switch (row.byDefault) {
    case eDefault::Absent:
        QVERIFY2(!property.isValid(), row.path);
        break;
    case eDefault::Zero:
        QVERIFY2(property.isValid() && property.asVariant().toInt() == 0, row.path);
        break;
    case eDefault::EmptyText:
        QVERIFY2(property.asVariant() == QVariant::fromValue(ParameterText()), row.path);
        break;
    }
}

void tst_DescriptionMutations::listEntryIsRemoved()
{
    for (const Place &place : allPlaces()) {
        if (!place.isListEntry)
            continue;
        const Outcome outcome = load(place.with(QJsonValue(QJsonValue::Undefined)));
        QVERIFY2(bool(outcome.firmware) != outcome.error.isSet(), qPrintable(place.path));
        QVERIFY2(outcome.firmware || !outcome.error.path.isEmpty(), qPrintable(place.path));
    }
}

void tst_DescriptionMutations::typeIsWrong()
{
    const QJsonValue replacements[] = {
        QJsonValue(QJsonValue::Null), true, 5, QStringLiteral("x"), QJsonArray(), QJsonObject()};
    for (const Place &place : allPlaces()) {
        for (const QJsonValue &replacement : replacements) {
            if (isAccepted(place.path, place.type, replacement.type()))
                continue;
            const Outcome outcome = load(place.with(replacement));
            QVERIFY2(!outcome.firmware, qPrintable(place.path));
            QVERIFY2(outcome.error.path == place.path,
                qPrintable(place.path + u' ' + outcome.error.toText()));
            QCOMPARE(outcome.error.file, QStringLiteral("d.json"));
            QVERIFY(outcome.error.reason.startsWith(QStringLiteral("expected ")));
        }
    }
}

void tst_DescriptionMutations::unknownKeyIsAdded()
{
    // Objects whose keys are names or numbers of the file's own.
    const QStringList open {QStringLiteral("profiles")};
    const QString key = QStringLiteral("surprise");
    for (const Place &place : allPlaces()) {
        if (place.type != QJsonValue::Object || open.contains(place.path))
            continue;
        // The object itself does not matter: one that has the key alone shows it in every case but
        // where something required is missing, which is refused as well.
        const Outcome outcome = load(place.with(QJsonObject {{key, 1}}));
        QVERIFY2(!outcome.firmware, qPrintable(place.path));
        QVERIFY2(outcome.error.path.startsWith(place.path), qPrintable(outcome.error.toText()));
    }
}

void tst_DescriptionMutations::fileIsCut()
{
    const QByteArray json(Complete);
    for (qsizetype size = 0; size < json.size(); ++size) {
        const Outcome outcome = load(json.first(size));
        QVERIFY2(!outcome.firmware, QByteArray::number(size).constData());
        QVERIFY2(outcome.error.reason.startsWith(QStringLiteral("line ")),
            qPrintable(outcome.error.toText()));
    }
}

void tst_DescriptionMutations::bytesAreWrong()
{
    std::mt19937 random(20240229);
    for (int run = 0; run < 20'000; ++run) {
        QByteArray json(Complete);
        for (int change = int(random() % 4); change >= 0; --change)
            json[qsizetype(random() % quint32(json.size()))] = char(random() % 256);
        const Outcome outcome = load(json);
        QVERIFY(bool(outcome.firmware) != outcome.error.isSet());
    }
}

void tst_DescriptionMutations::rootIsOfAnotherType()
{
    for (const char *json : {"null", "true", "5", "\"x\"", "[]"}) {
        const Outcome outcome = load(QByteArray(json));
        QVERIFY(!outcome.firmware);
        QCOMPARE(outcome.error.toText(), QStringLiteral("d.json: expected an object"));
    }
}

QTEST_APPLESS_MAIN(tst_DescriptionMutations)
#include "tst_DescriptionMutations.moc"
