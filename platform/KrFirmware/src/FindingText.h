#pragma once

#include <QtCore/QCoreApplication>

/// What a description or one of its functions is told, in the language of the application: English
/// as written, German where translations/KrFirmware_de.ts is loaded. Its readers write firmware
/// descriptions, whose keys are English.
struct FindingText {
    Q_DECLARE_TR_FUNCTIONS(FindingText)
};
