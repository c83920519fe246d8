#pragma once

#include "apps/import/ObjectDictionary.h"

#include <QtCore/QCoreApplication>

#include <optional>

class EdsSection;
class ImportRemarks;

/// Reads the section of a simple object or of a sub-object.
class DictionaryEntryReader {
    Q_DECLARE_TR_FUNCTIONS(DictionaryEntryReader)

public:
    /// Empty where the section describes no value; `reason` then says why. The sub-index is 0.
    /// **Reports** an access type that is missing or unknown; such a value is read-only.
    static std::optional<DictionaryEntry> read(
        const EdsSection &section, ImportRemarks &remarks, QString &reason);
};
