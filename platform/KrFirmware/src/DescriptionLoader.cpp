#include "DescriptionLoader.h"

#include "FindingText.h"
#include "JsonParser.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrProjectRepository/HardwareRepository.h>

#include <limits>

namespace {

constexpr QLatin1StringView FormatKey("format");
constexpr QLatin1StringView VersionKey("version");
constexpr QLatin1StringView FamilyKey("family");
constexpr QLatin1StringView LanguagesKey("languages");
constexpr QLatin1StringView DataTypesKey("dataTypes");
constexpr QLatin1StringView ProfilesKey("profiles");
constexpr QLatin1StringView SystemStringsKey("systemStrings");
constexpr QLatin1StringView FunctionsKey("functions");
constexpr QLatin1StringView ParametersKey("parameters");
constexpr QLatin1StringView SystemParametersKey("systemParameters");

constexpr QLatin1StringView IdentifierKey("identifier");
constexpr QLatin1StringView NameKey("name");
constexpr QLatin1StringView HasPhysicalAxesKey("hasPhysicalAxes");
constexpr QLatin1StringView AxesKey("axes");

constexpr QLatin1StringView Format("kr-device-description");
constexpr qint64 FormatVersion = 1;
constexpr int LastAxis = 4;
/// A plain text is kept once for each language.
constexpr size_t MostLanguages = 32;

} // namespace

std::unique_ptr<ServoDriveFirmwareData> DescriptionLoader::load(
    const QByteArray &bytes, const QString &fileName, DescriptionError &error)
{
    error = {fileName, QString(), QString()};
    if (bytes.size() > MostBytes) {
        error.reason = FindingText::tr("the file is larger than %1 bytes").arg(MostBytes);
        return nullptr;
    }
    if (!bytes.isValidUtf8()) {
        error.reason = FindingText::tr("the file is not UTF-8");
        return nullptr;
    }
    const QString text = QString::fromUtf8(bytes);
    JsonParser parser(text);
    const std::optional<JsonValue> root = parser.parse();
    if (!root) {
        error.reason = parser.error();
        return nullptr;
    }

    DescriptionLoader loader;
    loader.readRoot(*root);
    if (!loader.m_findings.hasError())
        loader.registerFamily(*root);
    if (loader.m_findings.hasError()) {
        error = loader.m_findings.error(*root, fileName);
        return nullptr;
    }
    loader.m_data->warnings = loader.m_findings.warnings(*root);
    error = {};
    return std::move(loader.m_data);
}

DescriptionLoader::DescriptionLoader()
    : m_reader(m_findings)
    , m_facts(m_reader, m_dataTypes)
    , m_data(std::make_unique<ServoDriveFirmwareData>())
    , m_profiles(m_reader)
    , m_elements(m_reader, m_facts, m_data->tables)
    , m_parameters(m_reader, m_profiles, m_elements)
{
}

void DescriptionLoader::readRoot(const JsonValue &root)
{
    readHeader(root);
    m_reader.expectKeys(root,
        {FormatKey, VersionKey, FamilyKey, LanguagesKey, DataTypesKey, ProfilesKey,
            SystemStringsKey, FunctionsKey, ParametersKey, SystemParametersKey});
    if (const JsonValue *family = m_reader.required(root, FamilyKey))
        readFamily(*family);
    if (const JsonValue *languages = m_reader.required(root, LanguagesKey))
        readLanguages(*languages);
    if (const JsonValue *dataTypes = m_reader.required(root, DataTypesKey))
        readDataTypes(*dataTypes);
    if (const JsonValue *strings = root.member(SystemStringsKey))
        m_data->tables.readSystemStrings(*strings, m_reader);
    if (const JsonValue *functions = root.member(FunctionsKey))
        m_data->tables.readFunctions(*functions, m_reader);
    if (const JsonValue *profiles = root.member(ProfilesKey)) {
        m_profiles.read(*profiles);
        for (const ElementSource &profile : m_profiles.profiles())
            m_elements.checkProfile(profile);
    }
    if (const JsonValue *parameters = m_reader.required(root, ParametersKey))
        readParameters(*parameters, eParameterOrigin::Project, m_data->parameters);
    if (const JsonValue *parameters = root.member(SystemParametersKey))
        readParameters(*parameters, eParameterOrigin::Firmware, m_data->systemParameters);
}

void DescriptionLoader::readHeader(const JsonValue &root)
{
    const JsonValue *format = m_reader.required(root, FormatKey);
    if (format && m_reader.text(*format) != Format)
        m_findings.refuse(*format, FindingText::tr("expected \"%1\"").arg(Format));
    if (const JsonValue *version = m_reader.required(root, VersionKey))
        m_reader.wholeNumber(*version, FormatVersion, FormatVersion);
}

