#include "apps/import/ObjectDictionaryImport.h"

#include "apps/files/WholeFile.h"
#include "apps/import/CoordinateTable.h"
#include "apps/import/DescriptionWriter.h"
#include "apps/import/EdsReader.h"
#include "apps/import/ObjectDictionaryReader.h"
#include "apps/import/ParameterConversion.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLockFile>

#include <algorithm>
#include <chrono>

namespace {

/// Of a source and of a table. **Unit** bytes.
constexpr qint64 MaximumFileSize = 64 * WholeFile::Mebibyte;
constexpr quint8 LastNodeId = 127;
/// How long another import on the same table is waited for.
constexpr std::chrono::milliseconds LockWait {5000};

using eStatus = ImportResult::eStatus;

/// The same for two names of one file, also of one that does not exist yet.
QString locationOf(const QString &fileName)
{
    const QFileInfo file(fileName);
    if (file.exists())
        return file.canonicalFilePath();
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return QDir::cleanPath(folder + QLatin1Char('/') + file.fileName());
}

bool isConfiguration(const QString &fileName, const ObjectDictionary &dictionary)
{
    const auto isConfigured = [](const DictionaryEntry &entry) {
        return !entry.configuredValue.text.isEmpty();
    };
    return fileName.endsWith(QLatin1String(".dcf"), Qt::CaseInsensitive)
        || std::any_of(dictionary.objects.cbegin(), dictionary.objects.cend(),
            [&isConfigured](const DictionaryObject &object) {
                return std::any_of(object.entries.cbegin(), object.entries.cend(), isConfigured);
            });
}

/// One import, step by step; the first step that fails ends it.
class Import {
    Q_DECLARE_TR_FUNCTIONS(ObjectDictionaryImport)

public:
    explicit Import(const ImportRequest &request)
        : m_request(request)
    {
        m_result.report.fileName = request.sourceFile;
    }

    ImportResult run()
    {
        if (checkRequest() && lockTable() && readTable() && readSource() && placeParameters()
            && checkConfiguredValues())
            writeFiles();
        return m_result;
    }

private:
    bool checkRequest()
    {
        const QString files[] = {
            m_request.sourceFile, m_request.coordinateTable, m_request.outputFile};
        if (std::any_of(std::begin(files), std::end(files),
                [](const QString &name) { return name.isEmpty(); }))
            return fail(eStatus::BadRequest, {}, tr("es fehlt ein Dateiname"));
        const QString table = locationOf(m_request.coordinateTable);
        const QString output = locationOf(m_request.outputFile);
        if (table == output)
            return fail(eStatus::BadRequest, output, tr("ist Tabelle und Ausgabe zugleich"));
        const QString source = locationOf(m_request.sourceFile);
        if (source == table || source == output)
            return fail(eStatus::BadRequest, source, tr("würde überschrieben"));
        if (m_request.nodeId && (*m_request.nodeId == 0 || *m_request.nodeId > LastNodeId))
            return fail(eStatus::BadRequest, {}, tr("die Knotennummer ist keine von 1 bis 127"));
        return true;
    }

    /// A folder that takes no lock file takes no new table either: the import goes on and may only
    /// read the table.
    bool lockTable()
    {
        m_lock.emplace(locationOf(m_request.coordinateTable) + QLatin1String(".lock"));
        // Only the end of its process makes a lock stale, not its age.
        m_lock->setStaleLockTime(0);
        if (m_lock->tryLock(int(LockWait.count())) || m_lock->error() != QLockFile::LockFailedError)
            return true;
        return fail(eStatus::WriteFailed, m_request.coordinateTable,
            tr("ein anderer Import hält die Tabelle"));
    }

    bool readTable()
    {
        if (!QFileInfo::exists(m_request.coordinateTable))
            return true;
        QString error;
        const auto bytes = WholeFile::read(m_request.coordinateTable, MaximumFileSize, error);
        if (!bytes)
            return fail(eStatus::UnreadableInput, m_request.coordinateTable, error);
        const auto table = CoordinateTable::read(*bytes, error);
        if (!table)
            return fail(eStatus::UnreadableInput, m_request.coordinateTable, error);
        m_table = *table;
        return true;
    }

