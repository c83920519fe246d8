#include <KrFirmware/ServoDriveFirmware.h>

#include "DescriptionLoader.h"
#include "ReferenceFunctionProvider.h"
#include "ServoDriveFirmwareData.h"

#include <QtCore/QFile>

namespace {

using enum eParameterProperty;

QList<quint32> numbers(const ServoDriveFirmwareData::Definitions &definitions)
{
    QList<quint32> result;
    result.reserve(qsizetype(definitions.size()));
    for (const auto &[number, definition] : definitions)
        result.append(number);
    return result;
}

ParameterDefinition *find(const ServoDriveFirmwareData::Definitions &definitions, quint32 number)
{
    const auto found = definitions.find(number);
    return found == definitions.end() ? nullptr : found->second.get();
}

/// In pieces: a read of so much at once takes that much memory, however short the file is. One byte
/// more than a description may have tells that there is more.
QByteArray readUpTo(QFile &file, qsizetype mostBytes)
{
    constexpr qsizetype PieceSize = qsizetype(256) * 1024;
    QByteArray bytes;
    while (bytes.size() < mostBytes) {
        const QByteArray piece = file.read(qMin(PieceSize, mostBytes - bytes.size()));
        if (piece.isEmpty())
            break;
        bytes.append(piece);
    }
    return bytes;
}

} // namespace

ServoDriveFirmware::ServoDriveFirmware(std::unique_ptr<ServoDriveFirmwareData> data)
    : d(std::move(data))
{
}

ServoDriveFirmware::~ServoDriveFirmware() = default;

std::unique_ptr<ServoDriveFirmware> ServoDriveFirmware::loadFromFile(
    const QString &fileName, DescriptionError *error)
{
    QFile file(fileName);
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = readUpTo(file, DescriptionLoader::MostBytes + 1);
    if (file.error() != QFileDevice::NoError) {
        if (error)
            *error = {fileName, QString(), file.errorString()};
        return nullptr;
    }
    return loadFromBytes(bytes, fileName, error);
}

std::unique_ptr<ServoDriveFirmware> ServoDriveFirmware::loadFromBytes(
    const QByteArray &json, const QString &fileName, DescriptionError *error)
{
    DescriptionError found;
    std::unique_ptr<ServoDriveFirmwareData> data = DescriptionLoader::load(json, fileName, found);
    if (error)
        *error = found;
    if (!data)
        return nullptr;
    return std::unique_ptr<ServoDriveFirmware>(new ServoDriveFirmware(std::move(data)));
}

quint32 ServoDriveFirmware::deviceFamilyIdentifier() const
{
    return d->familyIdentifier;
}

QString ServoDriveFirmware::deviceFamilyName() const
{
    return d->familyName;
}

bool ServoDriveFirmware::hasPhysicalAxes() const
{
    return d->hasPhysicalAxes;
}

QList<int> ServoDriveFirmware::axes() const
{
    return d->axes;
}

QStringList ServoDriveFirmware::languages() const
{
    return d->languages;
}

QStringList ServoDriveFirmware::warnings() const
{
    return d->warnings;
}

QList<quint32> ServoDriveFirmware::parameterNumbers() const
{
    return numbers(d->parameters);
}

ParameterDefinition *ServoDriveFirmware::parameterDefinition(quint32 number) const
{
    return find(d->parameters, number);
}

QList<quint32> ServoDriveFirmware::systemParameterNumbers(quint32 deviceFamilyIdentifier) const
{
    if (deviceFamilyIdentifier != d->familyIdentifier)
        return {};
    return numbers(d->systemParameters);
}

ParameterDefinition *ServoDriveFirmware::systemParameterDefinition(
    quint32 deviceFamilyIdentifier, quint32 number) const
{
    if (deviceFamilyIdentifier != d->familyIdentifier)
        return nullptr;
    return find(d->systemParameters, number);
}

quint16 ServoDriveFirmware::maximumSystemStringNumber() const
{
    return d->tables.maximum(ChoiceMapCommonTextIndex);
}

quint16 ServoDriveFirmware::maximumScalingFunctionIndex() const
{
    return d->tables.maximum(ScalingFunctionIndex);
}

quint16 ServoDriveFirmware::maximumLimitFunctionIndex() const
{
    return d->tables.maximum(LimitFunctionIndex);
}

quint16 ServoDriveFirmware::maximumPostwriteFunctionIndex() const
{
    return d->tables.maximum(PostwriteFunctionIndex);
}

quint16 ServoDriveFirmware::maximumPrereadFunctionIndex() const
{
    return d->tables.maximum(PrereadFunctionIndex);
}

quint16 ServoDriveFirmware::maximumHidingFunctionIndex() const
{
    return d->tables.maximum(HidingFunctionIndex);
}

quint16 ServoDriveFirmware::maximumPostreadFunctionIndex() const
{
    return d->tables.maximum(PostreadFunctionIndex);
}

quint16 ServoDriveFirmware::maximumPrewriteFunctionIndex() const
{
    return d->tables.maximum(PrewriteFunctionIndex);
}

ParameterFunctionProvider *ServoDriveFirmware::createParameterFunctionProvider() const
{
    return new ReferenceFunctionProvider(d->tables);
}
