#pragma once

#include "apps/host/ExportLine.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonObject>

/// A text that the semicolon text cannot carry.
struct ExportIssue {
    Q_DECLARE_TR_FUNCTIONS(ExportIssue)

public:
    enum class eField { Name, Value };
    enum class eKind { Quote, LineEnd, Formula };

    QString address;
    eField field = eField::Value;
    eKind kind = eKind::Quote;
    QString text;

    /// In the order of the lines.
    static QList<ExportIssue> allOf(const QList<ExportLine> &lines);
    /// In one line.
    QString toText() const;
    QJsonObject toJson() const;
};
