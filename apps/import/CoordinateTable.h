#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

/// The stored table that says which coordinate an index of an object dictionary has.
///
///     table = *( line lineEnd )
///     line  = [ index blanks coordinate ] [ "#" comment ]
///     index = "0x" 1 to 4 hex digits, at least 0x0001
///
/// A coordinate that is once in the table stays; the table is only ever extended at its end.
class CoordinateTable {
    Q_DECLARE_TR_FUNCTIONS(CoordinateTable)

public:
    /// A table without lines, which gets an explaining head when it is extended.
    CoordinateTable() = default;

    /// Empty where a line is malformed, a coordinate may not be given to an index, or an index or a
    /// coordinate stands twice; `error` then names the line and the reason.
    static std::optional<CoordinateTable> read(const QByteArray &bytes, QString &error);

    /// Invalid where the table does not know the index.
    ParameterCoordinate coordinate(quint16 index) const { return m_coordinates.value(index); }
    qsizetype count() const { return m_coordinates.size(); }
    /// Gives each new index a coordinate; in ascending order, so that the order of the list carries
    /// no meaning. Answers how many were new. An index stays unknown when no line is free any more.
    int extend(QList<quint16> indices);
    /// The table as it was read, with what was added at its end.
    QByteArray toBytes() const { return m_bytes; }

private:
    static constexpr qsizetype NumberCount =
        ParameterCoordinate::LastGroup * 1000 + ParameterCoordinate::LastLine + 1;

    /// Empty for a line that was taken, otherwise the reason why not.
    QString takeLine(QByteArray line);
    ParameterCoordinate freePlace(quint16 index);
    bool isFree(ParameterCoordinate coordinate) const;
    void append(quint16 index, ParameterCoordinate coordinate);

    QHash<quint16, ParameterCoordinate> m_coordinates;
    /// Coordinate number to index, 0 for a free one.
    QList<quint16> m_indices = QList<quint16>(NumberCount, 0);
    QByteArray m_bytes;
    // A line is never freed, so that a search need not look again at what it found taken.
    bool m_isSharedFull = false;
    quint16 m_nextSpare = 0;
};