void DescriptionLoader::readFamily(const JsonValue &family)
{
    m_reader.expectKeys(family, {IdentifierKey, NameKey, HasPhysicalAxesKey, AxesKey});
    if (const JsonValue *identifier = m_reader.required(family, IdentifierKey))
        m_data->familyIdentifier =
            quint32(m_reader.wholeNumber(*identifier, 1, std::numeric_limits<quint32>::max()));
    if (const JsonValue *name = m_reader.required(family, NameKey))
        m_data->familyName = m_reader.text(*name);
    if (const JsonValue *hasPhysicalAxes = m_reader.required(family, HasPhysicalAxesKey))
        m_data->hasPhysicalAxes = m_reader.boolean(*hasPhysicalAxes);
    if (const JsonValue *axes = m_reader.required(family, AxesKey))
        readAxes(*axes);
}

void DescriptionLoader::readAxes(const JsonValue &axes)
{
    const JsonValue::List &list = m_reader.list(axes);
    if (list.empty())
        m_findings.refuse(axes, FindingText::tr("expected at least one axis"));
    for (const JsonValue &entry : list) {
        const int axis = int(m_reader.wholeNumber(entry, 1, LastAxis));
        if (!m_data->axes.isEmpty() && axis <= m_data->axes.constLast())
            m_findings.refuse(entry, FindingText::tr("expected axes in ascending order"));
        m_data->axes.append(axis);
    }
}

void DescriptionLoader::readLanguages(const JsonValue &languages)
{
    const JsonValue::List &list = m_reader.list(languages);
    if (list.empty() || list.size() > MostLanguages) {
        m_findings.refuse(
            languages, FindingText::tr("expected 1 to %1 languages").arg(MostLanguages));
        return;
    }
    for (const JsonValue &entry : list) {
        const QString language = m_reader.filledText(entry);
        if (m_data->languages.contains(language))
            m_findings.refuse(entry, FindingText::tr("is listed twice"));
        m_data->languages.append(language);
    }
    m_reader.setLanguages(m_data->languages);
}

void DescriptionLoader::readDataTypes(const JsonValue &dataTypes)
{
    for (const JsonValue &entry : m_reader.list(dataTypes)) {
        const QString name = m_reader.text(entry);
        if (!DatatypeProvider::instance()->simpleType(name))
            m_findings.refuse(entry,
                FindingText::tr("expected the short name of a data type, such as \"UINT16\""));
        if (m_dataTypes.contains(name))
            m_findings.refuse(entry, FindingText::tr("is listed twice"));
        // What is listed twice or unknown ends the list, which so stays as short as the table.
        if (m_findings.hasError())
            return;
        m_dataTypes.append(name);
    }
}

void DescriptionLoader::readParameters(const JsonValue &list, eParameterOrigin origin,
    ServoDriveFirmwareData::Definitions &definitions)
{
    for (const JsonValue &parameter : m_reader.list(list)) {
        const quint32 number = m_parameters.number(parameter);
        auto definition =
            std::make_unique<ParameterDefinition>(m_parameters.content(parameter, number, origin));
        // The first error counts; what stands behind it needs no second look.
        if (m_findings.hasError())
            return;
        if (definitions.contains(number))
            m_findings.refuse(*parameter.member(QLatin1StringView("number")),
                FindingText::tr("another parameter has the number %1").arg(number));
        occupy(parameter, *definition);
        definitions.emplace(number, std::move(definition));
    }
}

/// A single-instance parameter stands at its first coordinate.
void DescriptionLoader::occupy(const JsonValue &parameter, const ParameterDefinition &definition)
{
    if (!definition.isSingleInstance())
        return;
    const ParameterCoordinate coordinate = definition.defaultCoordinates().constFirst();
    const auto other = m_occupied.constFind(coordinate);
    if (other != m_occupied.cend()) {
        const JsonValue &coordinates = *parameter.member(QLatin1StringView("coordinates"));
        m_findings.refuse(coordinates.toList()->front(),
            FindingText::tr("%1 is the coordinate of the single-instance parameter %2")
                .arg(coordinate.toText(), *other));
        return;
    }
    m_occupied.insert(coordinate, definition.identifier());
}

void DescriptionLoader::registerFamily(const JsonValue &root)
{
    const DeviceFamilyInformation family(
        m_data->familyIdentifier, m_data->familyName, m_data->hasPhysicalAxes);
    HardwareRepository &repository = HardwareRepository::instance();
    if (repository.registerDeviceFamily(family))
        return;
    const QString knownName = repository.deviceFamily(family.identifier())->name();
    if (knownName != family.name()) {
        m_findings.refuse(*root.member(FamilyKey)->member(NameKey),
            FindingText::tr("the family %1 is known already as \"%2\", not as \"%3\"")
                .arg(QString::number(family.identifier()), knownName, family.name()));
        return;
    }
    m_findings.refuse(*root.member(FamilyKey)->member(HasPhysicalAxesKey),
        FindingText::tr("the family %1 is known already, with another value")
            .arg(m_data->familyIdentifier));
}
