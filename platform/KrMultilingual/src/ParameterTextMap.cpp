#include <KrMultilingual/ParameterTextMap.h>

#include <QtCore/QVariantMap>

namespace {

ParameterTextMap fromVariantMap(const QVariantMap &variants)
{
    ParameterTextMap result;
    for (auto it = variants.cbegin(); it != variants.cend(); ++it) {
        bool isNumber = false;
        const int key = it.key().toInt(&isNumber);
        if (isNumber)
            result.insert(key, it.value().value<ParameterText>());
    }
    return result;
}

QVariantMap toVariantMap(const ParameterTextMap &texts)
{
    QVariantMap result;
    const QList<qint32> keys = texts.keys();
    for (const qint32 key : keys)
        result.insert(QString::number(key), QVariant::fromValue(texts.text(key)));
    return result;
}

// At load, so that variants convert before anything of the library was called.
[[maybe_unused]] const bool convertersRegistered =
    QMetaType::registerConverter<QVariantMap, ParameterTextMap>(fromVariantMap)
    && QMetaType::registerConverter<ParameterTextMap, QVariantMap>(toVariantMap);

} // namespace
