#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>

/// The bare minimum work of each operation with Qt types and one QHash as the store: what remains
/// when everything that makes a parameter library is left out. The floor for the ratios.
class LimitStore : public QObject {
    Q_OBJECT

public:
    struct Value {
        QString text;
        QString defaultText;
        QString tag;
        QString defaultTag;
        qint32 lower;
        qint32 upper;
    };

    /// Of a native number to the displayed one.
    static constexpr double Factor = 0.01;
    static qint64 nativeNumber(const QString &text);

    void create(quint32 address, const QString &defaultText);
    /// Keeps the text that the value was created by, so that the same text finds it again.
    void createByText(const QString &locatorText, quint32 address, const QString &defaultText);
    /// Parses, checks the limits, stores with the tag and tells four listeners.
    bool write(quint32 address, const QString &text, const QString &tag);
    /// Two decimals and the unit.
    QString display(quint32 address) const;
    QByteArray save() const;
    void load(const QByteArray &block);
    qsizetype size() const { return m_values.size(); }
    const QHash<quint32, Value> &values() const { return m_values; }
    /// In saved order.
    const QList<quint32> &addresses() const { return m_order; }

Q_SIGNALS:
    void valueChanged(quint32 address);
    void nativeValueChanged(quint32 address);
    void parameterValueChanged(quint32 address);
    void parameterNativeValueChanged(quint32 address);

private:
    QHash<quint32, Value> m_values;
    QList<quint32> m_order;
    QHash<QString, quint32> m_locatorTexts;
};
