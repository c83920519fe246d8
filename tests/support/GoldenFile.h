#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtTest/QTest>

/// Bytes that stand as files in tests/data/, since they are too many for a test's source.
class GoldenFile {
public:
    /// What a test compares the bytes that it made with: the file of that name, empty where there is
    /// none. Under the target renew_golden_files the bytes are written there first.
    static QByteArray expected(const QString &name, const QByteArray &made)
    {
        QFile file(QFINDTESTDATA("../data/") + name);
        if (qEnvironmentVariableIntValue("KR_RENEW_GOLDEN_FILES") != 0) {
            const bool isWritten =
                file.open(QIODevice::WriteOnly) && file.write(made) == made.size() && file.flush();
            file.close();
            if (!isWritten)
                return "cannot be written: " + file.fileName().toUtf8();
        }
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};
