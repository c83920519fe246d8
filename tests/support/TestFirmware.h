#pragma once

#include <KrFirmware/ServoDriveFirmware.h>

#include <QtCore/QByteArray>

#include <memory>

/// Firmware for tests, loaded from descriptions that state only what the test is about.
namespace TestFirmware {

/// A family whose axes are hardware of their own, living spaces 1 and 2.
constexpr quint32 PhysicalAxesFamily = 4096;
/// A family of four axes without hardware of their own.
constexpr quint32 PlainAxesFamily = 8192;

/// Null, after a failure of the running test, where the description is refused. `members` are
/// further members of its root, each "key": value, with a comma between them.
std::unique_ptr<ServoDriveFirmware> load(quint32 family, const QByteArray &members = {});

/// The description of a parameter of data type INT32, for the list "systemParameters".
/// `members` are further members of it.
QByteArray parameter(quint32 number, const QByteArray &coordinate, const QByteArray &members = {});

} // namespace TestFirmware
