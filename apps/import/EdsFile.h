#pragma once

#include "apps/import/EdsSection.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>

/// The sections of an electronic data sheet in the order of the file.
class EdsFile {
public:
    const QList<EdsSection> &sections() const { return m_sections; }
    /// Null where there is none. Names are compared without case and blanks.
    const EdsSection *section(const QString &name) const;

    /// The section of that name; a new one at the end where there is none yet.
    /// **Owner** the file; valid until the next call.
    EdsSection *openSection(const QString &name, int line);

private:
    QList<EdsSection> m_sections;
    /// Comparable name to position.
    QHash<QString, qsizetype> m_positions;
};
