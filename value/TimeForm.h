#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

/// A time of day or a duration: "2h 05m 07s".
/// **Encoding** of the value: hours, minutes and seconds in 20, 6 and 6 bits.
namespace TimeForm {

/// A text that is no unsigned 32-bit number is shown as 0.
QString show(const QString &valueText);

/// Answers like the pattern "^(([0-9]{0,5})h)?[ ]?(([0-9]{0,2})m)?[ ]?(([0-9]{0,2})s)?": every part
/// may be absent and counts as 0, what follows is not read. Seconds above 59 carry into the
/// minutes, those into the hours.
QString read(QStringView text);

} // namespace TimeForm
