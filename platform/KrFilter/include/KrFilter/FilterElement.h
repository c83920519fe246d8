#pragma once

#include <KrFilter/KrFilterExport.h>

#include <QtCore/QObject>
#include <QtCore/QString>

/// What a filter tests: something that answers property questions by name.
/// Declaration order is binary interface; do not reorder.
class KrFilter_EXPORT FilterElement : public QObject {
    Q_OBJECT

public:
    explicit FilterElement(QObject *parent = nullptr);
    ~FilterElement() override;

    virtual QString stringProperty(QString propertyName) const = 0;
    virtual quint32 uint32Property(QString propertyName) const = 0;
    virtual qint32 int32Property(QString propertyName) const = 0;
    virtual double doubleProperty(QString propertyName) const = 0;
};
