#pragma once

#include "apps/import/EdsFile.h"

#include <QtCore/QCoreApplication>

class ImportRemarks;
class QByteArray;

/// Reads the lines of an electronic data sheet or a device configuration file (CiA 306).
///
///     file    = *( line lineEnd )         lineEnd = CR LF / LF / CR, mixed as they come
///     line    = section / entry / comment / blank
///     section = "[" name "]"
///     entry   = key "=" value
///     comment = ( ";" / "#" / "//" ) text
///
/// Blanks around names, keys and values carry no meaning, upper and lower case in names and keys
/// neither. A section that is opened again goes on; of a key that is repeated the first value
/// counts. Bytes are UTF-8 where all of them are, otherwise Latin-1; a byte-order mark tells UTF-16
/// too.
class EdsReader {
    Q_DECLARE_TR_FUNCTIONS(EdsReader)

public:
    /// Never fails: a line that is none of the above is skipped. One pass.
    /// **Reports** every oddity with its line.
    static EdsFile read(const QByteArray &bytes, ImportRemarks &remarks);
};
