#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

class ParameterValueSnapshot;

/// One line of a snapshot's text, its fields as they are.
struct ExportLine {
    QString place;
    QString name;
    /// The displayed value with unit.
    QString value;

    /// What a snapshot writes of these living spaces, ascending by coordinate, living space and
    /// element.
    static QList<ExportLine> allOf(
        ParameterValueSnapshot &snapshot, const QList<eLivingSpace> &livingSpaces);
    /// The bytes of the semicolon text.
    static QByteArray semicolonText(const QList<ExportLine> &lines);
    /// The same as a table for programs, with a head line, see Rfc4180Text.
    static QByteArray rfc4180Text(const QList<ExportLine> &lines);
    /// The element stands where `elements` is not element 0 alone.
    static QString placeText(eLivingSpace livingSpace, const ParameterCoordinate &coordinate,
        quint16 element, const QList<quint16> &elements);
};
