#include "tests/support/TestFirmware.h"

#include <QtTest/QTest>

namespace {

QByteArray withComma(const QByteArray &members)
{
    return members.isEmpty() ? QByteArray() : ',' + members;
}

} // namespace

std::unique_ptr<ServoDriveFirmware> TestFirmware::load(quint32 family, const QByteArray &members)
{
    const bool isPhysical = family == PhysicalAxesFamily;
    const QByteArray json = R"({"format": "kr-device-description", "version": 1,
        "family": {"identifier": )"
        + QByteArray::number(family) + R"(, "name": "Test", "hasPhysicalAxes": )"
        + (isPhysical ? "true" : "false") + R"(, "axes": )"
        + (isPhysical ? "[1, 2]" : "[1, 2, 3, 4]")
        + R"(}, "languages": ["de", "en"], "dataTypes": ["INT32"], "parameters": [])"
        + withComma(members) + '}';
    DescriptionError error;
    std::unique_ptr<ServoDriveFirmware> firmware =
        ServoDriveFirmware::loadFromBytes(json, QStringLiteral("test.json"), &error);
    if (!firmware)
        QTest::qFail(qUtf8Printable(error.toText()), __FILE__, __LINE__);
    return firmware;
}

QByteArray TestFirmware::parameter(
    quint32 number, const QByteArray &coordinate, const QByteArray &members)
{
    return R"({"number": )" + QByteArray::number(number)
        + R"(, "name": "System", "coordinates": [")" + coordinate
        + R"("], "elements": [{"dataType": "INT32"}])" + withComma(members) + '}';
}
