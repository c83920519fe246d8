#include "apps/import/ObjectDictionaryReader.h"

#include "apps/import/DictionaryEntryReader.h"
#include "apps/import/EdsFile.h"
#include "apps/import/EdsNumber.h"
#include "apps/import/ImportRemarks.h"
#include "apps/import/ObjectListCheck.h"
#include "apps/import/ObjectSections.h"

namespace {

constexpr quint16 FirstObjectIndex = 0x1000;
constexpr quint8 LastCompactSubIndex = 0xFE;
constexpr quint32 Unsigned8 = 0x0005;

enum eObjectType : quint32 {
    Domain = 2,
    DefType = 5,
    DefStruct = 6,
    Var = 7,
    Array = 8,
    Record = 9
};

QString placeOf(quint16 index)
{
    return SkippedObject {index, std::nullopt, 0, {}}.place();
}

class Reader {
public:
    Reader(const EdsFile &file, ImportRemarks &remarks)
        : m_file(file)
        , m_remarks(remarks)
    {
    }

    ObjectDictionary read()
    {
        const QMap<quint16, ObjectSections> sections = ObjectSections::collect(m_file, m_remarks);
        m_dictionary.device = DeviceInformation::read(m_file, m_remarks);
        for (auto it = sections.cbegin(); it != sections.cend(); ++it)
            readObject(it.key(), it.value());
        m_dictionary.skipped += ObjectListCheck::run(m_file, sections, m_remarks);
        return m_dictionary;
    }

private:
    void readObject(quint16 index, const ObjectSections &sections)
    {
        if (index < FirstObjectIndex) {
            skip(index, sections.line,
                ObjectDictionaryReader::tr("Indizes unter 0x1000 beschreiben Datentypen"));
            return;
        }
        if (sections.object == nullptr && sections.subObjects.isEmpty()) {
            skip(index, sections.line,
                ObjectDictionaryReader::tr("nur Listen, aber kein Abschnitt des Objekts"));
            return;
        }
        if (sections.object == nullptr)
            m_remarks.add(sections.line,
                ObjectDictionaryReader::tr("%1 hat Unterobjekte, aber keinen eigenen Abschnitt")
                    .arg(placeOf(index)));

        // A section with its values at sub-indices is a record even where it claims to be none.
        const EdsSection absent(placeOf(index), sections.line);
        const EdsSection &own = sections.object == nullptr ? absent : *sections.object;
        const int compact = compactCount(own);
        const quint32 type = objectType(own, !sections.subObjects.isEmpty() || compact > 0);
        const QString reason = reasonToSkip(type);
        if (!reason.isEmpty()) {
            skip(index, sections.line, reason);
            return;
        }
        DictionaryObject object;
        object.index = index;
        object.line = own.line();
        object.name = own.printable(QStringLiteral("ParameterName"));
        object.denotation = own.printable(QStringLiteral("Denotation"));
        object.isRecord = type != Var || !sections.subObjects.isEmpty() || compact > 0;
        if (object.isRecord)
            readSubObjects(object, sections, own, compact);
        else
            readValue(object, own);
    }

    static QString reasonToSkip(quint32 objectType)
    {
        switch (objectType) {
        case 0:
            return ObjectDictionaryReader::tr("NULL, ein Objekt ohne Inhalt");
        case Domain:
            return ObjectDictionaryReader::tr("DOMAIN, ein Datenblock ohne eigenen Wert");
        case DefType:
        case DefStruct:
            return ObjectDictionaryReader::tr("beschreibt einen Datentyp");
        case Var:
        case Array:
        case Record:
            return {};
        default:
            return ObjectDictionaryReader::tr("die Objektart %1 ist unbekannt").arg(objectType);
        }
    }

    quint32 objectType(const EdsSection &section, bool hasSubObjects)
    {
        const quint32 missing = hasSubObjects ? Record : Var;
        const EdsEntry entry = section.entry(QStringLiteral("ObjectType"));
        const EdsNumber parsed = EdsNumber::parse(entry.value);
        if (parsed.state() == EdsNumber::eState::Empty)
            return missing;
        const auto value = parsed.unsignedValue(0xFFFFFFFF);
        if (!value) {
            m_remarks.add(
                entry, ObjectDictionaryReader::tr("ist keine Objektart; gilt als fehlend"));
            return missing;
        }
        if (*value == Var && hasSubObjects)
            m_remarks.add(entry,
                ObjectDictionaryReader::tr(
                    "nennt einen einzelnen Wert, aber es gibt Unterobjekte"));
        return *value;
    }

    int compactCount(const EdsSection &section)
    {
        const EdsEntry entry = section.entry(QStringLiteral("CompactSubObj"));
        const EdsNumber parsed = EdsNumber::parse(entry.value);
        const auto count = parsed.unsignedValue(LastCompactSubIndex);
        if (!count && parsed.state() != EdsNumber::eState::Empty)
            m_remarks.add(entry,
                ObjectDictionaryReader::tr(
                    "ist keine Anzahl von Unterobjekten von 0 bis 254; übersprungen"));
        const int made = int(count.value_or(0));
        if (m_compactCount + made > ObjectDictionaryReader::MaximumCompactSubObjects) {
            m_remarks.add(entry,
                ObjectDictionaryReader::tr(
                    "ergibt mehr Unterobjekte, als eine Datei haben darf; übersprungen"));
            return 0;
        }
        m_compactCount += made;
        return made;
    }

