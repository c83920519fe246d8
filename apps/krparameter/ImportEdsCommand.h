#pragma once

#include "apps/import/ObjectDictionaryImport.h"

class ParameterContainer;

/// The part of `krparameter import-eds` that neither reads arguments nor prints.
class ImportEdsCommand {
public:
    /// 0 good, 2 bad request, 3 unreadable input, 6 write failed.
    static int exitCode(ImportResult::eStatus status);
    /// The node id of an option, decimal or "0x7F". Empty for anything but 1 to 127.
    static std::optional<quint8> nodeIdOf(const QString &text);
    /// Stores the values as they would come from the device: native texts, not checked.
    /// **Range** a container that holds the parameters of the imported description.
    static void apply(const ConfiguredValues &values, ParameterContainer &container);
};