    bool readSource()
    {
        QString error;
        const auto bytes = WholeFile::read(m_request.sourceFile, MaximumFileSize, error);
        if (!bytes)
            return fail(eStatus::UnreadableInput, m_request.sourceFile, error);
        ImportReport &report = m_result.report;
        const ObjectDictionary dictionary =
            ObjectDictionaryReader::read(EdsReader::read(*bytes, report.remarks), report.remarks);
        m_result.isConfiguration = isConfiguration(m_request.sourceFile, dictionary);
        const auto converted =
            ParameterConversion::convert(dictionary, m_request.nodeId, report.remarks);
        m_parameters = converted.parameters;
        m_family = DeviceFamily::of(dictionary.device);
        report.familyName = m_family.name;
        report.familyIdentifier = m_family.identifier;
        report.nodeId = m_request.nodeId ? m_request.nodeId : dictionary.device.nodeId;
        report.valuesWithoutNodeId = converted.valuesWithoutNodeId;
        report.skipped = dictionary.skipped + converted.skipped;
        return true;
    }

    bool placeParameters()
    {
        QList<quint16> indices;
        for (const ImportedParameter &parameter : m_parameters)
            indices.append(parameter.index);
        ImportReport &report = m_result.report;
        report.newCoordinates = m_table.extend(indices);
        m_parameters.removeIf([this, &report](const ImportedParameter &parameter) {
            const bool hasPlace = m_table.coordinate(parameter.index).isValid();
            if (!hasPlace)
                report.skipped.append(
                    {parameter.index, std::nullopt, 0, tr("die Koordinatentabelle ist voll")});
            return !hasPlace;
        });
        std::stable_sort(report.skipped.begin(), report.skipped.end(),
            [](const SkippedObject &a, const SkippedObject &b) { return a.index < b.index; });
        for (const ImportedParameter &parameter : m_parameters)
            report.elementsRead += parameter.elements.size();
        report.objectsRead = m_parameters.size();
        m_result.configuredValues = ConfiguredValues(m_parameters, m_table);
        report.configuredValues = m_result.configuredValues.list().size();
        m_result.isReportComplete = true;
        if (m_parameters.isEmpty())
            return fail(eStatus::UnreadableInput, m_request.sourceFile,
                tr("enthält kein Objekt mit einem Wert"));
        return true;
    }

    bool checkConfiguredValues()
    {
        if (m_result.configuredValues.isEmpty() || !m_request.refusalOfConfiguredValues)
            return true;
        const QString reason = m_request.refusalOfConfiguredValues();
        return reason.isEmpty() || fail(eStatus::BadRequest, {}, reason);
    }

    void writeFiles()
    {
        if (m_result.report.newCoordinates > 0 && !writeTable())
            return;
        write(m_request.outputFile, DescriptionWriter::write(m_family, m_parameters, m_table));
    }

    bool writeTable()
    {
        if (m_lock->isLocked())
            return write(m_request.coordinateTable, m_table.toBytes());
        return fail(eStatus::WriteFailed, m_request.coordinateTable,
            tr("in ihrem Ordner lässt sich keine Sperrdatei anlegen"));
    }

    bool write(const QString &fileName, const QByteArray &bytes)
    {
        const QString error = WholeFile::replace(fileName, bytes);
        return error.isEmpty() || fail(eStatus::WriteFailed, fileName, error);
    }

    /// False, so that a step can end with it.
    bool fail(eStatus status, const QString &fileName, const QString &reason)
    {
        m_result.status = status;
        m_result.error = fileName.isEmpty() ? reason : fileName + QLatin1String(": ") + reason;
        return false;
    }

    const ImportRequest &m_request;
    ImportResult m_result;
    std::optional<QLockFile> m_lock;
    CoordinateTable m_table;
    DeviceFamily m_family;
    QList<ImportedParameter> m_parameters;
};

} // namespace

ImportResult importObjectDictionary(const ImportRequest &request)
{
    return Import(request).run();
}
