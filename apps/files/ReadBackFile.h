#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <functional>

/// Lets another write a file by its name who does not notice when it was not written in full.
class ReadBackFile {
    Q_DECLARE_TR_FUNCTIONS(ReadBackFile)

public:
    /// Writes the file of that name; false where it cannot be opened.
    using Write = std::function<bool(const QString &)>;

    /// Has the bytes written beside the file, reads them back and puts them in the file's place,
    /// which stays as it is where anything goes wrong.
    /// Answers what went wrong, empty where nothing did.
    static QString replace(const QString &fileName, const QByteArray &expected, const Write &write);

private:
    static QString refusal(const QString &fileName);
};
