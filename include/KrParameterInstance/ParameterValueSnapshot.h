#pragma once

#include <KrParameterInstance/KrParameterInstanceExport.h>
#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

class Filter;
class ParameterContainer;
class ParameterValueSnapshotPrivate;

/// The frozen texts of a container. Never listens to its container: it is filled by apply() and
/// applyNoFilter() alone, and answers from its own copy. Taken offline it holds "<offline>" as the
/// display text of values of write level 6 and above, as displayValueText() answers then: at user
/// level 5 the value follows in brackets, and a read-only container or an element that is shown
/// offline has its text. Of what is hidden so, a comparison sees no difference.
///
/// A coordinate, living space or element that it lacks gives an empty answer. Lists of living spaces
/// and elements are ascending; lists of coordinates are in no particular order.
class KrParameterInstance_EXPORT ParameterValueSnapshot : public QObject {
    Q_OBJECT

public:
    /// Takes nothing yet. The container may be null.
    explicit ParameterValueSnapshot(ParameterContainer *container);
    ~ParameterValueSnapshot() override;

    /// The properties by which a filter can ask. Any other name answers like "Coordinate".
    static QStringList filterPropertyNames();

    /// Replaces the content by the elements that the filter accepts.
    void apply(const Filter &filter);
    /// Replaces the content by everything; by nothing once disconnected.
    void applyNoFilter();
    /// The data stay; from now on unite() is allowed.
    void disconnectFromSourceContainer();
    ParameterContainer *sourceContainer() const;

    QList<ParameterCoordinate> parameterList();
    /// The coordinates that only one of the two holds, then those whose lists differ or of which some
    /// value differs in its display and in its native text. Null counts as empty.
    QList<ParameterCoordinate> parameterListDifferent(ParameterValueSnapshot *other);
    QList<quint16> elements(ParameterCoordinate coordinate) const;
    QList<eLivingSpace> livingSpaces(ParameterCoordinate coordinate);
    QString parameterName(ParameterCoordinate coordinate);
    QString elementName(ParameterCoordinate coordinate, quint16 element) const;
    quint32 elementReadLevel(ParameterCoordinate coordinate, quint16 element) const;
    /// The display text, with the scaled unit.
    QString value(
        eLivingSpace livingSpace, ParameterCoordinate coordinate, quint16 element, bool withUnit);
    /// The native text, with the native unit.
    QString valueNative(
        eLivingSpace livingSpace, ParameterCoordinate coordinate, quint16 element, bool withUnit);
    /// The value text, with the scaled unit.
    QString undecoratedValue(
        eLivingSpace livingSpace, ParameterCoordinate coordinate, quint16 element, bool withUnit);

    /// Everything that the snapshot holds, so that it outlives the program. **Encoding** UTF-8.
    QByteArray toJson() const;
    /// Replaces the content by what toJson() wrote. **Refused** while a source container is
    /// connected, and any other text: false, the content stays; `problem` is told why.
    bool fromJson(const QByteArray &json, QString *problem = nullptr);

    /// Takes over every record of the other. **Refused** while a source container is connected.
    bool unite(ParameterValueSnapshot *other);
    bool isSaveToTextFileEnabled() const;
    void setSaveToTextFileEnabled(bool enabled);
    /// Writes the parameters as semicolon text, in all living spaces of the snapshot.
    /// **Encoding** UTF-8 with byte-order mark. **Refused** while disabled, and where the file cannot
    /// be opened: false. Errors while writing are not noticed.
    bool saveToTextFile(QString fileName, QList<ParameterCoordinate> coordinates);
    bool saveToTextFile(
        QString fileName, QList<ParameterCoordinate> coordinates, QList<eLivingSpace> livingSpaces);

private:
    ParameterValueSnapshotPrivate *d;
};
