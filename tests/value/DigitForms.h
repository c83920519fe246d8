#pragma once

#include "tests/support/ProcessorTimer.h"

#include <KrDatatype/SimpleType.h>

#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

#include <initializer_list>
#include <optional>

/// What the tests of the hexadecimal and of the binary form have in common: the types, the shape of
/// the rows and what is done with a row. The rows stand in the tests.
namespace DigitForms {

using Show = QString (*)(const QString &, const SimpleType *);
using Read = std::optional<QString> (*)(QStringView, const SimpleType *);

inline constexpr SimpleType Types[] = {
    {1, SimpleType::SignedInteger, 1, "Signed 8 bit", "INT8"},
    {2, SimpleType::SignedInteger, 2, "Signed 16 bit", "INT16"},
    {3, SimpleType::SignedInteger, 4, "Signed 32 bit", "INT32"},
    {4, SimpleType::SignedInteger, 8, "Signed 64 bit", "INT64"},
    {5, SimpleType::UnsignedInteger, 1, "Unsigned 8 bit", "UINT8"},
    {6, SimpleType::UnsignedInteger, 2, "Unsigned 16 bit", "UINT16"},
    {7, SimpleType::UnsignedInteger, 4, "Unsigned 32 bit", "UINT32"},
    {8, SimpleType::UnsignedInteger, 8, "Unsigned 64 bit", "UINT64"},
    {9, SimpleType::UnsignedInteger, 3, "Unsigned 24 bit", "UINT24"},
    {10, SimpleType::FloatingPoint, 8, "Floating point 64 bit", "REAL64"},
    {11, SimpleType::CharacterString, 8, "Character string", "STRING8"},
    {12, SimpleType::ByteString, 4, "Byte string", "BYTES4"},
};

/// Null for a name that the table lacks.
inline const SimpleType *typeNamed(const QString &name)
{
    for (const SimpleType &type : Types) {
        if (type.shortName() == name)
            return &type;
    }
    return nullptr;
}

struct ShowRow {
    const char *name;
    const char *type;
    const char *value;
    const char *text;
};

inline void addShowRows(std::initializer_list<ShowRow> rows)
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    for (const ShowRow &row : rows) {
        QTest::newRow(row.name) << QString::fromLatin1(row.type) << QString::fromLatin1(row.value)
                                << QString::fromLatin1(row.text);
    }
}

inline void checkShow(Show show)
{
    QFETCH(QString, type);
    QFETCH(QString, value);
    QTEST(show(value, typeNamed(type)), "text");
}

struct ReadRow {
    const char *name;
    const char *type;
    QString typed;
    const char *value;
};

inline void addReadRows(std::initializer_list<ReadRow> rows)
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");
    for (const ReadRow &row : rows) {
        QTest::newRow(row.name) << QString::fromLatin1(row.type) << row.typed
                                << QString::fromLatin1(row.value);
    }
}

inline void checkRead(Read read)
{
    QFETCH(QString, type);
    QFETCH(QString, typed);
    QFETCH(QString, value);
    QCOMPARE(read(typed, typeNamed(type)), std::optional(value));
}

inline void checkRefused(Read read)
{
    QFETCH(QString, typed);
    QCOMPARE(read(typed, typeNamed(QStringLiteral("UINT64"))), std::nullopt);
    QCOMPARE(read(typed, typeNamed(QStringLiteral("INT64"))), std::nullopt);
}

/// Texts of up to six of the pieces are taken exactly where the pattern, whose group named "digits"
/// holds digits and blanks, matches them.
inline void checkLikePattern(
    Read read, const QRegularExpression &pattern, int base, const QString &pieces)
{
    QRandomGenerator random(1);
    for (int round = 0; round < 50000; ++round) {
        QString typed;
        for (int piece = random.bounded(7); piece > 0; --piece)
            typed += pieces[random.bounded(int(pieces.size()))];
        const QRegularExpressionMatch match = pattern.match(typed);
        std::optional<QString> expected;
        if (match.hasMatch()) {
            const QString digits =
                match.captured(QStringLiteral("digits")).remove(QLatin1Char(' '));
            expected = QString::number(digits.toULong(nullptr, base));
        }
        QCOMPARE(read(typed, typeNamed(QStringLiteral("UINT64"))), expected);
    }
}

/// Texts of a mebibyte; `greatest` is the digit that makes one of them too large.
inline void addLongRows(char greatest)
{
    constexpr qsizetype Mebibyte = 1 << 20;
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("zeros") << QString(Mebibyte, QLatin1Char('0')) << true;
    QTest::newRow("blanks") << QString(Mebibyte, QLatin1Char(' ')) << true;
    QTest::newRow("too large") << QString(Mebibyte, QLatin1Char(greatest)) << false;
    QTest::newRow("blanks and a letter")
        << QString(Mebibyte, QLatin1Char(' ')) + QLatin1Char('x') << false;
}

inline void checkLinear(Read read)
{
    QFETCH(QString, typed);
    const ProcessorTimer timer;
    const auto value = read(typed, typeNamed(QStringLiteral("UINT64")));
    QVERIFY(timer.elapsed() < 100);
    QTEST(value.has_value(), "accepted");
}

} // namespace DigitForms
