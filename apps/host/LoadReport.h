#pragma once

#include "apps/host/CutSign.h"

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QStringList>

/// What loading a parameter block will do to a container, told before it is done.
struct LoadReport {
    Q_DECLARE_TR_FUNCTIONS(LoadReport)

public:
    /// Texts name at most this many of a kind; JSON names all.
    static constexpr qsizetype NamedInText = 10;

    qsizetype valuesRead = 0;
    qsizetype defaultsRead = 0;
    /// Names of sections that name no parameter of the container.
    QStringList sectionsSkipped;
    /// Names of sections whose parameter an earlier one named already; the last one holds.
    QStringList sectionsRepeated;
    /// Coordinate texts; these parameters keep their values.
    QStringList parametersMissing;
    /// Address texts; the block has the parameter and lacks these keys, so these become empty.
    QStringList valuesEmptied;
    QStringList defaultsEmptied;
    /// Section and key, like "E084/X_1".
    QStringList keysNotUnderstood;
    qsizetype malformedLineCount = 0;
    /// The numbers of the first of them, counted from 1.
    QList<qsizetype> firstMalformedLines;
    QList<eCutSign> cutSigns;
    bool wasCancelled = false;

    bool isCut() const { return !cutSigns.isEmpty(); }
    /// Every value and default of the container comes from the block, and nothing else is in it.
    bool isComplete() const;
    /// A save after this load would not write again what the block holds.
    bool leavesContentBehind() const;
    /// One finding a line, with a line end behind each.
    QString toText() const;
    QJsonObject toJson() const;
};
