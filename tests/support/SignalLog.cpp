#include "tests/support/SignalLog.h"

#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QVariant>

namespace {

QString argumentText(QMetaType type, const void *argument)
{
    if (type == QMetaType::fromType<ParameterAddress>())
        return static_cast<const ParameterAddress *>(argument)->toSortableText();
    if (type == QMetaType::fromType<ParameterCoordinate>())
        return static_cast<const ParameterCoordinate *>(argument)->toText();
    const QVariant value(type, argument);
    if (type.flags().testFlag(QMetaType::IsEnumeration))
        return QString::number(value.toLongLong());
    return value.canConvert<QString>() ? value.toString() : QString::fromLatin1(type.name());
}

} // namespace

void SignalLog::attach(QObject *source, const QString &name)
{
    const QMetaObject *meta = source->metaObject();
    const int firstSlot = QObject::staticMetaObject.methodCount();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        // A signal with default arguments appears once more for each of them.
        if (method.methodType() != QMetaMethod::Signal
            || (method.attributes() & QMetaMethod::Cloned) != 0)
            continue;
        QMetaObject::connect(
            source, i, this, firstSlot + int(m_sources.size()), Qt::DirectConnection);
        m_sources.push_back({name, method});
    }
}

QStringList SignalLog::entriesOf(const QString &signalName) const
{
    const QString part = u'.' + signalName + u'(';
    return m_entries.filter(part);
}

int SignalLog::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    const Source &source = m_sources.at(size_t(id));
    QStringList texts;
    // arguments[0] is the place of the return value.
    for (int i = 0; i < source.signal.parameterCount(); ++i)
        texts.append(argumentText(source.signal.parameterMetaType(i), arguments[i + 1]));
    m_entries.append(source.name + u'.' + QString::fromLatin1(source.signal.name()) + u'('
        + texts.join(QLatin1String(", ")) + u')');
    return -1;
}