    void readValue(DictionaryObject &object, const EdsSection &section)
    {
        const auto entry = readEntry(object.index, std::nullopt, section);
        if (!entry)
            return;
        object.entries.append(*entry);
        m_dictionary.objects.insert(object.index, object);
    }

    void readSubObjects(DictionaryObject &object, const ObjectSections &sections,
        const EdsSection &own, int compact)
    {
        QMap<quint8, DictionaryEntry> entries = compactEntries(object, sections, own, compact);
        for (auto it = sections.subObjects.cbegin(); it != sections.subObjects.cend(); ++it) {
            entries.remove(it.key());
            auto entry = readEntry(object.index, it.key(), **it);
            if (!entry)
                continue;
            fillIn(entry->defaultValue, sections.defaults, it.key());
            fillIn(entry->configuredValue, sections.values, it.key());
            entries.insert(it.key(), *entry);
        }
        if (compact == 0)
            checkSubNumber(own, sections);
        if (entries.isEmpty()) {
            skip(object.index, object.line,
                sections.subObjects.isEmpty() && compact == 0
                    ? ObjectDictionaryReader::tr("hat keine Unterobjekte")
                    : ObjectDictionaryReader::tr("keines seiner Unterobjekte hat einen Wert"));
            return;
        }
        object.entries = entries.values();
        m_dictionary.objects.insert(object.index, object);
    }

    /// Sub-index 0 and those that CompactSubObj stands for, described by the object's own section.
    QMap<quint8, DictionaryEntry> compactEntries(const DictionaryObject &object,
        const ObjectSections &sections, const EdsSection &own, int count)
    {
        const auto common = count == 0 ? std::nullopt : readEntry(object.index, std::nullopt, own);
        if (!common)
            return {};

        QMap<quint8, DictionaryEntry> entries;
        entries.insert(0, highestSubIndex(count, own.line()));
        for (int subIndex = 1; subIndex <= count; ++subIndex) {
            const QString key = QString::number(subIndex);
            DictionaryEntry entry = *common;
            entry.subIndex = quint8(subIndex);
            entry.name = sections.names == nullptr ? QString() : sections.names->printable(key);
            if (entry.name.isEmpty())
                entry.name = object.name + key;
            if (sections.defaults != nullptr && sections.defaults->contains(key))
                entry.defaultValue = {};
            entry.configuredValue = {};
            fillIn(entry.defaultValue, sections.defaults, entry.subIndex);
            fillIn(entry.configuredValue, sections.values, entry.subIndex);
            entries.insert(entry.subIndex, entry);
        }
        return entries;
    }

    static DictionaryEntry highestSubIndex(int count, int line)
    {
        DictionaryEntry entry;
        entry.line = line;
        entry.name = QStringLiteral("NrOfObjects");
        entry.dataType = Unsigned8;
        entry.defaultValue = {QString::number(count), line};
        return entry;
    }

    static void fillIn(DictionaryText &text, const EdsSection *list, quint8 subIndex)
    {
        if (list == nullptr || !text.text.isEmpty())
            return;
        const EdsEntry entry = list->entry(QString::number(subIndex));
        text = {entry.value, entry.line};
    }

    void checkSubNumber(const EdsSection &section, const ObjectSections &sections)
    {
        const EdsEntry entry = section.entry(QStringLiteral("SubNumber"));
        const EdsNumber parsed = EdsNumber::parse(entry.value);
        if (parsed.state() == EdsNumber::eState::Empty)
            return;
        const qsizetype count = sections.subObjects.size();
        if (parsed.unsignedValue(256) != std::optional(quint32(count)))
            m_remarks.add(
                entry, ObjectDictionaryReader::tr("weicht ab; die Datei nennt %1").arg(count));
    }

    /// Empty where the section describes no value, which is then among the skipped.
    std::optional<DictionaryEntry> readEntry(
        quint16 index, std::optional<quint8> subIndex, const EdsSection &section)
    {
        QString reason;
        auto entry = DictionaryEntryReader::read(section, m_remarks, reason);
        if (!entry)
            skip(index, section.line(), reason, subIndex);
        else
            entry->subIndex = subIndex.value_or(0);
        return entry;
    }

    void skip(quint16 index, int line, const QString &reason,
        std::optional<quint8> subIndex = std::nullopt)
    {
        m_dictionary.skipped.append({index, subIndex, line, reason});
    }

    const EdsFile &m_file;
    ImportRemarks &m_remarks;
    ObjectDictionary m_dictionary;
    int m_compactCount = 0;
};

} // namespace

ObjectDictionary ObjectDictionaryReader::read(const EdsFile &file, ImportRemarks &remarks)
{
    return Reader(file, remarks).read();
}
