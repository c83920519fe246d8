#pragma once

#include "apps/import/ObjectDictionary.h"

#include <QtCore/QCoreApplication>

class EdsFile;
class ImportRemarks;

/// Reads the object dictionary out of the sections of a file (CiA 306).
///
/// Every section that is named after an index is an object, also where the object lists leave it
/// out. Sub-objects come from sections of their own and from CompactSubObj with its lists; a
/// section of its own goes before a list. Keys and sections of a manufacturer's own are passed
/// over.
class ObjectDictionaryReader {
    Q_DECLARE_TR_FUNCTIONS(ObjectDictionaryReader)

public:
    /// Sub-objects that CompactSubObj may make in one file, so that a small file stays small.
    static constexpr int MaximumCompactSubObjects = 65536;

    /// **Reports** what the file leaves out or contradicts, with its line.
    static ObjectDictionary read(const EdsFile &file, ImportRemarks &remarks);
};
