#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

/// The place that a file name leads to.
class FilePlace {
    Q_DECLARE_TR_FUNCTIONS(FilePlace)

public:
    /// Follows links, so that they stay ones when the file is replaced. Two names of one place give
    /// the same text, also where there is no file yet.
    explicit FilePlace(const QString &fileName);

    /// Empty where links lead back to themselves, and for the name of a folder, "a/"; error() then
    /// says so.
    QString path() const { return m_path; }
    QString error() const { return m_error; }
    friend bool operator==(const FilePlace &a, const FilePlace &b) = default;

private:
    QString m_path;
    QString m_error;
};
